// Access channel messages that set up or announce the mobile station (C.S0005 2.7.1.3.2):
// Registration, Origination and Page Response, and the Reconnect Message.
//
// The bodies grew with every revision; each group below is read from the P_REV at which it
// arrived. Where a later revision goes on with fields this decoder does not know, the
// message is refused (result 1) after the fields it did read.
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
  if (r.SO_BITMAP_IND) w(F(SO_GROUP_NUM, 5), F(SO_BITMAP, 4u * r.SO_BITMAP_IND));
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

// Release D (P_REV 10) and later add fields to these bodies that this decoder does not
// know: refused after the Release C fields.
template <class W>
void refuse_beyond_release_c(W& w, const Ctx& c) {
  if (c.p_rev >= 10) w.reject(Rc::count);
}

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
  // Release B and later registration fields are not known here.
  if (c.p_rev >= 8) w.reject(Rc::count);
}

// --- 2.7.1.3.2.4 Origination Message -------------------------------------------------------
struct RC_ORM {
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
};
template <class W>
void layout(W& w, RC_ORM& r, const Ctx& c) {
  w(F(MOB_TERM, 1), F(SLOT_CYCLE_INDEX, 3), F(MOB_P_REV, 8), F(SCM, 8), F(REQUEST_MODE, 3), F(SPECIAL_SERVICE, 1));
  if (r.SPECIAL_SERVICE) w(F(SERVICE_OPTION, 16));
  w(F(PM, 1), F(DIGIT_MODE, 1));
  if (r.DIGIT_MODE) w(F(NUMBER_TYPE, 3), F(NUMBER_PLAN, 4));
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
  refuse_beyond_release_c(w, c);
}

// --- 2.7.1.3.2.5 Page Response Message -----------------------------------------------------
struct RC_PRM {
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
  refuse_beyond_release_c(w, c);
}

// --- Reconnect Message ---------------------------------------------------------------------
// No public source at hand gives the widths of its fields: refused as a whole.
struct RC_RCNM {};
template <class W>
void layout(W& w, RC_RCNM&, const Ctx&) {
  w.reject(Rc::count);
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
