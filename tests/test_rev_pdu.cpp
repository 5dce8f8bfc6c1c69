// The reverse traffic PDU across calls: its header record is kept from message to message and
// is not the forward channel's; its text is the forward layout two spaces further in; any
// octets on any message type give a result code and a whole text.
#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "helpers.h"

namespace cs {
namespace {

using test::Bits;

constexpr int kFtc = 4;
constexpr int kRtc = 5;

// MSG_TYPE, ACK_SEQ 1, MSG_SEQ 6, ACK_REQ 0 and ENCRYPTION.
Bits header(unsigned msg_type, unsigned encryption) {
  Bits b;
  b.put(msg_type, 8).put(1, 3).put(6, 3).put(0, 1).put(encryption, 2);
  return b;
}

// Octet padding, the octet the channel's bit count leaves out, and the 16-bit CRC.
std::vector<std::uint8_t> traffic(Bits b) {
  while (b.size() % 8) b.put(0, 1);
  b.put(0, 8);
  return b.message(16);
}

bool has_line(const std::string& text, const std::string& line) {
  return text.find("\n" + line + "\n") != std::string::npos;
}

// A message of a type neither table has a body for, at P_REV 7 with ENCRYPTION 3 and
// SDU_ENCRYPT_MODE 1: ENC_SEQ follows unless the channel's record holds MACI_INCL 1.
std::vector<std::uint8_t> encrypted_p7() { return traffic(header(45, 3).put(1, 3).put(0x5A, 8)); }

// A P_REV 9 message with MACI_INCL 1 (short sequence number) and its MACI.
std::vector<std::uint8_t> maci_p9() {
  Bits b = header(45, 0);
  b.put(1, 1).put(1, 2).put(2, 3).put(0, 1).put(9, 8);
  while (b.size() % 8) b.put(0, 1);
  return traffic(b.put(0xCAFEF00D, 32));
}

TEST(RevPdu, StaleMaciInclOfTheReverseRecordSteersEncSeq) {
  Decoder d;
  ASSERT_EQ(test::decode(d, kRtc, 7, 0, encrypted_p7()).rc, 0);
  EXPECT_TRUE(has_line(test::decode(d, kRtc, 7, 0, encrypted_p7()).text, "     ENC_SEQ = 90"));

  ASSERT_EQ(test::decode(d, kRtc, 9, 0, maci_p9()).rc, 0);
  // P_REV 6 reads and prints no MACI_INCL, but the record keeps the 1 left by P_REV 9 ...
  const auto p6 = test::decode(d, kRtc, 6, 0, traffic(header(45, 0)));
  EXPECT_EQ(p6.rc, 0);
  EXPECT_EQ(p6.text.find("MACI_INCL"), std::string::npos);
  // ... so P_REV 7 with SDU_ENCRYPT_MODE 1 reads no ENC_SEQ.
  const auto p7 = test::decode(d, kRtc, 7, 0, encrypted_p7());
  EXPECT_EQ(p7.rc, 0);
  EXPECT_TRUE(has_line(p7.text, "     SDU_ENCRYPT_MODE = 1"));
  EXPECT_EQ(p7.text.find("ENC_SEQ"), std::string::npos);
}

TEST(RevPdu, ForwardAndReverseRecordsAreIndependent) {
  Decoder d;
  // MACI_INCL 1 left on the reverse channel does not reach the forward one ...
  ASSERT_EQ(test::decode(d, kRtc, 9, 0, maci_p9()).rc, 0);
  EXPECT_TRUE(has_line(test::decode(d, kFtc, 7, 0, encrypted_p7()).text, "   ENC_SEQ = 90"));
  EXPECT_EQ(test::decode(d, kRtc, 7, 0, encrypted_p7()).text.find("ENC_SEQ"), std::string::npos);

  // ... nor the other way round.
  Decoder e;
  ASSERT_EQ(test::decode(e, kFtc, 9, 0, maci_p9()).rc, 0);
  EXPECT_TRUE(has_line(test::decode(e, kRtc, 7, 0, encrypted_p7()).text, "     ENC_SEQ = 90"));
  EXPECT_EQ(test::decode(e, kFtc, 7, 0, encrypted_p7()).text.find("ENC_SEQ"), std::string::npos);
}

// Without a body, the reverse text is the forward one with its own header line, every line two
// spaces further in.
TEST(RevPdu, TextIsTheForwardLayoutTwoSpacesIn) {
  for (const auto& msg : {traffic(header(45, 2)), maci_p9(), encrypted_p7()}) {
    for (unsigned p_rev : {6u, 7u, 9u}) {
      SCOPED_TRACE(p_rev);
      const auto fwd = test::decode(kFtc, static_cast<std::uint8_t>(p_rev), 0, msg);
      const auto rev = test::decode(kRtc, static_cast<std::uint8_t>(p_rev), 0, msg);
      EXPECT_EQ(fwd.rc, rev.rc);
      std::string shifted;
      std::istringstream in(fwd.text);
      for (std::string l; std::getline(in, l);) shifted += (l == "FD_PDU" ? "RD_PDU" : "  " + l) + "\n";
      EXPECT_EQ(rev.text, shifted);
    }
  }
}

TEST(RevPdu, ArbitraryOctetsGiveAResultCodeForEveryTypeAndRevision) {
  std::mt19937 rng(51);
  Decoder d;
  for (unsigned p_rev = 0; p_rev < 16; ++p_rev) {
    for (unsigned t = 0; t < 64; ++t) {
      for (int k = 0; k < 8; ++k) {
        std::vector<std::uint8_t> msg(1 + rng() % 64);
        for (auto& o : msg) o = static_cast<std::uint8_t>(k % 2 ? rng() : rng() & 0x11);
        msg[0] = static_cast<std::uint8_t>(t);
        const auto r = test::decode(d, kRtc, static_cast<std::uint8_t>(p_rev), static_cast<std::uint8_t>(rng() % 6), msg);
        ASSERT_TRUE(r.rc == 0 || r.rc == 1 || r.rc == 3) << "type " << t << " p_rev " << p_rev << " rc " << r.rc;
        ASSERT_EQ(r.text.rfind("RD_PDU\n  {\n     MSG_TYPE = ", 0), 0u);
        ASSERT_EQ(r.text.substr(r.text.size() - 4), "  }\n");
      }
    }
  }
}

}  // namespace
}  // namespace cs
