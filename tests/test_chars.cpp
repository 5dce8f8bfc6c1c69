// The readings of character codes, checked against the alphabets' own tables (3GPP TS 23.038,
// ISO 8859-1 and 8859-8, JIS X 0201, C.S0005 Table 2.7.1.3.2.4-4) at the codes where a slip is
// likely: the ends of the ranges, the codes that differ from ASCII, escapes and the two octets
// of a double-octet character.
#include <gtest/gtest.h>

#include <vector>

#include "sms/alphabet.h"
#include "sms/chars.h"

namespace cs {
namespace {

struct Reading {
  const char* what;
  Charset cs;
  std::vector<std::uint32_t> codes;   // the run; the last code is the one read
  const char* want;                   // "" for no reading
};

std::string read_last(const Reading& r) {
  Text t;
  put_char_reading(t, r.cs, r.codes.data(), static_cast<std::uint32_t>(r.codes.size()),
                   static_cast<std::uint32_t>(r.codes.size() - 1));
  return t.str();
}

TEST(CharReadings, EachAlphabetReadsItsOwnTable) {
  const Reading cases[] = {
      {"ASCII space", Charset::ascii, {0x20}, " ( ' ' )"},
      {"ASCII tilde", Charset::ascii, {0x7E}, " ( '~' )"},
      {"ASCII DEL has none", Charset::ascii, {0x7F}, ""},
      {"ASCII LF has none", Charset::ascii, {0x0A}, ""},
      {"Latin-1 inverted exclamation", Charset::latin1, {0xA1}, " ( '\u00a1' )"},
      {"Latin-1 y diaeresis", Charset::latin1, {0xFF}, " ( '\u00ff' )"},
      {"Latin-1 C1 control has none", Charset::latin1, {0x85}, ""},
      {"Latin-1 no-break space has none", Charset::latin1, {0xA0}, ""},
      {"Hebrew alef", Charset::hebrew, {0xE0}, " ( '\u05d0' )"},
      {"Hebrew tav", Charset::hebrew, {0xFA}, " ( '\u05ea' )"},
      {"Hebrew multiplication sign", Charset::hebrew, {0xAA}, " ( '\u00d7' )"},
      {"Hebrew division sign", Charset::hebrew, {0xBA}, " ( '\u00f7' )"},
      {"Hebrew double low line", Charset::hebrew, {0xDF}, " ( '\u2017' )"},
      {"Hebrew undefined 0xA1", Charset::hebrew, {0xA1}, ""},
      {"Hebrew undefined 0xC0", Charset::hebrew, {0xC0}, ""},
      {"UCS-2 euro", Charset::ucs2, {0x20AC}, " ( '\u20ac' )"},
      {"UCS-2 high surrogate has none", Charset::ucs2, {0xD83D}, ""},
      {"UCS-2 C1 control has none", Charset::ucs2, {0x0090}, ""},
      {"GSM at sign", Charset::gsm7, {0x00}, " ( '@' )"},
      {"GSM pound", Charset::gsm7, {0x01}, " ( '\u00a3' )"},
      {"GSM underscore", Charset::gsm7, {0x11}, " ( '_' )"},
      {"GSM currency sign", Charset::gsm7, {0x24}, " ( '\u00a4' )"},
      {"GSM inverted exclamation", Charset::gsm7, {0x40}, " ( '\u00a1' )"},
      {"GSM a grave", Charset::gsm7, {0x7F}, " ( '\u00e0' )"},
      {"GSM escape has none", Charset::gsm7, {0x1B}, ""},
      {"GSM escaped euro", Charset::gsm7, {0x1B, 0x65}, " ( '\u20ac' )"},
      {"GSM escaped left brace", Charset::gsm7, {0x1B, 0x28}, " ( '{' )"},
      {"GSM e without escape", Charset::gsm7, {0x41, 0x65}, " ( 'e' )"},
      {"GSM escape before a code the extension lacks", Charset::gsm7, {0x1B, 0x41}, " ( 'A' )"},
      {"Shift-JIS yen sign", Charset::shift_jis, {0x5C}, " ( '\u00a5' )"},
      {"Shift-JIS half-width katakana A", Charset::shift_jis, {0xB1}, " ( '\uff71' )"},
      {"Shift-JIS lead octet has none", Charset::shift_jis, {0x82}, ""},
      {"Shift-JIS trail octet has none", Charset::shift_jis, {0x82, 0xA0}, ""},
      {"Shift-JIS ASCII-range trail octet has none", Charset::shift_jis, {0x81, 0x41}, ""},
      {"Shift-JIS after a whole double-octet character", Charset::shift_jis, {0x82, 0xA0, 0x41}, " ( 'A' )"},
      {"Korean trail octet has none", Charset::korean, {0xB0, 0xA1}, ""},
      {"Korean after a double-octet character", Charset::korean, {0xB0, 0xA1, 0x21}, " ( '!' )"},
      {"IS-91 6-bit space", Charset::is91, {0}, " ( ' ' )"},
      {"IS-91 6-bit underscore", Charset::is91, {63}, " ( '_' )"},
      {"DTMF 0 is 10", Charset::dtmf, {10}, " ( '0' )"},
      {"DTMF star", Charset::dtmf, {11}, " ( '*' )"},
      {"DTMF pound", Charset::dtmf, {12}, " ( '#' )"},
      {"DTMF 0 has none", Charset::dtmf, {0}, ""},
      {"octets have none", Charset::none, {0x41}, ""},
  };
  for (const Reading& r : cases) EXPECT_EQ(read_last(r), r.want) << r.what;
}

// The GSM data coding schemes (TS 23.038 4) select the character size.
TEST(CharReadings, GsmDataCodingSchemesSelectTheCharacters) {
  struct Dcs {
    std::uint8_t dcs;
    unsigned width;
    Charset cs;
  };
  const Dcs cases[] = {
      {0x00, 7, Charset::gsm7},  {0x04, 8, Charset::none},  {0x08, 16, Charset::ucs2},
      {0x0C, 0, Charset::none},  {0x20, 8, Charset::none},  {0x48, 16, Charset::ucs2},
      {0x80, 0, Charset::none},  {0xC0, 7, Charset::gsm7},  {0xD3, 7, Charset::gsm7},
      {0xE1, 16, Charset::ucs2}, {0xF0, 7, Charset::gsm7},  {0xF4, 8, Charset::none},
  };
  for (const Dcs& d : cases) {
    const Alphabet a = alphabet(10, d.dcs);
    EXPECT_EQ(a.width, d.width) << "DCS " << int(d.dcs);
    EXPECT_EQ(a.cs, d.cs) << "DCS " << int(d.dcs);
  }
}

}  // namespace
}  // namespace cs
