// The names of the fields that carry a value annotation (a reading of the value appended
// after it: digits, dates, physical quantities), in the order of the annotation table; the
// readings themselves are text/annotate.cpp's. Here, below the layouts, so that a field
// declared with F() finds its key when the layout is compiled.
#pragma once
#include <cstddef>
#include <string_view>

namespace cs {

// The 99 keys, in table order.
inline constexpr std::string_view kAnnotationKeys[99] = {
    "imsi_s", "imsi_o_s", "imsi_m_s", "imsi_t_s", "imsi_11_12", "imsi_o_11_12", "imsi_m_11_12", "imsi_t_11_12",
    "mcc", "mcc_o", "mcc_m", "mcc_t", "min1", "min2", "imsi_m_s1", "imsi_m_s2", "esn", "pref_resp_qual",
    "time_of_app", "doppler0", "doppler1", "doppler1_11", "doppler_win", "sv_code_ph_win", "azimuth", "elevation",
    "latitude", "longitude", "loc_uncrtnty_ang", "loc_uncrtnty_a", "loc_uncrtnty_p", "loc_uncrtnty_v",
    "velocity_hor", "heading", "velocity_ver", "clock_bias", "clock_bias_9", "clock_drift", "clock_drift_8",
    "clock_drift_17", "mob_sys_t_offset", "ps_doppler", "ps_range_rms_er", "pilot_pn_phase", "pilot_strength",
    "num_fixes", "action_time_6", "action_time_10", "num_sv", "sv_prn_num", "lat_ref", "long_ref", "height_ref",
    "dly_oneway", "doppler0_lsb", "sv_code_ph_fr", "azimuth_lsb", "elevation_lsb", "sv_coor_x", "sv_coor_y",
    "sv_coor_z", "time_crrction_ref", "lat_ref_arcs", "long_ref_arcs", "height_ref_4m", "height_r", "part_num",
    "total_parts", "delta_lat", "delta_long", "height", "num_sv_p", "num_dr_p", "num_sv_dr", "delta_x", "delta_y",
    "delta_z", "delta_coor_corr_1st", "delta_x_1st", "delta_y_1st", "delta_z_1st", "delta_clock",
    "delta_clock_1st", "num_bad_sv", "bad_sv_prn_num", "inv_weight_fa", "num_ps_ranges_p", "ref_pilot_strength",
    "rms_err_phase", "add_pilot_pn_ph", "add_pilot_strength", "add_rms_err_ph", "year", "month", "day", "hours",
    "minutes", "seconds", "spc",
};

// The key a printed name is (compared in lower case), as its place in the table; -1 for a
// name that is no key. Usable at compile time: a layout's fields find their key once, when
// the layout is compiled (see F() in codec/walk.h), not at every printed line.
constexpr int annotation_index(std::string_view name) {
  for (int i = 0; i < 99; ++i) {
    const std::string_view k = kAnnotationKeys[i];
    if (k.size() != name.size()) continue;
    bool same = true;
    for (std::size_t c = 0; c < k.size() && same; ++c) {
      const char n = name[c] >= 'A' && name[c] <= 'Z' ? static_cast<char>(name[c] - 'A' + 'a') : name[c];
      same = n == k[c];
    }
    if (same) return i;
  }
  return -1;
}

}  // namespace cs
