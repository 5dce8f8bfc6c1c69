// Every message body registered in a dispatch table is decoded from random bits with the read
// trace on: it must give a result code and a whole record of text, never a read outside its
// buffer (debug assertions, sanitizers); whenever the decode succeeds, the field names printed must be exactly the names
// read, in order. This catches a layout whose printing drifts from its reading (a condition on
// something only the reader knows, a loop over the bits left, a decode-only branch that
// forgot the printer) in every family at once.
#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "codec/read_walk.h"
#include "fwd_common/sync.h"
#include "fwd_common/tables.h"
#include "fwd_traffic/tables.h"
#include "helpers.h"
#include "rev_access/pdu.h"
#include "rev_traffic/pdu.h"
#include "text/text.h"

namespace cs {
namespace {

using test::printed_names;

struct Named {
  std::string where;
  const BodyOps* ops;
};

std::vector<Named> all_bodies() {
  std::vector<Named> v;
  for (const MessageTable* t : {&sync_messages(), &paging_messages(), &access_messages(), &fd_messages(), &rd_messages()})
    for (const MessageTable::Entry& e : t->entries())
      if (e.ops.decode) v.push_back({e.header, &e.ops});
  v.push_back({"general page record", gpm_page_record_body()});
  return v;
}

TEST(Consistency, EveryBodyPrintsExactlyTheFieldsItRead) {
  const auto bodies = all_bodies();
  std::mt19937 rng(31);
  Arena arena;
  std::size_t decoded = 0;
  for (const auto& b : bodies) {
    for (unsigned p_rev : {1u, 3u, 4u, 5u, 6u, 7u, 8u, 9u, 10u, 11u, 12u}) {
      for (int k = 0; k < 30; ++k) {
        // Dense, sparse and all-ones bytes; a bit count that may stop short of the buffer or
        // claim more than it holds (the reader must still stay inside it).
        std::vector<std::uint8_t> buf(rng() % 96);
        for (auto& o : buf) o = static_cast<std::uint8_t>(k % 3 == 0 ? rng() : k % 3 == 1 ? rng() & 0x0F : 0xFF);
        const std::uint64_t avail = k % 5 == 4 ? buf.size() * 8 + 64 : rng() % (buf.size() * 8 + 1);
        Ctx c;
        c.p_rev = static_cast<std::uint8_t>(p_rev);
        c.band_class = static_cast<std::uint8_t>(rng() % 6);
        c.encryption = static_cast<std::uint8_t>(rng() % 4);
        arena.reset();
        void* rec = arena.raw(b.ops->size, alignof(std::max_align_t));
        std::vector<TraceItem> trace;
        g_read_trace = &trace;
        std::uint64_t used = 0;
        const Rc rc = b.ops->decode(rec, c, arena, buf.data(), buf.size(), 0, avail, &used);
        g_read_trace = nullptr;
        ASSERT_TRUE(rc == Rc::ok || rc == Rc::count || rc == Rc::short_msg) << b.where;
        Text t;
        b.ops->print(rec, c, b.ops->header, 0, t);
        // Whatever the result, the text is one whole record.
        ASSERT_EQ(t.str().rfind(std::string(b.ops->header) + "\n{\n", 0), 0u) << b.where;
        ASSERT_EQ(t.str().substr(t.size() - 2), "}\n") << b.where;
        if (rc != Rc::ok) continue;
        ++decoded;
        ASSERT_LE(used, std::max<std::uint64_t>(avail, buf.size() * 8)) << b.where;
        std::vector<std::string> names;
        for (const TraceItem& i : trace) names.push_back(i.name);
        ASSERT_EQ(printed_names(t.str()), names) << b.where << " (" << b.ops->header << ") at P_REV " << p_rev
                                                  << "\n" << t.str();
      }
    }
  }
  if (!bodies.empty()) {
    EXPECT_GT(decoded, bodies.size());   // the check must actually run
  }
}

}  // namespace
}  // namespace cs
