#include "text/compact_walk.h"

namespace cs {

namespace {

// The layer-2 acknowledgement fields, in every record that carries them: the PDUs of the
// paging, access and traffic channels, each assignment record of a (Extended) Channel
// Assignment PDU, and the first stage of the paging channel's order path. The traffic PDUs
// carry no VALID_ACK.
constexpr std::string_view kAck[] = {"ACK_SEQ", "MSG_SEQ", "ACK_REQ", "VALID_ACK"};
// Channel assignments: the mode, and for mode 0 of the Extended Channel Assignment (the only
// mode-0 record with radio configurations) the fundamental channel's configurations and its
// target frame error rate.
constexpr std::string_view kAssign[] = {"ASSIGN_MODE"};
constexpr std::string_view kAssignMode0[] = {"FOR_FCH_RC", "REV_FCH_RC", "FPC_FCH_FER"};
// Service configuration record (C.S0005 3.7.5.7): the radio configurations of the
// fundamental and dedicated control channels, and three lists.
constexpr std::string_view kScr[] = {"FOR_FCH_RC", "REV_FCH_RC", "FOR_DCCH_RC", "REV_DCCH_RC"};
constexpr std::string_view kConRec[] = {"SERVICE_OPTION"};
constexpr std::string_view kForSch[] = {"FOR_SCH_ID"};
constexpr std::string_view kRevSch[] = {"REV_SCH_ID"};

struct Row {
  std::string_view header;
  CompactScope scope;
};

constexpr Row kRows[] = {
    {"FC_PCH_PDU", {kAck, false}},
    {"FC_PCH_CAM_PDU_AssignmentRecords", {kAck, false}},
    {"FC_PCH_ECAM_PDU_ExtChanAssignRecord", {kAck, false}},
    {"L2_ARQ_FIELDS", {kAck, false}},
    {"RC_PDU", {kAck, false}},
    {"FD_PDU", {kAck, false}},
    {"RD_PDU", {kAck, false}},
    {"FC_CAM", {kAssign, false}},
    {"FC_ECAM", {kAssign, false}},
    {"FC_ECAM_ECAM_ASSIGN_MODE_000", {kAssignMode0, false}},
    {"SCR", {kScr, false}},
    {"SCR_CON_RECs", {kConRec, true}},
    {"SCR_FOR_SCHs", {kForSch, true}},
    {"SCR_REV_SCHs", {kRevSch, true}},
};

}  // namespace

const CompactScope* compact_scope(std::string_view header) {
  for (const Row& r : kRows)
    if (r.header == header) return &r.scope;
  return nullptr;
}

}  // namespace cs
