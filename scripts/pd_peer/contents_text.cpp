// Prints the contents of data bursts as the Data Burst Message printer shows them: one burst
// per input line, "<f|r> <burst type> <hex>" (forward or reverse link), each answer preceded by
// "=== line N rc=R". Built by pd_tshark_compare.py against the library's static archive.
#include <iostream>
#include <string>
#include <vector>

#include "pd/burst.h"

int main() {
  std::string dir, hex;
  unsigned type = 0;
  for (int n = 1; std::cin >> dir >> type >> hex; ++n) {
    std::vector<std::uint8_t> octets;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2) octets.push_back(static_cast<std::uint8_t>(std::stoul(hex.substr(i, 2), nullptr, 16)));
    cs::Ctx c;
    c.forward = dir == "f";
    cs::Text t;
    const cs::Rc rc = cs::print_burst_contents(t, 0, static_cast<std::uint8_t>(type), octets.data(), octets.size(), c);
    std::cout << "=== line " << n << " rc=" << static_cast<unsigned>(rc) << "\n" << t.str();
  }
}
