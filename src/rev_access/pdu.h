// Access / reverse common channel: the RC_PDU and its message table.
#pragma once
#include "api/call.h"

namespace cs {

struct AccessState {
  // Records kept from call to call (not yet decoded: see run function).
};

// Decodes and prints one message of this channel into call.text.
Rc run_access(AccessState& st, Call& call);

}  // namespace cs
