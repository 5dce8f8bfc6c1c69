// Neighbour lists, channel lists, redirection and user-zone messages of the paging channel,
// decoded through their bodies: real captures with hand-checked values, golden texts built
// field by field, revision boundaries and truncated messages.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
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
  std::uint64_t consumed;
};

// Decodes `nbits` bits of a body starting at `start` into a zeroed record, then prints it.
Body run(std::uint8_t msg_id, std::uint8_t p_rev, std::uint8_t band, const std::vector<std::uint8_t>& buf,
         std::uint64_t start, std::uint64_t nbits, unsigned indent = 0) {
  const BodyOps* ops = paging_messages().body(msg_id);
  EXPECT_NE(ops, nullptr);
  if (ops == nullptr) return {Rc::count, "", 0};
  Arena arena;
  std::vector<std::max_align_t> storage(ops->size / sizeof(std::max_align_t) + 1);
  std::memset(storage.data(), 0, storage.size() * sizeof(std::max_align_t));
  Ctx c;
  c.p_rev = p_rev;
  c.band_class = band;
  std::uint64_t used = 0;
  const Rc rc = ops->decode(storage.data(), c, arena, buf.data(), buf.size(), start, nbits, &used);
  Text t;
  ops->print(storage.data(), c, ops->header, indent, t);
  return {rc, t.str(), used};
}

// A body built with Bits: all its bits are available, followed by a zero CRC in the buffer.
Body run(std::uint8_t msg_id, std::uint8_t p_rev, std::uint8_t band, const Bits& b) {
  return run(msg_id, p_rev, band, b.message(30), 0, b.size());
}

// A captured paging message: type octet, body and padding, 30-bit CRC.
Body run_capture(std::uint8_t msg_id, const char* hex) {
  auto buf = test::from_hex(hex);
  return run(msg_id, 6, 1, buf, 8, buf.size() * 8 - 8 - 30);
}

std::vector<int> values_of(const std::string& text, const std::string& name) {
  std::vector<int> out;
  const std::string key = " " + name + " = ";
  for (std::size_t p = text.find(key); p != std::string::npos; p = text.find(key, p + 1))
    out.push_back(std::stoi(text.substr(p + key.size())));
  return out;
}

// ---- real captures (Sprint, band class 1, P_REV 6) -------------------------------------------

TEST(OverheadLists, CapturedChannelListsGiveChannels25_75_200) {
  for (auto [id, hex] : {std::pair<int, const char*>{4, "04271a064258c8072665e1"},
                         std::pair<int, const char*>{27, "1b271a6064258c800dcb6bec"}}) {
    SCOPED_TRACE(id);
    Body b = run_capture(static_cast<std::uint8_t>(id), hex);
    EXPECT_EQ(b.rc, Rc::ok);
    EXPECT_EQ(values_of(b.text, "PILOT_PN"), std::vector<int>{78});
    EXPECT_EQ(values_of(b.text, "CONFIG_MSG_SEQ"), std::vector<int>{13});
    EXPECT_NE(b.text.find("   CDMA_FREQ[0] = 25\n   CDMA_FREQ[1] = 75\n   CDMA_FREQ[2] = 200\n"), std::string::npos)
        << b.text;
  }
  Body e = run_capture(27, "1b271a6064258c800dcb6bec");
  EXPECT_EQ(e.text, lines({"FC_ECCLM", "{", "   PILOT_PN = 78", "   CONFIG_MSG_SEQ = 13", "   NUM_FREQ = 3",
                           "   CDMA_FREQ[0] = 25", "   CDMA_FREQ[1] = 75", "   CDMA_FREQ[2] = 200",
                           "   RC_QPCH_SEL_INCL = 0", "   TD_SEL_INCL = 0", "}"}));
  EXPECT_EQ(e.consumed, 54u);
  // The channel list ends in 2 padding bits: exactly three channels, nothing more attempted.
  EXPECT_EQ(run_capture(4, "04271a064258c8072665e1").consumed, 48u);
}

TEST(OverheadLists, CapturedExtendedNeighborListHas23Neighbors) {
  Body b = run_capture(14,
                       "0e271a63f187ef0ff65e3cb319723210e4a28289139e225c48d8b07054227521a44a1695b927b24ff49269"
                       "3490e70002c1e481");
  EXPECT_EQ(b.rc, Rc::ok);
  EXPECT_EQ(values_of(b.text, "PILOT_INC"), std::vector<int>{3});
  EXPECT_EQ(values_of(b.text, "NGHBR_PN"),
            (std::vector<int>{504, 507, 510, 483, 408, 456, 33, 162, 324, 231, 75, 141, 387, 336, 234, 420, 267, 366,
                              246, 255, 147, 210, 462}));
  EXPECT_EQ(values_of(b.text, "FREQ_INCL"), std::vector<int>(23, 0));
  EXPECT_NE(b.text.find("   NGHBRs[22] = FC_ENLM_NGHBRs\n   {\n      NGHBR_CONFIG = "), std::string::npos);
  EXPECT_EQ(b.consumed, 19u + 23u * 15u);
}

