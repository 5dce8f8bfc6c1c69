// Channel assignment bodies of the paging / forward common channel: the Channel Assignment
// Message (C.S0005 3.7.2.3.2.8) and the Extended Channel Assignment Message (3.7.2.3.2.21),
// each a small header that selects an assignment mode and the record of that mode.
#include <cstdint>

#include "layout/layout.h"
#include "fwd_common/tables.h"
#include "records/forward_shared.h"

namespace cs {
namespace {

using u8 = std::uint8_t;
using u16 = std::uint16_t;

// ---------------------------------------------------------------------------------------------
// Fields shared by several mode records.

// The signalling encryption fields that follow ENCRYPT_MODE from P_REV 7: the dedicated
// channel mode with extended encryption ('11'), the key size with enhanced or extended
// encryption, and the common channel mode under its own flag.
template <class W, class R>
void encryption_fields(W& w, R& r, const Ctx& c) {
  if (c.p_rev < 7) return;
  if (r.ENCRYPT_MODE == 3) w(F(D_SIG_ENCRYPT_MODE, 3));
  if (r.ENCRYPT_MODE == 2 || r.ENCRYPT_MODE == 3) w(F(ENC_KEY_SIZE, 3));
  w(F(C_SIG_ENCRYPT_MODE_INCL, 1));
  if (r.C_SIG_ENCRYPT_MODE_INCL) w(F(C_SIG_ENCRYPT_MODE, 3));
}

// Message integrity keys and the public long code mask type, from P_REV 9.
template <class W, class R>
void integrity_and_plcm_fields(W& w, R& r, const Ctx& c) {
  if (c.p_rev < 9) return;
  w(F(MSG_INT_INFO_INCL, 1));
  if (r.MSG_INT_INFO_INCL) w(F(CHANGE_KEYS, 1), F(USE_UAK, 1));
  w(F(PLCM_TYPE_INCL, 1));
  if (r.PLCM_TYPE_INCL) {
    w(F(PLCM_TYPE, 4));
    if (r.PLCM_TYPE == 1) {   // the mask itself is sent only for the base-station-specified type
      w(F(PLCM_39, 39));
    }
  }
}

// The analog assignments read the same in both messages.
struct AnalogControl {   // mode '010'
  u8 RESPOND, ANALOG_SYS, USE_ANALOG_SYS, BAND_CLASS;
};
template <class W>
void layout(W& w, AnalogControl& r, const Ctx&) {
  w(F(RESPOND, 1), F(ANALOG_SYS, 1), F(USE_ANALOG_SYS, 1), F(BAND_CLASS, 5));
}

struct AnalogVoice {   // mode '011'
  u16 SID, ANALOG_CHAN;
  u8 VMAC, SCC, MEM, AN_CHAN_TYPE, DSCC_MSB, BAND_CLASS;
};
template <class W>
void layout(W& w, AnalogVoice& r, const Ctx&) {
  w(F(SID, 15), F(VMAC, 3), F(ANALOG_CHAN, 11), F(SCC, 2), F(MEM, 1), F(AN_CHAN_TYPE, 2), F(DSCC_MSB, 1),
    F(BAND_CLASS, 5));
}

// ---------------------------------------------------------------------------------------------
// Channel Assignment Message. Each mode record fills ADD_RECORD_LEN octets; the paging channel
// lists of modes '001' and '101' have no count and run to the end of the record.

struct CamTraffic {   // '000'
  u8 FREQ_INCL, CODE_CHAN;
  u16 CDMA_FREQ;
  u8 FRAME_OFFSET, ENCRYPT_MODE, D_SIG_ENCRYPT_MODE, ENC_KEY_SIZE, C_SIG_ENCRYPT_MODE_INCL, C_SIG_ENCRYPT_MODE;
};
template <class W>
void layout(W& w, CamTraffic& r, const Ctx& c) {
  w(F(FREQ_INCL, 1), F(CODE_CHAN, 8));
  if (r.FREQ_INCL) w(F(CDMA_FREQ, 11));
  w(F(FRAME_OFFSET, 4), F(ENCRYPT_MODE, 2));
  encryption_fields(w, r, c);
}

// The pilots of a paging channel assignment: as many 9-bit PN offsets as the record holds.
// The count only matters to the reader; the printer shows the offsets that were read.
template <class W>
void pilot_pn_list(W& w, PoolArray<u16>& a) {
  w.scalars("PILOT_PN", a, static_cast<std::uint32_t>(w.left() / 9), 9);
}

struct CamPaging {   // '001'
  u8 RESPOND, FREQ_INCL;
  u16 CDMA_FREQ;
  PoolArray<u16> PILOT_PN;
};
template <class W>
void layout(W& w, CamPaging& r, const Ctx&) {
  w(F(RESPOND, 1), F(FREQ_INCL, 1));
  if (r.FREQ_INCL) w(F(CDMA_FREQ, 11));
  pilot_pn_list(w, r.PILOT_PN);
}

struct CamExtTraffic {   // '100'
  u8 FREQ_INCL, BYPASS_ALERT_ANSWER, DEFAULT_CONFIG, GRANTED_MODE, CODE_CHAN, FRAME_OFFSET, ENCRYPT_MODE, BAND_CLASS;
  u16 CDMA_FREQ;
  u8 D_SIG_ENCRYPT_MODE, ENC_KEY_SIZE, C_SIG_ENCRYPT_MODE_INCL, C_SIG_ENCRYPT_MODE;
};
template <class W>
void layout(W& w, CamExtTraffic& r, const Ctx& c) {
  w(F(FREQ_INCL, 1), reserved(3), F(BYPASS_ALERT_ANSWER, 1), F(DEFAULT_CONFIG, 3), F(GRANTED_MODE, 2),
    F(CODE_CHAN, 8), F(FRAME_OFFSET, 4), F(ENCRYPT_MODE, 2));
  if (r.FREQ_INCL) w(F(BAND_CLASS, 5), F(CDMA_FREQ, 11));
  encryption_fields(w, r, c);
}

struct CamExtPaging {   // '101'
  u8 RESPOND, FREQ_INCL, BAND_CLASS;
  u16 CDMA_FREQ;
  PoolArray<u16> PILOT_PN;
};
template <class W>
void layout(W& w, CamExtPaging& r, const Ctx&) {
  w(F(RESPOND, 1), F(FREQ_INCL, 1));
  if (r.FREQ_INCL) w(F(BAND_CLASS, 5), F(CDMA_FREQ, 11));
  pilot_pn_list(w, r.PILOT_PN);
}

struct FC_CAM {
  u8 ASSIGN_MODE, ADD_RECORD_LEN;
  CamTraffic m000;
  CamPaging m001;
  AnalogControl m010;
  AnalogVoice m011;
  CamExtTraffic m100;
  CamExtPaging m101;
};

template <class W>
void layout(W& w, FC_CAM& r, const Ctx& c) {
  // The message was withdrawn with P_REV 8: not decoded, and nothing to show.
  if (c.p_rev >= 8) {
    (void)w.reject(Rc::count);
    return;
  }
  w(F(ASSIGN_MODE, 3), F(ADD_RECORD_LEN, 3));
  const std::uint64_t len = r.ADD_RECORD_LEN * 8u;
  switch (r.ASSIGN_MODE) {
    case 0: w.sized("CAM_ASSIGN_MODE_000", r.m000, len, c); break;
    case 1: w.sized("CAM_ASSIGN_MODE_001", r.m001, len, c); break;
    case 2: w.sized("CAM_ASSIGN_MODE_010", r.m010, len, c); break;
    case 3: w.sized("CAM_ASSIGN_MODE_011", r.m011, len, c); break;
    case 4: w.sized("CAM_ASSIGN_MODE_100", r.m100, len, c); break;
    case 5: w.sized("CAM_ASSIGN_MODE_101", r.m101, len, c); break;
    default: break;   // '110' and '111' are reserved: header only
  }
}

// ---------------------------------------------------------------------------------------------
// Extended Channel Assignment Message.

struct EcamPilot {   // one active set pilot of mode '000'
  u16 PILOT_PN;
  u8 PWR_COMB_IND, CODE_CHAN;
};
template <class W>
void layout(W& w, EcamPilot& r, const Ctx&) {
  w(F(PILOT_PN, 9), F(PWR_COMB_IND, 1), F(CODE_CHAN, 8));
}

struct EcamTraffic {   // '000'
  u8 FREQ_INCL, DEFAULT_CONFIG, BYPASS_ALERT_ANSWER, NUM_PILOTS, GRANTED_MODE, FRAME_OFFSET, ENCRYPT_MODE;
  u8 BAND_CLASS;
  u16 CDMA_FREQ;
  PoolArray<EcamPilot> PILOTs;
  u8 FOR_FCH_RC, REV_FCH_RC, FPC_FCH_INIT_SETPT, FPC_SUBCHAN_GAIN, RLGAIN_ADJ, FPC_FCH_FER, FPC_FCH_MIN_SETPT,
      FPC_FCH_MAX_SETPT, REV_FCH_GATING_MODE, REV_PWR_CNTL_DELAY_INCL, REV_PWR_CNTL_DELAY;
  u8 D_SIG_ENCRYPT_MODE, ENC_KEY_SIZE, C_SIG_ENCRYPT_MODE_INCL, C_SIG_ENCRYPT_MODE;
  u8 MSG_INT_INFO_INCL, CHANGE_KEYS, USE_UAK, PLCM_TYPE_INCL, PLCM_TYPE;
  Bytes PLCM_39;
};
template <class W>
void layout(W& w, EcamTraffic& r, const Ctx& c) {
  w(F(FREQ_INCL, 1), F(DEFAULT_CONFIG, 3), F(BYPASS_ALERT_ANSWER, 1), reserved(1), F(NUM_PILOTS, 3),
    F(GRANTED_MODE, 2), F(FRAME_OFFSET, 4), F(ENCRYPT_MODE, 2));
  if (r.FREQ_INCL) w(F(BAND_CLASS, 5), F(CDMA_FREQ, 11));
  w.records("PILOTs", r.PILOTs, r.NUM_PILOTS + 1u, c);
  if (c.p_rev < 6) return;
  // The fundamental channel's radio configurations and outer loop power control of IS-2000.
  w(F(FOR_FCH_RC, 5), F(REV_FCH_RC, 5), F(FPC_FCH_INIT_SETPT, 8), F(FPC_SUBCHAN_GAIN, 5), F(RLGAIN_ADJ, 4),
    F(FPC_FCH_FER, 5), F(FPC_FCH_MIN_SETPT, 8), F(FPC_FCH_MAX_SETPT, 8));
  fwd::rev_fch_gating(w, r);
  encryption_fields(w, r, c);
  integrity_and_plcm_fields(w, r, c);
}

struct EcamPaging {   // '001'
  u8 RESPOND, FREQ_INCL, BAND_CLASS;
  u16 CDMA_FREQ;
  u8 NUM_PILOTS;
  PoolArray<u16> PILOT_PN;
};
template <class W>
void layout(W& w, EcamPaging& r, const Ctx&) {
  w(F(RESPOND, 1), F(FREQ_INCL, 1));
  if (r.FREQ_INCL) w(F(BAND_CLASS, 5), F(CDMA_FREQ, 11));
  w(F(NUM_PILOTS, 6));
  w.scalars("PILOT_PN", r.PILOT_PN, r.NUM_PILOTS + 1u, 9);
}

// Mode '100', the IS-2000 traffic channel assignment. The channels assigned (CH_IND) pick the
// layout of CH_RECORD_FIELDS, a record of CH_RECORD_LEN octets holding the power control set
// points and one pilot record per active set pilot.

// The header of the ECAM hands DIRECT_CH_ASSIGN_IND down to the two IS-2000 traffic modes,
// which carry the direct channel assignment fields only when it is set.
struct EcamCtx : Ctx {
  u8 direct_ch_assign_ind;
};

// PILOT_PN and the optional additional pilot record that open a pilot record of modes '100' and
// '101'.
template <class W, class P>
void pilot_head(W& w, P& r, const Ctx& c) {
  w(F(PILOT_PN, 9), F(ADD_PILOT_REC_INCL, 1));
  if (!r.ADD_PILOT_REC_INCL) return;
  w(F(PILOT_REC_TYPE, 3), F(RECORD_LEN, 3));
  const fwd::AddPilotCtx ac{c, r.PILOT_REC_TYPE};
  w.sized("ADD_PILOT_REC", r.ADD_PILOT_REC, r.RECORD_LEN * 8u, ac);
}

// One active set pilot: the code channels present are those of the channels assigned, which
// the channel record hands down as CH_IND.
struct Am4PilotRec {
  u16 PILOT_PN;
  u8 ADD_PILOT_REC_INCL, PILOT_REC_TYPE, RECORD_LEN;
  fwd::AddPilotRec ADD_PILOT_REC;
  u8 PWR_COMB_IND;
  u16 CODE_CHAN_FCH;
  u8 QOF_MASK_ID_FCH;
  u16 CODE_CHAN_DCCH;
  u8 QOF_MASK_ID_DCCH;
};
struct ChIndCtx : Ctx {
  u8 ch_ind;
};
template <class W>
void layout(W& w, Am4PilotRec& r, const ChIndCtx& c) {
  pilot_head(w, r, c);
  w(F(PWR_COMB_IND, 1));
  if (c.ch_ind & 1) w(F(CODE_CHAN_FCH, 11), F(QOF_MASK_ID_FCH, 2));     // fundamental channel
  if (c.ch_ind & 2) w(F(CODE_CHAN_DCCH, 11), F(QOF_MASK_ID_DCCH, 2));   // dedicated control channel
}

// The code channels of one pilot on the lowest and the highest of the three carriers of a 3X
// forward link, for the fundamental or the dedicated control channel.
struct X3ChanRec {
  u8 LOW_INCL, QOF_MASK_ID_LOW;
  u16 CODE_CHAN_LOW;
  u8 HIGH_INCL, QOF_MASK_ID_HIGH;
  u16 CODE_CHAN_HIGH;
};
struct X3Ctx : Ctx {
  bool dcch;
};
template <class W>
void layout(W& w, X3ChanRec& r, const X3Ctx& c) {
  static constexpr const char* kFch[] = {"3X_FCH_LOW_INCL",  "QOF_MASK_ID_FCH_LOW",  "CODE_CHAN_FCH_LOW",
                                         "3X_FCH_HIGH_INCL", "QOF_MASK_ID_FCH_HIGH", "CODE_CHAN_FCH_HIGH"};
  static constexpr const char* kDcch[] = {"3X_DCCH_LOW_INCL",  "QOF_MASK_ID_DCCH_LOW",  "CODE_CHAN_DCCH_LOW",
                                          "3X_DCCH_HIGH_INCL", "QOF_MASK_ID_DCCH_HIGH", "CODE_CHAN_DCCH_HIGH"};
  const char* const* n = c.dcch ? kDcch : kFch;
  w(field(r.LOW_INCL, n[0], 1));
  if (r.LOW_INCL) w(field(r.QOF_MASK_ID_LOW, n[1], 2), field(r.CODE_CHAN_LOW, n[2], 11));
  w(field(r.HIGH_INCL, n[3], 1));
  if (r.HIGH_INCL) w(field(r.QOF_MASK_ID_HIGH, n[4], 2), field(r.CODE_CHAN_HIGH, n[5], 11));
}

struct Am4ChRecord {
  u8 FPC_FCH_INIT_SETPT, FPC_DCCH_INIT_SETPT, FPC_PRI_CHAN, FPC_FCH_FER, FPC_FCH_MIN_SETPT, FPC_FCH_MAX_SETPT;
  u8 FPC_DCCH_FER, FPC_DCCH_MIN_SETPT, FPC_DCCH_MAX_SETPT;
  PoolArray<Am4PilotRec> PILOT_RECs;
  u8 X3_FCH_INFO_INCL;
  PoolArray<X3ChanRec> X3_FCH_RECs;
  u8 X3_DCCH_INFO_INCL;
  PoolArray<X3ChanRec> X3_DCCH_RECs;
};
// CH_IND and NUM_PILOTS come from the mode record.
struct Am4Ctx : Ctx {
  u8 ch_ind, num_pilots;
};

// Release A closes the channel record with the 3X code channels of every pilot: first those of
// the fundamental channel, then those of the dedicated control channel, each under its flag.
template <class W>
void x3_channels(W& w, u8& incl, const char* incl_name, PoolArray<X3ChanRec>& recs, const char* label, bool dcch,
                 const Am4Ctx& c) {
  w(field(incl, incl_name, 1));
  if (!incl) return;
  const X3Ctx xc{c, dcch};
  w.records(label, recs, c.num_pilots + 1u, xc);
}

template <class W>
void layout(W& w, Am4ChRecord& r, const Am4Ctx& c) {
  switch (c.ch_ind) {
    case 1:
      w(F(FPC_FCH_INIT_SETPT, 8), F(FPC_FCH_FER, 5), F(FPC_FCH_MIN_SETPT, 8), F(FPC_FCH_MAX_SETPT, 8));
      break;
    case 2:
      w(F(FPC_DCCH_INIT_SETPT, 8), F(FPC_DCCH_FER, 5), F(FPC_DCCH_MIN_SETPT, 8), F(FPC_DCCH_MAX_SETPT, 8));
      break;
    case 3:
      w(F(FPC_FCH_INIT_SETPT, 8), F(FPC_DCCH_INIT_SETPT, 8), F(FPC_PRI_CHAN, 1), F(FPC_FCH_FER, 5),
        F(FPC_FCH_MIN_SETPT, 8), F(FPC_FCH_MAX_SETPT, 8), F(FPC_DCCH_FER, 5), F(FPC_DCCH_MIN_SETPT, 8),
        F(FPC_DCCH_MAX_SETPT, 8));
      break;
    default:
      return;   // '00' assigns no fundicated channel here
  }
  const ChIndCtx pc{c, c.ch_ind};
  w.records("PILOT_RECs", r.PILOT_RECs, c.num_pilots + 1u, pc);
  if (c.p_rev < 7) return;
  if (c.ch_ind & 1) x3_channels(w, r.X3_FCH_INFO_INCL, "3X_FCH_INFO_INCL", r.X3_FCH_RECs, "3X_FCH_RECs", false, c);
  if (c.ch_ind & 2) x3_channels(w, r.X3_DCCH_INFO_INCL, "3X_DCCH_INFO_INCL", r.X3_DCCH_RECs, "3X_DCCH_RECs", true, c);
}

// Fields shared by modes '100' and '101'.

template <class W, class R>
void frequency(W& w, R& r) {
  w(F(FREQ_INCL, 1));
  if (r.FREQ_INCL) w(F(BAND_CLASS, 5), F(CDMA_FREQ, 11));
}

// GRANTED_MODE '11' (from P_REV 9) restores a stored service configuration: the service to
// restore follows, and SR_ID_RESTORE '111' restores the services of a bitmap instead.
constexpr u8 kGrantRestore = 3;
constexpr u8 kSrIdRestoreBitmap = 7;
template <class R>
bool restores(const R& r, const Ctx& c) {
  return c.p_rev >= 9 && r.GRANTED_MODE == kGrantRestore;
}
template <class W, class R>
void bypass_grant_restore(W& w, R& r, const Ctx& c) {
  w(F(BYPASS_ALERT_ANSWER, 1), F(GRANTED_MODE, 2));
  if (!restores(r, c)) return;
  w(F(SR_ID_RESTORE, 3));
  if (r.SR_ID_RESTORE == kSrIdRestoreBitmap) w(F(SR_ID_RESTORE_BITMAP, 6));
}

// The synchronisation identifier of the restored service configuration, and the fields of a
// direct channel assignment, sent without a preceding origination or page response: the
// overhead sequence the mobile must hold, its initial reverse power, whether it answers, and
// the preamble it sends.
template <class W, class R>
void assignment_tail(W& w, R& r, const EcamCtx& c) {
  if (restores(r, c)) {
    w(F(SYNC_ID_INCL, 1));
    if (r.SYNC_ID_INCL) {
      w(F(SYNC_ID_LEN, 4));
      if (r.SYNC_ID_LEN != 0) w(F(SYNC_ID, r.SYNC_ID_LEN * 8u));
    }
  }
  if (c.p_rev < 10 || !c.direct_ch_assign_ind) return;
  w(F(CONFIG_MSG_SEQ, 6), F(RTC_NOM_PWR, 5), F(RESPOND_IND, 1), F(DIRECT_CH_ASSIGN_RECOVER_IND, 1),
    F(FIXED_PREAMBLE_TRANSMIT_IND, 1));
  if (r.FIXED_PREAMBLE_TRANSMIT_IND) w(F(NUM_PREAMBLE, 3));
}

struct EcamTrafficIs2000 {   // '100'
  u8 FREQ_INCL, BAND_CLASS;
  u16 CDMA_FREQ;
  u8 BYPASS_ALERT_ANSWER, GRANTED_MODE, SR_ID_RESTORE, SR_ID_RESTORE_BITMAP, DEFAULT_CONFIG, FOR_RC, REV_RC;
  u8 FRAME_OFFSET, ENCRYPT_MODE, FPC_SUBCHAN_GAIN, RLGAIN_ADJ, NUM_PILOTS, CH_IND, CH_RECORD_LEN;
  Am4ChRecord CH_RECORD_FIELDS;
  u8 REV_FCH_GATING_MODE, REV_PWR_CNTL_DELAY_INCL, REV_PWR_CNTL_DELAY;
  u8 D_SIG_ENCRYPT_MODE, ENC_KEY_SIZE, C_SIG_ENCRYPT_MODE_INCL, C_SIG_ENCRYPT_MODE;
  u8 F3XFL_1XRL_INCL, F1XRL_FREQ_OFFSET;
  u8 MSG_INT_INFO_INCL, CHANGE_KEYS, USE_UAK, PLCM_TYPE_INCL, PLCM_TYPE;
  Bytes PLCM_39;
  u8 SYNC_ID_INCL, SYNC_ID_LEN;
  Bytes SYNC_ID;
  u8 CONFIG_MSG_SEQ, RTC_NOM_PWR, RESPOND_IND, DIRECT_CH_ASSIGN_RECOVER_IND, FIXED_PREAMBLE_TRANSMIT_IND, NUM_PREAMBLE;
  u8 EARLY_RL_TRANSMIT_IND, TX_PWR_LIMIT_INCL, TX_PWR_LIMIT;
};
template <class W>
void layout(W& w, EcamTrafficIs2000& r, const EcamCtx& c) {
  frequency(w, r);
  bypass_grant_restore(w, r, c);
  w(F(DEFAULT_CONFIG, 3), F(FOR_RC, 5), F(REV_RC, 5), F(FRAME_OFFSET, 4), F(ENCRYPT_MODE, 2), F(FPC_SUBCHAN_GAIN, 5),
    F(RLGAIN_ADJ, 4), F(NUM_PILOTS, 3), F(CH_IND, 2), F(CH_RECORD_LEN, 5));
  const Am4Ctx mc{c, r.CH_IND, r.NUM_PILOTS};
  w.sized("CH_RECORD_FIELDS", r.CH_RECORD_FIELDS, r.CH_RECORD_LEN * 8u, mc);
  fwd::rev_fch_gating(w, r);
  encryption_fields(w, r, c);
  if (c.p_rev >= 7) {
    // A 3X forward link may pair with a 1X reverse link on one of its three carriers.
    w(F(F3XFL_1XRL_INCL, 1));
    if (r.F3XFL_1XRL_INCL) w(F(F1XRL_FREQ_OFFSET, 2));
  }
  integrity_and_plcm_fields(w, r, c);
  assignment_tail(w, r, c);
  if (c.p_rev < 11) return;
  w(F(EARLY_RL_TRANSMIT_IND, 1));
  // Release E also caps the mobile's transmit power on the assigned channel.
  fwd::tx_pwr_limit(w, r);
}

// ---------------------------------------------------------------------------------------------
// Mode '101' (from P_REV 9), the packet data channel assignment: a forward packet data channel,
// optionally with fundamental or dedicated control channels, chosen by EXT_CH_IND.

// The channels of EXT_CH_IND (C.S0005 table of extended channel indicators) beside the forward
// packet data channel. Release C defines 1 to 6: 1 CPCCH / FCH, 2 CPCCH / DCCH, 3 FCH / FCH,
// 4 DCCH / DCCH, 5 FCH / FCH+DCCH, 6 FCH+DCCH / FCH+DCCH (forward / reverse). Release D adds the
// reverse packet data channel and the remaining combinations, 8 to 22; 7 and 23 on are reserved.
struct ExtChInd {
  bool for_fch, for_dcch, rev_fch, rev_dcch, cpcch, rev_pdch;
};
constexpr ExtChInd ext_ch_ind(unsigned v, std::uint8_t p_rev) {
  //                 F-FCH  F-DCCH R-FCH  R-DCCH CPCCH  R-PDCH
  switch (v) {
    case 1: return {false, false, true, false, true, false};
    case 2: return {false, false, false, true, true, false};
    case 3: return {true, false, true, false, false, false};
    case 4: return {false, true, false, true, false, false};
    case 5: return {true, false, true, true, false, false};
    case 6: return {true, true, true, true, false, false};
    default: break;
  }
  if (p_rev < 10) return {false, false, false, false, false, false};
  switch (v) {
    case 8: return {false, false, false, false, true, true};
    case 9: return {false, false, true, false, true, true};
    case 10: return {false, false, false, true, true, true};
    case 11: return {true, false, true, false, false, true};
    case 12: return {false, true, false, true, false, true};
    case 13: return {true, false, true, true, false, true};
    case 14: return {true, true, true, true, false, true};
    case 15: return {true, true, false, true, false, false};
    case 16: return {false, true, false, true, true, false};
    case 17: return {true, true, false, true, true, false};
    case 18: return {true, true, true, true, true, false};
    case 19: return {true, true, false, true, false, true};
    case 20: return {false, true, false, true, true, true};
    case 21: return {true, true, false, true, true, true};
    case 22: return {true, true, true, true, true, true};
    default: return {false, false, false, false, false, false};
  }
}

struct PdcchRec {   // one packet data control channel of a pilot
  u8 FOR_PDCCH_WALSH;
};
template <class W>
void layout(W& w, PdcchRec& r, const Ctx&) {
  w(F(FOR_PDCCH_WALSH, 6));
}

struct Am5PilotRec {
  u16 PILOT_PN;
  u8 ADD_PILOT_REC_INCL, PILOT_REC_TYPE, RECORD_LEN;
  fwd::AddPilotRec ADD_PILOT_REC;
  u8 FOR_PDCH_INCL, WALSH_TABLE_ID, NUM_PDCCH;
  PoolArray<PdcchRec> PDCCH_RECs;
  u8 MAC_ID, REV_CQICH_COVER, FOR_CPCCH_WALSH, FOR_CPCSCH, PWR_COMB_IND, PDCH_GROUP_IND;
  u16 CODE_CHAN_FCH;
  u8 QOF_MASK_ID_FCH;
  u16 CODE_CHAN_DCCH;
  u8 QOF_MASK_ID_DCCH;
};
// What a pilot record needs from its mode record.
struct Am5Ctx : Ctx {
  u8 ext_ch_ind, for_pdch_params_incl, pdch_group_ind_incl;
};
template <class W>
void layout(W& w, Am5PilotRec& r, const Am5Ctx& c) {
  const ExtChInd ch = ext_ch_ind(c.ext_ch_ind, c.p_rev);
  pilot_head(w, r, c);
  w(F(FOR_PDCH_INCL, 1));
  if (r.FOR_PDCH_INCL) {
    // The control channel Walsh codes come with the forward packet data channel parameters.
    if (c.for_pdch_params_incl) {
      w(F(WALSH_TABLE_ID, 3), F(NUM_PDCCH, 3));
      // The control channel records need only the revision arguments.
      const Ctx& base = c;
      if (!w.records("PDCCH_RECs", r.PDCCH_RECs, r.NUM_PDCCH + 1u, base)) return;
    }
    w(F(MAC_ID, 8), F(REV_CQICH_COVER, 3));
    if (ch.cpcch) {   // reverse power control through the common power control channel
      w(F(FOR_CPCCH_WALSH, 7), F(FOR_CPCSCH, 5));
    }
  }
  w(F(PWR_COMB_IND, 1));
  if (c.pdch_group_ind_incl) w(F(PDCH_GROUP_IND, 1));
  if (ch.for_fch) w(F(CODE_CHAN_FCH, 11), F(QOF_MASK_ID_FCH, 2));
  if (ch.for_dcch) w(F(CODE_CHAN_DCCH, 11), F(QOF_MASK_ID_DCCH, 2));
}

struct EcamPacketData {   // '101'
  u8 FREQ_INCL, BAND_CLASS;
  u16 CDMA_FREQ;
  u8 BYPASS_ALERT_ANSWER, GRANTED_MODE, SR_ID_RESTORE, SR_ID_RESTORE_BITMAP, FRAME_OFFSET, ENCRYPT_MODE;
  u8 D_SIG_ENCRYPT_MODE, ENC_KEY_SIZE, C_SIG_ENCRYPT_MODE_INCL, C_SIG_ENCRYPT_MODE;
  u8 MSG_INT_INFO_INCL, CHANGE_KEYS, USE_UAK, PLCM_TYPE_INCL, PLCM_TYPE;
  Bytes PLCM_39;
  u8 RLGAIN_ADJ, NUM_PILOTS, EXT_CH_IND, FPC_SUBCHAN_GAIN;
  u8 REV_FCH_GATING_MODE, REV_PWR_CNTL_DELAY_INCL, REV_PWR_CNTL_DELAY;
  u8 FULL_CI_FEEDBACK_IND, REV_CQICH_FRAME_OFFSET, REV_CQICH_REPS, REV_ACKCH_REPS, FOR_PDCH_RC, REV_PDCH_RC;
  u8 FOR_FCH_DCCH_RC, REV_FCH_DCCH_RC, FPC_PRI_CHAN;
  u8 FPC_FCH_INIT_SETPT, FPC_FCH_FER, FPC_FCH_MIN_SETPT, FPC_FCH_MAX_SETPT;
  u8 FPC_DCCH_INIT_SETPT, FPC_DCCH_FER, FPC_DCCH_MIN_SETPT, FPC_DCCH_MAX_SETPT;
  u8 PDCH_GROUP_IND_INCL, FOR_PDCH_PARAMS_INCL, FOR_PDCH_RLGAIN_INCL, RLGAIN_ACKCH_PILOT, RLGAIN_CQICH_PILOT;
  u8 NUM_SOFT_SWITCHING_FRAMES, NUM_SOFTER_SWITCHING_FRAMES, NUM_SOFT_SWITCHING_SLOTS, NUM_SOFTER_SWITCHING_SLOTS;
  u8 CHM_SWITCHING_PARMS_INCL, NUM_SOFT_SWITCHING_FRAMES_CHM, NUM_SOFTER_SWITCHING_FRAMES_CHM;
  u8 NUM_SOFT_SWITCHING_SLOTS_CHM, NUM_SOFTER_SWITCHING_SLOTS_CHM;
  u8 PDCH_SOFT_SWITCHING_DELAY, PDCH_SOFTER_SWITCHING_DELAY;
  PoolArray<Am5PilotRec> PILOT_RECs;
  u8 SYNC_ID_INCL, SYNC_ID_LEN;
  Bytes SYNC_ID;
  u8 CONFIG_MSG_SEQ, RTC_NOM_PWR, RESPOND_IND, DIRECT_CH_ASSIGN_RECOVER_IND, FIXED_PREAMBLE_TRANSMIT_IND, NUM_PREAMBLE;
};

// Outer loop set points of one channel: initial, target frame error rate, minimum, maximum.
template <class W>
void set_points(W& w, u8& init, u8& fer, u8& min, u8& max, bool dcch) {
  w(field(init, dcch ? "FPC_DCCH_INIT_SETPT" : "FPC_FCH_INIT_SETPT", 8),
    field(fer, dcch ? "FPC_DCCH_FER" : "FPC_FCH_FER", 5),
    field(min, dcch ? "FPC_DCCH_MIN_SETPT" : "FPC_FCH_MIN_SETPT", 8),
    field(max, dcch ? "FPC_DCCH_MAX_SETPT" : "FPC_FCH_MAX_SETPT", 8));
}

template <class W>
void layout(W& w, EcamPacketData& r, const EcamCtx& c) {
  frequency(w, r);
  bypass_grant_restore(w, r, c);
  w(F(FRAME_OFFSET, 4), F(ENCRYPT_MODE, 2));
  encryption_fields(w, r, c);
  integrity_and_plcm_fields(w, r, c);
  w(F(RLGAIN_ADJ, 4), F(NUM_PILOTS, 3), F(EXT_CH_IND, 5));
  const ExtChInd ch = ext_ch_ind(r.EXT_CH_IND, c.p_rev);
  if (ch.for_fch || ch.for_dcch) {   // forward power control subchannel on a fundicated channel
    w(F(FPC_SUBCHAN_GAIN, 5));
  }
  if (ch.rev_fch) fwd::rev_fch_gating(w, r);
  w(F(FULL_CI_FEEDBACK_IND, 1));
  // Release D follows with the rate and update rate of the common power control channel when
  // one is assigned. Their widths are not decoded here, so the record is refused (result 1)
  // before them rather than read the channel quality fields from the wrong bits.
  if (c.p_rev >= 10 && ch.cpcch) {
    (void)w.reject(Rc::count);
    return;
  }
  w(F(REV_CQICH_FRAME_OFFSET, 4), F(REV_CQICH_REPS, 2), F(REV_ACKCH_REPS, 2), F(FOR_PDCH_RC, 5));
  if (ch.rev_pdch) {   // Release D: the reverse packet data channel's radio configuration
    w(F(REV_PDCH_RC, 5));
  }
  if (ch.for_fch || ch.for_dcch) w(F(FOR_FCH_DCCH_RC, 5));
  if (ch.rev_fch || ch.rev_dcch) w(F(REV_FCH_DCCH_RC, 5));
  if (ch.for_fch && ch.for_dcch) w(F(FPC_PRI_CHAN, 1));
  if (ch.for_fch) set_points(w, r.FPC_FCH_INIT_SETPT, r.FPC_FCH_FER, r.FPC_FCH_MIN_SETPT, r.FPC_FCH_MAX_SETPT, false);
  if (ch.for_dcch)
    set_points(w, r.FPC_DCCH_INIT_SETPT, r.FPC_DCCH_FER, r.FPC_DCCH_MIN_SETPT, r.FPC_DCCH_MAX_SETPT, true);
  w(F(PDCH_GROUP_IND_INCL, 1), F(FOR_PDCH_PARAMS_INCL, 1));
  if (r.FOR_PDCH_PARAMS_INCL) fwd::pdch_switching(w, r);
  // Release D puts the transmitter-disabled timer, the forward grant, rate control and
  // acknowledgment channels and the reverse packet data channel parameters here. The widths of
  // TX_DISABLED_TIMER, FOR_RCCH_REPETITION, FOR_RCCH_UPDATE_RATE and FOR_ACKCH_MODE are not
  // decoded: for P_REV 10 and later the record is refused (result 1) at this point, after
  // everything before it was shown, rather than read the pilots from the wrong bits.
  if (c.p_rev >= 10) {
    (void)w.reject(Rc::count);
    return;
  }
  const Am5Ctx pc{c, r.EXT_CH_IND, r.FOR_PDCH_PARAMS_INCL, r.PDCH_GROUP_IND_INCL};
  w.records("PILOT_RECs", r.PILOT_RECs, r.NUM_PILOTS + 1u, pc);
  assignment_tail(w, r, c);
}

// ---------------------------------------------------------------------------------------------

struct FC_ECAM {
  u8 ASSIGN_MODE, ADD_RECORD_LEN, DIRECT_CH_ASSIGN_IND, RESERVED_2;
  EcamTraffic m000;
  EcamPaging m001;
  AnalogControl m010;
  AnalogVoice m011;
  EcamTrafficIs2000 m100;
  EcamPacketData m101;
};

template <class W>
void layout(W& w, FC_ECAM& r, const Ctx& c) {
  // IS-95B moved the record length in front of the mode.
  if (c.p_rev < 5) {
    w(F(ASSIGN_MODE, 3), F(ADD_RECORD_LEN, 8));
  } else {
    w(F(ADD_RECORD_LEN, 8), F(ASSIGN_MODE, 3));
  }
  const bool is2000_traffic = r.ASSIGN_MODE == 4 || r.ASSIGN_MODE == 5;
  if (c.p_rev >= 11 && is2000_traffic) w(F(DIRECT_CH_ASSIGN_IND, 1), F(RESERVED_2, 4));
  // Only a P_REV 11 header carries the indicator; the printer re-tests what the reader saw.
  const EcamCtx ec{c, static_cast<u8>(c.p_rev >= 11 && is2000_traffic ? r.DIRECT_CH_ASSIGN_IND : 0)};
  switch (r.ASSIGN_MODE) {
    case 0: w.sub("ECAM_ASSIGN_MODE_000", r.m000, c); break;
    case 1: w.sub("ECAM_ASSIGN_MODE_001", r.m001, c); break;
    case 2: w.sub("ECAM_ASSIGN_MODE_010", r.m010, c); break;
    case 3: w.sub("ECAM_ASSIGN_MODE_011", r.m011, c); break;
    case 4: w.sub("ECAM_ASSIGN_MODE_100", r.m100, ec); break;
    case 5:   // the packet data channel assignment came with P_REV 9; before it '101' is reserved
      if (c.p_rev >= 9) w.sub("ECAM_ASSIGN_MODE_101", r.m101, ec);
      break;
    default: break;
  }
}

}  // namespace

Rows paging_assign_rows() {
  static constexpr MessageRow rows[] = {
      {8, "CAM", body_ops<FC_CAM>(), kCamPdu, kAssignSdu},
      {21, "ECAM", body_ops<FC_ECAM>(), kEcamPdu, kAssignSdu},
  };
  return rows;
}

}  // namespace cs
