// Message bodies whose layout is the same on the paging channel and on the forward traffic
// channel (C.S0005 3.7.2.3.2 and 3.7.3.3.2). Each channel registers them under its own header
// line (FC_DBM, FD_DBM, ...).
#pragma once
#include <cstdint>
#include <utility>
#include <vector>

#include "codec/read_walk.h"
#include "codec/walk.h"
#include "pd/burst.h"

namespace cs::fwd {

// Data Burst Message (C.S0005 3.7.2.3.2.9, 3.7.3.3.2.4; the access and reverse traffic
// channels' own Data Burst Messages share the layout, with Ctx::forward false). The
// characters are shown as sent; after them the printer shows what they carry, by BURST_TYPE.
struct DataBurst {
  std::uint8_t MSG_NUMBER;
  std::uint8_t BURST_TYPE;
  std::uint8_t NUM_MSGS;
  std::uint8_t NUM_FIELDS;
  PoolArray<std::uint8_t> CHARi;
};

template <class W>
void layout(W& w, DataBurst& r, const Ctx& c) {
  w(F(MSG_NUMBER, 8), F(BURST_TYPE, 6), F(NUM_MSGS, 8), F(NUM_FIELDS, 8));
  w.scalars("CHARi", r.CHARi, r.NUM_FIELDS, 8);
  // Printer only: the characters, once all NUM_FIELDS of them are in, are also the contents
  // of the burst (a message, a provisioning or position determination exchange), decoded
  // and shown under a label of their own. Reading has nothing more to take: the contents are
  // the CHARi octets above, and a burst whose characters were cut short shows none.
  if constexpr (!W::kReading) {
    if (r.CHARi.count == r.NUM_FIELDS) {
      // The contents are a message of their own: what they read is not this message's trace.
      std::vector<TraceItem>* trace = std::exchange(g_read_trace, nullptr);
      print_burst_contents(w.text(), w.indent(), r.BURST_TYPE, r.CHARi.data, r.CHARi.count, c);
      g_read_trace = trace;
    }
  }
}

// User Zone Reject Message (3.7.2.3.2.28 paging, 3.7.3.3.2.37 traffic).
struct UserZoneReject {
  std::uint16_t REJECT_UZID;
  std::uint8_t REJECT_ACTION_INDI;
  std::uint8_t UZID_ASSIGN_INCL;
  std::uint16_t ASSIGN_UZID;
};

template <class W>
void layout(W& w, UserZoneReject& r, const Ctx&) {
  w(F(REJECT_UZID, 16), F(REJECT_ACTION_INDI, 3), F(UZID_ASSIGN_INCL, 1));
  if (r.UZID_ASSIGN_INCL) w(F(ASSIGN_UZID, 16));
}

// Authentication Challenge Message. GEN_CMEAKEY arrived with Release D.
struct AuthChallenge {
  std::uint32_t RANDU;
  std::uint8_t GEN_CMEAKEY;
};

template <class W>
void layout(W& w, AuthChallenge& r, const Ctx& c) {
  w(F(RANDU, 24));
  if (c.p_rev >= 10) w(F(GEN_CMEAKEY, 1));
}

// SSD Update Message.
struct SsdUpdate {
  Bytes RANDSSD;
};

template <class W>
void layout(W& w, SsdUpdate& r, const Ctx&) {
  w(F(RANDSSD, 56));
}

// TMSI Assignment Message (3.7.2.3.2.19 and 3.7.3.3.2.22, the same fields on both channels).
// Each field is checked on its own, as the message lists them, so a message that ends inside
// TMSI_EXP_TIME still shows the code it carried.
struct TmsiAssignment {
  std::uint8_t TMSI_ZONE_LEN;
  Bytes TMSI_ZONE;
  std::uint32_t TMSI_CODE;
  std::uint32_t TMSI_EXP_TIME;
};

template <class W>
void layout(W& w, TmsiAssignment& r, const Ctx&) {
  w(F(TMSI_ZONE_LEN, 4));
  if (r.TMSI_ZONE_LEN) w(F(TMSI_ZONE, 8u * r.TMSI_ZONE_LEN));
  w(F(TMSI_CODE, 32));
  w(F(TMSI_EXP_TIME, 24));
}

// The shared groups below return whether the walk goes on (the empty group `w()` is false
// once the reader has stopped), for callers that have more than verbs to run after them.

// REV_FCH_GATING_MODE with the reverse power control delay it enables: the channel assignment
// and handoff messages that set up a reverse Fundamental Channel carry it alike.
template <class W, class R>
bool rev_fch_gating(W& w, R& r) {
  w(F(REV_FCH_GATING_MODE, 1));
  if (r.REV_FCH_GATING_MODE) {
    w(F(REV_PWR_CNTL_DELAY_INCL, 1));
    if (r.REV_PWR_CNTL_DELAY_INCL) w(F(REV_PWR_CNTL_DELAY, 2));
  }
  return w();
}

// TX_PWR_LIMIT_INCL and the transmit power limit it brings (overhead and assignment messages).
template <class W, class R>
bool tx_pwr_limit(W& w, R& r) {
  w(F(TX_PWR_LIMIT_INCL, 1));
  if (r.TX_PWR_LIMIT_INCL) w(F(TX_PWR_LIMIT, 6));
  return w();
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
  w(F(RANDA, 128), F(CON_SQN, 48), F(AMF, 16), F(MAC_A, 64));
}

// Call rescue parameters of the neighbour list messages, from RESQ_DELAY_TIME through the
// per-neighbour NGHBR_RESQ_CONFIGURED flags (read when RESQ_ENABLED is 1). The traffic
// channel's neighbour list update carries no RESQ_NUM_PREAMBLE_RC1_RC2.
template <bool kRc1Rc2Preamble, class W, class R>
bool call_rescue(W& w, R& r) {
  w(F(RESQ_DELAY_TIME, 6), F(RESQ_ALLOWED_TIME, 6), F(RESQ_ATTEMPT_TIME, 6), F(RESQ_CODE_CHAN, 11), F(RESQ_QOF, 2),
    F(RESQ_MIN_PERIOD_INCL, 1));
  if (r.RESQ_MIN_PERIOD_INCL) w(F(RESQ_MIN_PERIOD, 5));
  w(F(RESQ_NUM_TOT_TRANS_INCL, 1));
  if (r.RESQ_NUM_TOT_TRANS_INCL) w(F(RESQ_NUM_TOT_TRANS_20MS, 4), F(RESQ_NUM_TOT_TRANS_5MS, 4));
  if constexpr (kRc1Rc2Preamble) w(F(RESQ_NUM_PREAMBLE_RC1_RC2, 3));
  w(F(RESQ_NUM_PREAMBLE, 3), F(RESQ_POWER_DELTA, 3));
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
  w(field(qof, qof_name, 2), field(len, len_name, 3));
  w(field(code, code_name, len + 6u));
}

template <class W>
void sr3_powers(W& w, AddPilotRec& r) {
  w(F(SR3_PRIMARY_PILOT, 2), F(SR3_PILOT_POWER1, 3), F(SR3_PILOT_POWER2, 3));
}

template <class W>
void layout(W& w, AddPilotRec& r, const AddPilotCtx& c) {
  if (c.p_rev < 7) {
    if (c.pilot_rec_type != 0) return;
    w(F(OTD_POWER_LEVEL, 2));
    return;
  }
  switch (c.pilot_rec_type) {
    case 0:   // 1X common pilot with transmit diversity
      w(F(TD_POWER_LEVEL, 2), F(TD_MODE, 2));
      break;
    case 1:   // 1X auxiliary pilot
      aux_walsh(w, r.QOF, "QOF", r.WALSH_LENGTH, "WALSH_LENGTH", r.AUX_PILOT_WALSH, "AUX_PILOT_WALSH");
      break;
    case 2:   // 1X auxiliary pilot with transmit diversity
      aux_walsh(w, r.QOF, "QOF", r.WALSH_LENGTH, "WALSH_LENGTH", r.AUX_WALSH, "AUX_WALSH");
      w(F(AUX_TD_POWER_LEVEL, 2), F(TD_MODE, 2));
      break;
    case 3:   // 3X common pilot
      sr3_powers(w, r);
      break;
    case 4:   // 3X auxiliary pilot: the powers, then a Walsh code per carrier as far as included
      sr3_powers(w, r);
      aux_walsh(w, r.QOF, "QOF", r.WALSH_LENGTH, "WALSH_LENGTH", r.AUX_PILOT_WALSH, "AUX_PILOT_WALSH");
      w(F(ADD_INFO_INCL1, 1));
      if (r.ADD_INFO_INCL1)
        aux_walsh(w, r.QOF1, "QOF1", r.WALSH_LENGTH1, "WALSH_LENGTH1", r.AUX_PILOT_WALSH1, "AUX_PILOT_WALSH1");
      w(F(ADD_INFO_INCL2, 1));
      if (r.ADD_INFO_INCL2)
        aux_walsh(w, r.QOF2, "QOF2", r.WALSH_LENGTH2, "WALSH_LENGTH2", r.AUX_PILOT_WALSH2, "AUX_PILOT_WALSH2");
      break;
    default:   // reserved types: only RECORD_LEN is known
      break;
  }
}

// Packet-zone hysteresis (Release D), as the extended system parameters, the MC-RR
// parameters, the in-traffic system parameters and the universal handoff direction messages
// carry it: only inside a packet zone.
template <class W, class R>
void pz_hysteresis(W& w, R& r) {
  if (r.PACKET_ZONE_ID == 0) return;
  w(F(PZ_HYST_ENABLED, 1));
  if (!r.PZ_HYST_ENABLED) return;
  w(F(PZ_HYST_INFO_INCL, 1));
  if (r.PZ_HYST_INFO_INCL) w(F(PZ_HYST_LIST_LEN, 4), F(PZ_HYST_ACT_TIMER, 8), F(PZ_HYST_TIMER_MUL, 3), F(PZ_HYST_TIMER_EXP, 5));
}

// The forward packet data channel's reverse link gains and switching parameters, as the packet
// data channel assignment (extended channel assignment mode '101') and the extended active set
// record of the universal handoff direction message carry them. `tail` are the fields that the
// caller's message sends right after the switching delays, checked with them.
template <class W, class R, class... Tail>
void pdch_switching(W& w, R& r, const Tail&... tail) {
  w(F(FOR_PDCH_RLGAIN_INCL, 1));
  if (r.FOR_PDCH_RLGAIN_INCL) w(F(RLGAIN_ACKCH_PILOT, 6), F(RLGAIN_CQICH_PILOT, 6));
  w(F(NUM_SOFT_SWITCHING_FRAMES, 4), F(NUM_SOFTER_SWITCHING_FRAMES, 4), F(NUM_SOFT_SWITCHING_SLOTS, 2),
    F(NUM_SOFTER_SWITCHING_SLOTS, 2), F(CHM_SWITCHING_PARMS_INCL, 1));
  if (r.CHM_SWITCHING_PARMS_INCL) {   // the same counts while in control hold
    w(F(NUM_SOFT_SWITCHING_FRAMES_CHM, 4), F(NUM_SOFTER_SWITCHING_FRAMES_CHM, 4), F(NUM_SOFT_SWITCHING_SLOTS_CHM, 2),
      F(NUM_SOFTER_SWITCHING_SLOTS_CHM, 2));
  }
  w(F(PDCH_SOFT_SWITCHING_DELAY, 8), F(PDCH_SOFTER_SWITCHING_DELAY, 8), tail...);
}

}  // namespace cs::fwd
