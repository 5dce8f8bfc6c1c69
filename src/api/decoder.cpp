#include "api/decoder.h"

#include "api/names.h"

namespace cs {

Decoder::Decoder(DecodeOptions options) : options_(options), s_(std::make_unique<State>()) {}
Decoder::Decoder() : Decoder(DecodeOptions{}) {}
Decoder::~Decoder() = default;

namespace {

constexpr std::string_view kUnknownChannel = "<unknown channel type>";

// CRC bits at the end of a message on each channel (the common channels carry 30, the
// traffic channels 16).
unsigned crc_bits(int channel) { return channel == kFwdTraffic || channel == kRevTraffic ? 16 : 30; }

}  // namespace

int Decoder::details(std::string& out, std::uint8_t band_class, std::uint8_t p_rev, int channel,
                     const std::uint8_t* msg, std::size_t len) {
  if (channel < kSync || channel > kRevTraffic) {
    out.assign(kUnknownChannel);
    return 0;
  }
  State& s = *s_;
  s.arena.reset();
  // The text is appended straight to the caller's string.
  Text text(out);
  // The bit count leaves out the type octet and the CRC; a message too short for those gets
  // no bits at all (the decoders then report it as too short) rather than a wrapped count.
  const std::uint64_t total = static_cast<std::uint64_t>(len) * 8;
  const std::uint64_t overhead = 8 + crc_bits(channel);
  Call call{s.arena, text, p_rev, band_class, msg, len, total > overhead ? total - overhead : 0, total < overhead,
            true, options_.all_broadcast};

  Rc rc = Rc::ok;
  switch (channel) {
    case kSync: rc = run_sync(s.sync, call); break;
    case kPaging: rc = run_paging(s.paging, call); break;
    case kAccess: rc = run_access(s.access, call); break;
    case kFwdTraffic: rc = run_fwd_traffic(s.fwd_traffic, call); break;
    case kRevTraffic: rc = run_rev_traffic(s.rev_traffic, call); break;
  }
  if (options_.crlf && call.convert_line_ends) to_crlf_in_place(out);
  s.arena.reset();
  return static_cast<int>(rc);
}

std::string Decoder::summary(int channel, const std::uint8_t* msg, std::size_t len) {
  // The whole first octet names the message on every channel, with no P_REV masking.
  return summary_text(channel, len > 0 ? msg[0] : 0);
}

Decoder& process_decoder() {
  static Decoder d;
  return d;
}

}  // namespace cs
