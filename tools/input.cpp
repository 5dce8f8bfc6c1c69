#include "input.h"

#include <array>
#include <cstring>

namespace cs::tool {

namespace {

// Per octet: its hex value (0 to 15), kSpace for white space, kOther for anything else.
constexpr std::int8_t kSpace = -2, kOther = -1;
constexpr std::array<std::int8_t, 256> kClass = [] {
  std::array<std::int8_t, 256> t{};
  t.fill(kOther);
  for (int c = 0; c < 10; ++c) t['0' + c] = static_cast<std::int8_t>(c);
  for (int c = 0; c < 6; ++c) t['a' + c] = t['A' + c] = static_cast<std::int8_t>(10 + c);
  for (const char c : {' ', '\t', '\r', '\v', '\f'}) t[static_cast<unsigned char>(c)] = kSpace;
  return t;
}();

std::int8_t class_of(char c) { return kClass[static_cast<unsigned char>(c)]; }

bool all_decimal(std::string_view w) {
  if (w.empty()) return false;
  for (char c : w)
    if (c < '0' || c > '9') return false;
  return true;
}


}  // namespace

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

LineKind parse_line(std::string_view line, std::uint8_t default_band, LineHead& head,
                    std::vector<std::uint8_t>& octets, std::string& why) {
  // One pass over the line: the revision words are split off, the hex is read where it lies.
  const char* const begin = line.data();
  const char* end = begin + line.size();
  if (const void* hash = std::memchr(begin, '#', line.size())) end = static_cast<const char*>(hash);
  const auto skip_space = [end](const char* q) {
    while (q < end && class_of(*q) == kSpace) ++q;
    return q;
  };
  const auto word_end = [end](const char* q) {
    while (q < end && class_of(*q) != kSpace) ++q;
    return q;
  };
  std::string_view words[3];
  std::size_t n = 0;
  const char* q = begin;
  for (; n < 3; ++n) {
    q = skip_space(q);
    if (q == end) break;
    const char* e = word_end(q);
    words[n] = std::string_view(q, static_cast<std::size_t>(e - q));
    q = e;
  }
  if (n == 0) return LineKind::blank;
  if (n < 3) {
    why = "expected CHANNEL P_REV [BAND_CLASS] HEX";
    return LineKind::bad;
  }
  head.channel = channel_code(words[0]);
  if (head.channel == 0) {
    why = "unknown channel '" + escaped(words[0]) + "' (sync, paging, access, ftc, rtc or 1..5)";
    return LineKind::bad;
  }
  const int p_rev = octet_number(words[1]);
  if (p_rev < 0) {
    why = "P_REV '" + escaped(words[1]) + "' is not a number from 0 to 255";
    return LineKind::bad;
  }
  head.p_rev = static_cast<std::uint8_t>(p_rev);
  head.band_class = default_band;
  const char* hex = words[2].data();
  const char* const fourth = skip_space(q);
  if (fourth < end && all_decimal(words[2]) && words[2].size() <= 3) {
    // "CHANNEL P_REV BAND HEX...": the old form, and hex in words after a band class. Two
    // digits before words of two digits read as well as the first octet of spaced hex.
    if (words[2].size() == 2) {
      const char* e = word_end(fourth);
      if (e - fourth == 2 && skip_space(e) < end) {
        why = "'" + escaped(words[2]) +
              "' may be the band class or the first octet: give a band class of one digit before hex written "
              "in words of two digits, or use --band-class with the hex alone";
        return LineKind::bad;
      }
    }
    const int band = octet_number(words[2]);
    if (band < 0) {
      why = "band class '" + escaped(words[2]) + "' is not a number from 0 to 255";
      return LineKind::bad;
    }
    head.band_class = static_cast<std::uint8_t>(band);
    hex = fourth;
  }
  // The hex runs to the end of the line (or its comment), spaces and colons between its
  // digits; two digits are taken at a time where they come in pairs.
  if (end - hex >= 2 && hex[0] == '0' && (hex[1] == 'x' || hex[1] == 'X')) hex += 2;
  octets.resize(static_cast<std::size_t>(end - hex) / 2 + 1);
  std::uint8_t* out = octets.data();
  std::size_t count = 0, digits = 0;
  int high = -1;
  for (const char* p = hex; p < end;) {
    const std::int8_t v = class_of(*p);
    if (high < 0 && v >= 0 && p + 1 < end && class_of(p[1]) >= 0) {
      out[count++] = static_cast<std::uint8_t>(v << 4 | class_of(p[1]));
      digits += 2;
      p += 2;
      continue;
    }
    if (v < 0) {
      if (*p == ':' || v == kSpace) {
        ++p;
        continue;
      }
      // The word that holds it, for the message (appended piece by piece: g++ 12 warns wrongly
      // about "'" + std::string here).
      const char* w = p;
      while (w > hex && class_of(w[-1]) != kSpace) --w;
      why.assign(1, '\'');
      why += escaped(std::string_view(p, 1));
      why += "' in '";
      why += escaped(std::string_view(w, static_cast<std::size_t>(word_end(p) - w)));
      why += "' is not a hex digit";
      return LineKind::bad;
    }
    ++digits;
    ++p;
    if (high < 0) {
      high = v;
    } else {
      out[count++] = static_cast<std::uint8_t>(high << 4 | v);
      high = -1;
    }
  }
  octets.resize(count);
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
