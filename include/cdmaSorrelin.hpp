// cdmaSorrelin's C++ interface: a reentrant decoder (one per thread; no shared state).
//
//     cs::Decoder d;
//     std::string text;
//     int rc = d.details(text, band_class, p_rev, cs::kFwdTraffic, msg, len);
//
// The texts are those of the C interface (cdmaSorrelin.h): detail lines end in CR LF.
#ifndef CDMA_SORRELIN_HPP
#define CDMA_SORRELIN_HPP

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace cs {

// Channel codes.
enum Channel : int { kSync = 1, kPaging = 2, kAccess = 3, kFwdTraffic = 4, kRevTraffic = 5 };

class Decoder {
 public:
  Decoder();
  ~Decoder();
  Decoder(const Decoder&) = delete;
  Decoder& operator=(const Decoder&) = delete;

  // Appends the detail text of one message to `out`, then turns every LF of `out` into CR LF
  // (unless the channel path stopped early without it). Returns the decode result: 0, 1 or 3;
  // an unknown channel replaces `out` by "<unknown channel type>" and returns 0. The
  // decoder keeps, per channel, what the standard's layer 2 carries over from one message to
  // the next (the traffic channels' header fields): feed it one stream of messages.
  int details(std::string& out, std::uint8_t band_class, std::uint8_t p_rev, int channel, const std::uint8_t* msg,
              std::size_t len);

  // The message name (or "unknown message: msg id = N") of the first octet of `msg` on `channel`.
  static std::string summary(int channel, const std::uint8_t* msg, std::size_t len);

  struct State;   // per-channel records, scratch storage and text buffer

 private:
  std::unique_ptr<State> s_;
};

}  // namespace cs

#endif  // CDMA_SORRELIN_HPP
