// Position determination data messages (IS-801-1, C.S0022) carried in data bursts of type 5.
#pragma once
#include "pd/burst.h"

namespace cs {

Rc pd_contents(Text& t, unsigned indent, const std::uint8_t* data, std::size_t n, const Ctx& c, Arena& arena);

}  // namespace cs
