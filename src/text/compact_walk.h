// CompactWalk: the peer view of a record, a one-line list of "NAME=value" items (see
// codec/walk.h for the verbs it shares with the reader and the printer).
//
// The peer view shows a handful of fields of a message: the layer-2 acknowledgement fields,
// the assignment mode and radio configurations of a channel assignment, and the service
// options and channel configurations of a service configuration. Which fields a record shows
// is looked up by the record's header, the header line the detail text gives it
// (compact_scope); a record with no scope shows nothing itself but is walked for the records
// nested in it, so that a service configuration is found wherever a message carries it.
//
// Items are written in record order after a ":", each "NAME=value" (decimal) with "," between
// them (a view with no item is empty, without the ":"). A list whose element records are a
// bracketed scope writes its label and "[" before its elements and "]" after them (an empty
// list "LABEL[]"); inside the brackets the items are separated by "," as well.
// The walk never fails and never looks at bit counts: it shows what the record holds, with
// the presence conditions of the layout re-tested on it, as the printer does.
//
// Branches of a layout written for the detail text alone (`!W::kReading` and then
// `w.text()`: the access SDU's own block, the contents of a data burst, character readings)
// run here too; what they write goes to a text that is dropped. The peer view has no field in
// them.
#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "codec/walk.h"
#include "text/text.h"

namespace cs {

// What a record shows in the peer view.
struct CompactScope {
  std::span<const std::string_view> fields;   // the names shown, wherever they stand in the record
  bool bracketed;                             // the record is a list element: LABEL[...]
};

// The scope of the record with this header line, or null when it shows nothing.
const CompactScope* compact_scope(std::string_view header);

// The view of one message under construction, shared by the walkers of its nested records.
class CompactOut {
 public:
  explicit CompactOut(Text& t) : t_(t) {}
  CompactOut(const CompactOut&) = delete;
  CompactOut& operator=(const CompactOut&) = delete;

  void item(std::string_view name, std::uint32_t value) {
    separate();
    t_.put(name).put('=').field_value(value);
  }
  void indexed_item(std::string_view name, std::uint32_t k, std::uint32_t value) {
    separate();
    t_.put(name).put('[').dec(k).put("]=").field_value(value);
  }
  void open(std::string_view label) {
    separate();
    t_.put(label).put('[');
    first_ = true;
  }
  void close() {
    t_.put(']');
    first_ = false;
  }
  // Where the detail-text-only branches of a layout write: never shown.
  Text& dropped() {
    dropped_.clear();
    return dropped_;
  }

 private:
  // ":" before the first item of the view, "," between items of one level.
  void separate() {
    if (!started_) {
      t_.put(':');
      started_ = true;
    } else if (!first_) {
      t_.put(',');
    }
    first_ = false;
  }
  Text& t_;
  Text dropped_;
  bool started_ = false;
  bool first_ = true;
};

class CompactWalk {
 public:
  static constexpr bool kReading = false;

  CompactWalk(CompactOut& out, std::string header)
      : out_(out), header_(std::move(header)), scope_(compact_scope(header_)) {}

  template <class... Items>
  bool operator()(const Items&... items) {
    (put(items), ...);
    return true;
  }

  bool need(std::uint64_t) { return true; }
  bool at_most(std::uint32_t, std::uint32_t) { return true; }
  bool reject(Rc) { return true; }
  void skip(std::uint64_t) {}
  void align(unsigned, unsigned) {}

  template <class T>
  void show(const T& f, const char* name) {
    if (shows(name)) out_.item(name, static_cast<std::uint32_t>(f));
  }
  template <class T>
  bool scalars(const char* name, const PoolArray<T>& a, std::uint32_t, unsigned) {
    if (shows(name))
      for (std::uint32_t k = 0; k < a.count; ++k) out_.indexed_item(name, k, static_cast<std::uint32_t>(a.data[k]));
    return true;
  }

