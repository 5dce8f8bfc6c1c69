#include "fwd_traffic/bodies.h"

namespace cs {

const BodyOps* fd_order_body() { return nullptr; }

}  // namespace cs
