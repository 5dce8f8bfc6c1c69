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

// Every width at every offset, on buffers of 0 to 16 octets and running past their end: the
// reader loads whole words away from the end and single octets near it.
TEST(BitReader, MatchesBitByBitReferenceForEveryWidthAndOffset) {
  std::mt19937 rng(7);
  for (std::size_t size = 0; size <= 16; ++size) {
    std::vector<std::uint8_t> buf(size);
    for (auto& o : buf) o = static_cast<std::uint8_t>(rng());
    for (unsigned w = 0; w <= 32; ++w)
      for (std::uint64_t pos = 0; pos <= size * 8 + 40; ++pos)
        ASSERT_EQ(read_bits(buf.data(), buf.size(), pos, w), slow_read(buf, pos, w))
            << "size=" << size << " w=" << w << " pos=" << pos;
  }
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
  w(F(A, 4));
}
template <class W>
void layout(W& w, Toy& r, const Ctx& c) {
  w(F(N, 3), F(LEN, 3));
  if (!w.at_most(r.N, 5)) return;
  w.records("items", r.items, r.N, c);
  w.sized("rec", r.sized_rec, r.LEN * 8u, c);
  w(F(AFTER, 2));
}

Toy run(const std::vector<std::uint8_t>& buf, std::uint64_t avail, Rc& rc, std::uint64_t& consumed, Arena& a) {
  Toy t{};
  consumed = 0;
  rc = decode(t, Ctx{}, a, buf.data(), buf.size(), 0, avail, &consumed);
  return t;
}

TEST(Walkers, RecordsSizedAndCountChecks) {
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
  // One bit short of the first group: none of it is read.
  t = run(buf, 5, rc, used, a);
  EXPECT_EQ(rc, Rc::short_msg);
  EXPECT_EQ(t.N, 0);
  EXPECT_EQ(t.LEN, 0);
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
  ASSERT_TRUE(w(field(v, "X", 32)));
  EXPECT_EQ(v, 0xFF000000u);                        // outside the buffer reads as zero
  w.skip(~std::uint64_t{0} >> 2);
  EXPECT_FALSE(w.need(~std::uint64_t{0} >> 1));
  EXPECT_EQ(w.rc(), Rc::short_msg);
  EXPECT_EQ(w.left(), 0u);
}

// A part that states its own length: the reader moves on to its declared end, never past the
// message; records paired with an array read before see their own element's context.
struct Part {
  std::uint8_t LEN, X;
};
struct WidthCtx : Ctx {
  std::uint8_t width;
};
template <class W>
void layout(W& w, Part& r, const Ctx&) {
  auto end = w.declared_end();
  w(F(LEN, 4));
  end.at(8u * r.LEN);
  w(F(X, 4));
}
struct Scaled {
  std::uint8_t V;
};
template <class W>
void layout(W& w, Scaled& r, const WidthCtx& c) {
  w(F(V, c.width));
}
struct PairedScaled {
  std::uint8_t NUM;
  PoolArray<std::uint8_t> WIDTH;
  PoolArray<Scaled> items;
  Part part;
  std::uint8_t AFTER;
};
template <class W>
void layout(W& w, PairedScaled& r, const Ctx& c) {
  w(F(NUM, 2));
  w.scalars("WIDTH", r.WIDTH, r.NUM, 3);
  w.alongside("items", r.items, r.WIDTH.count, [&](std::uint32_t k) {
    WidthCtx wc{c};
    wc.width = r.WIDTH[k];
    return wc;
  });
  w.sub("part", r.part, c);
  w(F(AFTER, 4));
}

TEST(Walkers, DeclaredEndsAndPairedRecords) {
  Arena a;
  // NUM 2, widths 3 and 5, values 5 (3 bits) and 17 (5 bits); a part of LEN 2 octets holding X
  // in its first 8 bits, then AFTER.
  const auto buf =
      test::Bits().put(2, 2).put(3, 3).put(5, 3).put(5, 3).put(17, 5).put(2, 4).put(9, 4).put(0, 8).put(6, 4).message(0);
  PairedScaled r{};
  std::uint64_t used = 0;
  ASSERT_EQ(decode(r, Ctx{}, a, buf.data(), buf.size(), 0, 36, &used), Rc::ok);
  EXPECT_EQ(used, 36u);
  ASSERT_EQ(r.items.count, 2u);
  EXPECT_EQ(r.items[0].V, 5);
  EXPECT_EQ(r.items[1].V, 17);
  EXPECT_EQ(r.part.X, 9);
  EXPECT_EQ(r.AFTER, 6);
  Text t;
  print(r, Ctx{}, "P", 0, t);
  EXPECT_EQ(t.str(), test::lines({"P", "{", "   NUM = 2", "   WIDTH[0] = 3", "   WIDTH[1] = 5", "   items[0] = P_items",
                                  "   {", "      V = 5", "   }", "   items[1] = P_items", "   {", "      V = 17", "   }",
                                  "   part = P_part", "   {", "      LEN = 2", "      X = 9", "   }", "   AFTER = 6", "}"}));
  // A declared end beyond the message leaves the walk at its end: AFTER is short.
  const auto cut = test::Bits().put(0, 2).put(15, 4).put(1, 4).put(0, 2).message(0);
  PairedScaled s{};
  EXPECT_EQ(decode(s, Ctx{}, a, cut.data(), cut.size(), 0, 12, &used), Rc::short_msg);
  EXPECT_EQ(s.part.X, 1);
}

}  // namespace
}  // namespace cs
