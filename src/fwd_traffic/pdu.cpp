#include "fwd_traffic/pdu.h"

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

namespace {
const TrafficLink kLink{fd_messages, "FD_PDU", 0, true};
}  // namespace

Rc run_fwd_traffic(FwdTrafficState& st, Call& call) { return run_traffic_pdu(st.pdu, kLink, call); }

Rc peer_fwd_traffic(FwdTrafficState& st, Call& call, CompactOut& out, bool partial) {
  return peer_traffic_pdu(st.pdu, kLink, call, out, partial);
}

}  // namespace cs
