// libFuzzer target: the ten block exports, full and peer renderings, small `outlen`s.
// Switches (octet 3): bit 0 the flags value, bit 1 the *BlockPeer export instead, bit 2 the
// message's own P_REV octet after it (as hosts build blocks) instead of the raw octets,
// bits 3-7 `outlen` (0 to 31). The peer rendering gets a buffer of `outlen` + 1 octets whose
// last must stay untouched, the full rendering one of exactly the size its text announces.
#include <cstring>
#include <vector>

#include "common.h"

namespace {

using BlockFn = int (*)(unsigned char*, unsigned int, char*, unsigned int, unsigned int);
using PeerFn = int (*)(unsigned char*, unsigned int, unsigned int, unsigned int, char*, unsigned int);
constexpr BlockFn kBlocks[] = {fnSorrelinFC_SCHBlock, fnSorrelinFC_PCHBlock, fnSorrelinRC_ACHBlock,
                               fnSorrelinFDTCHBlock, fnSorrelinRDTCHBlock};
constexpr PeerFn kPeers[] = {fnSorrelinFC_SCHBlockPeer, fnSorrelinFC_PCHBlockPeer, fnSorrelinRC_ACHBlockPeer,
                             fnSorrelinFDTCHBlockPeer, fnSorrelinRDTCHBlockPeer};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input in;
  if (!fuzz::split(data, size, in)) return 0;
  fuzz::reset_shared_decoder();
  // The channel codes 1 to 5 as they are; the other selector values name one of them too.
  const int channel = in.selector % 8 >= 1 && in.selector % 8 <= 5 ? in.selector % 8 : 1 + in.selector % 5;
  const bool peer_flag = in.switches & 1, peer_export = in.switches & 2, host_block = in.switches & 4;
  const unsigned outlen = in.switches >> 3;

  // The block: N, the message, and (as hosts build it) the P_REV octet at N after the message.
  std::vector<unsigned char> block;
  if (host_block) {
    block.push_back(static_cast<unsigned char>(in.len + 1));
    block.insert(block.end(), in.msg, in.msg + in.len);
    block.push_back(in.p_rev);
  } else {
    block.assign(in.msg, in.msg + in.len);
  }
  block.reserve(block.size() + 1);   // never a null block, even an empty one
  const auto len = static_cast<unsigned>(block.size());
  // The P_REV octet at N, read after the access channel's reduction of the type octet (N may
  // point at that octet).
  std::vector<unsigned char> reduced = block;
  if (channel == SORRELIN_RC_ACH && reduced.size() >= 2) reduced[1] %= 64;
  const unsigned n = reduced.empty() ? 0 : reduced[0];
  const std::uint8_t p_rev = n < reduced.size() ? reduced[n] : 0;

  int rc;
  std::string text;
  if (peer_flag || peer_export) {
    std::vector<char> out(outlen + 1, '#');
    rc = peer_export ? kPeers[channel - 1](block.data(), len, 0, 0, out.data(), outlen)
                     : kBlocks[channel - 1](block.data(), len, out.data(), outlen, 1);
    // Nothing at or past out[outlen]: a text that does not fit is cut to outlen - 1 octets and
    // its NUL, and an outlen of 0 leaves out untouched.
    fuzz::check(out[outlen] == '#', "peer rendering wrote at out[outlen]");
    if (outlen > 0) {
      fuzz::check(std::memchr(out.data(), '\0', outlen) != nullptr, "peer text not ended within outlen");
      text = out.data();
    }
  } else {
    // name, three spaces, CR LF, then the detail text: its size asked of the bounded calls
    // (on the message as the export will see it, with its access channel type reduced).
    std::vector<unsigned char> seen(reduced.begin() + (reduced.empty() ? 0 : 1), reduced.end());
    seen.reserve(1);   // an empty message is still a message, not a null pointer
    std::size_t name_size = 0, details_size = 0;
    sorrelin_summary(nullptr, 0, &name_size, channel, seen.data(), seen.size());
    sorrelin_details(nullptr, 0, &details_size, 0, p_rev, channel, seen.data(), seen.size());
    std::vector<char> out(name_size - 1 + 5 + details_size);   // one NUL
    out[0] = '\0';
    rc = kBlocks[channel - 1](block.data(), len, out.data(), 0, 0);
    text = out.data();
    fuzz::check(text.size() + 1 == out.size(), "full rendering's size differs from the name and the details");
    fuzz::check(text.compare(name_size - 1, 5, "   \r\n") == 0, "name line");
    fuzz::check_bound(text.size() + 1, len);
    fuzz::note_text_size(text.size(), len);
  }
  fuzz::check(rc == 0 || rc == 1 || rc == 3, "result outside 0, 1, 3");

  // Only the access channel exports touch the block: its type octet, reduced modulo 64.
  fuzz::check(block == reduced, "block changed");
  return 0;
}
