// Message bodies whose layout is the same on the access channel and on the reverse traffic
// channel (C.S0005 2.7.1.3.2 and 2.7.2.3.2). Each channel registers them under its own header
// line (RC_AUCRM, RD_AUCRM, ...).
#pragma once
#include <cstdint>

#include "codec/walk.h"
#include "records/reverse_info_records.h"

namespace cs::rev {

// Authentication Challenge Response Message: the answer to a unique challenge.
struct AuthChallengeResponse {
  std::uint32_t AUTHU;
};

template <class W>
void layout(W& w, AuthChallengeResponse& r, const Ctx&) {
  w(F(AUTHU, 18));
}

// Status Response Message: the qualification the Status Request asked with, then the records
// asked for, to the end of the message.
struct StatusResponse {
  QualInfo QUAL_INFO;
  PoolArray<REV_USER_INFO_REC> INFO_RECs;
};

template <class W>
void layout(W& w, StatusResponse& r, const Ctx& c) {
  layout(w, r.QUAL_INFO, c);
  rev_info_records_to_end(w, r.INFO_RECs, c);
}

// TMSI Assignment Completion Message (and the access channel's PACA Cancel Message): the
// message type says it all; the body has no fields.
struct NoFields {};

template <class W>
void layout(W&, NoFields&, const Ctx&) {}

// Device Information Message: the wireless local loop device type and a counted list of
// information records.
struct DeviceInformation {
  std::uint8_t WLL_DEVICE_TYPE, NUM_INFO_RECORDS;
  PoolArray<REV_USER_INFO_REC> INFO_RECs;
};

template <class W>
void layout(W& w, DeviceInformation& r, const Ctx& c) {
  w(F(WLL_DEVICE_TYPE, 3), F(NUM_INFO_RECORDS, 5));
  rev_info_records(w, r.INFO_RECs, r.NUM_INFO_RECORDS, c);
}

// Signalling message integrity the mobile station supports and the algorithm it asks for.
template <class W, class R>
void sig_integrity(W& w, R& r) {
  w(F(SIG_INTEGRITY_SUP_INCL, 1));
  if (r.SIG_INTEGRITY_SUP_INCL) w(F(SIG_INTEGRITY_SUP, 8), F(SIG_INTEGRITY_REQ, 3));
}

// Authentication Response Message (AKA): the response RES, the integrity algorithms, the key
// the mobile station will use and the high part of its security sequence number.
struct AuthResponse {
  Bytes RES;
  std::uint8_t SIG_INTEGRITY_SUP_INCL, SIG_INTEGRITY_SUP, SIG_INTEGRITY_REQ, NEW_KEY_ID;
  std::uint32_t NEW_SSEQ_H;
};

template <class W>
void layout(W& w, AuthResponse& r, const Ctx&) {
  w(F(RES, 128));
  sig_integrity(w, r);
  w(F(NEW_KEY_ID, 2), F(NEW_SSEQ_H, 24));
}

// Authentication Resynchronization Message (AKA): the concealed sequence number of the mobile
// station and its message authentication code.
struct AuthResync {
  Bytes CON_MS_SQN, MAC_S;
};

template <class W>
void layout(W& w, AuthResync& r, const Ctx&) {
  w(F(CON_MS_SQN, 48), F(MAC_S, 64));
}

}  // namespace cs::rev
