// Position determination data messages (PDDM, IS-801-1 / C.S0022): the session header, the
// request and response element headers, whose form depends on PD_MSG_TYPE (0: IS-801-1, 1:
// the extended revision), and the elements of both links.
//
// Every element states its length in octets. An element whose body is decoded gets exactly
// that many bits and the walk then moves on to its declared end; an element the tables mark
// as not decoded is passed over by its length; a type beyond the tables takes its header only
// (its body is not passed over, so the next element header is read right after it).
//
// Elements whose fields the standard defines but whose field widths and order could not be
// confirmed from a public source are refused (result 1) rather than guessed: see Undisclosed
// below. Refused, forward: the base station almanac, GPS acquisition assistance, location
// assistance (spherical and Cartesian), ephemeris and almanac correction; sensitivity
// assistance, almanac and navigation message bits after their part headers. Reverse: the
// autonomous measurement weighting factors, pseudorange and pilot phase measurements. Under
// PD_MSG_TYPE 1 every element of the extended revision except the IS-801-1 ones it keeps.
#include "pd/pd.h"

#include "layout/layout.h"

namespace cs {
namespace {

// ---------------------------------------------------------------------------------------
// Elements shared by both links.

// Provide Location Response (both links): the position fix, with velocity, clock and height
// when included. The position uncertainty is given as an ellipse (angle, two axes).
struct LocResp {
  std::uint16_t time_ref_cdma;
  std::uint32_t latitude, longitude;
  std::uint8_t loc_uncrtnty_ang, loc_uncrtnty_a, loc_uncrtnty_p, fix_type, velocity_incl;
  std::uint16_t velocity_hor, heading;
  std::uint8_t velocity_ver, clock_incl;
  std::uint32_t clock_bias;
  std::uint16_t clock_drift;
  std::uint8_t height_incl;
  std::uint16_t height;
  std::uint8_t loc_uncrtnty_v;
};
template <class W>
void layout(W& w, LocResp& r, const Ctx&) {
  // LAT and LONG print as "latitude" and "longitude", the names their readings are keyed by.
  w(F(time_ref_cdma, 14), F(latitude, 25), F(longitude, 26), F(loc_uncrtnty_ang, 4), F(loc_uncrtnty_a, 5),
    F(loc_uncrtnty_p, 5), F(fix_type, 1), F(velocity_incl, 1));
  if (r.velocity_incl) {
    w(F(velocity_hor, 9), F(heading, 10));
    if (r.fix_type) w(F(velocity_ver, 8));   // a 3D fix only
  }
  w(F(clock_incl, 1));
  if (r.clock_incl) w(F(clock_bias, 18), F(clock_drift, 16));
  w(F(height_incl, 1));
  if (r.height_incl) w(F(height, 14), F(loc_uncrtnty_v, 5));
}

// Reject: which request type is refused and why.
struct Reject {
  std::uint8_t rej_req_type, rej_reason;
};
template <class W>
void layout(W& w, Reject& r, const Ctx&) {
  w(F(rej_req_type, 4), F(rej_reason, 3), reserved(1));
}

// An element with no fields: the request names all that is asked.
struct NoFields {};
template <class W>
void layout(W&, NoFields&, const Ctx&) {}

// An element the standard goes on to define with fields whose widths and order no public
// source at hand confirms (the GPS assistance data of the base station, the mobile station's
// measurement reports and the elements of the extended revision). What was read before is
// kept; the element, and so the message, is then refused with result 1 instead of being shown
// with guessed fields.
struct Undisclosed {};
template <class W>
void layout(W& w, Undisclosed&, const Ctx&) {
  w.reject(Rc::count);
}

// ---------------------------------------------------------------------------------------
// Forward link (base station to mobile station): requests.

// Request Location Response.
struct FwdReqLocResp {
  std::uint8_t pref_resp_qual, num_fixes, t_betw_fixes, height_req, clk_cor_gps_req, velocity_req;
};
template <class W>
void layout(W& w, FwdReqLocResp& r, const Ctx&) {
  w(F(pref_resp_qual, 3), F(num_fixes, 8), F(t_betw_fixes, 8), F(height_req, 1), F(clk_cor_gps_req, 1),
    F(velocity_req, 1), reserved(2));
}

// Request Pseudorange Measurement.
struct FwdReqPseudoMeas {
  std::uint8_t pref_resp_qual, num_fixes, t_betw_fixes, offset_req;
};
template <class W>
void layout(W& w, FwdReqPseudoMeas& r, const Ctx&) {
  w(F(pref_resp_qual, 3), F(num_fixes, 8), F(t_betw_fixes, 8), F(offset_req, 1), reserved(4));
}

// Request Pilot Phase Measurement: as the pseudorange request, with the resolution wanted.
struct FwdReqPpm {
  std::uint8_t pref_resp_qual, num_fixes, t_betw_fixes, offset_req, desi_pil_ph_res;
};
template <class W>
void layout(W& w, FwdReqPpm& r, const Ctx&) {
  w(F(pref_resp_qual, 3), F(num_fixes, 8), F(t_betw_fixes, 8), F(offset_req, 1), F(desi_pil_ph_res, 1),
    reserved(3));
}

// Request Time Offset Measurement. ACTION_TIME (6 bits, when USE_TIME is 1) prints as
// "action_time_6", the name its reading in milliseconds is keyed by.
struct FwdReqTimeOffset {
  std::uint8_t use_time, action_time_6;
};
template <class W>
void layout(W& w, FwdReqTimeOffset& r, const Ctx&) {
  w(F(use_time, 1));
  if (r.use_time)
    w(F(action_time_6, 6), reserved(1));
  else
    w(reserved(7));
}

// Request Cancellation: the request type to cancel.
struct Cancel {
  std::uint8_t cancel_type;
};
template <class W>
void layout(W& w, Cancel& r, const Ctx&) {
  w(F(cancel_type, 4), reserved(4));
}

// ---------------------------------------------------------------------------------------
// Forward link: responses.

// Provide Base Station Capabilities.
struct FwdRespBsCap {
  std::uint8_t bs_ls_rev, gpsc_id, afltc_id, apdc_id;
};
template <class W>
void layout(W& w, FwdRespBsCap& r, const Ctx&) {
  w(F(bs_ls_rev, 6), F(gpsc_id, 1), F(afltc_id, 1), F(apdc_id, 8));
}

// Provide GPS Sensitivity Assistance: the part header; NUM_DR_P + 1 data records of navigation
// message bits follow, whose layout no public source gives.
struct FwdRespSensAssist {
  std::uint16_t ref_bit_num;
  std::uint8_t num_dr_p, dr_size, part_num, total_parts;
};
template <class W>
void layout(W& w, FwdRespSensAssist& r, const Ctx&) {
  w(F(ref_bit_num, 11), F(num_dr_p, 4), F(dr_size, 8), F(part_num, 3), F(total_parts, 3));
  w.reject(Rc::count);   // the data records: widths not public
}

// Provide GPS Almanac: the part header; NUM_SV_P + 1 satellite almanacs follow, whose layout
// no public source gives.
struct FwdRespAlmanac {
  std::uint8_t num_sv_p, week_num, toa, part_num, total_parts;
};
template <class W>
void layout(W& w, FwdRespAlmanac& r, const Ctx&) {
  w(F(num_sv_p, 6), F(week_num, 8), F(toa, 8), F(part_num, 5), F(total_parts, 5));
  w.reject(Rc::count);   // the satellite records: widths not public
}

// Provide GPS Navigation Message Bits: the part header; NUM_SV_P + 1 satellites' subframes
// follow, whose layout no public source gives.
struct FwdRespNavMsg {
  std::uint8_t num_sv_p, part_num, total_parts;
};
template <class W>
void layout(W& w, FwdRespNavMsg& r, const Ctx&) {
  w(F(num_sv_p, 6), F(part_num, 5), F(total_parts, 5));
  w.reject(Rc::count);   // the satellite records: widths not public
}

// Provide GPS Satellite Health Information: the satellites not to use.
struct BadSv {
  std::uint8_t bad_sv_prn_num;
};
template <class W>
void layout(W& w, BadSv& r, const Ctx&) {
  w(F(bad_sv_prn_num, 5));
}
struct FwdRespSatHealth {
  std::uint8_t bad_sv_present, num_bad_sv;
  PoolArray<BadSv> bad_sv;
};
template <class W>
void layout(W& w, FwdRespSatHealth& r, const Ctx& c) {
  w(F(bad_sv_present, 1));
  if (!r.bad_sv_present) return;
  w(F(num_bad_sv, 4));
  w.records("bad_sv", r.bad_sv, r.num_bad_sv + 1u, c);   // NUM_BAD_SV counts from 0
}

// ---------------------------------------------------------------------------------------
// Reverse link (mobile station to base station): requests.

// Request Location Response.
struct RevReqLocResp {
  std::uint8_t height_req, clk_cor_gps_req, velocity_req;
};
template <class W>
void layout(W& w, RevReqLocResp& r, const Ctx&) {
  w(F(height_req, 1), F(clk_cor_gps_req, 1), F(velocity_req, 1), reserved(5));
}

// Request Base Station Almanac: whether the extended almanac is wanted.
struct RevReqBsAlmanac {
  std::uint8_t ext_bs_alm;
};
template <class W>
void layout(W& w, RevReqBsAlmanac& r, const Ctx&) {
  w(F(ext_bs_alm, 1), reserved(7));
}

// Request GPS Acquisition Assistance: the parts wanted.
struct RevReqAcqAssist {
  std::uint8_t dopp_req, add_dopp_req, code_ph_par_req, az_el_req;
};
template <class W>
void layout(W& w, RevReqAcqAssist& r, const Ctx&) {
  w(F(dopp_req, 1), F(add_dopp_req, 1), F(code_ph_par_req, 1), F(az_el_req, 1), reserved(4));
}

// Request GPS Location Assistance: spherical (1) or Cartesian (0) coordinates.
struct RevReqLocAssist {
  std::uint8_t coord_type;
};
template <class W>
void layout(W& w, RevReqLocAssist& r, const Ctx&) {
  w(F(coord_type, 1), reserved(7));
}

// Request GPS Ephemeris: whether the ionospheric alpha and beta parameters are wanted.
struct RevReqEphemeris {
  std::uint8_t ab_par_req;
};
template <class W>
void layout(W& w, RevReqEphemeris& r, const Ctx&) {
  w(F(ab_par_req, 1), reserved(7));
}

// Request GPS Navigation Message Bits: whether subframes 4 and 5 are wanted.
struct RevReqNavMsg {
  std::uint8_t subf_4_5_req;
};
template <class W>
void layout(W& w, RevReqNavMsg& r, const Ctx&) {
  w(F(subf_4_5_req, 1), reserved(7));
}

// Request GPS Almanac Correction: the almanac the mobile station holds (reference time in
// units of 4096 s, the 8 low bits of its GPS week).
struct RevReqAlmCorr {
  std::uint8_t toa, week_num;
};
template <class W>
void layout(W& w, RevReqAlmCorr& r, const Ctx&) {
  w(F(toa, 8), F(week_num, 8));
}

// ---------------------------------------------------------------------------------------
// Reverse link: responses.

// Provide MS Information: the location service revision, mode and capabilities.
struct RevRespMsInfo {
  std::uint8_t ms_ls_rev, ms_mode, pilot_ph_cap;
  std::uint16_t gps_acq_cap, loc_calc_cap;
};
template <class W>
void layout(W& w, RevRespMsInfo& r, const Ctx&) {
  w(F(ms_ls_rev, 6), F(ms_mode, 4), F(pilot_ph_cap, 6), F(gps_acq_cap, 12), F(loc_calc_cap, 12));
}

// Provide Time Offset Measurement.
struct RevRespTimeOffset {
  std::uint32_t time_ref_ms;
  std::uint16_t ref_pn, mob_sys_t_offset;
};
template <class W>
void layout(W& w, RevRespTimeOffset& r, const Ctx&) {
  w(F(time_ref_ms, 24), F(ref_pn, 9), F(mob_sys_t_offset, 14), reserved(1));
}

// Provide Cancellation Acknowledgement.
struct RevRespCancelAck {
  std::uint8_t cancel_type, no_out_req;
};
template <class W>
void layout(W& w, RevRespCancelAck& r, const Ctx&) {
  w(F(cancel_type, 4), F(no_out_req, 1), reserved(3));
}

// ---------------------------------------------------------------------------------------
// The element tables: by link, by request or response, by PD_MSG_TYPE, indexed by the
// element's type. A row with no decode function names an element that is passed over by its
// length; a type past the end of its table has no row.

struct ElemDef {
  const char* name;
  BodyOps ops;
};
constexpr ElemDef skipped(const char* name) { return ElemDef{name, BodyOps{name, 0, nullptr, nullptr, nullptr, nullptr}}; }
template <class R>
constexpr ElemDef decoded(const char* name) {
  return ElemDef{name, body_ops<R>(name)};
}

// Forward requests, IS-801-1 (request types 0-7).
const ElemDef kFwdReq0[] = {
    skipped("FWD_REQ_TYPE_RESERVED"),
    decoded<FwdReqLocResp>("FWD_REQ_TYPE_LOC_RESP"),
    skipped("FWD_REQ_TYPE_MSI"),
    skipped("FWD_REQ_TYPE_AUTO_MWF"),
    decoded<FwdReqPseudoMeas>("FWD_REQ_TYPE_PSEUDO_MEAS"),
    decoded<FwdReqPpm>("FWD_REQ_TYPE_PPM"),
    decoded<FwdReqTimeOffset>("FWD_REQ_TYPE_TIME_OFFSET_MEAS"),
    decoded<Cancel>("FWD_REQ_TYPE_CANCEL"),
};
// Forward requests, extended revision (request types 0-11).
const ElemDef kFwdReq1[] = {
    skipped("FWD_REQ_TYPE_RESERVED"),
    decoded<Undisclosed>("FWD_REQ_EXT_LOC_RESP"),
    decoded<Undisclosed>("FWD_REQ_EXT_MS_INFO"),
    skipped("FWD_REQ_TYPE_AUTO_MWF"),
    decoded<Undisclosed>("FWD_REQ_GEN_LOC_MEAS"),
    skipped("FWD_REQ_TYPE_RESERVED"),
    skipped("FWD_REQ_TYPE_RESERVED"),
    decoded<Undisclosed>("FWD_REQ_EXT_CANCEL"),
    decoded<Undisclosed>("FWD_REQ_COARSE_LOC_RESP"),
    decoded<Undisclosed>("FWD_REQ_MSG_DELAY_MEAS"),
    skipped("FWD_REQ_BEAR_MEAS"),
    decoded<Undisclosed>("FWD_REQ_SRV_SYS_INFO"),
};
// Forward responses, IS-801-1 (response types 0-12).
const ElemDef kFwdResp0[] = {
    decoded<Reject>("FWD_RESP_TYPE_REJECT"),
    decoded<LocResp>("FWD_RESP_TYPE_LOC_RESP"),
    decoded<FwdRespBsCap>("FWD_RESP_TYPE_BS_CAP"),
    decoded<Undisclosed>("FWD_RESP_TYPE_BS_ALMANAC"),
    decoded<Undisclosed>("FWD_RESP_TYPE_GPS_ACQ_ASSIST"),
    decoded<FwdRespSensAssist>("FWD_RESP_TYPE_GPS_SENS_ASSIST"),
    decoded<Undisclosed>("FWD_RESP_TYPE_GPS_SP_COORD"),
    decoded<Undisclosed>("FWD_RESP_TYPE_GPS_CART_CORD"),
    decoded<FwdRespAlmanac>("FWD_RESP_TYPE_GPS_ALMANAC"),
    decoded<Undisclosed>("FWD_RESP_TYPE_GPS_EPHEMERIS"),
    decoded<FwdRespNavMsg>("FWD_RESP_TYPE_GPS_NAV_MSG"),
    decoded<Undisclosed>("FWD_RESP_TYPE_GPS_ALM_CORR"),
    decoded<FwdRespSatHealth>("FWD_RESP_TYPE_GPS_SAT_HEALTH"),
};
// Forward responses, extended revision (response types 0-16); the almanac and the ephemeris
// are the IS-801-1 elements.
const ElemDef kFwdResp1[] = {
    decoded<Undisclosed>("FWD_RESP_EXT_REJECT"),
    decoded<Undisclosed>("FWD_RESP_EXT_LOC_RESP"),
    decoded<Undisclosed>("FWD_RESP_EXT_BS_CAP"),
    decoded<Undisclosed>("FWD_RESP_ENH_BS_ALMANAC"),
    decoded<Undisclosed>("FWD_RESP_GEN_ACQ_ASST"),
    decoded<Undisclosed>("FWD_RESP_EXT_GPS_SENS_ASST"),
    skipped("FWD_RESP_TYPE_RESERVED"),
    skipped("FWD_RESP_TYPE_RESERVED"),
    decoded<FwdRespAlmanac>("FWD_RESP_TYPE_GPS_ALMANAC"),
    decoded<Undisclosed>("FWD_RESP_TYPE_GPS_EPHEMERIS"),
    decoded<Undisclosed>("FWD_RESP_EXT_GPS_NAV_MSG_BITS"),
    decoded<Undisclosed>("FWD_RESP_EXT_GPS_ALMANAC_CORR"),
    decoded<Undisclosed>("FWD_RESP_EXT_GPS_SAT_HLTH_INFO"),
    decoded<Undisclosed>("FWD_RESP_GPS_COARSE_LOC_ASST"),
    decoded<Undisclosed>("FWD_RESP_GPS_COARSE_ACQ_ASST"),
    decoded<Undisclosed>("FWD_RESP_DGPS_ASST"),
    decoded<Undisclosed>("FWD_RESP_GPS_RT_INT_INFO"),
};
// Reverse requests, IS-801-1 (request types 0-12): each asks for the forward response of the
// same number.
const ElemDef kRevReq0[] = {
    skipped("REV_REQ_TYPE_RESERVED"),
    decoded<RevReqLocResp>("REV_REQ_TYPE_LOC_RESP"),
    decoded<NoFields>("REV_REQ_TYPE_BS_CAP"),
    decoded<RevReqBsAlmanac>("REV_REQ_TYPE_BS_ALMANAC"),
    decoded<RevReqAcqAssist>("REV_REQ_TYPE_GPS_ACQ_ASSIST"),
    decoded<NoFields>("REV_REQ_TYPE_GPS_SENS_ASSIST"),
    decoded<RevReqLocAssist>("REV_REQ_TYPE_GPS_LOC_ASSIST"),
    skipped("REV_REQ_TYPE_RESERVED"),
    decoded<NoFields>("REV_REQ_TYPE_GPS_ALMANAC"),
    decoded<RevReqEphemeris>("REV_REQ_TYPE_GPS_EPHEMERIS"),
    decoded<RevReqNavMsg>("REV_REQ_TYPE_GPS_NAV_MSG"),
    decoded<RevReqAlmCorr>("REV_REQ_TYPE_GPS_ALM_CORR"),
    decoded<NoFields>("REV_REQ_TYPE_EXT_GPS_SAT_HEALTH"),
};
// Reverse requests, extended revision (request types 0-16), numbered as the forward
// responses they ask for; the almanac, almanac correction and satellite health requests are
// the IS-801-1 elements.
const ElemDef kRevReq1[] = {
    skipped("REV_REQ_TYPE_RESERVED"),
    decoded<Undisclosed>("REV_REQ_EXT_LOC_RESP"),
    decoded<Undisclosed>("REV_REQ_TYPE_BS_CAP"),
    decoded<Undisclosed>("REV_REQ_ENHANCED_BS_ALMANAC"),
    decoded<Undisclosed>("REV_REQ_GEN_ACQ_ASST"),
    decoded<Undisclosed>("REV_REQ_EXT_GPS_SENS_ASST"),
    skipped("REV_REQ_TYPE_RESERVED"),
    skipped("REV_REQ_TYPE_RESERVED"),
    decoded<NoFields>("REV_REQ_TYPE_GPS_ALMANAC"),
    decoded<Undisclosed>("REV_REQ_EXT_GPS_EPHEMERIS"),
    decoded<Undisclosed>("REV_REQ_EXT_GPS_NAV_MSG_BITS"),
    decoded<RevReqAlmCorr>("REV_REQ_TYPE_GPS_ALM_CORR"),
    decoded<NoFields>("REV_REQ_TYPE_EXT_GPS_SAT_HEALTH"),
    decoded<Undisclosed>("REV_REQ_GPS_COARSE_LOC_ASST"),
    decoded<Undisclosed>("REV_REQ_GPS_COARSE_ACQ_ASST"),
    decoded<Undisclosed>("REV_REQ_DGPS_ASST"),
    decoded<Undisclosed>("REV_REQ_GPS_RT_INT_INFO"),
};
// Reverse responses, IS-801-1 (response types 0-7): each answers the forward request of the
// same number.
const ElemDef kRevResp0[] = {
    decoded<Reject>("REV_RESP_TYPE_REJECT"),
    decoded<LocResp>("REV_RESP_TYPE_LOC_RESP"),
    decoded<RevRespMsInfo>("REV_RESP_TYPE_MSI"),
    decoded<Undisclosed>("REV_RESP_TYPE_AUTO_MWF"),
    decoded<Undisclosed>("REV_RESP_TYPE_PSEUDO_MEAS"),
    decoded<Undisclosed>("REV_RESP_TYPE_PPM"),
    decoded<RevRespTimeOffset>("REV_RESP_TYPE_TIME_OFFSET_MEAS"),
    decoded<RevRespCancelAck>("REV_RESP_TYPE_CANCEL_ACK"),
};
// Reverse responses, extended revision (response types 0-11), numbered as the forward
// requests they answer.
const ElemDef kRevResp1[] = {
    decoded<Undisclosed>("REV_RESP_EXT_REJ"),
    decoded<Undisclosed>("REV_RESP_EXT_LOC_RESP"),
    decoded<Undisclosed>("REV_RESP_EXT_MS_INFO"),
    decoded<Undisclosed>("REV_RESP_TYPE_AUTO_MWF"),
    decoded<Undisclosed>("REV_RESP_GEN_LOC_MEAS"),
    skipped("REV_RESP_TYPE_RESERVED"),
    skipped("REV_RESP_TYPE_RESERVED"),
    decoded<Undisclosed>("REV_RESP_EXT_CANCEL_ACK"),
    decoded<Undisclosed>("REV_RESP_GPS_COARSE_LOC_RESP"),
    decoded<Undisclosed>("REV_RESP_MSG_DELAY_MEAS"),
    decoded<Undisclosed>("REV_RESP_BEARING_MEAS"),
    decoded<Undisclosed>("REV_RESP_SERV_SYS_INFO"),
};

template <std::size_t N>
const ElemDef* row(const ElemDef (&table)[N], std::uint32_t type) {
  return type < N ? &table[type] : nullptr;
}

// The element of `type` for this link, direction of exchange and PD_MSG_TYPE (0 or 1), or
// null past the end of its table.
const ElemDef* element_def(bool forward, bool request, std::uint8_t pd_msg_type, std::uint32_t type) {
  const bool ext = pd_msg_type == 1;
  if (forward)
    return request ? (ext ? row(kFwdReq1, type) : row(kFwdReq0, type))
                   : (ext ? row(kFwdResp1, type) : row(kFwdResp0, type));
  return request ? (ext ? row(kRevReq1, type) : row(kRevReq0, type))
                 : (ext ? row(kRevResp1, type) : row(kRevResp0, type));
}

// ---------------------------------------------------------------------------------------
// The message.

struct PddmCtx : Ctx {
  std::uint8_t pd_msg_type = 0;
};

// The decoded body of one element, as its row's decoder fills it.
struct ElementBody {
  const BodyOps* ops;
  AnyRec* body;
};
template <class W>
void layout(W& w, ElementBody& e, const Ctx& c) {
  w.body("", e.ops, *e.body, c);
}

// The element after a request or response header of `par_len` octets.
template <class W>
void element(W& w, AnyRec& body, const ElemDef* def, std::uint32_t par_len, const Ctx& c) {
  if (def == nullptr) return;   // a type beyond the table: header only, its body is not passed over
  const std::uint64_t bits = 8u * std::uint64_t{par_len};
  if constexpr (W::kReading) {
    // The declared length reaches past the fields read so far: all of it must lie in the
    // burst, whether the body is decoded or passed over.
    if (!w.need(bits)) return;
    if (def->ops.decode == nullptr) {
      w.skip(bits);
      return;
    }
    ElementBody e{&def->ops, &body};
    w.sized(def->name, e, bits, c);
  } else {
    // Printing: the element stands under its own header line, with no label, at the field
    // indent of the request or response that carries it; an element that is passed over shows
    // its header alone.
    Text& t = w.text();
    t.spaces(w.indent());
    if (def->ops.decode == nullptr) {
      t.put(def->name).put('\n');
      return;
    }
    if (body.rec != nullptr) def->ops.print(body.rec, c, def->name, w.indent(), t);
  }
}

struct PddmRequest {
  std::uint8_t req_type_4, req_type_8;
  std::uint16_t req_par_len;
  AnyRec body;
};
template <class W>
void layout(W& w, PddmRequest& r, const PddmCtx& c) {
  std::uint32_t type = 0;
  if (c.pd_msg_type == 0) {
    w(reserved(4), F(req_type_4, 4), F(req_par_len, 8));
    type = r.req_type_4;
  } else if (c.pd_msg_type == 1) {
    w(F(req_type_8, 8), F(req_par_len, 10));
    type = r.req_type_8;
  } else {
    return;   // no element header is defined for other message types
  }
  element(w, r.body, element_def(c.forward, true, c.pd_msg_type, type), r.req_par_len, c);
}

struct PddmResponse {
  std::uint8_t unsol_resp, resp_type_4, resp_type_8;
  std::uint16_t resp_par_len;
  AnyRec body;
};
template <class W>
void layout(W& w, PddmResponse& r, const PddmCtx& c) {
  std::uint32_t type = 0;
  if (c.pd_msg_type == 0) {
    w(reserved(3), F(unsol_resp, 1), F(resp_type_4, 4), F(resp_par_len, 8));
    type = r.resp_type_4;
  } else if (c.pd_msg_type == 1) {
    w(F(unsol_resp, 1), F(resp_type_8, 8), F(resp_par_len, 10));
    type = r.resp_type_8;
  } else {
    return;
  }
  element(w, r.body, element_def(c.forward, false, c.pd_msg_type, type), r.resp_par_len, c);
}

struct Pddm {
  std::uint8_t sess_start, sess_end, sess_source, sess_tag, pd_msg_type;
  std::uint16_t pd_msg_len;
  std::uint8_t regulatory_ind, num_requests, num_responses;
  PoolArray<PddmRequest> requests_msg;
  PoolArray<PddmResponse> responses_msg;
};
template <class W>
void layout(W& w, Pddm& r, const Ctx& c) {
  w(F(sess_start, 1), F(sess_end, 1), F(sess_source, 1), F(sess_tag, 5), F(pd_msg_type, 8));
  if (r.pd_msg_type == 1) w(F(pd_msg_len, 10), F(regulatory_ind, 2));
  w(F(num_requests, 4), F(num_responses, 4));
  PddmCtx cc{c};
  cc.pd_msg_type = r.pd_msg_type;
  w.records("requests_msg", r.requests_msg, r.num_requests, cc);
  if (c.forward)
    w.records("responses_msg", r.responses_msg, r.num_responses, cc);
  else
    w.records("responses_msg", "REV_PDDM_MSG_responses_msg_type_pddm", r.responses_msg, r.num_responses, cc);
}

Rc decode_pddm(Pddm& r, const std::uint8_t* data, std::size_t n, const Ctx& c, Arena& arena,
               std::uint64_t* consumed) {
  std::uint64_t used = 0;
  const Rc rc = decode(r, c, arena, data, n, 0, 8u * std::uint64_t{n}, &used);
  if (rc == Rc::ok && consumed) *consumed = (used + 7) / 8 * 8;   // whole octets
  return rc;
}

}  // namespace

Rc pd_contents(Text& t, unsigned indent, const std::uint8_t* data, std::size_t n, const Ctx& c, Arena& arena) {
  Pddm r{};
  const Rc rc = decode_pddm(r, data, n, c, arena, nullptr);
  if (rc == Rc::ok) print(r, c, c.forward ? "FWD_PDDM_MSG" : "REV_PDDM_MSG", indent, t);
  return rc;
}

Rc pd_measure(const std::uint8_t* data, std::size_t n, const Ctx& c, std::uint64_t* consumed_bits) {
  Arena arena;
  Pddm r{};
  return decode_pddm(r, data, n, c, arena, consumed_bits);
}

}  // namespace cs
