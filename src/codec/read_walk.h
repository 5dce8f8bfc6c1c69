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

// One field the reader took: its printed name, where it began and its width (0 for a value
// shown without bits).
struct TraceItem {
  std::string name;
  std::uint64_t pos;
  std::uint32_t width;
};

// When set, every field the reader takes is recorded here in order (for tests and tracing
// tools). The layouts are shared, so the names read must be the names printed.
inline thread_local std::vector<TraceItem>* g_read_trace = nullptr;

class ReadWalk {
 public:
  static constexpr bool kReading = true;

  ReadWalk(Arena& arena, const std::uint8_t* buf, std::size_t buf_bytes, std::uint64_t start, std::uint64_t avail)
      : arena_(arena), buf_(buf), buf_bytes_(buf_bytes), start_(start), pos_(start), end_(start + avail),
        trace_(g_read_trace) {}

  // A group of fields and reserved bits: all of it fits, or none of it is read.
  template <class... Items>
  bool operator()(const Items&... items) {
    if (!need((width_of(items) + ... + std::uint64_t{0}))) return false;
    (take(items), ...);
    return true;
  }

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
  bool at_most(std::uint32_t n, std::uint32_t capacity) {
    if (rc_ == Rc::ok && n > capacity) rc_ = Rc::count;
    return rc_ == Rc::ok;
  }
  bool reject(Rc why) {
    if (rc_ == Rc::ok) rc_ = why;
    return false;
  }

  template <class T>
  void show(const T&, const char* name) {
    if (rc_ == Rc::ok && trace_) trace(name, 0);
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
    a.count = 0;
    if (rc_ != Rc::ok) return false;
    a.data = arena_.alloc<T>(n);
    for (; a.count < n; ++a.count) {
      if (!need(width)) return false;
      if (trace_) trace(std::string(name) + "[" + std::to_string(a.count) + "]", width);
      a.data[a.count] = static_cast<T>(read_bits(buf_, buf_bytes_, pos_, width));
      pos_ += width;
    }
    return true;
  }

