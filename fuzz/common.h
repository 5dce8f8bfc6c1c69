// What every fuzz target shares: the input format, the output bound check, and the feedback
// that steers the fuzzer towards long texts.
//
// Input (the seeds of fuzz/corpus/* and scripts/fuzz_seeds.py's output use it):
//   octet 0  channel selector (a target maps it to a channel code, unknown codes included)
//   octet 1  P_REV
//   octet 2  band class
//   octet 3  a target's own switches (flags, capacities, options, a text already in `out`)
//   octet 4- the message: type octet, body, CRC
#pragma once
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "cdmaSorrelin.h"

namespace fuzz {

struct Input {
  std::uint8_t selector, p_rev, band, switches;
  const std::uint8_t* msg;
  std::size_t len;
};

// False for inputs too short to carry the four leading octets.
inline bool split(const std::uint8_t* data, std::size_t size, Input& in) {
  if (size < 4) return false;
  in = {data[0], data[1], data[2], data[3], data + 4, size - 4};
  return true;
}

// Stops the run with a message: the fuzzer records the input as a crash.
[[noreturn]] inline void fail(const char* what) {
  std::fprintf(stderr, "fuzz check failed: %s\n", what);
  std::abort();
}

inline void check(bool ok, const char* what) {
  if (!ok) fail(what);
}

// The text of a message of `len` octets (NUL included) must fit the documented bound.
inline void check_bound(std::size_t text_size_with_nul, std::size_t len) {
  check(text_size_with_nul <= sorrelin_details_bound(len), "text longer than sorrelin_details_bound(len)");
}

// Extra coverage features for the text size per input octet, so that an input that reaches
// a larger ratio than any before it is kept and mutated further: the fuzzer then searches for
// the longest texts (and so for violations of the bound) instead of stumbling on them.
// One feature per (bit length of len, ratio in steps of 8 octets per octet).
constexpr std::size_t kLenBuckets = 16, kRatioBuckets = 128;
#if defined(__clang__) && defined(__linux__)
__attribute__((used, section("__libfuzzer_extra_counters")))
#endif
inline std::uint8_t g_ratio_counters[kLenBuckets * kRatioBuckets];

inline void note_text_size(std::size_t text_size, std::size_t len) {
  std::size_t len_bucket = 0;
  for (std::size_t l = len; l != 0 && len_bucket + 1 < kLenBuckets; l >>= 1) ++len_bucket;
  std::size_t ratio = text_size / (len == 0 ? 1 : len) / 8;
  if (ratio >= kRatioBuckets) ratio = kRatioBuckets - 1;
  g_ratio_counters[len_bucket * kRatioBuckets + ratio] = 1;
}

// The LF -> CR LF conversion the C interface applies.
inline std::string crlf(std::string_view s) {
  std::string r;
  for (char c : s) {
    if (c == '\n') r.push_back('\r');
    r.push_back(c);
  }
  return r;
}

// A text already in the caller's buffer: none, or a few lines (switch bits 0-1 choose).
inline std::string prior_text(unsigned choice) {
  switch (choice & 3) {
    case 0: return "";
    case 1: return "x";
    case 2: return "earlier message\n";
    default: return "line one\nline two\n\nline four\n";
  }
}

// The decoders keep the traffic channels' header fields from one message to the next; the
// C entry points share one decoder across fuzz inputs. Feeding it the same two messages
// before each input makes every input start from the same state, so a finding reproduces.
inline void reset_shared_decoder() {
  // Traffic PDUs at P_REV 9 with no MACI and no encryption (type 0, then zero header bits).
  static const unsigned char kPdu[8] = {0, 0, 0, 0, 0, 0, 0, 0};
  sorrelin_details(nullptr, 0, nullptr, 0, 9, SORRELIN_FDTCH, kPdu, sizeof kPdu);
  sorrelin_details(nullptr, 0, nullptr, 0, 9, SORRELIN_RDTCH, kPdu, sizeof kPdu);
}

}  // namespace fuzz
