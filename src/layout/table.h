// Message tables: every message of a channel is one row, declared by the family that holds
// its layout. The channel joins its families' rows into one table, from which the summary
// names, the SDU labels, the record headers, the dispatch and the test sweeps all come.
#pragma once
#include <array>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "codec/walk.h"

namespace cs {

struct MessageRow {
  std::uint8_t type;     // the message type on the air
  const char* abbr;      // the standard's abbreviation, e.g. "EHDM"
  BodyOps body;          // body_ops<Rec>(); a row with no decode function names a message only
  std::uint8_t route;    // what the channel's dispatcher does with it (a channel's own enum)
  std::uint8_t carrier;  // which PDU carries the body, where a channel has several (its own enum)
};

using Rows = std::span<const MessageRow>;

// A channel's table. Header, label and name of a row derive from its abbreviation:
// header_prefix + abbr ("FD_EHDM"), "SDU." + abbr, name_prefix + abbr
// ("OVN_FDTCH_MSG_TYPE_EHDM").
class MessageTable {
 public:
  MessageTable(const char* header_prefix, const char* name_prefix, std::initializer_list<Rows> parts);
  MessageTable(const MessageTable&) = delete;
  MessageTable& operator=(const MessageTable&) = delete;

  struct Entry {
    const MessageRow* row;
    BodyOps ops;          // the row's body with its header filled in
    std::string header;   // "FD_EHDM"
    std::string label;    // "SDU.EHDM"
    std::string name;     // "OVN_FDTCH_MSG_TYPE_EHDM"
  };

  // The entry of a message type, or null when the channel has no such message.
  const Entry* find(std::uint8_t type) const {
    const std::int16_t i = index_[type];
    return i < 0 ? nullptr : &entries_[static_cast<std::size_t>(i)];
  }
  // The body of a message type, or null when it has none.
  const BodyOps* body(std::uint8_t type) const {
    const Entry* e = find(type);
    return e && e->ops.decode ? &e->ops : nullptr;
  }
  const std::vector<Entry>& entries() const { return entries_; }

 private:
  std::vector<Entry> entries_;
  std::array<std::int16_t, 256> index_;
};

}  // namespace cs
