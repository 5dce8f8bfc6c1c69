// Service provisioning messages in data bursts: OTASP_MSG_TYPE and the message of that type in
// the carrying link's direction. A type the direction's table does not hold is shown alone,
// with no label, and the burst's remaining octets are left unread.
#include "otasp/otasp.h"

#include "layout/layout.h"
#include "otasp/tables.h"

namespace cs {
namespace ota {
namespace {

struct OtaData {
  std::uint8_t ota_msg_type;
  AnyRec msg;
};
struct OtaCtx : Ctx {
  OtaRows rows;   // the message table of the link direction
};
template <class W>
void layout(W& w, OtaData& r, const OtaCtx& c) {
  w(F(ota_msg_type, 8));
  if (const OtaRow* row = find_row(c.rows, r.ota_msg_type)) w.body(row->label, &row->body, r.msg, c);
}

}  // namespace

const OtaRow* find_row(OtaRows rows, std::uint8_t type) {
  for (const OtaRow& row : rows)
    if (row.type == type) return &row;
  return nullptr;
}

}  // namespace ota

Rc otasp_contents(Text& t, unsigned indent, const std::uint8_t* data, std::size_t n, const Ctx& c, Arena& arena) {
  ota::OtaCtx oc{c};
  oc.rows = c.forward ? ota::forward_rows() : ota::reverse_rows();
  auto* rec = arena.alloc<ota::OtaData>(1);
  const Rc rc = decode(*rec, oc, arena, data, n, 0, 8u * std::uint64_t{n});
  if (rc == Rc::ok) print(*rec, oc, c.forward ? "OTA_FWD_DATA" : "OTA_REV_DATA", indent, t);
  return rc;
}

}  // namespace cs
