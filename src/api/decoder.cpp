#include "api/decoder.h"

#include "api/names.h"
#include "text/json.h"

namespace cs {

Decoder::Decoder(DecodeOptions options) : options_(options), s_(std::make_unique<State>()) {}
Decoder::Decoder() : Decoder(DecodeOptions{}) {}
Decoder::~Decoder() = default;

namespace {

constexpr std::string_view kUnknownChannel = "<unknown channel type>";

// CRC bits at the end of a message on each channel (the common channels carry 30, the
// traffic channels 16).
unsigned crc_bits(int channel) { return channel == kFwdTraffic || channel == kRevTraffic ? 16 : 30; }

// One message through its channel's path: the detail text appended to `text`, or the records
// written to `json` when that is set.
Rc run(Decoder::State& s, const DecodeOptions& options, Text& text, Json* json, bool& convert,
       std::uint8_t band_class, std::uint8_t p_rev, int channel, const std::uint8_t* msg, std::size_t len) {
  s.arena.reset();
  // The bit count leaves out the type octet and the CRC; a message too short for those gets
  // no bits at all (the decoders then report it as too short) rather than a wrapped count.
  const std::uint64_t total = static_cast<std::uint64_t>(len) * 8;
  const std::uint64_t overhead = 8 + crc_bits(channel);
  Call call{s.arena, text, p_rev, band_class, msg, len, total > overhead ? total - overhead : 0, total < overhead,
            true, options.all_broadcast, json};
  Rc rc = Rc::ok;
  switch (channel) {
    case kSync: rc = run_sync(s.sync, call); break;
    case kPaging: rc = run_paging(s.paging, call); break;
    case kAccess: rc = run_access(s.access, call); break;
    case kFwdTraffic: rc = run_fwd_traffic(s.fwd_traffic, call); break;
    case kRevTraffic: rc = run_rev_traffic(s.rev_traffic, call); break;
  }
  s.arena.reset();
  convert = call.convert_line_ends;
  return rc;
}

}  // namespace

int Decoder::details(std::string& out, std::uint8_t band_class, std::uint8_t p_rev, int channel,
                     const std::uint8_t* msg, std::size_t len) {
  if (channel < kSync || channel > kRevTraffic) {
    out.assign(kUnknownChannel);
    return 0;
  }
  // The text is appended straight to the caller's string.
  Text text(out);
  bool convert = false;
  const Rc rc = run(*s_, options_, text, nullptr, convert, band_class, p_rev, channel, msg, len);
  if (options_.crlf && convert) to_crlf_in_place(out);
  return static_cast<int>(rc);
}

int Decoder::details_json(std::string& out, std::uint8_t band_class, std::uint8_t p_rev, int channel,
                          const std::uint8_t* msg, std::size_t len) {
  static constexpr const char* kNames[] = {"", "sync", "paging", "access", "ftc", "rtc"};
  const bool known = channel >= kSync && channel <= kRevTraffic;
  Json j(out);
  j.begin_object();
  j.key("channel");
  if (known) {
    j.string(kNames[channel]);
  } else {
    j.number(static_cast<std::int64_t>(channel));
  }
  j.key("p_rev");
  j.number(std::uint64_t{p_rev});
  j.key("band_class");
  j.number(std::uint64_t{band_class});
  j.key("name");
  j.string(summary(channel, msg, msg ? len : 0));
  Rc rc = Rc::ok;
  j.key("records");
  j.begin_array();
  if (known) {
    Text unused;
    bool convert = false;
    rc = run(*s_, options_, unused, &j, convert, band_class, p_rev, channel, msg, len);
  }
  j.end_array();
  j.key("result");
  j.number(static_cast<std::uint64_t>(rc));
  j.end_object();
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
