// Bit reader, bit writer, bit-string copy, hex printer, arena and the reader's guards.
#include <gtest/gtest.h>

#include <random>

#include "codec/arena.h"
#include "codec/bits.h"
#include "layout/layout.h"
#include "text/text.h"
#include "helpers.h"

namespace cs {
namespace {

// Reference: one bit at a time.
std::uint32_t slow_read(const std::vector<std::uint8_t>& b, std::uint64_t pos, unsigned w) {
  std::uint32_t v = 0;
  for (unsigned i = 0; i < w; ++i, ++pos) {
    const unsigned bit = pos / 8 < b.size() ? (b[pos / 8] >> (7 - pos % 8)) & 1u : 0u;
    v = (v << 1) | bit;
  }
  return v;
}

TEST(BitReader, MatchesBitByBitReferenceForEveryWidthAndOffset) {
  std::mt19937 rng(7);
  std::vector<std::uint8_t> buf(16);
  for (auto& o : buf) o = static_cast<std::uint8_t>(rng());
  for (unsigned w = 0; w <= 32; ++w)
    for (std::uint64_t pos = 0; pos + w <= buf.size() * 8; ++pos)
      ASSERT_EQ(read_bits(buf.data(), buf.size(), pos, w), slow_read(buf, pos, w)) << "w=" << w << " pos=" << pos;
}

TEST(BitReader, ReadsNothingPastTheBuffer) {
  const std::uint8_t b[2] = {0xFF, 0xFF};
  EXPECT_EQ(read_bits(b, 2, 12, 8), 0xF0u);        // 4 bits inside, 4 past the end
  EXPECT_EQ(read_bits(b, 2, 1u << 31, 32), 0u);     // far past the end
  EXPECT_EQ(read_bits(b, 0, 0, 32), 0u);            // empty buffer
}

TEST(BitWriter, WritesAcrossOctetsAndKeepsNeighbours) {
  std::uint8_t b[3] = {0xFF, 0x00, 0xFF};
  write_bits(b, 6, 0b1010, 4);                      // crosses the first boundary
  EXPECT_EQ(b[0], 0xFE);                            // 111111 10
  EXPECT_EQ(b[1], 0x80);                            // 10 000000
  EXPECT_EQ(b[2], 0xFF);
  std::uint8_t c[5] = {};
  write_bits(c, 3, 0xDEADBEEF, 32);
  EXPECT_EQ(read_bits(c, 5, 3, 32), 0xDEADBEEFu);
}

TEST(BitCopy, RightAlignsA42BitStringInSixOctets) {
  std::vector<std::uint8_t> src(6, 0xFF);
  std::uint8_t dst[6] = {};
  copy_bits(src.data(), src.size(), 3, 42, dst, 6);
  EXPECT_EQ(dst[0], 0x03);                          // the first 6 bits stay zero
  for (int i = 1; i < 6; ++i) EXPECT_EQ(dst[i], 0xFF);
}

TEST(HexBits, PrintsOneDigitPerFourBitsAndPadsTheLastGroup) {
  struct Case {
    std::vector<std::uint8_t> data;
    std::uint32_t bits;
    const char* want;
  } cases[] = {
      {{0x03, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}, 48, "0x03ffffffffff"},
      {{0xAB, 0xC0}, 10, "0xabc"},                  // last 2 bits shown in the upper half
      {{0xAB, 0xFF}, 10, "0xabc"},                  // bits beyond the width are not shown
      {{0x12}, 4, "0x1"},
  };
  for (const auto& c : cases) {
    Text t;
    put_hex_bits(t, c.data.data(), c.bits);
    EXPECT_EQ(t.str(), c.want);
  }
  Text t;
  put_hex_bits(t, nullptr, 12);
  EXPECT_EQ(t.str(), "NULL\n");
}

TEST(Arena, ZeroFilledNullForZeroAndResettable) {
  Arena a;
  EXPECT_EQ(a.alloc<std::uint32_t>(0), nullptr);
  EXPECT_EQ(a.blocks(), 0u);
  auto* p = a.alloc<std::uint32_t>(1000);
  for (int i = 0; i < 1000; ++i) ASSERT_EQ(p[i], 0u);
  p[10] = 7;
  // Well past the 64-allocation limit of old designs, and past one chunk.
  for (int i = 0; i < 500; ++i) ASSERT_NE(a.alloc<std::uint64_t>(100), nullptr);
  EXPECT_EQ(a.blocks(), 501u);
  a.reset();
  EXPECT_EQ(a.blocks(), 0u);
  auto* q = a.alloc<std::uint32_t>(1000);
  for (int i = 0; i < 1000; ++i) ASSERT_EQ(q[i], 0u);
}

// A toy record exercising the verbs whose reading rules are easy to get wrong.
struct Inner {
  std::uint8_t A;
};
struct Toy {
  std::uint8_t N, LEN;
  PoolArray<Inner> items;
  Inner sized_rec;
  std::uint8_t AFTER;
};
template <class W>
void layout(W& w, Inner& r, const Ctx&) {
  if (!w.need(4)) return;
  w.u(r.A, "A", 4);
}
template <class W>
void layout(W& w, Toy& r, const Ctx& c) {
  if (!w.need(6)) return;
  w.u(r.N, "N", 3);
  w.u(r.LEN, "LEN", 3);
  if (!w.count(r.N, 5)) return;
  if (!w.counted("items", "Toy_items", r.items, r.N, c)) return;
  if (!w.sized("rec", r.sized_rec, r.LEN * 8u, c)) return;
  if (!w.need(2)) return;
  w.u(r.AFTER, "AFTER", 2);
}

Toy run(const std::vector<std::uint8_t>& buf, std::uint64_t avail, Rc& rc, std::uint64_t& consumed, Arena& a) {
  Toy t{};
  consumed = 0;
  rc = decode(t, Ctx{}, a, buf.data(), buf.size(), 0, avail, &consumed);
  return t;
}

TEST(Walkers, CountedSizedAndCountChecks) {
  Arena a;
  Rc rc;
  std::uint64_t used;
  // N=2 items, LEN=2 octets for a 4-bit record (the walk moves on by 16), AFTER=3.
  auto buf = test::Bits().put(2, 3).put(2, 3).put(0xA, 4).put(0x5, 4).put(0xC, 4).put(0, 12).put(3, 2).message(0);
  Toy t = run(buf, 6 + 8 + 16 + 2, rc, used, a);
  EXPECT_EQ(rc, Rc::ok);
  EXPECT_EQ(used, 32u);
  ASSERT_EQ(t.items.count, 2u);
  EXPECT_EQ(t.items[1].A, 5);
  EXPECT_EQ(t.sized_rec.A, 0xC);
  EXPECT_EQ(t.AFTER, 3);
  Text text;
  print(t, Ctx{}, "Toy", 0, text);
  EXPECT_EQ(text.str(), test::lines({"Toy", "{", "   N = 2", "   LEN = 2", "   items[0] = Toy_items", "   {",
                                     "      A = 10", "   }", "   items[1] = Toy_items", "   {", "      A = 5", "   }",
                                     "   rec = Toy_rec", "   {", "      A = 12", "   }", "   AFTER = 3", "}"}));

  // One bit short of AFTER: result 3, what was read stays.
  t = run(buf, 6 + 8 + 16 + 1, rc, used, a);
  EXPECT_EQ(rc, Rc::short_msg);
  EXPECT_EQ(t.sized_rec.A, 0xC);
  // A count above the capacity: result 1 before any item is read.
  auto big = test::Bits().put(6, 3).put(0, 3).message(0);
  t = run(big, 64, rc, used, a);
  EXPECT_EQ(rc, Rc::count);
  EXPECT_EQ(t.items.count, 0u);
}

TEST(Walkers, SizedRecordCannotReadPastItsDeclaredLength) {
  Arena a;
  Rc rc;
  std::uint64_t used;
  // LEN=0: the 4-bit record has no room even though the message has more bits.
  auto buf = test::Bits().put(0, 3).put(0, 3).put(0xF, 8).message(0);
  run(buf, 14, rc, used, a);
  EXPECT_EQ(rc, Rc::short_msg);
}

TEST(Walkers, HugeCountsNeitherWrapNorReadOutside) {
  Arena a;
  const std::uint8_t b[1] = {0xFF};
  ReadWalk w(a, b, 1, 0, ~std::uint64_t{0} >> 1);   // a bit count far beyond the buffer
  std::uint32_t v = 1;
  ASSERT_TRUE(w.need(32));
  w.u(v, "X", 32);
  EXPECT_EQ(v, 0xFF000000u);                        // outside the buffer reads as zero
  w.skip(~std::uint64_t{0} >> 2);
  EXPECT_FALSE(w.need(~std::uint64_t{0} >> 1));
  EXPECT_EQ(w.rc(), Rc::short_msg);
  EXPECT_EQ(w.left(), 0u);
}

}  // namespace
}  // namespace cs
