// Reverse traffic messages of call control and service negotiation (C.S0005 2.7.2.3.2): data
// bursts (4), DTMF digits (7), the dialled digits that follow an origination (9), parameter
// values (11), service requests and responses (12, 13), the service connect completion (14),
// service option control (15), the TMSI assignment completion (17), resource requests and
// releases (23, 24, 30), the enhanced origination (26), user zone updates (34), call cancel
// (35) and the BCMC parameters request (44).
#include "layout/layout.h"
#include "records/forward_shared.h"
#include "records/reverse_info_records.h"
#include "records/reverse_shared.h"
#include "records/service_config.h"
#include "rev_traffic/message_parts.h"
#include "rev_traffic/tables.h"

namespace cs {
namespace {

using namespace rd_parts;

// ---- Send Burst DTMF Message (7) ----------------------------------------------------------

struct RD_BDTMFM {
  u8 NUM_DIGITS, DTMF_ON_LENGTH, DTMF_OFF_LENGTH;
  PoolArray<u8> DIGITi;
  u8 CON_REF_INCL, CON_REF;
};

template <class W>
void layout(W& w, RD_BDTMFM& r, const Ctx& c) {
  w(F(NUM_DIGITS, 8), F(DTMF_ON_LENGTH, 3), F(DTMF_OFF_LENGTH, 3));
  if (!w.scalars("DIGITi", r.DIGITi, r.NUM_DIGITS, 4)) return;
  if (c.p_rev < kRelA) return;
  w(F(CON_REF_INCL, 1));
  if (r.CON_REF_INCL) w(F(CON_REF, 8));
}

// ---- Origination Continuation Message (9) -------------------------------------------------

// The dialled digits that did not fit the Origination Message (4-bit DTMF codes, or 8-bit
// ASCII characters when DIGIT_MODE is 1), then information records to the end of the message.
struct RD_ORCM {
  u8 DIGIT_MODE, NUM_FIELDS;
  PoolArray<u8> CHARi;
  PoolArray<REV_USER_INFO_REC> INFO_RECs;
};

template <class W>
void layout(W& w, RD_ORCM& r, const Ctx& c) {
  w(F(DIGIT_MODE, 1), F(NUM_FIELDS, 8));
  if (!w.scalars("CHARi", r.CHARi, r.NUM_FIELDS, r.DIGIT_MODE ? 8 : 4)) return;
  rev_info_records_to_end(w, r.INFO_RECs, c);
}

// ---- Parameters Response Message (11) -----------------------------------------------------

// PARAMETER_LEN is the parameter's width in bits less one; all ones means the parameter is not
// supported, and no value follows.
struct PrsmParameter {
  u16 PARAMETER_ID, PARAMETER_LEN;
  Bytes PARAMETER;
};

template <class W>
void layout(W& w, PrsmParameter& r, const Ctx&) {
  w(F(PARAMETER_ID, 16), F(PARAMETER_LEN, 10));
  if (r.PARAMETER_LEN != 1023) w(F(PARAMETER, r.PARAMETER_LEN + 1u));
}

struct RD_PRSM {
  PoolArray<PrsmParameter> PARAMETERs;
};

template <class W>
void layout(W& w, RD_PRSM& r, const Ctx& c) {
  // One parameter record per parameter asked for, to the end of the message.
  w.list_to_end("PARAMETERs", r.PARAMETERs, to_end_capacity<26>, c);
}

// ---- Service Request (12) and Service Response (13) Messages: service_config.h ----------

// ---- Service Connect Completion Message (14) ----------------------------------------------

struct RD_SCCM {
  u8 SERV_CON_SEQ;
};

template <class W>
void layout(W& w, RD_SCCM& r, const Ctx&) {
  w(reserved(1), F(SERV_CON_SEQ, 3));
}

// ---- Service Option Control Message (15) --------------------------------------------------

// The control record's contents belong to the service option; they are shown whole. Seven
// reserved bits precede CTL_REC_LEN.
struct RD_SOCM {
  u8 CON_REF;
  u16 SERVICE_OPTION;
  u8 CTL_REC_LEN;
  Bytes TYPE_SPECIFIC_FIELDS;
};

template <class W>
void layout(W& w, RD_SOCM& r, const Ctx&) {
  w(F(CON_REF, 8), F(SERVICE_OPTION, 16), reserved(7), F(CTL_REC_LEN, 8));
  if (r.CTL_REC_LEN) w(F(TYPE_SPECIFIC_FIELDS, 8u * r.CTL_REC_LEN));
}

// ---- Resource Request Message (23) --------------------------------------------------------

// From Release C the mobile station may name the channels it asks for (EXT_CH_IND when CH_IND
// is '00').
struct RD_RRM {
  u8 CH_IND_INCL, CH_IND, EXT_CH_IND;
};

template <class W>
void layout(W& w, RD_RRM& r, const Ctx& c) {
  if (c.p_rev < kRelC) return;
  w(F(CH_IND_INCL, 1));
  if (!r.CH_IND_INCL) return;
  w(F(CH_IND, 2));
  if (r.CH_IND == 0) w(F(EXT_CH_IND, 5));
}

// ---- Extended Release Response Message (24) -----------------------------------------------

// From Release D the mobile station may propose a reduced slot cycle for the idle state it
// goes back to.
struct RD_ERRM {
  u8 RSC_MODE_IND, RSCI, RSC_END_TIME_UNIT, RSC_END_TIME_VALUE;
};

template <class W>
void layout(W& w, RD_ERRM& r, const Ctx& c) {
  if (c.p_rev < kRelD) return;
  w(F(RSC_MODE_IND, 1));
  if (r.RSC_MODE_IND) w(F(RSCI, 4), F(RSC_END_TIME_UNIT, 2), F(RSC_END_TIME_VALUE, 4));
}

// ---- Enhanced Origination Message (26) ----------------------------------------------------

// Release A. Its fields are not decoded here: the message is refused (result 1).
struct RD_EOM {};

template <class W>
void layout(W& w, RD_EOM&, const Ctx&) {
  (void)w.reject(Rc::count);
}

// ---- Resource Release Request Message (30) ------------------------------------------------

// GATING_DISCONNECT_IND asks to leave the gated (control hold) mode; a connection reference
// names the service to release, and from Release A PURGE_SERVICE asks for it to be purged.
struct RD_RRRM {
  u8 GATING_DISCONNECT_IND, CON_REF_INCL, CON_REF, PURGE_SERVICE;
};

template <class W>
void layout(W& w, RD_RRRM& r, const Ctx& c) {
  w(F(GATING_DISCONNECT_IND, 1), F(CON_REF_INCL, 1));
  if (!r.CON_REF_INCL) return;
  w(F(CON_REF, 8));
  if (c.p_rev >= kRelA) w(F(PURGE_SERVICE, 1));
}

// ---- User Zone Update Request Message (34) ------------------------------------------------

struct RD_UZURM {
  u16 UZID;
};

template <class W>
void layout(W& w, RD_UZURM& r, const Ctx&) {
  w(F(UZID, 16));
}

// ---- Call Cancel Message (35) -------------------------------------------------------------

// Release A. Its fields are not decoded here: the message is refused (result 1).
struct RD_CLCM {};

template <class W>
void layout(W& w, RD_CLCM&, const Ctx&) {
  (void)w.reject(Rc::count);
}

// ---- In-Traffic BCMC Service Parameters Request Message (44) ------------------------------

// Release D. Its fields are not decoded here: the message is refused (result 1).
struct RD_ITBSPMRM {};

template <class W>
void layout(W& w, RD_ITBSPMRM&, const Ctx&) {
  (void)w.reject(Rc::count);
}

}  // namespace

Rows rd_call_rows() {
  static constexpr MessageRow rows[] = {
      {4, "DBM", body_ops<fwd::DataBurst>()},
      {7, "BDTMFM", body_ops<RD_BDTMFM>()},
      {9, "ORCM", body_ops<RD_ORCM>()},
      {11, "PRSM", body_ops<RD_PRSM>()},
      {12, "SRQM", body_ops<ServiceReqResp<false>>()},
      {13, "SRPM", body_ops<ServiceReqResp<true>>()},
      {14, "SCCM", body_ops<RD_SCCM>()},
      {15, "SOCM", body_ops<RD_SOCM>()},
      {17, "TACM", body_ops<rev::NoFields>()},
      {23, "RRM", body_ops<RD_RRM>()},
      {24, "ERRM", body_ops<RD_ERRM>()},
      {26, "EOM", body_ops<RD_EOM>()},
      {30, "RRRM", body_ops<RD_RRRM>()},
      {34, "UZURM", body_ops<RD_UZURM>()},
      {35, "CLCM", body_ops<RD_CLCM>()},
      {44, "ITBSPMRM", body_ops<RD_ITBSPMRM>()},
  };
  return rows;
}

}  // namespace cs
