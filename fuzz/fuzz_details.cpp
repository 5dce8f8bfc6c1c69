// libFuzzer target: any bytes through the detail, summary and block paths of every channel.
// Input: channel octet, P_REV octet, band class octet, then the message.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "api/decoder.h"
#include "cdmaSorrelin.h"

namespace {

using BlockFn = int (*)(unsigned char*, unsigned int, char*, unsigned int, unsigned int);
constexpr BlockFn kBlocks[] = {fnSorrelinFC_SCHBlock, fnSorrelinFC_PCHBlock, fnSorrelinRC_ACHBlock,
                               fnSorrelinFDTCHBlock, fnSorrelinRDTCHBlock};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static cs::Decoder decoder;
  if (size < 3) return 0;
  const int channel = data[0] % 8;   // includes the unknown codes 0, 6 and 7
  std::string out;
  const int rc = decoder.details(out, data[2], data[1], channel, data + 3, size - 3);
  if (rc != 0 && rc != 1 && rc != 3) __builtin_trap();
  if (out.find('\0') != std::string::npos) __builtin_trap();
  (void)cs::Decoder::summary(channel, data + 3, size - 3);

  // The same octets as a block (octet 0 names the parameter octet), full and peer renderings.
  if (channel >= 1 && channel <= 5) {
    static std::vector<char> text(1 << 22);
    std::vector<unsigned char> block(data + 2, data + size);   // block[0] = band octet as N
    text[0] = '\0';
    kBlocks[channel - 1](block.data(), static_cast<unsigned>(block.size()), text.data(), 0, 0);
    char peer[64];
    kBlocks[channel - 1](block.data(), static_cast<unsigned>(block.size()), peer, sizeof peer - 1, 1);
    if (std::memchr(peer, '\0', sizeof peer) == nullptr) __builtin_trap();
  }
  return 0;
}
