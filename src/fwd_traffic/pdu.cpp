#include "fwd_traffic/pdu.h"

#include "layout/layout.h"
#include "fwd_traffic/tables.h"

namespace cs {

namespace {

// Messages of the channel that only have a name here.
constexpr MessageRow kNamedRows[] = {{0, "NULL", {}, 0, 0}, {56, "ACK", {}, 0, 0}, {57, "RESET", {}, 0, 0}};

}  // namespace

const MessageTable& fd_messages() {
  static const MessageTable table("FD_", "OVN_FDTCH_MSG_TYPE_",
                                  {kNamedRows, fd_order_rows(), fd_handoff_rows(), fd_inforec_rows(),
                                   fd_search_rows(), fd_power_rows(), fd_message_rows()});
  return table;
}

template <class W>
void layout(W& w, FdPdu& r, const Ctx& c) {
  w(F(MSG_TYPE, 8));
  w(F(ACK_SEQ, 3), F(MSG_SEQ, 3), F(ACK_REQ, 1));
  w(F(ENCRYPTION, 2));
  if (c.p_rev >= 9) {
    w(F(MACI_INCL, 1));
    if (r.MACI_INCL) {
      w(F(SDU_KEY_ID, 2), F(SDU_INTEGRITY_ALGO, 3), F(SDU_SSEQ_OR_SSEQH, 1));
      if (r.SDU_SSEQ_OR_SSEQH) {
        w(F(SDU_SSEQ_H, 24));
      } else {
        w(F(SDU_SSEQ, 8));
      }
    }
  }
  // Below P_REV 9 MACI_INCL is not on the air: the value the last P_REV 9 message left
  // steers this test, on purpose.
  if (c.p_rev >= 7 && r.ENCRYPTION == 3) {
    w(F(SDU_ENCRYPT_MODE, 3));
    if ((r.SDU_ENCRYPT_MODE == 1 || r.SDU_ENCRYPT_MODE == 2) && r.MACI_INCL == 0) w(F(ENC_SEQ, 8));
  }

  Ctx body_ctx = c;
  body_ctx.encryption = r.ENCRYPTION;
  body_ctx.msg_type = r.MSG_TYPE;
  const MessageTable::Entry* e = fd_messages().find(r.MSG_TYPE);
  if (!w.body(e ? e->label.c_str() : "SDU", fd_messages().body(r.MSG_TYPE), r.body, body_ctx)) return;

  // Octet padding: not checked against the end; only the MACI read behind it is.
  w.align(8, 0);
  if (c.p_rev >= 9 && r.MACI_INCL) w(F(MACI, 32));
}

Rc run_fwd_traffic(FwdTrafficState& st, Call& call) {
  FdPdu& r = st.pdu;
  // The header scalars persist from the previous message; the body lived in that call's
  // arena and starts afresh.
  r.body = AnyRec{nullptr, nullptr};
  Ctx c;
  c.p_rev = call.p_rev;
  c.band_class = call.band_class;
  const Rc rc = decode(r, c, call.arena, call.msg, call.len, 0, call.avail);
  // A decode that stopped before the body still shows the body of MSG_TYPE, as a record
  // that nothing has filled.
  if (r.body.rec == nullptr) {
    if (const BodyOps* ops = fd_messages().body(r.MSG_TYPE)) r.body = AnyRec{ops, call.arena.raw(ops->size, alignof(std::max_align_t))};
  }
  print(r, c, "FD_PDU", 0, call.text);
  return rc;
}

}  // namespace cs
