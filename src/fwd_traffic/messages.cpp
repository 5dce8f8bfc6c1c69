#include "fwd_traffic/bodies.h"

namespace cs {

const BodyOps* fd_message_body(std::uint8_t) { return nullptr; }

}  // namespace cs
