// Decodes data-burst contents given alone, for comparisons with other decoders: each input
// line is "KIND P_REV HEX" (KIND is683f, is683r or is637; the peer decoder's line format), and
// the output is, per line, "=== line N rc=R" and the detail text of the contents at indent 0.
// Built and run by scripts/burst_peers.py against the static library.
#include <cstdint>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "otasp/otasp.h"
#include "sms/sms.h"

int main() {
  std::string line;
  for (int n = 1; std::getline(std::cin, line); ++n) {
    const auto hash = line.find('#');
    std::istringstream in(line.substr(0, hash));
    std::string kind, p_rev, hex;
    if (!(in >> kind >> p_rev >> hex)) continue;
    std::vector<std::uint8_t> data;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2) data.push_back(static_cast<std::uint8_t>(std::stoul(hex.substr(i, 2), nullptr, 16)));
    cs::Ctx c;
    c.forward = kind != "is683r";
    cs::Arena arena;
    cs::Text t;
    const cs::Rc rc = kind == "is637" ? cs::sms_contents(t, 0, data.data(), data.size(), c, arena)
                                      : cs::otasp_contents(t, 0, data.data(), data.size(), c, arena);
    std::cout << "=== line " << n << " rc=" << static_cast<int>(rc) << "\n" << t.str();
  }
}
