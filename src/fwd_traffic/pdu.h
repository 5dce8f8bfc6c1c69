// Forward traffic channel: the FD_PDU and its message table.
#pragma once
#include <cstdint>

#include "layout/call.h"
#include "records/traffic_pdu.h"

namespace cs {

// The forward dedicated signalling PDU: the header both traffic directions share.
using FdPdu = TrafficPdu;

struct FwdTrafficState {
  // Kept from call to call: header fields a message does not carry keep the previous
  // message's values (the P_REV 7/8 ENC_SEQ test reads a MACI_INCL left by P_REV 9).
  FdPdu pdu{};
};

// Decodes and prints one message of this channel into call.text.
Rc run_fwd_traffic(FwdTrafficState& st, Call& call);

// The peer view of one message: see peer_traffic_pdu.
Rc peer_fwd_traffic(FwdTrafficState& st, Call& call, CompactOut& out, bool partial);

}  // namespace cs
