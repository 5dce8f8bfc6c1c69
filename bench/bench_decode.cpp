// Decoding cost per message: the sync channel and, as families land, the long messages of the
// other channels; the sizes sweep shows that time grows linearly with the message.
#include <benchmark/benchmark.h>

#include <random>
#include <string>
#include <vector>

#include "api/decoder.h"
#include "long_messages.h"

namespace {

std::vector<std::uint8_t> hex(const char* h) {
  std::vector<std::uint8_t> v;
  for (; h[0] && h[1]; h += 2) v.push_back(static_cast<std::uint8_t>(std::stoi(std::string(h, 2), nullptr, 16)));
  return v;
}

void BM_SyncDetails(benchmark::State& st) {
  cs::Decoder d;
  const auto msg = hex("010501206200084e390167a5fbcd152529cc472806444445b2");
  std::string out;
  for (auto _ : st) {
    out.clear();
    benchmark::DoNotOptimize(d.details(out, 1, 5, 1, msg.data(), msg.size()));
  }
}
BENCHMARK(BM_SyncDetails);

// A valid forward traffic message of 10 to 4000 octets whose text grows with it (about one
// line per octet): the time per octet must stay flat across the rows.
void BM_LongFlashWithInfo(benchmark::State& st) {
  cs::Decoder d;
  const auto msg = cs::sample::long_flash_with_info(static_cast<std::size_t>(st.range(0)));
  std::string out;
  for (auto _ : st) {
    out.clear();
    benchmark::DoNotOptimize(d.details(out, 0, 6, 4, msg.data(), msg.size()));
  }
  st.SetBytesProcessed(static_cast<std::int64_t>(st.iterations()) * static_cast<std::int64_t>(msg.size()));
  st.counters["text_octets"] = static_cast<double>(out.size());
}
BENCHMARK(BM_LongFlashWithInfo)->RangeMultiplier(4)->Range(10, 4000);

// Random messages of a given size on every channel (mostly cut short early): the per-octet
// cost must not grow with the size either.
void BM_RandomBySize(benchmark::State& st) {
  cs::Decoder d;
  std::mt19937 rng(1);
  std::vector<std::vector<std::uint8_t>> msgs;
  for (int i = 0; i < 64; ++i) {
    std::vector<std::uint8_t> m(static_cast<std::size_t>(st.range(0)));
    for (auto& o : m) o = static_cast<std::uint8_t>(rng());
    msgs.push_back(std::move(m));
  }
  std::string out;
  std::size_t i = 0, octets = 0;
  for (auto _ : st) {
    const auto& m = msgs[i++ % msgs.size()];
    out.clear();
    benchmark::DoNotOptimize(d.details(out, 0, static_cast<std::uint8_t>(6 + i % 6), 1 + static_cast<int>(i % 5),
                                       m.data(), m.size()));
    octets += m.size();
  }
  st.SetBytesProcessed(static_cast<std::int64_t>(octets));
}
BENCHMARK(BM_RandomBySize)->RangeMultiplier(4)->Range(10, 4000);

void BM_Summary(benchmark::State& st) {
  const std::uint8_t m[1] = {17};
  for (auto _ : st) benchmark::DoNotOptimize(cs::Decoder::summary(4, m, 1));
}
BENCHMARK(BM_Summary);

}  // namespace
