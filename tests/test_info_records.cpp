// Information records and the forward traffic messages that carry them: the golden text of
// every record type, the record framing (length skipping, types without a decoder), the
// list capacity of the Alert/Flash With Information messages and malformed input.
#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <utility>
#include <vector>

#include "codec/arena.h"
#include "fwd_traffic/tables.h"
#include "helpers.h"
#include "text/text.h"

namespace cs {
namespace {

using test::Bits;
using test::lines;

constexpr std::uint8_t kAWIM = 3, kFWIM = 14, kEAWIM = 40, kEFWIM = 42;

struct Outcome {
  Rc rc;
  std::uint64_t consumed;
  std::string text;
};

// Decodes `body` (exactly its bits are available) through the message's BodyOps, as the
// forward traffic PDU would, and prints the record at indent 0.
Outcome run(std::uint8_t msg_type, const Bits& body, std::uint8_t p_rev = 7, std::uint8_t encryption = 0) {
  const BodyOps* ops = fd_messages().body(msg_type);
  EXPECT_NE(ops, nullptr);
  Arena arena;
  Ctx c;
  c.p_rev = p_rev;
  c.encryption = encryption;
  const std::vector<std::uint8_t> bytes = body.message(16);   // the CRC octets follow, as on the air
  void* rec = arena.raw(ops->size, alignof(std::max_align_t));
  std::uint64_t consumed = 0;
  const Rc rc = ops->decode(rec, c, arena, bytes.data(), bytes.size(), 0, body.size(), &consumed);
  Text t;
  ops->print(rec, c, ops->header, 0, t);
  return {rc, consumed, t.str()};
}

// FD_FWIM holding one record whose type-specific part prints `fields` (written at 3 spaces,
// re-indented here to their place inside the record).
std::string fwim_one(unsigned type, unsigned len, std::string_view label, std::string_view header,
                     const std::vector<std::string_view>& fields) {
  std::string s = lines({"FD_FWIM", "{", "   INFO_RECs[0] = FWD_USER_INFO_REC", "   {"});
  s += "      RECORD_TYPE = " + std::to_string(type) + "\n";
  s += "      RECORD_LEN = " + std::to_string(len) + "\n";
  s += "      TypeSpecificFields." + std::string(label) + " = " + std::string(header) + "\n";
  s += "      {\n";
  for (auto f : fields) s += "      " + std::string(f) + "\n";
  s += lines({"      }", "   }", "}"});
  return s;
}

TEST(InfoRecords, GoldenTextOfEveryRecordType) {
  struct Case {
    const char* what;
    unsigned type, len;
    const char* label;
    const char* header;
    Bits fields;   // the type-specific part, RECORD_LEN octets
    std::vector<std::string_view> want;
  };
  const Case cases[] = {
      {"display", 1, 3, "DISP", "DISPLAY", Bits().put('a', 8).put('b', 8).put('c', 8),
       {"   CHARi[0] = 97", "   CHARi[1] = 98", "   CHARi[2] = 99"}},
      {"called party number: 7 bits, digits, 1 reserved bit", 2, 3, "CDPN", "CALLED_PARTY_NUMBER",
       Bits().put(2, 3).put(1, 4).put('5', 8).put('1', 8).put(1, 1),
       {"   NUMBER_TYPE = 2", "   NUMBER_PLAN = 1", "   CHARi[0] = 53", "   CHARi[1] = 49"}},
      {"calling party number: 11 bits, digits, 5 reserved bits", 3, 3, "CGPN", "CALLING_PARTY_NUMBER",
       Bits().put(1, 3).put(9, 4).put(1, 2).put(3, 2).put('7', 8).put(0x1F, 5),
       {"   NUMBER_TYPE = 1", "   NUMBER_PLAN = 9", "   PRESENTATION_INDICATOR = 1", "   SI = 3", "   CHARi[0] = 55"}},
      {"connected number shares the calling number layout", 4, 2, "CN", "CONNECTED_NUMBER",
       Bits().put(6, 3).put(4, 4).put(2, 2).put(0, 2).put(0, 5),
       {"   NUMBER_TYPE = 6", "   NUMBER_PLAN = 4", "   PRESENTATION_INDICATOR = 2", "   SI = 0"}},
      {"signal", 5, 2, "SGNL", "SIGNAL", Bits().put(1, 2).put(2, 2).put(63, 6).put(0, 6),
       {"   SIGNAL_TYPE = 1", "   ALERT_PITCH = 2", "   SIGNAL = 63"}},
      {"message waiting", 6, 1, "MW", "MSG_WAITING", Bits().put(200, 8), {"   MSG_COUNT = 200"}},
      {"called party subaddress skips 3 reserved bits", 8, 2, "CDPS", "CALLED_PARTY_SUBADDRESS",
       Bits().put(1, 1).put(2, 3).put(1, 1).put(7, 3).put(0x50, 8),
       {"   EXTENSION_BIT = 1", "   SUBADDRESS_TYPE = 2", "   ODD_EVEN_INDICATOR = 1", "   CHARi[0] = 80"}},
      {"calling party subaddress", 9, 1, "CGPS", "CALLING_PARTY_SUBADDRESS", Bits().put(1, 1).put(0, 3).put(0, 4),
       {"   EXTENSION_BIT = 1", "   SUBADDRESS_TYPE = 0", "   ODD_EVEN_INDICATOR = 0"}},
      {"connected subaddress", 10, 2, "CS", "CONNECTED_SUBADDRESS", Bits().put(0, 1).put(2, 3).put(0, 4).put(9, 8),
       {"   EXTENSION_BIT = 0", "   SUBADDRESS_TYPE = 2", "   ODD_EVEN_INDICATOR = 0", "   CHARi[0] = 9"}},
      {"redirecting number with both extension octets", 11, 4, "RN", "REDIRECTING_NUMBER",
       Bits().put(0, 1).put(1, 3).put(1, 4).put(0, 1).put(1, 2).put(0, 3).put(2, 2).put(1, 1).put(0, 3).put(9, 4).put(
           '4', 8),
       {"   EXTENSION_BIT_1 = 0", "   NUMBER_TYPE = 1", "   NUMBER_PLAN = 1", "   EXTENSION_BIT_2 = 0",
        "   PRESENTATION_INDICATOR = 1", "   SI = 2", "   EXTENSION_BIT_3 = 1", "   REDIRECTION_REASON = 9",
        "   CHARi[0] = 52"}},
      {"redirecting number with presentation but no reason", 11, 3, "RN", "REDIRECTING_NUMBER",
       Bits().put(0, 1).put(2, 3).put(9, 4).put(1, 1).put(3, 2).put(0, 3).put(1, 2).put('8', 8),
       {"   EXTENSION_BIT_1 = 0", "   NUMBER_TYPE = 2", "   NUMBER_PLAN = 9", "   EXTENSION_BIT_2 = 1",
        "   PRESENTATION_INDICATOR = 3", "   SI = 1", "   CHARi[0] = 56"}},
      {"redirecting number without extension octets", 11, 2, "RN", "REDIRECTING_NUMBER",
       Bits().put(1, 1).put(2, 3).put(9, 4).put('8', 8),
       {"   EXTENSION_BIT_1 = 1", "   NUMBER_TYPE = 2", "   NUMBER_PLAN = 9", "   CHARi[0] = 56"}},
      {"redirecting subaddress", 12, 1, "RS", "REDIRECTING_SUBADDRESS", Bits().put(1, 1).put(2, 3).put(1, 1).put(0, 3),
       {"   EXTENSION_BIT = 1", "   SUBADDRESS_TYPE = 2", "   ODD_EVEN_INDICATOR = 1"}},
      {"meter pulses", 13, 4, "MP", "METER_PULSES", Bits().put(1234, 11).put(10, 8).put(20, 8).put(15, 4).put(1, 1),
       {"   PULSE_FREQUENCY = 1234", "   PULSE_ON_TIME = 10", "   PULSE_OFF_TIME = 20", "   PULSE_COUNT = 15"}},
      {"line control with polarity", 15, 2, "LC", "LINE_CONTROL", Bits().put(1, 1).put(1, 1).put(0, 1).put(77, 8).put(0, 5),
       {"   POLARITY_INCLUDED = 1", "   TOGGLE_MODE = 1", "   REVERSE_POLARITY = 0", "   POWER_DENIAL_TIME = 77"}},
      {"line control without polarity", 15, 2, "LC", "LINE_CONTROL", Bits().put(0, 1).put(33, 8).put(0, 7),
       {"   POLARITY_INCLUDED = 0", "   POWER_DENIAL_TIME = 33"}},
      {"extended display: records to the end, blank tag without characters", 16, 7, "ED", "EXT_DISPLAY",
       Bits().put(1, 1).put(0, 7).put(0x8F, 8).put(2, 8).put('h', 8).put('i', 8).put(0x81, 8).put(0, 8),
       {"   EXT_DISPLAY_IND = 1", "   DISPLAY_TYPE = 0", "   EXT_DISPLAY_RECs[0] = EXT_DISPLAY_EXT_DISPLAY_RECs", "   {",
        "      DISPLAY_TAG = 143", "      DISPLAY_LEN = 2", "      CHARi[0] = 104", "      CHARi[1] = 105", "   }",
        "   EXT_DISPLAY_RECs[1] = EXT_DISPLAY_EXT_DISPLAY_RECs", "   {", "      DISPLAY_TAG = 129",
        "      DISPLAY_LEN = 0", "   }"}},
      {"multiple-character display: 16-bit Unicode and 7-bit ASCII characters", 20, 11, "MCED",
       "MULTI_CHARACTER_EXT_DISPLAY",
       Bits().put(1, 1).put(0, 7).put(0x8F, 8).put(2, 8).put(4, 8).put(1, 8).put(0x4E2D, 16).put(2, 8).put(2, 8).put(
           'A', 7).put('B', 7).put(0, 2),
       {"   MC_EXT_DISPLAY_IND = 1", "   DISPLAY_TYPE = 0",
        "   MC_EXT_DISPLAY_RECs[0] = MULTI_CHARACTER_EXT_DISPLAY_MC_EXT_DISPLAY_RECs", "   {", "      DISPLAY_TAG = 143",
        "      NUM_RECORD = 2", "      DISPLAYs[0] = MULTI_CHARACTER_EXT_DISPLAY_MC_EXT_DISPLAY_RECs_DISPLAYs",
        "      {", "         DISPLAY_ENCODING = 4", "         NUM_FIELDS = 1", "         CHARi[0] = 20013", "      }",
        "      DISPLAYs[1] = MULTI_CHARACTER_EXT_DISPLAY_MC_EXT_DISPLAY_RECs_DISPLAYs", "      {",
        "         DISPLAY_ENCODING = 2", "         NUM_FIELDS = 2", "         CHARi[0] = 65", "         CHARi[1] = 66",
        "      }", "   }"}},
      {"call waiting indicator", 21, 1, "CWI", "CALL_WAITING_INDICATOR", Bits().put(1, 1).put(0, 7),
       {"   CALL_WAITING_INDICATOR = 1"}},
      {"enhanced multiple-character display: padded display record", 22, 9, "EMCED",
       "ENHANCED_MULTI_CHARACTER_EXT_DISPLAY",
       Bits().put(0, 7).put(0, 8).put(0x8F, 8).put(1, 8).put(5, 8).put(2, 8).put(2, 8).put('H', 7).put('I', 7).put(3, 2).put(
           0, 1),
       {"   DISPLAY_TYPE = 0", "   NUM_DISPLAYS = 0",
        "   DISPLAY_RECORDs[0] = ENHANCED_MULTI_CHARACTER_EXT_DISPLAY_DISPLAY_RECORDs", "   {",
        "      DISPLAY_TAG = 143", "      NUM_RECORD = 1",
        "      DISPLAYs[0] = ENHANCED_MULTI_CHARACTER_EXT_DISPLAY_DISPLAY_RECORDs_DISPLAYs", "      {",
        "         RECORD_LENGTH = 5", "         DISPLAY_ENCODING = 2", "         NUM_FIELDS = 2", "         CHARi[0] = 72",
        "         CHARi[1] = 73", "      }", "   }"}},
  };
  for (const Case& k : cases) {
    SCOPED_TRACE(k.what);
    ASSERT_EQ(k.fields.size(), 8u * k.len) << "test encoding must fill RECORD_LEN";
    Bits body;
    body.put(k.type, 8).put(k.len, 8);
    for (auto o : k.fields.message(0)) body.put(o, 8);
    const Outcome r = run(kFWIM, body);
    EXPECT_EQ(r.rc, Rc::ok);
    EXPECT_EQ(r.consumed, body.size());
    EXPECT_EQ(r.text, fwim_one(k.type, k.len, k.label, k.header, k.want));
  }
}

// Parametric alerting: one group of 56 bits, CADENCE_TYPE after the groups from P_REV 7 on.
TEST(InfoRecords, CadenceTypeOnlyFromPrev7) {
  Bits body;
  body.put(14, 8).put(9, 8);
  body.put(3, 8).put(1, 4);
  body.put(100, 8).put(1000, 10).put(513, 10).put(5, 8).put(6, 8).put(7, 4).put(8, 8);
  body.put(2, 2).put(0, 2);
  const std::initializer_list<std::string_view> group = {
      "   ALERT_RECs[0] = PARAMETRIC_ALERTING_ALERT_RECs", "   {",           "      AMPLITUDE = 100",
      "      FREQ_1 = 1000",                              "      FREQ_2 = 513", "      ON_TIME = 5",
      "      OFF_TIME = 6",                               "      REPEAT = 7", "      DELAY = 8",
      "   }"};
  for (std::uint8_t p_rev : {1, 6, 7, 11}) {
    SCOPED_TRACE(int{p_rev});
    std::vector<std::string_view> want = {"   CADENCE_COUNT = 3", "   NUM_GROUPS = 1"};
    want.insert(want.end(), group.begin(), group.end());
    if (p_rev >= 7) want.push_back("   CADENCE_TYPE = 2");
    std::string expected = lines({"FD_FWIM", "{", "   INFO_RECs[0] = FWD_USER_INFO_REC", "   {", "      RECORD_TYPE = 14",
                                  "      RECORD_LEN = 9", "      TypeSpecificFields.PA = PARAMETRIC_ALERTING",
                                  "      {"});
    for (auto l : want) expected += "      " + std::string(l) + "\n";
    expected += lines({"      }", "   }", "}"});
    const Outcome r = run(kFWIM, body, p_rev);
    EXPECT_EQ(r.rc, Rc::ok);
    EXPECT_EQ(r.consumed, 88u);   // RECORD_LEN decides, whatever the revision reads
    EXPECT_EQ(r.text, expected);
  }
}

TEST(InfoRecords, FramingSkipsByRecordLenButNotForTypesWithoutDecoder) {
  // Type 7 (no decoder here), RECORD_LEN 2: its body octets 01 00 are the next record,
  // a display of length 0 that prints no characters.
  {
    Bits body;
    body.put(7, 8).put(2, 8).put(1, 8).put(0, 8);
    const Outcome r = run(kAWIM, body);
    EXPECT_EQ(r.rc, Rc::ok);
    EXPECT_EQ(r.consumed, 32u);
    EXPECT_EQ(r.text, lines({"FD_AWIM", "{", "   INFO_RECs[0] = FWD_USER_INFO_REC", "   {", "      RECORD_TYPE = 7",
                             "      RECORD_LEN = 2", "   }", "   INFO_RECs[1] = FWD_USER_INFO_REC", "   {",
                             "      RECORD_TYPE = 1", "      RECORD_LEN = 0", "      TypeSpecificFields.DISP = DISPLAY",
                             "      {", "      }", "   }", "}"}));
  }
  // A message waiting record declared 3 octets long: the decoder reads one, the walk moves
  // on by three, and the call waiting record behind it is read from the right place.
  {
    Bits body;
    body.put(6, 8).put(3, 8).put(5, 8).put(0xFFFF, 16);
    body.put(21, 8).put(1, 8).put(1, 1).put(0, 7);
    const Outcome r = run(kFWIM, body);
    EXPECT_EQ(r.rc, Rc::ok);
    EXPECT_EQ(r.consumed, 64u);
    EXPECT_EQ(r.text, lines({"FD_FWIM", "{", "   INFO_RECs[0] = FWD_USER_INFO_REC", "   {", "      RECORD_TYPE = 6",
                             "      RECORD_LEN = 3", "      TypeSpecificFields.MW = MSG_WAITING", "      {",
                             "         MSG_COUNT = 5", "      }", "   }", "   INFO_RECs[1] = FWD_USER_INFO_REC", "   {",
                             "      RECORD_TYPE = 21", "      RECORD_LEN = 1",
                             "      TypeSpecificFields.CWI = CALL_WAITING_INDICATOR", "      {",
                             "         CALL_WAITING_INDICATOR = 1", "      }", "   }", "}"}));
  }
}

// The list capacity is (bits / 24) kept in 8 bits, plus one, kept in 8 bits.
TEST(InfoRecords, ListCapacityWrapsAtQuotient255) {
  struct Case {
    unsigned mw_records;   // 24-bit message waiting records
    unsigned extra_bits;
    unsigned records_read;
  };
  const Case cases[] = {
      {0, 7, 0},       // fewer than 8 bits: empty list, nothing consumed
      {1, 0, 1},       //
      {254, 0, 254},   // 6096 bits: capacity 255
      {255, 0, 0},     // 6120 bits: quotient 255, capacity wraps to 0
      {255, 23, 0},    // 6143 bits: still 255
      {256, 0, 1},     // 6144 bits: quotient 256 keeps 0 in 8 bits, capacity 1
  };
  for (const Case& k : cases) {
    SCOPED_TRACE(k.mw_records * 24 + k.extra_bits);
    Bits body;
    for (unsigned i = 0; i < k.mw_records; ++i) body.put(6, 8).put(1, 8).put(i & 0xFF, 8);
    body.put(0, k.extra_bits);
    for (std::uint8_t type : {kAWIM, kFWIM}) {
      const Outcome r = run(type, body);
      EXPECT_EQ(r.rc, Rc::ok);
      EXPECT_EQ(r.consumed, 24u * k.records_read);
      std::size_t n = 0;
      for (std::size_t at = r.text.find("INFO_RECs["); at != std::string::npos; at = r.text.find("INFO_RECs[", at + 1)) ++n;
      EXPECT_EQ(n, k.records_read);
    }
  }
}

TEST(InfoRecords, ExtendedMessagesShareOneLayoutUnderTwoHeaders) {
  Bits body;
  body.put(1, 1).put(5, 8).put(2, 4);
  body.put(6, 8).put(1, 8).put(3, 8);
  body.put(21, 8).put(1, 8).put(0, 8);
  const std::string rest = lines(
      {"   CON_REF_INCL = 1", "   CON_REF = 5", "   NUM_REC = 2", "   INFO_RECs[0] = FWD_USER_INFO_REC", "   {",
       "      RECORD_TYPE = 6", "      RECORD_LEN = 1", "      TypeSpecificFields.MW = MSG_WAITING", "      {",
       "         MSG_COUNT = 3", "      }", "   }", "   INFO_RECs[1] = FWD_USER_INFO_REC", "   {", "      RECORD_TYPE = 21",
       "      RECORD_LEN = 1", "      TypeSpecificFields.CWI = CALL_WAITING_INDICATOR", "      {",
       "         CALL_WAITING_INDICATOR = 0", "      }", "   }", "}"});
  for (auto [type, header] : {std::pair{kEAWIM, "FD_EAWIM"}, std::pair{kEFWIM, "FD_EFWIM"}}) {
    const Outcome r = run(type, body);
    EXPECT_EQ(r.rc, Rc::ok);
    EXPECT_EQ(r.consumed, body.size());
    EXPECT_EQ(r.text, std::string(header) + "\n{\n" + rest);
  }
  // Without the connection reference the count follows the flag at once.
  Bits bare;
  bare.put(0, 1).put(0, 4);
  const Outcome r = run(kEFWIM, bare);
  EXPECT_EQ(r.rc, Rc::ok);
  EXPECT_EQ(r.consumed, 5u);
  EXPECT_EQ(r.text, lines({"FD_EFWIM", "{", "   CON_REF_INCL = 0", "   NUM_REC = 0", "}"}));
}

TEST(InfoRecords, ShortInputGivesResult3AndPrintsWhatWasRead) {
  struct Case {
    const char* what;
    std::uint8_t msg_type;
    Bits body;
  };
  const Case cases[] = {
      {"record header cut after RECORD_TYPE", kFWIM, Bits().put(6, 8).put(1, 4)},
      {"number record whose RECORD_LEN leaves no room for its fixed fields", kAWIM, Bits().put(2, 8).put(0, 8)},
      {"parametric alerting group cut by RECORD_LEN", kFWIM,
       Bits().put(14, 8).put(3, 8).put(0, 8).put(1, 4).put(0, 12)},
      {"extended message with fewer records than NUM_REC", kEAWIM,
       Bits().put(0, 1).put(2, 4).put(6, 8).put(1, 8).put(9, 8)},
      {"extended message cut in CON_REF", kEFWIM, Bits().put(1, 1).put(0, 5)},
  };
  for (const Case& k : cases) {
    SCOPED_TRACE(k.what);
    const Outcome r = run(k.msg_type, k.body);
    EXPECT_EQ(r.rc, Rc::short_msg);
  }
  // The record read before the failure is still printed.
  const Outcome r = run(kEAWIM, cases[3].body);
  EXPECT_NE(r.text.find("MSG_COUNT = 9"), std::string::npos);
}

// The whole forward traffic message: the PDU hands the body its bits and its ENCRYPTION.
TEST(InfoRecords, FlashWithInformationThroughTheTrafficChannel) {
  Bits m;
  m.put(14, 8).put(1, 3).put(2, 3).put(1, 1).put(0, 2);   // MSG_TYPE, ACK_SEQ, MSG_SEQ, ACK_REQ, ENCRYPTION
  m.put(1, 8).put(2, 8).put('H', 8).put('i', 8);          // one display record
  m.put(0, 7).put(0, 8);                                   // octet padding, then one spare octet
  const auto r = test::decode(4, 6, 0, m.message(16));
  EXPECT_EQ(r.rc, 0);
  EXPECT_EQ(r.text, lines({"FD_PDU", "{", "   MSG_TYPE = 14", "   ACK_SEQ = 1", "   MSG_SEQ = 2", "   ACK_REQ = 1",
                           "   ENCRYPTION = 0", "   SDU.FWIM = FD_FWIM", "   {", "      INFO_RECs[0] = FWD_USER_INFO_REC",
                           "      {", "         RECORD_TYPE = 1", "         RECORD_LEN = 2",
                           "         TypeSpecificFields.DISP = DISPLAY", "         {", "            CHARi[0] = 72",
                           "            CHARi[1] = 105", "         }", "      }", "   }", "}"}));
}

}  // namespace
}  // namespace cs
