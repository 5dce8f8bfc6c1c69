// PrintWalk: renders a record as detail text (see codec/walk.h for the verbs).
//
// One record: its header line, "{" at the record's indent, one line per field at indent + 3
// ("NAME = value", the value annotation, LF), nested records one step deeper, "}" at the
// indent. Printing never fails and never looks at bit counts; it shows what the record holds.
#pragma once
#include <cstdint>

#include "codec/walk.h"
#include "text/annotate.h"
#include "text/text.h"

namespace cs {

// A record's header line: a name of its own, or its parent's header, "_" and its label.
struct Header {
  const Header* parent;
  const char* part;
  void put(Text& t) const {
    if (parent) parent->put(t), t.put('_');
    t.put(part);
  }
};

class PrintWalk {
 public:
  static constexpr bool kReading = false;

  PrintWalk(Text& t, unsigned field_indent, const Header& header) : t_(t), ind_(field_indent), hdr_(header) {}

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
    line(name, static_cast<std::uint32_t>(f), 0);
  }
  template <class T>
  bool scalars(const char* name, const PoolArray<T>& a, std::uint32_t, unsigned) {
    // An indexed name is never an annotation key.
    for (std::uint32_t k = 0; k < a.count; ++k) t_.indexed_line(ind_, name, k, static_cast<std::uint32_t>(a.data[k]));
    return true;
  }

  template <class R, class C>
  bool sub(const char* label, R& rec, const C& c) {
    return sub(label, Header{&hdr_, label}, rec, c);
  }
  template <class R, class C>
  bool sub(const char* label, const char* header, R& rec, const C& c) {
    return sub(label, Header{nullptr, header}, rec, c);
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
    return each(label, Header{&hdr_, label}, a, [&c](std::uint32_t) -> const C& { return c; });
  }
  template <class T, class C>
  bool records(const char* label, const char* header, PoolArray<T>& a, std::uint32_t, const C& c) {
    return each(label, Header{nullptr, header}, a, [&c](std::uint32_t) -> const C& { return c; });
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
    return each(label, Header{&hdr_, label}, a, ctx_for);
  }
  template <class T, class CtxFor>
  bool alongside(const char* label, const char* header, PoolArray<T>& a, std::uint32_t, CtxFor ctx_for) {
    return each(label, Header{nullptr, header}, a, ctx_for);
  }
  bool body(const char* label, const BodyOps*, AnyRec& r, const Ctx& c) {
    if (r.ops == nullptr || r.rec == nullptr) return true;
    t_.spaces(ind_).put(label).put(" = ");
    r.ops->print(r.rec, c, r.ops->header, ind_, t_);
    return true;
  }

  struct DeclaredEnd {
    void at(std::uint64_t) {}
  };
  DeclaredEnd declared_end() { return {}; }

  std::uint64_t left() const { return 0; }
  Text& text() { return t_; }
  unsigned indent() const { return ind_; }

  // One whole record at `indent`: header line, braces, fields at indent + 3.
  template <class R, class C>
  static void record(Text& t, const Header& header, unsigned indent, R& rec, const C& c) {
    header.put(t);
    t.put('\n').spaces(indent).put("{\n");
    PrintWalk inner(t, indent + 3, header);
    layout(inner, rec, c);
    t.spaces(indent).put("}\n");
  }
  template <class R, class C>
  static void record(Text& t, const char* header, unsigned indent, R& rec, const C& c) {
    record(t, Header{nullptr, header}, indent, rec, c);
  }

 private:
  template <class R, class C>
  bool sub(const char* label, const Header& header, R& rec, const C& c) {
    t_.spaces(ind_).put(label).put(" = ");
    record(t_, header, ind_, rec, c);
    return true;
  }
  template <class T, class CtxFor>
  bool each(const char* label, const Header& header, PoolArray<T>& a, CtxFor ctx_for) {
    for (std::uint32_t k = 0; k < a.count; ++k) {
      t_.spaces(ind_).put(label).put('[').dec(k).put("] = ");
      record(t_, header, ind_, a.data[k], ctx_for(k));
    }
    return true;
  }

  template <class T>
  void put(const Field<T>& f) {
    const auto v = static_cast<std::uint32_t>(f.ref);
    const bool annotated = f.annotation != -1;
    t_.field_line(ind_, f.name, v, !annotated);
    if (annotated) {
      annotation(f, AnnValue{v, f.width, nullptr});
      t_.put('\n');
    }
  }
  void put(const Field<Bytes>& f) { put(Field<const Bytes>{f.ref, f.name, f.width, f.annotation}); }
  void put(const Field<const Bytes>& f) {
    t_.spaces(ind_).put(f.name).put(" = ");
    if (f.ref.data == nullptr) {
      t_.put("NULL\n");
      return;
    }
    put_hex_bits(t_, f.ref.data, f.ref.bits);
    annotation(f, AnnValue{0, f.width, &f.ref});
    t_.put('\n');
  }
  template <class T>
  void annotation(const Field<T>& f, const AnnValue& v) {
    if (f.annotation == kLookUp) {
      annotate(t_, f.name, v);
    } else if (f.annotation >= 0) {
      annotate_at(t_, f.annotation, v);
    }
  }
  void put(const Reserved&) {}

  void line(const char* name, std::uint32_t v, unsigned width) {
    t_.spaces(ind_).put(name).put(" = ").field_value(v);
    annotate(t_, name, AnnValue{v, width, nullptr});
    t_.put('\n');
  }

  Text& t_;
  unsigned ind_;
  const Header& hdr_;
};

}  // namespace cs
