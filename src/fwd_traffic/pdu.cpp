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

Rc run_fwd_traffic(FwdTrafficState& st, Call& call) {
  static const TrafficLink link{fd_messages, "FD_PDU", 0, true};
  return run_traffic_pdu(st.pdu, link, call);
}

}  // namespace cs
