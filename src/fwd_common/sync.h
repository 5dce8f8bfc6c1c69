// Sync channel: the Sync Channel Message.
#pragma once
#include <cstdint>

#include "codec/walk.h"
#include "layout/call.h"
#include "layout/table.h"

namespace cs {

struct FC_SCHM {
  std::uint8_t P_REV, MIN_P_REV;
  std::uint16_t SID, NID, PILOT_PN;
  Bytes LC_STATE, SYS_TIME;
  std::uint8_t LP_SEC, LTM_OFF, DAYLT, PRAT;
  std::uint16_t CDMA_FREQ, EXT_CDMA_FREQ;
  std::uint8_t SR1_BCCH_NON_TD_INCL, SR1_NON_TD_FREQ_INCL;
  std::uint16_t SR1_CDMA_FREQ_NON_TD;
  std::uint8_t SR1_BRAT_NON_TD, SR1_CRAT_NON_TD, SR1_BCCH_CODE_CHAN_NON_TD;
  std::uint8_t SR1_TD_INCL;
  std::uint16_t SR1_CDMA_FREQ_TD;
  std::uint8_t SR1_BRAT_TD, SR1_CRAT_TD, SR1_BCCH_CODE_CHAN_TD, SR1_TD_MODE, SR1_TD_POWER_LEVEL;
  std::uint8_t SR3_INCL, SR3_CENTER_FREQ_INCL;
  std::uint16_t SR3_CENTER_FREQ;
  std::uint8_t SR3_BRAT, SR3_BCCH_CODE_CHAN, SR3_PRIMARY_PILOT, SR3_PILOT_POWER1, SR3_PILOT_POWER2;
  std::uint8_t DS_INCL;
  std::uint32_t DS_BLOB;
};

struct SyncState {
  FC_SCHM rec;
};

// Decodes the message after its type octet and prints it at indent 0.
Rc run_sync(SyncState& st, Call& call);

// The channel's message table.
const MessageTable& sync_messages();

// The record alone, for tests and tools: decode over `avail` bits from `start`.
Rc decode_sync(FC_SCHM& r, const Ctx& c, Arena& a, const std::uint8_t* buf, std::size_t n, std::uint64_t start,
               std::uint64_t avail, std::uint64_t* consumed);

}  // namespace cs
