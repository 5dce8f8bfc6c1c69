// libFuzzer target: ovnDecodeDetails and ovnDecodeSummary on any channel code, P_REV and band
// class, with `out` sometimes holding text already. The buffer is sized from the bounded
// call's answer, exactly, so that a write past the text the library announced is caught.
// Switches (octet 3): bits 0-1 the text already in `out`.
#include <cstring>
#include <vector>

#include "common.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input in;
  if (!fuzz::split(data, size, in)) return 0;
  fuzz::reset_shared_decoder();
  const int channel = in.selector % 8;   // the unknown codes 0, 6 and 7 included
  const std::string prior = fuzz::prior_text(in.switches);

  // The size of the text alone, then the text appended to `prior` in a buffer of exactly the
  // size that needs: the prior text grows by a CR per line on a known channel.
  std::size_t needed = 0;
  sorrelin_details(nullptr, 0, &needed, in.band, in.p_rev, channel, in.msg, in.len);
  fuzz::check_bound(needed, in.len);
  fuzz::note_text_size(needed - 1, in.len);
  const std::string prior_crlf = fuzz::crlf(prior);
  std::vector<char> out(std::max(prior_crlf.size() + needed, sizeof "<unknown channel type>"));
  std::memcpy(out.data(), prior.c_str(), prior.size() + 1);
  const int rc = ovnDecodeDetails(out.data(), in.band, in.p_rev, channel, in.msg, static_cast<unsigned>(in.len));
  fuzz::check(rc == 0 || rc == 1 || rc == 3, "result outside 0, 1, 3");
  const std::string text(out.data());
  if (channel < 1 || channel > 5) {
    fuzz::check(text == "<unknown channel type>" && rc == 0, "unknown channel text");
  } else {
    // The text is the prior text and the bounded call's text, both converted, or (a path
    // that stops before the conversion) both left alone.
    std::vector<char> alone(needed);
    const int brc = sorrelin_details(alone.data(), alone.size(), nullptr, in.band, in.p_rev, channel, in.msg, in.len);
    fuzz::check(brc == rc, "bounded call's result differs");
    const std::string tail(alone.data());
    fuzz::check(text == prior_crlf + tail || text == prior + tail, "text is not the prior text and the message's");
    fuzz::check(text.size() + 1 == prior_crlf.size() + needed || text.size() + 1 == prior.size() + needed,
                "text longer than announced");
  }

  // The summary: one name line, the same as the bounded call's, never more than it announced.
  std::size_t name_size = 0;
  sorrelin_summary(nullptr, 0, &name_size, channel, in.msg, in.len);
  std::vector<char> name(name_size);
  fuzz::check(ovnDecodeSummary(name.data(), in.band, in.p_rev, channel, in.msg, static_cast<unsigned>(in.len)) == 0,
              "summary result");
  fuzz::check(std::strlen(name.data()) + 1 == name_size, "summary size");
  fuzz::check(std::strchr(name.data(), '\n') == nullptr, "summary holds a line end");
  return 0;
}
