// Paging / forward common channel: PDU framing, addressing and dispatch.
#pragma once
#include <cstdint>

#include "layout/call.h"

namespace cs {

class CompactOut;

// Mobile station address of a directed PDU (C.S0004 address field). The first three
// members are not on the air here: they are the enclosing header's ADDR_TYPE, ADDR_LEN and
// EXT_ADDR_TYPE, copied in before the address is walked, and they choose the form.
struct FC_ADDRESS {
  std::uint8_t type;
  std::uint8_t len;
  std::uint8_t ext_type;
  std::uint32_t IMSI_M_S1;
  std::uint16_t IMSI_M_S2;
  Bytes ESN;
  std::uint8_t IMSI_CLASS;
  std::uint8_t IMSI_CLASS_0_TYPE;
  std::uint8_t IMSI_CLASS_1_TYPE;
  std::uint8_t IMSI_ADDR_NUM;
  std::uint16_t MCC;
  std::uint8_t IMSI_11_12;
  Bytes IMSI_S;
  Bytes TMSI_ZONE;
  std::uint32_t TMSI_CODE_ADDR;
  Bytes MEID;
  Bytes BC_ADDR;
};

// ARQ fields of a directed PDU; also the first stage of the order path.
struct L2_ARQ_FIELDS {
  std::uint8_t ACK_SEQ;
  std::uint8_t MSG_SEQ;
  std::uint8_t ACK_REQ;
  std::uint8_t VALID_ACK;
};

// Addressing fields of a directed PDU; also the second stage of the order path.
struct L2_ADDRESSING_FIELDS {
  std::uint8_t ADDR_TYPE;
  std::uint8_t ADDR_LEN;
  std::uint8_t EXT_ADDR_TYPE;
  std::uint8_t RESERVED;
  FC_ADDRESS ADDRESS;
};

// Message integrity and encryption fields that follow the address when PD asks for them.
struct L2_SECURITY_FIELDS {
  std::uint8_t MACI_INCL;
  std::uint8_t SDU_KEY_ID;
  std::uint8_t SDU_INTEGRITY_ALGO;
  std::uint8_t SDU_SSEQ_OR_SSEQH;
  std::uint32_t SDU_SSEQ_H;
  std::uint8_t SDU_SSEQ;
  std::uint8_t ENC_FIELDS_INCL;
  std::uint8_t SDU_ENCRYPT_MODE;
  std::uint8_t ENC_SEQ;
};

// Broadcast PDU: PD, MSG_ID and the overhead or page message it carries.
struct FC_PCH_BC__PBCCH_PDU {
  std::uint8_t PD;
  std::uint8_t MSG_ID;
  AnyRec sdu;
};

// One assignment record of the (Extended) Channel Assignment PDU.
struct FC_PCH_ASSIGN_RECORD {
  L2_ARQ_FIELDS arq;
  L2_ADDRESSING_FIELDS addr;
  L2_SECURITY_FIELDS sec;
  AnyRec sdu;
  std::uint32_t MACI;
};

// The same fields in both assignment PDUs; the SDU is a CAM or an ECAM body.
struct FC_PCH_CAM_PDU_AssignmentRecords : FC_PCH_ASSIGN_RECORD {};
struct FC_PCH_ECAM_PDU_ExtChanAssignRecord : FC_PCH_ASSIGN_RECORD {};

struct FC_PCH_CAM_PDU {
  std::uint8_t PD;
  std::uint8_t MSG_ID;
  PoolArray<FC_PCH_CAM_PDU_AssignmentRecords> AssignmentRecords;
};

struct FC_PCH_ECAM_PDU {
  std::uint8_t PD;
  std::uint8_t MSG_ID;
  PoolArray<FC_PCH_ECAM_PDU_ExtChanAssignRecord> ExtChanAssignRecord;
};

// Directed PDU of every other addressed message.
struct FC_PCH_PDU {
  std::uint8_t PD;
  std::uint8_t MSG_ID;
  L2_ARQ_FIELDS arq;
  L2_ADDRESSING_FIELDS addr;
  L2_SECURITY_FIELDS sec;
  AnyRec sdu;
  std::uint32_t MACI;
};

// Common fields of the General Page Message.
struct L2_GPM_COMMON_FIELDS {
  std::uint8_t CONFIG_MSG_SEQ;
  std::uint8_t ACC_MSG_SEQ;
  std::uint8_t CLASS_0_DONE;
  std::uint8_t CLASS_1_DONE;
  std::uint8_t TMSI_DONE;
  std::uint8_t ORDERED_TMSIS;
  std::uint8_t BROADCAST_DONE;
  std::uint8_t ADD_LENGTH;
  Bytes ADD_PFIELD;
};

struct PagingState {
  // One record per PDU kind. They point into the call's arena, so each is cleared before
  // the message that uses it is decoded.
  FC_PCH_BC__PBCCH_PDU bc;
  FC_PCH_CAM_PDU cam;
  FC_PCH_ECAM_PDU ecam;
  FC_PCH_PDU pdu;
  L2_ARQ_FIELDS arq;
  L2_ADDRESSING_FIELDS addressing;
  L2_GPM_COMMON_FIELDS gpm;
};

// Decodes and prints one message of this channel into call.text.
Rc run_paging(PagingState& st, Call& call);

// The peer view of one message (text/compact_walk.h): the message type is the whole first
// octet, whatever P_REV, and only the order, the (Extended) Channel Assignment and the
// addressed messages are decoded, over call.avail bits from the first (the order's stages
// from the second octet to the same end); the view is written into `out` when the decode
// succeeds. Other types decode and show nothing.
Rc peer_paging(PagingState& st, Call& call, CompactOut& out);

}  // namespace cs
