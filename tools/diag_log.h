// Reading phone logs: the CDMA2000 1x signalling messages out of a Qualcomm DIAG log.
//
// Two containers are read:
//   - an HDLC-framed DIAG stream (.qmdl files, MobileInsight's .mi2log): frames end in 0x7E,
//     0x7D escapes the next octet (xor 0x20), and each frame ends in a CRC-16 (the X.25 CRC:
//     reflected polynomial 0x8408, preset and final xor 0xFFFF, sent low octet first). A log
//     frame is: command 0x10, one octet, a 16-bit length of the rest, then the log item;
//   - .dlf files: log items back to back, with nothing around them.
// A log item is: its 16-bit length (this header of 12 octets included), the 16-bit log code,
// the 64-bit timestamp, then the payload; all little-endian.
//
// The 1x signalling log codes carry one message capsule each, as it travels on the air:
// MSG_LENGTH (octets in the capsule, itself and the CRC included), the message from its type
// octet, then the CRC: 30 bits on the sync, paging and access channels (checked here), 16 on
// the traffic channels. That the traffic channels' log items hold the same capsule has not
// been seen in a real log yet: such an item is decoded only when its length octet and its
// CRC-16 check as a capsule's, and reported otherwise.
#pragma once
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "cdmaSorrelin.hpp"

namespace cs::diag {

// One log item.
struct LogItem {
  std::uint16_t code = 0;
  std::uint64_t timestamp = 0;          // as logged (see format_timestamp)
  const std::uint8_t* payload = nullptr;
  std::size_t size = 0;
};

// What a reader passed over.
struct Counts {
  std::uint64_t items = 0;              // log items read
  std::uint64_t other_frames = 0;       // frames that are no log item (responses, messages, ...)
  std::uint64_t damaged = 0;            // frames whose CRC-16 or length does not check
};

enum class Container { hdlc, dlf };

// The container a file is read as: .dlf by its name, every other file as a DIAG stream.
Container container_of(const std::string& path);

// Pulls the log items out of a file, reading it in large blocks; memory stays bounded by the
// largest frame (at most 64 KiB of log item), whatever the file's size.

// The file at `path` opened for reading in binary, or standard input for "-" (then `owned` is
// false: the caller must not close it); null with `error` set when it cannot be read.
std::FILE* open_input(const std::string& path, bool& owned, std::string& error);

// One read(2) of the file's descriptor: it returns what a pipe or a terminal holds, where
// fread would wait for a whole block. Negative on an error.
long read_some(std::FILE* f, void* p, std::size_t n);

// A file read a block at a time into a buffer that keeps the unconsumed tail: the input of the
// log reader and of the tool's line reader. `buf_[pos_, end_)` is what is read and not yet used.
template <class Octet>
class BlockInput {
 public:
  static constexpr std::size_t kBlock = std::size_t{1} << 20;   // octets read at once

  BlockInput() = default;
  ~BlockInput() {
    if (file_ && owned_) std::fclose(file_);
  }
  BlockInput(const BlockInput&) = delete;
  BlockInput& operator=(const BlockInput&) = delete;

  // Called before a read that may wait (the previous one returned less than it asked): a
  // chance to flush output first.
  void on_wait(void (*hook)(void*), void* context) {
    hook_ = hook;
    context_ = context;
  }
  const std::string& error() const { return error_; }

 protected:
  // Opens `path` ("-" is standard input); false with `error` set when it cannot be read.
  bool open_file(const std::string& path, std::string& error) {
    file_ = open_input(path, owned_, error);
    if (!file_) return false;
    buf_.resize(kBlock);
    return true;
  }
  // Moves the unconsumed tail to the front and reads once after it (growing the buffer when
  // less than half a block is free); false at the end of the file or on a read error.
  bool fill() {
    if (eof_ || !file_) return false;
    if (pos_ > 0) {
      std::memmove(buf_.data(), buf_.data() + pos_, end_ - pos_);
      end_ -= pos_;
      pos_ = 0;
    }
    if (buf_.size() - end_ < kBlock / 2) buf_.resize(end_ + kBlock);
    if (short_read_ && hook_) hook_(context_);
    const std::size_t want = buf_.size() - end_;
    long got;
    do {
      got = read_some(file_, buf_.data() + end_, want);
    } while (got < 0 && errno == EINTR);
    if (got <= 0) {
      eof_ = true;
      if (got < 0) error_ = std::strerror(errno);
      return false;
    }
    end_ += static_cast<std::size_t>(got);
    short_read_ = static_cast<std::size_t>(got) < want;
    return true;
  }

