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

// The qualification information of the Status Response and Extended Status Response
// Messages of both reverse channels and of the Base Station Status Request Message:
// QUAL_INFO_TYPE, then QUAL_INFO_LEN octets of type-specific fields (a band class, or a band
// class and an operating mode, then reserved bits). The walk moves on by QUAL_INFO_LEN octets
// whatever the type, so a type with no fields here is passed over. Its fields print among the
// carrying message's own: the group has no record name of its own.
struct QualInfo {
  std::uint8_t QUAL_INFO_TYPE, QUAL_INFO_LEN, BAND_CLASS, OP_MODE;
};

template <class W>
void layout(W& w, QualInfo& r, const Ctx&) {
  w(F(QUAL_INFO_TYPE, 8), F(QUAL_INFO_LEN, 3));
  // The declared octets are part of the message: one cut inside them is short, whatever the
  // type reads of them.
  if (!w.need(8u * r.QUAL_INFO_LEN)) return;
  auto end = w.declared_end();
  end.at(8u * r.QUAL_INFO_LEN);
  // The fields must fit the declared length: a type whose fields it cannot hold carries none.
  if (r.QUAL_INFO_TYPE == 1 && r.QUAL_INFO_LEN >= 1) {
    w(F(BAND_CLASS, 5));
  } else if (r.QUAL_INFO_TYPE == 2 && r.QUAL_INFO_LEN >= 2) {
    w(F(BAND_CLASS, 5), F(OP_MODE, 8));
  }
}

// Channel capability groups the mobile station reports in the Origination and Page Response
// messages and in the Channel Configuration Capability Information record: the frame sizes
// and the radio configurations it supports on each channel (C.S0005 FCH, DCCH and F-PDCH
// type-specific fields). An RC map holds 3 bits per length unit; a length of 0 sends none.
template <class W, class R>
void fch_capability(W& w, R& r) {
  w(F(FCH_FRAME_SIZE, 1), F(FOR_FCH_LEN, 3));
  if (r.FOR_FCH_LEN) w(F(FOR_FCH_RC_MAP, 3u * r.FOR_FCH_LEN));
  w(F(REV_FCH_LEN, 3));
  if (r.REV_FCH_LEN) w(F(REV_FCH_RC_MAP, 3u * r.REV_FCH_LEN));
}

template <class W, class R>
void dcch_capability(W& w, R& r) {
  w(F(DCCH_FRAME_SIZE, 2), F(FOR_DCCH_LEN, 3));
  if (r.FOR_DCCH_LEN) w(F(FOR_DCCH_RC_MAP, 3u * r.FOR_DCCH_LEN));
  w(F(REV_DCCH_LEN, 3));
  if (r.REV_DCCH_LEN) w(F(REV_DCCH_RC_MAP, 3u * r.REV_DCCH_LEN));
}

// The F-PDCH lengths count from one: a map of LEN + 1 units.
template <class W, class R>
void for_pdch_capability(W& w, R& r) {
  w(F(ACK_DELAY, 1), F(NUM_ARQ_CHAN, 2), F(FOR_PDCH_LEN, 2));
  w(F(FOR_PDCH_RC_MAP, 3u * (r.FOR_PDCH_LEN + 1u)));
  w(F(CH_CONFIG_SUP_MAP_LEN, 2));
  w(F(CH_CONFIG_SUP_MAP, 3u * (r.CH_CONFIG_SUP_MAP_LEN + 1u)));
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
