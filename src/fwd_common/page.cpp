#include "fwd_common/bodies.h"

namespace cs {

const BodyOps* page_body(std::uint8_t) { return nullptr; }
const BodyOps* gpm_page_record_body() { return nullptr; }

}  // namespace cs
