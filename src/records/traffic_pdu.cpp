#include "records/traffic_pdu.h"

#include "layout/layout.h"

namespace cs {

namespace {

struct TrafficCtx : Ctx {
  const TrafficLink* link;
};

}  // namespace

template <class W>
void layout(W& w, TrafficPdu& r, const TrafficCtx& c) {
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
  const MessageTable& table = c.link->messages();
  const MessageTable::Entry* e = table.find(r.MSG_TYPE);
  if (!w.body(e ? e->label.c_str() : "SDU", table.body(r.MSG_TYPE), r.body, body_ctx)) return;

  // Octet padding: not checked against the end; only the MACI read behind it is.
  w.align(8, 0);
  if (c.p_rev >= 9 && r.MACI_INCL) w(F(MACI, 32));
}

namespace {

TrafficCtx traffic_ctx(const TrafficLink& link, const Call& call) {
  TrafficCtx c;
  c.p_rev = call.p_rev;
  c.band_class = call.band_class;
  c.forward = link.forward;
  c.link = &link;
  return c;
}

}  // namespace

Rc peer_traffic_pdu(TrafficPdu& r, const TrafficLink& link, Call& call, CompactOut& out, bool partial) {
  r.body = AnyRec{nullptr, nullptr};
  const TrafficCtx c = traffic_ctx(link, call);
  const Rc rc = decode(r, c, call.arena, call.msg, call.len, 0, call.avail);
  if (rc == Rc::ok || partial) CompactWalk::record(out, link.header, r, c);
  return rc;
}

Rc run_traffic_pdu(TrafficPdu& r, const TrafficLink& link, Call& call) {
  // The header scalars persist from the previous message; the body lived in that call's
  // arena and starts afresh.
  r.body = AnyRec{nullptr, nullptr};
  const TrafficCtx c = traffic_ctx(link, call);
  const Rc rc = decode(r, c, call.arena, call.msg, call.len, 0, call.avail);
  // A decode that stopped before the body still shows the body of MSG_TYPE, as a record
  // that nothing has filled.
  if (r.body.rec == nullptr) {
    if (const BodyOps* ops = link.messages().body(r.MSG_TYPE))
      r.body = AnyRec{ops, call.arena.raw(ops->size, alignof(std::max_align_t))};
  }
  emit(call, r, c, link.header, link.indent);
  return rc;
}

}  // namespace cs
