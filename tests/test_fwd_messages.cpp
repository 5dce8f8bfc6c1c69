// Forward traffic channel message bodies, decoded and printed through their BodyOps.
// Expected texts follow the field tables of C.S0005 3.7.3.3.2 for the values each case
// encodes.
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "codec/arena.h"
#include "codec/walk.h"
#include "fwd_traffic/tables.h"
#include "helpers.h"
#include "text/text.h"

namespace cs {
namespace {

using test::Bits;
using test::lines;

struct BodyResult {
  Rc rc;
  std::string text;
  std::uint64_t consumed;
};

// Decodes `bits` (exactly the body's bits, or fewer with `cut`) as message `type` and
// prints the record whatever the decode returned.
BodyResult run(std::uint8_t type, std::uint8_t p_rev, const Bits& bits, std::size_t cut = 0) {
  const BodyOps* ops = fd_messages().body(type);
  EXPECT_NE(ops, nullptr) << "no body for MSG_TYPE " << int(type);
  if (ops == nullptr) return {Rc::count, "", 0};
  Ctx c;
  c.p_rev = p_rev;
  c.msg_type = type;
  const std::vector<std::uint8_t> buf = bits.message(0);
  Arena arena;
  void* rec = arena.raw(ops->size, alignof(std::max_align_t));
  std::uint64_t used = 0;
  const Rc rc = ops->decode(rec, c, arena, buf.data(), buf.size(), 0, bits.size() - cut, &used);
  Text t;
  ops->print(rec, c, ops->header, 0, t);
  return {rc, t.str(), used};
}

struct Golden {
  const char* name;
  std::uint8_t type;
  std::uint8_t p_rev;
  Bits bits;
  std::string text;
  Rc rc = Rc::ok;   // count: the message goes on with fields not decoded, and is refused there
};

// Cases print as their names in test listings.
void PrintTo(const Golden& c, std::ostream* os) { *os << c.name; }

class FwdMessageGolden : public ::testing::TestWithParam<Golden> {};

TEST_P(FwdMessageGolden, DecodesEveryBitAndPrintsTheFieldTable) {
  const Golden& g = GetParam();
  const BodyResult r = run(g.type, g.p_rev, g.bits);
  EXPECT_EQ(r.rc, g.rc);
  if (g.rc == Rc::ok) {
    EXPECT_EQ(r.consumed, g.bits.size());
  }
  EXPECT_EQ(r.text, g.text);
}

std::vector<Golden> goldens() {
  std::vector<Golden> v;
  v.push_back({"AUCM_RelC", 2, 9, Bits().put(0x123456, 24), lines({"FD_AUCM", "{", "   RANDU = 1193046", "}"})});
  v.push_back({"AUCM_RelD_GenCmeakey", 2, 10, Bits().put(0xABCDEF, 24).put(1, 1),
               lines({"FD_AUCM", "{", "   RANDU = 11259375", "   GEN_CMEAKEY = 1", "}"})});
  v.push_back({"DBM_Sms", 4, 6, Bits().put(1, 8).put(3, 6).put(1, 8).put(3, 8).put('H', 8).put('i', 8).put('!', 8),
               lines({"FD_DBM", "{", "   MSG_NUMBER = 1", "   BURST_TYPE = 3", "   NUM_MSGS = 1", "   NUM_FIELDS = 3",
                      "   CHARi[0] = 72", "   CHARi[1] = 105", "   CHARi[2] = 33",
                      "   L4Message.FwdSMSMessage = Unpack error. ", "}"})});
  v.push_back(
      {"AHDM_IS95A", 6, 3,
       Bits().put(1, 1).put(5, 6).put(4139, 15).put(2, 3).put(333, 11).put(1, 2).put(0, 1).put(2, 2).put(1, 1),
       lines({"FD_AHDM", "{", "   USE_TIME = 1", "   ACTION_TIME = 5", "   SID = 4139", "   VMAC = 2",
              "   ANALOG_CHAN = 333", "   SCC = 1", "   MEM = 0", "   AN_CHAN_TYPE = 2", "   DSCC_MSB = 1", "}"})});
  v.push_back({"AHDM_RelA_ConRef", 6, 7,
               Bits().put(0, 1).put(0, 6).put(7, 15).put(0, 3).put(1, 11).put(0, 2).put(0, 1).put(0, 2).put(0, 1)
                   .put(0, 5).put(1, 1).put(9, 8),
               lines({"FD_AHDM", "{", "   USE_TIME = 0", "   ACTION_TIME = 0", "   SID = 7", "   VMAC = 0",
                      "   ANALOG_CHAN = 1", "   SCC = 0", "   MEM = 0", "   AN_CHAN_TYPE = 0", "   DSCC_MSB = 0",
                      "   BAND_CLASS = 0", "   CON_REF_INCL = 1", "   CON_REF = 9", "}"})});
  v.push_back({"NLUM", 8, 3, Bits().put(4, 4).put(12, 9).put(500, 9),
               lines({"FD_NLUM", "{", "   PILOT_INC = 4", "   NGHBR_PN[0] = 12", "   NGHBR_PN[1] = 500", "}"})});
  v.push_back({"BDTMFM_RelA", 9, 7, Bits().put(3, 8).put(1, 3).put(2, 3).put(1, 4).put(10, 4).put(11, 4).put(0, 1),
               lines({"FD_BDTMFM", "{", "   NUM_DIGITS = 3", "   DTMF_ON_LENGTH = 1", "   DTMF_OFF_LENGTH = 2",
                      "   DIGITi[0] = 1", "   DIGITi[1] = 10", "   DIGITi[2] = 11", "   CON_REF_INCL = 0", "}"})});
  v.push_back({"PCNPM", 10, 3, Bits().put(2, 5).put(9, 4).put(1, 1).put(0, 1).put(3, 5),
               lines({"FD_PCNPM", "{", "   PWR_REP_THRESH = 2", "   PWR_REP_FRAMES = 9", "   PWR_THRESH_ENABLE = 1",
                      "   PWR_PERIOD_ENABLE = 0", "   PWR_REP_DELAY = 3", "}"})});
  v.push_back({"RTPM", 11, 3, Bits().put(1, 16).put(0x0102, 16),
               lines({"FD_RTPM", "{", "   PARAMETER_ID[0] = 1", "   PARAMETER_ID[1] = 258", "}"})});
  v.push_back(
      {"STPM_TwoParameters", 12, 3, Bits().put(7, 16).put(23, 10).put(0xABCDEF, 24).put(8, 16).put(0, 10).put(1, 1),
       lines({"FD_STPM", "{", "   PARAMETERs[0] = FD_STPM_PARAMETERs", "   {", "      PARAMETER_ID = 7",
              "      PARAMETER_LEN = 23", "      PARAMETER = 0xabcdef", "   }", "   PARAMETERs[1] = FD_STPM_PARAMETERs",
              "   {", "      PARAMETER_ID = 8", "      PARAMETER_LEN = 0", "      PARAMETER = 0x01", "   }", "}"})});
  v.push_back({"SSDUM", 13, 3, Bits().put_hex("0123456789ABCD"),
               lines({"FD_SSDUM", "{", "   RANDSSD = 0x0123456789abcd", "}"})});
  v.push_back({"MSRM", 15, 3,
               Bits().put(4139, 15).put(65535, 16).put(100, 12).put(2, 3).put(1, 3).put(0, 1).put(1, 1).put(1000, 22)
                   .put(4000000, 23).put(20, 11),
               lines({"FD_MSRM", "{", "   SID = 4139", "   NID = 65535", "   REG_ZONE = 100", "   TOTAL_ZONES = 2",
                      "   ZONE_TIMER = 1", "   MULT_SIDS = 0", "   MULT_NIDS = 1", "   BASE_LAT = 1000",
                      "   BASE_LONG = 4000000", "   REG_DIST = 20", "}"})});
  v.push_back(
      {"STRQM_BandAndOpMode", 16, 6,
       Bits().put(2, 8).put(2, 3).put(1, 5).put(0x81, 8).put(0, 3).put(2, 4).put(8, 8).put(9, 8),
       lines({"FD_STRQM", "{", "   QUAL_INFO_TYPE = 2", "   QUAL_INFO_LEN = 2", "   BAND_CLASS = 1", "   OP_MODE = 129",
              "   NUM_FIELDS = 2", "   RECORD_TYPE[0] = 8", "   RECORD_TYPE[1] = 9", "}"})});
  v.push_back({"STRQM_UnknownQualSkipped", 16, 6, Bits().put(7, 8).put(1, 3).put(0xFF, 8).put(1, 4).put(4, 8),
               lines({"FD_STRQM", "{", "   QUAL_INFO_TYPE = 7", "   QUAL_INFO_LEN = 1", "   NUM_FIELDS = 1",
                      "   RECORD_TYPE[0] = 4", "}"})});
  v.push_back({"SRQM_Reject", 18, 6, Bits().put(5, 3).put(1, 4),
               lines({"FD_SRQM", "{", "   SERV_REQ_SEQ = 5", "   REQ_PURPOSE = 1", "}"})});
  // A proposal at P_REV 3: a 12-octet configuration with one 5-octet connection record.
  v.push_back({"SRPM_ProposeIS95", 19, 3,
               Bits().put(2, 3).put(2, 4).put(0, 8).put(12, 8).put(1, 16).put(1, 16).put(0xF0, 8).put(0xF0, 8)
                   .put(1, 8).put(5, 8).put(1, 8).put(3, 16).put(1, 4).put(1, 4),
               lines({"FD_SRPM",
                      "{",
                      "   SERV_REQ_SEQ = 2",
                      "   RESP_PURPOSE = 2",
                      "   RECORD_TYPE = 0",
                      "   RECORD_LEN = 12",
                      "   TypeSpecificFields = SCR",
                      "   {",
                      "      FOR_MUX_OPTION = 1",
                      "      REV_MUX_OPTION = 1",
                      "      FOR_NUM_BITS = 240",
                      "      REV_NUM_BITS = 240",
                      "      NUM_CON_REC = 1",
                      "      CON_RECs[0] = SCR_CON_RECs",
                      "      {",
                      "         RECORD_LEN = 5",
                      "         CON_REF = 1",
                      "         SERVICE_OPTION = 3",
                      "         FOR_TRAFFIC = 1",
                      "         REV_TRAFFIC = 1",
                      "      }",
                      "   }",
                      "}"})});
  v.push_back({"SOCM", 21, 6, Bits().put(0, 1).put(3, 6).put(1, 8).put(3, 16).put(2, 8).put(0xBEEF, 16),
               lines({"FD_SOCM", "{", "   USE_TIME = 0", "   ACTION_TIME = 3", "   CON_REF = 1",
                      "   SERVICE_OPTION = 3", "   CTL_REC_LEN = 2", "   TYPE_SPECIFIC_FIELDS = 0xbeef", "}"})});
  v.push_back({"TASM", 22, 3, Bits().put(1, 4).put(0x5A, 8).put(0x12345678, 32).put(1000, 24),
               lines({"FD_TASM", "{", "   TMSI_ZONE_LEN = 1", "   TMSI_ZONE = 0x5a", "   TMSI_CODE = 305419896",
                      "   TMSI_EXP_TIME = 1000", "}"})});
  // Type 2 record of 9 octets: 44 fixed bits, two 11-bit channels, 6 bits of padding.
  v.push_back({"SRDM_Cdma", 23, 6,
               Bits().put(1, 1).put(0, 1).put(0, 1).put(2, 8).put(9, 8).put(1, 5).put(4139, 15).put(1, 16).put(0, 4)
                   .put(2, 4).put(25, 11).put(600, 11).put(0, 6),
               lines({"FD_SRDM", "{", "   RETURN_IF_FAIL = 1", "   DELETE_TMSI = 0", "   REDIRECT_TYPE = 0",
                      "   RECORD_TYPE = 2", "   RECORD_LEN = 9", "   TypeSpecificFields = FD_SRDM_TypeSpecificFields",
                      "   {", "      BAND_CLASS = 1", "      EXPECTED_SID = 4139", "      EXPECTED_NID = 1",
                      "      NUM_CHANS = 2", "      CDMA_CHAN[0] = 25", "      CDMA_CHAN[1] = 600", "   }", "}"})});
  v.push_back({"CFSCNM_Rel0", 28, 6, Bits().put(1, 1).put(2, 6).put(3, 2).put(1, 2).put(1, 1),
               lines({"FD_CFSCNM", "{", "   USE_TIME = 1", "   ACTION_TIME = 2", "   CFSCM_SEQ = 3",
                      "   SEARCH_TYPE = 1", "   ALIGN_TIMING = 1", "}"})});
  v.push_back({"PUFM_WithFrequency", 29, 4,
               Bits().put(1, 1).put(10, 6).put(2, 2).put(3, 6).put(4, 7).put(500, 10).put(5, 6).put(6, 5).put(7, 4)
                   .put(8, 4).put(1, 1).put(1, 5).put(300, 11),
               lines({"FD_PUFM", "{", "   USE_TIME = 1", "   ACTION_TIME = 10", "   ACTION_TIME_FRAME = 2",
                      "   PUF_SETUP_SIZE = 3", "   PUF_PULSE_SIZE = 4", "   PUF_INTERVAL = 500", "   PUF_INIT_PWR = 5",
                      "   PUF_PWR_STEP = 6", "   TOTAL_PUF_PROBES = 7", "   MAX_PWR_PUF = 8", "   PUF_FREQ_INCL = 1",
                      "   PUF_BAND_CLASS = 1", "   PUF_CDMA_FREQ = 300", "}"})});
  v.push_back({"PUFCM_Location", 30, 4,
               Bits().put(0, 6).put(1, 1).put(0, 3).put(123456, 22).put(234567, 23).put(345678, 24),
               lines({"FD_PUFCM", "{", "   LOC_IND = 1", "   MS_LAT = 123456", "   MS_LONG = 234567",
                      "   MS_LOC_TSTAMP = 345678", "}"})});
  v.push_back({"RAM_NoActionTime", 32, 6, Bits().put(0, 1).put(1, 1),
               lines({"FD_RAM", "{", "   USE_TIME = 0", "   FPC_PRI_CHAN = 1", "}"})});
  v.push_back({"MABOPM_PeriodicOnly", 36, 7, Bits().put(0, 1).put(1, 1).put(5, 3).put(33, 6).put(0, 1),
               lines({"FD_MABOPM", "{", "   ORDER_FLAG = 0", "   PERIODIC_FLAG = 1", "   NUM_PILOTS = 5",
                      "   PERIODIC_INTERVAL = 33", "   THRESHOLD_FLAG = 0", "}"})});
  v.push_back({"UZRM_Assign", 37, 7, Bits().put(300, 16).put(2, 3).put(1, 1).put(301, 16),
               lines({"FD_UZRM", "{", "   REJECT_UZID = 300", "   REJECT_ACTION_INDI = 2", "   UZID_ASSIGN_INCL = 1",
                      "   ASSIGN_UZID = 301", "}"})});
  v.push_back({"UZUM", 38, 7, Bits().put(65000, 16), lines({"FD_UZUM", "{", "   UZID = 65000", "}"})});
  v.push_back({"AUREQM", 50, 9,
               Bits().put_hex("00112233445566778899AABBCCDDEEFF").put_hex("0A0B0C0D0E0F").put(7, 16)
                   .put_hex("1122334455667788"),
               lines({"FD_AUREQM", "{", "   RANDA = 0x00112233445566778899aabbccddeeff", "   CON_SQN = 0x0a0b0c0d0e0f",
                      "   AMF = 7", "   MAC_A = 0x1122334455667788", "}"})});
  v.push_back({"ERM_Rel0_Gating", 33, 6, Bits().put(0, 1).put(2, 3).put(1, 1).put(1, 2),
               lines({"FD_ERM", "{", "   USE_TIME = 0", "   CH_IND = 2", "   GATING_RATE_INCL = 1",
                      "   PILOT_GATING_RATE = 1", "}"})});
  v.push_back({"ERM_RelC_DirectToIdle", 33, 9,
               Bits().put(1, 1).put(5, 6).put(1, 3).put(0, 1).put(0, 1).put(1, 1).put(0, 3).put(4139, 15).put(1, 16)
                   .put(1, 1).put(283, 11).put(0, 5).put(1, 3).put(0, 2).put(1, 1).put(2, 3).put(100, 9).put(200, 9),
               lines({"FD_ERM",
                      "{",
                      "   USE_TIME = 1",
                      "   ACTION_TIME = 5",
                      "   CH_IND = 1",
                      "   GATING_RATE_INCL = 0",
                      "   USE_EXT_CH_IND = 0",
                      "   DIRECT_TO_IDLE_INFO_INCL = 1",
                      "   RELEASE_TYPE = 0",
                      "   SID = 4139",
                      "   NID = 1",
                      "   FREQ_INCL = 1",
                      "   CDMA_FREQ = 283",
                      "   BAND_CLASS = 0",
                      "   PAGE_CH = 1",
                      "   PRAT = 0",
                      "   NUM_PILOTS_D2I_INCL = 1",
                      "   NUM_PILOTS_D2I = 2",
                      "   PILOT_PN[0] = 100",
                      "   PILOT_PN[1] = 200",
                      "}"})});
  v.push_back(
      {"CLAM_RelC_Accepted", 39, 9,
       Bits().put(1, 1).put(5, 4).put(1, 1).put(1, 1).put(33, 16).put(1, 1).put(2, 8).put(1, 1).put(1, 3),
       lines({"FD_CLAM", "{", "   RESPONSE_IND = 1", "   TAG = 5", "   ACCEPT_IND = 1", "   SO_INCL = 1", "   SO = 33",
              "   CON_REF_INCL = 1", "   CON_REF = 2", "   USE_OLD_SERV_CONFIG = 1", "   SR_ID = 1", "}"})});
  v.push_back({"CLAM_RelC_RejectedHasNoConfig", 39, 9,
               Bits().put(1, 1).put(3, 4).put(0, 1).put(1, 1).put(0, 1).put(0, 1),
               lines({"FD_CLAM", "{", "   RESPONSE_IND = 1", "   TAG = 3", "   ACCEPT_IND = 0",
                      "   REJECT_PKTDATA_IND = 1", "   SO_INCL = 0", "   CON_REF_INCL = 0", "}"})});
  v.push_back({"CLAM_RelA_Page", 39, 7, Bits().put(0, 1).put(1, 1).put(0, 1).put(0, 1),
               lines({"FD_CLAM", "{", "   RESPONSE_IND = 0", "   BYPASS_ALERT_ANSWER = 1", "   SO_INCL = 0",
                      "   CON_REF_INCL = 0", "}"})});
  v.push_back(
      {"SMCM_RelC", 43, 9,
       Bits().put(0, 1).put(1, 3).put(1, 3).put(1, 8).put(2, 3).put(3, 3).put(1, 1).put(1, 3).put(1, 1).put(0, 1).put(
           1, 1),
       lines({"FD_SMCM", "{", "   USE_TIME = 0", "   D_SIG_ENCRYPT_MODE = 1", "   NUM_RECS = 1",
              "   RECs[0] = FD_SMCM_RECs", "   {", "      CON_REF = 1", "      UI_ENCRYPT_MODE = 2", "   }",
              "   KEY_SIZE = 3", "   C_SIG_ENCRYPT_MODE_INCL = 1", "   C_SIG_ENCRYPT_MODE = 1",
              "   MSG_INT_INFO_INCL = 1", "   CHANGE_KEYS = 0", "   USE_UAK = 1", "}"})});
  // One pilot information record (9 octets) holding one 8-octet pilot record.
  v.push_back({"BSSRSPM_PilotInfo", 49, 9,
               Bits().put(0, 8).put(0, 3).put(1, 4).put(0, 8).put(9, 8).put(1, 4).put(1, 1).put(8, 4).put(12, 9)
                   .put(300, 16).put(1, 1).put(4139, 15).put(1, 16).put(0, 1).put(0, 2).put(0, 3),
               lines({"FD_BSSRSPM",
                      "{",
                      "   QUAL_INFO_TYPE = 0",
                      "   QUAL_INFO_LEN = 0",
                      "   NUM_RECORDS = 1",
                      "   RECORDs[0] = FD_BSSRSPM_RECORDs",
                      "   {",
                      "      RECORD_TYPE = 0",
                      "      RECORD_LENGTH = 9",
                      "      TypeSpecificFields = FD_BSSRSPM_PILOT_INFO",
                      "      {",
                      "         NUM_PILOTS = 1",
                      "         SID_NID_IND = 1",
                      "         PILOTs[0] = FD_BSSRSPM_PILOTs",
                      "         {",
                      "            RECORD_LEN = 8",
                      "            PILOT_PN = 12",
                      "            BASE_ID = 300",
                      "            SID_NID_INCL = 1",
                      "            SID = 4139",
                      "            NID = 1",
                      "            BASE_LAT_LONG_INCL = 0",
                      "         }",
                      "      }",
                      "   }",
                      "}"})});
  v.push_back({"RATCHGM", 51, 9,
               Bits().put(1, 1).put(9, 6).put(1, 1).put(1, 1).put(2, 2).put(0, 1).put(1, 1).put(0, 1).put(1, 1)
                   .put(1, 1).put(20, 8).put(0, 1).put(1, 1).put(3, 2),
               lines({"FD_RATCHGM",
                      "{",
                      "   USE_TIME = 1",
                      "   ACTION_TIME = 9",
                      "   REV_CQICH_RATE_CHANGE_INCL = 1",
                      "   FULL_CI_FEEDBACK_IND = 1",
                      "   REV_CQICH_REPS = 2",
                      "   SWITCHING_PARMS_INCL = 0",
                      "   RL_CQICH_ATT_ADJ_GAIN_INCL = 1",
                      "   NUM_RECS = 0",
                      "   RECs[0] = FD_RATCHGM_RECs",
                      "   {",
                      "      RL_CQICH_ATT_ADJ_GAIN_TYPE = 1",
                      "      RL_CQICH_ATT_ADJ_GAIN_HIGH_INCL = 1",
                      "      RL_CQICH_ATT_ADJ_GAIN_HIGH = 20",
                      "      RL_CQICH_ATT_ADJ_GAIN_LOW_INCL = 0",
                      "   }",
                      "   REV_ACKCH_RATE_CHANGE_INCL = 1",
                      "   REV_ACKCH_REPS = 3",
                      "}"})});
  // Release D: both reverse packet data groups; the message ends after the ARQ rounds of a
  // message whose REV_PDCH_PARMS_INCL is 0.
  v.push_back({"RATCHGM_RelD_RevPdchLimits", 51, 10,
               Bits().put(0, 1).put(0, 6).put(0, 1).put(0, 1).put(1, 1).put(200, 8).put(9, 4).put(0, 1),
               lines({"FD_RATCHGM", "{", "   USE_TIME = 0", "   ACTION_TIME = 0", "   REV_CQICH_RATE_CHANGE_INCL = 0",
                      "   REV_ACKCH_RATE_CHANGE_INCL = 0", "   REV_PDCH_MAX_PARMS_INCL = 1",
                      "   REV_PDCH_MAX_AUTO_TPR = 200", "   REV_PDCH_MAX_SIZE_ALLOWED_ENCODER_PACKET = 9",
                      "   REV_PDCH_PARMS_INCL = 0", "}"})});
  v.push_back({"RATCHGM_RelD_ArqRoundsNormal", 51, 10,
               Bits().put(0, 1).put(0, 6).put(0, 1).put(1, 1).put(1, 2).put(0, 1).put(1, 1).put(2, 2),
               lines({"FD_RATCHGM", "{", "   USE_TIME = 0", "   ACTION_TIME = 0", "   REV_CQICH_RATE_CHANGE_INCL = 0",
                      "   REV_ACKCH_RATE_CHANGE_INCL = 1", "   REV_ACKCH_REPS = 1", "   REV_PDCH_MAX_PARMS_INCL = 0",
                      "   REV_PDCH_PARMS_INCL = 1", "   REV_PDCH_NUM_ARQ_ROUNDS_NORMAL = 2", "}"}),
               Rc::count});
  v.push_back({"ITBSPM_RelD", 52, 10, Bits().put(1, 1).put(0, 1),
               lines({"FD_ITBSPM", "{", "   AUTO_REQ_TRAF_ALLOWED_IND = 1", "   BCMC_ON_IDLE_SUP_IND = 0", "}"}),
               Rc::count});
  // Release D PCNM: no forward or reverse power control groups, then the ARQ rounds.
  v.push_back({"PCNM_RelD_ArqRounds", 25, 10, Bits().put(3, 3).put(0, 1).put(0, 1).put(0, 1).put(1, 1).put(3, 2),
               lines({"FD_PCNM", "{", "   PWR_CNTL_STEP = 3", "   USE_TIME = 0", "   FPC_INCL = 0", "   RPC_INCL = 0",
                      "   REV_PDCH_PARMS_INCL = 1", "   REV_PDCH_NUM_ARQ_ROUNDS_NORMAL = 3", "}"}),
               Rc::count});
  v.push_back({"ENLUM_RelB", 26, 8,
               Bits().put(4, 4).put(3, 2).put(8, 4).put(0, 1).put(2, 6).put(10, 9).put(1, 2).put(5, 4).put(20, 9)
                   .put(2, 2).put(6, 4).put(1, 1).put(0, 1).put(3, 3).put(1, 1).put(0, 3).put(1, 3).put(0xC0, 8)
                   .put(1, 3).put(0, 1),
               lines({"FD_ENLUM",
                      "{",
                      "   PILOT_INC = 4",
                      "   NGHBR_SRCH_MODE = 3",
                      "   SRCH_WIN_N = 8",
                      "   USE_TIMING = 0",
                      "   NUM_NGHBR = 2",
                      "   NGHBRs[0] = FD_ENLUM_NGHBRs",
                      "   {",
                      "      NGHBR_PN = 10",
                      "      SEARCH_PRIORITY = 1",
                      "      SRCH_WIN_NGHBR = 5",
                      "   }",
                      "   NGHBRs[1] = FD_ENLUM_NGHBRs",
                      "   {",
                      "      NGHBR_PN = 20",
                      "      SEARCH_PRIORITY = 2",
                      "      SRCH_WIN_NGHBR = 6",
                      "   }",
                      "   SRCH_OFFSET_INCL = 1",
                      "   ADD_NGHBRs[0] = FD_ENLUM_ADD_NGHBRs",
                      "   {",
                      "      ADD_PILOT_REC_INCL = 0",
                      "      SRCH_OFFSET_NGHBR = 3",
                      "   }",
                      "   ADD_NGHBRs[1] = FD_ENLUM_ADD_NGHBRs",
                      "   {",
                      "      ADD_PILOT_REC_INCL = 1",
                      "      NGHBR_PILOT_REC_TYPE = 0",
                      "      RECORD_LEN = 1",
                      "      TypeSpecificFields = FD_ENLUM_ADD_NGHBRs_TypeSpecificFields",
                      "      {",
                      "         TD_POWER_LEVEL = 3",
                      "         TD_MODE = 0",
                      "      }",
                      "      SRCH_OFFSET_NGHBR = 1",
                      "   }",
                      "   RESQ_ENABLED = 0",
                      "}"})});
  // Per-neighbour timing and an auxiliary pilot whose Walsh code is 6 + WALSH_LENGTH bits.
  v.push_back({"ENLUM_RelA_TimingAndAuxPilot", 26, 7,
               Bits().put(4, 4).put(0, 2).put(8, 4).put(1, 1).put(0, 1).put(1, 6).put(30, 9).put(1, 1).put(5, 7)
                   .put(3, 4).put(9, 7).put(0, 1).put(1, 1).put(1, 3).put(2, 3).put(1, 2).put(1, 3).put(100, 7)
                   .put(0, 4),
               lines({"FD_ENLUM",
                      "{",
                      "   PILOT_INC = 4",
                      "   NGHBR_SRCH_MODE = 0",
                      "   SRCH_WIN_N = 8",
                      "   USE_TIMING = 1",
                      "   GLOBAL_TIMING_INCL = 0",
                      "   NUM_NGHBR = 1",
                      "   NGHBRs[0] = FD_ENLUM_NGHBRs",
                      "   {",
                      "      NGHBR_PN = 30",
                      "      TIMING_INCL = 1",
                      "      NGHBR_TX_OFFSET = 5",
                      "      NGHBR_TX_DURATION = 3",
                      "      NGHBR_TX_PERIOD = 9",
                      "   }",
                      "   SRCH_OFFSET_INCL = 0",
                      "   ADD_NGHBRs[0] = FD_ENLUM_ADD_NGHBRs",
                      "   {",
                      "      ADD_PILOT_REC_INCL = 1",
                      "      NGHBR_PILOT_REC_TYPE = 1",
                      "      RECORD_LEN = 2",
                      "      TypeSpecificFields = FD_ENLUM_ADD_NGHBRs_TypeSpecificFields",
                      "      {",
                      "         QOF = 1",
                      "         WALSH_LENGTH = 1",
                      "         AUX_PILOT_WALSH = 100",
                      "      }",
                      "   }",
                      "}"})});
  // Mode 0 at P_REV 6: 93 bits of mode-specific fields padded to 12 octets.
  v.push_back({"CFSRQM_CdmaPilots", 27, 6,
               Bits().put(0, 1).put(0, 6).put(0, 4).put(1, 2).put(1, 2).put(2, 4).put(0, 4).put(12, 8).put(1, 5)
                   .put(25, 11).put(1, 5).put(2, 5).put(3, 5).put(4, 5).put(28, 6).put(5, 4).put(4, 4).put(8, 4)
                   .put(9, 4).put(0, 5).put(1, 1).put(1, 6).put(3, 2).put(77, 9).put(1, 1).put(2, 2).put(7, 4)
                   .put(1, 1).put(0, 1).put(4, 3).put(0, 3).put(1, 1).put(10, 6),
               lines({"FD_CFSRQM",
                      "{",
                      "   USE_TIME = 0",
                      "   ACTION_TIME = 0",
                      "   CFSRM_SEQ = 1",
                      "   SEARCH_TYPE = 1",
                      "   SEARCH_PERIOD = 2",
                      "   SEARCH_MODE = 0",
                      "   MODE_SPECIFIC_LEN = 12",
                      "   MODE_SPECIFIC_FIELDS = FD_CFSRQM_MODE_SPECIFIC_FIELDS",
                      "   {",
                      "      BAND_CLASS = 1",
                      "      CDMA_FREQ = 25",
                      "      SF_TOTAL_EC_THRESH = 1",
                      "      SF_TOTAL_EC_IO_THRESH = 2",
                      "      DIFF_RX_PWR_THRESH = 3",
                      "      MIN_TOTAL_PILOT_EC_IO = 4",
                      "      CF_T_ADD = 28",
                      "      TF_WAIT_TIME = 5",
                      "      CF_PILOT_INC = 4",
                      "      CF_SRCH_WIN_N = 8",
                      "      CF_SRCH_WIN_R = 9",
                      "      PILOT_UPDATE = 1",
                      "      NUM_PILOTS = 1",
                      "      CF_NGHBR_SRCH_MODE = 3",
                      "      PILOTs[0] = FD_CFSRQM_PILOTs",
                      "      {",
                      "         NGHBR_PN = 77",
                      "         SEARCH_SET = 1",
                      "         SEARCH_PRIORITY = 2",
                      "         SRCH_WIN_NGHBR = 7",
                      "      }",
                      "      CF_SRCH_OFFSET_INCL = 1",
                      "      ADD_PILOTs[0] = FD_CFSRQM_ADD_PILOTs",
                      "      {",
                      "         ADD_PILOT_REC_INCL = 0",
                      "         SRCH_OFFSET_NGHBR = 4",
                      "      }",
                      "   }",
                      "   ALIGN_TIMING = 1",
                      "   SEARCH_OFFSET = 10",
                      "}"})});
  v.push_back({"SCAM_ListedStart", 24, 5,
               Bits().put(0, 1).put(0, 1).put(1, 1).put(3, 2).put(0, 1).put(1, 1).put(50, 8).put(0, 1).put(2, 3)
                   .put(2, 3).put(10, 9).put(1, 1).put(5, 8).put(6, 8).put(20, 9).put(0, 1).put(8, 8),
               lines({"FD_SCAM",
                      "{",
                      "   USE_RETRY_DELAY = 0",
                      "   REV_INCLUDED = 0",
                      "   FOR_INCLUDED = 1",
                      "   FOR_SUP_CONFIG = 3",
                      "   EXPL_FOR_START_TIME = 0",
                      "   USE_FOR_DURATION = 1",
                      "   FOR_DURATION = 50",
                      "   USE_FOR_HDM_SEQ = 0",
                      "   NUM_SUP_PILOTS = 2",
                      "   NUM_SUP = 2",
                      "   PILOTs[0] = FD_SCAM_PILOTs",
                      "   {",
                      "      PILOT_PN = 10",
                      "      EXPL_CODE_CHAN = 1",
                      "      SUP_CODE_CHAN[0] = 5",
                      "      SUP_CODE_CHAN[1] = 6",
                      "   }",
                      "   PILOTs[1] = FD_SCAM_PILOTs",
                      "   {",
                      "      PILOT_PN = 20",
                      "      EXPL_CODE_CHAN = 0",
                      "      BASE_CODE_CHAN = 8",
                      "   }",
                      "}"})});
  v.push_back({"SCAM_ReverseOnly", 24, 5,
               Bits().put(1, 1).put(20, 8).put(1, 1).put(3, 4).put(1, 1).put(10, 6).put(0, 1).put(1, 1).put(2, 2)
                   .put(1, 3).put(1, 1).put(1, 1).put(7, 4).put(0, 1).put(0, 1),
               lines({"FD_SCAM", "{", "   USE_RETRY_DELAY = 1", "   RETRY_DELAY = 20", "   REV_INCLUDED = 1",
                      "   REV_DTX_DURATION = 3", "   EXPL_REV_START_TIME = 1", "   REV_START_TIME = 10",
                      "   USE_REV_DURATION = 0", "   USE_REV_HDM_SEQ = 1", "   REV_LINKED_HDM_SEQ = 2",
                      "   NUM_REV_CODES = 1", "   USE_T_ADD_ABORT = 1", "   USE_SCRM_SEQ_NUM = 1",
                      "   SCRM_SEQ_NUM = 7", "   REV_PARMS_INCLUDED = 0", "   FOR_INCLUDED = 0", "}"})});
  // A high-rate gain record at Release A: two of its six gain groups present (88 bits, 12 octets).
  v.push_back({"PCNM_RelA_HighRateGains", 25, 7,
               Bits().put(0, 3).put(1, 1).put(4, 6).put(0, 1).put(1, 1).put(1, 2).put(2, 4).put(12, 5).put(1, 1)
                   .put(0, 1).put(0, 1).put(1, 1).put(1, 8).put(2, 8).put(3, 8).put(4, 8).put(5, 8).put(6, 8)
                   .put(0, 1).put(0, 1).put(1, 1).put(7, 8).put(8, 8).put(9, 8).put(10, 8).put(0, 1).put(0, 8),
               lines({"FD_PCNM",
                      "{",
                      "   PWR_CNTL_STEP = 0",
                      "   USE_TIME = 1",
                      "   ACTION_TIME = 4",
                      "   FPC_INCL = 0",
                      "   RPC_INCL = 1",
                      "   RPC_NUM_REC = 1",
                      "   RPC_RECs[0] = FD_PCNM_RPC_RECs",
                      "   {",
                      "      RPC_ADJ_REC_TYPE = 2",
                      "      RPC_ADJ_REC_LEN = 12",
                      "      TypeSpecificFields = FD_PCNM_RPC_RECs_TypeSpecificFields",
                      "      {",
                      "         CODE_TYPE = 1",
                      "         RL_ATT_ADJ_GAIN_TYPE = 0",
                      "         RC3_RC5_20MS_INCL = 0",
                      "         RC4_RC6_20MS_INCL = 1",
                      "         RL_ATT_ADJ_GAIN_28800 = 1",
                      "         RL_ATT_ADJ_GAIN_57600 = 2",
                      "         RL_ATT_ADJ_GAIN_115200 = 3",
                      "         RL_ATT_ADJ_GAIN_230400 = 4",
                      "         RL_ATT_ADJ_GAIN_460800 = 5",
                      "         RL_ATT_ADJ_GAIN_1036800 = 6",
                      "         RC3_RC5_40MS_INCL = 0",
                      "         RC4_RC6_40MS_INCL = 0",
                      "         RC3_RC5_80MS_INCL = 1",
                      "         RL_ATT_ADJ_GAIN_19200_80MS = 7",
                      "         RL_ATT_ADJ_GAIN_38400_80MS = 8",
                      "         RL_ATT_ADJ_GAIN_76800_80MS = 9",
                      "         RL_ATT_ADJ_GAIN_153600_80MS = 10",
                      "         RC4_RC6_80MS_INCL = 0",
                      "      }",
                      "   }",
                      "}"})});
  v.push_back({"CFSRQM_AnalogIS95B", 27, 5,
               Bits().put(1, 1).put(3, 6).put(0, 4).put(2, 2).put(1, 2).put(4, 4).put(1, 4).put(6, 8).put(0, 5)
                   .put(3, 5).put(4, 5).put(0, 6).put(2, 3).put(283, 11).put(384, 11).put(0, 2),
               lines({"FD_CFSRQM", "{", "   USE_TIME = 1", "   ACTION_TIME = 3", "   CFSRM_SEQ = 2",
                      "   SEARCH_TYPE = 1", "   SEARCH_PERIOD = 4", "   SEARCH_MODE = 1", "   MODE_SPECIFIC_LEN = 6",
                      "   MODE_SPECIFIC_FIELDS = FD_CFSRQM_MODE_SPECIFIC_FIELDS", "   {", "      BAND_CLASS = 0",
                      "      SF_TOTAL_EC_THRESH = 3", "      SF_TOTAL_EC_IO_THRESH = 4", "      NUM_ANALOG_FREQS = 2",
                      "      ANALOG_FREQ[0] = 283", "      ANALOG_FREQ[1] = 384", "   }", "}"})});
  v.push_back(
      {"SRDM_AnalogIS95B", 23, 4,
       Bits().put(0, 1).put(1, 1).put(1, 1).put(1, 8).put(3, 8).put(4139, 15).put(1, 1).put(5, 3).put(0, 5),
       lines({"FD_SRDM", "{", "   RETURN_IF_FAIL = 0", "   DELETE_TMSI = 1", "   REDIRECT_TYPE = 1",
              "   RECORD_TYPE = 1", "   RECORD_LEN = 3", "   TypeSpecificFields = FD_SRDM_TypeSpecificFields", "   {",
              "      EXPECTED_SID = 4139", "      IGNORE_CDMA = 1", "      SYS_ORDERING = 5", "   }", "}"})});
  v.push_back({"PCNM_IS95", 25, 5, Bits().put(2, 3), lines({"FD_PCNM", "{", "   PWR_CNTL_STEP = 2", "}"})});
  v.push_back({"PCNM_RelC_ChannelGains", 25, 9,
               Bits().put(1, 3).put(0, 1).put(1, 1).put(0, 3).put(0, 1).put(1, 1).put(10, 5).put(20, 8).put(80, 8)
                   .put(0, 1).put(0, 2).put(0, 1).put(0, 1).put(1, 1).put(1, 2).put(0, 4).put(3, 5).put(1, 1)
                   .put(7, 8).put(0, 1).put(0, 1).put(0, 1).put(0, 1).put(1, 1).put(9, 8).put(0, 2),
               lines({"FD_PCNM",
                      "{",
                      "   PWR_CNTL_STEP = 1",
                      "   USE_TIME = 0",
                      "   FPC_INCL = 1",
                      "   FPC_MODE = 0",
                      "   FPC_PRI_CHAN = 0",
                      "   FPC_OLPC_FCH_INCL = 1",
                      "   FPC_FCH_FER = 10",
                      "   FPC_FCH_MIN_SETPT = 20",
                      "   FPC_FCH_MAX_SETPT = 80",
                      "   FPC_OLPC_DCCH_INCL = 0",
                      "   NUM_SUP = 0",
                      "   FPC_THRESH_INCL = 0",
                      "   FPC_THRESH_SCH_INCL = 0",
                      "   RPC_INCL = 1",
                      "   RPC_NUM_REC = 1",
                      "   RPC_RECs[0] = FD_PCNM_RPC_RECs",
                      "   {",
                      "      RPC_ADJ_REC_TYPE = 0",
                      "      RPC_ADJ_REC_LEN = 3",
                      "      TypeSpecificFields = FD_PCNM_RPC_RECs_TypeSpecificFields",
                      "      {",
                      "         FCH_INCL = 1",
                      "         FCH_CHAN_ADJ_GAIN = 7",
                      "         DCCH_INCL = 0",
                      "         SCH0_INCL = 0",
                      "         SCH1_INCL = 0",
                      "         REV_ACKCH_INCL = 0",
                      "         REV_CQICH_INCL = 1",
                      "         REV_CQICH_CHAN_ADJ_GAIN = 9",
                      "      }",
                      "   }",
                      "}"})});
  return v;
}

INSTANTIATE_TEST_SUITE_P(Bodies, FwdMessageGolden, ::testing::ValuesIn(goldens()),
                         [](const ::testing::TestParamInfo<Golden>& i) { return std::string(i.param.name); });

// ITSPM grows with every revision: the IS-95-B block follows P_REV_IN_USE, the later blocks
// the P_REV the message carries.
Bits itspm(std::uint8_t msg_p_rev) {
  Bits b;
  b.put(4139, 15).put(1, 16).put(5, 4).put(6, 4).put(7, 4).put(28, 6).put(32, 6).put(5, 4).put(3, 4).put(2, 4);
  if (msg_p_rev == 0) return b;
  b.put(msg_p_rev, 8).put(0, 6).put(0, 6).put(0, 6).put(9, 8).put(1, 1).put(1, 3).put(2, 3).put(3, 3);
  if (msg_p_rev >= 6) b.put(1, 1).put(255, 8);
  if (msg_p_rev >= 9) {
    b.put(0, 1).put(1, 1)  // ENC_SUPPORTED, CS_SUPPORTED
        .put(1, 1).put(1, 1).put(1, 1).put(5, 3)  // CHM, CDMA_OFF_TIME_REP_*
        .put(0, 1).put(1, 1).put(0, 1)  // T_TDROP_RANGE_INCL, FOR_PDCH_SUPPORTED, PDCH_CHM
        .put(1, 1).put(0, 1).put(1, 1);  // SDB, MOB_QOS, MS_INIT_POS_LOC_SUP_IND
  }
  return b;
}

TEST(FwdMessagesItspm, FieldsAppearAtTheirRevision) {
  const std::string head = lines({"FD_ITSPM", "{", "   SID = 4139", "   NID = 1", "   SRCH_WIN_A = 5",
                                  "   SRCH_WIN_N = 6", "   SRCH_WIN_R = 7", "   T_ADD = 28", "   T_DROP = 32",
                                  "   T_COMP = 5", "   T_TDROP = 3", "   NGHBR_MAX_AGE = 2"});
  const std::string is95b =
      lines({"   SOFT_SLOPE = 0", "   ADD_INTERCEPT = 0", "   DROP_INTERCEPT = 0", "   PACKET_ZONE_ID = 9",
             "   EXTENSION = 1", "   T_MULCHAN = 1", "   BEGIN_PREAMBLE = 2", "   RESUME_PREAMBLE = 3"});
  struct Case {
    std::uint8_t p_rev_in_use, msg_p_rev;
    std::string text;
  };
  const Case cases[] = {
      {3, 0, head + "}\n"},
      // An IS-95-B base station's message stops after the IS-95-B block even in a Release C call.
      {9, 5, head + "   P_REV = 5\n" + is95b + "}\n"},
      {6, 6, head + "   P_REV = 6\n" + is95b + lines({"   T_SLOTTED_INCL = 1", "   T_SLOTTED = 255", "}"})},
      {9, 9,
       head + "   P_REV = 9\n" + is95b +
           lines({"   T_SLOTTED_INCL = 1", "   T_SLOTTED = 255", "   ENC_SUPPORTED = 0", "   CS_SUPPORTED = 1",
                  "   CHM_SUPPORTED = 1", "   CDMA_OFF_TIME_REP_SUP_IND = 1", "   CDMA_OFF_TIME_REP_THRESHOLD_UNIT = 1",
                  "   CDMA_OFF_TIME_REP_THRESHOLD = 5", "   T_TDROP_RANGE_INCL = 0", "   FOR_PDCH_SUPPORTED = 1",
                  "   PDCH_CHM_SUPPORTED = 0", "   SDB_SUPPORTED = 1", "   MOB_QOS = 0",
                  "   MS_INIT_POS_LOC_SUP_IND = 1", "}"})},
  };
  for (const Case& k : cases) {
    const Bits bits = itspm(k.msg_p_rev);
    const BodyResult r = run(7, k.p_rev_in_use, bits);
    EXPECT_EQ(r.rc, Rc::ok) << int(k.msg_p_rev);
    EXPECT_EQ(r.consumed, bits.size()) << int(k.msg_p_rev);
    EXPECT_EQ(r.text, k.text) << int(k.msg_p_rev);
  }
}

// The Release D tail of ITSPM, in the order of its message table: the hysteresis group (off a
// non-zero PACKET_ZONE_ID, with a 4-bit PZ_HYST_LIST_LEN), BCMC, then REV_PDCH_SUPPORTED (off
// FOR_PDCH_SUPPORTED), MAX_ADD_SERV_INSTANCE (off CS_SUPPORTED) and USE_CH_CFG_RRM, which ends
// the message. Each case builds a P_REV 10 message field by field.
TEST(FwdMessagesItspm, ReleaseDTailFollowsTheEarlierFlags) {
  struct Case {
    const char* name;
    std::uint8_t packet_zone, cs, for_pdch, bcmc;
    std::vector<std::string> tail;
  };
  const Case cases[] = {
      {"everything", 9, 1, 1, 1,
       {"PZ_HYST_ENABLED = 1", "PZ_HYST_INFO_INCL = 1", "PZ_HYST_LIST_LEN = 11", "PZ_HYST_ACT_TIMER = 200",
        "PZ_HYST_TIMER_MUL = 5", "PZ_HYST_TIMER_EXP = 17", "BCMC_ON_TRAFFIC_SUP = 1", "AUTO_REQ_TRAF_ALLOWED_IND = 0",
        "REV_PDCH_SUPPORTED = 1", "MAX_ADD_SERV_INSTANCE = 6", "USE_CH_CFG_RRM = 1"}},
      {"no_zone_no_pdch_no_cs_no_bcmc", 0, 0, 0, 0, {"BCMC_ON_TRAFFIC_SUP = 0", "USE_CH_CFG_RRM = 1"}},
  };
  for (const Case& k : cases) {
    Bits b;
    b.put(4139, 15).put(1, 16).put(5, 4).put(6, 4).put(7, 4).put(28, 6).put(32, 6).put(5, 4).put(3, 4).put(2, 4);
    b.put(10, 8).put(0, 18).put(k.packet_zone, 8).put(0, 1);  // P_REV .. PACKET_ZONE_ID, EXTENSION
    b.put(0, 1).put(0, 1).put(k.cs, 1);                       // T_SLOTTED_INCL, ENC_SUPPORTED, CS_SUPPORTED
    b.put(0, 1).put(0, 1).put(0, 1).put(k.for_pdch, 1);       // CHM, CDMA_OFF_TIME_REP_SUP_IND, T_TDROP_RANGE_INCL
    if (k.for_pdch) b.put(0, 1);                              // PDCH_CHM_SUPPORTED
    b.put(0, 1);                                              // SDB_SUPPORTED
    if (k.cs) b.put(0, 1);                                    // MOB_QOS
    b.put(0, 1);                                              // MS_INIT_POS_LOC_SUP_IND
    if (k.packet_zone) b.put(1, 1).put(1, 1).put(11, 4).put(200, 8).put(5, 3).put(17, 5);
    b.put(k.bcmc, 1);
    if (k.bcmc) b.put(0, 1);
    if (k.for_pdch) b.put(1, 1);
    if (k.cs) b.put(6, 3);
    b.put(1, 1);

    const BodyResult r = run(7, 10, b);
    EXPECT_EQ(r.rc, Rc::ok) << k.name;
    EXPECT_EQ(r.consumed, b.size()) << k.name;
    // The tail is the last fields of the text, in this order.
    std::string want;
    for (const std::string& l : k.tail) want += "   " + l + "\n";
    want += "}\n";
    const std::string after = "   MS_INIT_POS_LOC_SUP_IND = 0\n";
    const std::size_t at = r.text.find(after);
    ASSERT_NE(at, std::string::npos) << k.name;
    EXPECT_EQ(r.text.substr(at + after.size()), want) << k.name;
  }
}

// Below the revision that introduced a field, the same body decodes without it: every bit is
// still accounted for and the field's name does not appear.
struct Boundary {
  const char* name;
  std::uint8_t type;
  std::uint8_t p_rev;
  Bits bits;
  const char* absent;
};

// Cases print as their names in test listings.
void PrintTo(const Boundary& c, std::ostream* os) { *os << c.name; }

class FwdMessageBoundary : public ::testing::TestWithParam<Boundary> {};

TEST_P(FwdMessageBoundary, FieldIsAbsentBeforeItsRevision) {
  const Boundary& b = GetParam();
  const BodyResult r = run(b.type, b.p_rev, b.bits);
  EXPECT_EQ(r.rc, Rc::ok);
  EXPECT_EQ(r.consumed, b.bits.size());
  EXPECT_EQ(r.text.find(b.absent), std::string::npos) << r.text;
}

INSTANTIATE_TEST_SUITE_P(
    Bodies, FwdMessageBoundary,
    ::testing::Values(
        Boundary{"BdtmfmRel0", 9, 6, Bits().put(1, 8).put(1, 3).put(1, 3).put(5, 4), "CON_REF_INCL"},
        Boundary{"SrdmIs95A", 23, 3, Bits().put(1, 1).put(1, 1).put(4, 8).put(2, 8).put(9, 15).put(1, 1),
                 "REDIRECT_TYPE"},
        Boundary{"CfscnmIs95B", 28, 5, Bits().put(0, 1).put(0, 6).put(1, 2).put(1, 2), "ALIGN_TIMING"},
        Boundary{"SmcmRelB", 43, 8, Bits().put(0, 1).put(0, 3).put(0, 3).put(0, 1), "MSG_INT_INFO_INCL"},
        Boundary{"ErmRelB", 33, 8, Bits().put(0, 1).put(1, 3).put(0, 1), "USE_EXT_CH_IND"},
        Boundary{"EnlumIs95B", 26, 5, Bits().put(1, 4).put(0, 2).put(8, 4).put(0, 1).put(1, 6).put(30, 9),
                 "SRCH_OFFSET_INCL"},
        Boundary{"EnlumRel0", 26, 6,
                 Bits().put(1, 4).put(0, 2).put(8, 4).put(0, 1).put(1, 6).put(30, 9).put(0, 1).put(0, 1),
                 "RESQ_ENABLED"},
        Boundary{"RatchgmNoChanges", 51, 9, Bits().put(0, 1).put(0, 6).put(0, 1).put(0, 1), "REV_ACKCH_REPS"},
        Boundary{
            "BssrspmRelB", 49,
            8,
            Bits().put(1, 8).put(1, 3).put(3, 5).put(0, 3).put(1, 4).put(0, 8).put(5, 8).put(1, 4).put(0, 1).put(4, 4)
                .put(12, 9).put(300, 16).put(0, 3).put(0, 3),
            "BASE_LAT_LONG_INCL"},
        Boundary{"ItspmMessageRelC", 7, 10, itspm(9), "BCMC_ON_TRAFFIC_SUP"},
        Boundary{"RatchgmRelC", 51, 9, Bits().put(0, 1).put(0, 6).put(0, 1).put(0, 1), "REV_PDCH_MAX_PARMS_INCL"},
        Boundary{"PcnmRelC", 25, 9, Bits().put(3, 3).put(0, 1).put(0, 1).put(0, 1), "REV_PDCH_PARMS_INCL"},
        Boundary{"ClamRelA", 39, 7, Bits().put(1, 1).put(2, 4).put(1, 1).put(0, 1).put(0, 1), "USE_OLD_SERV_CONFIG"}),
    [](const ::testing::TestParamInfo<Boundary>& i) { return std::string(i.param.name); });

// Through the whole forward traffic PDU: the table hands the body to the PDU, which prints it
// one level in as "SDU.<abbreviation>".
TEST(FwdMessagesPdu, DataBurstInsideThePdu) {
  Bits b;
  b.put(4, 8).put(1, 3).put(2, 3).put(1, 1).put(0, 2)  // MSG_TYPE, ACK_SEQ, MSG_SEQ, ACK_REQ, ENCRYPTION
      .put(1, 8).put(3, 6).put(1, 8).put(2, 8).put('O', 8).put('K', 8)
      .put(0, 8);  // the last octet before the CRC is outside the bits counted
  const test::Decoded d = test::decode(4, 6, 0, b.message(16));
  EXPECT_EQ(d.rc, 0);
  EXPECT_EQ(d.text, lines({"FD_PDU", "{", "   MSG_TYPE = 4", "   ACK_SEQ = 1", "   MSG_SEQ = 2", "   ACK_REQ = 1",
                           "   ENCRYPTION = 0", "   SDU.DBM = FD_DBM", "   {", "      MSG_NUMBER = 1",
                           "      BURST_TYPE = 3", "      NUM_MSGS = 1", "      NUM_FIELDS = 2", "      CHARi[0] = 79",
                           "      CHARi[1] = 75", "      L4Message.FwdSMSMessage = Unpack error. ", "   }", "}"}));
}

// MSG_TYPE 52 has a body of its own: the PDU prints it as "SDU.ITBSPM".
TEST(FwdMessagesPdu, InTrafficBcmcServiceParametersInsideThePdu) {
  Bits b;
  b.put(52, 8).put(0, 3).put(1, 3).put(0, 1).put(0, 2).put(0, 1)  // ... ENCRYPTION, MACI_INCL (P_REV 10)
      .put(0, 1).put(1, 1)                                        // AUTO_REQ_TRAF_ALLOWED_IND, BCMC_ON_IDLE_SUP_IND
      .put(0, 8);  // the last octet before the CRC is outside the bits counted
  const test::Decoded d = test::decode(4, 10, 0, b.message(16));
  EXPECT_EQ(d.rc, 1);   // the program list that follows is not decoded
  EXPECT_EQ(d.text, lines({"FD_PDU", "{", "   MSG_TYPE = 52", "   ACK_SEQ = 0", "   MSG_SEQ = 1", "   ACK_REQ = 0",
                           "   ENCRYPTION = 0", "   MACI_INCL = 0", "   SDU.ITBSPM = FD_ITBSPM", "   {",
                           "      AUTO_REQ_TRAF_ALLOWED_IND = 0", "      BCMC_ON_IDLE_SUP_IND = 1", "   }", "}"}));
}

// A body one bit short of its last field reports a short message and keeps what it read.
struct ShortCase {
  const char* name;
  std::uint8_t type;
  std::uint8_t p_rev;
  Bits bits;
  const char* last_kept;  // the last line the record still prints
  const char* lost;       // the line the unread field would print with its encoded value
};

// Cases print as their names in test listings.
void PrintTo(const ShortCase& c, std::ostream* os) { *os << c.name; }

class FwdMessageShort : public ::testing::TestWithParam<ShortCase> {};

TEST_P(FwdMessageShort, StopsWithResult3AndKeepsTheFieldsRead) {
  const ShortCase& s = GetParam();
  const BodyResult full = run(s.type, s.p_rev, s.bits);
  ASSERT_NE(full.rc, Rc::short_msg);
  const BodyResult r = run(s.type, s.p_rev, s.bits, 1);
  EXPECT_EQ(r.rc, Rc::short_msg);
  EXPECT_NE(r.text.find(s.last_kept), std::string::npos) << r.text;
  EXPECT_EQ(r.text.find(s.lost), std::string::npos) << r.text;
}

INSTANTIATE_TEST_SUITE_P(
    Bodies, FwdMessageShort,
    ::testing::Values(
        ShortCase{"DbmLastChar", 4, 6, Bits().put(1, 8).put(3, 6).put(1, 8).put(2, 8).put(65, 8).put(66, 8),
                  "CHARi[0] = 65", "CHARi[1] = 66"},
        ShortCase{"AucmGenCmeakey", 2, 10, Bits().put(5, 24).put(1, 1), "RANDU = 5", "GEN_CMEAKEY = 1"},
        ShortCase{"TasmExpTime", 22, 3, Bits().put(0, 4).put(9, 32).put(1, 24), "TMSI_CODE = 9", "TMSI_EXP_TIME = 1"},
        ShortCase{"SrdmRecordCut", 23, 6,
                  Bits().put(0, 1).put(0, 1).put(0, 1).put(2, 8).put(7, 8).put(1, 5).put(1, 15).put(1, 16).put(0, 4)
                      .put(1, 4).put(25, 11).put(0, 1),
                  "RECORD_LEN = 7", "NUM_CHANS = 1"},
        ShortCase{"PufmFrequency", 29, 4,
                  Bits().put(0, 1).put(0, 6).put(0, 2).put(0, 6).put(0, 7).put(0, 10).put(0, 6).put(0, 5).put(0, 4)
                      .put(0, 4).put(1, 1).put(1, 5).put(9, 11),
                  "PUF_FREQ_INCL = 1", "PUF_BAND_CLASS = 1"},
        ShortCase{"RatchgmArqRounds", 51, 10,
                  Bits().put(0, 1).put(0, 6).put(0, 1).put(0, 1).put(1, 1).put(7, 8).put(3, 4).put(1, 1).put(2, 2),
                  "REV_PDCH_PARMS_INCL = 1", "REV_PDCH_NUM_ARQ_ROUNDS_NORMAL = 2"},
        ShortCase{"ItbspmIdleSupport", 52, 10, Bits().put(1, 1).put(1, 1), "FD_ITBSPM", "AUTO_REQ_TRAF_ALLOWED_IND = 1"}),
    [](const ::testing::TestParamInfo<ShortCase>& i) { return std::string(i.param.name); });

}  // namespace
}  // namespace cs
