#include "fwd_common/bodies.h"

namespace cs {

const BodyOps* overhead_body(std::uint8_t msg_id) { return overhead_list_body(msg_id); }

}  // namespace cs
