// Paging / forward common channel: PDU framing, addressing and dispatch.
#pragma once
#include "api/call.h"

namespace cs {

struct PagingState {
  // Records kept from call to call (not yet decoded: see run function).
};

// Decodes and prints one message of this channel into call.text.
Rc run_paging(PagingState& st, Call& call);

}  // namespace cs
