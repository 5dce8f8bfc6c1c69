// Per-call scratch storage: zero-filled blocks that records point into while one call lasts,
// all released together. No ceiling on the number of blocks.
#pragma once
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <type_traits>
#include <vector>

namespace cs {

class Arena {
 public:
  Arena() = default;
  Arena(const Arena&) = delete;
  Arena& operator=(const Arena&) = delete;

  // Zero-filled storage for `n` objects of T; n == 0 gives nullptr and records nothing.
  template <class T>
  T* alloc(std::size_t n) {
    static_assert(std::is_trivially_destructible_v<T>, "arena objects are never destroyed");
    if (n == 0) return nullptr;
    return static_cast<T*>(raw(n * sizeof(T), alignof(T)));
  }

  void* raw(std::size_t size, std::size_t align);
  void reset();                                   // frees every block of the call
  std::size_t blocks() const { return count_; }   // allocations made since the last reset

 private:
  struct Chunk {
    std::unique_ptr<std::byte[]> mem;
    std::size_t size = 0, used = 0;
  };
  std::vector<Chunk> chunks_;
  std::size_t current_ = 0;
  std::size_t count_ = 0;
};

}  // namespace cs
