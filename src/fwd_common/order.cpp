// Order Message of the paging / forward common channel (C.S0005 3.7.2.3.2.7): the order
// record that follows the link-layer fields.
#include "layout/layout.h"
#include "fwd_common/tables.h"
#include "records/order_records.h"

namespace cs {
namespace {

struct FC_ORDM {
  std::uint8_t ORDER, ADD_RECORD_LEN, ORDQ;
  orders::OrderSpecific specific;
};

template <class W>
void layout(W& w, FC_ORDM& r, const Ctx& c) {
  orders::order_fields(w, orders::Link::common, r.ORDER, r.ADD_RECORD_LEN, r.ORDQ, r.specific, c);
}

}  // namespace

Rows paging_order_rows() {
  static constexpr MessageRow rows[] = {{7, "ORDM", body_ops<FC_ORDM>(), kOrderPath, kNoSdu}};
  return rows;
}

}  // namespace cs
