// Big-endian bit fields over a message buffer. Every read is bounded by the buffer's size:
// bits past the last octet read as zero, so no count, however wrong, reaches outside it.
#pragma once
#include <cstddef>
#include <cstdint>

namespace cs {

// Reads `width` (0..32) bits at bit position `pos`, most significant first.
inline std::uint32_t read_bits(const std::uint8_t* buf, std::size_t nbytes, std::uint64_t pos, unsigned width) {
  std::uint32_t v = 0;
  while (width > 0) {
    const std::uint64_t byte = pos >> 3;
    const unsigned off = static_cast<unsigned>(pos & 7);
    const unsigned take = width < 8 - off ? width : 8 - off;
    const unsigned octet = byte < nbytes ? buf[byte] : 0u;
    const unsigned chunk = (octet >> (8 - off - take)) & ((1u << take) - 1u);
    v = static_cast<std::uint32_t>((static_cast<std::uint64_t>(v) << take) | chunk);
    pos += take;
    width -= take;
  }
  return v;
}

// Copies `width` bits from `src` at `src_pos` into `dst` at `dst_pos` (destination bits
// outside the copied range are left as they are).
void copy_bits(const std::uint8_t* src, std::size_t src_bytes, std::uint64_t src_pos, std::uint32_t width,
               std::uint8_t* dst, std::uint32_t dst_pos);

// Writes the low `width` (0..32) bits of `value` at bit position `pos`, most significant
// first, leaving the other bits of the touched octets unchanged.
void write_bits(std::uint8_t* dst, std::uint32_t pos, std::uint32_t value, unsigned width);

}  // namespace cs
