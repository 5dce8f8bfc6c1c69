// The handoff direction family and its neighbours on the forward traffic channel: golden
// texts built field by field, the revision and band rules, and the pilot list that runs to
// the end of the message.
#include <gtest/gtest.h>

#include <string>

#include "helpers.h"

namespace cs {
namespace {

using test::Bits;
using test::lines;

constexpr int kFtc = 4;

// `a` followed by the bits of `b`.
Bits cat(Bits a, const Bits& b) {
  const auto octets = b.message(0);
  for (std::size_t i = 0; i < b.size(); ++i) a.put((octets[i / 8] >> (7 - i % 8)) & 1, 1);
  return a;
}

// PDU header without integrity or encryption fields (P_REV below 9 or MACI_INCL 0 is added
// by the caller): MSG_TYPE, ACK_SEQ 1, MSG_SEQ 3, ACK_REQ 0, ENCRYPTION 0.
Bits header(unsigned msg_type) {
  Bits b;
  b.put(msg_type, 8).put(1, 3).put(3, 3).put(0, 1).put(0, 2);
  return b;
}

std::vector<std::uint8_t> ftc(Bits b) {
  while (b.size() % 8) b.put(0, 1);
  b.put(0, 8);   // the channel's bit count leaves the last octet before the CRC out
  return b.message(16);
}

std::string with_header(unsigned msg_type, const std::string& body) {
  return "FD_PDU\n{\n   MSG_TYPE = " + std::to_string(msg_type) +
         "\n   ACK_SEQ = 1\n   MSG_SEQ = 3\n   ACK_REQ = 0\n   ENCRYPTION = 0\n" + body + "}\n";
}

std::size_t count(const std::string& text, const std::string& what) {
  std::size_t n = 0;
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++n;
  return n;
}

// ---- EHDM ---------------------------------------------------------------------------------

TEST(Handoff, EhdmGoldenWithEveryGroup) {
  Bits b = header(17);
  b.put(1, 1).put(45, 6).put(2, 2).put(1, 1);                       // USE_TIME .. SEARCH_INCLUDED
  b.put(8, 4).put(28, 6).put(32, 6).put(5, 4).put(3, 4);           // search group
  b.put(1, 1).put(9, 4).put(1, 1).put(0, 1).put(1, 1).put(1, 1);   // HARD_INCLUDED .. SERV_NEG_TYPE
  b.put(2, 2).put(1, 1).put(7, 4).put(5, 3).put(1, 5).put(600, 11);
  b.put(1, 3).put(6, 8);                                           // ADD_LENGTH 1, P_REV 6
  b.put(168, 9).put(1, 1).put(33, 8);
  b.put(4, 9).put(0, 1).put(60, 8);
  auto r = test::decode(kFtc, 6, 0, ftc(b));
  EXPECT_EQ(r.rc, 0);
  EXPECT_EQ(r.text, with_header(17, lines({"   SDU.EHDM = FD_EHDM",
                                           "   {",
                                           "      USE_TIME = 1",
                                           "      ACTION_TIME = 45",
                                           "      HDM_SEQ = 2",
                                           "      SEARCH_INCLUDED = 1",
                                           "      SRCH_WIN_A = 8",
                                           "      T_ADD = 28",
                                           "      T_DROP = 32",
                                           "      T_COMP = 5",
                                           "      T_TDROP = 3",
                                           "      HARD_INCLUDED = 1",
                                           "      FRAME_OFFSET = 9",
                                           "      PRIVATE_LCM = 1",
                                           "      RESET_L2 = 0",
                                           "      RESET_FPC = 1",
                                           "      SERV_NEG_TYPE = 1",
                                           "      ENCRYPT_MODE = 2",
                                           "      NOM_PWR_EXT = 1",
                                           "      NOM_PWR = 7",
                                           "      NUM_PREAMBLE = 5",
                                           "      BAND_CLASS = 1",
                                           "      CDMA_FREQ = 600",
                                           "      ADD_LENGTH = 1",
                                           "      AdditionalFields = FD_EHDM_AdditionalFields",
                                           "      {",
                                           "         P_REV = 6",
                                           "      }",
                                           "      ACTIVE_SET_PILOT[0] = FD_EHDM_ACTIVE_SET_PILOT",
                                           "      {",
                                           "         PILOT_PN = 168",
                                           "         PWR_COMB_IND = 1",
                                           "         CODE_CHAN = 33",
                                           "      }",
                                           "      ACTIVE_SET_PILOT[1] = FD_EHDM_ACTIVE_SET_PILOT",
                                           "      {",
                                           "         PILOT_PN = 4",
                                           "         PWR_COMB_IND = 0",
                                           "         CODE_CHAN = 60",
                                           "      }",
                                           "   }"})));
}

TEST(Handoff, EhdmResetFpcByRevisionAndBand) {
  // HARD_INCLUDED 1, then FRAME_OFFSET 3, PRIVATE_LCM 0, RESET_L2 1 and the bits that follow.
  struct Case {
    const char* what;
    unsigned p_rev, band;
    bool two_bits;                           // RESET_FPC/SERV_NEG_TYPE bits on the air
    std::vector<std::string_view> reset;   // their lines
  };
  const Case cases[] = {
      {"P_REV 2, band 2: neither bit", 2, 2, false, {}},
      {"P_REV 2, band 0: neither bit", 2, 0, false, {}},
      {"P_REV 2, band 4: RESET_FPC kept, second bit dropped", 2, 4, true, {"      RESET_FPC = 1"}},
      {"P_REV 1, band 1: RESET_FPC kept, second bit dropped", 1, 1, true, {"      RESET_FPC = 1"}},
      {"P_REV 3: both", 3, 2, true, {"      RESET_FPC = 1", "      SERV_NEG_TYPE = 1"}},
  };
  for (const auto& k : cases) {
    SCOPED_TRACE(k.what);
    Bits b = header(17);
    b.put(0, 1).put(0, 6).put(0, 2).put(0, 1);
    b.put(1, 1).put(3, 4).put(0, 1).put(1, 1);
    if (k.two_bits) b.put(3, 2);
    b.put(1, 2).put(0, 1).put(2, 4).put(0, 3).put(0, 5).put(77, 11);   // ENCRYPT_MODE 1 ..
    b.put(0, 3);
    auto r = test::decode(kFtc, static_cast<std::uint8_t>(k.p_rev), static_cast<std::uint8_t>(k.band), ftc(b));
    EXPECT_EQ(r.rc, 0);
    std::string want = "   SDU.EHDM = FD_EHDM\n   {\n      USE_TIME = 0\n      ACTION_TIME = 0\n      HDM_SEQ = 0\n"
                       "      SEARCH_INCLUDED = 0\n      HARD_INCLUDED = 1\n      FRAME_OFFSET = 3\n"
                       "      PRIVATE_LCM = 0\n      RESET_L2 = 1\n";
    for (auto l : k.reset) want.append(l).push_back('\n');
    want += "      ENCRYPT_MODE = 1\n      NOM_PWR_EXT = 0\n      NOM_PWR = 2\n      NUM_PREAMBLE = 0\n"
            "      BAND_CLASS = 0\n      CDMA_FREQ = 77\n      ADD_LENGTH = 0\n   }\n";
    EXPECT_EQ(r.text, with_header(17, want));
  }
}

TEST(Handoff, EhdmAdditionalOctetsBeyondPrevAreSkipped) {
  Bits b = header(17);
  b.put(0, 10).put(0, 1).put(2, 3);   // no groups, ADD_LENGTH 2
  b.put(9, 8).put(0xFF, 8);          // P_REV 9 and an octet no revision defines here
  b.put(300, 9).put(1, 1).put(7, 8);
  auto r = test::decode(kFtc, 6, 0, ftc(b));
  EXPECT_EQ(r.rc, 0);
  EXPECT_NE(r.text.find("      AdditionalFields = FD_EHDM_AdditionalFields\n      {\n         P_REV = 9\n      }\n"
                        "      ACTIVE_SET_PILOT[0] = FD_EHDM_ACTIVE_SET_PILOT\n      {\n         PILOT_PN = 300\n"
                        "         PWR_COMB_IND = 1\n         CODE_CHAN = 7\n      }\n   }\n"),
            std::string::npos)
      << r.text;
  EXPECT_EQ(count(r.text, "ACTIVE_SET_PILOT["), 1u);
}

// An EHDM whose pilot list starts with exactly `tail` bits left. The header and fixed part are
// picked so that they end where the tail then fills whole octets.
std::vector<std::uint8_t> ehdm_with_tail(unsigned tail, std::uint8_t& p_rev) {
  for (unsigned p : {6u, 7u, 9u}) {
    for (unsigned enc3 = 0; enc3 < 2; ++enc3) {
      for (unsigned hard = 0; hard < 2; ++hard) {
        if (enc3 && p < 7) continue;
        Bits b;
        b.put(17, 8).put(0, 7).put(enc3 ? 3 : 0, 2);
        if (p >= 9) b.put(0, 1);   // MACI_INCL 0
        if (enc3) b.put(0, 3);     // SDU_ENCRYPT_MODE 0: no ENC_SEQ
        b.put(0, 10).put(hard, 1);
        if (hard) b.put(0, 6).put(0, 2).put(0, 26);
        b.put(0, 3);
        if ((b.size() + tail) % 8) continue;
        for (unsigned i = 0; i < tail; ++i) b.put(i % 18 == 0 ? 1 : 0, 1);   // PILOT_PN 256 each
        p_rev = static_cast<std::uint8_t>(p);
        b.put(0, 8);
        return b.message(16);
      }
    }
  }
  ADD_FAILURE() << "no prefix for tail " << tail;
  return {};
}

TEST(Handoff, EhdmPilotCapacityWrapsInEightBitsAndStopsAt108) {
  struct Case {
    unsigned tail;     // bits left when the pilot list starts
    unsigned pilots;   // records read
    int rc;
  };
  const Case cases[] = {
      {0, 0, 0},           {7, 0, 0},            // padding only
      {8, 0, 3},           {17, 0, 3},           // a tail of 8 to 17 bits is a short record
      {19, 1, 0},          {25, 1, 0},           {43, 2, 0},           {44, 2, 3},
      {18 * 107 + 10, 107, 3},                  // capacity 108 not reached: the tail is read
      {18 * 108, 108, 0},  {18 * 108 + 12, 108, 0},   // capacity reached: the tail stays unread
      {18 * 150, 108, 0},                       // 151 slots capped to 108
      {18 * 254, 108, 0},                       // 255 slots capped to 108
      {18 * 255, 0, 0},    {4607, 0, 0},         // 255 + 1 wraps to 0 slots: nothing read
      {18 * 256, 1, 0},                         // 256 wraps to 0, plus one
      {18 * 300, 45, 0},                        // 300 is 44 in 8 bits, plus one
  };
  for (const auto& k : cases) {
    SCOPED_TRACE(k.tail);
    std::uint8_t p_rev = 0;
    const auto msg = ehdm_with_tail(k.tail, p_rev);
    auto r = test::decode(kFtc, p_rev, 0, msg);
    EXPECT_EQ(r.rc, k.rc);
    EXPECT_EQ(count(r.text, "ACTIVE_SET_PILOT["), k.pilots);
    if (k.pilots > 0) {
      EXPECT_NE(r.text.find("ACTIVE_SET_PILOT[" + std::to_string(k.pilots - 1) + "] = "), std::string::npos);
      EXPECT_EQ(count(r.text, "PILOT_PN = 256\n"), k.pilots);
    }
  }
}

// ---- HDM ----------------------------------------------------------------------------------

TEST(Handoff, HdmGoldenWithAndWithoutFrequency) {
  Bits fixed;
  fixed.put(1, 1).put(3, 6).put(1, 2).put(9, 4).put(30, 6).put(34, 6).put(2, 4).put(4, 4);
  fixed.put(6, 4).put(0, 1).put(1, 1).put(0, 2);
  const std::string head = "   SDU.HDM = FD_HDM\n   {\n      USE_TIME = 1\n      ACTION_TIME = 3\n      HDM_SEQ = 1\n"
                           "      SRCH_WIN_A = 9\n      T_ADD = 30\n      T_DROP = 34\n      T_COMP = 2\n"
                           "      T_TDROP = 4\n      FRAME_OFFSET = 6\n      PRIVATE_LCM = 0\n      RESET_L2 = 1\n"
                           "      ENCRYPT_MODE = 0\n";
  const std::string pilot = "      PILOTs[0] = FD_HDM_PILOTs\n      {\n         PILOT_PN = 511\n"
                            "         PWR_COMB_IND = 0\n         CODE_CHAN = 255\n      }\n";

  Bits with = cat(header(5), fixed);
  with.put(1, 1).put(2047, 11).put(511, 9).put(0, 1).put(255, 8);
  auto r = test::decode(kFtc, 3, 0, ftc(with));
  EXPECT_EQ(r.rc, 0);
  EXPECT_EQ(r.text, with_header(5, head + "      FREQ_INCL = 1\n      CDMA_FREQ = 2047\n" + pilot + "   }\n"));

  Bits without = cat(header(5), fixed);
  without.put(0, 1).put(511, 9).put(0, 1).put(255, 8);
  r = test::decode(kFtc, 3, 0, ftc(without));
  EXPECT_EQ(r.rc, 0);
  EXPECT_EQ(r.text, with_header(5, head + "      FREQ_INCL = 0\n" + pilot + "   }\n"));
}

// ---- GHDM ---------------------------------------------------------------------------------

// Service configuration at P_REV 6: one connection record, FCH and one F-SCH configured.
Bits scr_p6() {
  Bits b;
  b.put(1, 16).put(2, 16).put(0xF0, 8).put(0x30, 8).put(1, 8);
  b.put(6, 8).put(1, 8).put(33, 16).put(1, 4).put(2, 4).put(0, 3).put(1, 3).put(0, 1).put(0, 1);   // 48 bits
  b.put(1, 1).put(0, 1).put(3, 5).put(4, 5);
  b.put(0, 1);
  b.put(1, 1).put(1, 2).put(0, 2).put(0x921, 16);
  b.put(2, 4).put(3, 5).put(1, 1).put(0, 1).put(1, 1).put(4, 4);   // SCH_REC_LEN 2: 16 bits
  b.put(0, 1);
  b.put(0, 5);   // octet padding: 155 bits in 20 octets
  return b;
}

const char* const kScrP6[] = {
    "      TypeSpecificFields = SCR",
    "      {",
    "         FOR_MUX_OPTION = 1",
    "         REV_MUX_OPTION = 2",
    "         FOR_NUM_BITS = 240",
    "         REV_NUM_BITS = 48",
    "         NUM_CON_REC = 1",
    "         CON_RECs[0] = SCR_CON_RECs",
    "         {",
    "            RECORD_LEN = 6",
    "            CON_REF = 1",
    "            SERVICE_OPTION = 33",
    "            FOR_TRAFFIC = 1",
    "            REV_TRAFFIC = 2",
    "            UI_ENCRYPT_MODE = 0",
    "            SR_ID = 1",
    "            RLP_INFO_INCL = 0",
    "         }",
    "         FCH_CC_INCL = 1",
    "         FCH_FRAME_SIZE = 0",
    "         FOR_FCH_RC = 3",
    "         REV_FCH_RC = 4",
    "         DCCH_CC_INCL = 0",
    "         FOR_SCH_CC_INCL = 1",
    "         NUM_FOR_SCH = 1",
    "         SCR_FOR_SCHs[0] = SCR_FOR_SCHs",
    "         {",
    "            FOR_SCH_ID = 0",
    "            FOR_SCH_MUX = 2337",
    "            SCH_REC_LEN = 2",
    "            SCH_RC = 3",
    "            CODING_TYPE = 1",
    "            FRAME_40_USED = 0",
    "            FRAME_80_USED = 1",
    "            MAX_RATE = 4",
    "         }",
    "         REV_SCH_CC_INCL = 0",
    "      }",
};

TEST(Handoff, GhdmGoldenAtPrev6WithServiceConfiguration) {
  Bits b = header(31);
  b.put(1, 1).put(5, 6).put(3, 2).put(1, 1);
  b.put(8, 4).put(10, 4).put(11, 4).put(28, 6).put(32, 6).put(5, 4).put(3, 4).put(16, 6).put(20, 6).put(22, 6);
  b.put(1, 1).put(6, 8).put(77, 8).put(2, 4).put(0, 1).put(1, 1).put(1, 1).put(1, 1).put(0, 2).put(0, 1).put(3, 4);
  b.put(1, 3).put(1, 5).put(425, 11);
  b.put(1, 1).put(0, 1).put(1, 1).put(1, 1).put(5, 3).put(7, 8).put(20, 8);   // RETURN .. RECORD_LEN
  b = cat(b, scr_p6());
  b.put(1, 1);                                                            // SUP_CHAN_PARMS_INCLUDED
  b.put(1, 1).put(3, 2).put(2, 3).put(1, 1).put(200, 8);                  // FOR_INCLUDED
  b.put(1, 1).put(4, 4).put(1, 1).put(0, 1).put(1, 3).put(1, 1);          // REV_INCLUDED
  b.put(1, 1).put(2, 3).put(3, 3).put(4, 3);                              // REV_PARMS_INCLUDED
  b.put(1, 1).put(2, 3);                                                  // USE_PWR_CNTL_STEP
  b.put(2, 3);                                                            // NUM_PILOTS
  b.put(100, 9).put(1, 1).put(10, 8).put(1, 1).put(1, 1).put(20, 8).put(21, 8);
  b.put(200, 9).put(0, 1).put(11, 8).put(1, 1).put(0, 1).put(30, 8);
  b.put(12, 5).put(1, 1).put(9, 6).put(5, 6).put(1, 1);                   // FPC_SUBCHAN_GAIN .. DEFAULT_RLAG
  b.put(1, 1).put(19, 8).put(7, 8);                                       // NNSCR_INCLUDED, type, length
  b.put(1, 1).put(0, 1).put(0, 3).put(1, 1).put(2, 5).put(10, 8).put(60, 8).put(0, 1).put(0, 1).put(0, 2);
  b.put(1, 2).put(1, 4).put(1, 3).put(0, 4).put(0, 4).put(1, 1).put(1, 1).put(0, 4).put(0, 2);
  b.put(1, 1).put(1, 1).put(2, 2);                                        // gating and delay
  auto r = test::decode(kFtc, 6, 0, ftc(b));
  EXPECT_EQ(r.rc, 0);
  std::string want = lines({"   SDU.GHDM = FD_GHDM", "   {", "      USE_TIME = 1", "      ACTION_TIME = 5",
                            "      HDM_SEQ = 3", "      SEARCH_INCLUDED = 1", "      SRCH_WIN_A = 8",
                            "      SRCH_WIN_N = 10", "      SRCH_WIN_R = 11", "      T_ADD = 28", "      T_DROP = 32",
                            "      T_COMP = 5", "      T_TDROP = 3", "      SOFT_SLOPE = 16", "      ADD_INTERCEPT = 20",
                            "      DROP_INTERCEPT = 22", "      EXTRA_PARMS = 1", "      P_REV = 6",
                            "      PACKET_ZONE_ID = 77", "      FRAME_OFFSET = 2", "      PRIVATE_LCM = 0",
                            "      RESET_L2 = 1", "      RESET_FPC = 1", "      SERV_NEG_TYPE = 1",
                            "      ENCRYPT_MODE = 0", "      NOM_PWR_EXT = 0", "      NOM_PWR = 3",
                            "      NUM_PREAMBLE = 1", "      BAND_CLASS = 1", "      CDMA_FREQ = 425",
                            "      RETURN_IF_HANDOFF_FAIL = 1", "      COMPLETE_SEARCH = 0", "      PERIODIC_SEARCH = 1",
                            "      SCR_INCLUDED = 1", "      SERV_CON_SEQ = 5", "      RECORD_TYPE = 7",
                            "      RECORD_LEN = 20"});
  for (const char* l : kScrP6) want += std::string(l) + "\n";
  want += lines({"      SUP_CHAN_PARMS_INCLUDED = 1", "      FOR_INCLUDED = 1", "      FOR_SUP_CONFIG = 3",
                 "      NUM_FOR_SUP = 2", "      USE_FOR_DURATION = 1", "      FOR_DURATION = 200",
                 "      REV_INCLUDED = 1", "      REV_DTX_DURATION = 4", "      CLEAR_RETRY_DELAY = 1",
                 "      USE_REV_DURATION = 0", "      NUM_REV_CODES = 1", "      USE_T_ADD_ABORT = 1",
                 "      REV_PARMS_INCLUDED = 1", "      T_MULCHAN = 2", "      BEGIN_PREAMBLE = 3",
                 "      RESUME_PREAMBLE = 4", "      USE_PWR_CNTL_STEP = 1", "      PWR_CNTL_STEP = 2",
                 "      NUM_PILOTS = 2", "      PILOTs[0] = FD_GHDM_PILOTs", "      {", "         PILOT_PN = 100",
                 "         PWR_COMB_IND = 1", "         CODE_CHAN = 10", "         FOR_SUP_INCLUDED = 1",
                 "         EXPL_CODE_CHAN = 1", "         SUP_CODE_CHAN[0] = 20", "         SUP_CODE_CHAN[1] = 21",
                 "      }", "      PILOTs[1] = FD_GHDM_PILOTs", "      {", "         PILOT_PN = 200",
                 "         PWR_COMB_IND = 0", "         CODE_CHAN = 11", "         FOR_SUP_INCLUDED = 1",
                 "         EXPL_CODE_CHAN = 0", "         BASE_CODE_CHAN = 30", "      }",
                 "      FPC_SUBCHAN_GAIN = 12", "      USE_PC_TIME = 1", "      PC_ACTION_TIME = 9",
                 "      RLGAIN_TRAFFIC_PILOT = 5", "      DEFAULT_RLAG = 1", "      NNSCR_INCLUDED = 1",
                 "      RECORD_TYPE2 = 19", "      RECORD_LEN2 = 7", "      TypeSpecificFields2 = NNSCR", "      {",
                 "         FPC_INCL = 1", "         FPC_PRI_CHAN = 0", "         FPC_MODE = 0",
                 "         FPC_OLPC_FCH_INCL = 1", "         FPC_FCH_FER = 2", "         FPC_FCH_MIN_SETPT = 10",
                 "         FPC_FCH_MAX_SETPT = 60", "         FPC_OLPC_DCCH_INCL = 0", "         GATING_RATE_INCL = 0",
                 "         LPM_IND = 1", "         NUM_LPM_ENTRIES = 1", "         LPM_ENTRIES[0] = NNSCR_LPM_ENTRIES",
                 "         {", "            SR_ID = 1", "            LOGICAL_RESOURCE = 0",
                 "            PHYSICAL_RESOURCE = 0", "            FORWARD_FLAG = 1", "            REVERSE_FLAG = 1",
                 "            PRIORITY = 0", "         }", "      }", "      REV_FCH_GATING_MODE = 1",
                 "      REV_PWR_CNTL_DELAY_INCL = 1", "      REV_PWR_CNTL_DELAY = 2", "   }"});
  EXPECT_EQ(r.text, with_header(31, want));
}

TEST(Handoff, GhdmRevisionTails) {
  // Extra parameters with ENCRYPT_MODE 3 and no other group, then what each revision adds
  // after the pilot count.
  auto base = [](unsigned p_rev) {
    Bits b = header(31);
    if (p_rev >= 9) b.put(0, 1);   // MACI_INCL
    b.put(0, 1).put(0, 2).put(0, 1).put(1, 1);
    b.put(p_rev, 8).put(0, 8).put(0, 4).put(0, 4).put(3, 2).put(0, 1).put(0, 4).put(0, 3).put(0, 5).put(0, 11);
    b.put(0, 1).put(0, 1).put(0, 1);   // RETURN_IF_HANDOFF_FAIL, PERIODIC_SEARCH, SCR_INCLUDED
    b.put(0, 1).put(0, 1).put(0, 3);   // SUP_CHAN_PARMS_INCLUDED, USE_PWR_CNTL_STEP, NUM_PILOTS
    return b;
  };
  struct Case {
    unsigned p_rev;
    Bits tail;
    std::vector<std::string_view> last;   // the last lines of the body
  };
  const Case cases[] = {
      {4, Bits(), {"      NUM_PILOTS = 0"}},
      {6, Bits().put(0, 5).put(0, 1).put(0, 6).put(0, 1).put(0, 1).put(0, 1),
       {"      NNSCR_INCLUDED = 0", "      REV_FCH_GATING_MODE = 0"}},
      {7, Bits().put(0, 5).put(0, 1).put(0, 6).put(0, 1).put(0, 1).put(0, 1).put(1, 3).put(2, 3).put(1, 1),
       {"      REV_FCH_GATING_MODE = 0", "      D_SIG_ENCRYPT_MODE = 1", "      ENC_KEY_SIZE = 2",
        "      CS_SUPPORTED = 1"}},
      {9,
       Bits().put(0, 5).put(0, 1).put(0, 6).put(0, 1).put(1, 1).put(19, 8).put(2, 8).put(0, 12).put(0, 4)
           .put(0, 1).put(3, 3).put(2, 3).put(1, 1).put(2, 4).put(0xBEEF, 16).put(1, 1),
       {"         LTU_INFO_INCL = 0", "      }", "      REV_FCH_GATING_MODE = 0", "      D_SIG_ENCRYPT_MODE = 3",
        "      ENC_KEY_SIZE = 2", "      SYNC_ID_INCL = 1", "      SYNC_ID_LEN = 2", "      SYNC_ID = 0xbeef",
        "      CS_SUPPORTED = 1"}},
  };
  for (const auto& k : cases) {
    SCOPED_TRACE(k.p_rev);
    auto r = test::decode(kFtc, static_cast<std::uint8_t>(k.p_rev), 0, ftc(cat(base(k.p_rev), k.tail)));
    EXPECT_EQ(r.rc, 0);
    std::string last;
    for (auto l : k.last) last.append(l).push_back('\n');
    last += "   }\n}\n";
    ASSERT_GE(r.text.size(), last.size());
    EXPECT_EQ(r.text.substr(r.text.size() - last.size()), last) << r.text;
  }
}

// ---- UHDM ---------------------------------------------------------------------------------

// A UHDM carrying its own P_REV `own`, a service configuration without connections, an F-SCH
// assignment and an active set of one FCH pilot with an auxiliary pilot record and an F-SCH.
// Everything of such a message up to CH_IND.
Bits uhdm_head(unsigned p_rev_in_use, unsigned own) {
  Bits b = header(34);
  if (p_rev_in_use >= 9) b.put(0, 1);                            // MACI_INCL
  b.put(1, 1).put(12, 6).put(1, 2).put(1, 1).put(own, 8).put(1, 1).put(0, 1);
  b.put(1, 1).put(9, 8).put(4, 4).put(0, 1).put(1, 1).put(0, 1).put(0, 2).put(1, 1).put(6, 4);
  b.put(20, 6).put(1, 1).put(2, 3).put(1, 5).put(300, 11);
  b.put(0, 1).put(0, 1).put(1, 1).put(2, 3).put(1, 8).put(8, 8);   // RETURN .. RECORD_LEN
  b.put(1, 16).put(1, 16).put(0xF0, 8).put(0xF0, 8).put(0, 8).put(0, 4);
  unsigned scr_bits = 60;
  if (own >= 8) {
    b.put(0, 2);
    scr_bits += 2;
  }
  if (own >= 9) {
    b.put(0, 1);
    scr_bits += 1;
  }
  b.put(0, 64 - scr_bits);
  b.put(0, 1);                                                    // NNSCR_INCLUDED
  b.put(0, 1).put(1, 1).put(1, 1);                                // USE_PWR_CNTL_STEP .. SCH_INCL
  b.put(1, 2).put(1, 1).put(15, 4).put(1, 1).put(7, 5).put(2, 4).put(0, 2);
  b.put(3, 5).put(0, 1);                                          // FPC_SUBCHAN_GAIN, USE_PC_TIME
  return b;
}

Bits uhdm(unsigned p_rev_in_use, unsigned own) {
  Bits b = uhdm_head(p_rev_in_use, own);
  b.put(5, 3).put(13, 8);                                         // CH_IND, ACTIVE_SET_REC_LEN
  b.put(1, 5).put(0, 1).put(2, 4).put(9, 4).put(0, 5);
  b.put(1, 3).put(1, 1);
  b.put(200, 9).put(5, 3).put(1, 1).put(1, 3).put(2, 3).put(1, 2).put(2, 3).put(100, 8).put(0, 3);
  b.put(1, 1).put(37, 11).put(0, 2).put(1, 5).put(0, 1).put(2, 4).put(1, 1).put(500, 11).put(3, 2);
  if (p_rev_in_use >= 7) b.put(0, 1).put(0, 7); else b.put(0, 8);  // F3X_FCH_INFO_INCL, padding
  return b;
}

TEST(Handoff, UhdmGoldenAtPrev6) {
  Bits b = uhdm(6, 6);
  b.put(0, 1);   // REV_FCH_GATING_MODE
  auto r = test::decode(kFtc, 6, 0, ftc(b));
  EXPECT_EQ(r.rc, 0);
  EXPECT_EQ(r.text, with_header(34, lines({
      "   SDU.UHDM = FD_UHDM", "   {", "      USE_TIME = 1", "      ACTION_TIME = 12", "      HDM_SEQ = 1",
      "      PARMS_INCL = 1", "      P_REV = 6", "      SERV_NEG_TYPE = 1", "      SEARCH_INCLUDED = 0",
      "      EXTRA_PARMS = 1", "      PACKET_ZONE_ID = 9", "      FRAME_OFFSET = 4", "      PRIVATE_LCM = 0",
      "      RESET_L2 = 1", "      RESET_FPC = 0", "      ENCRYPT_MODE = 0", "      NOM_PWR_EXT = 1",
      "      NOM_PWR = 6", "      RLGAIN_TRAFFIC_PILOT = 20", "      DEFAULT_RLAG = 1", "      NUM_PREAMBLE = 2",
      "      BAND_CLASS = 1", "      CDMA_FREQ = 300", "      RETURN_IF_HANDOFF_FAIL = 0",
      "      PERIODIC_SEARCH = 0", "      SCR_INCLUDED = 1", "      SERV_CON_SEQ = 2", "      RECORD_TYPE = 1",
      "      RECORD_LEN = 8", "      TypeSpecificFields = SCR", "      {", "         FOR_MUX_OPTION = 1",
      "         REV_MUX_OPTION = 1", "         FOR_NUM_BITS = 240", "         REV_NUM_BITS = 240",
      "         NUM_CON_REC = 0", "         FCH_CC_INCL = 0", "         DCCH_CC_INCL = 0",
      "         FOR_SCH_CC_INCL = 0", "         REV_SCH_CC_INCL = 0", "      }", "      NNSCR_INCLUDED = 0",
      "      USE_PWR_CNTL_STEP = 0", "      CLEAR_RETRY_DELAY = 1", "      SCH_INCL = 1", "      NUM_FOR_ASSIGN = 1",
      "      FOR_SCH_ASSIGNs[0] = FD_UHDM_FOR_SCH_ASSIGNs", "      {", "         FOR_SCH_ID = 1",
      "         FOR_SCH_DURATION = 15", "         FOR_SCH_START_TIME_INCL = 1", "         FOR_SCH_START_TIME = 7",
      "         SCCL_INDEX = 2", "      }", "      NUM_REV_ASSIGN = 0", "      FPC_SUBCHAN_GAIN = 3",
      "      USE_PC_TIME = 0", "      CH_IND = 5", "      ACTIVE_SET_REC_LEN = 13",
      "      ACTIVE_SET_REC_FIELDS = ACTIVE_SET_REC", "      {", "         NUM_FOR_SCH = 1",
      "         FOR_SCHs[0] = ACTIVE_SET_REC_FOR_SCHs", "         {", "            FOR_SCH_ID = 0",
      "            SCCL_INDEX = 2", "            FOR_SCH_RATE = 9", "         }", "         NUM_REV_SCH = 0",
      "         NUM_PILOTS = 1", "         SRCH_OFFSET_INCL = 1", "         PILOTs[0] = ACTIVE_SET_REC_PILOTs",
      "         {", "            PILOT_PN = 200", "            SRCH_OFFSET = 5", "            ADD_PILOT_REC_INCL = 1",
      // Release 0 has no auxiliary pilot types: the record's two octets are passed over.
      "            PILOT_REC_TYPE = 1", "            RECORD_LEN = 2", "            PWR_COMB_IND = 1",
      "            CODE_CHAN_FCH = 37", "            QOF_MASK_ID_FCH = 0", "            NUM_SCH = 1",
      "            SCHs[0] = ACTIVE_SET_REC_PILOTs_SCHs", "            {", "               FOR_SCH_ID = 0",
      "               SCCL_INDEX = 2", "               PILOT_INCL = 1", "               CODE_CHAN_SCH = 500",
      "               QOF_MASK_ID_SCH = 3", "            }", "         }", "      }",
      "      REV_FCH_GATING_MODE = 0", "   }"})));
}

TEST(Handoff, UhdmRecordsFollowItsOwnPrevAndTheTailFollowsPrevInUse) {
  // In use P_REV 7, handing off to P_REV 9: the service configuration carries the P_REV 8 and
  // 9 fields, the message tail the P_REV 7 ones.
  Bits b = uhdm(7, 9);
  b.put(0, 1);                                              // REV_FCH_GATING_MODE
  b.put(1, 1).put(2, 2);                                    // F3XFL_1XRL_INCL, offset
  b.put(0, 1);                                              // SYNC_ID_INCL
  b.put(1, 1).put(2, 8).put(4, 8).put(1, 1).put(5, 4).put(9, 8).put(0, 1).put(1, 1);
  b.put(1, 1);                                              // CS_SUPPORTED
  auto r = test::decode(kFtc, 7, 0, ftc(b));
  EXPECT_EQ(r.rc, 0);
  for (const char* want : {"         FCH_DCCH_MUX_OPTION_IND = 0\n         FOR_PDCH_CC_INCL = 0\n      }\n",
                           "         F3X_FCH_INFO_INCL = 0\n      }\n      REV_FCH_GATING_MODE = 0\n",
                           "      F3XFL_1XRL_INCL = 1\n      F1XRL_FREQ_OFFSET = 2\n      SYNC_ID_INCL = 0\n"
                           "      CC_INFO_INCL = 1\n      NUM_CALLS_ASSIGN = 2\n      CALLs[0] = FD_UHDM_CALLs\n"
                           "      {\n         CON_REF = 4\n         RESPONSE_IND = 1\n         TAG = 5\n      }\n"
                           "      CALLs[1] = FD_UHDM_CALLs\n      {\n         CON_REF = 9\n         RESPONSE_IND = 0\n"
                           "         BYPASS_ALERT_ANSWER = 1\n      }\n      CS_SUPPORTED = 1\n   }\n}\n"}) {
    EXPECT_NE(r.text.find(want), std::string::npos) << want << "\n---\n" << r.text;
  }
  // Without the tail the message is short.
  EXPECT_EQ(test::decode(kFtc, 7, 0, ftc(uhdm(7, 9))).rc, 3);
}

TEST(Handoff, UhdmActiveSetRecordWith3xAndCommonPowerControlAtPrev8) {
  Bits b = uhdm_head(8, 8);
  b.put(5, 3).put(15, 8);                                          // 113 bits in 15 octets
  b.put(1, 5).put(0, 1).put(2, 4).put(9, 4).put(0, 5).put(1, 3).put(0, 1);
  b.put(200, 9).put(0, 1).put(1, 1).put(37, 11).put(0, 2).put(1, 5).put(0, 1).put(2, 4).put(1, 1).put(500, 11).put(3, 2);
  b.put(1, 1);                                                     // F3X_FCH_INFO_INCL
  b.put(1, 1).put(1, 2).put(40, 11).put(0, 1);                     // FCH low carrier only
  b.put(1, 1).put(0, 1).put(0, 1).put(1, 1).put(2, 2).put(41, 11); // its SCH on the high carrier
  b.put(1, 1).put(1, 1).put(7, 6).put(1, 1).put(0, 7);             // CCSH, padding
  b.put(0, 1).put(0, 1).put(0, 1).put(0, 1).put(0, 1);             // gating .. CS_SUPPORTED
  auto r = test::decode(kFtc, 8, 0, ftc(b));
  EXPECT_EQ(r.rc, 0);
  const std::string want = lines({
      "         F3X_FCH_INFO_INCL = 1", "         F3X_FCHs[0] = ACTIVE_SET_REC_F3X_FCHs", "         {",
      "            F3X_FCH_LOW_INCL = 1", "            QOF_MASK_ID_FCH_LOW = 1", "            CODE_CHAN_FCH_LOW = 40",
      "            F3X_FCH_HIGH_INCL = 0", "            F3X_SCH_INFO_INCL = 1",
      "            F3X_SCHs[0] = ACTIVE_SET_REC_F3X_FCHs_DCCHs_F3X_SCHs", "            {", "               FOR_SCH_ID = 0",
      "               F3X_SCH_LOW_INCL = 0", "               F3X_SCH_HIGH_INCL = 1",
      "               QOF_MASK_ID_SCH_HIGH = 2", "               CODE_CHAN_SCH_HIGH = 41", "            }", "         }",
      "         CCSH_INCLUDED = 1", "         USE_CCSH_ENCODER_TIME = 1", "         CCSH_ENCODER_ACTION_TIME = 7",
      "         CCSH_PILOTs[0] = ACTIVE_SET_REC_CCSH_PILOTs", "         {", "            CCSH_ENCODER_TYPE[0] = 1",
      "         }", "      }", "      REV_FCH_GATING_MODE = 0", "      F3XFL_1XRL_INCL = 0", "      SYNC_ID_INCL = 0",
      "      CC_INFO_INCL = 0", "      CS_SUPPORTED = 0", "   }", "}"});
  ASSERT_GE(r.text.size(), want.size());
  EXPECT_EQ(r.text.substr(r.text.size() - want.size()), want) << r.text;
}

TEST(Handoff, UhdmActiveSetRecordBoundedByItsLength) {
  auto head = [] {
    Bits b = header(34);
    b.put(0, 1).put(0, 2).put(0, 1).put(0, 1).put(0, 1);   // .. EXTRA_PARMS
    b.put(0, 1).put(0, 1).put(0, 1).put(0, 5).put(0, 1);    // .. USE_PC_TIME
    return b;
  };
  // One octet cannot hold the pilot count and a DCCH pilot.
  Bits short_rec = head();
  short_rec.put(2, 3).put(1, 8).put(1, 3).put(0, 1).put(0, 4).put(0, 16);
  EXPECT_EQ(test::decode(kFtc, 6, 0, ftc(short_rec)).rc, 3);

  // Four octets: a DCCH pilot in 27 bits, the rest of the record skipped.
  Bits ok = head();
  ok.put(2, 3).put(4, 8);
  ok.put(1, 3).put(0, 1).put(7, 9).put(0, 1).put(1, 1).put(99, 11).put(1, 2).put(0x1F, 5);
  ok.put(1, 1).put(1, 1).put(3, 2);                          // gating after the record
  auto r = test::decode(kFtc, 6, 0, ftc(ok));
  EXPECT_EQ(r.rc, 0);
  EXPECT_NE(r.text.find("            CODE_CHAN_DCCH = 99\n            QOF_MASK_ID_DCCH = 1\n         }\n      }\n"
                        "      REV_FCH_GATING_MODE = 1\n      REV_PWR_CNTL_DELAY_INCL = 1\n      REV_PWR_CNTL_DELAY = 3\n"),
            std::string::npos)
      << r.text;
}

// The capabilities after CS_SUPPORTED, by the revision in use: none before P_REV 9, the idle
// and packet data capabilities from 9, hysteresis, broadcast-multicast and the transmit power
// limit from 10.
TEST(Handoff, UhdmCapabilityTailByRevision) {
  const std::vector<std::string> rel_c = {
      "      CS_SUPPORTED = 1", "      CHM_SUPPORTED = 1", "      CDMA_OFF_TIME_REP_SUP_IND = 1",
      "      CDMA_OFF_TIME_REP_THRESHOLD_UNIT = 1", "      CDMA_OFF_TIME_REP_THRESHOLD = 5",
      "      RELEASE_TO_IDLE_IND = 1", "      MSG_INTEGRITY_SUP = 0", "      GEN_2G_KEY = 1", "      REGISTER_IN_IDLE = 0",
      "      PLCM_TYPE_INCL = 1", "      PLCM_TYPE = 1", "      PLCM_39 = 0x1234567890", "      FOR_PDCH_SUPPORTED = 1",
      "      PDCH_CHM_SUPPORTED = 0", "      PILOT_INFO_REQ_SUPPORTED = 1", "      ENC_SUPPORTED = 1",
      "      SIG_ENCRYPT_SUP = 129", "      UI_ENCRYPT_SUP = 2", "      USE_SYNC_ID = 0", "      SID_INCL = 1",
      "      SID = 4660", "      NID_INCL = 0", "      SDB_SUPPORTED = 1", "      MOB_QOS = 1",
      "      MS_INIT_POS_LOC_SUP_IND = 0"};
  const std::vector<std::string> rel_d = {
      "      REV_PDCH_SUPPORTED = 1", "      PZ_HYST_ENABLED = 1", "      PZ_HYST_INFO_INCL = 1",
      "      PZ_HYST_LIST_LEN = 3", "      PZ_HYST_ACT_TIMER = 200", "      PZ_HYST_TIMER_MUL = 2",
      "      PZ_HYST_TIMER_EXP = 17", "      BCMC_ON_TRAFFIC_SUP = 1", "      AUTO_REQ_TRAF_ALLOWED_IND = 0",
      "      SCH_BCMC_IND = 1", "      ADD_PLCM_FOR_SCH_INCL = 1", "      ADD_PLCM_FOR_SCH_TYPE = 1",
      "      ADD_PLCM_FOR_SCH_35 = 0x0123456789", "      SCH_BCMCs[0] = FD_UHDM_SCH_BCMCs", "      {",
      "         USE_ADD_PLCM_FOR_SCH = 1", "         FSCH_OUTERCODE_INCL = 1", "         FSCH_OUTERCODE_RATE = 5",
      "         FSCH_OUTERCODE_OFFSET = 33", "      }", "      MAX_ADD_SERV_INSTANCE = 4", "      USE_CH_CFG_RRM = 1",
      "      TX_PWR_LIMIT_INCL = 1", "      TX_PWR_LIMIT_DEFAULT = 0", "      TX_PWR_LIMIT = 45"};
  for (unsigned p_rev : {8u, 9u, 10u, 11u}) {
    SCOPED_TRACE(p_rev);
    Bits b = uhdm(p_rev, 9);
    b.put(0, 1).put(0, 1).put(0, 1).put(0, 1).put(1, 1);   // gating, F3XFL_1XRL_INCL, SYNC_ID_INCL, CC_INFO_INCL, CS
    std::vector<std::string> want = {"      CS_SUPPORTED = 1"};
    if (p_rev >= 9) {
      b.put(1, 1).put(1, 1).put(1, 1).put(5, 3).put(1, 1).put(0, 1).put(1, 1).put(0, 1);   // .. REGISTER_IN_IDLE
      b.put(1, 1).put(1, 4).put(0x1234567890, 39);                                // PLCM
      b.put(1, 1).put(0, 1).put(1, 1).put(1, 1).put(0x81, 8).put(2, 8);          // .. UI_ENCRYPT_SUP
      b.put(0, 1).put(1, 1).put(4660, 15).put(0, 1).put(1, 1).put(1, 1).put(0, 1);
      want = rel_c;
    }
    if (p_rev >= 10) {
      b.put(1, 1).put(1, 1).put(1, 1).put(3, 4).put(200, 8).put(2, 3).put(17, 5);  // .. PZ_HYST_TIMER_EXP
      b.put(1, 1).put(0, 1).put(1, 1).put(1, 1).put(1, 1).put(0x123456789, 35);    // .. ADD_PLCM_FOR_SCH_35
      b.put(1, 1).put(1, 1).put(5, 3).put(33, 6);                                  // the SCH_BCMCs record
      b.put(4, 3).put(1, 1).put(1, 1).put(0, 1).put(45, 6);
      want.insert(want.end(), rel_d.begin(), rel_d.end());
    }
    want.push_back("   }");
    want.push_back("}");
    std::string tail;
    for (const auto& l : want) tail += l + "\n";
    auto r = test::decode(kFtc, static_cast<std::uint8_t>(p_rev), 0, ftc(b));
    EXPECT_EQ(r.rc, 0);
    ASSERT_GE(r.text.size(), tail.size()) << r.text;
    EXPECT_EQ(r.text.substr(r.text.size() - tail.size()), tail) << r.text;
  }
}

// A UHDM without extra parameters and with a Dedicated Control Channel pilot in the active
// set record; the P_REV 10 broadcast-multicast fields of the record and, from P_REV 11, the
// SYNC_ID that no longer needs a service configuration.
Bits uhdm_dcch(unsigned p_rev, bool sync_id) {
  Bits b = header(34);
  b.put(0, 1);                                               // MACI_INCL
  b.put(0, 1).put(0, 2).put(0, 1).put(0, 1).put(0, 1);       // .. EXTRA_PARMS
  b.put(0, 1).put(0, 1).put(0, 1).put(0, 5).put(0, 1);       // .. USE_PC_TIME
  b.put(7, 3).put(13, 8);                                    // CH_IND '111', 13 octets
  b.put(1, 3).put(0, 1).put(7, 9).put(0, 1).put(1, 1).put(10, 11).put(0, 2).put(99, 11).put(1, 2);
  b.put(0, 1).put(0, 1).put(0, 1);                           // F3X_FCH/DCCH_INFO_INCL, CCSH_INCLUDED
  b.put(1, 1).put(1, 1).put(1, 1).put(1, 1).put(0x1234567890, 39).put(1, 1);
  b.put(100, 7).put(17, 5).put(0, 4);                        // FOR_CPCH_RECs[0], padding
  b.put(0, 1).put(0, 1);                                     // REV_FCH_GATING_MODE, F3XFL_1XRL_INCL
  if (sync_id) b.put(1, 1).put(2, 4).put(0xBEEF, 16);
  b.put(0, 1).put(0, 15);                                    // CS_SUPPORTED, P_REV 9 capabilities
  if (p_rev >= 10) b.put(0, 3);                              // BCMC_ON_TRAFFIC_SUP .. TX_PWR_LIMIT_INCL
  return b;
}

TEST(Handoff, UhdmActiveSetBroadcastFieldsAndSyncIdByRevision) {
  const std::string bcmc = lines({
      "         CCSH_INCLUDED = 0", "         FUNDICATED_BCMC_IND = 1", "         REV_FCH_ASSIGNED = 1",
      "         ADD_PLCM_FOR_FCH_INCL = 1", "         ADD_PLCM_FOR_FCH_TYPE = 1",
      "         ADD_PLCM_FOR_FCH_39 = 0x1234567890", "         FOR_CPCCH_INFO_INCL = 1",
      "         FOR_CPCH_RECs[0] = ACTIVE_SET_REC_FOR_CPCH_RECs", "         {", "            FOR_CPCCH_WALSH = 100",
      "            FOR_CPCSCH = 17", "         }", "      }", "      REV_FCH_GATING_MODE = 0", "      F3XFL_1XRL_INCL = 0"});
  struct Case {
    unsigned p_rev;
    bool sync_id;
    bool has_bcmc;
  };
  for (const Case& k : {Case{9, false, false}, Case{10, false, true}, Case{11, true, true}}) {
    SCOPED_TRACE(k.p_rev);
    auto r = test::decode(kFtc, static_cast<std::uint8_t>(k.p_rev), 0, ftc(uhdm_dcch(k.p_rev, k.sync_id)));
    EXPECT_EQ(r.rc, 0);
    EXPECT_EQ(r.text.find(bcmc) != std::string::npos, k.has_bcmc) << r.text;
    EXPECT_EQ(count(r.text, "FUNDICATED_BCMC_IND"), k.has_bcmc ? 1u : 0u);
    EXPECT_EQ(r.text.find("      SYNC_ID_INCL = 1\n      SYNC_ID_LEN = 2\n      SYNC_ID = 0xbeef\n      CS_SUPPORTED = 0\n") !=
                  std::string::npos,
              k.sync_id)
        << r.text;
    EXPECT_EQ(count(r.text, "TX_PWR_LIMIT_INCL"), k.p_rev >= 10 ? 1u : 0u);
    // Without extra parameters SYNC_ID_INCL is on the air only from P_REV 11.
    EXPECT_EQ(count(r.text, "SYNC_ID_INCL"), k.p_rev >= 11 ? 1u : 0u);
  }
}

// CH_IND '000' with EXT_CH_IND 5 (F-PDCH and F-FCH, R-FCH and R-DCCH), a supplemental channel
// and one pilot with its own packet data control channels; `rec_len` octets of record.
Bits uhdm_ext(unsigned p_rev_in_use, unsigned rec_len) {
  Bits b = header(34);
  if (p_rev_in_use >= 9) b.put(0, 1);                              // MACI_INCL
  b.put(0, 1).put(0, 2).put(0, 1).put(0, 1).put(0, 1);             // .. EXTRA_PARMS
  b.put(0, 1).put(0, 1).put(1, 1).put(0, 2).put(0, 2).put(0, 5).put(0, 1);   // .. USE_PC_TIME
  b.put(0, 3).put(rec_len, 8);
  b.put(5, 5).put(0, 3);                                           // EXT_CH_IND, RESERVED
  b.put(1, 1).put(0, 1).put(9, 4).put(2, 2).put(1, 2);             // .. REV_ACKCH_REPS
  b.put(1, 5).put(1, 1).put(3, 4).put(7, 4).put(0, 5);             // FOR_SCHs, NUM_REV_SCH
  b.put(1, 3).put(0, 1).put(1, 1).put(1, 1);                       // NUM_PILOTS .. FOR_PDCH_PARMS_INCL
  b.put(1, 1).put(20, 6).put(33, 6).put(5, 4).put(6, 4).put(1, 2).put(2, 2).put(0, 1);
  b.put(100, 8).put(200, 8).put(0, 1);                             // delays, FOR_PDCH_COMMON_PARMS
  b.put(300, 9).put(0, 1).put(1, 1).put(2, 3).put(1, 3).put(11, 6).put(12, 6).put(77, 8).put(5, 3);
  b.put(1, 1).put(1, 1).put(42, 11).put(1, 2);                     // PWR_COMB_IND .. QOF_MASK_ID_FCH
  b.put(1, 5).put(1, 1).put(3, 4).put(1, 1).put(600, 11).put(2, 2);
  b.put(1, 1).put(0, 1).put(1, 1);                                 // CCSH, one encoder type
  b.put(0, 1).put(0, 1).put(0, 1).put(0, 15);                      // gating .. P_REV 9 capabilities
  return b;
}

TEST(Handoff, UhdmExtendedActiveSetRecordGoldenAtPrev9) {
  auto r = test::decode(kFtc, 9, 0, ftc(uhdm_ext(9, 21)));
  EXPECT_EQ(r.rc, 0);
  const std::string want = lines({
      "      CH_IND = 0", "      ACTIVE_SET_REC_LEN = 21", "      EXT_CH_IND = 5", "      RESERVED = 0",
      "      EXT_ACTIVE_SET_REC_FIELDS = EXT_ACTIVE_SET_REC", "      {", "         PDCH_CONTROL_HOLD = 1",
      "         FULL_CI_FEEDBACK_IND = 0", "         REV_CQICH_FRAME_OFFSET = 9", "         REV_CQICH_REPS = 2",
      "         REV_ACKCH_REPS = 1", "         NUM_FOR_SCH = 1", "         FOR_SCHs[0] = EXT_ACTIVE_SET_REC_FOR_SCHs",
      "         {", "            FOR_SCH_ID = 1", "            SCCL_INDEX = 3", "            FOR_SCH_RATE = 7", "         }",
      "         NUM_REV_SCH = 0", "         NUM_PILOTS = 1", "         SRCH_OFFSET_INCL = 0",
      "         PDCH_GROUP_IND_INCL = 1", "         FOR_PDCH_PARMS_INCL = 1", "         FOR_PDCH_RLGAIN_INCL = 1",
      "         RLGAIN_ACKCH_PILOT = 20", "         RLGAIN_CQICH_PILOT = 33", "         NUM_SOFT_SWITCHING_FRAMES = 5",
      "         NUM_SOFTER_SWITCHING_FRAMES = 6", "         NUM_SOFT_SWITCHING_SLOTS = 1",
      "         NUM_SOFTER_SWITCHING_SLOTS = 2", "         CHM_SWITCHING_PARMS_INCL = 0",
      "         PDCH_SOFT_SWITCHING_DELAY = 100", "         PDCH_SOFTER_SWITCHING_DELAY = 200",
      "         FOR_PDCH_COMMON_PARMS = 0", "         PILOT_RECs[0] = EXT_ACTIVE_SET_REC_PILOT_RECs", "         {",
      "            PILOT_PN = 300", "            ADD_PILOT_REC_INCL = 0", "            FOR_PDCH_INCL = 1",
      "            WALSH_TABLE_ID = 2", "            NUM_PDCCH = 1",
      "            PDCCH_RECs[0] = EXT_ACTIVE_SET_REC_PILOT_RECs_PDCCH_RECs", "            {",
      "               FOR_PDCCH_WALSH = 11", "            }", "            PDCCH_RECs[1] = EXT_ACTIVE_SET_REC_PILOT_RECs_PDCCH_RECs",
      "            {", "               FOR_PDCCH_WALSH = 12", "            }", "            MAC_ID = 77",
      "            REV_CQICH_COVER = 5", "            PWR_COMB_IND = 1", "            PDCH_GROUP_IND = 1",
      "            CODE_CHAN_FCH = 42", "            QOF_MASK_ID_FCH = 1", "            NUM_SCH = 1",
      "            SCHs[0] = EXT_ACTIVE_SET_REC_PILOT_RECs_SCHs", "            {", "               FOR_SCH_ID = 1",
      "               SCCL_INDEX = 3", "               PILOT_INCL = 1", "               CODE_CHAN_SCH = 600",
      "               QOF_MASK_ID_SCH = 2", "            }", "         }", "         CCSH_INCLUDED = 1",
      "         USE_CCSH_ENCODER_TIME = 0", "         CCSH_PILOTs[0] = EXT_ACTIVE_SET_REC_CCSH_PILOTs", "         {",
      "            CCSH_ENCODER_TYPE[0] = 1", "         }", "      }", "      REV_FCH_GATING_MODE = 0",
      "      F3XFL_1XRL_INCL = 0", "      CS_SUPPORTED = 0", "      CHM_SUPPORTED = 0"});
  EXPECT_NE(r.text.find(want), std::string::npos) << r.text;

  // Before P_REV 9 the record of CH_IND '000' is passed over whole.
  auto old = test::decode(kFtc, 8, 0, ftc(uhdm_ext(8, 21)));
  EXPECT_EQ(old.rc, 0);
  EXPECT_EQ(count(old.text, "EXT_CH_IND"), 0u);
  EXPECT_NE(old.text.find("      ACTIVE_SET_REC_LEN = 21\n      REV_FCH_GATING_MODE = 0\n"), std::string::npos) << old.text;

  // A length that stops inside the pilot bounds the record: the pilot cannot be read.
  EXPECT_EQ(test::decode(kFtc, 9, 0, ftc(uhdm_ext(9, 12))).rc, 3);
}

// From P_REV 10 the fields that Release D inserts after FULL_CI_FEEDBACK_IND are not
// decodable: the record shows its first two fields and the message resumes after all of
// ACTIVE_SET_REC_LEN.
TEST(Handoff, UhdmExtendedActiveSetRecordStopsBeforeReleaseDFields) {
  for (unsigned p_rev : {10u, 11u}) {
    SCOPED_TRACE(p_rev);
    Bits b = uhdm_ext(p_rev, 21);
    b.put(0, 3);   // BCMC_ON_TRAFFIC_SUP, USE_CH_CFG_RRM, TX_PWR_LIMIT_INCL
    if (p_rev >= 11) b.put(0, 1);   // the SYNC_ID_INCL that P_REV 11 always sends
    auto r = test::decode(kFtc, static_cast<std::uint8_t>(p_rev), 0, ftc(b));
    EXPECT_EQ(r.rc, 0);
    EXPECT_NE(r.text.find(lines({"      EXT_ACTIVE_SET_REC_FIELDS = EXT_ACTIVE_SET_REC", "      {",
                                 "         PDCH_CONTROL_HOLD = 1", "         FULL_CI_FEEDBACK_IND = 0", "      }",
                                 "      REV_FCH_GATING_MODE = 0", "      F3XFL_1XRL_INCL = 0"})),
              std::string::npos)
        << r.text;
    EXPECT_EQ(count(r.text, "REV_CQICH_FRAME_OFFSET"), 0u);
    EXPECT_NE(r.text.find("      TX_PWR_LIMIT_INCL = 0\n   }\n}\n"), std::string::npos) << r.text;
  }
}

// ---- SCM ----------------------------------------------------------------------------------

TEST(Handoff, ScmGoldenAtPrev7WithBothRecords) {
  Bits b = header(20);
  b.put(0, 1).put(0, 6).put(6, 3).put(0, 2).put(0, 2).put(0, 1);   // .. USE_OLD_SERV_CONFIG, SYNC_ID_INCL
  b.put(1, 8).put(19, 8);                                          // RECORD_TYPE, RECORD_LEN
  b.put(1, 16).put(1, 16).put(0xF0, 8).put(0xF0, 8).put(1, 8);
  b.put(11, 8).put(2, 8).put(33, 16).put(1, 4).put(1, 4).put(0, 3).put(1, 3);
  b.put(1, 1).put(2, 4).put(0xABCD, 16).put(1, 1).put(1, 5).put(0x5A, 8).put(0, 7);
  b.put(0, 4).put(0, 4);                                           // no channel configuration; padding
  b.put(19, 8).put(15, 8);                                         // RECORD_TYPE2, RECORD_LEN2
  b.put(0, 1).put(1, 1).put(2, 2);
  b.put(1, 1).put(1, 2).put(1, 2).put(3, 2).put(0, 1);
  b.put(1, 2).put(1, 4).put(1, 3).put(0, 4).put(0, 4).put(1, 1).put(1, 1).put(0, 4);
  b.put(1, 3).put(1, 8).put(1, 3).put(1, 1).put(0, 4);
  b.put(1, 1).put(1, 1).put(0, 3).put(3, 4).put(0, 4).put(2, 4).put(172, 16).put(4, 3);
  b.put(1, 1).put(1, 1).put(0, 3).put(1, 3).put(0, 4).put(3, 4).put(5, 3);
  b.put(1, 1).put(1, 1).put(0, 1).put(1, 1).put(0, 1).put(0, 1);   // mappings, LTU, partitions
  b.put(0, 5);
  b.put(1, 1).put(1, 8).put(2, 8).put(0, 1).put(1, 1);             // CC_INFO_INCL
  auto r = test::decode(kFtc, 7, 0, ftc(b));
  EXPECT_EQ(r.rc, 0);
  EXPECT_EQ(r.text, with_header(20, lines({
      "   SDU.SCM = FD_SCM", "   {", "      USE_TIME = 0", "      ACTION_TIME = 0", "      SERV_CON_SEQ = 6",
      "      USE_OLD_SERV_CONFIG = 0", "      SYNC_ID_INCL = 0", "      RECORD_TYPE = 1", "      RECORD_LEN = 19",
      "      TypeSpecificFields = SCR", "      {", "         FOR_MUX_OPTION = 1", "         REV_MUX_OPTION = 1",
      "         FOR_NUM_BITS = 240", "         REV_NUM_BITS = 240", "         NUM_CON_REC = 1",
      "         CON_RECs[0] = SCR_CON_RECs", "         {", "            RECORD_LEN = 11", "            CON_REF = 2",
      "            SERVICE_OPTION = 33", "            FOR_TRAFFIC = 1", "            REV_TRAFFIC = 1",
      "            UI_ENCRYPT_MODE = 0", "            SR_ID = 1", "            RLP_INFO_INCL = 1",
      "            RLP_BLOB_LEN = 2", "            RLP_BLOB = 0xabcd", "            QOS_PARMS_INCL = 1",
      "            QOS_PARMS_LEN = 1", "            QOS_PARMS = 0x5a", "         }", "         FCH_CC_INCL = 0",
      "         DCCH_CC_INCL = 0", "         FOR_SCH_CC_INCL = 0", "         REV_SCH_CC_INCL = 0", "      }",
      "      RECORD_TYPE2 = 19", "      RECORD_LEN2 = 15", "      TypeSpecificFields2 = NNSCR", "      {",
      "         FPC_INCL = 0", "         GATING_RATE_INCL = 1", "         PILOT_GATING_RATE = 2",
      "         FOR_SCH_INCL = 1", "         NUM_FOR_SCH = 1", "         FOR_SCHs[0] = NNSCR_FOR_SCHs", "         {",
      "            FOR_SCH_ID = 1", "            FOR_SCH_FRAME_OFFSET = 3", "         }", "         REV_SCH_INCL = 0",
      "         LPM_IND = 1", "         NUM_LPM_ENTRIES = 1", "         LPM_ENTRIES[0] = NNSCR_LPM_ENTRIES",
      "         {", "            SR_ID = 1", "            LOGICAL_RESOURCE = 0", "            PHYSICAL_RESOURCE = 0",
      "            FORWARD_FLAG = 1", "            REVERSE_FLAG = 1", "            PRIORITY = 0", "         }",
      "         NUM_REC = 1", "         RECs[0] = NNSCR_RECs", "         {", "            RECORD_LEN = 1",
      "            SR_ID = 1", "            SDB_SO_OMIT = 1", "         }", "         USE_FLEX_NUM_BITS = 1",
      "         NUM_BITS_TABLES_INCL = 1", "         NUM_BITS_TABLES_COUNT = 0",
      "         NUM_BITS_TABLEs[0] = NNSCR_NUM_BITS_TABLEs", "         {", "            NUM_BITS_TABLE_ID = 3",
      "            NUM_RECS = 0", "            RECs[0] = NNSCR_NUM_BITS_TABLEs_RECs", "            {",
      "               NUM_BITS_IDX = 2", "               NUM_BITS = 172", "               CRC_LEN_IDX = 4",
      "            }", "         }", "         USE_VAR_RATE = 1", "         VAR_TABLES_INCL = 1",
      "         VAR_RATE_TABLES_COUNT = 0", "         VAR_RATE_TABLEs[0] = NNSCR_VAR_RATE_TABLEs", "         {",
      "            VAR_RATE_TABLE_ID = 1", "            NUM_RECS = 0",
      "            RECs[0] = NNSCR_VAR_RATE_TABLEs_RECs", "            {", "               NUM_BITS_IDX = 3",
      "               MASK = 5", "            }", "         }", "         USE_OLD_FLEX_MAPPING = 1",
      "         USE_OLD_VAR_MAPPING = 1", "         R_INC_RATE_ALLOWED = 0", "         F_INC_RATE_ALLOWED = 1",
      "         LTU_INFO_INCL = 0", "         PARTITION_TABLES_INFO_INCL = 0", "      }", "      CC_INFO_INCL = 1",
      "      NUM_CALLS_ASSIGN = 1", "      CALLs[0] = FD_SCM_CALLs", "      {", "         CON_REF = 2",
      "         RESPONSE_IND = 0", "         BYPASS_ALERT_ANSWER = 1", "      }", "   }"})));
}

TEST(Handoff, ScmRecordsByRevision) {
  // P_REV 5: the service configuration only (connection records without the IS-2000 fields).
  Bits p5 = header(20);
  p5.put(1, 1).put(33, 6).put(2, 3).put(0, 4).put(1, 8).put(12, 8);
  p5.put(2, 16).put(2, 16).put(0xF0, 8).put(0xF0, 8).put(1, 8);
  p5.put(5, 8).put(0, 8).put(17, 16).put(1, 4).put(1, 4);   // RECORD_LEN 5: 40 bits
  p5.put(0, 16);                                            // 96 bits declared, 96 used
  auto r = test::decode(kFtc, 5, 0, ftc(p5));
  EXPECT_EQ(r.rc, 0);
  EXPECT_NE(r.text.find("      SERV_CON_SEQ = 2\n      RECORD_TYPE = 1\n"), std::string::npos) << r.text;
  EXPECT_NE(r.text.find("            REV_TRAFFIC = 1\n         }\n      }\n   }\n}\n"), std::string::npos) << r.text;
  EXPECT_EQ(r.text.find("UI_ENCRYPT_MODE"), std::string::npos);
  EXPECT_EQ(r.text.find("RECORD_TYPE2"), std::string::npos);

  // P_REV 9 with a stored configuration named by SYNC_ID: no records.
  Bits p9 = header(20);
  p9.put(0, 1);   // MACI_INCL
  p9.put(0, 1).put(0, 6).put(1, 3).put(0, 2).put(1, 2).put(1, 1).put(1, 4).put(0x7E, 8).put(0, 1).put(1, 1);
  r = test::decode(kFtc, 9, 0, ftc(p9));
  EXPECT_EQ(r.rc, 0);
  EXPECT_NE(r.text.find("      SERV_CON_SEQ = 1\n      USE_OLD_SERV_CONFIG = 1\n      SYNC_ID_INCL = 1\n"
                        "      SYNC_ID_LEN = 1\n      SYNC_ID = 0x7e\n      CC_INFO_INCL = 0\n      USE_TYPE0_PLCM = 1\n   }\n"),
            std::string::npos)
      << r.text;
}

// A P_REV 9+ Service Connect: USE_OLD_SERV_CONFIG `old`, SR_ID 4 when it is '11', no SYNC_ID,
// an 8-octet service configuration without connections, an empty non-negotiable record, no
// call assignments and USE_TYPE0_PLCM 1.
Bits scm_restore(unsigned old) {
  Bits b = header(20);
  b.put(0, 1);                                                     // MACI_INCL
  b.put(0, 1).put(0, 6).put(5, 3).put(0, 2).put(old, 2);
  if (old == 3) b.put(4, 3);                                       // SR_ID
  b.put(0, 1);                                                     // SYNC_ID_INCL
  b.put(1, 8).put(8, 8).put(1, 16).put(1, 16).put(0xF0, 8).put(0xF0, 8).put(0, 8).put(0, 8);
  b.put(19, 8).put(0, 8).put(0, 1).put(1, 1);                      // .. CC_INFO_INCL, USE_TYPE0_PLCM
  return b;
}

TEST(Handoff, ScmServiceReferenceFollowsTheRestoreIndicator) {
  const std::string records = "      SYNC_ID_INCL = 0\n      RECORD_TYPE = 1\n      RECORD_LEN = 8\n";
  const std::string tail = "      RECORD_TYPE2 = 19\n      RECORD_LEN2 = 0\n      CC_INFO_INCL = 0\n      USE_TYPE0_PLCM = 1\n   }\n}\n";
  struct Case {
    unsigned p_rev, old;
    std::string start;   // from USE_OLD_SERV_CONFIG
    bool to_the_end;     // the records and USE_TYPE0_PLCM are read
  };
  const Case cases[] = {
      {9, 3, "      USE_OLD_SERV_CONFIG = 3\n      SR_ID = 4\n" + records, true},
      {9, 0, "      USE_OLD_SERV_CONFIG = 0\n" + records, true},
      // Release D may follow SR_ID with a bitmap of unknown layout: refused (result 1) there.
      {10, 3, "      USE_OLD_SERV_CONFIG = 3\n      SR_ID = 4\n   }\n}\n", false},
      {10, 0, "      USE_OLD_SERV_CONFIG = 0\n" + records, true},
  };
  for (const Case& k : cases) {
    SCOPED_TRACE(testing::Message() << "P_REV " << k.p_rev << ", USE_OLD_SERV_CONFIG " << k.old);
    auto r = test::decode(kFtc, static_cast<std::uint8_t>(k.p_rev), 0, ftc(scm_restore(k.old)));
    EXPECT_EQ(r.rc, k.to_the_end ? 0 : 1);
    EXPECT_NE(r.text.find("      SERV_CON_SEQ = 5\n" + k.start), std::string::npos) << r.text;
    const bool ends = r.text.size() >= tail.size() && r.text.substr(r.text.size() - tail.size()) == tail;
    EXPECT_EQ(ends, k.to_the_end) << r.text;
  }
}

// ---- ESCAM --------------------------------------------------------------------------------

TEST(Handoff, EscamGoldenAtPrev6) {
  Bits b = header(35);
  b.put(2, 3).put(5, 4).put(0, 1).put(1, 1).put(9, 4).put(1, 1).put(0, 1);
  b.put(1, 1).put(0, 5).put(0, 1).put(1, 1).put(6, 4);               // one reverse configuration
  b.put(1, 2).put(0, 1).put(3, 4).put(0, 1).put(6, 4);               // one R-SCH assignment
  b.put(1, 1).put(1, 1).put(0, 5);                                   // one forward configuration
  b.put(0, 1).put(3, 4).put(5, 4).put(0, 3);
  b.put(120, 9).put(1, 1).put(0, 3).put(1, 3).put(2, 2).put(1, 2).put(0, 4).put(300, 11).put(1, 2);
  b.put(1, 2).put(0, 1).put(15, 4).put(0, 1).put(3, 4);              // one F-SCH assignment
  b.put(1, 1).put(1, 3).put(0, 1).put(1, 1).put(1, 2);               // FPC_INCL .. NUM_SUP
  b.put(0, 1).put(2, 5).put(48, 8).put(0, 8).put(80, 8).put(0, 1);
  b.put(1, 1).put(0, 1).put(0, 1).put(10, 6);                        // RPC
  auto r = test::decode(kFtc, 6, 0, ftc(b));
  EXPECT_EQ(r.rc, 0);
  EXPECT_EQ(r.text, with_header(35, lines({
      "   SDU.ESCAM = FD_ESCAM", "   {", "      START_TIME_UNIT = 2", "      REV_SCH_DTX_DURATION = 5",
      "      USE_T_ADD_ABORT = 0", "      USE_SCRM_SEQ_NUM = 1", "      SCRM_SEQ_NUM = 9", "      ADD_INFO_INCL = 1",
      "      FPC_PRI_CHAN = 0", "      REV_CFG_INCLUDED = 1", "      NUM_REV_CFG_RECS = 0",
      "      REV_CFGs[0] = FD_ESCAM_REV_CFGs", "      {", "         REV_SCH_ID = 0", "         REV_WALSH_ID = 1",
      "         REV_SCH_RATE = 6", "      }", "      NUM_REV_SCH = 1", "      REV_SCHs[0] = FD_ESCAM_REV_SCHs",
      "      {", "         REV_SCH_ID = 0", "         REV_SCH_DURATION = 3", "         REV_SCH_START_TIME_INCL = 0",
      "         REV_SCH_RATE = 6", "      }", "      FOR_CFG_INCLUDED = 1", "      FOR_SCH_FER_REP = 1",
      "      NUM_FOR_CFG_RECS = 0", "      FOR_CFGs[0] = FD_ESCAM_FOR_CFGs", "      {", "         FOR_SCH_ID = 0",
      "         SCCL_INDEX = 3", "         FOR_SCH_RATE = 5", "         NUM_SUP_SHO = 0",
      "         SUP_SHOs[0] = FD_ESCAM_FOR_CFGs_SUP_SHOs", "         {", "            PILOT_PN = 120",
      "            ADD_PILOT_REC_INCL = 1", "            ACTIVE_PILOT_REC_TYPE = 0", "            RECORD_LEN = 1",
      "            OTD_POWER_LEVEL = 2", "            CODE_CHAN_SCH = 300",
      "            QOF_MASK_ID_SCH = 1", "         }", "      }", "      NUM_FOR_SCH = 1",
      "      FOR_SCHs[0] = FD_ESCAM_FOR_SCHs", "      {", "         FOR_SCH_ID = 0", "         FOR_SCH_DURATION = 15",
      "         FOR_SCH_START_TIME_INCL = 0", "         SCCL_INDEX = 3", "      }", "      FPC_INCL = 1",
      "      FPC_MODE_SCH = 1", "      FPC_SCH_INIT_SETPT_OP = 0", "      FPC_SEC_CHAN = 1", "      NUM_SUP = 1",
      "      FPC_SUPs[0] = FD_ESCAM_FPC_SUPs", "      {", "         SCH_ID = 0", "         FPC_SCH_FER = 2",
      "         FPC_SCH_INIT_SETPT = 48", "         FPC_SCH_MIN_SETPT = 0", "         FPC_SCH_MAX_SETPT = 80",
      "      }", "      FPC_THRESH_SCH_INCL = 0", "      RPC_INCL = 1", "      RPC_NUM_SUP = 0",
      "      RPC_SUPs[0] = FD_ESCAM_RPC_SUPs", "      {", "         SCH_ID = 0", "         RLGAIN_SCH_PILOT = 10",
      "      }", "   }"})));
}

// An ESCAM with one forward configuration of two soft handoff pilots and one forward and one
// reverse assignment, then the 3X code channels of both pilots (P_REV 7) and the encoder
// types and the forward channel configuration (P_REV 8).
TEST(Handoff, EscamThreeXAndChannelConfigurationByRevision) {
  Bits b = header(35);
  b.put(0, 3).put(0, 4).put(0, 1).put(0, 1).put(0, 1).put(0, 1);    // .. REV_CFG_INCLUDED
  b.put(1, 2).put(1, 1).put(2, 4).put(0, 1).put(3, 4);               // one R-SCH assignment
  b.put(1, 1).put(0, 1).put(0, 5).put(1, 1).put(4, 4).put(5, 4).put(1, 3);
  b.put(10, 9).put(0, 1).put(20, 11).put(0, 2).put(11, 9).put(0, 1).put(21, 11).put(1, 2);
  b.put(1, 2).put(1, 1).put(5, 4).put(0, 1).put(4, 4);               // one F-SCH assignment
  b.put(0, 1).put(0, 1);                                             // FPC_INCL, RPC_INCL
  b.put(1, 1).put(1, 2).put(1, 1).put(0, 5).put(4, 4);               // .. the 3X record's SCCL_INDEX
  b.put(1, 1).put(2, 2).put(100, 11).put(0, 1);                      // first pilot: low carrier
  b.put(0, 1).put(1, 1).put(3, 2).put(101, 11);                      // second pilot: high carrier
  b.put(1, 1).put(1, 1).put(0, 1);                                   // CCSH, two encoder types
  b.put(1, 1).put(1, 2).put(0xF20, 16).put(2, 4).put(4, 5).put(1, 1).put(0, 1).put(1, 1).put(9, 4);
  b.put(0, 1);                                                       // REV_SCH_CC_INCL

  const std::string f3x = lines({
      "      RPC_INCL = 0", "      F3X_SCH_INFO_INCL = 1", "      NUM_F3X_CFG = 1",
      "      F3X_CFGs[0] = FD_ESCAM_F3X_CFGs", "      {", "         FOR_SCH_ID = 1", "         NUM_F3X_REC = 0",
      "         RECs[0] = FD_ESCAM_F3X_CFGs_RECs", "         {", "            SCCL_INDEX = 4",
      "            SUP_SHOs[0] = FD_ESCAM_F3X_CFGs_RECs_SUP_SHOs", "            {",
      "               F3X_SCH_LOW_INCL = 1", "               QOF_MASK_ID_SCH_LOW = 2",
      "               CODE_CHAN_SCH_LOW = 100", "               F3X_SCH_HIGH_INCL = 0", "            }",
      "            SUP_SHOs[1] = FD_ESCAM_F3X_CFGs_RECs_SUP_SHOs", "            {",
      "               F3X_SCH_LOW_INCL = 0", "               F3X_SCH_HIGH_INCL = 1",
      "               QOF_MASK_ID_SCH_HIGH = 3", "               CODE_CHAN_SCH_HIGH = 101", "            }",
      "         }", "      }"});
  const std::string rel_b = lines({
      "      CCSH_INCLUDED = 1", "      CCSH_CFGs[0] = FD_ESCAM_CCSH_CFGs", "      {",
      "         CCSH_ENCODER_TYPE[0] = 1", "         CCSH_ENCODER_TYPE[1] = 0", "      }", "      FOR_SCH_CC_INCL = 1",
      "      FOR_SCH_CCs[0] = FD_ESCAM_FOR_SCH_CCs", "      {", "         FOR_SCH_ID = 1", "         FOR_SCH_MUX = 3872",
      "         SCH_REC_LEN = 2", "         SCH_RC = 4", "         CODING_TYPE = 1", "         FRAME_40_USED = 0",
      "         FRAME_80_USED = 1", "         MAX_RATE = 9", "      }", "      REV_SCH_CC_INCL = 0"});
  const std::string end = "   }\n}\n";
  struct Case {
    unsigned p_rev;
    std::string tail;
  };
  for (const Case& k : {Case{6, "      RPC_INCL = 0\n" + end}, Case{7, f3x + end}, Case{8, f3x + rel_b + end}}) {
    SCOPED_TRACE(k.p_rev);
    auto r = test::decode(kFtc, static_cast<std::uint8_t>(k.p_rev), 0, ftc(b));
    EXPECT_EQ(r.rc, 0);
    ASSERT_GE(r.text.size(), k.tail.size()) << r.text;
    EXPECT_EQ(r.text.substr(r.text.size() - k.tail.size()), k.tail) << r.text;
  }
}

// A P_REV 9+ ESCAM with no configuration records and `num_for_sch` forward assignments,
// then the Release D broadcast group with SCH_BCMC_IND `bcmc`, a 35-bit mask and one
// outer-code record, then one more bit (FPC_BCMC_CHAN, not read).
Bits escam_bcmc(unsigned num_for_sch, unsigned bcmc) {
  Bits b = header(35);
  b.put(0, 1);                                                         // MACI_INCL
  b.put(0, 3).put(0, 4).put(0, 1).put(0, 1).put(0, 1).put(0, 1).put(0, 2).put(0, 1);   // .. FOR_CFG_INCLUDED
  b.put(num_for_sch, 2);
  for (unsigned i = 0; i < num_for_sch; ++i) b.put(1, 1).put(5, 4).put(0, 1).put(4, 4);
  b.put(0, 1).put(0, 1).put(0, 1).put(0, 1).put(0, 1).put(0, 1);     // FPC_INCL .. REV_SCH_CC_INCL
  b.put(bcmc, 1).put(1, 1).put(1, 1).put(0x123456789, 35);           // .. ADD_PLCM_FOR_SCH_35
  b.put(1, 1).put(1, 1).put(5, 3).put(33, 6).put(1, 1);
  return b;
}

TEST(Handoff, EscamBroadcastGroupFromPrev10) {
  const std::string cc = "      FOR_SCH_CC_INCL = 0\n      REV_SCH_CC_INCL = 0\n";
  const std::string group = lines({"      SCH_BCMC_IND = 1", "      ADD_PLCM_FOR_SCH_INCL = 1",
                                   "      ADD_PLCM_FOR_SCH_TYPE = 1", "      ADD_PLCM_FOR_SCH_35 = 0x0123456789",
                                   "      SCH_BCMCs[0] = FD_ESCAM_SCH_BCMCs", "      {", "         USE_ADD_PLCM_FOR_SCH = 1",
                                   "         FSCH_OUTERCODE_INCL = 1", "         FSCH_OUTERCODE_RATE = 5",
                                   "         FSCH_OUTERCODE_OFFSET = 33", "      }"});
  const std::string end = "   }\n}\n";
  struct Case {
    const char* what;
    unsigned p_rev, num_for_sch, bcmc;
    std::string tail;
  };
  const Case cases[] = {
      {"P_REV 9 ends with the channel configurations", 9, 1, 1, cc + end},
      {"P_REV 10 with one forward assignment", 10, 1, 1, cc + group + end},
      {"SCH_BCMC_IND 0 closes the group", 10, 1, 0, cc + "      SCH_BCMC_IND = 0\n" + end},
      {"no forward assignment, no group", 11, 0, 1, cc + end},
  };
  for (const Case& k : cases) {
    SCOPED_TRACE(k.what);
    auto r = test::decode(kFtc, static_cast<std::uint8_t>(k.p_rev), 0, ftc(escam_bcmc(k.num_for_sch, k.bcmc)));
    EXPECT_EQ(r.rc, 0);
    ASSERT_GE(r.text.size(), k.tail.size()) << r.text;
    EXPECT_EQ(r.text.substr(r.text.size() - k.tail.size()), k.tail) << r.text;
  }
}

}  // namespace
}  // namespace cs
