// Access channel messages of the security procedures (C.S0005 2.7.1.3.2): Security Mode
// Request, Authentication Response (AKA), Authentication Resynchronization, and the Radio
// Environment Message.
#include "layout/layout.h"
#include "records/reverse_shared.h"
#include "rev_access/tables.h"

namespace cs {
namespace {

using u8 = std::uint8_t;
using u32 = std::uint32_t;

// --- Security Mode Request Message ---------------------------------------------------------
// Each group behind its inclusion bit: user information encryption supported, signalling
// encryption supported with the request for the common channels, a new crypto-sync seed and
// its signature, and the message integrity request.
struct RC_SMRM {
  u8 UI_ENC_INCL, UI_ENCRYPT_SUP, SIG_ENC_INCL, SIG_ENCRYPT_SUP, C_SIG_ENCRYPT_REQ, NEW_SSEQ_H_INCL;
  u32 NEW_SSEQ_H;
  u8 NEW_SSEQ_H_SIG, MSG_INT_INFO_INCL, SIG_INTEGRITY_SUP_INCL, SIG_INTEGRITY_SUP, SIG_INTEGRITY_REQ;
};
template <class W>
void layout(W& w, RC_SMRM& r, const Ctx&) {
  w(F(UI_ENC_INCL, 1));
  if (r.UI_ENC_INCL) w(F(UI_ENCRYPT_SUP, 8));
  w(F(SIG_ENC_INCL, 1));
  if (r.SIG_ENC_INCL) w(F(SIG_ENCRYPT_SUP, 8), F(C_SIG_ENCRYPT_REQ, 1));
  w(F(NEW_SSEQ_H_INCL, 1));
  if (r.NEW_SSEQ_H_INCL) w(F(NEW_SSEQ_H, 24), F(NEW_SSEQ_H_SIG, 8));
  w(F(MSG_INT_INFO_INCL, 1));
  if (r.MSG_INT_INFO_INCL) rev::sig_integrity(w, r);
}

// --- Radio Environment Message -------------------------------------------------------------
// The report itself travels in the PDU's radio environment report; the body says whether
// the reporting mode and the tracking zone mode are in force.
struct RC_REM {
  u8 MODE_DISABLED, TKZ_MODE_IND;
};
template <class W>
void layout(W& w, RC_REM& r, const Ctx&) {
  w(F(MODE_DISABLED, 1), F(TKZ_MODE_IND, 1));
}

}  // namespace

Rows rc_security_rows() {
  static constexpr MessageRow rows[] = {
      {14, "SMRM", body_ops<RC_SMRM>()},
      {21, "AURSPM", body_ops<rev::AuthResponse>()},
      {22, "AURSYNM", body_ops<rev::AuthResync>()},
      {24, "REM", body_ops<RC_REM>()},
  };
  return rows;
}

}  // namespace cs
