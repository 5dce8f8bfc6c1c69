#include "rev_traffic/pdu.h"

#include "rev_traffic/tables.h"

namespace cs {

namespace {

// Messages of the channel that only have a name here.
constexpr MessageRow kNamedRows[] = {
    {56, "ACK", {}, 0, 0}, {57, "RESET", {}, 0, 0}, {58, "RRMM", {}, 0, 0}, {59, "ERRMM", {}, 0, 0},
    {60, "RRRMM", {}, 0, 0},
};

}  // namespace

const MessageTable& rd_messages() {
  static const MessageTable table("RD_", "OVN_RDTCH_MSG_TYPE_",
                                  {kNamedRows, rd_order_rows(), rd_inforec_rows(), rd_pilot_rows(), rd_call_rows(),
                                   rd_security_rows()});
  return table;
}

// The detail text starts two spaces in, as on the access channel; the bodies see the reverse
// link (data-burst contents are read in the mobile-to-base direction).
namespace {
const TrafficLink kLink{rd_messages, "RD_PDU", 2, false};
}  // namespace

Rc run_rev_traffic(RevTrafficState& st, Call& call) { return run_traffic_pdu(st.pdu, kLink, call); }

Rc peer_rev_traffic(RevTrafficState& st, Call& call, CompactOut& out, bool partial) {
  return peer_traffic_pdu(st.pdu, kLink, call, out, partial);
}

}  // namespace cs
