// Access channel messages that answer the base station or carry data (C.S0005 2.7.1.3.2):
// Order, Data Burst, Authentication Challenge Response, Status Response and Extended Status
// Response, TMSI Assignment Completion and PACA Cancel, Device Information.
#include "layout/layout.h"
#include "records/forward_shared.h"
#include "records/reverse_info_records.h"
#include "records/reverse_order_records.h"
#include "rev_access/tables.h"

namespace cs {
namespace {

using u8 = std::uint8_t;
using u16 = std::uint16_t;
using u32 = std::uint32_t;

// --- 2.7.1.3.2.2 Order Message -------------------------------------------------------------
// The order record with the order-specific fields of the orders a mobile station sends, as on
// the reverse traffic channel; a rejected order here is a paging channel message.
struct RC_ORDM {
  u8 ORDER, ADD_RECORD_LEN, ORDQ;
  rev_orders::OrderSpecific specific;
};
template <class W>
void layout(W& w, RC_ORDM& r, const Ctx& c) {
  rev_orders::order_fields(w, rev_orders::Link::common, r.ORDER, r.ADD_RECORD_LEN, r.ORDQ, r.specific, c);
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
// The qualification that the Status Request asked with, then the records asked for: to the
// end of the message, or counted.
struct RC_STRPM {
  QualInfo QUAL_INFO;
  PoolArray<REV_USER_INFO_REC> INFO_RECs;
};
template <class W>
void layout(W& w, RC_STRPM& r, const Ctx& c) {
  layout(w, r.QUAL_INFO, c);
  rev_info_records_to_end(w, r.INFO_RECs, c);
}

struct RC_ESTRPM {
  QualInfo QUAL_INFO;
  u8 NUM_INFO_RECORDS;
  PoolArray<REV_USER_INFO_REC> INFO_RECs;
};
template <class W>
void layout(W& w, RC_ESTRPM& r, const Ctx& c) {
  layout(w, r.QUAL_INFO, c);
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
