// Overhead parameter messages of the paging channel, decoded and printed through their
// BodyOps: real captures, the revision and band-class rules, short messages and junk.
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

// A real paging message (type octet, body, 30-bit CRC): the body starts after the type octet.
Body run_capture(std::uint8_t msg_id, const char* hex) {
  const auto buf = test::from_hex(hex);
  return run(msg_id, 6, 1, buf, 8, buf.size() * 8 - 8 - 30);
}

// "HEADER { NAME = value ... }" from (name, value) pairs.
struct F {
  const char* name;
  long long value;
};
std::string block(const char* header, std::initializer_list<F> fields) {
  std::string s = std::string(header) + "\n{\n";
  for (const F& f : fields) s += "   " + std::string(f.name) + " = " + std::to_string(f.value) + "\n";
  return s + "}\n";
}

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
// Real captures (Sprint, P_REV 6, band class 1): every field against the hand-checked values.

TEST(OverheadParams, CapturedSystemParameters) {
  auto r = run_capture(1, "01271a40c400100169c858052f9d0ef32997ee74004c8009e29a794f048b8a9919");
  EXPECT_EQ(r.rc, Rc::ok);
  EXPECT_EQ(r.used, 222u);
  // EXT_CHAN_LIST is 1: this cell also sends the Extended CDMA Channel List.
  EXPECT_EQ(r.text, block("FC_SPM", {
      {"PILOT_PN", 78}, {"CONFIG_MSG_SEQ", 13}, {"SID", 4145}, {"NID", 4}, {"REG_ZONE", 5}, {"TOTAL_ZONES", 5},
      {"ZONE_TIMER", 1}, {"MULT_SIDS", 1}, {"MULT_NIDS", 1}, {"BASE_ID", 8544}, {"BASE_CLASS", 1}, {"PAGE_CHAN", 2},
      {"MAX_SLOT_CYCLE_INDEX", 2}, {"HOME_REG", 1}, {"FOR_SID_REG", 1}, {"FOR_NID_REG", 1}, {"POWER_UP_REG", 1},
      {"POWER_DOWN_REG", 1}, {"PARAMETER_REG", 0}, {"REG_PRD", 58}, {"BASE_LAT", 489876}, {"BASE_LONG", 6683549},
      {"REG_DIST", 0}, {"SRCH_WIN_A", 9}, {"SRCH_WIN_N", 9}, {"SRCH_WIN_R", 0}, {"NGHBR_MAX_AGE", 0},
      {"PWR_REP_THRESH", 2}, {"PWR_REP_FRAMES", 7}, {"PWR_THRESH_ENABLE", 1}, {"PWR_PERIOD_ENABLE", 0},
      {"PWR_REP_DELAY", 5}, {"RESCAN", 0}, {"T_ADD", 26}, {"T_DROP", 30}, {"T_COMP", 5}, {"T_TDROP", 3},
      {"EXT_SYS_PARAMETER", 1}, {"EXT_NGHBR_LIST", 1}, {"GEN_NGHBR_LIST", 0}, {"GLOBAL_REDIRECT", 0},
      {"PRI_NGHBR_LIST", 0}, {"USER_ZONE_ID", 0}, {"EXT_GLOBAL_REDIRECT", 0}, {"EXT_CHAN_LIST", 1}}));
}

TEST(OverheadParams, CapturedAccessParametersBothVersions) {
  const struct {
    const char* hex;
    long long acc_msg_seq, rand;
  } caps[] = {{"02270400fc48400000002180112ba12c66401fdbaf42", 2, 0x5d096332},
              {"02270600fc48400000002180112bdc9510601a4bd487", 3, 0x5ee4a883}};
  for (const auto& cap : caps) {
    auto r = run_capture(2, cap.hex);
    EXPECT_EQ(r.rc, Rc::ok) << cap.hex;
    EXPECT_EQ(r.used, 132u) << cap.hex;   // 99 fixed bits, RAND and NOM_PWR_EXT; 6 reserved bits follow
    EXPECT_EQ(r.text, block("FC_APM", {{"PILOT_PN", 78},     {"ACC_MSG_SEQ", cap.acc_msg_seq},
                                        {"ACC_CHAN", 0},      {"NOM_PWR", 0},
                                        {"INIT_PWR", 31},     {"PWR_STEP", 4},
                                        {"NUM_STEP", 4},      {"MAX_CAP_SZ", 4},
                                        {"PAM_SZ", 2},        {"PSIST_0_9", 0},
                                        {"PSIST_10", 0},      {"PSIST_11", 0},
                                        {"PSIST_12", 0},      {"PSIST_13", 0},
                                        {"PSIST_14", 0},      {"PSIST_15", 0},
                                        {"MSG_PSIST", 0},     {"REG_PSIST", 0},
                                        {"PROBE_PN_RAN", 4},  {"ACC_TMO", 3},
                                        {"PROBE_BKOFF", 0},   {"BKOFF", 0},
                                        {"MAX_REQ_SEQ", 2},   {"MAX_RSP_SEQ", 2},
                                        {"AUTH", 1},          {"RAND", cap.rand},
                                        {"NOM_PWR_EXT", 0}}))
        << cap.hex;
  }
}

