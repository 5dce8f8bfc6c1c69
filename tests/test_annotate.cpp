// The value annotation: keys, digit renderers, dates, counts and scaled quantities.
#include <gtest/gtest.h>

#include <cstdio>
#include <set>

#include "text/annotate.h"

namespace cs {
std::string_view annotation_entry_key(std::size_t i);

namespace {

std::string ann(std::string_view name, std::uint32_t v, unsigned width = 0) {
  Text t;
  annotate(t, name, AnnValue{v, width, nullptr});
  return t.str();
}

std::string ann_bytes(std::string_view name, std::vector<std::uint8_t> octets) {
  Text t;
  Bytes b{octets.data(), static_cast<std::uint32_t>(octets.size() * 8)};
  annotate(t, name, AnnValue{0, b.bits, &b});
  return t.str();
}

// IMSI_S of digits 123-456-7890: IMSI_S2 = 123 -> 012 encoding, IMSI_S1 = 456 7 890.
std::vector<std::uint8_t> imsi_s_octets() {
  auto enc3 = [](unsigned d1, unsigned d2, unsigned d3) {
    auto e = [](unsigned d) { return d == 0 ? 10u : d; };
    return (e(d1) - 1) * 100 + (e(d2) - 1) * 10 + (e(d3) - 1);
  };
  const std::uint64_t s2 = enc3(1, 2, 3), s1 = (std::uint64_t{enc3(4, 5, 6)} << 14) | (7u << 10) | enc3(8, 9, 0);
  const std::uint64_t v = (s2 << 24) | s1;   // 34 bits, right-aligned in 5 octets
  std::vector<std::uint8_t> o(5);
  for (int i = 0; i < 5; ++i) o[i] = static_cast<std::uint8_t>(v >> (8 * (4 - i)));
  return o;
}

TEST(Annotation, TableHasItsKeysInOrderWithoutDuplicates) {
  std::set<std::string_view> seen;
  for (std::size_t i = 0; i < 99; ++i) {
    EXPECT_EQ(annotation_entry_key(i), kAnnotationKeys[i]);
    EXPECT_TRUE(seen.insert(kAnnotationKeys[i]).second) << kAnnotationKeys[i];
  }
  EXPECT_EQ(kAnnotationKeys[0], "imsi_s");
  EXPECT_EQ(kAnnotationKeys[98], "spc");
}

TEST(Annotation, ImsiDigitsAnyCaseAndNullArray) {
  EXPECT_EQ(ann_bytes("IMSI_S", imsi_s_octets()), " ( 123-456-7890 )");
  EXPECT_EQ(ann_bytes("imsi_t_s", imsi_s_octets()), " ( 123-456-7890 )");
  Text t;
  Bytes null{nullptr, 40};
  annotate(t, "IMSI_S", AnnValue{0, 40, &null});
  EXPECT_EQ(t.str(), "");
}

TEST(Annotation, KeyedReadings) {
  struct Case {
    const char* name;
    std::uint32_t value;
    unsigned width;
    const char* want;
  } cases[] = {
      {"PILOT_PN", 5, 9, ""},                         // not a key
      {"NUM_SV[2]", 5, 6, ""},                        // indexed names never match
      {"year", 0x98, 8, " ( 1998 )"},
      {"YEAR", 0x04, 8, " ( 2004 )"},
      {"year", 0x95, 8, " ( 1995 )"},
      {"year", 0x94, 8, " ( 2094 )"},
      {"month", 0x12, 8, " ( 12 )"},
      {"seconds", 0x59, 8, " ( 59 )"},
      {"num_sv", 0, 4, " ( 1 )"},
      {"TOTAL_PARTS", 7, 3, " ( 8 )"},
      {"pref_resp_qual", 2, 3, " ( 8 s )"},
      {"PREF_RESP_QUAL", 7, 3, " ( 256 s )"},
      {"ESN", 0x80c9c915, 32, " ( 128-13224213, 0x80C9C915 )"},
      {"MIN2", 0, 10, " ( 111 )"},                    // stored digits d-1, 10 printed as 0
      {"MIN2", 999, 10, " ( 000 )"},
      {"MCC", 209, 10, " ( 310 )"},
      {"IMSI_11_12", 99, 7, " ( 00 )"},
      {"spc", 0x12abcd, 24, " ( SPC = 0x12ABCD )"},
      {"doppler0", 0xFFF, 12, " ( -2.500000 Hz )"},
      {"doppler0", 4, 12, " ( 10.000000 Hz )"},
      {"latitude", 1, 25, " ( 0.0000053644180297851562500 deg )"},
      {"latitude", 0x1FFFFFF, 25, " ( -0.0000053644180297851562500 deg )"},
      {"clock_bias", 13100, 18, " ( 100 ns )"},
      {"clock_bias", 0, 18, " ( -13000 ns )"},
      {"mob_sys_t_offset", 0x3FFF, 14, " ( -0.062500 chips )"},
      {"action_time_6", 3, 6, " ( 240 ms )"},
      {"lat_ref_arcs", 0x7FFFFF, 23, " ( -0.125000 arc seconds )"},
      {"delta_clock_1st", 0x80, 8, " ( -12.800000 ppb )"},
      {"delta_clock_1st", 5, 8, " ( 0.500000 ppb )"},
      {"loc_uncrtnty_a", 0, 5, " ( 0.500000 m )"},       // 0.5 m doubling every two steps,
      {"loc_uncrtnty_p", 3, 5, " ( 1.500000 m )"},       // the odd steps half-way (x 1.5)
      {"loc_uncrtnty_v", 29, 5, " ( 12288.000000 m )"},
      {"heading", 256, 10, " ( 90.0000000000000000000000000 deg )"},
      {"velocity_hor", 9, 9, " ( 2.250000 m/s )"},
      {"clock_drift", 0xFFFF, 16, " ( -1 ppb )"},
      {"height", 480, 14, " ( -20 m )"},
  };
  for (const auto& c : cases) EXPECT_EQ(ann(c.name, c.value, c.width), c.want) << c.name << " " << c.value;
}

TEST(Annotation, Min1Digits) {
  // 617-5551 style number: three digits, a 4-bit digit, three digits.
  const std::uint32_t v = (((6 - 1) * 100 + (1 - 1) * 10 + (7 - 1)) << 14) | (5u << 10) | ((5 - 1) * 100 + (5 - 1) * 10 + 0);
  EXPECT_EQ(ann("MIN1", v, 24), " ( 617-5551 )");
}

// Decimal readings are printf's "%f" of the scaled value, whichever way they are formatted:
// every value of signed 8- and 14-bit fields with scales of 1/64, 2.5 and 0.625 (exact in six
// decimals or not).
TEST(Annotation, DecimalReadingsAreThoseOfPrintf) {
  struct Case {
    const char* name;
    unsigned width;
    bool is_signed;
    double scale;
    const char* unit;
  };
  const Case cases[] = {{"doppler1", 8, true, 1.0 / 64, " Hz/s )"},
                        {"doppler0", 14, true, 2.5, " Hz )"},
                        {"doppler0_lsb", 8, false, 0.625, " Hz )"}};
  for (const Case& c : cases) {
    for (std::uint32_t v = 0; v < (1u << c.width); ++v) {
      const std::int64_t raw = c.is_signed && (v >> (c.width - 1)) ? std::int64_t{v} - (std::int64_t{1} << c.width) : v;
      char b[64];
      std::snprintf(b, sizeof b, " ( %f%s", static_cast<double>(raw) * c.scale, c.unit);
      ASSERT_EQ(ann(c.name, v, c.width), b) << c.name << " " << v;
    }
  }
}

}  // namespace
}  // namespace cs
