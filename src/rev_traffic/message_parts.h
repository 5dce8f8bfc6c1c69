// Pieces the reverse traffic message families share: revision thresholds and the auxiliary
// pilot record of the pilot reports.
// Not for other channels.
#pragma once
#include <cstdint>

#include "codec/walk.h"

namespace cs::rd_parts {

using u8 = std::uint8_t;
using u16 = std::uint16_t;
using u32 = std::uint32_t;

// P_REV values at which revisions of the standard start.
inline constexpr u8 kRel0 = 6;   // IS-2000 Release 0
inline constexpr u8 kRelA = 7;
inline constexpr u8 kRelC = 9;
inline constexpr u8 kRelD = 10;

// The number of fixed-width elements that fit in the bits left, for lists whose count is
// not sent (they run to the end of the message). Printing uses the count decoded.
template <class W>
u32 fit(W& w, unsigned width) {
  return static_cast<u32>(w.left() / width);
}

// Capacity of a list of records of at least kMinBits bits that runs to the end of the
// message: as many as could fit, plus one.
template <unsigned kMinBits>
u32 to_end_capacity(std::uint64_t bits_left) {
  return static_cast<u32>(bits_left / kMinBits + 1);
}

// The identity of an auxiliary pilot in a pilot report (Release A on): PILOT_REC_INCL, then the
// record type, its length in octets and, for type '000', the pilot's quasi-orthogonal function
// and Walsh code (WALSH_LENGTH + 6 bits). The walk moves on by RECORD_LEN octets whatever the
// type; reserved types carry nothing known.
struct PilotRec {
  u8 PILOT_REC_INCL, PILOT_REC_TYPE, RECORD_LEN, QOF, WALSH_LENGTH;
  u16 PILOT_WALSH;
};

// The record's fields, its inclusion flag and type named as the message names them.
template <class W>
void pilot_rec(W& w, PilotRec& r, const char* incl_name, const char* type_name) {
  w(field(r.PILOT_REC_INCL, incl_name, 1));
  if (!r.PILOT_REC_INCL) return;
  w(field(r.PILOT_REC_TYPE, type_name, 3), F(RECORD_LEN, 3));
  // The declared octets are part of the message, whatever the type reads of them.
  if (!w.need(8u * r.RECORD_LEN)) return;
  auto end = w.declared_end();
  end.at(8u * r.RECORD_LEN);
  if (r.PILOT_REC_TYPE != 0) return;
  w(F(QOF, 2), F(WALSH_LENGTH, 3));
  w(F(PILOT_WALSH, r.WALSH_LENGTH + 6u));
}

template <class W>
void layout(W& w, PilotRec& r, const Ctx&) {
  pilot_rec(w, r, "PILOT_REC_INCL", "PILOT_REC_TYPE");
}

}  // namespace cs::rd_parts
