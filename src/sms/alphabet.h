// The character sizes and alphabets of the SMS data encodings (MSG_ENCODING, C.R1001
// Table 9.1-1), as the User Data subparameter and its relatives use them.
#pragma once
#include <cstdint>

#include "sms/chars.h"

namespace cs {

struct Alphabet {
  unsigned width = 0;   // bits per CHARi; 0 when no table gives it
  Charset cs = Charset::none;
};

// IS-91 Extended Protocol Message and GSM Data-Coding-Scheme carry a MESSAGE_TYPE after
// MSG_ENCODING that selects their characters.
constexpr bool carries_message_type(std::uint8_t encoding) { return encoding == 1 || encoding == 10; }

// The characters of a GSM data coding scheme (3GPP TS 23.038 4): the alphabet bits of the
// general and automatic-deletion groups, the message waiting groups and the data coding /
// message class group. Compressed text is shown as octets.
constexpr Alphabet gsm_dcs(std::uint8_t dcs) {
  const unsigned group = dcs >> 4;
  if (group <= 7) {
    if (dcs & 0x20) return {8, Charset::none};
    switch ((dcs >> 2) & 3) {
      case 0: return {7, Charset::gsm7};
      case 1: return {8, Charset::none};
      case 2: return {16, Charset::ucs2};
      default: return {};
    }
  }
  if (group == 0xC || group == 0xD) return {7, Charset::gsm7};
  if (group == 0xE) return {16, Charset::ucs2};
  if (group == 0xF) return (dcs & 0x04) ? Alphabet{8, Charset::none} : Alphabet{7, Charset::gsm7};
  return {};
}

// The character size and alphabet of an encoding; `message_type` is the MESSAGE_TYPE of the
// encodings that carry one. IS-91 short messages and voice mail notices use 6-bit characters,
// its calling line identification 4-bit DTMF digits (IS-91 message types 0x82 to 0x85).
constexpr Alphabet alphabet(std::uint8_t encoding, std::uint8_t message_type) {
  switch (encoding) {
    case 0: return {8, Charset::none};       // octet, unspecified
    case 1:                                   // IS-91 Extended Protocol Message
      if (message_type == 0x82 || message_type == 0x83 || message_type == 0x85) return {6, Charset::is91};
      if (message_type == 0x84) return {4, Charset::dtmf};
      return {};
    case 2: return {7, Charset::ascii};      // 7-bit ASCII
    case 3: return {7, Charset::ascii};      // IA5
    case 4: return {16, Charset::ucs2};      // UNICODE
    case 5: return {8, Charset::shift_jis};  // Shift-JIS, octet by octet
    case 6: return {8, Charset::korean};     // Korean (KS C 5601), octet by octet
    case 7: return {8, Charset::hebrew};     // Latin/Hebrew (ISO 8859-8)
    case 8: return {8, Charset::latin1};     // Latin (ISO 8859-1)
    case 9: return {7, Charset::gsm7};       // GSM 7-bit default alphabet
    case 10: return gsm_dcs(message_type);   // GSM Data-Coding-Scheme
    default: return {};
  }
}

}  // namespace cs
