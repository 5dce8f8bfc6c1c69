// The vocabulary every record layout is written against.
//
// A record is a plain struct; its layout is ONE function template, written once in air order:
//
//     template <class W> void layout(W& w, FC_SCHM& r, const Ctx& c);
//
// Two walkers walk it. ReadWalk (codec/read_walk.h) turns bits into the record; PrintWalk
// (text/print_walk.h) turns the record into detail text. Both offer the same verbs:
//
//   need(n)            group check: n more bits must fit, else result 3 (print: always true)
//   count(n, cap)      a count against its array's capacity, else result 1
//   reject(rc)         refuse the record under these arguments (e.g. result 1 for a P_REV)
//   u(f, "NAME", w)    scalar field of w <= 32 bits: "NAME = %d" plus its annotation
//   bits(f, "NAME", w) bit string of any width, kept right-aligned: "NAME = 0x..."
//   show(f, "NAME")    a stored value with no bits on the air (print only)
//   skip(n)            bits consumed but neither kept nor printed (reserved fields)
//   align(mod, bias)   unchecked skip to the next (mod, bias) boundary from the start
//   scalars("NAME", a, n, w)              n scalars of w bits: "NAME[k] = v"
//   sub("LABEL", "HEADER", rec, c)        nested record: "LABEL = HEADER { ... }"
//   sized(..., declared_bits, c)          nested record bounded to its declared length; the
//                                         walk then moves on by max(declared, consumed),
//                                         never past the end of the message
//   padded(..., declared_bits, c)         as sized, but the record may run past its declared
//                                         length (an address of a fixed form)
//   counted("LABEL", "HEADER", a, n, c)   n records: "LABEL[k] = HEADER { ... }"
//   list_to_end(..., a, capacity_fn, c)   records while >= 8 bits are left and the capacity
//                                         (computed once from the bits left) allows
//   body("LABEL", ops, rec, c)            a record chosen at run time through its BodyOps
//
// The nesting verbs pass their context on as its own type: a parent may hand its children a
// struct derived from Ctx carrying its own fields, and the child's layout takes that type.
//
// Presence conditions are ordinary `if`s on the record, so the printer re-tests them on what
// was decoded (or on what an earlier message left). The reader stops at the first failure:
// after it every verb is a no-op and `left()` is 0, so every loop over `left()` ends.
// A decode/print difference is written as an explicit `if constexpr (W::kReading)` branch
// with a comment saying why.
#pragma once
#include <cstddef>
#include <cstdint>

namespace cs {

class Arena;
class Text;

// Result codes of every decode.
enum class Rc : std::uint32_t { ok = 0, count = 1, short_msg = 3 };

// Arguments a layout may depend on. Families add to it rather than invent side channels.
struct Ctx {
  std::uint8_t p_rev = 0;
  std::uint8_t band_class = 0;
  std::uint8_t encryption = 0;   // traffic PDU ENCRYPTION, for bodies that look at it
  std::uint8_t ordq = 0;         // order qualifier, for order-specific records
  std::uint8_t msg_type = 0;
  std::uint8_t pd = 0;            // paging PDU protocol discriminator, for its assignment records
  std::uint8_t auth_incl = 0;
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

// A record whose type is chosen at run time (a message body in a dispatch table).
struct BodyOps {
  const char* header;   // header line of the record, e.g. "FD_EHDM"
  std::size_t size;     // bytes of the record, allocated zeroed per call
  Rc (*decode)(void* rec, const Ctx& c, Arena& arena, const std::uint8_t* buf, std::size_t buf_bytes,
               std::uint64_t start, std::uint64_t avail, std::uint64_t* consumed);
  void (*print)(void* rec, const Ctx& c, const char* header, unsigned indent, Text& out);
};

// Storage for a record chosen at run time.
struct AnyRec {
  const BodyOps* ops;
  void* rec;
};

}  // namespace cs
