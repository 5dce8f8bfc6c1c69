// The value annotation: after every scalar line the printer offers the field to the
// annotation, keyed by the field's printed name in lower case. A known key appends
// " ( reading )" (a phone number, a date, a physical quantity); any other name gets nothing.
#pragma once
#include <cstdint>
#include <string_view>

#include "codec/annotation_keys.h"
#include "codec/walk.h"
#include "text/text.h"

namespace cs {

struct AnnValue {
  std::uint32_t value;   // the scalar as stored
  unsigned width;        // its width on the air (0 when unknown)
  const Bytes* bytes;    // the bit string, for bit-string fields; otherwise null
};

// Appends the reading of key `index` (from annotation_index; nothing for -1).
void annotate_at(Text& t, int index, const AnnValue& v);

// Appends the reading for `name` (any case) if it is a key; a name with an index suffix
// ("PILOT_PN[2]") is never a key.
void annotate(Text& t, std::string_view name, const AnnValue& v);

}  // namespace cs