TEST(OverheadLists, ExtendedChannelListBandsFromPRev11) {
  Bits head;
  head.put(1, 9).put(2, 6).put(1, 4).put(283, 11);   // one channel
  head.put(1, 1).put(1, 1);                           // RC_QPCH_SEL_INCL, RC_QPCH_HASH_IND[0]
  head.put(1, 1).put(1, 2).put(1, 1).put(2, 2);       // TD_SEL_INCL, TD_MODE, TD_SELs[0]
  Bits full = head;
  full.put(1, 5).put(1, 1).put(1, 5).put(1, 1).put(0, 1);   // CDMA_BAND, two subclass bits
  full.put(1, 1).put(5, 3);                                 // one weight
  full.put(1, 3);                                           // NUM_BAND
  full.put(6, 5).put(0, 1).put(3, 2).put(1, 1).put(1, 4);   // band 6, ADD_TD_MODE, bypass, one channel
  full.put(50, 11).put(0, 1).put(1, 1).put(1, 2).put(4, 3);
  const std::string head_text =
      lines({"FC_ECCLM", "{", "   PILOT_PN = 1", "   CONFIG_MSG_SEQ = 2", "   NUM_FREQ = 1", "   CDMA_FREQ[0] = 283",
             "   RC_QPCH_SEL_INCL = 1", "   RC_QPCH_HASH_IND[0] = 1", "   TD_SEL_INCL = 1", "   TD_MODE = 1",
             "   TD_SELs[0] = FC_ECCLM_TD_SELs", "   {", "      TD_HASH_IND = 1", "      TD_POWER_LEVEL = 2", "   }"});
  for (unsigned p_rev : {6u, 10u}) {
    Body b = run(27, static_cast<std::uint8_t>(p_rev), 1, head);
    EXPECT_EQ(b.rc, Rc::ok);
    EXPECT_EQ(b.text, head_text + "}\n");
  }
  Body b = run(27, 11, 1, full);
  EXPECT_EQ(b.rc, Rc::ok);
  EXPECT_EQ(b.consumed, full.size());
  EXPECT_EQ(b.text,
            head_text + lines({"   CDMA_BAND = 1", "   SUBCLASS_INFO_INCL = 1", "   SUBCLASS_REC_LEN = 1",
                               "   CDMA_SUBCLASS[0] = 1", "   CDMA_SUBCLASS[1] = 0", "   CDMA_FREQ_WEIGHT_INCL = 1",
                               "   CDMA_FREQ_WEIGHT[0] = 5", "   NUM_BAND = 1", "   ADD_BANDs[0] = FC_ECCLM_ADD_BANDs",
                               "   {", "      ADD_CDMA_BAND = 6", "      ADD_SUBCLASS_INFO_INCL = 0",
                               "      ADD_TD_MODE = 3", "      BYPASS_SYS_DET_IND = 1", "      NUM_ADD_FREQ = 1",
                               "      ADD_FREQs[0] = FC_ECCLM_ADD_BANDs_ADD_FREQs", "      {",
                               "         ADD_CDMA_FREQ = 50", "         ADD_RC_QPCH_HASH_IND = 0",
                               "         ADD_TD_HASH_IND = 1", "         ADD_TD_POWER_LEVEL = 1",
                               "         ADD_CDMA_FREQ_WEIGHT = 4", "      }", "   }", "}"}));
  // At P_REV 11 the band fields are required.
  EXPECT_EQ(run(27, 11, 1, head).rc, Rc::short_msg);
}

// ---- neighbour lists --------------------------------------------------------------------------

TEST(OverheadLists, NeighborListGolden) {
  Bits m;
  m.put(300, 9).put(5, 6).put(4, 4);
  m.put(1, 3).put(12, 9).put(0, 3).put(508, 9);
  Body b = run(3, 3, 0, m);
  EXPECT_EQ(b.rc, Rc::ok);
  EXPECT_EQ(b.text, lines({"FC_NLM", "{", "   PILOT_PN = 300", "   CONFIG_MSG_SEQ = 5", "   PILOT_INC = 4",
                           "   NGHBRs[0] = FC_NLM_NGHBRs", "   {", "      NGHBR_CONFIG = 1", "      NGHBR_PN = 12",
                           "   }", "   NGHBRs[1] = FC_NLM_NGHBRs", "   {", "      NGHBR_CONFIG = 0",
                           "      NGHBR_PN = 508", "   }", "}"}));
}

