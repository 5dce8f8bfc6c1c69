// Broadcast overhead messages of the paging channel that carry lists: neighbour lists, CDMA
// channel lists, global service redirection and user zones (3GPP2 C.S0005, 3.7.2.3.2).
//
// Every message body starts after the PD / MSG_ID octet. Lists whose length is not sent run to
// the end of the message; their elements have a fixed smallest size, so the capacity taken from
// the bits left is exactly the number of whole elements that can still follow, and the octet
// padding at the end of the message (0 to 7 bits) never starts a new element.
#include <cstdint>

#include "codec/walk.h"
#include "fwd_common/tables.h"
#include "records/forward_shared.h"

namespace cs {
namespace {

using u8 = std::uint8_t;
using u16 = std::uint16_t;
using u32 = std::uint32_t;

// Capacity of a list that runs to the end of the message, for elements of at least `min_bits`.
template <unsigned min_bits>
u32 whole_elements(std::uint64_t bits_left) {
  return static_cast<u32>(bits_left / min_bits);
}

// ---------------------------------------------------------------------------------------------
// Neighbor List Message: one layout in every revision.

struct NLM_NGHBR {
  u8 NGHBR_CONFIG;
  u16 NGHBR_PN;
};

struct FC_NLM {
  u16 PILOT_PN;
  u8 CONFIG_MSG_SEQ, PILOT_INC;
  PoolArray<NLM_NGHBR> NGHBRs;
};

template <class W>
void layout(W& w, NLM_NGHBR& r, const Ctx&) {
  w(F(NGHBR_CONFIG, 3), F(NGHBR_PN, 9));
}

template <class W>
void layout(W& w, FC_NLM& r, const Ctx& c) {
  w(F(PILOT_PN, 9), F(CONFIG_MSG_SEQ, 6), F(PILOT_INC, 4));
  w.list_to_end("NGHBRs", r.NGHBRs, whole_elements<12>, c);
}

// ---------------------------------------------------------------------------------------------
// CDMA Channel List Message

struct FC_CCLM {
  u16 PILOT_PN;
  u8 CONFIG_MSG_SEQ;
  PoolArray<u16> CDMA_FREQ;
};

template <class W>
void layout(W& w, FC_CCLM& r, const Ctx&) {
  w(F(PILOT_PN, 9), F(CONFIG_MSG_SEQ, 6));
  // One or more 11-bit channels up to the padding. The printer's left() is 0 and its scalars()
  // prints what was stored, so the count only matters when reading.
  w.scalars("CDMA_FREQ", r.CDMA_FREQ, whole_elements<11>(w.left()), 11);
}

// ---------------------------------------------------------------------------------------------
// Extended Neighbor List Message: one layout from the first PCS revision on.

struct ENLM_NGHBR {
  u8 NGHBR_CONFIG;
  u16 NGHBR_PN;
  u8 SEARCH_PRIORITY, FREQ_INCL, NGHBR_BAND;
  u16 NGHBR_FREQ;
};

struct FC_ENLM {
  u16 PILOT_PN;
  u8 CONFIG_MSG_SEQ, PILOT_INC;
  PoolArray<ENLM_NGHBR> NGHBRs;
};

template <class W>
void layout(W& w, ENLM_NGHBR& r, const Ctx&) {
  w(F(NGHBR_CONFIG, 3), F(NGHBR_PN, 9), F(SEARCH_PRIORITY, 2), F(FREQ_INCL, 1));
  if (r.FREQ_INCL) w(F(NGHBR_BAND, 5), F(NGHBR_FREQ, 11));
}

template <class W>
void layout(W& w, FC_ENLM& r, const Ctx& c) {
  w(F(PILOT_PN, 9), F(CONFIG_MSG_SEQ, 6), F(PILOT_INC, 4));
  w.list_to_end("NGHBRs", r.NGHBRs, whole_elements<15>, c);
}

// ---------------------------------------------------------------------------------------------
// Extended CDMA Channel List Message: P_REV 6 on; the band classes came with P_REV 11.

struct ECCLM_TD_SEL {
  u8 TD_HASH_IND, TD_POWER_LEVEL;
};

// Channels of a further band class (P_REV 11): each carries the per-channel indicators that the
// message's own channels carry.
struct ECCLM_ADD_FREQ {
  u16 ADD_CDMA_FREQ;
  u8 ADD_RC_QPCH_HASH_IND, ADD_TD_HASH_IND, ADD_TD_POWER_LEVEL, ADD_CDMA_FREQ_WEIGHT;
};

struct ECCLM_ADD_BAND {
  u8 ADD_CDMA_BAND, ADD_SUBCLASS_INFO_INCL, ADD_SUBCLASS_REC_LEN;
  PoolArray<u8> ADD_CDMA_SUBCLASS;
  u8 ADD_TD_MODE, BYPASS_SYS_DET_IND, NUM_ADD_FREQ;
  PoolArray<ECCLM_ADD_FREQ> ADD_FREQs;
};

struct FC_ECCLM {
  u16 PILOT_PN;
  u8 CONFIG_MSG_SEQ, NUM_FREQ;
  PoolArray<u16> CDMA_FREQ;
  u8 RC_QPCH_SEL_INCL;
  PoolArray<u8> RC_QPCH_HASH_IND;
  u8 TD_SEL_INCL, TD_MODE;
  PoolArray<ECCLM_TD_SEL> TD_SELs;
  u8 CDMA_BAND, SUBCLASS_INFO_INCL, SUBCLASS_REC_LEN;
  PoolArray<u8> CDMA_SUBCLASS;
  u8 CDMA_FREQ_WEIGHT_INCL;
  PoolArray<u8> CDMA_FREQ_WEIGHT;
  u8 NUM_BAND;
  PoolArray<ECCLM_ADD_BAND> ADD_BANDs;
};

// The additional bands repeat the indicators the message chose for its own channels.
struct EcclmCtx : Ctx {
  u8 RC_QPCH_SEL_INCL, TD_SEL_INCL, CDMA_FREQ_WEIGHT_INCL;
};

template <class W>
void layout(W& w, ECCLM_TD_SEL& r, const Ctx&) {
  w(F(TD_HASH_IND, 1));
  if (r.TD_HASH_IND) w(F(TD_POWER_LEVEL, 2));
}

// Only the ECCLM layout below hands these records an EcclmCtx.
template <class W>
void layout(W& w, ECCLM_ADD_FREQ& r, const EcclmCtx& c) {
  w(F(ADD_CDMA_FREQ, 11));
  if (c.RC_QPCH_SEL_INCL) w(F(ADD_RC_QPCH_HASH_IND, 1));
  if (c.TD_SEL_INCL) {
    w(F(ADD_TD_HASH_IND, 1));
    if (r.ADD_TD_HASH_IND) w(F(ADD_TD_POWER_LEVEL, 2));
  }
  if (c.CDMA_FREQ_WEIGHT_INCL) w(F(ADD_CDMA_FREQ_WEIGHT, 3));
}

template <class W>
void layout(W& w, ECCLM_ADD_BAND& r, const EcclmCtx& c) {
  w(F(ADD_CDMA_BAND, 5), F(ADD_SUBCLASS_INFO_INCL, 1));
  if (r.ADD_SUBCLASS_INFO_INCL) {
    w(F(ADD_SUBCLASS_REC_LEN, 5));
    w.scalars("ADD_CDMA_SUBCLASS", r.ADD_CDMA_SUBCLASS, r.ADD_SUBCLASS_REC_LEN + 1u, 1);
  }
  if (c.TD_SEL_INCL) w(F(ADD_TD_MODE, 2));
  w(F(BYPASS_SYS_DET_IND, 1), F(NUM_ADD_FREQ, 4));
  w.records("ADD_FREQs", r.ADD_FREQs, r.NUM_ADD_FREQ, c);
}

template <class W>
void layout(W& w, FC_ECCLM& r, const Ctx& c) {
  w(F(PILOT_PN, 9), F(CONFIG_MSG_SEQ, 6), F(NUM_FREQ, 4));
  w.scalars("CDMA_FREQ", r.CDMA_FREQ, r.NUM_FREQ, 11);
  w(F(RC_QPCH_SEL_INCL, 1));
  if (r.RC_QPCH_SEL_INCL) w.scalars("RC_QPCH_HASH_IND", r.RC_QPCH_HASH_IND, r.NUM_FREQ, 1);
  w(F(TD_SEL_INCL, 1));
  if (r.TD_SEL_INCL) {
    w(F(TD_MODE, 2));
    w.records("TD_SELs", r.TD_SELs, r.NUM_FREQ, c);
  }
  if (c.p_rev < 11) return;

  // Band classes: the band of the channels above, then up to 7 more with channels of their own.
  w(F(CDMA_BAND, 5), F(SUBCLASS_INFO_INCL, 1));
  if (r.SUBCLASS_INFO_INCL) {
    w(F(SUBCLASS_REC_LEN, 5));
    w.scalars("CDMA_SUBCLASS", r.CDMA_SUBCLASS, r.SUBCLASS_REC_LEN + 1u, 1);
  }
  w(F(CDMA_FREQ_WEIGHT_INCL, 1));
  if (r.CDMA_FREQ_WEIGHT_INCL) w.scalars("CDMA_FREQ_WEIGHT", r.CDMA_FREQ_WEIGHT, r.NUM_FREQ, 3);
  w(F(NUM_BAND, 3));
  EcclmCtx ec{c};
  ec.RC_QPCH_SEL_INCL = r.RC_QPCH_SEL_INCL;
  ec.TD_SEL_INCL = r.TD_SEL_INCL;
  ec.CDMA_FREQ_WEIGHT_INCL = r.CDMA_FREQ_WEIGHT_INCL;
  w.records("ADD_BANDs", r.ADD_BANDs, r.NUM_BAND, ec);
}

// ---------------------------------------------------------------------------------------------
// Pieces shared by the general, private and universal neighbour lists.

// Neighbour records depend on flags of their message; the message hands them on in a context
// of this type (only the layouts below create it, and only the records below read it).
struct ListCtx : Ctx {
  u8 NGHBR_CONFIG_PN_INCL, NGHBR_SRCH_MODE, FREQ_FIELDS_INCL, USE_TIMING, GLOBAL_TIMING_INCL, SRCH_OFFSET_INCL;
  u8 COMMON_INCL, NGHBR_SET_ENTRY_INFO, NGHBR_SET_ACCESS_INFO, RADIO_INTERFACE_TYPE;
};

// A declared length that runs past the end of the message makes the message short (result 3),
// after the fields the part holds were read; `room` is what was left where the length counts
// from.
template <class W>
void short_if_past_end(W& w, std::uint64_t declared, std::uint64_t room) {
  if (declared > room) w.reject(Rc::short_msg);
}

// A length-prefixed record. Its fields are kept when the declared length runs past the message,
// which is then a short message.
template <class W, class R, class C>
void prefixed(W& w, const char* label, R& rec, std::uint64_t declared, const C& c) {
  const std::uint64_t room = w.left();
  w.sized(label, rec, declared, c);
  short_if_past_end(w, declared, room);
}

// Type-specific fields of a neighbour pilot record (NGHBR_PILOT_REC_TYPE), printed flat in the
// record that carries them. The auxiliary pilots' Walsh codes are those of the assignment and
// handoff messages' pilot records.
struct PILOT_REC {
  u8 TD_POWER_LEVEL, TD_MODE, QOF, WALSH_LENGTH;
  u16 AUX_PILOT_WALSH, AUX_WALSH;
  u8 AUX_TD_POWER_LEVEL;
  u8 SR3_PRIMARY_PILOT, SR3_PILOT_POWER1, SR3_PILOT_POWER2;
  u8 ADD_INFO_INCL1, QOF1, WALSH_LENGTH1;
  u16 AUX_PILOT_WALSH1;
  u8 ADD_INFO_INCL2, QOF2, WALSH_LENGTH2;
  u16 AUX_PILOT_WALSH2;
};

template <class W>
void pilot_fields(W& w, PILOT_REC& p, u8 type) {
  switch (type) {
    case 0:   // 1X common pilot with transmit diversity
      w(field(p.TD_POWER_LEVEL, "TD_POWER_LEVEL", 2), field(p.TD_MODE, "TD_MODE", 2));
      break;
    case 1:   // 1X auxiliary pilot
      fwd::aux_walsh(w, p.QOF, "QOF", p.WALSH_LENGTH, "WALSH_LENGTH", p.AUX_PILOT_WALSH, "AUX_PILOT_WALSH");
      break;
    case 2:   // 1X auxiliary pilot with transmit diversity
      fwd::aux_walsh(w, p.QOF, "QOF", p.WALSH_LENGTH, "WALSH_LENGTH", p.AUX_WALSH, "AUX_WALSH");
      w(field(p.AUX_TD_POWER_LEVEL, "AUX_TD_POWER_LEVEL", 2), field(p.TD_MODE, "TD_MODE", 2));
      break;
    case 3:   // 3X common pilot
    case 4:   // 3X auxiliary pilot
      w(field(p.SR3_PRIMARY_PILOT, "SR3_PRIMARY_PILOT", 2), field(p.SR3_PILOT_POWER1, "SR3_PILOT_POWER1", 3),
        field(p.SR3_PILOT_POWER2, "SR3_PILOT_POWER2", 3));
      if (type == 3) break;
      fwd::aux_walsh(w, p.QOF, "QOF", p.WALSH_LENGTH, "WALSH_LENGTH", p.AUX_PILOT_WALSH, "AUX_PILOT_WALSH");
      w(field(p.ADD_INFO_INCL1, "ADD_INFO_INCL1", 1));
      if (p.ADD_INFO_INCL1)
        fwd::aux_walsh(w, p.QOF1, "QOF1", p.WALSH_LENGTH1, "WALSH_LENGTH1", p.AUX_PILOT_WALSH1, "AUX_PILOT_WALSH1");
      w(field(p.ADD_INFO_INCL2, "ADD_INFO_INCL2", 1));
      if (p.ADD_INFO_INCL2)
        fwd::aux_walsh(w, p.QOF2, "QOF2", p.WALSH_LENGTH2, "WALSH_LENGTH2", p.AUX_PILOT_WALSH2, "AUX_PILOT_WALSH2");
      break;
    default:   // reserved types: only RECORD_LEN is known
      break;
  }
}

// The neighbour's additional pilot, when ADD_PILOT_REC_INCL is 1. Its fields take RECORD_LEN
// octets from the first bit after RECORD_LEN: the walk moves on to that end when they take
// fewer bits (padding, or a type not known here).
template <class W, class R>
void add_pilot(W& w, R& r) {
  if (!r.ADD_PILOT_REC_INCL) return;
  w(F(NGHBR_PILOT_REC_TYPE, 3), F(RECORD_LEN, 3));
  const std::uint64_t room = w.left();
  auto end = w.declared_end();
  pilot_fields(w, r.rec, r.NGHBR_PILOT_REC_TYPE);
  end.at(8u * r.RECORD_LEN);
  short_if_past_end(w, 8u * r.RECORD_LEN, room);
}

// The global transmit timing, when USE_TIMING is 1.
template <class W, class R>
void global_timing(W& w, R& r) {
  if (!r.USE_TIMING) return;
  w(F(GLOBAL_TIMING_INCL, 1));
  if (r.GLOBAL_TIMING_INCL) w(F(GLOBAL_TX_DURATION, 4), F(GLOBAL_TX_PERIOD, 7));
}

// What the neighbour records of the general and the universal neighbour lists take from their
// message alike.
template <class R>
ListCtx nghbr_ctx(const Ctx& c, const R& r) {
  ListCtx lc{c};
  lc.NGHBR_SRCH_MODE = r.NGHBR_SRCH_MODE;
  lc.FREQ_FIELDS_INCL = r.FREQ_FIELDS_INCL;
  lc.USE_TIMING = r.USE_TIMING;
  lc.GLOBAL_TIMING_INCL = r.USE_TIMING && r.GLOBAL_TIMING_INCL;
  return lc;
}

// A neighbour's search priority and window, as the message's NGHBR_SRCH_MODE asks.
template <class W, class R>
void nghbr_search(W& w, R& r, const ListCtx& c) {
  if (c.NGHBR_SRCH_MODE == 1 || c.NGHBR_SRCH_MODE == 3) w(F(SEARCH_PRIORITY, 2));
  if (c.NGHBR_SRCH_MODE == 2 || c.NGHBR_SRCH_MODE == 3) w(F(SRCH_WIN_NGHBR, 4));
}

// A neighbour's frequency and transmit timing, as the message's FREQ_FIELDS_INCL and
// USE_TIMING ask.
template <class W, class R>
void nghbr_freq_timing(W& w, R& r, const ListCtx& c) {
  if (c.FREQ_FIELDS_INCL) {
    w(F(FREQ_INCL, 1));
    if (r.FREQ_INCL) w(F(NGHBR_BAND, 5), F(NGHBR_FREQ, 11));
  }
  if (c.USE_TIMING) {
    w(F(TIMING_INCL, 1));
    if (r.TIMING_INCL) {
      w(F(NGHBR_TX_OFFSET, 7));
      if (!c.GLOBAL_TIMING_INCL) w(F(NGHBR_TX_DURATION, 4), F(NGHBR_TX_PERIOD, 7));
    }
  }
}

// Call rescue (P_REV 9), then one F-PDCH indicator per neighbour: the general and the universal
// neighbour lists end their neighbours so alike. Their records take these fields from here, and
// the per-neighbour arrays are as long as the record's NUM_NGHBR.
struct NGHBR_RESCUE {
  u8 RESQ_ENABLED, RESQ_DELAY_TIME, RESQ_ALLOWED_TIME, RESQ_ATTEMPT_TIME;
  u16 RESQ_CODE_CHAN;
  u8 RESQ_QOF, RESQ_MIN_PERIOD_INCL, RESQ_MIN_PERIOD, RESQ_NUM_TOT_TRANS_INCL, RESQ_NUM_TOT_TRANS_20MS,
      RESQ_NUM_TOT_TRANS_5MS, RESQ_NUM_PREAMBLE_RC1_RC2, RESQ_NUM_PREAMBLE, RESQ_POWER_DELTA;
  PoolArray<u8> NGHBR_RESQ_CONFIGURED;
  PoolArray<u8> NGHBR_PDCH_SUPPORTED;
};

template <class W, class R>
void rescue_and_pdch(W& w, R& r) {
  w(F(RESQ_ENABLED, 1));
  if (r.RESQ_ENABLED) fwd::call_rescue<true>(w, r);
  w.scalars("NGHBR_PDCH_SUPPORTED", r.NGHBR_PDCH_SUPPORTED, r.NUM_NGHBR, 1);
}

// An HRPD neighbour (P_REV 11): its length, then its fields under the label its list gives
// them.
struct HRPD_NGHBR_FIELDS {
  u16 NGHBR_PN;
  u8 NGHBR_FREQ_INCL, NGHBR_BAND;
  u16 NGHBR_FREQ;
  u8 PN_ASSOCIATION_IND, DATA_ASSOCIATION_IND;
};

struct HRPD_NGHBR_PILOT_REC {
  u8 HRPD_NGHBR_REC_LEN;
  HRPD_NGHBR_FIELDS fields;
};

struct HrpdCtx : Ctx {
  const char* fields_label;
};

template <class W>
void layout(W& w, HRPD_NGHBR_FIELDS& r, const Ctx&) {
  w(F(NGHBR_PN, 9), F(NGHBR_FREQ_INCL, 1));
  if (r.NGHBR_FREQ_INCL) w(F(NGHBR_BAND, 5), F(NGHBR_FREQ, 11));
  w(F(PN_ASSOCIATION_IND, 1), F(DATA_ASSOCIATION_IND, 1));
}

template <class W>
void layout(W& w, HRPD_NGHBR_PILOT_REC& r, const HrpdCtx& c) {
  w(F(HRPD_NGHBR_REC_LEN, 8));
  prefixed(w, c.fields_label, r.fields, 8u * r.HRPD_NGHBR_REC_LEN, c);
}

// ---------------------------------------------------------------------------------------------
// General Neighbor List Message

struct GNLM_NGHBR {
  u8 NGHBR_CONFIG;
  u16 NGHBR_PN;
  u8 SEARCH_PRIORITY, SRCH_WIN_NGHBR, FREQ_INCL, NGHBR_BAND;
  u16 NGHBR_FREQ;
  u8 TIMING_INCL, NGHBR_TX_OFFSET, NGHBR_TX_DURATION, NGHBR_TX_PERIOD;
};

struct GNLM_ANALOG_NGHBR {
  u8 BAND_CLASS, SYS_A_B;
};

struct GNLM_NGHBR_PILOT_REC {
  u8 ADD_PILOT_REC_INCL, NGHBR_PILOT_REC_TYPE, RECORD_LEN;
  PILOT_REC rec;
  u8 SRCH_OFFSET_NGHBR;
};

struct FC_GNLM : NGHBR_RESCUE {
  u16 PILOT_PN;
  u8 CONFIG_MSG_SEQ, PILOT_INC, NGHBR_SRCH_MODE, NGHBR_CONFIG_PN_INCL, FREQ_FIELDS_INCL, USE_TIMING;
  u8 GLOBAL_TIMING_INCL, GLOBAL_TX_DURATION, GLOBAL_TX_PERIOD;
  u8 NUM_NGHBR;
  PoolArray<GNLM_NGHBR> NGHBRs;
  u8 NUM_ANALOG_NGHBR;
  PoolArray<GNLM_ANALOG_NGHBR> ANALOG_NGHBRs;
  u8 SRCH_OFFSET_INCL;
  PoolArray<GNLM_NGHBR_PILOT_REC> NGHBR_PILOT_RECs;
  u8 BCCH_IND_INCL;
  PoolArray<u8> BCCH_SUPPORT;
  u8 HRPD_NGHBR_INCL, NUM_HRPD_NGHBR;
  PoolArray<HRPD_NGHBR_PILOT_REC> HRPD_NGHBR_PILOT_RECs;
};

template <class W>
void layout(W& w, GNLM_NGHBR& r, const ListCtx& c) {
  if (c.NGHBR_CONFIG_PN_INCL) w(F(NGHBR_CONFIG, 3), F(NGHBR_PN, 9));
  nghbr_search(w, r, c);
  nghbr_freq_timing(w, r, c);
}

template <class W>
void layout(W& w, GNLM_ANALOG_NGHBR& r, const Ctx&) {
  w(F(BAND_CLASS, 5), F(SYS_A_B, 2));
}

template <class W>
void layout(W& w, GNLM_NGHBR_PILOT_REC& r, const ListCtx& c) {
  w(F(ADD_PILOT_REC_INCL, 1));
  add_pilot(w, r);
  if (c.SRCH_OFFSET_INCL) w(F(SRCH_OFFSET_NGHBR, 3));
}

// IS-95-B carries the neighbours and the analog neighbours; the pilot records came with
// P_REV 6, the F-BCCH indicators with 7, call rescue and the F-PDCH indicators with 9 and the
// HRPD neighbours with 11.
template <class W>
void layout(W& w, FC_GNLM& r, const Ctx& c) {
  w(F(PILOT_PN, 9), F(CONFIG_MSG_SEQ, 6), F(PILOT_INC, 4), F(NGHBR_SRCH_MODE, 2), F(NGHBR_CONFIG_PN_INCL, 1),
    F(FREQ_FIELDS_INCL, 1), F(USE_TIMING, 1));
  global_timing(w, r);
  w(F(NUM_NGHBR, 6));
  ListCtx lc = nghbr_ctx(c, r);
  lc.NGHBR_CONFIG_PN_INCL = r.NGHBR_CONFIG_PN_INCL;
  w.records("NGHBRs", r.NGHBRs, r.NUM_NGHBR, lc);
  w(F(NUM_ANALOG_NGHBR, 3));
  w.records("ANALOG_NGHBRs", r.ANALOG_NGHBRs, r.NUM_ANALOG_NGHBR, c);
  if (c.p_rev < 6) return;

  w(F(SRCH_OFFSET_INCL, 1));
  lc.SRCH_OFFSET_INCL = r.SRCH_OFFSET_INCL;
  w.records("NGHBR_PILOT_RECs", r.NGHBR_PILOT_RECs, r.NUM_NGHBR, lc);
  if (c.p_rev < 7) return;

  w(F(BCCH_IND_INCL, 1));
  if (r.BCCH_IND_INCL) w.scalars("BCCH_SUPPORT", r.BCCH_SUPPORT, r.NUM_NGHBR, 1);
  if (c.p_rev < 9) return;

  rescue_and_pdch(w, r);
  if (c.p_rev < 11) return;

  w(F(HRPD_NGHBR_INCL, 1));
  if (r.HRPD_NGHBR_INCL) {
    w(F(NUM_HRPD_NGHBR, 6));
    w.records("HRPD_NGHBR_PILOT_RECs", r.HRPD_NGHBR_PILOT_RECs, r.NUM_HRPD_NGHBR,
              HrpdCtx{c, "HrpdNeighborRecordFields"});
  }
}

// ---------------------------------------------------------------------------------------------
// Redirection records shared by the Global and the Extended Global
// Service Redirection Messages.

struct REDIRECT_ANALOG {   // RECORD_TYPE 1: redirection to an analog system
  u16 EXPECTED_SID;
  u8 IGNORE_CDMA, SYS_ORDERING, MAX_REDIRECT_DELAY;
};

struct REDIRECT_CDMA {   // RECORD_TYPE 2: redirection to a CDMA system
  u8 BAND_CLASS;
  u16 EXPECTED_SID, EXPECTED_NID;
  u8 NUM_CHANS;
  PoolArray<u16> CDMA_CHAN;
};

template <class W>
void layout(W& w, REDIRECT_ANALOG& r, const Ctx&) {
  w(F(EXPECTED_SID, 15), F(IGNORE_CDMA, 1), F(SYS_ORDERING, 3), F(MAX_REDIRECT_DELAY, 5));
}

template <class W>
void layout(W& w, REDIRECT_CDMA& r, const Ctx&) {
  w(F(BAND_CLASS, 5), F(EXPECTED_SID, 15), F(EXPECTED_NID, 16), reserved(4), F(NUM_CHANS, 4));
  w.scalars("CDMA_CHAN", r.CDMA_CHAN, r.NUM_CHANS, 11);
}

struct REDIRECTION {
  u8 RECORD_TYPE, RECORD_LEN;
  REDIRECT_ANALOG analog;
  REDIRECT_CDMA cdma;
};

// RECORD_TYPE, RECORD_LEN and the record under the label of its variant.
template <class W>
void redirection(W& w, REDIRECTION& r, const char* analog_label, const char* cdma_label, const Ctx& c) {
  w(F(RECORD_TYPE, 8), F(RECORD_LEN, 8));
  const std::uint64_t declared = 8u * r.RECORD_LEN;
  switch (r.RECORD_TYPE) {
    case 1: prefixed(w, analog_label, r.analog, declared, c); break;
    case 2: prefixed(w, cdma_label, r.cdma, declared, c); break;
    default: w(reserved(declared)); break;   // NDSS off (empty) or a type not known here: passed over
  }
}

struct FC_GSRDM {
  u16 PILOT_PN;
  u8 CONFIG_MSG_SEQ;
  u16 REDIRECT_ACCOLC;
  u8 RETURN_IF_FAIL, DELETE_TMSI, EXCL_P_REV_MS;
  REDIRECTION rec;
};

template <class W>
void layout(W& w, FC_GSRDM& r, const Ctx& c) {
  w(F(PILOT_PN, 9), F(CONFIG_MSG_SEQ, 6), F(REDIRECT_ACCOLC, 16), F(RETURN_IF_FAIL, 1), F(DELETE_TMSI, 1));
  if (c.p_rev >= 6) {   // lets mobiles of P_REV 6 and above ignore a redirection for older ones
    w(F(EXCL_P_REV_MS, 1));
  }
  redirection(w, r.rec, "GSRDM_REC_TYPE_1", "GSRDM_REC_TYPE_2", c);
}

// A further redirection record (P_REV 11) for the access overload classes it names.
struct EGSRDM_ADD_RECORD {
  u16 REDIRECT_ACCOLC;
  u8 DELETE_TMSI, REDIRECT_P_REV_INCL, EXCL_P_REV_IND, REDIRECT_P_MIN, REDIRECT_P_MAX;
  REDIRECTION rec;
  u8 LAST_SEARCH_RECORD_IND;
};

struct FC_EGSRDM {
  u16 PILOT_PN;
  u8 CONFIG_MSG_SEQ;
  u16 REDIRECT_ACCOLC;
  u8 RETURN_IF_FAIL, DELETE_TMSI, REDIRECT_P_REV_INCL, EXCL_P_REV_IND, REDIRECT_P_MIN, REDIRECT_P_MAX;
  REDIRECTION rec;
  u8 LAST_SEARCH_RECORD_IND, NUM_ADD_RECORD;
  PoolArray<EGSRDM_ADD_RECORD> ADD_RECORDs;
};

// The mobile stations' revisions a redirection is for, when REDIRECT_P_REV_INCL is 1.
template <class W, class R>
void redirect_p_rev(W& w, R& r) {
  if (r.REDIRECT_P_REV_INCL) w(F(EXCL_P_REV_IND, 1), F(REDIRECT_P_MIN, 8), F(REDIRECT_P_MAX, 8));
}

template <class W>
void layout(W& w, EGSRDM_ADD_RECORD& r, const Ctx& c) {
  w(F(REDIRECT_ACCOLC, 16), F(DELETE_TMSI, 1), F(REDIRECT_P_REV_INCL, 1));
  redirect_p_rev(w, r);
  redirection(w, r.rec, "TYPE_001", "TYPE_002", c);
  w(F(LAST_SEARCH_RECORD_IND, 1));
}

template <class W>
void layout(W& w, FC_EGSRDM& r, const Ctx& c) {
  w(F(PILOT_PN, 9), F(CONFIG_MSG_SEQ, 6), F(REDIRECT_ACCOLC, 16), F(RETURN_IF_FAIL, 1), F(DELETE_TMSI, 1),
    F(REDIRECT_P_REV_INCL, 1));
  redirect_p_rev(w, r);
  redirection(w, r.rec, "TYPE_001", "TYPE_002", c);
  if (c.p_rev < 11) return;
  // From P_REV 11 further redirection records may follow the first (C.S0005-E 3.7.2.3.2.27);
  // NUM_ADD_RECORD is their number itself.
  w(F(LAST_SEARCH_RECORD_IND, 1), F(NUM_ADD_RECORD, 3));
  w.records("ADD_RECORDs", r.ADD_RECORDs, r.NUM_ADD_RECORD, c);
}

// ---------------------------------------------------------------------------------------------
// User Zone Identification Message and the private neighbours' user zones.

struct UZID_REC {
  u16 UZID;
  u8 UZ_REV, TEMP_SUB;
};

template <class W>
void layout(W& w, UZID_REC& r, const Ctx&) {
  w(F(UZID, 16), F(UZ_REV, 4), F(TEMP_SUB, 1));
}

struct FC_UZIM {
  u16 PILOT_PN;
  u8 CONFIG_MSG_SEQ, UZ_EXIT, NUM_UZID;
  PoolArray<UZID_REC> UZIDs;
};

template <class W>
void layout(W& w, FC_UZIM& r, const Ctx& c) {
  w(F(PILOT_PN, 9), F(CONFIG_MSG_SEQ, 6), F(UZ_EXIT, 4), F(NUM_UZID, 4));
  w.records("UZIDs", r.UZIDs, r.NUM_UZID, c);
}

// ---------------------------------------------------------------------------------------------
// Private Neighbor List Message

struct PNLM_PRI_NGHBR {
  u16 SID, NID, PRI_NGHBR_PN;
  u8 ADD_PILOT_REC_INCL, NGHBR_PILOT_REC_TYPE, RECORD_LEN;
  PILOT_REC rec;
  u8 BAND_CLASS;
  u16 NGHBR_FREQ;
  u8 UZID_INCL, NUM_UZID;
  PoolArray<UZID_REC> UZIDs;
};

struct PNLM_MC_FIELDS {   // RADIO_INTERFACE_TYPE 0: MC system
  u8 COMMON_INCL, COMMON_BAND_CLASS;
  u16 COMMON_NGHBR_FREQ;
  u8 SRCH_WIN_PN, NUM_PRI_NGHBR;
  PoolArray<PNLM_PRI_NGHBR> PRI_NGHBRs;
};

struct PNLM_RADIO_INTERFACE {
  u8 RADIO_INTERFACE_TYPE, RADIO_INTERFACE_LEN;
  PNLM_MC_FIELDS RadioInterfaceTypeSpecificFields;
};

struct FC_PNLM {
  u16 PILOT_PN;
  u8 CONFIG_MSG_SEQ, NUM_RADIO_INTERFACE;
  PoolArray<PNLM_RADIO_INTERFACE> RADIO_INTERFACES;
};

template <class W>
void layout(W& w, PNLM_PRI_NGHBR& r, const ListCtx& c) {
  w(F(SID, 15), F(NID, 16), F(PRI_NGHBR_PN, 9), F(ADD_PILOT_REC_INCL, 1));
  add_pilot(w, r);
  if (!c.COMMON_INCL) w(F(BAND_CLASS, 5), F(NGHBR_FREQ, 11));
  w(F(UZID_INCL, 1));
  if (r.UZID_INCL) {
    w(F(NUM_UZID, 4));
    w.records("UZIDs", r.UZIDs, r.NUM_UZID, c);
  }
}

template <class W>
void layout(W& w, PNLM_MC_FIELDS& r, const Ctx& c) {
  w(F(COMMON_INCL, 1));
  if (r.COMMON_INCL) w(F(COMMON_BAND_CLASS, 5), F(COMMON_NGHBR_FREQ, 11));
  w(F(SRCH_WIN_PN, 4), F(NUM_PRI_NGHBR, 6));
  ListCtx lc{c};
  lc.COMMON_INCL = r.COMMON_INCL;
  w.records("PRI_NGHBRs", r.PRI_NGHBRs, r.NUM_PRI_NGHBR, lc);
}

template <class W>
void layout(W& w, PNLM_RADIO_INTERFACE& r, const Ctx& c) {
  w(F(RADIO_INTERFACE_TYPE, 4), F(RADIO_INTERFACE_LEN, 8));
  const std::uint64_t declared = 8u * r.RADIO_INTERFACE_LEN;
  if (r.RADIO_INTERFACE_TYPE == 0)
    prefixed(w, "RadioInterfaceTypeSpecificFields", r.RadioInterfaceTypeSpecificFields, declared, c);
  else
    w(reserved(declared));   // a system type not known here: passed over
}

template <class W>
void layout(W& w, FC_PNLM& r, const Ctx& c) {
  w(F(PILOT_PN, 9), F(CONFIG_MSG_SEQ, 6), F(NUM_RADIO_INTERFACE, 4));
  w.records("RADIO_INTERFACES", r.RADIO_INTERFACES, r.NUM_RADIO_INTERFACE, c);
}

// ---------------------------------------------------------------------------------------------
// Universal Neighbor List Message, an F-BCCH message of P_REV 7 and later.

struct UNLM_NGHBR {
  u8 NGHBR_CONFIG;
  u16 NGHBR_PN;
  u8 BCCH_SUPPORT, ADD_PILOT_REC_INCL, NGHBR_PILOT_REC_TYPE, RECORD_LEN;
  PILOT_REC rec;
  u8 SEARCH_PRIORITY, SRCH_WIN_NGHBR, SRCH_OFFSET_NGHBR, FREQ_INCL, NGHBR_BAND;
  u16 NGHBR_FREQ;
  u8 TIMING_INCL, NGHBR_TX_OFFSET, NGHBR_TX_DURATION, NGHBR_TX_PERIOD, ACCESS_ENTRY_HO, ACCESS_HO_ALLOWED;
};

struct UNLM_MC_FIELDS : NGHBR_RESCUE {   // RADIO_INTERFACE_TYPE 0000: MC system
  u8 PILOT_INC, NGHBR_SRCH_MODE, SRCH_WIN_N, SRCH_OFFSET_INCL, FREQ_FIELDS_INCL, USE_TIMING;
  u8 GLOBAL_TIMING_INCL, GLOBAL_TX_DURATION, GLOBAL_TX_PERIOD, NGHBR_SET_ENTRY_INFO, NGHBR_SET_ACCESS_INFO;
  u8 NUM_NGHBR;
  PoolArray<UNLM_NGHBR> NGHBRs;
};

struct UNLM_ANALOG_FIELDS {   // RADIO_INTERFACE_TYPE 0001: analog system
  u8 NUM_ANALOG_NGHBR;
  PoolArray<GNLM_ANALOG_NGHBR> ANALOG_NGHBRs;
};

struct UNLM_TYPE_SPECIFIC {
  UNLM_MC_FIELDS RADIO_INTERFACE_TYPE_0000;
  UNLM_ANALOG_FIELDS RADIO_INTERFACE_TYPE_0001;
  u8 NUM_HRPD_NGHBR;   // RADIO_INTERFACE_TYPE 0010: HRPD system
  PoolArray<HRPD_NGHBR_PILOT_REC> HRPD_NGHBR_PILOT_RECs;
};

struct UNLM_RADIO_INTERFACE {
  u8 RADIO_INTERFACE_TYPE, RADIO_INTERFACE_LEN;
  UNLM_TYPE_SPECIFIC RadioInterfaceTypeSpecificFields;
};

struct FC_UNLM {
  u16 PILOT_PN;
  u8 CONFIG_MSG_SEQ, NUM_RADIO_INTERFACE;
  PoolArray<UNLM_RADIO_INTERFACE> RADIO_INTERFACES;
};

template <class W>
void layout(W& w, UNLM_NGHBR& r, const ListCtx& c) {
  w(F(NGHBR_CONFIG, 3), F(NGHBR_PN, 9));
  if (r.NGHBR_CONFIG == 3) {   // the neighbour's paging is on an F-BCCH
    w(F(BCCH_SUPPORT, 1));
  }
  w(F(ADD_PILOT_REC_INCL, 1));
  add_pilot(w, r);
  nghbr_search(w, r, c);
  if (c.SRCH_OFFSET_INCL) w(F(SRCH_OFFSET_NGHBR, 3));
  nghbr_freq_timing(w, r, c);
  if (c.NGHBR_SET_ENTRY_INFO) w(F(ACCESS_ENTRY_HO, 1));
  if (c.NGHBR_SET_ACCESS_INFO) w(F(ACCESS_HO_ALLOWED, 1));
}

template <class W>
void layout(W& w, UNLM_MC_FIELDS& r, const Ctx& c) {
  w(F(PILOT_INC, 4), F(NGHBR_SRCH_MODE, 2));
  if (r.NGHBR_SRCH_MODE <= 1) {   // no per-neighbour window: one for all
    w(F(SRCH_WIN_N, 4));
  }
  w(F(SRCH_OFFSET_INCL, 1), F(FREQ_FIELDS_INCL, 1), F(USE_TIMING, 1));
  global_timing(w, r);
  w(F(NGHBR_SET_ENTRY_INFO, 1), F(NGHBR_SET_ACCESS_INFO, 1), F(NUM_NGHBR, 6));
  ListCtx lc = nghbr_ctx(c, r);
  lc.SRCH_OFFSET_INCL = r.SRCH_OFFSET_INCL;
  lc.NGHBR_SET_ENTRY_INFO = r.NGHBR_SET_ENTRY_INFO;
  lc.NGHBR_SET_ACCESS_INFO = r.NGHBR_SET_ACCESS_INFO;
  w.records("NGHBRs", r.NGHBRs, r.NUM_NGHBR, lc);
  if (c.p_rev < 9) return;

  rescue_and_pdch(w, r);
}

template <class W>
void layout(W& w, UNLM_ANALOG_FIELDS& r, const Ctx& c) {
  w(F(NUM_ANALOG_NGHBR, 3));
  w.records("ANALOG_NGHBRs", r.ANALOG_NGHBRs, r.NUM_ANALOG_NGHBR, c);
}

template <class W>
void layout(W& w, UNLM_TYPE_SPECIFIC& r, const ListCtx& c) {
  switch (c.RADIO_INTERFACE_TYPE) {
    case 0:
      w.sub("RADIO_INTERFACE_TYPE_0000", r.RADIO_INTERFACE_TYPE_0000, c);
      break;
    case 1:
      w.sub("RADIO_INTERFACE_TYPE_0001", r.RADIO_INTERFACE_TYPE_0001, c);
      break;
    case 2:
      w(F(NUM_HRPD_NGHBR, 6));
      w.records("HRPD_NGHBR_PILOT_RECs", r.HRPD_NGHBR_PILOT_RECs, r.NUM_HRPD_NGHBR,
                HrpdCtx{c, "HrpdNghbrRecordFields"});
      break;
    default:   // not known here: the record's length moves the walk on
      break;
  }
}

template <class W>
void layout(W& w, UNLM_RADIO_INTERFACE& r, const Ctx& c) {
  w(F(RADIO_INTERFACE_TYPE, 4), F(RADIO_INTERFACE_LEN, 8));
  ListCtx lc{c};
  lc.RADIO_INTERFACE_TYPE = r.RADIO_INTERFACE_TYPE;
  prefixed(w, "RadioInterfaceTypeSpecificFields", r.RadioInterfaceTypeSpecificFields, 8u * r.RADIO_INTERFACE_LEN, lc);
}

template <class W>
void layout(W& w, FC_UNLM& r, const Ctx& c) {
  w(F(PILOT_PN, 9), F(CONFIG_MSG_SEQ, 6), F(NUM_RADIO_INTERFACE, 4));
  w.records("RADIO_INTERFACES", r.RADIO_INTERFACES, r.NUM_RADIO_INTERFACE, c);
}

}  // namespace
}  // namespace cs

