// The handoff direction family of the forward traffic channel (C.S0005 3.7.3.3.2.x):
// Handoff Direction (5), Extended Handoff Direction (17), General Handoff Direction (31) and
// Universal Handoff Direction (34), with the Service Connect (20) and Extended Supplemental
// Channel Assignment (35) messages, which are mostly service configuration.
//
// Every record is the message body after the PDU header; its one layout is walked to decode
// and to print. Revision-dependent fields test Ctx::p_rev (P_REV_IN_USE), except where the
// message carries its own P_REV.
#include <cstdint>

#include "layout/layout.h"
#include "records/forward_shared.h"
#include "fwd_traffic/tables.h"
#include "records/service_config.h"

namespace cs {
namespace {

// ---- Pilot lists that run to the end of the message --------------------------------------

// Capacity of a pilot list whose count is not sent: one slot per 18-bit record that fits,
// plus one. The count is kept in 8 bits on purpose (a list of 255 fitting records wraps to 0
// slots, one of 300 to 45) and never exceeds 108, so one allocation serves any message.
std::uint32_t pilot_capacity(std::uint64_t bits_left) {
  std::uint8_t n = static_cast<std::uint8_t>(bits_left / 18);
  n = static_cast<std::uint8_t>(n + 1);
  return n > 108 ? 108u : n;
}

// The 18-bit pilot record of the Handoff Direction and Extended Handoff Direction messages.
struct HoPilot {
  std::uint16_t PILOT_PN;
  std::uint8_t PWR_COMB_IND;
  std::uint8_t CODE_CHAN;
};

template <class W>
void layout(W& w, HoPilot& r, const Ctx&) {
  w(F(PILOT_PN, 9), F(PWR_COMB_IND, 1), F(CODE_CHAN, 8));
}

// ---- Handoff Direction Message (5) --------------------------------------------------------

struct FD_HDM {
  std::uint8_t USE_TIME;
  std::uint8_t ACTION_TIME;
  std::uint8_t HDM_SEQ;
  std::uint8_t SRCH_WIN_A;
  std::uint8_t T_ADD;
  std::uint8_t T_DROP;
  std::uint8_t T_COMP;
  std::uint8_t T_TDROP;
  std::uint8_t FRAME_OFFSET;
  std::uint8_t PRIVATE_LCM;
  std::uint8_t RESET_L2;
  std::uint8_t ENCRYPT_MODE;
  std::uint8_t FREQ_INCL;
  std::uint16_t CDMA_FREQ;
  PoolArray<HoPilot> PILOTs;
};

template <class W>
void layout(W& w, FD_HDM& r, const Ctx& c) {
  w(F(USE_TIME, 1), F(ACTION_TIME, 6), F(HDM_SEQ, 2), F(SRCH_WIN_A, 4), F(T_ADD, 6), F(T_DROP, 6), F(T_COMP, 4),
    F(T_TDROP, 4), F(FRAME_OFFSET, 4), F(PRIVATE_LCM, 1), F(RESET_L2, 1), F(ENCRYPT_MODE, 2), F(FREQ_INCL, 1));
  if (r.FREQ_INCL) w(F(CDMA_FREQ, 11));
  w.list_to_end("PILOTs", r.PILOTs, pilot_capacity, c);
}

// ---- Extended Handoff Direction Message (17) ----------------------------------------------

struct EhdmAdditional {
  std::uint8_t P_REV;
};

template <class W>
void layout(W& w, EhdmAdditional& r, const Ctx&) {
  w(F(P_REV, 8));
}

struct FD_EHDM {
  std::uint8_t USE_TIME;
  std::uint8_t ACTION_TIME;
  std::uint8_t HDM_SEQ;
  std::uint8_t SEARCH_INCLUDED;
  std::uint8_t SRCH_WIN_A;
  std::uint8_t T_ADD;
  std::uint8_t T_DROP;
  std::uint8_t T_COMP;
  std::uint8_t T_TDROP;
  std::uint8_t HARD_INCLUDED;
  std::uint8_t FRAME_OFFSET;
  std::uint8_t PRIVATE_LCM;
  std::uint8_t RESET_L2;
  std::uint8_t RESET_FPC;
  std::uint8_t SERV_NEG_TYPE;
  std::uint8_t ENCRYPT_MODE;
  std::uint8_t NOM_PWR_EXT;
  std::uint8_t NOM_PWR;
  std::uint8_t NUM_PREAMBLE;
  std::uint8_t BAND_CLASS;
  std::uint16_t CDMA_FREQ;
  std::uint8_t ADD_LENGTH;
  EhdmAdditional AdditionalFields;
  PoolArray<HoPilot> ACTIVE_SET_PILOT;
};

template <class W>
void layout(W& w, FD_EHDM& r, const Ctx& c) {
  w(F(USE_TIME, 1), F(ACTION_TIME, 6), F(HDM_SEQ, 2), F(SEARCH_INCLUDED, 1));
  if (r.SEARCH_INCLUDED) w(F(SRCH_WIN_A, 4), F(T_ADD, 6), F(T_DROP, 6), F(T_COMP, 4), F(T_TDROP, 4));
  w(F(HARD_INCLUDED, 1));
  if (r.HARD_INCLUDED) {
    w(F(FRAME_OFFSET, 4), F(PRIVATE_LCM, 1), F(RESET_L2, 1));
    if (c.p_rev >= 3) {
      w(F(RESET_FPC, 1), F(SERV_NEG_TYPE, 1));
    } else if (pcs_band(c.band_class)) {
      // Before P_REV 3 only the PCS bands carry the two bits; the second (SERV_NEG_TYPE) is
      // consumed but neither kept nor shown. The asymmetry is intended.
      w(F(RESET_FPC, 1), reserved(1));
    }
    w(F(ENCRYPT_MODE, 2), F(NOM_PWR_EXT, 1), F(NOM_PWR, 4), F(NUM_PREAMBLE, 3), F(BAND_CLASS, 5), F(CDMA_FREQ, 11));
  }
  w(F(ADD_LENGTH, 3));
  if (r.ADD_LENGTH) {
    // Only P_REV is known; the walk moves on by all ADD_LENGTH octets.
    w.sized("AdditionalFields", r.AdditionalFields, 8u * r.ADD_LENGTH, c);
  }
  w.list_to_end("ACTIVE_SET_PILOT", r.ACTIVE_SET_PILOT, pilot_capacity, c);
}

// ---- Helpers shared by the later members ---------------------------------------------------

// The search group of the General and Universal Handoff Direction messages.
template <class W, class R>
void search_group(W& w, R& r) {
  w(F(SRCH_WIN_A, 4), F(SRCH_WIN_N, 4), F(SRCH_WIN_R, 4), F(T_ADD, 6), F(T_DROP, 6), F(T_COMP, 4), F(T_TDROP, 4),
    F(SOFT_SLOPE, 6), F(ADD_INTERCEPT, 6), F(DROP_INTERCEPT, 6));
}

// RETURN_IF_HANDOFF_FAIL .. the service configuration record, the tail of the extra
// parameters of both messages.
template <class W, class R>
void return_and_scr(W& w, R& r, const Ctx& c) {
  w(F(RETURN_IF_HANDOFF_FAIL, 1));
  if (r.RETURN_IF_HANDOFF_FAIL) w(F(COMPLETE_SEARCH, 1));
  w(F(PERIODIC_SEARCH, 1), F(SCR_INCLUDED, 1));
  if (r.SCR_INCLUDED) {
    w(F(SERV_CON_SEQ, 3));
    scr_record(w, r, c);
  }
}

// SYNC_ID_INCL, SYNC_ID_LEN and SYNC_ID (SYNC_ID_LEN octets, shown in hexadecimal).
template <class W, class R>
void sync_id(W& w, R& r) {
  w(F(SYNC_ID_INCL, 1));
  if (!r.SYNC_ID_INCL) return;
  w(F(SYNC_ID_LEN, 4));
  if (r.SYNC_ID_LEN != 0) w(F(SYNC_ID, 8u * r.SYNC_ID_LEN));
}

// Call assignments of the Universal Handoff Direction and Service Connect messages.
struct CallAssign {
  std::uint8_t CON_REF;
  std::uint8_t RESPONSE_IND;
  std::uint8_t TAG;
  std::uint8_t BYPASS_ALERT_ANSWER;
};

template <class W>
void layout(W& w, CallAssign& r, const Ctx&) {
  w(F(CON_REF, 8), F(RESPONSE_IND, 1));
  if (r.RESPONSE_IND) {
    w(F(TAG, 4));
  } else {
    w(F(BYPASS_ALERT_ANSWER, 1));
  }
}

// From P_REV 7: the signalling encryption of the extra parameters, the 3X forward / 1X reverse
// offset (Universal only), the SYNC_ID of a stored configuration and the call assignments
// (Universal only, with a service configuration).
template <class W, class R>
void enc_and_calls(W& w, R& r, const Ctx& c, bool universal) {
  if (r.EXTRA_PARMS) {
    if (r.ENCRYPT_MODE == 3) w(F(D_SIG_ENCRYPT_MODE, 3));
    if (r.ENCRYPT_MODE == 2 || r.ENCRYPT_MODE == 3) w(F(ENC_KEY_SIZE, 3));
  }
  if (universal) {
    w(F(F3XFL_1XRL_INCL, 1));
    if (r.F3XFL_1XRL_INCL) w(F(F1XRL_FREQ_OFFSET, 2));
  }
  // From P_REV 11 the Universal message may name a stored configuration by its SYNC_ID even
  // when it sends no service configuration.
  const bool any_sync_id = universal && c.p_rev >= 11;
  if (!r.EXTRA_PARMS && !any_sync_id) return;
  if (any_sync_id || r.SCR_INCLUDED || r.NNSCR_INCLUDED) sync_id(w, r);
  if (universal && r.EXTRA_PARMS && r.SCR_INCLUDED) {
    w(F(CC_INFO_INCL, 1));
    if (r.CC_INFO_INCL) {
      w(F(NUM_CALLS_ASSIGN, 8));
      w.records("CALLs", r.CALLs, r.NUM_CALLS_ASSIGN, c);
    }
  }
}

// ---- General Handoff Direction Message (31) -----------------------------------------------

// A pilot of the General Handoff Direction Message. With forward supplemental code channels
// assigned (FOR_SUP_CONFIG '10' or '11') each pilot says which it carries; the message hands
// its pilots that state in their context.
struct GhdmPilotCtx : Ctx {
  bool sup_specified;        // supplemental code channels assigned per pilot
  std::uint8_t num_for_sup;  // how many
};

struct GhdmPilot {
  std::uint16_t PILOT_PN;
  std::uint8_t PWR_COMB_IND;
  std::uint8_t CODE_CHAN;
  std::uint8_t FOR_SUP_INCLUDED;
  std::uint8_t EXPL_CODE_CHAN;
  PoolArray<std::uint8_t> SUP_CODE_CHAN;
  std::uint8_t BASE_CODE_CHAN;
};

template <class W>
void layout(W& w, GhdmPilot& r, const GhdmPilotCtx& c) {
  w(F(PILOT_PN, 9), F(PWR_COMB_IND, 1), F(CODE_CHAN, 8));
  if (!c.sup_specified) return;
  w(F(FOR_SUP_INCLUDED, 1));
  if (!r.FOR_SUP_INCLUDED) return;
  w(F(EXPL_CODE_CHAN, 1));
  if (r.EXPL_CODE_CHAN) {
    w.scalars("SUP_CODE_CHAN", r.SUP_CODE_CHAN, c.num_for_sup, 8);
  } else {
    w(F(BASE_CODE_CHAN, 8));
  }
}

struct FD_GHDM {
  std::uint8_t USE_TIME;
  std::uint8_t ACTION_TIME;
  std::uint8_t HDM_SEQ;
  std::uint8_t SEARCH_INCLUDED;
  std::uint8_t SRCH_WIN_A;
  std::uint8_t SRCH_WIN_N;
  std::uint8_t SRCH_WIN_R;
  std::uint8_t T_ADD;
  std::uint8_t T_DROP;
  std::uint8_t T_COMP;
  std::uint8_t T_TDROP;
  std::uint8_t SOFT_SLOPE;
  std::uint8_t ADD_INTERCEPT;
  std::uint8_t DROP_INTERCEPT;
  std::uint8_t EXTRA_PARMS;
  std::uint8_t P_REV;
  std::uint8_t PACKET_ZONE_ID;
  std::uint8_t FRAME_OFFSET;
  std::uint8_t PRIVATE_LCM;
  std::uint8_t RESET_L2;
  std::uint8_t RESET_FPC;
  std::uint8_t SERV_NEG_TYPE;
  std::uint8_t ENCRYPT_MODE;
  std::uint8_t NOM_PWR_EXT;
  std::uint8_t NOM_PWR;
  std::uint8_t NUM_PREAMBLE;
  std::uint8_t BAND_CLASS;
  std::uint16_t CDMA_FREQ;
  std::uint8_t RETURN_IF_HANDOFF_FAIL;
  std::uint8_t COMPLETE_SEARCH;
  std::uint8_t PERIODIC_SEARCH;
  std::uint8_t SCR_INCLUDED;
  std::uint8_t SERV_CON_SEQ;
  std::uint8_t RECORD_TYPE;
  std::uint8_t RECORD_LEN;
  ServiceConfig SCR;
  std::uint8_t SUP_CHAN_PARMS_INCLUDED;
  std::uint8_t FOR_INCLUDED;
  std::uint8_t FOR_SUP_CONFIG;
  std::uint8_t NUM_FOR_SUP;
  std::uint8_t USE_FOR_DURATION;
  std::uint8_t FOR_DURATION;
  std::uint8_t REV_INCLUDED;
  std::uint8_t REV_DTX_DURATION;
  std::uint8_t CLEAR_RETRY_DELAY;
  std::uint8_t USE_REV_DURATION;
  std::uint8_t REV_DURATION;
  std::uint8_t NUM_REV_CODES;
  std::uint8_t USE_T_ADD_ABORT;
  std::uint8_t REV_PARMS_INCLUDED;
  std::uint8_t T_MULCHAN;
  std::uint8_t BEGIN_PREAMBLE;
  std::uint8_t RESUME_PREAMBLE;
  std::uint8_t USE_PWR_CNTL_STEP;
  std::uint8_t PWR_CNTL_STEP;
  std::uint8_t NUM_PILOTS;
  PoolArray<GhdmPilot> PILOTs;
  // P_REV 6 and later
  std::uint8_t FPC_SUBCHAN_GAIN;
  std::uint8_t USE_PC_TIME;
  std::uint8_t PC_ACTION_TIME;
  std::uint8_t RLGAIN_TRAFFIC_PILOT;
  std::uint8_t DEFAULT_RLAG;
  std::uint8_t NNSCR_INCLUDED;
  std::uint8_t RECORD_TYPE2;
  std::uint8_t RECORD_LEN2;
  Nnscr NNSCR;
  std::uint8_t REV_FCH_GATING_MODE;
  std::uint8_t REV_PWR_CNTL_DELAY_INCL;
  std::uint8_t REV_PWR_CNTL_DELAY;
  // P_REV 7 and later
  std::uint8_t D_SIG_ENCRYPT_MODE;
  std::uint8_t ENC_KEY_SIZE;
  std::uint8_t F3XFL_1XRL_INCL;     // Universal only
  std::uint8_t F1XRL_FREQ_OFFSET;   // Universal only
  std::uint8_t SYNC_ID_INCL;
  std::uint8_t SYNC_ID_LEN;
  Bytes SYNC_ID;
  std::uint8_t CC_INFO_INCL;        // Universal only
  std::uint8_t NUM_CALLS_ASSIGN;    // Universal only
  PoolArray<CallAssign> CALLs;      // Universal only
  std::uint8_t CS_SUPPORTED;
};

template <class W>
void layout(W& w, FD_GHDM& r, const Ctx& c) {
  w(F(USE_TIME, 1));
  if (r.USE_TIME) w(F(ACTION_TIME, 6));
  w(F(HDM_SEQ, 2), F(SEARCH_INCLUDED, 1));
  if (r.SEARCH_INCLUDED) search_group(w, r);
  w(F(EXTRA_PARMS, 1));
  if (r.EXTRA_PARMS) {
    w(F(P_REV, 8), F(PACKET_ZONE_ID, 8), F(FRAME_OFFSET, 4), F(PRIVATE_LCM, 1), F(RESET_L2, 1), F(RESET_FPC, 1),
      F(SERV_NEG_TYPE, 1), F(ENCRYPT_MODE, 2), F(NOM_PWR_EXT, 1), F(NOM_PWR, 4), F(NUM_PREAMBLE, 3), F(BAND_CLASS, 5),
      F(CDMA_FREQ, 11));
    return_and_scr(w, r, c);
  }

  w(F(SUP_CHAN_PARMS_INCLUDED, 1));
  if (r.SUP_CHAN_PARMS_INCLUDED) {
    w(F(FOR_INCLUDED, 1));
    if (r.FOR_INCLUDED) {
      w(F(FOR_SUP_CONFIG, 2));
      if (r.FOR_SUP_CONFIG == 2 || r.FOR_SUP_CONFIG == 3) w(F(NUM_FOR_SUP, 3));
      // '01' and '11' start the supplementals: their duration may follow.
      if (r.FOR_SUP_CONFIG == 1 || r.FOR_SUP_CONFIG == 3) {
        w(F(USE_FOR_DURATION, 1));
        if (r.USE_FOR_DURATION) w(F(FOR_DURATION, 8));
      }
    }
    w(F(REV_INCLUDED, 1));
    if (r.REV_INCLUDED) {
      w(F(REV_DTX_DURATION, 4), F(CLEAR_RETRY_DELAY, 1), F(USE_REV_DURATION, 1));
      if (r.USE_REV_DURATION) w(F(REV_DURATION, 8));
      w(F(NUM_REV_CODES, 3), F(USE_T_ADD_ABORT, 1));
    }
    w(F(REV_PARMS_INCLUDED, 1));
    if (r.REV_PARMS_INCLUDED) w(F(T_MULCHAN, 3), F(BEGIN_PREAMBLE, 3), F(RESUME_PREAMBLE, 3));
  }
  w(F(USE_PWR_CNTL_STEP, 1));
  if (r.USE_PWR_CNTL_STEP) w(F(PWR_CNTL_STEP, 3));
  w(F(NUM_PILOTS, 3));
  GhdmPilotCtx pilots{c};
  pilots.sup_specified =
      r.SUP_CHAN_PARMS_INCLUDED && r.FOR_INCLUDED && (r.FOR_SUP_CONFIG == 2 || r.FOR_SUP_CONFIG == 3);
  pilots.num_for_sup = pilots.sup_specified ? static_cast<std::uint8_t>(r.NUM_FOR_SUP & 7u) : 0;
  w.records("PILOTs", r.PILOTs, r.NUM_PILOTS, pilots);
  if (c.p_rev < 6) return;

  w(F(FPC_SUBCHAN_GAIN, 5), F(USE_PC_TIME, 1));
  if (r.USE_PC_TIME) w(F(PC_ACTION_TIME, 6));
  if (r.EXTRA_PARMS) {
    w(F(RLGAIN_TRAFFIC_PILOT, 6), F(DEFAULT_RLAG, 1), F(NNSCR_INCLUDED, 1));
    if (r.NNSCR_INCLUDED) nnscr_record(w, r, c);
  }
  fwd::rev_fch_gating(w, r);
  if (c.p_rev < 7) return;
  enc_and_calls(w, r, c, false);
  w(F(CS_SUPPORTED, 1));
}

// ---- Universal Handoff Direction Message (34) ---------------------------------------------

// A forward supplemental channel assignment (the handoff message's SCH_INCL group and the
// extended supplemental channel assignment share it).
struct ForSchAssign {
  std::uint8_t FOR_SCH_ID;
  std::uint8_t FOR_SCH_DURATION;
  std::uint8_t FOR_SCH_START_TIME_INCL;
  std::uint8_t FOR_SCH_START_TIME;
  std::uint8_t SCCL_INDEX;
};

template <class W>
void layout(W& w, ForSchAssign& r, const Ctx&) {
  w(F(FOR_SCH_ID, 1), F(FOR_SCH_DURATION, 4), F(FOR_SCH_START_TIME_INCL, 1));
  if (r.FOR_SCH_START_TIME_INCL) w(F(FOR_SCH_START_TIME, 5));
  w(F(SCCL_INDEX, 4));
}

struct UhdmRevSchAssign {
  std::uint8_t REV_SCH_ID;
  std::uint8_t REV_SCH_DURATION;
  std::uint8_t REV_SCH_START_TIME_INCL;
  std::uint8_t REV_SCH_START_TIME;
  std::uint8_t REV_SCH_NUM_BITS_IDX;
};

template <class W>
void layout(W& w, UhdmRevSchAssign& r, const Ctx&) {
  w(F(REV_SCH_ID, 1), F(REV_SCH_DURATION, 4), F(REV_SCH_START_TIME_INCL, 1));
  if (r.REV_SCH_START_TIME_INCL) w(F(REV_SCH_START_TIME, 5));
  w(F(REV_SCH_NUM_BITS_IDX, 4));
}

// Supplemental channels of the active set record.
struct AsrForSch {
  std::uint8_t FOR_SCH_ID;
  std::uint8_t SCCL_INDEX;
  std::uint8_t FOR_SCH_RATE;
};

template <class W>
void layout(W& w, AsrForSch& r, const Ctx&) {
  w(F(FOR_SCH_ID, 1), F(SCCL_INDEX, 4), F(FOR_SCH_RATE, 4));
}

// A reverse supplemental channel's Walsh cover and rate, in the active set record and in the
// reverse configuration records of the extended supplemental channel assignment.
struct RevSchCfg {
  std::uint8_t REV_SCH_ID;
  std::uint8_t REV_WALSH_ID;
  std::uint8_t REV_SCH_RATE;
};

template <class W>
void layout(W& w, RevSchCfg& r, const Ctx&) {
  w(F(REV_SCH_ID, 1), F(REV_WALSH_ID, 1), F(REV_SCH_RATE, 4));
}

// A pilot's code channel on one forward supplemental channel.
struct AsrPilotSch {
  std::uint8_t FOR_SCH_ID;
  std::uint8_t SCCL_INDEX;
  std::uint8_t PILOT_INCL;
  std::uint16_t CODE_CHAN_SCH;
  std::uint8_t QOF_MASK_ID_SCH;
};

template <class W>
void layout(W& w, AsrPilotSch& r, const Ctx&) {
  w(F(FOR_SCH_ID, 1), F(SCCL_INDEX, 4), F(PILOT_INCL, 1));
  if (r.PILOT_INCL) w(F(CODE_CHAN_SCH, 11), F(QOF_MASK_ID_SCH, 2));
}

// ADD_PILOT_REC_INCL, the pilot record type (`type`, 3 bits) and RECORD_LEN (octets of the
// type-specific fields that follow it), then those fields, shown among the pilot's own; the
// walk moves on by RECORD_LEN octets whatever the type reads.
template <class W, class R>
void add_pilot_rec(W& w, R& r, const Field<std::uint8_t>& type, const Ctx& c) {
  w(F(ADD_PILOT_REC_INCL, 1));
  if (!r.ADD_PILOT_REC_INCL) return;
  w(type, F(RECORD_LEN, 3));
  auto end = w.declared_end();
  fwd::AddPilotCtx pc{c};
  pc.pilot_rec_type = type.ref;
  layout(w, r.REC, pc);
  end.at(8u * r.RECORD_LEN);
}

// The channel indicator decides which code channels the pilots carry: the Fundamental Channel
// for CH_IND '101' and '111', the Dedicated Control Channel for '010', '110' and '111'.
constexpr bool asr_fch(unsigned ch_ind) { return ch_ind == 5 || ch_ind == 7; }
constexpr bool asr_dcch(unsigned ch_ind) { return ch_ind == 2 || ch_ind == 6 || ch_ind == 7; }

// What the records of the active set take from the message and from the record around them.
struct AsrCtx : Ctx {
  std::uint8_t ch_ind;     // CH_IND of the message
  bool sch_incl;           // supplemental channels assigned (SCH_INCL)
  bool srch_offset_incl;   // the pilots carry SRCH_OFFSET
  bool f3x_fch, f3x_dcch;  // F3X_FCH_INFO_INCL, F3X_DCCH_INFO_INCL
  std::uint8_t num_sch;    // a 3X record's 1X pilot's NUM_SCH
};

struct AsrPilot {
  std::uint16_t PILOT_PN;
  std::uint8_t SRCH_OFFSET;
  std::uint8_t ADD_PILOT_REC_INCL;
  std::uint8_t PILOT_REC_TYPE;
  std::uint8_t RECORD_LEN;
  fwd::AddPilotRec REC;
  std::uint8_t PWR_COMB_IND;
  std::uint16_t CODE_CHAN_FCH;
  std::uint8_t QOF_MASK_ID_FCH;
  std::uint16_t CODE_CHAN_DCCH;
  std::uint8_t QOF_MASK_ID_DCCH;
  std::uint8_t NUM_SCH;
  PoolArray<AsrPilotSch> SCHs;
};

template <class W>
void layout(W& w, AsrPilot& r, const AsrCtx& c) {
  const unsigned ch_ind = c.ch_ind;
  w(F(PILOT_PN, 9));
  if (c.srch_offset_incl) w(F(SRCH_OFFSET, 3));
  add_pilot_rec(w, r, F(PILOT_REC_TYPE, 3), c);
  w(F(PWR_COMB_IND, 1));
  if (asr_fch(ch_ind)) w(F(CODE_CHAN_FCH, 11), F(QOF_MASK_ID_FCH, 2));
  if (asr_dcch(ch_ind)) w(F(CODE_CHAN_DCCH, 11), F(QOF_MASK_ID_DCCH, 2));
  if (c.sch_incl) {
    w(F(NUM_SCH, 5));
    w.records("SCHs", r.SCHs, r.NUM_SCH, c);
  }
}

// The 3X code channels of one active set pilot: low and high carriers of the Fundamental and
// Dedicated Control channels and of each of the pilot's supplemental channels.
struct F3xCode {
  std::uint8_t LOW_INCL;
  std::uint8_t QOF_MASK_ID_LOW;
  std::uint16_t CODE_CHAN_LOW;
  std::uint8_t HIGH_INCL;
  std::uint8_t QOF_MASK_ID_HIGH;
  std::uint16_t CODE_CHAN_HIGH;
};

// F3X_<ch>_LOW_INCL [QOF_MASK_ID_<ch>_LOW, CODE_CHAN_<ch>_LOW], then the same for HIGH; the
// names come in the order of the fields.
template <class W>
void f3x_code(W& w, F3xCode& r, const char* const (&n)[6]) {
  w(field(r.LOW_INCL, n[0], 1));
  if (r.LOW_INCL) w(field(r.QOF_MASK_ID_LOW, n[1], 2), field(r.CODE_CHAN_LOW, n[2], 11));
  w(field(r.HIGH_INCL, n[3], 1));
  if (r.HIGH_INCL) w(field(r.QOF_MASK_ID_HIGH, n[4], 2), field(r.CODE_CHAN_HIGH, n[5], 11));
}

constexpr const char* kF3xFch[6] = {"F3X_FCH_LOW_INCL",  "QOF_MASK_ID_FCH_LOW",  "CODE_CHAN_FCH_LOW",
                                    "F3X_FCH_HIGH_INCL", "QOF_MASK_ID_FCH_HIGH", "CODE_CHAN_FCH_HIGH"};
constexpr const char* kF3xDcch[6] = {"F3X_DCCH_LOW_INCL",  "QOF_MASK_ID_DCCH_LOW",  "CODE_CHAN_DCCH_LOW",
                                     "F3X_DCCH_HIGH_INCL", "QOF_MASK_ID_DCCH_HIGH", "CODE_CHAN_DCCH_HIGH"};
constexpr const char* kF3xSch[6] = {"F3X_SCH_LOW_INCL",  "QOF_MASK_ID_SCH_LOW",  "CODE_CHAN_SCH_LOW",
                                    "F3X_SCH_HIGH_INCL", "QOF_MASK_ID_SCH_HIGH", "CODE_CHAN_SCH_HIGH"};

struct F3xSch {
  std::uint8_t FOR_SCH_ID;
  F3xCode CODE;
};

template <class W>
void layout(W& w, F3xSch& r, const Ctx&) {
  w(F(FOR_SCH_ID, 1));
  f3x_code(w, r.CODE, kF3xSch);
}

struct F3xPilot {
  F3xCode FCH;
  F3xCode DCCH;
  std::uint8_t F3X_SCH_INFO_INCL;
  PoolArray<F3xSch> SCHs;
};

template <class W>
void layout(W& w, F3xPilot& r, const AsrCtx& c) {
  const bool fch = asr_fch(c.ch_ind) && c.f3x_fch, dcch = asr_dcch(c.ch_ind) && c.f3x_dcch;
  if (fch) f3x_code(w, r.FCH, kF3xFch);
  if (dcch) f3x_code(w, r.DCCH, kF3xDcch);
  if ((fch || dcch) && c.sch_incl) {
    w(F(F3X_SCH_INFO_INCL, 1));
    // One record for each supplemental channel of the 1X pilot.
    if (r.F3X_SCH_INFO_INCL) w.records("F3X_SCHs", "ACTIVE_SET_REC_F3X_FCHs_DCCHs_F3X_SCHs", r.SCHs, c.num_sch, c);
  }
}

// The common channel supplemental encoders: one encoder type (CCSH_ENCODER_TYPE, 1 bit) for
// each supplemental channel of a pilot, as many as the record read before says.
struct CcshEncoders {
  PoolArray<std::uint8_t> CCSH_ENCODER_TYPE;
};
struct CcshCtx : Ctx {
  std::uint8_t count;
};

template <class W>
void layout(W& w, CcshEncoders& r, const CcshCtx& c) {
  w.scalars("CCSH_ENCODER_TYPE", r.CCSH_ENCODER_TYPE, c.count, 1);
}

// CCSH_PILOTs: for each pilot read before, one encoder type for each of its supplemental
// channels that carries it (PILOT_INCL set).
template <class W, class Pilot>
void ccsh_pilots(W& w, PoolArray<CcshEncoders>& a, const PoolArray<Pilot>& pilots, const Ctx& c) {
  w.alongside("CCSH_PILOTs", a, pilots.count, [&](std::uint32_t k) {
    CcshCtx e{c};
    for (std::uint32_t j = 0; j < pilots[k].SCHs.count; ++j) e.count += pilots[k].SCHs[j].PILOT_INCL ? 1 : 0;
    return e;
  });
}

// The common power control subchannel of one pilot for broadcast-multicast on the dedicated
// channels (P_REV 10).
struct AsrCpcch {
  std::uint8_t FOR_CPCCH_WALSH;
  std::uint8_t FOR_CPCSCH;
};

template <class W>
void layout(W& w, AsrCpcch& r, const Ctx&) {
  w(F(FOR_CPCCH_WALSH, 7), F(FOR_CPCSCH, 5));
}

// ACTIVE_SET_REC_FIELDS for the channel indicators with a Fundamental or Dedicated Control
// Channel: the supplemental channels, the 1X pilots, from P_REV 7 the 3X code channels of each
// pilot and from P_REV 8 the common power control encoders.
struct ActiveSetRec {
  std::uint8_t NUM_FOR_SCH;
  PoolArray<AsrForSch> FOR_SCHs;
  std::uint8_t NUM_REV_SCH;
  PoolArray<RevSchCfg> REV_SCHs;
  std::uint8_t NUM_PILOTS;
  std::uint8_t SRCH_OFFSET_INCL;
  PoolArray<AsrPilot> PILOTs;
  std::uint8_t F3X_FCH_INFO_INCL;
  std::uint8_t F3X_DCCH_INFO_INCL;
  PoolArray<F3xPilot> F3X_FCHs;
  std::uint8_t CCSH_INCLUDED;
  std::uint8_t USE_CCSH_ENCODER_TIME;
  std::uint8_t CCSH_ENCODER_ACTION_TIME;
  PoolArray<CcshEncoders> CCSH_PILOTs;
  // P_REV 10 and later
  std::uint8_t FUNDICATED_BCMC_IND;
  std::uint8_t REV_FCH_ASSIGNED;
  std::uint8_t ADD_PLCM_FOR_FCH_INCL;
  std::uint8_t ADD_PLCM_FOR_FCH_TYPE;
  Bytes ADD_PLCM_FOR_FCH_39;
  std::uint8_t FOR_CPCCH_INFO_INCL;
  PoolArray<AsrCpcch> FOR_CPCH_RECs;
};

template <class W>
void layout(W& w, ActiveSetRec& r, const AsrCtx& c) {
  const unsigned ch_ind = c.ch_ind;
  if (c.sch_incl) {
    w(F(NUM_FOR_SCH, 5));
    w.records("FOR_SCHs", r.FOR_SCHs, r.NUM_FOR_SCH, c);
    w(F(NUM_REV_SCH, 5));
    w.records("REV_SCHs", r.REV_SCHs, r.NUM_REV_SCH, c);
  }
  w(F(NUM_PILOTS, 3), F(SRCH_OFFSET_INCL, 1));
  AsrCtx pilots = c;
  pilots.srch_offset_incl = r.SRCH_OFFSET_INCL;
  w.records("PILOTs", r.PILOTs, r.NUM_PILOTS, pilots);
  if (c.p_rev < 7) return;
  if (asr_fch(ch_ind)) w(F(F3X_FCH_INFO_INCL, 1));
  if (asr_dcch(ch_ind)) w(F(F3X_DCCH_INFO_INCL, 1));
  // The 3X code channels of each 1X pilot just read, with as many supplemental channels as
  // that pilot has.
  if (r.F3X_FCH_INFO_INCL || r.F3X_DCCH_INFO_INCL) {
    w.alongside("F3X_FCHs", r.F3X_FCHs, r.PILOTs.count, [&](std::uint32_t k) {
      AsrCtx f3x = c;
      f3x.f3x_fch = r.F3X_FCH_INFO_INCL;
      f3x.f3x_dcch = r.F3X_DCCH_INFO_INCL;
      f3x.num_sch = r.PILOTs[k].NUM_SCH;
      return f3x;
    });
  }
  if (c.p_rev < 8) return;
  w(F(CCSH_INCLUDED, 1));
  if (r.CCSH_INCLUDED) {
    w(F(USE_CCSH_ENCODER_TIME, 1));
    if (r.USE_CCSH_ENCODER_TIME) w(F(CCSH_ENCODER_ACTION_TIME, 6));
    if (c.sch_incl) ccsh_pilots(w, r.CCSH_PILOTs, r.PILOTs, c);
  }
  if (c.p_rev < 10 || !asr_dcch(ch_ind)) return;
  // From P_REV 10 a Dedicated Control Channel may carry broadcast-multicast; with the
  // Fundamental Channel too ('111') the common power control subchannels are optional.
  w(F(FUNDICATED_BCMC_IND, 1));
  if (ch_ind == 7 && r.FUNDICATED_BCMC_IND) {
    w(F(REV_FCH_ASSIGNED, 1), F(ADD_PLCM_FOR_FCH_INCL, 1));
    if (r.ADD_PLCM_FOR_FCH_INCL) {
      w(F(ADD_PLCM_FOR_FCH_TYPE, 1));
      if (r.ADD_PLCM_FOR_FCH_TYPE) w(F(ADD_PLCM_FOR_FCH_39, 39));
    }
    w(F(FOR_CPCCH_INFO_INCL, 1));
  }
  const bool cpcch = r.FUNDICATED_BCMC_IND && (ch_ind != 7 || r.FOR_CPCCH_INFO_INCL);
  if (cpcch) w.records("FOR_CPCH_RECs", r.FOR_CPCH_RECs, r.NUM_PILOTS, c);
}

// ---- The extended active set record (CH_IND '000', from P_REV 9) -------------------------

// EXT_CH_IND names the forward and reverse channels beside the Packet Data Channel:
// 1 F-CPCCH / R-FCH, 2 F-CPCCH / R-DCCH, 3 F-FCH / R-FCH, 4 F-DCCH / R-DCCH,
// 5 F-FCH / R-FCH and R-DCCH, 6 F-FCH and F-DCCH / R-FCH and R-DCCH. Other values carry no record.
constexpr bool ext_known(unsigned ext) { return ext >= 1 && ext <= 6; }
constexpr bool ext_cpcch(unsigned ext) { return ext == 1 || ext == 2; }
constexpr bool ext_fwd_fch(unsigned ext) { return ext == 3 || ext == 5 || ext == 6; }
constexpr bool ext_fwd_dcch(unsigned ext) { return ext == 4 || ext == 6; }
constexpr bool ext_rev_fch(unsigned ext) { return ext == 1 || ext == 3 || ext == 5 || ext == 6; }

// What the pilots of the record depend on: the message's EXT_CH_IND and SCH_INCL and the
// record's own inclusion flags.
struct ExtAsrCtx : Ctx {
  std::uint8_t ext_ch_ind;
  bool sch_incl;
  bool srch_offset_incl;
  bool pdch_common_parms;
  bool pdch_group_ind_incl;
};

struct ExtPdcch {
  std::uint8_t FOR_PDCCH_WALSH;
};

template <class W>
void layout(W& w, ExtPdcch& r, const Ctx&) {
  w(F(FOR_PDCCH_WALSH, 6));
}

struct ExtPilot {
  std::uint16_t PILOT_PN;
  std::uint8_t SRCH_OFFSET;
  std::uint8_t ADD_PILOT_REC_INCL;
  std::uint8_t PILOT_REC_TYPE;
  std::uint8_t RECORD_LEN;
  fwd::AddPilotRec REC;
  std::uint8_t FOR_PDCH_INCL;
  std::uint8_t WALSH_TABLE_ID;
  std::uint8_t NUM_PDCCH;   // records sent: NUM_PDCCH + 1
  PoolArray<ExtPdcch> PDCCH_RECs;
  std::uint8_t MAC_ID;
  std::uint8_t REV_CQICH_COVER;
  std::uint8_t FOR_CPCCH_WALSH;
  std::uint8_t FOR_CPCSCH;
  std::uint8_t PWR_COMB_IND;
  std::uint8_t PDCH_GROUP_IND;
  std::uint16_t CODE_CHAN_FCH;
  std::uint8_t QOF_MASK_ID_FCH;
  std::uint16_t CODE_CHAN_DCCH;
  std::uint8_t QOF_MASK_ID_DCCH;
  std::uint8_t NUM_SCH;
  PoolArray<AsrPilotSch> SCHs;
};

template <class W>
void layout(W& w, ExtPilot& r, const ExtAsrCtx& c) {
  w(F(PILOT_PN, 9));
  if (c.srch_offset_incl) w(F(SRCH_OFFSET, 3));
  add_pilot_rec(w, r, F(PILOT_REC_TYPE, 3), c);
  w(F(FOR_PDCH_INCL, 1));
  // Without common packet data parameters each pilot names its own control channels.
  if (r.FOR_PDCH_INCL && !c.pdch_common_parms) {
    w(F(WALSH_TABLE_ID, 3), F(NUM_PDCCH, 3));
    w.records("PDCCH_RECs", r.PDCCH_RECs, r.NUM_PDCCH + 1u, c);
  }
  if (r.FOR_PDCH_INCL) {
    w(F(MAC_ID, 8), F(REV_CQICH_COVER, 3));
    if (ext_cpcch(c.ext_ch_ind)) w(F(FOR_CPCCH_WALSH, 7), F(FOR_CPCSCH, 5));
  }
  w(F(PWR_COMB_IND, 1));
  if (c.pdch_group_ind_incl) w(F(PDCH_GROUP_IND, 1));
  if (ext_fwd_fch(c.ext_ch_ind)) w(F(CODE_CHAN_FCH, 11), F(QOF_MASK_ID_FCH, 2));
  if (ext_fwd_dcch(c.ext_ch_ind)) w(F(CODE_CHAN_DCCH, 11), F(QOF_MASK_ID_DCCH, 2));
  if (c.sch_incl) {
    w(F(NUM_SCH, 5));
    w.records("SCHs", r.SCHs, r.NUM_SCH, c);
  }
}

// EXT_ACTIVE_SET_REC_FIELDS after EXT_CH_IND and its reserved bits: the packet data channel
// parameters, the supplemental channels, the pilots and the common power control encoders.
struct ExtActiveSetRec {
  std::uint8_t PDCH_CONTROL_HOLD;
  std::uint8_t FULL_CI_FEEDBACK_IND;
  std::uint8_t REV_CQICH_FRAME_OFFSET;
  std::uint8_t REV_CQICH_REPS;
  std::uint8_t REV_ACKCH_REPS;
  std::uint8_t NUM_FOR_SCH;
  PoolArray<AsrForSch> FOR_SCHs;
  std::uint8_t NUM_REV_SCH;
  PoolArray<RevSchCfg> REV_SCHs;
  std::uint8_t NUM_PILOTS;
  std::uint8_t SRCH_OFFSET_INCL;
  std::uint8_t PDCH_GROUP_IND_INCL;
  std::uint8_t FOR_PDCH_PARMS_INCL;
  std::uint8_t FOR_PDCH_RLGAIN_INCL;
  std::uint8_t RLGAIN_ACKCH_PILOT;
  std::uint8_t RLGAIN_CQICH_PILOT;
  std::uint8_t NUM_SOFT_SWITCHING_FRAMES;
  std::uint8_t NUM_SOFTER_SWITCHING_FRAMES;
  std::uint8_t NUM_SOFT_SWITCHING_SLOTS;
  std::uint8_t NUM_SOFTER_SWITCHING_SLOTS;
  std::uint8_t CHM_SWITCHING_PARMS_INCL;
  std::uint8_t NUM_SOFT_SWITCHING_FRAMES_CHM;
  std::uint8_t NUM_SOFTER_SWITCHING_FRAMES_CHM;
  std::uint8_t NUM_SOFT_SWITCHING_SLOTS_CHM;
  std::uint8_t NUM_SOFTER_SWITCHING_SLOTS_CHM;
  std::uint8_t PDCH_SOFT_SWITCHING_DELAY;
  std::uint8_t PDCH_SOFTER_SWITCHING_DELAY;
  std::uint8_t FOR_PDCH_COMMON_PARMS;
  std::uint8_t WALSH_TABLE_ID;
  std::uint8_t NUM_PDCCH;   // records sent: NUM_PDCCH + 1
  PoolArray<ExtPdcch> PDCCH_RECs;
  PoolArray<ExtPilot> PILOT_RECs;
  std::uint8_t CCSH_INCLUDED;
  std::uint8_t USE_CCSH_ENCODER_TIME;
  std::uint8_t CCSH_ENCODER_ACTION_TIME;
  PoolArray<CcshEncoders> CCSH_PILOTs;
};

template <class W>
void layout(W& w, ExtActiveSetRec& r, const ExtAsrCtx& c) {
  if (!ext_known(c.ext_ch_ind)) return;
  w(F(PDCH_CONTROL_HOLD, 1), F(FULL_CI_FEEDBACK_IND, 1));
  // Release D puts FOR_CPCCH_RATE and FOR_CPCCH_UPDATE_RATE here, each only under a condition,
  // and adds the reverse packet data channel fields further on. Neither their widths nor
  // their conditions are known, so from P_REV 10 the record ends here; the message moves on
  // by ACTIVE_SET_REC_LEN all the same.
  if (c.p_rev >= 10) return;
  w(F(REV_CQICH_FRAME_OFFSET, 4), F(REV_CQICH_REPS, 2), F(REV_ACKCH_REPS, 2));
  // With the common power control channel there is no forward supplemental channel.
  if (c.sch_incl && !ext_cpcch(c.ext_ch_ind)) {
    w(F(NUM_FOR_SCH, 5));
    w.records("FOR_SCHs", r.FOR_SCHs, r.NUM_FOR_SCH, c);
  }
  if (c.sch_incl) {
    w(F(NUM_REV_SCH, 5));
    w.records("REV_SCHs", r.REV_SCHs, r.NUM_REV_SCH, c);
  }
  w(F(NUM_PILOTS, 3), F(SRCH_OFFSET_INCL, 1), F(PDCH_GROUP_IND_INCL, 1), F(FOR_PDCH_PARMS_INCL, 1));
  if (r.FOR_PDCH_PARMS_INCL) {
    fwd::pdch_switching(w, r, F(FOR_PDCH_COMMON_PARMS, 1));
    if (r.FOR_PDCH_COMMON_PARMS) {
      w(F(WALSH_TABLE_ID, 3), F(NUM_PDCCH, 3));
      w.records("PDCCH_RECs", r.PDCCH_RECs, r.NUM_PDCCH + 1u, c);
    }
  }
  ExtAsrCtx pilots = c;
  pilots.srch_offset_incl = r.SRCH_OFFSET_INCL;
  pilots.pdch_common_parms = r.FOR_PDCH_PARMS_INCL && r.FOR_PDCH_COMMON_PARMS;
  pilots.pdch_group_ind_incl = r.PDCH_GROUP_IND_INCL;
  w.records("PILOT_RECs", r.PILOT_RECs, r.NUM_PILOTS, pilots);
  w(F(CCSH_INCLUDED, 1));
  if (!r.CCSH_INCLUDED) return;
  w(F(USE_CCSH_ENCODER_TIME, 1));
  if (r.USE_CCSH_ENCODER_TIME) w(F(CCSH_ENCODER_ACTION_TIME, 6));
  if (c.sch_incl) ccsh_pilots(w, r.CCSH_PILOTs, r.PILOT_RECs, c);
}

// Outer coding of one forward supplemental channel carrying broadcast-multicast (P_REV 10),
// in the Universal Handoff Direction and the Extended Supplemental Channel Assignment messages.
struct UhdmSchBcmc {
  std::uint8_t USE_ADD_PLCM_FOR_SCH;
  std::uint8_t FSCH_OUTERCODE_INCL;
  std::uint8_t FSCH_OUTERCODE_RATE;
  std::uint8_t FSCH_OUTERCODE_OFFSET;
};

template <class W>
void layout(W& w, UhdmSchBcmc& r, const Ctx&) {
  w(F(USE_ADD_PLCM_FOR_SCH, 1), F(FSCH_OUTERCODE_INCL, 1));
  if (r.FSCH_OUTERCODE_INCL) w(F(FSCH_OUTERCODE_RATE, 3), F(FSCH_OUTERCODE_OFFSET, 6));
}

struct FD_UHDM {
  std::uint8_t USE_TIME;
  std::uint8_t ACTION_TIME;
  std::uint8_t HDM_SEQ;
  std::uint8_t PARMS_INCL;
  std::uint8_t P_REV;
  std::uint8_t SERV_NEG_TYPE;
  std::uint8_t SEARCH_INCLUDED;
  std::uint8_t SRCH_WIN_A;
  std::uint8_t SRCH_WIN_N;
  std::uint8_t SRCH_WIN_R;
  std::uint8_t T_ADD;
  std::uint8_t T_DROP;
  std::uint8_t T_COMP;
  std::uint8_t T_TDROP;
  std::uint8_t SOFT_SLOPE;
  std::uint8_t ADD_INTERCEPT;
  std::uint8_t DROP_INTERCEPT;
  std::uint8_t EXTRA_PARMS;
  std::uint8_t PACKET_ZONE_ID;
  std::uint8_t FRAME_OFFSET;
  std::uint8_t PRIVATE_LCM;
  std::uint8_t RESET_L2;
  std::uint8_t RESET_FPC;
  std::uint8_t ENCRYPT_MODE;
  std::uint8_t NOM_PWR_EXT;
  std::uint8_t NOM_PWR;
  std::uint8_t RLGAIN_TRAFFIC_PILOT;
  std::uint8_t DEFAULT_RLAG;
  std::uint8_t NUM_PREAMBLE;
  std::uint8_t BAND_CLASS;
  std::uint16_t CDMA_FREQ;
  std::uint8_t RETURN_IF_HANDOFF_FAIL;
  std::uint8_t COMPLETE_SEARCH;
  std::uint8_t PERIODIC_SEARCH;
  std::uint8_t SCR_INCLUDED;
  std::uint8_t SERV_CON_SEQ;
  std::uint8_t RECORD_TYPE;
  std::uint8_t RECORD_LEN;
  ServiceConfig SCR;
  std::uint8_t NNSCR_INCLUDED;
  std::uint8_t RECORD_TYPE2;
  std::uint8_t RECORD_LEN2;
  Nnscr NNSCR;
  std::uint8_t USE_PWR_CNTL_STEP;
  std::uint8_t PWR_CNTL_STEP;
  std::uint8_t CLEAR_RETRY_DELAY;
  std::uint8_t SCH_INCL;
  std::uint8_t NUM_FOR_ASSIGN;
  PoolArray<ForSchAssign> FOR_SCH_ASSIGNs;
  std::uint8_t NUM_REV_ASSIGN;
  PoolArray<UhdmRevSchAssign> REV_SCH_ASSIGNs;
  std::uint8_t FPC_SUBCHAN_GAIN;
  std::uint8_t USE_PC_TIME;
  std::uint8_t PC_ACTION_TIME;
  std::uint8_t CH_IND;
  std::uint8_t ACTIVE_SET_REC_LEN;
  ActiveSetRec ACTIVE_SET_REC_FIELDS;
  std::uint8_t EXT_CH_IND;
  std::uint8_t RESERVED;
  ExtActiveSetRec EXT_ACTIVE_SET_REC_FIELDS;
  std::uint8_t REV_FCH_GATING_MODE;
  std::uint8_t REV_PWR_CNTL_DELAY_INCL;
  std::uint8_t REV_PWR_CNTL_DELAY;
  // P_REV 7 and later
  std::uint8_t D_SIG_ENCRYPT_MODE;
  std::uint8_t ENC_KEY_SIZE;
  std::uint8_t F3XFL_1XRL_INCL;
  std::uint8_t F1XRL_FREQ_OFFSET;
  std::uint8_t SYNC_ID_INCL;
  std::uint8_t SYNC_ID_LEN;
  Bytes SYNC_ID;
  std::uint8_t CC_INFO_INCL;
  std::uint8_t NUM_CALLS_ASSIGN;
  PoolArray<CallAssign> CALLs;
  std::uint8_t CS_SUPPORTED;
  // P_REV 9 and later
  std::uint8_t CHM_SUPPORTED;
  std::uint8_t CDMA_OFF_TIME_REP_SUP_IND;
  std::uint8_t CDMA_OFF_TIME_REP_THRESHOLD_UNIT;
  std::uint8_t CDMA_OFF_TIME_REP_THRESHOLD;
  std::uint8_t RELEASE_TO_IDLE_IND;
  std::uint8_t MSG_INTEGRITY_SUP;
  std::uint8_t GEN_2G_KEY;
  std::uint8_t REGISTER_IN_IDLE;
  std::uint8_t PLCM_TYPE_INCL;
  std::uint8_t PLCM_TYPE;
  Bytes PLCM_39;
  std::uint8_t T_TDROP_RANGE_INCL;
  std::uint8_t T_TDROP_RANGE;
  std::uint8_t FOR_PDCH_SUPPORTED;
  std::uint8_t PDCH_CHM_SUPPORTED;
  std::uint8_t PILOT_INFO_REQ_SUPPORTED;
  std::uint8_t ENC_SUPPORTED;
  std::uint8_t SIG_ENCRYPT_SUP;
  std::uint8_t UI_ENCRYPT_SUP;
  std::uint8_t USE_SYNC_ID;
  std::uint8_t SID_INCL;
  std::uint16_t SID;
  std::uint8_t NID_INCL;
  std::uint16_t NID;
  std::uint8_t SDB_SUPPORTED;
  std::uint8_t MOB_QOS;
  std::uint8_t MS_INIT_POS_LOC_SUP_IND;
  // P_REV 10 and later
  std::uint8_t REV_PDCH_SUPPORTED;
  std::uint8_t PZ_HYST_ENABLED;
  std::uint8_t PZ_HYST_INFO_INCL;
  std::uint8_t PZ_HYST_LIST_LEN;
  std::uint8_t PZ_HYST_ACT_TIMER;
  std::uint8_t PZ_HYST_TIMER_MUL;
  std::uint8_t PZ_HYST_TIMER_EXP;
  std::uint8_t BCMC_ON_TRAFFIC_SUP;
  std::uint8_t AUTO_REQ_TRAF_ALLOWED_IND;
  std::uint8_t SCH_BCMC_IND;
  std::uint8_t ADD_PLCM_FOR_SCH_INCL;
  std::uint8_t ADD_PLCM_FOR_SCH_TYPE;
  Bytes ADD_PLCM_FOR_SCH_35;
  PoolArray<UhdmSchBcmc> SCH_BCMCs;
  std::uint8_t MAX_ADD_SERV_INSTANCE;
  std::uint8_t USE_CH_CFG_RRM;
  std::uint8_t TX_PWR_LIMIT_INCL;
  std::uint8_t TX_PWR_LIMIT_DEFAULT;
  std::uint8_t TX_PWR_LIMIT;
};

// The capabilities and idle-state parameters that follow CS_SUPPORTED from P_REV 9 on.
template <class W>
void uhdm_rel_c(W& w, FD_UHDM& r) {
  w(F(CHM_SUPPORTED, 1), F(CDMA_OFF_TIME_REP_SUP_IND, 1));
  if (r.CDMA_OFF_TIME_REP_SUP_IND) w(F(CDMA_OFF_TIME_REP_THRESHOLD_UNIT, 1), F(CDMA_OFF_TIME_REP_THRESHOLD, 3));
  w(F(RELEASE_TO_IDLE_IND, 1), F(MSG_INTEGRITY_SUP, 1), F(GEN_2G_KEY, 1), F(REGISTER_IN_IDLE, 1), F(PLCM_TYPE_INCL, 1));
  if (r.PLCM_TYPE_INCL) {
    w(F(PLCM_TYPE, 4));
    if (r.PLCM_TYPE == 1) w(F(PLCM_39, 39));   // the mask itself only for the base-station-specified type
  }
  if (r.SEARCH_INCLUDED) {
    w(F(T_TDROP_RANGE_INCL, 1));
    if (r.T_TDROP_RANGE_INCL) w(F(T_TDROP_RANGE, 4));
  }
  w(F(FOR_PDCH_SUPPORTED, 1));
  if (r.FOR_PDCH_SUPPORTED) w(F(PDCH_CHM_SUPPORTED, 1));
  w(F(PILOT_INFO_REQ_SUPPORTED, 1), F(ENC_SUPPORTED, 1));
  if (r.ENC_SUPPORTED) w(F(SIG_ENCRYPT_SUP, 8), F(UI_ENCRYPT_SUP, 8));
  w(F(USE_SYNC_ID, 1), F(SID_INCL, 1));
  if (r.SID_INCL) w(F(SID, 15));
  w(F(NID_INCL, 1));
  if (r.NID_INCL) w(F(NID, 16));
  w(F(SDB_SUPPORTED, 1));
  if (r.CS_SUPPORTED) w(F(MOB_QOS, 1));
  w(F(MS_INIT_POS_LOC_SUP_IND, 1));
}

// From P_REV 10: reverse packet data, packet zone hysteresis, broadcast-multicast on traffic,
// additional service instances and the transmit power limit.
template <class W>
void uhdm_rel_d(W& w, FD_UHDM& r, const Ctx& c) {
  if (r.FOR_PDCH_SUPPORTED) w(F(REV_PDCH_SUPPORTED, 1));
  if (r.EXTRA_PARMS) fwd::pz_hysteresis(w, r);
  w(F(BCMC_ON_TRAFFIC_SUP, 1));
  if (r.BCMC_ON_TRAFFIC_SUP) w(F(AUTO_REQ_TRAF_ALLOWED_IND, 1));
  // Broadcast on a supplemental channel needs a forward supplemental assignment to ride on.
  const bool for_sch = r.SCH_INCL && r.NUM_FOR_ASSIGN != 0;
  if (r.BCMC_ON_TRAFFIC_SUP && for_sch) w(F(SCH_BCMC_IND, 1));
  if (r.SCH_BCMC_IND && for_sch) {
    w(F(ADD_PLCM_FOR_SCH_INCL, 1));
    if (r.ADD_PLCM_FOR_SCH_INCL) {
      w(F(ADD_PLCM_FOR_SCH_TYPE, 1));
      if (r.ADD_PLCM_FOR_SCH_TYPE) w(F(ADD_PLCM_FOR_SCH_35, 35));
    }
    // One record for each forward supplemental channel assigned above.
    w.records("SCH_BCMCs", r.SCH_BCMCs, r.NUM_FOR_ASSIGN, c);
  }
  if (r.CS_SUPPORTED) w(F(MAX_ADD_SERV_INSTANCE, 3));
  w(F(USE_CH_CFG_RRM, 1), F(TX_PWR_LIMIT_INCL, 1));
  if (r.TX_PWR_LIMIT_INCL) {
    w(F(TX_PWR_LIMIT_DEFAULT, 1));
    if (!r.TX_PWR_LIMIT_DEFAULT) w(F(TX_PWR_LIMIT, 6));
  }
}

template <class W>
void layout(W& w, FD_UHDM& r, const Ctx& c) {
  w(F(USE_TIME, 1));
  if (r.USE_TIME) w(F(ACTION_TIME, 6));
  w(F(HDM_SEQ, 2), F(PARMS_INCL, 1));
  if (r.PARMS_INCL) w(F(P_REV, 8), F(SERV_NEG_TYPE, 1));
  // The service configuration records are laid out for the revision the mobile station hands
  // off to: the message's own P_REV when it carries one.
  Ctx target = c;
  if (r.PARMS_INCL) target.p_rev = r.P_REV;

  w(F(SEARCH_INCLUDED, 1));
  if (r.SEARCH_INCLUDED) search_group(w, r);
  w(F(EXTRA_PARMS, 1));
  if (r.EXTRA_PARMS) {
    w(F(PACKET_ZONE_ID, 8), F(FRAME_OFFSET, 4), F(PRIVATE_LCM, 1), F(RESET_L2, 1), F(RESET_FPC, 1),
      F(ENCRYPT_MODE, 2), F(NOM_PWR_EXT, 1), F(NOM_PWR, 4), F(RLGAIN_TRAFFIC_PILOT, 6), F(DEFAULT_RLAG, 1),
      F(NUM_PREAMBLE, 3), F(BAND_CLASS, 5), F(CDMA_FREQ, 11));
    return_and_scr(w, r, target);
    w(F(NNSCR_INCLUDED, 1));
    if (r.NNSCR_INCLUDED) nnscr_record(w, r, target);
  }
  w(F(USE_PWR_CNTL_STEP, 1));
  if (r.USE_PWR_CNTL_STEP) w(F(PWR_CNTL_STEP, 3));
  w(F(CLEAR_RETRY_DELAY, 1), F(SCH_INCL, 1));
  if (r.SCH_INCL) {
    w(F(NUM_FOR_ASSIGN, 2));
    w.records("FOR_SCH_ASSIGNs", r.FOR_SCH_ASSIGNs, r.NUM_FOR_ASSIGN, c);
    w(F(NUM_REV_ASSIGN, 2));
    w.records("REV_SCH_ASSIGNs", r.REV_SCH_ASSIGNs, r.NUM_REV_ASSIGN, c);
  }
  w(F(FPC_SUBCHAN_GAIN, 5), F(USE_PC_TIME, 1));
  if (r.USE_PC_TIME) w(F(PC_ACTION_TIME, 6));
  w(F(CH_IND, 3), F(ACTIVE_SET_REC_LEN, 8));
  const std::uint64_t rec_bits = 8u * r.ACTIVE_SET_REC_LEN;
  if (r.CH_IND == 0 && c.p_rev >= 9) {
    // '000' refers to the extended channel indicator of the packet data channels. Its first
    // octet is part of the record's length.
    if (rec_bits >= 8) {
      w(F(EXT_CH_IND, 5), F(RESERVED, 3));
      ExtAsrCtx ext{c};
      ext.ext_ch_ind = r.EXT_CH_IND;
      ext.sch_incl = r.SCH_INCL;
      w.sized("EXT_ACTIVE_SET_REC_FIELDS", "EXT_ACTIVE_SET_REC", r.EXT_ACTIVE_SET_REC_FIELDS, rec_bits - 8, ext);
    } else {
      w.skip(rec_bits);
    }
  } else if (asr_fch(r.CH_IND) || asr_dcch(r.CH_IND)) {
    AsrCtx as{c};
    as.ch_ind = r.CH_IND;
    as.sch_incl = r.SCH_INCL;
    w.sized("ACTIVE_SET_REC_FIELDS", "ACTIVE_SET_REC", r.ACTIVE_SET_REC_FIELDS, rec_bits, as);
  } else {
    w.skip(rec_bits);
  }
  // From P_REV 9 only channel assignments with a reverse Fundamental Channel carry the gating
  // mode.
  if (c.p_rev < 9 || asr_fch(r.CH_IND) || (r.CH_IND == 0 && ext_rev_fch(r.EXT_CH_IND))) fwd::rev_fch_gating(w, r);
  if (c.p_rev < 7) return;
  enc_and_calls(w, r, c, true);
  w(F(CS_SUPPORTED, 1));
  if (c.p_rev < 9) return;
  uhdm_rel_c(w, r);
  if (c.p_rev < 10) return;
  uhdm_rel_d(w, r, c);
}

// ---- Extended Supplemental Channel Assignment Message (35) --------------------------------

struct EscamRevSch {
  std::uint8_t REV_SCH_ID;
  std::uint8_t REV_SCH_DURATION;
  std::uint8_t REV_SCH_START_TIME_INCL;
  std::uint8_t REV_SCH_START_TIME;
  std::uint8_t REV_SCH_RATE;
};

template <class W>
void layout(W& w, EscamRevSch& r, const Ctx&) {
  w(F(REV_SCH_ID, 1), F(REV_SCH_DURATION, 4), F(REV_SCH_START_TIME_INCL, 1));
  if (r.REV_SCH_START_TIME_INCL) w(F(REV_SCH_START_TIME, 5));
  w(F(REV_SCH_RATE, 4));
}

// A pilot of the soft handoff set of a forward supplemental channel configuration.
struct EscamSupSho {
  std::uint16_t PILOT_PN;
  std::uint8_t ADD_PILOT_REC_INCL;
  std::uint8_t ACTIVE_PILOT_REC_TYPE;
  std::uint8_t RECORD_LEN;
  fwd::AddPilotRec REC;
  std::uint16_t CODE_CHAN_SCH;
  std::uint8_t QOF_MASK_ID_SCH;
};

template <class W>
void layout(W& w, EscamSupSho& r, const Ctx& c) {
  w(F(PILOT_PN, 9));
  add_pilot_rec(w, r, F(ACTIVE_PILOT_REC_TYPE, 3), c);
  w(F(CODE_CHAN_SCH, 11), F(QOF_MASK_ID_SCH, 2));
}

struct EscamForCfg {
  std::uint8_t FOR_SCH_ID;
  std::uint8_t SCCL_INDEX;
  std::uint8_t FOR_SCH_RATE;
  std::uint8_t NUM_SUP_SHO;   // pilots sent: NUM_SUP_SHO + 1
  PoolArray<EscamSupSho> SUP_SHOs;
};

template <class W>
void layout(W& w, EscamForCfg& r, const Ctx& c) {
  w(F(FOR_SCH_ID, 1), F(SCCL_INDEX, 4), F(FOR_SCH_RATE, 4), F(NUM_SUP_SHO, 3));
  w.records("SUP_SHOs", r.SUP_SHOs, r.NUM_SUP_SHO + 1u, c);
}

// Outer loop parameters of one supplemental channel.
struct EscamFpcSup {
  std::uint8_t SCH_ID;
  std::uint8_t FPC_SCH_FER;
  std::uint8_t FPC_SCH_INIT_SETPT;
  std::uint8_t FPC_SCH_MIN_SETPT;
  std::uint8_t FPC_SCH_MAX_SETPT;
};

template <class W>
void layout(W& w, EscamFpcSup& r, const Ctx&) {
  w(F(SCH_ID, 1), F(FPC_SCH_FER, 5), F(FPC_SCH_INIT_SETPT, 8), F(FPC_SCH_MIN_SETPT, 8), F(FPC_SCH_MAX_SETPT, 8));
}

struct EscamRpcSup {
  std::uint8_t SCH_ID;
  std::uint8_t RLGAIN_SCH_PILOT;
};

template <class W>
void layout(W& w, EscamRpcSup& r, const Ctx&) {
  w(F(SCH_ID, 1), F(RLGAIN_SCH_PILOT, 6));
}

// ---- P_REV 7 and 8: the 3X code channels, the common power control encoders and the
// supplemental channel configurations.

// A 3X record names its forward configuration record by FOR_SCH_ID and SCCL_INDEX; it then
// carries one low/high carrier pair for each of that record's soft handoff pilots.
struct EscamF3xCtx : Ctx {
  const PoolArray<EscamForCfg>* for_cfgs;
  std::uint8_t for_sch_id;
};

struct EscamF3xSup {
  F3xCode CODE;
};

template <class W>
void layout(W& w, EscamF3xSup& r, const Ctx&) {
  f3x_code(w, r.CODE, kF3xSch);
}

struct EscamF3xRec {
  std::uint8_t SCCL_INDEX;
  PoolArray<EscamF3xSup> SUP_SHOs;
};

template <class W>
void layout(W& w, EscamF3xRec& r, const EscamF3xCtx& c) {
  w(F(SCCL_INDEX, 4));
  // A record that matches no forward configuration has no pilots to describe.
  std::uint32_t pilots = 0;
  for (std::uint32_t k = 0; c.for_cfgs && k < c.for_cfgs->count; ++k) {
    const EscamForCfg& cfg = (*c.for_cfgs)[k];
    if (cfg.FOR_SCH_ID == c.for_sch_id && cfg.SCCL_INDEX == r.SCCL_INDEX) {
      pilots = cfg.NUM_SUP_SHO + 1u;
      break;
    }
  }
  w.records("SUP_SHOs", r.SUP_SHOs, pilots, c);
}

struct EscamF3xCfg {
  std::uint8_t FOR_SCH_ID;
  std::uint8_t NUM_F3X_REC;   // records sent: NUM_F3X_REC + 1
  PoolArray<EscamF3xRec> RECs;
};

template <class W>
void layout(W& w, EscamF3xCfg& r, const EscamF3xCtx& c) {
  w(F(FOR_SCH_ID, 1), F(NUM_F3X_REC, 5));
  EscamF3xCtx recs = c;
  recs.for_sch_id = r.FOR_SCH_ID;
  w.records("RECs", r.RECs, r.NUM_F3X_REC + 1u, recs);
}

struct FD_ESCAM {
  std::uint8_t START_TIME_UNIT;
  std::uint8_t REV_SCH_DTX_DURATION;
  std::uint8_t USE_T_ADD_ABORT;
  std::uint8_t USE_SCRM_SEQ_NUM;
  std::uint8_t SCRM_SEQ_NUM;
  std::uint8_t ADD_INFO_INCL;
  std::uint8_t FPC_PRI_CHAN;
  std::uint8_t REV_CFG_INCLUDED;
  std::uint8_t NUM_REV_CFG_RECS;   // records sent: NUM_REV_CFG_RECS + 1
  PoolArray<RevSchCfg> REV_CFGs;
  std::uint8_t NUM_REV_SCH;
  PoolArray<EscamRevSch> REV_SCHs;
  std::uint8_t FOR_CFG_INCLUDED;
  std::uint8_t FOR_SCH_FER_REP;
  std::uint8_t NUM_FOR_CFG_RECS;   // records sent: NUM_FOR_CFG_RECS + 1
  PoolArray<EscamForCfg> FOR_CFGs;
  std::uint8_t NUM_FOR_SCH;
  PoolArray<ForSchAssign> FOR_SCHs;
  std::uint8_t FPC_INCL;
  std::uint8_t FPC_MODE_SCH;
  std::uint8_t FPC_SCH_INIT_SETPT_OP;
  std::uint8_t FPC_SEC_CHAN;
  std::uint8_t NUM_SUP;
  PoolArray<EscamFpcSup> FPC_SUPs;
  std::uint8_t FPC_THRESH_SCH_INCL;
  std::uint8_t FPC_SETPT_THRESH_SCH;
  std::uint8_t RPC_INCL;
  std::uint8_t RPC_NUM_SUP;   // records sent: RPC_NUM_SUP + 1
  PoolArray<EscamRpcSup> RPC_SUPs;
  // P_REV 7 and later
  std::uint8_t F3X_SCH_INFO_INCL;
  std::uint8_t NUM_F3X_CFG;
  PoolArray<EscamF3xCfg> F3X_CFGs;
  // P_REV 8 and later
  std::uint8_t CCSH_INCLUDED;
  PoolArray<CcshEncoders> CCSH_CFGs;
  std::uint8_t FOR_SCH_CC_INCL;
  PoolArray<ScrForSch> FOR_SCH_CCs;
  std::uint8_t REV_SCH_CC_INCL;
  PoolArray<ScrRevSch> REV_SCH_CCs;
  // P_REV 10 and later
  std::uint8_t SCH_BCMC_IND;
  std::uint8_t ADD_PLCM_FOR_SCH_INCL;
  std::uint8_t ADD_PLCM_FOR_SCH_TYPE;
  Bytes ADD_PLCM_FOR_SCH_35;
  PoolArray<UhdmSchBcmc> SCH_BCMCs;
};

template <class W>
void layout(W& w, FD_ESCAM& r, const Ctx& c) {
  w(F(START_TIME_UNIT, 3), F(REV_SCH_DTX_DURATION, 4), F(USE_T_ADD_ABORT, 1), F(USE_SCRM_SEQ_NUM, 1));
  if (r.USE_SCRM_SEQ_NUM) w(F(SCRM_SEQ_NUM, 4));
  w(F(ADD_INFO_INCL, 1));
  if (r.ADD_INFO_INCL) w(F(FPC_PRI_CHAN, 1));

  w(F(REV_CFG_INCLUDED, 1));
  if (r.REV_CFG_INCLUDED) {
    w(F(NUM_REV_CFG_RECS, 5));
    w.records("REV_CFGs", r.REV_CFGs, r.NUM_REV_CFG_RECS + 1u, c);
  }
  w(F(NUM_REV_SCH, 2));
  w.records("REV_SCHs", r.REV_SCHs, r.NUM_REV_SCH, c);

  w(F(FOR_CFG_INCLUDED, 1));
  if (r.FOR_CFG_INCLUDED) {
    w(F(FOR_SCH_FER_REP, 1), F(NUM_FOR_CFG_RECS, 5));
    w.records("FOR_CFGs", r.FOR_CFGs, r.NUM_FOR_CFG_RECS + 1u, c);
  }
  w(F(NUM_FOR_SCH, 2));
  w.records("FOR_SCHs", r.FOR_SCHs, r.NUM_FOR_SCH, c);

  w(F(FPC_INCL, 1));
  if (r.FPC_INCL) {
    w(F(FPC_MODE_SCH, 3), F(FPC_SCH_INIT_SETPT_OP, 1));
    // Modes '001' and '010' run a secondary power control subchannel.
    if (r.FPC_MODE_SCH == 1 || r.FPC_MODE_SCH == 2) w(F(FPC_SEC_CHAN, 1));
    w(F(NUM_SUP, 2));
    w.records("FPC_SUPs", r.FPC_SUPs, r.NUM_SUP, c);
    w(F(FPC_THRESH_SCH_INCL, 1));
    if (r.FPC_THRESH_SCH_INCL) w(F(FPC_SETPT_THRESH_SCH, 8));
  }
  w(F(RPC_INCL, 1));
  if (r.RPC_INCL) {
    w(F(RPC_NUM_SUP, 1));
    w.records("RPC_SUPs", r.RPC_SUPs, r.RPC_NUM_SUP + 1u, c);
  }
  if (c.p_rev < 7) return;
  w(F(F3X_SCH_INFO_INCL, 1));
  if (r.F3X_SCH_INFO_INCL) {
    w(F(NUM_F3X_CFG, 2));
    EscamF3xCtx f3x{c};
    f3x.for_cfgs = r.FOR_CFG_INCLUDED ? &r.FOR_CFGs : nullptr;
    w.records("F3X_CFGs", r.F3X_CFGs, r.NUM_F3X_CFG, f3x);
  }
  if (c.p_rev < 8) return;
  w(F(CCSH_INCLUDED, 1));
  if (r.CCSH_INCLUDED && r.FOR_CFG_INCLUDED) {
    // One encoder type for each soft handoff pilot of each forward configuration record.
    w.alongside("CCSH_CFGs", r.CCSH_CFGs, r.FOR_CFGs.count, [&](std::uint32_t k) {
      CcshCtx e{c};
      e.count = static_cast<std::uint8_t>(r.FOR_CFGs[k].NUM_SUP_SHO + 1u);
      return e;
    });
  }
  w(F(FOR_SCH_CC_INCL, 1));
  if (r.FOR_SCH_CC_INCL) w.records("FOR_SCH_CCs", r.FOR_SCH_CCs, r.NUM_FOR_SCH, c);
  w(F(REV_SCH_CC_INCL, 1));
  if (r.REV_SCH_CC_INCL) w.records("REV_SCH_CCs", r.REV_SCH_CCs, r.NUM_REV_SCH, c);
  if (c.p_rev < 10 || r.NUM_FOR_SCH == 0) return;
  // Release D: broadcast-multicast on the forward supplemental channels just assigned, with
  // the same outer-code record per channel as the Universal Handoff Direction Message.
  w(F(SCH_BCMC_IND, 1));
  if (!r.SCH_BCMC_IND) return;
  w(F(ADD_PLCM_FOR_SCH_INCL, 1));
  if (r.ADD_PLCM_FOR_SCH_INCL) {
    w(F(ADD_PLCM_FOR_SCH_TYPE, 1));
    if (r.ADD_PLCM_FOR_SCH_TYPE) w(F(ADD_PLCM_FOR_SCH_35, 35));
  }
  w.records("SCH_BCMCs", r.SCH_BCMCs, r.NUM_FOR_SCH, c);
  // FPC_BCMC_CHAN (one bit) closes the message under a condition not known here: not read.
}

// ---- Service Connect Message (20) ---------------------------------------------------------

struct FD_SCM {
  std::uint8_t USE_TIME;
  std::uint8_t ACTION_TIME;
  std::uint8_t SERV_CON_SEQ;
  // P_REV 7 and later
  std::uint8_t USE_OLD_SERV_CONFIG;
  std::uint8_t SR_ID;   // P_REV 9 and later
  std::uint8_t SYNC_ID_INCL;
  std::uint8_t SYNC_ID_LEN;
  Bytes SYNC_ID;
  std::uint8_t RECORD_TYPE;
  std::uint8_t RECORD_LEN;
  ServiceConfig SCR;
  // P_REV 6 and later
  std::uint8_t RECORD_TYPE2;
  std::uint8_t RECORD_LEN2;
  Nnscr NNSCR;
  // P_REV 7 and later
  std::uint8_t CC_INFO_INCL;
  std::uint8_t NUM_CALLS_ASSIGN;
  PoolArray<CallAssign> CALLs;
  // P_REV 9 and later
  std::uint8_t USE_TYPE0_PLCM;
};

template <class W>
void layout(W& w, FD_SCM& r, const Ctx& c) {
  if (c.p_rev < 7) {
    w(F(USE_TIME, 1), F(ACTION_TIME, 6), F(SERV_CON_SEQ, 3), reserved(4));
  } else {
    w(F(USE_TIME, 1), F(ACTION_TIME, 6), F(SERV_CON_SEQ, 3), reserved(2), F(USE_OLD_SERV_CONFIG, 2));
    // '11' (from P_REV 9) restores the stored configuration of one service reference, named
    // right after the indicator.
    if (c.p_rev >= 9 && r.USE_OLD_SERV_CONFIG == 3) {
      w(F(SR_ID, 3));
      // Release D may follow it with SR_ID_RESTORE_BITMAP, whose width and condition no public
      // source gives, and the rest of the message comes after it: refused (result 1) here
      // rather than read from bits that may be the bitmap's.
      if (c.p_rev >= 10) {
        w.reject(Rc::count);
        return;
      }
    }
    sync_id(w, r);
  }
  // '01' keeps the stored configuration alone; the other values send the records.
  if (r.USE_OLD_SERV_CONFIG != 1 || c.p_rev < 7) {
    scr_record(w, r, c);
    if (c.p_rev >= 6) nnscr_record(w, r, c);
  }
  if (c.p_rev < 7) return;
  w(F(CC_INFO_INCL, 1));
  if (r.CC_INFO_INCL) {
    w(F(NUM_CALLS_ASSIGN, 8));
    w.records("CALLs", r.CALLs, r.NUM_CALLS_ASSIGN, c);
  }
  if (c.p_rev < 9) return;
  w(F(USE_TYPE0_PLCM, 1));
  // Release D appends SYNC_ID_BS_INITIATED_IND and the SR_ID_RELEASE_BITMAP group under
  // conditions not known here; the message ends at USE_TYPE0_PLCM.
}

}  // namespace

Rows fd_handoff_rows() {
  static constexpr MessageRow rows[] = {
      {5, "HDM", body_ops<FD_HDM>()},
      {17, "EHDM", body_ops<FD_EHDM>()},
      {20, "SCM", body_ops<FD_SCM>()},
      {31, "GHDM", body_ops<FD_GHDM>()},
      {34, "UHDM", body_ops<FD_UHDM>()},
      {35, "ESCAM", body_ops<FD_ESCAM>()},
  };
  return rows;
}

}  // namespace cs
