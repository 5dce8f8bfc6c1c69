#include "pd/burst.h"

#include "otasp/otasp.h"
#include "pd/pd.h"
#include "sms/sms.h"

namespace cs {

namespace {

struct Kind {
  BurstContents decode_print;
  const char* forward_label;
  const char* reverse_label;
};

// BURST_TYPE values (C.S0005 burst type assignments, TSB-58).
const Kind* kind_of(std::uint8_t burst_type) {
  static constexpr Kind kSms{&sms_contents, "L4Message.FwdSMSMessage = ", "L4Message.RevSMSMessage = "};
  static constexpr Kind kOtasp{&otasp_contents, "L4Message.FwdOTAMessage = ", "L4Message.RevOTAMessage = "};
  static constexpr Kind kPd{&pd_contents, "L4Message.FwdGPSMessage = ", "L4Message.RevGPSMessage = "};
  static constexpr Kind kSdb{&sdb_contents, "L4Message.FwdSDBMessage = ", "L4Message.RevSDBMessage = "};
  switch (burst_type) {
    case 3: return &kSms;
    case 4: return &kOtasp;
    case 5: return &kPd;
    case 6: return &kSdb;
    default: return nullptr;
  }
}

}  // namespace

Rc print_burst_contents(Text& t, unsigned indent, std::uint8_t burst_type, const std::uint8_t* data, std::size_t n,
                        const Ctx& c) {
  t.spaces(indent);
  const Kind* k = kind_of(burst_type);
  if (k == nullptr) {
    t.put("L4Message.UnknownMessage = \n");
    return Rc::ok;
  }
  t.put(c.forward ? k->forward_label : k->reverse_label);
  // The contents are a decode of their own, made while the carrying message is being
  // printed: they get a scratch arena of their own, reset for every burst (the pool reset a
  // burst's decode starts with), so that nothing the carrying message's records point into is
  // freed or reused under them. One per thread, kept for its memory; a burst's contents never
  // hold another burst, so it is never in use twice at once.
  thread_local Arena scratch;
  scratch.reset();
  const Rc rc = k->decode_print(t, indent, data, n, c, scratch);
  scratch.reset();
  if (rc != Rc::ok) t.put("Unpack error. \n");
  return rc;
}

}  // namespace cs