TEST(OverheadLists, ExtendedNeighborFrequencyFieldsFollowFreqIncl) {
  Bits m;
  m.put(1, 9).put(2, 6).put(3, 4);
  m.put(0, 3).put(9, 9).put(2, 2).put(1, 1).put(1, 5).put(600, 11);   // with a frequency
  m.put(2, 3).put(7, 9).put(3, 2).put(0, 1);                           // without
  Body b = run(14, 6, 1, m);
  EXPECT_EQ(b.rc, Rc::ok);
  EXPECT_EQ(b.text, lines({"FC_ENLM", "{", "   PILOT_PN = 1", "   CONFIG_MSG_SEQ = 2", "   PILOT_INC = 3",
                           "   NGHBRs[0] = FC_ENLM_NGHBRs", "   {", "      NGHBR_CONFIG = 0", "      NGHBR_PN = 9",
                           "      SEARCH_PRIORITY = 2", "      FREQ_INCL = 1", "      NGHBR_BAND = 1",
                           "      NGHBR_FREQ = 600", "   }", "   NGHBRs[1] = FC_ENLM_NGHBRs", "   {",
                           "      NGHBR_CONFIG = 2", "      NGHBR_PN = 7", "      SEARCH_PRIORITY = 3",
                           "      FREQ_INCL = 0", "   }", "}"}));
}

// ---- general neighbour list: what each revision adds --------------------------------------

// NGHBR_SRCH_MODE 3 (priority and window), PN included, frequencies and timing with per-neighbour
// duration and period; one neighbour, no analog neighbours.
Bits gnlm_base() {
  Bits m;
  m.put(77, 9).put(3, 6).put(2, 4).put(3, 2).put(1, 1).put(1, 1).put(1, 1).put(0, 1);
  m.put(1, 6);                                                // NUM_NGHBR
  m.put(1, 3).put(100, 9).put(2, 2).put(5, 4);                // config, PN, priority, window
  m.put(1, 1).put(4, 5).put(350, 11);                         // FREQ_INCL, band, freq
  m.put(1, 1).put(9, 7).put(3, 4).put(20, 7);                 // TIMING_INCL, offset, duration, period
  m.put(0, 3);                                                // NUM_ANALOG_NGHBR
  return m;
}

const std::initializer_list<std::string_view> kGnlmBase{
    "FC_GNLM", "{", "   PILOT_PN = 77", "   CONFIG_MSG_SEQ = 3", "   PILOT_INC = 2", "   NGHBR_SRCH_MODE = 3",
    "   NGHBR_CONFIG_PN_INCL = 1", "   FREQ_FIELDS_INCL = 1", "   USE_TIMING = 1", "   GLOBAL_TIMING_INCL = 0",
    "   NUM_NGHBR = 1", "   NGHBRs[0] = FC_GNLM_NGHBRs", "   {", "      NGHBR_CONFIG = 1", "      NGHBR_PN = 100",
    "      SEARCH_PRIORITY = 2", "      SRCH_WIN_NGHBR = 5", "      FREQ_INCL = 1", "      NGHBR_BAND = 4",
    "      NGHBR_FREQ = 350", "      TIMING_INCL = 1", "      NGHBR_TX_OFFSET = 9", "      NGHBR_TX_DURATION = 3",
    "      NGHBR_TX_PERIOD = 20", "   }", "   NUM_ANALOG_NGHBR = 0"};

std::string with_base(std::initializer_list<std::string_view> tail) {
  std::string s = lines(kGnlmBase);
  return s + lines(tail);
}

TEST(OverheadLists, GeneralNeighborListByRevision) {
  // P_REV 6: the pilot record of the neighbour, a 1X auxiliary pilot padded to RECORD_LEN 2.
  Bits p6 = gnlm_base();
  p6.put(1, 1).put(1, 1).put(1, 3).put(2, 3).put(2, 2).put(1, 3).put(0x55, 7).put(0, 4).put(6, 3);
  Bits p7 = p6;
  p7.put(1, 1).put(1, 1);   // BCCH_IND_INCL, BCCH_SUPPORT[0]
  Bits p9 = p7;
  p9.put(0, 1).put(1, 1);   // RESQ_ENABLED, NGHBR_PDCH_SUPPORTED[0]
  Bits p11 = p9;
  p11.put(1, 1).put(1, 6).put(3, 8).put(33, 9).put(0, 1).put(1, 1).put(0, 1).put(0, 12);

  const std::initializer_list<std::string_view> pilot{
      "   SRCH_OFFSET_INCL = 1",          "   NGHBR_PILOT_RECs[0] = FC_GNLM_NGHBR_PILOT_RECs",
      "   {",                             "      ADD_PILOT_REC_INCL = 1",
      "      NGHBR_PILOT_REC_TYPE = 1",   "      RECORD_LEN = 2",
      "      QOF = 2",                    "      WALSH_LENGTH = 1",
      "      AUX_PILOT_WALSH = 85",       "      SRCH_OFFSET_NGHBR = 6",
      "   }"};
  const std::string p6_text = with_base(pilot);
  const std::string p7_text = p6_text + lines({"   BCCH_IND_INCL = 1", "   BCCH_SUPPORT[0] = 1"});
  const std::string p9_text = p7_text + lines({"   RESQ_ENABLED = 0", "   NGHBR_PDCH_SUPPORTED[0] = 1"});
  const std::string p11_text =
      p9_text + lines({"   HRPD_NGHBR_INCL = 1", "   NUM_HRPD_NGHBR = 1",
                       "   HRPD_NGHBR_PILOT_RECs[0] = FC_GNLM_HRPD_NGHBR_PILOT_RECs", "   {",
                       "      HRPD_NGHBR_REC_LEN = 3",
                       "      HrpdNeighborRecordFields = FC_GNLM_HRPD_NGHBR_PILOT_RECs_HrpdNeighborRecordFields",
                       "      {", "         NGHBR_PN = 33", "         NGHBR_FREQ_INCL = 0",
                       "         PN_ASSOCIATION_IND = 1", "         DATA_ASSOCIATION_IND = 0", "      }", "   }"});
  struct Case {
    unsigned p_rev;
    const Bits* body;
    std::string want;
  };
  const Bits base = gnlm_base();
  const Case cases[] = {{5, &base, with_base({})},   {5, &p11, with_base({})},  {6, &p6, p6_text + "}\n"},
                        {7, &p7, p7_text + "}\n"},   {8, &p7, p7_text + "}\n"}, {9, &p9, p9_text + "}\n"},
                        {10, &p9, p9_text + "}\n"}, {11, &p11, p11_text + "}\n"}};
  for (const Case& k : cases) {
    SCOPED_TRACE(k.p_rev);
    std::string want = k.want;
    if (k.p_rev == 5) want += "}\n";
    Body b = run(22, static_cast<std::uint8_t>(k.p_rev), 1, *k.body);
    EXPECT_EQ(b.rc, Rc::ok);
    EXPECT_EQ(b.text, want);
  }
  // Each revision's additions are required once the revision is in use.
  EXPECT_EQ(run(22, 7, 1, p6).rc, Rc::short_msg);
  EXPECT_EQ(run(22, 9, 1, p7).rc, Rc::short_msg);
}

