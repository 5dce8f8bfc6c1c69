#include "layout/table.h"

#include <cassert>

namespace cs {

MessageTable::MessageTable(const char* header_prefix, const char* name_prefix, std::initializer_list<Rows> parts) {
  index_.fill(-1);
  std::size_t n = 0;
  for (Rows part : parts) n += part.size();
  entries_.reserve(n);   // entries are addressed by pointer once built
  for (Rows part : parts) {
    for (const MessageRow& row : part) {
      assert(index_[row.type] < 0 && "a message type is declared twice");
      Entry e{&row, row.body, std::string(header_prefix) + row.abbr, std::string("SDU.") + row.abbr,
              std::string(name_prefix) + row.abbr};
      index_[row.type] = static_cast<std::int16_t>(entries_.size());
      entries_.push_back(std::move(e));
    }
  }
  // Headers point into the entries' own strings, which no longer move.
  for (Entry& e : entries_) e.ops.header = e.header.c_str();
}

}  // namespace cs
