// Order bodies of the paging channel (FC_ORDM) and of the forward traffic channel (FD_ORDRM):
// real captures, golden texts of the order-specific records, the declared-length rule and
// arbitrary input.
#include <gtest/gtest.h>

#include <random>

#include "body_run.h"
#include "fwd_common/tables.h"
#include "fwd_traffic/tables.h"
#include "helpers.h"

namespace cs {
namespace {

using test::Bits;
using test::lines;
using test::run_body;

// A body built field by field, one spare octet behind it.
test::BodyRun run(const BodyOps* ops, const Bits& b, std::uint8_t p_rev = 6) {
  return run_body(ops, b.message(8), 0, b.size(), test::ctx(p_rev));
}

TEST(Orders, RealBaseStationAcknowledgementOrders) {
  // Paging messages of the Sprint capture: type, ARQ octet, ADDR_TYPE 1 / ADDR_LEN 4, a 32-bit
  // ESN, then the order at bit 55; the last 30 bits are the CRC.
  for (const char* hex : {"0711290193922a802d1f8f76", "0735290193922a8017c857c4"}) {
    const auto msg = test::from_hex(hex);
    const auto r = run_body(paging_messages().body(7), msg, 55, msg.size() * 8 - 30 - 55, test::ctx(6));
    EXPECT_EQ(r.rc, Rc::ok) << hex;
    EXPECT_EQ(r.used, 9u) << hex;
    EXPECT_EQ(r.text, lines({"FC_ORDM", "{", "   ORDER = 16", "   ADD_RECORD_LEN = 0", "}"})) << hex;
  }
}

struct Golden {
  const char* what;
  std::uint8_t p_rev;
  Bits body;
  std::uint64_t used;
  std::string want;
};

std::string fc(std::initializer_list<std::string_view> inner) {
  std::string s = "FC_ORDM\n{\n";
  for (auto l : inner) s.append("   ").append(l).push_back('\n');
  return s + "}\n";
}

TEST(Orders, CommonChannelGoldenTexts) {
  const Golden cases[] = {
      {"challenge confirmation: 18-bit AUTHBS, 6 reserved bits", 6,
       Bits().put(2, 6).put(4, 3).put(0, 8).put(0x2ABCD, 18).put(0, 6), 41,
       fc({"ORDER = 2", "ADD_RECORD_LEN = 4", "ORDQ = 0", "OrderSpecificFields.BSCCO = F_BS_CHALLENGE_CONFIRM_ORDER",
           "{", "   AUTHBS = 175053", "}"})},
      {"registration accepted with encryption and integrity, P_REV 9", 9,
       Bits().put(27, 6).put(4, 3).put(7, 8).put(1, 8).put(2, 3).put(3, 3).put(1, 1).put(0, 1).put(1, 1).put(0, 7),
       41,
       fc({"ORDER = 27", "ADD_RECORD_LEN = 4", "ORDQ = 7", "OrderSpecificFields.RAO = F_REGIST_ACCEPTED_ORDER", "{",
           "   ROAM_INDI = 1", "   C_SIG_ENCRYPT_MODE = 2", "   ENC_KEY_SIZE = 3", "   MSG_INT_INFO_INCL = 1",
           "   CHANGE_KEYS = 0", "   USE_UAK = 1", "}"})},
      {"registration accepted below P_REV 9 has no integrity fields", 8,
       Bits().put(27, 6).put(3, 3).put(7, 8).put(1, 8).put(0, 3).put(0, 5), 33,
       fc({"ORDER = 27", "ADD_RECORD_LEN = 3", "ORDQ = 7", "OrderSpecificFields.RAO = F_REGIST_ACCEPTED_ORDER", "{",
           "   ROAM_INDI = 1", "   C_SIG_ENCRYPT_MODE = 0", "}"})},
      {"status request: the record reads nothing, the order still spans 16 bits", 6,
       Bits().put(26, 6).put(3, 3).put(0, 8).put(0xFFFF, 16), 33,
       fc({"ORDER = 26", "ADD_RECORD_LEN = 3", "ORDQ = 0", "OrderSpecificFields.STRQO = F_STATUS_REQ_ORDER", "{",
           "}"})},
      {"periodic pilot measurement request: INCL_SETPT from P_REV 6", 6,
       Bits().put(17, 6).put(3, 3).put(10, 8).put(21, 5).put(9, 5).put(1, 1).put(0, 5), 33,
       fc({"ORDER = 17", "ADD_RECORD_LEN = 3", "ORDQ = 10",
           "OrderSpecificFields.PPMRO = F_PERIODIC_PILOT_MEASURE_REQ_ORDER", "{", "   MIN_PILOT_PWR_THRESH = 21",
           "   MIN_PILOT_EC_IO_THRESH = 9", "   INCL_SETPT = 1", "}"})},
      {"retry order with a delay", 7, Bits().put(32, 6).put(3, 3).put(0, 8).put(1, 3).put(200, 8).put(0, 5), 33,
       fc({"ORDER = 32", "ADD_RECORD_LEN = 3", "ORDQ = 0", "OrderSpecificFields.RO = F_RETRY_ORDER", "{",
           "   RETRY_TYPE = 1", "   RETRY_DELAY = 200", "}"})},
      {"base station reject", 9, Bits().put(33, 6).put(3, 3).put(0, 8).put(1, 4).put(21, 8).put(5, 3).put(0, 1), 33,
       fc({"ORDER = 33", "ADD_RECORD_LEN = 3", "ORDQ = 0", "OrderSpecificFields.BSREJ = F_BS_REJECT_ORDER", "{",
           "   REJECT_REASON = 1", "   REJECTED_MSG_TYPE = 21", "   REJECTED_MSG_SEQ = 5", "}"})},
      {"service status: one status per set bitmap bit", 10,
       Bits().put(37, 6).put(3, 3).put(0, 8).put(0b101001, 6).put(5, 3).put(0, 3).put(7, 3).put(0, 1), 33,
       fc({"ORDER = 37", "ADD_RECORD_LEN = 3", "ORDQ = 0", "OrderSpecificFields.SSTO = F_SERVICE_STATUS_ORDER", "{",
           "   SR_ID_BITMAP_BIT1 = 1", "   SR_ID_BITMAP_BIT2 = 0", "   SR_ID_BITMAP_BIT3 = 1",
           "   SR_ID_BITMAP_BIT4 = 0", "   SR_ID_BITMAP_BIT5 = 0", "   SR_ID_BITMAP_BIT6 = 1",
           "   SERVICE_STATUS[0] = 5", "   SERVICE_STATUS[1] = 0", "   SERVICE_STATUS[2] = 7", "}"})},
      {"fast call setup, ORDQ 0, P_REV 11 with both report modes", 11,
       Bits().put(36, 6).put(7, 3).put(0, 8)
           .put(1, 1).put(2, 2).put(9, 4).put(5, 4).put(1, 1)    // RSC fields, REQ_RSCI, IGNORE_QPCH
           .put(1, 1).put(1, 1).put(3, 3).put(2, 3).put(1, 2).put(4, 3)    // RER
           .put(1, 1).put(1, 1).put(6, 3).put(10, 4).put(3, 4).put(99, 8)  // TKZ
           .put(0, 2),
       65,
       fc({"ORDER = 36", "ADD_RECORD_LEN = 7", "ORDQ = 0", "OrderSpecificFields.FCSO = F_FAST_CALL_SETUP_ORDER", "{",
           "   RSC_MODE_SUPPORTED = 1", "   MAX_RSC_END_TIME_UNIT = 2", "   MAX_RSC_END_TIME_VALUE = 9",
           "   REQ_RSCI = 5", "   IGNORE_QPCH = 1", "   RER_MODE_INCL = 1", "   RER_MODE_ENABLED = 1",
           "   RER_MAX_NUM_MSG_IDX = 3", "   RER_TIME = 2", "   RER_TIME_UNIT = 1", "   MAX_RER_PILOT_LIST_SIZE = 4",
           "   TKZ_INCL = 1", "   TKZ_MODE_ENABLED = 1", "   TKZ_MAX_NUM_MSG_IDX = 6", "   TKZ_UPDATE_PRD = 10",
           "   TKZ_LIST_LEN = 3", "   TKZ_TIMER = 99", "}"})},
      {"an order without a record here shows ORDQ and skips the rest", 6,
       Bits().put(40, 6).put(2, 3).put(5, 8).put(0xAB, 8), 25,
       fc({"ORDER = 40", "ADD_RECORD_LEN = 2", "ORDQ = 5"})},
      {"the traffic-only release order has no record on the paging channel", 9,
       Bits().put(21, 6).put(2, 3).put(3, 8).put(0xFF, 8), 25, fc({"ORDER = 21", "ADD_RECORD_LEN = 2", "ORDQ = 3"})},
  };
  for (const auto& k : cases) {
    const auto r = run(paging_messages().body(7), k.body, k.p_rev);
    EXPECT_EQ(r.rc, Rc::ok) << k.what;
    EXPECT_EQ(r.used, k.used) << k.what;
    EXPECT_EQ(r.text, k.want) << k.what;
  }
}

TEST(Orders, BcmcOrderNestsProgramsAndFlows) {
  Bits b;
  b.put(35, 6).put(7, 3).put(0, 8);
  b.put(0, 1).put(1, 6);                     // one program
  b.put(7, 5).put(0xA5, 8).put(2, 3).put(1, 2);   // 8-bit id, 2-bit discriminators, two flows
  b.put(3, 2).put(0, 1).put(0, 1).put(2, 4).put(10, 8);
  b.put(1, 2).put(1, 1);
  b.put(0, 4);
  const auto r = run(paging_messages().body(7), b);
  EXPECT_EQ(r.rc, Rc::ok);
  EXPECT_EQ(r.used, 65u);
  EXPECT_EQ(r.text,
            fc({"ORDER = 35", "ADD_RECORD_LEN = 7", "ORDQ = 0", "OrderSpecificFields.BCMCO = F_BCMC_ORDER", "{",
                "   ALL_BCMC_FLOWS_IND = 0", "   NUM_BCMC_PROGRAMS = 1",
                "   BCMC_PROGRAMS[0] = F_BCMC_ORDER_BCMC_PROGRAMS", "   {", "      BCMC_PROGRAM_ID_LEN = 7",
                "      BCMC_PROGRAM_ID = 165", "      BCMC_FLOW_DISCRIMINATOR_LEN = 2", "      NUM_FLOW_DISCRIMINATOR = 1",
                "      FLOW_DISCRIMINATOR_RECORDs[0] = F_BCMC_ORDER_BCMC_PROGRAMS_FLOW_DISCRIMINATOR_RECORDs",
                "      {", "         BCMC_FLOW_DISCRIMINATOR = 3", "         SAME_AS_PREVIOUS_BCMC_FLOW = 0",
                "         CLEAR_RETRY_DELAY = 0", "         BCMC_REASON = 2", "         BCMC_RETRY_DELAY = 10", "      }",
                "      FLOW_DISCRIMINATOR_RECORDs[1] = F_BCMC_ORDER_BCMC_PROGRAMS_FLOW_DISCRIMINATOR_RECORDs",
                "      {", "         BCMC_FLOW_DISCRIMINATOR = 1", "         SAME_AS_PREVIOUS_BCMC_FLOW = 1", "      }",
                "   }", "}"}));

  Bits all;
  all.put(35, 6).put(3, 3).put(0, 8).put(1, 1).put(0, 1).put(4, 4).put(30, 8).put(0, 2);
  const auto a = run(paging_messages().body(7), all);
  EXPECT_EQ(a.rc, Rc::ok);
  EXPECT_EQ(a.text, fc({"ORDER = 35", "ADD_RECORD_LEN = 3", "ORDQ = 0", "OrderSpecificFields.BCMCO = F_BCMC_ORDER",
                        "{", "   ALL_BCMC_FLOWS_IND = 1", "   CLEAR_ALL_RETRY_DELAY = 0", "   BCMC_REASON = 4",
                        "   BCMC_RETRY_DELAY = 30", "}"}));
}

TEST(Orders, LengthRules) {
  struct Case {
    const char* what;
    Bits body;
    std::uint64_t avail;   // 0: exactly the bits built
    Rc rc;
    std::uint64_t used;
  };
  const Case cases[] = {
      {"no ORDQ when ADD_RECORD_LEN is 0, whatever follows", Bits().put(16, 6).put(0, 3).put(0xFFFF, 16), 0, Rc::ok,
       9},
      {"ORDER and ADD_RECORD_LEN need 9 bits", Bits().put(16, 6).put(0, 3), 8, Rc::short_msg, 0},
      {"ORDQ missing", Bits().put(16, 6).put(1, 3).put(0, 7), 0, Rc::short_msg, 0},
      {"a record longer than its declared length fails", Bits().put(19, 6).put(2, 3).put(0, 8).put(33, 16), 0,
       Rc::short_msg, 0},
      {"a record needing more bits than the message holds fails", Bits().put(2, 6).put(4, 3).put(0, 8).put(0, 10), 0,
       Rc::short_msg, 0},
      {"the declared length is honoured past a short record", Bits().put(32, 6).put(7, 3).put(0, 8).put(0, 48), 0,
       Rc::ok, 65},
  };
  for (const auto& k : cases) {
    const auto r = run_body(paging_messages().body(7), k.body.message(8), 0, k.avail ? k.avail : k.body.size(), test::ctx(7));
    EXPECT_EQ(r.rc, k.rc) << k.what;
    EXPECT_EQ(r.used, k.used) << k.what;
  }
}

TEST(Orders, TrafficOrderHasActionTimeAndTrafficRecords) {
  Bits rel;
  rel.put(1, 1).put(33, 6).put(21, 6).put(3, 3).put(3, 8).put(1, 1).put(9, 4).put(2, 2).put(12, 4).put(0, 5);
  const auto r = run(fd_messages().body(1), rel, 9);
  EXPECT_EQ(r.rc, Rc::ok);
  EXPECT_EQ(r.used, 40u);
  EXPECT_EQ(r.text, lines({"FD_ORDRM", "{", "   USE_TIME = 1", "   ACTION_TIME = 33", "   ORDER = 21",
                           "   ADD_RECORD_LEN = 3", "   ORDQ = 3", "   OrderSpecificFields.RELO = F_RELEASE_ORDER",
                           "   {", "      RSC_MODE_IND = 1", "      RSCI = 9", "      RSC_END_TIME_UNIT = 2",
                           "      RSC_END_TIME_VALUE = 12", "   }", "}"}));

  // Registration orders belong to the common channel: skipped on traffic.
  Bits reg;
  reg.put(0, 1).put(0, 6).put(27, 6).put(2, 3).put(5, 8).put(7, 8);
  const auto g = run(fd_messages().body(1), reg, 9);
  EXPECT_EQ(g.rc, Rc::ok);
  EXPECT_EQ(g.used, 32u);
  EXPECT_EQ(g.text, lines({"FD_ORDRM", "{", "   USE_TIME = 0", "   ACTION_TIME = 0", "   ORDER = 27",
                           "   ADD_RECORD_LEN = 2", "   ORDQ = 5", "}"}));

  // The one-shot pilot measurement request has no fields on traffic; the periodic one does.
  Bits once;
  once.put(0, 1).put(0, 6).put(17, 6).put(1, 3).put(0, 8);
  const auto o = run(fd_messages().body(1), once, 9);
  EXPECT_EQ(o.rc, Rc::ok);
  EXPECT_EQ(o.text.find("PPMRO"), std::string::npos);
  Bits periodic;
  periodic.put(0, 1).put(0, 6).put(17, 6).put(3, 3).put(5, 8).put(21, 5).put(9, 5).put(0, 1).put(0, 5);
  const auto pm = run(fd_messages().body(1), periodic, 9);
  EXPECT_EQ(pm.rc, Rc::ok);
  EXPECT_NE(pm.text.find("      MIN_PILOT_PWR_THRESH = 21\n      MIN_PILOT_EC_IO_THRESH = 9\n      INCL_SETPT = 0\n"),
            std::string::npos);
}

}  // namespace
}  // namespace cs
