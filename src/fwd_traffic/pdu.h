// Forward traffic channel: the FD_PDU and its message table.
#pragma once
#include "api/call.h"

namespace cs {

struct FwdTrafficState {
  // Records kept from call to call (not yet decoded: see run function).
};

// Decodes and prints one message of this channel into call.text.
Rc run_fwd_traffic(FwdTrafficState& st, Call& call);

}  // namespace cs
