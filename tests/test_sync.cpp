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

// The library's input: type octet, body, 30-bit CRC.
std::vector<std::uint8_t> sync_msg(const Bits& body) {
  Bits m;
  m.put(1, 8);
  auto octets = body.message(30);
  for (auto o : octets) m.put(o, 8);
  return m.message(0);
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

}  // namespace
}  // namespace cs
