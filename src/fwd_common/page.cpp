// Page messages of the paging channel: the Slotted Page and Page Messages of TIA/EIA-95
// (pages addressed by MIN) and the page record of the General Page Message (C.S0005
// 3.7.2.3.2.17), which the General Page dispatcher walks one record at a time.
#include <cstdint>

#include "layout/layout.h"
#include "fwd_common/tables.h"

namespace cs {
namespace {

// ---------------------------------------------------------------------------------------------
// Slotted Page Message (type 5) and Page Message (type 6), TIA/EIA-95-A 7.7.2.3.2.4 and
// 7.7.2.3.2.5. Both carry a run of MIN-addressed pages up to the end of the message.

struct MinPage {
  std::uint8_t MSG_SEQ;
  std::uint8_t EXT_ADDR;
  std::uint32_t MIN1;
  std::uint16_t MIN2;
  std::uint8_t SPECIAL_SERVICE;
  std::uint16_t SERVICE_OPTION;
};

constexpr std::uint32_t kMinPageBits = 3 + 1 + 24 + 1;   // a page without MIN2 and service option

template <class W>
void layout(W& w, MinPage& r, const Ctx&) {
  w(F(MSG_SEQ, 3), F(EXT_ADDR, 1), F(MIN1, 24));
  if (r.EXT_ADDR) w(F(MIN2, 10));
  w(F(SPECIAL_SERVICE, 1));
  if (r.SPECIAL_SERVICE) w(F(SERVICE_OPTION, 16));
}

std::uint32_t min_page_capacity(std::uint64_t bits_left) {
  return static_cast<std::uint32_t>(bits_left / kMinPageBits + 1);
}

struct FC_SPGM {
  std::uint8_t CONFIG_MSG_SEQ;
  std::uint8_t ACC_MSG_SEQ;
  std::uint8_t MORE_PAGES;
  PoolArray<MinPage> PAGEs;
};

template <class W>
void layout(W& w, FC_SPGM& r, const Ctx& c) {
  w(F(CONFIG_MSG_SEQ, 6), F(ACC_MSG_SEQ, 6), F(MORE_PAGES, 1));
  // The pages run to the end; the 0..7 padding bits after the last one never make a page.
  w.list_to_end("PAGEs", r.PAGEs, min_page_capacity, c);
}

// The Page Message has no MORE_PAGES flag: it is sent in every slot of a non-slotted paging
// channel, so there is nothing to announce.
struct FC_PGM {
  std::uint8_t CONFIG_MSG_SEQ;
  std::uint8_t ACC_MSG_SEQ;
  PoolArray<MinPage> PAGEs;
};

template <class W>
void layout(W& w, FC_PGM& r, const Ctx& c) {
  w(F(CONFIG_MSG_SEQ, 6), F(ACC_MSG_SEQ, 6));
  w.list_to_end("PAGEs", r.PAGEs, min_page_capacity, c);
}

// ---------------------------------------------------------------------------------------------
// One page record of the General Page Message. PAGE_CLASS picks the address kind (0 IMSI
// class 0, 1 IMSI class 1, 2 TMSI, 3 broadcast) and PAGE_SUBCLASS its form; the broadcast
// class has PAGE_SUBCLASS_EXT behind every subclass but the plain broadcast page. The
// address forms follow the page class fields of C.S0004 3.1.2.2.1.1.1 (IS-2000 Release A on,
// a superset of the IS-95-B record), the service fields those of C.S0005 3.7.2.3.2.17.

struct L2_PAGE_RECORD {
  std::uint8_t PAGE_CLASS;
  std::uint8_t PAGE_SUBCLASS;
  std::uint8_t PAGE_SUBCLASS_EXT;
  std::uint8_t MSG_SEQ;
  std::uint8_t IMSI_ADDR_NUM;
  std::uint16_t MCC;
  std::uint8_t IMSI_11_12;
  Bytes IMSI_S;
  std::uint8_t TMSI_ZONE_LEN;
  Bytes TMSI_ZONE;
  std::uint32_t TMSI_CODE_ADDR_32;
  std::uint32_t TMSI_CODE_ADDR_24;
  std::uint16_t TMSI_CODE_ADDR_16;
  std::uint8_t SPECIAL_SERVICE;
  std::uint16_t SERVICE_OPTION;
  std::uint8_t BURST_TYPE;
  std::uint8_t ADDR_LEN;
  Bytes BC_ADDR;
  std::uint8_t LENGTH;
  std::uint8_t EXT_BCAST_SDU_LENGTH_IND;
  std::uint8_t EXT_BCAST_SDU_LENGTH;
  Bytes SDU;
};

enum PageClass : std::uint8_t { kImsiClass0 = 0, kImsiClass1 = 1, kTmsi = 2, kBroadcast = 3 };

// The IMSI of a class 0 or class 1 page: MCC and IMSI_11_12 as the subclass says, then the
// 34-bit IMSI_S kept as a 5-octet string for the digit annotation.
template <class W>
void imsi_fields(W& w, L2_PAGE_RECORD& r, bool with_mcc, bool with_11_12) {
  if (with_mcc) w(F(MCC, 10));
  if (with_11_12) w(F(IMSI_11_12, 7));
  w(F(IMSI_S, 34));
}

template <class W>
void tmsi_fields(W& w, L2_PAGE_RECORD& r) {
  switch (r.PAGE_SUBCLASS) {
    case 0:
      w(F(TMSI_CODE_ADDR_32, 32));
      break;
    case 1:
      w(F(TMSI_CODE_ADDR_24, 24));
      break;
    case 2:
      w(F(TMSI_CODE_ADDR_16, 16));
      break;
    default:
      w(F(TMSI_ZONE_LEN, 4));
      if (r.TMSI_ZONE_LEN) w(F(TMSI_ZONE, 8u * r.TMSI_ZONE_LEN));
      w(F(TMSI_CODE_ADDR_32, 32));
      break;
  }
}

// BURST_TYPE and the broadcast address, shared by the broadcast and enhanced broadcast pages.
template <class W>
void broadcast_address(W& w, L2_PAGE_RECORD& r) {
  w(F(BURST_TYPE, 6), F(ADDR_LEN, 4));
  if (r.ADDR_LEN) w(F(BC_ADDR, 8u * r.ADDR_LEN));
}

// Reserved broadcast forms whose length the page class table fixes, so that a mobile station
// can step over them: subclass 1 mirrors the TMSI forms (32, 24 and 16 bits; extension 3 is
// length-prefixed), subclass 2 extensions 0 to 2 take 32, 68 and 76 bits. 0: no length known.
constexpr std::uint32_t reserved_broadcast_bits(std::uint8_t subclass, std::uint8_t ext) {
  constexpr std::uint32_t kSub1[4] = {32, 24, 16, 0};
  constexpr std::uint32_t kSub2[4] = {32, 68, 76, 0};
  return subclass == 1 ? kSub1[ext & 3] : subclass == 2 ? kSub2[ext & 3] : 0;
}

template <class W>
void broadcast_fields(W& w, L2_PAGE_RECORD& r) {
  if (r.PAGE_SUBCLASS == 0) {   // broadcast page: the address only, no service is asked for
    broadcast_address(w, r);
    return;
  }
  if (r.PAGE_SUBCLASS == 3) {
    if (r.PAGE_SUBCLASS_EXT != 0) {
      // Reserved extensions of the enhanced form have no length: the record's end is unknown.
      (void)w.reject(Rc::count);
      return;
    }
    // Enhanced broadcast page: the address, then an SDU of 13 or 18 bits (odd indicator: the
    // longer form), extended by EXT_BCAST_SDU_LENGTH octets when the indicator is 0 or 1.
    broadcast_address(w, r);
    w(F(EXT_BCAST_SDU_LENGTH_IND, 2));
    const bool extended = r.EXT_BCAST_SDU_LENGTH_IND <= 1;
    if (extended) w(F(EXT_BCAST_SDU_LENGTH, 4));
    const std::uint32_t sdu =
        ((r.EXT_BCAST_SDU_LENGTH_IND & 1) ? 18u : 13u) + (extended ? 8u * r.EXT_BCAST_SDU_LENGTH : 0u);
    w(F(SDU, sdu));
    return;
  }
  if (r.PAGE_SUBCLASS == 1 && r.PAGE_SUBCLASS_EXT == 3) {
    w(F(LENGTH, 4));
    const std::uint32_t bits = 8u * r.LENGTH + 32u;
    w(reserved(bits));
    return;
  }
  const std::uint32_t bits = reserved_broadcast_bits(r.PAGE_SUBCLASS, r.PAGE_SUBCLASS_EXT);
  if (bits == 0) {
    (void)w.reject(Rc::count);
    return;
  }
  // reserved: neither kept nor shown
  w(reserved(bits));
}

template <class W>
void layout(W& w, L2_PAGE_RECORD& r, const Ctx&) {
  w(F(PAGE_CLASS, 2), F(PAGE_SUBCLASS, 2));
  // Every broadcast subclass but the plain page carries the extension. The extended forms
  // came with IS-2000 Release A, but they fit the IS-95-B record (its broadcast subclasses
  // 1 to 3 were reserved), so the same layout serves every revision.
  if (r.PAGE_CLASS == kBroadcast && r.PAGE_SUBCLASS != 0) w(F(PAGE_SUBCLASS_EXT, 2));

  switch (r.PAGE_CLASS) {
    case kImsiClass0:
      w(F(MSG_SEQ, 3));
      // Subclass bit 1 brings the MCC, bit 0 the IMSI_11_12.
      imsi_fields(w, r, (r.PAGE_SUBCLASS & 2) != 0, (r.PAGE_SUBCLASS & 1) != 0);
      break;
    case kImsiClass1:
      w(F(MSG_SEQ, 3));
      // Subclasses 2 and 3 are reserved address forms that carry no address fields; the
      // sequence number and the service fields frame them like any mobile-addressed page.
      if (r.PAGE_SUBCLASS <= 1) {
        w(F(IMSI_ADDR_NUM, 3));
        imsi_fields(w, r, r.PAGE_SUBCLASS == 1, true);
      }
      break;
    case kTmsi:
      w(F(MSG_SEQ, 3));
      tmsi_fields(w, r);
      break;
    default:
      broadcast_fields(w, r);
      return;   // broadcast pages carry no MSG_SEQ and no service request
  }

  w(F(SPECIAL_SERVICE, 1));
  if (r.SPECIAL_SERVICE) w(F(SERVICE_OPTION, 16));
}

}  // namespace

Rows paging_page_rows() {
  // The General Page Message has a path of its own: its records are not a message body.
  static constexpr MessageRow rows[] = {
      {5, "SPGM", body_ops<FC_SPGM>(), kBroadcastPdu, kBroadcastSdu},
      {6, "PGM", body_ops<FC_PGM>(), kBroadcastPdu, kBroadcastSdu},
      {17, "GPM", {}, kGeneralPage, kNoSdu},
  };
  return rows;
}

const BodyOps* gpm_page_record_body() {
  static constexpr BodyOps ops = body_ops<L2_PAGE_RECORD>("L2_PAGE_RECORD");
  return &ops;
}

}  // namespace cs
