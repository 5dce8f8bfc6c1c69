// Order Message of the forward traffic channel (C.S0005 3.7.3.3.2.1): the action time, then
// the order record with the order-specific fields of the traffic channel orders.
#include "layout/layout.h"
#include "records/order_records.h"
#include "fwd_traffic/tables.h"

namespace cs {
namespace {

struct FD_ORDRM {
  std::uint8_t USE_TIME, ACTION_TIME, ORDER, ADD_RECORD_LEN, ORDQ;
  orders::OrderSpecific specific;
};

template <class W>
void layout(W& w, FD_ORDRM& r, const Ctx& c) {
  w(F(USE_TIME, 1), F(ACTION_TIME, 6));
  orders::order_fields(w, orders::Link::traffic, r.ORDER, r.ADD_RECORD_LEN, r.ORDQ, r.specific, c);
}

}  // namespace

Rows fd_order_rows() {
  static constexpr MessageRow rows[] = {
      {1, "ORDRM", body_ops<FD_ORDRM>()},
  };
  return rows;
}

}  // namespace cs