TEST(OverheadLists, GeneralNeighborFieldsFollowTheMessageFlags) {
  // No PN, mode 0 (neither priority nor window), global timing: only TIMING_INCL and the offset.
  Bits m;
  m.put(1, 9).put(1, 6).put(1, 4).put(0, 2).put(0, 1).put(0, 1).put(1, 1).put(1, 1).put(2, 4).put(40, 7);
  m.put(2, 6);
  m.put(1, 1).put(5, 7);
  m.put(0, 1);
  m.put(1, 3).put(4, 5).put(1, 2);   // one analog neighbour
  Body b = run(22, 4, 0, m);
  EXPECT_EQ(b.rc, Rc::ok);
  EXPECT_EQ(b.text,
            lines({"FC_GNLM", "{", "   PILOT_PN = 1", "   CONFIG_MSG_SEQ = 1", "   PILOT_INC = 1",
                   "   NGHBR_SRCH_MODE = 0", "   NGHBR_CONFIG_PN_INCL = 0", "   FREQ_FIELDS_INCL = 0",
                   "   USE_TIMING = 1", "   GLOBAL_TIMING_INCL = 1", "   GLOBAL_TX_DURATION = 2",
                   "   GLOBAL_TX_PERIOD = 40", "   NUM_NGHBR = 2", "   NGHBRs[0] = FC_GNLM_NGHBRs", "   {",
                   "      TIMING_INCL = 1", "      NGHBR_TX_OFFSET = 5", "   }", "   NGHBRs[1] = FC_GNLM_NGHBRs",
                   "   {", "      TIMING_INCL = 0", "   }", "   NUM_ANALOG_NGHBR = 1",
                   "   ANALOG_NGHBRs[0] = FC_GNLM_ANALOG_NGHBRs", "   {", "      BAND_CLASS = 4",
                   "      SYS_A_B = 1", "   }", "}"}));
}

