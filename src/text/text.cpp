#include "text/text.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace cs {

void put_hex_bits(Text& t, const std::uint8_t* data, std::uint32_t bits) {
  if (data == nullptr) {
    t.put("NULL\n");
    return;
  }
  // Composed 64 digits at a time.
  static constexpr char kDigits[] = "0123456789abcdef";
  char b[64];
  std::size_t n = 0;
  t.put("0x");
  for (std::uint32_t i = 0; i < bits; i += 4) {
    const unsigned shift = 4 - (i % 8);   // i is 0 or 4 within its octet
    unsigned nibble = (data[i / 8] >> shift) & 0xF;
    if (bits - i < 4) nibble &= 0xF0u >> (bits - i);   // keep only the bits that exist
    b[n++] = kDigits[nibble];
    if (n == sizeof b) t.put(std::string_view(b, n)), n = 0;
  }
  t.put(std::string_view(b, n));
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
  // Where the LFs are (memchr, forward), then each line's octets move up in one block by the
  // number of LFs before them, from the last line back.
  thread_local std::vector<std::size_t> at;
  at.clear();
  const char* p0 = s.data();
  for (const char* q = p0; (q = static_cast<const char*>(std::memchr(q, '\n', s.size() - (q - p0)))) != nullptr; ++q)
    at.push_back(static_cast<std::size_t>(q - p0));
  if (at.empty()) return;
  std::size_t from = s.size();
  s.resize(s.size() + at.size());
  char* p = s.data();
  std::size_t to = s.size();
  for (std::size_t k = at.size(); k-- > 0;) {
    const std::size_t n = from - (at[k] + 1);   // the octets after this LF
    to -= n;
    std::memmove(p + to, p + at[k] + 1, n);
    p[--to] = '\n';
    p[--to] = '\r';
    from = at[k];
  }
}

}  // namespace cs
