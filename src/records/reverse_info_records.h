// Information records of the reverse channels (C.S0005 2.7.4): the records a mobile station
// sends in the Flash With Information, Extended Flash With Information and Status Response
// messages of the access and reverse traffic channels, its capability records among them.
// The framing (RECORD_TYPE, RECORD_LEN, the type-specific part, the list rules) is the one
// the forward records use; only the type table differs.
//
// Use inside a message layout:
//
//     rev_info_records(w, r.INFO_RECs, r.NUM_REC, c);     // a counted list
//     rev_info_records_to_end(w, r.INFO_RECs, c);         // records to the end of the message
#pragma once
#include <cstdint>

#include "records/info_records.h"

namespace cs {

// One record of a list: RECORD_TYPE, RECORD_LEN and the type-specific fields.
struct REV_USER_INFO_REC {
  std::uint8_t RECORD_TYPE;
  std::uint8_t RECORD_LEN;
  AnyRec TypeSpecificFields;   // null ops for a type without a decoder
};

// The type-specific part of a reverse record type ("TypeSpecificFields.<label>" and its
// BodyOps); both null for a type without a decoder.
InfoRecType rev_info_rec_type(std::uint8_t record_type);

template <class W>
void layout(W& w, REV_USER_INFO_REC& r, const Ctx& c) {
  info_rec_framing(w, r, rev_info_rec_type, c);
}

template <class W>
bool rev_info_records(W& w, PoolArray<REV_USER_INFO_REC>& a, std::uint32_t n, const Ctx& c) {
  return w.records("INFO_RECs", "REV_USER_INFO_REC", a, n, c);
}

template <class W>
bool rev_info_records_to_end(W& w, PoolArray<REV_USER_INFO_REC>& a, const Ctx& c) {
  return w.list_to_end("INFO_RECs", "REV_USER_INFO_REC", a, info_rec_capacity, c);
}

}  // namespace cs
