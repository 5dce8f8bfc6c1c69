// Forward traffic channel: the FD_PDU and its message table.
#pragma once
#include <cstdint>

#include "layout/call.h"
#include "codec/walk.h"

namespace cs {

// The forward dedicated signalling PDU: layer-2 header, integrity and encryption fields, the
// message body chosen by MSG_TYPE, octet padding and MACI.
struct FdPdu {
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

struct FwdTrafficState {
  // Kept from call to call: header fields a message does not carry keep the previous
  // message's values (the P_REV 7/8 ENC_SEQ test reads a MACI_INCL left by P_REV 9).
  FdPdu pdu{};
};

// Decodes and prints one message of this channel into call.text.
Rc run_fwd_traffic(FwdTrafficState& st, Call& call);

}  // namespace cs
