// Access / reverse common channel (C.S0004 r-csch PDU, C.S0005 r-csch messages): the link-access
// header with the mobile station identity, authentication, message integrity and encryption
// fields, the radio environment report, the SDU chosen by MSG_ID, padding and MACI.
#include "rev_access/pdu.h"

#include <cstddef>

#include "layout/layout.h"
#include "rev_access/tables.h"

namespace cs {

const MessageTable& access_messages() {
  static const MessageTable table("RC_", "OVN_DACH_MSG_ID_",
                                  {rc_call_setup_rows(), rc_response_rows(), rc_security_rows()});
  return table;
}

// ---------------------------------------------------------------------------------------
// Radio environment report

template <class W>
void layout(W& w, RadioEnvironmentReportFields_AddPilots& r, const Ctx&) {
  w(F(PILOT_PN_PHASE, 15), F(PILOT_STRENGTH, 6), F(ACCESS_HO_EN, 1), F(ACCESS_ATTEMPTED, 1));
}

template <class W>
void layout(W& w, RadioEnvironmentReportFields_AuxPilots& r, const Ctx&) {
  w(F(PILOT_PN_PHASE, 15), F(PILOT_STRENGTH, 6), F(PILOT_REC_TYPE, 3), F(RECORD_LEN, 3));
  // The type-specific fields fill RECORD_LEN octets; octets a type does not read (and every
  // octet of a type other than the common pilot with transmit diversity) are passed over.
  auto end = w.declared_end();
  end.at(8u * r.RECORD_LEN);
  if (r.PILOT_REC_TYPE == 0) {
    w(F(QOF, 2), F(WALSH_LENGTH, 3));
    w(F(PILOT_WALSH, r.WALSH_LENGTH + 6u));
  }
}

// At most six additional pilots fit the record; the count is three bits, so only 7 is refused.
constexpr std::uint32_t kMaxAddPilots = 6;

template <class W>
void layout(W& w, RadioEnvironmentReportFields& r, const Ctx& c) {
  w(F(ACTIVE_PILOT_STRENGTH, 6), F(FIRST_IS_ACTIVE, 1), F(FIRST_IS_PTA, 1), F(NUM_ADD_PILOTS, 3));
  w.at_most(r.NUM_ADD_PILOTS, kMaxAddPilots);
  w.records("AddPilots", r.AddPilots, r.NUM_ADD_PILOTS, c);
  // Auxiliary pilots arrived with IS-2000 Release A.
  if (c.p_rev >= 7) {
    w(F(NUM_AUX_PILOTS, 3));
    w.records("AuxPilots", r.AuxPilots, r.NUM_AUX_PILOTS, c);
  }
}

// ---------------------------------------------------------------------------------------
// Mobile station identity

// The IMSI after its class bit: reserved bits that keep IMSI_S on an octet boundary, the
// country and network codes the class and type call for, and the ten digits of IMSI_S. Each
// form is one checked group.
template <class W>
void imsi_after_class(W& w, RC_PDU& r) {
  if (r.IMSI_CLASS == 0) {
    w(F(IMSI_CLASS_0_TYPE, 2));
    switch (r.IMSI_CLASS_0_TYPE) {
      case 0: w(reserved(3), F(IMSI_S, 34)); break;
      case 1: w(reserved(4), F(IMSI_11_12, 7), F(IMSI_S, 34)); break;
      case 2: w(reserved(1), F(MCC, 10), F(IMSI_S, 34)); break;
      default: w(reserved(2), F(MCC, 10), F(IMSI_11_12, 7), F(IMSI_S, 34)); break;
    }
  } else {
    w(F(IMSI_CLASS_1_TYPE, 1));
    if (r.IMSI_CLASS_1_TYPE == 0) {
      w(reserved(2), F(IMSI_ADDR_NUM, 3), F(IMSI_11_12, 7), F(IMSI_S, 34));
    } else {
      w(reserved(1), F(IMSI_ADDR_NUM, 3), F(MCC, 10), F(IMSI_11_12, 7), F(IMSI_S, 34));
    }
  }
}

template <class W>
void imsi(W& w, RC_PDU& r) {
  w(F(IMSI_CLASS, 1));
  imsi_after_class(w, r);
}

// MSID by MSID_TYPE (and EXT_MSID_TYPE for type 4, 0 when it was not sent).
template <class W>
void msid(W& w, RC_PDU& r) {
  switch (r.MSID_TYPE) {
    case 0:
      // IMSI_S in its two halves and the ESN; six reserved bits round the identity to 9 octets.
      w(F(MIN1, 24), F(MIN2, 10), F(ESN, 32), reserved(6));
      break;
    case 1:
      w(F(ESN, 32));
      break;
    case 2:
      imsi(w, r);
      break;
    case 3:
      w(F(ESN, 32));
      imsi(w, r);
      break;
    case 4:
      switch (r.EXT_MSID_TYPE) {
        case 0:
          w(F(MEID, 56));
          break;
        case 1:
          w(F(MEID, 56));
          imsi(w, r);
          break;
        case 2:
          w(F(ESN, 32), F(MEID, 56), F(IMSI_CLASS, 1));
          imsi_after_class(w, r);
          break;
        default:
          break;   // no identity fields of a form this revision does not define
      }
      break;
    case 5:
      // TMSI: a code of MSID_LEN octets, or a zone of the octets beyond four and a 32-bit code.
      if (r.MSID_LEN < 5) {
        w(F(TMSI_CODE_ADDR, 8u * r.MSID_LEN));
      } else {
        w(F(TMSI_ZONE, 8u * r.MSID_LEN - 32), F(TMSI_CODE_ADDR, 32));
      }
      break;
    default:
      break;
  }
}

// ---------------------------------------------------------------------------------------
// SDU

template <class W>
void sdu(W& w, RC_PDU& r, const Ctx& c) {
  const MessageTable::Entry* e = access_messages().find(r.MSG_ID);
  const BodyOps* ops = access_messages().body(r.MSG_ID);
  const char* label = e ? e->label.c_str() : "SDU";
  Ctx bc = c;
  bc.auth_incl = r.AUTH_INCL;
  bc.forward = false;
  if constexpr (W::kReading) {
    w.body(label, ops, r.sdu, bc);
  } else {
    // Printing only: the SDU is a block of its own, a bare "SDU" line, braces at the PDU's
    // indent and the message under its label one step in (empty for a MSG_ID with no body).
    Text& t = w.text();
    const unsigned pdu_indent = w.indent() - 3;
    t.put("SDU\n").spaces(pdu_indent).put("{\n");
    const Header header{nullptr, "SDU"};
    PrintWalk inner(t, pdu_indent + 3, header);
    inner.body(label, ops, r.sdu, bc);
    t.spaces(pdu_indent).put("}\n");
  }
}

template <class W>
void radio_environment_report(W& w, RC_PDU& r, const Ctx& c) {
  w.sub("RadioEnvironmentReport", "RadioEnvironmentReportFields", r.RER, c);
}

// ---------------------------------------------------------------------------------------
// The PDU

template <class W>
void layout(W& w, RC_PDU& r, const Ctx& c) {
  w(F(PD, 2), F(MSG_ID, 6));
  // LAC_LENGTH was carried by IS-2000 Release 0 only.
  if (c.p_rev == 6) w(F(LAC_LENGTH, 5));
  w(F(ACK_SEQ, 3), F(MSG_SEQ, 3), F(ACK_REQ, 1), F(VALID_ACK, 1), F(ACK_TYPE, 3));
  // The two extensions are read under different revision tests, on purpose: EXT_ACK_TYPE
  // from P_REV 11 on, EXT_MSID_TYPE at P_REV 11 only.
  if (c.p_rev >= 11 && r.ACK_TYPE == 4) w(F(EXT_ACK_TYPE, 3));
  w(F(MSID_TYPE, 3));
  if (c.p_rev == 11 && r.MSID_TYPE == 4) w(F(EXT_MSID_TYPE, 3));
  w(F(MSID_LEN, 4));
  msid(w, r);

  w(F(MACI_INCL, 1), F(AUTH_INCL, 1));
  if (r.AUTH_INCL) {
    w(F(AUTHR, 18), F(RANDC, 8), F(COUNT, 6));
  } else if (r.MACI_INCL) {
    w(F(RANDC, 8));
  }
  if (c.p_rev >= 9 && r.MACI_INCL) {
    w(F(SDU_KEY_ID, 2), F(SDU_INTEGRITY_ALGO, 3), F(SDU_SSEQ_OR_SSEQH, 1));
    // On this channel 1 selects the 24-bit sequence number and 0 its 8-bit form.
    if (r.SDU_SSEQ_OR_SSEQH) {
      w(F(SDU_SSEQ, 24));
    } else {
      w(F(SDU_SSEQ_H, 8));
    }
  }
  if (c.p_rev >= 7) {
    w(F(ENC_FIELDS_INCL, 1));
    if (r.ENC_FIELDS_INCL) {
      w(F(SDU_ENCRYPT_MODE, 3));
      // With integrity on, the crypto-sync comes from the SDU sequence number instead.
      if ((r.SDU_ENCRYPT_MODE == 1 || r.SDU_ENCRYPT_MODE == 2) && r.MACI_INCL == 0) w(F(ENC_SEQ, 8));
    }
  }
  if (c.p_rev == 6) {
    // LAC_PADDING: the bits up to the next octet boundary from the start of the PDU.
    unsigned pad = 0;
    if constexpr (W::kReading) pad = static_cast<unsigned>((8 - w.consumed() % 8) % 8);
    w(F(LAC_PADDING, pad));
  }

  // Release 0 on reports the radio environment before the SDU; IS-95B after it; earlier
  // revisions not at all.
  if (c.p_rev >= 6) {
    radio_environment_report(w, r, c);
    sdu(w, r, c);
  } else if (c.p_rev >= 4) {
    sdu(w, r, c);
    radio_environment_report(w, r, c);
  } else {
    sdu(w, r, c);
  }

  // Padding so that the PDU and the 30-bit CRC fill whole octets; only MACI behind it is
  // checked against the end.
  w.align(8, 2);
  if (c.p_rev >= 9 && r.MACI_INCL) w(F(MACI, 32));
}

namespace {

Ctx access_ctx(const Call& call) {
  Ctx c;
  c.p_rev = call.p_rev;
  c.band_class = call.band_class;
  c.forward = false;
  return c;
}

}  // namespace

Rc peer_access(AccessState& st, Call& call, CompactOut& out) {
  RC_PDU& r = st.pdu;
  r = RC_PDU{};
  const Ctx c = access_ctx(call);
  const Rc rc = decode(r, c, call.arena, call.msg, call.len, 0, call.avail);
  if (rc == Rc::ok) CompactWalk::record(out, "RC_PDU", r, c);
  return rc;
}

Rc run_access(AccessState& st, Call& call) {
  RC_PDU& r = st.pdu;
  r = RC_PDU{};
  const Ctx c = access_ctx(call);
  const Rc rc = decode(r, c, call.arena, call.msg, call.len, 0, call.avail);
  // A decode that stopped before the SDU still shows the body of MSG_ID, as a record that
  // nothing has filled.
  if (r.sdu.rec == nullptr) {
    if (const BodyOps* ops = access_messages().body(r.MSG_ID))
      r.sdu = AnyRec{ops, call.arena.raw(ops->size, alignof(std::max_align_t))};
  }
  emit(call, r, c, "RC_PDU", 2);
  return rc;
}

}  // namespace cs
