// Information records of the forward channels (C.S0005 3.7.5): the record framing that
// messages carrying a record list share (Alert With Information, Flash With Information and
// their extended forms, Feature Notification), with the type-specific part chosen at run time.
//
// Use inside a message layout:
//
//     w.records("INFO_RECs", "FWD_USER_INFO_REC", r.INFO_RECs, r.NUM_REC, c);
//     w.list_to_end("INFO_RECs", "FWD_USER_INFO_REC", r.INFO_RECs, info_rec_capacity, c);
//
// Ctx::encryption carries the PDU's ENCRYPTION, Ctx::p_rev selects revision-dependent fields.
#pragma once
#include <cstdint>

#include "codec/walk.h"

namespace cs {

// One record of a list: RECORD_TYPE, RECORD_LEN and the type-specific fields.
struct FWD_USER_INFO_REC {
  std::uint8_t RECORD_TYPE;
  std::uint8_t RECORD_LEN;
  AnyRec TypeSpecificFields;   // null ops for a type without a decoder
};

// The type-specific part of a forward record type: the label printed before it
// ("TypeSpecificFields.DISP") and its BodyOps; both null for a type without a decoder.
struct InfoRecType {
  const char* label;
  const BodyOps* ops;
};
InfoRecType fwd_info_rec_type(std::uint8_t record_type);

// Decryption hook for an encrypted record, called before its type-specific part is decoded,
// with the record's RECORD_TYPE and RECORD_LEN read. It returns the number of bits it
// deciphered from `body_pos` on; the walk then resumes that many bits after the start of the
// type-specific part. Records are not enciphered by this library: the hook leaves the record
// alone and returns 0, so the part is decoded as sent.
std::uint32_t decrypt_info_rec(std::uint8_t band_class, std::uint8_t record_type, std::uint8_t record_len,
                               std::uint64_t body_pos, std::uint8_t encryption);

// Capacity of a record list that runs to the end of a message, from the bits left: a record
// is at least 24 bits. The quotient is kept in 8 bits and so is the sum, on purpose: with
// 6120..6143 bits left (quotient 255) the capacity wraps to 0 and no record is read.
inline std::uint32_t info_rec_capacity(std::uint64_t bits_left) {
  const auto q = static_cast<std::uint8_t>(bits_left / 24);
  return static_cast<std::uint8_t>(q + 1);
}

namespace info_rec_detail {
// Carries the type-specific part through a length-bounded walk (decoding only).
struct Part {
  const char* label;
  const BodyOps* ops;
  AnyRec* rec;
};
template <class W>
void layout(W& w, Part& p, const Ctx& c) {
  w.body(p.label, p.ops, *p.rec, c);
}
}  // namespace info_rec_detail

// The framing every information record list shares, forward and reverse: RECORD_TYPE,
// RECORD_LEN, then the type-specific part that `type_of` names for the type.
template <class W, class Rec, class TypeOf>
void info_rec_framing(W& w, Rec& r, TypeOf type_of, const Ctx& c) {
  w(F(RECORD_TYPE, 8), F(RECORD_LEN, 8));
  const InfoRecType t = type_of(r.RECORD_TYPE);

  if constexpr (W::kReading) {
    // Decoding only: deciphering happens on the bits, before the type-specific part is read;
    // the printer just shows the record that came out of it. The walk ends at least at the
    // end of the deciphered span; one shorter than what was read leaves the position where
    // the decoder put it.
    auto deciphered_end = w.declared_end();
    const std::uint32_t deciphered =
        c.encryption != 0 ? decrypt_info_rec(c.band_class, r.RECORD_TYPE, r.RECORD_LEN, w.pos(), c.encryption) : 0;

    // The type-specific decoder is handed RECORD_LEN octets; the walk then moves on by the
    // larger of those and what it read, so octets it does not know are skipped. A type
    // without a decoder skips nothing: the next record starts at this record's first body
    // octet (kept that way on purpose).
    if (t.ops != nullptr) {
      info_rec_detail::Part part{t.label, t.ops, &r.TypeSpecificFields};
      w.sized(t.label, t.ops->header, part, 8u * r.RECORD_LEN, c);
    }
    deciphered_end.at(deciphered);
  } else {
    // Printing shows the part directly under its label; the length bound above is a
    // decoding matter and would otherwise print as an extra nesting level.
    if (t.ops != nullptr) w.body(t.label, t.ops, r.TypeSpecificFields, c);
  }
}

template <class W>
void layout(W& w, FWD_USER_INFO_REC& r, const Ctx& c) {
  info_rec_framing(w, r, fwd_info_rec_type, c);
}

}  // namespace cs
