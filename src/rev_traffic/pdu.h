// Reverse traffic channel: the RD_PDU and its message table.
#pragma once
#include "layout/call.h"
#include "layout/table.h"

namespace cs {

struct RevTrafficState {
  // Records kept from call to call (not yet decoded: see run function).
};

// The channel's message table.
const MessageTable& rd_messages();

// Decodes and prints one message of this channel into call.text.
Rc run_rev_traffic(RevTrafficState& st, Call& call);

}  // namespace cs