TEST(OverheadLists, PilotRecordTypesAndTheirDeclaredLength) {
  struct Case {
    unsigned type, len;
    Bits fields;
    std::vector<std::string_view> want;
  };
  std::vector<Case> cases;
  cases.push_back({0, 1, Bits().put(2, 2).put(1, 2).put(0, 4), {"TD_POWER_LEVEL = 2", "TD_MODE = 1"}});
  cases.push_back({2, 3, Bits().put(1, 2).put(3, 3).put(511, 9).put(3, 2).put(2, 2).put(0, 6),
                   {"QOF = 1", "WALSH_LENGTH = 3", "AUX_WALSH = 511", "AUX_TD_POWER_LEVEL = 3", "TD_MODE = 2"}});
  cases.push_back({3, 1, Bits().put(1, 2).put(5, 3).put(6, 3),
                   {"SR3_PRIMARY_PILOT = 1", "SR3_PILOT_POWER1 = 5", "SR3_PILOT_POWER2 = 6"}});
  cases.push_back({4, 5,
                   Bits().put(2, 2).put(1, 3).put(2, 3).put(0, 2).put(0, 3).put(63, 6).put(1, 1).put(3, 2).put(1, 3)
                       .put(100, 7).put(0, 1).put(0, 7),
                   {"SR3_PRIMARY_PILOT = 2", "SR3_PILOT_POWER1 = 1", "SR3_PILOT_POWER2 = 2", "QOF = 0",
                    "WALSH_LENGTH = 0", "AUX_PILOT_WALSH = 63", "ADD_INFO_INCL1 = 1", "QOF1 = 3", "WALSH_LENGTH1 = 1",
                    "AUX_PILOT_WALSH1 = 100", "ADD_INFO_INCL2 = 0"}});
  cases.push_back({6, 2, Bits().put(0xffff, 16), {}});   // reserved type: passed over whole
  for (auto& k : cases) {
    SCOPED_TRACE(k.type);
    ASSERT_EQ(k.fields.size(), 8u * k.len);
    Bits m;
    m.put(1, 9).put(1, 6).put(1, 4).put(2, 2).put(0, 1).put(0, 1).put(0, 1).put(1, 6).put(0, 4).put(0, 3);
    m.put(1, 1).put(1, 1).put(k.type, 3).put(k.len, 3);
    auto bytes = k.fields.message(0);
    for (auto o : bytes) m.put(o, 8);
    m.put(7, 3);   // SRCH_OFFSET_NGHBR right after the declared length
    Body b = run(22, 6, 1, m);
    EXPECT_EQ(b.rc, Rc::ok);
    std::string want = "      RECORD_LEN = " + std::to_string(k.len) + "\n";
    for (auto l : k.want) want += "      " + std::string(l) + "\n";
    want += "      SRCH_OFFSET_NGHBR = 7\n   }\n}\n";
    ASSERT_GE(b.text.size(), want.size());
    EXPECT_EQ(b.text.substr(b.text.size() - want.size()), want);
  }
}

// ---- redirection ------------------------------------------------------------------------------

TEST(OverheadLists, GlobalServiceRedirectionRecordsAndRevisions) {
  auto cdma_rec = [] {
    return Bits().put(1, 5).put(4145, 15).put(4, 16).put(0, 4).put(2, 4).put(25, 11).put(75, 11).put(0, 6);
  };
  const std::initializer_list<std::string_view> cdma_lines{
      "   {", "      BAND_CLASS = 1", "      EXPECTED_SID = 4145", "      EXPECTED_NID = 4", "      NUM_CHANS = 2",
      "      CDMA_CHAN[0] = 25", "      CDMA_CHAN[1] = 75", "   }", "}"};
  // P_REV 5 has no EXCL_P_REV_MS; P_REV 6 has.
  for (unsigned p_rev : {5u, 6u}) {
    SCOPED_TRACE(p_rev);
    Bits m;
    m.put(78, 9).put(13, 6).put(0x8001, 16).put(1, 1).put(0, 1);
    if (p_rev >= 6) m.put(1, 1);
    m.put(2, 8).put(9, 8);
    for (auto o : cdma_rec().message(0)) m.put(o, 8);
    Body b = run(18, static_cast<std::uint8_t>(p_rev), 1, m);
    EXPECT_EQ(b.rc, Rc::ok);
    std::string want = lines({"FC_GSRDM", "{", "   PILOT_PN = 78", "   CONFIG_MSG_SEQ = 13", "   REDIRECT_ACCOLC = 32769",
                              "   RETURN_IF_FAIL = 1", "   DELETE_TMSI = 0"});
    if (p_rev >= 6) want += "   EXCL_P_REV_MS = 1\n";
    want += lines({"   RECORD_TYPE = 2", "   RECORD_LEN = 9", "   GSRDM_REC_TYPE_2 = FC_GSRDM_GSRDM_REC_TYPE_2"});
    want += lines(cdma_lines);
    EXPECT_EQ(b.text, want);
    EXPECT_EQ(b.consumed, m.size());
  }
}

TEST(OverheadLists, ExtendedGlobalServiceRedirectionLaterRecordsByRevision) {
  // P_REV 11 appends LAST_SEARCH_RECORD_IND, NUM_ADD_RECORD and more redirection records after
  // the first: here two are announced and none follows; P_REV 10 ends cleanly after the first.
  Bits m;
  m.put(5, 9).put(1, 6).put(3, 16).put(0, 3).put(1, 8).put(3, 8).put(123, 15).put(1, 1).put(5, 3).put(17, 5);
  m.put(0xa5, 8);   // whatever a later revision sends next
  const std::string first = lines({"FC_EGSRDM", "{", "   PILOT_PN = 5", "   CONFIG_MSG_SEQ = 1",
                                   "   REDIRECT_ACCOLC = 3", "   RETURN_IF_FAIL = 0", "   DELETE_TMSI = 0",
                                   "   REDIRECT_P_REV_INCL = 0", "   RECORD_TYPE = 1", "   RECORD_LEN = 3",
                                   "   TYPE_001 = FC_EGSRDM_TYPE_001", "   {", "      EXPECTED_SID = 123",
                                   "      IGNORE_CDMA = 1", "      SYS_ORDERING = 5", "      MAX_REDIRECT_DELAY = 17",
                                   "   }", "}"});
  const std::string later = first.substr(0, first.size() - 2) + "   LAST_SEARCH_RECORD_IND = 1\n   NUM_ADD_RECORD = 2\n}\n";
  const struct {
    std::uint8_t p_rev;
    Rc rc;
    const std::string& text;
  } cases[] = {{10, Rc::ok, first}, {11, Rc::short_msg, later}};
  for (const auto& k : cases) {
    Body b = run(26, k.p_rev, 1, m);
    EXPECT_EQ(b.rc, k.rc) << int(k.p_rev);
    EXPECT_EQ(b.text, k.text) << int(k.p_rev);
  }
}

