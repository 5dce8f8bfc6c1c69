// Overhead parameter messages of the paging / forward common channel (C.S0005 3.7.2.3.2):
// System Parameters (.1), Access Parameters (.2), Extended System Parameters (.13), ANSI-41
// System Parameters (.30), MC-RR Parameters (.31), ANSI-41 RAND (.32) and Enhanced Access
// Parameters (.33).
//
// Each record is laid out once, in air order; the same layout fills the record from the bits
// and prints it. Presence conditions are re-tested by the printer on what was decoded.
#include <cstdint>

#include "layout/layout.h"
#include "fwd_common/tables.h"
#include "records/forward_shared.h"

namespace cs {
namespace {

using u8 = std::uint8_t;
using u16 = std::uint16_t;
using u32 = std::uint32_t;

// A flag in a group of its own, then the group it brings when it is 1.
template <class W, class T, class... Fields>
void flagged(W& w, const Field<T>& flag, const Fields&... fields) {
  w(flag);
  if (flag.ref) w(fields...);
}

// ---------------------------------------------------------------------------------------------
// System Parameters Message (MSG_ID 1)

struct FC_SPM {
  u16 PILOT_PN;
  u8 CONFIG_MSG_SEQ;
  u16 SID, NID, REG_ZONE;
  u8 TOTAL_ZONES, ZONE_TIMER, MULT_SIDS, MULT_NIDS;
  u16 BASE_ID;
  u8 BASE_CLASS, PAGE_CHAN, MAX_SLOT_CYCLE_INDEX;
  u8 HOME_REG, FOR_SID_REG, FOR_NID_REG, POWER_UP_REG, POWER_DOWN_REG, PARAMETER_REG;
  u8 REG_PRD;
  u32 BASE_LAT, BASE_LONG;
  u16 REG_DIST;
  u8 SRCH_WIN_A, SRCH_WIN_N, SRCH_WIN_R, NGHBR_MAX_AGE;
  u8 PWR_REP_THRESH, PWR_REP_FRAMES, PWR_THRESH_ENABLE, PWR_PERIOD_ENABLE, PWR_REP_DELAY;
  u8 RESCAN, T_ADD, T_DROP, T_COMP, T_TDROP;
  u8 EXT_SYS_PARAMETER, EXT_NGHBR_LIST, GEN_NGHBR_LIST, GLOBAL_REDIRECT;
  u8 PRI_NGHBR_LIST, USER_ZONE_ID, EXT_GLOBAL_REDIRECT, EXT_CHAN_LIST;
  u8 T_TDROP_RANGE_INCL, T_TDROP_RANGE;
  u8 NEG_SLOT_CYCLE_INDEX_SUP;
};

template <class W>
void layout(W& w, FC_SPM& r, const Ctx& c) {
  // the fixed part, up to and including EXT_SYS_PARAMETER
  w(F(PILOT_PN, 9), F(CONFIG_MSG_SEQ, 6), F(SID, 15), F(NID, 16), F(REG_ZONE, 12), F(TOTAL_ZONES, 3),
    F(ZONE_TIMER, 3), F(MULT_SIDS, 1), F(MULT_NIDS, 1), F(BASE_ID, 16), F(BASE_CLASS, 4), F(PAGE_CHAN, 3),
    F(MAX_SLOT_CYCLE_INDEX, 3), F(HOME_REG, 1), F(FOR_SID_REG, 1), F(FOR_NID_REG, 1), F(POWER_UP_REG, 1),
    F(POWER_DOWN_REG, 1), F(PARAMETER_REG, 1), F(REG_PRD, 7), F(BASE_LAT, 22), F(BASE_LONG, 23), F(REG_DIST, 11),
    F(SRCH_WIN_A, 4), F(SRCH_WIN_N, 4), F(SRCH_WIN_R, 4), F(NGHBR_MAX_AGE, 4), F(PWR_REP_THRESH, 5),
    F(PWR_REP_FRAMES, 4), F(PWR_THRESH_ENABLE, 1), F(PWR_PERIOD_ENABLE, 1), F(PWR_REP_DELAY, 5), F(RESCAN, 1),
    F(T_ADD, 6), F(T_DROP, 6), F(T_COMP, 4), F(T_TDROP, 4), F(EXT_SYS_PARAMETER, 1));

  // The next two bit positions are always taken. From P_REV 4 both are flags; before that
  // the PCS bands already had EXT_NGHBR_LIST in the first, and the rest is reserved.
  if (c.p_rev >= 4) {
    w(F(EXT_NGHBR_LIST, 1), F(GEN_NGHBR_LIST, 1));
  } else if (pcs_band(c.band_class)) {
    w(F(EXT_NGHBR_LIST, 1), reserved(1));
  } else {
    w(reserved(2));
  }

  w(F(GLOBAL_REDIRECT, 1));

  if (c.p_rev >= 6) w(F(PRI_NGHBR_LIST, 1), F(USER_ZONE_ID, 1), F(EXT_GLOBAL_REDIRECT, 1), F(EXT_CHAN_LIST, 1));
  if (c.p_rev >= 9) flagged(w, F(T_TDROP_RANGE_INCL, 1), F(T_TDROP_RANGE, 4));
  if (c.p_rev >= 11) w(F(NEG_SLOT_CYCLE_INDEX_SUP, 1));
}

// ---------------------------------------------------------------------------------------------
// Access Parameters Message (MSG_ID 2)

// The access-control records carry their AOC bitmap only when the message's
// ACCT_AOC_BITMAP_INCL says so; the flag rides along in the context of the records. Only the
// APM and EAPM layouts walk these records, and they always hand them an AcctCtx.
struct AcctCtx : Ctx {
  u8 aoc_bitmap_incl;
};

struct AcctSoRec {
  u8 ACCT_AOC_BITMAP1;
  u16 ACCT_SO;
};

template <class W>
void layout(W& w, AcctSoRec& r, const AcctCtx& c) {
  if (c.aoc_bitmap_incl) w(F(ACCT_AOC_BITMAP1, 5));
  w(F(ACCT_SO, 16));
}

struct AcctSoGrpRec {
  u8 ACCT_AOC_BITMAP2;
  u8 ACCT_SO_GRP;
};

template <class W>
void layout(W& w, AcctSoGrpRec& r, const AcctCtx& c) {
  if (c.aoc_bitmap_incl) w(F(ACCT_AOC_BITMAP2, 5));
  w(F(ACCT_SO_GRP, 5));
}

// The access control by service option group that closes the access parameters messages, after
// ACCT_INCL; the two messages differ only in the labels of their lists.
template <class W, class R>
void acct(W& w, R& r, const Ctx& c, const char* so_label, const char* grp_label) {
  w(F(ACCT_INCL_EMG, 1), F(ACCT_AOC_BITMAP_INCL, 1), F(ACCT_SO_INCL, 1));
  AcctCtx ac{c};
  ac.aoc_bitmap_incl = r.ACCT_AOC_BITMAP_INCL;
  if (r.ACCT_SO_INCL) {
    w(F(NUM_ACCT_SO, 4));
    // NUM_ACCT_SO is one less than the number of records.
    w.records(so_label, r.ACCT_SO_RECs, r.NUM_ACCT_SO + 1u, ac);
  }
  w(F(ACCT_SO_GRP_INCL, 1));
  if (r.ACCT_SO_GRP_INCL) {
    w(F(NUM_ACCT_SO_GRP, 3));
    w.records(grp_label, r.ACCT_SO_GRP_RECs, r.NUM_ACCT_SO_GRP + 1u, ac);
  }
}

struct FC_APM {
  u16 PILOT_PN;
  u8 ACC_MSG_SEQ, ACC_CHAN, NOM_PWR, INIT_PWR, PWR_STEP, NUM_STEP, MAX_CAP_SZ, PAM_SZ;
  u8 PSIST_0_9, PSIST_10, PSIST_11, PSIST_12, PSIST_13, PSIST_14, PSIST_15, MSG_PSIST, REG_PSIST;
  u8 PROBE_PN_RAN, ACC_TMO, PROBE_BKOFF, BKOFF, MAX_REQ_SEQ, MAX_RSP_SEQ, AUTH;
  u32 RAND;
  u8 NOM_PWR_EXT;
  u8 PSIST_EMG_INCL, PSIST_EMG;
  u8 ACCT_INCL, ACCT_INCL_EMG, ACCT_AOC_BITMAP_INCL, ACCT_SO_INCL, NUM_ACCT_SO;
  PoolArray<AcctSoRec> ACCT_SO_RECs;
  u8 ACCT_SO_GRP_INCL, NUM_ACCT_SO_GRP;
  PoolArray<AcctSoGrpRec> ACCT_SO_GRP_RECs;
};

// NOM_PWR_EXT came with the PCS bands (J-STD-008) and with TSB-74 on the cellular band; from
// IS-95-B on every band carries it.
bool has_nom_pwr_ext(const Ctx& c) {
  return c.p_rev >= 4 || pcs_band(c.band_class) || (c.band_class == 0 && c.p_rev >= 3);
}

template <class W>
void layout(W& w, FC_APM& r, const Ctx& c) {
  // PILOT_PN .. AUTH
  w(F(PILOT_PN, 9), F(ACC_MSG_SEQ, 6), F(ACC_CHAN, 5), F(NOM_PWR, 4), F(INIT_PWR, 5), F(PWR_STEP, 3), F(NUM_STEP, 4),
    F(MAX_CAP_SZ, 3), F(PAM_SZ, 4), F(PSIST_0_9, 6), F(PSIST_10, 3), F(PSIST_11, 3), F(PSIST_12, 3), F(PSIST_13, 3),
    F(PSIST_14, 3), F(PSIST_15, 3), F(MSG_PSIST, 3), F(REG_PSIST, 3), F(PROBE_PN_RAN, 4), F(ACC_TMO, 4),
    F(PROBE_BKOFF, 4), F(BKOFF, 4), F(MAX_REQ_SEQ, 4), F(MAX_RSP_SEQ, 4), F(AUTH, 2));
  if (r.AUTH == 1) {   // '01': authentication on, RAND follows
    w(F(RAND, 32));
  }
  if (has_nom_pwr_ext(c)) w(F(NOM_PWR_EXT, 1));
  if (c.p_rev < 7) return;

  flagged(w, F(PSIST_EMG_INCL, 1), F(PSIST_EMG, 3));
  w(F(ACCT_INCL, 1));
  if (!r.ACCT_INCL) return;

  acct(w, r, c, "ACCT_SO_RECs", "ACCT_SO_GRP_RECs");
}

// ---------------------------------------------------------------------------------------------
// Extended System Parameters Message (MSG_ID 13)

// MEID_REQD is left out only when EXT_PREF_MSID_TYPE is '11' with PREF_MSID_TYPE '00' or '11'.
bool has_meid_reqd(u8 pref_msid_type, u8 ext_pref_msid_type) {
  return !(ext_pref_msid_type == 3 && (pref_msid_type == 0 || pref_msid_type == 3));
}

// Groups the extended system, ANSI-41 system and MC-RR parameters messages carry alike, each
// laid out once. A group that hangs on a flag starts after the flag where the messages read it
// inside groups of their own.

// The quick paging channel, when QPCH_SUPPORTED is 1.
template <class W, class R>
void qpch(W& w, R& r) {
  w(F(NUM_QPCH, 2), F(QPCH_RATE, 1), F(QPCH_POWER_LEVEL_PAGE, 3), F(QPCH_CCI_SUPPORTED, 1));
  if (r.QPCH_CCI_SUPPORTED) w(F(QPCH_POWER_LEVEL_CONFIG, 3));
}

// The encryption algorithms supported, when ENC_SUPPORTED is 1.
template <class W, class R>
void encryption(W& w, R& r) {
  if (r.ENC_SUPPORTED) w(F(SIG_ENCRYPT_SUP, 8), F(UI_ENCRYPT_SUP, 8));
}

// Access handoff and access probe handoff, after ACCESS_HO.
template <class W, class R>
void access_handoff(W& w, R& r) {
  if (r.ACCESS_HO) w(F(ACCESS_HO_MSG_RSP, 1));
  flagged(w, F(ACCESS_PROBE_HO, 1), F(ACC_HO_LIST_UPD, 1), F(ACC_PROBE_HO_OTHER_MSG, 1), F(MAX_NUM_PROBE_HO, 3));
}

// Signalling message integrity algorithms, after MSG_INTEGRITY_SUP.
template <class W, class R>
void sig_integrity(W& w, R& r) {
  if (!r.MSG_INTEGRITY_SUP) return;
  flagged(w, F(SIG_INTEGRITY_SUP_INCL, 1), F(SIG_INTEGRITY_SUP, 8));
}

// The forward packet data channel parameters of release C, which the extended system and the
// MC-RR parameters messages carry alike.
template <class W, class R>
void for_pdch(W& w, R& r, const Ctx& c) {
  w(F(FOR_PDCH_SUPPORTED, 1));
  if (!r.FOR_PDCH_SUPPORTED) return;
  w(F(PDCH_CHM_SUPPORTED, 1), F(PDCH_PARMS_INCL, 1));
  if (!r.PDCH_PARMS_INCL) return;
  flagged(w, F(FOR_PDCH_RLGAIN_INCL, 1), F(RLGAIN_ACKCH_PILOT, 6), F(RLGAIN_CQICH_PILOT, 6));
  w(F(NUM_SOFT_SWITCHING_FRAMES, 4), F(NUM_SOFTER_SWITCHING_FRAMES, 4), F(NUM_SOFT_SWITCHING_SLOTS, 2),
    F(NUM_SOFTER_SWITCHING_SLOTS, 2), F(PDCH_SOFT_SWITCHING_DELAY, 8), F(PDCH_SOFTER_SWITCHING_DELAY, 8),
    F(WALSH_TABLE_ID, 3), F(NUM_PDCCH, 3));
  // NUM_PDCCH is one less than the number of F-PDCCH Walsh codes.
  w.records("PDCCH_WALSHs", r.PDCCH_WALSHs, r.NUM_PDCCH + 1u, c);
}

template <class W, class R>
void ext_pref_msid(W& w, R& r) {
  w(F(EXT_PREF_MSID_TYPE, 2));
  if (has_meid_reqd(r.PREF_MSID_TYPE, r.EXT_PREF_MSID_TYPE)) w(F(MEID_REQD, 1));
}

// The reverse packet data channel parameters of release D, sent when the forward packet data
// channel is supported.
template <class W, class R>
void rev_pdch(W& w, R& r) {
  w(F(REV_PDCH_SUPPORTED, 1));
  if (!r.REV_PDCH_SUPPORTED) return;
  w(F(REV_PDCH_PARMS_INCL, 1));
  if (!r.REV_PDCH_PARMS_INCL) return;
  flagged(w, F(REV_PDCH_RLGAIN_INCL, 1), F(RLGAIN_SPICH_PILOT, 6), F(RLGAIN_REQCH_PILOT, 6), F(RLGAIN_PDCCH_PILOT, 6));
  flagged(w, F(REV_PDCH_PARMS_1_INCL, 1), F(REV_PDCH_TABLE_SEL, 1), F(REV_PDCH_MAX_AUTO_TPR, 8),
          F(REV_PDCH_NUM_ARQ_ROUNDS_NORMAL, 2));
  flagged(w, F(REV_PDCH_OPER_PARMS_INCL, 1), F(REV_PDCH_MAX_SIZE_ALLOWED_ENCODER_PACKET, 4),
          F(REV_PDCH_DEFAULT_PERSISTENCE, 1), F(REV_PDCH_RESET_PERSISTENCE, 1), F(REV_PDCH_GRANT_PRECEDENCE, 1),
          F(REV_PDCH_MSIB_SUPPORTED, 1), F(REV_PDCH_SOFT_SWITCHING_RESET_IND, 1));
}

template <class W, class R>
void cand_bands(W& w, R& r, const Ctx& c) {
  w(F(CAND_BAND_INFO_REQ, 1));
  if (!r.CAND_BAND_INFO_REQ) return;
  w(F(NUM_CAND_BAND_CLASS, 3));
  // NUM_CAND_BAND_CLASS is one less than the number of candidate band classes.
  w.records("CAND_BAND_CLASSs", r.CAND_BAND_CLASSs, r.NUM_CAND_BAND_CLASS + 1u, c);
}

template <class W, class R>
void tx_pwr_limit_bypass(W& w, R& r) {
  fwd::tx_pwr_limit(w, r);
  w(F(BYPASS_REG_IND, 2));
}

// A candidate band class the mobile station is asked about (P_REV 10).
struct FC_ESPM_CAND_BAND_CLASS {
  u8 CAND_BAND_CLASS, SUBCLASS_INFO_INCL, SUBCLASS_REC_LEN;
  PoolArray<u8> BAND_SUBCLASS_IND;
};

template <class W>
void layout(W& w, FC_ESPM_CAND_BAND_CLASS& r, const Ctx&) {
  w(F(CAND_BAND_CLASS, 5), F(SUBCLASS_INFO_INCL, 1));
  if (r.SUBCLASS_INFO_INCL) {
    w(F(SUBCLASS_REC_LEN, 5));
    // One indicator per subclass, SUBCLASS_REC_LEN + 1 of them.
    w.scalars("BAND_SUBCLASS_IND", r.BAND_SUBCLASS_IND, r.SUBCLASS_REC_LEN + 1u, 1);
  }
}

struct FC_ESPM_PDCCH_WALSH {
  u8 FOR_PDCCH_WALSH;
};

template <class W>
void layout(W& w, FC_ESPM_PDCCH_WALSH& r, const Ctx&) {
  w(F(FOR_PDCCH_WALSH, 6));
}

struct FC_ESPM {
  u16 PILOT_PN;
  u8 CONFIG_MSG_SEQ, DELETE_FOR_TMSI, USE_TMSI, PREF_MSID_TYPE;
  u16 MCC;
  u8 IMSI_11_12, TMSI_ZONE_LEN;
  Bytes TMSI_ZONE;
  u8 BCAST_INDEX;
  // IS-95-B
  u8 IMSI_T_SUPPORTED, P_REV, MIN_P_REV, SOFT_SLOPE, ADD_INTERCEPT, DROP_INTERCEPT, PACKET_ZONE_ID;
  u8 MAX_NUM_ALT_SO, RESELECT_INCLUDED, EC_THRESH, EC_I0_THRESH, PILOT_REPORT;
  u8 NGHBR_SET_ENTRY_INFO, ACC_ENT_HO_ORDER, NGHBR_SET_ACCESS_INFO, ACCESS_HO, ACCESS_HO_MSG_RSP;
  u8 ACCESS_PROBE_HO, ACC_HO_LIST_UPD, ACC_PROBE_HO_OTHER_MSG, MAX_NUM_PROBE_HO, NGHBR_SET_SIZE;
  PoolArray<u8> ACCESS_ENTRY_HO, ACCESS_HO_ALLOWED;
  // IS-2000 release 0
  u8 BROADCAST_GPS_ASST, QPCH_SUPPORTED, NUM_QPCH, QPCH_RATE, QPCH_POWER_LEVEL_PAGE;
  u8 QPCH_CCI_SUPPORTED, QPCH_POWER_LEVEL_CONFIG, SDB_SUPPORTED, RLGAIN_TRAFFIC_PILOT;
  u8 REV_PWR_CNTL_DELAY_INCL, REV_PWR_CNTL_DELAY;
  // release A
  u8 AUTO_MSG_SUPPORTED, AUTO_MSG_INTERVAL, MOB_QOS, ENC_SUPPORTED, SIG_ENCRYPT_SUP, UI_ENCRYPT_SUP;
  u8 USE_SYNC_ID, CS_SUPPORTED, BCCH_SUPPORTED, MS_INIT_POS_LOC_SUP_IND, PILOT_INFO_REQ_SUPPORTED;
  // release B
  u8 QPCH_BI_SUPPORTED, QPCH_POWER_LEVEL_BCAST, BAND_CLASS_INFO_REQ, ALT_BAND_CLASS;
  u8 CDMA_OFF_TIME_REP_SUP_IND, CDMA_OFF_TIME_REP_THRESHOLD_UNIT, CDMA_OFF_TIME_REP_THRESHOLD;
  // release C
  u8 CHM_SUPPORTED, RELEASE_TO_IDLE_IND, RECONNECT_MSG_IND, MSG_INTEGRITY_SUP;
  u8 SIG_INTEGRITY_SUP_INCL, SIG_INTEGRITY_SUP, FOR_PDCH_SUPPORTED, PDCH_CHM_SUPPORTED, PDCH_PARMS_INCL;
  u8 FOR_PDCH_RLGAIN_INCL, RLGAIN_ACKCH_PILOT, RLGAIN_CQICH_PILOT;
  u8 NUM_SOFT_SWITCHING_FRAMES, NUM_SOFTER_SWITCHING_FRAMES, NUM_SOFT_SWITCHING_SLOTS, NUM_SOFTER_SWITCHING_SLOTS;
  u8 PDCH_SOFT_SWITCHING_DELAY, PDCH_SOFTER_SWITCHING_DELAY, WALSH_TABLE_ID, NUM_PDCCH;
  PoolArray<FC_ESPM_PDCCH_WALSH> PDCCH_WALSHs;
  u8 IMSI_10_INCL, IMSI_10;
  // release D
  u8 MAX_ADD_SERV_INSTANCE, RER_MODE_SUPPORTED, TKZ_MODE_SUPPORTED, TKZ_ID;
  u8 PZ_HYST_ENABLED, PZ_HYST_INFO_INCL, PZ_HYST_LIST_LEN, PZ_HYST_ACT_TIMER, PZ_HYST_TIMER_MUL, PZ_HYST_TIMER_EXP;
  u8 EXT_PREF_MSID_TYPE, MEID_REQD, AUTO_FCSO_ALLOWED;
  u8 REV_PDCH_SUPPORTED, REV_PDCH_PARMS_INCL, REV_PDCH_RLGAIN_INCL;
  u8 RLGAIN_SPICH_PILOT, RLGAIN_REQCH_PILOT, RLGAIN_PDCCH_PILOT;
  u8 REV_PDCH_PARMS_1_INCL, REV_PDCH_TABLE_SEL, REV_PDCH_MAX_AUTO_TPR, REV_PDCH_NUM_ARQ_ROUNDS_NORMAL;
  u8 REV_PDCH_OPER_PARMS_INCL, REV_PDCH_MAX_SIZE_ALLOWED_ENCODER_PACKET, REV_PDCH_DEFAULT_PERSISTENCE;
  u8 REV_PDCH_RESET_PERSISTENCE, REV_PDCH_GRANT_PRECEDENCE, REV_PDCH_MSIB_SUPPORTED;
  u8 REV_PDCH_SOFT_SWITCHING_RESET_IND;
  u8 SDB_IN_RCNM_IND, SENDING_BSPM, BSPM_PERIOD_INDEX, CAND_BAND_INFO_REQ, NUM_CAND_BAND_CLASS;
  PoolArray<FC_ESPM_CAND_BAND_CLASS> CAND_BAND_CLASSs;
  u8 TX_PWR_LIMIT_INCL, TX_PWR_LIMIT, BYPASS_REG_IND;
};

template <class W>
void layout(W& w, FC_ESPM& r, const Ctx& c) {
  // PILOT_PN .. TMSI_ZONE_LEN
  w(F(PILOT_PN, 9), F(CONFIG_MSG_SEQ, 6), F(DELETE_FOR_TMSI, 1), F(USE_TMSI, 1), F(PREF_MSID_TYPE, 2), F(MCC, 10),
    F(IMSI_11_12, 7), F(TMSI_ZONE_LEN, 4));
  if (r.TMSI_ZONE_LEN) {   // a zone of no octets has no field to show
    w(F(TMSI_ZONE, 8u * r.TMSI_ZONE_LEN));
  }
  w(F(BCAST_INDEX, 3));
  // IS-95-A and J-STD-008 end here.
  if (c.p_rev < 4) return;

  // IMSI_T_SUPPORTED .. RESELECT_INCLUDED
  w(F(IMSI_T_SUPPORTED, 1), F(P_REV, 8), F(MIN_P_REV, 8), F(SOFT_SLOPE, 6), F(ADD_INTERCEPT, 6), F(DROP_INTERCEPT, 6),
    F(PACKET_ZONE_ID, 8), F(MAX_NUM_ALT_SO, 3), F(RESELECT_INCLUDED, 1));
  if (r.RESELECT_INCLUDED) w(F(EC_THRESH, 5), F(EC_I0_THRESH, 5));
  w(F(PILOT_REPORT, 1), F(NGHBR_SET_ENTRY_INFO, 1));
  if (r.NGHBR_SET_ENTRY_INFO) w(F(ACC_ENT_HO_ORDER, 1));
  w(F(NGHBR_SET_ACCESS_INFO, 1));
  if (r.NGHBR_SET_ACCESS_INFO) {
    w(F(ACCESS_HO, 1));
    access_handoff(w, r);
  }
  if (r.NGHBR_SET_ENTRY_INFO || r.NGHBR_SET_ACCESS_INFO) {
    w(F(NGHBR_SET_SIZE, 6));
    if (r.NGHBR_SET_ENTRY_INFO) w.scalars("ACCESS_ENTRY_HO", r.ACCESS_ENTRY_HO, r.NGHBR_SET_SIZE, 1);
    if (r.NGHBR_SET_ACCESS_INFO) w.scalars("ACCESS_HO_ALLOWED", r.ACCESS_HO_ALLOWED, r.NGHBR_SET_SIZE, 1);
  }

  // From here the groups follow the revision the message itself announces in P_REV.
  if (r.P_REV < 6) return;
  w(F(BROADCAST_GPS_ASST, 1), F(QPCH_SUPPORTED, 1));
  if (r.QPCH_SUPPORTED) qpch(w, r);
  w(F(SDB_SUPPORTED, 1), F(RLGAIN_TRAFFIC_PILOT, 6), F(REV_PWR_CNTL_DELAY_INCL, 1));
  if (r.REV_PWR_CNTL_DELAY_INCL) w(F(REV_PWR_CNTL_DELAY, 2));

  if (r.P_REV < 7) return;
  flagged(w, F(AUTO_MSG_SUPPORTED, 1), F(AUTO_MSG_INTERVAL, 3));
  w(F(MOB_QOS, 1), F(ENC_SUPPORTED, 1));
  encryption(w, r);
  w(F(USE_SYNC_ID, 1), F(CS_SUPPORTED, 1), F(BCCH_SUPPORTED, 1), F(MS_INIT_POS_LOC_SUP_IND, 1),
    F(PILOT_INFO_REQ_SUPPORTED, 1));

  if (r.P_REV < 8) return;
  // The broadcast-indicator fields of the quick paging channel come here, after the release
  // A fields, not next to the other QPCH fields.
  if (r.QPCH_SUPPORTED) flagged(w, F(QPCH_BI_SUPPORTED, 1), F(QPCH_POWER_LEVEL_BCAST, 3));
  flagged(w, F(BAND_CLASS_INFO_REQ, 1), F(ALT_BAND_CLASS, 5));
  flagged(w, F(CDMA_OFF_TIME_REP_SUP_IND, 1), F(CDMA_OFF_TIME_REP_THRESHOLD_UNIT, 1),
          F(CDMA_OFF_TIME_REP_THRESHOLD, 3));

  if (r.P_REV < 9) return;
  w(F(CHM_SUPPORTED, 1), F(RELEASE_TO_IDLE_IND, 1), F(RECONNECT_MSG_IND, 1), F(MSG_INTEGRITY_SUP, 1));
  sig_integrity(w, r);
  for_pdch(w, r, c);
  flagged(w, F(IMSI_10_INCL, 1), F(IMSI_10, 4));

  if (r.P_REV < 10) return;
  if (r.CS_SUPPORTED) w(F(MAX_ADD_SERV_INSTANCE, 3));
  w(F(RER_MODE_SUPPORTED, 1), F(TKZ_MODE_SUPPORTED, 1));
  if (r.TKZ_MODE_SUPPORTED) w(F(TKZ_ID, 8));
  fwd::pz_hysteresis(w, r);
  ext_pref_msid(w, r);
  w(F(AUTO_FCSO_ALLOWED, 1));
  if (r.FOR_PDCH_SUPPORTED) rev_pdch(w, r);
  if (r.RECONNECT_MSG_IND && r.SDB_SUPPORTED) w(F(SDB_IN_RCNM_IND, 1));
  flagged(w, F(SENDING_BSPM, 1), F(BSPM_PERIOD_INDEX, 4));
  cand_bands(w, r, c);
  tx_pwr_limit_bypass(w, r);
}

// ---------------------------------------------------------------------------------------------
// ANSI-41 System Parameters Message (MSG_ID 29), from P_REV 7 on the F-BCCH. The message has no
// revision field of its own: its later groups follow the caller's P_REV.

struct FC_A41SPM {
  u16 PILOT_PN;
  u8 CONFIG_MSG_SEQ;
  u16 SID, NID;
  u8 PACKET_ZONE_ID;
  u16 REG_ZONE;
  u8 TOTAL_ZONES, ZONE_TIMER, MULT_SIDS, MULT_NIDS;
  u8 HOME_REG, FOR_SID_REG, FOR_NID_REG, POWER_UP_REG, POWER_DOWN_REG, PARAMETER_REG, REG_PRD;
  u8 DIST_REG_INCL;
  u16 REG_DIST;
  u8 DELETE_FOR_TMSI, USE_TMSI, PREF_MSID_TYPE, TMSI_ZONE_LEN;
  Bytes TMSI_ZONE;
  u8 IMSI_T_SUPPORTED, MAX_NUM_ALT_SO, AUTO_MSG_SUPPORTED, AUTO_MSG_INTERVAL, OTHER_INFO_INCL;
  u16 BASE_ID, MCC;
  u8 IMSI_11_12, BROADCAST_GPS_ASST, SIG_ENCRYPT_SUP;
  u8 CS_SUPPORTED, MS_INIT_POS_LOC_SUP_IND;
  // release C
  u8 MSG_INTEGRITY_SUP, SIG_INTEGRITY_SUP_INCL, SIG_INTEGRITY_SUP, IMSI_10_INCL, IMSI_10;
  // release D
  u8 MAX_ADD_SERV_INSTANCE, TKZ_MODE_SUPPORTED, TKZ_ID, PZ_HYST_ENABLED, PZ_HYST_INFO_INCL;
  u8 PZ_HYST_LIST_LEN, PZ_HYST_ACT_TIMER, PZ_HYST_TIMER_MUL, PZ_HYST_TIMER_EXP;
  u8 EXT_PREF_MSID_TYPE, MEID_REQD;
};

template <class W>
void layout(W& w, FC_A41SPM& r, const Ctx& c) {
  // PILOT_PN .. DIST_REG_INCL
  w(F(PILOT_PN, 9), F(CONFIG_MSG_SEQ, 6), F(SID, 15), F(NID, 16), F(PACKET_ZONE_ID, 8), F(REG_ZONE, 12),
    F(TOTAL_ZONES, 3), F(ZONE_TIMER, 3), F(MULT_SIDS, 1), F(MULT_NIDS, 1), F(HOME_REG, 1), F(FOR_SID_REG, 1),
    F(FOR_NID_REG, 1), F(POWER_UP_REG, 1), F(POWER_DOWN_REG, 1), F(PARAMETER_REG, 1), F(REG_PRD, 7),
    F(DIST_REG_INCL, 1));
  if (r.DIST_REG_INCL) w(F(REG_DIST, 11));
  w(F(DELETE_FOR_TMSI, 1), F(USE_TMSI, 1), F(PREF_MSID_TYPE, 2), F(TMSI_ZONE_LEN, 4));
  if (r.TMSI_ZONE_LEN) w(F(TMSI_ZONE, 8u * r.TMSI_ZONE_LEN));
  w(F(IMSI_T_SUPPORTED, 1), F(MAX_NUM_ALT_SO, 3), F(AUTO_MSG_SUPPORTED, 1));
  if (r.AUTO_MSG_SUPPORTED) w(F(AUTO_MSG_INTERVAL, 3));
  w(F(OTHER_INFO_INCL, 1));
  if (r.OTHER_INFO_INCL) {
    w(F(BASE_ID, 16), F(MCC, 10), F(IMSI_11_12, 7), F(BROADCAST_GPS_ASST, 1), F(SIG_ENCRYPT_SUP, 8));
  }
  w(F(CS_SUPPORTED, 1), F(MS_INIT_POS_LOC_SUP_IND, 1));

  if (c.p_rev < 9) return;
  w(F(MSG_INTEGRITY_SUP, 1));
  sig_integrity(w, r);
  flagged(w, F(IMSI_10_INCL, 1), F(IMSI_10, 4));

  if (c.p_rev < 10) return;
  if (r.CS_SUPPORTED) w(F(MAX_ADD_SERV_INSTANCE, 3));
  w(F(TKZ_MODE_SUPPORTED, 1));
  if (r.TKZ_MODE_SUPPORTED) w(F(TKZ_ID, 8));
  fwd::pz_hysteresis(w, r);
  ext_pref_msid(w, r);
}

// ---------------------------------------------------------------------------------------------
// MC-RR Parameters Message (MSG_ID 30), sent on the F-BCCH from P_REV 7. Like the extended
// system parameters, its later groups follow the revision the message announces in P_REV.

// One broadcast control channel that carries broadcast messages.
struct FC_MCRRPM_BCCH_BCAST {
  u8 BCCH_CODE_CHAN, BRAT, BCCH_CODE_RATE;
};

template <class W>
void layout(W& w, FC_MCRRPM_BCCH_BCAST& r, const Ctx&) {
  w(F(BCCH_CODE_CHAN, 7), F(BRAT, 2), F(BCCH_CODE_RATE, 1));
}

struct FC_MCRRPM {
  u16 PILOT_PN;
  u8 CONFIG_MSG_SEQ;
  u16 BASE_ID;
  u8 P_REV, MIN_P_REV;
  u8 SR3_INCL, SR3_CENTER_FREQ_INCL;
  u16 SR3_CENTER_FREQ;
  u8 SR3_BRAT, SR3_BCCH_CODE_CHAN, SR3_PRIMARY_PILOT, SR3_PILOT_POWER1, SR3_PILOT_POWER2;
  u8 SRCH_WIN_A, SRCH_WIN_R, T_ADD, T_DROP, T_COMP, T_TDROP, NGHBR_MAX_AGE;
  u8 SOFT_SLOPE, ADD_INTERCEPT, DROP_INTERCEPT;
  u8 ENC_SUPPORTED, SIG_ENCRYPT_SUP, UI_ENCRYPT_SUP, ADD_FIELDS_LEN;
  Bytes ADD_FIELDS;
  u8 CCH_INFO_INCL;
  // common channel information
  u16 MCC;
  u8 IMSI_11_12, MAX_SLOT_CYCLE_INDEX;
  u8 PWR_REP_THRESH, PWR_REP_FRAMES, PWR_THRESH_ENABLE, PWR_PERIOD_ENABLE, PWR_REP_DELAY;
  u8 RESELECT_INCLUDED, EC_THRESH, EC_I0_THRESH;
  u32 BASE_LAT, BASE_LONG;
  u8 PILOT_REPORT, ACC_ENT_HO_ORDER, ACCESS_HO, ACCESS_HO_MSG_RSP, ACCESS_PROBE_HO;
  u8 ACC_HO_LIST_UPD, ACC_PROBE_HO_OTHER_MSG, MAX_NUM_PROBE_HO;
  u8 NUM_FCCCH, FCCCH_RATE, FCCCH_CODE_RATE;
  PoolArray<u8> FCCCH_CODE_CHAN;
  u8 BCAST_INDEX, NUM_BCCH_BCAST;
  PoolArray<FC_MCRRPM_BCCH_BCAST> BCCH_BCASTs;
  u8 QPCH_SUPPORTED, NUM_QPCH, QPCH_RATE, QPCH_POWER_LEVEL_PAGE, QPCH_CCI_SUPPORTED, QPCH_POWER_LEVEL_CONFIG;
  PoolArray<u8> QPCH_CODE_CHAN;
  u8 QPCH_BI_SUPPORTED, QPCH_POWER_LEVEL_BCAST;
  u8 SDB_SUPPORTED, BROADCAST_GPS_ASST, RLGAIN_TRAFFIC_PILOT, REV_PWR_CNTL_DELAY_INCL, REV_PWR_CNTL_DELAY;
  u8 MOB_QOS, USE_SYNC_ID, NUM_OPT_MSG, SENDING_RAND, PRI_NGHBR_LIST, USER_ZONE_ID, EXT_GLOBAL_REDIRECT;
  u8 PILOT_INFO_REQ_SUPPORTED;
  // release B
  u8 BAND_CLASS_INFO_REQ, ALT_BAND_CLASS;
  u8 CDMA_OFF_TIME_REP_SUP_IND, CDMA_OFF_TIME_REP_THRESHOLD_UNIT, CDMA_OFF_TIME_REP_THRESHOLD;
  // release C
  u8 CHM_SUPPORTED, RELEASE_TO_IDLE_IND, RECONNECT_MSG_IND, T_TDROP_RANGE_INCL, T_TDROP_RANGE;
  u8 FOR_PDCH_SUPPORTED, PDCH_CHM_SUPPORTED, PDCH_PARMS_INCL;
  u8 FOR_PDCH_RLGAIN_INCL, RLGAIN_ACKCH_PILOT, RLGAIN_CQICH_PILOT;
  u8 NUM_SOFT_SWITCHING_FRAMES, NUM_SOFTER_SWITCHING_FRAMES, NUM_SOFT_SWITCHING_SLOTS, NUM_SOFTER_SWITCHING_SLOTS;
  u8 PDCH_SOFT_SWITCHING_DELAY, PDCH_SOFTER_SWITCHING_DELAY, WALSH_TABLE_ID, NUM_PDCCH;
  PoolArray<FC_ESPM_PDCCH_WALSH> PDCCH_WALSHs;
  u8 IMSI_10_INCL, IMSI_10;
  // release D
  u8 NEG_SLOT_CYCLE_INDEX_SUP, RER_MODE_SUPPORTED, AUTO_FCSO_ALLOWED, SENDING_BSPM, BSPM_PERIOD_INDEX;
  u8 REV_PDCH_SUPPORTED, REV_PDCH_PARMS_INCL, REV_PDCH_RLGAIN_INCL;
  u8 RLGAIN_SPICH_PILOT, RLGAIN_REQCH_PILOT, RLGAIN_PDCCH_PILOT;
  u8 REV_PDCH_PARMS_1_INCL, REV_PDCH_TABLE_SEL, REV_PDCH_MAX_AUTO_TPR, REV_PDCH_NUM_ARQ_ROUNDS_NORMAL;
  u8 REV_PDCH_OPER_PARMS_INCL, REV_PDCH_MAX_SIZE_ALLOWED_ENCODER_PACKET, REV_PDCH_DEFAULT_PERSISTENCE;
  u8 REV_PDCH_RESET_PERSISTENCE, REV_PDCH_GRANT_PRECEDENCE, REV_PDCH_MSIB_SUPPORTED;
  u8 REV_PDCH_SOFT_SWITCHING_RESET_IND;
  u8 SDB_IN_RCNM_IND, CAND_BAND_INFO_REQ, NUM_CAND_BAND_CLASS;
  PoolArray<FC_ESPM_CAND_BAND_CLASS> CAND_BAND_CLASSs;
  u8 RESCAN, TX_PWR_LIMIT_INCL, TX_PWR_LIMIT, BYPASS_REG_IND;
  // release E
  u8 AP_PILOT_INFO, AP_IDT, AP_ID_TEXT, GEN_OVHD_INF_IND, FD_CHAN_LST_IND, ATIM_IND, FREQ_GEN_OVHD_INF_IND;
  u8 RC_BITMAP_CAPABILITY_EXT_ALLOWED, CRRM_MSG_IND;
};

// Release E goes on after CRRM_MSG_IND with APPIM_PERIOD_INDEX, whose width this decoder does
// not know: such a message is refused (result 1) there, after everything before it was shown.
constexpr u8 kMcrrRelD = 10, kMcrrRelE = 11;

// NUM_OPT_MSG counts the one-bit "this optional message is sent" flags that follow. Up to
// release C four are named and the rest are reserved; release E names eleven. Whether release D
// names any past the fourth is not known here, so such a message is refused at them: then this
// returns false, and nothing after the flags is shown.
template <class W>
bool optional_messages(W& w, FC_MCRRPM& r) {
  const struct {
    u8 FC_MCRRPM::*field;
    const char* name;
  } flags[] = {{&FC_MCRRPM::SENDING_RAND, "SENDING_RAND"},
               {&FC_MCRRPM::PRI_NGHBR_LIST, "PRI_NGHBR_LIST"},
               {&FC_MCRRPM::USER_ZONE_ID, "USER_ZONE_ID"},
               {&FC_MCRRPM::EXT_GLOBAL_REDIRECT, "EXT_GLOBAL_REDIRECT"},
               {&FC_MCRRPM::AP_PILOT_INFO, "AP_PILOT_INFO"},
               {&FC_MCRRPM::AP_IDT, "AP_IDT"},
               {&FC_MCRRPM::AP_ID_TEXT, "AP_ID_TEXT"},
               {&FC_MCRRPM::GEN_OVHD_INF_IND, "GEN_OVHD_INF_IND"},
               {&FC_MCRRPM::FD_CHAN_LST_IND, "FD_CHAN_LST_IND"},
               {&FC_MCRRPM::ATIM_IND, "ATIM_IND"},
               {&FC_MCRRPM::FREQ_GEN_OVHD_INF_IND, "FREQ_GEN_OVHD_INF_IND"}};
  const unsigned known = r.P_REV >= kMcrrRelE ? 11u : 4u;
  const unsigned named = r.NUM_OPT_MSG < known ? r.NUM_OPT_MSG : known;
  // The named flags are one group whose width NUM_OPT_MSG gives at run time: none is read
  // unless all of them are there.
  if (w.need(named)) {
    for (unsigned k = 0; k < named; ++k) w(field(r.*flags[k].field, flags[k].name, 1));
  }
  if (r.NUM_OPT_MSG > known && r.P_REV == kMcrrRelD) {
    w.reject(Rc::count);
    return false;
  }
  if (r.NUM_OPT_MSG > known) w(reserved(r.NUM_OPT_MSG - known));
  return true;
}

// The common channel information, present when CCH_INFO_INCL is 1; false where the message is
// refused inside it.
template <class W>
bool common_channels(W& w, FC_MCRRPM& r, const Ctx& c) {
  // MCC .. RESELECT_INCLUDED
  w(F(MCC, 10), F(IMSI_11_12, 7), F(MAX_SLOT_CYCLE_INDEX, 3), F(PWR_REP_THRESH, 5), F(PWR_REP_FRAMES, 4),
    F(PWR_THRESH_ENABLE, 1), F(PWR_PERIOD_ENABLE, 1), F(PWR_REP_DELAY, 5), F(RESELECT_INCLUDED, 1));
  if (r.RESELECT_INCLUDED) w(F(EC_THRESH, 5), F(EC_I0_THRESH, 5));
  w(F(BASE_LAT, 22), F(BASE_LONG, 23), F(PILOT_REPORT, 1), F(ACC_ENT_HO_ORDER, 1), F(ACCESS_HO, 1));
  access_handoff(w, r);

  // The rate fields are sent even when no F-CCCH is; NUM_FCCCH is the number of code channels
  // itself, not one less.
  w(F(NUM_FCCCH, 3), F(FCCCH_RATE, 3), F(FCCCH_CODE_RATE, 1));
  w.scalars("FCCCH_CODE_CHAN", r.FCCCH_CODE_CHAN, r.NUM_FCCCH, 8);
  w(F(BCAST_INDEX, 3), F(NUM_BCCH_BCAST, 3));
  w.records("BCCH_BCASTs", r.BCCH_BCASTs, r.NUM_BCCH_BCAST, c);

  w(F(QPCH_SUPPORTED, 1));
  if (r.QPCH_SUPPORTED) {
    qpch(w, r);
    // Only a spreading rate 3 common channel names the quick paging code channels.
    if (r.SR3_INCL) w.scalars("QPCH_CODE_CHAN", r.QPCH_CODE_CHAN, r.NUM_QPCH, 8);
    flagged(w, F(QPCH_BI_SUPPORTED, 1), F(QPCH_POWER_LEVEL_BCAST, 3));
  }

  w(F(SDB_SUPPORTED, 1), F(BROADCAST_GPS_ASST, 1), F(RLGAIN_TRAFFIC_PILOT, 6), F(REV_PWR_CNTL_DELAY_INCL, 1));
  if (r.REV_PWR_CNTL_DELAY_INCL) w(F(REV_PWR_CNTL_DELAY, 2));
  w(F(MOB_QOS, 1), F(USE_SYNC_ID, 1), F(NUM_OPT_MSG, 4));
  if (!optional_messages(w, r)) return false;
  w(F(PILOT_INFO_REQ_SUPPORTED, 1));
  return true;
}

template <class W>
void layout(W& w, FC_MCRRPM& r, const Ctx& c) {
  // PILOT_PN .. SR3_INCL
  w(F(PILOT_PN, 9), F(CONFIG_MSG_SEQ, 6), F(BASE_ID, 16), F(P_REV, 8), F(MIN_P_REV, 8), F(SR3_INCL, 1));
  if (r.SR3_INCL) {
    flagged(w, F(SR3_CENTER_FREQ_INCL, 1), F(SR3_CENTER_FREQ, 11));
    w(F(SR3_BRAT, 2), F(SR3_BCCH_CODE_CHAN, 7), F(SR3_PRIMARY_PILOT, 2), F(SR3_PILOT_POWER1, 3),
      F(SR3_PILOT_POWER2, 3));
  }
  // SRCH_WIN_A .. ENC_SUPPORTED
  w(F(SRCH_WIN_A, 4), F(SRCH_WIN_R, 4), F(T_ADD, 6), F(T_DROP, 6), F(T_COMP, 4), F(T_TDROP, 4), F(NGHBR_MAX_AGE, 4),
    F(SOFT_SLOPE, 6), F(ADD_INTERCEPT, 6), F(DROP_INTERCEPT, 6), F(ENC_SUPPORTED, 1));
  encryption(w, r);
  w(F(ADD_FIELDS_LEN, 8));
  if (r.ADD_FIELDS_LEN) {   // octets kept for fields a later revision may define
    w(F(ADD_FIELDS, 8u * r.ADD_FIELDS_LEN));
  }
  w(F(CCH_INFO_INCL, 1));
  if (r.CCH_INFO_INCL && !common_channels(w, r, c)) return;

  if (r.P_REV < 8) return;
  if (r.CCH_INFO_INCL) flagged(w, F(BAND_CLASS_INFO_REQ, 1), F(ALT_BAND_CLASS, 5));
  flagged(w, F(CDMA_OFF_TIME_REP_SUP_IND, 1), F(CDMA_OFF_TIME_REP_THRESHOLD_UNIT, 1),
          F(CDMA_OFF_TIME_REP_THRESHOLD, 3));

  if (r.P_REV < 9) return;
  w(F(CHM_SUPPORTED, 1), F(RELEASE_TO_IDLE_IND, 1), F(RECONNECT_MSG_IND, 1), F(T_TDROP_RANGE_INCL, 1));
  if (r.T_TDROP_RANGE_INCL) w(F(T_TDROP_RANGE, 4));
  for_pdch(w, r, c);
  if (r.CCH_INFO_INCL) flagged(w, F(IMSI_10_INCL, 1), F(IMSI_10, 4));

  // Release D: the groups of the extended system parameters, led by the negative slot cycle
  // index of the system parameters; here SENDING_BSPM comes before the R-PDCH group and RESCAN
  // before the transmit power limit.
  if (r.P_REV < kMcrrRelD) return;
  w(F(NEG_SLOT_CYCLE_INDEX_SUP, 1), F(RER_MODE_SUPPORTED, 1), F(AUTO_FCSO_ALLOWED, 1));
  flagged(w, F(SENDING_BSPM, 1), F(BSPM_PERIOD_INDEX, 4));
  if (r.FOR_PDCH_SUPPORTED) rev_pdch(w, r);
  // SDB_SUPPORTED is part of the common channel information; without it the zeroed record
  // reads 0 and the indicator is absent.
  if (r.RECONNECT_MSG_IND && r.SDB_SUPPORTED) w(F(SDB_IN_RCNM_IND, 1));
  cand_bands(w, r, c);
  w(F(RESCAN, 1));
  tx_pwr_limit_bypass(w, r);

  if (r.P_REV < kMcrrRelE) return;
  w(F(RC_BITMAP_CAPABILITY_EXT_ALLOWED, 1), F(CRRM_MSG_IND, 1));
  w.reject(Rc::count);   // APPIM_PERIOD_INDEX is next
}

// ---------------------------------------------------------------------------------------------
// ANSI-41 RAND Message (MSG_ID 31)

struct FC_A41RANDM {
  u16 PILOT_PN;
  u8 ACC_MSG_SEQ;
  u32 RAND;
};

template <class W>
void layout(W& w, FC_A41RANDM& r, const Ctx&) {
  w(F(PILOT_PN, 9), F(ACC_MSG_SEQ, 6), F(RAND, 32));
}

// ---------------------------------------------------------------------------------------------
// Enhanced Access Parameters Message (MSG_ID 32)

// Persistence and LAC records count their own length field in PSIST_PARMS_LEN / LAC_PARMS_LEN;
// the basic- and reservation-access records do not. Lengths too short for their own field
// leave an empty record, which then reads as too short.
std::uint64_t octets_after_len(unsigned octets, unsigned len_bits) {
  return 8u * octets > len_bits ? 8u * octets - len_bits : 0;
}

struct FC_EAPM_PSIST_PARMS_REC {
  u8 PSIST_0_9_EACH, PSIST_10_EACH, PSIST_11_EACH, PSIST_12_EACH, PSIST_13_EACH, PSIST_14_EACH, PSIST_15_EACH;
  u8 PSIST_EMG, MSG_PSIST_EACH, REG_PSIST_EACH;
};

template <class W>
void layout(W& w, FC_EAPM_PSIST_PARMS_REC& r, const Ctx&) {
  w(F(PSIST_0_9_EACH, 6), F(PSIST_10_EACH, 3), F(PSIST_11_EACH, 3), F(PSIST_12_EACH, 3), F(PSIST_13_EACH, 3),
    F(PSIST_14_EACH, 3), F(PSIST_15_EACH, 3), F(PSIST_EMG, 3), F(MSG_PSIST_EACH, 3), F(REG_PSIST_EACH, 3));
}

struct FC_EAPM_LAC_PARMS_REC {
  u8 ACC_TMO, MAX_REQ_SEQ, MAX_RSP_SEQ;
};

template <class W>
void layout(W& w, FC_EAPM_LAC_PARMS_REC& r, const Ctx&) {
  // reserved
  w(F(ACC_TMO, 6), reserved(4), F(MAX_REQ_SEQ, 4), F(MAX_RSP_SEQ, 4));
}

struct FC_EAPM_ACCESS_MODE {
  u8 ACCESS_MODE;
  u16 ACCESS_MODE_MIN_DURATION, ACCESS_MODE_MAX_DURATION;
};

template <class W>
void layout(W& w, FC_EAPM_ACCESS_MODE& r, const Ctx&) {
  w(F(ACCESS_MODE, 3), F(ACCESS_MODE_MIN_DURATION, 10), F(ACCESS_MODE_MAX_DURATION, 10));
}

struct FC_EAPM_MODE_PARM_REC {
  u8 EACH_PARM_REC_LEN, APPLICABLE_MODES, EACH_NOM_PWR, EACH_INIT_PWR, EACH_PWR_STEP, EACH_NUM_STEP;
  u8 EACH_PREAMBLE_ENABLED, EACH_PREAMBLE_NUM_FRAC, EACH_PREAMBLE_FRAC_DURATION, EACH_PREAMBLE_OFF_DURATION;
  u8 EACH_PREAMBLE_ADD_DURATION, EACH_ACCESS_THRESH, EACH_PROBE_BKOFF, EACH_BKOFF;
  u8 EACH_SLOT, EACH_SLOT_OFFSET1, EACH_SLOT_OFFSET2;
};

// EACH_PARM_REC_LEN counts the record from its own first bit. The record may declare octets
// beyond the fields known here (padding or later additions): the walk moves on past them.
template <class W>
void layout(W& w, FC_EAPM_MODE_PARM_REC& r, const Ctx&) {
  const std::uint64_t room = w.left();
  auto end = w.declared_end();
  // EACH_PARM_REC_LEN .. EACH_PREAMBLE_ENABLED
  w(F(EACH_PARM_REC_LEN, 4), F(APPLICABLE_MODES, 8), F(EACH_NOM_PWR, 5), F(EACH_INIT_PWR, 5), F(EACH_PWR_STEP, 3),
    F(EACH_NUM_STEP, 4), F(EACH_PREAMBLE_ENABLED, 1));
  if (r.EACH_PREAMBLE_ENABLED) {
    w(F(EACH_PREAMBLE_NUM_FRAC, 4), F(EACH_PREAMBLE_FRAC_DURATION, 4), F(EACH_PREAMBLE_OFF_DURATION, 4),
      F(EACH_PREAMBLE_ADD_DURATION, 4));
  }
  w(F(EACH_ACCESS_THRESH, 6), F(EACH_PROBE_BKOFF, 4), F(EACH_BKOFF, 4), F(EACH_SLOT, 6), F(EACH_SLOT_OFFSET1, 6),
    F(EACH_SLOT_OFFSET2, 6));
  end.at(8u * r.EACH_PARM_REC_LEN);
  // A record longer than what is left of the message makes the message short.
  if (8u * r.EACH_PARM_REC_LEN > room) w.reject(Rc::short_msg);
}

struct FC_EAPM_BA_PARMS_REC {
  u8 NUM_EACH_BA, EACH_BA_RATES_SUPPORTED;
};

template <class W>
void layout(W& w, FC_EAPM_BA_PARMS_REC& r, const Ctx&) {
  w(F(NUM_EACH_BA, 5), F(EACH_BA_RATES_SUPPORTED, 8));
}

struct FC_EAPM_RA_PARMS_REC {
  u8 NUM_EACH_RA, NUM_CACH, CACH_CODE_RATE;
  PoolArray<u8> CACH_CODE_CHAN;
  u8 NUM_RCCCH, RCCCH_RATES_SUPPORTED, RCCCH_PREAMBLE_ENABLED;
  u8 RCCCH_PREAMBLE_NUM_FRAC, RCCCH_PREAMBLE_FRAC_DURATION, RCCCH_PREAMBLE_OFF_DURATION, RCCCH_PREAMBLE_ADD_DURATION;
  u8 RCCCH_SLOT, RCCCH_SLOT_OFFSET1, RCCCH_SLOT_OFFSET2, RCCCH_NOM_PWR, RCCCH_INIT_PWR;
  u8 RA_PC_DELAY, EACAM_CACH_DELAY, RCCCH_HO_SUPPORTED, RCCCH_HO_THRESH, EACAM_PCCAM_DELAY;
  u8 NUM_CPCCH, CPCCH_RATE;
  PoolArray<u8> CPCCH_CODE_CHAN;
  u8 NUM_PCSCH_RA;
};

template <class W>
void layout(W& w, FC_EAPM_RA_PARMS_REC& r, const Ctx&) {
  w(F(NUM_EACH_RA, 5), F(NUM_CACH, 3), F(CACH_CODE_RATE, 1));
  // NUM_CACH and NUM_CPCCH are one less than the number of code channels.
  if (!w.scalars("CACH_CODE_CHAN", r.CACH_CODE_CHAN, r.NUM_CACH + 1u, 8)) return;
  w(F(NUM_RCCCH, 5), F(RCCCH_RATES_SUPPORTED, 8), F(RCCCH_PREAMBLE_ENABLED, 1));
  if (r.RCCCH_PREAMBLE_ENABLED) {
    w(F(RCCCH_PREAMBLE_NUM_FRAC, 4), F(RCCCH_PREAMBLE_FRAC_DURATION, 4), F(RCCCH_PREAMBLE_OFF_DURATION, 4),
      F(RCCCH_PREAMBLE_ADD_DURATION, 4));
  }
  w(F(RCCCH_SLOT, 6), F(RCCCH_SLOT_OFFSET1, 6), F(RCCCH_SLOT_OFFSET2, 6), F(RCCCH_NOM_PWR, 5), F(RCCCH_INIT_PWR, 5),
    F(RA_PC_DELAY, 5), F(EACAM_CACH_DELAY, 4), F(RCCCH_HO_SUPPORTED, 1));
  if (r.RCCCH_HO_SUPPORTED) w(F(RCCCH_HO_THRESH, 4));
  w(F(EACAM_PCCAM_DELAY, 5), F(NUM_CPCCH, 2), F(CPCCH_RATE, 2));
  if (!w.scalars("CPCCH_CODE_CHAN", r.CPCCH_CODE_CHAN, r.NUM_CPCCH + 1u, 8)) return;
  w(F(NUM_PCSCH_RA, 7));
}

struct FC_EAPM {
  u16 PILOT_PN;
  u8 ACC_MSG_SEQ, PSIST_PARMS_INCL, PSIST_PARMS_LEN;
  FC_EAPM_PSIST_PARMS_REC PSIST_PARMS_REC;
  u8 LAC_PARMS_LEN;
  FC_EAPM_LAC_PARMS_REC LAC_PARMS_REC;
  u8 NUM_MODE_SELECTION_ENTRIES;
  PoolArray<FC_EAPM_ACCESS_MODE> ACCESS_MODEs;
  u8 RLGAIN_COMMON_PILOT, IC_THRESH, IC_MAX, NUM_MODE_PARM_REC;
  PoolArray<FC_EAPM_MODE_PARM_REC> MODE_PARM_RECs;
  u8 BA_PARMS_LEN;
  FC_EAPM_BA_PARMS_REC BA_PARMS_REC;
  u8 RA_PARMS_LEN;
  FC_EAPM_RA_PARMS_REC RA_PARMS_REC;
  u8 ACCT_INCL, ACCT_INCL_EMG, ACCT_AOC_BITMAP_INCL, ACCT_SO_INCL, NUM_ACCT_SO;
  PoolArray<AcctSoRec> ACCT_SO_RECs;
  u8 ACCT_SO_GRP_INCL, NUM_ACCT_SO_GRP;
  PoolArray<AcctSoGrpRec> ACCT_SO_GRP_RECs;
};

template <class W>
void layout(W& w, FC_EAPM& r, const Ctx& c) {
  w(F(PILOT_PN, 9), F(ACC_MSG_SEQ, 6), F(PSIST_PARMS_INCL, 1));
  if (r.PSIST_PARMS_INCL) {
    w(F(PSIST_PARMS_LEN, 5));
    if (!w.sized("PSIST_PARMS_REC", r.PSIST_PARMS_REC,
                 octets_after_len(r.PSIST_PARMS_LEN, 5), c))
      return;
  }
  w(F(LAC_PARMS_LEN, 4));
  if (!w.sized("LAC_PARMS_REC", r.LAC_PARMS_REC, octets_after_len(r.LAC_PARMS_LEN, 4),
               c))
    return;
  w(F(NUM_MODE_SELECTION_ENTRIES, 3));
  // Counts of the form NUM_... are one less than the number of entries that follow.
  if (!w.records("ACCESS_MODEs", r.ACCESS_MODEs, r.NUM_MODE_SELECTION_ENTRIES + 1u, c))
    return;
  w(F(RLGAIN_COMMON_PILOT, 6), F(IC_THRESH, 4), F(IC_MAX, 4), F(NUM_MODE_PARM_REC, 3));
  if (!w.records("MODE_PARM_RECs", r.MODE_PARM_RECs, r.NUM_MODE_PARM_REC + 1u, c)) return;
  w(F(BA_PARMS_LEN, 3));
  if (r.BA_PARMS_LEN) {
    if (!w.sized("BA_PARMS_REC", r.BA_PARMS_REC, 8u * r.BA_PARMS_LEN, c)) return;
  }
  w(F(RA_PARMS_LEN, 5));
  if (r.RA_PARMS_LEN) {
    if (!w.sized("RA_PARMS_REC", r.RA_PARMS_REC, 8u * r.RA_PARMS_LEN, c)) return;
  }

  w(F(ACCT_INCL, 1));
  if (!r.ACCT_INCL) return;
  acct(w, r, c, "ACCT_SO_REC", "ACCT_SO_GRP_REC");
}

}  // namespace

Rows paging_overhead_param_rows() {
  // The ANSI-41 parameters, MC-RR parameters and enhanced access parameters are broadcast
  // messages this channel's dispatch leaves undecoded.
  static constexpr MessageRow rows[] = {
      {1, "SPM", body_ops<FC_SPM>(), kBroadcastPdu, kBroadcastSdu},
      {2, "APM", body_ops<FC_APM>(), kBroadcastPdu, kBroadcastSdu},
      {13, "ESPM", body_ops<FC_ESPM>(), kBroadcastPdu, kBroadcastSdu},
      {29, "A41SPM", body_ops<FC_A41SPM>(), kSilent, kBroadcastSdu},
      {30, "MCRRPM", body_ops<FC_MCRRPM>(), kSilent, kBroadcastSdu},
      {31, "A41RANDM", body_ops<FC_A41RANDM>(), kSilent, kBroadcastSdu},
      {32, "EAPM", body_ops<FC_EAPM>(), kSilent, kBroadcastSdu},
  };
  return rows;
}

}  // namespace cs
