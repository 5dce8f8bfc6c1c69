// The access channel as a whole: on every revision and band class the PDU prints exactly the
// fields it read (the header, the report, the SDU block and MACI, whose printing differs from
// their reading in places), every message leaves a whole RC_PDU record, and nothing of one
// message shows in the next.
#include <gtest/gtest.h>

#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "api/decoder.h"
#include "codec/read_walk.h"
#include "helpers.h"

namespace cs::test {
namespace {

// A message of the access channel: the PD/MSG_ID octet of a message that has a body (or
// none), then random bits of one of three densities, then the CRC octets.
std::vector<std::uint8_t> random_access_message(std::mt19937& rng, int density) {
  static const int kIds[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 13, 14, 21, 22, 23, 24, 63};
  std::vector<std::uint8_t> m(6 + rng() % 70);
  m[0] = static_cast<std::uint8_t>((rng() % 4) << 6 | kIds[rng() % std::size(kIds)]);
  for (std::size_t i = 1; i < m.size(); ++i)
    m[i] = static_cast<std::uint8_t>(density == 0 ? rng() : density == 1 ? rng() & rng() & rng() : 0);
  return m;
}

TEST(AccessChannel, EveryRevisionPrintsExactlyTheFieldsItReadAndAWholeRecord) {
  std::mt19937 rng(17);
  std::size_t whole = 0;
  for (unsigned p_rev = 0; p_rev <= 13; ++p_rev) {
    for (int k = 0; k < 300; ++k) {
      const std::vector<std::uint8_t> m = random_access_message(rng, k % 3);
      const auto band = static_cast<std::uint8_t>(rng() % 6);
      std::vector<TraceItem> trace;
      g_read_trace = &trace;
      const Decoded d = decode(3, static_cast<std::uint8_t>(p_rev), band, m);
      g_read_trace = nullptr;
      ASSERT_TRUE(d.rc == 0 || d.rc == 1 || d.rc == 3) << d.rc;
      ASSERT_EQ(d.text.rfind("RC_PDU\n  {\n", 0), 0u) << d.text;
      ASSERT_EQ(d.text.substr(d.text.size() - 4), "  }\n") << d.text;
      if (d.rc != 0) continue;
      ++whole;
      std::vector<std::string> read;
      for (const TraceItem& i : trace) read.push_back(i.name);
      ASSERT_EQ(printed_names(d.text), read) << "P_REV " << p_rev << "\n" << d.text;
    }
  }
  EXPECT_GT(whole, 300u);   // the comparison must actually run
}

// A Release C order with integrity, then the same message cut after its identity: the second
// text shows the fields the cut message did not carry as zero, never the first one's values.
TEST(AccessChannel, NothingOfOneMessageShowsInTheNext) {
  const std::vector<std::uint8_t> full =
      from_hex("42020ec48d159e1868e334739a8065a4448d15a94800a80091a2b3c0004080c10000000000");
  Decoder d;
  const Decoded first = decode(d, 3, 9, 1, full);
  ASSERT_EQ(first.rc, 0);
  ASSERT_NE(first.text.find("   RANDC = 90\n"), std::string::npos);
  ASSERT_NE(first.text.find("   MACI = 16909060\n"), std::string::npos);
  ASSERT_NE(first.text.find("         RANDBS = 305419896\n"), std::string::npos);

  std::vector<std::uint8_t> cut(full.begin(), full.begin() + 18);
  const Decoded second = decode(d, 3, 9, 1, cut);
  EXPECT_EQ(second.rc, 3);
  EXPECT_NE(second.text.find("   ESN = 305419896"), std::string::npos);
  EXPECT_EQ(second.text.find("MACI = 16909060"), std::string::npos);
  EXPECT_EQ(second.text.find("RANDBS = 305419896"), std::string::npos);
  EXPECT_EQ(second.text.find("SDU_SSEQ = 1193046"), std::string::npos);
}

}  // namespace
}  // namespace cs::test
