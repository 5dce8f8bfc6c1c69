// The forward traffic channel's message table, by the families that declare its rows.
#pragma once
#include "layout/table.h"

namespace cs {

Rows fd_order_rows();     // ORDRM
Rows fd_handoff_rows();   // HDM, EHDM, SCM, GHDM, UHDM, ESCAM
Rows fd_inforec_rows();   // AWIM, FWIM, EAWIM, EFWIM
Rows fd_search_rows();    // ITSPM, NLUM, ENLUM, CFSRQM, CFSCNM
Rows fd_power_rows();     // PCNPM, SCAM, PCNM, PUFM, PUFCM, RAM, MABOPM, RATCHGM
Rows fd_message_rows();   // every other forward body

// The whole table.
const MessageTable& fd_messages();

}  // namespace cs
