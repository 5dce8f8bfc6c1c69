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

// How a Decoder renders. The defaults give the texts of the C interface.
struct DecodeOptions {
  // Detail lines end in CR LF, and the conversion covers what `out` held before (as the C
  // interface does); false: lines end in LF and nothing is converted.
  bool crlf = true;
  // The paging channel's dispatch leaves the broadcast messages 28 to 33 undecoded (the C
  // interface keeps it so); true decodes every broadcast message the library has a layout
  // for, the User Zone Reject, ANSI-41 System Parameters, MC-RR Parameters, ANSI-41 RAND,
  // Enhanced Access Parameters and Universal Neighbor List Messages among them.
  bool all_broadcast = false;
};

class Decoder {
 public:
  explicit Decoder(DecodeOptions options);
  Decoder();
  ~Decoder();
  Decoder(const Decoder&) = delete;
  Decoder& operator=(const Decoder&) = delete;

  // Appends the detail text of one message to `out`, then (with the crlf option) turns every
  // LF of `out` into CR LF, unless the channel path stopped early without it. Returns the decode result: 0, 1 or 3;
  // an unknown channel replaces `out` by "<unknown channel type>" and returns 0. The
  // decoder keeps, per channel, what the standard's layer 2 carries over from one message to
  // the next (the traffic channels' header fields): feed it one stream of messages.
  int details(std::string& out, std::uint8_t band_class, std::uint8_t p_rev, int channel, const std::uint8_t* msg,
              std::size_t len);

  // Appends one JSON object for the message to `out` (no line end): {"channel": "ftc",
  // "p_rev": 6, "band_class": 0, "result": 0, "name": "OVN_...", "records": [...]}, where each
  // record of the detail text is an object: "@record" its header line, then its fields in
  // print order (scalars as numbers, bit strings as "0x..." strings, a value annotation as the
  // member "NAME.annotation", arrays as arrays, nested records as objects). Returns the decode
  // result, as details() does; the decoder's records carry over between the two calls alike.
  int details_json(std::string& out, std::uint8_t band_class, std::uint8_t p_rev, int channel,
                   const std::uint8_t* msg, std::size_t len);

  // Appends the peer view of one message, the compact one-line rendering of the block entry
  // points (cdmaSorrelin.h): ":" and "NAME=value" items separated by ",", the layer-2
  // acknowledgement fields first, then those of a channel assignment and of a service
  // configuration. The message is decoded over all of its `len` octets, the CRC octets
  // included. Returns the decode result; nothing is appended when it is not 0, except on the
  // reverse traffic channel, whose view shows what the record holds whatever the result. The
  // sync channel, and on the paging channel every first octet but an order (7), a channel
  // assignment (8, 21) or an addressed message (9 to 12, 15, 16, 19, 20, 34), show nothing
  // and return 0.
  int peer(std::string& out, std::uint8_t band_class, std::uint8_t p_rev, int channel, const std::uint8_t* msg,
           std::size_t len);

  // The message name (or "unknown message: msg id = N") of the first octet of `msg` on `channel`.
  static std::string summary(int channel, const std::uint8_t* msg, std::size_t len);

  const DecodeOptions& options() const { return options_; }
  void set_options(const DecodeOptions& o) { options_ = o; }

  struct State;   // per-channel records and scratch storage

 private:
  DecodeOptions options_;
  std::unique_ptr<State> s_;
};

}  // namespace cs

#endif  // CDMA_SORRELIN_HPP
