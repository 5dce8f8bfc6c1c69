// libFuzzer target: the bounded calls sorrelin_details and sorrelin_summary at every capacity
// from 0 to beyond the text, each into a heap buffer of exactly that capacity (a write past it
// is an AddressSanitizer finding). Whenever the text fits it equals ovnDecodeDetails's;
// otherwise it is that text cut, NUL-terminated, with result SORRELIN_TRUNCATED.
// Switches (octet 3): below 128, the capacity itself (0 to 127); from 128, the size the text
// needs plus (switches - 192), so -64 to +63 around the exact fit.
#include <cstring>
#include <vector>

#include "common.h"

namespace {

std::size_t capacity_of(unsigned switches, std::size_t needed) {
  if (switches < 128) return switches;
  const long long c = static_cast<long long>(needed) + static_cast<long long>(switches) - 192;
  return c < 0 ? 0 : static_cast<std::size_t>(c);
}

// One bounded call against the whole text: never past the capacity, the size always told.
void check_cut(int rc, const std::vector<char>& out, std::size_t needed, const std::string& whole, int whole_rc) {
  fuzz::check(needed == whole.size() + 1, "needed is not the whole text's size");
  if (out.empty()) {
    fuzz::check(rc == SORRELIN_TRUNCATED, "a size query must say truncated");
    return;
  }
  const std::size_t kept = std::min(whole.size(), out.size() - 1);
  fuzz::check(std::memcmp(out.data(), whole.data(), kept) == 0 && out[kept] == '\0', "text is not the whole one cut");
  fuzz::check(rc == (kept < whole.size() ? SORRELIN_TRUNCATED : whole_rc), "bounded result");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input in;
  if (!fuzz::split(data, size, in)) return 0;
  fuzz::reset_shared_decoder();
  const int channel = in.selector % 8;

  // The whole text, from ovnDecodeDetails into a buffer of the announced size.
  std::size_t needed = 0;
  const int query_rc = sorrelin_details(nullptr, 0, &needed, in.band, in.p_rev, channel, in.msg, in.len);
  fuzz::check(query_rc == SORRELIN_TRUNCATED, "a size query must say truncated");
  fuzz::check_bound(needed, in.len);
  fuzz::note_text_size(needed - 1, in.len);
  std::vector<char> full(std::max(needed, sizeof "<unknown channel type>"));
  full[0] = '\0';
  const int whole_rc = ovnDecodeDetails(full.data(), in.band, in.p_rev, channel, in.msg, static_cast<unsigned>(in.len));
  const std::string whole(full.data());

  std::vector<char> out(capacity_of(in.switches, needed));
  std::size_t told = 0;
  const int rc = sorrelin_details(out.empty() ? nullptr : out.data(), out.size(), &told, in.band, in.p_rev, channel,
                                  in.msg, in.len);
  check_cut(rc, out, told, whole, whole_rc);

  // The summary at the same capacity (mostly larger than the name), against ovnDecodeSummary.
  std::size_t name_size = 0;
  sorrelin_summary(nullptr, 0, &name_size, channel, in.msg, in.len);
  std::vector<char> name(name_size);
  ovnDecodeSummary(name.data(), in.band, in.p_rev, channel, in.msg, static_cast<unsigned>(in.len));
  std::vector<char> short_name(capacity_of(in.switches, name_size));
  const int src = sorrelin_summary(short_name.empty() ? nullptr : short_name.data(), short_name.size(), &told, channel,
                                   in.msg, in.len);
  check_cut(src, short_name, told, name.data(), 0);
  return 0;
}
