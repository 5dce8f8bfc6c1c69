// The paging / forward common channel's message table, by the families that declare its rows.
#pragma once
#include <cstdint>

#include "layout/table.h"

namespace cs {

// Where the channel's dispatch sends a message type (MessageRow::route).
enum PagingRoute : std::uint8_t {
  kSilent,         // nothing is decoded or printed
  kBroadcastPdu,   // FC_PCH_BC__PBCCH_PDU
  kOrderPath,      // the three-stage order path
  kCamPdu,         // FC_PCH_CAM_PDU
  kAddressedPdu,   // FC_PCH_PDU
  kGeneralPage,    // the General Page path
  kEcamPdu,        // FC_PCH_ECAM_PDU
};

// Which PDU carries the body as its SDU (MessageRow::carrier).
enum PagingCarrier : std::uint8_t { kNoSdu, kBroadcastSdu, kAddressedSdu, kAssignSdu };

Rows paging_overhead_param_rows();   // SPM, APM, ESPM, A41SPM, MCRRPM, A41RANDM, EAPM
Rows paging_overhead_list_rows();    // neighbour and channel lists, redirection, user zones
Rows paging_page_rows();             // SPGM, PGM, GPM
Rows paging_order_rows();            // ORDM
Rows paging_assign_rows();           // CAM, ECAM
Rows paging_addressed_rows();        // data burst, authentication, ... authentication request

// The page record of the General Page (header "L2_PAGE_RECORD").
const BodyOps* gpm_page_record_body();

// The whole table.
const MessageTable& paging_messages();

}  // namespace cs
