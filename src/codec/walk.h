// The vocabulary every record layout is written against.
//
// A record is a plain struct; its layout is ONE function template, written once in air order:
//
//     template <class W> void layout(W& w, FC_SCHM& r, const Ctx& c);
//
// Walkers walk it: ReadWalk (codec/read_walk.h) turns bits into the record; PrintWalk
// (text/print_walk.h) turns the record into detail text. Both offer the same verbs:
//
//   w(F(A, 3), F(B, 5), reserved(2))   one checked group: the walker sums the widths, checks
//                                      that they fit (else result 3: nothing of the group is
//                                      read), then takes each field; a lone field checks
//                                      itself. F(NAME, w) names the member r.NAME and prints
//                                      it as "NAME"; field(x, "NAME", w) names anything else.
//                                      A member of type Bytes is a bit string of any width
//                                      ("NAME = 0x..."), any other member a scalar of <= 32
//                                      bits ("NAME = %d" and its annotation).
//   need(n)            a check that deliberately reaches past the fields of the next group
//                      (the standard counts a group that way); always with a comment
//   at_most(n, cap)    a count against its array's capacity, else result 1
//   reject(rc)         refuse the record under these arguments (e.g. result 1 for a P_REV)
//   show(f, "NAME")    a stored value with no bits on the air
//   skip(n)            bits consumed but neither kept nor printed, unchecked
//   align(mod, bias)   unchecked skip to the next (mod, bias) boundary from the start
//   scalars("NAME", a, n, w)             n scalars of w bits: "NAME[k] = v"
//   sub("LABEL", rec, c)                 nested record: "LABEL = <header> { ... }"
//   records("LABEL", a, n, c)            n records: "LABEL[k] = <header> { ... }"; the count
//                                        kept is the number that decoded whole
//   list_to_end("LABEL", a, cap_fn, c)   records while >= 8 bits are left and the capacity
//                                        (computed once from the bits left) allows
//   alongside("LABEL", a, n, ctx_for)    n records that pair with the n elements of an
//                                        array read before; ctx_for(k) gives record k its
//                                        context (parallel arrays)
//   sized("LABEL", rec, bits, c)         nested record bounded to its declared length; the
//                                        walk then moves on to the declared end, never past
//                                        the end of the message
//   at_least("LABEL", rec, bits, c)      as sized, but the record may run past its declared
//                                        length (an address of a fixed form)
//   body("LABEL", ops, any, c)           a record chosen at run time through its BodyOps
//   auto end = w.declared_end();         a part that states its own length inside it:
//   end.at(8u * r.RECORD_LEN);           when `end` goes out of scope the reader moves on to
//                                        that many bits from where the part began (unchecked,
//                                        never past the message end)
//
// The nested header is the parent's header, "_" and the label (FC_NLM's "NGHBRs" prints as
// "FC_NLM_NGHBRs"); where the standard names the record otherwise, every nesting verb takes
// the header as a second argument: sub("LABEL", "HEADER", rec, c).
//
// Nesting verbs pass their context on as its own type: a parent hands its children a struct
// derived from Ctx carrying its own fields (`ChildCtx cc{c}; cc.flag = r.FLAG;`), and the
// child's layout takes that type.
//
// Presence conditions are ordinary `if`s on the record, so the printer re-tests them on what
// was decoded. The reader stops at the first failure: after it every verb is a no-op that
// returns false and `left()` is 0, so a layout may go on after a failed group, and every
// loop over `left()` ends. A decode/print difference is an explicit `if constexpr
// (W::kReading)` branch with a comment saying why.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>

#include "codec/annotation_keys.h"

namespace cs {

class Arena;
class Json;
class Text;
class CompactOut;

// Result codes of every decode.
enum class Rc : std::uint32_t { ok = 0, count = 1, short_msg = 3 };

// Arguments a layout may depend on. Families derive their own context types from it rather
// than invent side channels.
struct Ctx {
  std::uint8_t p_rev = 0;
  std::uint8_t band_class = 0;
  std::uint8_t encryption = 0;   // traffic PDU ENCRYPTION, for bodies that look at it
  std::uint8_t pd = 0;           // paging PDU protocol discriminator, for its assignment records
  std::uint8_t auth_incl = 0;    // access PDU AUTH_INCL, for bodies that look at it
  bool forward = true;           // link direction, for data-burst contents
};

// Fields that older revisions carried only on the PCS bands: band class 1 or 4.
constexpr bool pcs_band(std::uint8_t band_class) { return band_class == 1 || band_class == 4; }

// A bit string kept in ceil(w/8) octets, right-aligned (reads as a big-endian number).
struct Bytes {
  std::uint8_t* data;
  std::uint32_t bits;   // stored width: 8 * octets
};

// A variable-length array in the call's arena.
template <class T>
struct PoolArray {
  T* data;
  std::uint32_t count;
  T& operator[](std::uint32_t i) { return data[i]; }
  const T& operator[](std::uint32_t i) const { return data[i]; }
};

// One field of a group: where it is stored, its printed name, its width on the air, and its
// value annotation: a key's place in the table, -1 for none, kLookUp to find it by name when
// printed.
inline constexpr int kLookUp = -2;
template <class T>
struct Field {
  T& ref;
  std::string_view name;  // its length known where the layout is compiled
  std::uint32_t width;
  int annotation;
};

template <class T>
constexpr Field<T> field(T& ref, std::string_view name, std::uint32_t width, int annotation = kLookUp) {
  return Field<T>{ref, name, width, annotation};
}

// Reserved bits inside a group: counted and consumed, never kept or printed.
struct Reserved {
  std::uint32_t width;
};
constexpr Reserved reserved(std::uint32_t width) { return Reserved{width}; }

template <class T>
constexpr std::uint64_t width_of(const Field<T>& f) {
  return f.width;
}
constexpr std::uint64_t width_of(const Reserved& r) { return r.width; }

// The member NAME of the record `r` in scope, printed as "NAME"; its annotation key is found
// when the layout is compiled.
#define F(NAME, WIDTH) \
  ::cs::field(r.NAME, #NAME, (WIDTH), std::integral_constant<int, ::cs::annotation_index(#NAME)>::value)

// A record whose type is chosen at run time (a message body in a dispatch table).
struct BodyOps {
  const char* header;   // header line of the record, e.g. "FD_EHDM"
  std::size_t size;     // bytes of the record, allocated zeroed per call
  Rc (*decode)(void* rec, const Ctx& c, Arena& arena, const std::uint8_t* buf, std::size_t buf_bytes,
               std::uint64_t start, std::uint64_t avail, std::uint64_t* consumed);
  void (*print)(void* rec, const Ctx& c, const char* header, unsigned indent, Text& out);
  void (*json)(void* rec, const Ctx& c, const char* header, unsigned indent, Json& out);
  // Adds the record's fields to a peer view (text/compact_walk.h).
  void (*compact)(void* rec, const Ctx& c, const char* header, CompactOut& out);
};

// Storage for a record chosen at run time.
struct AnyRec {
  const BodyOps* ops;
  void* rec;
};

}  // namespace cs
