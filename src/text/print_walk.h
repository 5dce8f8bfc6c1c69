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

class PrintWalk {
 public:
  static constexpr bool kReading = false;

  PrintWalk(Text& t, unsigned field_indent) : t_(t), ind_(field_indent) {}

  bool need(std::uint64_t) { return true; }
  bool count(std::uint32_t, std::uint32_t) { return true; }
  bool reject(Rc) { return true; }
  void skip(std::uint64_t) {}
  void align(unsigned, unsigned) {}

  template <class T>
  void u(const T& f, const char* name, unsigned width) {
    line(name, static_cast<std::uint32_t>(f), width);
  }
  template <class T>
  void show(const T& f, const char* name) {
    line(name, static_cast<std::uint32_t>(f), 0);
  }
  void bits(const Bytes& f, const char* name, std::uint32_t width) {
    t_.spaces(ind_).put(name).put(" = ");
    if (f.data == nullptr) {
      t_.put("NULL\n");
      return;
    }
    put_hex_bits(t_, f.data, f.bits);
    annotate(t_, name, AnnValue{0, width, &f});
    t_.put('\n');
  }
  template <class T>
  bool scalars(const char* name, const PoolArray<T>& a, std::uint32_t, unsigned width) {
    for (std::uint32_t k = 0; k < a.count; ++k) {
      t_.spaces(ind_).put(name).put('[').dec(k).put("] = ").field_value(static_cast<std::uint32_t>(a.data[k]));
      (void)width;   // an indexed name is never an annotation key
      t_.put('\n');
    }
    return true;
  }

  template <class R, class C>
  bool sub(const char* label, const char* header, R& rec, const C& c) {
    t_.spaces(ind_).put(label).put(" = ");
    record(t_, header, ind_, rec, c);
    return true;
  }
  template <class R, class C>
  bool sized(const char* label, const char* header, R& rec, std::uint64_t, const C& c) {
    return sub(label, header, rec, c);
  }
  template <class R, class C>
  bool padded(const char* label, const char* header, R& rec, std::uint64_t, const C& c) {
    return sub(label, header, rec, c);
  }
  template <class T, class C>
  bool counted(const char* label, const char* header, PoolArray<T>& a, std::uint32_t, const C& c) {
    for (std::uint32_t k = 0; k < a.count; ++k) {
      t_.spaces(ind_).put(label).put('[').dec(k).put("] = ");
      record(t_, header, ind_, a.data[k], c);
    }
    return true;
  }
  template <class T, class Capacity, class C>
  bool list_to_end(const char* label, const char* header, PoolArray<T>& a, Capacity, const C& c) {
    return counted(label, header, a, a.count, c);
  }
  bool body(const char* label, const BodyOps*, AnyRec& r, const Ctx& c) {
    if (r.ops == nullptr || r.rec == nullptr) return true;
    t_.spaces(ind_).put(label).put(" = ");
    r.ops->print(r.rec, c, r.ops->header, ind_, t_);
    return true;
  }

  std::uint64_t left() const { return 0; }
  Text& text() { return t_; }
  unsigned indent() const { return ind_; }

  // One whole record at `indent`: header line, braces, fields at indent + 3.
  template <class R, class C>
  static void record(Text& t, const char* header, unsigned indent, R& rec, const C& c) {
    t.put(header).put('\n').spaces(indent).put("{\n");
    PrintWalk inner(t, indent + 3);
    layout(inner, rec, c);
    t.spaces(indent).put("}\n");
  }

 private:
  void line(const char* name, std::uint32_t v, unsigned width) {
    t_.spaces(ind_).put(name).put(" = ").field_value(v);
    annotate(t_, name, AnnValue{v, width, nullptr});
    t_.put('\n');
  }

  Text& t_;
  unsigned ind_;
};

}  // namespace cs
