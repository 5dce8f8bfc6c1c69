// Forward traffic channel messages about neighbours and searches (C.S0005 3.7.3.3.2.x): the
// In-Traffic System Parameters, Neighbor List Update, Extended Neighbor List Update and the
// Candidate Frequency Search Request / Control messages.
#include <cstddef>
#include <cstdint>

#include "layout/layout.h"
#include "records/forward_shared.h"
#include "fwd_traffic/message_parts.h"
#include "fwd_traffic/tables.h"

namespace cs {
namespace {

using namespace fd_parts;

// ---- In-Traffic System Parameters Message (7) ---------------------------------------------

struct FD_ITSPM {
  std::uint16_t SID;
  std::uint16_t NID;
  std::uint8_t SRCH_WIN_A;
  std::uint8_t SRCH_WIN_N;
  std::uint8_t SRCH_WIN_R;
  std::uint8_t T_ADD;
  std::uint8_t T_DROP;
  std::uint8_t T_COMP;
  std::uint8_t T_TDROP;
  std::uint8_t NGHBR_MAX_AGE;
  std::uint8_t P_REV;
  std::uint8_t SOFT_SLOPE;
  std::uint8_t ADD_INTERCEPT;
  std::uint8_t DROP_INTERCEPT;
  std::uint8_t PACKET_ZONE_ID;
  std::uint8_t EXTENSION;
  std::uint8_t T_MULCHAN;
  std::uint8_t BEGIN_PREAMBLE;
  std::uint8_t RESUME_PREAMBLE;
  std::uint8_t T_SLOTTED_INCL;
  std::uint8_t T_SLOTTED;
  std::uint8_t ENC_SUPPORTED;
  std::uint8_t SIG_ENCRYPT_SUP;
  std::uint8_t UI_ENCRYPT_SUP;
  std::uint8_t CS_SUPPORTED;
  std::uint8_t CHM_SUPPORTED;
  std::uint8_t CDMA_OFF_TIME_REP_SUP_IND;
  std::uint8_t CDMA_OFF_TIME_REP_THRESHOLD_UNIT;
  std::uint8_t CDMA_OFF_TIME_REP_THRESHOLD;
  std::uint8_t T_TDROP_RANGE_INCL;
  std::uint8_t T_TDROP_RANGE;
  std::uint8_t FOR_PDCH_SUPPORTED;
  std::uint8_t PDCH_CHM_SUPPORTED;
  std::uint8_t SDB_SUPPORTED;
  std::uint8_t MOB_QOS;
  std::uint8_t MS_INIT_POS_LOC_SUP_IND;
  std::uint8_t REV_PDCH_SUPPORTED;
  std::uint8_t PZ_HYST_ENABLED;
  std::uint8_t PZ_HYST_INFO_INCL;
  std::uint8_t PZ_HYST_LIST_LEN;
  std::uint8_t PZ_HYST_ACT_TIMER;
  std::uint8_t PZ_HYST_TIMER_MUL;
  std::uint8_t PZ_HYST_TIMER_EXP;
  std::uint8_t BCMC_ON_TRAFFIC_SUP;
  std::uint8_t AUTO_REQ_TRAF_ALLOWED_IND;
  std::uint8_t MAX_ADD_SERV_INSTANCE;
  std::uint8_t USE_CH_CFG_RRM;
};

// Release D (P_REV 10): packet zone hysteresis, BCMC on the traffic channel, reverse packet
// data and additional service instances, in the order of the C.S0005-D/E message table.
// Unlike the Universal Handoff Direction Message, REV_PDCH_SUPPORTED follows the BCMC group
// here, and the message carries no transmit power limit.
template <class W>
void itspm_rel_d(W& w, FD_ITSPM& r) {
  fwd::pz_hysteresis(w, r);
  w(F(BCMC_ON_TRAFFIC_SUP, 1));
  if (r.BCMC_ON_TRAFFIC_SUP) w(F(AUTO_REQ_TRAF_ALLOWED_IND, 1));
  if (r.FOR_PDCH_SUPPORTED) w(F(REV_PDCH_SUPPORTED, 1));
  if (r.CS_SUPPORTED) w(F(MAX_ADD_SERV_INSTANCE, 3));
  w(F(USE_CH_CFG_RRM, 1));
}

// The fields after P_REV follow the revision the message itself announces: the base station
// lays the message out by its own P_REV, whatever revision the call is running at.
template <class W>
void layout(W& w, FD_ITSPM& r, const Ctx& c) {
  w(F(SID, 15), F(NID, 16), F(SRCH_WIN_A, 4), F(SRCH_WIN_N, 4), F(SRCH_WIN_R, 4), F(T_ADD, 6), F(T_DROP, 6),
    F(T_COMP, 4), F(T_TDROP, 4), F(NGHBR_MAX_AGE, 4));
  if (c.p_rev < kIs95B) return;

  w(F(P_REV, 8), F(SOFT_SLOPE, 6), F(ADD_INTERCEPT, 6), F(DROP_INTERCEPT, 6), F(PACKET_ZONE_ID, 8), F(EXTENSION, 1));
  if (r.EXTENSION) w(F(T_MULCHAN, 3), F(BEGIN_PREAMBLE, 3), F(RESUME_PREAMBLE, 3));
  if (r.P_REV < kRel0) return;

  w(F(T_SLOTTED_INCL, 1));
  if (r.T_SLOTTED_INCL) w(F(T_SLOTTED, 8));
  if (r.P_REV < kRelA) return;

  w(F(ENC_SUPPORTED, 1));
  if (r.ENC_SUPPORTED) w(F(SIG_ENCRYPT_SUP, 8), F(UI_ENCRYPT_SUP, 8));
  w(F(CS_SUPPORTED, 1));
  if (r.P_REV < kRelC) return;

  w(F(CHM_SUPPORTED, 1), F(CDMA_OFF_TIME_REP_SUP_IND, 1));
  if (r.CDMA_OFF_TIME_REP_SUP_IND) w(F(CDMA_OFF_TIME_REP_THRESHOLD_UNIT, 1), F(CDMA_OFF_TIME_REP_THRESHOLD, 3));
  w(F(T_TDROP_RANGE_INCL, 1));
  if (r.T_TDROP_RANGE_INCL) w(F(T_TDROP_RANGE, 4));
  w(F(FOR_PDCH_SUPPORTED, 1));
  if (r.FOR_PDCH_SUPPORTED) w(F(PDCH_CHM_SUPPORTED, 1));
  w(F(SDB_SUPPORTED, 1));
  // QoS negotiation only matters where concurrent services are supported.
  if (r.CS_SUPPORTED) w(F(MOB_QOS, 1));
  w(F(MS_INIT_POS_LOC_SUP_IND, 1));
  if (r.P_REV < kRelD) return;
  itspm_rel_d(w, r);
}

// ---- Neighbor List Update Message (8) ---------------------------------------------------

struct FD_NLUM {
  std::uint8_t PILOT_INC;
  PoolArray<std::uint16_t> NGHBR_PN;
};

template <class W>
void layout(W& w, FD_NLUM& r, const Ctx&) {
  w(F(PILOT_INC, 4));
  // The neighbours run to the end of the message; octet padding is shorter than one.
  w.scalars("NGHBR_PN", r.NGHBR_PN, fit(w, 9), 9);
}

// ---- Additional pilot records (C.S0005 3.7.2.3.2.x pilot record types) ---------------

// ADD_PILOT_REC_INCL and, when set, NGHBR_PILOT_REC_TYPE, RECORD_LEN and the record under
// them, nested as "TypeSpecificFields". Shared by ENLUM and CFSRQM.
template <class W, class R>
void add_pilot_rec(W& w, R& r, const Ctx& c) {
  w(F(ADD_PILOT_REC_INCL, 1));
  if (!r.ADD_PILOT_REC_INCL) return;
  w(F(NGHBR_PILOT_REC_TYPE, 3), F(RECORD_LEN, 3));
  if (r.RECORD_LEN == 0) return;
  // The check covers all RECORD_LEN octets before any of them is read: a record cut short is
  // a short message, not a record to guess at.
  if (!w.need(8u * r.RECORD_LEN)) return;
  fwd::AddPilotCtx pc{c};
  pc.pilot_rec_type = r.NGHBR_PILOT_REC_TYPE;   // the record is laid out by the type read before it
  w.sized("TypeSpecificFields", r.TYPE_SPECIFIC_FIELDS, 8u * r.RECORD_LEN, pc);
}

// NGHBR_SRCH_MODE / CF_NGHBR_SRCH_MODE: '01' priorities, '10' windows, '11' both.
constexpr bool has_priority(std::uint8_t mode) { return mode == 1 || mode == 3; }
constexpr bool has_window(std::uint8_t mode) { return mode == 2 || mode == 3; }

// ---- Extended Neighbor List Update Message (26) -----------------------------------------

// The neighbour records depend on message-level flags; the message hands them down in a
// Ctx of this type (every record below is reached only from the message's layout).
struct NghbrCtx : Ctx {
  std::uint8_t srch_mode;
  std::uint8_t use_timing;
  std::uint8_t global_timing;
  std::uint8_t srch_offset;
};

struct FD_ENLUM_NGHBR {
  std::uint16_t NGHBR_PN;
  std::uint8_t SEARCH_PRIORITY;
  std::uint8_t SRCH_WIN_NGHBR;
  std::uint8_t TIMING_INCL;
  std::uint8_t NGHBR_TX_OFFSET;
  std::uint8_t NGHBR_TX_DURATION;
  std::uint8_t NGHBR_TX_PERIOD;
};

template <class W>
void layout(W& w, FD_ENLUM_NGHBR& r, const NghbrCtx& c) {
  w(F(NGHBR_PN, 9));
  if (has_priority(c.srch_mode)) w(F(SEARCH_PRIORITY, 2));
  if (has_window(c.srch_mode)) w(F(SRCH_WIN_NGHBR, 4));
  if (!c.use_timing) return;
  w(F(TIMING_INCL, 1));
  if (!r.TIMING_INCL) return;
  w(F(NGHBR_TX_OFFSET, 7));
  if (!c.global_timing) w(F(NGHBR_TX_DURATION, 4), F(NGHBR_TX_PERIOD, 7));
}

struct FD_ENLUM_ADD_NGHBR {
  std::uint8_t ADD_PILOT_REC_INCL;
  std::uint8_t NGHBR_PILOT_REC_TYPE;
  std::uint8_t RECORD_LEN;
  fwd::AddPilotRec TYPE_SPECIFIC_FIELDS;
  std::uint8_t SRCH_OFFSET_NGHBR;
};

template <class W>
void layout(W& w, FD_ENLUM_ADD_NGHBR& r, const NghbrCtx& c) {
  add_pilot_rec(w, r, c);
  if (c.srch_offset && has_window(c.srch_mode)) w(F(SRCH_OFFSET_NGHBR, 3));
}

struct FD_ENLUM {
  std::uint8_t PILOT_INC;
  std::uint8_t NGHBR_SRCH_MODE;
  std::uint8_t SRCH_WIN_N;
  std::uint8_t USE_TIMING;
  std::uint8_t GLOBAL_TIMING_INCL;
  std::uint8_t GLOBAL_TX_DURATION;
  std::uint8_t GLOBAL_TX_PERIOD;
  std::uint8_t NUM_NGHBR;
  PoolArray<FD_ENLUM_NGHBR> NGHBRs;
  std::uint8_t SRCH_OFFSET_INCL;
  PoolArray<FD_ENLUM_ADD_NGHBR> ADD_NGHBRs;
  std::uint8_t RESQ_ENABLED;
  std::uint8_t RESQ_DELAY_TIME;
  std::uint8_t RESQ_ALLOWED_TIME;
  std::uint8_t RESQ_ATTEMPT_TIME;
  std::uint16_t RESQ_CODE_CHAN;
  std::uint8_t RESQ_QOF;
  std::uint8_t RESQ_MIN_PERIOD_INCL;
  std::uint8_t RESQ_MIN_PERIOD;
  std::uint8_t RESQ_NUM_TOT_TRANS_INCL;
  std::uint8_t RESQ_NUM_TOT_TRANS_20MS;
  std::uint8_t RESQ_NUM_TOT_TRANS_5MS;
  std::uint8_t RESQ_NUM_PREAMBLE;
  std::uint8_t RESQ_POWER_DELTA;
  PoolArray<std::uint8_t> NGHBR_RESQ_CONFIGURED;
};

template <class W>
void layout(W& w, FD_ENLUM& r, const Ctx& c) {
  w(F(PILOT_INC, 4), F(NGHBR_SRCH_MODE, 2), F(SRCH_WIN_N, 4), F(USE_TIMING, 1));
  if (r.USE_TIMING) {
    w(F(GLOBAL_TIMING_INCL, 1));
    if (r.GLOBAL_TIMING_INCL) w(F(GLOBAL_TX_DURATION, 4), F(GLOBAL_TX_PERIOD, 7));
  }
  w(F(NUM_NGHBR, 6));
  NghbrCtx n{c};
  n.srch_mode = r.NGHBR_SRCH_MODE;
  n.use_timing = r.USE_TIMING;
  n.global_timing = r.USE_TIMING ? r.GLOBAL_TIMING_INCL : 0;
  w.records("NGHBRs", r.NGHBRs, r.NUM_NGHBR, n);
  if (c.p_rev < kRel0) return;

  w(F(SRCH_OFFSET_INCL, 1));
  n.srch_offset = r.SRCH_OFFSET_INCL;
  w.records("ADD_NGHBRs", r.ADD_NGHBRs, r.NUM_NGHBR, n);
  if (c.p_rev < kRelB) return;

  w(F(RESQ_ENABLED, 1));
  if (r.RESQ_ENABLED) fwd::call_rescue<false>(w, r);
}

// ---- Candidate Frequency Search Request Message (27) ------------------------------------

struct FD_CFSRQM_PILOT {
  std::uint16_t NGHBR_PN;
  std::uint8_t SEARCH_SET;
  std::uint8_t SEARCH_PRIORITY;
  std::uint8_t SRCH_WIN_NGHBR;
};

template <class W>
void layout(W& w, FD_CFSRQM_PILOT& r, const NghbrCtx& c) {
  w(F(NGHBR_PN, 9), F(SEARCH_SET, 1));
  if (has_priority(c.srch_mode)) w(F(SEARCH_PRIORITY, 2));
  if (has_window(c.srch_mode)) w(F(SRCH_WIN_NGHBR, 4));
}

// Mode-specific fields, under SEARCH_MODE / MODE_SPECIFIC_LEN and laid out by that mode.
struct FD_CFSRQM_MODE {
  std::uint8_t BAND_CLASS;
  std::uint16_t CDMA_FREQ;
  std::uint8_t SF_TOTAL_EC_THRESH;
  std::uint8_t SF_TOTAL_EC_IO_THRESH;
  std::uint8_t DIFF_RX_PWR_THRESH;
  std::uint8_t MIN_TOTAL_PILOT_EC_IO;
  std::uint8_t CF_T_ADD;
  std::uint8_t TF_WAIT_TIME;
  std::uint8_t CF_PILOT_INC;
  std::uint8_t CF_SRCH_WIN_N;
  std::uint8_t CF_SRCH_WIN_R;
  std::uint8_t PILOT_UPDATE;
  std::uint8_t NUM_PILOTS;
  std::uint8_t CF_NGHBR_SRCH_MODE;
  PoolArray<FD_CFSRQM_PILOT> PILOTs;
  std::uint8_t CF_SRCH_OFFSET_INCL;
  PoolArray<FD_ENLUM_ADD_NGHBR> ADD_PILOTs;
  std::uint8_t NUM_ANALOG_FREQS;
  PoolArray<std::uint16_t> ANALOG_FREQ;
};

struct SearchModeCtx : Ctx {
  std::uint8_t search_mode;
};

template <class W>
void layout(W& w, FD_CFSRQM_MODE& r, const SearchModeCtx& c) {
  if (c.search_mode == 1) {   // analog channels
    w(F(BAND_CLASS, 5), F(SF_TOTAL_EC_THRESH, 5), F(SF_TOTAL_EC_IO_THRESH, 5), reserved(6), F(NUM_ANALOG_FREQS, 3));
    w.scalars("ANALOG_FREQ", r.ANALOG_FREQ, r.NUM_ANALOG_FREQS, 11);
    return;
  }
  if (c.search_mode != 0) return;   // CDMA pilots; other modes are reserved
  w(F(BAND_CLASS, 5), F(CDMA_FREQ, 11), F(SF_TOTAL_EC_THRESH, 5), F(SF_TOTAL_EC_IO_THRESH, 5),
    F(DIFF_RX_PWR_THRESH, 5), F(MIN_TOTAL_PILOT_EC_IO, 5), F(CF_T_ADD, 6), F(TF_WAIT_TIME, 4), F(CF_PILOT_INC, 4),
    F(CF_SRCH_WIN_N, 4), F(CF_SRCH_WIN_R, 4), reserved(5), F(PILOT_UPDATE, 1));
  NghbrCtx n{c};
  if (r.PILOT_UPDATE) {
    w(F(NUM_PILOTS, 6), F(CF_NGHBR_SRCH_MODE, 2));
    n.srch_mode = r.CF_NGHBR_SRCH_MODE;
    w.records("PILOTs", "FD_CFSRQM_PILOTs", r.PILOTs, r.NUM_PILOTS, n);
  }
  if (c.p_rev < kRel0) return;
  w(F(CF_SRCH_OFFSET_INCL, 1));
  n.srch_offset = r.CF_SRCH_OFFSET_INCL;
  if (r.PILOT_UPDATE) w.records("ADD_PILOTs", "FD_CFSRQM_ADD_PILOTs", r.ADD_PILOTs, r.NUM_PILOTS, n);
}

struct FD_CFSRQM {
  std::uint8_t USE_TIME;
  std::uint8_t ACTION_TIME;
  std::uint8_t CFSRM_SEQ;
  std::uint8_t SEARCH_TYPE;
  std::uint8_t SEARCH_PERIOD;
  std::uint8_t SEARCH_MODE;
  std::uint8_t MODE_SPECIFIC_LEN;
  FD_CFSRQM_MODE MODE;
  std::uint8_t ALIGN_TIMING;
  std::uint8_t SEARCH_OFFSET;
};

template <class W>
void layout(W& w, FD_CFSRQM& r, const Ctx& c) {
  w(F(USE_TIME, 1), F(ACTION_TIME, 6), reserved(4), F(CFSRM_SEQ, 2), F(SEARCH_TYPE, 2), F(SEARCH_PERIOD, 4),
    F(SEARCH_MODE, 4), F(MODE_SPECIFIC_LEN, 8));
  // The check covers all MODE_SPECIFIC_LEN octets before any of them is read: a message cut
  // inside them is short, not a record to guess at.
  if (!w.need(8u * r.MODE_SPECIFIC_LEN)) return;
  SearchModeCtx mc{c};
  mc.search_mode = r.SEARCH_MODE;   // the fields are laid out by the mode read just before them
  if (r.MODE_SPECIFIC_LEN) w.sized("MODE_SPECIFIC_FIELDS", r.MODE, 8u * r.MODE_SPECIFIC_LEN, mc);
  if (c.p_rev < kRel0) return;
  w(F(ALIGN_TIMING, 1));
  if (r.ALIGN_TIMING) w(F(SEARCH_OFFSET, 6));
}

// ---- Candidate Frequency Search Control Message (28) ------------------------------------

struct FD_CFSCNM {
  std::uint8_t USE_TIME;
  std::uint8_t ACTION_TIME;
  std::uint8_t CFSCM_SEQ;
  std::uint8_t SEARCH_TYPE;
  std::uint8_t ALIGN_TIMING;
};

template <class W>
void layout(W& w, FD_CFSCNM& r, const Ctx& c) {
  w(F(USE_TIME, 1), F(ACTION_TIME, 6), F(CFSCM_SEQ, 2), F(SEARCH_TYPE, 2));
  if (c.p_rev >= kRel0) w(F(ALIGN_TIMING, 1));
}

// ---- The table ------------------------------------------------------------------------------

}  // namespace

Rows fd_search_rows() {
  static constexpr MessageRow rows[] = {
      {7, "ITSPM", body_ops<FD_ITSPM>()},
      {8, "NLUM", body_ops<FD_NLUM>()},
      {26, "ENLUM", body_ops<FD_ENLUM>()},
      {27, "CFSRQM", body_ops<FD_CFSRQM>()},
      {28, "CFSCNM", body_ops<FD_CFSCNM>()},
  };
  return rows;
}

}  // namespace cs
