// Reverse information records, C.S0005 2.7.4: one struct and one layout per record type.
// Each type-specific layout is walked within the RECORD_LEN octets of its record, so "the rest
// of the record" is what the walker has left.
//
// Record types whose field widths no public source at hand gives are refused (result 1) rather
// than guessed: Call Mode, Roaming Information, Power Class, Operating Mode, Geo-location,
// Band Subclass, Global Emergency Call, QoS Parameters, Encryption and Signalling Message
// Integrity Capability, Extended Keypad Facility, SYNC_ID and the extended record type.
// Capability Information (from Release A), Channel Configuration Capability and Extended
// Multiplex Option Information are read as far as their widths are known and refused where
// they go on.
#include "records/reverse_info_records.h"

#include "layout/layout.h"
#include "records/service_config.h"

namespace cs {
namespace {

using u8 = std::uint8_t;
using u16 = std::uint16_t;
using u32 = std::uint32_t;

// 8-bit characters filling the rest of the record (trailing reserved bits are fewer than 8).
template <class W>
void chars_to_end(W& w, PoolArray<u8>& a) {
  w.scalars("CHARi", a, static_cast<u8>(w.left() / 8), 8);
}

// --- 2.7.4.2 Keypad Facility ---------------------------------------------------------------
struct KEYPAD_FACILITY {
  PoolArray<u8> CHARi;
};
template <class W>
void layout(W& w, KEYPAD_FACILITY& r, const Ctx&) {
  chars_to_end(w, r.CHARi);
}

// --- Called Party Number -------------------------------------------------------------------
struct CALLED_PARTY_NUMBER {
  u8 NUMBER_TYPE, NUMBER_PLAN;
  PoolArray<u8> CHARi;
};
template <class W>
void layout(W& w, CALLED_PARTY_NUMBER& r, const Ctx&) {
  w(F(NUMBER_TYPE, 3), F(NUMBER_PLAN, 4));
  chars_to_end(w, r.CHARi);
}

// --- Calling Party Number, Connected Number (same layout) ---------------------------------
struct CALLING_PARTY_NUMBER {
  u8 NUMBER_TYPE, NUMBER_PLAN, PI, SI;
  PoolArray<u8> CHARi;
};
template <class W>
void layout(W& w, CALLING_PARTY_NUMBER& r, const Ctx&) {
  w(F(NUMBER_TYPE, 3), F(NUMBER_PLAN, 4), F(PI, 2), F(SI, 2));
  chars_to_end(w, r.CHARi);
}

// --- Terminal Information ------------------------------------------------------------------
// The mobile station's revision, maker, model and firmware, its station class mark, local
// control, slot cycle index, then the service options it supports to the end of the record.
struct TERMINAL_INFO {
  u8 MOB_P_REV, MOB_MFG_CODE, MOB_MODEL;
  u16 MOB_FIRM_REV;
  u8 SCM, LOCAL_CTRL, SLOT_CYCLE_INDEX;
  PoolArray<u16> SERVICE_OPTION;
};
template <class W>
void layout(W& w, TERMINAL_INFO& r, const Ctx&) {
  w(F(MOB_P_REV, 8), F(MOB_MFG_CODE, 8), F(MOB_MODEL, 8), F(MOB_FIRM_REV, 16), F(SCM, 8), F(LOCAL_CTRL, 1),
    F(SLOT_CYCLE_INDEX, 3));
  w.scalars("SERVICE_OPTION", r.SERVICE_OPTION, static_cast<u32>(w.left() / 16), 16);
}

// --- ESN -----------------------------------------------------------------------------------
struct ESN_REC {
  u32 ESN;
};
template <class W>
void layout(W& w, ESN_REC& r, const Ctx&) {
  w(F(ESN, 32));
}

// --- Band Class Information ----------------------------------------------------------------
// A bitmap of the band classes supported, most significant bit first from band class 0, in
// as many octets as the record holds.
struct BAND_INFO_REC {
  PoolArray<u8> BAND_CLASS_INFO;
};
template <class W>
void layout(W& w, BAND_INFO_REC& r, const Ctx&) {
  w.scalars("BAND_CLASS_INFO", r.BAND_CLASS_INFO, static_cast<u32>(w.left() / 8), 8);
}

// --- Called, Calling and Connected Subaddress (same layout) --------------------------------
struct SUBADDRESS {
  u8 EXTENSION_BIT, SUBADDRESS_TYPE, ODD_EVEN_INDICATOR;
  PoolArray<u8> CHARi;
};
template <class W>
void layout(W& w, SUBADDRESS& r, const Ctx&) {
  // reserved
  w(F(EXTENSION_BIT, 1), F(SUBADDRESS_TYPE, 3), F(ODD_EVEN_INDICATOR, 1), reserved(3));
  chars_to_end(w, r.CHARi);
}

// --- Service Option Information ------------------------------------------------------------
// One entry per service option to the end of the record: whether it is supported forward and
// reverse, after six reserved bits.
struct SO_INFO_REC {
  u8 FWD_SUPPORT, REV_SUPPORT;
  u16 SERVICE_OPTION;
};
template <class W>
void layout(W& w, SO_INFO_REC& r, const Ctx&) {
  // reserved
  w(reserved(6), F(FWD_SUPPORT, 1), F(REV_SUPPORT, 1), F(SERVICE_OPTION, 16));
}
struct SO_INFO {
  PoolArray<SO_INFO_REC> SO_RECs;
};
template <class W>
void layout(W& w, SO_INFO& r, const Ctx& c) {
  w.records("SO_RECs", r.SO_RECs, static_cast<u32>(w.left() / 24), c);
}

// --- Capability Information ----------------------------------------------------------------
// The handoff and search capabilities of TIA/EIA-95-B; from IS-2000 (P_REV 6) the quick paging
// channel, the slotted timer, control hold with its gating rates and, behind EXT_CAP_INCL,
// burst operation, short data bursts and the RLP capability block. Release A (P_REV 7) goes on
// with flexible and variable rate capabilities whose widths no public source at hand gives:
// refused after the Release 0 fields.
struct CAPABILITY_INFO {
  u8 ACCESS_ENTRY_HO, ACCESS_PROBE_HO, ANALOG_SEARCH, HOPPING_BEACON, MAHHO, PUF, ANALOG_553A, QPCH,
      SLOTTED_TIMER, CHS_SUPPORTED, GATING_RATE_SET, EXT_CAP_INCL, MABO, SDB, RLP_CAP_BLOB_LEN;
  Bytes RLP_CAP_BLOB;
};
template <class W>
void layout(W& w, CAPABILITY_INFO& r, const Ctx& c) {
  w(F(ACCESS_ENTRY_HO, 1), F(ACCESS_PROBE_HO, 1), F(ANALOG_SEARCH, 1), F(HOPPING_BEACON, 1), F(MAHHO, 1),
    F(PUF, 1), F(ANALOG_553A, 1));
  // Before IS-2000 a reserved bit closes the record.
  if (c.p_rev < 6) return;
  w(F(QPCH, 1), F(SLOTTED_TIMER, 1), F(CHS_SUPPORTED, 1));
  if (r.CHS_SUPPORTED) w(F(GATING_RATE_SET, 2));
  w(F(EXT_CAP_INCL, 1));
  if (r.EXT_CAP_INCL) {
    w(F(MABO, 1), F(SDB, 1), F(RLP_CAP_BLOB_LEN, 3));
    if (r.RLP_CAP_BLOB_LEN) w(F(RLP_CAP_BLOB, 8u * r.RLP_CAP_BLOB_LEN));
  }
  if (c.p_rev >= 7) w.reject(Rc::count);
}

// --- Channel Configuration Capability Information ------------------------------------------
// Transmit diversity, then the channels supported, each with its capability fields. Read
// through the FCH and DCCH groups; the supplemental and later channel groups that follow have
// no public layout at hand: refused there.
struct CHANNEL_CONFIG_CAPABILITY {
  u8 OTD_SUPPORTED;
  u8 FCH_SUPPORTED, FCH_FRAME_SIZE, FOR_FCH_LEN, REV_FCH_LEN;
  u32 FOR_FCH_RC_MAP, REV_FCH_RC_MAP;
  u8 DCCH_SUPPORTED, DCCH_FRAME_SIZE, FOR_DCCH_LEN, REV_DCCH_LEN;
  u32 FOR_DCCH_RC_MAP, REV_DCCH_RC_MAP;
};
template <class W>
void layout(W& w, CHANNEL_CONFIG_CAPABILITY& r, const Ctx&) {
  w(F(OTD_SUPPORTED, 1), F(FCH_SUPPORTED, 1));
  if (r.FCH_SUPPORTED) fch_capability(w, r);
  w(F(DCCH_SUPPORTED, 1));
  if (r.DCCH_SUPPORTED) dcch_capability(w, r);
  w.reject(Rc::count);
}

// --- Extended Multiplex Option Information -------------------------------------------------
// The multiplex options of the fundamental channel, forward and reverse, each with the
// bitmap of its rates; then the option counts of the dedicated control and supplemental
// channels (and from Release C the packet data channels). Entries of those lists have no
// public layout at hand: a non-zero count is refused.
struct MO_FCH_REC {
  u16 MULTIPLEX_OPTION;
  u8 RATES;
};
template <class W>
void layout(W& w, MO_FCH_REC& r, const Ctx&) {
  w(F(MULTIPLEX_OPTION, 16), F(RATES, 8));
}
struct EXT_MULTIPLEX_OPTION_INFO {
  u8 NUM_MO_FOR_FCH;
  PoolArray<MO_FCH_REC> MO_FOR_FCH_RECs;
  u8 NUM_MO_REV_FCH;
  PoolArray<MO_FCH_REC> MO_REV_FCH_RECs;
  u8 NUM_MO_FOR_DCCH, NUM_MO_REV_DCCH, NUM_MO_FOR_SCH, NUM_MO_REV_SCH, NUM_MO_FOR_PDCH, NUM_MO_REV_PDCH;
};
template <class W>
void layout(W& w, EXT_MULTIPLEX_OPTION_INFO& r, const Ctx& c) {
  w(F(NUM_MO_FOR_FCH, 4));
  w.records("MO_FOR_FCH_RECs", r.MO_FOR_FCH_RECs, r.NUM_MO_FOR_FCH, c);
  w(F(NUM_MO_REV_FCH, 4));
  w.records("MO_REV_FCH_RECs", r.MO_REV_FCH_RECs, r.NUM_MO_REV_FCH, c);
  w(F(NUM_MO_FOR_DCCH, 4));
  if (r.NUM_MO_FOR_DCCH) w.reject(Rc::count);
  w(F(NUM_MO_REV_DCCH, 4));
  if (r.NUM_MO_REV_DCCH) w.reject(Rc::count);
  w(F(NUM_MO_FOR_SCH, 4));
  if (r.NUM_MO_FOR_SCH) w.reject(Rc::count);
  w(F(NUM_MO_REV_SCH, 4));
  if (r.NUM_MO_REV_SCH) w.reject(Rc::count);
  if (c.p_rev >= 9) {
    w(F(NUM_MO_FOR_PDCH, 4));
    if (r.NUM_MO_FOR_PDCH) w.reject(Rc::count);
    w(F(NUM_MO_REV_PDCH, 4));
    if (r.NUM_MO_REV_PDCH) w.reject(Rc::count);
  }
}

// --- Hook Status ---------------------------------------------------------------------------
struct HOOK_STATUS_REC {
  u8 HOOK_STATUS;
};
template <class W>
void layout(W& w, HOOK_STATUS_REC& r, const Ctx&) {
  w(F(HOOK_STATUS, 4));
}

// --- UIM_ID, ESN_ME and MEID: a 4-bit length in octets and the identifier ------------------
struct UIM_ID_REC {
  u8 UIM_ID_LEN;
  Bytes UIM_ID;
};
template <class W>
void layout(W& w, UIM_ID_REC& r, const Ctx&) {
  w(F(UIM_ID_LEN, 4));
  if (r.UIM_ID_LEN) w(F(UIM_ID, 8u * r.UIM_ID_LEN));
}

struct ESN_ME_REC {
  u8 ESN_ME_LEN;
  Bytes ESN_ME;
};
template <class W>
void layout(W& w, ESN_ME_REC& r, const Ctx&) {
  w(F(ESN_ME_LEN, 4));
  if (r.ESN_ME_LEN) w(F(ESN_ME, 8u * r.ESN_ME_LEN));
}

struct MEID_REC {
  u8 MEID_LEN;
  Bytes MEID;
};
template <class W>
void layout(W& w, MEID_REC& r, const Ctx&) {
  w(F(MEID_LEN, 4));
  if (r.MEID_LEN) w(F(MEID, 8u * r.MEID_LEN));
}

// --- Security Status -----------------------------------------------------------------------
// The authentication and encryption modes in use and whether the private long code mask is.
struct SECURITY_STATUS {
  u8 AUTH_MODE, ENCRYPT_MODE, PRIVATE_LCM;
};
template <class W>
void layout(W& w, SECURITY_STATUS& r, const Ctx&) {
  w(F(AUTH_MODE, 2), F(ENCRYPT_MODE, 2), F(PRIVATE_LCM, 1));
}

// --- IMSI, IMSI_M and IMSI_T ---------------------------------------------------------------
// One IMSI in the form the mobile station stores it: class, number of address digits of a
// class 1 IMSI, country code, the 11th and 12th digits and the last ten digits (IMSI_S, kept
// as a 34-bit string). The three records differ only in which IMSI they report and so in
// their field names: the operational IMSI (IMSI_O), the MIN-based one (IMSI_M) and the true
// one (IMSI_T).
struct ImsiFields {
  u8 CLASS, ADDR_NUM;
  u16 MCC;
  u8 IMSI_11_12;
  Bytes IMSI_S;
};
struct ImsiNames {
  const char *cls, *addr_num, *mcc, *imsi_11_12, *imsi_s;
};
template <class W>
void imsi_fields(W& w, ImsiFields& r, const ImsiNames& n) {
  w(field(r.CLASS, n.cls, 1), field(r.ADDR_NUM, n.addr_num, 3), field(r.MCC, n.mcc, 10),
    field(r.IMSI_11_12, n.imsi_11_12, 7), field(r.IMSI_S, n.imsi_s, 34));
}

struct IMSI_O_REC : ImsiFields {};
template <class W>
void layout(W& w, IMSI_O_REC& r, const Ctx&) {
  imsi_fields(w, r, {"IMSI_O_CLASS", "IMSI_O_ADDR_NUM", "MCC_O", "IMSI_O_11_12", "IMSI_O_S"});
}
struct IMSI_M_REC : ImsiFields {};
template <class W>
void layout(W& w, IMSI_M_REC& r, const Ctx&) {
  imsi_fields(w, r, {"IMSI_M_CLASS", "IMSI_M_ADDR_NUM", "MCC_M", "IMSI_M_11_12", "IMSI_M_S"});
}
struct IMSI_T_REC : ImsiFields {};
template <class W>
void layout(W& w, IMSI_T_REC& r, const Ctx&) {
  imsi_fields(w, r, {"IMSI_T_CLASS", "IMSI_T_ADDR_NUM", "MCC_T", "IMSI_T_11_12", "IMSI_T_S"});
}

// --- Multiplex Option Information ----------------------------------------------------------
// One entry per multiplex option supported, to the end of the record: the option and the
// bitmaps of the forward and reverse rates it supports.
struct MO_INFO_REC {
  u16 MULTIPLEX_OPTION;
  u8 FWD_RATES, REV_RATES;
};
template <class W>
void layout(W& w, MO_INFO_REC& r, const Ctx&) {
  w(F(MULTIPLEX_OPTION, 16), F(FWD_RATES, 8), F(REV_RATES, 8));
}
struct MO_INFO {
  PoolArray<MO_INFO_REC> MO_RECs;
};
template <class W>
void layout(W& w, MO_INFO& r, const Ctx& c) {
  w.records("MO_RECs", r.MO_RECs, static_cast<u32>(w.left() / 32), c);
}

// --- Power Control Information -------------------------------------------------------------
// The smallest closed loop power control step the mobile station supports.
struct POWER_CONTROL_INFO {
  u8 MIN_PWR_CNTL_STEP;
};
template <class W>
void layout(W& w, POWER_CONTROL_INFO& r, const Ctx&) {
  w(F(MIN_PWR_CNTL_STEP, 3));
}

// --- Records refused for want of a public layout -------------------------------------------
struct UNDECODED {};
template <class W>
void layout(W& w, UNDECODED&, const Ctx&) {
  w.reject(Rc::count);
}

// --- Type dispatch -------------------------------------------------------------------------
constexpr BodyOps kKeypad = body_ops<KEYPAD_FACILITY>("KEYPAD_FACILITY");
constexpr BodyOps kCdpn = body_ops<CALLED_PARTY_NUMBER>("CALLED_PARTY_NUMBER");
constexpr BodyOps kCgpn = body_ops<CALLING_PARTY_NUMBER>("CALLING_PARTY_NUMBER");
constexpr BodyOps kCn = body_ops<CALLING_PARTY_NUMBER>("CONNECTED_NUMBER");
constexpr BodyOps kTerm = body_ops<TERMINAL_INFO>("TERMINAL_INFORMATION");
constexpr BodyOps kEsn = body_ops<ESN_REC>("ESN");
constexpr BodyOps kBand = body_ops<BAND_INFO_REC>("BAND_CLASS_INFORMATION");
constexpr BodyOps kCdps = body_ops<SUBADDRESS>("CALLED_PARTY_SUBADDRESS");
constexpr BodyOps kCgps = body_ops<SUBADDRESS>("CALLING_PARTY_SUBADDRESS");
constexpr BodyOps kCs = body_ops<SUBADDRESS>("CONNECTED_SUBADDRESS");
constexpr BodyOps kHook = body_ops<HOOK_STATUS_REC>("HOOK_STATUS");
constexpr BodyOps kUimId = body_ops<UIM_ID_REC>("UIM_ID");
constexpr BodyOps kEsnMe = body_ops<ESN_ME_REC>("ESN_ME");
constexpr BodyOps kMeid = body_ops<MEID_REC>("MEID");

constexpr BodyOps kCallMode = body_ops<UNDECODED>("CALL_MODE");
constexpr BodyOps kRoam = body_ops<UNDECODED>("ROAMING_INFORMATION");
constexpr BodyOps kSecurity = body_ops<SECURITY_STATUS>("SECURITY_STATUS");
constexpr BodyOps kImsi = body_ops<IMSI_O_REC>("IMSI");
constexpr BodyOps kPower = body_ops<UNDECODED>("POWER_CLASS_INFORMATION");
constexpr BodyOps kOpMode = body_ops<UNDECODED>("OPERATING_MODE_INFORMATION");
constexpr BodyOps kSoInfo = body_ops<SO_INFO>("SERVICE_OPTION_INFORMATION");
constexpr BodyOps kMoInfo = body_ops<MO_INFO>("MULTIPLEX_OPTION_INFORMATION");
// The service configuration record as the forward messages carry it, at the P_REV in use.
constexpr BodyOps kScr = body_ops<ServiceConfig>("SCR");
constexpr BodyOps kPci = body_ops<POWER_CONTROL_INFO>("POWER_CONTROL_INFORMATION");
constexpr BodyOps kImsiM = body_ops<IMSI_M_REC>("IMSI_M");
constexpr BodyOps kImsiT = body_ops<IMSI_T_REC>("IMSI_T");
constexpr BodyOps kCap = body_ops<CAPABILITY_INFO>("CAPABILITY_INFORMATION");
constexpr BodyOps kCcc = body_ops<CHANNEL_CONFIG_CAPABILITY>("CHANNEL_CONFIGURATION_CAPABILITY_INFORMATION");
constexpr BodyOps kEmo = body_ops<EXT_MULTIPLEX_OPTION_INFO>("EXTENDED_MULTIPLEX_OPTION_INFORMATION");
constexpr BodyOps kGeo = body_ops<UNDECODED>("GEO_LOCATION_CAPABILITY");
constexpr BodyOps kBandSub = body_ops<UNDECODED>("BAND_SUBCLASS_INFORMATION");
constexpr BodyOps kGlobalEmergency = body_ops<UNDECODED>("GLOBAL_EMERGENCY_CALL");
constexpr BodyOps kQos = body_ops<UNDECODED>("QOS_PARAMETERS");
constexpr BodyOps kEncCap = body_ops<UNDECODED>("ENCRYPTION_CAPABILITY");
constexpr BodyOps kSmiCap = body_ops<UNDECODED>("SIGNALING_MESSAGE_INTEGRITY_CAPABILITY");
constexpr BodyOps kExtKeypad = body_ops<UNDECODED>("EXTENDED_KEYPAD_FACILITY");
constexpr BodyOps kSyncId = body_ops<UNDECODED>("SYNC_ID");
constexpr BodyOps kErti = body_ops<UNDECODED>("EXTENDED_RECORD_TYPE_INTERNATIONAL");

}  // namespace

InfoRecType rev_info_rec_type(std::uint8_t record_type) {
  switch (record_type) {
    case 3: return {"TypeSpecificFields.KEYPAD_FAC", &kKeypad};
    case 4: return {"TypeSpecificFields.CLD_PN", &kCdpn};
    case 5: return {"TypeSpecificFields.CLG_PN", &kCgpn};
    case 7: return {"TypeSpecificFields.CALL_MODE", &kCallMode};
    case 8: return {"TypeSpecificFields.TERM_INFO", &kTerm};
    case 9: return {"TypeSpecificFields.ROAM_INFO", &kRoam};
    case 10: return {"TypeSpecificFields.SECUR_STS", &kSecurity};
    case 11: return {"TypeSpecificFields.CONN_N", &kCn};
    case 12: return {"TypeSpecificFields.IMSI", &kImsi};
    case 13: return {"TypeSpecificFields.ESN", &kEsn};
    case 14: return {"TypeSpecificFields.BAND_INFO", &kBand};
    case 15: return {"TypeSpecificFields.POWER_INFO", &kPower};
    case 16: return {"TypeSpecificFields.OP_MODE_INFO", &kOpMode};
    case 17: return {"TypeSpecificFields.SO_INFO", &kSoInfo};
    case 18: return {"TypeSpecificFields.MO_INFO", &kMoInfo};
    case 19: return {"TypeSpecificFields.SC_INFO", &kScr};
    case 20: return {"TypeSpecificFields.CLD_PSA", &kCdps};
    case 21: return {"TypeSpecificFields.CLG_PSA", &kCgps};
    case 22: return {"TypeSpecificFields.CONN_SA", &kCs};
    case 23: return {"TypeSpecificFields.PCI", &kPci};
    case 24: return {"TypeSpecificFields.IMSI_M", &kImsiM};
    case 25: return {"TypeSpecificFields.IMSI_T", &kImsiT};
    case 26: return {"TypeSpecificFields.CAP_INFO", &kCap};
    case 27: return {"TypeSpecificFields.CCC_INFO", &kCcc};
    case 28: return {"TypeSpecificFields.EMO_INFO", &kEmo};
    case 30: return {"TypeSpecificFields.GEO_CAP", &kGeo};
    case 31: return {"TypeSpecificFields.BAND_SUB", &kBandSub};
    case 32: return {"TypeSpecificFields.GECO", &kGlobalEmergency};
    case 33: return {"TypeSpecificFields.HOOK", &kHook};
    case 34: return {"TypeSpecificFields.QOS_PARAM", &kQos};
    case 35: return {"TypeSpecificFields.ENCRYPT_CAP", &kEncCap};
    case 36: return {"TypeSpecificFields.SMI_CAP", &kSmiCap};
    case 37: return {"TypeSpecificFields.UIM_ID", &kUimId};
    case 38: return {"TypeSpecificFields.ESN_ME", &kEsnMe};
    case 39: return {"TypeSpecificFields.MEID", &kMeid};
    case 40: return {"TypeSpecificFields.EKEYPAD_FAC", &kExtKeypad};
    case 41: return {"TypeSpecificFields.SYNC_ID", &kSyncId};
    case 254: return {"TypeSpecificFields.ERTI", &kErti};
    default: return {nullptr, nullptr};   // reserved types: no type-specific part
  }
}

}  // namespace cs
