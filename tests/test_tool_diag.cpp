// The phone-log reader's arithmetic: timestamps across the calendar and the capsule checks.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "diag_log.h"

namespace cs::diag {
namespace {

std::uint64_t ts(std::uint64_t units, std::uint64_t chips32) { return units << 16 | chips32; }

std::vector<std::uint8_t> octets(const std::string& hex) {
  std::vector<std::uint8_t> v;
  for (std::size_t i = 0; i + 1 < hex.size(); i += 2) v.push_back(static_cast<std::uint8_t>(std::stoul(hex.substr(i, 2), nullptr, 16)));
  return v;
}

TEST(DiagTimestamps, CalendarOfGpsTime) {
  // Units of 1.25 ms since 1980-01-06 (computed apart from this code), plus 1/32 chips.
  const struct {
    std::uint64_t ts;
    const char* text;
  } cases[] = {
      {0, "1980-01-06 00:00:00.000"},
      {ts(0, 49151), "1980-01-06 00:00:00.001"},             // the largest fraction of a unit
      {ts(508690317431, 9831), "2000-02-29 12:34:56.789"},   // a leap day of a century year
      {0xd152529ce03fcb, "2015-08-16 18:57:18.360"},         // a real log's, its sync message agreeing
      {ts(1135779839999, 9831), "2024-12-31 23:59:59.999"},
      {ts(3033262080000, 0), "2100-03-01 00:00:00.000"},     // 2100 has no 29 February
  };
  for (const auto& c : cases) EXPECT_EQ(format_timestamp(c.ts), c.text) << std::hex << c.ts;
  EXPECT_DOUBLE_EQ(timestamp_seconds(ts(800, 0)), 1.0);
}

TEST(DiagCapsules, LengthAndCrc) {
  // Real capsules of the paging and sync channels (CRC-30), then the same spoiled.
  const std::string ecclm = "0d1b271a6064258c800dcb6bec";
  const std::string sync = "1a010501206200084e390167a5fbcd152529cc472806444445b2";
  for (const auto& [channel, hex] : {std::pair{kPaging, ecclm}, std::pair{kSync, sync}}) {
    std::vector<std::uint8_t> c = octets(hex);
    EXPECT_EQ(check_capsule(channel, c.data(), c.size()), CapsuleCheck::ok) << hex;
    for (std::size_t bit = 8; bit < c.size() * 8; bit += 7) {
      std::vector<std::uint8_t> bad = c;
      bad[bit / 8] ^= static_cast<std::uint8_t>(0x80 >> (bit % 8));
      EXPECT_EQ(check_capsule(channel, bad.data(), bad.size()), CapsuleCheck::bad_crc) << hex << " bit " << bit;
    }
    c.push_back(0);
    EXPECT_EQ(check_capsule(channel, c.data(), c.size()), CapsuleCheck::bad_length);
  }
  // Too short for a type octet and a CRC, whatever the length octet says.
  const std::uint8_t tiny[] = {5, 1, 2, 3, 4};
  EXPECT_EQ(check_capsule(kPaging, tiny, sizeof tiny), CapsuleCheck::bad_length);
  EXPECT_EQ(check_capsule(kPaging, tiny, 0), CapsuleCheck::bad_length);
}

TEST(DiagCapsules, LenHandedToTheLibrary) {
  // Channels 2 to 5 leave 8 bits of len out of their count, the sync channel skips the type octet.
  EXPECT_EQ(library_len(kSync, 26), 25u);
  for (int ch : {kPaging, kAccess, kFwdTraffic, kRevTraffic}) EXPECT_EQ(library_len(ch, 13), 13u);
  const int want[] = {0, 0, 0, 0, kAccess, kRevTraffic, kSync, kPaging, kFwdTraffic, 0};
  for (unsigned code = 0x1000; code < 0x100A; ++code)
    EXPECT_EQ(channel_of_log_code(static_cast<std::uint16_t>(code)), want[code - 0x1000]) << std::hex << code;
}

}  // namespace
}  // namespace cs::diag
