// Forward traffic channel power control and channel resource messages (C.S0005
// 3.7.3.3.2.x): Power Control Parameters, Supplemental Channel Assignment, Power Control,
// Power Up Function (and its completion), Resource Allocation, Mobile Assisted Burst
// Operation Parameters and Rate Change.
#include <cstddef>
#include <cstdint>
#include <utility>

#include "layout/layout.h"
#include "fwd_traffic/message_parts.h"
#include "fwd_traffic/tables.h"

namespace cs {
namespace {

using namespace fd_parts;

// ---- Power Control Parameters Message (10) ----------------------------------------------

struct FD_PCNPM {
  std::uint8_t PWR_REP_THRESH;
  std::uint8_t PWR_REP_FRAMES;
  std::uint8_t PWR_THRESH_ENABLE;
  std::uint8_t PWR_PERIOD_ENABLE;
  std::uint8_t PWR_REP_DELAY;
};

template <class W>
void layout(W& w, FD_PCNPM& r, const Ctx&) {
  w(F(PWR_REP_THRESH, 5), F(PWR_REP_FRAMES, 4), F(PWR_THRESH_ENABLE, 1), F(PWR_PERIOD_ENABLE, 1), F(PWR_REP_DELAY, 5));
}

// ---- Supplemental Channel Assignment Message (24) ---------------------------------------

// The pilot records need NUM_SUP from the message.
struct ScamCtx : Ctx {
  std::uint8_t num_sup;
};

struct FD_SCAM_PILOT {
  std::uint16_t PILOT_PN;
  std::uint8_t EXPL_CODE_CHAN;
  PoolArray<std::uint8_t> SUP_CODE_CHAN;
  std::uint8_t BASE_CODE_CHAN;
};

template <class W>
void layout(W& w, FD_SCAM_PILOT& r, const ScamCtx& c) {
  w(F(PILOT_PN, 9), F(EXPL_CODE_CHAN, 1));
  if (r.EXPL_CODE_CHAN) {
    w.scalars("SUP_CODE_CHAN", r.SUP_CODE_CHAN, c.num_sup, 8);
  } else {
    w(F(BASE_CODE_CHAN, 8));
  }
}

struct FD_SCAM {
  std::uint8_t USE_RETRY_DELAY;
  std::uint8_t RETRY_DELAY;
  std::uint8_t REV_INCLUDED;
  std::uint8_t REV_DTX_DURATION;
  std::uint8_t EXPL_REV_START_TIME;
  std::uint8_t REV_START_TIME;
  std::uint8_t USE_REV_DURATION;
  std::uint8_t REV_DURATION;
  std::uint8_t USE_REV_HDM_SEQ;
  std::uint8_t REV_LINKED_HDM_SEQ;
  std::uint8_t NUM_REV_CODES;
  std::uint8_t USE_T_ADD_ABORT;
  std::uint8_t USE_SCRM_SEQ_NUM;
  std::uint8_t SCRM_SEQ_NUM;
  std::uint8_t REV_PARMS_INCLUDED;
  std::uint8_t T_MULCHAN;
  std::uint8_t BEGIN_PREAMBLE;
  std::uint8_t RESUME_PREAMBLE;
  std::uint8_t FOR_INCLUDED;
  std::uint8_t FOR_SUP_CONFIG;
  std::uint8_t EXPL_FOR_START_TIME;
  std::uint8_t FOR_START_TIME;
  std::uint8_t USE_FOR_DURATION;
  std::uint8_t FOR_DURATION;
  std::uint8_t USE_FOR_HDM_SEQ;
  std::uint8_t FOR_LINKED_HDM_SEQ;
  std::uint8_t NUM_SUP_PILOTS;
  std::uint8_t NUM_SUP;
  PoolArray<FD_SCAM_PILOT> PILOTs;
};

template <class W>
void scam_reverse(W& w, FD_SCAM& r) {
  w(F(REV_DTX_DURATION, 4), F(EXPL_REV_START_TIME, 1));
  if (r.EXPL_REV_START_TIME) w(F(REV_START_TIME, 6));
  w(F(USE_REV_DURATION, 1));
  if (r.USE_REV_DURATION) w(F(REV_DURATION, 8));
  w(F(USE_REV_HDM_SEQ, 1));
  if (r.USE_REV_HDM_SEQ) w(F(REV_LINKED_HDM_SEQ, 2));
  w(F(NUM_REV_CODES, 3), F(USE_T_ADD_ABORT, 1), F(USE_SCRM_SEQ_NUM, 1));
  if (r.USE_SCRM_SEQ_NUM) w(F(SCRM_SEQ_NUM, 4));
  w(F(REV_PARMS_INCLUDED, 1));
  if (r.REV_PARMS_INCLUDED) w(F(T_MULCHAN, 3), F(BEGIN_PREAMBLE, 3), F(RESUME_PREAMBLE, 3));
}

template <class W>
void layout(W& w, FD_SCAM& r, const Ctx& c) {
  w(F(USE_RETRY_DELAY, 1));
  if (r.USE_RETRY_DELAY) w(F(RETRY_DELAY, 8));
  w(F(REV_INCLUDED, 1));
  if (r.REV_INCLUDED) scam_reverse(w, r);
  w(F(FOR_INCLUDED, 1));
  if (!r.FOR_INCLUDED) return;
  // FOR_SUP_CONFIG: '00' stop, '01' start, '10' stop the listed, '11' start the listed.
  w(F(FOR_SUP_CONFIG, 2));
  const bool start = r.FOR_SUP_CONFIG == 1 || r.FOR_SUP_CONFIG == 3;
  const bool listed = r.FOR_SUP_CONFIG == 2 || r.FOR_SUP_CONFIG == 3;
  if (start) {
    w(F(EXPL_FOR_START_TIME, 1));
    if (r.EXPL_FOR_START_TIME) w(F(FOR_START_TIME, 6));
  }
  w(F(USE_FOR_DURATION, 1));
  if (r.USE_FOR_DURATION) w(F(FOR_DURATION, 8));
  if (start) {
    w(F(USE_FOR_HDM_SEQ, 1));
    if (r.USE_FOR_HDM_SEQ) w(F(FOR_LINKED_HDM_SEQ, 2));
  }
  if (!listed) return;
  w(F(NUM_SUP_PILOTS, 3), F(NUM_SUP, 3));
  ScamCtx s{c};
  s.num_sup = r.NUM_SUP;
  w.records("PILOTs", r.PILOTs, r.NUM_SUP_PILOTS, s);
}

// ---- Power Control Message (25) ---------------------------------------------------------

struct FD_PCNM_SUP {
  std::uint8_t SCH_ID;
  std::uint8_t FPC_SCH_FER;
  std::uint8_t FPC_SCH_MIN_SETPT;
  std::uint8_t FPC_SCH_MAX_SETPT;
};

template <class W>
void layout(W& w, FD_PCNM_SUP& r, const Ctx&) {
  w(F(SCH_ID, 1), F(FPC_SCH_FER, 5), F(FPC_SCH_MIN_SETPT, 8), F(FPC_SCH_MAX_SETPT, 8));
}

// A set of 8-bit attribute gains under one inclusion flag.
struct GainGroup {
  std::uint8_t INCL;
  std::uint8_t GAIN[6];
};

// The inclusion flag `incl`, then one 8-bit gain for each of `names`, checked together.
template <class W, std::size_t N>
void gain_group(W& w, GainGroup& g, const char* incl, const char* const (&names)[N]) {
  static_assert(N <= 6, "a gain group holds at most six gains");
  w(field(g.INCL, incl, 1));
  if (!g.INCL) return;
  [&]<std::size_t... K>(std::index_sequence<K...>) { w(field(g.GAIN[K], names[K], 8)...); }(std::make_index_sequence<N>{});
}

// A reverse power control adjustment record, laid out by its RPC_ADJ_REC_TYPE.
struct FD_PCNM_RPC_ADJ {
  // '0000': channel adjustment gains
  GainGroup FCH, DCCH, SCH0, SCH1, REV_ACKCH, REV_CQICH;
  // '0001' basic rate and '0010' high rate attribute adjustment gains
  std::uint8_t CODE_TYPE;
  std::uint8_t RL_ATT_ADJ_GAIN_TYPE;
  GainGroup RC3_RC5_20MS, RC4_RC6_20MS, FIVE_MS, RC3_RC5_40MS, RC4_RC6_40MS, RC3_RC5_80MS, RC4_RC6_80MS;
  // '0011': R-CQICH attribute adjustment gains
  std::uint8_t RL_CQICH_ATT_ADJ_GAIN_TYPE;
  GainGroup CQICH_HIGH, CQICH_LOW;
};

template <class W>
void rpc_channel_gains(W& w, FD_PCNM_RPC_ADJ& r, const Ctx& c) {
  gain_group(w, r.FCH, "FCH_INCL", {"FCH_CHAN_ADJ_GAIN"});
  gain_group(w, r.DCCH, "DCCH_INCL", {"DCCH_CHAN_ADJ_GAIN"});
  gain_group(w, r.SCH0, "SCH0_INCL", {"SCH0_CHAN_ADJ_GAIN"});
  gain_group(w, r.SCH1, "SCH1_INCL", {"SCH1_CHAN_ADJ_GAIN"});
  if (c.p_rev < kRelC) return;
  gain_group(w, r.REV_ACKCH, "REV_ACKCH_INCL", {"REV_ACKCH_CHAN_ADJ_GAIN"});
  gain_group(w, r.REV_CQICH, "REV_CQICH_INCL", {"REV_CQICH_CHAN_ADJ_GAIN"});
}

template <class W>
void rpc_basic_rate_gains(W& w, FD_PCNM_RPC_ADJ& r, const Ctx& c) {
  w(F(RL_ATT_ADJ_GAIN_TYPE, 1));
  gain_group(w, r.RC3_RC5_20MS, "RC3_RC5_20MS_INCL",
             {"RL_ATT_ADJ_GAIN_1500", "RL_ATT_ADJ_GAIN_2700", "RL_ATT_ADJ_GAIN_4800", "RL_ATT_ADJ_GAIN_9600"});
  gain_group(w, r.RC4_RC6_20MS, "RC4_RC6_20MS_INCL",
             {"RL_ATT_ADJ_GAIN_1800", "RL_ATT_ADJ_GAIN_3600", "RL_ATT_ADJ_GAIN_7200", "RL_ATT_ADJ_GAIN_14400"});
  gain_group(w, r.FIVE_MS, "FIVE_MS_INCL", {"NORM_ATT_GAIN_9600_5MS"});
  if (c.p_rev < kRelA) return;
  gain_group(w, r.RC3_RC5_40MS, "RC3_RC5_40MS_INCL",
             {"RL_ATT_ADJ_GAIN_1350_40MS", "RL_ATT_ADJ_GAIN_2400_40MS", "RL_ATT_ADJ_GAIN_4800_40MS",
              "RL_ATT_ADJ_GAIN_9600_40MS"});
  gain_group(w, r.RC4_RC6_40MS, "RC4_RC6_40MS_INCL",
             {"RL_ATT_ADJ_GAIN_1800_40MS", "RL_ATT_ADJ_GAIN_3600_40MS", "RL_ATT_ADJ_GAIN_7200_40MS",
              "RL_ATT_ADJ_GAIN_14400_40MS"});
  gain_group(w, r.RC3_RC5_80MS, "RC3_RC5_80MS_INCL",
             {"RL_ATT_ADJ_GAIN_1200_80MS", "RL_ATT_ADJ_GAIN_2400_80MS", "RL_ATT_ADJ_GAIN_4800_80MS",
              "RL_ATT_ADJ_GAIN_9600_80MS"});
  gain_group(w, r.RC4_RC6_80MS, "RC4_RC6_80MS_INCL",
             {"RL_ATT_ADJ_GAIN_1800_80MS", "RL_ATT_ADJ_GAIN_3600_80MS", "RL_ATT_ADJ_GAIN_7200_80MS",
              "RL_ATT_ADJ_GAIN_14400_80MS"});
}

template <class W>
void rpc_high_rate_gains(W& w, FD_PCNM_RPC_ADJ& r, const Ctx& c) {
  w(F(CODE_TYPE, 1), F(RL_ATT_ADJ_GAIN_TYPE, 1));
  gain_group(w, r.RC3_RC5_20MS, "RC3_RC5_20MS_INCL",
             {"RL_ATT_ADJ_GAIN_19200", "RL_ATT_ADJ_GAIN_38400", "RL_ATT_ADJ_GAIN_76800",
              "RL_ATT_ADJ_GAIN_153600", "RL_ATT_ADJ_GAIN_307200", "RL_ATT_ADJ_GAIN_614400"});
  gain_group(w, r.RC4_RC6_20MS, "RC4_RC6_20MS_INCL",
             {"RL_ATT_ADJ_GAIN_28800", "RL_ATT_ADJ_GAIN_57600", "RL_ATT_ADJ_GAIN_115200",
              "RL_ATT_ADJ_GAIN_230400", "RL_ATT_ADJ_GAIN_460800", "RL_ATT_ADJ_GAIN_1036800"});
  if (c.p_rev < kRelA) return;
  gain_group(w, r.RC3_RC5_40MS, "RC3_RC5_40MS_INCL",
             {"RL_ATT_ADJ_GAIN_19200_40MS", "RL_ATT_ADJ_GAIN_38400_40MS", "RL_ATT_ADJ_GAIN_76800_40MS",
              "RL_ATT_ADJ_GAIN_153600_40MS", "RL_ATT_ADJ_GAIN_307200_40MS"});
  gain_group(w, r.RC4_RC6_40MS, "RC4_RC6_40MS_INCL",
             {"RL_ATT_ADJ_GAIN_28800_40MS", "RL_ATT_ADJ_GAIN_57600_40MS", "RL_ATT_ADJ_GAIN_115200_40MS",
              "RL_ATT_ADJ_GAIN_230400_40MS", "RL_ATT_ADJ_GAIN_518400_40MS"});
  gain_group(w, r.RC3_RC5_80MS, "RC3_RC5_80MS_INCL",
             {"RL_ATT_ADJ_GAIN_19200_80MS", "RL_ATT_ADJ_GAIN_38400_80MS", "RL_ATT_ADJ_GAIN_76800_80MS",
              "RL_ATT_ADJ_GAIN_153600_80MS"});
  gain_group(w, r.RC4_RC6_80MS, "RC4_RC6_80MS_INCL",
             {"RL_ATT_ADJ_GAIN_28800_80MS", "RL_ATT_ADJ_GAIN_57600_80MS", "RL_ATT_ADJ_GAIN_115200_80MS",
              "RL_ATT_ADJ_GAIN_259200_80MS"});
}

struct RpcAdjCtx : Ctx {
  std::uint8_t rec_type;   // RPC_ADJ_REC_TYPE
};

template <class W>
void layout(W& w, FD_PCNM_RPC_ADJ& r, const RpcAdjCtx& c) {
  switch (c.rec_type) {
    case 0: rpc_channel_gains(w, r, c); break;
    case 1: rpc_basic_rate_gains(w, r, c); break;
    case 2: rpc_high_rate_gains(w, r, c); break;
    case 3:
      if (c.p_rev < kRelC) break;
      w(F(RL_CQICH_ATT_ADJ_GAIN_TYPE, 1));
      gain_group(w, r.CQICH_HIGH, "RL_CQICH_ATT_ADJ_GAIN_HIGH_INCL", {"RL_CQICH_ATT_ADJ_GAIN_HIGH"});
      gain_group(w, r.CQICH_LOW, "RL_CQICH_ATT_ADJ_GAIN_LOW_INCL", {"RL_CQICH_ATT_ADJ_GAIN_LOW"});
      break;
    default:
      break;   // reserved types: the record length carries the walk past them
  }
}

struct FD_PCNM_RPC_REC {
  std::uint8_t RPC_ADJ_REC_TYPE;
  std::uint8_t RPC_ADJ_REC_LEN;
  FD_PCNM_RPC_ADJ ADJ;
};

template <class W>
void layout(W& w, FD_PCNM_RPC_REC& r, const Ctx& c) {
  w(F(RPC_ADJ_REC_TYPE, 4), F(RPC_ADJ_REC_LEN, 5));
  if (r.RPC_ADJ_REC_LEN == 0) return;
  // The check covers all RPC_ADJ_REC_LEN octets before any of them is read: a record cut short
  // is a short message.
  if (!w.need(8u * r.RPC_ADJ_REC_LEN)) return;
  RpcAdjCtx ac{c};
  ac.rec_type = r.RPC_ADJ_REC_TYPE;   // the record is laid out by the type read just before it
  w.sized("TypeSpecificFields", r.ADJ, 8u * r.RPC_ADJ_REC_LEN, ac);
}

struct FD_PCNM {
  std::uint8_t PWR_CNTL_STEP;
  std::uint8_t USE_TIME;
  std::uint8_t ACTION_TIME;
  std::uint8_t FPC_INCL;
  std::uint8_t FPC_MODE;
  std::uint8_t FPC_PRI_CHAN;
  std::uint8_t FPC_OLPC_FCH_INCL;
  std::uint8_t FPC_FCH_FER;
  std::uint8_t FPC_FCH_MIN_SETPT;
  std::uint8_t FPC_FCH_MAX_SETPT;
  std::uint8_t FPC_OLPC_DCCH_INCL;
  std::uint8_t FPC_DCCH_FER;
  std::uint8_t FPC_DCCH_MIN_SETPT;
  std::uint8_t FPC_DCCH_MAX_SETPT;
  std::uint8_t FPC_SEC_CHAN;
  std::uint8_t NUM_SUP;
  PoolArray<FD_PCNM_SUP> SUPs;
  std::uint8_t FPC_THRESH_INCL;
  std::uint8_t FPC_SETPT_THRESH;
  std::uint8_t FPC_THRESH_SCH_INCL;
  std::uint8_t FPC_SETPT_THRESH_SCH;
  std::uint8_t RPC_INCL;
  std::uint8_t RPC_NUM_REC;
  PoolArray<FD_PCNM_RPC_REC> RPC_RECs;
  std::uint8_t REV_PDCH_PARMS_INCL;
  std::uint8_t REV_PDCH_NUM_ARQ_ROUNDS_NORMAL;
};

template <class W>
void pcnm_forward(W& w, FD_PCNM& r, const Ctx& c) {
  w(F(FPC_MODE, 3), F(FPC_PRI_CHAN, 1), F(FPC_OLPC_FCH_INCL, 1));
  if (r.FPC_OLPC_FCH_INCL) w(F(FPC_FCH_FER, 5), F(FPC_FCH_MIN_SETPT, 8), F(FPC_FCH_MAX_SETPT, 8));
  w(F(FPC_OLPC_DCCH_INCL, 1));
  if (r.FPC_OLPC_DCCH_INCL) w(F(FPC_DCCH_FER, 5), F(FPC_DCCH_MIN_SETPT, 8), F(FPC_DCCH_MAX_SETPT, 8));
  // Only the modes with a secondary power control subchannel ('001', '010') name it.
  if (r.FPC_MODE == 1 || r.FPC_MODE == 2) w(F(FPC_SEC_CHAN, 1));
  w(F(NUM_SUP, 2));
  w.records("SUPs", r.SUPs, r.NUM_SUP, c);
  w(F(FPC_THRESH_INCL, 1));
  if (r.FPC_THRESH_INCL) w(F(FPC_SETPT_THRESH, 8));
  w(F(FPC_THRESH_SCH_INCL, 1));
  if (r.FPC_THRESH_SCH_INCL) w(F(FPC_SETPT_THRESH_SCH, 8));
}

template <class W>
void layout(W& w, FD_PCNM& r, const Ctx& c) {
  w(F(PWR_CNTL_STEP, 3));
  if (c.p_rev < kRel0) return;
  w(F(USE_TIME, 1));
  if (r.USE_TIME) w(F(ACTION_TIME, 6));
  w(F(FPC_INCL, 1));
  if (r.FPC_INCL) {
    pcnm_forward(w, r, c);
  }
  w(F(RPC_INCL, 1));
  if (r.RPC_INCL) {
    w(F(RPC_NUM_REC, 2));
    w.records("RPC_RECs", r.RPC_RECs, r.RPC_NUM_REC, c);
  }
  if (c.p_rev < kRelD) return;
  // Release D: the reverse packet data channel's ARQ rounds. The decode stops after
  // REV_PDCH_NUM_ARQ_ROUNDS_NORMAL: the width of REV_PDCH_NUM_ARQ_ROUNDS_BOOST and the
  // condition of the FPC_BCMC_CHAN that follows are not known here, and guessing them would
  // shift every later field. When the boost count is certainly there the message is refused
  // (result 1) after what was shown.
  w(F(REV_PDCH_PARMS_INCL, 1));
  if (r.REV_PDCH_PARMS_INCL) {
    w(F(REV_PDCH_NUM_ARQ_ROUNDS_NORMAL, 2));
    (void)w.reject(Rc::count);
  }
}

// ---- Power Up Function Message (29) -----------------------------------------------------

struct FD_PUFM {
  std::uint8_t USE_TIME;
  std::uint8_t ACTION_TIME;
  std::uint8_t ACTION_TIME_FRAME;
  std::uint8_t PUF_SETUP_SIZE;
  std::uint8_t PUF_PULSE_SIZE;
  std::uint16_t PUF_INTERVAL;
  std::uint8_t PUF_INIT_PWR;
  std::uint8_t PUF_PWR_STEP;
  std::uint8_t TOTAL_PUF_PROBES;
  std::uint8_t MAX_PWR_PUF;
  std::uint8_t PUF_FREQ_INCL;
  std::uint8_t PUF_BAND_CLASS;
  std::uint16_t PUF_CDMA_FREQ;
};

template <class W>
void layout(W& w, FD_PUFM& r, const Ctx&) {
  w(F(USE_TIME, 1), F(ACTION_TIME, 6), F(ACTION_TIME_FRAME, 2), F(PUF_SETUP_SIZE, 6), F(PUF_PULSE_SIZE, 7),
    F(PUF_INTERVAL, 10), F(PUF_INIT_PWR, 6), F(PUF_PWR_STEP, 5), F(TOTAL_PUF_PROBES, 4), F(MAX_PWR_PUF, 4),
    F(PUF_FREQ_INCL, 1));
  if (r.PUF_FREQ_INCL) w(F(PUF_BAND_CLASS, 5), F(PUF_CDMA_FREQ, 11));
}

// ---- Power Up Function Completion Message (30) ------------------------------------------

struct FD_PUFCM {
  std::uint8_t LOC_IND;
  std::uint32_t MS_LAT;
  std::uint32_t MS_LONG;
  std::uint32_t MS_LOC_TSTAMP;
};

template <class W>
void layout(W& w, FD_PUFCM& r, const Ctx&) {
  w(reserved(6), F(LOC_IND, 1));
  if (r.LOC_IND) w(reserved(3), F(MS_LAT, 22), F(MS_LONG, 23), F(MS_LOC_TSTAMP, 24));
}

// ---- Resource Allocation Message (32) ---------------------------------------------------

struct FD_RAM {
  std::uint8_t USE_TIME;
  std::uint8_t ACTION_TIME;
  std::uint8_t FPC_PRI_CHAN;
};

template <class W>
void layout(W& w, FD_RAM& r, const Ctx&) {
  w(F(USE_TIME, 1));
  if (r.USE_TIME) w(F(ACTION_TIME, 6));
  w(F(FPC_PRI_CHAN, 1));
}

// ---- Mobile Assisted Burst Operation Parameters Message (36) ----------------------------

struct FD_MABOPM {
  std::uint8_t ORDER_FLAG;
  std::uint8_t PS_MIN_DELTA;
  std::uint8_t ORDER_INTERVAL;
  std::uint8_t PERIODIC_FLAG;
  std::uint8_t NUM_PILOTS;
  std::uint8_t PERIODIC_INTERVAL;
  std::uint8_t THRESHOLD_FLAG;
  std::uint8_t PS_FLOOR_HIGH;
  std::uint8_t PS_FLOOR_LOW;
  std::uint8_t PS_CEILING_HIGH;
  std::uint8_t PS_CEILING_LOW;
  std::uint8_t THRESHOLD_INTERVAL;
};

template <class W>
void layout(W& w, FD_MABOPM& r, const Ctx&) {
  w(F(ORDER_FLAG, 1));
  if (r.ORDER_FLAG) w(F(PS_MIN_DELTA, 3), F(ORDER_INTERVAL, 3));
  w(F(PERIODIC_FLAG, 1));
  if (r.PERIODIC_FLAG) w(F(NUM_PILOTS, 3), F(PERIODIC_INTERVAL, 6));
  w(F(THRESHOLD_FLAG, 1));
  if (r.THRESHOLD_FLAG) {
    w(F(PS_FLOOR_HIGH, 6), F(PS_FLOOR_LOW, 6), F(PS_CEILING_HIGH, 6), F(PS_CEILING_LOW, 6), F(THRESHOLD_INTERVAL, 6));
  }
}

// ---- Rate Change Message (51) -----------------------------------------------------------

struct FD_RATCHGM_CQICH_GAIN {
  std::uint8_t RL_CQICH_ATT_ADJ_GAIN_TYPE;
  std::uint8_t RL_CQICH_ATT_ADJ_GAIN_HIGH_INCL;
  std::uint8_t RL_CQICH_ATT_ADJ_GAIN_HIGH;
  std::uint8_t RL_CQICH_ATT_ADJ_GAIN_LOW_INCL;
  std::uint8_t RL_CQICH_ATT_ADJ_GAIN_LOW;
};

template <class W>
void layout(W& w, FD_RATCHGM_CQICH_GAIN& r, const Ctx&) {
  w(F(RL_CQICH_ATT_ADJ_GAIN_TYPE, 1), F(RL_CQICH_ATT_ADJ_GAIN_HIGH_INCL, 1));
  if (r.RL_CQICH_ATT_ADJ_GAIN_HIGH_INCL) w(F(RL_CQICH_ATT_ADJ_GAIN_HIGH, 8));
  w(F(RL_CQICH_ATT_ADJ_GAIN_LOW_INCL, 1));
  if (r.RL_CQICH_ATT_ADJ_GAIN_LOW_INCL) w(F(RL_CQICH_ATT_ADJ_GAIN_LOW, 8));
}

struct FD_RATCHGM {
  std::uint8_t USE_TIME;
  std::uint8_t ACTION_TIME;
  std::uint8_t REV_CQICH_RATE_CHANGE_INCL;
  std::uint8_t FULL_CI_FEEDBACK_IND;
  std::uint8_t REV_CQICH_REPS;
  std::uint8_t SWITCHING_PARMS_INCL;
  std::uint8_t NUM_SOFT_SWITCHING_FRAMES;
  std::uint8_t NUM_SOFTER_SWITCHING_FRAMES;
  std::uint8_t CHM_SWITCHING_PARMS_INCL;
  std::uint8_t NUM_SOFT_SWITCHING_FRAMES_CHM;
  std::uint8_t NUM_SOFTER_SWITCHING_FRAMES_CHM;
  std::uint8_t RL_CQICH_ATT_ADJ_GAIN_INCL;
  std::uint8_t NUM_RECS;
  PoolArray<FD_RATCHGM_CQICH_GAIN> RECs;
  std::uint8_t REV_ACKCH_RATE_CHANGE_INCL;
  std::uint8_t REV_ACKCH_REPS;
  std::uint8_t REV_PDCH_MAX_PARMS_INCL;
  std::uint8_t REV_PDCH_MAX_AUTO_TPR;
  std::uint8_t REV_PDCH_MAX_SIZE_ALLOWED_ENCODER_PACKET;
  std::uint8_t REV_PDCH_PARMS_INCL;
  std::uint8_t REV_PDCH_NUM_ARQ_ROUNDS_NORMAL;
};

template <class W>
void layout(W& w, FD_RATCHGM& r, const Ctx& c) {
  w(F(USE_TIME, 1), F(ACTION_TIME, 6), F(REV_CQICH_RATE_CHANGE_INCL, 1));
  if (r.REV_CQICH_RATE_CHANGE_INCL) {
    w(F(FULL_CI_FEEDBACK_IND, 1), F(REV_CQICH_REPS, 2), F(SWITCHING_PARMS_INCL, 1));
    if (r.SWITCHING_PARMS_INCL) {
      w(F(NUM_SOFT_SWITCHING_FRAMES, 4), F(NUM_SOFTER_SWITCHING_FRAMES, 4), F(CHM_SWITCHING_PARMS_INCL, 1));
      if (r.CHM_SWITCHING_PARMS_INCL) w(F(NUM_SOFT_SWITCHING_FRAMES_CHM, 4), F(NUM_SOFTER_SWITCHING_FRAMES_CHM, 4));
    }
    w(F(RL_CQICH_ATT_ADJ_GAIN_INCL, 1));
    if (r.RL_CQICH_ATT_ADJ_GAIN_INCL) {
      w(F(NUM_RECS, 1));
      // NUM_RECS is one less than the number of gain records.
      w.records("RECs", r.RECs, r.NUM_RECS + 1u, c);
    }
  }
  w(F(REV_ACKCH_RATE_CHANGE_INCL, 1));
  if (r.REV_ACKCH_RATE_CHANGE_INCL) w(F(REV_ACKCH_REPS, 2));
  if (c.p_rev < kRelD) return;
  // Release D: limits and ARQ rounds of the reverse packet data channel, with the widths of
  // the same fields in the Extended System Parameters Message. The decode stops after
  // REV_PDCH_NUM_ARQ_ROUNDS_NORMAL: the width of REV_PDCH_NUM_ARQ_ROUNDS_BOOST, which follows
  // it, is not known here, so the message is refused (result 1) there.
  w(F(REV_PDCH_MAX_PARMS_INCL, 1));
  if (r.REV_PDCH_MAX_PARMS_INCL) w(F(REV_PDCH_MAX_AUTO_TPR, 8), F(REV_PDCH_MAX_SIZE_ALLOWED_ENCODER_PACKET, 4));
  w(F(REV_PDCH_PARMS_INCL, 1));
  if (r.REV_PDCH_PARMS_INCL) {
    w(F(REV_PDCH_NUM_ARQ_ROUNDS_NORMAL, 2));
    (void)w.reject(Rc::count);
  }
}

// ---- The table ------------------------------------------------------------------------------

}  // namespace

Rows fd_power_rows() {
  static constexpr MessageRow rows[] = {
      {10, "PCNPM", body_ops<FD_PCNPM>()},
      {24, "SCAM", body_ops<FD_SCAM>()},
      {25, "PCNM", body_ops<FD_PCNM>()},
      {29, "PUFM", body_ops<FD_PUFM>()},
      {30, "PUFCM", body_ops<FD_PUFCM>()},
      {32, "RAM", body_ops<FD_RAM>()},
      {36, "MABOPM", body_ops<FD_MABOPM>()},
      {51, "RATCHGM", body_ops<FD_RATCHGM>()},
  };
  return rows;
}

}  // namespace cs
