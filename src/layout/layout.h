// Glue between a record's layout template and the code that calls it: the decode and print
// wrappers, and the type-erased BodyOps of the message tables. Include it in the .cpp that
// holds the layouts (after them), never in a header other families include.
#pragma once
#include <cstdint>

#include "codec/read_walk.h"
#include "layout/call.h"
#include "text/json_walk.h"
#include "text/compact_walk.h"
#include "text/print_walk.h"

namespace cs {

template <class R, class C>
Rc decode(R& rec, const C& c, Arena& arena, const std::uint8_t* buf, std::size_t buf_bytes, std::uint64_t start,
          std::uint64_t avail, std::uint64_t* consumed = nullptr) {
  ReadWalk w(arena, buf, buf_bytes, start, avail);
  layout(w, rec, c);
  if (w.rc() == Rc::ok && consumed) *consumed = w.consumed();
  return w.rc();
}

template <class R, class C>
void print(R& rec, const C& c, const char* header, unsigned indent, Text& t) {
  PrintWalk::record(t, header, indent, rec, c);
}

template <class R>
Rc body_decode(void* rec, const Ctx& c, Arena& a, const std::uint8_t* buf, std::size_t n, std::uint64_t start,
               std::uint64_t avail, std::uint64_t* consumed) {
  return decode(*static_cast<R*>(rec), c, a, buf, n, start, avail, consumed);
}
template <class R>
void body_print(void* rec, const Ctx& c, const char* header, unsigned indent, Text& t) {
  print(*static_cast<R*>(rec), c, header, indent, t);
}
template <class R>
void body_json(void* rec, const Ctx& c, const char* header, unsigned indent, Json& j) {
  JsonWalk::record(j, header, indent, *static_cast<R*>(rec), c);
}

// A channel path's output of one top-level record: its detail text, or (when the call asks for
// JSON) one object of the call's record list.
template <class R, class C>
void emit(Call& call, R& rec, const C& c, const char* header, unsigned indent) {
  if (call.json) {
    JsonWalk::record(*call.json, header, indent, rec, c);
  } else {
    print(rec, c, header, indent, call.text);
  }
}
inline void emit_body(Call& call, const BodyOps& ops, void* rec, const Ctx& c, unsigned indent) {
  if (call.json) {
    ops.json(rec, c, ops.header, indent, *call.json);
  } else {
    ops.print(rec, c, ops.header, indent, call.text);
  }
}

template <class R>
void body_compact(void* rec, const Ctx& c, const char* header, CompactOut& out) {
  CompactWalk::record(out, header, *static_cast<R*>(rec), c);
}

// BodyOps for a record type whose layout is visible here. A message table fills in the
// header from the row; records outside a table name theirs.
template <class R>
constexpr BodyOps body_ops(const char* header = nullptr) {
  return BodyOps{header, sizeof(R), &body_decode<R>, &body_print<R>, &body_json<R>, &body_compact<R>};
}

}  // namespace cs
