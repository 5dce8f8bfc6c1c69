// Forward traffic messages that carry information records (C.S0005 3.7.3.3.2):
// Alert With Information (3) and Flash With Information (14), whose records run to the end
// of the message, and their extended forms (40, 42) with a connection reference and a count.
#include "layout/layout.h"
#include "fwd_traffic/tables.h"
#include "records/info_records.h"

namespace cs {
namespace {

// FD_AWIM and FD_FWIM: the same layout under two headers.
struct FD_AWIM {
  PoolArray<FWD_USER_INFO_REC> INFO_RECs;
};
template <class W>
void layout(W& w, FD_AWIM& r, const Ctx& c) {
  w.list_to_end("INFO_RECs", "FWD_USER_INFO_REC", r.INFO_RECs, info_rec_capacity, c);
}

// FD_EAWIM and FD_EFWIM: the same layout under two headers.
struct FD_EAWIM {
  std::uint8_t CON_REF_INCL;
  std::uint8_t CON_REF;
  std::uint8_t NUM_REC;
  PoolArray<FWD_USER_INFO_REC> INFO_RECs;
};
template <class W>
void layout(W& w, FD_EAWIM& r, const Ctx& c) {
  w(F(CON_REF_INCL, 1));
  if (r.CON_REF_INCL) w(F(CON_REF, 8));
  w(F(NUM_REC, 4));
  w.records("INFO_RECs", "FWD_USER_INFO_REC", r.INFO_RECs, r.NUM_REC, c);
}

}  // namespace

Rows fd_inforec_rows() {
  static constexpr MessageRow rows[] = {
      {3, "AWIM", body_ops<FD_AWIM>()},
      {14, "FWIM", body_ops<FD_AWIM>()},
      {40, "EAWIM", body_ops<FD_EAWIM>()},
      {42, "EFWIM", body_ops<FD_EAWIM>()},
  };
  return rows;
}

}  // namespace cs
