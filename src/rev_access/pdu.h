// Access / reverse common channel: the RC_PDU and its message table.
#pragma once
#include <cstdint>

#include "codec/walk.h"
#include "layout/call.h"
#include "layout/table.h"

namespace cs {

// Additional pilot of the radio environment report: a pilot the mobile station reports beside
// the active one.
struct RadioEnvironmentReportFields_AddPilots {
  std::uint16_t PILOT_PN_PHASE;
  std::uint8_t PILOT_STRENGTH;
  std::uint8_t ACCESS_HO_EN;
  std::uint8_t ACCESS_ATTEMPTED;
};

// Auxiliary pilot of the radio environment report (P_REV 7 on): a pilot record of
// RECORD_LEN octets whose type-specific fields follow PILOT_REC_TYPE.
struct RadioEnvironmentReportFields_AuxPilots {
  std::uint16_t PILOT_PN_PHASE;
  std::uint8_t PILOT_STRENGTH;
  std::uint8_t PILOT_REC_TYPE;
  std::uint8_t RECORD_LEN;
  std::uint8_t QOF;
  std::uint8_t WALSH_LENGTH;
  std::uint16_t PILOT_WALSH;
};

// Radio environment report (P_REV 4 on): the active pilot's strength and the pilots the
// mobile station measured besides it.
struct RadioEnvironmentReportFields {
  std::uint8_t ACTIVE_PILOT_STRENGTH;
  std::uint8_t FIRST_IS_ACTIVE;
  std::uint8_t FIRST_IS_PTA;
  std::uint8_t NUM_ADD_PILOTS;
  PoolArray<RadioEnvironmentReportFields_AddPilots> AddPilots;
  std::uint8_t NUM_AUX_PILOTS;
  PoolArray<RadioEnvironmentReportFields_AuxPilots> AuxPilots;
};

// The reverse common signalling PDU: link-access header with the mobile station identity,
// authentication, integrity and encryption fields, the radio environment report and the SDU
// in a P_REV-dependent order, final padding and MACI.
struct RC_PDU {
  std::uint8_t PD, MSG_ID, LAC_LENGTH;
  std::uint8_t ACK_SEQ, MSG_SEQ, ACK_REQ, VALID_ACK, ACK_TYPE, EXT_ACK_TYPE;
  std::uint8_t MSID_TYPE, EXT_MSID_TYPE, MSID_LEN;
  // Mobile station identity (the fields of the MSID_TYPE in use)
  std::uint32_t MIN1;
  std::uint16_t MIN2;
  std::uint32_t ESN;
  Bytes MEID;
  std::uint8_t IMSI_CLASS, IMSI_CLASS_0_TYPE, IMSI_CLASS_1_TYPE, IMSI_ADDR_NUM;
  std::uint16_t MCC;
  std::uint8_t IMSI_11_12;
  Bytes IMSI_S;
  Bytes TMSI_ZONE;
  std::uint32_t TMSI_CODE_ADDR;
  // Authentication, message integrity, encryption
  std::uint8_t MACI_INCL, AUTH_INCL;
  std::uint32_t AUTHR;
  std::uint8_t RANDC, COUNT;
  std::uint8_t SDU_KEY_ID, SDU_INTEGRITY_ALGO, SDU_SSEQ_OR_SSEQH;
  std::uint32_t SDU_SSEQ;
  std::uint8_t SDU_SSEQ_H;
  std::uint8_t ENC_FIELDS_INCL, SDU_ENCRYPT_MODE, ENC_SEQ;
  std::uint8_t LAC_PADDING;
  RadioEnvironmentReportFields RER;
  AnyRec sdu;   // points into the call's arena: valid during one call only
  std::uint32_t MACI;
};

struct AccessState {
  // Cleared before every message: fields a message does not carry read as 0.
  RC_PDU pdu{};
};

// The channel's message table.
const MessageTable& access_messages();

// Decodes and prints one message of this channel into call.text.
Rc run_access(AccessState& st, Call& call);

class CompactOut;
// The peer view of one message (text/compact_walk.h): decodes it over call.avail bits and,
// when that succeeds, writes the view of the PDU into `out`.
Rc peer_access(AccessState& st, Call& call, CompactOut& out);

}  // namespace cs
