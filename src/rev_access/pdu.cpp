#include "rev_access/pdu.h"

namespace cs {

namespace {

constexpr MessageRow kRows[] = {
    {1, "RGM", {}, 0, 0}, {2, "ORDM", {}, 0, 0}, {3, "DBM", {}, 0, 0}, {4, "ORM", {}, 0, 0},
    {5, "PRM", {}, 0, 0}, {6, "AUCRM", {}, 0, 0}, {7, "STRPM", {}, 0, 0}, {8, "TACM", {}, 0, 0},
    {9, "PACNM", {}, 0, 0}, {10, "ESTRPM", {}, 0, 0}, {13, "DIM", {}, 0, 0}, {14, "SMRM", {}, 0, 0},
    {21, "AURSPM", {}, 0, 0}, {22, "AURSYNM", {}, 0, 0}, {23, "RCNM", {}, 0, 0}, {24, "REM", {}, 0, 0},
};

}  // namespace

const MessageTable& access_messages() {
  static const MessageTable table("RC_", "OVN_DACH_MSG_ID_", {kRows});
  return table;
}

// Not decoded yet: no text; a message too short to hold its type octet still reports it.
Rc run_access(AccessState&, Call& call) { return call.avail < 8 ? Rc::short_msg : Rc::ok; }

}  // namespace cs
