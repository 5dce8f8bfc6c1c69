#include "rev_traffic/pdu.h"

namespace cs {

namespace {

constexpr MessageRow kRows[] = {
    {1, "ORDM", {}, 0, 0}, {2, "AUCRM", {}, 0, 0}, {3, "FWIM", {}, 0, 0}, {4, "DBM", {}, 0, 0},
    {5, "PSMM", {}, 0, 0}, {6, "PMRM", {}, 0, 0}, {7, "BDTMFM", {}, 0, 0}, {8, "STM", {}, 0, 0},
    {9, "ORCM", {}, 0, 0}, {10, "HOCM", {}, 0, 0}, {11, "PRSM", {}, 0, 0}, {12, "SRQM", {}, 0, 0},
    {13, "SRPM", {}, 0, 0}, {14, "SCCM", {}, 0, 0}, {15, "SOCM", {}, 0, 0}, {16, "STRPM", {}, 0, 0},
    {17, "TACM", {}, 0, 0}, {18, "SCRM", {}, 0, 0}, {19, "CFSRSM", {}, 0, 0}, {20, "CFSRPM", {}, 0, 0},
    {21, "PPSMM", {}, 0, 0}, {22, "OLRM", {}, 0, 0}, {23, "RRM", {}, 0, 0}, {24, "ERRM", {}, 0, 0},
    {26, "EOM", {}, 0, 0}, {27, "EFWIM", {}, 0, 0}, {28, "EPSMM", {}, 0, 0}, {29, "EHOCM", {}, 0, 0},
    {30, "RRRM", {}, 0, 0}, {31, "SMRM", {}, 0, 0}, {34, "UZURM", {}, 0, 0}, {35, "CLCM", {}, 0, 0},
    {36, "DIM", {}, 0, 0}, {40, "BSSREQM", {}, 0, 0}, {41, "COTRM", {}, 0, 0}, {42, "AURSYNM", {}, 0, 0},
    {43, "AURSPM", {}, 0, 0}, {44, "ITBSPMRM", {}, 0, 0}, {56, "ACK", {}, 0, 0}, {57, "RESET", {}, 0, 0},
    {58, "RRMM", {}, 0, 0}, {59, "ERRMM", {}, 0, 0}, {60, "RRRMM", {}, 0, 0},
};

}  // namespace

const MessageTable& rd_messages() {
  static const MessageTable table("RD_", "OVN_RDTCH_MSG_TYPE_", {kRows});
  return table;
}

// Not decoded yet: no text; a message too short to hold its type octet still reports it.
Rc run_rev_traffic(RevTrafficState&, Call& call) { return call.avail < 8 ? Rc::short_msg : Rc::ok; }

}  // namespace cs
