// Access channel messages that set up or announce the mobile station (C.S0005 2.7.1.3.2):
// Registration, Origination and Page Response, and the Reconnect Message.
//
// The bodies grew with every revision; each group below is read from the P_REV in use at
// which it arrived (IS-95B 4, Release 0 6, A 7, B 8, C 9, E 11, F 12).
#include "layout/layout.h"
#include "records/reverse_info_records.h"
#include "rev_access/tables.h"

namespace cs {
namespace {

using u8 = std::uint8_t;
using u16 = std::uint16_t;
using u32 = std::uint32_t;

// The FCH and DCCH capability groups behind their inclusion flags.
template <class W, class R>
void fch_dcch(W& w, R& r) {
  w(F(FCH_SUPPORTED, 1));
  if (r.FCH_SUPPORTED) fch_capability(w, r);
  w(F(DCCH_SUPPORTED, 1));
  if (r.DCCH_SUPPORTED) dcch_capability(w, r);
}

// Release A signalling encryption request: the algorithms supported, the requests, the
// crypto-sync seed when an enhanced algorithm (ECMEA or REA, the second and third bits of
// SIG_ENCRYPT_SUP) is offered, and user-information encryption.
template <class W, class R>
void enc_info(W& w, R& r) {
  w(F(ENC_INFO_INCL, 1));
  if (!r.ENC_INFO_INCL) return;
  w(F(SIG_ENCRYPT_SUP, 8), F(D_SIG_ENCRYPT_REQ, 1), F(C_SIG_ENCRYPT_REQ, 1));
  if (r.SIG_ENCRYPT_SUP & 0x60) w(F(NEW_SSEQ_H, 24), F(NEW_SSEQ_H_SIG, 8));
  w(F(UI_ENCRYPT_REQ, 1), F(UI_ENCRYPT_SUP, 8));
}

template <class W, class R>
void sync_id(W& w, R& r) {
  w(F(SYNC_ID_INCL, 1));
  if (!r.SYNC_ID_INCL) return;
  w(F(SYNC_ID_LEN, 4));
  if (r.SYNC_ID_LEN) w(F(SYNC_ID, 8u * r.SYNC_ID_LEN));
}

template <class W, class R>
void so_bitmap(W& w, R& r) {
  w(F(SO_BITMAP_IND, 2));
  // A bitmap of 4, 8 or 16 service options of the group.
  if (r.SO_BITMAP_IND) w(F(SO_GROUP_NUM, 5), F(SO_BITMAP, 2u << r.SO_BITMAP_IND));
}

// Release C message integrity request: the algorithms supported, the key and the sequence
// number seed.
template <class W, class R>
void msg_int_info(W& w, R& r) {
  w(F(MSG_INT_INFO_INCL, 1));
  if (!r.MSG_INT_INFO_INCL) return;
  w(F(SIG_INTEGRITY_SUP_INCL, 1));
  if (r.SIG_INTEGRITY_SUP_INCL) w(F(SIG_INTEGRITY_SUP, 8), F(SIG_INTEGRITY_REQ, 3));
  w(F(NEW_KEY_ID, 2), F(NEW_SSEQ_H_INCL, 1));
  if (r.NEW_SSEQ_H_INCL) w(F(NEW_SSEQ_H, 24), F(NEW_SSEQ_H_SIG, 8));
}

// Release C packet data channel support, and the extended channel indicator that stands in
// for CH_IND 0.
template <class W, class R>
void for_pdch(W& w, R& r) {
  w(F(FOR_PDCH_SUPPORTED, 1));
  if (r.FOR_PDCH_SUPPORTED) for_pdch_capability(w, r);
  if (r.CH_IND == 0) w(F(EXT_CH_IND, 5));
}

// --- Release E groups --------------------------------------------------------------------

// BCMC flows and programs the mobile station asks for (Origination) or answers a page for
// (Page Response). A program lists its flows when BCMC_FLOW_DISCRIMINATOR_LEN is non-zero
// (NUM_FLOW_DISCRIMINATOR + 1 of them), else it is one flow; each flow may carry a preference
// and an authentication signature. The counts are sent less one.
struct BcmcCtx : Ctx {
  u8 pref_incl;       // BCMC_PREF_INCL of the page response
  u8 auth_sig_incl;   // AUTH_SIGNATURE_INCL
  u8 flow_len;        // the program's BCMC_FLOW_DISCRIMINATOR_LEN
};

struct BcmcFlow {
  u8 BCMC_FLOW_DISCRIMINATOR, BCMC_PREF, AUTH_SIGNATURE_IND, AUTH_SIGNATURE_SAME_IND, BAK_ID;
  u32 AUTH_SIGNATURE;
};
template <class W>
void layout(W& w, BcmcFlow& r, const BcmcCtx& c) {
  if (c.flow_len) w(F(BCMC_FLOW_DISCRIMINATOR, c.flow_len));
  if (c.pref_incl) w(F(BCMC_PREF, 1));
  if (!c.auth_sig_incl) return;
  w(F(AUTH_SIGNATURE_IND, 1));
  if (!r.AUTH_SIGNATURE_IND) return;
  w(F(AUTH_SIGNATURE_SAME_IND, 1));
  if (!r.AUTH_SIGNATURE_SAME_IND) w(F(BAK_ID, 4), F(AUTH_SIGNATURE, 32));
}

struct BcmcProgram {
  u8 BCMC_PROGRAM_ID_LEN;
  u32 BCMC_PROGRAM_ID;
  u8 BCMC_FLOW_DISCRIMINATOR_LEN, NUM_FLOW_DISCRIMINATOR;
  PoolArray<BcmcFlow> BCMC_FLOWS;
};
template <class W>
void layout(W& w, BcmcProgram& r, const BcmcCtx& c) {
  w(F(BCMC_PROGRAM_ID_LEN, 5));
  w(F(BCMC_PROGRAM_ID, r.BCMC_PROGRAM_ID_LEN + 1u), F(BCMC_FLOW_DISCRIMINATOR_LEN, 3));
  std::uint32_t flows = 1;
  if (r.BCMC_FLOW_DISCRIMINATOR_LEN) {
    w(F(NUM_FLOW_DISCRIMINATOR, r.BCMC_FLOW_DISCRIMINATOR_LEN));
    flows = r.NUM_FLOW_DISCRIMINATOR + 1u;
  }
  BcmcCtx fc = c;
  fc.flow_len = r.BCMC_FLOW_DISCRIMINATOR_LEN;
  w.records("BCMC_FLOWS", r.BCMC_FLOWS, flows, fc);
}

template <class W, class R>
void bcmc_fields(W& w, R& r, const Ctx& c, bool orig_only_ind, u8 pref_incl) {
  if (orig_only_ind) w(F(BCMC_ORIG_ONLY_IND, 1));
  w(F(FUNDICATED_BCMC_SUPPORTED, 1));
  if (r.FUNDICATED_BCMC_SUPPORTED) {
    w(F(FUNDICATED_BCMC_CH_SUP_MAP_LEN, 2));
    w(F(FUNDICATED_BCMC_CH_SUP_MAP, 3u * (r.FUNDICATED_BCMC_CH_SUP_MAP_LEN + 1u)));
  }
  w(F(AUTH_SIGNATURE_INCL, 1));
  if (r.AUTH_SIGNATURE_INCL) {
    w(F(TIME_STAMP_SHORT_LENGTH, 8));
    if (r.TIME_STAMP_SHORT_LENGTH) w(F(TIME_STAMP_SHORT, r.TIME_STAMP_SHORT_LENGTH));
  }
  w(F(NUM_BCMC_PROGRAMS, 3));
  BcmcCtx bc{c};
  bc.pref_incl = pref_incl;
  bc.auth_sig_incl = r.AUTH_SIGNATURE_INCL;
  bc.flow_len = 0;
  w.records("BCMC_PROGRAMS", r.BCMC_PROGRAMS, r.NUM_BCMC_PROGRAMS + 1u, bc);
}

// Reverse packet data channel support (offered only beside forward packet data support).
template <class W, class R>
void rev_pdch(W& w, R& r) {
  if (!r.FOR_PDCH_SUPPORTED) return;
  w(F(REV_PDCH_SUPPORTED, 1));
  if (!r.REV_PDCH_SUPPORTED) return;
  w(F(REV_PDCH_LEN, 2));
  w(F(REV_PDCH_RC_MAP, 3u * (r.REV_PDCH_LEN + 1u)), F(REV_PDCH_CH_CONFIG_SUP_MAP_LEN, 2));
  w(F(REV_PDCH_CH_CONFIG_SUP_MAP, 3u * (r.REV_PDCH_CH_CONFIG_SUP_MAP_LEN + 1u)),
    F(REV_PDCH_MAX_SIZE_SUPPORTED_ENCODER_PACKET, 2));
}

// One bit per band subclass of the band class in use.
template <class W, class R>
void band_subclasses(W& w, R& r) {
  w(F(BAND_SUB_REP_INCL, 1));
  if (!r.BAND_SUB_REP_INCL) return;
  w(F(NUM_BAND_SUBCLASS, 4));
  w.scalars("BAND_SUBCLASS_SUP", r.BAND_SUBCLASS_SUP, r.NUM_BAND_SUBCLASS, 1);
}

// Release E additional service instances of an origination: with SYNC_ID the stored
// configuration names the service, otherwise each instance brings its own option and QoS.
struct AddServCtx : Ctx {
  u8 sync_id_incl;
};
struct AddServInstance {
  u8 ADD_SR_ID, ADD_DRS, ADD_SERVICE_OPTION_INCL;
  u16 ADD_SERVICE_OPTION;
  u8 ADD_QOS_PARMS_INCL, ADD_QOS_PARMS_LEN;
  Bytes ADD_QOS_PARMS;
};
template <class W>
void layout(W& w, AddServInstance& r, const AddServCtx& c) {
  w(F(ADD_SR_ID, 3), F(ADD_DRS, 1));
  if (c.sync_id_incl) return;
  w(F(ADD_SERVICE_OPTION_INCL, 1));
  if (r.ADD_SERVICE_OPTION_INCL) w(F(ADD_SERVICE_OPTION, 16));
  w(F(ADD_QOS_PARMS_INCL, 1));
  if (!r.ADD_QOS_PARMS_INCL) return;
  w(F(ADD_QOS_PARMS_LEN, 5));
  if (r.ADD_QOS_PARMS_LEN) w(F(ADD_QOS_PARMS, 8u * r.ADD_QOS_PARMS_LEN));
}

// Members of the Release E groups, shared by the Origination and Page Response bodies.
struct ReleaseEFields {
  u8 SIGN_SLOT_CYCLE_INDEX, BCMC_INCL, BCMC_PREF_INCL, BCMC_ORIG_ONLY_IND;
  u8 FUNDICATED_BCMC_SUPPORTED, FUNDICATED_BCMC_CH_SUP_MAP_LEN;
  u16 FUNDICATED_BCMC_CH_SUP_MAP;
  u8 AUTH_SIGNATURE_INCL, TIME_STAMP_SHORT_LENGTH;
  Bytes TIME_STAMP_SHORT;
  u8 NUM_BCMC_PROGRAMS;
  PoolArray<BcmcProgram> BCMC_PROGRAMS;
  u8 REV_PDCH_SUPPORTED, REV_PDCH_LEN;
  u16 REV_PDCH_RC_MAP;
  u8 REV_PDCH_CH_CONFIG_SUP_MAP_LEN;
  u16 REV_PDCH_CH_CONFIG_SUP_MAP;
  u8 REV_PDCH_MAX_SIZE_SUPPORTED_ENCODER_PACKET;
  u8 BAND_SUB_REP_INCL, NUM_BAND_SUBCLASS;
  PoolArray<u8> BAND_SUBCLASS_SUP;
};

// --- 2.7.1.3.2.1 Registration Message ------------------------------------------------------
struct RC_RGM {
  u8 REG_TYPE, SLOT_CYCLE_INDEX, MOB_P_REV, SCM, MOB_TERM, RETURN_CAUSE;
  u8 QPCH_SUPPORTED, ENHANCED_RC, UZID_INCL;
  u16 UZID;
  u8 GEO_LOC_INCL, GEO_LOC_TYPE;
};
template <class W>
void layout(W& w, RC_RGM& r, const Ctx& c) {
  // Each field checks itself: a registration often ends in the last octets before the CRC,
  // and what fits is shown.
  w(F(REG_TYPE, 4));
  w(F(SLOT_CYCLE_INDEX, 3));
  w(F(MOB_P_REV, 8));
  w(F(SCM, 8));
  w(F(MOB_TERM, 1));
  if (c.p_rev >= 4) w(F(RETURN_CAUSE, 4));
  if (c.p_rev >= 6) {
    w(F(QPCH_SUPPORTED, 1), F(ENHANCED_RC, 1), F(UZID_INCL, 1));
    if (r.UZID_INCL) w(F(UZID, 16));
  }
  if (c.p_rev >= 7) {
    w(F(GEO_LOC_INCL, 1));
    if (r.GEO_LOC_INCL) w(F(GEO_LOC_TYPE, 3));
  }
  // No public source gives the registration fields Release B and later add after
  // GEO_LOC_TYPE: refused after what was read rather than guessed.
  if (c.p_rev >= 8) w.reject(Rc::count);
}

// --- 2.7.1.3.2.4 Origination Message -------------------------------------------------------
struct RC_ORM : ReleaseEFields {
  u8 MOB_TERM, SLOT_CYCLE_INDEX, MOB_P_REV, SCM, REQUEST_MODE, SPECIAL_SERVICE;
  u16 SERVICE_OPTION;
  u8 PM, DIGIT_MODE, NUMBER_TYPE, NUMBER_PLAN, MORE_FIELDS, NUM_FIELDS;
  PoolArray<u8> CHARi;
  u8 NAR_AN_CAP, PACA_REORIG, RETURN_CAUSE, MORE_RECORDS;
  u8 ENCRYPTION_SUPPORTED, PACA_SUPPORTED, NUM_ALT_SO;
  PoolArray<u16> ALT_SO;
  u8 DRS, UZID_INCL;
  u16 UZID;
  u8 CH_IND, SR_ID, OTD_SUPPORTED, QPCH_SUPPORTED, ENHANCED_RC, FOR_RC_PREF, REV_RC_PREF;
  u8 FCH_SUPPORTED, FCH_FRAME_SIZE, FOR_FCH_LEN, REV_FCH_LEN;
  u32 FOR_FCH_RC_MAP, REV_FCH_RC_MAP;
  u8 DCCH_SUPPORTED, DCCH_FRAME_SIZE, FOR_DCCH_LEN, REV_DCCH_LEN;
  u32 FOR_DCCH_RC_MAP, REV_DCCH_RC_MAP;
  u8 GEO_LOC_INCL, GEO_LOC_TYPE, REV_FCH_GATING_REQ;
  u8 ORIG_REASON, ORIG_COUNT, STS_SUPPORTED, CCH_3X_SUPPORTED, WLL_INCL, WLL_DEVICE_TYPE;
  u8 GLOBAL_EMERGENCY_CALL, MS_INIT_POS_LOC_IND, QOS_PARMS_INCL, QOS_PARMS_LEN;
  Bytes QOS_PARMS;
  u8 ENC_INFO_INCL, SIG_ENCRYPT_SUP, D_SIG_ENCRYPT_REQ, C_SIG_ENCRYPT_REQ;
  u32 NEW_SSEQ_H;
  u8 NEW_SSEQ_H_SIG, UI_ENCRYPT_REQ, UI_ENCRYPT_SUP;
  u8 SYNC_ID_INCL, SYNC_ID_LEN;
  Bytes SYNC_ID;
  u8 PREV_SID_INCL;
  u16 PREV_SID;
  u8 PREV_NID_INCL;
  u16 PREV_NID;
  u8 PREV_PZID_INCL, PREV_PZID, SO_BITMAP_IND, SO_GROUP_NUM;
  u16 SO_BITMAP;
  u8 SDB_DESIRED_ONLY, ALT_BAND_CLASS_SUP;
  u8 MSG_INT_INFO_INCL, SIG_INTEGRITY_SUP_INCL, SIG_INTEGRITY_SUP, SIG_INTEGRITY_REQ, NEW_KEY_ID, NEW_SSEQ_H_INCL;
  u8 FOR_PDCH_SUPPORTED, ACK_DELAY, NUM_ARQ_CHAN, FOR_PDCH_LEN, CH_CONFIG_SUP_MAP_LEN;
  u16 FOR_PDCH_RC_MAP, CH_CONFIG_SUP_MAP;
  u8 EXT_CH_IND;
  u8 ADD_SERV_INSTANCE_INCL, NUM_ADD_SERV_INSTANCE;
  PoolArray<AddServInstance> ADD_SERV_INSTANCES;
  u8 ADD_GEO_LOC_INCL, ADD_GEO_LOC_TYPE_LEN_IND;
  u32 ADD_GEO_LOC_TYPE;
};
template <class W>
void layout(W& w, RC_ORM& r, const Ctx& c) {
  w(F(MOB_TERM, 1), F(SLOT_CYCLE_INDEX, 3), F(MOB_P_REV, 8), F(SCM, 8), F(REQUEST_MODE, 3), F(SPECIAL_SERVICE, 1));
  if (r.SPECIAL_SERVICE) w(F(SERVICE_OPTION, 16));
  w(F(PM, 1), F(DIGIT_MODE, 1));
  // From Release E the number type is sent with DTMF digits too.
  if (r.DIGIT_MODE || c.p_rev >= 11) w(F(NUMBER_TYPE, 3));
  if (r.DIGIT_MODE) w(F(NUMBER_PLAN, 4));
  w(F(MORE_FIELDS, 1), F(NUM_FIELDS, 8));
  // Dialled digits: 4-bit DTMF codes, or 8-bit ASCII when DIGIT_MODE is 1.
  w.scalars("CHARi", r.CHARi, r.NUM_FIELDS, r.DIGIT_MODE ? 8 : 4);
  w(F(NAR_AN_CAP, 1), F(PACA_REORIG, 1), F(RETURN_CAUSE, 4), F(MORE_RECORDS, 1));
  if (c.p_rev >= 4) {
    if (c.p_rev < 7 && c.auth_incl) w(F(ENCRYPTION_SUPPORTED, 4));
    w(F(PACA_SUPPORTED, 1), F(NUM_ALT_SO, 3));
    w.scalars("ALT_SO", r.ALT_SO, r.NUM_ALT_SO, 16);
  }
  if (c.p_rev >= 6) {
    w(F(DRS, 1), F(UZID_INCL, 1));
    if (r.UZID_INCL) w(F(UZID, 16));
    w(F(CH_IND, 2), F(SR_ID, 3), F(OTD_SUPPORTED, 1), F(QPCH_SUPPORTED, 1), F(ENHANCED_RC, 1),
      F(FOR_RC_PREF, 5), F(REV_RC_PREF, 5));
    fch_dcch(w, r);
    w(F(GEO_LOC_INCL, 1));
    if (r.GEO_LOC_INCL) w(F(GEO_LOC_TYPE, 3));
    w(F(REV_FCH_GATING_REQ, 1));
  }
  if (c.p_rev >= 7) {
    w(F(ORIG_REASON, 1), F(ORIG_COUNT, 2), F(STS_SUPPORTED, 1), field(r.CCH_3X_SUPPORTED, "3X_CCH_SUPPORTED", 1),
      F(WLL_INCL, 1));
    if (r.WLL_INCL) w(F(WLL_DEVICE_TYPE, 3));
    w(F(GLOBAL_EMERGENCY_CALL, 1));
    if (r.GLOBAL_EMERGENCY_CALL) w(F(MS_INIT_POS_LOC_IND, 1));
    w(F(QOS_PARMS_INCL, 1));
    if (r.QOS_PARMS_INCL) {
      w(F(QOS_PARMS_LEN, 5));
      if (r.QOS_PARMS_LEN) w(F(QOS_PARMS, 8u * r.QOS_PARMS_LEN));
    }
    enc_info(w, r);
    sync_id(w, r);
    w(F(PREV_SID_INCL, 1));
    if (r.PREV_SID_INCL) w(F(PREV_SID, 15));
    w(F(PREV_NID_INCL, 1));
    if (r.PREV_NID_INCL) w(F(PREV_NID, 16));
    w(F(PREV_PZID_INCL, 1));
    if (r.PREV_PZID_INCL) w(F(PREV_PZID, 8));
    so_bitmap(w, r);
  }
  if (c.p_rev >= 8) w(F(SDB_DESIRED_ONLY, 1), F(ALT_BAND_CLASS_SUP, 1));
  if (c.p_rev >= 9) {
    msg_int_info(w, r);
    for_pdch(w, r);
  }
  if (c.p_rev >= 11) {
    if (r.SLOT_CYCLE_INDEX != 0) w(F(SIGN_SLOT_CYCLE_INDEX, 1));
    // SR_ID 7 asks for no service instance of its own: no additional ones either.
    if (r.SR_ID != 7) {
      w(F(ADD_SERV_INSTANCE_INCL, 1));
      if (r.ADD_SERV_INSTANCE_INCL) {
        w(F(NUM_ADD_SERV_INSTANCE, 3));
        AddServCtx ac{c};
        ac.sync_id_incl = r.SYNC_ID_INCL;
        w.records("ADD_SERV_INSTANCES", r.ADD_SERV_INSTANCES, r.NUM_ADD_SERV_INSTANCE, ac);
      }
    }
    w(F(BCMC_INCL, 1));
    if (r.BCMC_INCL) bcmc_fields(w, r, c, true, 0);
    rev_pdch(w, r);
    band_subclasses(w, r);
  }
  if (c.p_rev >= 12) {
    w(F(ADD_GEO_LOC_INCL, 1));
    if (r.ADD_GEO_LOC_INCL) {
      w(F(ADD_GEO_LOC_TYPE_LEN_IND, 1));
      w(F(ADD_GEO_LOC_TYPE, r.ADD_GEO_LOC_TYPE_LEN_IND ? 24 : 16));
    }
  }
}

// --- 2.7.1.3.2.5 Page Response Message -----------------------------------------------------
struct RC_PRM : ReleaseEFields {
  u8 MOB_TERM, SLOT_CYCLE_INDEX, MOB_P_REV, SCM, REQUEST_MODE;
  u16 SERVICE_OPTION;
  u8 PM, NAR_AN_CAP, ENCRYPTION_SUPPORTED, NUM_ALT_SO;
  PoolArray<u16> ALT_SO;
  u8 UZID_INCL;
  u16 UZID;
  u8 CH_IND, OTD_SUPPORTED, QPCH_SUPPORTED, ENHANCED_RC, FOR_RC_PREF, REV_RC_PREF;
  u8 FCH_SUPPORTED, FCH_FRAME_SIZE, FOR_FCH_LEN, REV_FCH_LEN;
  u32 FOR_FCH_RC_MAP, REV_FCH_RC_MAP;
  u8 DCCH_SUPPORTED, DCCH_FRAME_SIZE, FOR_DCCH_LEN, REV_DCCH_LEN;
  u32 FOR_DCCH_RC_MAP, REV_DCCH_RC_MAP;
  u8 REV_FCH_GATING_REQ;
  u8 STS_SUPPORTED, CCH_3X_SUPPORTED, WLL_INCL, WLL_DEVICE_TYPE, HOOK_STATUS;
  u8 ENC_INFO_INCL, SIG_ENCRYPT_SUP, D_SIG_ENCRYPT_REQ, C_SIG_ENCRYPT_REQ;
  u32 NEW_SSEQ_H;
  u8 NEW_SSEQ_H_SIG, UI_ENCRYPT_REQ, UI_ENCRYPT_SUP;
  u8 SYNC_ID_INCL, SYNC_ID_LEN;
  Bytes SYNC_ID;
  u8 SO_BITMAP_IND, SO_GROUP_NUM;
  u16 SO_BITMAP;
  u8 ALT_BAND_CLASS_SUP;
  u8 MSG_INT_INFO_INCL, SIG_INTEGRITY_SUP_INCL, SIG_INTEGRITY_SUP, SIG_INTEGRITY_REQ, NEW_KEY_ID, NEW_SSEQ_H_INCL;
  u8 FOR_PDCH_SUPPORTED, ACK_DELAY, NUM_ARQ_CHAN, FOR_PDCH_LEN, CH_CONFIG_SUP_MAP_LEN;
  u16 FOR_PDCH_RC_MAP, CH_CONFIG_SUP_MAP;
  u8 EXT_CH_IND;
};
template <class W>
void layout(W& w, RC_PRM& r, const Ctx& c) {
  w(F(MOB_TERM, 1), F(SLOT_CYCLE_INDEX, 3), F(MOB_P_REV, 8), F(SCM, 8), F(REQUEST_MODE, 3),
    F(SERVICE_OPTION, 16), F(PM, 1), F(NAR_AN_CAP, 1));
  if (c.p_rev >= 4) {
    if (c.p_rev < 7 && c.auth_incl) w(F(ENCRYPTION_SUPPORTED, 4));
    w(F(NUM_ALT_SO, 3));
    w.scalars("ALT_SO", r.ALT_SO, r.NUM_ALT_SO, 16);
  }
  if (c.p_rev >= 6) {
    w(F(UZID_INCL, 1));
    if (r.UZID_INCL) w(F(UZID, 16));
    w(F(CH_IND, 2), F(OTD_SUPPORTED, 1), F(QPCH_SUPPORTED, 1), F(ENHANCED_RC, 1), F(FOR_RC_PREF, 5),
      F(REV_RC_PREF, 5));
    fch_dcch(w, r);
    w(F(REV_FCH_GATING_REQ, 1));
  }
  if (c.p_rev >= 7) {
    w(F(STS_SUPPORTED, 1), field(r.CCH_3X_SUPPORTED, "3X_CCH_SUPPORTED", 1), F(WLL_INCL, 1));
    if (r.WLL_INCL) w(F(WLL_DEVICE_TYPE, 3), F(HOOK_STATUS, 4));
    enc_info(w, r);
    sync_id(w, r);
    so_bitmap(w, r);
  }
  if (c.p_rev >= 8) w(F(ALT_BAND_CLASS_SUP, 1));
  if (c.p_rev >= 9) {
    msg_int_info(w, r);
    for_pdch(w, r);
  }
  if (c.p_rev >= 11) {
    if (r.SLOT_CYCLE_INDEX != 0) w(F(SIGN_SLOT_CYCLE_INDEX, 1));
    w(F(BCMC_INCL, 1));
    if (r.BCMC_INCL) {
      w(F(BCMC_PREF_INCL, 1));
      bcmc_fields(w, r, c, false, r.BCMC_PREF_INCL);
    }
    rev_pdch(w, r);
    band_subclasses(w, r);
  }
}

// --- Reconnect Message (Release E) ----------------------------------------------------------
// The service to reconnect, named by its stored configuration (SYNC_ID) or its service
// option; an origination adds its service reference and further instances; a short data
// burst may ride along.
struct RC_RCNM {
  u8 ORIG_IND, SYNC_ID_INCL, SYNC_ID_LEN;
  Bytes SYNC_ID;
  u16 SERVICE_OPTION;
  u8 SR_ID, ADD_SERV_INSTANCE_INCL, NUM_ADD_SERV_INSTANCE;
  PoolArray<u8> ADD_SR_ID;
  u8 SDB_INCL, NUM_FIELDS;
  PoolArray<u8> CHARi;
};
template <class W>
void layout(W& w, RC_RCNM& r, const Ctx& c) {
  w(F(ORIG_IND, 1), F(SYNC_ID_INCL, 1));
  if (r.SYNC_ID_INCL) {
    w(F(SYNC_ID_LEN, 4));
    if (r.SYNC_ID_LEN) w(F(SYNC_ID, 8u * r.SYNC_ID_LEN));
  } else {
    w(F(SERVICE_OPTION, 16));
  }
  if (r.ORIG_IND) w(F(SR_ID, 3));
  if (r.ORIG_IND && c.p_rev >= 11 && r.SYNC_ID_INCL && r.SR_ID != 7) {
    w(F(ADD_SERV_INSTANCE_INCL, 1));
    if (r.ADD_SERV_INSTANCE_INCL) {
      w(F(NUM_ADD_SERV_INSTANCE, 3));
      w.scalars("ADD_SR_ID", r.ADD_SR_ID, r.NUM_ADD_SERV_INSTANCE, 3);
    }
  }
  if (c.p_rev >= 11) {
    w(F(SDB_INCL, 1));
    if (r.SDB_INCL) {
      w(F(NUM_FIELDS, 8));
      w.scalars("CHARi", r.CHARi, r.NUM_FIELDS, 8);
    }
  }
}

}  // namespace

Rows rc_call_setup_rows() {
  static constexpr MessageRow rows[] = {
      {1, "RGM", body_ops<RC_RGM>()},
      {4, "ORM", body_ops<RC_ORM>()},
      {5, "PRM", body_ops<RC_PRM>()},
      {23, "RCNM", body_ops<RC_RCNM>()},
  };
  return rows;
}

}  // namespace cs
