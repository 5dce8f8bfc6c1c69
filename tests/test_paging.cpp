// Paging channel: PDU framing, dispatch by type, the address forms, the order path and the
// General Page path. Message bodies belong to their own decoders; where a body's presence
// changes what follows it, the expectation follows the body lookup.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "fwd_common/tables.h"
#include "helpers.h"

namespace cs::test {
namespace {

constexpr int kPagingChannel = 2;

// A message whose bit count, as the channel computes it (the octets less the type octet's
// 8 bits and the 30 CRC bits), runs exactly `left` bits past the fields built so far.
std::vector<std::uint8_t> framed(Bits b, unsigned left) {
  EXPECT_EQ((b.size() + left + 38) % 8, 0u) << "fields plus left must end 2 bits past an octet";
  b.put(0, left + 8);
  return b.message(30);
}

// A message whose count covers every field built so far (and up to 7 spare bits).
std::vector<std::uint8_t> covered(Bits b) { return b.put(0, 8).message(30); }

struct Raw {
  int rc;
  std::string text;   // as returned: CR LF where the path converted line ends
};

Raw raw(std::uint8_t p_rev, const std::vector<std::uint8_t>& m, std::uint8_t band = 0) {
  Decoder d;
  std::string out;
  const int rc = d.details(out, band, p_rev, kPagingChannel, m.data(), m.size());
  return {rc, out};
}

Decoded paging(std::uint8_t p_rev, const std::vector<std::uint8_t>& m) { return decode(kPagingChannel, p_rev, 0, m); }

bool starts_with(const std::string& s, const std::string& prefix) { return s.compare(0, prefix.size(), prefix) == 0; }

// The text with the block of the carried message ("SDU.xxx = ..." to its closing brace)
// removed: that block is the body decoder's business.
std::string without_sdu(const std::string& text) {
  std::istringstream in(text);
  std::string line, out, close;
  while (std::getline(in, line)) {
    if (!close.empty()) {
      if (line == close) close.clear();
      continue;
    }
    const auto p = line.find_first_not_of(' ');
    if (p != std::string::npos && line.compare(p, 4, "SDU.") == 0) {
      close = std::string(p, ' ') + "}";
      continue;
    }
    out += line + '\n';
  }
  return out;
}

std::string joined(const std::vector<std::string>& ls) {
  std::string s;
  for (const auto& l : ls) s += l + '\n';
  return s;
}

// IMSI_S of 858-555-1234: IMSI_S2 (three digits) above IMSI_S1 (seven digits), each digit
// coded 1..10 with 10 for 0, groups less 111.
constexpr std::uint32_t kImsiS1 = (444u << 14) | (1u << 10) | 123u;   // 555-1234
constexpr std::uint32_t kImsiS2 = 747;                                 // 858
constexpr std::uint64_t kImsiS = (std::uint64_t{kImsiS2} << 24) | kImsiS1;
constexpr std::uint32_t kMcc310 = 209;
constexpr std::uint32_t kImsi1112_26 = 15;

// ------------------------------------------------------------------------------------
// Dispatch

TEST(Paging, MessageTypeFollowsPRevAndGroups) {
  constexpr const char* kBc = "FC_PCH_BC__PBCCH_PDU";
  struct Case {
    std::uint8_t p_rev, octet;
    const char* header;   // first line of the text; "" for a type that prints nothing
  } cases[] = {
      {6, 0x41, ""}, {7, 0x41, kBc},   // the whole octet below P_REV 7; PD and six bits from 7 on
      {6, 0, ""}, {7, 0xC0, ""}, {6, 25, ""}, {6, 29, ""}, {6, 30, ""}, {6, 31, ""}, {6, 32, ""}, {7, 0x60, ""},
      {6, 33, ""}, {6, 35, ""}, {7, 0xED, ""}, {6, 1, kBc}, {6, 6, kBc}, {6, 28, kBc}, {6, 7, "L2_ARQ_FIELDS"},
      {6, 8, "FC_PCH_CAM_PDU"}, {7, 0x88, "FC_PCH_CAM_PDU"}, {6, 9, "FC_PCH_PDU"}, {6, 20, "FC_PCH_PDU"},
      {6, 34, "FC_PCH_PDU"}, {6, 17, "L2_GPM_COMMON_FIELDS"}, {7, 0xD1, "L2_GPM_COMMON_FIELDS"},
      {6, 21, "FC_PCH_ECAM_PDU"},
  };
  for (const Case& k : cases) {
    SCOPED_TRACE(testing::Message() << "p_rev " << int(k.p_rev) << " octet " << int(k.octet));
    const Raw r = raw(k.p_rev, covered(Bits().put(k.octet, 8).put(0, 64)));
    EXPECT_TRUE(*k.header || r.rc == 0);
    EXPECT_TRUE(*k.header ? starts_with(r.text, std::string(k.header) + "\r\n") : r.text.empty()) << r.text;
  }
}

TEST(Paging, BroadcastPduShowsItsHeaderEvenWhenItsBodyFails) {
  // User Zone Reject goes to the broadcast PDU, which has no body for it.
  for (std::uint8_t octet : {28, 0xDC}) {
    const auto r = paging(7, covered(Bits().put(octet, 8).put(0xFFFF, 16)));
    EXPECT_EQ(r.rc, 0);
    EXPECT_EQ(r.text, lines({"FC_PCH_BC__PBCCH_PDU", "  {", octet == 28 ? "     PD = 0" : "     PD = 3",
                             "     MSG_ID = 28", "  }"}));
  }
  // A body that runs short fails the message, and what was decoded is printed all the same.
  const Raw r = raw(6, {0x01, 0, 0, 0, 0, 0});
  EXPECT_EQ(r.rc, paging_messages().body(1) != nullptr ? 3 : 0);
  EXPECT_TRUE(starts_with(r.text, "FC_PCH_BC__PBCCH_PDU\r\n  {\r\n     PD = 0\r\n     MSG_ID = 1\r\n")) << r.text;
  // Four octets do not even hold the type octet and the CRC: no frame, no text.
  const Raw none = raw(6, {0x1C, 0, 0, 0});
  EXPECT_EQ(none.rc, 3);
  EXPECT_EQ(none.text, "");
}

// ------------------------------------------------------------------------------------
// Address forms, through the directed PDU: PD 1 puts ENC_FIELDS_INCL, SDU_ENCRYPT_MODE
// and ENC_SEQ right after the address, which shows where the address ended.

TEST(Paging, AddressFormsAndTheirLengths) {
  struct Case {
    const char* name;
    std::uint8_t p_rev, addr_type, addr_len;
    int ext_type, reserved;   // ext_type -1: no EXT_ADDR_TYPE octet on the air
    std::function<void(Bits&)> address;
    std::vector<std::string> fields;   // of FC_ADDRESS
  };
  const auto imsi_s = [](Bits& b) { b.put(kImsiS, 34); };
  const std::string imsi = "IMSI_S = 0x02eb6f047b ( 858-555-1234 )", mcc = "MCC = 209 ( 310 )", d1112 = "IMSI_11_12 = 15 ( 26 )";
  const Case cases[] = {
      {"IMSI_S form takes 40 bits whatever ADDR_LEN says", 7, 0, 3, -1, 0,
       [](Bits& b) { b.put(kImsiS1, 24).put(kImsiS2, 10).put(0, 6); },
       {"IMSI_M_S1 = 7275643 ( 555-1234 )", "IMSI_M_S2 = 747 ( 858 )"}},
      {"ESN", 7, 1, 4, -1, 0, [](Bits& b) { b.put(0x12345678, 32); }, {"ESN = 0x12345678 ( 18-3430008, 0x12345678 )"}},
      {"IMSI class 0 type 0, padded to ADDR_LEN", 7, 2, 6, -1, 0, [&](Bits& b) { b.put(0, 6); imsi_s(b); b.put(0, 8); },
       {"IMSI_CLASS = 0", "IMSI_CLASS_0_TYPE = 0", imsi}},
      {"IMSI class 0 type 1", 7, 2, 6, -1, 0, [&](Bits& b) { b.put(0b0010000, 7).put(kImsi1112_26, 7); imsi_s(b); },
       {"IMSI_CLASS = 0", "IMSI_CLASS_0_TYPE = 1", d1112, imsi}},
      {"IMSI class 0 type 2", 7, 2, 6, -1, 0, [&](Bits& b) { b.put(0b0100, 4).put(kMcc310, 10); imsi_s(b); },
       {"IMSI_CLASS = 0", "IMSI_CLASS_0_TYPE = 2", mcc, imsi}},
      {"IMSI class 0 type 3", 7, 2, 7, -1, 0,
       [&](Bits& b) { b.put(0b01100, 5).put(kMcc310, 10).put(kImsi1112_26, 7); imsi_s(b); },
       {"IMSI_CLASS = 0", "IMSI_CLASS_0_TYPE = 3", mcc, d1112, imsi}},
      {"IMSI class 1 type 0", 7, 2, 6, -1, 0, [&](Bits& b) { b.put(0b1000, 4).put(5, 3).put(kImsi1112_26, 7); imsi_s(b); },
       {"IMSI_CLASS = 1", "IMSI_CLASS_1_TYPE = 0", "IMSI_ADDR_NUM = 5", d1112, imsi}},
      {"IMSI class 1 type 1", 7, 2, 7, -1, 0,
       [&](Bits& b) { b.put(0b11, 2).put(6, 3).put(kMcc310, 10).put(kImsi1112_26, 7); imsi_s(b); },
       {"IMSI_CLASS = 1", "IMSI_CLASS_1_TYPE = 1", "IMSI_ADDR_NUM = 6", mcc, d1112, imsi}},
      {"short TMSI", 7, 3, 2, -1, 0, [](Bits& b) { b.put(0xBEEF, 16); }, {"TMSI_CODE_ADDR = 48879"}},
      {"TMSI with zone; a code with its top bit set prints negative", 7, 3, 6, -1, 0,
       [](Bits& b) { b.put(0x0102, 16).put(0xC0000001u, 32); }, {"TMSI_ZONE = 0x0102", "TMSI_CODE_ADDR = -1073741823"}},
      {"MEID after the extended octet from P_REV 11", 11, 4, 8, 0, 0, [](Bits& b) { b.put(0xA0000012345678, 56); },
       {"MEID = 0xa0000012345678"}},
      {"MEID right after ADDR_LEN before P_REV 11, padded to ADDR_LEN", 10, 4, 8, -1, 0,
       [](Bits& b) { b.put(0xA0000012345678, 56).put(0, 8); }, {"MEID = 0xa0000012345678"}},
      {"other extended type reads nothing but keeps its length", 11, 4, 3, 1, 21, [](Bits& b) { b.put(0xFFFF, 16); }, {}},
      {"broadcast address", 7, 5, 2, -1, 0, [](Bits& b) { b.put(0xCAFE, 16); }, {"BC_ADDR = 0xcafe"}},
      {"type 7 reads nothing but keeps its length", 7, 7, 1, -1, 0, [](Bits& b) { b.put(0xFF, 8); }, {}},
  };
  for (const Case& k : cases) {
    SCOPED_TRACE(k.name);
    // PD 1 puts ENC_FIELDS_INCL, SDU_ENCRYPT_MODE and ENC_SEQ right after the address,
    // which shows where the walk left the address.
    Bits b;
    b.put(0x4F, 8).put(0b10101010, 8).put(k.addr_type, 3).put(k.addr_len, 4);   // PD 1, MSG_ID 15, ARQ
    if (k.ext_type >= 0) b.put(static_cast<unsigned>(k.ext_type), 3).put(static_cast<unsigned>(k.reserved), 5);
    k.address(b);
    b.put(1, 1).put(2, 3).put(0xA5, 8);
    std::string want = lines({"FC_PCH_PDU", "  {", "     PD = 1", "     MSG_ID = 15", "     ACK_SEQ = 5", "     MSG_SEQ = 2",
                              "     ACK_REQ = 1", "     VALID_ACK = 0"});
    want += "     ADDR_TYPE = " + std::to_string(k.addr_type) + "\n     ADDR_LEN = " + std::to_string(k.addr_len) + "\n";
    if (k.ext_type >= 0)
      want += "     EXT_ADDR_TYPE = " + std::to_string(k.ext_type) + "\n     RESERVED = " + std::to_string(k.reserved) + "\n";
    want += "     ADDRESS = FC_ADDRESS\n     {\n";
    for (const auto& f : k.fields) want += "        " + f + "\n";
    want += lines({"     }", "     ENC_FIELDS_INCL = 1", "     SDU_ENCRYPT_MODE = 2", "     ENC_SEQ = 165"});
    const auto r = paging(k.p_rev, covered(b));
    EXPECT_TRUE(starts_with(r.text, want)) << r.text;
  }
}

// ------------------------------------------------------------------------------------
// Integrity and encryption fields, by PD

TEST(Paging, SecurityFieldsFollowPd) {
  struct Case {
    const char* name;
    std::uint8_t pd;
    std::function<void(Bits&)> fields;
    std::vector<std::string> lines;
  } cases[] = {
      {"PD 0: none", 0, [](Bits&) {}, {}},
      {"PD 3: none", 3, [](Bits&) {}, {}},
      {"PD 1: encryption without ENC_SEQ for mode 3", 1, [](Bits& b) { b.put(1, 1).put(3, 3); },
       {"     ENC_FIELDS_INCL = 1", "     SDU_ENCRYPT_MODE = 3"}},
      {"PD 2 without integrity: ENC_SEQ for mode 1", 2, [](Bits& b) { b.put(0, 1).put(1, 1).put(1, 3).put(0x3C, 8); },
       {"     MACI_INCL = 0", "     ENC_FIELDS_INCL = 1", "     SDU_ENCRYPT_MODE = 1", "     ENC_SEQ = 60"}},
      {"PD 2 with integrity and SDU_SSEQ_H: no ENC_SEQ", 2,
       [](Bits& b) { b.put(1, 1).put(3, 2).put(4, 3).put(1, 1).put(0x123456, 24).put(1, 1).put(2, 3); },
       {"     MACI_INCL = 1", "     SDU_KEY_ID = 3", "     SDU_INTEGRITY_ALGO = 4", "     SDU_SSEQ_OR_SSEQH = 1",
        "     SDU_SSEQ_H = 1193046", "     ENC_FIELDS_INCL = 1", "     SDU_ENCRYPT_MODE = 2"}},
      {"PD 2 with integrity and SDU_SSEQ", 2, [](Bits& b) { b.put(1, 1).put(1, 2).put(0, 3).put(0, 1).put(200, 8).put(0, 1); },
       {"     MACI_INCL = 1", "     SDU_KEY_ID = 1", "     SDU_INTEGRITY_ALGO = 0", "     SDU_SSEQ_OR_SSEQH = 0",
        "     SDU_SSEQ = 200", "     ENC_FIELDS_INCL = 0"}},
  };
  for (const auto& k : cases) {
    SCOPED_TRACE(k.name);
    Bits b;
    b.put(k.pd, 2).put(19, 6);                   // TMSI Assignment
    b.put(0, 8);                                 // ARQ fields
    b.put(6, 3).put(0, 4);                       // ADDR_TYPE 6, ADDR_LEN 0: no address bits
    k.fields(b);
    std::vector<std::string> want = {"FC_PCH_PDU", "  {", "     PD = " + std::to_string(k.pd), "     MSG_ID = 19",
                                     "     ACK_SEQ = 0", "     MSG_SEQ = 0", "     ACK_REQ = 0", "     VALID_ACK = 0",
                                     "     ADDR_TYPE = 6", "     ADDR_LEN = 0", "     ADDRESS = FC_ADDRESS",
                                     "     {", "     }"};
    for (const auto& l : k.lines) want.push_back(l);
    const auto r = paging(7, covered(b));
    const std::string text = without_sdu(r.text);
    EXPECT_TRUE(starts_with(text, joined(want))) << r.text;
    // Nothing of the link layer after the message unless integrity asked for a MACI.
    const bool maci = k.pd == 2 && k.lines.size() > 1 && k.lines[0] == "     MACI_INCL = 1";
    EXPECT_EQ(text.find("MACI = ") != std::string::npos, maci) << r.text;
  }
}

TEST(Paging, AssignmentRecordMaciFollowsTheChannelAssignment) {
  // CAM assignment mode 7 has no mode record: the body is exactly ASSIGN_MODE and
  // ADD_RECORD_LEN, and MACI follows it.
  constexpr std::uint32_t kMaci = 0x89ABCDEF;
  Bits b;
  b.put(2, 2).put(8, 6);                                  // PD 2, CAM
  b.put(1, 3).put(2, 3).put(1, 1).put(1, 1);              // ARQ fields
  b.put(1, 3).put(4, 4).put(0x12345678, 32);              // ESN
  b.put(1, 1).put(2, 2).put(5, 3).put(0, 1).put(200, 8);  // MACI_INCL, key, algorithm, SDU_SSEQ
  b.put(0, 1);                                            // ENC_FIELDS_INCL
  b.put(7, 3).put(0, 3);                                  // CAM body
  b.put(kMaci, 32);
  const bool body = paging_messages().body(8) != nullptr;
  // Without a CAM decoder the MACI is read where the body starts.
  const std::uint32_t maci = body ? kMaci : (0x38u << 26) | (kMaci >> 6);
  const auto r = paging(7, covered(b));
  EXPECT_EQ(r.rc, 0);
  EXPECT_EQ(without_sdu(r.text),
            lines({"FC_PCH_CAM_PDU", "  {", "     PD = 2", "     MSG_ID = 8",
                   "     AssignmentRecords[0] = FC_PCH_CAM_PDU_AssignmentRecords", "     {", "        ACK_SEQ = 1",
                   "        MSG_SEQ = 2", "        ACK_REQ = 1", "        VALID_ACK = 1", "        ADDR_TYPE = 1",
                   "        ADDR_LEN = 4", "        ADDRESS = FC_ADDRESS", "        {",
                   "           ESN = 0x12345678 ( 18-3430008, 0x12345678 )", "        }", "        MACI_INCL = 1",
                   "        SDU_KEY_ID = 2", "        SDU_INTEGRITY_ALGO = 5", "        SDU_SSEQ_OR_SSEQH = 0",
                   "        SDU_SSEQ = 200", "        ENC_FIELDS_INCL = 0",
                   "        MACI = " + std::to_string(static_cast<std::int32_t>(maci)), "     }", "  }"}));
  EXPECT_EQ(r.text.find("SDU.CAM = ") != std::string::npos, body);
}

TEST(Paging, AssignmentPdusDecodeOnlyTheirFirstRecord) {
  struct Case {
    std::uint8_t type;
    const char* label;
  } cases[] = {{8, "AssignmentRecords["}, {21, "ExtChanAssignRecord["}};
  for (const Case& k : cases) {
    // Room for three records of ESN-addressed mode-7 channel assignments.
    Bits b;
    b.put(k.type, 8);
    for (int i = 0; i < 3; ++i) b.put(0, 8).put(1, 3).put(4, 4).put(0x01020304, 32).put(0xE0, 8).put(0, 8);
    const auto r = paging(6, covered(b));
    std::size_t n = 0;
    for (auto p = r.text.find(k.label); p != std::string::npos; p = r.text.find(k.label, p + 1)) ++n;
    EXPECT_EQ(n, 1u) << r.text;
    EXPECT_NE(r.text.find(std::string(k.label) + "0] = "), std::string::npos);
  }
}

// ------------------------------------------------------------------------------------
// Order path

std::string arq_block(int ack_seq, int msg_seq, int ack_req, int valid_ack) {
  return lines({"L2_ARQ_FIELDS", "  {", "     ACK_SEQ = " + std::to_string(ack_seq), "     MSG_SEQ = " + std::to_string(msg_seq),
                "     ACK_REQ = " + std::to_string(ack_req), "     VALID_ACK = " + std::to_string(valid_ack), "  }"});
}

std::string crlf(const std::string& s) {
  std::string r;
  for (char c : s) r += c == '\n' ? std::string("\r\n") : std::string(1, c);
  return r;
}

TEST(Paging, CorpusBaseStationAcksAreAddressedToTheRegisteredEsn) {
  // Public capture (Sprint, band class 1): BS Acknowledgement Orders to ESN 0x80c9c915,
  // acknowledging its two Registrations (ACK_SEQ 0 and 1).
  struct Case {
    const char* hex;
    int ack_seq, msg_seq;
  } cases[] = {{"0711290193922a802d1f8f76", 0, 4}, {"0735290193922a8017c857c4", 1, 5}};
  for (const Case& k : cases) {
    const std::string want =
        arq_block(k.ack_seq, k.msg_seq, 0, 1) +
        lines({"L2_ADDRESSING_FIELDS", "  {", "     ADDR_TYPE = 1", "     ADDR_LEN = 4", "     ADDRESS = FC_ADDRESS", "     {",
               "        ESN = 0x80c9c915 ( 128-13224213, 0x80C9C915 )", "     }", "  }"});
    // ORDER and ADD_RECORD_LEN end in the 8 bits that the channel's count leaves out, so
    // the order stage runs short: the address stages stay, with bare line ends.
    const Raw r = raw(6, from_hex(k.hex), 1);
    const bool order = paging_messages().body(7) != nullptr;
    EXPECT_EQ(r.rc, order ? 3 : 0);
    EXPECT_EQ(r.text, order ? want : crlf(want));
  }
}

TEST(Paging, OrderPathStages) {
  // MEID address: the order path reads the extended octet whatever the P_REV.
  Bits b;
  b.put(7, 8).put(0b01111010, 8).put(4, 3).put(8, 4).put(0, 8).put(0x0123456789ABCD, 56).put(16, 6).put(0, 3);
  std::string want = arq_block(3, 6, 1, 0) + lines({"L2_ADDRESSING_FIELDS", "  {", "     ADDR_TYPE = 4", "     ADDR_LEN = 8",
                                                    "     EXT_ADDR_TYPE = 0", "     RESERVED = 0", "     ADDRESS = FC_ADDRESS",
                                                    "     {", "        MEID = 0x0123456789abcd", "     }", "  }"});
  if (const BodyOps* ops = paging_messages().body(7))
    want += lines({ops->header, "  {", "     ORDER = 16", "     ADD_RECORD_LEN = 0", "  }"});
  for (std::uint8_t p_rev : {6, 11}) {
    const Raw r = raw(p_rev, covered(b));
    EXPECT_EQ(r.rc, 0);
    EXPECT_EQ(r.text, crlf(want));
  }
  // An ESN of 15 octets in a message that has far fewer: the addressing stage fails, the
  // ARQ stage stays with bare line ends.
  const Raw r = raw(6, covered(Bits().put(7, 8).put(0x55, 8).put(1, 3).put(15, 4).put(0, 33)));
  EXPECT_EQ(r.rc, 3);
  EXPECT_EQ(r.text, arq_block(2, 5, 0, 1));
  const Raw none = raw(6, {7, 0x55, 0, 0, 0});   // not even the ARQ octet
  EXPECT_EQ(none.rc, 3);
  EXPECT_EQ(none.text, "");
}

// ------------------------------------------------------------------------------------
// General Page

std::string gpm_block(int acc, int c1, int add_len, const char* pfield) {
  return lines({"L2_GPM_COMMON_FIELDS", "{", "   CONFIG_MSG_SEQ = 13", "   ACC_MSG_SEQ = " + std::to_string(acc),
                "   CLASS_0_DONE = 1", "   CLASS_1_DONE = " + std::to_string(c1), "   TMSI_DONE = 1", "   ORDERED_TMSIS = 0",
                "   BROADCAST_DONE = 1", "   ADD_LENGTH = " + std::to_string(add_len),
                std::string("   ADD_PFIELD = ") + pfield, "}"});
}

Bits gpm_common(unsigned add_length, std::uint64_t pfield) {
  Bits b;
  b.put(17, 8).put(13, 6).put(2, 6).put(0b10101, 5).put(0xF, 4).put(add_length, 3).put(pfield, 8 * add_length);
  return b;
}

TEST(Paging, GeneralPageCommonFieldsAndRecordLoop) {
  const std::string common = gpm_block(2, 0, 2, "0xbeef");
  // Two trailing bits: no page record is tried.
  const auto padded = paging(6, framed(gpm_common(2, 0xBEEF), 2));
  EXPECT_EQ(padded.rc, 0);
  EXPECT_EQ(padded.text, common);
  // Ten trailing bits: a record is tried; whatever becomes of it, the message succeeds.
  const auto tried = paging(6, framed(gpm_common(2, 0xBEEF), 10));
  EXPECT_EQ(tried.rc, 0);
  EXPECT_TRUE(starts_with(tried.text, common)) << tried.text;
  // No additional fields: the empty field prints as a missing string.
  EXPECT_EQ(paging(6, framed(gpm_common(0, 0), 2)).text, gpm_block(2, 0, 0, "NULL"));
  // ADD_LENGTH 7 announces more octets than the message has: nothing is printed.
  const Raw bad = raw(6, framed(Bits().put(17, 8).put(0, 21).put(7, 3).put(0xAB, 8), 2));
  EXPECT_EQ(bad.rc, 3);
  EXPECT_EQ(bad.text, "");
}

TEST(Paging, CorpusGeneralPages) {
  struct Case {
    const char* hex;
    int acc_msg_seq, rc;
  } cases[] = {
      // Nine capsule octets: the 24-bit common part ends inside the 8 bits the count leaves out.
      {"11342e803a70dec1", 2, 3},
      {"11343e800576c40e10c0087440af09", 3, 0},
      {"11342e80098d440629c008429a869a0b9002101cde6932", 2, 0},
  };
  for (const Case& k : cases) {
    SCOPED_TRACE(k.hex);
    const Raw r = raw(6, from_hex(k.hex), 1);
    EXPECT_EQ(r.rc, k.rc);
    if (k.rc != 0)
      EXPECT_EQ(r.text, "");
    else
      EXPECT_TRUE(starts_with(r.text, crlf(gpm_block(k.acc_msg_seq, 1, 0, "NULL")))) << r.text;
  }
}

TEST(Paging, CorpusFeatureNotificationsAddressAnImsi) {
  struct Case {
    const char* hex;
    const char* arq;   // ACK_SEQ, MSG_SEQ
    const char* imsi_s;
  } cases[] = {
      {"0c3b4a01a869b8f8060100297eca0a", "1 6", "0x00d434dc7c ( 323-322-7235 )"},
      {"0cf34a069a3c4e5e0601000a540460", "7 4", "0x034d1e272f ( 956-231-9926 )"},
  };
  for (const Case& k : cases) {
    const auto r = decode(kPagingChannel, 6, 1, from_hex(k.hex));
    const std::string want = lines({"FC_PCH_PDU", "  {", "     PD = 0", "     MSG_ID = 12", std::string("     ACK_SEQ = ") + k.arq[0],
                                    std::string("     MSG_SEQ = ") + k.arq[2], "     ACK_REQ = 1", "     VALID_ACK = 1",
                                    "     ADDR_TYPE = 2", "     ADDR_LEN = 5", "     ADDRESS = FC_ADDRESS", "     {",
                                    "        IMSI_CLASS = 0", "        IMSI_CLASS_0_TYPE = 0",
                                    std::string("        IMSI_S = ") + k.imsi_s, "     }"});
    EXPECT_TRUE(starts_with(r.text, want)) << r.text;
  }
}

// Any bytes give a result code (and, in the debug build, every read lies in a checked group).
TEST(Paging, RandomBytesGiveOnlyResultCodes) {
  std::mt19937 rng(20260522);
  Decoder d;
  std::string out;
  for (unsigned first = 0; first < 256; ++first) {
    for (std::uint8_t p_rev : {0, 3, 6, 7, 9, 10, 11, 12, 255}) {
      for (std::uint8_t band : {0, 1, 4, 10}) {
        std::vector<std::uint8_t> m(rng() % 48);
        for (auto& x : m) x = static_cast<std::uint8_t>(rng());
        if (!m.empty()) m[0] = static_cast<std::uint8_t>(first);
        out.clear();
        const int rc = d.details(out, band, p_rev, kPagingChannel, m.data(), m.size());
        ASSERT_TRUE(rc == 0 || rc == 1 || rc == 3) << rc;
      }
    }
  }
}

}  // namespace
}  // namespace cs::test
