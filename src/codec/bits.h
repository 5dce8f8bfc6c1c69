// Big-endian bit fields over a message buffer. Every read is bounded by the buffer's size:
// bits past the last octet read as zero, so no count, however wrong, reaches outside it.
#pragma once
#include <bit>
#include <cstddef>
#include <cstring>
#include <cstdint>

namespace cs {

// Reads `width` (0..32) bits at bit position `pos`, most significant first. Away from the
// buffer's end the five octets that can hold the field come in one 64-bit load.
inline std::uint32_t read_bits(const std::uint8_t* buf, std::size_t nbytes, std::uint64_t pos, unsigned width) {
  if (width == 0) return 0;
  const std::uint64_t byte = pos >> 3;
  const unsigned off = static_cast<unsigned>(pos & 7);
  std::uint64_t w = 0;
  if (byte < nbytes && nbytes - byte >= 8) {
    std::memcpy(&w, buf + byte, 8);
    if constexpr (std::endian::native == std::endian::little) w = __builtin_bswap64(w);
  } else {
    for (unsigned i = 0; i < 5; ++i) w = (w << 8) | (byte + i < nbytes ? buf[byte + i] : 0u);
    w <<= 24;
  }
  return static_cast<std::uint32_t>((w << off) >> (64 - width));
}

// Copies `width` bits from `src` at `src_pos` into `dst` at `dst_pos` (destination bits
// outside the copied range are left as they are).
void copy_bits(const std::uint8_t* src, std::size_t src_bytes, std::uint64_t src_pos, std::uint32_t width,
               std::uint8_t* dst, std::uint32_t dst_pos);

// Writes the low `width` (0..32) bits of `value` at bit position `pos`, most significant
// first, leaving the other bits of the touched octets unchanged.
void write_bits(std::uint8_t* dst, std::uint32_t pos, std::uint32_t value, unsigned width);

}  // namespace cs
