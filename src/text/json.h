// JSON output: a writer that knows where commas go, and the reading of detail-text fragments
// (the few lines a printer-only branch writes as text) into the same members the JSON walker
// writes.
//
// A record is an object: "@record" holds its header line, then one member per printed field
// in print order: a scalar as its number, a bit string as its "0x..." text, a value annotation
// as a member of its own ("NAME.annotation": its reading), scalars of an array as one array
// ("NAME": [...]), nested records as objects and records of a list as one array of objects
// under their label.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "text/annotate.h"

namespace cs {

class Json {
 public:
  explicit Json(std::string& out) : out_(out) {}
  Json(const Json&) = delete;
  Json& operator=(const Json&) = delete;

  void begin_object() { open('{'); }
  void end_object() { close('}'); }
  void begin_array() { open('['); }
  void end_array() { close(']'); }
  void key(std::string_view k);
  void number(std::uint64_t v);
  void number(std::int64_t v);
  void string(std::string_view s);
  void null();
  std::string& out() { return out_; }

 private:
  void open(char c);
  void close(char c);
  void before_value();
  void quoted(std::string_view s);

  std::string& out_;
  std::vector<bool> first_;   // per open container: no member written yet
  bool after_key_ = false;
};

// Writes, as members of the object being written, what a detail-text fragment shows (lines
// whose fields stand `indent` spaces in): "NAME = value" lines, "NAME[k] = value" runs,
// "LABEL = HEADER" and "LABEL[k] = HEADER" records in braces, a header line alone (with or
// without braces), and "LABEL = text" lines of free text.
void text_to_json(std::string_view text, unsigned indent, Json& j);

// The value annotation of a field as its reading: what the text printer appends after the
// value, without the " ( " and " )" around it; empty when the name is no key.
std::string annotation_reading(int index, const AnnValue& v);

}  // namespace cs
