// Forward link service provisioning messages (C.S0016 4.5.1), base station to mobile station.
// The table follows the message types this decoder takes apart: the PUZL messages (11, 12)
// and the types from 15 on are left undecoded.
#include "layout/layout.h"
#include "otasp/blocks.h"
#include "otasp/tables.h"

namespace cs::ota {
namespace {

// Configuration Request (4.5.1.1) and 3GPD Configuration Request (4.5.1.14): the blocks the
// base station asks for.
struct ConfigReq {
  std::uint8_t num_blocks;
  PoolArray<std::uint8_t> block_id;
};
template <class W>
void layout(W& w, ConfigReq& r, const Ctx&) {
  w(F(num_blocks, 8));
  w.scalars("block_id", r.block_id, r.num_blocks, 8);
}

// One NAM parameter block of a Download Request (4.5.2).
struct FwdParamData {
  std::uint8_t block_id, block_len;
  FwdCdmaAnalogNam cdma_analog_nam;
  Mdn mdn;
  FwdCdmaNam cdma_nam;
  ImsiT imsi_t;
  PoolArray<std::uint8_t> block_data;
};
template <class W>
void layout(W& w, FwdParamData& r, const Ctx& c) {
  w(F(block_id, 8), F(block_len, 8));
  const std::uint64_t len = 8u * r.block_len;
  switch (r.block_id) {
    case 0: w.sized("cdma_analog_nam", "FWD_CELLULAR_IND_DWNLD_DATA", r.cdma_analog_nam, len, c); break;
    case 1: w.sized("mdn", "FWD_MOBILE_DIRECTORY_NUMBER", r.mdn, len, c); break;
    case 2: w.sized("cdma_nam", "FWD_PCS_IND_DWNLD_DATA", r.cdma_nam, len, c); break;
    case 3: w.sized("imsi_t", "FWD_IMSI_T_PARAM_DATA", r.imsi_t, len, c); break;
    default: w.scalars("block_data", r.block_data, r.block_len, 8); break;
  }
}

// Download Request (4.5.1.2).
struct DownloadReq {
  std::uint8_t num_blocks;
  PoolArray<FwdParamData> param_data;
  bool fresh_present;
  std::uint8_t fresh_incl;
  std::uint16_t fresh;
};
template <class W>
void layout(W& w, DownloadReq& r, const Ctx& c) {
  w(F(num_blocks, 8));
  w.records("param_data", "FWD_PARAM_DATA", r.param_data, r.num_blocks, c);
  fresh(w, r);
}

// MS Key Request (4.5.1.3). A_KEY_P_REV 2 (the IS-683-A A-key generation) sends the
// Diffie-Hellman prime and generator; the 3G root key revisions that followed use fixed
// ones and send neither.
struct MsKeyReq {
  std::uint8_t a_key_p_rev, param_p_len;
  PoolArray<std::uint8_t> param_p;
  std::uint8_t param_g_len;
  PoolArray<std::uint8_t> param_g;
};
template <class W>
void layout(W& w, MsKeyReq& r, const Ctx&) {
  w(F(a_key_p_rev, 8));
  if (r.a_key_p_rev >= 3) return;
  w(F(param_p_len, 8));
  w.scalars("param_p", r.param_p, r.param_p_len, 8);
  w(F(param_g_len, 8));
  w.scalars("param_g", r.param_g, r.param_g_len, 8);
}

// Key Generation Request (4.5.1.4): the base station's result of the key exchange.
struct KeyGenReq {
  std::uint8_t bs_result_len;
  PoolArray<std::uint8_t> bs_result;
};
template <class W>
void layout(W& w, KeyGenReq& r, const Ctx&) {
  w(F(bs_result_len, 8));
  w.scalars("bs_result", r.bs_result, r.bs_result_len, 8);
}

// Re-Authenticate Request (4.5.1.5).
struct ReAuthReq {
  std::uint32_t rand;
};
template <class W>
void layout(W& w, ReAuthReq& r, const Ctx&) {
  w(F(rand, 32));
}

// Commit Request (4.5.1.6) carries nothing after its type.
struct Empty {};
template <class W>
void layout(W&, Empty&, const Ctx&) {}

// SSPR Configuration Request (4.5.1.8): the block asked for, the offset into it and the
// largest segment the mobile station is to send. (Both are read whatever the block: a
// request for another block leaves them at zero.)
struct SsprConfigReq {
  std::uint8_t block_id;
  std::uint16_t request_offset;
  std::uint8_t request_max_size;
};
template <class W>
void layout(W& w, SsprConfigReq& r, const Ctx&) {
  w(F(block_id, 8), F(request_offset, 16), F(request_max_size, 8));
}

// SSPR Download Request (4.5.1.9): one segment of the preferred roaming list (BLOCK_ID 0) or
// of the extended list (BLOCK_ID 1).
struct SsprDownloadReq {
  std::uint8_t block_id, block_len;
  PrlSegment param_data;
  PoolArray<std::uint8_t> block_data;
  bool fresh_present;
  std::uint8_t fresh_incl;
  std::uint16_t fresh;
};
template <class W>
void layout(W& w, SsprDownloadReq& r, const Ctx& c) {
  w(F(block_id, 8), F(block_len, 8));
  if (r.block_id <= 1) {
    w.sized("param_data", "FWD_PRL_PAR_BLK", r.param_data, 8u * r.block_len, c);
  } else {
    w.scalars("block_data", r.block_data, r.block_len, 8);
  }
  fresh(w, r);
}

// One block of a Validation Request (4.5.4).
struct ValidParamReq {
  std::uint8_t block_id, block_len;
  Spc spc;
  ValidateSpasm validate_spasm;
  PoolArray<std::uint8_t> block_data;
};
template <class W>
void layout(W& w, ValidParamReq& r, const Ctx& c) {
  w(F(block_id, 8), F(block_len, 8));
  const std::uint64_t len = 8u * r.block_len;
  switch (r.block_id) {
    case 0: w.sized("verify_spc", "FWD_VERIFY_PARAM_SPC", r.spc, len, c); break;
    case 1: w.sized("change_spc", "FWD_CHG_PARAM_SPC", r.spc, len, c); break;
    case 2: w.sized("validate_spasm", "FWD_VALIDATE_SPASM", r.validate_spasm, len, c); break;
    default: w.scalars("block_data", r.block_data, r.block_len, 8); break;
  }
}

// Validation Request (4.5.1.10).
struct ValidateReq {
  std::uint8_t num_blocks;
  PoolArray<ValidParamReq> valid_req_data;
};
template <class W>
void layout(W& w, ValidateReq& r, const Ctx& c) {
  w(F(num_blocks, 8));
  w.records("valid_req_data", "OTA_VALID_PARAM_REQ", r.valid_req_data, r.num_blocks, c);
}

// OTAPA Request (4.5.1.11): start (1) or stop (0) an OTAPA session.
struct OtapaReq {
  std::uint8_t start_stop;
};
template <class W>
void layout(W& w, OtapaReq& r, const Ctx&) {
  w(F(start_stop, 1), reserved(7));
}

// One block of a 3GPD Download Request (4.5.7).
struct Fwd3gpdData {
  std::uint8_t block_id, block_len;
  OpMode op_mode;
  SimpleIpProfile simple_ip_profile;
  MobileIpProfile mobile_ip_profile;
  SimpleIpStatus simple_ip_status;
  MobileIpStatus mobile_ip_status;
  SimpleIpSecrets simple_ip_secrets;
  MobileIpSecrets mobile_ip_secrets;
  PoolArray<std::uint8_t> block_data;
};
template <class W>
void layout(W& w, Fwd3gpdData& r, const Ctx& c) {
  w(F(block_id, 8), F(block_len, 8));
  const std::uint64_t len = 8u * r.block_len;
  switch (r.block_id) {
    case 0: w.sized("op_mode", "FWD_3GPD_OPER_MODE_PAR_BLK", r.op_mode, len, c); break;
    case 1:
      w.sized("simple_ip_user_profile", "FWD_SMP_IP_USR_PROFILE_BLK", r.simple_ip_profile, len,
              EntryCtx{c, "FWD_SMP_IP_USR_PROFILE_DATA"});
      break;
    case 2:
      w.sized("mobile_ip_user_profile", "FWD_MOB_IP_USR_PROFILE_BLK", r.mobile_ip_profile, len,
              EntryCtx{c, "FWD_MOB_IP_USR_PROFILE_DATA"});
      break;
    case 6: w.sized("simple_ip_status", "FWD_SMP_IP_STAT_PAR_BLK", r.simple_ip_status, len, c); break;
    case 7: w.sized("mobile_ip_status", "FWD_MOB_IP_STAT_PAR_BLK", r.mobile_ip_status, len, c); break;
    case 8:
      w.sized("simple_ip_pap_ss", "FWD_SMP_IP_PAP_SS_PAR_BLK", r.simple_ip_secrets, len,
              EntryCtx{c, "FWD_SMP_IP_PAP_SS_PAR"});
      break;
    case 9:
      w.sized("simple_ip_chap_ss", "FWD_SMP_IP_CHAP_SS_PAR_BLK", r.simple_ip_secrets, len,
              EntryCtx{c, "FWD_SMP_IP_CHAP_SS_PAR"});
      break;
    case 10:
      w.sized("mobile_ip_ss", "FWD_MOB_IP_SS_PAR_BLK", r.mobile_ip_secrets, len, EntryCtx{c, "FWD_MOB_IP_SS_PAR"});
      break;
    default: w.scalars("block_data", r.block_data, r.block_len, 8); break;
  }
}

// 3GPD Download Request (4.5.1.15).
struct Download3gpdReq {
  std::uint8_t num_blocks;
  PoolArray<Fwd3gpdData> param_data;
  bool fresh_present;
  std::uint8_t fresh_incl;
  std::uint16_t fresh;
};
template <class W>
void layout(W& w, Download3gpdReq& r, const Ctx& c) {
  w(F(num_blocks, 8));
  w.records("param_data", "FWD_3GPD_DWNLD_REQ_DATA", r.param_data, r.num_blocks, c);
  fresh(w, r);
}

}  // namespace

OtaRows forward_rows() {
  static constexpr OtaRow rows[] = {
      {0, "msg.config_req_str", body_ops<ConfigReq>("OTA_CONFIG_REQ")},
      {1, "msg.download_req_str", body_ops<DownloadReq>("OTA_DWNLD_REQ")},
      {2, "msg.ms_key_req_str", body_ops<MsKeyReq>("OTA_MS_KEY_REQ")},
      {3, "msg.key_gen_req_str", body_ops<KeyGenReq>("OTA_KEY_GEN_REQ")},
      {4, "msg.re_auth_req_str", body_ops<ReAuthReq>("OTA_RE_AUTH_REQ")},
      {5, "msg.commit_req_str", body_ops<Empty>("OTA_COMMIT_REQ")},
      // The Protocol Capability Request is shown without a body, like the Commit Request: the
      // fields Release C appended are not decoded.
      {6, "msg.proto_cap_req_str", body_ops<Empty>("OTA_PROTO_CAP_REQ")},
      {7, "msg.sspr_config_req_str", body_ops<SsprConfigReq>("OTA_SSPR_CONFIG_REQ")},
      {8, "msg.sspr_download_req_str", body_ops<SsprDownloadReq>("OTA_SSPR_DWNLD_REQ")},
      {9, "msg.valid_req_msg_str", body_ops<ValidateReq>("OTA_VALIDATE_REQ")},
      {10, "msg.otapa_req_msg_str", body_ops<OtapaReq>("OTA_OTAPA_REQ")},
      {13, "msg.f3gpd_config_req_str", body_ops<ConfigReq>("OTA_3GPD_CONFIG_REQ")},
      {14, "msg.f3gpd_download_req_str", body_ops<Download3gpdReq>("OTA_3GPD_DWNLD_REQ")},
  };
  return rows;
}

}  // namespace cs::ota
