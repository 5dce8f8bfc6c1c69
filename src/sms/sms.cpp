#include "sms/sms.h"

namespace cs {

// Not decoded yet.
Rc sms_contents(Text&, unsigned, const std::uint8_t*, std::size_t, const Ctx&, Arena&) { return Rc::count; }
Rc sdb_contents(Text&, unsigned, const std::uint8_t*, std::size_t, const Ctx&, Arena&) { return Rc::count; }

}  // namespace cs
