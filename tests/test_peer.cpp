// The peer view of the block entry points: the compact one-line rendering of a message, its
// results per export and its copy into the caller's buffer.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <map>
#include <random>
#include <sstream>

#include "cdmaSorrelin.h"
#include "golden.h"
#include "helpers.h"
#include "text/compact_walk.h"

namespace cs {
namespace {

using test::Bits;
using test::from_hex;
using Bytes8 = std::vector<std::uint8_t>;

using PeerFn = int (*)(unsigned char*, unsigned int, unsigned int, unsigned int, char*, unsigned int);
using BlockFn = int (*)(unsigned char*, unsigned int, char*, unsigned int, unsigned int);

struct Export {
  PeerFn peer;
  BlockFn block;
};
// By channel code.
const Export kExports[] = {{nullptr, nullptr},
                           {fnSorrelinFC_SCHBlockPeer, fnSorrelinFC_SCHBlock},
                           {fnSorrelinFC_PCHBlockPeer, fnSorrelinFC_PCHBlock},
                           {fnSorrelinRC_ACHBlockPeer, fnSorrelinRC_ACHBlock},
                           {fnSorrelinFDTCHBlockPeer, fnSorrelinFDTCHBlock},
                           {fnSorrelinRDTCHBlockPeer, fnSorrelinRDTCHBlock}};

// A block: octet 0 points at the P_REV octet, which follows the message.
std::vector<unsigned char> block_of(const Bytes8& msg, std::uint8_t p_rev) {
  std::vector<unsigned char> b(msg.size() + 2);
  b.front() = static_cast<unsigned char>(msg.size() + 1);
  std::copy(msg.begin(), msg.end(), b.begin() + 1);
  b.back() = p_rev;
  return b;
}

struct Rendered {
  int rc;
  std::string text;
};

// The peer rendering through the *BlockPeer export, checked against the block export with
// flags bit 0 set (which must give the same).
Rendered peer(int channel, const Bytes8& msg, std::uint8_t p_rev) {
  std::vector<unsigned char> b = block_of(msg, p_rev), b2 = b;
  std::vector<char> out(4096, 'x'), out2(4096, 'x');
  const int rc = kExports[channel].peer(b.data(), static_cast<unsigned>(b.size()), 7, 9, out.data(), 4096);
  const int rc2 = kExports[channel].block(b2.data(), static_cast<unsigned>(b2.size()), out2.data(), 4096, 1);
  EXPECT_EQ(rc, rc2);
  EXPECT_STREQ(out.data(), out2.data());
  return {rc, out.data()};
}

// ---- Messages, written field by field from the layouts of C.S0004 / C.S0005 ----------------

// Paging channel, P_REV 6: Extended Channel Assignment PDU, one record addressed by ESN,
// assignment mode 0 with two pilots and the fundamental channel's radio configurations.
Bytes8 ecam_mode0() {
  Bits m;
  m.put(0, 2).put(21, 6);                                  // PD, MSG_ID
  m.put(2, 3).put(5, 3).put(1, 1).put(0, 1);               // ACK_SEQ, MSG_SEQ, ACK_REQ, VALID_ACK
  m.put(1, 3).put(4, 4).put(0x12345678, 32);               // ADDR_TYPE (ESN), ADDR_LEN, ESN
  m.put(20, 8).put(0, 3);                                  // ADD_RECORD_LEN, ASSIGN_MODE
  m.put(1, 1).put(1, 3).put(1, 1).put(0, 1);               // FREQ_INCL, DEFAULT_CONFIG, BYPASS_ALERT_ANSWER, reserved
  m.put(1, 3).put(0, 2).put(5, 4).put(0, 2);               // NUM_PILOTS, GRANTED_MODE, FRAME_OFFSET, ENCRYPT_MODE
  m.put(1, 5).put(25, 11);                                 // BAND_CLASS, CDMA_FREQ
  m.put(78, 9).put(1, 1).put(10, 8);                       // PILOT_PN, PWR_COMB_IND, CODE_CHAN
  m.put(81, 9).put(0, 1).put(11, 8);
  m.put(3, 5).put(4, 5).put(40, 8).put(2, 5).put(0, 4);    // FOR_FCH_RC, REV_FCH_RC, FPC_FCH_INIT_SETPT,
                                                           // FPC_SUBCHAN_GAIN, RLGAIN_ADJ
  m.put(2, 5).put(16, 8).put(80, 8);                       // FPC_FCH_FER, FPC_FCH_MIN_SETPT, FPC_FCH_MAX_SETPT
  m.put(1, 1).put(1, 1).put(2, 2);                         // REV_FCH_GATING_MODE, REV_PWR_CNTL_DELAY_INCL, _DELAY
  return m.message(30);
}

// Paging channel: Extended Channel Assignment PDU with assignment mode 7 (no mode record).
Bytes8 ecam_mode7() {
  Bits m;
  m.put(21, 8).put(3, 3).put(1, 3).put(0, 1).put(0, 1);   // PD/MSG_ID, ACK_SEQ, MSG_SEQ, ACK_REQ, VALID_ACK
  m.put(1, 3).put(4, 4).put(0xcafe, 32);                  // ESN address
  m.put(0, 8).put(7, 3);                                  // ADD_RECORD_LEN, ASSIGN_MODE
  return m.message(30);
}

// Paging channel: Channel Assignment PDU, assignment mode 0 (an IS-95 traffic channel: no
// radio configuration).
Bytes8 cam_mode0() {
  Bits m;
  m.put(8, 8).put(1, 3).put(2, 3).put(0, 1).put(1, 1);    // PD/MSG_ID, ACK_SEQ, MSG_SEQ, ACK_REQ, VALID_ACK
  m.put(1, 3).put(4, 4).put(0x12345678, 32);              // ESN address
  m.put(0, 3).put(4, 3);                                  // ASSIGN_MODE, ADD_RECORD_LEN
  m.put(1, 1).put(12, 8).put(25, 11).put(3, 4).put(0, 2); // FREQ_INCL, CODE_CHAN, CDMA_FREQ, FRAME_OFFSET, ENCRYPT_MODE
  m.put(0, 6);                                            // the rest of ADD_RECORD_LEN's 4 octets
  return m.message(30);
}

// A service configuration record for P_REV 6: two connections, the fundamental and the
// dedicated control channel, one forward and two reverse supplemental channels. As octets.
std::string scr_p_rev6() {
  Bits s;
  s.put(1, 16).put(1, 16).put(240, 8).put(240, 8).put(2, 8);   // FOR/REV_MUX_OPTION, FOR/REV_NUM_BITS, NUM_CON_REC
  // RECORD_LEN (6 octets, itself included), CON_REF, SERVICE_OPTION, FOR/REV_TRAFFIC,
  // UI_ENCRYPT_MODE, SR_ID, RLP_INFO_INCL, one bit of padding
  s.put(6, 8).put(1, 8).put(3, 16).put(1, 4).put(1, 4).put(0, 3).put(1, 3).put(0, 1).put(0, 1);
  s.put(6, 8).put(2, 8).put(33, 16).put(2, 4).put(2, 4).put(0, 3).put(2, 3).put(0, 1).put(0, 1);
  s.put(1, 1).put(0, 1).put(3, 5).put(3, 5);                   // FCH_CC_INCL, FCH_FRAME_SIZE, FOR/REV_FCH_RC
  s.put(1, 1).put(1, 2).put(4, 5).put(5, 5);                   // DCCH_CC_INCL, DCCH_FRAME_SIZE, FOR/REV_DCCH_RC
  // FOR_SCH_CC_INCL, NUM_FOR_SCH; FOR_SCH_ID, FOR_SCH_MUX, then SCH_REC_LEN (2 octets), SCH_RC,
  // CODING_TYPE, FRAME_40_USED, FRAME_80_USED, MAX_RATE
  s.put(1, 1).put(1, 2).put(0, 2).put(0x921, 16).put(2, 4).put(3, 5).put(1, 1).put(0, 1).put(0, 1).put(5, 4);
  s.put(1, 1).put(2, 2);                                       // REV_SCH_CC_INCL, NUM_REV_SCH
  s.put(0, 2).put(0x922, 16).put(2, 4).put(3, 5).put(1, 1).put(0, 1).put(0, 1).put(4, 4);
  s.put(1, 2).put(0x922, 16).put(2, 4).put(4, 5).put(0, 1).put(1, 1).put(0, 1).put(3, 4);
  std::string hex;
  for (std::uint8_t o : s.message(0)) hex += std::string(1, "0123456789abcdef"[o >> 4]) + "0123456789abcdef"[o & 15];
  return hex;
}

// A traffic channel Service Response (forward, type 19) or Service Request (reverse, type 12)
// proposing the configuration above.
Bytes8 service_proposal(unsigned msg_type) {
  const std::string scr = scr_p_rev6();
  Bits m;
  m.put(msg_type, 8).put(4, 3).put(6, 3).put(1, 1).put(0, 2);   // MSG_TYPE, ACK_SEQ, MSG_SEQ, ACK_REQ, ENCRYPTION
  m.put(5, 3).put(2, 4);                                        // SERV_REQ_SEQ, REQ/RESP_PURPOSE (proposal)
  m.put(0, 8).put(scr.size() / 2, 8).put_hex(scr);             // RECORD_TYPE, RECORD_LEN, the record
  return m.message(16);
}

// Real messages, Sprint 1x, band class 1, 2015 (public capture, see examples/), with the
// acknowledgement fields read from their bits by hand.
const Bytes8 kSyncMsg = from_hex("010501206200084e390167a5fbcd152529cc472806444445b2");
// 07 | 0x11 = 000 100 0 1: ACK_SEQ 0, MSG_SEQ 4, ACK_REQ 0, VALID_ACK 1
const Bytes8 kPagingOrder = from_hex("0711290193922a802d1f8f76");
// 09 | 0x0e = 000 011 1 0
const Bytes8 kPagingBurst = from_hex("090e290193922a02280864180088081a001ea0101050280000000000");
const Bytes8 kPagingSpm = from_hex("01271a40c400100169c858052f9d0ef32997ee74004c8009e29a794f048b8a9919");
const Bytes8 kPagingGpm = from_hex("11342e803a70dec1");
// P_REV 6: 0x41 PD/MSG_ID, then LAC_LENGTH (5) and ACK_SEQ 111 in 0x8f, then 0x10 = 000 1 0...:
// MSG_SEQ 0, ACK_REQ 1, VALID_ACK 0
const Bytes8 kAccessRgm = from_hex("418f10730193922a01a39cd40291668ba0003e0281aea1ae60cd78");
// 01 | 0x4c = 010 011 0 0: ACK_SEQ 2, MSG_SEQ 3, ACK_REQ 0, ENCRYPTION 0
const Bytes8 kRevOrder = from_hex("014c204000000000");

TEST(Peer, ViewsOfEveryChannelPath) {
  Bytes8 gone_pd = kPagingOrder;
  gone_pd[0] = 0x47;   // PD 1 and MSG_ID 7: no order for a whole-octet dispatch
  const std::string scr_items =
      "CON_RECs[SERVICE_OPTION=3,SERVICE_OPTION=33],FOR_FCH_RC=3,REV_FCH_RC=3,FOR_DCCH_RC=4,REV_DCCH_RC=5,"
      "SCR_FOR_SCHs[FOR_SCH_ID=0],SCR_REV_SCHs[REV_SCH_ID=0,REV_SCH_ID=1]";
  const struct {
    const char* what;
    int channel;
    std::uint8_t p_rev;
    Bytes8 msg;
    int rc;
    std::string text;
  } cases[] = {
      {"sync: the name alone", 1, 6, kSyncMsg, 0, "OVN_SCH_MSG_ID_SCHM"},
      {"paging order", 2, 6, kPagingOrder, 0, "OVN_DPCH_MSG_ID_ORDM:ACK_SEQ=0,MSG_SEQ=4,ACK_REQ=0,VALID_ACK=1"},
      {"paging order, type octet 0x07 at P_REV 7", 2, 7, kPagingOrder, 0,
       "OVN_DPCH_MSG_ID_ORDM:ACK_SEQ=0,MSG_SEQ=4,ACK_REQ=0,VALID_ACK=1"},
      {"paging order with PD bits: another type", 2, 7, gone_pd, 0, "unknown message: msg id = 71"},
      {"paging addressed data burst", 2, 6, kPagingBurst, 0,
       "OVN_DPCH_MSG_ID_DBM:ACK_SEQ=0,MSG_SEQ=3,ACK_REQ=1,VALID_ACK=0"},
      {"paging broadcast: the name alone", 2, 6, kPagingSpm, 0, "OVN_DPCH_MSG_ID_SPM"},
      {"paging General Page: the name alone", 2, 6, kPagingGpm, 0, "OVN_DPCH_MSG_ID_GPM"},
      {"channel assignment, mode 0", 2, 6, cam_mode0(), 0,
       "OVN_DPCH_MSG_ID_CAM:ACK_SEQ=1,MSG_SEQ=2,ACK_REQ=0,VALID_ACK=1,ASSIGN_MODE=0"},
      {"channel assignment refused at P_REV 8", 2, 8, cam_mode0(), 0, "OVN_DPCH_MSG_ID_CAM"},
      {"extended channel assignment, mode 0", 2, 6, ecam_mode0(), 0,
       "OVN_DPCH_MSG_ID_ECAM:ACK_SEQ=2,MSG_SEQ=5,ACK_REQ=1,VALID_ACK=0,ASSIGN_MODE=0,FOR_FCH_RC=3,REV_FCH_RC=4,"
       "FPC_FCH_FER=2"},
      {"extended channel assignment, mode 7", 2, 6, ecam_mode7(), 0,
       "OVN_DPCH_MSG_ID_ECAM:ACK_SEQ=3,MSG_SEQ=1,ACK_REQ=0,VALID_ACK=0,ASSIGN_MODE=7"},
      {"access registration", 3, 6, kAccessRgm, 0, "OVN_DACH_MSG_ID_RGM:ACK_SEQ=7,MSG_SEQ=0,ACK_REQ=1,VALID_ACK=0"},
      {"forward service response", 4, 6, service_proposal(19), 0,
       "OVN_FDTCH_MSG_TYPE_SRPM:ACK_SEQ=4,MSG_SEQ=6,ACK_REQ=1," + scr_items},
      {"forward message too short", 4, 6, Bytes8{0x01}, 3, "OVN_FDTCH_MSG_TYPE_ORDRM"},
      {"reverse service request", 5, 6, service_proposal(12), 0,
       "OVN_RDTCH_MSG_TYPE_SRQM:ACK_SEQ=4,MSG_SEQ=6,ACK_REQ=1," + scr_items},
      {"reverse order", 5, 6, kRevOrder, 0, "OVN_RDTCH_MSG_TYPE_ORDM:ACK_SEQ=2,MSG_SEQ=3,ACK_REQ=0"},
  };
  for (const auto& k : cases) {
    const Rendered r = peer(k.channel, k.msg, k.p_rev);
    EXPECT_EQ(r.rc, k.rc) << k.what;
    EXPECT_EQ(r.text, k.text) << k.what;
  }
}

// The C++ interface reports the decode result itself, and shows nothing after a failure
// except on the reverse traffic channel.
TEST(Peer, DecoderReportsTheDecodeResult) {
  Decoder d;
  std::string v;
  EXPECT_EQ(d.peer(v, 0, 8, kPaging, cam_mode0().data(), cam_mode0().size()), 1);   // refused from P_REV 8
  EXPECT_EQ(v, "");
  const Bytes8 short_fwd{0x01};
  EXPECT_EQ(d.peer(v, 0, 6, kFwdTraffic, short_fwd.data(), short_fwd.size()), 3);
  EXPECT_EQ(v, "");
  // The reverse record starts zeroed, then keeps what the last message left past where a
  // message stops.
  EXPECT_EQ(d.peer(v, 0, 6, kRevTraffic, short_fwd.data(), short_fwd.size()), 3);
  EXPECT_EQ(v, ":ACK_SEQ=0,MSG_SEQ=0,ACK_REQ=0");
  v.clear();
  EXPECT_EQ(d.peer(v, 0, 6, kRevTraffic, kRevOrder.data(), kRevOrder.size()), 0);
  v.clear();
  EXPECT_EQ(d.peer(v, 0, 6, kRevTraffic, short_fwd.data(), short_fwd.size()), 3);
  EXPECT_EQ(v, ":ACK_SEQ=2,MSG_SEQ=3,ACK_REQ=0");
  // Appends to what `out` holds.
  std::string more = "x";
  EXPECT_EQ(d.peer(more, 0, 6, kAccess, kAccessRgm.data(), kAccessRgm.size()), 0);
  EXPECT_EQ(more, "x:ACK_SEQ=7,MSG_SEQ=0,ACK_REQ=1,VALID_ACK=0");
}

// The order path reads its stages from the second octet up to the last octet of the message:
// an order whose last field ends in the last bit decodes; one octet less does not.
TEST(Peer, PagingOrderReadsUpToTheLastOctet) {
  Bits m;
  m.put(7, 8).put(5, 3).put(2, 3).put(1, 1).put(1, 1);   // type, ACK_SEQ, MSG_SEQ, ACK_REQ, VALID_ACK
  m.put(1, 3).put(4, 4).put(0x89abcdef, 32);             // ADDR_TYPE (ESN), ADDR_LEN, ESN
  m.put(16, 6).put(0, 3);                                // ORDER (acknowledgement), ADD_RECORD_LEN
  Bytes8 msg = m.message(0);
  ASSERT_EQ(msg.size(), 8u);
  Decoder d;
  std::string v;
  EXPECT_EQ(d.peer(v, 0, 6, kPaging, msg.data(), msg.size()), 0);
  EXPECT_EQ(v, ":ACK_SEQ=5,MSG_SEQ=2,ACK_REQ=1,VALID_ACK=1");
  v.clear();
  EXPECT_EQ(d.peer(v, 0, 6, kPaging, msg.data(), msg.size() - 1), 3);
  EXPECT_EQ(v, "");
}

// Results per export, for a message that decodes, one cut short and a null `out`: the paging
// and access exports report 0 whatever the peer rendering gave, the reverse traffic channel
// never reports a failed decode.
TEST(Peer, ResultsPerExport) {
  const struct {
    int channel;
    Bytes8 good, cut;
    std::uint8_t p_rev;
    int good_rc, cut_rc, null_rc;
  } cases[] = {
      {1, kSyncMsg, Bytes8{0x01}, 6, 0, 0, 1},
      {2, kPagingOrder, Bytes8{0x07, 0x11}, 6, 0, 0, 0},
      {2, cam_mode0(), Bytes8{0x08}, 8, 0, 0, 0},
      {3, kAccessRgm, Bytes8{0x41}, 6, 0, 0, 0},
      {4, kRevOrder, Bytes8{0x01}, 6, 0, 3, 1},
      {5, kRevOrder, Bytes8{0x01}, 6, 0, 0, 1},
  };
  for (const auto& k : cases) {
    EXPECT_EQ(peer(k.channel, k.good, k.p_rev).rc, k.good_rc) << k.channel;
    EXPECT_EQ(peer(k.channel, k.cut, k.p_rev).rc, k.cut_rc) << k.channel;
    std::vector<unsigned char> b = block_of(k.good, k.p_rev);
    const auto n = static_cast<unsigned>(b.size());
    EXPECT_EQ(kExports[k.channel].peer(b.data(), n, 0, 0, nullptr, 100), k.null_rc) << k.channel;
    EXPECT_EQ(kExports[k.channel].block(b.data(), n, nullptr, 100, 1), k.null_rc) << k.channel;
  }
}

// P_REV comes from the octet that octet 0 points at, which may lie inside the message (the
// message is the whole block from octet 1): 0 points at octet 0 itself, a position beyond the
// block reads as P_REV 0. The forward traffic header tells revisions apart: from P_REV 7,
// ENCRYPTION 3 brings SDU_ENCRYPT_MODE and, for mode 1, an ENC_SEQ these 3 octets have no
// room for.
TEST(Peer, RevisionFromTheParameterOctet) {
  // MSG_TYPE 41 (no body); 0x3f 0x9_: ACK_SEQ 1, MSG_SEQ 7, ACK_REQ 1, ENCRYPTION 3,
  // SDU_ENCRYPT_MODE 1.
  const char* const view = "unknown message: msg id = 41:ACK_SEQ=1,MSG_SEQ=7,ACK_REQ=1";
  const char* const name = "unknown message: msg id = 41";
  const struct {
    std::vector<unsigned char> block;
    int rc;
    const char* text;
  } cases[] = {
      {{0, 41, 0x3f, 0x90}, 0, view},    // P_REV 0, the block's own octet 0
      {{3, 41, 0x3f, 0x97}, 3, name},    // P_REV 151, the message's last octet
      {{1, 41, 0x3f, 0x90}, 3, name},    // P_REV 41, the message's first octet
      {{4, 41, 0x3f, 0x90}, 0, view},    // outside the block: P_REV 0
  };
  for (auto k : cases) {
    char out[256];
    EXPECT_EQ(fnSorrelinFDTCHBlockPeer(k.block.data(), static_cast<unsigned>(k.block.size()), 0, 0, out, sizeof out),
              k.rc);
    EXPECT_STREQ(out, k.text);
  }
}

// The access exports reduce the caller's type octet modulo 64 before either rendering.
TEST(Peer, AccessTypeOctetReducedInPlace) {
  std::vector<unsigned char> a = block_of(kAccessRgm, 6);
  a[1] = 0xc1;
  char out[256];
  EXPECT_EQ(fnSorrelinRC_ACHBlock(a.data(), static_cast<unsigned>(a.size()), out, sizeof out, 1), 0);
  EXPECT_EQ(a[1], 0x01);
  EXPECT_STREQ(out, "OVN_DACH_MSG_ID_RGM:ACK_SEQ=7,MSG_SEQ=0,ACK_REQ=1,VALID_ACK=0");
}

// The copy into `out`: the name whole or not at all, the view cut so that it and the NUL fit
// in `outlen` octets; nothing at or past out[outlen] is touched, and an `outlen` of 0 leaves
// `out` as it was.
TEST(Peer, CopyNeverWritesAtOrPastOutlen) {
  const std::vector<unsigned char> b0 = block_of(service_proposal(19), 6);
  const std::string whole = peer(kFwdTraffic, service_proposal(19), 6).text;
  const std::size_t name_len = std::string("OVN_FDTCH_MSG_TYPE_SRPM").size();
  for (unsigned outlen = 0; outlen <= whole.size() + 2; ++outlen) {
    std::vector<unsigned char> b = b0;
    std::vector<char> out(whole.size() + 8, '#');
    EXPECT_EQ(fnSorrelinFDTCHBlockPeer(b.data(), static_cast<unsigned>(b.size()), 0, 0, out.data(), outlen), 0);
    for (std::size_t k = outlen; k < out.size(); ++k) {
      ASSERT_EQ(out[k], '#') << "outlen " << outlen << " at " << k;
    }
    if (outlen == 0) continue;
    const std::string got(out.data());
    if (outlen <= name_len) {
      EXPECT_EQ(got, "") << outlen;
    } else {
      EXPECT_EQ(got, whole.substr(0, std::min<std::size_t>(whole.size(), outlen - 1))) << outlen;
    }
  }
}

// Any octets on any export, with any parameter octet and any `outlen`: a result, a text that
// ends within `outlen`, nothing written past it, no read past the block.
TEST(Peer, ArbitraryBlocksStayInsideTheirBuffers) {
  std::mt19937 rng(12);
  for (int i = 0; i < 3000; ++i) {
    std::vector<unsigned char> b(rng() % 40);
    for (auto& o : b) o = static_cast<unsigned char>(rng() % 4 == 0 ? rng() % 64 : rng());
    if (!b.empty() && rng() % 2) b[0] = static_cast<unsigned char>(rng() % (b.size() + 2));
    const int channel = 1 + static_cast<int>(rng() % 5);
    const unsigned outlen = rng() % 120;
    std::vector<char> out(outlen + 16, '#');
    const int rc = i % 2 ? kExports[channel].peer(b.data(), static_cast<unsigned>(b.size()), 0, 0, out.data(), outlen)
                         : kExports[channel].block(b.data(), static_cast<unsigned>(b.size()), out.data(), outlen, 1);
    EXPECT_TRUE(rc == 0 || rc == 1 || rc == 3) << rc;
    for (std::size_t k = outlen; k < out.size(); ++k) {
      ASSERT_EQ(out[k], '#') << i;
    }
    if (outlen > 0) {
      EXPECT_NE(std::find(out.begin(), out.begin() + outlen, '\0'), out.begin() + outlen) << i;
    }
  }
}

// ---- The view against the detail text of the same record ----------------------------------

// The "NAME=value" items of a view, brackets taken off; checks that the brackets pair up.
std::vector<std::pair<std::string, std::string>> view_items(const std::string& view) {
  std::vector<std::pair<std::string, std::string>> items;
  if (view.empty()) return items;
  EXPECT_EQ(view[0], ':') << view;
  int depth = 0;
  std::string tok;
  const auto flush = [&] {
    if (tok.empty()) return;
    const auto eq = tok.find('=');
    EXPECT_NE(eq, std::string::npos) << view;
    if (eq != std::string::npos) items.emplace_back(tok.substr(0, eq), tok.substr(eq + 1));
    tok.clear();
  };
  for (std::size_t i = 1; i < view.size(); ++i) {
    const char ch = view[i];
    if (ch == '[') {
      ++depth;
      tok.clear();   // the list's label
    } else if (ch == ']') {
      flush();
      EXPECT_GT(depth--, 0) << view;
    } else if (ch == ',') {
      flush();
    } else {
      tok += ch;
    }
  }
  flush();
  EXPECT_EQ(depth, 0) << view;
  return items;
}

// Every item of the view is a field line of the detail text, in the same order.
void expect_items_in_detail(const std::string& view, const std::string& detail, const std::string& what) {
  std::vector<std::pair<std::string, std::string>> lines;
  std::istringstream in(detail);
  for (std::string l; std::getline(in, l);) {
    const auto at = l.find_first_not_of(' '), eq = l.find(" = ");
    if (at == std::string::npos || eq == std::string::npos) continue;
    const std::string value = l.substr(eq + 3, l.find(' ', eq + 3) - (eq + 3));
    lines.emplace_back(l.substr(at, eq - at), value);
  }
  std::size_t next = 0;
  for (const auto& item : view_items(view)) {
    while (next < lines.size() && lines[next] != item) ++next;
    ASSERT_LT(next, lines.size()) << what << ": " << item.first << "=" << item.second << " not in order in\n"
                                  << detail << "\nview " << view;
    ++next;
  }
}

std::vector<std::filesystem::path> golden_files() {
  std::vector<std::filesystem::path> v;
  for (const auto& e : std::filesystem::directory_iterator(std::filesystem::path(SORRELIN_SOURCE_DIR) / "tests" / "golden"))
    if (e.path().extension() == ".ok") v.push_back(e.path());
  std::sort(v.begin(), v.end());
  return v;
}

// Every golden case that decodes: the body cases walked straight from the body's BodyOps,
// the whole-message cases through the peer path (where it decodes the message too). The views
// must show what the detail texts show; the sweep must meet every kind of item.
TEST(Peer, ViewsAgreeWithTheDetailTextOfEveryGoldenCase) {
  std::map<std::string, int> seen;
  for (const auto& file : golden_files()) {
    for (const test::Case& k : test::read_cases(file)) {
      if (k.result != 0 || k.burst || !k.record.empty()) continue;
      const std::string what = file.filename().string() + ":" + k.name;
      const std::vector<bool> bits = k.input_bits();
      std::string view, detail;
      if (k.body) {
        const BodyOps* ops = test::table_of(k.channel).body(static_cast<std::uint8_t>(*k.body));
        ASSERT_NE(ops, nullptr) << what;
        ASSERT_NE(ops->compact, nullptr) << what;
        const Bytes8 buf = test::octets(bits, 0);
        Arena arena;
        void* rec = arena.raw(ops->size, alignof(std::max_align_t));
        const std::uint64_t avail = k.avail ? std::min<std::uint64_t>(*k.avail, bits.size()) : bits.size();
        if (ops->decode(rec, k.ctx, arena, buf.data(), buf.size(), 0, avail, nullptr) != Rc::ok) continue;
        Text t;
        ops->print(rec, k.ctx, ops->header, 0, t);
        detail = t.str();
        Text vt(view);
        CompactOut out(vt);
        ops->compact(rec, k.ctx, ops->header, out);
      } else {
        if (k.all_broadcast) continue;
        const Bytes8 msg = test::octets(bits, test::crc_bits(k));
        Decoder d;
        if (d.peer(view, k.band, k.p_rev, k.channel, msg.data(), msg.size()) != 0) continue;
        d.details(detail, k.band, k.p_rev, k.channel, msg.data(), msg.size());
        detail.erase(std::remove(detail.begin(), detail.end(), '\r'), detail.end());
      }
      expect_items_in_detail(view, detail, what);
      for (const auto& item : view_items(view)) ++seen[item.first];
      if (view.find("CON_RECs[") != std::string::npos) ++seen["CON_RECs["];
    }
  }
  for (const char* name : {"ACK_SEQ", "VALID_ACK", "ASSIGN_MODE", "FOR_FCH_RC", "FPC_FCH_FER", "SERVICE_OPTION",
                           "FOR_DCCH_RC", "FOR_SCH_ID", "CON_RECs["})
    EXPECT_GT(seen[name], 0) << name;
}

}  // namespace
}  // namespace cs
