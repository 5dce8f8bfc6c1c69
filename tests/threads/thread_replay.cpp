// Per-thread Decoders against a serial replay, for a ThreadSanitizer build:
//
//     sorrelin_thread_replay [-t THREADS] [-n MAX_INPUTS] PATH...
//
// PATHs are fuzz inputs (files, or folders of them: channel, P_REV, band class, switches, then
// the message). The threads start together, before anything has used the library's tables, each
// with its own Decoder (half of them with LF line ends and every broadcast message), and each
// replays every input in order; then one Decoder per option set replays them serially. Every
// thread's texts and results must equal the serial replay's. Exits 1 on a difference.
#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#include "cdmaSorrelin.hpp"

namespace {

struct Input {
  int channel;
  std::uint8_t p_rev, band;
  std::vector<std::uint8_t> msg;
};

void read_input(const std::filesystem::path& p, std::vector<Input>& out) {
  std::ifstream f(p, std::ios::binary);
  const std::vector<char> b((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
  if (b.size() < 4) return;
  const auto octet = [&](std::size_t i) { return static_cast<std::uint8_t>(b[i]); };
  out.push_back({octet(0) % 8, octet(1), octet(2), {b.begin() + 4, b.end()}});
}

using Results = std::vector<std::string>;   // per input: result digit, then the text

Results replay(const std::vector<Input>& inputs, const cs::DecodeOptions& o) {
  cs::Decoder d(o);
  Results r;
  r.reserve(inputs.size());
  for (const Input& in : inputs) {
    std::string text;
    const int rc = d.details(text, in.band, in.p_rev, in.channel, in.msg.data(), in.msg.size());
    r.push_back(std::to_string(rc) + cs::Decoder::summary(in.channel, in.msg.data(), in.msg.size()) + text);
  }
  return r;
}

}  // namespace

int main(int argc, char** argv) {
  unsigned threads = 4;
  std::size_t max_inputs = static_cast<std::size_t>(-1);
  std::vector<std::filesystem::path> paths;
  for (int i = 1; i < argc; ++i) {
    const std::string a = argv[i];
    if (a == "-t" && i + 1 < argc) {
      threads = static_cast<unsigned>(std::atoi(argv[++i]));
    } else if (a == "-n" && i + 1 < argc) {
      max_inputs = static_cast<std::size_t>(std::atoll(argv[++i]));
    } else {
      paths.emplace_back(a);
    }
  }
  std::vector<std::filesystem::path> files;
  for (const auto& p : paths) {
    if (!std::filesystem::is_directory(p)) {
      files.push_back(p);
      continue;
    }
    for (const auto& e : std::filesystem::recursive_directory_iterator(p))
      if (e.is_regular_file()) files.push_back(e.path());
  }
  std::sort(files.begin(), files.end());
  std::vector<Input> inputs;
  for (const auto& f : files) {
    if (inputs.size() >= max_inputs) break;
    read_input(f, inputs);
  }
  if (inputs.empty() || threads == 0) {
    std::fprintf(stderr, "usage: sorrelin_thread_replay [-t THREADS] [-n MAX_INPUTS] PATH...\n");
    return 2;
  }

  const cs::DecodeOptions kOptions[2] = {{}, {.crlf = false, .all_broadcast = true}};
  std::vector<Results> got(threads);
  std::atomic<unsigned> ready{0};
  std::vector<std::thread> pool;
  for (unsigned t = 0; t < threads; ++t) {
    pool.emplace_back([&, t] {
      ready.fetch_add(1);
      while (ready.load() < threads) std::this_thread::yield();   // start together
      got[t] = replay(inputs, kOptions[t % 2]);
    });
  }
  for (std::thread& th : pool) th.join();

  const Results serial[2] = {replay(inputs, kOptions[0]), replay(inputs, kOptions[1])};
  int differences = 0;
  for (unsigned t = 0; t < threads; ++t) {
    for (std::size_t i = 0; i < inputs.size(); ++i) {
      if (got[t][i] == serial[t % 2][i]) continue;
      if (++differences <= 5) std::fprintf(stderr, "thread %u differs from the serial replay at input %zu\n", t, i);
    }
  }
  std::printf("%u threads x %zu inputs: %s the serial replay\n", threads, inputs.size(),
              differences == 0 ? "equal to" : "DIFFERENT from");
  return differences == 0 ? 0 : 1;
}
