// Data-burst contents: the labels by burst type and link, the indent, the octet rounding of a
// position determination message, and random contents of every type on both links. The
// contents' texts are golden cases (burst=B in tests/golden/*.ok).
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <sstream>

#include "golden.h"
#include "helpers.h"
#include "pd/burst.h"
#include "pd/pd.h"

namespace cs::test {
namespace {

struct PdOutcome {
  Rc rc;
  std::string text;
  std::vector<std::string> trace;
};

PdOutcome run_contents(std::uint8_t burst_type, const std::vector<std::uint8_t>& octets, bool forward) {
  Ctx c;
  c.forward = forward;
  std::vector<TraceItem> trace;
  g_read_trace = &trace;
  Text t;
  const Rc rc = print_burst_contents(t, 0, burst_type, octets.data(), octets.size(), c);
  g_read_trace = nullptr;
  PdOutcome o{rc, t.str(), {}};
  for (TraceItem& i : trace) o.trace.push_back(std::move(i.name));
  return o;
}

// The label names the kind of contents and the link; other burst types get the unknown label
// on a line of its own. What follows the label belongs to each kind's own tests.
TEST(BurstContents, LabelByBurstTypeAndLink) {
  const struct {
    std::uint8_t type;
    const char* forward;
    const char* reverse;
  } rows[] = {
      {3, "L4Message.FwdSMSMessage = ", "L4Message.RevSMSMessage = "},
      {4, "L4Message.FwdOTAMessage = ", "L4Message.RevOTAMessage = "},
      {5, "L4Message.FwdGPSMessage = ", "L4Message.RevGPSMessage = "},
      {6, "L4Message.FwdSDBMessage = ", "L4Message.RevSDBMessage = "},
  };
  const std::vector<std::uint8_t> octets = {0x00, 0x00, 0x00};
  for (const auto& r : rows) {
    for (bool forward : {true, false}) {
      SCOPED_TRACE(std::to_string(r.type) + (forward ? " forward" : " reverse"));
      const PdOutcome o = run_contents(r.type, octets, forward);
      EXPECT_EQ(o.text.rfind(forward ? r.forward : r.reverse, 0), 0u) << o.text;
      // Either the contents or the failure text, and the text ends its last line.
      EXPECT_EQ(o.text.back(), '\n');
      if (o.rc != Rc::ok) {
        EXPECT_EQ(o.text, std::string(forward ? r.forward : r.reverse) + "Unpack error. \n");
      }
    }
  }
  for (std::uint8_t type : {0, 1, 2, 7, 62, 63}) {
    for (bool forward : {true, false}) {
      const PdOutcome o = run_contents(type, octets, forward);
      EXPECT_EQ(o.rc, Rc::ok);
      EXPECT_EQ(o.text, "L4Message.UnknownMessage = \n") << int{type};
    }
  }
}

// The label and the contents start at the indent handed in: the field indent of the burst.
TEST(BurstContents, ContentsNestAtTheIndentGiven) {
  // A forward message with no elements: session header and counts.
  const std::vector<std::uint8_t> octets = {0x81, 0x00, 0x00};
  Ctx c;
  Text t;
  ASSERT_EQ(print_burst_contents(t, 6, 5, octets.data(), octets.size(), c), Rc::ok);
  EXPECT_EQ(t.str(),
            "      L4Message.FwdGPSMessage = FWD_PDDM_MSG\n"
            "      {\n"
            "         sess_start = 1\n"
            "         sess_end = 0\n"
            "         sess_source = 0\n"
            "         sess_tag = 1\n"
            "         pd_msg_type = 0\n"
            "         num_requests = 0\n"
            "         num_responses = 0\n"
            "      }\n");
}

// The bits a message takes are rounded up to whole octets: a PD_MSG_TYPE 1 header with no
// elements is 36 bits, an IS-801-1 one 24.
TEST(Pd, ConsumedBitsAreWholeOctets) {
  Ctx c;
  std::uint64_t used = 0;
  const std::vector<std::uint8_t> ext = {0x01, 0x01, 0x00, 0x00, 0x00, 0xFF};
  ASSERT_EQ(pd_measure(ext.data(), ext.size(), c, &used), Rc::ok);
  EXPECT_EQ(used, 40u);
  const std::vector<std::uint8_t> base = {0x01, 0x00, 0x00, 0xFF};
  ASSERT_EQ(pd_measure(base.data(), base.size(), c, &used), Rc::ok);
  EXPECT_EQ(used, 24u);
}

// Random contents of every burst type, on both links: a result code and a text that ends
// its last line, never a read outside the octets (sanitizer builds) nor a hang. When a
// position determination message decodes, the names printed are exactly the names read.
TEST(BurstContents, RandomOctetsGiveAResultAndPrintWhatWasRead) {
  std::mt19937 rng(801);
  std::size_t decoded = 0;
  for (int k = 0; k < 6000; ++k) {
    // Mostly short bursts, whose headers and element lengths are likelier to fit.
    std::vector<std::uint8_t> octets(k % 4 == 0 ? rng() % 256 : rng() % 24);
    for (auto& o : octets) o = static_cast<std::uint8_t>(rng());
    if (!octets.empty() && k % 3 != 0) octets[std::min<std::size_t>(1, octets.size() - 1)] = rng() % 3;   // pd_msg_type 0..2
    const bool forward = k % 2 == 0;
    const std::uint8_t type = k % 5 == 0 ? static_cast<std::uint8_t>(rng() % 64) : 5;
    const PdOutcome o = run_contents(type, octets, forward);
    ASSERT_TRUE(o.rc == Rc::ok || o.rc == Rc::count || o.rc == Rc::short_msg);
    ASSERT_FALSE(o.text.empty());
    ASSERT_EQ(o.text.back(), '\n');
    if (type != 5 || o.rc != Rc::ok) continue;
    ++decoded;
    ASSERT_EQ(printed_names(o.text.substr(o.text.find('\n') + 1)), o.trace) << o.text;
  }
  EXPECT_GT(decoded, 200u);   // the check must actually run
}

}  // namespace
}  // namespace cs::test
