#include "text/text.h"

#include <algorithm>

namespace cs {

void put_hex_bits(Text& t, const std::uint8_t* data, std::uint32_t bits) {
  if (data == nullptr) {
    t.put("NULL\n");
    return;
  }
  t.put("0x");
  for (std::uint32_t i = 0; i < bits; i += 4) {
    const unsigned shift = 4 - (i % 8);   // i is 0 or 4 within its octet
    unsigned nibble = (data[i / 8] >> shift) & 0xF;
    if (bits - i < 4) nibble &= 0xF0u >> (bits - i);   // keep only the bits that exist
    t.hex_digit(nibble);
  }
}

std::string to_crlf(std::string_view s) {
  std::string r;
  r.reserve(s.size() + static_cast<std::size_t>(std::count(s.begin(), s.end(), '\n')));
  for (char c : s) {
    if (c == '\n') r.push_back('\r');
    r.push_back(c);
  }
  return r;
}

void to_crlf_in_place(std::string& s) {
  const std::size_t lines = static_cast<std::size_t>(std::count(s.begin(), s.end(), '\n'));
  if (lines == 0) return;
  std::size_t from = s.size();
  s.resize(s.size() + lines);
  std::size_t to = s.size();
  while (from > 0) {
    const char c = s[--from];
    s[--to] = c;
    if (c == '\n') s[--to] = '\r';
  }
}

}  // namespace cs
