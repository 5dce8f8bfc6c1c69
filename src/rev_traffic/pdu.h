// Reverse traffic channel: the RD_PDU and its message table.
#pragma once
#include "layout/call.h"
#include "layout/table.h"
#include "records/traffic_pdu.h"

namespace cs {

struct RevTrafficState {
  // Kept from call to call, apart from the forward channel's: header fields a message does
  // not carry keep the previous reverse message's values.
  TrafficPdu pdu{};
};

// The channel's message table.
const MessageTable& rd_messages();

// Decodes and prints one message of this channel into call.text.
Rc run_rev_traffic(RevTrafficState& st, Call& call);

}  // namespace cs
