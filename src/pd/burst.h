// The contents of a data burst. After the fields of a Data Burst Message its CHARi octets
// are decoded by BURST_TYPE (3 short message, 4 service provisioning, 5 position
// determination, 6 short data burst) and printed under a label; the link direction
// (Ctx::forward) is the carrying channel's.
#pragma once
#include <cstddef>
#include <cstdint>

#include "codec/arena.h"
#include "codec/walk.h"
#include "text/text.h"

namespace cs {

// One kind of contents: decodes the `n` octets of `data` (Ctx::forward gives the direction)
// and, when that succeeds, prints them at `indent` after the label the dispatcher wrote.
// Returns the decode result; nothing is printed when it is not 0.
using BurstContents = Rc (*)(Text& t, unsigned indent, const std::uint8_t* data, std::size_t n, const Ctx& c,
                             Arena& arena);

// Appends the contents of a burst of `burst_type` at `indent` (the field indent of the Data
// Burst Message that carries it): the label of the type and direction, then the decoded
// contents, or "Unpack error. " and a line end when they do not decode. A type with no
// decoder gets the label "L4Message.UnknownMessage = " alone on its line. Returns the
// contents' decode result (Rc::ok for a type with no decoder).
Rc print_burst_contents(Text& t, unsigned indent, std::uint8_t burst_type, const std::uint8_t* data, std::size_t n,
                        const Ctx& c);

}  // namespace cs
