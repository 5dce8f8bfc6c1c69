// Append-only text that knows where it ends. Integers are formatted with to_chars.
#pragma once
#include <charconv>
#include <cstdint>
#include <cstring>
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

  // "<indent spaces>NAME = value" (the value as "%d" of its 32 bits), and the LF when `end`:
  // one line of a record, composed on the stack and appended at once.
  Text& field_line(unsigned indent, std::string_view name, std::uint32_t v, bool end) {
    char b[192];
    if (indent + name.size() + 16 > sizeof b) {
      spaces(indent).put(name).put(" = ").field_value(v);
      return end ? put('\n') : *this;
    }
    char* p = indent_in(b, indent);
    std::memcpy(p, name.data(), name.size());
    p += name.size();
    std::memcpy(p, " = ", 3);
    p = std::to_chars(p + 3, b + sizeof b, static_cast<std::int32_t>(v)).ptr;
    if (end) *p++ = '\n';
    s_->append(b, static_cast<std::size_t>(p - b));
    return *this;
  }
  // "<indent spaces>NAME[k] = value" and its LF.
  Text& indexed_line(unsigned indent, std::string_view name, std::uint32_t k, std::uint32_t v) {
    char b[192];
    if (indent + name.size() + 28 > sizeof b) {
      return spaces(indent).put(name).put('[').dec(k).put("] = ").field_value(v).put('\n');
    }
    char* p = indent_in(b, indent);
    std::memcpy(p, name.data(), name.size());
    p += name.size();
    *p++ = '[';
    char d[12];  // the index through its own small buffer: g++ cannot bound to_chars' end
    const auto kn = static_cast<std::size_t>(std::to_chars(d, d + sizeof d, k).ptr - d) % sizeof d;
    std::memcpy(p, d, kn);
    p += kn;
    std::memcpy(p, "] = ", 4);
    p = std::to_chars(p + 4, b + sizeof b, static_cast<std::int32_t>(v)).ptr;
    *p++ = '\n';
    s_->append(b, static_cast<std::size_t>(p - b));
    return *this;
  }
  Text& hex_upper(std::uint32_t v, unsigned digits) {
    for (unsigned i = digits; i-- > 0;) put("0123456789ABCDEF"[(v >> (4 * i)) & 15]);
    return *this;
  }

  const std::string& str() const { return *s_; }
  std::string& str() { return *s_; }
  std::size_t size() const { return s_->size(); }
  void clear() { s_->clear(); }

 private:
  // `indent` spaces at the start of a line buffer of at least 32 octets; the usual indents
  // (up to 32) are one fixed-size copy, which the compiler makes two stores.
  static char* indent_in(char* b, unsigned indent) {
    static constexpr char kSpaces[33] = "                                ";
    if (indent <= 32) {
      std::memcpy(b, kSpaces, 32);
    } else {
      std::memset(b, ' ', indent);
    }
    return b + indent;
  }

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
