// Paging / forward common channel: the PDU kinds, the mobile address, and the dispatch of
// one message by its type (C.S0004 f-csch PDUs, C.S0005 message types).
#include "fwd_common/paging.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "layout/layout.h"
#include "fwd_common/tables.h"

namespace cs {

namespace {

// Messages of the channel that only have a name here.
constexpr MessageRow kNamedRows[] = {
    {0, "NULL", {}, kSilent, kNoSdu},           {35, "UPM_SEG_UN", {}, kSilent, kNoSdu},
    {36, "UPM_SEG_FIRST", {}, kSilent, kNoSdu}, {37, "UPM_SEG_MID", {}, kSilent, kNoSdu},
    {38, "UPM_SEG_FINAL", {}, kSilent, kNoSdu}, {39, "MAPSCHM", {}, kSilent, kNoSdu},
    {40, "MAPSIM", {}, kSilent, kNoSdu},        {41, "MAPL3M", {}, kSilent, kNoSdu},
    {42, "RTASM", {}, kSilent, kNoSdu},         {43, "MAPFRM", {}, kSilent, kNoSdu},
    // No public layout of the BCMC Service Parameters Message is known; it shows its PDU only.
    {45, "BSPM", {}, kSilent, kBroadcastSdu},
};

// The SDU of a PDU kind: its label and body, when the message type has one there.
struct Sdu {
  const char* label = nullptr;
  const BodyOps* ops = nullptr;
};
Sdu sdu_of(std::uint8_t msg_id, PagingCarrier carrier) {
  const MessageTable::Entry* e = paging_messages().find(msg_id);
  if (e == nullptr || e->row->carrier != carrier) return {};
  return {e->label.c_str(), e->ops.decode ? &e->ops : nullptr};
}

// The broadcast PDU's context: whether it shows every broadcast message it has a layout for
// (the User Zone Reject's body among them), or only those of the C interface's dispatch.
struct BroadcastCtx : Ctx {
  bool all;
};

Sdu broadcast_sdu(std::uint8_t msg_id, bool all) {
  const Sdu sdu = sdu_of(msg_id, kBroadcastSdu);
  if (sdu.label || !all) return sdu;
  const MessageTable::Entry* e = paging_messages().find(msg_id);
  if (e == nullptr || e->row->route != kBroadcastPdu || !e->ops.decode) return {};
  return {e->label.c_str(), &e->ops};
}

// The assignment PDUs size their record array from the bits left (45 bits per CAM record,
// 49 per ECAM record, plus one) and then clamp it to a single record: only the first
// assignment record of a PDU is ever decoded.
std::uint32_t one_record(std::uint64_t left, std::uint64_t record_bits) {
  return static_cast<std::uint32_t>(std::min<std::uint64_t>(left / record_bits + 1, 1));
}

}  // namespace

// ---------------------------------------------------------------------------------------
// Address field

// IMSI address (C.S0004 IMSI address field): class, type, then by type the reserved bits that
// keep IMSI_S on an octet boundary from the start of the address, MCC and IMSI_11_12 as the
// type says, and the 34-bit IMSI_S. Each form is one group, IMSI_S included.
template <class W>
void imsi_address(W& w, FC_ADDRESS& r) {
  w(F(IMSI_CLASS, 1));
  if (r.IMSI_CLASS == 0) {
    w(F(IMSI_CLASS_0_TYPE, 2));
    switch (r.IMSI_CLASS_0_TYPE) {
      case 0: w(reserved(3), F(IMSI_S, 34)); break;
      case 1: w(reserved(4), F(IMSI_11_12, 7), F(IMSI_S, 34)); break;
      case 2: w(reserved(1), F(MCC, 10), F(IMSI_S, 34)); break;
      default: w(reserved(2), F(MCC, 10), F(IMSI_11_12, 7), F(IMSI_S, 34)); break;
    }
    return;
  }
  w(F(IMSI_CLASS_1_TYPE, 1));
  if (r.IMSI_CLASS_1_TYPE == 0) {
    w(reserved(2), F(IMSI_ADDR_NUM, 3), F(IMSI_11_12, 7), F(IMSI_S, 34));
  } else {
    w(F(IMSI_ADDR_NUM, 3), F(MCC, 10), F(IMSI_11_12, 7), F(IMSI_S, 34));
  }
}

template <class W>
void layout(W& w, FC_ADDRESS& r, const Ctx&) {
  const std::uint32_t octets = r.len;
  switch (r.type) {
    case 0:
      // IMSI_S as its two halves; the 6 bits that fill the fifth octet are reserved.
      w(F(IMSI_M_S1, 24), F(IMSI_M_S2, 10), reserved(6));
      return;
    case 1:
      w(F(ESN, 8 * octets));
      return;
    case 2:
      imsi_address(w, r);
      return;
    case 3:
      // Up to four octets are the code alone; a longer address leads with the zone.
      if (octets < 5) {
        w(F(TMSI_CODE_ADDR, 8 * octets));
      } else {
        w(F(TMSI_ZONE, 8 * octets - 32), F(TMSI_CODE_ADDR, 32));
      }
      return;
    case 4:
      // Extended address: only the MEID form carries digits here; the length counts the
      // octet of EXT_ADDR_TYPE, whether or not that octet was on the air.
      if (r.ext_type == 0) {
        const std::uint32_t meid_bits = octets > 0 ? 8 * (octets - 1) : 0;
        w(F(MEID, meid_bits));
      }
      return;
    case 5:
      w(F(BC_ADDR, 8 * octets));
      return;
    default:
      return;
  }
}

// ---------------------------------------------------------------------------------------
// Link-layer fields

template <class W>
void layout(W& w, L2_ARQ_FIELDS& r, const Ctx&) {
  w(F(ACK_SEQ, 3), F(MSG_SEQ, 3), F(ACK_REQ, 1), F(VALID_ACK, 1));
}

// ADDR_TYPE, ADDR_LEN and the address. `extended_form` says whether ADDR_TYPE 4 brings the
// EXT_ADDR_TYPE octet: the PDUs know that octet from P_REV 11 on, the order path always.
// The walk moves past the address by the larger of what its form took and ADDR_LEN octets
// (less the EXT_ADDR_TYPE octet when that was sent): a short form is padded out to its
// declared length, and the IMSI_S form takes its 40 bits whatever ADDR_LEN says.
template <class W>
void addressing(W& w, L2_ADDRESSING_FIELDS& r, bool extended_form, const Ctx& c) {
  w(F(ADDR_TYPE, 3), F(ADDR_LEN, 4));
  const bool extended = extended_form && r.ADDR_TYPE == 4;
  std::uint64_t declared = 8u * r.ADDR_LEN;
  if (extended) {
    w(F(EXT_ADDR_TYPE, 3), F(RESERVED, 5));
    declared = declared >= 8 ? declared - 8 : 0;
  }
  // The address form is chosen by the header fields just walked.
  r.ADDRESS.type = r.ADDR_TYPE;
  r.ADDRESS.len = r.ADDR_LEN;
  r.ADDRESS.ext_type = extended ? r.EXT_ADDR_TYPE : 0;
  w.at_least("ADDRESS", "FC_ADDRESS", r.ADDRESS, declared, c);
}

template <class W>
void layout(W& w, L2_ADDRESSING_FIELDS& r, const Ctx& c) {
  addressing(w, r, true, c);
}

// Integrity fields (PD 2) and encryption fields (PD 1 or 2) after the address.
template <class W>
void security(W& w, L2_SECURITY_FIELDS& r, std::uint8_t pd) {
  if (pd == 2) {
    w(F(MACI_INCL, 1));
    if (r.MACI_INCL) {
      w(F(SDU_KEY_ID, 2), F(SDU_INTEGRITY_ALGO, 3), F(SDU_SSEQ_OR_SSEQH, 1));
      if (r.SDU_SSEQ_OR_SSEQH) {
        w(F(SDU_SSEQ_H, 24));
      } else {
        w(F(SDU_SSEQ, 8));
      }
    }
  }
  if (pd == 1 || pd == 2) {
    w(F(ENC_FIELDS_INCL, 1));
    if (r.ENC_FIELDS_INCL) {
      w(F(SDU_ENCRYPT_MODE, 3));
      // With integrity on, the crypto-sync comes from the SDU sequence number instead.
      const bool integrity = pd == 2 && r.MACI_INCL;
      if ((r.SDU_ENCRYPT_MODE == 1 || r.SDU_ENCRYPT_MODE == 2) && !integrity) w(F(ENC_SEQ, 8));
    }
  }
}

template <class W>
void maci(W& w, std::uint32_t& f, std::uint8_t pd, const L2_SECURITY_FIELDS& sec) {
  if (pd == 2 && sec.MACI_INCL) w(field(f, "MACI", 32));
}

// ---------------------------------------------------------------------------------------
// PDU kinds

template <class W>
void layout(W& w, FC_PCH_BC__PBCCH_PDU& r, const BroadcastCtx& c) {
  w(F(PD, 2), F(MSG_ID, 6));
  if (const Sdu sdu = broadcast_sdu(r.MSG_ID, c.all); sdu.label) w.body(sdu.label, sdu.ops, r.sdu, c);
  // The PDU is reported 2 bits past an octet boundary, so that with the 30-bit CRC it
  // fills whole octets. Unchecked, and nothing on the air follows it.
  w.align(8, 2);
}

template <class W>
void layout(W& w, FC_PCH_PDU& r, const Ctx& c) {
  w(F(PD, 2), F(MSG_ID, 6));
  layout(w, r.arq, c);
  addressing(w, r.addr, c.p_rev >= 11, c);
  security(w, r.sec, r.PD);
  if (const Sdu sdu = sdu_of(r.MSG_ID, kAddressedSdu); sdu.label) w.body(sdu.label, sdu.ops, r.sdu, c);
  maci(w, r.MACI, r.PD, r.sec);
}

// The link-layer fields of an assignment record depend on the PDU's PD, which selects the
// integrity and encryption fields on this channel.
template <class W>
void assign_record(W& w, FC_PCH_ASSIGN_RECORD& r, const Ctx& c, std::uint8_t msg_id) {
  layout(w, r.arq, c);
  addressing(w, r.addr, c.p_rev >= 11, c);
  security(w, r.sec, c.pd);
  const Sdu sdu = sdu_of(msg_id, kAssignSdu);
  w.body(sdu.label, sdu.ops, r.sdu, c);
  maci(w, r.MACI, c.pd, r.sec);
}

template <class W>
void layout(W& w, FC_PCH_CAM_PDU_AssignmentRecords& r, const Ctx& c) {
  assign_record(w, r, c, 8);
}

template <class W>
void layout(W& w, FC_PCH_ECAM_PDU_ExtChanAssignRecord& r, const Ctx& c) {
  assign_record(w, r, c, 21);
}

// PD, MSG_ID and the assignment records of a CAM or ECAM PDU; the records take the PDU's PD,
// which selects their integrity and encryption fields. `min_bits` is the smallest record of
// the kind (see one_record).
template <class W, class P, class Rec>
void assignment_pdu(W& w, P& r, const char* label, PoolArray<Rec>& records, std::uint64_t min_bits, const Ctx& c) {
  w(F(PD, 2), F(MSG_ID, 6));
  Ctx rc = c;
  rc.pd = r.PD;
  w.list_to_end(label, records, [min_bits](std::uint64_t left) { return one_record(left, min_bits); }, rc);
  w.align(8, 2);   // reported length, as for the broadcast PDU
}

template <class W>
void layout(W& w, FC_PCH_CAM_PDU& r, const Ctx& c) {
  assignment_pdu(w, r, "AssignmentRecords", r.AssignmentRecords, 45, c);
}

template <class W>
void layout(W& w, FC_PCH_ECAM_PDU& r, const Ctx& c) {
  assignment_pdu(w, r, "ExtChanAssignRecord", r.ExtChanAssignRecord, 49, c);
}

template <class W>
void layout(W& w, L2_GPM_COMMON_FIELDS& r, const Ctx&) {
  // Four reserved bits stand between BROADCAST_DONE and ADD_LENGTH.
  w(F(CONFIG_MSG_SEQ, 6), F(ACC_MSG_SEQ, 6), F(CLASS_0_DONE, 1), F(CLASS_1_DONE, 1), F(TMSI_DONE, 1),
    F(ORDERED_TMSIS, 1), F(BROADCAST_DONE, 1), reserved(4), F(ADD_LENGTH, 3));
  w(F(ADD_PFIELD, 8u * r.ADD_LENGTH));
}

// ---------------------------------------------------------------------------------------
// Dispatch

namespace {

// A run of bits within the message: where the next stage starts and what is left of it.
struct Cursor {
  std::uint64_t pos, left;
  void advance(std::uint64_t used) {
    pos += used;
    left = used >= left ? 0 : left - used;
  }
};

// The stages of the order path and of the General Page start after the type octet, which
// they do not show.
Cursor after_type_octet(const Call& call) { return Cursor{8, call.avail >= 8 ? call.avail - 8 : 0}; }

template <class R>
Rc decode_at(R& rec, const Ctx& c, Call& call, Cursor& at) {
  std::uint64_t used = 0;
  const Rc rc = decode(rec, c, call.arena, call.msg, call.len, at.pos, at.left, &used);
  if (rc == Rc::ok) at.advance(used);
  return rc;
}

Rc decode_body_at(const BodyOps& ops, void* rec, const Ctx& c, Call& call, Cursor& at) {
  std::uint64_t used = 0;
  const Rc rc = ops.decode(rec, c, call.arena, call.msg, call.len, at.pos, at.left, &used);
  if (rc == Rc::ok) at.advance(used);
  return rc;
}

// Order Message: ARQ fields, addressing fields and the order, each decoded and printed as a
// stage of its own. A stage that fails ends the path with its result; what the earlier
// stages printed stays, and the text keeps its bare line ends.
Rc run_order(PagingState& st, Call& call, const Ctx& c) {
  call.convert_line_ends = false;
  Cursor at = after_type_octet(call);
  std::memset(&st.arq, 0, sizeof st.arq);
  std::memset(&st.addressing, 0, sizeof st.addressing);

  Rc rc = decode_at(st.arq, c, call, at);
  if (rc != Rc::ok) return rc;
  emit(call, st.arq, c, "L2_ARQ_FIELDS", 2);

  rc = decode_at(st.addressing, c, call, at);
  if (rc != Rc::ok) return rc;
  emit(call, st.addressing, c, "L2_ADDRESSING_FIELDS", 2);

  if (const BodyOps* ops = paging_messages().body(7)) {
    void* rec = call.arena.raw(ops->size, alignof(std::max_align_t));
    rc = decode_body_at(*ops, rec, c, call, at);
    if (rc != Rc::ok) return rc;
    emit_body(call, *ops, rec, c, 2);
  }
  call.convert_line_ends = true;
  return Rc::ok;
}

// General Page Message: the common fields (shown at the left margin), then page records
// while more than 8 bits are left. A record that fails ends the list without failing the
// message: the trailing bits of a General Page are often only padding.
Rc run_general_page(PagingState& st, Call& call, const Ctx& c) {
  Cursor at = after_type_octet(call);
  std::memset(&st.gpm, 0, sizeof st.gpm);
  const Rc rc = decode_at(st.gpm, c, call, at);
  if (rc != Rc::ok) {
    call.convert_line_ends = false;
    return rc;
  }
  emit(call, st.gpm, c, "L2_GPM_COMMON_FIELDS", 0);

  if (const BodyOps* ops = gpm_page_record_body()) {
    void* rec = call.arena.raw(ops->size, alignof(std::max_align_t));
    while (at.left > 8) {
      std::memset(rec, 0, ops->size);
      const std::uint64_t before = at.left;
      if (decode_body_at(*ops, rec, c, call, at) != Rc::ok) break;
      emit_body(call, *ops, rec, c, 3);
      if (at.left == before) break;   // a record that took no bits would never end the list
    }
  }
  call.convert_line_ends = true;
  return Rc::ok;
}

// One-shot PDU kinds: clear, decode over the whole message, print whatever was decoded.
template <class R, class C>
Rc run_pdu(R& rec, const char* header, Call& call, const C& c) {
  std::memset(&rec, 0, sizeof rec);
  const Rc rc = decode(rec, c, call.arena, call.msg, call.len, 0, call.avail);
  emit(call, rec, c, header, 2);
  call.convert_line_ends = true;
  return rc;
}

}  // namespace

Rc run_paging(PagingState& st, Call& call) {
  call.convert_line_ends = false;
  // Not even the type octet and the CRC: there is no frame to show.
  if (call.short_header) return Rc::short_msg;
  // From P_REV 7 the first octet also carries PD in its top two bits.
  const unsigned type = call.p_rev < 7 ? call.msg[0] : call.msg[0] & 63u;
  const MessageTable::Entry* e = type < 256 ? paging_messages().find(static_cast<std::uint8_t>(type)) : nullptr;
  auto route = e ? static_cast<PagingRoute>(e->row->route) : kSilent;
  // Broadcast messages the C dispatch leaves silent, when every one is asked for.
  if (call.all_broadcast && route == kSilent && e && e->row->carrier == kBroadcastSdu && e->ops.decode)
    route = kBroadcastPdu;

  Ctx c;
  c.p_rev = call.p_rev;
  c.band_class = call.band_class;
  switch (route) {
    case kSilent: return Rc::ok;
    case kBroadcastPdu: return run_pdu(st.bc, "FC_PCH_BC__PBCCH_PDU", call, BroadcastCtx{c, call.all_broadcast});
    case kCamPdu: return run_pdu(st.cam, "FC_PCH_CAM_PDU", call, c);
    case kEcamPdu: return run_pdu(st.ecam, "FC_PCH_ECAM_PDU", call, c);
    case kAddressedPdu: return run_pdu(st.pdu, "FC_PCH_PDU", call, c);
    case kOrderPath: return run_order(st, call, c);
    case kGeneralPage: return run_general_page(st, call, c);
  }
  return Rc::ok;
}

namespace {

// The peer view's order path: the three stages of run_order, over the bits from the second
// octet to the end the caller gives; any stage that fails leaves the view empty.
Rc peer_order(PagingState& st, Call& call, const Ctx& c, CompactOut& out) {
  Cursor at = after_type_octet(call);
  std::memset(&st.arq, 0, sizeof st.arq);
  std::memset(&st.addressing, 0, sizeof st.addressing);
  Rc rc = decode_at(st.arq, c, call, at);
  if (rc == Rc::ok) rc = decode_at(st.addressing, c, call, at);
  const BodyOps* ops = paging_messages().body(7);
  void* rec = ops ? call.arena.raw(ops->size, alignof(std::max_align_t)) : nullptr;
  if (rc == Rc::ok && ops) rc = decode_body_at(*ops, rec, c, call, at);
  if (rc != Rc::ok) return rc;
  CompactWalk::record(out, "L2_ARQ_FIELDS", st.arq, c);
  CompactWalk::record(out, "L2_ADDRESSING_FIELDS", st.addressing, c);
  if (ops) ops->compact(rec, c, ops->header, out);
  return Rc::ok;
}

// One-shot PDU kinds: clear, decode over the whole message, show it when it decoded.
template <class R>
Rc peer_pdu(R& rec, const char* header, Call& call, const Ctx& c, CompactOut& out) {
  std::memset(&rec, 0, sizeof rec);
  const Rc rc = decode(rec, c, call.arena, call.msg, call.len, 0, call.avail);
  if (rc == Rc::ok) CompactWalk::record(out, header, rec, c);
  return rc;
}

}  // namespace

Rc peer_paging(PagingState& st, Call& call, CompactOut& out) {
  if (call.len == 0) return Rc::ok;
  // The whole octet: with P_REV 7 on, a message whose PD bits are set is none of these.
  const MessageTable::Entry* e = paging_messages().find(call.msg[0]);
  Ctx c;
  c.p_rev = call.p_rev;
  c.band_class = call.band_class;
  // The routes select 7 (order), 8 (CAM), 21 (ECAM) and the addressed messages 9 to 12, 15,
  // 16, 19, 20 and 34; broadcast messages and the General Page have no view.
  switch (e ? static_cast<PagingRoute>(e->row->route) : kSilent) {
    case kOrderPath: return peer_order(st, call, c, out);
    case kCamPdu: return peer_pdu(st.cam, "FC_PCH_CAM_PDU", call, c, out);
    case kEcamPdu: return peer_pdu(st.ecam, "FC_PCH_ECAM_PDU", call, c, out);
    case kAddressedPdu: return peer_pdu(st.pdu, "FC_PCH_PDU", call, c, out);
    default: return Rc::ok;
  }
}

const MessageTable& paging_messages() {
  static const MessageTable table("FC_", "OVN_DPCH_MSG_ID_",
                                  {kNamedRows, paging_overhead_param_rows(), paging_overhead_list_rows(),
                                   paging_page_rows(), paging_order_rows(), paging_assign_rows(),
                                   paging_addressed_rows()});
  return table;
}

}  // namespace cs
