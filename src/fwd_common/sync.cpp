#include "fwd_common/sync.h"

#include <cstring>

#include "layout/layout.h"

namespace cs {

// P_REV in the presence rules is the message's own field; band_class is the caller's.
template <class W>
void layout(W& w, FC_SCHM& r, const Ctx& c) {
  w(F(P_REV, 8), F(MIN_P_REV, 8), F(SID, 15), F(NID, 16), F(PILOT_PN, 9), F(LC_STATE, 42), F(SYS_TIME, 36),
    F(LP_SEC, 8), F(LTM_OFF, 6), F(DAYLT, 1), F(PRAT, 2));
  // CDMA_FREQ existed on the PCS bands before it existed everywhere.
  if (pcs_band(c.band_class) || (c.band_class == 0 && r.P_REV >= 3)) w(F(CDMA_FREQ, 11));
  if (r.P_REV >= 6) w(F(EXT_CDMA_FREQ, 11));
  if (r.P_REV < 7) return;

  w(F(SR1_BCCH_NON_TD_INCL, 1));
  if (r.SR1_BCCH_NON_TD_INCL) {
    w(F(SR1_NON_TD_FREQ_INCL, 1));
    if (r.SR1_NON_TD_FREQ_INCL) w(F(SR1_CDMA_FREQ_NON_TD, 11));
    w(F(SR1_BRAT_NON_TD, 2), F(SR1_CRAT_NON_TD, 1), F(SR1_BCCH_CODE_CHAN_NON_TD, 6));
  }
  w(F(SR1_TD_INCL, 1));
  if (r.SR1_TD_INCL) {
    w(F(SR1_CDMA_FREQ_TD, 11), F(SR1_BRAT_TD, 2), F(SR1_CRAT_TD, 1), F(SR1_BCCH_CODE_CHAN_TD, 6), F(SR1_TD_MODE, 2),
      F(SR1_TD_POWER_LEVEL, 2));
  }
  w(F(SR3_INCL, 1));
  if (r.SR3_INCL) {
    w(F(SR3_CENTER_FREQ_INCL, 1));
    if (r.SR3_CENTER_FREQ_INCL) w(F(SR3_CENTER_FREQ, 11));
    w(F(SR3_BRAT, 2), F(SR3_BCCH_CODE_CHAN, 7), F(SR3_PRIMARY_PILOT, 2), F(SR3_PILOT_POWER1, 3),
      F(SR3_PILOT_POWER2, 3));
  }
  w(F(DS_INCL, 1));
  if (r.DS_INCL) w(F(DS_BLOB, 24));
}

const MessageTable& sync_messages() {
  static constexpr MessageRow rows[] = {{1, "SCHM", body_ops<FC_SCHM>(), 0, 0}};
  static const MessageTable table("FC_", "OVN_SCH_MSG_ID_", {rows});
  return table;
}

Rc decode_sync(FC_SCHM& r, const Ctx& c, Arena& a, const std::uint8_t* buf, std::size_t n, std::uint64_t start,
               std::uint64_t avail, std::uint64_t* consumed) {
  return decode(r, c, a, buf, n, start, avail, consumed);
}


Rc run_sync(SyncState& st, Call& call) {
  // The record holds arena pointers, which do not outlive a call: start every message clean.
  std::memset(&st.rec, 0, sizeof st.rec);
  Ctx c;
  c.p_rev = call.p_rev;
  c.band_class = call.band_class;
  // The message proper starts after the type octet.
  const std::uint8_t* body = call.len > 0 ? call.msg + 1 : call.msg;
  const std::size_t n = call.len > 0 ? call.len - 1 : 0;
  const Rc rc = decode_sync(st.rec, c, call.arena, body, n, 0, call.avail, nullptr);
  emit(call, st.rec, c, "FC_SCHM", 0);
  return rc;
}

}  // namespace cs
