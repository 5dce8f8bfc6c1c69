// Long, valid messages for the benchmarks and the long-text tests: a forward traffic Flash
// With Information Message (P_REV 6) whose display records fill `octets` octets, so that its
// detail text has about one line per octet.
#pragma once
#include <cstdint>
#include <vector>

namespace cs::sample {

inline std::vector<std::uint8_t> long_flash_with_info(std::size_t octets) {
  std::vector<std::uint8_t> m;
  std::uint32_t acc = 0;
  unsigned nbits = 0;
  auto put = [&](std::uint32_t v, unsigned w) {
    for (unsigned i = w; i-- > 0;) {
      acc = (acc << 1) | ((v >> i) & 1u);
      if (++nbits == 8) {
        m.push_back(static_cast<std::uint8_t>(acc));
        acc = 0;
        nbits = 0;
      }
    }
  };
  put(14, 8);                       // MSG_TYPE: Flash With Information
  put(0, 3), put(1, 3), put(1, 1);  // ACK_SEQ, MSG_SEQ, ACK_REQ
  put(0, 2);                        // ENCRYPTION
  // Display records (RECORD_TYPE 1) of up to 200 characters until the size is reached.
  std::size_t left = octets > 6 ? octets - 6 : 0;
  while (left >= 3) {
    const unsigned n = static_cast<unsigned>(left - 2 > 200 ? 200 : left - 2);
    put(1, 8), put(n, 8);
    for (unsigned i = 0; i < n; ++i) put('A' + i % 26, 8);
    left -= n + 2;
  }
  while (nbits != 0) put(0, 1);
  m.push_back(0);                   // the octet the channel's bit count leaves out
  m.push_back(0), m.push_back(0);   // CRC
  return m;
}

}  // namespace cs::sample
