// Short data bursts (BURST_TYPE 6): a packet data service instance's data sent in a Data Burst
// Message instead of on a traffic channel. The burst begins with the service reference
// identifier of the packet data service instance; the octets that follow are its data.
#include "layout/layout.h"
#include "sms/sms.h"

namespace cs {
namespace {

struct SDBMessage {
  std::uint8_t sr_id;
  PoolArray<std::uint8_t> payload;
};
template <class W>
void layout(W& w, SDBMessage& r, const Ctx&) {
  w(F(sr_id, 3), reserved(5));
  // The payload is every octet left (the printer shows the octets the reader kept).
  w.scalars("payload", r.payload, static_cast<std::uint32_t>(w.left() / 8), 8);
}

}  // namespace

Rc sdb_contents(Text& t, unsigned indent, const std::uint8_t* data, std::size_t n, const Ctx& c, Arena& arena) {
  auto* rec = arena.alloc<SDBMessage>(1);
  const Rc rc = decode(*rec, c, arena, data, n, 0, 8u * std::uint64_t{n});
  if (rc == Rc::ok) print(*rec, c, "SDBMessage", indent, t);
  return rc;
}

}  // namespace cs
