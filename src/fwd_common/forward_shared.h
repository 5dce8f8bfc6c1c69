// Message bodies whose layout is the same on the paging channel and on the forward traffic
// channel (C.S0005 3.7.2.3.2 and 3.7.3.3.2). Each channel registers them under its own header
// line (FC_DBM, FD_DBM, ...).
#pragma once
#include <cstdint>

#include "codec/walk.h"

namespace cs::fwd {

// Data Burst Message. The characters are shown as sent; their contents are interpreted by the
// data-burst contents dispatcher where one applies.
struct DataBurst {
  std::uint8_t MSG_NUMBER;
  std::uint8_t BURST_TYPE;
  std::uint8_t NUM_MSGS;
  std::uint8_t NUM_FIELDS;
  PoolArray<std::uint8_t> CHARi;
};

template <class W>
void layout(W& w, DataBurst& r, const Ctx&) {
  if (!w.need(30)) return;
  w.u(r.MSG_NUMBER, "MSG_NUMBER", 8);
  w.u(r.BURST_TYPE, "BURST_TYPE", 6);
  w.u(r.NUM_MSGS, "NUM_MSGS", 8);
  w.u(r.NUM_FIELDS, "NUM_FIELDS", 8);
  w.scalars("CHARi", r.CHARi, r.NUM_FIELDS, 8);
}

// Authentication Challenge Message. GEN_CMEAKEY arrived with Release D.
struct AuthChallenge {
  std::uint32_t RANDU;
  std::uint8_t GEN_CMEAKEY;
};

template <class W>
void layout(W& w, AuthChallenge& r, const Ctx& c) {
  if (!w.need(24)) return;
  w.u(r.RANDU, "RANDU", 24);
  if (c.p_rev >= 10) {
    if (!w.need(1)) return;
    w.u(r.GEN_CMEAKEY, "GEN_CMEAKEY", 1);
  }
}

// SSD Update Message.
struct SsdUpdate {
  Bytes RANDSSD;
};

template <class W>
void layout(W& w, SsdUpdate& r, const Ctx&) {
  if (!w.need(56)) return;
  w.bits(r.RANDSSD, "RANDSSD", 56);
}

// Call rescue parameters of the neighbour list messages, from RESQ_DELAY_TIME through the
// per-neighbour NGHBR_RESQ_CONFIGURED flags (read when RESQ_ENABLED is 1). The traffic
// channel's neighbour list update carries no RESQ_NUM_PREAMBLE_RC1_RC2.
template <bool kRc1Rc2Preamble, class W, class R>
bool call_rescue(W& w, R& r) {
  if (!w.need(32)) return false;
  w.u(r.RESQ_DELAY_TIME, "RESQ_DELAY_TIME", 6);
  w.u(r.RESQ_ALLOWED_TIME, "RESQ_ALLOWED_TIME", 6);
  w.u(r.RESQ_ATTEMPT_TIME, "RESQ_ATTEMPT_TIME", 6);
  w.u(r.RESQ_CODE_CHAN, "RESQ_CODE_CHAN", 11);
  w.u(r.RESQ_QOF, "RESQ_QOF", 2);
  w.u(r.RESQ_MIN_PERIOD_INCL, "RESQ_MIN_PERIOD_INCL", 1);
  if (r.RESQ_MIN_PERIOD_INCL) {
    if (!w.need(5)) return false;
    w.u(r.RESQ_MIN_PERIOD, "RESQ_MIN_PERIOD", 5);
  }
  if (!w.need(1)) return false;
  w.u(r.RESQ_NUM_TOT_TRANS_INCL, "RESQ_NUM_TOT_TRANS_INCL", 1);
  if (r.RESQ_NUM_TOT_TRANS_INCL) {
    if (!w.need(8)) return false;
    w.u(r.RESQ_NUM_TOT_TRANS_20MS, "RESQ_NUM_TOT_TRANS_20MS", 4);
    w.u(r.RESQ_NUM_TOT_TRANS_5MS, "RESQ_NUM_TOT_TRANS_5MS", 4);
  }
  if constexpr (kRc1Rc2Preamble) {
    if (!w.need(3)) return false;
    w.u(r.RESQ_NUM_PREAMBLE_RC1_RC2, "RESQ_NUM_PREAMBLE_RC1_RC2", 3);
  }
  if (!w.need(6)) return false;
  w.u(r.RESQ_NUM_PREAMBLE, "RESQ_NUM_PREAMBLE", 3);
  w.u(r.RESQ_POWER_DELTA, "RESQ_POWER_DELTA", 3);
  return w.scalars("NGHBR_RESQ_CONFIGURED", r.NGHBR_RESQ_CONFIGURED, r.NUM_NGHBR, 1);
}

}  // namespace cs::fwd
