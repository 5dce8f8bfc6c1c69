// Message bodies of the paging / forward common channel, by the families that own them.
// Each lookup returns null for an id its family does not decode.
#pragma once
#include <cstdint>

#include "codec/walk.h"

namespace cs {

// Broadcast overhead messages (SPM, APM, ESPM, ... BSPM), by MSG_ID.
const BodyOps* overhead_body(std::uint8_t msg_id);        // parameter messages; falls back to the lists
const BodyOps* overhead_list_body(std::uint8_t msg_id);   // neighbour / channel lists, redirection, user zones

// Page messages: FC_SPGM (5) and FC_PGM (6), and the page record of the General Page.
const BodyOps* page_body(std::uint8_t msg_id);
const BodyOps* gpm_page_record_body();                    // header "L2_PAGE_RECORD"

// Bodies of the addressed PDU (data burst, authentication challenge, ... authentication request).
const BodyOps* addressed_body(std::uint8_t msg_id);

// Channel assignments: FC_CAM and FC_ECAM bodies.
const BodyOps* cam_body();
const BodyOps* ecam_body();

// The order body FC_ORDM.
const BodyOps* fc_order_body();

}  // namespace cs
