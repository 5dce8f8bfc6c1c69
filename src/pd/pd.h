// Position determination data messages (IS-801-1, C.S0022) carried in data bursts of type 5.
#pragma once
#include "pd/burst.h"

namespace cs {

// Decodes the `n` octets of `data` as one position determination data message of the link
// Ctx::forward names and, when that succeeds, prints it at `indent`.
Rc pd_contents(Text& t, unsigned indent, const std::uint8_t* data, std::size_t n, const Ctx& c, Arena& arena);

// Decodes only: the result and, on success, the bits the message takes, in whole octets.
Rc pd_measure(const std::uint8_t* data, std::size_t n, const Ctx& c, std::uint64_t* consumed_bits);

}  // namespace cs
