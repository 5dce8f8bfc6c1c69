// Order-specific fields of the forward orders (C.S0005 section 3.7.4), shared by the Order
// Message of the paging / forward common channel and that of the forward traffic channel.
//
// Each record is what follows ORDQ inside the additional record; the caller bounds it to
// ADD_RECORD_LEN * 8 - 8 bits and passes ORDQ in OrderCtx::ordq. Trailing reserved bits are never
// read: the caller moves on by the declared length anyway.
//
// Include only from the .cpp files of the two order bodies.
#pragma once
#include <cstdint>

#include "codec/walk.h"

namespace cs::orders {

using u8 = std::uint8_t;
using u16 = std::uint16_t;
using u32 = std::uint32_t;

// Base Station Challenge Confirmation Order (ORDER 2).
struct F_BS_CHALLENGE_CONFIRM_ORDER {
  u32 AUTHBS;
};
// What an order-specific record depends on besides the revision: the order's qualifier.
struct OrderCtx : Ctx {
  u8 ordq;
};

template <class W>
void layout(W& w, F_BS_CHALLENGE_CONFIRM_ORDER& r, const Ctx&) {
  w(F(AUTHBS, 18));
}

// Periodic Pilot Measurement Request Order (ORDER 17). INCL_SETPT came with IS-2000.
struct F_PERIODIC_PILOT_MEASURE_REQ_ORDER {
  u8 MIN_PILOT_PWR_THRESH, MIN_PILOT_EC_IO_THRESH, INCL_SETPT;
};
template <class W>
void layout(W& w, F_PERIODIC_PILOT_MEASURE_REQ_ORDER& r, const OrderCtx& c) {
  w(F(MIN_PILOT_PWR_THRESH, 5), F(MIN_PILOT_EC_IO_THRESH, 5));
  if (c.p_rev >= 6) w(F(INCL_SETPT, 1));
}

// Service Option Request Order (19) and Service Option Response Order (20).
struct F_SO_ORDER {
  u16 SERVICE_OPTION;
};
template <class W>
void layout(W& w, F_SO_ORDER& r, const Ctx&) {
  w(F(SERVICE_OPTION, 16));
}

// Status Request Order (26). ORDQ names the information record asked for; the system
// identity travels with the roaming information request.
constexpr u8 kOrdqRoamingInfo = 9;
struct F_STATUS_REQ_ORDER {
  u16 SID, NID;
};
template <class W>
void layout(W& w, F_STATUS_REQ_ORDER& r, const OrderCtx& c) {
  if (c.ordq != kOrdqRoamingInfo) return;
  w(F(SID, 15), F(NID, 16));
}

// Registration Accepted Order (27): ORDQ 5 adds ROAM_INDI, ORDQ 7 also the signalling
// encryption fields; message integrity arrived with P_REV 9.
struct F_REGIST_ACCEPTED_ORDER {
  u8 ROAM_INDI, C_SIG_ENCRYPT_MODE, ENC_KEY_SIZE, MSG_INT_INFO_INCL, CHANGE_KEYS, USE_UAK;
};
template <class W>
void layout(W& w, F_REGIST_ACCEPTED_ORDER& r, const OrderCtx& c) {
  if (c.ordq != 5 && c.ordq != 7) return;
  w(F(ROAM_INDI, 8));
  if (c.ordq != 7) return;
  w(F(C_SIG_ENCRYPT_MODE, 3));
  if (r.C_SIG_ENCRYPT_MODE != 0) w(F(ENC_KEY_SIZE, 3));
  if (c.p_rev < 9) return;
  w(F(MSG_INT_INFO_INCL, 1));
  if (r.MSG_INT_INFO_INCL) w(F(CHANGE_KEYS, 1), F(USE_UAK, 1));
}

// Release Order (21, traffic channel): ORDQ 3 carries the reduced slot cycle fields.
struct F_RELEASE_ORDER {
  u8 RSC_MODE_IND, RSCI, RSC_END_TIME_UNIT, RSC_END_TIME_VALUE;
};
template <class W>
void layout(W& w, F_RELEASE_ORDER& r, const OrderCtx& c) {
  if (c.ordq != 3) return;
  w(F(RSC_MODE_IND, 1));
  if (r.RSC_MODE_IND) w(F(RSCI, 4), F(RSC_END_TIME_UNIT, 2), F(RSC_END_TIME_VALUE, 4));
}

// Retry Order (32): RETRY_DELAY only for a retry type other than "clear all".
struct F_RETRY_ORDER {
  u8 RETRY_TYPE, RETRY_DELAY;
};
template <class W>
void layout(W& w, F_RETRY_ORDER& r, const Ctx&) {
  w(F(RETRY_TYPE, 3));
  if (r.RETRY_TYPE != 0) w(F(RETRY_DELAY, 8));
}

// Base Station Reject Order (33).
struct F_BS_REJECT_ORDER {
  u8 REJECT_REASON, REJECTED_MSG_TYPE, REJECTED_MSG_SEQ;
};
template <class W>
void layout(W& w, F_BS_REJECT_ORDER& r, const Ctx&) {
  w(F(REJECT_REASON, 4), F(REJECTED_MSG_TYPE, 8), F(REJECTED_MSG_SEQ, 3));
}

// BCMC Order (35). A flow discriminator is BCMC_FLOW_DISCRIMINATOR_LEN bits wide, a width
// that belongs to the enclosing program: the program hands it down in a widened context.
struct BcmcCtx : Ctx {
  u8 flow_len;
};

struct F_BCMC_ORDER_BCMC_PROGRAMS_FLOW_DISCRIMINATOR_RECORDs {
  u8 BCMC_FLOW_DISCRIMINATOR, SAME_AS_PREVIOUS_BCMC_FLOW, CLEAR_RETRY_DELAY, BCMC_REASON, BCMC_RETRY_DELAY;
};
template <class W>
void layout(W& w, F_BCMC_ORDER_BCMC_PROGRAMS_FLOW_DISCRIMINATOR_RECORDs& r, const BcmcCtx& c) {
  // A zero-width discriminator is not shown.
  if (c.flow_len != 0) {
    w(F(BCMC_FLOW_DISCRIMINATOR, c.flow_len), F(SAME_AS_PREVIOUS_BCMC_FLOW, 1));
  } else {
    w(F(SAME_AS_PREVIOUS_BCMC_FLOW, 1));
  }
  if (r.SAME_AS_PREVIOUS_BCMC_FLOW) return;   // reason and delay are the previous flow's
  w(F(CLEAR_RETRY_DELAY, 1));
  if (r.CLEAR_RETRY_DELAY) return;
  w(F(BCMC_REASON, 4), F(BCMC_RETRY_DELAY, 8));
}

struct F_BCMC_ORDER_BCMC_PROGRAMS {
  u8 BCMC_PROGRAM_ID_LEN;
  u32 BCMC_PROGRAM_ID;
  u8 BCMC_FLOW_DISCRIMINATOR_LEN, NUM_FLOW_DISCRIMINATOR;
  PoolArray<F_BCMC_ORDER_BCMC_PROGRAMS_FLOW_DISCRIMINATOR_RECORDs> FLOW_DISCRIMINATOR_RECORDs;
};
template <class W>
void layout(W& w, F_BCMC_ORDER_BCMC_PROGRAMS& r, const Ctx& c) {
  w(F(BCMC_PROGRAM_ID_LEN, 5));
  w(F(BCMC_PROGRAM_ID, r.BCMC_PROGRAM_ID_LEN + 1u), F(BCMC_FLOW_DISCRIMINATOR_LEN, 3));
  // A zero-width discriminator names one flow, the whole program.
  if (r.BCMC_FLOW_DISCRIMINATOR_LEN != 0) w(F(NUM_FLOW_DISCRIMINATOR, r.BCMC_FLOW_DISCRIMINATOR_LEN));
  const BcmcCtx bc{c, r.BCMC_FLOW_DISCRIMINATOR_LEN};
  w.records("FLOW_DISCRIMINATOR_RECORDs", r.FLOW_DISCRIMINATOR_RECORDs, r.NUM_FLOW_DISCRIMINATOR + 1u, bc);
}

struct F_BCMC_ORDER {
  u8 ALL_BCMC_FLOWS_IND, NUM_BCMC_PROGRAMS;
  PoolArray<F_BCMC_ORDER_BCMC_PROGRAMS> BCMC_PROGRAMS;
  u8 CLEAR_ALL_RETRY_DELAY, BCMC_REASON, BCMC_RETRY_DELAY;
};
template <class W>
void layout(W& w, F_BCMC_ORDER& r, const Ctx& c) {
  w(F(ALL_BCMC_FLOWS_IND, 1));
  if (!r.ALL_BCMC_FLOWS_IND) {
    w(F(NUM_BCMC_PROGRAMS, 6));
    w.records("BCMC_PROGRAMS", r.BCMC_PROGRAMS, r.NUM_BCMC_PROGRAMS, c);
    return;
  }
  w(F(CLEAR_ALL_RETRY_DELAY, 1));
  if (r.CLEAR_ALL_RETRY_DELAY) return;
  w(F(BCMC_REASON, 4), F(BCMC_RETRY_DELAY, 8));
}

// Fast Call Setup Order (36): the reduced slot cycle fields (ORDQ 0 adds the requested
// index), then the radio environment report and tracking zone controls of P_REV 11.
struct F_FAST_CALL_SETUP_ORDER {
  u8 RSC_MODE_SUPPORTED, MAX_RSC_END_TIME_UNIT, MAX_RSC_END_TIME_VALUE, REQ_RSCI, IGNORE_QPCH;
  u8 RER_MODE_INCL, RER_MODE_ENABLED, RER_MAX_NUM_MSG_IDX, RER_TIME, RER_TIME_UNIT, MAX_RER_PILOT_LIST_SIZE;
  u8 TKZ_INCL, TKZ_MODE_ENABLED, TKZ_MAX_NUM_MSG_IDX, TKZ_UPDATE_PRD, TKZ_LIST_LEN, TKZ_TIMER;
};
template <class W>
void layout(W& w, F_FAST_CALL_SETUP_ORDER& r, const OrderCtx& c) {
  w(F(RSC_MODE_SUPPORTED, 1));
  if (r.RSC_MODE_SUPPORTED) {
    w(F(MAX_RSC_END_TIME_UNIT, 2), F(MAX_RSC_END_TIME_VALUE, 4));
    if (c.ordq == 0) w(F(REQ_RSCI, 4));
    w(F(IGNORE_QPCH, 1));
  }
  if (c.p_rev < 11) return;
  w(F(RER_MODE_INCL, 1));
  if (r.RER_MODE_INCL) {
    w(F(RER_MODE_ENABLED, 1));
    if (r.RER_MODE_ENABLED) {
      w(F(RER_MAX_NUM_MSG_IDX, 3), F(RER_TIME, 3));
      if (r.RER_TIME != 7) {   // '111' means no timer, so no unit
        w(F(RER_TIME_UNIT, 2));
      }
      w(F(MAX_RER_PILOT_LIST_SIZE, 3));
    }
  }
  w(F(TKZ_INCL, 1));
  if (r.TKZ_INCL) {
    w(F(TKZ_MODE_ENABLED, 1));
    if (r.TKZ_MODE_ENABLED) w(F(TKZ_MAX_NUM_MSG_IDX, 3), F(TKZ_UPDATE_PRD, 4), F(TKZ_LIST_LEN, 4), F(TKZ_TIMER, 8));
  }
}

// Service Status Order (37): one SERVICE_STATUS per service reference identifier whose
// bitmap bit is set.
struct F_SERVICE_STATUS_ORDER {
  u8 SR_ID_BITMAP_BIT1, SR_ID_BITMAP_BIT2, SR_ID_BITMAP_BIT3, SR_ID_BITMAP_BIT4, SR_ID_BITMAP_BIT5,
      SR_ID_BITMAP_BIT6;
  PoolArray<u8> SERVICE_STATUS;
};
template <class W>
void layout(W& w, F_SERVICE_STATUS_ORDER& r, const Ctx&) {
  w(F(SR_ID_BITMAP_BIT1, 1), F(SR_ID_BITMAP_BIT2, 1), F(SR_ID_BITMAP_BIT3, 1), F(SR_ID_BITMAP_BIT4, 1),
    F(SR_ID_BITMAP_BIT5, 1), F(SR_ID_BITMAP_BIT6, 1));
  const std::uint32_t set = r.SR_ID_BITMAP_BIT1 + r.SR_ID_BITMAP_BIT2 + r.SR_ID_BITMAP_BIT3 +
                            r.SR_ID_BITMAP_BIT4 + r.SR_ID_BITMAP_BIT5 + r.SR_ID_BITMAP_BIT6;
  w.scalars("SERVICE_STATUS", r.SERVICE_STATUS, set, 3);
}

// Location Services Order (38).
struct F_LOCATION_SERVICES_ORDER {
  u8 REGULATORY_IND_INCL, REGULATORY_IND;
};
template <class W>
void layout(W& w, F_LOCATION_SERVICES_ORDER& r, const Ctx&) {
  w(F(REGULATORY_IND_INCL, 1));
  if (r.REGULATORY_IND_INCL) w(F(REGULATORY_IND, 2));
}

// Every order-specific record, one member per kind; ORDER picks the one in use.
struct OrderSpecific {
  F_BS_CHALLENGE_CONFIRM_ORDER BSCCO;
  F_PERIODIC_PILOT_MEASURE_REQ_ORDER PPMRO;
  F_SO_ORDER SORQO, SORPO;
  F_RELEASE_ORDER RELO;
  F_STATUS_REQ_ORDER STRQO;
  F_REGIST_ACCEPTED_ORDER RAO;
  F_RETRY_ORDER RO;
  F_BS_REJECT_ORDER BSREJ;
  F_BCMC_ORDER BCMCO;
  F_FAST_CALL_SETUP_ORDER FCSO;
  F_SERVICE_STATUS_ORDER SSTO;
  F_LOCATION_SERVICES_ORDER LSO;
};

// Which order codes carry a record on a channel.
enum class Link { common, traffic };

constexpr bool has_record(Link link, u8 order, u8 ordq) {
  switch (order) {
    case 17:   // on traffic, ORDQ 0 is the one-shot Pilot Measurement Request Order: no fields
      return link == Link::common || ordq != 0;
    case 2: case 19: case 20: case 26: case 32: case 33: case 35: case 37: case 38:
      return true;
    case 27: case 36:
      return link == Link::common;
    case 21:
      return link == Link::traffic;
    default:
      return false;
  }
}

// ORDER, ADD_RECORD_LEN, ORDQ and the order-specific record, as both order bodies carry them.
// The record is bounded to the additional record less ORDQ; an order without a record here
// still moves on by the declared length.
template <class W>
void order_fields(W& w, Link link, u8& ORDER, u8& ADD_RECORD_LEN, u8& ORDQ, OrderSpecific& s, const Ctx& c) {
  w(field(ORDER, "ORDER", 6), field(ADD_RECORD_LEN, "ADD_RECORD_LEN", 3));
  if (ADD_RECORD_LEN == 0) return;
  w(field(ORDQ, "ORDQ", 8));
  const std::uint64_t budget = ADD_RECORD_LEN * 8u - 8u;
  if (!has_record(link, ORDER, ORDQ)) {
    w.skip(budget);
    return;
  }
  OrderCtx oc{c};
  oc.ordq = ORDQ;
  switch (ORDER) {
    case 2: w.sized("OrderSpecificFields.BSCCO", "F_BS_CHALLENGE_CONFIRM_ORDER", s.BSCCO, budget, oc); break;
    case 17:
      w.sized("OrderSpecificFields.PPMRO", "F_PERIODIC_PILOT_MEASURE_REQ_ORDER", s.PPMRO, budget, oc);
      break;
    case 19: w.sized("OrderSpecificFields.SORQO", "F_SO_REQ_ORDER", s.SORQO, budget, oc); break;
    case 20: w.sized("OrderSpecificFields.SORPO", "F_SO_RSP_ORDER", s.SORPO, budget, oc); break;
    case 21: w.sized("OrderSpecificFields.RELO", "F_RELEASE_ORDER", s.RELO, budget, oc); break;
    case 26: w.sized("OrderSpecificFields.STRQO", "F_STATUS_REQ_ORDER", s.STRQO, budget, oc); break;
    case 27: w.sized("OrderSpecificFields.RAO", "F_REGIST_ACCEPTED_ORDER", s.RAO, budget, oc); break;
    case 32: w.sized("OrderSpecificFields.RO", "F_RETRY_ORDER", s.RO, budget, oc); break;
    case 33: w.sized("OrderSpecificFields.BSREJ", "F_BS_REJECT_ORDER", s.BSREJ, budget, oc); break;
    case 35: w.sized("OrderSpecificFields.BCMCO", "F_BCMC_ORDER", s.BCMCO, budget, oc); break;
    case 36: w.sized("OrderSpecificFields.FCSO", "F_FAST_CALL_SETUP_ORDER", s.FCSO, budget, oc); break;
    case 37: w.sized("OrderSpecificFields.SSTO", "F_SERVICE_STATUS_ORDER", s.SSTO, budget, oc); break;
    case 38: w.sized("OrderSpecificFields.LSO", "F_LOCATION_SERVICES_ORDER", s.LSO, budget, oc); break;
    default: break;
  }
}

}  // namespace cs::orders