  template <class R, class C>
  bool sub(const char*, R& rec, const C& c) {
    if (rc_ != Rc::ok) return false;
    layout(*this, rec, c);
    return rc_ == Rc::ok;
  }
  template <class R, class C>
  bool sub(const char* label, const char*, R& rec, const C& c) {
    return sub(label, rec, c);
  }
  template <class R, class C>
  bool sized(const char*, R& rec, std::uint64_t declared, const C& c) {
    return bounded(rec, declared, c, true);
  }
  template <class R, class C>
  bool sized(const char* label, const char*, R& rec, std::uint64_t declared, const C& c) {
    return sized(label, rec, declared, c);
  }
  template <class R, class C>
  bool at_least(const char*, R& rec, std::uint64_t declared, const C& c) {
    return bounded(rec, declared, c, false);
  }
  template <class R, class C>
  bool at_least(const char* label, const char*, R& rec, std::uint64_t declared, const C& c) {
    return at_least(label, rec, declared, c);
  }
  template <class T, class C>
  bool records(const char*, PoolArray<T>& a, std::uint32_t n, const C& c) {
    a.count = 0;
    if (rc_ != Rc::ok) return false;
    a.data = arena_.alloc<T>(n);
    for (; a.count < n; ++a.count) {
      layout(*this, a.data[a.count], c);
      if (rc_ != Rc::ok) return false;
    }
    return true;
  }
  template <class T, class C>
  bool records(const char* label, const char*, PoolArray<T>& a, std::uint32_t n, const C& c) {
    return records(label, a, n, c);
  }
  template <class T, class Capacity, class C>
  bool list_to_end(const char*, PoolArray<T>& a, Capacity capacity, const C& c) {
    a.count = 0;
    if (rc_ != Rc::ok) return false;
    const std::uint32_t cap = capacity(left());
    a.data = arena_.alloc<T>(cap);
    for (; left() >= 8 && a.count < cap; ++a.count) {
      layout(*this, a.data[a.count], c);
      if (rc_ != Rc::ok) return false;
    }
    return true;
  }
  template <class T, class Capacity, class C>
  bool list_to_end(const char* label, const char*, PoolArray<T>& a, Capacity capacity, const C& c) {
    return list_to_end(label, a, capacity, c);
  }
  // The records pair with an array read before: all n are allocated (and kept, as printing
  // shows them) before the first is read.
  template <class T, class CtxFor>
  bool alongside(const char*, PoolArray<T>& a, std::uint32_t n, CtxFor ctx_for) {
    if (rc_ != Rc::ok) return false;
    a.data = arena_.alloc<T>(n);
    a.count = a.data ? n : 0;
    for (std::uint32_t k = 0; k < a.count; ++k) {
      layout(*this, a.data[k], ctx_for(k));
      if (rc_ != Rc::ok) return false;
    }
    return true;
  }
  template <class T, class CtxFor>
  bool alongside(const char* label, const char*, PoolArray<T>& a, std::uint32_t n, CtxFor ctx_for) {
    return alongside(label, a, n, ctx_for);
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

  // A part that declares its own length: see DeclaredEnd.
  class DeclaredEnd {
   public:
    explicit DeclaredEnd(ReadWalk& w) : w_(w), start_(w.pos_) {}
    DeclaredEnd(const DeclaredEnd&) = delete;
    DeclaredEnd& operator=(const DeclaredEnd&) = delete;
    void at(std::uint64_t bits) { bits_ = bits; }
    ~DeclaredEnd() {
      if (w_.pos_ < start_ + bits_) w_.skip(start_ + bits_ - w_.pos_);
    }

   private:
    ReadWalk& w_;
    std::uint64_t start_, bits_ = 0;
  };
  [[nodiscard]] DeclaredEnd declared_end() { return DeclaredEnd(*this); }

  std::uint64_t left() const { return rc_ != Rc::ok || pos_ >= end_ ? 0 : end_ - pos_; }
  std::uint64_t consumed() const { return pos_ - start_; }
  std::uint64_t pos() const { return pos_; }
  Rc rc() const { return rc_; }
  Arena& arena() { return arena_; }

 private:
  // Out of line: tracing is for tests and tools, and must not keep the readers below from
  // being inlined into every layout.
  [[gnu::noinline, gnu::cold]] void trace(std::string_view name, std::uint32_t width) {
    trace_->push_back(TraceItem{std::string(name), pos_, width});
  }
  template <class T>
  [[gnu::always_inline]] void take(const Field<T>& f) {
    assert(f.width <= 8 * sizeof(T) && "field wider than its storage");
    assert(pos_ + f.width <= covered_ && "read outside any checked group");
    if (trace_) [[unlikely]] trace(f.name, f.width);
    f.ref = static_cast<T>(read_bits(buf_, buf_bytes_, pos_, f.width));
    pos_ += f.width;
  }
  void take(const Field<Bytes>& f) {
    assert(pos_ + f.width <= covered_ && "read outside any checked group");
    if (trace_) [[unlikely]] trace(f.name, f.width);
    const std::uint32_t octets = (f.width + 7) / 8;
    f.ref.data = arena_.alloc<std::uint8_t>(octets);
    f.ref.bits = 8 * octets;
    if (f.ref.data) copy_bits(buf_, buf_bytes_, pos_, f.width, f.ref.data, 8 * octets - f.width);
    pos_ += f.width;
  }
  void take(const Reserved& r) { pos_ += r.width; }

  template <class R, class C>
  bool bounded(R& rec, std::uint64_t declared, const C& c, bool bound) {
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
  std::vector<TraceItem>* trace_;
#ifndef NDEBUG
  std::uint64_t covered_ = 0;
#endif
  Rc rc_ = Rc::ok;
};

}  // namespace cs
