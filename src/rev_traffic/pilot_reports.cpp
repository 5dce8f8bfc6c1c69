// Reverse traffic messages that report what the mobile station measures (C.S0005 2.7.2.3.2):
// pilot strengths (5, 21, 28), frame error counts (6), the pilots of a completed handoff
// (10, 29), the supplemental channel request with its pilot lists (18), the candidate frequency
// search response and report (19, 20), the outer loop set points (22) and the CDMA off time
// report (41).
//
// Pilot lists that carry no count run to the end of the message. From Release A a report may
// identify an auxiliary pilot by a pilot record; those records follow the measurements, one per
// pilot, in the order of the pilots.
#include "layout/layout.h"
#include "rev_traffic/message_parts.h"
#include "rev_traffic/tables.h"

namespace cs {
namespace {

using namespace rd_parts;

// ---- Pilot Strength Measurement Message (5) -----------------------------------------------

struct PsmmPilot {
  u16 PILOT_PN_PHASE;
  u8 PILOT_STRENGTH, KEEP;
};

template <class W>
void layout(W& w, PsmmPilot& r, const Ctx&) {
  w(F(PILOT_PN_PHASE, 15), F(PILOT_STRENGTH, 6), F(KEEP, 1));
}

struct RD_PSMM {
  u16 REF_PN;
  u8 PILOT_STRENGTH, KEEP;
  PoolArray<PsmmPilot> PILOTs;
};

template <class W>
void layout(W& w, RD_PSMM& r, const Ctx& c) {
  w(F(REF_PN, 9), F(PILOT_STRENGTH, 6), F(KEEP, 1));
  // One record per other pilot, to the end of the message.
  w.list_to_end("PILOTs", r.PILOTs, to_end_capacity<22>, c);
}

// ---- Power Measurement Report Message (6) -------------------------------------------------

struct RD_PMRM {
  u8 ERRORS_DETECTED;
  u16 PWR_MEAS_FRAMES;
  u8 LAST_HDM_SEQ, NUM_PILOTS;
  PoolArray<u8> PILOT_STRENGTH;
  u8 DCCH_PWR_MEAS_INCL;
  u16 DCCH_PWR_MEAS_FRAMES;
  u8 DCCH_ERRORS_DETECTED, SCH_PWR_MEAS_INCL, SCH_ID;
  u16 SCH_PWR_MEAS_FRAMES, SCH_ERRORS_DETECTED;
};

template <class W>
void layout(W& w, RD_PMRM& r, const Ctx& c) {
  w(F(ERRORS_DETECTED, 5), F(PWR_MEAS_FRAMES, 10), F(LAST_HDM_SEQ, 2), F(NUM_PILOTS, 4));
  if (!w.scalars("PILOT_STRENGTH", r.PILOT_STRENGTH, r.NUM_PILOTS, 6)) return;
  if (c.p_rev < kRel0) return;
  // IS-2000: the Dedicated Control Channel and the Supplemental Channel counts.
  w(F(DCCH_PWR_MEAS_INCL, 1));
  if (r.DCCH_PWR_MEAS_INCL) w(F(DCCH_PWR_MEAS_FRAMES, 10), F(DCCH_ERRORS_DETECTED, 5));
  w(F(SCH_PWR_MEAS_INCL, 1));
  if (r.SCH_PWR_MEAS_INCL) w(F(SCH_ID, 1), F(SCH_PWR_MEAS_FRAMES, 16), F(SCH_ERRORS_DETECTED, 10));
}

// ---- Handoff Completion Message (10) ------------------------------------------------------

struct RD_HOCM {
  u8 LAST_HDM_SEQ;
  PoolArray<u16> PILOT_PN;
};

template <class W>
void layout(W& w, RD_HOCM& r, const Ctx&) {
  w(F(LAST_HDM_SEQ, 2));
  // One PILOT_PN per pilot of the Active Set, to the end of the message.
  u32 n = r.PILOT_PN.count;
  if constexpr (W::kReading) n = fit(w, 9);
  w.scalars("PILOT_PN", r.PILOT_PN, n, 9);
}

// ---- Supplemental Channel Request Message (18) --------------------------------------------

struct ScrmPilot {
  u16 PN_PHASE;
  u8 PN_STR;
};
// The same measurement printed with the names of the Active Set or of the Neighbor Set.
struct ScrmActPn : ScrmPilot {};
struct ScrmNghbrPn : ScrmPilot {};

template <class W>
void layout(W& w, ScrmActPn& r, const Ctx&) {
  w(field(r.PN_PHASE, "ACT_PN_PHASE", 15), field(r.PN_STR, "ACT_PN_STR", 6));
}
template <class W>
void layout(W& w, ScrmNghbrPn& r, const Ctx&) {
  w(field(r.PN_PHASE, "NGHBR_PN_PHASE", 15), field(r.PN_STR, "NGHBR_PN_STR", 6));
}

struct RD_SCRM {
  u8 SIZE_OF_REQ_BLOB;
  Bytes REQ_BLOB;
  u8 USE_SCRM_SEQ_NUM, SCRM_SEQ_NUM;
  u16 REF_PN;
  u8 PILOT_STR, NUM_ACT_PN;
  PoolArray<ScrmActPn> ACT_PNs;
  u8 NUM_NGHBR_PN;
  PoolArray<ScrmNghbrPn> NGHBR_PNs;
  PilotRec REF_PILOT_REC;
  PoolArray<PilotRec> ACT_PILOT_RECs, NGHBR_PILOT_RECs;
};

template <class W>
void layout(W& w, RD_SCRM& r, const Ctx& c) {
  w(F(SIZE_OF_REQ_BLOB, 4));
  if (r.SIZE_OF_REQ_BLOB) w(F(REQ_BLOB, 8u * r.SIZE_OF_REQ_BLOB));
  w(F(USE_SCRM_SEQ_NUM, 1));
  if (r.USE_SCRM_SEQ_NUM) w(F(SCRM_SEQ_NUM, 4));
  // An empty request with no sequence number asks for nothing: no measurements follow.
  const bool request = r.SIZE_OF_REQ_BLOB != 0;
  if (!request && !r.USE_SCRM_SEQ_NUM) return;
  w(F(REF_PN, 9), F(PILOT_STR, 6), F(NUM_ACT_PN, 3));
  if (!w.records("ACT_PNs", r.ACT_PNs, r.NUM_ACT_PN, c)) return;
  // Neighbor pilots are reported only with a request.
  if (request) {
    w(F(NUM_NGHBR_PN, 3));
    if (!w.records("NGHBR_PNs", r.NGHBR_PNs, r.NUM_NGHBR_PN, c)) return;
  }
  if (c.p_rev < kRelA) return;
  if (request) pilot_rec(w, r.REF_PILOT_REC, "REF_PILOT_REC_INCL", "REF_PILOT_REC_TYPE");
  const auto same = [&c](u32) -> const Ctx& { return c; };
  if (!w.alongside("ACT_PILOT_RECs", r.ACT_PILOT_RECs, r.ACT_PNs.count, same)) return;
  if (request) w.alongside("NGHBR_PILOT_RECs", r.NGHBR_PILOT_RECs, r.NGHBR_PNs.count, same);
}

// ---- Candidate Frequency Search Response Message (19) -------------------------------------

struct RD_CFSRSM {
  u8 LAST_CFSRM_SEQ, TOTAL_OFF_TIME_FWD, MAX_OFF_TIME_FWD, TOTAL_OFF_TIME_REV, MAX_OFF_TIME_REV;
  u8 PCG_OFF_TIMES, ALIGN_TIMING_USED, MAX_NUM_VISITS, INTER_VISIT_TIME;
};

template <class W>
void layout(W& w, RD_CFSRSM& r, const Ctx& c) {
  w(F(LAST_CFSRM_SEQ, 2), F(TOTAL_OFF_TIME_FWD, 6), F(MAX_OFF_TIME_FWD, 6), F(TOTAL_OFF_TIME_REV, 6),
    F(MAX_OFF_TIME_REV, 6));
  if (c.p_rev < kRel0) return;
  // IS-2000: off times in power control groups, and searches aligned to the base station's
  // search period in several visits.
  w(F(PCG_OFF_TIMES, 1), F(ALIGN_TIMING_USED, 1));
  if (!r.ALIGN_TIMING_USED) return;
  w(F(MAX_NUM_VISITS, 5));
  if (r.MAX_NUM_VISITS) w(F(INTER_VISIT_TIME, 6));
}

// ---- Candidate Frequency Search Report Message (20) ---------------------------------------

// The mode-specific fields of SEARCH_MODE '0000' (a CDMA candidate frequency): the frequency
// searched, the total received power on the serving and on the candidate frequency, and the
// number of pilots found. The per-pilot fields that follow are not decoded here: a report that
// lists pilots is refused (result 1) after NUM_PILOTS. Other search modes are refused as a
// whole.
struct CfsCdmaReport {
  u8 BAND_CLASS;
  u16 CDMA_FREQ;
  u8 SF_TOTAL_RX_PWR, CF_TOTAL_RX_PWR, NUM_PILOTS;
};

template <class W>
void layout(W& w, CfsCdmaReport& r, const Ctx&) {
  w(F(BAND_CLASS, 5), F(CDMA_FREQ, 11), F(SF_TOTAL_RX_PWR, 5), F(CF_TOTAL_RX_PWR, 5), F(NUM_PILOTS, 6));
  if (r.NUM_PILOTS != 0) (void)w.reject(Rc::count);
}

struct RD_CFSRPM {
  u8 LAST_SRCH_MSG, LAST_SRCH_MSG_SEQ, SEARCH_MODE, MODE_SPECIFIC_LEN;
  CfsCdmaReport CDMA;
};

template <class W>
void layout(W& w, RD_CFSRPM& r, const Ctx& c) {
  w(F(LAST_SRCH_MSG, 1), F(LAST_SRCH_MSG_SEQ, 2), F(SEARCH_MODE, 4), F(MODE_SPECIFIC_LEN, 8));
  // MODE_SPECIFIC_LEN octets of mode-specific fields follow on the air.
  if (!w.need(8u * r.MODE_SPECIFIC_LEN)) return;
  if (r.SEARCH_MODE != 0) {
    (void)w.reject(Rc::count);
    return;
  }
  w.sized("ModeSpecificFields", r.CDMA, 8u * r.MODE_SPECIFIC_LEN, c);
}

// ---- Periodic Pilot Strength Measurement Message (21) -------------------------------------

// The current forward power control set points (Release A on, and in the Outer Loop Report).
struct SchSetpt {
  u8 SCH_ID, FPC_SCH_CURR_SETPT;
};

template <class W>
void layout(W& w, SchSetpt& r, const Ctx&) {
  w(F(SCH_ID, 1), F(FPC_SCH_CURR_SETPT, 8));
}

struct Setpoints {
  u8 FCH_INCL, FPC_FCH_CURR_SETPT, DCCH_INCL, FPC_DCCH_CURR_SETPT, NUM_SUP;
  PoolArray<SchSetpt> SUPs;
};

template <class W>
void setpoints(W& w, Setpoints& r, const Ctx& c) {
  w(F(FCH_INCL, 1));
  if (r.FCH_INCL) w(F(FPC_FCH_CURR_SETPT, 8));
  w(F(DCCH_INCL, 1));
  if (r.DCCH_INCL) w(F(FPC_DCCH_CURR_SETPT, 8));
  w(F(NUM_SUP, 2));
  w.records("SUPs", r.SUPs, r.NUM_SUP, c);
}

struct RD_PPSMM {
  u16 REF_PN;
  u8 PILOT_STRENGTH, KEEP, SF_RX_PWR, NUM_PILOT;
  PoolArray<PsmmPilot> PILOTs;
  PoolArray<PilotRec> PILOT_RECs;
  u8 SETPT_INCL;
  Setpoints SETPT;
};

template <class W>
void layout(W& w, RD_PPSMM& r, const Ctx& c) {
  w(F(REF_PN, 9), F(PILOT_STRENGTH, 6), F(KEEP, 1), F(SF_RX_PWR, 5), F(NUM_PILOT, 4));
  if (!w.records("PILOTs", r.PILOTs, r.NUM_PILOT, c)) return;
  if (c.p_rev < kRelA) return;
  const auto same = [&c](u32) -> const Ctx& { return c; };
  if (!w.alongside("PILOT_RECs", r.PILOT_RECs, r.PILOTs.count, same)) return;
  w(F(SETPT_INCL, 1));
  if (r.SETPT_INCL) setpoints(w, r.SETPT, c);
}

// ---- Outer Loop Report Message (22) -------------------------------------------------------

struct RD_OLRM {
  Setpoints SETPT;
};

template <class W>
void layout(W& w, RD_OLRM& r, const Ctx& c) {
  setpoints(w, r.SETPT, c);
}

// ---- Extended Pilot Strength Measurement Message (28) -------------------------------------

// Release A. The reference pilot leads as in the Pilot Strength Measurement Message; the
// fields that follow KEEP are not decoded here, so the message is refused (result 1) after it.
struct RD_EPSMM {
  u16 REF_PN;
  u8 PILOT_STRENGTH, KEEP;
};

template <class W>
void layout(W& w, RD_EPSMM& r, const Ctx&) {
  w(F(REF_PN, 9), F(PILOT_STRENGTH, 6), F(KEEP, 1));
  (void)w.reject(Rc::count);
}

// ---- Extended Handoff Completion Message (29) ---------------------------------------------

// Release A. LAST_HDM_SEQ leads as in the Handoff Completion Message; the pilot list that
// follows is not decoded here, so the message is refused (result 1) after it.
struct RD_EHOCM {
  u8 LAST_HDM_SEQ;
};

template <class W>
void layout(W& w, RD_EHOCM& r, const Ctx&) {
  w(F(LAST_HDM_SEQ, 2));
  (void)w.reject(Rc::count);
}

// ---- CDMA Off Time Report Message (41) ----------------------------------------------------

// Release C. Its fields are not decoded here: the message is refused (result 1).
struct RD_COTRM {};

template <class W>
void layout(W& w, RD_COTRM&, const Ctx&) {
  (void)w.reject(Rc::count);
}

}  // namespace

Rows rd_pilot_rows() {
  static constexpr MessageRow rows[] = {
      {5, "PSMM", body_ops<RD_PSMM>()},     {6, "PMRM", body_ops<RD_PMRM>()},
      {10, "HOCM", body_ops<RD_HOCM>()},    {18, "SCRM", body_ops<RD_SCRM>()},
      {19, "CFSRSM", body_ops<RD_CFSRSM>()}, {20, "CFSRPM", body_ops<RD_CFSRPM>()},
      {21, "PPSMM", body_ops<RD_PPSMM>()},  {22, "OLRM", body_ops<RD_OLRM>()},
      {28, "EPSMM", body_ops<RD_EPSMM>()},  {29, "EHOCM", body_ops<RD_EHOCM>()},
      {41, "COTRM", body_ops<RD_COTRM>()},
  };
  return rows;
}

}  // namespace cs
