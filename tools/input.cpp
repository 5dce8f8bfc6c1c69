#include "input.h"

#include <cerrno>
#include <cstring>
#include <filesystem>

namespace cs::tool {

namespace {

constexpr std::size_t kBlock = 1 << 20;

bool is_space(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f'; }

int hex_value(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

bool all_decimal(std::string_view w) {
  if (w.empty()) return false;
  for (char c : w)
    if (c < '0' || c > '9') return false;
  return true;
}

// Up to kMaxWords words of a line, split at white space.
constexpr std::size_t kMaxWords = 8;

}  // namespace

LineReader::~LineReader() {
  if (file_ && owned_) std::fclose(file_);
}

bool LineReader::open(const std::string& path, std::string& error) {
  if (path == "-") {
    file_ = stdin;
  } else {
    std::error_code ec;
    if (std::filesystem::is_directory(path, ec)) {
      error = "is a directory";
      return false;
    }
    file_ = std::fopen(path.c_str(), "rb");
    if (!file_) {
      error = std::strerror(errno);
      return false;
    }
    owned_ = true;
  }
  buf_.resize(kBlock);
  return true;
}

bool LineReader::fill() {
  if (eof_) return false;
  if (pos_ > 0) {
    std::memmove(buf_.data(), buf_.data() + pos_, end_ - pos_);
    end_ -= pos_;
    pos_ = 0;
  }
  if (buf_.size() - end_ < kBlock / 2) buf_.resize(buf_.size() + kBlock);   // a line longer than a block
  const std::size_t got = std::fread(buf_.data() + end_, 1, buf_.size() - end_, file_);
  end_ += got;
  if (got == 0) {
    eof_ = true;
    if (std::ferror(file_)) error_ = std::strerror(errno);
    return false;
  }
  return true;
}

bool LineReader::next(std::string_view& line) {
  std::size_t scanned = pos_;
  for (;;) {
    const char* b = buf_.data();
    if (const void* nl = std::memchr(b + scanned, '\n', end_ - scanned)) {
      const std::size_t at = static_cast<std::size_t>(static_cast<const char*>(nl) - b);
      line = std::string_view(b + pos_, at - pos_);
      pos_ = at + 1;
      return true;
    }
    scanned = end_ - pos_;        // relative: fill() moves the rest to the front
    if (!fill()) break;
  }
  if (pos_ == end_ || !error_.empty()) return false;
  line = std::string_view(buf_.data() + pos_, end_ - pos_);   // the last line has no line end
  pos_ = end_;
  return true;
}

int channel_code(std::string_view w) {
  static constexpr std::string_view kWords[] = {"", "sync", "paging", "access", "ftc", "rtc"};
  for (int i = 1; i <= 5; ++i)
    if (w == kWords[i] || (w.size() == 1 && w[0] == '0' + i)) return i;
  return 0;
}

const char* channel_word(int channel) {
  static constexpr const char* kWords[] = {"?", "sync", "paging", "access", "ftc", "rtc"};
  return channel >= 1 && channel <= 5 ? kWords[channel] : kWords[0];
}

int octet_number(std::string_view w) {
  if (w.empty() || w.size() > 3 || !all_decimal(w)) return -1;
  int v = 0;
  for (char c : w) v = v * 10 + (c - '0');
  return v <= 255 ? v : -1;
}

LineKind parse_line(std::string_view line, std::uint8_t default_band, LineSpec& spec,
                    std::vector<std::uint8_t>& octets, std::string& why) {
  if (const std::size_t hash = line.find('#'); hash != std::string_view::npos) line = line.substr(0, hash);
  // The first words; the hex may take any number after them.
  std::string_view words[kMaxWords];
  std::size_t n = 0, i = 0;
  while (i < line.size()) {
    while (i < line.size() && is_space(line[i])) ++i;
    if (i == line.size()) break;
    std::size_t j = i;
    while (j < line.size() && !is_space(line[j])) ++j;
    if (n == kMaxWords - 1) {
      words[n++] = line.substr(i);      // the rest, spaces included
      break;
    }
    words[n++] = line.substr(i, j - i);
    i = j;
  }
  if (n == 0) return LineKind::blank;
  if (n < 3) {
    why = "expected CHANNEL P_REV [BAND_CLASS] HEX";
    return LineKind::bad;
  }
  spec.channel = channel_code(words[0]);
  if (spec.channel == 0) {
    why = "unknown channel '" + escaped(words[0]) + "' (sync, paging, access, ftc, rtc or 1..5)";
    return LineKind::bad;
  }
  const int p_rev = octet_number(words[1]);
  if (p_rev < 0) {
    why = "P_REV '" + escaped(words[1]) + "' is not a number from 0 to 255";
    return LineKind::bad;
  }
  spec.p_rev = static_cast<std::uint8_t>(p_rev);
  spec.band_class = default_band;
  std::size_t first_hex = 2;
  if (n >= 4 && all_decimal(words[2]) && words[2].size() <= 3) {
    // "CHANNEL P_REV BAND HEX": the old form, and hex in words after a band class. Two
    // digits before words of two digits read as well as the first octet of spaced hex.
    if (n >= 5 && words[2].size() == 2 && words[3].size() == 2) {
      why = "'" + escaped(words[2]) +
            "' may be the band class or the first octet: give a band class of one digit before hex written "
            "in words of two digits, or use --band-class with the hex alone";
      return LineKind::bad;
    }
    const int band = octet_number(words[2]);
    if (band < 0) {
      why = "band class '" + escaped(words[2]) + "' is not a number from 0 to 255";
      return LineKind::bad;
    }
    spec.band_class = static_cast<std::uint8_t>(band);
    first_hex = 3;
  }
  // The hex: the words from first_hex on (the last word may hold the rest of the line).
  octets.clear();
  int high = -1;
  std::size_t digits = 0;
  for (std::size_t k = first_hex; k < n; ++k) {
    std::string_view w = words[k];
    if (k == first_hex && w.size() >= 2 && w[0] == '0' && (w[1] == 'x' || w[1] == 'X')) w.remove_prefix(2);
    for (std::size_t c = 0; c < w.size(); ++c) {
      const char ch = w[c];
      const int v = hex_value(ch);
      if (v < 0) {
        if (ch == ':' || is_space(ch)) continue;
        why = "'" + escaped(std::string_view(&ch, 1)) + "' in '" + escaped(words[k]) + "' is not a hex digit";
        return LineKind::bad;
      }
      ++digits;
      if (high < 0) {
        high = v;
      } else {
        octets.push_back(static_cast<std::uint8_t>(high << 4 | v));
        high = -1;
      }
    }
  }
  if (digits == 0) {
    why = "no hex digits after the revision fields";
    return LineKind::bad;
  }
  if (high >= 0) {
    why = "the hex has an odd number of digits (" + std::to_string(digits) + ")";
    return LineKind::bad;
  }
  return LineKind::message;
}

std::string escaped(std::string_view s, std::size_t max) {
  static constexpr char kHex[] = "0123456789abcdef";
  std::string out;
  for (std::size_t i = 0; i < s.size(); ++i) {
    if (out.size() >= max) {
      out += "...";
      break;
    }
    const auto c = static_cast<unsigned char>(s[i]);
    if (c == '\\') {
      out += "\\\\";
    } else if (c >= 0x20 && c < 0x7F) {
      out += static_cast<char>(c);
    } else {
      out += "\\x";
      out += kHex[c >> 4];
      out += kHex[c & 15];
    }
  }
  return out;
}

void append_json_string(std::string& out, std::string_view s) {
  static constexpr char kHex[] = "0123456789abcdef";
  out += '"';
  for (const char ch : s) {
    const auto c = static_cast<unsigned char>(ch);
    if (c == '"' || c == '\\') {
      out += '\\';
      out += ch;
    } else if (c >= 0x20 && c < 0x7F) {
      out += ch;
    } else {
      out += "\\u00";
      out += kHex[c >> 4];
      out += kHex[c & 15];
    }
  }
  out += '"';
}

}  // namespace cs::tool
