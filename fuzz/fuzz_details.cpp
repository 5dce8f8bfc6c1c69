// libFuzzer target: any bytes through the detail and summary paths of every channel.
// Input: channel octet, P_REV octet, band class octet, then the message.
#include <cstddef>
#include <cstdint>
#include <string>

#include "api/decoder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static cs::Decoder decoder;
  if (size < 3) return 0;
  const int channel = data[0] % 8;   // includes the unknown codes 0, 6 and 7
  std::string out;
  const int rc = decoder.details(out, data[2], data[1], channel, data + 3, size - 3);
  if (rc != 0 && rc != 1 && rc != 3) __builtin_trap();
  if (out.find('\0') != std::string::npos) __builtin_trap();
  (void)cs::Decoder::summary(channel, data + 3, size - 3);
  return 0;
}
