// Access channel messages that answer the base station or carry data (C.S0005 2.7.1.3.2):
// Order, Data Burst, Authentication Challenge Response, Status Response and Extended Status
// Response, TMSI Assignment Completion and PACA Cancel, Device Information.
#include "layout/layout.h"
#include "records/forward_shared.h"
#include "records/reverse_info_records.h"
#include "rev_access/tables.h"

namespace cs {
namespace {

using u8 = std::uint8_t;
using u16 = std::uint16_t;
using u32 = std::uint32_t;

// --- Order-specific fields of the reverse orders (C.S0005 2.7.3) ---------------------------
// Each is what follows ORDQ in the additional record, bounded to ADD_RECORD_LEN * 8 - 8 bits;
// the order's ORDQ comes in Ctx::ordq.

// Base Station Challenge Order (ORDER 2).
struct R_BS_CHALLENGE_ORDER {
  u32 RANDBS;
};
template <class W>
void layout(W& w, R_BS_CHALLENGE_ORDER& r, const Ctx&) {
  w(F(RANDBS, 32));
}

// Service Option Request (19) and Response (20) Orders.
struct R_SO_ORDER {
  u16 SERVICE_OPTION;
};
template <class W>
void layout(W& w, R_SO_ORDER& r, const Ctx&) {
  w(F(SERVICE_OPTION, 16));
}

// Release Order (21) and Fast Call Setup Order (34): with ORDQ 3 (release) or always (fast call
// setup) the reduced slot cycle request.
struct R_RSC_ORDER {
  u8 RSC_MODE_IND, RSCI, RSC_END_TIME_UNIT, RSC_END_TIME_VALUE;
};
template <class W>
void rsc(W& w, R_RSC_ORDER& r) {
  w(F(RSC_MODE_IND, 1));
  if (r.RSC_MODE_IND) w(F(RSCI, 4), F(RSC_END_TIME_UNIT, 2), F(RSC_END_TIME_VALUE, 4));
}
struct R_RELEASE_ORDER : R_RSC_ORDER {};
template <class W>
void layout(W& w, R_RELEASE_ORDER& r, const Ctx& c) {
  if (c.ordq == 3) rsc(w, r);
}
struct R_FAST_CALL_SETUP_ORDER : R_RSC_ORDER {};
template <class W>
void layout(W& w, R_FAST_CALL_SETUP_ORDER& r, const Ctx&) {
  rsc(w, r);
}

// Mobile Station Reject Order (31): the type of the paging channel message rejected; for a
// rejected order, that order and its ORDQ (the order code right-aligned in 8 bits); for a
// rejected Feature Notification, the record at fault; the connection for ORDQ 16 to 19 and
// the call control instance tag for ORDQ 19.
constexpr u8 kPagingOrderMessage = 7;
constexpr u8 kPagingFeatureNotification = 12;
struct R_MS_REJECT_ORDER {
  u8 REJECTED_TYPE, REJECTED_ORDER, REJECTED_ORDQ, REJECTED_RECORD, CON_REF, TAG;
};
template <class W>
void layout(W& w, R_MS_REJECT_ORDER& r, const Ctx& c) {
  w(F(REJECTED_TYPE, 8));
  // reserved
  if (r.REJECTED_TYPE == kPagingOrderMessage) w(reserved(2), F(REJECTED_ORDER, 6), F(REJECTED_ORDQ, 8));
  if (r.REJECTED_TYPE == kPagingFeatureNotification) w(F(REJECTED_RECORD, 8));
  if (c.ordq >= 16 && c.ordq <= 19) w(F(CON_REF, 8));
  if (c.ordq == 19) w(F(TAG, 4));
}

struct ReverseOrderSpecific {
  R_BS_CHALLENGE_ORDER BSCO;
  R_SO_ORDER SORQO, SORPO;
  R_RELEASE_ORDER RELO;
  R_MS_REJECT_ORDER MSRO;
  R_FAST_CALL_SETUP_ORDER FCSO;
};

// --- 2.7.1.3.2.2 Order Message -------------------------------------------------------------
struct RC_ORDM {
  u8 ORDER, ADD_RECORD_LEN, ORDQ;
  ReverseOrderSpecific specific;
};
template <class W>
void layout(W& w, RC_ORDM& r, const Ctx& c) {
  w(F(ORDER, 6), F(ADD_RECORD_LEN, 3));
  if (r.ADD_RECORD_LEN == 0) return;
  w(F(ORDQ, 8));
  const std::uint64_t budget = r.ADD_RECORD_LEN * 8u - 8u;
  Ctx oc = c;
  oc.ordq = r.ORDQ;
  ReverseOrderSpecific& s = r.specific;
  switch (r.ORDER) {
    case 2: w.sized("OrderSpecificFields.BSCO", "R_BS_CHALLENGE_ORDER", s.BSCO, budget, oc); break;
    case 19: w.sized("OrderSpecificFields.SORQO", "R_SO_REQ_ORDER", s.SORQO, budget, oc); break;
    case 20: w.sized("OrderSpecificFields.SORPO", "R_SO_RSP_ORDER", s.SORPO, budget, oc); break;
    case 21:
      if (r.ORDQ == 3) w.sized("OrderSpecificFields.RELO", "R_RELEASE_ORDER", s.RELO, budget, oc);
      else w.skip(budget);
      break;
    case 31: w.sized("OrderSpecificFields.MSRO", "R_MS_REJECT_ORDER", s.MSRO, budget, oc); break;
    case 34: w.sized("OrderSpecificFields.FCSO", "R_FAST_CALL_SETUP_ORDER", s.FCSO, budget, oc); break;
    default: w.skip(budget); break;   // an order whose record is its ORDQ alone
  }
}

// --- 2.7.1.3.2.6 Authentication Challenge Response Message --------------------------------
struct RC_AUCRM {
  u32 AUTHU;
};
template <class W>
void layout(W& w, RC_AUCRM& r, const Ctx&) {
  w(F(AUTHU, 18));
}

// --- Status Response and Extended Status Response ------------------------------------------
// The qualification that the Status Request asked with, QUAL_INFO_LEN octets: a band class,
// or a band class and an operating mode; then the records asked for.
struct QualInfo {
  u8 QUAL_INFO_TYPE, QUAL_INFO_LEN, BAND_CLASS, OP_MODE;
};
template <class W>
void qual_info(W& w, QualInfo& r) {
  w(F(QUAL_INFO_TYPE, 8), F(QUAL_INFO_LEN, 3));
  // The qualification fields and their reserved bits fill QUAL_INFO_LEN octets.
  auto end = w.declared_end();
  end.at(8u * r.QUAL_INFO_LEN);
  if (r.QUAL_INFO_TYPE == 1) w(F(BAND_CLASS, 5));
  if (r.QUAL_INFO_TYPE == 2) w(F(BAND_CLASS, 5), F(OP_MODE, 8));
}

struct RC_STRPM : QualInfo {
  PoolArray<REV_USER_INFO_REC> INFO_RECs;
};
template <class W>
void layout(W& w, RC_STRPM& r, const Ctx& c) {
  qual_info(w, r);
  rev_info_records_to_end(w, r.INFO_RECs, c);
}

struct RC_ESTRPM : QualInfo {
  u8 NUM_INFO_RECORDS;
  PoolArray<REV_USER_INFO_REC> INFO_RECs;
};
template <class W>
void layout(W& w, RC_ESTRPM& r, const Ctx& c) {
  qual_info(w, r);
  w(F(NUM_INFO_RECORDS, 4));
  rev_info_records(w, r.INFO_RECs, r.NUM_INFO_RECORDS, c);
}

// --- TMSI Assignment Completion and PACA Cancel --------------------------------------------
// Both are announced by their MSG_ID alone: the body has no fields.
struct RC_TACM {};
template <class W>
void layout(W&, RC_TACM&, const Ctx&) {}

// --- Device Information Message -----------------------------------------------------------
// The wireless local loop device type and a counted list of information records.
struct RC_DIM {
  u8 WLL_DEVICE_TYPE, NUM_INFO_RECORDS;
  PoolArray<REV_USER_INFO_REC> INFO_RECs;
};
template <class W>
void layout(W& w, RC_DIM& r, const Ctx& c) {
  w(F(WLL_DEVICE_TYPE, 3), F(NUM_INFO_RECORDS, 5));
  rev_info_records(w, r.INFO_RECs, r.NUM_INFO_RECORDS, c);
}

}  // namespace

Rows rc_response_rows() {
  static constexpr MessageRow rows[] = {
      {2, "ORDM", body_ops<RC_ORDM>()},
      // The forward layout; the burst's contents are read for the reverse direction.
      {3, "DBM", body_ops<fwd::DataBurst>()},
      {6, "AUCRM", body_ops<RC_AUCRM>()},
      {7, "STRPM", body_ops<RC_STRPM>()},
      {8, "TACM", body_ops<RC_TACM>()},
      {9, "PACNM", body_ops<RC_TACM>()},
      {10, "ESTRPM", body_ops<RC_ESTRPM>()},
      {13, "DIM", body_ops<RC_DIM>()},
  };
  return rows;
}

}  // namespace cs