#include "layout/layout.h"

namespace cs {

Rows paging_overhead_list_rows() {
  // The universal neighbour list is a broadcast message this channel's dispatch leaves
  // undecoded.
  static constexpr MessageRow rows[] = {
      {3, "NLM", body_ops<FC_NLM>(), kBroadcastPdu, kBroadcastSdu},
      {4, "CCLM", body_ops<FC_CCLM>(), kBroadcastPdu, kBroadcastSdu},
      {14, "ENLM", body_ops<FC_ENLM>(), kBroadcastPdu, kBroadcastSdu},
      {18, "GSRDM", body_ops<FC_GSRDM>(), kBroadcastPdu, kBroadcastSdu},
      {22, "GNLM", body_ops<FC_GNLM>(), kBroadcastPdu, kBroadcastSdu},
      {23, "UZIM", body_ops<FC_UZIM>(), kBroadcastPdu, kBroadcastSdu},
      {24, "PNLM", body_ops<FC_PNLM>(), kBroadcastPdu, kBroadcastSdu},
      {26, "EGSRDM", body_ops<FC_EGSRDM>(), kBroadcastPdu, kBroadcastSdu},
      {27, "ECCLM", body_ops<FC_ECCLM>(), kBroadcastPdu, kBroadcastSdu},
      {33, "UNLM", body_ops<FC_UNLM>(), kSilent, kBroadcastSdu},
  };
  return rows;
}

}  // namespace cs
