// Character fields: a run of character codes that the text shows code by code, as the layout
// reads them, each followed by the character it stands for when that is printable:
//
//     chari[0] = 72 ( 'H' )
//
// The codes stay the field values (a wrong alphabet must not hide what was sent); the reading
// is the value annotation of the character fields, chosen by the alphabet the message
// declares. Codes with no printable reading (controls, escapes, the halves of a double-octet
// character, binary octets) get none.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "codec/walk.h"
#include "text/text.h"

namespace cs {

// The alphabets character fields are read in.
enum class Charset : std::uint8_t {
  none,       // binary octets: no reading
  ascii,      // 7-bit ASCII and IA5 (ITU-T T.50 international reference version)
  latin1,     // ISO 8859-1
  hebrew,     // ISO 8859-8
  ucs2,       // 16-bit UCS-2 code units
  gsm7,       // 3GPP TS 23.038 default alphabet, with its escape-to-extension table
  shift_jis,  // single-octet characters only
  korean,     // KS C 5601 in EUC-KR form: single-octet characters only
  is91,       // IS-91 6-bit characters: the ASCII code less 0x20
  dtmf,       // 4-bit DTMF digits as C.S0005 Table 2.7.1.3.2.4-4 codes them
};

// Appends " ( 'c' )" for code k of `codes` (n codes in all) when it has a printable reading
// in `cs`; the codes before k decide how a multi-code character reads (an escape, the first
// octet of a double-octet character).
void put_char_reading(Text& t, Charset cs, const std::uint32_t* codes, std::uint32_t n, std::uint32_t k);

// n character codes of `width` bits each, named "NAME[k]". The reader takes them as scalars;
// the printer writes the same lines as scalars would, with the reading of each code appended
// (a printer-only annotation: nothing is read for it).
template <class W, class T>
bool chars(W& w, const char* name, PoolArray<T>& a, std::uint32_t n, unsigned width, Charset cs) {
  if constexpr (W::kReading) {
    return w.scalars(name, a, n, width);
  } else {
    std::vector<std::uint32_t> codes(a.data, a.data + a.count);
    Text& t = w.text();
    for (std::uint32_t k = 0; k < a.count; ++k) {
      t.spaces(w.indent()).put(name).put('[').dec(k).put("] = ").field_value(codes[k]);
      put_char_reading(t, cs, codes.data(), a.count, k);
      t.put('\n');
    }
    return true;
  }
}

// Text in the GSM 7-bit default alphabet, packed as 3GPP TS 23.038 6.1.2.1 packs it: the n
// septets fill the octets that follow, each from its least significant bit on, so a character
// is no run of bits on the air. The octets are read and shown as sent ("packed_octet[k]");
// the characters they hold follow them as values with no bits of their own ("chari[k]"), with
// their readings.
template <class W, class T>
bool gsm7_packed(W& w, PoolArray<std::uint8_t>& octets, PoolArray<T>& septets, std::uint32_t n) {
  if (!w.scalars("packed_octet", octets, (7 * n + 7) / 8, 8)) return false;
  if constexpr (W::kReading) {
    // The septets are worked out of the octets: the reader stores them for the printer.
    septets.data = w.arena().template alloc<T>(n);
    septets.count = septets.data ? n : 0;
    for (std::uint32_t k = 0; k < septets.count; ++k) {
      std::uint32_t v = 0;
      for (std::uint32_t b = 0; b < 7; ++b) {
        const std::uint32_t p = 7 * k + b;
        v |= ((octets.data[p / 8] >> (p % 8)) & 1u) << b;
      }
      septets.data[k] = static_cast<T>(v);
      const std::string name = "chari[" + std::to_string(k) + "]";
      w.show(septets.data[k], name.c_str());
    }
    return true;
  } else {
    return chars(w, "chari", septets, n, 7, Charset::gsm7);
  }
}

}  // namespace cs
