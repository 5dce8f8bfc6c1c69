// Order Message of the reverse traffic channel (C.S0005 2.7.2.3.2.1): the order record with
// the order-specific fields of the orders a mobile station sends. Unlike the forward order it
// carries no action time.
#include "layout/layout.h"
#include "records/reverse_order_records.h"
#include "rev_traffic/tables.h"

namespace cs {
namespace {

struct RD_ORDM {
  std::uint8_t ORDER, ADD_RECORD_LEN, ORDQ;
  rev_orders::OrderSpecific specific;
};

template <class W>
void layout(W& w, RD_ORDM& r, const Ctx& c) {
  rev_orders::order_fields(w, rev_orders::Link::traffic, r.ORDER, r.ADD_RECORD_LEN, r.ORDQ, r.specific, c);
}

}  // namespace

Rows rd_order_rows() {
  static constexpr MessageRow rows[] = {
      {1, "ORDM", body_ops<RD_ORDM>()},
  };
  return rows;
}

}  // namespace cs