TEST(OverheadLists, ExtendedGlobalServiceRedirectionAnalogAndUnknownRecords) {
  Bits m;
  m.put(5, 9).put(1, 6).put(3, 16).put(0, 1).put(1, 1).put(1, 1).put(1, 1).put(6, 8).put(9, 8);
  m.put(1, 8).put(4, 8).put(123, 15).put(1, 1).put(5, 3).put(17, 5).put(0xab, 8);   // one unknown octet
  Body b = run(26, 7, 1, m);
  EXPECT_EQ(b.rc, Rc::ok);
  EXPECT_EQ(b.consumed, m.size());
  EXPECT_EQ(b.text, lines({"FC_EGSRDM", "{", "   PILOT_PN = 5", "   CONFIG_MSG_SEQ = 1", "   REDIRECT_ACCOLC = 3",
                           "   RETURN_IF_FAIL = 0", "   DELETE_TMSI = 1", "   REDIRECT_P_REV_INCL = 1",
                           "   EXCL_P_REV_IND = 1", "   REDIRECT_P_MIN = 6", "   REDIRECT_P_MAX = 9",
                           "   RECORD_TYPE = 1", "   RECORD_LEN = 4", "   TYPE_001 = FC_EGSRDM_TYPE_001", "   {",
                           "      EXPECTED_SID = 123", "      IGNORE_CDMA = 1", "      SYS_ORDERING = 5",
                           "      MAX_REDIRECT_DELAY = 17", "   }", "}"}));
  // NDSS off (type 0, no octets) and an unknown type print no variant and still end cleanly.
  for (unsigned type : {0u, 5u}) {
    Bits n;
    n.put(5, 9).put(1, 6).put(3, 16).put(0, 3).put(type, 8).put(type ? 2 : 0, 8);
    if (type) n.put(0xffff, 16);
    Body r = run(26, 7, 1, n);
    EXPECT_EQ(r.rc, Rc::ok);
    EXPECT_EQ(r.consumed, n.size());
    EXPECT_EQ(r.text.find("TYPE_00"), std::string::npos);
  }
  // A record longer than the message keeps its fields and reports a short message.
  Bits s;
  s.put(5, 9).put(1, 6).put(3, 16).put(0, 3).put(1, 8).put(20, 8).put(123, 15).put(1, 1).put(5, 3).put(17, 5);
  Body r = run(26, 7, 1, s);
  EXPECT_EQ(r.rc, Rc::short_msg);
  EXPECT_NE(r.text.find("      MAX_REDIRECT_DELAY = 17\n"), std::string::npos);
}

// ---- user zones and private neighbours --------------------------------------------------------

TEST(OverheadLists, UserZoneIdentificationGolden) {
  Bits m;
  m.put(9, 9).put(2, 6).put(3, 4).put(2, 4).put(0xbeef, 16).put(7, 4).put(1, 1).put(1, 16).put(0, 4).put(0, 1);
  Body b = run(23, 6, 1, m);
  EXPECT_EQ(b.rc, Rc::ok);
  EXPECT_EQ(b.text, lines({"FC_UZIM", "{", "   PILOT_PN = 9", "   CONFIG_MSG_SEQ = 2", "   UZ_EXIT = 3",
                           "   NUM_UZID = 2", "   UZIDs[0] = FC_UZIM_UZIDs", "   {", "      UZID = 48879",
                           "      UZ_REV = 7", "      TEMP_SUB = 1", "   }", "   UZIDs[1] = FC_UZIM_UZIDs", "   {",
                           "      UZID = 1", "      UZ_REV = 0", "      TEMP_SUB = 0", "   }", "}"}));
}

