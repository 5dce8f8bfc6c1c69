// libFuzzer target: the C++ cs::Decoder with both of its options, on a stream of one or two
// messages (the decoder carries the traffic channels' header fields from one to the next).
// Three decoders see the same stream: A with the options chosen, B as A with LF line ends,
// C as A with the other all_broadcast value. Their texts must agree: B's is A's before the
// line-end conversion, and C's equals A's off the paging channel.
// Switches (octet 3): bit 0 all_broadcast, bits 1-2 the text already in `out`, bits 3-5 where
// the input splits into two messages (k eighths of it; 0: one message).
#include "cdmaSorrelin.hpp"
#include "common.h"

namespace {

struct Run {
  cs::Decoder d;
  std::string text;
  int rc = 0;
  explicit Run(cs::DecodeOptions o) : d(o) {}
  void decode(const std::string& prior, const fuzz::Input& in, int channel, const std::uint8_t* msg, std::size_t len) {
    text = prior;
    rc = d.details(text, in.band, in.p_rev, channel, msg, len);
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input in;
  if (!fuzz::split(data, size, in)) return 0;
  const int channel = in.selector % 8;
  const bool all = in.switches & 1;
  const std::string prior = fuzz::prior_text(in.switches >> 1);
  const std::size_t split = in.len * ((in.switches >> 3) & 7) / 8;

  Run a({.crlf = true, .all_broadcast = all}), b({.crlf = false, .all_broadcast = all}),
      c({.crlf = true, .all_broadcast = !all});
  struct Part {
    const std::uint8_t* msg;
    std::size_t len;
  };
  const Part parts[] = {{in.msg, split}, {in.msg + split, in.len - split}};
  for (std::size_t i = split == 0 ? 1 : 0; i < 2; ++i) {
    const Part& p = parts[i];
    for (Run* r : {&a, &b, &c}) r->decode(prior, in, channel, p.msg, p.len);
    fuzz::check(a.rc == 0 || a.rc == 1 || a.rc == 3, "result outside 0, 1, 3");
    fuzz::check(a.rc == b.rc, "the line ends changed the result");
    fuzz::check(a.text == b.text || a.text == fuzz::crlf(b.text), "CR LF text is not the LF text converted");
    if (channel != cs::kPaging) {
      fuzz::check(a.rc == c.rc && a.text == c.text, "all_broadcast changed a text off the paging channel");
    }
    fuzz::check(c.rc == 0 || c.rc == 1 || c.rc == 3, "result outside 0, 1, 3");
    // The message's own text (after the prior text, converted or not) within the bound.
    if (channel >= cs::kSync && channel <= cs::kRevTraffic) {
      for (const Run* r : {&a, &c}) {
        const std::string converted = fuzz::crlf(prior);
        const std::size_t head = r->text.compare(0, converted.size(), converted) == 0 ? converted.size() : prior.size();
        fuzz::check(r->text.size() >= head, "the prior text was cut");
        fuzz::check_bound(r->text.size() - head + 1, p.len);
        fuzz::note_text_size(r->text.size() - head, p.len);
      }
    }
  }
  const std::string name = cs::Decoder::summary(channel, in.msg, in.len);
  fuzz::check(!name.empty() && name.find('\n') == std::string::npos, "summary");
  return 0;
}
