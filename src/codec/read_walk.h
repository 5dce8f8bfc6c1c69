// ReadWalk: fills a record from the bits of a message (see codec/walk.h for the verbs).
#pragma once
#include <algorithm>
#include <cassert>
#include <cstdint>
#include <string>
#include <vector>

#include "codec/arena.h"
#include "codec/bits.h"
#include "codec/walk.h"

namespace cs {

// When set, every field the reader takes is named here in order (for tests and tracing tools).
// The layouts are shared, so the names read must be the names printed.
inline thread_local std::vector<std::string>* g_read_trace = nullptr;

class ReadWalk {
 public:
  static constexpr bool kReading = true;

  ReadWalk(Arena& arena, const std::uint8_t* buf, std::size_t buf_bytes, std::uint64_t start, std::uint64_t avail,
           const Ctx& ctx = Ctx{})
      : arena_(arena), buf_(buf), buf_bytes_(buf_bytes), start_(start), pos_(start), end_(start + avail), ctx_(ctx) {}

  [[nodiscard]] bool need(std::uint64_t bits) {
    if (rc_ != Rc::ok) return false;
    if (pos_ + bits > end_) {
      rc_ = Rc::short_msg;
      return false;
    }
#ifndef NDEBUG
    covered_ = std::max(covered_, pos_ + bits);
#endif
    return true;
  }
  [[nodiscard]] bool count(std::uint32_t n, std::uint32_t capacity) {
    if (rc_ == Rc::ok && n > capacity) rc_ = Rc::count;
    return rc_ == Rc::ok;
  }
  [[nodiscard]] bool reject(Rc why) {
    if (rc_ == Rc::ok) rc_ = why;
    return false;
  }

  template <class T>
  void u(T& f, const char* name, unsigned width) {
    assert(width <= 8 * sizeof(T) && "field wider than its storage");
    if (rc_ != Rc::ok) return;
    if (g_read_trace) g_read_trace->emplace_back(name);
    assert(pos_ + width <= covered_ && "read outside any need() group");
    f = static_cast<T>(read_bits(buf_, buf_bytes_, pos_, width));
    pos_ += width;
  }
  void bits(Bytes& f, const char* name, std::uint32_t width) {
    if (rc_ != Rc::ok) return;
    if (g_read_trace) g_read_trace->emplace_back(name);
    assert(pos_ + width <= covered_ && "read outside any need() group");
    const std::uint32_t octets = (width + 7) / 8;
    f.data = arena_.alloc<std::uint8_t>(octets);
    f.bits = 8 * octets;
    if (f.data) copy_bits(buf_, buf_bytes_, pos_, width, f.data, 8 * octets - width);
    pos_ += width;
  }
  template <class T>
  void show(const T&, const char* name) {
    if (rc_ == Rc::ok && g_read_trace) g_read_trace->emplace_back(name);
  }
  // Bits passed over; never past the end of the message (a declared length may overstate it).
  void skip(std::uint64_t bits) {
    if (rc_ == Rc::ok) pos_ = std::max(pos_, std::min(pos_ + bits, end_));
  }
  void align(unsigned mod, unsigned bias) {
    if (rc_ == Rc::ok) pos_ += (mod + bias % mod - (pos_ - start_) % mod) % mod;
  }

  template <class T>
  bool scalars(const char* name, PoolArray<T>& a, std::uint32_t n, unsigned width) {
    if (rc_ != Rc::ok) return false;
    a.data = arena_.alloc<T>(n);
    for (a.count = 0; a.count < n; ++a.count) {
      if (!need(width)) return false;
      auto* trace = g_read_trace;
      g_read_trace = nullptr;
      u(a.data[a.count], name, width);
      g_read_trace = trace;
      if (trace) trace->push_back(std::string(name) + "[" + std::to_string(a.count) + "]");
    }
    return true;
  }

  template <class R, class C>
  bool sub(const char*, const char*, R& rec, const C& c) {
    if (rc_ != Rc::ok) return false;
    layout(*this, rec, c);
    return rc_ == Rc::ok;
  }
  template <class R, class C>
  bool sized(const char* label, const char* header, R& rec, std::uint64_t declared, const C& c) {
    return bounded(label, header, rec, declared, c, true);
  }
  template <class R, class C>
  bool padded(const char* label, const char* header, R& rec, std::uint64_t declared, const C& c) {
    return bounded(label, header, rec, declared, c, false);
  }
  template <class T, class C>
  bool counted(const char*, const char*, PoolArray<T>& a, std::uint32_t n, const C& c) {
    if (rc_ != Rc::ok) return false;
    a.data = arena_.alloc<T>(n);
    for (a.count = 0; a.count < n; ++a.count) {
      layout(*this, a.data[a.count], c);
      if (rc_ != Rc::ok) return false;
    }
    return true;
  }
  template <class T, class Capacity, class C>
  bool list_to_end(const char*, const char*, PoolArray<T>& a, Capacity capacity, const C& c) {
    if (rc_ != Rc::ok) return false;
    const std::uint32_t cap = capacity(left());
    a.data = arena_.alloc<T>(cap);
    for (a.count = 0; left() >= 8 && a.count < cap; ++a.count) {
      layout(*this, a.data[a.count], c);
      if (rc_ != Rc::ok) return false;
    }
    return true;
  }
  bool body(const char*, const BodyOps* ops, AnyRec& r, const Ctx& c) {
    r.ops = ops;
    r.rec = nullptr;
    if (rc_ != Rc::ok || ops == nullptr) return rc_ == Rc::ok;
    r.rec = arena_.raw(ops->size, alignof(std::max_align_t));
    std::uint64_t used = 0;
    const Rc rc = ops->decode(r.rec, c, arena_, buf_, buf_bytes_, pos_, left(), &used);
    if (rc != Rc::ok) return reject(rc);
    pos_ += used;
    return true;
  }

  std::uint64_t left() const { return rc_ != Rc::ok || pos_ >= end_ ? 0 : end_ - pos_; }
  std::uint64_t consumed() const { return pos_ - start_; }
  std::uint64_t pos() const { return pos_; }
  Rc rc() const { return rc_; }
  Arena& arena() { return arena_; }
  const Ctx& ctx() const { return ctx_; }

 private:
  template <class R, class C>
  bool bounded(const char*, const char*, R& rec, std::uint64_t declared, const C& c, bool bound) {
    if (rc_ != Rc::ok) return false;
    const std::uint64_t start = pos_, outer_end = end_;
    if (bound) end_ = std::min(outer_end, start + declared);
    layout(*this, rec, c);
    end_ = outer_end;
    if (rc_ != Rc::ok) return false;
    // Unread octets of the declared length are skipped, but never past the end of the message:
    // a length that claims more than the message holds leaves the walk at its end.
    pos_ = std::max(pos_, std::min(start + declared, outer_end));
    return true;
  }

  Arena& arena_;
  const std::uint8_t* buf_;
  std::size_t buf_bytes_;
  std::uint64_t start_, pos_, end_;
#ifndef NDEBUG
  std::uint64_t covered_ = 0;
#endif
  Ctx ctx_;
  Rc rc_ = Rc::ok;
};

}  // namespace cs
