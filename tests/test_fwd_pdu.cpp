// The forward traffic PDU's header kept from call to call: a stale MACI_INCL steers ENC_SEQ,
// and a short message after a longer one.
#include <gtest/gtest.h>

#include <random>

#include "helpers.h"

namespace cs {
namespace {

using test::Bits;
using test::lines;

constexpr int kFtc = 4;

// MSG_TYPE, ACK_SEQ 5, MSG_SEQ 2, ACK_REQ 1 and ENCRYPTION.
Bits header(unsigned msg_type, unsigned encryption) {
  Bits b;
  b.put(msg_type, 8).put(5, 3).put(2, 3).put(1, 1).put(encryption, 2);
  return b;
}

// Octet padding, the spare octet the channel's bit count leaves out, and the 16-bit CRC.
std::vector<std::uint8_t> ftc(Bits b) {
  while (b.size() % 8) b.put(0, 1);
  b.put(0, 8);
  return b.message(16);
}

const char* const kHeaderLines[] = {"   ACK_SEQ = 5", "   MSG_SEQ = 2", "   ACK_REQ = 1"};

std::string pdu_text(unsigned msg_type, unsigned encryption, std::initializer_list<std::string_view> tail) {
  std::string s = "FD_PDU\n{\n   MSG_TYPE = " + std::to_string(msg_type) + "\n";
  for (const char* l : kHeaderLines) s += std::string(l) + "\n";
  s += "   ENCRYPTION = " + std::to_string(encryption) + "\n";
  for (auto l : tail) s.append(l).push_back('\n');
  return s + "}\n";
}

TEST(FwdPdu, StaleMaciInclSteersEncSeqBelowPrev9) {
  // P_REV 8, ENCRYPTION 3, SDU_ENCRYPT_MODE 1, then eight bits that are ENC_SEQ only when
  // MACI_INCL is 0.
  Bits p8 = header(41, 3);
  p8.put(1, 3).put(0x5A, 8);
  const auto msg8 = ftc(p8);

  Decoder fresh;
  auto r = test::decode(fresh, kFtc, 8, 0, msg8);
  EXPECT_EQ(r.rc, 0);
  EXPECT_EQ(r.text, pdu_text(41, 3, {"   SDU_ENCRYPT_MODE = 1", "   ENC_SEQ = 90"}));

  // A P_REV 9 message with MACI_INCL 1 leaves it set: the same P_REV 8 message now has no
  // ENC_SEQ, and MACI (not on the air below P_REV 9) is not shown.
  Decoder d;
  Bits p9 = header(41, 0);
  p9.put(1, 1).put(0, 2).put(0, 3).put(0, 1).put(7, 8).put(0x11223344, 32);
  ASSERT_EQ(test::decode(d, kFtc, 9, 0, ftc(p9)).rc, 0);
  r = test::decode(d, kFtc, 8, 0, msg8);
  EXPECT_EQ(r.rc, 0);
  EXPECT_EQ(r.text, pdu_text(41, 3, {"   SDU_ENCRYPT_MODE = 1"}));

  // MACI_INCL 0 at P_REV 9 clears it again.
  Bits p9off = header(41, 0);
  p9off.put(0, 1);
  ASSERT_EQ(test::decode(d, kFtc, 9, 0, ftc(p9off)).rc, 0);
  EXPECT_EQ(test::decode(d, kFtc, 8, 0, msg8).text, pdu_text(41, 3, {"   SDU_ENCRYPT_MODE = 1", "   ENC_SEQ = 90"}));
}

TEST(FwdPdu, ShortMessagesStopWithResult3AndPrintWhatWasRead) {
  // Three octets leave no bits at all after the type octet and the CRC.
  Decoder d;
  auto r = test::decode(d, kFtc, 6, 0, test::from_hex("290000"));
  EXPECT_EQ(r.rc, 3);
  EXPECT_EQ(r.text.rfind("FD_PDU\n{\n", 0), 0u);

  // A MACI that does not fit is reported; the header before it is printed.
  Bits b = header(41, 0);
  b.put(1, 1).put(0, 2).put(0, 3).put(0, 1).put(7, 8).put(0x1122, 16);
  r = test::decode(kFtc, 9, 0, ftc(b));
  EXPECT_EQ(r.rc, 3);
  EXPECT_NE(r.text.find("   SDU_SSEQ = 7\n"), std::string::npos);
  EXPECT_NE(r.text.find("   MACI = 0\n"), std::string::npos);   // on the air, not decoded
}

}  // namespace
}  // namespace cs
