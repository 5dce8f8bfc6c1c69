#include "fwd_common/bodies.h"

namespace cs {

const BodyOps* fc_order_body() { return nullptr; }

}  // namespace cs
