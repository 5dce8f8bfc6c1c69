// The service provisioning message tables: one row per message of a link direction, from
// which the dispatch, the label before the message and the message's header come.
#pragma once
#include <cstdint>
#include <span>

#include "codec/walk.h"

namespace cs::ota {

struct OtaRow {
  std::uint8_t type;     // OTASP_MSG_TYPE
  const char* label;     // printed before the message, e.g. "msg.config_req_str"
  BodyOps body;          // body_ops<Rec>("OTA_CONFIG_REQ"): the message's record and header
};

using OtaRows = std::span<const OtaRow>;

OtaRows forward_rows();   // base station to mobile station (C.S0016 4.5.1)
OtaRows reverse_rows();   // mobile station to base station (C.S0016 3.5.1)

// The row of a message type, or null when the direction's table has none.
const OtaRow* find_row(OtaRows rows, std::uint8_t type);

}  // namespace cs::ota
