// Decodes one sync channel message through cs::Decoder from the static library.
#include <cdmaSorrelin.hpp>
#include <cstdio>

int main() {
  static const std::uint8_t msg[] = {0x01, 0x05, 0x01, 0x20, 0x62, 0x00, 0x08, 0x4e, 0x39, 0x01, 0x67, 0xa5, 0xfb,
                                     0xcd, 0x15, 0x25, 0x29, 0xcc, 0x47, 0x28, 0x06, 0x44, 0x44, 0x45, 0xb2};
  cs::Decoder d;
  std::string text;
  if (d.details(text, 1, 5, cs::kSync, msg, sizeof msg) != 0 || text.find("   PILOT_PN = 78\r\n") == std::string::npos) {
    std::fprintf(stderr, "unexpected text:\n%s\n", text.c_str());
    return 1;
  }
  std::printf("C++ consumer: %s\n", cs::Decoder::summary(cs::kSync, msg, sizeof msg).c_str());
  return 0;
}
