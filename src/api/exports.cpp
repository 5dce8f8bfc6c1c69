// The exported C entry points: a thin layer over the process-wide Decoder.
#include <algorithm>
#include <cstring>
#include <string>

#include "api/decoder.h"
#include "api/names.h"
#include "cdmaSorrelin.h"

namespace {

using cs::Decoder;
using cs::process_decoder;

void copy_out(char* out, const std::string& s) { std::memcpy(out, s.c_str(), s.size() + 1); }

// The bounded calls' copy: never past `capacity`, always NUL-terminated, the whole size told.
int copy_bounded(char* out, std::size_t capacity, std::size_t* needed, const std::string& s, int rc) {
  if (needed != nullptr) *needed = s.size() + 1;
  if (out == nullptr || capacity == 0) return SORRELIN_TRUNCATED;   // not even the NUL fits
  const std::size_t n = s.size() < capacity ? s.size() : capacity - 1;
  std::memcpy(out, s.data(), n);
  out[n] = '\0';
  return n < s.size() ? SORRELIN_TRUNCATED : rc;
}

// A block: octet 0 gives the position N of the parameter octet, the message follows from
// octet 1, and octet N holds the P_REV to decode with (0 when N lies outside the block).
struct Block {
  const unsigned char* msg;
  std::size_t msg_len;
  std::uint8_t p_rev;
};
Block unpack(const unsigned char* block, unsigned len) {
  const unsigned n = len > 0 ? block[0] : 0;
  return Block{block + 1, len > 0 ? len - 1u : 0u, static_cast<std::uint8_t>(n < len ? block[n] : 0)};
}

// Full rendering of a block: name, three spaces, CR LF, then the detail text.
int block_full(int channel, const unsigned char* block, unsigned len, char* out) {
  if (out == nullptr || block == nullptr) return 1;
  const Block b = unpack(block, len);
  std::string text(out);
  int rc = process_decoder().details(text, 0, b.p_rev, channel, b.msg, b.msg_len);
  // A traffic message cut short on the reverse link is still shown as decoded.
  if (channel == cs::kRevTraffic && rc == 3) rc = 0;
  copy_out(out, Decoder::summary(channel, b.msg, b.msg_len) + "   \r\n" + text);
  return rc;
}

// Peer rendering: the message name and its peer view (Decoder::peer), in `outlen` octets.
//
// `outlen` is the size of `out`, its NUL included: nothing is written at or past out[outlen]
// (an `outlen` of 0 leaves `out` untouched). A rendering that does not fit is cut to
// `outlen` - 1 octets and its NUL, rather than `outlen` octets with the NUL one octet past the
// stated size: a host that kept a spare octet for that NUL loses one octet of text, a host
// that gave its true size is never overrun. The name is written whole
// or not at all: when it does not fit, `out` is empty and the view is left out too, since it
// means nothing without the name. The view is cut at whatever octet fills `out`.
int block_peer(int channel, const unsigned char* block, unsigned len, char* out, unsigned outlen) {
  if (out == nullptr) return 1;
  if (outlen > 0) out[0] = '\0';
  if (block == nullptr) return 1;
  const Block b = unpack(block, len);
  const std::string name = Decoder::summary(channel, b.msg, b.msg_len);
  std::string view;
  int rc = process_decoder().peer(view, 0, b.p_rev, channel, b.msg, b.msg_len);
  // The reverse traffic channel's view is shown whatever its decode gave, and that result is
  // not reported.
  if (channel == cs::kRevTraffic) rc = 0;
  if (name.empty() || name.size() >= outlen) return rc;
  const std::size_t n = std::min<std::size_t>(view.size(), outlen - 1 - name.size());
  std::memcpy(out, name.data(), name.size());
  std::memcpy(out + name.size(), view.data(), n);
  out[name.size() + n] = '\0';
  return rc;
}

void access_type_mod64(unsigned char* block, unsigned len) {
  if (block != nullptr && len >= 2) block[1] = static_cast<unsigned char>(block[1] % 64);
}

int block(int channel, unsigned char* b, unsigned len, char* out, unsigned outlen, unsigned flags) {
  // Before either rendering, in the caller's block.
  if (channel == cs::kAccess) access_type_mod64(b, len);
  if ((flags & 1) == 0) return block_full(channel, b, len, out);
  const int rc = block_peer(channel, b, len, out, outlen);
  // The paging and access channels' exports report 0 for a peer rendering, whatever it gave
  // (a null `out` included).
  return channel == cs::kPaging || channel == cs::kAccess ? 0 : rc;
}

}  // namespace

