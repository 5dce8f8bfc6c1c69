#include "fwd_traffic/bodies.h"

namespace cs {

const BodyOps* fd_handoff_body(std::uint8_t) { return nullptr; }

}  // namespace cs
