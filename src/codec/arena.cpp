#include "codec/arena.h"

#include <algorithm>
#include <cstring>

namespace cs {

namespace {
constexpr std::size_t kChunk = 16 * 1024;
}

void* Arena::raw(std::size_t size, std::size_t align) {
  for (; current_ < chunks_.size(); ++current_) {
    Chunk& c = chunks_[current_];
    const std::size_t at = (c.used + align - 1) / align * align;
    if (at + size <= c.size) {
      c.used = at + size;
      ++count_;
      std::memset(c.mem.get() + at, 0, size);
      return c.mem.get() + at;
    }
  }
  const std::size_t n = std::max(kChunk, size + align);
  // Not zeroed here: every allocation is zeroed as it is handed out.
  chunks_.push_back(Chunk{std::make_unique_for_overwrite<std::byte[]>(n), n, 0});
  current_ = chunks_.size() - 1;
  return raw(size, align);
}

void Arena::reset() {
  // Keep the first chunk for the next call; large one-off chunks go back to the system.
  if (chunks_.size() > 1) chunks_.resize(1);
  for (Chunk& c : chunks_) c.used = 0;
  current_ = 0;
  count_ = 0;
}

}  // namespace cs
