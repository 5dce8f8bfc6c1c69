// The dedicated signalling PDU of the traffic channels (C.S0004 f-dsch / r-dsch): the same
// layer-2 header, integrity and encryption fields, octet padding and MACI trailer in both
// directions; only the message table that picks the body differs. The forward and the reverse
// channel each keep their own record from call to call.
#pragma once
#include <cstdint>

#include "codec/walk.h"
#include "layout/call.h"
#include "layout/table.h"

namespace cs {

struct TrafficPdu {
  std::uint8_t MSG_TYPE;
  std::uint8_t ACK_SEQ;
  std::uint8_t MSG_SEQ;
  std::uint8_t ACK_REQ;
  std::uint8_t ENCRYPTION;
  std::uint8_t MACI_INCL;
  std::uint8_t SDU_KEY_ID;
  std::uint8_t SDU_INTEGRITY_ALGO;
  std::uint8_t SDU_SSEQ_OR_SSEQH;
  std::uint8_t SDU_SSEQ;
  std::uint32_t SDU_SSEQ_H;
  std::uint8_t SDU_ENCRYPT_MODE;
  std::uint8_t ENC_SEQ;
  AnyRec body;   // points into the call's arena: valid during one call only
  std::uint32_t MACI;
};

// How one direction of the channel differs: its message table, the header line of its PDU,
// the indent the detail text starts at, and the link direction its bodies see.
struct TrafficLink {
  const MessageTable& (*messages)();
  const char* header;   // "FD_PDU", "RD_PDU"
  unsigned indent;
  bool forward;
};

// Decodes one message of the channel into `pdu` (header scalars not on the air keep their
// previous values, on purpose) and prints it into call.text.
Rc run_traffic_pdu(TrafficPdu& pdu, const TrafficLink& link, Call& call);

class CompactOut;
// The peer view (text/compact_walk.h): decodes one message into `pdu` as run_traffic_pdu does
// and writes the view of it into `out` when the decode succeeds, or whatever the result when
// `partial` is set (the record then holds what was decoded and, past that, what earlier
// messages left).
Rc peer_traffic_pdu(TrafficPdu& pdu, const TrafficLink& link, Call& call, CompactOut& out, bool partial);

}  // namespace cs
