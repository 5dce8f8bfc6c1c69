// The contents of data bursts (service provisioning, short messages, short data bursts) from
// random octets, in both link directions: every call gives a result code, prints nothing
// unless it decoded, and when it decodes prints exactly the fields it read, in order. The
// octets are random inside a valid framing too (message types of the tables, parameter and
// subparameter identifiers with their lengths), so that every layout meets random contents.
#include <gtest/gtest.h>

#include <random>
#include <set>
#include <sstream>

#include "codec/read_walk.h"
#include "golden.h"
#include "otasp/otasp.h"
#include "otasp/tables.h"
#include "sms/sms.h"

namespace cs {
namespace {

// Field names of a detail text: "NAME = value" lines that do not open a nested record.
std::vector<std::string> printed_names(const std::string& text) {
  std::vector<std::string> lines, names;
  std::istringstream in(text);
  for (std::string l; std::getline(in, l);) lines.push_back(l);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const auto eq = lines[i].find(" = ");
    if (eq == std::string::npos) continue;
    const auto next = i + 1 < lines.size() ? lines[i + 1].find_first_not_of(' ') : std::string::npos;
    if (next != std::string::npos && lines[i + 1].substr(next) == "{") continue;
    const auto start = lines[i].find_first_not_of(' ');
    names.push_back(lines[i].substr(start, eq - start));
  }
  return names;
}

struct Kind {
  const char* name;
  BurstContents fn;
  bool forward;
};
const Kind kKinds[] = {
    {"otasp forward", &otasp_contents, true}, {"otasp reverse", &otasp_contents, false},
    {"sms forward", &sms_contents, true},     {"sms reverse", &sms_contents, false},
    {"sdb forward", &sdb_contents, true},     {"sdb reverse", &sdb_contents, false},
};

// Runs one burst and checks the contract; returns the result.
Rc check(const Kind& k, const std::vector<std::uint8_t>& data) {
  Ctx c;
  c.forward = k.forward;
  Arena arena;
  Text t;
  std::vector<TraceItem> trace;
  g_read_trace = &trace;
  const Rc rc = k.fn(t, 3, data.data(), data.size(), c, arena);
  g_read_trace = nullptr;
  EXPECT_TRUE(rc == Rc::ok || rc == Rc::count || rc == Rc::short_msg) << k.name;
  if (rc != Rc::ok) {
    EXPECT_EQ(t.str(), "") << k.name << ": a failed decode printed";
    return rc;
  }
  std::vector<std::string> read;
  for (const TraceItem& i : trace) read.push_back(i.name);
  EXPECT_EQ(printed_names(t.str()), read) << k.name << "\n" << t.str();
  EXPECT_EQ(t.str().substr(t.str().size() - 5), "   }\n") << k.name << ": the record closes at the indent";
  return rc;
}

std::vector<std::uint8_t> random_octets(std::mt19937& rng, std::size_t n) {
  std::vector<std::uint8_t> v(n);
  for (auto& o : v) o = static_cast<std::uint8_t>(rng());
  return v;
}

// A type-length-value list: identifiers below `ids`, each with `len` random octets.
void put_tlvs(std::mt19937& rng, std::vector<std::uint8_t>& out, unsigned ids, unsigned count) {
  for (unsigned i = 0; i < count; ++i) {
    const std::uint8_t len = static_cast<std::uint8_t>(rng() % 12);
    out.push_back(static_cast<std::uint8_t>(rng() % ids));
    out.push_back(len);
    const auto body = random_octets(rng, len);
    out.insert(out.end(), body.begin(), body.end());
  }
}

TEST(BurstContents, RandomOctetsGiveResultCodesAndPrintWhatWasRead) {
  std::mt19937 rng(683);
  for (const Kind& k : kKinds) {
    std::set<Rc> seen;
    for (int i = 0; i < 1500; ++i) seen.insert(check(k, random_octets(rng, rng() % 64)));
    EXPECT_TRUE(seen.count(Rc::short_msg)) << k.name;
  }
}

TEST(BurstContents, EveryServiceProvisioningMessageMeetsRandomBodies) {
  std::mt19937 rng(16);
  for (const Kind& k : kKinds) {
    if (k.fn != &otasp_contents) continue;
    for (const ota::OtaRow& row : k.forward ? ota::forward_rows() : ota::reverse_rows()) {
      std::set<Rc> seen;
      for (int i = 0; i < 400; ++i) {
        std::vector<std::uint8_t> data{row.type};
        // Small counts make the blocks' framing line up now and then.
        std::vector<std::uint8_t> body = random_octets(rng, rng() % 48);
        if (!body.empty() && i % 2) body[0] &= 3;
        if (body.size() > 2 && i % 4 == 1) body[2] &= 15;
        data.insert(data.end(), body.begin(), body.end());
        seen.insert(check(k, data));
      }
      EXPECT_TRUE(seen.count(Rc::ok)) << k.name << " type " << int(row.type) << " never decodes";
    }
  }
}

TEST(BurstContents, ShortMessagesWithRandomParametersAndSubparameters) {
  std::mt19937 rng(637);
  for (const Kind& k : kKinds) {
    if (k.fn != &sms_contents) continue;
    std::set<Rc> seen;
    for (int i = 0; i < 3000; ++i) {
      std::vector<std::uint8_t> data{static_cast<std::uint8_t>(rng() % 3)};
      put_tlvs(rng, data, 10, rng() % 3);
      // A Bearer Data parameter of random subparameters.
      std::vector<std::uint8_t> bearer;
      put_tlvs(rng, bearer, 24, 1 + rng() % 4);
      data.push_back(8);
      data.push_back(static_cast<std::uint8_t>(bearer.size()));
      data.insert(data.end(), bearer.begin(), bearer.end());
      seen.insert(check(k, data));
    }
    EXPECT_TRUE(seen.count(Rc::ok) && seen.count(Rc::count) && seen.count(Rc::short_msg)) << k.name;
  }
}

// The contents print at the indent the dispatcher gives: every line but the header moves
// with it.
TEST(BurstContents, PrintAtTheGivenIndent) {
  const std::vector<std::uint8_t> sms = {0, 0, 2, 0x10, 0x02, 8, 5, 1, 3, 0x10, 0x0c, 0x08};
  const std::vector<std::uint8_t> ota = {1, 1, 1, 1, 0x1b};
  for (const Kind& k : kKinds) {
    const std::vector<std::uint8_t>& data = k.fn == &otasp_contents ? ota : sms;
    Ctx c;
    c.forward = k.forward;
    Arena arena;
    Text flat, deep;
    ASSERT_EQ(k.fn(flat, 0, data.data(), data.size(), c, arena), Rc::ok) << k.name;
    ASSERT_EQ(k.fn(deep, 6, data.data(), data.size(), c, arena), Rc::ok) << k.name;
    std::istringstream a(flat.str()), b(deep.str());
    std::string la, lb;
    for (int n = 0; std::getline(a, la) && std::getline(b, lb); ++n) {
      EXPECT_EQ(lb, n == 0 ? la : "      " + la) << k.name << " line " << n;
    }
  }
}

// Every message of both service provisioning tables has a golden case in its direction.
TEST(BurstContents, EveryServiceProvisioningMessageHasAGoldenCase) {
  std::set<std::pair<bool, int>> seen;
  for (const auto& e : std::filesystem::directory_iterator(std::filesystem::path(SORRELIN_SOURCE_DIR) / "tests" / "golden"))
    if (e.path().extension() == ".ok")
      for (const test::Case& k : test::read_cases(e.path()))
        if (k.burst == 4 && k.result == 0) seen.insert({k.ctx.forward, k.message_type()});
  for (bool forward : {true, false})
    for (const ota::OtaRow& row : forward ? ota::forward_rows() : ota::reverse_rows())
      EXPECT_TRUE(seen.count({forward, row.type})) << (forward ? "forward " : "reverse ") << row.body.header;
}

}  // namespace
}  // namespace cs
