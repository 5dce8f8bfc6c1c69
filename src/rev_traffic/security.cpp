// Reverse traffic messages of authentication and message protection (C.S0005 2.7.2.3.2): the
// answer to a unique challenge (2), the security mode request (31), and the AKA
// resynchronization (42) and response (43).
#include "layout/layout.h"
#include "records/reverse_shared.h"
#include "rev_traffic/message_parts.h"
#include "rev_traffic/tables.h"

namespace cs {
namespace {

using namespace rd_parts;

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
  if (r.MSG_INT_INFO_INCL) rev::sig_integrity(w, r);
}

}  // namespace

Rows rd_security_rows() {
  static constexpr MessageRow rows[] = {
      {2, "AUCRM", body_ops<rev::AuthChallengeResponse>()},
      {31, "SMRM", body_ops<RD_SMRM>()},
      {42, "AURSYNM", body_ops<rev::AuthResync>()},
      {43, "AURSPM", body_ops<rev::AuthResponse>()},
  };
  return rows;
}

}  // namespace cs
