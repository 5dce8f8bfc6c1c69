#include "api/names.h"

#if defined(_WIN32)
#include <windows.h>
#endif

#include "fwd_common/sync.h"
#include "fwd_common/tables.h"
#include "fwd_traffic/tables.h"
#include "rev_access/pdu.h"
#include "rev_traffic/pdu.h"

namespace cs {

namespace {

const MessageTable* table_of(int channel) {
  switch (channel) {
    case 1: return &sync_messages();
    case 2: return &paging_messages();
    case 3: return &access_messages();
    case 4: return &fd_messages();
    case 5: return &rd_messages();
    default: return nullptr;
  }
}

}  // namespace

std::string_view message_name(int channel, std::uint8_t type) {
  const MessageTable* t = table_of(channel);
  if (t == nullptr) return {};
  if (const MessageTable::Entry* e = t->find(type)) return e->name;
  // Every channel's type 0 is named, by its own table or as "MSG_0".
  return type == 0 ? std::string_view("MSG_0") : std::string_view();
}

// The fallback text with the type in place of its "%d". On Windows it comes from string
// resource 2 of the library's own module, found by its name; elsewhere (or when the module is
// not loaded under that name) from the same text built in.
std::string fallback_text(std::uint8_t type) {
  std::string format = "unknown message: msg id = %d";
#if defined(_WIN32)
  if (HMODULE self = GetModuleHandleA("cdmaSorrelin")) {
    char buf[200];
    const int n = LoadStringA(self, 2, buf, sizeof buf);
    if (n > 0) format.assign(buf, static_cast<std::size_t>(n));
  }
#endif
  const std::size_t at = format.find("%d");
  return at == std::string::npos ? format
                                  : format.replace(at, 2, std::to_string(static_cast<unsigned>(type)));
}

std::string summary_text(int channel, std::uint8_t type) {
  const std::string_view n = message_name(channel, type);
  if (!n.empty()) return std::string(n);
  return fallback_text(type);
}

}  // namespace cs
