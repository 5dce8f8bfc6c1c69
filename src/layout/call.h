// What a channel path gets for one details call.
#pragma once
#include <cstddef>
#include <cstdint>

#include "codec/arena.h"
#include "codec/walk.h"
#include "text/text.h"

namespace cs {

class Json;

struct Call {
  Arena& arena;
  Text& text;                 // the detail text of this call (LF line ends)
  std::uint8_t p_rev;
  std::uint8_t band_class;
  const std::uint8_t* msg;    // the message octets, first octet the message type
  std::size_t len;            // octets in msg, CRC included
  std::uint64_t avail;        // bits for the channel's top decode: len * 8 - 8 - CRC, never below 0
  bool short_header;          // len did not even cover the message-type octet and the CRC
  bool convert_line_ends;     // the path ends with the LF -> CR LF conversion (cleared by paths
                              // that stop early without it)
  bool all_broadcast;         // the paging channel decodes every broadcast message it has a
                              // layout for, not only those of its C dispatch
  Json* json;                 // set: the records go there as JSON objects instead of text
};

}  // namespace cs
