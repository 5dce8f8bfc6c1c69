// Shared test helpers: building messages bit by bit, and decoding them to LF text.
#pragma once
#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <cctype>
#include <functional>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "api/decoder.h"
#include "codec/read_walk.h"

namespace cs::test {

// Builds a message MSB first: fields in air order, then octet padding and the CRC.
class Bits {
 public:
  Bits& put(std::uint64_t value, unsigned width) {   // widths over 64 lead with zeros
    for (unsigned i = width; i-- > 0;) push(i < 64 && ((value >> i) & 1));
    return *this;
  }
  Bits& put_hex(std::string_view hex) {   // whole octets, e.g. a 42-bit field padded by hand
    for (char c : hex) put(static_cast<std::uint64_t>(c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10), 4);
    return *this;
  }
  std::size_t size() const { return bits_.size(); }
  // The octets of the bits so far, zero-padded to an octet, then `crc_bits` of CRC (zeros)
  // rounded up to whole octets.
  std::vector<std::uint8_t> message(unsigned crc_bits) const {
    std::vector<bool> b = bits_;
    b.resize(b.size() + crc_bits, false);
    while (b.size() % 8) b.push_back(false);
    std::vector<std::uint8_t> out(b.size() / 8, 0);
    for (std::size_t i = 0; i < b.size(); ++i)
      if (b[i]) out[i / 8] |= static_cast<std::uint8_t>(0x80 >> (i % 8));
    return out;
  }

 private:
  void push(bool b) { bits_.push_back(b); }
  std::vector<bool> bits_;
};

struct Decoded {
  int rc;
  std::string text;   // CR removed
};

inline Decoded decode(Decoder& d, int channel, std::uint8_t p_rev, std::uint8_t band_class,
                      const std::vector<std::uint8_t>& msg) {
  std::string out;
  const int rc = d.details(out, band_class, p_rev, channel, msg.data(), msg.size());
  out.erase(std::remove(out.begin(), out.end(), '\r'), out.end());
  return {rc, out};
}

inline Decoded decode(int channel, std::uint8_t p_rev, std::uint8_t band_class, const std::vector<std::uint8_t>& msg) {
  Decoder d;
  return decode(d, channel, p_rev, band_class, msg);
}

inline std::vector<std::uint8_t> from_hex(std::string_view hex) {
  std::vector<std::uint8_t> out;
  for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
    auto nib = [](char c) { return static_cast<std::uint8_t>(c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10); };
    out.push_back(static_cast<std::uint8_t>(nib(hex[i]) << 4 | nib(hex[i + 1])));
  }
  return out;
}

// Joins lines with LF, for readable expected texts: lines({"FD_PDU", "{", ...}).
inline std::string lines(std::initializer_list<std::string_view> ls) {
  std::string s;
  for (auto l : ls) s.append(l).push_back('\n');
  return s;
}

// Field names of a detail text, in order: "NAME = value" lines that do not open a nested
// record. The contents of a data burst ("L4Message." and their block) are a message of their
// own and are left out.
inline std::vector<std::string> printed_names(const std::string& text) {
  std::vector<std::string> lines, names;
  std::istringstream in(text);
  for (std::string l; std::getline(in, l);) lines.push_back(l);
  const auto trimmed = [&](std::size_t i) {
    const auto at = lines[i].find_first_not_of(' ');
    return at == std::string::npos ? std::string() : lines[i].substr(at);
  };
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const auto eq = lines[i].find(" = ");
    if (eq == std::string::npos) continue;
    const bool opens = i + 1 < lines.size() && trimmed(i + 1) == "{";
    if (trimmed(i).rfind("L4Message.", 0) == 0) {
      if (opens) {   // skip the contents' block
        const std::string close = lines[i + 1].substr(0, lines[i + 1].find('{')) + "}";
        while (i + 1 < lines.size() && lines[i + 1] != close) ++i;
        ++i;
      }
      continue;
    }
    if (opens) continue;
    const auto start = lines[i].find_first_not_of(' ');
    names.push_back(lines[i].substr(start, eq - start));
  }
  return names;
}

// The field names a JSON rendering holds, in the order and form printed_names() gives for the
// text: a scalar member NAME, an array of scalars NAME[0], NAME[1], ...; the members of nested
// records in place; "@record", annotations and burst contents ("L4Message.") left out. Throws
// when the JSON does not parse.
inline std::vector<std::string> json_names(const std::string& json) {
  std::vector<std::string> names;
  std::size_t i = 0;
  const auto ws = [&] { while (i < json.size() && std::isspace(static_cast<unsigned char>(json[i]))) ++i; };
  const auto expect = [&](char c) {
    ws();
    if (i >= json.size() || json[i] != c) throw std::runtime_error("JSON: expected " + std::string(1, c) + " at " + std::to_string(i));
    ++i;
  };
  std::function<std::string()> str = [&]() {
    expect('"');
    std::string s;
    while (i < json.size() && json[i] != '"') {
      if (json[i] == '\\') ++i;
      s += json[i++];
    }
    expect('"');
    return s;
  };
  // Parses one value; `name` is the key it stands under; `keep` whether its names count.
  std::function<void(const std::string&, bool)> value = [&](const std::string& name, bool keep) {
    ws();
    if (i >= json.size()) throw std::runtime_error("JSON: unexpected end");
    if (json[i] == '{') {
      ++i;
      ws();
      if (json[i] == '}') { ++i; return; }
      for (;;) {
        const std::string k = str();
        expect(':');
        const bool skip = k == "@record" || (k.size() > 11 && k.compare(k.size() - 11, 11, ".annotation") == 0);
        value(k, keep && !skip && k.rfind("L4Message.", 0) != 0);
        ws();
        if (json[i] == ',') { ++i; continue; }
        expect('}');
        return;
      }
    }
    if (json[i] == '[') {
      ++i;
      ws();
      if (json[i] == ']') { ++i; return; }
      for (std::size_t k = 0;; ++k) {
        ws();
        const bool scalar = json[i] != '{';
        value(scalar ? name + "[" + std::to_string(k) + "]" : name, keep);
        ws();
        if (json[i] == ',') { ++i; continue; }
        expect(']');
        return;
      }
    }
    if (json[i] == '"') {
      str();
    } else {
      const std::size_t start = i;
      while (i < json.size() && (std::isalnum(static_cast<unsigned char>(json[i])) || json[i] == '-')) ++i;
      if (i == start) throw std::runtime_error("JSON: bad value at " + std::to_string(i));
    }
    if (keep && !name.empty()) names.push_back(name);
  };
  value("", true);
  ws();
  if (i != json.size()) throw std::runtime_error("JSON: trailing characters");
  return names;
}

// The names a read trace holds.
inline std::vector<std::string> names_of(const std::vector<TraceItem>& trace) {
  std::vector<std::string> v;
  for (const TraceItem& i : trace) v.push_back(i.name);
  return v;
}

}  // namespace cs::test
