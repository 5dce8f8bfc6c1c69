// The library in-process over a realistic mix: every whole message of the golden cases and
// example captures (all five channels, every message family, data bursts included), decoded
// in turn by one Decoder. Reports messages/s and octets of detail text per second.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "api/decoder.h"
#include "../tests/golden.h"

namespace {

struct Msg {
  int channel;
  std::uint8_t p_rev, band;
  std::vector<std::uint8_t> octets;
};

std::vector<std::uint8_t> from_hex(const std::string& h) {
  std::vector<std::uint8_t> v;
  for (std::size_t i = 0; i + 1 < h.size(); i += 2) v.push_back(static_cast<std::uint8_t>(std::stoi(h.substr(i, 2), nullptr, 16)));
  return v;
}

const std::vector<Msg>& mix() {
  static const std::vector<Msg> msgs = [] {
    namespace fs = std::filesystem;
    std::vector<Msg> v;
    const fs::path src(SORRELIN_SOURCE_DIR);
    for (const auto& e : fs::directory_iterator(src / "tests" / "golden")) {
      if (e.path().extension() != ".ok") continue;
      for (const cs::test::Case& k : cs::test::read_cases(e.path())) {
        if (k.body || k.burst || !k.record.empty()) continue;
        const unsigned crc = cs::test::crc_bits(k);
        v.push_back({k.channel, k.p_rev, k.band, cs::test::octets(k.input_bits(), crc)});
      }
    }
    for (const auto& e : fs::directory_iterator(src / "examples")) {
      if (e.path().extension() != ".txt") continue;
      std::ifstream in(e.path());
      for (std::string l; std::getline(in, l);) {
        std::istringstream w(l.substr(0, l.find('#')));
        std::vector<std::string> tok;
        for (std::string t; w >> t;) tok.push_back(t);
        if (tok.size() < 3) continue;
        const int ch = cs::test::channel_code(tok[0]);
        if (ch == 0) continue;
        v.push_back({ch, static_cast<std::uint8_t>(std::stoi(tok[1])),
                     static_cast<std::uint8_t>(tok.size() == 4 ? std::stoi(tok[2]) : 0), from_hex(tok.back())});
      }
    }
    return v;
  }();
  return msgs;
}

void BM_Mix(benchmark::State& st) {
  const auto& msgs = mix();
  cs::DecodeOptions o;
  o.crlf = st.range(0) != 0;
  cs::Decoder d(o);
  std::string out;
  std::size_t i = 0, text = 0;
  for (auto _ : st) {
    const Msg& m = msgs[i++ % msgs.size()];
    out.clear();
    benchmark::DoNotOptimize(d.details(out, m.band, m.p_rev, m.channel, m.octets.data(), m.octets.size()));
    text += out.size();
  }
  st.SetItemsProcessed(static_cast<std::int64_t>(st.iterations()));
  st.SetBytesProcessed(static_cast<std::int64_t>(text));
  st.counters["messages"] = static_cast<double>(msgs.size());
}
BENCHMARK(BM_Mix)->Arg(0)->Arg(1)->ArgName("crlf");

void BM_MixJson(benchmark::State& st) {
  const auto& msgs = mix();
  cs::Decoder d;
  std::string out;
  std::size_t i = 0, text = 0;
  for (auto _ : st) {
    const Msg& m = msgs[i++ % msgs.size()];
    out.clear();
    benchmark::DoNotOptimize(d.details_json(out, m.band, m.p_rev, m.channel, m.octets.data(), m.octets.size()));
    text += out.size();
  }
  st.SetItemsProcessed(static_cast<std::int64_t>(st.iterations()));
  st.SetBytesProcessed(static_cast<std::int64_t>(text));
}
BENCHMARK(BM_MixJson);

}  // namespace
