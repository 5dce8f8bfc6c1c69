// JsonWalk: renders a record as JSON (see text/json.h for the shape), walking the same layout
// as the reader and the text printer with the same verbs.
//
// Values are the stored values as unsigned numbers (the text shows "%d"), bit strings their
// "0x..." digits, annotations members of their own. What a printer-only branch writes as text
// through text() (a burst's contents, a character array with its readings, a record printed
// through BodyOps) is read back into members before the walk moves on, so it needs no JSON
// branch of its own.
#pragma once
#include <cstdint>
#include <string>

#include "codec/walk.h"
#include "text/json.h"
#include "text/print_walk.h"
#include "text/text.h"

namespace cs {

class JsonWalk {
 public:
  static constexpr bool kReading = false;

  JsonWalk(Json& j, unsigned field_indent, const Header& header) : j_(j), ind_(field_indent), hdr_(header) {}
  JsonWalk(const JsonWalk&) = delete;
  JsonWalk& operator=(const JsonWalk&) = delete;
  ~JsonWalk() { flush(); }

  template <class... Items>
  bool operator()(const Items&... items) {
    flush();
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
    flush();
    scalar(name, static_cast<std::uint32_t>(f), 0);
  }
  template <class T>
  bool scalars(const char* name, const PoolArray<T>& a, std::uint32_t, unsigned) {
    flush();
    if (a.count == 0) return true;
    j_.key(name);
    j_.begin_array();
    for (std::uint32_t k = 0; k < a.count; ++k) j_.number(static_cast<std::uint64_t>(a.data[k]));
    j_.end_array();
    return true;
  }

  template <class R, class C>
  bool sub(const char* label, R& rec, const C& c) {
    flush();
    j_.key(label);
    record(j_, Header{&hdr_, label}, ind_, rec, c);
    return true;
  }
  template <class R, class C>
  bool sub(const char* label, const char* header, R& rec, const C& c) {
    flush();
    j_.key(label);
    record(j_, Header{nullptr, header}, ind_, rec, c);
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
    flush();
    if (r.ops == nullptr || r.rec == nullptr) return true;
    j_.key(label);
    r.ops->json(r.rec, c, r.ops->header, ind_, j_);
    return true;
  }

  struct DeclaredEnd {
    void at(std::uint64_t) {}
  };
  DeclaredEnd declared_end() { return {}; }

  std::uint64_t left() const { return 0; }
  // Text a printer-only branch writes at indent(); read back into members.
  Text& text() { return frag_text_; }
  unsigned indent() const { return ind_; }

  // One whole record: {"@record": header, members...}.
  template <class R, class C>
  static void record(Json& j, const Header& header, unsigned indent, R& rec, const C& c) {
    Text name;
    header.put(name);
    j.begin_object();
    j.key("@record");
    j.string(name.str());
    {
      JsonWalk inner(j, indent + 3, header);
      layout(inner, rec, c);
    }
    j.end_object();
  }
  template <class R, class C>
  static void record(Json& j, const char* header, unsigned indent, R& rec, const C& c) {
    record(j, Header{nullptr, header}, indent, rec, c);
  }

 private:
  void flush() {
    if (frag_.empty()) return;
    text_to_json(frag_, ind_, j_);
    frag_.clear();
  }
  template <class T, class CtxFor>
  bool each(const char* label, const Header& header, PoolArray<T>& a, CtxFor ctx_for) {
    flush();
    if (a.count == 0) return true;
    j_.key(label);
    j_.begin_array();
    for (std::uint32_t k = 0; k < a.count; ++k) record(j_, header, ind_, a.data[k], ctx_for(k));
    j_.end_array();
    return true;
  }
  template <class T>
  void put(const Field<T>& f) {
    j_.key(f.name);
    j_.number(static_cast<std::uint64_t>(static_cast<std::uint32_t>(f.ref)));
    annotation(f.name, f.annotation, AnnValue{static_cast<std::uint32_t>(f.ref), f.width, nullptr});
  }
  void put(const Field<Bytes>& f) {
    j_.key(f.name);
    if (f.ref.data == nullptr) {
      j_.null();
      return;
    }
    Text hex;
    put_hex_bits(hex, f.ref.data, f.ref.bits);
    j_.string(hex.str());
    annotation(f.name, f.annotation, AnnValue{0, f.width, &f.ref});
  }
  void put(const Reserved&) {}
  void scalar(const char* name, std::uint32_t v, unsigned width) {
    j_.key(name);
    j_.number(static_cast<std::uint64_t>(v));
    annotation(name, kLookUp, AnnValue{v, width, nullptr});
  }
  void annotation(std::string_view name, int index, const AnnValue& v) {
    if (index == -1) return;
    const std::string reading = annotation_reading(index == kLookUp ? annotation_index(name) : index, v);
    if (reading.empty()) return;
    j_.key(std::string(name) + ".annotation");
    j_.string(reading);
  }

  Json& j_;
  unsigned ind_;
  const Header& hdr_;
  std::string frag_;
  Text frag_text_{frag_};
};

}  // namespace cs
