// The Decoder's state: everything one stream of calls needs (the per-channel records kept
// between calls, the scratch arena, the text under construction). The class itself is
// declared in the public header; the exported C functions share one process-wide instance.
#pragma once
#include "cdmaSorrelin.hpp"
#include "codec/arena.h"
#include "fwd_common/paging.h"
#include "fwd_common/sync.h"
#include "fwd_traffic/pdu.h"
#include "rev_access/pdu.h"
#include "rev_traffic/pdu.h"

namespace cs {

struct Decoder::State {
  Arena arena;
  SyncState sync;
  PagingState paging;
  AccessState access;
  FwdTrafficState fwd_traffic;
  RevTrafficState rev_traffic;
};

// The instance behind the exported C functions.
Decoder& process_decoder();

}  // namespace cs