TEST(OverheadParams, CapturedExtendedSystemParameters) {
  auto r = run_capture(13, "0d271a7ffff1000060138402291171ffffeb540015170fbe");
  EXPECT_EQ(r.rc, Rc::ok);
  EXPECT_EQ(r.used, 151u);   // the last 3 bits before the CRC are reserved
  std::string want =
      "FC_ESPM\n{\n   PILOT_PN = 78\n   CONFIG_MSG_SEQ = 13\n   DELETE_FOR_TMSI = 0\n   USE_TMSI = 0\n"
      "   PREF_MSID_TYPE = 3\n   MCC = 1023 ( 134 )\n   IMSI_11_12 = 127 ( 38 )\n   TMSI_ZONE_LEN = 1\n"
      "   TMSI_ZONE = 0x00\n   BCAST_INDEX = 0\n   IMSI_T_SUPPORTED = 0\n   P_REV = 6\n   MIN_P_REV = 1\n"
      "   SOFT_SLOPE = 14\n   ADD_INTERCEPT = 4\n   DROP_INTERCEPT = 0\n   PACKET_ZONE_ID = 138\n"
      "   MAX_NUM_ALT_SO = 2\n   RESELECT_INCLUDED = 0\n   PILOT_REPORT = 0\n   NGHBR_SET_ENTRY_INFO = 1\n"
      "   ACC_ENT_HO_ORDER = 0\n   NGHBR_SET_ACCESS_INFO = 0\n   NGHBR_SET_SIZE = 23\n";
  for (int k = 0; k < 23; ++k) want += "   ACCESS_ENTRY_HO[" + std::to_string(k) + "] = " + (k < 3 ? "0" : "1") + "\n";
  want +=
      "   BROADCAST_GPS_ASST = 0\n   QPCH_SUPPORTED = 1\n   NUM_QPCH = 1\n   QPCH_RATE = 1\n"
      "   QPCH_POWER_LEVEL_PAGE = 2\n   QPCH_CCI_SUPPORTED = 1\n   QPCH_POWER_LEVEL_CONFIG = 2\n"
      "   SDB_SUPPORTED = 0\n   RLGAIN_TRAFFIC_PILOT = 0\n   REV_PWR_CNTL_DELAY_INCL = 0\n}\n";
  EXPECT_EQ(r.text, want);
}

// ---------------------------------------------------------------------------------------------
// System Parameters: the fixed part, the two bits after EXT_SYS_PARAMETER, the revision groups.

Bits spm_fixed() {
  Bits b;
  b.put(300, 9).put(5, 6).put(22, 15).put(65535, 16).put(4095, 12).put(7, 3).put(2, 3).put(1, 1).put(0, 1);
  b.put(40000, 16).put(15, 4).put(7, 3).put(5, 3).put(0b101010, 6).put(127, 7);
  b.put((1u << 22) - 1, 22).put(1u << 22, 23).put(2047, 11);
  b.put(1, 4).put(2, 4).put(3, 4).put(4, 4).put(31, 5).put(15, 4).put(1, 1).put(0, 1).put(17, 5).put(1, 1);
  b.put(63, 6).put(1, 6).put(15, 4).put(8, 4).put(1, 1);
  return b;
}

const char* const kSpmFixed =
    "FC_SPM\n{\n   PILOT_PN = 300\n   CONFIG_MSG_SEQ = 5\n   SID = 22\n   NID = 65535\n   REG_ZONE = 4095\n"
    "   TOTAL_ZONES = 7\n   ZONE_TIMER = 2\n   MULT_SIDS = 1\n   MULT_NIDS = 0\n   BASE_ID = 40000\n"
    "   BASE_CLASS = 15\n   PAGE_CHAN = 7\n   MAX_SLOT_CYCLE_INDEX = 5\n   HOME_REG = 1\n   FOR_SID_REG = 0\n"
    "   FOR_NID_REG = 1\n   POWER_UP_REG = 0\n   POWER_DOWN_REG = 1\n   PARAMETER_REG = 0\n   REG_PRD = 127\n"
    "   BASE_LAT = 4194303\n   BASE_LONG = 4194304\n   REG_DIST = 2047\n   SRCH_WIN_A = 1\n   SRCH_WIN_N = 2\n"
    "   SRCH_WIN_R = 3\n   NGHBR_MAX_AGE = 4\n   PWR_REP_THRESH = 31\n   PWR_REP_FRAMES = 15\n"
    "   PWR_THRESH_ENABLE = 1\n   PWR_PERIOD_ENABLE = 0\n   PWR_REP_DELAY = 17\n   RESCAN = 1\n   T_ADD = 63\n"
    "   T_DROP = 1\n   T_COMP = 15\n   T_TDROP = 8\n   EXT_SYS_PARAMETER = 1\n";

