// The peer view of a message: the compact one-line rendering behind the block entry points.
#include "api/decoder.h"
#include "text/compact_walk.h"

namespace cs {

int Decoder::peer(std::string& out, std::uint8_t band_class, std::uint8_t p_rev, int channel,
                  const std::uint8_t* msg, std::size_t len) {
  if (channel < kSync || channel > kRevTraffic || msg == nullptr) return 0;
  State& s = *s_;
  s.arena.reset();
  Text view_text(out);
  CompactOut view(view_text);
  Text unused;   // the channel paths print nothing here
  // Every bit of the message is handed on, the type octet and the CRC included: unlike the
  // detail text, the view is decoded up to the message's last octet.
  Call call{s.arena, unused, p_rev, band_class, msg, len, 8u * static_cast<std::uint64_t>(len), false, false, false};

  Rc rc = Rc::ok;
  switch (channel) {
    case kSync: break;   // the name alone
    case kPaging: rc = peer_paging(s.paging, call, view); break;
    case kAccess: rc = peer_access(s.access, call, view); break;
    case kFwdTraffic: rc = peer_fwd_traffic(s.fwd_traffic, call, view, false); break;
    // The reverse traffic channel shows its record whatever the decode gave.
    case kRevTraffic: rc = peer_rev_traffic(s.rev_traffic, call, view, true); break;
  }
  s.arena.reset();
  return static_cast<int>(rc);
}

}  // namespace cs
