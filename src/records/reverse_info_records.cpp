// Reverse information records, C.S0005 2.7.4: one struct and one layout per record type.
#include "records/reverse_info_records.h"

#include "layout/layout.h"

namespace cs {

InfoRecType rev_info_rec_type(std::uint8_t) { return {nullptr, nullptr}; }

}  // namespace cs
