#include "codec/bits.h"

namespace cs {

void copy_bits(const std::uint8_t* src, std::size_t src_bytes, std::uint64_t src_pos, std::uint32_t width,
               std::uint8_t* dst, std::uint32_t dst_pos) {
  while (width > 0) {
    const unsigned take = width < 32 ? width : 32;
    write_bits(dst, dst_pos, read_bits(src, src_bytes, src_pos, take), take);
    src_pos += take;
    dst_pos += take;
    width -= take;
  }
}

void write_bits(std::uint8_t* dst, std::uint32_t pos, std::uint32_t value, unsigned width) {
  while (width > 0) {
    const unsigned off = pos & 7;
    const unsigned take = width < 8 - off ? width : 8 - off;
    const unsigned chunk = (value >> (width - take)) & ((1u << take) - 1u);
    const unsigned shift = 8 - off - take;
    const unsigned mask = ((1u << take) - 1u) << shift;
    std::uint8_t& octet = dst[pos >> 3];
    octet = static_cast<std::uint8_t>((octet & ~mask) | (chunk << shift));
    pos += take;
    width -= take;
  }
}

}  // namespace cs
