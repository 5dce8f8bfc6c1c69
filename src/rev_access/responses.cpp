// Access channel messages that answer the base station or carry data (C.S0005 2.7.1.3.2):
// Order, Data Burst, Authentication Challenge Response, Status Response and Extended Status
// Response, TMSI Assignment Completion and PACA Cancel, Device Information.
#include "layout/layout.h"
#include "records/forward_shared.h"
#include "records/reverse_info_records.h"
#include "records/reverse_order_records.h"
#include "records/reverse_shared.h"
#include "rev_access/tables.h"

namespace cs {
namespace {

using u8 = std::uint8_t;

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

// --- Extended Status Response --------------------------------------------------------------
// As the Status Response, with the records counted.
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

}  // namespace

Rows rc_response_rows() {
  static constexpr MessageRow rows[] = {
      {2, "ORDM", body_ops<RC_ORDM>()},
      // The forward layout; the burst's contents are read for the reverse direction.
      {3, "DBM", body_ops<fwd::DataBurst>()},
      {6, "AUCRM", body_ops<rev::AuthChallengeResponse>()},
      {7, "STRPM", body_ops<rev::StatusResponse>()},
      // TMSI Assignment Completion and PACA Cancel: the same empty body, two messages.
      {8, "TACM", body_ops<rev::NoFields>()},
      {9, "PACNM", body_ops<rev::NoFields>()},
      {10, "ESTRPM", body_ops<RC_ESTRPM>()},
      {13, "DIM", body_ops<rev::DeviceInformation>()},
  };
  return rows;
}

}  // namespace cs