extern "C" {

int ovnDecodeDetails(char* out, unsigned char band_class, unsigned char p_rev, int channel, const unsigned char* msg,
                     unsigned int len) {
  if (out == nullptr || msg == nullptr) return 1;
  std::string text(out);
  const int rc = process_decoder().details(text, band_class, p_rev, channel, msg, len);
  copy_out(out, text);
  return rc;
}

int ovnDecodeSummary(char* out, unsigned char, unsigned char, int channel, const unsigned char* msg,
                     unsigned int len) {
  if (out == nullptr || msg == nullptr) return 1;
  copy_out(out, Decoder::summary(channel, msg, len));
  return 0;
}

int sorrelin_details(char* out, size_t capacity, size_t* needed, unsigned char band_class, unsigned char p_rev,
                     int channel, const unsigned char* msg, size_t len) {
  std::string text;
  const int rc = msg == nullptr ? 1 : process_decoder().details(text, band_class, p_rev, channel, msg, len);
  return copy_bounded(out, capacity, needed, text, rc);
}

int sorrelin_summary(char* out, size_t capacity, size_t* needed, int channel, const unsigned char* msg, size_t len) {
  const std::string name = msg == nullptr ? std::string() : Decoder::summary(channel, msg, len);
  return copy_bounded(out, capacity, needed, name, msg == nullptr ? 1 : 0);
}

size_t sorrelin_details_bound(size_t len) {
  constexpr size_t kMax = static_cast<size_t>(-1);
  if (len > (kMax - SORRELIN_BOUND_BASE) / SORRELIN_BOUND_PER_OCTET) return kMax;
  return SORRELIN_BOUND_BASE + SORRELIN_BOUND_PER_OCTET * len;
}

int fnSorrelinFC_SCHBlock(unsigned char* b, unsigned int len, char* out, unsigned int outlen, unsigned int flags) {
  return block(cs::kSync, b, len, out, outlen, flags);
}
int fnSorrelinFC_PCHBlock(unsigned char* b, unsigned int len, char* out, unsigned int outlen, unsigned int flags) {
  return block(cs::kPaging, b, len, out, outlen, flags);
}
int fnSorrelinRC_ACHBlock(unsigned char* b, unsigned int len, char* out, unsigned int outlen, unsigned int flags) {
  return block(cs::kAccess, b, len, out, outlen, flags);
}
int fnSorrelinFDTCHBlock(unsigned char* b, unsigned int len, char* out, unsigned int outlen, unsigned int flags) {
  return block(cs::kFwdTraffic, b, len, out, outlen, flags);
}
int fnSorrelinRDTCHBlock(unsigned char* b, unsigned int len, char* out, unsigned int outlen, unsigned int flags) {
  return block(cs::kRevTraffic, b, len, out, outlen, flags);
}

int fnSorrelinFC_SCHBlockPeer(unsigned char* b, unsigned int len, unsigned int, unsigned int, char* out,
                              unsigned int outlen) {
  return block(cs::kSync, b, len, out, outlen, 1);
}
int fnSorrelinFC_PCHBlockPeer(unsigned char* b, unsigned int len, unsigned int, unsigned int, char* out,
                              unsigned int outlen) {
  return block(cs::kPaging, b, len, out, outlen, 1);
}
int fnSorrelinRC_ACHBlockPeer(unsigned char* b, unsigned int len, unsigned int, unsigned int, char* out,
                              unsigned int outlen) {
  return block(cs::kAccess, b, len, out, outlen, 1);
}
int fnSorrelinFDTCHBlockPeer(unsigned char* b, unsigned int len, unsigned int, unsigned int, char* out,
                             unsigned int outlen) {
  return block(cs::kFwdTraffic, b, len, out, outlen, 1);
}
int fnSorrelinRDTCHBlockPeer(unsigned char* b, unsigned int len, unsigned int, unsigned int, char* out,
                             unsigned int outlen) {
  return block(cs::kRevTraffic, b, len, out, outlen, 1);
}

}  // extern "C"
