// Access channel messages of the security procedures (C.S0005 2.7.1.3.2): Security Mode
// Request, Authentication Response, Authentication Resynchronization, and the Radio
// Environment Message.
//
// No public source at hand gives the widths of their fields, so each is refused as a whole
// (result 1) rather than guessed; the PDU around it still decodes and prints.
#include "layout/layout.h"
#include "rev_access/tables.h"

namespace cs {
namespace {

struct RC_SMRM {};
template <class W>
void layout(W& w, RC_SMRM&, const Ctx&) {
  w.reject(Rc::count);
}

}  // namespace

Rows rc_security_rows() {
  static constexpr MessageRow rows[] = {
      {14, "SMRM", body_ops<RC_SMRM>()},
      {21, "AURSPM", body_ops<RC_SMRM>()},
      {22, "AURSYNM", body_ops<RC_SMRM>()},
      {24, "REM", body_ops<RC_SMRM>()},
  };
  return rows;
}

}  // namespace cs
