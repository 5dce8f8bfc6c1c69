// Golden cases: tests/golden/*.ok. A case names the channel, the revision arguments and the
// expected result; its lines are the expected detail text, each with the field's width in a
// margin before "|", so that the input is built from the same lines it is compared with:
//
//   case AHDM_IS95A: ftc body=6 p_rev=3 band=1
//       |FD_AHDM
//       |{
//     1 |   USE_TIME = 1          1 bit, its value taken from the text
//   3:0 |                         3 bits of value 0 (reserved): input only
//    24 |   RANDSSD = 0xabcdef    a bit string: the value is the hex number
//       |}
//
// Parameters: a channel (sync, paging, access, ftc, rtc); body=T decodes the body of message
// type T of that channel's table at indent 0 over exactly the bits built (record=NAME such a
// record that is no message of its own, e.g. L2_PAGE_RECORD; burst=B the contents of a data
// burst of BURST_TYPE B, the margins building its characters, as the burst printer appends
// them at indent 0, on the link of the channel word); otherwise the whole message is built,
// then zero padding and the channel's CRC; p_rev, band, result (default
// 0); encryption and pd for a body's context; avail=N gives a body only N bits;
// consumed=N expects that many bits taken (default: all, for result 0); hex=... gives the
// message octets instead of margins; all_broadcast=1 sets the decoder's option of that name. A blank line ends a case; "#" lines are comments.
//
// Besides the text and the result, every case that decodes with result 0 is cut short of its
// last field at every bit (a body) or octet (a message) and must then give result 3 with a
// read trace that is a prefix of the whole one (a list that runs to the end of the message
// may instead end early, with result 0).
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>

#include "golden.h"
#include "helpers.h"

namespace cs::test {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> golden_files() {
  std::vector<fs::path> v;
  for (const auto& e : fs::directory_iterator(fs::path(SORRELIN_SOURCE_DIR) / "tests" / "golden"))
    if (e.path().extension() == ".ok") v.push_back(e.path());
  std::sort(v.begin(), v.end());
  return v;
}

std::string first_difference(const std::string& want, const std::string& got) {
  std::istringstream a(want), b(got);
  std::string la, lb;
  for (int n = 1;; ++n) {
    const bool ha = static_cast<bool>(std::getline(a, la)), hb = static_cast<bool>(std::getline(b, lb));
    if (!ha && !hb) return "texts equal";
    if (la != lb || ha != hb)
      return "line " + std::to_string(n) + ":\n  want: " + (ha ? la : "<end>") + "\n  got:  " + (hb ? lb : "<end>");
  }
}

class GoldenFile : public ::testing::TestWithParam<fs::path> {};

TEST_P(GoldenFile, EveryCasePrintsItsTextAndResult) {
  const std::vector<Case> cases = read_cases(GetParam());
  ASSERT_FALSE(cases.empty());
  // With SORRELIN_GOLDEN_OUT set, the texts printed are also written there, for
  // scripts/golden_update.py to show (and, for lines without bits, take) an intended change.
  const char* dump = std::getenv("SORRELIN_GOLDEN_OUT");
  for (const Case& k : cases) {
    SCOPED_TRACE(GetParam().filename().string() + ":" + std::to_string(k.line) + " " + k.name);
    const Outcome o = run(k, k.input_bits());
    if (dump && o.text != k.text) {
      std::ofstream(dump, std::ios::app) << GetParam().string() << '\t' << k.line << '\t' << o.rc << '\n'
                                         << o.text << '\x1e' << '\n';
    }
    EXPECT_EQ(o.rc, k.result);
    EXPECT_EQ(o.text, k.text) << first_difference(k.text, o.text);
    // The JSON rendering holds the same fields, in the same order.
    if (!o.json.empty()) {
      std::vector<std::string> want = printed_names(o.text);
      if (!k.body && k.record.empty()) {
        want.insert(want.begin(), {"channel", "p_rev", "band_class", "name"});
        want.push_back("result");
      }
      std::vector<std::string> got;
      try {
        got = json_names(o.json);
      } catch (const std::exception& e) {
        ADD_FAILURE() << e.what() << "\n" << o.json;
      }
      EXPECT_EQ(got, want) << o.json;
    }
    if ((k.body || !k.record.empty()) && o.rc == 0) {
      EXPECT_EQ(o.consumed, k.consumed ? *k.consumed : k.input_bits().size());
    }
  }
}

TEST_P(GoldenFile, EveryCutOfAWholeMessageIsShortAndReadsAPrefix) {
  for (const Case& k : read_cases(GetParam())) {
    if (k.result != 0 || !k.hex.empty() || k.avail) continue;
    SCOPED_TRACE(GetParam().filename().string() + ":" + std::to_string(k.line) + " " + k.name);
    const std::vector<bool> bits = k.input_bits();
    const Outcome whole = run(k, bits);
    // A body is cut at every bit before the end of its last field, a burst's contents at
    // every octet, a whole message at every octet that leaves the channel's bit count short of
    // it.
    const bool body = k.body || !k.record.empty();
    const std::size_t octets_whole = octets(bits, crc_bits(k)).size();
    const std::size_t cuts = body ? whole.read_end : k.burst ? (whole.read_end + 7) / 8 : octets_whole;
    for (std::size_t cut = 0; cut < cuts; ++cut) {
      // The bits a message of `cut` octets hands its channel end that far from its start (the
      // sync channel's decode starts after the type octet, the others read it inside the count).
      if (!body && !k.burst && cut * 8 >= whole.read_end + crc_bits(k) + (k.channel == 1 ? 0 : 8)) break;
      const auto head = [&](std::size_t n) { return std::vector<bool>(bits.begin(), bits.begin() + static_cast<std::ptrdiff_t>(n)); };
      const Outcome o = body ? run(k, head(cut)) : k.burst ? run(k, head(cut * 8)) : run(k, bits, cut);
      ASSERT_LE(o.trace.size(), whole.trace.size()) << "cut at " << cut;
      ASSERT_TRUE(std::equal(o.trace.begin(), o.trace.end(), whole.trace.begin())) << "cut at " << cut;
      if (o.rc == 0) {
        // Only a list that runs to the end of the message may end early and still decode.
        ASSERT_LT(o.trace.size(), whole.trace.size()) << "cut at " << cut << " still decodes whole";
      } else {
        ASSERT_EQ(o.rc, 3) << "cut at " << cut;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Goldens, GoldenFile, ::testing::ValuesIn(golden_files()),
                         [](const ::testing::TestParamInfo<fs::path>& p) {
                           std::string n = p.param.stem().string();
                           for (char& ch : n) ch = std::isalnum(static_cast<unsigned char>(ch)) ? ch : '_';
                           return n;
                         });

// Every message with a body in a channel's table has a golden case.
TEST(Goldens, EveryMessageOfEveryTableHasACase) {
  std::set<std::pair<int, int>> seen;
  for (const fs::path& f : golden_files())
    for (const Case& k : read_cases(f))
      if (!k.burst) seen.insert({k.channel, k.message_type()});
  for (int ch = 1; ch <= 5; ++ch) {
    for (const MessageTable::Entry& e : table_of(ch).entries()) {
      if (e.ops.decode) {
        EXPECT_TRUE(seen.count({ch, e.row->type})) << "no golden case for " << e.header;
      }
    }
  }
}

}  // namespace
}  // namespace cs::test
