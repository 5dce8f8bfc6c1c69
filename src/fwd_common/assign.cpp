#include "fwd_common/bodies.h"

namespace cs {

const BodyOps* cam_body() { return nullptr; }
const BodyOps* ecam_body() { return nullptr; }

}  // namespace cs
