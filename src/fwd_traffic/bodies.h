// Message bodies of the forward traffic channel, by the families that own them.
// Each lookup returns null for a MSG_TYPE its family does not decode.
#pragma once
#include <cstdint>

#include "codec/walk.h"

namespace cs {

const BodyOps* fd_order_body();                          // ORDRM (1), header "FD_ORDRM"
const BodyOps* fd_handoff_body(std::uint8_t msg_type);   // HDM, EHDM, GHDM, UHDM
const BodyOps* fd_inforec_body(std::uint8_t msg_type);   // AWIM, FWIM, EAWIM, EFWIM
const BodyOps* fd_message_body(std::uint8_t msg_type);   // every other forward body

}  // namespace cs
