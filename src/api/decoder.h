// A reentrant decoder: everything one stream of calls needs (the per-channel records kept
// between calls, the scratch arena, the text under construction). One Decoder per thread;
// the exported C functions share one process-wide instance.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>

#include "codec/arena.h"
#include "fwd_common/paging.h"
#include "fwd_common/sync.h"
#include "fwd_traffic/pdu.h"
#include "rev_access/pdu.h"
#include "rev_traffic/pdu.h"
#include "text/text.h"

namespace cs {

enum Channel : int { kSync = 1, kPaging = 2, kAccess = 3, kFwdTraffic = 4, kRevTraffic = 5 };

class Decoder {
 public:
  Decoder();
  ~Decoder();
  Decoder(const Decoder&) = delete;
  Decoder& operator=(const Decoder&) = delete;

  // Appends the detail text of one message to `out`, then turns every LF of `out` into CR LF
  // (unless the channel path stopped early without it). Returns the decode result: 0, 1 or 3;
  // an unknown channel replaces `out` by "<unknown channel type>" and returns 0.
  int details(std::string& out, std::uint8_t band_class, std::uint8_t p_rev, int channel, const std::uint8_t* msg,
              std::size_t len);

  // The message name (or the fallback text) of the first octet of `msg` on `channel`.
  static std::string summary(int channel, const std::uint8_t* msg, std::size_t len);

 private:
  Arena arena_;
  Text text_;
  SyncState sync_;
  PagingState paging_;
  AccessState access_;
  FwdTrafficState fwd_traffic_;
  RevTrafficState rev_traffic_;
};

// The instance behind the exported C functions.
Decoder& process_decoder();

}  // namespace cs
