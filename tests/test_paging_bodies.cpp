// Page messages, the General Page record and the addressed message bodies of the paging
// channel, run directly through their BodyOps: golden texts, revision boundaries, short
// messages and arbitrary bytes.
#include <gtest/gtest.h>

#include <cstdio>
#include <random>

#include "codec/arena.h"
#include "fwd_common/tables.h"
#include "helpers.h"
#include "text/text.h"

namespace cs {
namespace {

using test::Bits;
using test::lines;

struct Outcome {
  Rc rc;
  std::uint64_t consumed;
  std::string text;
};

Ctx ctx(std::uint8_t p_rev, std::uint8_t band = 0) {
  Ctx c;
  c.p_rev = p_rev;
  c.band_class = band;
  return c;
}

// Decodes `avail` bits from `start` into a zeroed record and prints it at indent 0.
Outcome run(const BodyOps* ops, const Ctx& c, const std::vector<std::uint8_t>& buf, std::uint64_t start,
            std::uint64_t avail) {
  Arena arena;
  void* rec = arena.raw(ops->size, alignof(std::max_align_t));
  std::uint64_t used = 0;
  const Rc rc = ops->decode(rec, c, arena, buf.data(), buf.size(), start, avail, &used);
  Text t;
  ops->print(rec, c, ops->header, 0, t);
  return {rc, used, t.str()};
}

Outcome run(const BodyOps* ops, const Ctx& c, const Bits& b) { return run(ops, c, b.message(0), 0, b.size()); }

std::string hex(std::uint64_t v, int digits) {
  char s[40];
  std::snprintf(s, sizeof s, "0x%0*llx", digits, static_cast<unsigned long long>(v));
  return s;
}

// Digits as the air interface stores them: 1..9 as themselves less one, 0 as 9.
std::uint32_t enc3(int d1, int d2, int d3) {
  auto e = [](int d) { return d == 0 ? 9 : d - 1; };
  return static_cast<std::uint32_t>(e(d1) * 100 + e(d2) * 10 + e(d3));
}
// IMSI_S of 555-123-4567: IMSI_S2 (10 bits) over IMSI_S1 (24 bits).
const std::uint64_t kImsiS = (std::uint64_t{enc3(5, 5, 5)} << 24) | (enc3(1, 2, 3) << 14) | (4u << 10) | enc3(5, 6, 7);
const std::string kImsiLine = "   IMSI_S = " + hex(kImsiS, 10) + " ( 555-123-4567 )";

// A record's text: its header, then one field a line.
std::string body_text(const char* header, const std::vector<std::string>& fields) {
  std::string s = std::string(header) + "\n{\n";
  for (const std::string& f : fields) s += "   " + f + "\n";
  return s + "}\n";
}

// ---------------------------------------------------------------------------------------------
// General Page record

TEST(PagingBodies, GeneralPageRecordFromARealCapture) {
  // Sprint, P_REV 6: the record follows the type octet and the 24-bit common fields and
  // fills the 58 bits before the CRC.
  const auto msg = test::from_hex("11342e8002689dee8c401136c65c2d");
  const Outcome r = run(gpm_page_record_body(), ctx(6, 1), msg, 32, 58);
  EXPECT_EQ(r.rc, Rc::ok);
  EXPECT_EQ(r.consumed, 58u);
  EXPECT_EQ(r.text, lines({"L2_PAGE_RECORD", "{", "   PAGE_CLASS = 0", "   PAGE_SUBCLASS = 0", "   MSG_SEQ = 1",
                           "   IMSI_S = 0x00d13bdd18 ( 310-340-7391 )", "   SPECIAL_SERVICE = 1",
                           "   SERVICE_OPTION = 68", "}"}));
}

TEST(PagingBodies, GeneralPageRecordAddressForms) {
  struct Case {
    const char* what;
    std::uint8_t p_rev;
    Bits bits;
    std::vector<std::string> fields;
  };
  const std::uint32_t mcc = enc3(3, 1, 0), i1112 = 99;   // 310, "00"
  const Case cases[] = {
      {"IMSI class 0, MCC and IMSI_11_12", 6,
       Bits().put(0, 2).put(3, 2).put(5, 3).put(mcc, 10).put(i1112, 7).put(kImsiS, 34).put(0, 1),
       {"PAGE_CLASS = 0", "PAGE_SUBCLASS = 3", "MSG_SEQ = 5", "MCC = 209 ( 310 )", "IMSI_11_12 = 99 ( 00 )", "",
        "SPECIAL_SERVICE = 0"}},
      {"IMSI class 1 with MCC", 7,
       Bits().put(1, 2).put(1, 2).put(7, 3).put(4, 3).put(mcc, 10).put(i1112, 7).put(kImsiS, 34).put(0, 1),
       {"PAGE_CLASS = 1", "PAGE_SUBCLASS = 1", "MSG_SEQ = 7", "IMSI_ADDR_NUM = 4", "MCC = 209 ( 310 )",
        "IMSI_11_12 = 99 ( 00 )", "", "SPECIAL_SERVICE = 0"}},
      {"TMSI with zone", 6,
       Bits().put(2, 2).put(3, 2).put(3, 3).put(2, 4).put(0xBEEF, 16).put(0x12345678, 32).put(1, 1).put(3, 16),
       {"PAGE_CLASS = 2", "PAGE_SUBCLASS = 3", "MSG_SEQ = 3", "TMSI_ZONE_LEN = 2", "TMSI_ZONE = 0xbeef",
        "TMSI_CODE_ADDR_32 = 305419896", "SPECIAL_SERVICE = 1", "SERVICE_OPTION = 3"}},
      {"TMSI 24-bit", 6, Bits().put(2, 2).put(1, 2).put(0, 3).put(0xABCDEF, 24).put(0, 1),
       {"PAGE_CLASS = 2", "PAGE_SUBCLASS = 1", "MSG_SEQ = 0", "TMSI_CODE_ADDR_24 = 11259375", "SPECIAL_SERVICE = 0"}},
      {"broadcast", 6, Bits().put(3, 2).put(0, 2).put(3, 6).put(2, 4).put(0x0102, 16),
       {"PAGE_CLASS = 3", "PAGE_SUBCLASS = 0", "BURST_TYPE = 3", "ADDR_LEN = 2", "BC_ADDR = 0x0102"}},
  };
  for (const Case& k : cases) {
    SCOPED_TRACE(k.what);
    // Trailing bits of a following record must not be taken.
    Bits b = k.bits;
    const std::size_t record_bits = b.size();
    b.put(0xFF, 8);
    const Outcome r = run(gpm_page_record_body(), ctx(k.p_rev), b.message(0), 0, b.size());
    EXPECT_EQ(r.rc, Rc::ok);
    EXPECT_EQ(r.consumed, record_bits);
    std::string want = "L2_PAGE_RECORD\n{\n";
    for (const std::string& f : k.fields) want += f.empty() ? kImsiLine + "\n" : "   " + f + "\n";
    EXPECT_EQ(r.text, want + "}\n");
  }
}

TEST(PagingBodies, GeneralPageRecordReservedAndBroadcastForms) {
  // Forms that are new with the extended subclass, or reserved with a fixed length. The layout
  // does not depend on P_REV, so every case is run at an IS-95-B and a Release E revision.
  struct Case {
    const char* what;
    Bits bits;
    std::vector<std::string> fields;
  };
  const Case cases[] = {
      {"IMSI class 1, reserved subclass: no address", Bits().put(1, 2).put(2, 2).put(6, 3).put(1, 1).put(33, 16),
       {"PAGE_CLASS = 1", "PAGE_SUBCLASS = 2", "MSG_SEQ = 6", "SPECIAL_SERVICE = 1", "SERVICE_OPTION = 33"}},
      {"IMSI class 1 subclass 3", Bits().put(1, 2).put(3, 2).put(1, 3).put(0, 1),
       {"PAGE_CLASS = 1", "PAGE_SUBCLASS = 3", "MSG_SEQ = 1", "SPECIAL_SERVICE = 0"}},
      {"reserved broadcast form of 32 bits", Bits().put(3, 2).put(1, 2).put(0, 2).put(0xDEADBEEF, 32),
       {"PAGE_CLASS = 3", "PAGE_SUBCLASS = 1", "PAGE_SUBCLASS_EXT = 0"}},
      {"reserved broadcast form of 16 bits", Bits().put(3, 2).put(1, 2).put(2, 2).put(0xFFFF, 16),
       {"PAGE_CLASS = 3", "PAGE_SUBCLASS = 1", "PAGE_SUBCLASS_EXT = 2"}},
      {"reserved broadcast form with a length", Bits().put(3, 2).put(1, 2).put(3, 2).put(2, 4).put(0, 16).put(~0u, 32),
       {"PAGE_CLASS = 3", "PAGE_SUBCLASS = 1", "PAGE_SUBCLASS_EXT = 3", "LENGTH = 2"}},
      {"reserved broadcast form of 68 bits", Bits().put(3, 2).put(2, 2).put(1, 2).put(~0ull, 64).put(0xF, 4),
       {"PAGE_CLASS = 3", "PAGE_SUBCLASS = 2", "PAGE_SUBCLASS_EXT = 1"}},
      {"reserved broadcast form of 76 bits", Bits().put(3, 2).put(2, 2).put(2, 2).put(0, 64).put(0xFFF, 12),
       {"PAGE_CLASS = 3", "PAGE_SUBCLASS = 2", "PAGE_SUBCLASS_EXT = 2"}},
      // Enhanced broadcast page: the SDU is 13 or 18 bits, plus EXT_BCAST_SDU_LENGTH octets
      // when the indicator is 0 or 1.
      {"enhanced broadcast page, extended short SDU",
       Bits().put(3, 2).put(3, 2).put(0, 2).put(5, 6).put(1, 4).put(0xA5, 8).put(0, 2).put(1, 4).put(0x1ABCD, 21),
       {"PAGE_CLASS = 3", "PAGE_SUBCLASS = 3", "PAGE_SUBCLASS_EXT = 0", "BURST_TYPE = 5", "ADDR_LEN = 1",
        "BC_ADDR = 0xa5", "EXT_BCAST_SDU_LENGTH_IND = 0", "EXT_BCAST_SDU_LENGTH = 1", "SDU = 0x01abcd"}},
      {"enhanced broadcast page, extended long SDU",
       Bits().put(3, 2).put(3, 2).put(0, 2).put(6, 6).put(0, 4).put(1, 2).put(0, 4).put(0x2FFFF, 18),
       {"PAGE_CLASS = 3", "PAGE_SUBCLASS = 3", "PAGE_SUBCLASS_EXT = 0", "BURST_TYPE = 6", "ADDR_LEN = 0",
        "EXT_BCAST_SDU_LENGTH_IND = 1", "EXT_BCAST_SDU_LENGTH = 0", "SDU = 0x02ffff"}},
      {"enhanced broadcast page, short SDU",
       Bits().put(3, 2).put(3, 2).put(0, 2).put(1, 6).put(0, 4).put(2, 2).put(0x1234, 13),
       {"PAGE_CLASS = 3", "PAGE_SUBCLASS = 3", "PAGE_SUBCLASS_EXT = 0", "BURST_TYPE = 1", "ADDR_LEN = 0",
        "EXT_BCAST_SDU_LENGTH_IND = 2", "SDU = 0x1234"}},
      {"enhanced broadcast page, long SDU",
       Bits().put(3, 2).put(3, 2).put(0, 2).put(1, 6).put(0, 4).put(3, 2).put(0x3FFFF, 18),
       {"PAGE_CLASS = 3", "PAGE_SUBCLASS = 3", "PAGE_SUBCLASS_EXT = 0", "BURST_TYPE = 1", "ADDR_LEN = 0",
        "EXT_BCAST_SDU_LENGTH_IND = 3", "SDU = 0x03ffff"}},
  };
  for (const Case& k : cases) {
    for (std::uint8_t p_rev : {4, 11}) {
      SCOPED_TRACE(testing::Message() << k.what << ", P_REV " << int(p_rev));
      Bits b = k.bits;
      const std::size_t record_bits = b.size();
      b.put(0x5A, 8);   // the start of the next record stays unread
      const Outcome r = run(gpm_page_record_body(), ctx(p_rev), b.message(0), 0, b.size());
      EXPECT_EQ(r.rc, Rc::ok);
      EXPECT_EQ(r.consumed, record_bits);
      EXPECT_EQ(r.text, body_text("L2_PAGE_RECORD", k.fields));
    }
  }
}

TEST(PagingBodies, GeneralPageRecordsOfUnknownLengthAreRefused) {
  // Broadcast subclass 2 with extension 3 and the enhanced subclass with extensions 1 to 3
  // have no length: the record, and with it the rest of the message, cannot be delimited.
  for (unsigned sub_ext : {0x23u, 0x31u, 0x32u, 0x33u}) {
    SCOPED_TRACE(testing::Message() << "subclass/extension " << std::hex << sub_ext);
    const Bits b = Bits().put(3, 2).put(sub_ext >> 4, 2).put(sub_ext & 3, 2).put(0, 60);
    const Outcome r = run(gpm_page_record_body(), ctx(7), b);
    EXPECT_EQ(r.rc, Rc::count);
    EXPECT_NE(r.text.find("PAGE_SUBCLASS_EXT = " + std::to_string(sub_ext & 3)), std::string::npos) << r.text;
  }
  // A reserved form longer than what is left is a short message, not a refusal.
  EXPECT_EQ(run(gpm_page_record_body(), ctx(7), Bits().put(3, 2).put(2, 2).put(2, 2).put(0, 75)).rc, Rc::short_msg);
  EXPECT_EQ(run(gpm_page_record_body(), ctx(7), Bits().put(3, 2).put(1, 2).put(3, 2).put(15, 4).put(0, 100)).rc,
            Rc::short_msg);
}

TEST(PagingBodies, GeneralPageLoopStepsOverReservedRecords) {
  // A whole General Page: a reserved broadcast record, then an IMSI page. Both are printed,
  // the second one at its right position.
  Bits b;
  b.put(17, 8).put(13, 6).put(2, 6).put(0b10101, 5).put(0, 4).put(0, 3);
  b.put(3, 2).put(2, 2).put(0, 2).put(0xFFFFFFFF, 32);
  b.put(0, 2).put(0, 2).put(4, 3).put(kImsiS, 34).put(0, 1);
  const unsigned pad = (8 - (b.size() + 38) % 8) % 8;   // left over after the records
  b.put(0, pad + 8);
  const test::Decoded d = test::decode(2, 7, 0, b.message(30));
  EXPECT_EQ(d.rc, 0);
  const std::string records =
      lines({"L2_PAGE_RECORD", "   {", "      PAGE_CLASS = 3", "      PAGE_SUBCLASS = 2", "      PAGE_SUBCLASS_EXT = 0",
             "   }", "L2_PAGE_RECORD", "   {", "      PAGE_CLASS = 0", "      PAGE_SUBCLASS = 0", "      MSG_SEQ = 4",
             "   " + kImsiLine, "      SPECIAL_SERVICE = 0", "   }"});
  ASSERT_GE(d.text.size(), records.size());
  EXPECT_EQ(d.text.substr(d.text.size() - records.size()), records) << d.text;
}

TEST(PagingBodies, ShortGeneralPageRecordKeepsWhatWasRead) {
  // IMSI_S cut short: the fields before it keep their values; the printer still walks the
  // layout, so the missing string shows as NULL and the flag after it as 0.
  const Bits b = Bits().put(0, 2).put(0, 2).put(4, 3).put(kImsiS >> 4, 30);
  const Outcome r = run(gpm_page_record_body(), ctx(6), b);
  EXPECT_EQ(r.rc, Rc::short_msg);
  EXPECT_EQ(r.text, lines({"L2_PAGE_RECORD", "{", "   PAGE_CLASS = 0", "   PAGE_SUBCLASS = 0", "   MSG_SEQ = 4",
                           "   IMSI_S = NULL", "   SPECIAL_SERVICE = 0", "}"}));
}

// ---------------------------------------------------------------------------------------------
// Slotted Page and Page Messages

// MIN 619-555-1234.
const std::uint32_t kMin1 = (enc3(5, 5, 5) << 14) | (1u << 10) | enc3(2, 3, 4);
const std::uint32_t kMin2 = enc3(6, 1, 9);

// Two pages: an extended one asking for a service, and a plain one.
void add_min_pages(Bits& b) {
  b.put(2, 3).put(1, 1).put(kMin1, 24).put(kMin2, 10).put(1, 1).put(1, 16);
  b.put(3, 3).put(0, 1).put(kMin1, 24).put(0, 1);
}

std::string page_lines(const std::string& hdr) {
  const std::string min1 = "      MIN1 = " + std::to_string(kMin1) + " ( 555-1234 )";
  return lines({"   PAGEs[0] = " + hdr, "   {", "      MSG_SEQ = 2", "      EXT_ADDR = 1", min1,
                "      MIN2 = 508 ( 619 )", "      SPECIAL_SERVICE = 1", "      SERVICE_OPTION = 1", "   }",
                "   PAGEs[1] = " + hdr, "   {", "      MSG_SEQ = 3", "      EXT_ADDR = 0", min1,
                "      SPECIAL_SERVICE = 0", "   }"});
}

TEST(PagingBodies, SlottedPageAndPageMessages) {
  Bits s;
  s.put(13, 6).put(2, 6).put(1, 1);
  add_min_pages(s);
  s.put(0, 3);   // octet padding
  Outcome r = run(paging_messages().body(5), ctx(3), s);
  EXPECT_EQ(r.rc, Rc::ok);
  EXPECT_EQ(r.consumed, s.size() - 3);
  EXPECT_EQ(r.text, "FC_SPGM\n{\n   CONFIG_MSG_SEQ = 13\n   ACC_MSG_SEQ = 2\n   MORE_PAGES = 1\n" +
                        page_lines("FC_SPGM_PAGEs") + "}\n");

  // The Page Message has no MORE_PAGES: its pages start right after ACC_MSG_SEQ.
  Bits p;
  p.put(13, 6).put(2, 6);
  add_min_pages(p);
  r = run(paging_messages().body(6), ctx(3), p);
  EXPECT_EQ(r.rc, Rc::ok);
  EXPECT_EQ(r.text, "FC_PGM\n{\n   CONFIG_MSG_SEQ = 13\n   ACC_MSG_SEQ = 2\n" + page_lines("FC_PGM_PAGEs") + "}\n");

  // A page cut short fails the message and keeps the complete pages before it.
  Bits cut = p;
  cut.put(1, 3).put(0, 1).put(0, 10);
  r = run(paging_messages().body(6), ctx(3), cut);
  EXPECT_EQ(r.rc, Rc::short_msg);
  EXPECT_NE(r.text.find("PAGEs[1]"), std::string::npos);
}

// ---------------------------------------------------------------------------------------------
// Addressed bodies

struct Golden {
  const char* what;
  std::uint8_t msg_id, p_rev;
  Bits bits;
  std::vector<std::string> fields;
};

TEST(PagingBodies, AddressedBodiesGolden) {
  const std::uint64_t randssd = 0x0123456789ABCDull;
  const Golden cases[] = {
      {"data burst", 9, 6, Bits().put(1, 8).put(3, 6).put(1, 8).put(3, 8).put(0x41, 8).put(0x42, 8).put(0x43, 8),
       {"MSG_NUMBER = 1", "BURST_TYPE = 3", "NUM_MSGS = 1", "NUM_FIELDS = 3", "CHARi[0] = 65", "CHARi[1] = 66",
        "CHARi[2] = 67"}},
      {"auth challenge before Release D", 10, 9, Bits().put(0xABCDEF, 24), {"RANDU = 11259375"}},
      {"auth challenge, Release D", 10, 10,
       Bits().put(0xABCDEF, 24).put(1, 1), {"RANDU = 11259375", "GEN_CMEAKEY = 1"}},
      {"SSD update", 11, 6, Bits().put(randssd, 56), {"RANDSSD = " + hex(randssd, 14)}},
      {"status request, band class", 15, 6, Bits().put(0, 4).put(1, 8).put(1, 3).put(1, 5).put(0, 3).put(1, 4).put(2, 8),
       {"QUAL_INFO_TYPE = 1", "QUAL_INFO_LEN = 1", "BAND_CLASS = 1", "NUM_FIELDS = 1", "RECORD_TYPE[0] = 2"}},
      {"status request, band class and mode", 15, 6,
       Bits().put(0, 4).put(2, 8).put(2, 3).put(0, 5).put(4, 8).put(0, 3).put(0, 4),
       {"QUAL_INFO_TYPE = 2", "QUAL_INFO_LEN = 2", "BAND_CLASS = 0", "OP_MODE = 4", "NUM_FIELDS = 0"}},
      {"redirection to analog, IS-95A", 16, 3,
       Bits().put(1, 1).put(0, 1).put(1, 8).put(3, 8).put(4145, 15).put(1, 1).put(2, 3).put(0, 5),
       {"RETURN_IF_FAIL = 1", "DELETE_TMSI = 0", "RECORD_TYPE = 1", "RECORD_LEN = 3", "EXPECTED_SID = 4145",
        "IGNORE_CDMA = 1", "SYS_ORDERING = 2"}},
      {"redirection to analog, IS-95B", 16, 4,
       Bits().put(0, 1).put(1, 1).put(1, 1).put(1, 8).put(3, 8).put(4145, 15).put(0, 1).put(1, 3).put(9, 5),
       {"RETURN_IF_FAIL = 0", "DELETE_TMSI = 1", "REDIRECT_TYPE = 1", "RECORD_TYPE = 1", "RECORD_LEN = 3",
        "EXPECTED_SID = 4145", "IGNORE_CDMA = 0", "SYS_ORDERING = 1", "MAX_REDIRECT_DELAY = 9"}},
      {"redirection to CDMA, record longer than its fields", 16, 6,
       Bits().put(0, 3).put(2, 8).put(10, 8).put(1, 5).put(4145, 15).put(4, 16).put(0, 4).put(2, 4).put(25, 11)
           .put(200, 11).put(0xFFFF, 14),
       {"RETURN_IF_FAIL = 0", "DELETE_TMSI = 0", "REDIRECT_TYPE = 0", "RECORD_TYPE = 2", "RECORD_LEN = 10",
        "BAND_CLASS = 1", "EXPECTED_SID = 4145", "EXPECTED_NID = 4", "NUM_CHANS = 2", "CDMA_CHAN[0] = 25",
        "CDMA_CHAN[1] = 200"}},
      {"TMSI assignment", 19, 6, Bits().put(1, 4).put(0x5A, 8).put(0xCAFEF00D, 32).put(0x123456, 24),
       // Values print as "%d" of a 32-bit int.
       {"TMSI_ZONE_LEN = 1", "TMSI_ZONE = 0x5a", "TMSI_CODE = -889262067",
        "TMSI_EXP_TIME = 1193046"}},
      {"PACA", 20, 6, Bits().put(0x7F, 7).put(2, 4).put(17, 8).put(5, 3),
       {"PURPOSE = 2", "Q_POS = 17", "PACA_TIMEOUT = 5"}},
      {"user zone reject with assignment", 28, 7, Bits().put(1234, 16).put(3, 3).put(1, 1).put(4321, 16),
       {"REJECT_UZID = 1234", "REJECT_ACTION_INDI = 3", "UZID_ASSIGN_INCL = 1", "ASSIGN_UZID = 4321"}},
      {"security mode command", 34, 9, Bits().put(1, 3).put(2, 3).put(1, 1).put(1, 1).put(0, 1),
       {"C_SIG_ENCRYPT_MODE = 1", "ENC_KEY_SIZE = 2", "MSG_INT_INFO_INCL = 1", "CHANGE_KEYS = 1", "USE_UAK = 0"}},
      {"security mode command before message integrity", 34, 8, Bits().put(4, 3).put(1, 3),
       {"C_SIG_ENCRYPT_MODE = 4", "ENC_KEY_SIZE = 1"}},
      {"security mode command without encryption, Release E", 34, 11, Bits().put(0, 3).put(0, 1),
       {"C_SIG_ENCRYPT_MODE = 0", "MSG_INT_INFO_INCL = 0"}},
      {"authentication request: the token in its three parts", 44, 10,
       Bits().put_hex("000102030405060708090a0b0c0d0e0f").put_hex("f0e0d0c0b0a0").put(0x9080, 16)
           .put_hex("7060504030201000"),
       {"RANDA = 0x000102030405060708090a0b0c0d0e0f", "CON_SQN = 0xf0e0d0c0b0a0", "AMF = 36992",
        "MAC_A = 0x7060504030201000"}},
  };
  for (const Golden& k : cases) {
    SCOPED_TRACE(k.what);
    const BodyOps* ops = paging_messages().body(k.msg_id);
    ASSERT_NE(ops, nullptr);
    const Outcome r = run(ops, ctx(k.p_rev), k.bits);
    EXPECT_EQ(r.rc, Rc::ok);
    EXPECT_EQ(r.consumed, k.bits.size());
    EXPECT_EQ(r.text, body_text(ops->header, k.fields));
  }
}

TEST(PagingBodies, ShortAddressedBodiesKeepTheFieldsRead) {
  // Data burst with NUM_FIELDS 4 but two characters: the characters read stay.
  Outcome r = run(paging_messages().body(9), ctx(6), Bits().put(1, 8).put(3, 6).put(1, 8).put(4, 8).put(0x41, 8).put(0x42, 8));
  EXPECT_EQ(r.rc, Rc::short_msg);
  EXPECT_EQ(r.text, body_text("FC_DBM", {"MSG_NUMBER = 1", "BURST_TYPE = 3", "NUM_MSGS = 1", "NUM_FIELDS = 4",
                                         "CHARi[0] = 65", "CHARi[1] = 66"}));
  // A redirection record whose declared length runs past the message.
  r = run(paging_messages().body(16), ctx(6),
          Bits().put(0, 3).put(1, 8).put(9, 8).put(4145, 15).put(0, 1).put(1, 3).put(0, 5));
  EXPECT_EQ(r.rc, Rc::short_msg);
  // Nothing at all.
  r = run(paging_messages().body(44), ctx(10), Bits().put(0, 50).put(0, 50));
  EXPECT_EQ(r.rc, Rc::short_msg);
  EXPECT_EQ(r.text,
            lines({"FC_AUREQM", "{", "   RANDA = NULL", "   CON_SQN = NULL", "   AMF = 0", "   MAC_A = NULL", "}"}));
}

TEST(PagingBodies, FeatureNotificationFromARealCapture) {
  // Sprint, P_REV 6: the body starts with RELEASE at bit 63 (after an IMSI address of five
  // octets) and holds one record of type 6 and length 1; two padding bits precede the CRC.
  const auto msg = test::from_hex("0c3b4a01a869b8f8060100297eca0a");
  const Outcome r = run(paging_messages().body(12), ctx(6, 1), msg, 63, 27);
  EXPECT_EQ(r.rc, Rc::ok);
  EXPECT_EQ(r.consumed, 25u);
  EXPECT_EQ(r.text.rfind("FC_FNM\n{\n   RELEASE = 0\n   INFO_RECs[0] = FWD_USER_INFO_REC\n", 0), 0u) << r.text;
  EXPECT_NE(r.text.find("      RECORD_TYPE = 6\n      RECORD_LEN = 1\n"), std::string::npos) << r.text;
  EXPECT_EQ(r.text.find("INFO_RECs[1]"), std::string::npos);
}

}  // namespace
}  // namespace cs
