// The exported entry points: arguments, channels, line ends, names, blocks, reentrancy and
// arbitrary input.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <thread>

#include "api/names.h"
#include "cdmaSorrelin.h"
#include "helpers.h"
#include "../bench/long_messages.h"

namespace cs {
namespace {

// A real sync channel message (Sprint, band class 1).
const auto kSync = test::from_hex("010501206200084e390167a5fbcd152529cc472806444445b2");

std::string details(int channel, const std::vector<std::uint8_t>& msg, unsigned char p_rev = 6,
                    unsigned char band = 1, int* rc = nullptr, const char* prefix = "") {
  std::vector<char> out(1 << 16, '\0');
  std::strcpy(out.data(), prefix);
  const int r = ovnDecodeDetails(out.data(), band, p_rev, channel, msg.data(), static_cast<unsigned>(msg.size()));
  if (rc) *rc = r;
  return out.data();
}

// The bounded call gives ovnDecodeDetails's text when it fits, and otherwise never writes past
// its capacity, always ends the text, tells the size needed and says it cut.
TEST(Api, BoundedDetailsNeverWritePastTheCapacity) {
  const std::string whole = details(kSync[0], kSync, 5, 1);
  std::size_t needed = 0;
  ASSERT_EQ(sorrelin_details(nullptr, 0, &needed, 1, 5, 1, kSync.data(), kSync.size()), SORRELIN_TRUNCATED);
  ASSERT_EQ(needed, whole.size() + 1);
  for (std::size_t capacity : {std::size_t{1}, std::size_t{2}, std::size_t{17}, whole.size(), whole.size() + 1,
                               whole.size() + 100}) {
    SCOPED_TRACE(capacity);
    std::vector<char> buf(capacity + 16, '#');
    const int rc = sorrelin_details(buf.data(), capacity, &needed, 1, 5, 1, kSync.data(), kSync.size());
    const bool fits = capacity > whole.size();
    EXPECT_EQ(rc, fits ? SORRELIN_OK : SORRELIN_TRUNCATED);
    EXPECT_EQ(needed, whole.size() + 1);
    EXPECT_EQ(std::string(buf.data()), whole.substr(0, std::min(whole.size(), capacity - 1)));
    EXPECT_EQ(std::count(buf.begin() + static_cast<std::ptrdiff_t>(capacity), buf.end(), '#'), 16);
  }
  char name[64];
  EXPECT_EQ(sorrelin_summary(name, sizeof name, &needed, 1, kSync.data(), kSync.size()), SORRELIN_OK);
  EXPECT_STREQ(name, "OVN_SCH_MSG_ID_SCHM");
  EXPECT_EQ(sorrelin_details(name, sizeof name, &needed, 1, 5, 1, nullptr, 3), 1);
  EXPECT_STREQ(name, "");
}

TEST(Api, NullArgumentsReturnOneAndWriteNothing) {
  char out[8] = "keep";
  const unsigned char m[4] = {1, 2, 3, 4};
  EXPECT_EQ(ovnDecodeDetails(nullptr, 0, 0, 1, m, 4), 1);
  EXPECT_EQ(ovnDecodeDetails(out, 0, 0, 1, nullptr, 4), 1);
  EXPECT_EQ(ovnDecodeSummary(nullptr, 0, 0, 1, m, 4), 1);
  EXPECT_EQ(ovnDecodeSummary(out, 0, 0, 1, nullptr, 4), 1);
  EXPECT_STREQ(out, "keep");
}

TEST(Api, UnknownChannelOverwritesWithAFixedTextAndNoLineEnd) {
  for (int channel : {0, 6, -1, 1000}) {
    int rc = -1;
    EXPECT_EQ(details(channel, kSync, 6, 1, &rc, "earlier text\n"), "<unknown channel type>");
    EXPECT_EQ(rc, 0);
  }
}

TEST(Api, EveryLineEndIsCrLfIncludingTextAlreadyThere) {
  const std::string t = details(1, kSync, 6, 1, nullptr, "prior\n");
  ASSERT_EQ(t.rfind("prior\r\nFC_SCHM\r\n{\r\n", 0), 0u);
  for (std::size_t i = 0; i < t.size(); ++i) {
    if (t[i] == '\n') {
      ASSERT_TRUE(i > 0 && t[i - 1] == '\r') << i;
    }
  }
  EXPECT_EQ(t.substr(t.size() - 3), "}\r\n");
}

TEST(Api, LineEndConversionScalesToThousandsOfLines) {
  std::string s;
  for (int i = 0; i < 5000; ++i) s += "   FIELD = 1\n";
  const std::string c = to_crlf(s);
  EXPECT_EQ(c.size(), s.size() + 5000);
  EXPECT_EQ(c.find("\n   FIELD"), c.find("\r\n   FIELD") + 1);
}

TEST(Api, ALongMessageConvertsEveryOneOfItsThousandsOfLineEnds) {
  const auto msg = sample::long_flash_with_info(4000);
  int rc = -1;
  std::vector<char> out(1 << 20, '\0');
  rc = ovnDecodeDetails(out.data(), 0, 6, 4, msg.data(), static_cast<unsigned>(msg.size()));
  const std::string t = out.data();
  EXPECT_EQ(rc, 0);
  std::size_t lfs = 0;
  for (std::size_t i = 0; i < t.size(); ++i) {
    if (t[i] != '\n') continue;
    ++lfs;
    ASSERT_TRUE(i > 0 && t[i - 1] == '\r') << i;
  }
  EXPECT_GT(lfs, 3900u);
  EXPECT_NE(t.find("      CHARi[199] = 82\r\n"), std::string::npos);
}

TEST(Api, MessagesShorterThanTypeOctetAndCrcAreTooShort) {
  for (int channel = 1; channel <= 5; ++channel) {
    for (std::size_t len : {0u, 1u, 2u, 3u}) {
      std::vector<std::uint8_t> m(len, 0xFF);
      int rc = -1;
      std::vector<char> out(4096, '\0');
      rc = ovnDecodeDetails(out.data(), 0, 6, channel, len ? m.data() : kSync.data(), static_cast<unsigned>(len));
      EXPECT_EQ(rc, 3) << "channel " << channel << " len " << len;
    }
  }
}

TEST(Names, TableEdgesAndFallback) {
  struct Case {
    int channel;
    unsigned type;
    const char* want;
  } cases[] = {
      {1, 0, "MSG_0"},
      {1, 1, "OVN_SCH_MSG_ID_SCHM"},
      {1, 2, "unknown message: msg id = 2"},
      {2, 0, "OVN_DPCH_MSG_ID_NULL"},
      {2, 25, "unknown message: msg id = 25"},
      {2, 45, "OVN_DPCH_MSG_ID_BSPM"},
      {2, 46, "unknown message: msg id = 46"},
      {2, 0x41, "unknown message: msg id = 65"},   // no P_REV masking in the summary
      {3, 0, "MSG_0"},
      {3, 24, "OVN_DACH_MSG_ID_REM"},
      {3, 11, "unknown message: msg id = 11"},
      {4, 0, "OVN_FDTCH_MSG_TYPE_NULL"},
      {4, 41, "unknown message: msg id = 41"},
      {4, 57, "OVN_FDTCH_MSG_TYPE_RESET"},
      {5, 0, "MSG_0"},
      {5, 60, "OVN_RDTCH_MSG_TYPE_RRRMM"},
      {5, 255, "unknown message: msg id = 255"},
      {0, 1, "unknown message: msg id = 1"},
      {6, 1, "unknown message: msg id = 1"},
  };
  for (const auto& c : cases) {
    char out[256];
    const unsigned char m[1] = {static_cast<unsigned char>(c.type)};
    EXPECT_EQ(ovnDecodeSummary(out, 0, 7, c.channel, m, 1), 0);
    EXPECT_STREQ(out, c.want) << c.channel << "/" << c.type;
  }
}

TEST(Names, EveryChannelTypePairGivesANameOrTheFallback) {
  for (int channel = 0; channel <= 6; ++channel) {
    for (unsigned type = 0; type < 256; ++type) {
      const std::string s = summary_text(channel, static_cast<std::uint8_t>(type));
      const bool named = !message_name(channel, static_cast<std::uint8_t>(type)).empty();
      if (named) {
        EXPECT_TRUE(s.rfind("OVN_", 0) == 0 || s == "MSG_0") << s;
      } else {
        EXPECT_EQ(s, "unknown message: msg id = " + std::to_string(type));
      }
    }
  }
}

std::vector<unsigned char> block_of(const std::vector<std::uint8_t>& msg, unsigned char p_rev) {
  // Sized once and filled in place (growing it piecewise trips a false -Warray-bounds in g++ 12).
  std::vector<unsigned char> b(msg.size() + 2);
  b.front() = static_cast<unsigned char>(msg.size() + 1);   // the parameter octet after the message
  std::copy(msg.begin(), msg.end(), b.begin() + 1);
  b.back() = p_rev;
  return b;
}

TEST(Blocks, FullRenderingPutsTheNameAboveTheDetailText) {
  auto b = block_of(kSync, 5);
  std::vector<char> out(1 << 16, '\0');
  EXPECT_EQ(fnSorrelinFC_SCHBlock(b.data(), static_cast<unsigned>(b.size()), out.data(), 0, 0), 0);
  const std::string t = out.data();
  EXPECT_EQ(t.rfind("OVN_SCH_MSG_ID_SCHM   \r\nFC_SCHM\r\n{\r\n   P_REV = 5\r\n", 0), 0u) << t;
}

TEST(Blocks, AccessChannelReducesTheTypeOctetInPlace) {
  std::vector<unsigned char> b = {0, 0x41, 0, 0, 0, 0, 0};
  char out[512] = "";
  fnSorrelinRC_ACHBlockPeer(b.data(), static_cast<unsigned>(b.size()), 0, 0, out, sizeof out - 1);
  EXPECT_EQ(b[1], 1);
  EXPECT_STREQ(out, "OVN_DACH_MSG_ID_RGM");
}

TEST(Blocks, PeerRenderingRespectsTheBufferSizeAndNullOut) {
  auto b = block_of(kSync, 5);
  char out[8] = "xxxxxxx";
  EXPECT_EQ(fnSorrelinFC_SCHBlockPeer(b.data(), static_cast<unsigned>(b.size()), 0, 0, out, 5), 0);
  EXPECT_STREQ(out, "");   // the name does not fit
  EXPECT_EQ(fnSorrelinFC_SCHBlock(b.data(), static_cast<unsigned>(b.size()), nullptr, 10, 1), 1);
}

TEST(Blocks, ReverseTrafficFullRenderingTurnsTooShortIntoZero) {
  std::vector<unsigned char> b = {0, 0x01, 0x00};   // octet 0 = 0: P_REV from the block's own first octet
  std::vector<char> out(4096, '\0');
  EXPECT_EQ(fnSorrelinRDTCHBlock(b.data(), static_cast<unsigned>(b.size()), out.data(), 0, 0), 0);
  EXPECT_EQ(fnSorrelinFDTCHBlock(b.data(), static_cast<unsigned>(b.size()), out.data(), 0, 0), 3);
  EXPECT_EQ(std::string(out.data()).rfind("OVN_FDTCH_MSG_TYPE_ORDRM   \r\n", 0), 0u);
}

// Random messages of any length on any channel with any arguments: only result codes.
std::vector<std::vector<std::uint8_t>> random_messages(unsigned seed, int n) {
  std::mt19937 rng(seed);
  std::vector<std::vector<std::uint8_t>> v;
  for (int i = 0; i < n; ++i) {
    std::vector<std::uint8_t> m(rng() % 301);
    for (auto& o : m) o = static_cast<std::uint8_t>(rng());
    v.push_back(std::move(m));
  }
  return v;
}

TEST(Reentrancy, DecodersOnTwoThreadsMatchOneUsedSerially) {
  struct Job {
    int channel;
    std::uint8_t p_rev, band;
    std::vector<std::uint8_t> msg;
  };
  std::vector<Job> jobs;
  std::mt19937 rng(5);
  for (auto& m : random_messages(11, 400)) jobs.push_back({1 + static_cast<int>(rng() % 5), static_cast<std::uint8_t>(rng() % 12), static_cast<std::uint8_t>(rng() % 6), m});
  jobs.push_back({1, 5, 1, kSync});
  auto run = [&jobs](std::vector<std::string>& out) {
    Decoder d;
    for (const auto& j : jobs) {
      std::string t;
      const int rc = d.details(t, j.band, j.p_rev, j.channel, j.msg.data(), j.msg.size());
      out.push_back(std::to_string(rc) + t);
    }
  };
  std::vector<std::string> serial, a, b;
  run(serial);
  std::thread ta([&] { run(a); }), tb([&] { run(b); });
  ta.join();
  tb.join();
  EXPECT_EQ(a, serial);
  EXPECT_EQ(b, serial);
}

}  // namespace
}  // namespace cs
