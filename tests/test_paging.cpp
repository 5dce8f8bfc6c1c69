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

bool starts_with(const std::string& s, const std::string& prefix) { return s.compare(0, prefix.size(), prefix) == 0; }


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

// ------------------------------------------------------------------------------------
// Address forms, through the directed PDU: PD 1 puts ENC_FIELDS_INCL, SDU_ENCRYPT_MODE
// and ENC_SEQ right after the address, which shows where the address ended.

// ------------------------------------------------------------------------------------
// Integrity and encryption fields, by PD

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

}  // namespace
}  // namespace cs::test
