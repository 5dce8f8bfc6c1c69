// Access / reverse common channel: the RC_PDU and its message table.
#pragma once
#include "layout/call.h"
#include "layout/table.h"

namespace cs {

struct AccessState {
  // Records kept from call to call (not yet decoded: see run function).
};

// The channel's message table.
const MessageTable& access_messages();

// Decodes and prints one message of this channel into call.text.
Rc run_access(AccessState& st, Call& call);

}  // namespace cs
