// Append-only text that knows where it ends. Integers are formatted with to_chars.
#pragma once
#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>

namespace cs {

// Text is written once, where it ends: into a string of its own, or appended straight to a
// caller's string.
class Text {
 public:
  Text() : s_(&own_) {}
  explicit Text(std::string& target) : s_(&target) {}
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;

  Text& put(std::string_view s) {
    s_->append(s.data(), s.size());
    return *this;
  }
  Text& put(char c) {
    s_->push_back(c);
    return *this;
  }
  Text& spaces(unsigned n) {
    s_->append(n, ' ');
    return *this;
  }
  // Signed decimal, as "%d" of the value taken as a 32-bit int.
  Text& dec(std::int64_t v) {
    char b[24];
    auto r = std::to_chars(b, b + sizeof b, v);
    s_->append(b, r.ptr);
    return *this;
  }
  Text& field_value(std::uint32_t v) { return dec(static_cast<std::int32_t>(v)); }
  Text& hex_digit(unsigned d) { return put("0123456789abcdef"[d & 15]); }
  Text& hex_upper(std::uint32_t v, unsigned digits) {
    for (unsigned i = digits; i-- > 0;) put("0123456789ABCDEF"[(v >> (4 * i)) & 15]);
    return *this;
  }

  const std::string& str() const { return *s_; }
  std::string& str() { return *s_; }
  std::size_t size() const { return s_->size(); }
  void clear() { s_->clear(); }

 private:
  std::string own_;
  std::string* s_;
};

// "0x" and one lower-case hex digit per 4 bits of `bits` bits starting at data[0]; a last
// group of fewer than 4 bits is padded with zeros on the right. A null buffer gives "NULL\n".
void put_hex_bits(Text& t, const std::uint8_t* data, std::uint32_t bits);

// Turns every LF into CR LF.
std::string to_crlf(std::string_view s);

// The same in place, in one pass from the end (the string grows by one octet per line).
void to_crlf_in_place(std::string& s);

}  // namespace cs
