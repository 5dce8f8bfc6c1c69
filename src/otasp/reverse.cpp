// Reverse link service provisioning messages (C.S0016 3.5.1), mobile station to base station,
// numbered as the standard numbers them. As on the forward link, the PUZL responses (11, 12)
// and the types from 15 on are left undecoded.
#include "layout/layout.h"
#include "otasp/blocks.h"
#include "otasp/tables.h"

namespace cs::ota {
namespace {

// One NAM parameter block of a Configuration Response (3.5.2).
struct RevParamData {
  std::uint8_t block_id, block_len;
  RevCdmaAnalogNam cdma_analog_nam;
  Mdn mdn;
  RevCdmaNam cdma_nam;
  ImsiT imsi_t;
  PoolArray<std::uint8_t> block_data;
};
template <class W>
void layout(W& w, RevParamData& r, const Ctx& c) {
  w(F(block_id, 8), F(block_len, 8));
  const std::uint64_t len = 8u * r.block_len;
  switch (r.block_id) {
    case 0: w.sized("cdma_analog_nam", "REV_CELLULAR_IND_DATA", r.cdma_analog_nam, len, c); break;
    case 1: w.sized("mdn", "REV_MOBILE_DIRECTORY_NUMBER", r.mdn, len, c); break;
    case 2: w.sized("cdma_nam", "REV_PCS_IND_DATA", r.cdma_nam, len, c); break;
    case 3: w.sized("imsi_t", "REV_IMSI_T_DATA", r.imsi_t, len, c); break;
    default: w.scalars("block_data", r.block_data, r.block_len, 8); break;
  }
}

// Configuration Response (3.5.1.1): the blocks, then one result code per block.
struct ConfigResp {
  std::uint8_t num_blocks;
  PoolArray<RevParamData> param_data;
  PoolArray<std::uint8_t> result_code;
  bool fresh_present;
  std::uint8_t fresh_incl;
  std::uint16_t fresh;
};
template <class W>
void layout(W& w, ConfigResp& r, const Ctx& c) {
  w(F(num_blocks, 8));
  w.records("param_data", "REV_PARAM_DATA", r.param_data, r.num_blocks, c);
  w.scalars("result_code", r.result_code, r.num_blocks, 8);
  fresh(w, r);
}

// A block identifier with its result, as the download and validation responses list them.
struct BlockResult {
  std::uint8_t block_id, result_code;
};
template <class W>
void layout(W& w, BlockResult& r, const Ctx&) {
  w(F(block_id, 8), F(result_code, 8));
}

// Download Response (3.5.1.2) and 3GPD Download Response (3.5.1.15).
struct BlockResults {
  std::uint8_t num_blocks;
  PoolArray<BlockResult> block;
};
template <class W>
void layout(W& w, BlockResults& r, const Ctx& c) {
  w(F(num_blocks, 8));
  w.records("block", r.block, r.num_blocks, c);
}

// Validation Response (3.5.1.10): the same pairs, under the validation block's name.
struct ValidResp {
  std::uint8_t num_blocks;
  PoolArray<BlockResult> block;
};
template <class W>
void layout(W& w, ValidResp& r, const Ctx& c) {
  w(F(num_blocks, 8));
  w.records("block", "REV_VALID_PARAM_DATA", r.block, r.num_blocks, c);
}

// MS Key Response (3.5.1.3) and Commit Response (3.5.1.6).
struct ResultOnly {
  std::uint8_t result_code;
};
template <class W>
void layout(W& w, ResultOnly& r, const Ctx&) {
  w(F(result_code, 8));
}

// Key Generation Response (3.5.1.4): the mobile station's result of the key exchange.
struct KeyGenResp {
  std::uint8_t result_code, ms_result_len;
  PoolArray<std::uint8_t> ms_result;
};
template <class W>
void layout(W& w, KeyGenResp& r, const Ctx&) {
  w(F(result_code, 8), F(ms_result_len, 8));
  w.scalars("ms_result", r.ms_result, r.ms_result_len, 8);
}

// Re-Authenticate Response (3.5.1.5).
struct ReAuthResp {
  std::uint32_t authr;
  std::uint8_t randc, count;
  std::uint32_t auth_data;
};
template <class W>
void layout(W& w, ReAuthResp& r, const Ctx&) {
  w(F(authr, 18), F(randc, 8), F(count, 6), F(auth_data, 24));
}

// One feature of a Protocol Capability Response.
struct Feature {
  std::uint8_t feature_id, feature_p_rev;
};
template <class W>
void layout(W& w, Feature& r, const Ctx&) {
  w(F(feature_id, 8), F(feature_p_rev, 8));
}

// Protocol Capability Response (3.5.1.7): firmware and model, the features with their
// protocol revisions, and ADD_LENGTH octets of additional fields.
struct ProtoCapResp {
  std::uint16_t mob_firm_rev;
  std::uint8_t mob_model, num_features;
  PoolArray<Feature> feature;
  std::uint8_t add_length;
  PoolArray<std::uint8_t> additional_fields;
};
template <class W>
void layout(W& w, ProtoCapResp& r, const Ctx& c) {
  w(F(mob_firm_rev, 16), F(mob_model, 8), F(num_features, 8));
  w.records("feature", r.feature, r.num_features, c);
  w(F(add_length, 8));
  w.scalars("additional_fields", r.additional_fields, r.add_length, 8);
}

// SSPR Configuration Response (3.5.1.8): one roaming list block with its result.
struct SsprConfigResp {
  std::uint8_t block_id, result_code, block_len;
  PrlDimensions prl_dimensions;
  PrlSegment prl;
  ExtPrlDimensions ext_prl_dimensions;
  PoolArray<std::uint8_t> block_data;
  bool fresh_present;
  std::uint8_t fresh_incl;
  std::uint16_t fresh;
};
template <class W>
void layout(W& w, SsprConfigResp& r, const Ctx& c) {
  w(F(block_id, 8), F(result_code, 8), F(block_len, 8));
  const std::uint64_t len = 8u * r.block_len;
  switch (r.block_id) {
    case 0: w.sized("param_data", "REV_PRL_DIM_PAR_BLK", r.prl_dimensions, len, c); break;
    case 1: w.sized("param_data", "REV_PRL_PAR_BLK", r.prl, len, c); break;
    case 2: w.sized("param_data", "REV_EXT_PRL_DIM_PAR_BLK", r.ext_prl_dimensions, len, c); break;
    default: w.scalars("block_data", r.block_data, r.block_len, 8); break;
  }
  fresh(w, r);
}

// SSPR Download Response (3.5.1.9): the segment the mobile station took.
struct SsprDownloadResp {
  std::uint8_t block_id, result_code;
  std::uint16_t segment_offset;
  std::uint8_t segment_size;
};
template <class W>
void layout(W& w, SsprDownloadResp& r, const Ctx&) {
  w(F(block_id, 8), F(result_code, 8), F(segment_offset, 16), F(segment_size, 8));
}

// OTAPA Response (3.5.1.11): the SPASM random challenge when the active NAM is locked.
struct OtapaResp {
  std::uint8_t result_code, nam_lock_ind;
  std::uint32_t rand_otapa;
};
template <class W>
void layout(W& w, OtapaResp& r, const Ctx&) {
  w(F(result_code, 8), reserved(7), F(nam_lock_ind, 1));
  if (r.nam_lock_ind) w(F(rand_otapa, 32));
}

// One block of a 3GPD Configuration Response (3.5.8), followed by its result.
struct Rev3gpdData {
  std::uint8_t block_id, block_len;
  OpCapability op_capability;
  OpMode op_mode;
  SimpleIpCapability simple_ip_capability;
  MobileIpCapability mobile_ip_capability;
  SimpleIpProfile simple_ip_profile;
  MobileIpProfile mobile_ip_profile;
  SimpleIpStatus simple_ip_status;
  MobileIpStatus mobile_ip_status;
  SimpleIpSecrets simple_ip_secrets;
  MobileIpSecrets mobile_ip_secrets;
  PoolArray<std::uint8_t> block_data;
  std::uint8_t result_code;
};
template <class W>
void layout(W& w, Rev3gpdData& r, const Ctx& c) {
  w(F(block_id, 8), F(block_len, 8));
  const std::uint64_t len = 8u * r.block_len;
  switch (r.block_id) {
    case 0: w.sized("op_capability", "REV_3GPD_OPER_CAP_PAR_BLK", r.op_capability, len, c); break;
    case 1: w.sized("op_mode", "REV_3GPD_OPER_MODE_PAR_BLK", r.op_mode, len, c); break;
    case 2: w.sized("simple_ip_capability", "REV_SIMIP_CAP_PAR_BLK", r.simple_ip_capability, len, c); break;
    case 3: w.sized("mobile_ip_capability", "REV_MOBIP_CAP_PAR_BLK", r.mobile_ip_capability, len, c); break;
    case 4:
      w.sized("simple_ip_user_profile", "REV_SIMPLE_IP_USR_PROFILE_BLK", r.simple_ip_profile, len,
              EntryCtx{c, "REV_SIMPLE_IP_USR_PROFILE_DATA"});
      break;
    case 5:
      w.sized("mobile_ip_user_profile", "REV_MOBILE_IP_USR_PROFILE_BLK", r.mobile_ip_profile, len,
              EntryCtx{c, "REV_MOBILE_IP_USR_PROFILE_DATA"});
      break;
    case 6: w.sized("simple_ip_status", "REV_SMP_IP_STAT_PAR_BLK", r.simple_ip_status, len, c); break;
    case 7: w.sized("mobile_ip_status", "REV_MOB_IP_STAT_PAR_BLK", r.mobile_ip_status, len, c); break;
    case 8:
      w.sized("simple_ip_pap_ss", "REV_SMP_IP_PAP_SS_PAR_BLK", r.simple_ip_secrets, len,
              EntryCtx{c, "REV_SMP_IP_PAP_SS_PAR"});
      break;
    case 9:
      w.sized("simple_ip_chap_ss", "REV_SMP_IP_CHAP_SS_PAR_BLK", r.simple_ip_secrets, len,
              EntryCtx{c, "REV_SMP_IP_CHAP_SS_PAR"});
      break;
    case 10:
      w.sized("mobile_ip_ss", "REV_MOB_IP_SS_PAR_BLK", r.mobile_ip_secrets, len, EntryCtx{c, "REV_MOB_IP_SS_PAR"});
      break;
    default: w.scalars("block_data", r.block_data, r.block_len, 8); break;
  }
  w(F(result_code, 8));
}

// 3GPD Configuration Response (3.5.1.14).
struct Config3gpdResp {
  std::uint8_t num_blocks;
  PoolArray<Rev3gpdData> param_data;
  bool fresh_present;
  std::uint8_t fresh_incl;
  std::uint16_t fresh;
};
template <class W>
void layout(W& w, Config3gpdResp& r, const Ctx& c) {
  w(F(num_blocks, 8));
  w.records("param_data", r.param_data, r.num_blocks, c);
  fresh(w, r);
}

}  // namespace

OtaRows reverse_rows() {
  static constexpr OtaRow rows[] = {
      {0, "msg.config_resp_str", body_ops<ConfigResp>("OTA_CONFIG_RESP")},
      {1, "msg.download_resp_str", body_ops<BlockResults>("OTA_DWNLD_RESP")},
      {2, "msg.ms_key_resp_str", body_ops<ResultOnly>("OTA_MS_KEY_RESP")},
      {3, "msg.key_gen_resp_str", body_ops<KeyGenResp>("OTA_KEY_GEN_RESP")},
      {4, "msg.re_auth_resp_str", body_ops<ReAuthResp>("OTA_RE_AUTH_RESP")},
      {5, "msg.commit_resp_str", body_ops<ResultOnly>("OTA_COMMIT_RESP")},
      {6, "msg.proto_cap_resp_str", body_ops<ProtoCapResp>("OTA_PROTO_CAP_RESP")},
      {7, "msg.sspr_config_resp_str", body_ops<SsprConfigResp>("OTA_SSPR_CONFIG_RESP")},
      {8, "msg.sspr_download_resp_str", body_ops<SsprDownloadResp>("OTA_SSPR_DWNLD_RESP")},
      {9, "msg.valid_resp_msg_str", body_ops<ValidResp>("OTA_VALID_RESP")},
      {10, "msg.otapa_resp_msg_str", body_ops<OtapaResp>("OTA_OTAPA_RESP")},
      {13, "msg.f3gpd_config_resp_str", body_ops<Config3gpdResp>("OTA_3GPD_CONFIG_RESP")},
      {14, "msg.f3gpd_download_resp_str", body_ops<BlockResults>("OTA_3GPD_DWNLD_RESP")},
  };
  return rows;
}

}  // namespace cs::ota
