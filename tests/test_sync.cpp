// The sync channel: golden texts, the presence rules over every P_REV and band class, and
// short messages.
#include <gtest/gtest.h>

#include "fwd_common/sync.h"
#include "helpers.h"

namespace cs {
namespace {

using test::Bits;
using test::lines;

// The 151-bit fixed part with recognisable values.
Bits fixed(unsigned p_rev) {
  Bits b;
  b.put(p_rev, 8).put(1, 8).put(4145, 15).put(4, 16).put(78, 9);
  b.put(0x3FFFFFFFFFFull, 42);   // LC_STATE all ones
  b.put(0x345494a73ull, 36);     // SYS_TIME
  b.put(17, 8).put(50, 6).put(1, 1).put(2, 2);
  return b;
}

const char* const kFixedLines[] = {"   MIN_P_REV = 1",          "   SID = 4145",   "   NID = 4",
                                   "   PILOT_PN = 78",          "   LC_STATE = 0x03ffffffffff",
                                   "   SYS_TIME = 0x0345494a73", "   LP_SEC = 17",  "   LTM_OFF = 50",
                                   "   DAYLT = 1",              "   PRAT = 2"};

std::string expected(unsigned p_rev, std::initializer_list<std::string_view> tail) {
  std::string s = "FC_SCHM\n{\n   P_REV = " + std::to_string(p_rev) + "\n";
  for (const char* l : kFixedLines) s += std::string(l) + "\n";
  for (auto l : tail) s.append(l).push_back('\n');
  return s + "}\n";
}

// The library's input: type octet, body, 30-bit CRC.
std::vector<std::uint8_t> sync_msg(const Bits& body) {
  Bits m;
  m.put(1, 8);
  auto octets = body.message(30);
  for (auto o : octets) m.put(o, 8);
  return m.message(0);
}

TEST(Sync, RealCaptureDecodesWithTheKnownFieldValues) {
  // Sprint, band class 1, P_REV 5: the body is exactly 162 bits.
  auto r = test::decode(1, 5, 1, test::from_hex("010501206200084e390167a5fbcd152529cc472806444445b2"));
  EXPECT_EQ(r.rc, 0);
  EXPECT_EQ(r.text, lines({"FC_SCHM", "{", "   P_REV = 5", "   MIN_P_REV = 1", "   SID = 4145", "   NID = 4",
                           "   PILOT_PN = 78", "   LC_STATE = 0x00e4059e97ef", "   SYS_TIME = 0x0345494a73",
                           "   LP_SEC = 17", "   LTM_OFF = 50", "   DAYLT = 1", "   PRAT = 0", "   CDMA_FREQ = 25",
                           "}"}));
}

TEST(Sync, GoldenTextsForTheRevisionGroups) {
  struct Case {
    const char* what;
    unsigned p_rev, band;
    Bits tail;
    std::string want;
  } cases[] = {
      {"P_REV 2 cellular: no frequency", 2, 0, Bits(), expected(2, {})},
      {"P_REV 2 PCS: frequency", 2, 1, Bits().put(600, 11), expected(2, {"   CDMA_FREQ = 600"})},
      {"P_REV 2 band 2: none", 2, 2, Bits(), expected(2, {})},
      {"P_REV 6", 6, 0, Bits().put(283, 11).put(1011, 11),
       expected(6, {"   CDMA_FREQ = 283", "   EXT_CDMA_FREQ = 1011"})},
      {"P_REV 7 flags clear", 7, 0, Bits().put(283, 11).put(283, 11).put(0, 4),
       expected(7, {"   CDMA_FREQ = 283", "   EXT_CDMA_FREQ = 283", "   SR1_BCCH_NON_TD_INCL = 0", "   SR1_TD_INCL = 0",
                    "   SR3_INCL = 0", "   DS_INCL = 0"})},
      {"P_REV 9 every group", 9, 5,
       Bits().put(384, 11)                                              // EXT_CDMA_FREQ (no CDMA_FREQ on band 5)
           .put(1, 1).put(1, 1).put(75, 11).put(2, 2).put(1, 1).put(33, 6)  // SR1 non-TD
           .put(1, 1).put(200, 11).put(1, 2).put(0, 1).put(17, 6).put(3, 2).put(2, 2)  // SR1 TD
           .put(1, 1).put(1, 1).put(1100, 11).put(3, 2).put(99, 7).put(1, 2).put(5, 3).put(6, 3)  // SR3
           .put(1, 1).put(0xABCDEF, 24),                              // DS
       expected(9, {"   EXT_CDMA_FREQ = 384", "   SR1_BCCH_NON_TD_INCL = 1", "   SR1_NON_TD_FREQ_INCL = 1",
                    "   SR1_CDMA_FREQ_NON_TD = 75", "   SR1_BRAT_NON_TD = 2", "   SR1_CRAT_NON_TD = 1",
                    "   SR1_BCCH_CODE_CHAN_NON_TD = 33", "   SR1_TD_INCL = 1", "   SR1_CDMA_FREQ_TD = 200",
                    "   SR1_BRAT_TD = 1", "   SR1_CRAT_TD = 0", "   SR1_BCCH_CODE_CHAN_TD = 17", "   SR1_TD_MODE = 3",
                    "   SR1_TD_POWER_LEVEL = 2", "   SR3_INCL = 1", "   SR3_CENTER_FREQ_INCL = 1",
                    "   SR3_CENTER_FREQ = 1100", "   SR3_BRAT = 3", "   SR3_BCCH_CODE_CHAN = 99",
                    "   SR3_PRIMARY_PILOT = 1", "   SR3_PILOT_POWER1 = 5", "   SR3_PILOT_POWER2 = 6", "   DS_INCL = 1",
                    "   DS_BLOB = 11259375"})},
      {"P_REV 7 SR1 without its frequency", 7, 4,
       Bits().put(50, 11).put(60, 11).put(1, 1).put(0, 1).put(1, 2).put(0, 1).put(9, 6).put(0, 3),
       expected(7, {"   CDMA_FREQ = 50", "   EXT_CDMA_FREQ = 60", "   SR1_BCCH_NON_TD_INCL = 1",
                    "   SR1_NON_TD_FREQ_INCL = 0", "   SR1_BRAT_NON_TD = 1", "   SR1_CRAT_NON_TD = 0",
                    "   SR1_BCCH_CODE_CHAN_NON_TD = 9", "   SR1_TD_INCL = 0", "   SR3_INCL = 0", "   DS_INCL = 0"})},
  };
  for (auto& c : cases) {
    Bits body = fixed(c.p_rev);
    // Append the tail bits.
    auto tail = c.tail.message(0);
    const std::size_t tail_bits = c.tail.size();
    for (std::size_t i = 0; i < tail_bits; ++i) body.put((tail[i / 8] >> (7 - i % 8)) & 1, 1);
    auto r = test::decode(1, 0, static_cast<std::uint8_t>(c.band), sync_msg(body));
    EXPECT_EQ(r.rc, 0) << c.what;
    EXPECT_EQ(r.text, c.want) << c.what;
  }
}

TEST(Sync, PresenceFollowsTheMessagesOwnRevisionAndTheBandClass) {
  for (unsigned p_rev = 0; p_rev <= 255; ++p_rev) {
    for (unsigned band : {0u, 1u, 2u, 3u, 4u, 5u, 255u}) {
      const bool freq = band == 1 || band == 4 || (band == 0 && p_rev >= 3);
      Bits body = fixed(p_rev);
      body.put(0, (freq ? 11 : 0) + (p_rev >= 6 ? 11 : 0) + (p_rev >= 7 ? 4 : 0));
      // The caller's P_REV argument plays no part on this channel.
      auto r = test::decode(1, static_cast<std::uint8_t>(255 - p_rev), static_cast<std::uint8_t>(band), sync_msg(body));
      ASSERT_EQ(r.rc, 0) << p_rev << " " << band;
      EXPECT_EQ(r.text.find("   CDMA_FREQ = ") != std::string::npos, freq) << p_rev << " " << band;
      EXPECT_EQ(r.text.find("EXT_CDMA_FREQ") != std::string::npos, p_rev >= 6) << p_rev;
      EXPECT_EQ(r.text.find("DS_INCL") != std::string::npos, p_rev >= 7) << p_rev;
    }
  }
}

TEST(Sync, ExactlyTheFixedPartAndOneBitLess) {
  // Through the record decoder, which takes any bit count.
  Arena a;
  Ctx c;
  auto body = fixed(2).message(0);
  struct Case {
    unsigned band, bits;
    Rc want;
  } cases[] = {{0, 151, Rc::ok}, {1, 151, Rc::short_msg}, {1, 162, Rc::ok}, {0, 150, Rc::short_msg}};
  for (const auto& k : cases) {
    FC_SCHM r{};
    c.band_class = static_cast<std::uint8_t>(k.band);
    std::uint64_t used = 0;
    EXPECT_EQ(decode_sync(r, c, a, body.data(), body.size(), 0, k.bits, &used), k.want) << k.band << " " << k.bits;
    if (k.want == Rc::ok) {
      EXPECT_EQ(used, k.bits);
    }
    if (k.bits == 150) {
      EXPECT_EQ(r.LC_STATE.data, nullptr);   // nothing of the fixed group was stored
    }
  }
}

TEST(Sync, ShortMessageKeepsWhatWasReadAndPrintsTheRest) {
  // P_REV 7 on band 1, cut after CDMA_FREQ: 25 octets leave 162 bits, EXT_CDMA_FREQ needs 173.
  Bits body = fixed(7);
  body.put(25, 11);
  auto msg = sync_msg(body);
  ASSERT_EQ(msg.size(), 25u);
  auto r = test::decode(1, 0, 1, msg);
  EXPECT_EQ(r.rc, 3);
  // Fields the message did not reach print from the cleared record.
  EXPECT_EQ(r.text, expected(7, {"   CDMA_FREQ = 25", "   EXT_CDMA_FREQ = 0", "   SR1_BCCH_NON_TD_INCL = 0",
                                 "   SR1_TD_INCL = 0", "   SR3_INCL = 0", "   DS_INCL = 0"}));
}

}  // namespace
}  // namespace cs
