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

}  // namespace cs::fwd
