// Lists whose element count is not sent run to the end of the message, with a capacity
// estimated once from the bits left and kept in 8 bits: the wraps are deliberate and pinned
// here (the golden cases cover the lists' texts).
#include <gtest/gtest.h>

#include <string>

#include "helpers.h"

namespace cs {
namespace {

using test::Bits;

constexpr int kFtc = 4;

std::size_t count(const std::string& text, const std::string& what) {
  std::size_t n = 0;
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++n;
  return n;
}

// An Extended Handoff Direction Message whose pilot list starts with exactly `tail` bits left:
// the header and fixed part are picked so that they end where the tail then fills whole octets.
std::vector<std::uint8_t> ehdm_with_tail(unsigned tail, std::uint8_t& p_rev) {
  for (unsigned p : {6u, 7u, 9u}) {
    for (unsigned enc3 = 0; enc3 < 2; ++enc3) {
      for (unsigned hard = 0; hard < 2; ++hard) {
        if (enc3 && p < 7) continue;
        Bits b;
        b.put(17, 8).put(0, 7).put(enc3 ? 3 : 0, 2);
        if (p >= 9) b.put(0, 1);   // MACI_INCL 0
        if (enc3) b.put(0, 3);     // SDU_ENCRYPT_MODE 0: no ENC_SEQ
        b.put(0, 10).put(hard, 1);
        if (hard) b.put(0, 6).put(0, 2).put(0, 26);
        b.put(0, 3);
        if ((b.size() + tail) % 8) continue;
        for (unsigned i = 0; i < tail; ++i) b.put(i % 18 == 0 ? 1 : 0, 1);   // PILOT_PN 256 each
        p_rev = static_cast<std::uint8_t>(p);
        b.put(0, 8);
        return b.message(16);
      }
    }
  }
  ADD_FAILURE() << "no prefix for tail " << tail;
  return {};
}

// The EHDM's active set: (bits / 18) + 1 slots kept in 8 bits, capped at 108.
TEST(ListCapacity, EhdmPilotsWrapInEightBitsAndStopAt108) {
  struct Case {
    unsigned tail;     // bits left when the pilot list starts
    unsigned pilots;   // records read
    int rc;
  };
  const Case cases[] = {
      {0, 0, 0},           {7, 0, 0},            // padding only
      {8, 0, 3},           {17, 0, 3},           // a tail of 8 to 17 bits is a short record
      {19, 1, 0},          {25, 1, 0},           {43, 2, 0},           {44, 2, 3},
      {18 * 107 + 10, 107, 3},                  // capacity 108 not reached: the tail is read
      {18 * 108, 108, 0},  {18 * 108 + 12, 108, 0},   // capacity reached: the tail stays unread
      {18 * 150, 108, 0},                       // 151 slots capped to 108
      {18 * 254, 108, 0},                       // 255 slots capped to 108
      {18 * 255, 0, 0},    {4607, 0, 0},         // 255 + 1 wraps to 0 slots: nothing read
      {18 * 256, 1, 0},                         // 256 wraps to 0, plus one
      {18 * 300, 45, 0},                        // 300 is 44 in 8 bits, plus one
  };
  for (const auto& k : cases) {
    SCOPED_TRACE(k.tail);
    std::uint8_t p_rev = 0;
    const auto msg = ehdm_with_tail(k.tail, p_rev);
    auto r = test::decode(kFtc, p_rev, 0, msg);
    EXPECT_EQ(r.rc, k.rc);
    EXPECT_EQ(count(r.text, "ACTIVE_SET_PILOT["), k.pilots);
    EXPECT_EQ(count(r.text, "PILOT_PN = 256\n"), k.pilots);
  }
}

// Alert and Flash With Information: (bits / 24) kept in 8 bits, plus one, kept in 8 bits.
TEST(ListCapacity, InformationRecordsWrapAtQuotient255) {
  struct Case {
    unsigned mw_records;   // 24-bit message waiting records
    unsigned extra_bits;
    unsigned records_read;
  };
  const Case cases[] = {
      {0, 7, 0},       // fewer than 8 bits: empty list
      {1, 0, 1},       //
      {254, 0, 254},   // 6096 bits: capacity 255
      {255, 0, 0},     // 6120 bits: quotient 255, capacity wraps to 0
      {255, 23, 0},    // 6143 bits: still 255
      {256, 0, 1},     // 6144 bits: quotient 256 keeps 0 in 8 bits, capacity 1
  };
  for (const Case& k : cases) {
    SCOPED_TRACE(k.mw_records * 24 + k.extra_bits);
    for (unsigned type : {3u, 14u}) {   // AWIM, FWIM
      Bits b;
      b.put(type, 8).put(0, 7).put(0, 2);   // MSG_TYPE, ACK_SEQ, MSG_SEQ, ACK_REQ, ENCRYPTION
      for (unsigned i = 0; i < k.mw_records; ++i) b.put(6, 8).put(1, 8).put(i & 0xFF, 8);
      b.put(0, k.extra_bits);
      // No padding: the records end on the channel's bit count, less the spare octet.
      b.put(0, 8);
      const auto r = test::decode(kFtc, 7, 0, b.message(16));
      EXPECT_EQ(r.rc, 0);
      EXPECT_EQ(count(r.text, "INFO_RECs["), k.records_read);
    }
  }
}

}  // namespace
}  // namespace cs
