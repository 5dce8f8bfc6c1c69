// Page messages of the paging channel: the Slotted Page and Page Messages of TIA/EIA-95
// (pages addressed by MIN) and the page record of the General Page Message (C.S0005
// 3.7.2.3.2.17), which the General Page dispatcher walks one record at a time.
#include <cstdint>

#include "codec/layout.h"
#include "fwd_common/bodies.h"

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
  if (!w.need(28)) return;
  w.u(r.MSG_SEQ, "MSG_SEQ", 3);
  w.u(r.EXT_ADDR, "EXT_ADDR", 1);
  w.u(r.MIN1, "MIN1", 24);
  if (r.EXT_ADDR) {
    if (!w.need(10)) return;
    w.u(r.MIN2, "MIN2", 10);
  }
  if (!w.need(1)) return;
  w.u(r.SPECIAL_SERVICE, "SPECIAL_SERVICE", 1);
  if (r.SPECIAL_SERVICE) {
    if (!w.need(16)) return;
    w.u(r.SERVICE_OPTION, "SERVICE_OPTION", 16);
  }
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
  if (!w.need(13)) return;
  w.u(r.CONFIG_MSG_SEQ, "CONFIG_MSG_SEQ", 6);
  w.u(r.ACC_MSG_SEQ, "ACC_MSG_SEQ", 6);
  w.u(r.MORE_PAGES, "MORE_PAGES", 1);
  // The pages run to the end; the 0..7 padding bits after the last one never make a page.
  w.list_to_end("PAGEs", "FC_SPGM_PAGEs", r.PAGEs, min_page_capacity, c);
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
  if (!w.need(12)) return;
  w.u(r.CONFIG_MSG_SEQ, "CONFIG_MSG_SEQ", 6);
  w.u(r.ACC_MSG_SEQ, "ACC_MSG_SEQ", 6);
  w.list_to_end("PAGEs", "FC_PGM_PAGEs", r.PAGEs, min_page_capacity, c);
}

// ---------------------------------------------------------------------------------------------
// One page record of the General Page Message. PAGE_CLASS picks the address kind (0 IMSI
// class 0, 1 IMSI class 1, 2 TMSI, 3 broadcast) and PAGE_SUBCLASS its form.

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
};

enum PageClass : std::uint8_t { kImsiClass0 = 0, kImsiClass1 = 1, kTmsi = 2, kBroadcast = 3 };

// The IMSI of a class 0 or class 1 page: MCC and IMSI_11_12 as the subclass says, then the
// 34-bit IMSI_S kept as a 5-octet string for the digit annotation.
template <class W>
void imsi_fields(W& w, L2_PAGE_RECORD& r, bool with_mcc, bool with_11_12) {
  if (with_mcc) {
    if (!w.need(10)) return;
    w.u(r.MCC, "MCC", 10);
  }
  if (with_11_12) {
    if (!w.need(7)) return;
    w.u(r.IMSI_11_12, "IMSI_11_12", 7);
  }
  if (!w.need(34)) return;
  w.bits(r.IMSI_S, "IMSI_S", 34);
}

template <class W>
void layout(W& w, L2_PAGE_RECORD& r, const Ctx& c) {
  if (!w.need(4)) return;
  w.u(r.PAGE_CLASS, "PAGE_CLASS", 2);
  w.u(r.PAGE_SUBCLASS, "PAGE_SUBCLASS", 2);
  // Class 3 subclass 3 opens the extended subclasses from IS-2000 Release A on.
  const bool extended = r.PAGE_CLASS == kBroadcast && r.PAGE_SUBCLASS == 3 && c.p_rev >= 7;
  if (extended) {
    if (!w.need(2)) return;
    w.u(r.PAGE_SUBCLASS_EXT, "PAGE_SUBCLASS_EXT", 2);
  }

  switch (r.PAGE_CLASS) {
    case kImsiClass0:
      if (!w.need(3)) return;
      w.u(r.MSG_SEQ, "MSG_SEQ", 3);
      // Subclass bit 1 brings the MCC, bit 0 the IMSI_11_12.
      imsi_fields(w, r, (r.PAGE_SUBCLASS & 2) != 0, (r.PAGE_SUBCLASS & 1) != 0);
      break;
    case kImsiClass1:
      if (r.PAGE_SUBCLASS > 1) {
        // Reserved subclasses have no layout, so the record's end cannot be found.
        (void)w.reject(Rc::count);
        return;
      }
      if (!w.need(6)) return;
      w.u(r.MSG_SEQ, "MSG_SEQ", 3);
      w.u(r.IMSI_ADDR_NUM, "IMSI_ADDR_NUM", 3);
      imsi_fields(w, r, r.PAGE_SUBCLASS == 1, true);
      break;
    case kTmsi:
      if (!w.need(3)) return;
      w.u(r.MSG_SEQ, "MSG_SEQ", 3);
      switch (r.PAGE_SUBCLASS) {
        case 0:
          if (!w.need(32)) return;
          w.u(r.TMSI_CODE_ADDR_32, "TMSI_CODE_ADDR_32", 32);
          break;
        case 1:
          if (!w.need(24)) return;
          w.u(r.TMSI_CODE_ADDR_24, "TMSI_CODE_ADDR_24", 24);
          break;
        case 2:
          if (!w.need(16)) return;
          w.u(r.TMSI_CODE_ADDR_16, "TMSI_CODE_ADDR_16", 16);
          break;
        default:
          if (!w.need(4)) return;
          w.u(r.TMSI_ZONE_LEN, "TMSI_ZONE_LEN", 4);
          if (r.TMSI_ZONE_LEN) {
            if (!w.need(8u * r.TMSI_ZONE_LEN)) return;
            w.bits(r.TMSI_ZONE, "TMSI_ZONE", 8u * r.TMSI_ZONE_LEN);
          }
          if (!w.need(32)) return;
          w.u(r.TMSI_CODE_ADDR_32, "TMSI_CODE_ADDR_32", 32);
          break;
      }
      break;
    default:
      if (r.PAGE_SUBCLASS != 0) {
        // Only the plain broadcast page (subclass 0) has a layout this decoder knows; the
        // others cannot be delimited.
        (void)w.reject(Rc::count);
        return;
      }
      if (!w.need(10)) return;
      w.u(r.BURST_TYPE, "BURST_TYPE", 6);
      w.u(r.ADDR_LEN, "ADDR_LEN", 4);
      if (r.ADDR_LEN) {
        if (!w.need(8u * r.ADDR_LEN)) return;
        w.bits(r.BC_ADDR, "BC_ADDR", 8u * r.ADDR_LEN);
      }
      return;   // a broadcast page asks for no service
  }

  if (!w.need(1)) return;
  w.u(r.SPECIAL_SERVICE, "SPECIAL_SERVICE", 1);
  if (r.SPECIAL_SERVICE) {
    if (!w.need(16)) return;
    w.u(r.SERVICE_OPTION, "SERVICE_OPTION", 16);
  }
}

constexpr BodyOps kSpgm = body_ops<FC_SPGM>("FC_SPGM");
constexpr BodyOps kPgm = body_ops<FC_PGM>("FC_PGM");
constexpr BodyOps kGpmPageRecord = body_ops<L2_PAGE_RECORD>("L2_PAGE_RECORD");

}  // namespace

const BodyOps* page_body(std::uint8_t msg_id) {
  switch (msg_id) {
    case 5: return &kSpgm;
    case 6: return &kPgm;
    default: return nullptr;
  }
}

const BodyOps* gpm_page_record_body() { return &kGpmPageRecord; }

}  // namespace cs
