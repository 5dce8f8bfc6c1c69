// The forward traffic PDU: header fields by P_REV and encryption, the header kept from call to
// call, padding and MACI, the body shown when the decode stopped before it, and arbitrary
// octets for every MSG_TYPE.
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

// `a` followed by the bits of `b`.
Bits cat(Bits a, const Bits& b) {
  const auto octets = b.message(0);
  for (std::size_t i = 0; i < b.size(); ++i) a.put((octets[i / 8] >> (7 - i % 8)) & 1, 1);
  return a;
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

TEST(FwdPdu, HeaderFieldsFollowPrevAndEncryption) {
  struct Case {
    const char* what;
    unsigned p_rev, encryption;
    Bits rest;   // after ENCRYPTION
    std::vector<std::string_view> tail;
  };
  const Case cases[] = {
      {"P_REV 6: no MACI_INCL, no SDU_ENCRYPT_MODE even with ENCRYPTION 3", 6, 3, Bits().put(0x7, 3), {}},
      {"P_REV 7, ENCRYPTION 3, mode 1: ENC_SEQ follows", 7, 3, Bits().put(1, 3).put(0xA5, 8),
       {"   SDU_ENCRYPT_MODE = 1", "   ENC_SEQ = 165"}},
      {"P_REV 8, ENCRYPTION 3, mode 2: ENC_SEQ follows", 8, 3, Bits().put(2, 3).put(0x11, 8),
       {"   SDU_ENCRYPT_MODE = 2", "   ENC_SEQ = 17"}},
      {"P_REV 7, ENCRYPTION 3, mode 3: no ENC_SEQ", 7, 3, Bits().put(3, 3), {"   SDU_ENCRYPT_MODE = 3"}},
      {"P_REV 7, ENCRYPTION 2: no SDU_ENCRYPT_MODE", 7, 2, Bits(), {}},
      {"P_REV 9, no MACI", 9, 0, Bits().put(0, 1), {"   MACI_INCL = 0"}},
      {"P_REV 9, MACI_INCL 1, mode 1: no ENC_SEQ, MACI after the padding", 9, 3,
       Bits().put(1, 1).put(2, 2).put(5, 3).put(0, 1).put(0x9C, 8).put(1, 3).put(0, 5).put(0xDEADBEEF, 32),
       {"   MACI_INCL = 1", "   SDU_KEY_ID = 2", "   SDU_INTEGRITY_ALGO = 5", "   SDU_SSEQ_OR_SSEQH = 0",
        "   SDU_SSEQ = 156", "   SDU_ENCRYPT_MODE = 1", "   MACI = -559038737"}},
      {"P_REV 9, long sequence", 9, 0,
       Bits().put(1, 1).put(1, 2).put(0, 3).put(1, 1).put(0xABCDEF, 24).put(0x01020304, 32),
       {"   MACI_INCL = 1", "   SDU_KEY_ID = 1", "   SDU_INTEGRITY_ALGO = 0", "   SDU_SSEQ_OR_SSEQH = 1",
        "   SDU_SSEQ_H = 11259375", "   MACI = 16909060"}},
  };
  for (const auto& k : cases) {
    SCOPED_TRACE(k.what);
    auto r = test::decode(kFtc, static_cast<std::uint8_t>(k.p_rev), 0, ftc(cat(header(41, k.encryption), k.rest)));
    EXPECT_EQ(r.rc, 0);
    std::string want = "FD_PDU\n{\n   MSG_TYPE = 41\n   ACK_SEQ = 5\n   MSG_SEQ = 2\n   ACK_REQ = 1\n   ENCRYPTION = " +
                       std::to_string(k.encryption) + "\n";
    for (auto l : k.tail) want.append(l).push_back('\n');
    EXPECT_EQ(r.text, want + "}\n");
  }
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

TEST(FwdPdu, BodyOfAStoppedDecodeIsShownZeroFilled) {
  // An EHDM whose header stops before SDU_SSEQ: the body was never reached.
  Bits b = header(17, 0);
  b.put(1, 1).put(3, 2).put(6, 3).put(0, 1);
  auto r = test::decode(kFtc, 9, 0, ftc(b));
  EXPECT_EQ(r.rc, 3);
  EXPECT_EQ(r.text, lines({"FD_PDU", "{", "   MSG_TYPE = 17", "   ACK_SEQ = 5", "   MSG_SEQ = 2", "   ACK_REQ = 1",
                           "   ENCRYPTION = 0", "   MACI_INCL = 1", "   SDU_KEY_ID = 3", "   SDU_INTEGRITY_ALGO = 6",
                           "   SDU_SSEQ_OR_SSEQH = 0", "   SDU_SSEQ = 0", "   SDU.EHDM = FD_EHDM", "   {",
                           "      USE_TIME = 0", "      ACTION_TIME = 0", "      HDM_SEQ = 0",
                           "      SEARCH_INCLUDED = 0", "      HARD_INCLUDED = 0", "      ADD_LENGTH = 0", "   }",
                           "   MACI = 0", "}"}));
}

TEST(FwdPdu, TypesWithoutABodyPrintNoSduLine) {
  for (unsigned t : {0u, 41u, 44u, 48u, 53u, 56u, 57u, 255u}) {
    SCOPED_TRACE(t);
    auto r = test::decode(kFtc, 6, 0, ftc(header(t, 1)));
    EXPECT_EQ(r.rc, 0);
    EXPECT_EQ(r.text, pdu_text(t, 1, {}));
  }
}

TEST(FwdPdu, ArbitraryOctetsGiveAResultCodeForEveryTypeAndRevision) {
  std::mt19937 rng(20240917);
  Decoder d;
  for (unsigned p_rev = 0; p_rev < 256; ++p_rev) {
    for (unsigned t = 0; t < 64; ++t) {
      std::vector<std::uint8_t> msg(1 + rng() % 80);
      for (auto& o : msg) o = static_cast<std::uint8_t>(rng());
      msg[0] = static_cast<std::uint8_t>(t);
      auto r = test::decode(d, kFtc, static_cast<std::uint8_t>(p_rev), static_cast<std::uint8_t>(rng() % 6), msg);
      ASSERT_TRUE(r.rc == 0 || r.rc == 1 || r.rc == 3) << "type " << t << " p_rev " << p_rev << " rc " << r.rc;
      ASSERT_EQ(r.text.rfind("FD_PDU\n{\n   MSG_TYPE = ", 0), 0u);
      ASSERT_EQ(r.text.substr(r.text.size() - 2), "}\n");
    }
  }
}

}  // namespace
}  // namespace cs
