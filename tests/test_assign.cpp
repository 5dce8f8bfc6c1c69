// Channel assignment bodies FC_CAM and FC_ECAM: golden texts of the assignment modes over the
// revisions that change them, the header order of the ECAM, and arbitrary input.
#include <gtest/gtest.h>

#include <random>

#include "body_run.h"
#include "fwd_common/tables.h"
#include "helpers.h"

namespace cs {
namespace {

using test::Bits;
using test::run_body;

test::BodyRun run(const BodyOps* ops, const Bits& b, std::uint8_t p_rev) {
  return run_body(ops, b.message(8), 0, b.size(), test::ctx(p_rev));
}

// The text of a body: its header fields, then one mode record under `label` (or none).
std::string body(const char* header, std::initializer_list<std::string_view> fields, const char* label = nullptr,
                 std::initializer_list<std::string_view> mode = {}) {
  std::string s = std::string(header) + "\n{\n";
  for (auto f : fields) s.append("   ").append(f).push_back('\n');
  if (label) {
    s.append("   ").append(label).append(" = ").append(header).append("_").append(label).append("\n   {\n");
    for (auto f : mode) s.append("      ").append(f).push_back('\n');
    s.append("   }\n");
  }
  return s + "}\n";
}

struct Golden {
  const char* what;
  std::uint8_t p_rev;
  Bits bits;
  std::uint64_t used;
  std::string want;
};

TEST(Assign, ChannelAssignmentModes) {
  const Golden cases[] = {
      {"traffic channel with a frequency", 6,
       Bits().put(0, 3).put(4, 3).put(1, 1).put(12, 8).put(25, 11).put(3, 4).put(0, 2).put(0, 6), 38,
       body("FC_CAM", {"ASSIGN_MODE = 0", "ADD_RECORD_LEN = 4"}, "CAM_ASSIGN_MODE_000",
            {"FREQ_INCL = 1", "CODE_CHAN = 12", "CDMA_FREQ = 25", "FRAME_OFFSET = 3", "ENCRYPT_MODE = 0"})},
      {"traffic channel, P_REV 7 extended encryption", 7,
       Bits().put(0, 3).put(4, 3).put(0, 1).put(5, 8).put(1, 4).put(3, 2).put(2, 3).put(1, 3).put(1, 1).put(4, 3).put(0, 7),
       38,
       body("FC_CAM", {"ASSIGN_MODE = 0", "ADD_RECORD_LEN = 4"}, "CAM_ASSIGN_MODE_000",
            {"FREQ_INCL = 0", "CODE_CHAN = 5", "FRAME_OFFSET = 1", "ENCRYPT_MODE = 3", "D_SIG_ENCRYPT_MODE = 2",
             "ENC_KEY_SIZE = 1", "C_SIG_ENCRYPT_MODE_INCL = 1", "C_SIG_ENCRYPT_MODE = 4"})},
      {"traffic channel before P_REV 7 has no encryption fields", 6,
       Bits().put(0, 3).put(3, 3).put(0, 1).put(5, 8).put(1, 4).put(3, 2).put(0, 9), 30,
       body("FC_CAM", {"ASSIGN_MODE = 0", "ADD_RECORD_LEN = 3"}, "CAM_ASSIGN_MODE_000",
            {"FREQ_INCL = 0", "CODE_CHAN = 5", "FRAME_OFFSET = 1", "ENCRYPT_MODE = 3"})},
      {"paging channel: pilots fill the record", 3,
       Bits().put(1, 3).put(4, 3).put(1, 1).put(0, 1).put(78, 9).put(300, 9).put(511, 9).put(0, 3), 38,
       body("FC_CAM", {"ASSIGN_MODE = 1", "ADD_RECORD_LEN = 4"}, "CAM_ASSIGN_MODE_001",
            {"RESPOND = 1", "FREQ_INCL = 0", "PILOT_PN[0] = 78", "PILOT_PN[1] = 300", "PILOT_PN[2] = 511"})},
      {"analog voice channel", 6,
       Bits().put(3, 3).put(5, 3).put(4145, 15).put(2, 3).put(1000, 11).put(1, 2).put(1, 1).put(2, 2).put(1, 1).put(0, 5),
       46,
       body("FC_CAM", {"ASSIGN_MODE = 3", "ADD_RECORD_LEN = 5"}, "CAM_ASSIGN_MODE_011",
            {"SID = 4145", "VMAC = 2", "ANALOG_CHAN = 1000", "SCC = 1", "MEM = 1", "AN_CHAN_TYPE = 2", "DSCC_MSB = 1",
             "BAND_CLASS = 0"})},
      {"extended traffic channel with band and frequency", 6,
       Bits().put(4, 3).put(5, 3).put(1, 1).put(0, 3).put(1, 1).put(4, 3).put(2, 2).put(40, 8).put(7, 4).put(1, 2)
           .put(1, 5).put(600, 11),
       46,
       body("FC_CAM", {"ASSIGN_MODE = 4", "ADD_RECORD_LEN = 5"}, "CAM_ASSIGN_MODE_100",
            {"FREQ_INCL = 1", "BYPASS_ALERT_ANSWER = 1", "DEFAULT_CONFIG = 4", "GRANTED_MODE = 2", "CODE_CHAN = 40",
             "FRAME_OFFSET = 7", "ENCRYPT_MODE = 1", "BAND_CLASS = 1", "CDMA_FREQ = 600"})},
      {"extended paging channel", 5,
       Bits().put(5, 3).put(5, 3).put(0, 1).put(1, 1).put(1, 5).put(600, 11).put(78, 9).put(81, 9).put(0, 4), 46,
       body("FC_CAM", {"ASSIGN_MODE = 5", "ADD_RECORD_LEN = 5"}, "CAM_ASSIGN_MODE_101",
            {"RESPOND = 0", "FREQ_INCL = 1", "BAND_CLASS = 1", "CDMA_FREQ = 600", "PILOT_PN[0] = 78",
             "PILOT_PN[1] = 81"})},
      {"reserved mode: header only", 6, Bits().put(6, 3).put(0, 3).put(0xFF, 8), 6,
       body("FC_CAM", {"ASSIGN_MODE = 6", "ADD_RECORD_LEN = 0"})},
  };
  for (const auto& k : cases) {
    const auto r = run(paging_messages().body(8), k.bits, k.p_rev);
    EXPECT_EQ(r.rc, Rc::ok) << k.what;
    EXPECT_EQ(r.used, k.used) << k.what;
    EXPECT_EQ(r.text, k.want) << k.what;
  }
}

TEST(Assign, ChannelAssignmentIsRefusedFromPrevEight) {
  const Bits b = Bits().put(2, 3).put(1, 3).put(0xFF, 8);
  for (std::uint8_t p_rev : {8, 9, 11}) {
    const auto r = run(paging_messages().body(8), b, p_rev);
    EXPECT_EQ(r.rc, Rc::count) << int(p_rev);
    EXPECT_EQ(r.text, "FC_CAM\n{\n}\n") << int(p_rev);
  }
  EXPECT_EQ(run(paging_messages().body(8), b, 7).rc, Rc::ok);
}

TEST(Assign, ChannelAssignmentRecordMustFitItsLength) {
  // Mode '000' with a frequency needs 26 bits; a 3-octet record cannot hold it.
  const Bits b = Bits().put(0, 3).put(3, 3).put(1, 1).put(12, 8).put(25, 11).put(3, 4).put(0, 2).put(0, 6);
  EXPECT_EQ(run(paging_messages().body(8), b, 6).rc, Rc::short_msg);
  EXPECT_EQ(run_body(paging_messages().body(8), b.message(8), 0, 5, test::ctx(6)).rc, Rc::short_msg);
}

TEST(Assign, ExtendedHeaderOrderFollowsPrev) {
  // The same analog control assignment, before and after IS-95B phase II.
  const auto old = run(paging_messages().body(21), Bits().put(2, 3).put(1, 8).put(1, 1).put(0, 1).put(1, 1).put(0, 5), 4);
  const auto cur = run(paging_messages().body(21), Bits().put(1, 8).put(2, 3).put(1, 1).put(0, 1).put(1, 1).put(0, 5), 6);
  const std::initializer_list<std::string_view> mode = {"RESPOND = 1", "ANALOG_SYS = 0", "USE_ANALOG_SYS = 1",
                                                        "BAND_CLASS = 0"};
  EXPECT_EQ(old.rc, Rc::ok);
  EXPECT_EQ(old.text, body("FC_ECAM", {"ASSIGN_MODE = 2", "ADD_RECORD_LEN = 1"}, "ECAM_ASSIGN_MODE_010", mode));
  EXPECT_EQ(cur.rc, Rc::ok);
  EXPECT_EQ(cur.text, body("FC_ECAM", {"ADD_RECORD_LEN = 1", "ASSIGN_MODE = 2"}, "ECAM_ASSIGN_MODE_010", mode));
  EXPECT_EQ(old.used, 19u);
  EXPECT_EQ(cur.used, 19u);

  const auto none = run(paging_messages().body(21), Bits().put(0, 8).put(7, 3).put(0x1F, 5), 10);
  EXPECT_EQ(none.rc, Rc::ok);
  EXPECT_EQ(none.used, 11u);
  EXPECT_EQ(none.text, body("FC_ECAM", {"ADD_RECORD_LEN = 0", "ASSIGN_MODE = 7"}));
  EXPECT_EQ(run_body(paging_messages().body(21), Bits().put(0, 11).message(8), 0, 10, test::ctx(6)).rc, Rc::short_msg);
}

// ECAM mode '000' fixed part with two pilots and a frequency.
Bits ecam_traffic_head(unsigned encrypt_mode) {
  Bits b;
  b.put(20, 8).put(0, 3);
  b.put(1, 1).put(1, 3).put(1, 1).put(0, 1).put(1, 3).put(0, 2).put(5, 4).put(encrypt_mode, 2);
  b.put(1, 5).put(25, 11);
  b.put(78, 9).put(1, 1).put(10, 8).put(81, 9).put(0, 1).put(11, 8);
  return b;
}

const std::initializer_list<std::string_view> kTrafficHead = {
    "FREQ_INCL = 1", "DEFAULT_CONFIG = 1", "BYPASS_ALERT_ANSWER = 1", "NUM_PILOTS = 1", "GRANTED_MODE = 0",
    "FRAME_OFFSET = 5"};

std::string ecam_traffic(unsigned encrypt_mode, std::initializer_list<std::string_view> tail) {
  std::string s = "FC_ECAM\n{\n   ADD_RECORD_LEN = 20\n   ASSIGN_MODE = 0\n"
                  "   ECAM_ASSIGN_MODE_000 = FC_ECAM_ECAM_ASSIGN_MODE_000\n   {\n";
  for (auto f : kTrafficHead) s.append("      ").append(f).push_back('\n');
  s += "      ENCRYPT_MODE = " + std::to_string(encrypt_mode) + "\n      BAND_CLASS = 1\n      CDMA_FREQ = 25\n";
  s += "      PILOTs[0] = FC_ECAM_ECAM_ASSIGN_MODE_000_PILOTs\n      {\n         PILOT_PN = 78\n"
       "         PWR_COMB_IND = 1\n         CODE_CHAN = 10\n      }\n"
       "      PILOTs[1] = FC_ECAM_ECAM_ASSIGN_MODE_000_PILOTs\n      {\n         PILOT_PN = 81\n"
       "         PWR_COMB_IND = 0\n         CODE_CHAN = 11\n      }\n";
  for (auto f : tail) s.append("      ").append(f).push_back('\n');
  return s + "   }\n}\n";
}

const std::initializer_list<std::string_view> kIs2000Fch = {
    "FOR_FCH_RC = 3",        "REV_FCH_RC = 3",        "FPC_FCH_INIT_SETPT = 40", "FPC_SUBCHAN_GAIN = 2",
    "RLGAIN_ADJ = 0",        "FPC_FCH_FER = 2",       "FPC_FCH_MIN_SETPT = 16",  "FPC_FCH_MAX_SETPT = 80"};

void put_is2000_fch(Bits& b) {
  b.put(3, 5).put(3, 5).put(40, 8).put(2, 5).put(0, 4).put(2, 5).put(16, 8).put(80, 8);
}

TEST(Assign, ExtendedTrafficAssignmentOverRevisions) {
  {  // IS-95B phase II order, no IS-2000 fields
    Bits b = ecam_traffic_head(1);
    const auto r = run(paging_messages().body(21), b, 5);
    EXPECT_EQ(r.rc, Rc::ok);
    EXPECT_EQ(r.used, b.size());
    EXPECT_EQ(r.text, ecam_traffic(1, {}));
  }
  {  // IS-2000: radio configurations, power control, gating with its delay
    Bits b = ecam_traffic_head(0);
    put_is2000_fch(b);
    b.put(1, 1).put(1, 1).put(2, 2);
    const auto r = run(paging_messages().body(21), b, 6);
    EXPECT_EQ(r.rc, Rc::ok);
    EXPECT_EQ(r.used, b.size());
    std::vector<std::string_view> tail(kIs2000Fch);
    for (auto f : {"REV_FCH_GATING_MODE = 1", "REV_PWR_CNTL_DELAY_INCL = 1", "REV_PWR_CNTL_DELAY = 2"}) tail.push_back(f);
    std::string want = ecam_traffic(0, {});
    std::string fields;
    for (auto f : tail) fields.append("      ").append(f).push_back('\n');
    want.insert(want.size() - std::string("   }\n}\n").size(), fields);
    EXPECT_EQ(r.text, want);
  }
  {  // P_REV 9: key size for enhanced encryption, common channel mode, integrity, PLCM
    Bits b = ecam_traffic_head(2);
    put_is2000_fch(b);
    b.put(0, 1);                                   // no gating
    b.put(5, 3).put(1, 1).put(2, 3);               // ENC_KEY_SIZE, C_SIG_ENCRYPT_MODE_INCL, C_SIG_ENCRYPT_MODE
    b.put(1, 1).put(1, 1).put(0, 1);               // MSG_INT_INFO_INCL, CHANGE_KEYS, USE_UAK
    b.put(1, 1).put(1, 4).put(0x12345678ABull, 39);   // PLCM_TYPE_INCL, PLCM_TYPE, PLCM_39
    const auto r = run(paging_messages().body(21), b, 9);
    EXPECT_EQ(r.rc, Rc::ok);
    EXPECT_EQ(r.used, b.size());
    std::string want = ecam_traffic(2, {});
    std::string fields;
    for (auto f : kIs2000Fch) fields.append("      ").append(f).push_back('\n');
    for (auto f : {"REV_FCH_GATING_MODE = 0", "ENC_KEY_SIZE = 5", "C_SIG_ENCRYPT_MODE_INCL = 1", "C_SIG_ENCRYPT_MODE = 2",
                   "MSG_INT_INFO_INCL = 1", "CHANGE_KEYS = 1", "USE_UAK = 0", "PLCM_TYPE_INCL = 1", "PLCM_TYPE = 1",
                   "PLCM_39 = 0x12345678ab"})
      fields.append("      ").append(f).push_back('\n');
    want.insert(want.size() - std::string("   }\n}\n").size(), fields);
    EXPECT_EQ(r.text, want);
  }
  {  // a pilot cut short stops the decode with the pilots read so far
    Bits b = ecam_traffic_head(0);
    const auto r = run_body(paging_messages().body(21), b.message(8), 0, b.size() - 5, test::ctx(5));
    EXPECT_EQ(r.rc, Rc::short_msg);
    EXPECT_NE(r.text.find("PILOTs[0]"), std::string::npos);
    EXPECT_EQ(r.text.find("PILOTs[1]"), std::string::npos);
  }
}

TEST(Assign, ExtendedPagingAssignment) {
  Bits paging;
  paging.put(7, 8).put(1, 3).put(1, 1).put(1, 1).put(1, 5).put(75, 11).put(2, 6).put(78, 9).put(81, 9).put(84, 9);
  const auto p = run(paging_messages().body(21), paging, 7);
  EXPECT_EQ(p.rc, Rc::ok);
  EXPECT_EQ(p.used, paging.size());
  EXPECT_EQ(p.text, body("FC_ECAM", {"ADD_RECORD_LEN = 7", "ASSIGN_MODE = 1"}, "ECAM_ASSIGN_MODE_001",
                         {"RESPOND = 1", "FREQ_INCL = 1", "BAND_CLASS = 1", "CDMA_FREQ = 75", "NUM_PILOTS = 2",
                          "PILOT_PN[0] = 78", "PILOT_PN[1] = 81", "PILOT_PN[2] = 84"}));

}

// Indents every line of `ls` by `n` spaces.
std::string block(unsigned n, std::initializer_list<std::string_view> ls) {
  std::string s;
  for (auto l : ls) s.append(n, ' ').append(l).push_back('\n');
  return s;
}

TEST(Assign, ExtendedIs2000TrafficAssignment) {
  {  // P_REV 6: fundamental channel only, one pilot with an OTD additional record
    Bits b;
    b.put(10, 8).put(4, 3);
    b.put(0, 1).put(1, 1).put(2, 2);
    b.put(0, 3).put(3, 5).put(3, 5).put(2, 4).put(0, 2).put(4, 5).put(1, 4).put(0, 3).put(1, 2).put(9, 5);
    b.put(30, 8).put(3, 5).put(10, 8).put(70, 8);
    b.put(100, 9).put(1, 1).put(0, 3).put(1, 3).put(2, 2).put(0, 6).put(0, 1).put(33, 11).put(0, 2).put(0, 5);
    b.put(0, 1);
    const auto r = run(paging_messages().body(21), b, 6);
    EXPECT_EQ(r.rc, Rc::ok);
    EXPECT_EQ(r.used, b.size());
    EXPECT_EQ(r.text,
              "FC_ECAM\n{\n" +
                  block(3, {"ADD_RECORD_LEN = 10", "ASSIGN_MODE = 4",
                            "ECAM_ASSIGN_MODE_100 = FC_ECAM_ECAM_ASSIGN_MODE_100", "{"}) +
                  block(6, {"FREQ_INCL = 0", "BYPASS_ALERT_ANSWER = 1", "GRANTED_MODE = 2", "DEFAULT_CONFIG = 0",
                            "FOR_RC = 3", "REV_RC = 3", "FRAME_OFFSET = 2", "ENCRYPT_MODE = 0",
                            "FPC_SUBCHAN_GAIN = 4", "RLGAIN_ADJ = 1", "NUM_PILOTS = 0", "CH_IND = 1",
                            "CH_RECORD_LEN = 9", "CH_RECORD_FIELDS = FC_ECAM_ECAM_ASSIGN_MODE_100_CH_RECORD_FIELDS",
                            "{"}) +
                  block(9, {"FPC_FCH_INIT_SETPT = 30", "FPC_FCH_FER = 3", "FPC_FCH_MIN_SETPT = 10",
                            "FPC_FCH_MAX_SETPT = 70",
                            "PILOT_RECs[0] = FC_ECAM_ECAM_ASSIGN_MODE_100_CH_RECORD_FIELDS_PILOT_RECs", "{"}) +
                  block(12, {"PILOT_PN = 100", "ADD_PILOT_REC_INCL = 1", "PILOT_REC_TYPE = 0", "RECORD_LEN = 1",
                             "ADD_PILOT_REC = FC_ECAM_ECAM_ASSIGN_MODE_100_CH_RECORD_FIELDS_PILOT_RECs_ADD_PILOT_REC",
                             "{", "   OTD_POWER_LEVEL = 2", "}", "PWR_COMB_IND = 0", "CODE_CHAN_FCH = 33",
                             "QOF_MASK_ID_FCH = 0"}) +
                  block(9, {"}"}) + block(6, {"}", "REV_FCH_GATING_MODE = 0"}) + block(3, {"}"}) + "}\n");
  }
  {  // P_REV 11: the 5 header bits, both channels and two pilots, service restore, 3X/1X, sync id
    Bits b;
    b.put(30, 8).put(4, 3).put(0, 5);
    b.put(1, 1).put(1, 5).put(25, 11).put(0, 1).put(3, 2).put(7, 3).put(0b100001, 6);
    b.put(0, 3).put(4, 5).put(4, 5).put(0, 4).put(0, 2).put(0, 5).put(0, 4).put(1, 3).put(3, 2).put(17, 5);
    b.put(40, 8).put(36, 8).put(1, 1).put(2, 5).put(20, 8).put(90, 8).put(1, 5).put(24, 8).put(96, 8);
    b.put(78, 9).put(0, 1).put(1, 1).put(5, 11).put(1, 2).put(6, 11).put(2, 2);
    b.put(81, 9).put(0, 1).put(0, 1).put(7, 11).put(0, 2).put(8, 11).put(3, 2).put(0, 3);
    b.put(1, 1).put(0, 1);                     // REV_FCH_GATING_MODE, REV_PWR_CNTL_DELAY_INCL
    b.put(0, 1);                               // C_SIG_ENCRYPT_MODE_INCL
    b.put(1, 1).put(2, 2);                     // F3XFL_1XRL_INCL, F1XRL_FREQ_OFFSET
    b.put(0, 1).put(0, 1);                     // MSG_INT_INFO_INCL, PLCM_TYPE_INCL
    b.put(1, 1).put(2, 4).put(0xABCD, 16);     // SYNC_ID
    b.put(0, 1);                               // EARLY_RL_TRANSMIT_IND
    b.put(1, 1).put(23, 6);                    // TX_PWR_LIMIT_INCL, TX_PWR_LIMIT
    const auto r = run(paging_messages().body(21), b, 11);
    EXPECT_EQ(r.rc, Rc::ok);
    EXPECT_EQ(r.used, b.size());
    for (const char* l : {"\n   ASSIGN_MODE = 4\n   DIRECT_CH_ASSIGN_IND = 0\n   RESERVED_2 = 0\n   ECAM_ASSIGN_MODE_100 = ",
                          "\n      SR_ID_RESTORE = 7\n      SR_ID_RESTORE_BITMAP = 33\n      DEFAULT_CONFIG = 0\n",
                          "\n         FPC_DCCH_MIN_SETPT = 24\n         FPC_DCCH_MAX_SETPT = 96\n         PILOT_RECs[0] = ",
                          "\n            CODE_CHAN_FCH = 7\n            QOF_MASK_ID_FCH = 0\n            CODE_CHAN_DCCH = 8\n"
                          "            QOF_MASK_ID_DCCH = 3\n         }\n         3X_FCH_INFO_INCL = 0\n"
                          "         3X_DCCH_INFO_INCL = 0\n      }\n      REV_FCH_GATING_MODE = 1\n",
                          "\n      C_SIG_ENCRYPT_MODE_INCL = 0\n      F3XFL_1XRL_INCL = 1\n      F1XRL_FREQ_OFFSET = 2\n"
                          "      MSG_INT_INFO_INCL = 0\n      PLCM_TYPE_INCL = 0\n      SYNC_ID_INCL = 1\n"
                          "      SYNC_ID_LEN = 2\n      SYNC_ID = 0xabcd\n      EARLY_RL_TRANSMIT_IND = 0\n"
                          "      TX_PWR_LIMIT_INCL = 1\n      TX_PWR_LIMIT = 23\n   }\n}\n"})
      EXPECT_NE(r.text.find(l), std::string::npos) << l;
  }
  {  // a channel record longer than CH_RECORD_LEN says fails
    Bits b;
    b.put(10, 8).put(4, 3).put(0, 1).put(0, 3);
    b.put(0, 3).put(3, 5).put(3, 5).put(2, 4).put(0, 2).put(4, 5).put(1, 4).put(0, 3).put(1, 2).put(3, 5);
    b.put(30, 8).put(3, 5).put(10, 8).put(70, 8).put(100, 9).put(0, 1).put(0, 1).put(33, 11).put(0, 2).put(0, 8);
    EXPECT_EQ(run(paging_messages().body(21), b, 6).rc, Rc::short_msg);
  }
}


// Mode '100' with one pilot on the fundamental channel, P_REV 11: a direct channel assignment
// with its fields after the sync id, the 3X code channels of the pilot closing the channel
// record, and the early reverse-link transmit indicator and the transmit power limit last.
Bits direct_assignment(bool p_rev_11) {
  Bits b;
  b.put(30, 8).put(4, 3);
  if (p_rev_11) b.put(1, 1).put(0, 4);         // DIRECT_CH_ASSIGN_IND, RESERVED_2
  b.put(0, 1).put(0, 1).put(3, 2).put(1, 3);   // FREQ_INCL .. SR_ID_RESTORE
  b.put(0, 3).put(3, 5).put(3, 5).put(1, 4).put(0, 2).put(2, 5).put(0, 4).put(0, 3).put(1, 2).put(9, 5);
  b.put(30, 8).put(3, 5).put(10, 8).put(70, 8);
  b.put(100, 9).put(0, 1).put(0, 1).put(33, 11).put(1, 2);
  b.put(1, 1).put(1, 1).put(2, 2).put(500, 11).put(0, 1).put(0, 3);   // 3X FCH info, padding
  b.put(0, 1).put(0, 1).put(0, 1).put(0, 1).put(0, 1).put(0, 1);   // gating .. SYNC_ID_INCL
  if (p_rev_11) {
    b.put(17, 6).put(29, 5).put(1, 1).put(0, 1).put(1, 1).put(5, 3);
    b.put(1, 1);   // EARLY_RL_TRANSMIT_IND
    b.put(0, 1);   // TX_PWR_LIMIT_INCL
  }
  return b;
}

TEST(Assign, DirectChannelAssignmentFromPrev11) {
  const Bits b = direct_assignment(true);
  const auto r = run(paging_messages().body(21), b, 11);
  EXPECT_EQ(r.rc, Rc::ok);
  EXPECT_EQ(r.used, b.size());
  EXPECT_EQ(r.text,
            "FC_ECAM\n{\n" +
                block(3, {"ADD_RECORD_LEN = 30", "ASSIGN_MODE = 4", "DIRECT_CH_ASSIGN_IND = 1", "RESERVED_2 = 0",
                          "ECAM_ASSIGN_MODE_100 = FC_ECAM_ECAM_ASSIGN_MODE_100", "{"}) +
                block(6, {"FREQ_INCL = 0", "BYPASS_ALERT_ANSWER = 0", "GRANTED_MODE = 3", "SR_ID_RESTORE = 1",
                          "DEFAULT_CONFIG = 0", "FOR_RC = 3", "REV_RC = 3", "FRAME_OFFSET = 1", "ENCRYPT_MODE = 0",
                          "FPC_SUBCHAN_GAIN = 2", "RLGAIN_ADJ = 0", "NUM_PILOTS = 0", "CH_IND = 1",
                          "CH_RECORD_LEN = 9", "CH_RECORD_FIELDS = FC_ECAM_ECAM_ASSIGN_MODE_100_CH_RECORD_FIELDS",
                          "{"}) +
                block(9, {"FPC_FCH_INIT_SETPT = 30", "FPC_FCH_FER = 3", "FPC_FCH_MIN_SETPT = 10",
                          "FPC_FCH_MAX_SETPT = 70",
                          "PILOT_RECs[0] = FC_ECAM_ECAM_ASSIGN_MODE_100_CH_RECORD_FIELDS_PILOT_RECs", "{",
                          "   PILOT_PN = 100", "   ADD_PILOT_REC_INCL = 0", "   PWR_COMB_IND = 0",
                          "   CODE_CHAN_FCH = 33", "   QOF_MASK_ID_FCH = 1", "}", "3X_FCH_INFO_INCL = 1",
                          "3X_FCH_RECs[0] = FC_ECAM_ECAM_ASSIGN_MODE_100_CH_RECORD_FIELDS_3X_FCH_RECs", "{",
                          "   3X_FCH_LOW_INCL = 1", "   QOF_MASK_ID_FCH_LOW = 2", "   CODE_CHAN_FCH_LOW = 500",
                          "   3X_FCH_HIGH_INCL = 0", "}"}) +
                block(6, {"}", "REV_FCH_GATING_MODE = 0", "C_SIG_ENCRYPT_MODE_INCL = 0", "F3XFL_1XRL_INCL = 0",
                          "MSG_INT_INFO_INCL = 0", "PLCM_TYPE_INCL = 0", "SYNC_ID_INCL = 0", "CONFIG_MSG_SEQ = 17",
                          "RTC_NOM_PWR = 29", "RESPOND_IND = 1", "DIRECT_CH_ASSIGN_RECOVER_IND = 0",
                          "FIXED_PREAMBLE_TRANSMIT_IND = 1", "NUM_PREAMBLE = 5", "EARLY_RL_TRANSMIT_IND = 1",
                          "TX_PWR_LIMIT_INCL = 0"}) +
                block(3, {"}"}) + "}\n");

  // P_REV 10 has neither the header indicator nor what it enables, nor the early transmit bit.
  const Bits old = direct_assignment(false);
  const auto o = run(paging_messages().body(21), old, 10);
  EXPECT_EQ(o.rc, Rc::ok);
  EXPECT_EQ(o.used, old.size());
  for (const char* absent :
       {"DIRECT_CH_ASSIGN_IND", "RESERVED_2", "CONFIG_MSG_SEQ", "EARLY_RL_TRANSMIT_IND", "TX_PWR_LIMIT_INCL"})
    EXPECT_EQ(o.text.find(absent), std::string::npos) << absent;
  EXPECT_NE(o.text.find("      SYNC_ID_INCL = 0\n   }\n}\n"), std::string::npos);

  // Neither a restore (GRANTED_MODE '10': no SR_ID_RESTORE, no sync id) nor a direct
  // assignment: from the long code mask straight to the early transmit bit.
  Bits plain;
  plain.put(30, 8).put(4, 3).put(0, 5).put(0, 1).put(0, 1).put(2, 2);
  plain.put(0, 3).put(3, 5).put(3, 5).put(1, 4).put(0, 2).put(2, 5).put(0, 4).put(0, 3).put(0, 2).put(0, 5);
  plain.put(0, 5).put(1, 1).put(1, 1).put(63, 6);
  const auto p = run(paging_messages().body(21), plain, 11);
  EXPECT_EQ(p.rc, Rc::ok);
  EXPECT_EQ(p.used, plain.size());
  EXPECT_NE(p.text.find("      GRANTED_MODE = 2\n      DEFAULT_CONFIG = 0\n"), std::string::npos);
  EXPECT_NE(p.text.find("      PLCM_TYPE_INCL = 0\n      EARLY_RL_TRANSMIT_IND = 1\n      TX_PWR_LIMIT_INCL = 1\n"
                         "      TX_PWR_LIMIT = 63\n   }\n}\n"),
            std::string::npos);
}

// A mode '100' assignment whose single pilot carries an additional pilot record of `type`,
// RECORD_LEN octets long, filled by `rec`.
template <class F>
Bits with_pilot_record(std::uint8_t p_rev, unsigned type, unsigned len, F rec) {
  const unsigned ch_bits = 29 + 10 + 6 + 8 * len + 14 + (p_rev >= 7 ? 1 : 0);
  const unsigned ch_len = (ch_bits + 7) / 8;
  Bits b;
  b.put(20, 8).put(4, 3).put(0, 1).put(0, 1).put(0, 2);
  b.put(0, 3).put(3, 5).put(3, 5).put(0, 4).put(0, 2).put(0, 5).put(0, 4).put(0, 3).put(1, 2).put(ch_len, 5);
  b.put(30, 8).put(3, 5).put(10, 8).put(70, 8).put(100, 9).put(1, 1).put(type, 3).put(len, 3);
  rec(b);
  b.put(0, 1).put(33, 11).put(0, 2);
  if (p_rev >= 7) b.put(0, 1);   // 3X_FCH_INFO_INCL
  b.put(0, 8 * ch_len - ch_bits);
  b.put(0, 1);                                    // REV_FCH_GATING_MODE
  if (p_rev >= 7) b.put(0, 1).put(0, 1);          // C_SIG_ENCRYPT_MODE_INCL, F3XFL_1XRL_INCL
  return b;
}

TEST(Assign, AdditionalPilotRecordTypes) {
  struct Case {
    const char* what;
    std::uint8_t p_rev;
    Bits bits;
    std::initializer_list<std::string_view> fields;
  };
  const Case cases[] = {
      {"Release 0 transmit diversity pilot", 6, with_pilot_record(6, 0, 1, [](Bits& b) { b.put(2, 2).put(0, 6); }),
       {"OTD_POWER_LEVEL = 2"}},
      {"Release A renames the power level and adds the mode", 7,
       with_pilot_record(7, 0, 1, [](Bits& b) { b.put(3, 2).put(1, 2).put(0, 4); }),
       {"TD_POWER_LEVEL = 3", "TD_MODE = 1"}},
      {"auxiliary pilot", 8, with_pilot_record(8, 1, 2, [](Bits& b) { b.put(3, 2).put(4, 3).put(900, 10).put(0, 1); }),
       {"QOF = 3", "WALSH_LENGTH = 4", "AUX_PILOT_WALSH = 900"}},
      {"auxiliary transmit diversity pilot", 7,
       with_pilot_record(7, 2, 2, [](Bits& b) { b.put(1, 2).put(1, 3).put(100, 7).put(2, 2).put(0, 2); }),
       {"QOF = 1", "WALSH_LENGTH = 1", "AUX_WALSH = 100", "AUX_TD_POWER_LEVEL = 2", "TD_MODE = 0"}},
      {"3X common pilot", 7, with_pilot_record(7, 3, 1, [](Bits& b) { b.put(2, 2).put(5, 3).put(6, 3); }),
       {"SR3_PRIMARY_PILOT = 2", "SR3_PILOT_POWER1 = 5", "SR3_PILOT_POWER2 = 6"}},
      {"3X auxiliary pilot with the lower carrier's code", 8,
       with_pilot_record(8, 4, 5,
                         [](Bits& b) {
                           b.put(1, 2).put(3, 3).put(4, 3).put(0, 2).put(0, 3).put(45, 6);
                           b.put(1, 1).put(2, 2).put(2, 3).put(200, 8).put(0, 1).put(0, 6);
                         }),
       {"SR3_PRIMARY_PILOT = 1", "SR3_PILOT_POWER1 = 3", "SR3_PILOT_POWER2 = 4", "QOF = 0", "WALSH_LENGTH = 0",
        "AUX_PILOT_WALSH = 45", "ADD_INFO_INCL1 = 1", "QOF1 = 2", "WALSH_LENGTH1 = 2", "AUX_PILOT_WALSH1 = 200",
        "ADD_INFO_INCL2 = 0"}},
      {"Release 0 knows no auxiliary pilots: the record is passed over", 6,
       with_pilot_record(6, 2, 1, [](Bits& b) { b.put(0xAB, 8); }), {}},
  };
  for (const auto& k : cases) {
    const auto r = run(paging_messages().body(21), k.bits, k.p_rev);
    EXPECT_EQ(r.rc, Rc::ok) << k.what;
    EXPECT_EQ(r.used, k.bits.size()) << k.what;
    std::string want = "ADD_PILOT_REC = FC_ECAM_ECAM_ASSIGN_MODE_100_CH_RECORD_FIELDS_PILOT_RECs_ADD_PILOT_REC\n" +
                       block(12, {"{"});
    for (auto f : k.fields) want += block(15, {f});
    want += block(12, {"}", "PWR_COMB_IND = 0", "CODE_CHAN_FCH = 33"});
    EXPECT_NE(r.text.find(want), std::string::npos) << k.what << "\n" << r.text;
  }
}

// Mode '101' at P_REV 9: PDCH with FCH and DCCH both ways, forward PDCH parameters with the
// control hold counts, two pilots (the first with two packet data control channels, the
// second with a transmit diversity record and no packet data channel).
TEST(Assign, PacketDataChannelAssignment) {
  Bits b;
  b.put(40, 8).put(5, 3);
  b.put(1, 1).put(1, 5).put(25, 11).put(1, 1).put(3, 2).put(2, 3).put(3, 4).put(0, 2);
  b.put(0, 1).put(0, 1).put(0, 1);                            // C_SIG_ENCRYPT_MODE_INCL .. PLCM_TYPE_INCL
  b.put(2, 4).put(1, 3).put(6, 5).put(7, 5).put(1, 1).put(0, 1);   // RLGAIN_ADJ .. REV_PWR_CNTL_DELAY_INCL
  b.put(1, 1).put(9, 4).put(1, 2).put(2, 2).put(10, 5).put(3, 5).put(3, 5).put(1, 1);
  b.put(40, 8).put(2, 5).put(16, 8).put(80, 8).put(36, 8).put(1, 5).put(24, 8).put(96, 8);
  b.put(1, 1).put(1, 1).put(1, 1).put(20, 6).put(33, 6);
  b.put(5, 4).put(6, 4).put(1, 2).put(2, 2).put(1, 1).put(7, 4).put(8, 4).put(3, 2).put(0, 2).put(100, 8).put(200, 8);
  b.put(78, 9).put(0, 1).put(1, 1).put(2, 3).put(1, 3).put(10, 6).put(11, 6).put(70, 8).put(4, 3);
  b.put(1, 1).put(1, 1).put(12, 11).put(0, 2).put(13, 11).put(1, 2);
  b.put(81, 9).put(1, 1).put(0, 3).put(1, 3).put(1, 2).put(0, 2).put(0, 4).put(0, 1).put(0, 1).put(0, 1);
  b.put(14, 11).put(0, 2).put(15, 11).put(0, 2);
  b.put(0, 1);   // SYNC_ID_INCL
  const auto r = run(paging_messages().body(21), b, 9);
  EXPECT_EQ(r.rc, Rc::ok);
  EXPECT_EQ(r.used, b.size());
  const std::string want =
      "FC_ECAM\n{\n" +
      block(3, {"ADD_RECORD_LEN = 40", "ASSIGN_MODE = 5", "ECAM_ASSIGN_MODE_101 = FC_ECAM_ECAM_ASSIGN_MODE_101", "{"}) +
      block(6, {"FREQ_INCL = 1", "BAND_CLASS = 1", "CDMA_FREQ = 25", "BYPASS_ALERT_ANSWER = 1", "GRANTED_MODE = 3",
                "SR_ID_RESTORE = 2", "FRAME_OFFSET = 3", "ENCRYPT_MODE = 0", "C_SIG_ENCRYPT_MODE_INCL = 0",
                "MSG_INT_INFO_INCL = 0", "PLCM_TYPE_INCL = 0", "RLGAIN_ADJ = 2", "NUM_PILOTS = 1", "EXT_CH_IND = 6",
                "FPC_SUBCHAN_GAIN = 7", "REV_FCH_GATING_MODE = 1", "REV_PWR_CNTL_DELAY_INCL = 0",
                "FULL_CI_FEEDBACK_IND = 1", "REV_CQICH_FRAME_OFFSET = 9", "REV_CQICH_REPS = 1", "REV_ACKCH_REPS = 2",
                "FOR_PDCH_RC = 10", "FOR_FCH_DCCH_RC = 3", "REV_FCH_DCCH_RC = 3", "FPC_PRI_CHAN = 1",
                "FPC_FCH_INIT_SETPT = 40", "FPC_FCH_FER = 2", "FPC_FCH_MIN_SETPT = 16", "FPC_FCH_MAX_SETPT = 80",
                "FPC_DCCH_INIT_SETPT = 36", "FPC_DCCH_FER = 1", "FPC_DCCH_MIN_SETPT = 24", "FPC_DCCH_MAX_SETPT = 96",
                "PDCH_GROUP_IND_INCL = 1", "FOR_PDCH_PARAMS_INCL = 1", "FOR_PDCH_RLGAIN_INCL = 1",
                "RLGAIN_ACKCH_PILOT = 20", "RLGAIN_CQICH_PILOT = 33", "NUM_SOFT_SWITCHING_FRAMES = 5",
                "NUM_SOFTER_SWITCHING_FRAMES = 6", "NUM_SOFT_SWITCHING_SLOTS = 1", "NUM_SOFTER_SWITCHING_SLOTS = 2",
                "CHM_SWITCHING_PARMS_INCL = 1", "NUM_SOFT_SWITCHING_FRAMES_CHM = 7",
                "NUM_SOFTER_SWITCHING_FRAMES_CHM = 8", "NUM_SOFT_SWITCHING_SLOTS_CHM = 3",
                "NUM_SOFTER_SWITCHING_SLOTS_CHM = 0", "PDCH_SOFT_SWITCHING_DELAY = 100",
                "PDCH_SOFTER_SWITCHING_DELAY = 200", "PILOT_RECs[0] = FC_ECAM_ECAM_ASSIGN_MODE_101_PILOT_RECs", "{"}) +
      block(9, {"PILOT_PN = 78", "ADD_PILOT_REC_INCL = 0", "FOR_PDCH_INCL = 1", "WALSH_TABLE_ID = 2", "NUM_PDCCH = 1",
                "PDCCH_RECs[0] = FC_ECAM_ECAM_ASSIGN_MODE_101_PILOT_RECs_PDCCH_RECs", "{", "   FOR_PDCCH_WALSH = 10",
                "}", "PDCCH_RECs[1] = FC_ECAM_ECAM_ASSIGN_MODE_101_PILOT_RECs_PDCCH_RECs", "{",
                "   FOR_PDCCH_WALSH = 11", "}", "MAC_ID = 70", "REV_CQICH_COVER = 4", "PWR_COMB_IND = 1",
                "PDCH_GROUP_IND = 1", "CODE_CHAN_FCH = 12", "QOF_MASK_ID_FCH = 0", "CODE_CHAN_DCCH = 13",
                "QOF_MASK_ID_DCCH = 1"}) +
      block(6, {"}", "PILOT_RECs[1] = FC_ECAM_ECAM_ASSIGN_MODE_101_PILOT_RECs", "{"}) +
      block(9, {"PILOT_PN = 81", "ADD_PILOT_REC_INCL = 1", "PILOT_REC_TYPE = 0", "RECORD_LEN = 1",
                "ADD_PILOT_REC = FC_ECAM_ECAM_ASSIGN_MODE_101_PILOT_RECs_ADD_PILOT_REC", "{", "   TD_POWER_LEVEL = 1",
                "   TD_MODE = 0", "}", "FOR_PDCH_INCL = 0", "PWR_COMB_IND = 0", "PDCH_GROUP_IND = 0",
                "CODE_CHAN_FCH = 14", "QOF_MASK_ID_FCH = 0", "CODE_CHAN_DCCH = 15", "QOF_MASK_ID_DCCH = 0"}) +
      block(6, {"}", "SYNC_ID_INCL = 0"}) + block(3, {"}"}) + "}\n";
  EXPECT_EQ(r.text, want);
}

TEST(Assign, PacketDataChannelWithCommonPowerControl) {
  // EXT_CH_IND 1: PDCH and CPCCH forward, FCH reverse. No forward fundicated channel, so no
  // subchannel gain, forward RC or set points; the pilot's power control comes on the CPCCH.
  Bits b;
  b.put(20, 8).put(5, 3);
  b.put(0, 1).put(0, 1).put(1, 2).put(0, 4).put(0, 2).put(0, 3);
  b.put(0, 4).put(0, 3).put(1, 5).put(0, 1);                         // .. EXT_CH_IND, REV_FCH_GATING_MODE
  b.put(0, 1).put(3, 4).put(0, 2).put(0, 2).put(10, 5).put(4, 5);    // .. FOR_PDCH_RC, REV_FCH_DCCH_RC
  b.put(0, 1).put(0, 1);                                             // PDCH_GROUP_IND_INCL, FOR_PDCH_PARAMS_INCL
  b.put(300, 9).put(0, 1).put(1, 1).put(9, 8).put(2, 3).put(100, 7).put(17, 5).put(1, 1);
  const auto r = run(paging_messages().body(21), b, 9);
  EXPECT_EQ(r.rc, Rc::ok);
  EXPECT_EQ(r.used, b.size());
  EXPECT_NE(r.text.find(block(6, {"EXT_CH_IND = 1", "REV_FCH_GATING_MODE = 0", "FULL_CI_FEEDBACK_IND = 0"})),
            std::string::npos);
  EXPECT_NE(r.text.find(block(6, {"FOR_PDCH_RC = 10", "REV_FCH_DCCH_RC = 4", "PDCH_GROUP_IND_INCL = 0",
                                   "FOR_PDCH_PARAMS_INCL = 0"})),
            std::string::npos);
  EXPECT_NE(r.text.find(block(9, {"FOR_PDCH_INCL = 1", "MAC_ID = 9", "REV_CQICH_COVER = 2", "FOR_CPCCH_WALSH = 100",
                                   "FOR_CPCSCH = 17", "PWR_COMB_IND = 1"}) +
                        block(6, {"}"}) + block(3, {"}"})),
            std::string::npos);
  for (const char* absent : {"SR_ID_RESTORE", "FPC_SUBCHAN_GAIN", "FOR_FCH_DCCH_RC", "FPC_FCH", "NUM_PDCCH",
                             "CODE_CHAN_FCH", "SYNC_ID_INCL"})
    EXPECT_EQ(r.text.find(absent), std::string::npos) << absent;
}

TEST(Assign, PacketDataChannelAssignmentOverRevisions) {
  // Mode '101' is reserved before P_REV 9: the header alone.
  const auto early = run(paging_messages().body(21), Bits().put(9, 8).put(5, 3).put(0x1FF, 9), 8);
  EXPECT_EQ(early.rc, Rc::ok);
  EXPECT_EQ(early.used, 11u);
  EXPECT_EQ(early.text, body("FC_ECAM", {"ADD_RECORD_LEN = 9", "ASSIGN_MODE = 5"}));

  // From P_REV 11 the header brings its 5 bits; the record is read up to the forward PDCH
  // parameters, where the later releases insert fields not decoded here: it is refused there.
  Bits late;
  late.put(9, 8).put(5, 3).put(0, 1).put(3, 4);
  late.put(0, 1).put(0, 1).put(0, 2).put(0, 4).put(0, 2).put(0, 3);
  late.put(0, 4).put(0, 3).put(4, 5).put(0, 5);                       // .. EXT_CH_IND, FPC_SUBCHAN_GAIN
  late.put(0, 1).put(0, 4).put(0, 2).put(0, 2).put(10, 5).put(3, 5).put(3, 5);
  late.put(1, 8).put(1, 5).put(2, 8).put(3, 8);                      // DCCH set points
  late.put(0, 1).put(0, 1);
  const auto r = run(paging_messages().body(21), late, 11);
  EXPECT_EQ(r.rc, Rc::count);
  EXPECT_NE(r.text.find(block(3, {"ASSIGN_MODE = 5", "DIRECT_CH_ASSIGN_IND = 0", "RESERVED_2 = 3"})),
            std::string::npos);
  EXPECT_NE(r.text.find(block(6, {"FPC_DCCH_MAX_SETPT = 3", "PDCH_GROUP_IND_INCL = 0", "FOR_PDCH_PARAMS_INCL = 0"}) +
                        block(3, {"}"})),
            std::string::npos);
}

// Mode '101' from P_REV 10: the Release D channel combinations of EXT_CH_IND and how far the
// record is read. With a reverse packet data channel its radio configuration follows the
// forward one; with a common power control channel the record ends after
// FULL_CI_FEEDBACK_IND, where Release D inserts that channel's rates.
TEST(Assign, PacketDataChannelReleaseDChannels) {
  // Header and mode fields up to EXT_CH_IND: no frequency, no restore, no encryption, no
  // integrity, no long code mask type.
  auto head = [](unsigned ext) {
    Bits b;
    b.put(20, 8).put(5, 3);
    b.put(0, 1).put(0, 1).put(0, 2).put(2, 4).put(0, 2).put(0, 1).put(0, 1).put(0, 1);
    b.put(1, 4).put(0, 3).put(ext, 5);
    return b;
  };
  auto framed = [](std::initializer_list<std::string_view> fields) {
    return "FC_ECAM\n{\n" +
           block(3, {"ADD_RECORD_LEN = 20", "ASSIGN_MODE = 5", "ECAM_ASSIGN_MODE_101 = FC_ECAM_ECAM_ASSIGN_MODE_101",
                     "{"}) +
           block(6, {"FREQ_INCL = 0", "BYPASS_ALERT_ANSWER = 0", "GRANTED_MODE = 0", "FRAME_OFFSET = 2",
                     "ENCRYPT_MODE = 0", "C_SIG_ENCRYPT_MODE_INCL = 0", "MSG_INT_INFO_INCL = 0", "PLCM_TYPE_INCL = 0",
                     "RLGAIN_ADJ = 1", "NUM_PILOTS = 0"}) +
           block(6, fields) + block(3, {"}"}) + "}\n";
  };

  Bits cpcch = head(9);   // F-CPCCH forward; R-FCH and R-PDCH reverse
  cpcch.put(0, 1).put(1, 1).put(0x1FFF, 13);
  Bits rpdch = head(11);   // F-FCH forward; R-FCH and R-PDCH reverse
  rpdch.put(7, 5).put(0, 1).put(0, 1).put(9, 4).put(1, 2).put(2, 2).put(10, 5).put(4, 5).put(3, 5).put(3, 5);
  rpdch.put(40, 8).put(2, 5).put(16, 8).put(80, 8).put(0, 1).put(0, 1).put(0x3FF, 10);
  Bits dcch = head(15);   // F-FCH and F-DCCH forward, R-DCCH reverse: no gating, no R-PDCH
  dcch.put(5, 5).put(1, 1).put(3, 4).put(0, 2).put(0, 2).put(11, 5).put(4, 5).put(4, 5).put(1, 1);
  dcch.put(1, 8).put(2, 5).put(3, 8).put(4, 8).put(5, 8).put(6, 5).put(7, 8).put(8, 8).put(0, 1).put(0, 1);
  dcch.put(0, 16);
  struct Case {
    const char* what;
    Bits bits;
    std::string want;
  };
  const Case cases[] = {
      {"common power control channel: ends before its rates", cpcch,
       framed({"EXT_CH_IND = 9", "REV_FCH_GATING_MODE = 0", "FULL_CI_FEEDBACK_IND = 1"})},
      {"reverse packet data channel brings REV_PDCH_RC", rpdch,
       framed({"EXT_CH_IND = 11", "FPC_SUBCHAN_GAIN = 7", "REV_FCH_GATING_MODE = 0", "FULL_CI_FEEDBACK_IND = 0",
               "REV_CQICH_FRAME_OFFSET = 9", "REV_CQICH_REPS = 1", "REV_ACKCH_REPS = 2", "FOR_PDCH_RC = 10",
               "REV_PDCH_RC = 4", "FOR_FCH_DCCH_RC = 3", "REV_FCH_DCCH_RC = 3", "FPC_FCH_INIT_SETPT = 40",
               "FPC_FCH_FER = 2", "FPC_FCH_MIN_SETPT = 16", "FPC_FCH_MAX_SETPT = 80", "PDCH_GROUP_IND_INCL = 0",
               "FOR_PDCH_PARAMS_INCL = 0"})},
      {"both forward fundicated channels over a reverse DCCH", dcch,
       framed({"EXT_CH_IND = 15", "FPC_SUBCHAN_GAIN = 5", "FULL_CI_FEEDBACK_IND = 1", "REV_CQICH_FRAME_OFFSET = 3",
               "REV_CQICH_REPS = 0", "REV_ACKCH_REPS = 0", "FOR_PDCH_RC = 11", "FOR_FCH_DCCH_RC = 4",
               "REV_FCH_DCCH_RC = 4", "FPC_PRI_CHAN = 1", "FPC_FCH_INIT_SETPT = 1", "FPC_FCH_FER = 2",
               "FPC_FCH_MIN_SETPT = 3", "FPC_FCH_MAX_SETPT = 4", "FPC_DCCH_INIT_SETPT = 5", "FPC_DCCH_FER = 6",
               "FPC_DCCH_MIN_SETPT = 7", "FPC_DCCH_MAX_SETPT = 8", "PDCH_GROUP_IND_INCL = 0",
               "FOR_PDCH_PARAMS_INCL = 0"})},
  };
  for (const auto& k : cases) {
    const auto r = run(paging_messages().body(21), k.bits, 10);
    EXPECT_EQ(r.rc, Rc::count) << k.what;   // Release D fields follow that are not decoded
    EXPECT_EQ(r.text, k.want) << k.what;
  }

  // Before Release D the same indicator is reserved: no fundicated channel is read.
  const auto c = run(paging_messages().body(21), rpdch, 9);
  for (const char* absent : {"FPC_SUBCHAN_GAIN", "REV_PDCH_RC", "FOR_FCH_DCCH_RC"})
    EXPECT_EQ(c.text.find(absent), std::string::npos) << absent;
}

}  // namespace
}  // namespace cs
