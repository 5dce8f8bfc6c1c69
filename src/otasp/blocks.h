// Parameter blocks of the service provisioning messages (C.S0016 3.5 reverse, 4.5 forward):
// the NAM blocks, the roaming list blocks, the validation blocks and the 3G packet data
// blocks. Each block is carried as BLOCK_ID, BLOCK_LEN and BLOCK_LEN octets; the block is
// read inside those octets and the walk moves on to their end, so the reserved padding and
// fields of later revisions are passed over. A block identifier that has no layout here
// (reserved or manufacturer-specific values, and blocks this decoder does not take apart)
// shows its octets as they are.
//
// Included by the message families of this directory only.
#pragma once
#include <cstdint>

#include "codec/walk.h"
#include "sms/chars.h"

namespace cs::ota {

// ---- Shared pieces ----

struct SidNid {
  std::uint16_t sid, nid;
};
template <class W>
void layout(W& w, SidNid& r, const Ctx&) {
  w(F(sid, 15), F(nid, 16));
}

// IMSI_M_CLASS through IMSI_M_S, as the NAM blocks carry them.
template <class W, class R>
void imsi_m(W& w, R& r) {
  w(F(imsi_m_class, 1), F(imsi_m_addr_num, 3), F(mcc_m, 10), F(imsi_m_11_12, 7), F(imsi_m_s, 34));
}

// ACCOLC and the local control and termination indicators, as the NAM blocks carry them.
template <class W, class R>
void access_and_termination(W& w, R& r) {
  w(F(accolc, 4), F(local_control, 1), F(mob_term_home, 1), F(mob_term_for_sid, 1), F(mob_term_for_nid, 1));
}

// FRESH_INCL and FRESH, which Release C placed after the parameter blocks of the download
// requests and the configuration responses (the secure mode's freshness count). Messages of
// earlier revisions end before them, so they are read only when an octet is left.
template <class W, class R>
void fresh(W& w, R& r) {
  // Whether the message goes on is known to the reader only; the printer re-tests the flag.
  if constexpr (W::kReading) r.fresh_present = w.left() >= 8;
  if (!r.fresh_present) return;
  w(F(fresh_incl, 1));
  if (r.fresh_incl) {
    w(F(fresh, 15));
  } else {
    w(reserved(7));
  }
}

// ---- NAM parameter blocks (3.5.2, 4.5.2) ----

// CDMA/Analog NAM Download (4.5.2.1), BLOCK_ID 0.
struct FwdCdmaAnalogNam {
  std::uint16_t firstchp, home_sid;
  std::uint8_t ex, imsi_m_class, imsi_m_addr_num;
  std::uint16_t mcc_m;
  std::uint8_t imsi_m_11_12;
  Bytes imsi_m_s;
  std::uint8_t accolc, local_control, mob_term_home, mob_term_for_sid, mob_term_for_nid, n_sid_nid;
  PoolArray<SidNid> sid_nid;
};
template <class W>
void layout(W& w, FwdCdmaAnalogNam& r, const Ctx& c) {
  w(F(firstchp, 11), F(home_sid, 15), F(ex, 1));
  imsi_m(w, r);
  access_and_termination(w, r);
  w(F(n_sid_nid, 8));
  w.records("sid_nid", r.sid_nid, r.n_sid_nid, c);
}

// CDMA/Analog NAM (3.5.2.1), BLOCK_ID 0: the download fields with the station class mark,
// the protocol revision and the stored SID/NID pairs.
struct RevCdmaAnalogNam {
  std::uint16_t firstchp, home_sid;
  std::uint8_t ex, scm, mob_p_rev, imsi_m_class, imsi_m_addr_num;
  std::uint16_t mcc_m;
  std::uint8_t imsi_m_11_12;
  Bytes imsi_m_s;
  std::uint8_t accolc, local_control, mob_term_home, mob_term_for_sid, mob_term_for_nid, max_sid_nid, stored_sid_nid;
  PoolArray<SidNid> sid_nid;
};
template <class W>
void layout(W& w, RevCdmaAnalogNam& r, const Ctx& c) {
  w(F(firstchp, 11), F(home_sid, 15), F(ex, 1), F(scm, 8), F(mob_p_rev, 8));
  imsi_m(w, r);
  access_and_termination(w, r);
  w(F(max_sid_nid, 8), F(stored_sid_nid, 8));
  w.records("sid_nid", r.sid_nid, r.stored_sid_nid, c);
}

// Mobile Directory Number (3.5.2.2, 4.5.2.2), BLOCK_ID 1: N_DIGITS DTMF digits.
struct Mdn {
  std::uint8_t n_digits;
  PoolArray<std::uint8_t> digitn;
};
template <class W>
void layout(W& w, Mdn& r, const Ctx&) {
  w(F(n_digits, 4));
  chars(w, "digitn", r.digitn, r.n_digits, 4, Charset::dtmf);
}

// CDMA NAM Download (4.5.2.3), BLOCK_ID 2.
struct FwdCdmaNam {
  std::uint8_t imsi_m_class, imsi_m_addr_num;
  std::uint16_t mcc_m;
  std::uint8_t imsi_m_11_12;
  Bytes imsi_m_s;
  std::uint8_t accolc, local_control, mob_term_home, mob_term_for_sid, mob_term_for_nid, n_sid_nid;
  PoolArray<SidNid> sid_nid;
};
template <class W>
void layout(W& w, FwdCdmaNam& r, const Ctx& c) {
  imsi_m(w, r);
  access_and_termination(w, r);
  w(F(n_sid_nid, 8));
  w.records("sid_nid", r.sid_nid, r.n_sid_nid, c);
}

// CDMA NAM (3.5.2.3), BLOCK_ID 2: led by the slotted mode indicator and the protocol revision.
struct RevCdmaNam {
  std::uint8_t slotted_mode, mob_p_rev, imsi_m_class, imsi_m_addr_num;
  std::uint16_t mcc_m;
  std::uint8_t imsi_m_11_12;
  Bytes imsi_m_s;
  std::uint8_t accolc, local_control, mob_term_home, mob_term_for_sid, mob_term_for_nid, max_sid_nid, stored_sid_nid;
  PoolArray<SidNid> sid_nid;
};
template <class W>
void layout(W& w, RevCdmaNam& r, const Ctx& c) {
  w(reserved(2), F(slotted_mode, 1), reserved(5), F(mob_p_rev, 8));
  imsi_m(w, r);
  access_and_termination(w, r);
  w(F(max_sid_nid, 8), F(stored_sid_nid, 8));
  w.records("sid_nid", r.sid_nid, r.stored_sid_nid, c);
}

// IMSI_T (3.5.2.4, 4.5.2.4), BLOCK_ID 3.
struct ImsiT {
  std::uint8_t imsi_t_class, imsi_t_addr_num;
  std::uint16_t mcc_t;
  std::uint8_t imsi_t_11_12;
  Bytes imsi_t_s;
};
template <class W>
void layout(W& w, ImsiT& r, const Ctx&) {
  w(F(imsi_t_class, 1), F(imsi_t_addr_num, 3), F(mcc_t, 10), F(imsi_t_11_12, 7), F(imsi_t_s, 34), reserved(1));
}

// ---- Preferred roaming list blocks (3.5.3, 4.5.3) ----

// Preferred Roaming List Dimensions (3.5.3.1), BLOCK_ID 0.
struct PrlDimensions {
  std::uint16_t max_pr_list_size, cur_pr_list_size, pr_list_id, num_acq_recs, num_sys_recs;
};
template <class W>
void layout(W& w, PrlDimensions& r, const Ctx&) {
  w(F(max_pr_list_size, 16), F(cur_pr_list_size, 16), F(pr_list_id, 16), reserved(1), F(num_acq_recs, 9),
    F(num_sys_recs, 14));
}

// Preferred Roaming List (3.5.3.2, 4.5.3.1): one segment of the list's octets. The extended
// list of the SSPR download (4.5.3.2) is segmented the same way.
struct PrlSegment {
  std::uint8_t last_segment;
  std::uint16_t segment_offset;
  std::uint8_t segment_size;
  PoolArray<std::uint8_t> segment_data;
};
template <class W>
void layout(W& w, PrlSegment& r, const Ctx&) {
  w(reserved(7), F(last_segment, 1), F(segment_offset, 16), F(segment_size, 8));
  w.scalars("segment_data", r.segment_data, r.segment_size, 8);
}

// Extended Preferred Roaming List Dimensions (3.5.3.3), BLOCK_ID 2: the record counts follow
// the protocol revision of the stored list (1: the IS-683-A list, 3: the extended list);
// for any other revision the block ends with it.
struct ExtPrlDimensions {
  std::uint16_t max_pr_list_size, cur_pr_list_size, pr_list_id;
  std::uint8_t cur_sspr_p_rev;
  std::uint16_t num_acq_recs, num_sys_recs, num_common_subnet_recs, num_ext_sys_recs;
};
template <class W>
void layout(W& w, ExtPrlDimensions& r, const Ctx&) {
  w(F(max_pr_list_size, 16), F(cur_pr_list_size, 16), F(pr_list_id, 16), F(cur_sspr_p_rev, 8));
  if (r.cur_sspr_p_rev == 1) {
    w(reserved(1), F(num_acq_recs, 9), F(num_sys_recs, 14));
  } else if (r.cur_sspr_p_rev == 3) {
    w(F(num_acq_recs, 9), F(num_common_subnet_recs, 9), F(num_ext_sys_recs, 14));
  }
}

// ---- Validation blocks (4.5.4) ----

// Verify SPC and Change SPC (4.5.4.1, 4.5.4.2), BLOCK_ID 0 and 1: six BCD digits.
struct Spc {
  std::uint32_t spc;
};
template <class W>
void layout(W& w, Spc& r, const Ctx&) {
  w(F(spc, 24));
}

// Validate SPASM (4.5.4.3), BLOCK_ID 2: the OTAPA authentication signature when included,
// and whether SPASM protects the active NAM.
struct ValidateSpasm {
  std::uint8_t auth_otapa_incl;
  std::uint32_t auth_otapa;
  std::uint8_t nam_lock;
};
template <class W>
void layout(W& w, ValidateSpasm& r, const Ctx&) {
  w(F(auth_otapa_incl, 1));
  if (r.auth_otapa_incl) w(F(auth_otapa, 18));
  w(F(nam_lock, 1));
}

// ---- 3G packet data blocks (3.5.8, 4.5.7) ----

// 3GPD Operation Capability Parameters (3.5.8.1).
struct OpCapability {
  std::uint8_t op_mode_bitmap;
};
template <class W>
void layout(W& w, OpCapability& r, const Ctx&) {
  w(F(op_mode_bitmap, 8));
}

// 3GPD Operation Mode Parameters (3.5.8.2, 4.5.7.1).
struct OpMode {
  std::uint8_t op_mode;
};
template <class W>
void layout(W& w, OpMode& r, const Ctx&) {
  w(F(op_mode, 2));
}

// SimpleIP Capability Parameters (3.5.8.3).
struct SimpleIpCapability {
  std::uint8_t max_num_nai, max_nai_length, max_ss_length, auth_algorithm;
};
template <class W>
void layout(W& w, SimpleIpCapability& r, const Ctx&) {
  w(F(max_num_nai, 4), F(max_nai_length, 8), F(max_ss_length, 5), F(auth_algorithm, 8));
}

// MobileIP Capability Parameters (3.5.8.4).
struct MobileIpCapability {
  std::uint8_t max_num_nai, max_nai_length, max_mn_aaa_ss_length, mn_aaa_auth_algorithm, max_mn_ha_ss_length,
      mn_ha_auth_algorithm;
};
template <class W>
void layout(W& w, MobileIpCapability& r, const Ctx&) {
  w(F(max_num_nai, 4), F(max_nai_length, 8), field(r.max_mn_aaa_ss_length, "max_mn-aaa_ss_length", 5),
    field(r.mn_aaa_auth_algorithm, "mn-aaa_auth_algorithm", 8), field(r.max_mn_ha_ss_length, "max_mn-ha_ss_length", 5),
    field(r.mn_ha_auth_algorithm, "mn-ha_auth_algorithm", 8));
}

// One NAI of the SimpleIP User Profile Parameters.
struct SimpleIpNai {
  std::uint8_t nai_entry_index, nai_length;
  PoolArray<std::uint8_t> nai;
  std::uint8_t auth_algorithm;
};
template <class W>
void layout(W& w, SimpleIpNai& r, const Ctx&) {
  w(F(nai_entry_index, 4), F(nai_length, 8));
  chars(w, "nai", r.nai, r.nai_length, 8, Charset::ascii);
  w(F(auth_algorithm, 4));
}

// SimpleIP User Profile Parameters (3.5.8.5, 4.5.7.2).
struct SimpleIpProfile {
  std::uint8_t num_nai;
  PoolArray<SimpleIpNai> profile;
};

// One NAI of the MobileIP User Profile Parameters, with its home agents and the security
// parameter indices of its two authentications.
struct MobileIpNai {
  std::uint8_t nai_entry_index, nai_length;
  PoolArray<std::uint8_t> nai;
  std::uint8_t t_bit;
  std::uint32_t home_address, primary_home_agent, secondary_home_agent;
  std::uint8_t mn_aaa_auth_algorithm, mn_aaa_spi_indicator;
  std::uint32_t mn_aaa_spi;
  std::uint8_t mn_ha_auth_algorithm, mn_ha_spi_indicator;
  std::uint32_t mn_ha_spi;
};
template <class W>
void layout(W& w, MobileIpNai& r, const Ctx&) {
  w(F(nai_entry_index, 4), F(nai_length, 8));
  chars(w, "nai", r.nai, r.nai_length, 8, Charset::ascii);
  w(F(t_bit, 1), F(home_address, 32), F(primary_home_agent, 32), F(secondary_home_agent, 32),
    field(r.mn_aaa_auth_algorithm, "mn-aaa_auth_algorithm", 4), field(r.mn_aaa_spi_indicator, "mn-aaa_spi_indicator", 1));
  if (r.mn_aaa_spi_indicator) w(field(r.mn_aaa_spi, "mn-aaa_spi", 32));
  w(field(r.mn_ha_auth_algorithm, "mn-ha_auth_algorithm", 4), field(r.mn_ha_spi_indicator, "mn-ha_spi_indicator", 1));
  if (r.mn_ha_spi_indicator) w(field(r.mn_ha_spi, "mn-ha_spi", 32));
}

// MobileIP User Profile Parameters (3.5.8.6, 4.5.7.3): the registration retry settings when
// included, then the NAIs.
struct MobileIpProfile {
  std::uint8_t retry_info_included, max_num_retry, first_retry_timeout, rereg_threshold, num_nai;
  PoolArray<MobileIpNai> profile;
};

// SimpleIP Status Parameters (3.5.8.7, 4.5.7.4).
struct SimpleIpStatus {
  std::uint8_t act_nai_entry_index;
};
template <class W>
void layout(W& w, SimpleIpStatus& r, const Ctx&) {
  w(F(act_nai_entry_index, 4));
}

// MobileIP Status Parameters (3.5.8.8, 4.5.7.5).
struct MobileIpStatus {
  std::uint8_t act_nai_entry_index, num_add_act_nai;
  PoolArray<std::uint8_t> add_act_nai_entry_index;
};
template <class W>
void layout(W& w, MobileIpStatus& r, const Ctx&) {
  w(F(act_nai_entry_index, 4), F(num_add_act_nai, 4));
  w.scalars("add_act_nai_entry_index", r.add_act_nai_entry_index, r.num_add_act_nai, 4);
}

// One NAI's shared secret of the SimpleIP PAP and CHAP SS Parameters; key material is shown
// as sent.
struct SimpleIpSecret {
  std::uint8_t nai_entry_index, ss_length;
  PoolArray<std::uint8_t> ss;
};
template <class W>
void layout(W& w, SimpleIpSecret& r, const Ctx&) {
  w(F(nai_entry_index, 4), F(ss_length, 5));
  w.scalars("ss", r.ss, r.ss_length, 8);
}

// SimpleIP PAP and CHAP SS Parameters (3.5.8.9, 3.5.8.10, 4.5.7.6, 4.5.7.7).
struct SimpleIpSecrets {
  std::uint8_t num_nai;
  PoolArray<SimpleIpSecret> secret;
};

// One NAI's shared secrets of the MobileIP SS Parameters.
struct MobileIpSecret {
  std::uint8_t nai_entry_index, mn_aaa_ss_length;
  PoolArray<std::uint8_t> mn_aaa_ss;
  std::uint8_t mn_ha_ss_length;
  PoolArray<std::uint8_t> mn_ha_ss;
};
template <class W>
void layout(W& w, MobileIpSecret& r, const Ctx&) {
  w(F(nai_entry_index, 4), field(r.mn_aaa_ss_length, "mn-aaa_ss_length", 5));
  w.scalars("mn-aaa_ss", r.mn_aaa_ss, r.mn_aaa_ss_length, 8);
  w(field(r.mn_ha_ss_length, "mn-ha_ss_length", 5));
  w.scalars("mn-ha_ss", r.mn_ha_ss, r.mn_ha_ss_length, 8);
}

// MobileIP SS Parameters (3.5.8.11, 4.5.7.8).
struct MobileIpSecrets {
  std::uint8_t num_nai;
  PoolArray<MobileIpSecret> secret;
};

// The per-NAI records of the four list blocks print under the block names of their link
// direction; the context carries that name.
struct EntryCtx : Ctx {
  const char* entry_header;
};
template <class W>
void layout(W& w, SimpleIpProfile& r, const EntryCtx& c) {
  w(F(num_nai, 4));
  w.records("profile", c.entry_header, r.profile, r.num_nai, c);
}
template <class W>
void layout(W& w, MobileIpProfile& r, const EntryCtx& c) {
  w(F(retry_info_included, 1));
  if (r.retry_info_included) w(F(max_num_retry, 2), F(first_retry_timeout, 3), F(rereg_threshold, 6));
  w(F(num_nai, 4));
  w.records("profile", c.entry_header, r.profile, r.num_nai, c);
}
template <class W>
void layout(W& w, SimpleIpSecrets& r, const EntryCtx& c) {
  w(F(num_nai, 4));
  w.records("secret", c.entry_header, r.secret, r.num_nai, c);
}
template <class W>
void layout(W& w, MobileIpSecrets& r, const EntryCtx& c) {
  w(F(num_nai, 4));
  w.records("secret", c.entry_header, r.secret, r.num_nai, c);
}

}  // namespace cs::ota
