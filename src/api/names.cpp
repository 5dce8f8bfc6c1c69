#include "api/names.h"

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

std::string summary_text(int channel, std::uint8_t type) {
  const std::string_view n = message_name(channel, type);
  if (!n.empty()) return std::string(n);
  return "unknown message: msg id = " + std::to_string(static_cast<unsigned>(type));
}

}  // namespace cs
