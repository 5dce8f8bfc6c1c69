// Runs one message body through its BodyOps the way a dispatcher does: a zeroed record, the
// decode over a bit range, then the print at indent 0.
#pragma once
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "codec/arena.h"
#include "codec/walk.h"
#include "text/text.h"

namespace cs::test {

struct BodyRun {
  Rc rc;
  std::uint64_t used;
  std::string text;
};

inline BodyRun run_body(const BodyOps* ops, const std::vector<std::uint8_t>& buf, std::uint64_t start,
                        std::uint64_t avail, const Ctx& c) {
  Arena arena;
  // memset, not value-initialisation: a long double member of max_align_t leaves padding bytes.
  std::vector<std::max_align_t> storage(ops->size / sizeof(std::max_align_t) + 1);
  void* rec = storage.data();
  std::memset(rec, 0, storage.size() * sizeof(std::max_align_t));
  std::uint64_t used = 0;
  const Rc rc = ops->decode(rec, c, arena, buf.data(), buf.size(), start, avail, &used);
  Text t;
  ops->print(rec, c, ops->header, 0, t);
  return {rc, rc == Rc::ok ? used : 0, t.str()};
}

inline Ctx ctx(std::uint8_t p_rev, std::uint8_t band_class = 1) {
  Ctx c;
  c.p_rev = p_rev;
  c.band_class = band_class;
  return c;
}

}  // namespace cs::test
