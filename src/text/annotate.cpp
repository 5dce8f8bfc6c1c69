#include "text/annotate.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace cs {

namespace {

enum class Kind : std::uint8_t { ImsiS, Min1, Min2, Esn, PrefRespQual, Count, Year, Bcd, Mcc, Imsi1112, Spc, Pd };

// How a position-determination quantity reads: value (sign-extended when `is_signed`),
// through an optional table, times `scale`, plus `offset`, then the unit.
enum class Fmt : std::uint8_t { Float, Int, Angle };
enum class Map : std::uint8_t { Linear, Uncertainty, RmsError, Halving };
struct Quantity {
  bool is_signed;
  Map map;
  double scale, offset;
  Fmt fmt;
  const char* unit;   // replaces the closing " )"
};

struct Entry {
  std::string_view key;
  Kind kind;
  Quantity q;
};

constexpr Quantity kNone{false, Map::Linear, 1, 0, Fmt::Int, " )"};
constexpr Quantity lin(bool s, double scale, double offset, Fmt f, const char* unit) {
  return Quantity{s, Map::Linear, scale, offset, f, unit};
}

// The table, in key order of kAnnotationKeys (checked by a test).
//
// Position quantities of the IS-801-1 location response (latitude, longitude, the uncertainty
// ellipse and its angle, velocity_hor, heading, clock_bias, clock_drift, height) have the
// widths and scales of the published element layout, as Wireshark's IS-801 dissector reads
// them too, the uncertainty code with its two values beyond the table (30: more than 12288 m,
// 31: not computable). latitude and longitude are two's complement, so the southern and
// western halves read negative (that dissector reads them as offsets from -90 and -180
// degrees). velocity_ver is taken as two's complement in 0.5 m/s (the dissector reads it as
// an offset of -64 m/s; both span -64 to +63.5 m/s). The counts sent as one less than the
// count (num_fixes, num_sv_p, part_num, ...) read as the count. The assistance and measurement
// quantities (Doppler, code phase, angles, pilot phases, satellite coordinates, corrections)
// belong to elements that are not decoded: their entries serve fields of those names wherever
// they appear, and no decoded element prints them yet.
constexpr double kLatScale = 180.0 / 33554432.0;   // 2^25
constexpr double kLongScale = 360.0 / 67108864.0;  // 2^26
const Entry kEntries[99] = {
    {"imsi_s", Kind::ImsiS, kNone},
    {"imsi_o_s", Kind::ImsiS, kNone},
    {"imsi_m_s", Kind::ImsiS, kNone},
    {"imsi_t_s", Kind::ImsiS, kNone},
    {"imsi_11_12", Kind::Imsi1112, kNone},
    {"imsi_o_11_12", Kind::Imsi1112, kNone},
    {"imsi_m_11_12", Kind::Imsi1112, kNone},
    {"imsi_t_11_12", Kind::Imsi1112, kNone},
    {"mcc", Kind::Mcc, kNone},
    {"mcc_o", Kind::Mcc, kNone},
    {"mcc_m", Kind::Mcc, kNone},
    {"mcc_t", Kind::Mcc, kNone},
    {"min1", Kind::Min1, kNone},
    {"min2", Kind::Min2, kNone},
    {"imsi_m_s1", Kind::Min1, kNone},
    {"imsi_m_s2", Kind::Min2, kNone},
    {"esn", Kind::Esn, kNone},
    {"pref_resp_qual", Kind::PrefRespQual, kNone},
    {"time_of_app", Kind::Pd, lin(false, 1.28, 0, Fmt::Float, " s )")},
    {"doppler0", Kind::Pd, lin(true, 2.5, 0, Fmt::Float, " Hz )")},
    {"doppler1", Kind::Pd, lin(true, 1.0 / 64, 0, Fmt::Float, " Hz/s )")},
    {"doppler1_11", Kind::Pd, lin(true, 1.0 / 64, 0, Fmt::Float, " Hz/s )")},
    {"doppler_win", Kind::Pd, Quantity{false, Map::Halving, 400, 0, Fmt::Float, " Hz )"}},
    {"sv_code_ph_win", Kind::Pd, lin(false, 1, 0, Fmt::Int, " chips )")},
    {"azimuth", Kind::Pd, lin(false, 11.25, 0, Fmt::Angle, " deg )")},
    {"elevation", Kind::Pd, lin(false, 11.25, 0, Fmt::Angle, " deg )")},
    {"latitude", Kind::Pd, lin(true, kLatScale, 0, Fmt::Angle, " deg )")},
    {"longitude", Kind::Pd, lin(true, kLongScale, 0, Fmt::Angle, " deg )")},
    {"loc_uncrtnty_ang", Kind::Pd, lin(false, 5.625, 0, Fmt::Angle, " deg )")},
    {"loc_uncrtnty_a", Kind::Pd, Quantity{false, Map::Uncertainty, 1, 0, Fmt::Float, " m )"}},
    {"loc_uncrtnty_p", Kind::Pd, Quantity{false, Map::Uncertainty, 1, 0, Fmt::Float, " m )"}},
    {"loc_uncrtnty_v", Kind::Pd, Quantity{false, Map::Uncertainty, 1, 0, Fmt::Float, " m )"}},
    {"velocity_hor", Kind::Pd, lin(false, 0.25, 0, Fmt::Float, " m/s )")},
    {"heading", Kind::Pd, lin(false, 360.0 / 1024, 0, Fmt::Angle, " deg )")},
    {"velocity_ver", Kind::Pd, lin(true, 0.5, 0, Fmt::Float, " m/s )")},
    {"clock_bias", Kind::Pd, lin(false, 1, -13000, Fmt::Int, " ns )")},
    {"clock_bias_9", Kind::Pd, lin(false, 1, -13000, Fmt::Int, " ns )")},
    {"clock_drift", Kind::Pd, lin(true, 1, 0, Fmt::Int, " ppb )")},
    {"clock_drift_8", Kind::Pd, lin(true, 1, 0, Fmt::Int, " ppb )")},
    {"clock_drift_17", Kind::Pd, lin(true, 1, 0, Fmt::Int, " ppb )")},
    {"mob_sys_t_offset", Kind::Pd, lin(true, 0.0625, 0, Fmt::Float, " chips )")},
    {"ps_doppler", Kind::Pd, lin(true, 0.2, 0, Fmt::Float, " Hz )")},
    {"ps_range_rms_er", Kind::Pd, Quantity{false, Map::RmsError, 1, 0, Fmt::Float, " m )"}},
    {"pilot_pn_phase", Kind::Pd, lin(false, 0.0625, 0, Fmt::Float, " chips )")},
    {"pilot_strength", Kind::Pd, lin(false, -0.5, 0, Fmt::Float, " dB )")},
    {"num_fixes", Kind::Count, kNone},
    {"action_time_6", Kind::Pd, lin(false, 80, 0, Fmt::Int, " ms )")},
    {"action_time_10", Kind::Pd, lin(false, 80, 0, Fmt::Int, " ms )")},
    {"num_sv", Kind::Count, kNone},
    {"sv_prn_num", Kind::Count, kNone},
    {"lat_ref", Kind::Pd, lin(true, kLatScale, 0, Fmt::Angle, " deg )")},
    {"long_ref", Kind::Pd, lin(true, kLongScale, 0, Fmt::Angle, " deg )")},
    {"height_ref", Kind::Pd, lin(false, 1, -500, Fmt::Int, " m )")},
    {"dly_oneway", Kind::Pd, lin(false, 0.125, 0, Fmt::Float, " chips )")},
    {"doppler0_lsb", Kind::Pd, lin(false, 0.625, 0, Fmt::Float, " Hz )")},
    {"sv_code_ph_fr", Kind::Pd, lin(false, 1.0 / 1024, 0, Fmt::Float, " chips )")},
    {"azimuth_lsb", Kind::Pd, lin(false, 0.703125, 0, Fmt::Angle, " deg )")},
    {"elevation_lsb", Kind::Pd, lin(false, 0.703125, 0, Fmt::Angle, " deg )")},
    {"sv_coor_x", Kind::Pd, lin(true, 1, 0, Fmt::Int, " m )")},
    {"sv_coor_y", Kind::Pd, lin(true, 1, 0, Fmt::Int, " m )")},
    {"sv_coor_z", Kind::Pd, lin(true, 1, 0, Fmt::Int, " m )")},
    {"time_crrction_ref", Kind::Pd, lin(false, 1, 0, Fmt::Int, " s )")},
    {"lat_ref_arcs", Kind::Pd, lin(true, 0.125, 0, Fmt::Float, " arc seconds )")},
    {"long_ref_arcs", Kind::Pd, lin(true, 0.125, 0, Fmt::Float, " arc seconds )")},
    {"height_ref_4m", Kind::Pd, lin(false, 4, -500, Fmt::Int, " m )")},
    {"height_r", Kind::Pd, lin(false, 4, -500, Fmt::Int, " m )")},
    {"part_num", Kind::Count, kNone},
    {"total_parts", Kind::Count, kNone},
    {"delta_lat", Kind::Pd, lin(true, 0.125, 0, Fmt::Float, " arc seconds )")},
    {"delta_long", Kind::Pd, lin(true, 0.125, 0, Fmt::Float, " arc seconds )")},
    {"height", Kind::Pd, lin(false, 1, -500, Fmt::Int, " m )")},
    {"num_sv_p", Kind::Count, kNone},
    {"num_dr_p", Kind::Count, kNone},
    {"num_sv_dr", Kind::Count, kNone},
    {"delta_x", Kind::Pd, lin(true, 0.5, 0, Fmt::Float, " m )")},
    {"delta_y", Kind::Pd, lin(true, 0.5, 0, Fmt::Float, " m )")},
    {"delta_z", Kind::Pd, lin(true, 0.5, 0, Fmt::Float, " m )")},
    {"delta_coor_corr_1st", Kind::Pd, lin(true, 0.0625, 0, Fmt::Float, " m/s )")},
    {"delta_x_1st", Kind::Pd, lin(true, 0.0625, 0, Fmt::Float, " m/s )")},
    {"delta_y_1st", Kind::Pd, lin(true, 0.0625, 0, Fmt::Float, " m/s )")},
    {"delta_z_1st", Kind::Pd, lin(true, 0.0625, 0, Fmt::Float, " m/s )")},
    {"delta_clock", Kind::Pd, lin(true, 1, 0, Fmt::Int, " ns )")},
    {"delta_clock_1st", Kind::Pd, lin(true, 0.1, 0, Fmt::Float, " ppb )")},
    {"num_bad_sv", Kind::Count, kNone},
    {"bad_sv_prn_num", Kind::Count, kNone},
    {"inv_weight_fa", Kind::Pd, lin(false, 1, 0, Fmt::Int, " )")},
    {"num_ps_ranges_p", Kind::Count, kNone},
    {"ref_pilot_strength", Kind::Pd, lin(false, -0.5, 0, Fmt::Float, " dB )")},
    {"rms_err_phase", Kind::Pd, Quantity{false, Map::RmsError, 1, 0, Fmt::Float, " m )"}},
    {"add_pilot_pn_ph", Kind::Pd, lin(false, 0.0625, 0, Fmt::Float, " chips )")},
    {"add_pilot_strength", Kind::Pd, lin(false, -0.5, 0, Fmt::Float, " dB )")},
    {"add_rms_err_ph", Kind::Pd, Quantity{false, Map::RmsError, 1, 0, Fmt::Float, " m )"}},
    {"year", Kind::Year, kNone},
    {"month", Kind::Bcd, kNone},
    {"day", Kind::Bcd, kNone},
    {"hours", Kind::Bcd, kNone},
    {"minutes", Kind::Bcd, kNone},
    {"seconds", Kind::Bcd, kNone},
    {"spc", Kind::Spc, kNone},
};

// Sorted view for lookup by name.
struct Index {
  std::array<const Entry*, 99> by_key;
  Index() {
    for (std::size_t i = 0; i < 99; ++i) by_key[i] = &kEntries[i];
    std::sort(by_key.begin(), by_key.end(), [](const Entry* a, const Entry* b) { return a->key < b->key; });
  }
  const Entry* find(std::string_view k) const {
    auto it = std::lower_bound(by_key.begin(), by_key.end(), k, [](const Entry* e, std::string_view x) { return e->key < x; });
    return it != by_key.end() && (*it)->key == k ? *it : nullptr;
  }
};
const Index kIndex;

// A 10-bit group of three digits: each digit is stored as 1..10 with 10 meaning 0.
void digits3(Text& t, std::uint32_t v) {
  const unsigned d[3] = {(v / 100) % 10 + 1, (v / 10) % 10 + 1, v % 10 + 1};
  char b[3];
  for (unsigned i = 0; i < 3; ++i) b[i] = static_cast<char>('0' + d[i] % 10);   // 10 stands for 0
  t.put(std::string_view(b, 3));
}

std::uint32_t bits_of(const std::uint8_t* a, unsigned pos, unsigned width) {
  std::uint32_t v = 0;
  for (unsigned i = 0; i < width; ++i, ++pos) v = (v << 1) | ((a[pos / 8] >> (7 - pos % 8)) & 1u);
  return v;
}

// 24 bits as ddd-dddd: three digits, a 4-bit digit, three digits.
void min1_digits(Text& t, std::uint32_t v) {
  digits3(t, (v >> 14) & 0x3FF);
  t.put('-').dec(((v >> 10) & 0xF) % 10);
  digits3(t, v & 0x3FF);
}

// The value of a field that may be stored as a bit string of up to four octets.
std::uint32_t scalar_of(const AnnValue& v) {
  if (v.bytes == nullptr || v.bytes->data == nullptr) return v.value;
  std::uint32_t r = 0;
  const std::uint32_t n = v.bytes->bits / 8;
  for (std::uint32_t i = n > 4 ? n - 4 : 0; i < n; ++i) r = (r << 8) | v.bytes->data[i];
  return r;
}

void put_double(Text& t, double x, Fmt f) {
  // A multiple of 1/64 below 2^40 (half-dB steps, Doppler steps, ...) has at most six
  // decimals, all exact: its "%f" is its integer part and 15625 millionths per 64th.
  if (f == Fmt::Float && std::fabs(x) < 1099511627776.0 && x * 64 == std::floor(x * 64)) {
    const auto n = static_cast<std::int64_t>(x * 64);
    const std::uint64_t a = static_cast<std::uint64_t>(n < 0 ? -n : n);
    char b[32];
    char* p = b;
    if (n < 0 || std::signbit(x)) *p++ = '-';
    p = std::to_chars(p, b + sizeof b, a / 64).ptr;
    *p++ = '.';
    const std::uint64_t frac = (a % 64) * 15625;   // millionths, below 10^6
    for (std::uint64_t d = 100000; d != 0; d /= 10) *p++ = static_cast<char>('0' + frac / d % 10);
    t.put(std::string_view(b, static_cast<std::size_t>(p - b)));
    return;
  }
  // As printf's "%f" and "%.25f": the exact value correctly rounded to 6 or 25 decimals.
  char b[384];
  const auto r = std::to_chars(b, b + sizeof b, x, std::chars_format::fixed, f == Fmt::Angle ? 25 : 6);
  t.put(std::string_view(b, r.ec == std::errc{} ? static_cast<std::size_t>(r.ptr - b) : 0));
}

void quantity(Text& t, const Quantity& q, const AnnValue& v) {
  std::int64_t raw = v.value;
  if (q.is_signed && v.width > 0 && v.width < 32 && (v.value >> (v.width - 1)) != 0)
    raw = static_cast<std::int64_t>(v.value) - (std::int64_t{1} << v.width);
  else if (q.is_signed && v.width == 32)
    raw = static_cast<std::int32_t>(v.value);
  // The uncertainty code's last two values are no distances: 30 stands for anything beyond
  // the largest step (12288 m), 31 for an uncertainty that could not be computed.
  if (q.map == Map::Uncertainty && raw >= 30) {
    if (raw == 30) {
      t.put(" ( > ");
      put_double(t, 12288.0 * q.scale + q.offset, q.fmt);
      t.put(q.unit);
    } else {
      t.put(" ( not computable )");
    }
    return;
  }
  double x = static_cast<double>(raw);
  switch (q.map) {
    case Map::Linear: break;
    case Map::Halving: x = 1.0 / std::ldexp(1.0, static_cast<int>(raw & 31)); break;
    // 0.5 m, 0.75 m, 1 m, 1.5 m, 2 m, 3 m, ... doubling every two steps, up to 12288 m at 29.
    case Map::Uncertainty: x = (raw % 2 ? 0.75 : 0.5) * std::ldexp(1.0, static_cast<int>((raw & 31) / 2)); break;
    // Floating form: 3-bit exponent y above a 3-bit mantissa x: 0.5 * (1 + x/8) * 2^y.
    case Map::RmsError: x = 0.5 * (1 + (raw & 7) / 8.0) * std::ldexp(1.0, static_cast<int>((raw >> 3) & 7)); break;
  }
  const double r = x * q.scale + q.offset;
  t.put(" ( ");
  if (q.fmt == Fmt::Int)
    t.dec(static_cast<std::int64_t>(std::llround(r)));
  else
    put_double(t, r, q.fmt);
  t.put(q.unit);
}

constexpr unsigned kPrefRespQual[8] = {2, 4, 8, 16, 32, 64, 128, 256};

void render(Text& t, const Entry& e, const AnnValue& v) {
  switch (e.kind) {
    case Kind::ImsiS: {
      if (v.bytes == nullptr || v.bytes->data == nullptr || v.bytes->bits < 40) return;
      const std::uint8_t* a = v.bytes->data + (v.bytes->bits / 8 - 5);
      t.put(" ( ");
      digits3(t, bits_of(a, 6, 10));
      t.put('-');
      digits3(t, bits_of(a, 16, 10));
      t.put('-').dec(bits_of(a, 26, 4) % 10);
      digits3(t, bits_of(a, 30, 10));
      t.put(" )");
      return;
    }
    case Kind::Min1:
      t.put(" ( ");
      min1_digits(t, scalar_of(v) & 0xFFFFFF);
      t.put(" )");
      return;
    case Kind::Min2:
      t.put(" ( ");
      digits3(t, scalar_of(v) & 0x3FF);
      t.put(" )");
      return;
    case Kind::Mcc:
      t.put(" ( ");
      digits3(t, scalar_of(v) & 0x3FF);
      t.put(" )");
      return;
    case Kind::Imsi1112: {
      const std::uint32_t x = scalar_of(v);
      const unsigned d1 = (x / 10) % 10 + 1, d2 = x % 10 + 1;
      t.put(" ( ").dec(d1 == 10 ? 0 : d1).dec(d2 == 10 ? 0 : d2).put(" )");
      return;
    }
    case Kind::Esn: {
      const std::uint32_t x = scalar_of(v);
      t.put(" ( ").dec(x >> 24).put('-').dec(x & 0xFFFFFF).put(", 0x").hex_upper(x, 8).put(" )");
      return;
    }
    case Kind::PrefRespQual:
      t.put(" ( ").dec(kPrefRespQual[v.value & 7]).put(" s )");
      return;
    case Kind::Count:
      t.put(" ( ").dec(std::int64_t{v.value} + 1).put(" )");
      return;
    case Kind::Year: {
      const unsigned y = ((v.value >> 4) & 0xF) * 10 + (v.value & 0xF);
      t.put(" ( ").dec(y >= 95 && y <= 99 ? 1900 + y : 2000 + y).put(" )");
      return;
    }
    case Kind::Bcd:
      t.put(" ( ").dec(((v.value >> 4) & 0xF) * 10 + (v.value & 0xF)).put(" )");
      return;
    case Kind::Spc:
      t.put(" ( SPC = 0x").hex_upper(scalar_of(v) & 0xFFFFFF, 6).put(" )");
      return;
    case Kind::Pd:
      quantity(t, e.q, v);
      return;
  }
}

}  // namespace

void annotate_at(Text& t, int index, const AnnValue& v) {
  if (index >= 0 && index < 99) render(t, kEntries[index], v);
}

void annotate(Text& t, std::string_view name, const AnnValue& v) {
  char key[32];
  if (name.size() >= sizeof key) return;
  for (std::size_t i = 0; i < name.size(); ++i) {
    const char c = name[i];
    key[i] = (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
  }
  if (const Entry* e = kIndex.find(std::string_view(key, name.size()))) render(t, *e, v);
}

// Exposed for the table-order check.
std::string_view annotation_entry_key(std::size_t i) { return kEntries[i].key; }

}  // namespace cs
