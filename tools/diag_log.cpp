#include "diag_log.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

namespace cs::diag {

namespace {

constexpr std::size_t kItemHeader = 12;     // length, code, timestamp
constexpr std::size_t kMaxFrame = 65536 + 16;

std::uint16_t le16(const std::uint8_t* p) { return static_cast<std::uint16_t>(p[0] | p[1] << 8); }
std::uint64_t le64(const std::uint8_t* p) {
  std::uint64_t v = 0;
  for (int i = 7; i >= 0; --i) v = v << 8 | p[i];
  return v;
}

// The X.25 CRC-16 of the HDLC frames, bytewise over the reflected polynomial.
std::uint16_t hdlc_crc(const std::uint8_t* p, std::size_t n) {
  static const auto table = [] {
    std::array<std::uint16_t, 256> t{};
    for (unsigned i = 0; i < 256; ++i) {
      unsigned c = i;
      for (int k = 0; k < 8; ++k) c = c & 1 ? (c >> 1) ^ 0x8408 : c >> 1;
      t[i] = static_cast<std::uint16_t>(c);
    }
    return t;
  }();
  std::uint16_t c = 0xFFFF;
  for (std::size_t i = 0; i < n; ++i) c = static_cast<std::uint16_t>((c >> 8) ^ table[(c ^ p[i]) & 0xFF]);
  return static_cast<std::uint16_t>(~c);
}

// A message CRC over the first `bits` bits, MSB first.
std::uint32_t air_crc(const std::uint8_t* p, std::size_t bits, unsigned width, std::uint32_t poly) {
  const std::uint32_t mask = static_cast<std::uint32_t>((std::uint64_t{1} << width) - 1);
  std::uint32_t reg = mask;
  for (std::size_t i = 0; i < bits; ++i) {
    const unsigned in = (p[i >> 3] >> (7 - (i & 7))) & 1;
    const unsigned fb = ((reg >> (width - 1)) & 1) ^ in;
    reg = (reg << 1) & mask;
    if (fb) reg ^= poly;
  }
  return reg ^ mask;
}

// Bits [from, from + n) of p as a number (n <= 32).
std::uint32_t bits_at(const std::uint8_t* p, std::size_t from, unsigned n) {
  std::uint32_t v = 0;
  for (unsigned i = 0; i < n; ++i) v = v << 1 | ((p[(from + i) >> 3] >> (7 - ((from + i) & 7))) & 1);
  return v;
}

// Days since 1970-01-01 to a civil date (proleptic Gregorian).
void civil_from_days(std::int64_t z, int& y, unsigned& m, unsigned& d) {
  z += 719468;
  const std::int64_t era = (z >= 0 ? z : z - 146096) / 146097;
  const unsigned doe = static_cast<unsigned>(z - era * 146097);
  const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const unsigned mp = (5 * doy + 2) / 153;
  d = doy - (153 * mp + 2) / 5 + 1;
  m = mp < 10 ? mp + 3 : mp - 9;
  y = static_cast<int>(yoe + era * 400 + (m <= 2));
}

void put_digits(std::string& s, std::uint64_t v, int width) {
  char b[24];
  int n = 0;
  do {
    b[n++] = static_cast<char>('0' + v % 10);
    v /= 10;
  } while (v > 0 || n < width);
  while (n > 0) s += b[--n];
}

}  // namespace

Container container_of(const std::string& path) {
  std::string ext = std::filesystem::path(path).extension().string();
  for (char& c : ext) c = static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
  return ext == ".dlf" ? Container::dlf : Container::hdlc;
}

#if defined(_WIN32)
long read_some(std::FILE* f, void* p, std::size_t n) {
  return _read(_fileno(f), p, static_cast<unsigned>(n > (1u << 30) ? 1u << 30 : n));
}
#else
long read_some(std::FILE* f, void* p, std::size_t n) { return static_cast<long>(::read(fileno(f), p, n)); }
#endif

std::FILE* open_input(const std::string& path, bool& owned, std::string& error) {
  owned = false;
  if (path == "-") return stdin;
  std::error_code ec;
  if (std::filesystem::is_directory(path, ec)) {
    error = "is a directory";
    return nullptr;
  }
  std::FILE* f = std::fopen(path.c_str(), "rb");
  if (!f) {
    error = std::strerror(errno);
    return nullptr;
  }
  owned = true;
  return f;
}

bool LogReader::open(const std::string& path, Container c, std::string& error) {
  if (!open_file(path, error)) return false;
  container_ = c;
  frame_.reserve(kMaxFrame);
  return true;
}

bool LogReader::next_frame() {
  for (;;) {
    frame_.clear();
    bool escape = false, overlong = false, ended = false;
    for (;;) {
      if (pos_ == end_ && !fill()) break;
      // The run up to the next flag, copied at once where it holds no escape.
      const std::uint8_t* p = buf_.data() + pos_;
      const std::uint8_t* const e = buf_.data() + end_;
      const auto* flag = static_cast<const std::uint8_t*>(std::memchr(p, 0x7E, static_cast<std::size_t>(e - p)));
      const std::uint8_t* const stop = flag ? flag : e;
      while (p < stop) {
        if (escape) {
          if (frame_.size() < kMaxFrame) {
            frame_.push_back(static_cast<std::uint8_t>(*p ^ 0x20));
          } else {
            overlong = true;
          }
          ++p;
          escape = false;
          continue;
        }
        const auto* esc = static_cast<const std::uint8_t*>(std::memchr(p, 0x7D, static_cast<std::size_t>(stop - p)));
        const std::uint8_t* const run_end = esc ? esc : stop;
        const std::size_t room = kMaxFrame - frame_.size();
        const std::size_t n = static_cast<std::size_t>(run_end - p);
        frame_.insert(frame_.end(), p, p + (n < room ? n : room));
        if (n > room) overlong = true;
        p = run_end;
        if (esc) {
          escape = true;
          ++p;
        }
      }
      pos_ = static_cast<std::size_t>(stop - buf_.data());
      if (flag) {
        ++pos_;
        ended = true;
        break;
      }
    }
    if (!ended) {
      if (!frame_.empty()) ++counts_.damaged;    // cut off by the end of the file
      return false;
    }
    if (frame_.empty()) continue;                // two flags in a row
    if (overlong || frame_.size() < 3 ||
        hdlc_crc(frame_.data(), frame_.size() - 2) != le16(frame_.data() + frame_.size() - 2)) {
      ++counts_.damaged;
      continue;
    }
    frame_.resize(frame_.size() - 2);
    return true;
  }
}

bool LogReader::item_from(const std::uint8_t* p, std::size_t n, LogItem& item) {
  if (n < kItemHeader || le16(p) != n) return false;
  item.code = le16(p + 2);
  item.timestamp = le64(p + 4);
  item.payload = p + kItemHeader;
  item.size = n - kItemHeader;
  ++counts_.items;
  return true;
}

bool LogReader::next(LogItem& item) {
  if (container_ == Container::dlf) {
    for (;;) {
      while (end_ - pos_ < 2 && fill()) {}
      if (end_ - pos_ < 2) {
        if (end_ > pos_) ++counts_.damaged;       // a cut record at the end
        pos_ = end_;
        return false;
      }
      const std::size_t n = le16(buf_.data() + pos_);
      if (n < kItemHeader) {
        // Nothing after a broken length can be found again: the rest is lost.
        ++counts_.damaged;
        pos_ = end_;
        eof_ = true;
        return false;
      }
      while (end_ - pos_ < n && fill()) {}
      if (end_ - pos_ < n) {
        ++counts_.damaged;
        pos_ = end_;
        return false;
      }
      const std::uint8_t* p = buf_.data() + pos_;
      pos_ += n;
      if (item_from(p, n, item)) return true;
    }
  }
  while (next_frame()) {
    // A log frame: command 0x10, one octet, the length of the rest, then the item.
    if (frame_.size() >= 4 + kItemHeader && frame_[0] == 0x10 && le16(frame_.data() + 2) == frame_.size() - 4 &&
        item_from(frame_.data() + 4, frame_.size() - 4, item))
      return true;
    if (frame_[0] == 0x10) {
      ++counts_.damaged;
    } else {
      ++counts_.other_frames;
    }
  }
  return false;
}

int channel_of_log_code(std::uint16_t code) {
  switch (code) {
    case 0x1004: return kAccess;
    case 0x1005: return kRevTraffic;
    case 0x1006: return kSync;
    case 0x1007: return kPaging;
    case 0x1008: return kFwdTraffic;
    default: return 0;
  }
}

std::uint32_t crc30(const std::uint8_t* p, std::size_t bits) { return air_crc(p, bits, 30, 0x2030B9C7); }
std::uint32_t crc16(const std::uint8_t* p, std::size_t bits) { return air_crc(p, bits, 16, 0x1021); }

CapsuleCheck check_capsule(int channel, const std::uint8_t* p, std::size_t n) {
  const unsigned width = channel == kFwdTraffic || channel == kRevTraffic ? 16 : 30;
  // At least the length octet, the type octet and the CRC.
  if (n == 0 || p[0] != n || n * 8 < 16 + width) return CapsuleCheck::bad_length;
  const std::size_t covered = n * 8 - width;
  const std::uint32_t want = width == 30 ? crc30(p, covered) : crc16(p, covered);
  return bits_at(p, covered, width) == want ? CapsuleCheck::ok : CapsuleCheck::bad_crc;
}

const char* describe(CapsuleCheck c, int channel) {
  const bool traffic = channel == kFwdTraffic || channel == kRevTraffic;
  switch (c) {
    case CapsuleCheck::ok: return "ok";
    case CapsuleCheck::bad_length:
      return traffic ? "no message capsule (its length octet does not count its octets); the traffic channels' "
                       "log format is unverified"
                     : "its length octet does not count its octets";
    case CapsuleCheck::bad_crc:
      return traffic ? "its CRC-16 does not check; the traffic channels' log format is unverified"
                     : "its CRC-30 does not check";
  }
  return "";
}

std::string format_timestamp(std::uint64_t ts) {
  const std::uint64_t us = (ts >> 16) * 1250 + (ts & 0xFFFF) * 1250 / 49152;
  const std::uint64_t ms = us / 1000;
  const std::uint64_t secs = ms / 1000;
  constexpr std::int64_t kGpsEpochDays = 3657;   // 1980-01-06 after 1970-01-01
  int y;
  unsigned mo, d;
  civil_from_days(kGpsEpochDays + static_cast<std::int64_t>(secs / 86400), y, mo, d);
  const std::uint64_t sod = secs % 86400;
  std::string s;
  s.reserve(24);
  put_digits(s, static_cast<std::uint64_t>(y), 4);
  s += '-';
  put_digits(s, mo, 2);
  s += '-';
  put_digits(s, d, 2);
  s += ' ';
  put_digits(s, sod / 3600, 2);
  s += ':';
  put_digits(s, sod / 60 % 60, 2);
  s += ':';
  put_digits(s, sod % 60, 2);
  s += '.';
  put_digits(s, ms % 1000, 3);
  return s;
}

double timestamp_seconds(std::uint64_t ts) {
  return static_cast<double>(ts >> 16) * 1.25e-3 + static_cast<double>(ts & 0xFFFF) * (1.25e-3 / 49152);
}

void Revision::follow(int channel, const std::uint8_t* msg, std::size_t len, std::uint8_t band_class) {
  if (fixed_ || len == 0) return;
  // The Sync Channel Message (type 1) and the Extended System Parameters Message (type 13 on
  // the paging channel) carry the base station's P_REV.
  if (!((channel == kSync && msg[0] == 1) || (channel == kPaging && msg[0] == 13))) return;
  if (!probe_) probe_ = std::make_unique<Decoder>(DecodeOptions{false, false});
  json_.clear();
  probe_->details_json(json_, band_class, p_rev_, channel, msg, len);
  // The message's own field: the first member of that name (MIN_P_REV is another name).
  const std::size_t at = json_.find("\"P_REV\":");
  if (at == std::string::npos) return;
  unsigned v = 0;
  std::size_t i = at + 8;
  bool digits = false;
  while (i < json_.size() && json_[i] >= '0' && json_[i] <= '9' && v < 256) {
    v = v * 10 + static_cast<unsigned>(json_[i++] - '0');
    digits = true;
  }
  if (!digits || v > 255 || v == 0) return;
  p_rev_ = static_cast<std::uint8_t>(v < mob_ ? v : mob_);
}

bool message_of(const LogItem& item, Message& m) {
  const int channel = channel_of_log_code(item.code);
  if (channel == 0) return false;
  m.code = item.code;
  m.channel = channel;
  m.timestamp = item.timestamp;
  m.buffer.assign(item.payload, item.payload + item.size);
  m.buffer.push_back(0);
  m.check = check_capsule(channel, item.payload, item.size);
  return true;
}

}  // namespace cs::diag
