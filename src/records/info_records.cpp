// Forward information records, C.S0005 3.7.5: one struct and one layout per record type.
// Each type-specific layout is walked within the RECORD_LEN octets of its record, so
// "the rest of the record" is simply what the walker has left.
#include "records/info_records.h"

#include "layout/layout.h"

namespace cs {
namespace {

using u8 = std::uint8_t;
using u16 = std::uint16_t;

// Character fields filling the rest of a record: as many 8-bit CHARi as whole octets remain
// (a number record's trailing reserved bits are fewer than 8 and are left over). The count
// is kept in 8 bits, the size of the record's length octet.
template <class W>
void chars_to_end(W& w, PoolArray<u8>& a) {
  w.scalars("CHARi", a, static_cast<u8>(w.left() / 8), 8);
}

// Width of one CHARi of a multiple-character display, by DISPLAY_ENCODING (the data field
// encodings of C.R1001): 7-bit ASCII, IA5 and the GSM 7-bit alphabet take 7 bits, Unicode
// 16; the octet-oriented encodings (octet, Shift-JIS, Korean, Latin, Latin/Hebrew, GSM data
// coding) and anything unassigned take 8.
unsigned display_char_bits(u8 encoding) {
  switch (encoding) {
    case 2:
    case 3:
    case 9:
      return 7;
    case 4:
      return 16;
    default:
      return 8;
  }
}

// --- 3.7.5.1 Display ----------------------------------------------------------------------
struct DISP {
  PoolArray<u8> CHARi;
};
template <class W>
void layout(W& w, DISP& r, const Ctx&) {
  chars_to_end(w, r.CHARi);
}

// --- 3.7.5.2 Called Party Number ----------------------------------------------------------
struct CDPN {
  u8 NUMBER_TYPE;
  u8 NUMBER_PLAN;
  PoolArray<u8> CHARi;
};
template <class W>
void layout(W& w, CDPN& r, const Ctx&) {
  w(F(NUMBER_TYPE, 3), F(NUMBER_PLAN, 4));
  chars_to_end(w, r.CHARi);
}

// --- 3.7.5.3 Calling Party Number, 3.7.5.4 Connected Number (same layout) -------------------
struct CGPN {
  u8 NUMBER_TYPE;
  u8 NUMBER_PLAN;
  u8 PRESENTATION_INDICATOR;
  u8 SI;
  PoolArray<u8> CHARi;
};
template <class W>
void layout(W& w, CGPN& r, const Ctx&) {
  w(F(NUMBER_TYPE, 3), F(NUMBER_PLAN, 4), F(PRESENTATION_INDICATOR, 2), F(SI, 2));
  chars_to_end(w, r.CHARi);
}

// --- 3.7.5.5 Signal -----------------------------------------------------------------------
struct SGNL {
  u8 SIGNAL_TYPE;
  u8 ALERT_PITCH;
  u8 SIGNAL;
};
template <class W>
void layout(W& w, SGNL& r, const Ctx&) {
  w(F(SIGNAL_TYPE, 2), F(ALERT_PITCH, 2), F(SIGNAL, 6));
}

// --- 3.7.5.6 Message Waiting --------------------------------------------------------------
struct MW {
  u8 MSG_COUNT;
};
template <class W>
void layout(W& w, MW& r, const Ctx&) {
  w(F(MSG_COUNT, 8));
}

// --- 3.7.5.8/9/10/12 Called, Calling, Connected and Redirecting Subaddress -----------------
struct SUBADDRESS {
  u8 EXTENSION_BIT;
  u8 SUBADDRESS_TYPE;
  u8 ODD_EVEN_INDICATOR;
  PoolArray<u8> CHARi;
};
template <class W>
void layout(W& w, SUBADDRESS& r, const Ctx&) {
  // reserved
  w(F(EXTENSION_BIT, 1), F(SUBADDRESS_TYPE, 3), F(ODD_EVEN_INDICATOR, 1), reserved(3));
  chars_to_end(w, r.CHARi);
}

// --- 3.7.5.11 Redirecting Number ----------------------------------------------------------
// Octet-extended like its network counterpart: each EXTENSION_BIT of 0 announces one more
// octet (presentation and screening, then the redirection reason).
struct RN {
  u8 EXTENSION_BIT_1;
  u8 NUMBER_TYPE;
  u8 NUMBER_PLAN;
  u8 EXTENSION_BIT_2;
  u8 PRESENTATION_INDICATOR;
  u8 SI;
  u8 EXTENSION_BIT_3;
  u8 REDIRECTION_REASON;
  PoolArray<u8> CHARi;
};
template <class W>
void layout(W& w, RN& r, const Ctx&) {
  w(F(EXTENSION_BIT_1, 1), F(NUMBER_TYPE, 3), F(NUMBER_PLAN, 4));
  if (r.EXTENSION_BIT_1 == 0) {
    // reserved
    w(F(EXTENSION_BIT_2, 1), F(PRESENTATION_INDICATOR, 2), reserved(3), F(SI, 2));
    if (r.EXTENSION_BIT_2 == 0) {
      // reserved
      w(F(EXTENSION_BIT_3, 1), reserved(3), F(REDIRECTION_REASON, 4));
    }
  }
  chars_to_end(w, r.CHARi);
}

// --- 3.7.5.13 Meter Pulses ----------------------------------------------------------------
struct MP {
  u16 PULSE_FREQUENCY;
  u8 PULSE_ON_TIME;
  u8 PULSE_OFF_TIME;
  u8 PULSE_COUNT;
};
template <class W>
void layout(W& w, MP& r, const Ctx&) {
  w(F(PULSE_FREQUENCY, 11), F(PULSE_ON_TIME, 8), F(PULSE_OFF_TIME, 8), F(PULSE_COUNT, 4));
}

// --- 3.7.5.14 Parametric Alerting ---------------------------------------------------------
struct PA_ALERT_REC {
  u8 AMPLITUDE;
  u16 FREQ_1;
  u16 FREQ_2;
  u8 ON_TIME;
  u8 OFF_TIME;
  u8 REPEAT;
  u8 DELAY;
};
template <class W>
void layout(W& w, PA_ALERT_REC& r, const Ctx&) {
  w(F(AMPLITUDE, 8), F(FREQ_1, 10), F(FREQ_2, 10), F(ON_TIME, 8), F(OFF_TIME, 8), F(REPEAT, 4), F(DELAY, 8));
}

struct PA {
  u8 CADENCE_COUNT;
  u8 NUM_GROUPS;
  PoolArray<PA_ALERT_REC> ALERT_RECs;
  u8 CADENCE_TYPE;
};
template <class W>
void layout(W& w, PA& r, const Ctx& c) {
  w(F(CADENCE_COUNT, 8), F(NUM_GROUPS, 4));
  w.records("ALERT_RECs", r.ALERT_RECs, r.NUM_GROUPS, c);
  // CADENCE_TYPE follows the groups from P_REV 7 (IS-2000 Release A) on.
  if (c.p_rev >= 7) w(F(CADENCE_TYPE, 2));
}

// --- 3.7.5.15 Line Control ----------------------------------------------------------------
struct LC {
  u8 POLARITY_INCLUDED;
  u8 TOGGLE_MODE;
  u8 REVERSE_POLARITY;
  u8 POWER_DENIAL_TIME;
};
template <class W>
void layout(W& w, LC& r, const Ctx&) {
  w(F(POLARITY_INCLUDED, 1));
  if (r.POLARITY_INCLUDED) w(F(TOGGLE_MODE, 1), F(REVERSE_POLARITY, 1));
  w(F(POWER_DENIAL_TIME, 8));
}

// --- 3.7.5.16 Extended Display ------------------------------------------------------------
// Display records run to the end of the information record; each is at least 16 bits.
std::uint32_t display_rec_capacity(std::uint64_t bits_left) { return static_cast<std::uint32_t>(bits_left / 16 + 1); }

struct ED_REC {
  u8 DISPLAY_TAG;
  u8 DISPLAY_LEN;
  PoolArray<u8> CHARi;
};
template <class W>
void layout(W& w, ED_REC& r, const Ctx&) {
  w(F(DISPLAY_TAG, 8), F(DISPLAY_LEN, 8));
  w.scalars("CHARi", r.CHARi, r.DISPLAY_LEN, 8);
}

struct ED {
  u8 EXT_DISPLAY_IND;
  u8 DISPLAY_TYPE;
  PoolArray<ED_REC> EXT_DISPLAY_RECs;
};
template <class W>
void layout(W& w, ED& r, const Ctx& c) {
  w(F(EXT_DISPLAY_IND, 1), F(DISPLAY_TYPE, 7));
  w.list_to_end("EXT_DISPLAY_RECs", r.EXT_DISPLAY_RECs, display_rec_capacity, c);
}

// --- Multiple Character Extended Display (type 20) -----------------------------------------
struct MCED_DISPLAY {
  u8 DISPLAY_ENCODING;
  u8 NUM_FIELDS;
  PoolArray<u16> CHARi;
};
template <class W>
void layout(W& w, MCED_DISPLAY& r, const Ctx&) {
  w(F(DISPLAY_ENCODING, 8), F(NUM_FIELDS, 8));
  w.scalars("CHARi", r.CHARi, r.NUM_FIELDS, display_char_bits(r.DISPLAY_ENCODING));
}

struct MCED_REC {
  u8 DISPLAY_TAG;
  u8 NUM_RECORD;
  PoolArray<MCED_DISPLAY> DISPLAYs;
};
template <class W>
void layout(W& w, MCED_REC& r, const Ctx& c) {
  w(F(DISPLAY_TAG, 8), F(NUM_RECORD, 8));
  w.records("DISPLAYs", r.DISPLAYs, r.NUM_RECORD, c);
}

struct MCED {
  u8 MC_EXT_DISPLAY_IND;
  u8 DISPLAY_TYPE;
  PoolArray<MCED_REC> MC_EXT_DISPLAY_RECs;
};
template <class W>
void layout(W& w, MCED& r, const Ctx& c) {
  w(F(MC_EXT_DISPLAY_IND, 1), F(DISPLAY_TYPE, 7));
  w.list_to_end("MC_EXT_DISPLAY_RECs", r.MC_EXT_DISPLAY_RECs,
                display_rec_capacity, c);
}

// --- Call Waiting Indicator (type 21) ------------------------------------------------------
struct CWI {
  u8 CALL_WAITING_INDICATOR;
};
template <class W>
void layout(W& w, CWI& r, const Ctx&) {
  w(F(CALL_WAITING_INDICATOR, 1));
}

// --- Enhanced Multiple Character Extended Display (type 22) --------------------------------
// Each display information record states its own length in octets, RECORD_LENGTH counting
// itself; the reserved bits that pad it to that length follow the characters.
struct EMCED_DISPLAY {
  u8 RECORD_LENGTH;
  u8 DISPLAY_ENCODING;
  u8 NUM_FIELDS;
  PoolArray<u16> CHARi;
};
template <class W>
void layout(W& w, EMCED_DISPLAY& r, const Ctx&) {
  w(F(RECORD_LENGTH, 8), F(DISPLAY_ENCODING, 8), F(NUM_FIELDS, 8));
  const unsigned width = display_char_bits(r.DISPLAY_ENCODING);
  w.scalars("CHARi", r.CHARi, r.NUM_FIELDS, width);
  const std::uint64_t used = 24 + std::uint64_t{r.NUM_FIELDS} * width;
  const std::uint64_t declared = 8 * std::uint64_t{r.RECORD_LENGTH};
  if (declared > used) {
    // reserved
    w(reserved(declared - used));
  }
}

struct EMCED_REC {
  u8 DISPLAY_TAG;
  u8 NUM_RECORD;
  PoolArray<EMCED_DISPLAY> DISPLAYs;
};
template <class W>
void layout(W& w, EMCED_REC& r, const Ctx& c) {
  w(F(DISPLAY_TAG, 8), F(NUM_RECORD, 8));
  w.records("DISPLAYs", r.DISPLAYs, r.NUM_RECORD, c);
}

struct EMCED {
  u8 DISPLAY_TYPE;
  u8 NUM_DISPLAYS;
  PoolArray<EMCED_REC> DISPLAY_RECORDs;
};
template <class W>
void layout(W& w, EMCED& r, const Ctx& c) {
  w(F(DISPLAY_TYPE, 7), F(NUM_DISPLAYS, 8));
  // NUM_DISPLAYS is sent as the number of display records minus one.
  w.records("DISPLAY_RECORDs", r.DISPLAY_RECORDs,
            std::uint32_t{r.NUM_DISPLAYS} + 1, c);
}

// --- Type dispatch ------------------------------------------------------------------------
constexpr BodyOps kDisp = body_ops<DISP>("DISPLAY");
constexpr BodyOps kCdpn = body_ops<CDPN>("CALLED_PARTY_NUMBER");
constexpr BodyOps kCgpn = body_ops<CGPN>("CALLING_PARTY_NUMBER");
constexpr BodyOps kCn = body_ops<CGPN>("CONNECTED_NUMBER");
constexpr BodyOps kSgnl = body_ops<SGNL>("SIGNAL");
constexpr BodyOps kMw = body_ops<MW>("MSG_WAITING");
constexpr BodyOps kCdps = body_ops<SUBADDRESS>("CALLED_PARTY_SUBADDRESS");
constexpr BodyOps kCgps = body_ops<SUBADDRESS>("CALLING_PARTY_SUBADDRESS");
constexpr BodyOps kCs = body_ops<SUBADDRESS>("CONNECTED_SUBADDRESS");
constexpr BodyOps kRn = body_ops<RN>("REDIRECTING_NUMBER");
constexpr BodyOps kRs = body_ops<SUBADDRESS>("REDIRECTING_SUBADDRESS");
constexpr BodyOps kMp = body_ops<MP>("METER_PULSES");
constexpr BodyOps kPa = body_ops<PA>("PARAMETRIC_ALERTING");
constexpr BodyOps kLc = body_ops<LC>("LINE_CONTROL");
constexpr BodyOps kEd = body_ops<ED>("EXT_DISPLAY");
constexpr BodyOps kMced = body_ops<MCED>("MULTI_CHARACTER_EXT_DISPLAY");
constexpr BodyOps kCwi = body_ops<CWI>("CALL_WAITING_INDICATOR");
constexpr BodyOps kEmced = body_ops<EMCED>("ENHANCED_MULTI_CHARACTER_EXT_DISPLAY");

}  // namespace

InfoRecType fwd_info_rec_type(std::uint8_t record_type) {
  switch (record_type) {
    case 1: return {"TypeSpecificFields.DISP", &kDisp};
    case 2: return {"TypeSpecificFields.CDPN", &kCdpn};
    case 3: return {"TypeSpecificFields.CGPN", &kCgpn};
    case 4: return {"TypeSpecificFields.CN", &kCn};
    case 5: return {"TypeSpecificFields.SGNL", &kSgnl};
    case 6: return {"TypeSpecificFields.MW", &kMw};
    case 8: return {"TypeSpecificFields.CDPS", &kCdps};
    case 9: return {"TypeSpecificFields.CGPS", &kCgps};
    case 10: return {"TypeSpecificFields.CS", &kCs};
    case 11: return {"TypeSpecificFields.RN", &kRn};
    case 12: return {"TypeSpecificFields.RS", &kRs};
    case 13: return {"TypeSpecificFields.MP", &kMp};
    case 14: return {"TypeSpecificFields.PA", &kPa};
    case 15: return {"TypeSpecificFields.LC", &kLc};
    case 16: return {"TypeSpecificFields.ED", &kEd};
    case 20: return {"TypeSpecificFields.MCED", &kMced};
    case 21: return {"TypeSpecificFields.CWI", &kCwi};
    case 22: return {"TypeSpecificFields.EMCED", &kEmced};
    default: return {nullptr, nullptr};   // 7 (service configuration), 17..19, 23 and up
  }
}

std::uint32_t decrypt_info_rec(std::uint8_t, std::uint8_t, std::uint8_t, std::uint64_t, std::uint8_t) { return 0; }

}  // namespace cs
