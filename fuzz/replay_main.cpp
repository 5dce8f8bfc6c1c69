// A plain main for a fuzz target: runs it once over every file named, and over every file in
// every folder named (the seed corpora), then prints how many inputs it ran. Used where
// libFuzzer is not wanted: coverage builds, and a compiler without it.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void run_file(const std::filesystem::path& p) {
  std::ifstream in(p, std::ios::binary);
  const std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

}  // namespace

int main(int argc, char** argv) {
  std::size_t n = 0;
  for (int i = 1; i < argc; ++i) {
    const std::filesystem::path p(argv[i]);
    if (std::filesystem::is_directory(p)) {
      for (const auto& e : std::filesystem::recursive_directory_iterator(p)) {
        if (!e.is_regular_file()) continue;
        run_file(e.path());
        ++n;
      }
    } else {
      run_file(p);
      ++n;
    }
  }
  std::printf("%zu inputs run\n", n);
  return 0;
}
