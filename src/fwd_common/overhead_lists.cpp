#include "fwd_common/bodies.h"

namespace cs {

const BodyOps* overhead_list_body(std::uint8_t) { return nullptr; }

}  // namespace cs
