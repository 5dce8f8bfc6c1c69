// Bodies of the addressed messages of the paging / forward common signalling channel
// (C.S0005 3.7.2.3.2), decoded over the bits that follow the PDU header.
#include <cstdint>

#include "layout/layout.h"
#include "records/forward_shared.h"
#include "fwd_common/tables.h"
#include "records/info_records.h"

namespace cs {
namespace {

// Feature Notification Message (3.7.2.3.2.12): RELEASE, then information records to the end.
struct FC_FNM {
  std::uint8_t RELEASE;
  PoolArray<FWD_USER_INFO_REC> INFO_RECs;
};

template <class W>
void layout(W& w, FC_FNM& r, const Ctx& c) {
  w(F(RELEASE, 1));
  w.list_to_end("INFO_RECs", "FWD_USER_INFO_REC", r.INFO_RECs, info_rec_capacity, c);
}

// Status Request Message (3.7.2.3.2.15). Four reserved bits lead the message on this channel
// (the traffic channel's Status Request Message has none). The qualification fields fill
// QUAL_INFO_LEN octets: type 1 names a band class, type 2 a band class and an operating mode;
// what a type does not use of its octets is reserved. The declared octets are one group with
// the fields they hold, so a message cut inside them reads none of them.
struct FC_STRQM {
  std::uint8_t QUAL_INFO_TYPE;
  std::uint8_t QUAL_INFO_LEN;
  std::uint8_t BAND_CLASS;
  std::uint8_t OP_MODE;
  std::uint8_t NUM_FIELDS;
  PoolArray<std::uint8_t> RECORD_TYPE;
};

template <class W>
void layout(W& w, FC_STRQM& r, const Ctx&) {
  w(reserved(4), F(QUAL_INFO_TYPE, 8), F(QUAL_INFO_LEN, 3));
  const std::uint32_t declared = 8u * r.QUAL_INFO_LEN;
  // A field is read only when the declared length holds it.
  const bool band = (r.QUAL_INFO_TYPE == 1 || r.QUAL_INFO_TYPE == 2) && declared >= 8;
  if (band && r.QUAL_INFO_TYPE == 2 && declared >= 16) {
    w(F(BAND_CLASS, 5), F(OP_MODE, 8), reserved(declared - 13));
  } else if (band) {
    w(F(BAND_CLASS, 5), reserved(declared - 5));
  } else {
    w(reserved(declared));
  }
  w(F(NUM_FIELDS, 4));
  w.scalars("RECORD_TYPE", r.RECORD_TYPE, r.NUM_FIELDS, 8);
}

// Service Redirection Message (3.7.2.3.2.16). REDIRECT_TYPE (NDSS) came with TIA/EIA-95-B.
// The record's type-specific fields fill RECORD_LEN octets; like every length-prefixed part,
// the walk moves on by the larger of the declared length and what the fields took.
struct FC_SRDM {
  std::uint8_t RETURN_IF_FAIL;
  std::uint8_t DELETE_TMSI;
  std::uint8_t REDIRECT_TYPE;
  std::uint8_t RECORD_TYPE;
  std::uint8_t RECORD_LEN;
  // RECORD_TYPE 1: redirection to an analog system
  std::uint16_t EXPECTED_SID;
  std::uint8_t IGNORE_CDMA;
  std::uint8_t SYS_ORDERING;
  std::uint8_t MAX_REDIRECT_DELAY;
  // RECORD_TYPE 2: redirection to a CDMA system (EXPECTED_SID above)
  std::uint8_t BAND_CLASS;
  std::uint16_t EXPECTED_NID;
  std::uint8_t NUM_CHANS;
  PoolArray<std::uint16_t> CDMA_CHAN;
};

enum RedirectRecord : std::uint8_t { kToAnalog = 1, kToCdma = 2 };

template <class W>
void layout(W& w, FC_SRDM& r, const Ctx& c) {
  w(F(RETURN_IF_FAIL, 1), F(DELETE_TMSI, 1));
  if (c.p_rev >= 4) w(F(REDIRECT_TYPE, 1));
  w(F(RECORD_TYPE, 8), F(RECORD_LEN, 8));
  const std::uint32_t declared = 8u * r.RECORD_LEN;
  std::uint32_t used = 0;
  switch (r.RECORD_TYPE) {
    case kToAnalog:
      w(F(EXPECTED_SID, 15), F(IGNORE_CDMA, 1), F(SYS_ORDERING, 3));
      used = 19;
      // The last five bits were reserved before TIA/EIA-95-B made them MAX_REDIRECT_DELAY.
      if (c.p_rev >= 4) {
        w(F(MAX_REDIRECT_DELAY, 5));
        used += 5;
      }
      break;
    case kToCdma:
      w(F(BAND_CLASS, 5), F(EXPECTED_SID, 15), F(EXPECTED_NID, 16), reserved(4), F(NUM_CHANS, 4));
      if (!w.scalars("CDMA_CHAN", r.CDMA_CHAN, r.NUM_CHANS, 11)) return;
      used = 44 + 11u * r.NUM_CHANS;
      break;
    default:
      break;   // an unknown record is skipped whole
  }
  if (used < declared) w(reserved(declared - used));
}

// PACA Message (3.7.2.3.2.20): seven reserved bits, then the queue report.
struct FC_PACAM {
  std::uint8_t PURPOSE;
  std::uint8_t Q_POS;
  std::uint8_t PACA_TIMEOUT;
};

template <class W>
void layout(W& w, FC_PACAM& r, const Ctx&) {
  w(reserved(7), F(PURPOSE, 4), F(Q_POS, 8), F(PACA_TIMEOUT, 3));
}

// Security Mode Command Message (3.7.2.3.2.34). The message integrity fields arrived with
// P_REV 9; Releases D and E add nothing to the message.
struct FC_SMCM {
  std::uint8_t C_SIG_ENCRYPT_MODE;
  std::uint8_t ENC_KEY_SIZE;
  std::uint8_t MSG_INT_INFO_INCL;
  std::uint8_t CHANGE_KEYS;
  std::uint8_t USE_UAK;
};

template <class W>
void layout(W& w, FC_SMCM& r, const Ctx& c) {
  w(F(C_SIG_ENCRYPT_MODE, 3));
  if (r.C_SIG_ENCRYPT_MODE != 0) w(F(ENC_KEY_SIZE, 3));
  if (c.p_rev < 9) return;
  w(F(MSG_INT_INFO_INCL, 1));
  if (r.MSG_INT_INFO_INCL) w(F(CHANGE_KEYS, 1), F(USE_UAK, 1));
}

}  // namespace

Rows paging_addressed_rows() {
  // The User Zone Reject Message goes to the broadcast PDU, which has no body for it; the
  // Authentication Request Message lies beyond the dispatch's types.
  static constexpr MessageRow rows[] = {
      {9, "DBM", body_ops<fwd::DataBurst>(), kAddressedPdu, kAddressedSdu},
      {10, "AUCM", body_ops<fwd::AuthChallenge>(), kAddressedPdu, kAddressedSdu},
      {11, "SSDUM", body_ops<fwd::SsdUpdate>(), kAddressedPdu, kAddressedSdu},
      {12, "FNM", body_ops<FC_FNM>(), kAddressedPdu, kAddressedSdu},
      {15, "STRQM", body_ops<FC_STRQM>(), kAddressedPdu, kAddressedSdu},
      {16, "SRDM", body_ops<FC_SRDM>(), kAddressedPdu, kAddressedSdu},
      {19, "TASM", body_ops<fwd::TmsiAssignment>(), kAddressedPdu, kAddressedSdu},
      {20, "PACAM", body_ops<FC_PACAM>(), kAddressedPdu, kAddressedSdu},
      {28, "UZRM", body_ops<fwd::UserZoneReject>(), kBroadcastPdu, kAddressedSdu},
      {34, "SMCM", body_ops<FC_SMCM>(), kAddressedPdu, kAddressedSdu},
      {44, "AUREQM", body_ops<fwd::AuthRequest>(), kSilent, kAddressedSdu},
  };
  return rows;
}

}  // namespace cs
