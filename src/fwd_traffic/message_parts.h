// Pieces shared by the files that hold the forward traffic message bodies (messages.cpp,
// search.cpp, power_control.cpp). Not for other families.
#pragma once
#include <cstdint>

#include "codec/walk.h"

namespace cs {

namespace fd_parts {

// P_REV values at which revisions of the standard start.
inline constexpr std::uint8_t kIs95B = 4;   // TIA/EIA-95-B
inline constexpr std::uint8_t kRel0 = 6;    // IS-2000 Release 0
inline constexpr std::uint8_t kRelA = 7;
inline constexpr std::uint8_t kRelB = 8;
inline constexpr std::uint8_t kRelC = 9;
inline constexpr std::uint8_t kRelD = 10;

// The number of fixed-width elements that fit in the bits left, for lists whose count is
// not sent (they run to the end of the message). Printing uses the count decoded.
template <class W>
std::uint32_t fit(W& w, unsigned width) {
  return static_cast<std::uint32_t>(w.left() / width);
}

}  // namespace fd_parts
}  // namespace cs
