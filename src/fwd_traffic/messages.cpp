// Forward traffic channel message bodies (C.S0005 3.7.3.3.2.x) other than the order, the
// handoff direction family, the service connect / extended supplemental channel assignment
// messages and the messages that carry information records. The neighbour and search
// messages live in search.cpp, the power control family in power_control.cpp; this file
// holds the rest and the table that joins them.
//
// Each record is the message body after the PDU header; its layout is walked once to decode
// and once to print. Revision-dependent fields test Ctx::p_rev (P_REV_IN_USE).
#include <cstdint>

#include "layout/layout.h"
#include "records/forward_shared.h"
#include "fwd_traffic/tables.h"
#include "fwd_traffic/message_parts.h"
#include "records/service_config.h"

namespace cs {
namespace {

using namespace fd_parts;

// ---- Authentication Challenge Message (2) -----------------------------------------------

// ---- Data Burst Message (4) -------------------------------------------------------------

// ---- Analog Handoff Direction Message (6) -----------------------------------------------

struct FD_AHDM {
  std::uint8_t USE_TIME;
  std::uint8_t ACTION_TIME;
  std::uint16_t SID;
  std::uint8_t VMAC;
  std::uint16_t ANALOG_CHAN;
  std::uint8_t SCC;
  std::uint8_t MEM;
  std::uint8_t AN_CHAN_TYPE;
  std::uint8_t DSCC_MSB;
  std::uint8_t BAND_CLASS;
  std::uint8_t CON_REF_INCL;
  std::uint8_t CON_REF;
};

template <class W>
void layout(W& w, FD_AHDM& r, const Ctx& c) {
  w(F(USE_TIME, 1), F(ACTION_TIME, 6), F(SID, 15), F(VMAC, 3), F(ANALOG_CHAN, 11), F(SCC, 2), F(MEM, 1),
    F(AN_CHAN_TYPE, 2), F(DSCC_MSB, 1));
  if (c.p_rev >= kIs95B) w(F(BAND_CLASS, 5));
  if (c.p_rev >= kRelA) {
    w(F(CON_REF_INCL, 1));
    if (r.CON_REF_INCL) w(F(CON_REF, 8));
  }
}

// ---- Send Burst DTMF Message (9) --------------------------------------------------------

struct FD_BDTMFM {
  std::uint8_t NUM_DIGITS;
  std::uint8_t DTMF_ON_LENGTH;
  std::uint8_t DTMF_OFF_LENGTH;
  PoolArray<std::uint8_t> DIGITi;
  std::uint8_t CON_REF_INCL;
  std::uint8_t CON_REF;
};

template <class W>
void layout(W& w, FD_BDTMFM& r, const Ctx& c) {
  w(F(NUM_DIGITS, 8), F(DTMF_ON_LENGTH, 3), F(DTMF_OFF_LENGTH, 3));
  w.scalars("DIGITi", r.DIGITi, r.NUM_DIGITS, 4);
  if (c.p_rev >= kRelA) {
    w(F(CON_REF_INCL, 1));
    if (r.CON_REF_INCL) w(F(CON_REF, 8));
  }
}

// ---- Retrieve Parameters Message (11) ---------------------------------------------------

struct FD_RTPM {
  PoolArray<std::uint16_t> PARAMETER_ID;
};

template <class W>
void layout(W& w, FD_RTPM& r, const Ctx&) {
  // One or more parameter identifiers, up to the end of the message.
  w.scalars("PARAMETER_ID", r.PARAMETER_ID, fit(w, 16), 16);
}

// ---- Set Parameters Message (12) --------------------------------------------------------

struct FD_STPM_PARAMETER {
  std::uint16_t PARAMETER_ID;
  std::uint16_t PARAMETER_LEN;
  Bytes PARAMETER;
};

template <class W>
void layout(W& w, FD_STPM_PARAMETER& r, const Ctx&) {
  w(F(PARAMETER_ID, 16), F(PARAMETER_LEN, 10));
  // PARAMETER_LEN is the parameter's width in bits less one.
  const std::uint32_t width = r.PARAMETER_LEN + 1u;
  w(F(PARAMETER, width));
}

struct FD_STPM {
  PoolArray<FD_STPM_PARAMETER> PARAMETERs;
};

template <class W>
void layout(W& w, FD_STPM& r, const Ctx& c) {
  // The smallest parameter record is 16 + 10 + 1 bits.
  w.list_to_end("PARAMETERs", r.PARAMETERs,
                [](std::uint64_t left) { return static_cast<std::uint32_t>(left / 27 + 1); }, c);
}

// ---- SSD Update Message (13) ------------------------------------------------------------

// ---- Mobile Station Registered Message (15) ---------------------------------------------

struct FD_MSRM {
  std::uint16_t SID;
  std::uint16_t NID;
  std::uint16_t REG_ZONE;
  std::uint8_t TOTAL_ZONES;
  std::uint8_t ZONE_TIMER;
  std::uint8_t MULT_SIDS;
  std::uint8_t MULT_NIDS;
  std::uint32_t BASE_LAT;
  std::uint32_t BASE_LONG;
  std::uint16_t REG_DIST;
};

template <class W>
void layout(W& w, FD_MSRM& r, const Ctx&) {
  w(F(SID, 15), F(NID, 16), F(REG_ZONE, 12), F(TOTAL_ZONES, 3), F(ZONE_TIMER, 3), F(MULT_SIDS, 1), F(MULT_NIDS, 1),
    F(BASE_LAT, 22), F(BASE_LONG, 23), F(REG_DIST, 11));
}

// ---- Status Request Message (16) --------------------------------------------------------

struct FD_STRQM {
  std::uint8_t QUAL_INFO_TYPE;
  std::uint8_t QUAL_INFO_LEN;
  std::uint8_t BAND_CLASS;
  std::uint8_t OP_MODE;
  std::uint8_t NUM_FIELDS;
  PoolArray<std::uint8_t> RECORD_TYPE;
};

// QUAL_INFO_TYPE, QUAL_INFO_LEN and the qualification information: none (type 0), a band
// class (type 1) or a band class and an operating mode (type 2), each padded to whole octets;
// the walk moves on by QUAL_INFO_LEN octets whatever the type, so unknown types are skipped.
template <class W, class R>
void qual_info(W& w, R& r) {
  w(F(QUAL_INFO_TYPE, 8), F(QUAL_INFO_LEN, 3));
  const std::uint32_t declared = 8u * r.QUAL_INFO_LEN;
  // The check covers all QUAL_INFO_LEN octets, not just the fields read: a message cut
  // inside the qualification information is short before any of it is read.
  if (!w.need(declared)) return;
  auto end = w.declared_end();
  if (r.QUAL_INFO_TYPE == 1 && declared >= 8) {
    w(F(BAND_CLASS, 5), reserved(3));
  } else if (r.QUAL_INFO_TYPE == 2 && declared >= 16) {
    w(F(BAND_CLASS, 5), F(OP_MODE, 8), reserved(3));
  }
  end.at(declared);
}

template <class W>
void layout(W& w, FD_STRQM& r, const Ctx&) {
  qual_info(w, r);
  w(F(NUM_FIELDS, 4));
  w.scalars("RECORD_TYPE", r.RECORD_TYPE, r.NUM_FIELDS, 8);
}

// ---- Service Request (18) and Service Response (19) Messages: service_config.h ---------

// ---- Service Option Control Message (21) ------------------------------------------------

struct FD_SOCM {
  std::uint8_t USE_TIME;
  std::uint8_t ACTION_TIME;
  std::uint8_t CON_REF;
  std::uint16_t SERVICE_OPTION;
  std::uint8_t CTL_REC_LEN;
  Bytes TYPE_SPECIFIC_FIELDS;
};

template <class W>
void layout(W& w, FD_SOCM& r, const Ctx&) {
  w(F(USE_TIME, 1), F(ACTION_TIME, 6), F(CON_REF, 8), F(SERVICE_OPTION, 16), F(CTL_REC_LEN, 8));
  // The control record's contents belong to the service option; they are shown whole.
  if (r.CTL_REC_LEN == 0) return;
  w(F(TYPE_SPECIFIC_FIELDS, 8u * r.CTL_REC_LEN));
}

// ---- Service Redirection Message (23) ---------------------------------------------------

// The redirection record under RECORD_TYPE / RECORD_LEN, laid out by that RECORD_TYPE.
struct FD_SRDM_Record {
  std::uint16_t EXPECTED_SID;
  std::uint8_t IGNORE_CDMA;
  std::uint8_t SYS_ORDERING;
  std::uint8_t BAND_CLASS;
  std::uint16_t EXPECTED_NID;
  std::uint8_t NUM_CHANS;
  PoolArray<std::uint16_t> CDMA_CHAN;
  std::uint16_t EXPECTED_AID;
};

struct SrdmRecordCtx : Ctx {
  std::uint8_t record_type;
};

template <class W>
void layout(W& w, FD_SRDM_Record& r, const SrdmRecordCtx& c) {
  switch (c.record_type) {
    case 1:   // analog system; the reserved bits that follow are covered by RECORD_LEN
      w(F(EXPECTED_SID, 15), F(IGNORE_CDMA, 1), F(SYS_ORDERING, 3));
      break;
    case 2:   // CDMA system
      w(F(BAND_CLASS, 5), F(EXPECTED_SID, 15), F(EXPECTED_NID, 16), reserved(4), F(NUM_CHANS, 4));
      w.scalars("CDMA_CHAN", r.CDMA_CHAN, r.NUM_CHANS, 11);
      break;
    case 4:   // JTACS system
      w(F(EXPECTED_AID, 15), F(IGNORE_CDMA, 1));
      break;
    default:   // '00000000' (NDSS off) carries no fields; other types are reserved
      break;
  }
}

struct FD_SRDM {
  std::uint8_t RETURN_IF_FAIL;
  std::uint8_t DELETE_TMSI;
  std::uint8_t REDIRECT_TYPE;
  std::uint8_t RECORD_TYPE;
  std::uint8_t RECORD_LEN;
  FD_SRDM_Record RECORD;
};

template <class W>
void layout(W& w, FD_SRDM& r, const Ctx& c) {
  w(F(RETURN_IF_FAIL, 1), F(DELETE_TMSI, 1));
  if (c.p_rev >= kIs95B) w(F(REDIRECT_TYPE, 1));
  w(F(RECORD_TYPE, 8), F(RECORD_LEN, 8));
  if (r.RECORD_LEN == 0) return;
  // A message cut inside its redirection record is short, not a record to guess at: the
  // check covers all RECORD_LEN octets before any of them is read.
  if (!w.need(8u * r.RECORD_LEN)) return;
  SrdmRecordCtx rc{c};
  rc.record_type = r.RECORD_TYPE;
  w.sized("TypeSpecificFields", r.RECORD, 8u * r.RECORD_LEN, rc);
}

// ---- User Zone Reject (37: forward_shared.h) and User Zone Update (38) Messages ------------

struct FD_UZUM {
  std::uint16_t UZID;
};

template <class W>
void layout(W& w, FD_UZUM& r, const Ctx&) {
  w(F(UZID, 16));
}

// ---- Extended Release Message (33) ------------------------------------------------------

struct FD_ERM {
  std::uint8_t USE_TIME;
  std::uint8_t ACTION_TIME;
  std::uint8_t CH_IND;
  std::uint8_t GATING_RATE_INCL;
  std::uint8_t PILOT_GATING_RATE;
  std::uint8_t USE_EXT_CH_IND;
  std::uint8_t EXT_CH_IND;
  std::uint8_t PDCH_CONTROL_HOLD;
  std::uint8_t SWITCHING_PARMS_INCL;
  std::uint8_t NUM_SOFT_SWITCHING_FRAMES_CHM;
  std::uint8_t NUM_SOFTER_SWITCHING_FRAMES_CHM;
  std::uint8_t DIRECT_TO_IDLE_INFO_INCL;
  std::uint8_t RELEASE_TYPE;
  std::uint16_t SID;
  std::uint16_t NID;
  std::uint8_t FREQ_INCL;
  std::uint16_t CDMA_FREQ;
  std::uint8_t BAND_CLASS;
  std::uint8_t PAGE_CH;
  std::uint8_t PRAT;
  std::uint8_t SR1_BCCH_CODE_CHAN_NON_TD;
  std::uint8_t SR1_CRAT_NON_TD;
  std::uint8_t SR1_BRAT_NON_TD;
  std::uint8_t SR1_TD_MODE;
  std::uint8_t SR1_BCCH_CODE_CHAN_TD;
  std::uint8_t SR1_CRAT_TD;
  std::uint8_t SR1_BRAT_TD;
  std::uint8_t SR1_TD_POWER_LEVEL;
  std::uint8_t NUM_PILOTS_D2I_INCL;
  std::uint8_t NUM_PILOTS_D2I;
  PoolArray<std::uint16_t> PILOT_PN;
};

// RELEASE_TYPE: '000' idle on the paging channel, '001' on the BCCH, '010' on the BCCH with
// transmit diversity, '011' back to system determination (no idle parameters follow).
template <class W>
void direct_to_idle(W& w, FD_ERM& r) {
  w(F(RELEASE_TYPE, 3));
  const bool to_idle = r.RELEASE_TYPE != 3;
  if (to_idle) {
    w(F(SID, 15), F(NID, 16), F(FREQ_INCL, 1));
    if (r.FREQ_INCL) w(F(CDMA_FREQ, 11), F(BAND_CLASS, 5));
  }
  if (r.RELEASE_TYPE == 0) {
    w(F(PAGE_CH, 3), F(PRAT, 2));
  } else if (r.RELEASE_TYPE == 1) {
    w(F(SR1_BCCH_CODE_CHAN_NON_TD, 6), F(SR1_CRAT_NON_TD, 1), F(SR1_BRAT_NON_TD, 2));
  } else if (r.RELEASE_TYPE == 2) {
    w(F(SR1_TD_MODE, 2), F(SR1_BCCH_CODE_CHAN_TD, 6), F(SR1_CRAT_TD, 1), F(SR1_BRAT_TD, 2), F(SR1_TD_POWER_LEVEL, 2));
  }
  if (!to_idle) return;
  w(F(NUM_PILOTS_D2I_INCL, 1));
  if (r.NUM_PILOTS_D2I_INCL) {
    w(F(NUM_PILOTS_D2I, 3));
    w.scalars("PILOT_PN", r.PILOT_PN, r.NUM_PILOTS_D2I, 9);
  }
}

template <class W>
void layout(W& w, FD_ERM& r, const Ctx& c) {
  w(F(USE_TIME, 1));
  if (r.USE_TIME) w(F(ACTION_TIME, 6));
  w(F(CH_IND, 3), F(GATING_RATE_INCL, 1));
  if (r.GATING_RATE_INCL) w(F(PILOT_GATING_RATE, 2));
  if (c.p_rev < kRelC) return;

  w(F(USE_EXT_CH_IND, 1));
  if (r.USE_EXT_CH_IND) {
    w(F(EXT_CH_IND, 5), F(PDCH_CONTROL_HOLD, 1));
    if (r.GATING_RATE_INCL) {
      w(F(SWITCHING_PARMS_INCL, 1));
      if (r.SWITCHING_PARMS_INCL) w(F(NUM_SOFT_SWITCHING_FRAMES_CHM, 4), F(NUM_SOFTER_SWITCHING_FRAMES_CHM, 4));
    }
  }
  w(F(DIRECT_TO_IDLE_INFO_INCL, 1));
  if (r.DIRECT_TO_IDLE_INFO_INCL) direct_to_idle(w, r);
}

// ---- Call Assignment Message (39) -------------------------------------------------------

struct FD_CLAM {
  std::uint8_t RESPONSE_IND;
  std::uint8_t TAG;
  std::uint8_t ACCEPT_IND;
  std::uint8_t REJECT_PKTDATA_IND;
  std::uint8_t BYPASS_ALERT_ANSWER;
  std::uint8_t SO_INCL;
  std::uint16_t SO;
  std::uint8_t CON_REF_INCL;
  std::uint8_t CON_REF;
  std::uint8_t USE_OLD_SERV_CONFIG;
  std::uint8_t SR_ID;
};

template <class W>
void layout(W& w, FD_CLAM& r, const Ctx& c) {
  w(F(RESPONSE_IND, 1));
  if (r.RESPONSE_IND) {
    // An answer to the mobile station's Enhanced Origination Message, found by its TAG.
    w(F(TAG, 4), F(ACCEPT_IND, 1));
    if (!r.ACCEPT_IND) w(F(REJECT_PKTDATA_IND, 1));
  } else {
    w(F(BYPASS_ALERT_ANSWER, 1));
  }
  w(F(SO_INCL, 1));
  if (r.SO_INCL) w(F(SO, 16));
  w(F(CON_REF_INCL, 1));
  if (r.CON_REF_INCL) w(F(CON_REF, 8));
  if (c.p_rev < kRelC) return;
  // A rejected call carries no service configuration choice.
  if (r.RESPONSE_IND && !r.ACCEPT_IND) return;
  w(F(USE_OLD_SERV_CONFIG, 1));
  if (r.USE_OLD_SERV_CONFIG) w(F(SR_ID, 3));
}

// ---- Security Mode Command Message (43) -------------------------------------------------

struct FD_SMCM_REC {
  std::uint8_t CON_REF;
  std::uint8_t UI_ENCRYPT_MODE;
};

template <class W>
void layout(W& w, FD_SMCM_REC& r, const Ctx&) {
  w(F(CON_REF, 8), F(UI_ENCRYPT_MODE, 3));
}

struct FD_SMCM {
  std::uint8_t USE_TIME;
  std::uint8_t ACTION_TIME;
  std::uint8_t D_SIG_ENCRYPT_MODE;
  std::uint8_t NUM_RECS;
  PoolArray<FD_SMCM_REC> RECs;
  std::uint8_t KEY_SIZE;
  std::uint8_t C_SIG_ENCRYPT_MODE_INCL;
  std::uint8_t C_SIG_ENCRYPT_MODE;
  std::uint8_t MSG_INT_INFO_INCL;
  std::uint8_t CHANGE_KEYS;
  std::uint8_t USE_UAK;
};

template <class W>
void layout(W& w, FD_SMCM& r, const Ctx& c) {
  w(F(USE_TIME, 1));
  if (r.USE_TIME) w(F(ACTION_TIME, 6));
  w(F(D_SIG_ENCRYPT_MODE, 3), F(NUM_RECS, 3));
  w.records("RECs", r.RECs, r.NUM_RECS, c);
  // The key size matters only to the Enhanced CMEA ('001') and Rijndael ('010') modes.
  if (r.D_SIG_ENCRYPT_MODE == 1 || r.D_SIG_ENCRYPT_MODE == 2) w(F(KEY_SIZE, 3));
  w(F(C_SIG_ENCRYPT_MODE_INCL, 1));
  if (r.C_SIG_ENCRYPT_MODE_INCL) w(F(C_SIG_ENCRYPT_MODE, 3));
  if (c.p_rev < kRelC) return;
  w(F(MSG_INT_INFO_INCL, 1));
  if (r.MSG_INT_INFO_INCL) w(F(CHANGE_KEYS, 1), F(USE_UAK, 1));
}

// ---- Base Station Status Response Message (49) ------------------------------------------

// One pilot of a pilot information record. RECORD_LEN counts the octets of the pilot record,
// itself included; the walk moves on by that many whatever the fields read. Pilots of a record
// whose SID_NID_IND is set carry SID_NID_INCL.
struct BssPilot {
  std::uint8_t RECORD_LEN;
  std::uint16_t PILOT_PN;
  std::uint16_t BASE_ID;
  std::uint8_t SID_NID_INCL;
  std::uint16_t SID;
  std::uint16_t NID;
  std::uint8_t BASE_LAT_LONG_INCL;
  std::uint32_t BASE_LAT;
  std::uint32_t BASE_LONG;
};
struct BssPilotCtx : Ctx {
  bool sid_nid;   // SID_NID_IND of the record
};

template <class W>
void layout(W& w, BssPilot& r, const BssPilotCtx& c) {
  auto end = w.declared_end();
  w(F(RECORD_LEN, 4), F(PILOT_PN, 9), F(BASE_ID, 16));
  if (c.sid_nid) {
    w(F(SID_NID_INCL, 1));
    if (r.SID_NID_INCL) w(F(SID, 15), F(NID, 16));
  }
  if (c.p_rev >= kRelC) {
    w(F(BASE_LAT_LONG_INCL, 1));
    if (r.BASE_LAT_LONG_INCL) w(F(BASE_LAT, 22), F(BASE_LONG, 23));
  }
  end.at(8u * r.RECORD_LEN);   // reserved bits up to the record's declared length
}

// Record type '00000000': pilot information.
struct BssPilotInfo {
  std::uint8_t NUM_PILOTS;
  std::uint8_t SID_NID_IND;
  PoolArray<BssPilot> PILOTs;
};

template <class W>
void layout(W& w, BssPilotInfo& r, const Ctx& c) {
  w(F(NUM_PILOTS, 4), F(SID_NID_IND, 1));
  BssPilotCtx pc{c};
  pc.sid_nid = r.SID_NID_IND;
  w.records("PILOTs", "FD_BSSRSPM_PILOTs", r.PILOTs, r.NUM_PILOTS, pc);
}

// A record of the response: RECORD_TYPE and RECORD_LENGTH (in octets), then the fields of
// the type (the record names follow the message table: RECORD_LENGTH here, against the
// RECORD_LEN of each pilot record inside).
struct BssRecord {
  std::uint8_t RECORD_TYPE;
  std::uint8_t RECORD_LENGTH;
  BssPilotInfo PILOT_INFO;
};

template <class W>
void layout(W& w, BssRecord& r, const Ctx& c) {
  w(F(RECORD_TYPE, 8), F(RECORD_LENGTH, 8));
  // The check covers all RECORD_LENGTH octets before any of them is read: a record cut short
  // is a short message, whatever its type.
  if (!w.need(8u * r.RECORD_LENGTH)) return;
  if (r.RECORD_TYPE == 0)
    w.sized("TypeSpecificFields", "FD_BSSRSPM_PILOT_INFO", r.PILOT_INFO, 8u * r.RECORD_LENGTH, c);
  else
    w.skip(8u * r.RECORD_LENGTH);   // a record type this revision does not define
}

struct FD_BSSRSPM {
  std::uint8_t QUAL_INFO_TYPE;
  std::uint8_t QUAL_INFO_LEN;
  std::uint8_t BAND_CLASS;
  std::uint8_t OP_MODE;
  std::uint8_t NUM_RECORDS;
  PoolArray<BssRecord> RECORDs;
};

template <class W>
void layout(W& w, FD_BSSRSPM& r, const Ctx& c) {
  qual_info(w, r);
  w(F(NUM_RECORDS, 4));
  w.records("RECORDs", r.RECORDs, r.NUM_RECORDS, c);
}

// ---- In-Traffic BCMC Service Parameters Message (52) --------------------------------------

// Release D. The message goes on with BCMC_FLOWS_ON_TRAFFIC_ONLY_IND, AUTH_SIGNATURE_REQUIRED,
// NON_DEFAULT_VALUE_INCLUDED, the time stamp lengths and unit and the BCMC program list; the
// decode stops after BCMC_ON_IDLE_SUP_IND because the condition that includes
// BCMC_FLOWS_ON_TRAFFIC_ONLY_IND is not known here, and the fields after it depend on it: the
// message is refused (result 1) after the two fields shown.
struct FD_ITBSPM {
  std::uint8_t AUTO_REQ_TRAF_ALLOWED_IND;
  std::uint8_t BCMC_ON_IDLE_SUP_IND;
};

template <class W>
void layout(W& w, FD_ITBSPM& r, const Ctx&) {
  w(F(AUTO_REQ_TRAF_ALLOWED_IND, 1), F(BCMC_ON_IDLE_SUP_IND, 1));
  (void)w.reject(Rc::count);
}

// ---- The table ------------------------------------------------------------------------------

}  // namespace

Rows fd_message_rows() {
  static constexpr MessageRow rows[] = {
      {2, "AUCM", body_ops<fwd::AuthChallenge>()},
      {4, "DBM", body_ops<fwd::DataBurst>()},
      {6, "AHDM", body_ops<FD_AHDM>()},
      {9, "BDTMFM", body_ops<FD_BDTMFM>()},
      {11, "RTPM", body_ops<FD_RTPM>()},
      {12, "STPM", body_ops<FD_STPM>()},
      {13, "SSDUM", body_ops<fwd::SsdUpdate>()},
      {15, "MSRM", body_ops<FD_MSRM>()},
      {16, "STRQM", body_ops<FD_STRQM>()},
      {18, "SRQM", body_ops<ServiceReqResp<false>>()},
      {19, "SRPM", body_ops<ServiceReqResp<true>>()},
      {21, "SOCM", body_ops<FD_SOCM>()},
      {22, "TASM", body_ops<fwd::TmsiAssignment>()},
      {23, "SRDM", body_ops<FD_SRDM>()},
      {33, "ERM", body_ops<FD_ERM>()},
      {37, "UZRM", body_ops<fwd::UserZoneReject>()},
      {38, "UZUM", body_ops<FD_UZUM>()},
      {39, "CLAM", body_ops<FD_CLAM>()},
      {43, "SMCM", body_ops<FD_SMCM>()},
      {49, "BSSRSPM", body_ops<FD_BSSRSPM>()},
      {50, "AUREQM", body_ops<fwd::AuthRequest>()},
      {52, "ITBSPM", body_ops<FD_ITBSPM>()},
  };
  return rows;
}

}  // namespace cs
