// Order-specific fields of the orders a mobile station sends (C.S0005 2.7.3), for the Order
// Message of the access channel and that of the reverse traffic channel.
//
// Each record is what follows ORDQ inside the additional record; the caller bounds it to
// ADD_RECORD_LEN * 8 - 8 bits and passes ORDQ in Ctx::ordq. Trailing reserved bits are never
// read: the caller moves on by the declared length anyway.
#pragma once
#include <cstdint>

#include "codec/walk.h"

namespace cs::rev_orders {

using u8 = std::uint8_t;
using u16 = std::uint16_t;
using u32 = std::uint32_t;

// Which channel carries the order: it decides which rejected messages the Mobile Station
// Reject Order describes further.
enum class Link { common, traffic };

struct RejectCtx : Ctx {
  u8 ordq;
  Link link;
};

// Base Station Challenge Order (ORDER 2).
struct R_BS_CHALLENGE_ORDER {
  u32 RANDBS;
};
template <class W>
void layout(W& w, R_BS_CHALLENGE_ORDER& r, const Ctx&) {
  w(F(RANDBS, 32));
}

// Service Option Request Order (19) and Service Option Response Order (20).
struct R_SO_ORDER {
  u16 SERVICE_OPTION;
};
template <class W>
void layout(W& w, R_SO_ORDER& r, const Ctx&) {
  w(F(SERVICE_OPTION, 16));
}

// Mobile Station Reject Order (31). ORDQ gives the reason; what follows REJECTED_TYPE depends
// on the message rejected and on the reason:
//   - an Order Message (type 7 on the paging channel, 1 on the traffic channel): its ORDER and
//     ORDQ;
//   - a Set Parameters Message (traffic type 12): the parameter identifier;
//   - a message carrying information records (the Feature Notification Message, type 12 on
//     the paging channel; traffic types 3, 14, 40, 42): the record type;
//   - the call control reasons '00010000' to '00010011': the connection reference, and for
//     '00010011' (TAG not matched) the TAG;
//   - on the traffic channel from Release A: the PDU type of the rejected message.
struct R_MS_REJECT_ORDER {
  u8 REJECTED_TYPE, REJECTED_ORDER, REJECTED_ORDQ;
  u16 REJECTED_PARAM_ID;
  u8 REJECTED_RECORD, CON_REF, TAG, REJECTED_PDU_TYPE;
};

constexpr bool rejects_record(Link link, u8 type) {
  if (link == Link::common) return type == 12;
  return type == 3 || type == 14 || type == 40 || type == 42;
}

template <class W>
void layout(W& w, R_MS_REJECT_ORDER& r, const RejectCtx& c) {
  w(F(REJECTED_TYPE, 8));
  const u8 order_type = c.link == Link::traffic ? 1 : 7;
  if (r.REJECTED_TYPE == order_type) w(F(REJECTED_ORDER, 8), F(REJECTED_ORDQ, 8));
  if (c.link == Link::traffic && r.REJECTED_TYPE == 12) w(F(REJECTED_PARAM_ID, 16));
  if (rejects_record(c.link, r.REJECTED_TYPE)) w(F(REJECTED_RECORD, 8));
  if (c.ordq >= 0x10 && c.ordq <= 0x13) w(F(CON_REF, 8));
  if (c.ordq == 0x13) w(F(TAG, 4));
  if (c.link == Link::traffic && c.p_rev >= 7) w(F(REJECTED_PDU_TYPE, 2));
}

// Release Order (21) with ORDQ '00000011' and Fast Call Setup Order (34): the reduced slot
// cycle the mobile station asks for.
struct R_RSC_ORDER {
  u8 RSC_MODE_IND, RSCI, RSC_END_TIME_UNIT, RSC_END_TIME_VALUE;
};
template <class W>
void layout(W& w, R_RSC_ORDER& r, const Ctx&) {
  w(F(RSC_MODE_IND, 1));
  if (r.RSC_MODE_IND) w(F(RSCI, 4), F(RSC_END_TIME_UNIT, 2), F(RSC_END_TIME_VALUE, 4));
}

// Every order-specific record, one member per kind; ORDER picks the one in use.
struct OrderSpecific {
  R_BS_CHALLENGE_ORDER BSCO;
  R_SO_ORDER SORQO, SORPO;
  R_MS_REJECT_ORDER MSRJO;
  R_RSC_ORDER RELO, FCSO;
};

// ORDER, ADD_RECORD_LEN, ORDQ and the order-specific record. The record is bounded to the
// additional record less ORDQ; an order without a record here still moves on by the declared
// length.
template <class W>
void order_fields(W& w, Link link, u8& ORDER, u8& ADD_RECORD_LEN, u8& ORDQ, OrderSpecific& s, const Ctx& c) {
  w(field(ORDER, "ORDER", 6), field(ADD_RECORD_LEN, "ADD_RECORD_LEN", 3));
  if (ADD_RECORD_LEN == 0) return;
  w(field(ORDQ, "ORDQ", 8));
  const std::uint64_t budget = ADD_RECORD_LEN * 8u - 8u;
  // The additional record is ADD_RECORD_LEN octets on the air, ORDQ included: a message that
  // stops inside it is short, whatever the order-specific fields read of it.
  if (!w.need(budget)) return;
  RejectCtx oc{c};
  oc.ordq = ORDQ;
  oc.link = link;
  switch (ORDER) {
    case 2: w.sized("OrderSpecificFields.BSCO", "R_BS_CHALLENGE_ORDER", s.BSCO, budget, oc); break;
    case 19: w.sized("OrderSpecificFields.SORQO", "R_SO_REQ_ORDER", s.SORQO, budget, oc); break;
    case 20: w.sized("OrderSpecificFields.SORPO", "R_SO_RSP_ORDER", s.SORPO, budget, oc); break;
    case 31: w.sized("OrderSpecificFields.MSRJO", "R_MS_REJECT_ORDER", s.MSRJO, budget, oc); break;
    case 21:
      if (ORDQ == 3) {
        w.sized("OrderSpecificFields.RELO", "R_RELEASE_ORDER", s.RELO, budget, oc);
      } else {
        w.skip(budget);
      }
      break;
    case 34: w.sized("OrderSpecificFields.FCSO", "R_FAST_CALL_SETUP_ORDER", s.FCSO, budget, oc); break;
    default: w.skip(budget); break;
  }
}

}  // namespace cs::rev_orders
