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

}  // namespace cs
