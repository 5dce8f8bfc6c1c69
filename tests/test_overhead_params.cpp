// Overhead parameter messages of the paging channel, decoded and printed through their
// BodyOps: the revision and flag rules of the extended system, ANSI-41 and enhanced access
// parameters, swept over their combinations (single cases are golden files).
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "codec/arena.h"
#include "fwd_common/tables.h"
#include "helpers.h"
#include "text/text.h"

namespace cs {
namespace {

using test::Bits;
using test::lines;

struct Body {
  Rc rc;
  std::string text;
  std::uint64_t used;
};

// Decodes one body from `start` over `avail` bits into a zeroed record and prints it at indent 0.
Body run(std::uint8_t msg_id, std::uint8_t p_rev, std::uint8_t band, const std::vector<std::uint8_t>& buf,
         std::uint64_t start, std::uint64_t avail) {
  const BodyOps* ops = paging_messages().body(msg_id);
  EXPECT_NE(ops, nullptr);
  if (!ops) return {Rc::count, "", 0};
  std::vector<std::max_align_t> rec(ops->size / sizeof(std::max_align_t) + 1);
  std::memset(rec.data(), 0, rec.size() * sizeof(std::max_align_t));   // records start zero-filled
  Arena arena;
  Ctx c;
  c.p_rev = p_rev;
  c.band_class = band;
  std::uint64_t used = ~0ull;
  const Rc rc = ops->decode(rec.data(), c, arena, buf.data(), buf.size(), start, avail, &used);
  Text t;
  ops->print(rec.data(), c, ops->header, 0, t);
  return {rc, t.str(), used};
}

Body run_bits(std::uint8_t msg_id, std::uint8_t p_rev, std::uint8_t band, const Bits& b) {
  return run(msg_id, p_rev, band, b.message(0), 0, b.size());
}

// "HEADER { NAME = value ... }" from (name, value) pairs.
struct F {
  const char* name;
  long long value;
};
// Builds bits from (name, width, value) triples and the matching field lines.
struct W {
  const char* name;  // nullptr: reserved bits, not printed
  unsigned width;
  std::uint64_t value;
};
void put(Bits& b, std::string& text, std::initializer_list<W> ws, unsigned indent = 3) {
  for (const W& w : ws) {
    b.put(w.value, w.width);
    if (w.name) text += std::string(indent, ' ') + w.name + " = " + std::to_string(w.value) + "\n";
  }
}

// ---------------------------------------------------------------------------------------------
// Extended System Parameters: the IS-95-B group by the caller's revision, the later groups by
// the P_REV the message carries.

std::string espm_head(Bits& b, unsigned zone_len) {
  std::string t = "FC_ESPM\n{\n";
  put(b, t, {{"PILOT_PN", 9, 1}, {"CONFIG_MSG_SEQ", 6, 2}, {"DELETE_FOR_TMSI", 1, 1}, {"USE_TMSI", 1, 0},
             {"PREF_MSID_TYPE", 2, 2}});
  b.put(310, 10).put(26, 7);   // MCC 310, IMSI_11_12 26 (annotated)
  t += "   MCC = 310 ( 421 )\n   IMSI_11_12 = 26 ( 37 )\n";
  put(b, t, {{"TMSI_ZONE_LEN", 4, zone_len}});
  if (zone_len) {
    b.put(0xA5, 8).put(0x0F, 8);
    t += "   TMSI_ZONE = 0xa50f\n";
  }
  put(b, t, {{"BCAST_INDEX", 3, 5}});
  return t;
}

std::string espm_95b(Bits& b, unsigned msg_p_rev) {
  std::string t;
  put(b, t, {{"IMSI_T_SUPPORTED", 1, 1}, {"P_REV", 8, msg_p_rev}, {"MIN_P_REV", 8, 2}, {"SOFT_SLOPE", 6, 63},
             {"ADD_INTERCEPT", 6, 1}, {"DROP_INTERCEPT", 6, 2}, {"PACKET_ZONE_ID", 8, 200},
             {"MAX_NUM_ALT_SO", 3, 7}, {"RESELECT_INCLUDED", 1, 1}, {"EC_THRESH", 5, 17}, {"EC_I0_THRESH", 5, 18},
             {"PILOT_REPORT", 1, 1}, {"NGHBR_SET_ENTRY_INFO", 1, 0}, {"NGHBR_SET_ACCESS_INFO", 1, 1},
             {"ACCESS_HO", 1, 1}, {"ACCESS_HO_MSG_RSP", 1, 0}, {"ACCESS_PROBE_HO", 1, 1},
             {"ACC_HO_LIST_UPD", 1, 1}, {"ACC_PROBE_HO_OTHER_MSG", 1, 0}, {"MAX_NUM_PROBE_HO", 3, 4},
             {"NGHBR_SET_SIZE", 6, 2}});
  b.put(0b10, 2);
  t += "   ACCESS_HO_ALLOWED[0] = 1\n   ACCESS_HO_ALLOWED[1] = 0\n";
  return t;
}

TEST(OverheadParams, ExtendedSystemParametersGroups) {
  // IS-95-A: nothing after BCAST_INDEX, even with bits to spare.
  {
    Bits b;
    std::string want = espm_head(b, 2);
    b.put(0xFFFF, 16);
    auto r = run_bits(13, 3, 1, b);
    EXPECT_EQ(r.rc, Rc::ok);
    EXPECT_EQ(r.used, 59u);
    EXPECT_EQ(r.text, want + "}\n");
  }
  // The message's own P_REV 5: the IS-95-B group only, although the caller says 9.
  {
    Bits b;
    std::string want = espm_head(b, 0);
    want += espm_95b(b, 5);
    b.put(0, 7);
    auto r = run_bits(13, 9, 0, b);
    EXPECT_EQ(r.rc, Rc::ok);
    EXPECT_EQ(r.text, want + "}\n");
  }
  // P_REV 9 with every optional group present.
  {
    Bits b;
    std::string want = espm_head(b, 0);
    want += espm_95b(b, 9);
    put(b, want,
        {// release 0
         {"BROADCAST_GPS_ASST", 1, 1}, {"QPCH_SUPPORTED", 1, 1}, {"NUM_QPCH", 2, 3}, {"QPCH_RATE", 1, 1},
         {"QPCH_POWER_LEVEL_PAGE", 3, 6}, {"QPCH_CCI_SUPPORTED", 1, 1}, {"QPCH_POWER_LEVEL_CONFIG", 3, 5},
         {"SDB_SUPPORTED", 1, 1}, {"RLGAIN_TRAFFIC_PILOT", 6, 33}, {"REV_PWR_CNTL_DELAY_INCL", 1, 1},
         {"REV_PWR_CNTL_DELAY", 2, 2},
         // release A
         {"AUTO_MSG_SUPPORTED", 1, 1}, {"AUTO_MSG_INTERVAL", 3, 4}, {"MOB_QOS", 1, 1}, {"ENC_SUPPORTED", 1, 1},
         {"SIG_ENCRYPT_SUP", 8, 0x81}, {"UI_ENCRYPT_SUP", 8, 0x42}, {"USE_SYNC_ID", 1, 1}, {"CS_SUPPORTED", 1, 0},
         {"BCCH_SUPPORTED", 1, 1}, {"MS_INIT_POS_LOC_SUP_IND", 1, 0}, {"PILOT_INFO_REQ_SUPPORTED", 1, 1},
         // release B
         {"QPCH_BI_SUPPORTED", 1, 1}, {"QPCH_POWER_LEVEL_BCAST", 3, 3}, {"BAND_CLASS_INFO_REQ", 1, 1},
         {"ALT_BAND_CLASS", 5, 19}, {"CDMA_OFF_TIME_REP_SUP_IND", 1, 1},
         {"CDMA_OFF_TIME_REP_THRESHOLD_UNIT", 1, 1}, {"CDMA_OFF_TIME_REP_THRESHOLD", 3, 6},
         // release C
         {"CHM_SUPPORTED", 1, 1}, {"RELEASE_TO_IDLE_IND", 1, 0}, {"RECONNECT_MSG_IND", 1, 1},
         {"MSG_INTEGRITY_SUP", 1, 1}, {"SIG_INTEGRITY_SUP_INCL", 1, 1}, {"SIG_INTEGRITY_SUP", 8, 0x80},
         {"FOR_PDCH_SUPPORTED", 1, 1}, {"PDCH_CHM_SUPPORTED", 1, 0}, {"PDCH_PARMS_INCL", 1, 1},
         {"FOR_PDCH_RLGAIN_INCL", 1, 1}, {"RLGAIN_ACKCH_PILOT", 6, 44}, {"RLGAIN_CQICH_PILOT", 6, 55},
         {"NUM_SOFT_SWITCHING_FRAMES", 4, 9}, {"NUM_SOFTER_SWITCHING_FRAMES", 4, 10},
         {"NUM_SOFT_SWITCHING_SLOTS", 2, 3}, {"NUM_SOFTER_SWITCHING_SLOTS", 2, 1},
         {"PDCH_SOFT_SWITCHING_DELAY", 8, 250}, {"PDCH_SOFTER_SWITCHING_DELAY", 8, 7}, {"WALSH_TABLE_ID", 3, 2},
         {"NUM_PDCCH", 3, 1}});
    b.put(31, 6).put(63, 6);
    want +=
        "   PDCCH_WALSHs[0] = FC_ESPM_PDCCH_WALSHs\n   {\n      FOR_PDCCH_WALSH = 31\n   }\n"
        "   PDCCH_WALSHs[1] = FC_ESPM_PDCCH_WALSHs\n   {\n      FOR_PDCCH_WALSH = 63\n   }\n";
    put(b, want, {{"IMSI_10_INCL", 1, 1}, {"IMSI_10", 4, 9}});
    const std::size_t all = b.size();
    auto r = run_bits(13, 9, 0, b);
    EXPECT_EQ(r.rc, Rc::ok);
    EXPECT_EQ(r.used, all);
    EXPECT_EQ(r.text, want + "}\n");

    // One bit short anywhere in the message is result 3, never a crash.
    const auto buf = b.message(0);
    for (std::size_t n = 0; n < all; ++n) EXPECT_EQ(run(13, 9, 0, buf, 0, n).rc, Rc::short_msg) << n;
  }
}

TEST(OverheadParams, ExtendedSystemParametersRevisionD) {
  // The message's P_REV 10 with F-PDCH support brings the R-PDCH group; CS_SUPPORTED,
  // PACKET_ZONE_ID, RECONNECT_MSG_IND and SDB_SUPPORTED switch on their dependent fields.
  Bits b;
  std::string want = espm_head(b, 0);
  put(b, want, {{"IMSI_T_SUPPORTED", 1, 0}, {"P_REV", 8, 10}, {"MIN_P_REV", 8, 6}, {"SOFT_SLOPE", 6, 0},
                {"ADD_INTERCEPT", 6, 0}, {"DROP_INTERCEPT", 6, 0}, {"PACKET_ZONE_ID", 8, 9}, {"MAX_NUM_ALT_SO", 3, 0},
                {"RESELECT_INCLUDED", 1, 0}, {"PILOT_REPORT", 1, 0}, {"NGHBR_SET_ENTRY_INFO", 1, 0},
                {"NGHBR_SET_ACCESS_INFO", 1, 0}, {"BROADCAST_GPS_ASST", 1, 0}, {"QPCH_SUPPORTED", 1, 0},
                {"SDB_SUPPORTED", 1, 1}, {"RLGAIN_TRAFFIC_PILOT", 6, 0}, {"REV_PWR_CNTL_DELAY_INCL", 1, 0},
                {"AUTO_MSG_SUPPORTED", 1, 0}, {"MOB_QOS", 1, 0}, {"ENC_SUPPORTED", 1, 0}, {"USE_SYNC_ID", 1, 0},
                {"CS_SUPPORTED", 1, 1}, {"BCCH_SUPPORTED", 1, 0}, {"MS_INIT_POS_LOC_SUP_IND", 1, 0},
                {"PILOT_INFO_REQ_SUPPORTED", 1, 0}, {"BAND_CLASS_INFO_REQ", 1, 0}, {"CDMA_OFF_TIME_REP_SUP_IND", 1, 0},
                {"CHM_SUPPORTED", 1, 0}, {"RELEASE_TO_IDLE_IND", 1, 0}, {"RECONNECT_MSG_IND", 1, 1},
                {"MSG_INTEGRITY_SUP", 1, 0}, {"FOR_PDCH_SUPPORTED", 1, 1}, {"PDCH_CHM_SUPPORTED", 1, 1},
                {"PDCH_PARMS_INCL", 1, 0}, {"IMSI_10_INCL", 1, 0},
                // release D
                {"MAX_ADD_SERV_INSTANCE", 3, 4}, {"RER_MODE_SUPPORTED", 1, 1}, {"TKZ_MODE_SUPPORTED", 1, 1},
                {"TKZ_ID", 8, 200}, {"PZ_HYST_ENABLED", 1, 1}, {"PZ_HYST_INFO_INCL", 1, 0},
                {"EXT_PREF_MSID_TYPE", 2, 0}, {"MEID_REQD", 1, 1}, {"AUTO_FCSO_ALLOWED", 1, 1},
                {"REV_PDCH_SUPPORTED", 1, 1}, {"REV_PDCH_PARMS_INCL", 1, 1}, {"REV_PDCH_RLGAIN_INCL", 1, 1},
                {"RLGAIN_SPICH_PILOT", 6, 1}, {"RLGAIN_REQCH_PILOT", 6, 2}, {"RLGAIN_PDCCH_PILOT", 6, 3},
                {"REV_PDCH_PARMS_1_INCL", 1, 1}, {"REV_PDCH_TABLE_SEL", 1, 1}, {"REV_PDCH_MAX_AUTO_TPR", 8, 150},
                {"REV_PDCH_NUM_ARQ_ROUNDS_NORMAL", 2, 2}, {"REV_PDCH_OPER_PARMS_INCL", 1, 1},
                {"REV_PDCH_MAX_SIZE_ALLOWED_ENCODER_PACKET", 4, 9}, {"REV_PDCH_DEFAULT_PERSISTENCE", 1, 1},
                {"REV_PDCH_RESET_PERSISTENCE", 1, 0}, {"REV_PDCH_GRANT_PRECEDENCE", 1, 1},
                {"REV_PDCH_MSIB_SUPPORTED", 1, 0}, {"REV_PDCH_SOFT_SWITCHING_RESET_IND", 1, 1},
                {"SDB_IN_RCNM_IND", 1, 1}, {"SENDING_BSPM", 1, 1}, {"BSPM_PERIOD_INDEX", 4, 7},
                {"CAND_BAND_INFO_REQ", 1, 1}, {"NUM_CAND_BAND_CLASS", 3, 1}});
  want += "   CAND_BAND_CLASSs[0] = FC_ESPM_CAND_BAND_CLASSs\n   {\n";
  put(b, want, {{"CAND_BAND_CLASS", 5, 1}, {"SUBCLASS_INFO_INCL", 1, 1}, {"SUBCLASS_REC_LEN", 5, 1}}, 6);
  b.put(0b10, 2);
  want += "      BAND_SUBCLASS_IND[0] = 1\n      BAND_SUBCLASS_IND[1] = 0\n   }\n";
  want += "   CAND_BAND_CLASSs[1] = FC_ESPM_CAND_BAND_CLASSs\n   {\n";
  put(b, want, {{"CAND_BAND_CLASS", 5, 15}, {"SUBCLASS_INFO_INCL", 1, 0}}, 6);
  want += "   }\n";
  put(b, want, {{"TX_PWR_LIMIT_INCL", 1, 1}, {"TX_PWR_LIMIT", 6, 23}, {"BYPASS_REG_IND", 2, 1}});
  const std::size_t all = b.size();
  auto r = run_bits(13, 10, 0, b);
  EXPECT_EQ(r.rc, Rc::ok);
  EXPECT_EQ(r.used, all);
  EXPECT_EQ(r.text, want + "}\n");
  const auto buf = b.message(0);
  for (std::size_t n = 0; n < all; ++n) EXPECT_EQ(run(13, 10, 0, buf, 0, n).rc, Rc::short_msg) << n;
}

// ---------------------------------------------------------------------------------------------
// ANSI-41 RAND and ANSI-41 System Parameters.

std::string a41spm_base(Bits& b, unsigned pzid) {
  std::string t = "FC_A41SPM\n{\n";
  put(b, t,
      {{"PILOT_PN", 9, 5}, {"CONFIG_MSG_SEQ", 6, 9}, {"SID", 15, 4145}, {"NID", 16, 4}, {"PACKET_ZONE_ID", 8, pzid},
       {"REG_ZONE", 12, 5}, {"TOTAL_ZONES", 3, 2}, {"ZONE_TIMER", 3, 1}, {"MULT_SIDS", 1, 0}, {"MULT_NIDS", 1, 1},
       {"HOME_REG", 1, 1}, {"FOR_SID_REG", 1, 0}, {"FOR_NID_REG", 1, 1}, {"POWER_UP_REG", 1, 1},
       {"POWER_DOWN_REG", 1, 0}, {"PARAMETER_REG", 1, 1}, {"REG_PRD", 7, 58}, {"DIST_REG_INCL", 1, 1},
       {"REG_DIST", 11, 1000}, {"DELETE_FOR_TMSI", 1, 0}, {"USE_TMSI", 1, 1}, {"PREF_MSID_TYPE", 2, 3},
       {"TMSI_ZONE_LEN", 4, 1}});
  b.put(0x5A, 8);
  t += "   TMSI_ZONE = 0x5a\n";
  put(b, t,
      {{"IMSI_T_SUPPORTED", 1, 1}, {"MAX_NUM_ALT_SO", 3, 2}, {"AUTO_MSG_SUPPORTED", 1, 1},
       {"AUTO_MSG_INTERVAL", 3, 6}, {"OTHER_INFO_INCL", 1, 1}, {"BASE_ID", 16, 8544}});
  b.put(310, 10).put(0, 7);
  t += "   MCC = 310 ( 421 )\n   IMSI_11_12 = 0 ( 11 )\n";
  put(b, t, {{"BROADCAST_GPS_ASST", 1, 1}, {"SIG_ENCRYPT_SUP", 8, 0x40}, {"CS_SUPPORTED", 1, 1},
             {"MS_INIT_POS_LOC_SUP_IND", 1, 0}});
  return t;
}

TEST(OverheadParams, Ansi41SystemParametersByRevision) {
  // P_REV 7 and 8: nothing after MS_INIT_POS_LOC_SUP_IND, whatever follows.
  for (std::uint8_t p_rev : {7, 8}) {
    Bits b;
    std::string want = a41spm_base(b, 0);
    const std::size_t fixed = b.size();
    b.put(0xFF, 8);
    auto r = run_bits(29, p_rev, 0, b);
    EXPECT_EQ(r.rc, Rc::ok);
    EXPECT_EQ(r.used, fixed);
    EXPECT_EQ(r.text, want + "}\n");
  }
  // P_REV 11 with every group; PACKET_ZONE_ID non-zero brings the hysteresis fields.
  {
    Bits b;
    std::string want = a41spm_base(b, 17);
    put(b, want,
        {{"MSG_INTEGRITY_SUP", 1, 1}, {"SIG_INTEGRITY_SUP_INCL", 1, 1}, {"SIG_INTEGRITY_SUP", 8, 0},
         {"IMSI_10_INCL", 1, 1}, {"IMSI_10", 4, 7}, {"MAX_ADD_SERV_INSTANCE", 3, 2}, {"TKZ_MODE_SUPPORTED", 1, 1},
         {"TKZ_ID", 8, 99}, {"PZ_HYST_ENABLED", 1, 1}, {"PZ_HYST_INFO_INCL", 1, 1}, {"PZ_HYST_LIST_LEN", 4, 3},
         {"PZ_HYST_ACT_TIMER", 8, 30}, {"PZ_HYST_TIMER_MUL", 3, 2}, {"PZ_HYST_TIMER_EXP", 5, 4},
         {"EXT_PREF_MSID_TYPE", 2, 1}, {"MEID_REQD", 1, 1}});
    const std::size_t all = b.size();
    auto r = run_bits(29, 11, 0, b);
    EXPECT_EQ(r.rc, Rc::ok);
    EXPECT_EQ(r.used, all);
    EXPECT_EQ(r.text, want + "}\n");
    const auto buf = b.message(0);
    for (std::size_t n = 0; n < all; ++n) EXPECT_EQ(run(29, 11, 0, buf, 0, n).rc, Rc::short_msg) << n;
  }
  // Outside a packet zone there is no hysteresis; EXT_PREF_MSID_TYPE '11' with PREF_MSID_TYPE
  // '11' has no MEID_REQD. P_REV 9 stops after IMSI_10; P_REV 10 goes on.
  {
    Bits b;
    std::string want = a41spm_base(b, 0);
    put(b, want, {{"MSG_INTEGRITY_SUP", 1, 0}, {"IMSI_10_INCL", 1, 0}});
    Bits b10 = b;
    std::string want10 = want;
    b.put(0x1F, 5);   // no further fields at P_REV 9
    auto r9 = run_bits(29, 9, 0, b);
    EXPECT_EQ(r9.rc, Rc::ok);
    EXPECT_EQ(r9.used, b.size() - 5);
    EXPECT_EQ(r9.text, want + "}\n");
    put(b10, want10, {{"MAX_ADD_SERV_INSTANCE", 3, 5}, {"TKZ_MODE_SUPPORTED", 1, 0}, {"EXT_PREF_MSID_TYPE", 2, 3}});
    auto r10 = run_bits(29, 10, 0, b10);
    EXPECT_EQ(r10.rc, Rc::ok);
    EXPECT_EQ(r10.used, b10.size());
    EXPECT_EQ(r10.text, want10 + "}\n");
  }
}

// ---------------------------------------------------------------------------------------------
// Enhanced Access Parameters: length-prefixed records (the persistence, LAC and mode records
// count their own length field), repeated mode entries, the access-control records.

TEST(OverheadParams, EnhancedAccessParametersEveryRecord) {
  Bits b;
  std::string want = "FC_EAPM\n{\n";
  put(b, want, {{"PILOT_PN", 9, 78}, {"ACC_MSG_SEQ", 6, 3}, {"PSIST_PARMS_INCL", 1, 1}, {"PSIST_PARMS_LEN", 5, 5}});
  // 5 octets with the length field: 33 bits of fields and 2 reserved bits.
  want += "   PSIST_PARMS_REC = FC_EAPM_PSIST_PARMS_REC\n   {\n";
  put(b, want,
      {{"PSIST_0_9_EACH", 6, 63}, {"PSIST_10_EACH", 3, 1}, {"PSIST_11_EACH", 3, 2}, {"PSIST_12_EACH", 3, 3},
       {"PSIST_13_EACH", 3, 4}, {"PSIST_14_EACH", 3, 5}, {"PSIST_15_EACH", 3, 6}, {"PSIST_EMG", 3, 7},
       {"MSG_PSIST_EACH", 3, 1}, {"REG_PSIST_EACH", 3, 2}, {nullptr, 2, 0}},
      6);
  want += "   }\n";
  put(b, want, {{"LAC_PARMS_LEN", 4, 3}});
  want += "   LAC_PARMS_REC = FC_EAPM_LAC_PARMS_REC\n   {\n";
  put(b, want, {{"ACC_TMO", 6, 40}, {nullptr, 4, 0}, {"MAX_REQ_SEQ", 4, 3}, {"MAX_RSP_SEQ", 4, 2}, {nullptr, 2, 0}},
      6);
  want += "   }\n";
  put(b, want, {{"NUM_MODE_SELECTION_ENTRIES", 3, 1}});
  for (unsigned k = 0; k < 2; ++k) {
    want += "   ACCESS_MODEs[" + std::to_string(k) + "] = FC_EAPM_ACCESS_MODEs\n   {\n";
    put(b, want, {{"ACCESS_MODE", 3, k}, {"ACCESS_MODE_MIN_DURATION", 10, 100 + k}, {"ACCESS_MODE_MAX_DURATION", 10, 1023}},
        6);
    want += "   }\n";
  }
  put(b, want, {{"RLGAIN_COMMON_PILOT", 6, 33}, {"IC_THRESH", 4, 5}, {"IC_MAX", 4, 9}, {"NUM_MODE_PARM_REC", 3, 0}});
  // 78 bits of fields declared as 11 octets: the last 10 bits are stepped over.
  want += "   MODE_PARM_RECs[0] = FC_EAPM_MODE_PARM_RECs\n   {\n";
  put(b, want,
      {{"EACH_PARM_REC_LEN", 4, 11}, {"APPLICABLE_MODES", 8, 0xC0}, {"EACH_NOM_PWR", 5, 17}, {"EACH_INIT_PWR", 5, 30},
       {"EACH_PWR_STEP", 3, 4}, {"EACH_NUM_STEP", 4, 9}, {"EACH_PREAMBLE_ENABLED", 1, 1},
       {"EACH_PREAMBLE_NUM_FRAC", 4, 1}, {"EACH_PREAMBLE_FRAC_DURATION", 4, 2}, {"EACH_PREAMBLE_OFF_DURATION", 4, 3},
       {"EACH_PREAMBLE_ADD_DURATION", 4, 4}, {"EACH_ACCESS_THRESH", 6, 0}, {"EACH_PROBE_BKOFF", 4, 5},
       {"EACH_BKOFF", 4, 6}, {"EACH_SLOT", 6, 20}, {"EACH_SLOT_OFFSET1", 6, 21}, {"EACH_SLOT_OFFSET2", 6, 22},
       {nullptr, 10, 0x3FF}},
      6);
  want += "   }\n";
  put(b, want, {{"BA_PARMS_LEN", 3, 2}});
  want += "   BA_PARMS_REC = FC_EAPM_BA_PARMS_REC\n   {\n";
  put(b, want, {{"NUM_EACH_BA", 5, 12}, {"EACH_BA_RATES_SUPPORTED", 8, 0xF0}, {nullptr, 3, 0}}, 6);
  want += "   }\n";
  put(b, want, {{"RA_PARMS_LEN", 5, 14}});
  want += "   RA_PARMS_REC = FC_EAPM_RA_PARMS_REC\n   {\n";
  put(b, want, {{"NUM_EACH_RA", 5, 7}, {"NUM_CACH", 3, 1}, {"CACH_CODE_RATE", 1, 1}}, 6);
  b.put(11, 8).put(255, 8);
  want += "      CACH_CODE_CHAN[0] = 11\n      CACH_CODE_CHAN[1] = 255\n";
  put(b, want,
      {{"NUM_RCCCH", 5, 2}, {"RCCCH_RATES_SUPPORTED", 8, 0xE0}, {"RCCCH_PREAMBLE_ENABLED", 1, 0}, {"RCCCH_SLOT", 6, 1},
       {"RCCCH_SLOT_OFFSET1", 6, 2}, {"RCCCH_SLOT_OFFSET2", 6, 3}, {"RCCCH_NOM_PWR", 5, 4}, {"RCCCH_INIT_PWR", 5, 5},
       {"RA_PC_DELAY", 5, 6}, {"EACAM_CACH_DELAY", 4, 7}, {"RCCCH_HO_SUPPORTED", 1, 1}, {"RCCCH_HO_THRESH", 4, 8},
       {"EACAM_PCCAM_DELAY", 5, 9}, {"NUM_CPCCH", 2, 0}, {"CPCCH_RATE", 2, 2}},
      6);
  b.put(77, 8);
  want += "      CPCCH_CODE_CHAN[0] = 77\n";
  put(b, want, {{"NUM_PCSCH_RA", 7, 100}, {nullptr, 7, 0}}, 6);
  want += "   }\n";
  put(b, want, {{"ACCT_INCL", 1, 1}, {"ACCT_INCL_EMG", 1, 0}, {"ACCT_AOC_BITMAP_INCL", 1, 1}, {"ACCT_SO_INCL", 1, 1},
                {"NUM_ACCT_SO", 4, 0}});
  want += "   ACCT_SO_REC[0] = FC_EAPM_ACCT_SO_REC\n   {\n";
  put(b, want, {{"ACCT_AOC_BITMAP1", 5, 9}, {"ACCT_SO", 16, 33}}, 6);
  want += "   }\n";
  put(b, want, {{"ACCT_SO_GRP_INCL", 1, 0}});
  want += "}\n";

  const std::size_t all = b.size();
  auto r = run_bits(32, 7, 0, b);
  EXPECT_EQ(r.rc, Rc::ok);
  EXPECT_EQ(r.used, all);
  EXPECT_EQ(r.text, want);

  // Cut anywhere, the message is too short; a record never reads past its declared length.
  const auto buf = b.message(0);
  for (std::size_t n = 0; n < all; ++n) EXPECT_EQ(run(32, 7, 0, buf, 0, n).rc, Rc::short_msg) << n;
}

}  // namespace
}  // namespace cs
