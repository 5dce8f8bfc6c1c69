// Reverse traffic channel: the RD_PDU and its message table.
#pragma once
#include "api/call.h"

namespace cs {

struct RevTrafficState {
  // Records kept from call to call (not yet decoded: see run function).
};

// Decodes and prints one message of this channel into call.text.
Rc run_rev_traffic(RevTrafficState& st, Call& call);

}  // namespace cs
