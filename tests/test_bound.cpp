// The documented size bound of detail texts (sorrelin_details_bound) holds for every message
// the project keeps: the fuzz seed corpora (on every channel, and as blocks), the golden cases
// and the examples.
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include "cdmaSorrelin.h"
#include "golden.h"
#include "helpers.h"

namespace cs {
namespace {

namespace fs = std::filesystem;

struct Message {
  std::string from;
  int channel;
  std::uint8_t p_rev, band;
  std::vector<std::uint8_t> msg;
};

std::vector<Message> corpus_messages() {
  std::vector<Message> v;
  const fs::path root = fs::path(SORRELIN_SOURCE_DIR) / "fuzz" / "corpus";
  if (!fs::exists(root)) return v;
  for (const auto& e : fs::recursive_directory_iterator(root)) {
    if (!e.is_regular_file()) continue;
    std::ifstream f(e.path(), std::ios::binary);
    const std::vector<char> b((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
    if (b.size() < 4) continue;
    v.push_back({e.path().string(), static_cast<std::uint8_t>(b[0]) % 8, static_cast<std::uint8_t>(b[1]),
                 static_cast<std::uint8_t>(b[2]), std::vector<std::uint8_t>(b.begin() + 4, b.end())});
  }
  return v;
}

std::vector<Message> golden_and_example_messages() {
  std::vector<Message> v;
  for (const auto& e : fs::directory_iterator(fs::path(SORRELIN_SOURCE_DIR) / "tests" / "golden")) {
    for (const test::Case& k : test::read_cases(e.path())) {
      if (k.body || k.burst || !k.record.empty()) continue;
      v.push_back({k.name, k.channel, k.p_rev, k.band, test::octets(k.input_bits(), test::crc_bits(k))});
    }
  }
  for (const auto& e : fs::directory_iterator(fs::path(SORRELIN_SOURCE_DIR) / "examples")) {
    if (e.path().extension() != ".txt") continue;
    std::ifstream in(e.path());
    for (std::string line; std::getline(in, line);) {
      std::istringstream words(line.substr(0, line.find('#')));
      std::vector<std::string> w{std::istream_iterator<std::string>(words), std::istream_iterator<std::string>()};
      if (w.size() < 3) continue;
      v.push_back({e.path().filename().string() + ": " + line, test::channel_code(w[0]),
                   static_cast<std::uint8_t>(std::stoi(w[1])),
                   static_cast<std::uint8_t>(w.size() == 4 ? std::stoi(w[2]) : 0), test::from_hex(w.back())});
    }
  }
  return v;
}

using BlockFn = int (*)(unsigned char*, unsigned int, char*, unsigned int, unsigned int);
constexpr BlockFn kBlocks[] = {fnSorrelinFC_SCHBlock, fnSorrelinFC_PCHBlock, fnSorrelinRC_ACHBlock,
                               fnSorrelinFDTCHBlock, fnSorrelinRDTCHBlock};

TEST(Bound, GrowsWithTheLengthAndSaturates) {
  EXPECT_EQ(sorrelin_details_bound(0), SORRELIN_BOUND_BASE);
  EXPECT_EQ(sorrelin_details_bound(100) - sorrelin_details_bound(99), SORRELIN_BOUND_PER_OCTET);
  EXPECT_EQ(sorrelin_details_bound(static_cast<size_t>(-1)), static_cast<size_t>(-1));
  EXPECT_EQ(sorrelin_details_bound(static_cast<size_t>(-1) / SORRELIN_BOUND_PER_OCTET), static_cast<size_t>(-1));
}

// Every message on its channel, in the detail call and as a block (the block's full rendering
// adds the name line and counts the block's two extra octets).
TEST(Bound, HoldsForEveryCorpusGoldenAndExampleMessage) {
  std::vector<Message> all = corpus_messages();
  const std::size_t from_corpora = all.size();
  for (Message& m : golden_and_example_messages()) all.push_back(std::move(m));
  ASSERT_GT(all.size(), from_corpora);
  double worst_ratio = 0;
  std::string worst;
  for (const Message& m : all) {
    SCOPED_TRACE(m.from);
    const int channel = m.channel;
    std::size_t needed = 0;
    sorrelin_details(nullptr, 0, &needed, m.band, m.p_rev, channel, m.msg.data(), m.msg.size());
    ASSERT_LE(needed, sorrelin_details_bound(m.msg.size()));
    const double ratio = static_cast<double>(needed) / static_cast<double>(std::max<std::size_t>(m.msg.size(), 1));
    if (ratio > worst_ratio) {
      worst_ratio = ratio;
      worst = m.from + ": " + std::to_string(needed) + " octets for " + std::to_string(m.msg.size());
    }
    if (channel < 1 || channel > 5) continue;
    std::vector<unsigned char> block(m.msg.size() + 2);
    block.front() = static_cast<unsigned char>(m.msg.size() + 1);
    std::copy(m.msg.begin(), m.msg.end(), block.begin() + 1);
    block.back() = m.p_rev;
    std::vector<char> out(2 * sorrelin_details_bound(block.size()), '\0');   // room to see a violation
    kBlocks[channel - 1](block.data(), static_cast<unsigned>(block.size()), out.data(), 0, 0);
    ASSERT_LT(std::strlen(out.data()), sorrelin_details_bound(block.size())) << "as a block";
  }
  RecordProperty("most_text_per_octet", worst);
  std::cout << "most text per octet: " << worst << "\n";
}

}  // namespace
}  // namespace cs
