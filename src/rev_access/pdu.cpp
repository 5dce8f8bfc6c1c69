#include "rev_access/pdu.h"

namespace cs {

// Not decoded yet: no text; a message too short to hold its type octet still reports it.
Rc run_access(AccessState&, Call& call) { return call.avail < 8 ? Rc::short_msg : Rc::ok; }

}  // namespace cs
