// Over-the-air service provisioning (IS-683, C.S0016 and C.S0066 for 3GPD) messages carried in data bursts of type 4.
#pragma once
#include "pd/burst.h"

namespace cs {

Rc otasp_contents(Text& t, unsigned indent, const std::uint8_t* data, std::size_t n, const Ctx& c, Arena& arena);

}  // namespace cs