TEST(OverheadParams, SystemParametersRevisionsAndBandClasses) {
  // Lines of the later flags when all are zero.
  const std::string z95b = "   EXT_NGHBR_LIST = 0\n   GEN_NGHBR_LIST = 0\n   GLOBAL_REDIRECT = 0\n";
  const std::string z2000 =
      z95b + "   PRI_NGHBR_LIST = 0\n   USER_ZONE_ID = 0\n   EXT_GLOBAL_REDIRECT = 0\n   EXT_CHAN_LIST = 0\n";
  const struct Case {
    const char* what;
    std::uint8_t p_rev, band;
    const char* tail_bits;   // '0'/'1' after the 215-bit fixed part
    Rc rc;
    std::uint64_t used;
    std::string tail_text;
  } cases[] = {
      {"IS-95-A cellular: two reserved bits, then GLOBAL_REDIRECT at bit 217", 3, 0, "111", Rc::ok, 218,
       "   GLOBAL_REDIRECT = 1\n"},
      {"IS-95-A PCS: EXT_NGHBR_LIST, a reserved bit", 3, 1, "110", Rc::ok, 218,
       "   EXT_NGHBR_LIST = 1\n   GLOBAL_REDIRECT = 0\n"},
      {"band class 4 counts as PCS", 1, 4, "011", Rc::ok, 218, "   EXT_NGHBR_LIST = 0\n   GLOBAL_REDIRECT = 1\n"},
      {"other bands below P_REV 4: reserved", 3, 5, "111", Rc::ok, 218, "   GLOBAL_REDIRECT = 1\n"},
      {"IS-95-B: both flags", 4, 0, "101", Rc::ok, 218,
       "   EXT_NGHBR_LIST = 1\n   GEN_NGHBR_LIST = 0\n   GLOBAL_REDIRECT = 1\n"},
      {"IS-2000: four more flags", 6, 0, "0111010", Rc::ok, 222,
       "   EXT_NGHBR_LIST = 0\n   GEN_NGHBR_LIST = 1\n   GLOBAL_REDIRECT = 1\n   PRI_NGHBR_LIST = 1\n"
       "   USER_ZONE_ID = 0\n   EXT_GLOBAL_REDIRECT = 1\n   EXT_CHAN_LIST = 0\n"},
      {"P_REV 9, no T_TDROP_RANGE", 9, 0, "00000000", Rc::ok, 223, z2000 + "   T_TDROP_RANGE_INCL = 0\n"},
      {"P_REV 9 with T_TDROP_RANGE", 9, 0, "000000011010", Rc::ok, 227,
       z2000 + "   T_TDROP_RANGE_INCL = 1\n   T_TDROP_RANGE = 10\n"},
      {"P_REV 11", 11, 1, "000000001", Rc::ok, 224,
       z2000 + "   T_TDROP_RANGE_INCL = 0\n   NEG_SLOT_CYCLE_INDEX_SUP = 1\n"},
      // Short messages: the fields read so far stay; the printer shows what the revision makes
      // present, read or not.
      {"P_REV 11 ending after EXT_CHAN_LIST", 11, 0, "0000000", Rc::short_msg, 0,
       z2000 + "   T_TDROP_RANGE_INCL = 0\n   NEG_SLOT_CYCLE_INDEX_SUP = 0\n"},
      {"P_REV 9 missing T_TDROP_RANGE", 9, 0, "00000001101", Rc::short_msg, 0,
       z2000 + "   T_TDROP_RANGE_INCL = 1\n   T_TDROP_RANGE = 0\n"},
      {"216 bits: the two-bit group is missing", 6, 1, "1", Rc::short_msg, 0, z2000},
      {"IS-95-A without GLOBAL_REDIRECT", 3, 0, "11", Rc::short_msg, 0, "   GLOBAL_REDIRECT = 0\n"},
  };
  for (const Case& k : cases) {
    Bits b = spm_fixed();
    for (const char* p = k.tail_bits; *p; ++p) b.put(*p == '1', 1);
    auto r = run_bits(1, k.p_rev, k.band, b);
    EXPECT_EQ(r.rc, k.rc) << k.what;
    if (k.rc == Rc::ok) {
      EXPECT_EQ(r.used, k.used) << k.what;
    }
    EXPECT_EQ(r.text, std::string(kSpmFixed) + k.tail_text + "}\n") << k.what;
  }
}

TEST(OverheadParams, SystemParametersShorterThanTheFixedPartReadsNothing) {
  Bits b = spm_fixed();
  const auto buf = b.message(0);
  auto r = run(1, 6, 1, buf, 0, 214);
  EXPECT_EQ(r.rc, Rc::short_msg);
  EXPECT_NE(r.text.find("   PILOT_PN = 0\n"), std::string::npos);   // nothing was stored
  EXPECT_NE(r.text.find("   EXT_SYS_PARAMETER = 0\n"), std::string::npos);
}

// ---------------------------------------------------------------------------------------------
// Access Parameters: AUTH and RAND, NOM_PWR_EXT by band, the release A access-control records.

std::string apm_fixed(Bits& b, unsigned auth) {
  std::string t = "FC_APM\n{\n";
  put(b, t, {{"PILOT_PN", 9, 511}, {"ACC_MSG_SEQ", 6, 63}, {"ACC_CHAN", 5, 31}, {"NOM_PWR", 4, 8},
             {"INIT_PWR", 5, 16}, {"PWR_STEP", 3, 7}, {"NUM_STEP", 4, 15}, {"MAX_CAP_SZ", 3, 7},
             {"PAM_SZ", 4, 15}, {"PSIST_0_9", 6, 63}, {"PSIST_10", 3, 1}, {"PSIST_11", 3, 2},
             {"PSIST_12", 3, 3}, {"PSIST_13", 3, 4}, {"PSIST_14", 3, 5}, {"PSIST_15", 3, 6},
             {"MSG_PSIST", 3, 7}, {"REG_PSIST", 3, 1}, {"PROBE_PN_RAN", 4, 9}, {"ACC_TMO", 4, 10},
             {"PROBE_BKOFF", 4, 11}, {"BKOFF", 4, 12}, {"MAX_REQ_SEQ", 4, 13}, {"MAX_RSP_SEQ", 4, 14},
             {"AUTH", 2, auth}});
  return t;
}