  std::FILE* file_ = nullptr;
  bool owned_ = false;
  bool eof_ = false;
  bool short_read_ = false;
  void (*hook_)(void*) = nullptr;
  void* context_ = nullptr;
  std::vector<Octet> buf_;
  std::size_t pos_ = 0, end_ = 0;
  std::string error_;
};

class LogReader : public BlockInput<std::uint8_t> {
 public:
  // Opens `path` ("-" is standard input); false with `error` set when it cannot be read.
  bool open(const std::string& path, Container c, std::string& error);
  // The next log item (valid until the next call), or false at the end of the file or on a
  // read error (then error() tells it).
  bool next(LogItem& item);
  const Counts& counts() const { return counts_; }

 private:
  bool next_frame();            // the next HDLC frame into frame_, unescaped, CRC checked
  bool item_from(const std::uint8_t* p, std::size_t n, LogItem& item);

  Container container_ = Container::hdlc;
  std::vector<std::uint8_t> frame_;
  Counts counts_;
};

// The logical channel of a 1x signalling log code (cs::kSync ... cs::kRevTraffic), or 0.
int channel_of_log_code(std::uint16_t code);

// How a capsule checks.
enum class CapsuleCheck {
  ok,            // MSG_LENGTH is the capsule's size and the CRC checks
  bad_length,    // MSG_LENGTH is not the size of the item, or too small for a CRC
  bad_crc,       // the CRC does not check
};
CapsuleCheck check_capsule(int channel, const std::uint8_t* p, std::size_t n);
const char* describe(CapsuleCheck c, int channel);

// The message CRCs of the air interface (C.S0004): `bits` bits of `p` from its first bit,
// register preset to ones, result inverted. CRC-30: g(x) = x^30 + x^29 + x^21 + x^20 + x^15 +
// x^13 + x^12 + x^11 + x^8 + x^7 + x^6 + x^2 + x + 1; CRC-16: g(x) = x^16 + x^12 + x^5 + 1.
std::uint32_t crc30(const std::uint8_t* p, std::size_t bits);
std::uint32_t crc16(const std::uint8_t* p, std::size_t bits);

// A log timestamp as "YYYY-MM-DD hh:mm:ss.mmm": the upper 48 bits count 1.25 ms units since
// 1980-01-06 00:00:00 (the GPS epoch; CDMA system time), the lower 16 bits the time since
// the last unit in 1/32 chips (49152 to the unit). A phone that has no system time yet logs
// small values, shown as days in January 1980.
std::string format_timestamp(std::uint64_t ts);
// Seconds since the GPS epoch.
double timestamp_seconds(std::uint64_t ts);

// The P_REV a log's messages are decoded with: the base station's, as its Sync Channel and
// Extended System Parameters Messages announce it, no higher than the mobile's own when that
// is given; or a fixed value.
class Revision {
 public:
  explicit Revision(std::uint8_t initial = 6) : p_rev_(initial) {}
  void fix(std::uint8_t p_rev) { p_rev_ = p_rev; fixed_ = true; }
  void limit(std::uint8_t mob_p_rev) { mob_ = mob_p_rev; p_rev_ = p_rev_ < mob_ ? p_rev_ : mob_; }
  std::uint8_t p_rev() const { return p_rev_; }
  // Follows a message about to be decoded: the P_REV of a Sync Channel Message or of an
  // Extended System Parameters Message (msg from its type octet, len as the library takes it).
  void follow(int channel, const std::uint8_t* msg, std::size_t len, std::uint8_t band_class);

 private:
  std::uint8_t p_rev_;
  std::uint8_t mob_ = 255;
  bool fixed_ = false;
  std::unique_ptr<Decoder> probe_;
  std::string json_;
};

// The `len` to hand the library with a pointer to the type octet of a capsule of
// `msg_length` octets (MSG_LENGTH) so that its bit count ends exactly before the CRC. Channels
// 2 to 5 count from the type octet but leave 8 bits out: len = MSG_LENGTH (one octet more
// than follow the length octet). The sync channel skips the type octet and counts the rest
// exactly: len = MSG_LENGTH - 1.
inline std::size_t library_len(int channel, std::size_t msg_length) {
  return channel == kSync && msg_length > 0 ? msg_length - 1 : msg_length;
}

// One 1x signalling message of a log, ready for the library: `msg` points after the length
// octet and `len` is library_len() (`buffer` holds a zero octet after the capsule, so that
// the library may count one octet more than it holds).
struct Message {
  std::uint16_t code = 0;
  int channel = 0;
  std::uint64_t timestamp = 0;
  CapsuleCheck check = CapsuleCheck::ok;
  std::vector<std::uint8_t> buffer;     // the capsule, then one zero octet
  const std::uint8_t* capsule() const { return buffer.data(); }
  std::size_t capsule_size() const { return buffer.empty() ? 0 : buffer.size() - 1; }
  const std::uint8_t* msg() const { return buffer.data() + 1; }
  std::size_t len() const { return library_len(channel, capsule_size()); }
};

// The 1x signalling message of a log item: false when the item is no such message.
bool message_of(const LogItem& item, Message& m);

}  // namespace cs::diag
