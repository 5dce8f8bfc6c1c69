// Order Message of the paging / forward common channel (C.S0005 3.7.2.3.2.7): the order
// record that follows the link-layer fields.
#include "codec/layout.h"
#include "fwd_common/bodies.h"
#include "fwd_common/order_records.h"

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

constexpr BodyOps kOrder = body_ops<FC_ORDM>("FC_ORDM");

}  // namespace

const BodyOps* fc_order_body() { return &kOrder; }

}  // namespace cs