TEST(OverheadParams, AccessParametersByRevision) {
  struct Case {
    const char* what;
    std::uint8_t p_rev, band;
    unsigned auth;
    std::initializer_list<W> tail;
    Rc rc;
    const char* extra;   // raw text after the fields of `tail`
  };
  const Case cases[] = {
      {"IS-95 cellular: no RAND without AUTH 1, no NOM_PWR_EXT", 2, 0, 0, {}, Rc::ok, ""},
      {"AUTH 2 is not '01': no RAND", 3, 0, 2, {{"NOM_PWR_EXT", 1, 1}}, Rc::ok, ""},
      {"J-STD-008 PCS has NOM_PWR_EXT", 1, 1, 1, {{"RAND", 32, 0x12345678}, {"NOM_PWR_EXT", 1, 1}}, Rc::ok, ""},
      {"band 3 below IS-95-B: none", 3, 3, 0, {}, Rc::ok, ""},
      {"IS-2000 release 0 stops after NOM_PWR_EXT", 6, 5, 0, {{"NOM_PWR_EXT", 1, 0}, {nullptr, 8, 0xFF}}, Rc::ok,
       ""},
      {"release A without access control", 7, 0, 0,
       {{"NOM_PWR_EXT", 1, 1}, {"PSIST_EMG_INCL", 1, 1}, {"PSIST_EMG", 3, 5}, {"ACCT_INCL", 1, 0}},
       Rc::ok, ""},
      {"release A with access-control records and bitmaps", 7, 0, 0,
       {{"NOM_PWR_EXT", 1, 0}, {"PSIST_EMG_INCL", 1, 0}, {"ACCT_INCL", 1, 1}, {"ACCT_INCL_EMG", 1, 1},
        {"ACCT_AOC_BITMAP_INCL", 1, 1}, {"ACCT_SO_INCL", 1, 1}, {"NUM_ACCT_SO", 4, 1}},
       Rc::ok, nullptr},
      {"release A, missing the second record", 8, 0, 0,
       {{"NOM_PWR_EXT", 1, 0}, {"PSIST_EMG_INCL", 1, 0}, {"ACCT_INCL", 1, 1}, {"ACCT_INCL_EMG", 1, 0},
        {"ACCT_AOC_BITMAP_INCL", 1, 0}, {"ACCT_SO_INCL", 1, 1}, {"NUM_ACCT_SO", 4, 1}, {nullptr, 16, 33}},
       Rc::short_msg,
       "   ACCT_SO_RECs[0] = FC_APM_ACCT_SO_RECs\n   {\n      ACCT_SO = 33\n   }\n   ACCT_SO_GRP_INCL = 0\n"},
  };
  for (const Case& k : cases) {
    Bits b;
    std::string want = apm_fixed(b, k.auth);
    put(b, want, k.tail);
    if (k.extra == nullptr) {
      // Two SO records with bitmaps, then two SO-group records with bitmaps.
      b.put(0b10101, 5).put(33, 16).put(0b00011, 5).put(0x8000, 16);
      b.put(1, 1).put(1, 3).put(31, 5).put(4, 5).put(0, 5).put(9, 5);
      want +=
          "   ACCT_SO_RECs[0] = FC_APM_ACCT_SO_RECs\n   {\n      ACCT_AOC_BITMAP1 = 21\n      ACCT_SO = 33\n   }\n"
          "   ACCT_SO_RECs[1] = FC_APM_ACCT_SO_RECs\n   {\n      ACCT_AOC_BITMAP1 = 3\n      ACCT_SO = 32768\n   }\n"
          "   ACCT_SO_GRP_INCL = 1\n   NUM_ACCT_SO_GRP = 1\n"
          "   ACCT_SO_GRP_RECs[0] = FC_APM_ACCT_SO_GRP_RECs\n   {\n      ACCT_AOC_BITMAP2 = 31\n"
          "      ACCT_SO_GRP = 4\n   }\n"
          "   ACCT_SO_GRP_RECs[1] = FC_APM_ACCT_SO_GRP_RECs\n   {\n      ACCT_AOC_BITMAP2 = 0\n"
          "      ACCT_SO_GRP = 9\n   }\n";
    } else {
      want += k.extra;
    }
    auto r = run_bits(2, k.p_rev, k.band, b);
    EXPECT_EQ(r.rc, k.rc) << k.what;
    EXPECT_EQ(r.text, want + "}\n") << k.what;
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

TEST(OverheadParams, Ansi41Rand) {
  Bits b;
  std::string want = "FC_A41RANDM\n{\n";
  put(b, want, {{"PILOT_PN", 9, 300}, {"ACC_MSG_SEQ", 6, 45}, {"RAND", 32, 0xDEADBEEF}});
  auto r = run_bits(31, 7, 0, b);
  EXPECT_EQ(r.rc, Rc::ok);
  EXPECT_EQ(r.used, 47u);
  // RAND's top bit is set: "%d" shows it negative.
  EXPECT_EQ(r.text, "FC_A41RANDM\n{\n   PILOT_PN = 300\n   ACC_MSG_SEQ = 45\n   RAND = -559038737\n}\n");
  EXPECT_EQ(run(31, 7, 0, b.message(0), 0, 46).rc, Rc::short_msg);
}

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

TEST(OverheadParams, Ansi41SystemParametersShortestMessage) {
  // Every optional group off: 88 + 8 + 5 + 1 + 2 bits exactly, and one bit less is too short.
  Bits b;
  b.put(0, 88).put(0, 8).put(0, 5).put(0, 1).put(0, 2);
  const auto buf = b.message(0);
  auto r = run(29, 8, 0, buf, 0, b.size());
  EXPECT_EQ(r.rc, Rc::ok);
  EXPECT_EQ(r.used, 104u);
  EXPECT_EQ(run(29, 8, 0, buf, 0, b.size() - 1).rc, Rc::short_msg);

  // Cut inside REG_DIST: the 88 bits before it are kept and shown.
  Bits full;
  a41spm_base(full, 0);
  auto cut = run(29, 8, 0, full.message(0), 0, 90);
  EXPECT_EQ(cut.rc, Rc::short_msg);
  EXPECT_NE(cut.text.find("   REG_PRD = 58\n   DIST_REG_INCL = 1\n   REG_DIST = 0\n"), std::string::npos);
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

TEST(OverheadParams, EnhancedAccessParametersShortRecordLengths) {
  // A LAC_PARMS_LEN of 2 octets leaves 12 bits for 18 bits of fields: too short, although the
  // message itself goes on.
  Bits b;
  b.put(1, 9).put(0, 6).put(0, 1).put(2, 4);
  b.put(0, 64);
  auto r = run_bits(32, 7, 0, b);
  EXPECT_EQ(r.rc, Rc::short_msg);
  EXPECT_NE(r.text.find("   LAC_PARMS_LEN = 2\n   LAC_PARMS_REC = FC_EAPM_LAC_PARMS_REC\n"), std::string::npos);
}

// ---------------------------------------------------------------------------------------------
// MC-RR Parameters: the spreading rate 3, encryption and common channel groups, the optional
// message flags, and the later groups chosen by the P_REV the message carries.

std::string mcrr_head(Bits& b, unsigned msg_p_rev, bool sr3, bool cch) {
  std::string t = "FC_MCRRPM\n{\n";
  put(b, t, {{"PILOT_PN", 9, 100}, {"CONFIG_MSG_SEQ", 6, 7}, {"BASE_ID", 16, 4660}, {"P_REV", 8, msg_p_rev},
             {"MIN_P_REV", 8, 6}, {"SR3_INCL", 1, sr3}});
  if (sr3) {
    put(b, t, {{"SR3_CENTER_FREQ_INCL", 1, 1}, {"SR3_CENTER_FREQ", 11, 1234}, {"SR3_BRAT", 2, 2},
               {"SR3_BCCH_CODE_CHAN", 7, 100}, {"SR3_PRIMARY_PILOT", 2, 1}, {"SR3_PILOT_POWER1", 3, 5},
               {"SR3_PILOT_POWER2", 3, 6}});
  }
  put(b, t, {{"SRCH_WIN_A", 4, 8}, {"SRCH_WIN_R", 4, 9}, {"T_ADD", 6, 28}, {"T_DROP", 6, 32}, {"T_COMP", 4, 5},
             {"T_TDROP", 4, 3}, {"NGHBR_MAX_AGE", 4, 2}, {"SOFT_SLOPE", 6, 20}, {"ADD_INTERCEPT", 6, 10},
             {"DROP_INTERCEPT", 6, 11}, {"ENC_SUPPORTED", 1, 1}, {"SIG_ENCRYPT_SUP", 8, 192},
             {"UI_ENCRYPT_SUP", 8, 64}, {"ADD_FIELDS_LEN", 8, 2}});
  b.put(0xBEEF, 16);
  t += "   ADD_FIELDS = 0xbeef\n";
  put(b, t, {{"CCH_INFO_INCL", 1, cch}});
  return t;
}

// The common channel information; `num_opt` optional message flags (values 1, 0, 1, 1, then
// reserved ones).
std::string mcrr_cch(Bits& b, bool sr3, unsigned num_opt) {
  std::string t;
  b.put(209, 10).put(9, 7);
  t += "   MCC = 209 ( 310 )\n   IMSI_11_12 = 9 ( 10 )\n";
  put(b, t, {{"MAX_SLOT_CYCLE_INDEX", 3, 2}, {"PWR_REP_THRESH", 5, 2}, {"PWR_REP_FRAMES", 4, 7},
             {"PWR_THRESH_ENABLE", 1, 1}, {"PWR_PERIOD_ENABLE", 1, 0}, {"PWR_REP_DELAY", 5, 3},
             {"RESELECT_INCLUDED", 1, 1}, {"EC_THRESH", 5, 20}, {"EC_I0_THRESH", 5, 21},
             {"BASE_LAT", 22, 1000000}, {"BASE_LONG", 23, 4000000}, {"PILOT_REPORT", 1, 1},
             {"ACC_ENT_HO_ORDER", 1, 1}, {"ACCESS_HO", 1, 1}, {"ACCESS_HO_MSG_RSP", 1, 1}, {"ACCESS_PROBE_HO", 1, 1},
             {"ACC_HO_LIST_UPD", 1, 0}, {"ACC_PROBE_HO_OTHER_MSG", 1, 1}, {"MAX_NUM_PROBE_HO", 3, 5},
             {"NUM_FCCCH", 3, 2}, {"FCCCH_RATE", 3, 1}, {"FCCCH_CODE_RATE", 1, 1}});
  b.put(3, 8).put(250, 8);
  t += "   FCCCH_CODE_CHAN[0] = 3\n   FCCCH_CODE_CHAN[1] = 250\n";
  put(b, t, {{"BCAST_INDEX", 3, 4}, {"NUM_BCCH_BCAST", 3, 2}});
  t += "   BCCH_BCASTs[0] = FC_MCRRPM_BCCH_BCASTs\n   {\n";
  put(b, t, {{"BCCH_CODE_CHAN", 7, 17}, {"BRAT", 2, 1}, {"BCCH_CODE_RATE", 1, 0}}, 6);
  t += "   }\n   BCCH_BCASTs[1] = FC_MCRRPM_BCCH_BCASTs\n   {\n";
  put(b, t, {{"BCCH_CODE_CHAN", 7, 127}, {"BRAT", 2, 3}, {"BCCH_CODE_RATE", 1, 1}}, 6);
  t += "   }\n";
  put(b, t, {{"QPCH_SUPPORTED", 1, 1}, {"NUM_QPCH", 2, 2}, {"QPCH_RATE", 1, 1}, {"QPCH_POWER_LEVEL_PAGE", 3, 6},
             {"QPCH_CCI_SUPPORTED", 1, 1}, {"QPCH_POWER_LEVEL_CONFIG", 3, 4}});
  if (sr3) {
    b.put(80, 8).put(81, 8);
    t += "   QPCH_CODE_CHAN[0] = 80\n   QPCH_CODE_CHAN[1] = 81\n";
  }
  put(b, t, {{"QPCH_BI_SUPPORTED", 1, 1}, {"QPCH_POWER_LEVEL_BCAST", 3, 2}, {"SDB_SUPPORTED", 1, 1},
             {"BROADCAST_GPS_ASST", 1, 0}, {"RLGAIN_TRAFFIC_PILOT", 6, 33}, {"REV_PWR_CNTL_DELAY_INCL", 1, 1},
             {"REV_PWR_CNTL_DELAY", 2, 3}, {"MOB_QOS", 1, 1}, {"USE_SYNC_ID", 1, 0}, {"NUM_OPT_MSG", 4, num_opt}});
  const W flags[] = {{"SENDING_RAND", 1, 1}, {"PRI_NGHBR_LIST", 1, 0}, {"USER_ZONE_ID", 1, 1},
                     {"EXT_GLOBAL_REDIRECT", 1, 1}};
  for (unsigned k = 0; k < num_opt; ++k) put(b, t, {k < 4 ? flags[k] : W{nullptr, 1, 1}});
  put(b, t, {{"PILOT_INFO_REQ_SUPPORTED", 1, 1}});
  return t;
}

TEST(OverheadParams, McRrParametersReleaseA) {
  const struct Case {
    const char* what;
    bool sr3, cch;
    unsigned num_opt;
  } cases[] = {
      {"no spreading rate 3, no common channel information", false, false, 0},
      {"everything, two reserved optional-message bits", true, true, 6},
      {"quick paging code channels only with spreading rate 3", false, true, 2},
      {"all four named optional-message flags", true, true, 4},
  };
  for (const Case& k : cases) {
    Bits b;
    std::string want = mcrr_head(b, 7, k.sr3, k.cch);
    if (k.cch) want += mcrr_cch(b, k.sr3, k.num_opt);
    auto r = run_bits(30, 7, 1, b);
    EXPECT_EQ(r.rc, Rc::ok) << k.what;
    EXPECT_EQ(r.used, b.size()) << k.what;
    EXPECT_EQ(r.text, want + "}\n") << k.what;
    // One bit less: the last group no longer fits.
    EXPECT_EQ(run(30, 7, 1, b.message(0), 0, b.size() - 1).rc, Rc::short_msg) << k.what;
  }
}

// Release B and C groups, and the refusal of releases whose additions are not laid out here.
std::string mcrr_rel_b(Bits& b, bool cch) {
  std::string t;
  if (cch) put(b, t, {{"BAND_CLASS_INFO_REQ", 1, 1}, {"ALT_BAND_CLASS", 5, 10}});
  put(b, t, {{"CDMA_OFF_TIME_REP_SUP_IND", 1, 1}, {"CDMA_OFF_TIME_REP_THRESHOLD_UNIT", 1, 1},
             {"CDMA_OFF_TIME_REP_THRESHOLD", 3, 6}});
  return t;
}

std::string mcrr_rel_c(Bits& b, bool cch, bool pdch) {
  std::string t;
  put(b, t, {{"CHM_SUPPORTED", 1, 1}, {"RELEASE_TO_IDLE_IND", 1, 0}, {"RECONNECT_MSG_IND", 1, 1},
             {"T_TDROP_RANGE_INCL", 1, 1}, {"T_TDROP_RANGE", 4, 7}, {"FOR_PDCH_SUPPORTED", 1, pdch}});
  if (pdch) {
    put(b, t, {{"PDCH_CHM_SUPPORTED", 1, 1}, {"PDCH_PARMS_INCL", 1, 1}, {"FOR_PDCH_RLGAIN_INCL", 1, 1},
               {"RLGAIN_ACKCH_PILOT", 6, 40}, {"RLGAIN_CQICH_PILOT", 6, 41}, {"NUM_SOFT_SWITCHING_FRAMES", 4, 3},
               {"NUM_SOFTER_SWITCHING_FRAMES", 4, 4}, {"NUM_SOFT_SWITCHING_SLOTS", 2, 1},
               {"NUM_SOFTER_SWITCHING_SLOTS", 2, 2}, {"PDCH_SOFT_SWITCHING_DELAY", 8, 100},
               {"PDCH_SOFTER_SWITCHING_DELAY", 8, 200}, {"WALSH_TABLE_ID", 3, 2}, {"NUM_PDCCH", 3, 1}});
    t += "   PDCCH_WALSHs[0] = FC_MCRRPM_PDCCH_WALSHs\n   {\n";
    put(b, t, {{"FOR_PDCCH_WALSH", 6, 5}}, 6);
    t += "   }\n   PDCCH_WALSHs[1] = FC_MCRRPM_PDCCH_WALSHs\n   {\n";
    put(b, t, {{"FOR_PDCCH_WALSH", 6, 63}}, 6);
    t += "   }\n";
  }
  if (cch) put(b, t, {{"IMSI_10_INCL", 1, 1}, {"IMSI_10", 4, 3}});
  return t;
}

// Release D: the extended system parameters' groups, with the R-PDCH parameters when `pdch`,
// SDB_IN_RCNM_IND when `sdb_in_rcnm` and two candidate band classes when `cand`.
std::string mcrr_rel_d(Bits& b, bool pdch, bool sdb_in_rcnm, bool cand) {
  std::string t;
  put(b, t, {{"NEG_SLOT_CYCLE_INDEX_SUP", 1, 1}, {"RER_MODE_SUPPORTED", 1, 0}, {"AUTO_FCSO_ALLOWED", 1, 1},
             {"SENDING_BSPM", 1, 1}, {"BSPM_PERIOD_INDEX", 4, 9}});
  if (pdch) {
    put(b, t, {{"REV_PDCH_SUPPORTED", 1, 1}, {"REV_PDCH_PARMS_INCL", 1, 1}, {"REV_PDCH_RLGAIN_INCL", 1, 1},
               {"RLGAIN_SPICH_PILOT", 6, 50}, {"RLGAIN_REQCH_PILOT", 6, 51}, {"RLGAIN_PDCCH_PILOT", 6, 52},
               {"REV_PDCH_PARMS_1_INCL", 1, 1}, {"REV_PDCH_TABLE_SEL", 1, 1}, {"REV_PDCH_MAX_AUTO_TPR", 8, 170},
               {"REV_PDCH_NUM_ARQ_ROUNDS_NORMAL", 2, 2}, {"REV_PDCH_OPER_PARMS_INCL", 1, 1},
               {"REV_PDCH_MAX_SIZE_ALLOWED_ENCODER_PACKET", 4, 11}, {"REV_PDCH_DEFAULT_PERSISTENCE", 1, 1},
               {"REV_PDCH_RESET_PERSISTENCE", 1, 0}, {"REV_PDCH_GRANT_PRECEDENCE", 1, 1},
               {"REV_PDCH_MSIB_SUPPORTED", 1, 0}, {"REV_PDCH_SOFT_SWITCHING_RESET_IND", 1, 1}});
  }
  if (sdb_in_rcnm) put(b, t, {{"SDB_IN_RCNM_IND", 1, 1}});
  put(b, t, {{"CAND_BAND_INFO_REQ", 1, cand}});
  if (cand) {
    put(b, t, {{"NUM_CAND_BAND_CLASS", 3, 1}});
    t += "   CAND_BAND_CLASSs[0] = FC_MCRRPM_CAND_BAND_CLASSs\n   {\n";
    put(b, t, {{"CAND_BAND_CLASS", 5, 6}, {"SUBCLASS_INFO_INCL", 1, 1}, {"SUBCLASS_REC_LEN", 5, 1}}, 6);
    b.put(1, 1).put(0, 1);
    t += "      BAND_SUBCLASS_IND[0] = 1\n      BAND_SUBCLASS_IND[1] = 0\n";
    t += "   }\n   CAND_BAND_CLASSs[1] = FC_MCRRPM_CAND_BAND_CLASSs\n   {\n";
    put(b, t, {{"CAND_BAND_CLASS", 5, 15}, {"SUBCLASS_INFO_INCL", 1, 0}}, 6);
    t += "   }\n";
  }
  put(b, t, {{"RESCAN", 1, 1}, {"TX_PWR_LIMIT_INCL", 1, 1}, {"TX_PWR_LIMIT", 6, 45}, {"BYPASS_REG_IND", 2, 2}});
  return t;
}

TEST(OverheadParams, McRrParametersLaterReleasesFollowTheMessageRevision) {
  const struct Case {
    const char* what;
    std::uint8_t ctx_p_rev, msg_p_rev;
    bool cch, pdch, cand;
    Rc rc;
  } cases[] = {
      {"release B with common channel information", 8, 8, true, false, false, Rc::ok},
      {"release B without it: no band class request", 8, 8, false, false, false, Rc::ok},
      {"release C with the F-PDCH and two Walsh codes", 9, 9, true, true, false, Rc::ok},
      {"release C without common channels: no IMSI_10", 9, 9, false, false, false, Rc::ok},
      {"the message's own revision rules, not the caller's", 9, 7, true, true, false, Rc::ok},
      {"release D with the R-PDCH, SDB in reconnect and candidate bands", 10, 10, true, true, true, Rc::ok},
      {"release D without F-PDCH or common channels", 10, 10, false, false, false, Rc::ok},
      {"release D rules follow the message, not the caller", 9, 10, true, false, true, Rc::ok},
      {"release E: two more flags are shown, then refused", 11, 11, false, true, false, Rc::count},
  };
  for (const Case& k : cases) {
    Bits b;
    std::string want = mcrr_head(b, k.msg_p_rev, false, k.cch);
    if (k.cch) want += mcrr_cch(b, false, 3);
    if (k.msg_p_rev >= 8) want += mcrr_rel_b(b, k.cch);
    if (k.msg_p_rev >= 9) want += mcrr_rel_c(b, k.cch, k.pdch);
    // RECONNECT_MSG_IND is 1, and SDB_SUPPORTED is 1 whenever the common channel information is sent.
    if (k.msg_p_rev >= 10) want += mcrr_rel_d(b, k.pdch, k.cch, k.cand);
    if (k.msg_p_rev >= 11) put(b, want, {{"RC_BITMAP_CAPABILITY_EXT_ALLOWED", 1, 1}, {"CRRM_MSG_IND", 1, 0}});
    b.put(0x5A, 8);   // whatever follows; read only by releases not laid out here
    auto r = run_bits(30, k.ctx_p_rev, 0, b);
    EXPECT_EQ(r.rc, k.rc) << k.what;
    if (k.rc == Rc::ok) {
      EXPECT_EQ(r.used, b.size() - 8) << k.what;
    }
    if (k.msg_p_rev == 10) {   // cut inside BYPASS_REG_IND: short, not refused
      EXPECT_EQ(run(30, k.ctx_p_rev, 0, b.message(0), 0, b.size() - 9).rc, Rc::short_msg) << k.what;
    }
    EXPECT_EQ(r.text, want + "}\n") << k.what;
  }
}

TEST(OverheadParams, McRrParametersOptionalMessageFlagsByRelease) {
  // Release D: flags past the fourth may be named fields this decoder does not know; the
  // message is refused right there, and nothing after them is shown.
  {
    Bits b;
    std::string want = mcrr_head(b, 10, false, true);
    want += mcrr_cch(b, false, 5);
    auto r = run_bits(30, 10, 0, b);
    EXPECT_EQ(r.rc, Rc::count);
    want.erase(want.rfind("   PILOT_INFO_REQ_SUPPORTED"));
    EXPECT_EQ(r.text, want + "}\n");
  }
  // Release E names eleven flags (mcrr_cch sends the ones past the fourth as 1); a twelfth is
  // reserved and passed over.
  {
    Bits b;
    std::string want = mcrr_head(b, 11, false, true);
    std::string cch = mcrr_cch(b, false, 12);
    std::string named;
    for (const char* n : {"AP_PILOT_INFO", "AP_IDT", "AP_ID_TEXT", "GEN_OVHD_INF_IND", "FD_CHAN_LST_IND",
                          "ATIM_IND", "FREQ_GEN_OVHD_INF_IND"})
      named += std::string("   ") + n + " = 1\n";
    cch.insert(cch.find("   PILOT_INFO_REQ_SUPPORTED"), named);
    want += cch;   // one statement per builder: each appends to b in air order
    want += mcrr_rel_b(b, true);
    want += mcrr_rel_c(b, true, false);
    want += mcrr_rel_d(b, false, true, false);
    put(b, want, {{"RC_BITMAP_CAPABILITY_EXT_ALLOWED", 1, 0}, {"CRRM_MSG_IND", 1, 1}});
    auto r = run_bits(30, 11, 0, b);
    EXPECT_EQ(r.rc, Rc::count);   // refused where APPIM_PERIOD_INDEX begins
    EXPECT_EQ(r.text, want + "}\n");
  }
}

TEST(OverheadParams, OtherIdentifiersGoToTheListMessages) {
  for (std::uint8_t id = 0; id < 64; ++id) {
    if (id == 1 || id == 2 || id == 13 || id == 29 || id == 30 || id == 31 || id == 32) continue;
    EXPECT_EQ(paging_messages().body(id), paging_messages().body(id)) << int(id);
  }
  EXPECT_STREQ(paging_messages().body(13)->header, "FC_ESPM");
  EXPECT_STREQ(paging_messages().body(30)->header, "FC_MCRRPM");
}

// ---------------------------------------------------------------------------------------------
// Any bytes give a result code and text, for every revision and body.

}  // namespace
}  // namespace cs
