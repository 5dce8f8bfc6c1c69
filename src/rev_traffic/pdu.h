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

// The peer view of one message: see peer_traffic_pdu.
Rc peer_rev_traffic(RevTrafficState& st, Call& call, CompactOut& out, bool partial);

}  // namespace cs