TEST(OverheadLists, PrivateNeighborListNesting) {
  // One MC radio interface without common frequency: one private neighbour with a user zone.
  Bits mc;
  mc.put(0, 1).put(8, 4).put(1, 6);
  mc.put(100, 15).put(200, 16).put(300, 9).put(0, 1).put(1, 5).put(500, 11).put(1, 1).put(1, 4);
  mc.put(42, 16).put(1, 4).put(0, 1);
  ASSERT_EQ(mc.size(), 11u + 62u + 21u);
  Bits m;
  m.put(1, 9).put(1, 6).put(2, 4);
  m.put(0, 4).put(12, 8);
  for (auto o : mc.message(0)) m.put(o, 8);
  m.put(3, 4).put(1, 8).put(0x5a, 8);   // a radio interface type not known here
  Body b = run(24, 6, 1, m);
  EXPECT_EQ(b.rc, Rc::ok);
  EXPECT_EQ(b.consumed, m.size());
  const std::string f = "FC_PNLM_RADIO_INTERFACES_RadioInterfaceTypeSpecificFields";
  EXPECT_EQ(b.text,
            lines({"FC_PNLM", "{", "   PILOT_PN = 1", "   CONFIG_MSG_SEQ = 1", "   NUM_RADIO_INTERFACE = 2",
                   "   RADIO_INTERFACES[0] = FC_PNLM_RADIO_INTERFACES", "   {", "      RADIO_INTERFACE_TYPE = 0",
                   "      RADIO_INTERFACE_LEN = 12", "      RadioInterfaceTypeSpecificFields = " + f, "      {",
                   "         COMMON_INCL = 0", "         SRCH_WIN_PN = 8", "         NUM_PRI_NGHBR = 1",
                   "         PRI_NGHBRs[0] = " + f + "_PRI_NGHBRs", "         {", "            SID = 100",
                   "            NID = 200", "            PRI_NGHBR_PN = 300", "            ADD_PILOT_REC_INCL = 0",
                   "            BAND_CLASS = 1", "            NGHBR_FREQ = 500", "            UZID_INCL = 1",
                   "            NUM_UZID = 1", "            UZIDs[0] = " + f + "_PRI_NGHBRs_UZIDs", "            {",
                   "               UZID = 42", "               UZ_REV = 1", "               TEMP_SUB = 0",
                   "            }", "         }", "      }", "   }", "   RADIO_INTERFACES[1] = FC_PNLM_RADIO_INTERFACES",
                   "   {", "      RADIO_INTERFACE_TYPE = 3", "      RADIO_INTERFACE_LEN = 1", "   }", "}"}));
}

// ---- universal neighbour list -----------------------------------------------------------------

TEST(OverheadLists, UniversalNeighborListRadioInterfaces) {
  // MC: mode 0 (common window), entry/access info, one neighbour on an F-BCCH.
  Bits mc;
  mc.put(4, 4).put(0, 2).put(10, 4).put(0, 1).put(0, 1).put(0, 1).put(1, 1).put(1, 1).put(1, 6);
  mc.put(3, 3).put(60, 9).put(1, 1).put(0, 1).put(1, 1).put(0, 1);
  Bits analog;
  analog.put(1, 3).put(0, 5).put(2, 2);
  Bits hrpd;
  hrpd.put(1, 6).put(4, 8).put(7, 9).put(1, 1).put(0, 5).put(1000, 11).put(0, 1).put(1, 1).put(0, 4);
  auto add = [](Bits& m, unsigned type, const Bits& body) {
    auto octets = body.message(0);
    m.put(type, 4).put(octets.size(), 8);
    for (auto o : octets) m.put(o, 8);
  };
  Bits m;
  m.put(2, 9).put(4, 6).put(3, 4);
  add(m, 0, mc);
  add(m, 1, analog);
  add(m, 2, hrpd);
  const std::string f = "FC_UNLM_RADIO_INTERFACES_RadioInterfaceTypeSpecificFields";
  const std::string common = lines(
      {"FC_UNLM", "{", "   PILOT_PN = 2", "   CONFIG_MSG_SEQ = 4", "   NUM_RADIO_INTERFACE = 3",
       "   RADIO_INTERFACES[0] = FC_UNLM_RADIO_INTERFACES", "   {", "      RADIO_INTERFACE_TYPE = 0",
       "      RADIO_INTERFACE_LEN = 5", "      RadioInterfaceTypeSpecificFields = " + f, "      {",
       "         RADIO_INTERFACE_TYPE_0000 = " + f + "_RADIO_INTERFACE_TYPE_0000", "         {",
       "            PILOT_INC = 4", "            NGHBR_SRCH_MODE = 0", "            SRCH_WIN_N = 10",
       "            SRCH_OFFSET_INCL = 0", "            FREQ_FIELDS_INCL = 0", "            USE_TIMING = 0",
       "            NGHBR_SET_ENTRY_INFO = 1", "            NGHBR_SET_ACCESS_INFO = 1", "            NUM_NGHBR = 1",
       "            NGHBRs[0] = " + f + "_RADIO_INTERFACE_TYPE_0000_NGHBRs", "            {",
       "               NGHBR_CONFIG = 3", "               NGHBR_PN = 60", "               BCCH_SUPPORT = 1",
       "               ADD_PILOT_REC_INCL = 0", "               ACCESS_ENTRY_HO = 1",
       "               ACCESS_HO_ALLOWED = 0", "            }"});
  const std::string rest = lines(
      {"         }", "      }", "   }", "   RADIO_INTERFACES[1] = FC_UNLM_RADIO_INTERFACES", "   {",
       "      RADIO_INTERFACE_TYPE = 1", "      RADIO_INTERFACE_LEN = 2",
       "      RadioInterfaceTypeSpecificFields = " + f, "      {",
       "         RADIO_INTERFACE_TYPE_0001 = " + f + "_RADIO_INTERFACE_TYPE_0001", "         {",
       "            NUM_ANALOG_NGHBR = 1", "            ANALOG_NGHBRs[0] = " + f + "_RADIO_INTERFACE_TYPE_0001_ANALOG_NGHBRs",
       "            {", "               BAND_CLASS = 0", "               SYS_A_B = 2", "            }", "         }",
       "      }", "   }", "   RADIO_INTERFACES[2] = FC_UNLM_RADIO_INTERFACES", "   {", "      RADIO_INTERFACE_TYPE = 2",
       "      RADIO_INTERFACE_LEN = 6", "      RadioInterfaceTypeSpecificFields = " + f, "      {",
       "         NUM_HRPD_NGHBR = 1", "         HRPD_NGHBR_PILOT_RECs[0] = " + f + "_HRPD_NGHBR_PILOT_RECs", "         {",
       "            HRPD_NGHBR_REC_LEN = 4",
       "            HrpdNghbrRecordFields = " + f + "_HRPD_NGHBR_PILOT_RECs_HrpdNghbrRecordFields", "            {",
       "               NGHBR_PN = 7", "               NGHBR_FREQ_INCL = 1", "               NGHBR_BAND = 0",
       "               NGHBR_FREQ = 1000", "               PN_ASSOCIATION_IND = 0",
       "               DATA_ASSOCIATION_IND = 1", "            }", "         }", "      }", "   }", "}"});
  Body b7 = run(33, 7, 1, m);
  EXPECT_EQ(b7.rc, Rc::ok);
  EXPECT_EQ(b7.text, common + rest);
  EXPECT_EQ(b7.consumed, m.size());
  // From P_REV 9 the MC record also carries call rescue and the F-PDCH indicators, here taken
  // from what was padding at P_REV 7.
  Body b9 = run(33, 9, 1, m);
  EXPECT_EQ(b9.rc, Rc::ok);
  EXPECT_EQ(b9.text, common +
                         lines({"            RESQ_ENABLED = 0", "            NGHBR_PDCH_SUPPORTED[0] = 0"}) + rest);
}