  template <class R, class C>
  bool sub(const char* label, R& rec, const C& c) {
    record(out_, child(label), rec, c);
    return true;
  }
  template <class R, class C>
  bool sub(const char*, const char* header, R& rec, const C& c) {
    record(out_, header, rec, c);
    return true;
  }
  template <class R, class C>
  bool sized(const char* label, R& rec, std::uint64_t, const C& c) {
    return sub(label, rec, c);
  }
  template <class R, class C>
  bool sized(const char* label, const char* header, R& rec, std::uint64_t, const C& c) {
    return sub(label, header, rec, c);
  }
  template <class R, class C>
  bool at_least(const char* label, R& rec, std::uint64_t, const C& c) {
    return sub(label, rec, c);
  }
  template <class R, class C>
  bool at_least(const char* label, const char* header, R& rec, std::uint64_t, const C& c) {
    return sub(label, header, rec, c);
  }
  template <class T, class C>
  bool records(const char* label, PoolArray<T>& a, std::uint32_t, const C& c) {
    return each(label, child(label), a, [&c](std::uint32_t) -> const C& { return c; });
  }
  template <class T, class C>
  bool records(const char* label, const char* header, PoolArray<T>& a, std::uint32_t, const C& c) {
    return each(label, header, a, [&c](std::uint32_t) -> const C& { return c; });
  }
  template <class T, class Capacity, class C>
  bool list_to_end(const char* label, PoolArray<T>& a, Capacity, const C& c) {
    return records(label, a, a.count, c);
  }
  template <class T, class Capacity, class C>
  bool list_to_end(const char* label, const char* header, PoolArray<T>& a, Capacity, const C& c) {
    return records(label, header, a, a.count, c);
  }
  template <class T, class CtxFor>
  bool alongside(const char* label, PoolArray<T>& a, std::uint32_t, CtxFor ctx_for) {
    return each(label, child(label), a, ctx_for);
  }
  template <class T, class CtxFor>
  bool alongside(const char* label, const char* header, PoolArray<T>& a, std::uint32_t, CtxFor ctx_for) {
    return each(label, header, a, ctx_for);
  }
  bool body(const char*, const BodyOps*, AnyRec& r, const Ctx& c) {
    if (r.ops != nullptr && r.rec != nullptr && r.ops->compact != nullptr) r.ops->compact(r.rec, c, r.ops->header, out_);
    return true;
  }

  struct DeclaredEnd {
    void at(std::uint64_t) {}
  };
  DeclaredEnd declared_end() { return {}; }

  std::uint64_t left() const { return 0; }
  // For the detail-text-only branches of a layout: a text that is dropped, and an indent
  // deep enough for the arithmetic they do on it.
  Text& text() { return out_.dropped(); }
  unsigned indent() const { return 3; }

  // One whole record under `header`, inside the view `out`.
  template <class R, class C>
  static void record(CompactOut& out, std::string header, R& rec, const C& c) {
    CompactWalk inner(out, std::move(header));
    layout(inner, rec, c);
  }

  // ---- Verbs being retired (kept while layouts move to the group form) ----
  bool count(std::uint32_t, std::uint32_t) { return true; }
  template <class T>
  void u(const T& f, const char* name, unsigned) {
    show(f, name);
  }
  void bits(const Bytes&, const char*, std::uint32_t) {}
  template <class R, class C>
  bool padded(const char* label, const char* header, R& rec, std::uint64_t, const C& c) {
    return sub(label, header, rec, c);
  }
  template <class T, class C>
  bool counted(const char* label, const char* header, PoolArray<T>& a, std::uint32_t n, const C& c) {
    return records(label, header, a, n, c);
  }

 private:
  bool shows(std::string_view name) const {
    if (scope_ == nullptr) return false;
    for (std::string_view f : scope_->fields)
      if (f == name) return true;
    return false;
  }
  // The header of a nested record named after its label, as the printer derives it.
  std::string child(const char* label) const { return header_ + "_" + label; }

  template <class T, class CtxFor>
  bool each(const char* label, const std::string& header, PoolArray<T>& a, CtxFor ctx_for) {
    const CompactScope* scope = compact_scope(header);
    const bool bracketed = scope != nullptr && scope->bracketed;
    if (bracketed) out_.open(label);
    for (std::uint32_t k = 0; k < a.count; ++k) record(out_, header, a.data[k], ctx_for(k));
    if (bracketed) out_.close();
    return true;
  }

  template <class T>
  void put(const Field<T>& f) {
    if (shows(f.name)) out_.item(f.name, static_cast<std::uint32_t>(f.ref));
  }
  // Bit strings are no part of the view.
  void put(const Field<Bytes>&) {}
  void put(const Field<const Bytes>&) {}
  void put(const Reserved&) {}

  CompactOut& out_;
  std::string header_;
  const CompactScope* scope_;
};

}  // namespace cs
