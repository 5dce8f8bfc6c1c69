// Message bodies whose layout is the same on the paging channel and on the forward traffic
// channel (C.S0005 3.7.2.3.2 and 3.7.3.3.2). Each channel registers them under its own header
// line (FC_DBM, FD_DBM, ...).
#pragma once
#include <cstdint>

#include "codec/walk.h"

namespace cs::fwd {

// Data Burst Message. The characters are shown as sent; their contents are interpreted by the
// data-burst contents dispatcher where one applies.
struct DataBurst {
  std::uint8_t MSG_NUMBER;
  std::uint8_t BURST_TYPE;
  std::uint8_t NUM_MSGS;
  std::uint8_t NUM_FIELDS;
  PoolArray<std::uint8_t> CHARi;
};

template <class W>
void layout(W& w, DataBurst& r, const Ctx&) {
  if (!w.need(30)) return;
  w.u(r.MSG_NUMBER, "MSG_NUMBER", 8);
  w.u(r.BURST_TYPE, "BURST_TYPE", 6);
  w.u(r.NUM_MSGS, "NUM_MSGS", 8);
  w.u(r.NUM_FIELDS, "NUM_FIELDS", 8);
  w.scalars("CHARi", r.CHARi, r.NUM_FIELDS, 8);
}

// Authentication Challenge Message. GEN_CMEAKEY arrived with Release D.
struct AuthChallenge {
  std::uint32_t RANDU;
  std::uint8_t GEN_CMEAKEY;
};

template <class W>
void layout(W& w, AuthChallenge& r, const Ctx& c) {
  if (!w.need(24)) return;
  w.u(r.RANDU, "RANDU", 24);
  if (c.p_rev >= 10) {
    if (!w.need(1)) return;
    w.u(r.GEN_CMEAKEY, "GEN_CMEAKEY", 1);
  }
}

// SSD Update Message.
struct SsdUpdate {
  Bytes RANDSSD;
};

template <class W>
void layout(W& w, SsdUpdate& r, const Ctx&) {
  if (!w.need(56)) return;
  w.bits(r.RANDSSD, "RANDSSD", 56);
}

// REV_FCH_GATING_MODE with the reverse power control delay it enables: the channel assignment
// and handoff messages that set up a reverse Fundamental Channel carry it alike.
template <class W, class R>
bool rev_fch_gating(W& w, R& r) {
  if (!w.need(1)) return false;
  w.u(r.REV_FCH_GATING_MODE, "REV_FCH_GATING_MODE", 1);
  if (!r.REV_FCH_GATING_MODE) return true;
  if (!w.need(1)) return false;
  w.u(r.REV_PWR_CNTL_DELAY_INCL, "REV_PWR_CNTL_DELAY_INCL", 1);
  if (!r.REV_PWR_CNTL_DELAY_INCL) return true;
  if (!w.need(2)) return false;
  w.u(r.REV_PWR_CNTL_DELAY, "REV_PWR_CNTL_DELAY", 2);
  return true;
}

// TX_PWR_LIMIT_INCL and the transmit power limit it brings (overhead and assignment messages).
template <class W, class R>
bool tx_pwr_limit(W& w, R& r) {
  if (!w.need(1)) return false;
  w.u(r.TX_PWR_LIMIT_INCL, "TX_PWR_LIMIT_INCL", 1);
  if (!r.TX_PWR_LIMIT_INCL) return true;
  if (!w.need(6)) return false;
  w.u(r.TX_PWR_LIMIT, "TX_PWR_LIMIT", 6);
  return true;
}

// Authentication Request Message: the AKA challenge, a random number and the authentication
// token in its three parts: the concealed sequence number, the authentication management field
// and the network's message authentication code.
struct AuthRequest {
  Bytes RANDA;
  Bytes CON_SQN;
  std::uint16_t AMF;
  Bytes MAC_A;
};

template <class W>
void layout(W& w, AuthRequest& r, const Ctx&) {
  if (!w.need(256)) return;
  w.bits(r.RANDA, "RANDA", 128);
  w.bits(r.CON_SQN, "CON_SQN", 48);
  w.u(r.AMF, "AMF", 16);
  w.bits(r.MAC_A, "MAC_A", 64);
}

// Call rescue parameters of the neighbour list messages, from RESQ_DELAY_TIME through the
// per-neighbour NGHBR_RESQ_CONFIGURED flags (read when RESQ_ENABLED is 1). The traffic
// channel's neighbour list update carries no RESQ_NUM_PREAMBLE_RC1_RC2.
template <bool kRc1Rc2Preamble, class W, class R>
bool call_rescue(W& w, R& r) {
  if (!w.need(32)) return false;
  w.u(r.RESQ_DELAY_TIME, "RESQ_DELAY_TIME", 6);
  w.u(r.RESQ_ALLOWED_TIME, "RESQ_ALLOWED_TIME", 6);
  w.u(r.RESQ_ATTEMPT_TIME, "RESQ_ATTEMPT_TIME", 6);
  w.u(r.RESQ_CODE_CHAN, "RESQ_CODE_CHAN", 11);
  w.u(r.RESQ_QOF, "RESQ_QOF", 2);
  w.u(r.RESQ_MIN_PERIOD_INCL, "RESQ_MIN_PERIOD_INCL", 1);
  if (r.RESQ_MIN_PERIOD_INCL) {
    if (!w.need(5)) return false;
    w.u(r.RESQ_MIN_PERIOD, "RESQ_MIN_PERIOD", 5);
  }
  if (!w.need(1)) return false;
  w.u(r.RESQ_NUM_TOT_TRANS_INCL, "RESQ_NUM_TOT_TRANS_INCL", 1);
  if (r.RESQ_NUM_TOT_TRANS_INCL) {
    if (!w.need(8)) return false;
    w.u(r.RESQ_NUM_TOT_TRANS_20MS, "RESQ_NUM_TOT_TRANS_20MS", 4);
    w.u(r.RESQ_NUM_TOT_TRANS_5MS, "RESQ_NUM_TOT_TRANS_5MS", 4);
  }
  if constexpr (kRc1Rc2Preamble) {
    if (!w.need(3)) return false;
    w.u(r.RESQ_NUM_PREAMBLE_RC1_RC2, "RESQ_NUM_PREAMBLE_RC1_RC2", 3);
  }
  if (!w.need(6)) return false;
  w.u(r.RESQ_NUM_PREAMBLE, "RESQ_NUM_PREAMBLE", 3);
  w.u(r.RESQ_POWER_DELTA, "RESQ_POWER_DELTA", 3);
  return w.scalars("NGHBR_RESQ_CONFIGURED", r.NGHBR_RESQ_CONFIGURED, r.NUM_NGHBR, 1);
}

// The type-specific part of an additional pilot record (C.S0005 pilot record types, PILOT_REC_TYPE),
// carried by the channel assignment, handoff and neighbour messages alike.
// Release 0 knows only the common pilot with orthogonal transmit diversity; Release A renames
// its power level, adds the diversity mode and the auxiliary and 3X pilot types. The record is
// RECORD_LEN octets whatever the type reads.
struct AddPilotRec {
  std::uint8_t OTD_POWER_LEVEL, TD_POWER_LEVEL, TD_MODE, QOF, WALSH_LENGTH;
  std::uint16_t AUX_PILOT_WALSH, AUX_WALSH;
  std::uint8_t AUX_TD_POWER_LEVEL, SR3_PRIMARY_PILOT, SR3_PILOT_POWER1, SR3_PILOT_POWER2;
  std::uint8_t ADD_INFO_INCL1, QOF1, WALSH_LENGTH1;
  std::uint16_t AUX_PILOT_WALSH1;
  std::uint8_t ADD_INFO_INCL2, QOF2, WALSH_LENGTH2;
  std::uint16_t AUX_PILOT_WALSH2;
};
struct AddPilotCtx : Ctx {
  std::uint8_t pilot_rec_type;   // the record type read just before the record
};

// A Walsh code of an auxiliary pilot is WALSH_LENGTH + 6 bits long.
template <class W>
void aux_walsh(W& w, std::uint8_t& qof, const char* qof_name, std::uint8_t& len, const char* len_name,
               std::uint16_t& code, const char* code_name) {
  if (!w.need(5)) return;
  w.u(qof, qof_name, 2);
  w.u(len, len_name, 3);
  if (!w.need(len + 6u)) return;
  w.u(code, code_name, len + 6u);
}

template <class W>
void sr3_powers(W& w, AddPilotRec& r) {
  if (!w.need(8)) return;
  w.u(r.SR3_PRIMARY_PILOT, "SR3_PRIMARY_PILOT", 2);
  w.u(r.SR3_PILOT_POWER1, "SR3_PILOT_POWER1", 3);
  w.u(r.SR3_PILOT_POWER2, "SR3_PILOT_POWER2", 3);
}

template <class W>
void layout(W& w, AddPilotRec& r, const AddPilotCtx& c) {
  if (c.p_rev < 7) {
    if (c.pilot_rec_type != 0) return;
    if (!w.need(2)) return;
    w.u(r.OTD_POWER_LEVEL, "OTD_POWER_LEVEL", 2);
    return;
  }
  switch (c.pilot_rec_type) {
    case 0:   // 1X common pilot with transmit diversity
      if (!w.need(4)) return;
      w.u(r.TD_POWER_LEVEL, "TD_POWER_LEVEL", 2);
      w.u(r.TD_MODE, "TD_MODE", 2);
      break;
    case 1:   // 1X auxiliary pilot
      aux_walsh(w, r.QOF, "QOF", r.WALSH_LENGTH, "WALSH_LENGTH", r.AUX_PILOT_WALSH, "AUX_PILOT_WALSH");
      break;
    case 2:   // 1X auxiliary pilot with transmit diversity
      aux_walsh(w, r.QOF, "QOF", r.WALSH_LENGTH, "WALSH_LENGTH", r.AUX_WALSH, "AUX_WALSH");
      if (!w.need(4)) return;
      w.u(r.AUX_TD_POWER_LEVEL, "AUX_TD_POWER_LEVEL", 2);
      w.u(r.TD_MODE, "TD_MODE", 2);
      break;
    case 3:   // 3X common pilot
      sr3_powers(w, r);
      break;
    case 4:   // 3X auxiliary pilot: the powers, then a Walsh code per carrier as far as included
      sr3_powers(w, r);
      aux_walsh(w, r.QOF, "QOF", r.WALSH_LENGTH, "WALSH_LENGTH", r.AUX_PILOT_WALSH, "AUX_PILOT_WALSH");
      if (!w.need(1)) return;
      w.u(r.ADD_INFO_INCL1, "ADD_INFO_INCL1", 1);
      if (r.ADD_INFO_INCL1)
        aux_walsh(w, r.QOF1, "QOF1", r.WALSH_LENGTH1, "WALSH_LENGTH1", r.AUX_PILOT_WALSH1, "AUX_PILOT_WALSH1");
      if (!w.need(1)) return;
      w.u(r.ADD_INFO_INCL2, "ADD_INFO_INCL2", 1);
      if (r.ADD_INFO_INCL2)
        aux_walsh(w, r.QOF2, "QOF2", r.WALSH_LENGTH2, "WALSH_LENGTH2", r.AUX_PILOT_WALSH2, "AUX_PILOT_WALSH2");
      break;
    default:   // reserved types: only RECORD_LEN is known
      break;
  }
}

}  // namespace cs::fwd
