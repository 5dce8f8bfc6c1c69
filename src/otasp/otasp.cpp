#include "otasp/otasp.h"

namespace cs {

// Not decoded yet.
Rc otasp_contents(Text&, unsigned, const std::uint8_t*, std::size_t, const Ctx&, Arena&) { return Rc::count; }

}  // namespace cs