// ---- truncation: every prefix of a message gives a result, never a read outside it ------------

TEST(OverheadLists, TruncatedBodiesStopCleanly) {
  struct Case {
    std::uint8_t id, p_rev;
    Bits body;
    Rc cut_rc;   // result when the last field is cut
  };
  Bits ecclm;
  ecclm.put(1, 9).put(1, 6).put(2, 4).put(100, 11).put(200, 11).put(1, 1).put(2, 2)   // hash indicators
      .put(1, 1).put(1, 2).put(1, 1).put(3, 2).put(0, 1);                                   // TD selection
  Bits enlm;
  enlm.put(1, 9).put(1, 6).put(1, 4).put(0, 3).put(9, 9).put(0, 2).put(1, 1).put(1, 5).put(25, 11);
  std::vector<Case> cases{{27, 6, ecclm, Rc::short_msg}, {14, 6, enlm, Rc::short_msg}};
  for (auto& k : cases) {
    SCOPED_TRACE(int(k.id));
    auto buf = k.body.message(0);
    EXPECT_EQ(run(k.id, k.p_rev, 1, buf, 0, k.body.size()).rc, Rc::ok);
    for (std::uint64_t n = 0; n < k.body.size(); ++n) {
      Body b = run(k.id, k.p_rev, 1, buf, 0, n);
      // A prefix that ends between whole list elements is a complete (shorter) message.
      if (b.rc != Rc::ok) {
        EXPECT_EQ(b.rc, k.cut_rc) << n;
      }
      EXPECT_LE(b.consumed, n);
    }
    EXPECT_EQ(run(k.id, k.p_rev, 1, buf, 0, k.body.size() - 1).rc, k.cut_rc);
  }
}

// The paging channel reaches each of these bodies through the broadcast PDU.
TEST(OverheadLists, PagingChannelCarriesEachBody) {
  const std::pair<int, const char*> kinds[] = {{3, "NLM"},    {4, "CCLM"},  {14, "ENLM"},   {18, "GSRDM"}, {22, "GNLM"},
                                               {23, "UZIM"},  {24, "PNLM"}, {26, "EGSRDM"}, {27, "ECCLM"}};
  for (auto [id, abbr] : kinds) {
    SCOPED_TRACE(abbr);
    Bits m;
    m.put(static_cast<unsigned>(id), 8).put(0, 96);   // an all-zero body: empty lists, no records
    auto r = test::decode(2, 6, 1, m.message(30));
    EXPECT_EQ(r.rc, 0);
    const std::string label = std::string("     SDU.") + abbr + " = FC_" + abbr + "\n     {\n";
    EXPECT_NE(r.text.find(label), std::string::npos) << r.text;
  }
}

}  // namespace
}  // namespace cs
