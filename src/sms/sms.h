// Short messages (C.S0015 transport and teleservice layers) carried in data bursts of type 3,
// and short data bursts (type 6).
#pragma once
#include "pd/burst.h"

namespace cs {

Rc sms_contents(Text& t, unsigned indent, const std::uint8_t* data, std::size_t n, const Ctx& c, Arena& arena);
Rc sdb_contents(Text& t, unsigned indent, const std::uint8_t* data, std::size_t n, const Ctx& c, Arena& arena);

}  // namespace cs
