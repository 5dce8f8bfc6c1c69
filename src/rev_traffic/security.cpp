// Reverse traffic messages of authentication and message protection (C.S0005 2.7.2.3.2): the
// answer to a unique challenge (2), the security mode request (31), and the AKA
// resynchronization (42) and response (43).
#include "layout/layout.h"
#include "rev_traffic/message_parts.h"
#include "rev_traffic/tables.h"

namespace cs {
namespace {

using namespace rd_parts;

// ---- Authentication Challenge Response Message (2) ----------------------------------------

struct RD_AUCRM {
  u32 AUTHU;
};

template <class W>
void layout(W& w, RD_AUCRM& r, const Ctx&) {
  w(F(AUTHU, 18));
}

// ---- Security Mode Request Message (31) ---------------------------------------------------

// One service option connection whose user information the mobile station wants enciphered.
struct SmrmRec {
  u8 CON_REF, UI_ENCRYPT_REQ;
};

template <class W>
void layout(W& w, SmrmRec& r, const Ctx&) {
  w(F(CON_REF, 8), F(UI_ENCRYPT_REQ, 1));
}

// Release A: the encryption the mobile station supports and asks for, user information per
// connection (NUM_RECS + 1 records) and signalling, with a new crypto-sync; from Release C the
// message integrity it supports and asks for.
struct RD_SMRM {
  u8 UI_ENC_INCL, UI_ENCRYPT_SUP, NUM_RECS;
  PoolArray<SmrmRec> RECs;
  u8 SIG_ENC_INCL, SIG_ENCRYPT_SUP, D_SIG_ENCRYPT_REQ, NEW_SSEQ_H_INCL;
  u32 NEW_SSEQ_H;
  u8 NEW_SSEQ_H_SIG, MSG_INT_INFO_INCL, SIG_INTEGRITY_SUP_INCL, SIG_INTEGRITY_SUP, SIG_INTEGRITY_REQ;
};

template <class W>
void layout(W& w, RD_SMRM& r, const Ctx& c) {
  w(F(UI_ENC_INCL, 1));
  if (r.UI_ENC_INCL) {
    w(F(UI_ENCRYPT_SUP, 8), F(NUM_RECS, 3));
    if (!w.records("RECs", r.RECs, r.NUM_RECS + 1u, c)) return;
  }
  w(F(SIG_ENC_INCL, 1));
  if (r.SIG_ENC_INCL) w(F(SIG_ENCRYPT_SUP, 8), F(D_SIG_ENCRYPT_REQ, 1));
  w(F(NEW_SSEQ_H_INCL, 1));
  if (r.NEW_SSEQ_H_INCL) w(F(NEW_SSEQ_H, 24), F(NEW_SSEQ_H_SIG, 8));
  if (c.p_rev < kRelC) return;
  w(F(MSG_INT_INFO_INCL, 1));
  if (!r.MSG_INT_INFO_INCL) return;
  w(F(SIG_INTEGRITY_SUP_INCL, 1));
  if (r.SIG_INTEGRITY_SUP_INCL) w(F(SIG_INTEGRITY_SUP, 8), F(SIG_INTEGRITY_REQ, 3));
}

// ---- Authentication Resynchronization Message (42) ----------------------------------------

// The concealed sequence number of the mobile station and its message authentication code.
struct RD_AURSYNM {
  Bytes CON_MS_SQN, MAC_S;
};

template <class W>
void layout(W& w, RD_AURSYNM& r, const Ctx&) {
  w(F(CON_MS_SQN, 48), F(MAC_S, 64));
}

// ---- Authentication Response Message (43) -------------------------------------------------

// The AKA response, the message integrity the mobile station supports and asks for, the key
// it will use and the high part of its security sequence number.
struct RD_AURSPM {
  Bytes RES;
  u8 SIG_INTEGRITY_SUP_INCL, SIG_INTEGRITY_SUP, SIG_INTEGRITY_REQ, NEW_KEY_ID;
  u32 NEW_SSEQ_H;
};

template <class W>
void layout(W& w, RD_AURSPM& r, const Ctx&) {
  w(F(RES, 128), F(SIG_INTEGRITY_SUP_INCL, 1));
  if (r.SIG_INTEGRITY_SUP_INCL) w(F(SIG_INTEGRITY_SUP, 8), F(SIG_INTEGRITY_REQ, 3));
  w(F(NEW_KEY_ID, 2), F(NEW_SSEQ_H, 24));
}

}  // namespace

Rows rd_security_rows() {
  static constexpr MessageRow rows[] = {
      {2, "AUCRM", body_ops<RD_AUCRM>()},
      {31, "SMRM", body_ops<RD_SMRM>()},
      {42, "AURSYNM", body_ops<RD_AURSYNM>()},
      {43, "AURSPM", body_ops<RD_AURSPM>()},
  };
  return rows;
}

}  // namespace cs
