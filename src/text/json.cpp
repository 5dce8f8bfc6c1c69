#include "text/json.h"

#include <charconv>

#include "text/text.h"

namespace cs {

void Json::before_value() {
  if (after_key_) {
    after_key_ = false;
    return;
  }
  if (!first_.empty()) {
    if (!first_.back()) out_.push_back(',');
    first_.back() = false;
  }
}

void Json::open(char c) {
  before_value();
  out_.push_back(c);
  first_.push_back(true);
}

void Json::close(char c) {
  out_.push_back(c);
  first_.pop_back();
}

void Json::key(std::string_view k) {
  before_value();
  quoted(k);
  out_.push_back(':');
  after_key_ = true;
}

void Json::number(std::uint64_t v) {
  before_value();
  char b[24];
  out_.append(b, std::to_chars(b, b + sizeof b, v).ptr);
}

void Json::number(std::int64_t v) {
  before_value();
  char b[24];
  out_.append(b, std::to_chars(b, b + sizeof b, v).ptr);
}

void Json::null() {
  before_value();
  out_.append("null");
}

void Json::string(std::string_view s) {
  before_value();
  quoted(s);
}

void Json::quoted(std::string_view s) {
  out_.push_back('"');
  for (unsigned char c : s) {
    switch (c) {
      case '"': out_.append("\\\""); break;
      case '\\': out_.append("\\\\"); break;
      case '\n': out_.append("\\n"); break;
      case '\r': out_.append("\\r"); break;
      case '\t': out_.append("\\t"); break;
      default:
        if (c < 0x20) {
          out_.append("\\u00");
          out_.push_back("0123456789abcdef"[c >> 4]);
          out_.push_back("0123456789abcdef"[c & 15]);
        } else {
          out_.push_back(static_cast<char>(c));
        }
    }
  }
  out_.push_back('"');
}

std::string annotation_reading(int index, const AnnValue& v) {
  Text t;
  annotate_at(t, index, v);
  std::string s = t.str();
  // " ( reading )": the reading alone.
  if (s.size() >= 5 && s.compare(0, 3, " ( ") == 0 && s.compare(s.size() - 2, 2, " )") == 0)
    return s.substr(3, s.size() - 5);
  return s;
}

namespace {

using Lines = std::vector<std::string_view>;

bool at_indent(std::string_view l, unsigned indent) {
  return l.size() > indent && l.find_first_not_of(' ') == indent;
}

bool is_brace(std::string_view l, unsigned indent, char brace) {
  return l.size() == indent + 1 && l[indent] == brace && l.find_first_not_of(' ') == indent;
}

// A printed value: a number, a "0x..." bit string, NULL, or text; and its annotation.
void value(std::string_view v, Json& j, std::string* reading) {
  if (const auto at = v.find(" ( "); at != std::string_view::npos && v.size() >= 2 && v.substr(v.size() - 2) == " )") {
    if (reading) *reading = std::string(v.substr(at + 3, v.size() - 2 - (at + 3)));
    v = v.substr(0, at);
  }
  std::int64_t n = 0;
  const auto r = std::from_chars(v.data(), v.data() + v.size(), n);
  if (!v.empty() && r.ec == std::errc() && r.ptr == v.data() + v.size()) {
    j.number(n);
  } else if (v == "NULL") {
    j.null();
  } else {
    while (!v.empty() && v.back() == ' ') v.remove_suffix(1);
    j.string(v);
  }
}

void members(const Lines& ls, std::size_t& i, unsigned indent, Json& j);

// A record whose header stands at `i` and whose braces follow at `indent`.
void record(const Lines& ls, std::size_t& i, unsigned indent, std::string_view header, Json& j) {
  j.begin_object();
  j.key("@record");
  j.string(header);
  i += 2;   // the header line and "{"
  members(ls, i, indent + 3, j);
  if (i < ls.size() && is_brace(ls[i], indent, '}')) ++i;
  j.end_object();
}

void members(const Lines& ls, std::size_t& i, unsigned indent, Json& j) {
  while (i < ls.size() && at_indent(ls[i], indent)) {
    const std::string_view body = ls[i].substr(indent);
    const bool opens = i + 1 < ls.size() && is_brace(ls[i + 1], indent, '{');
    const auto eq = body.find(" = ");
    if (eq == std::string_view::npos) {   // a header line alone
      j.key(body);
      if (opens) {
        record(ls, i, indent, body, j);
      } else {
        j.null();
        ++i;
      }
      continue;
    }
    const std::string_view name = body.substr(0, eq);
    if (!name.empty() && name.back() == ']' && name.find('[') != std::string_view::npos) {
      // A run of "NAME[k] = ..." lines: one array, readings beside it.
      const std::string_view base = name.substr(0, name.find('['));
      std::vector<std::string> readings;
      bool any_reading = false;
      j.key(base);
      j.begin_array();
      while (i < ls.size() && at_indent(ls[i], indent)) {
        const std::string_view b = ls[i].substr(indent);
        const auto e = b.find(" = ");
        if (e == std::string_view::npos || b.substr(0, b.find('[')) != base || b.find('[') > e) break;
        const bool rec = i + 1 < ls.size() && is_brace(ls[i + 1], indent, '{');
        if (rec) {
          record(ls, i, indent, b.substr(e + 3), j);
          readings.emplace_back();
        } else {
          std::string reading;
          value(b.substr(e + 3), j, &reading);
          any_reading = any_reading || !reading.empty();
          readings.push_back(std::move(reading));
          ++i;
        }
      }
      j.end_array();
      if (any_reading) {
        j.key(std::string(base) + ".annotation");
        j.begin_array();
        for (const std::string& r : readings) r.empty() ? j.null() : j.string(r);
        j.end_array();
      }
      continue;
    }
    j.key(name);
    if (opens) {
      record(ls, i, indent, body.substr(eq + 3), j);
      continue;
    }
    std::string reading;
    value(body.substr(eq + 3), j, &reading);
    if (!reading.empty()) {
      j.key(std::string(name) + ".annotation");
      j.string(reading);
    }
    ++i;
  }
}

}  // namespace

void text_to_json(std::string_view text, unsigned indent, Json& j) {
  Lines ls;
  for (std::size_t at = 0; at < text.size();) {
    const auto end = text.find('\n', at);
    ls.push_back(text.substr(at, end == std::string_view::npos ? std::string_view::npos : end - at));
    at = end == std::string_view::npos ? text.size() : end + 1;
  }
  std::size_t i = 0;
  while (i < ls.size()) {
    const std::size_t before = i;
    members(ls, i, indent, j);
    if (i == before) ++i;   // a line the grammar does not know is passed over
  }
}

}  // namespace cs
