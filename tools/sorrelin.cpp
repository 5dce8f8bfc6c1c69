// sorrelin: decode CDMA2000 Layer-3 messages from the command line, from capture files and
// from phone logs.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#endif

#include "api/names.h"
#include "cdmaSorrelin.hpp"
#include "diag_log.h"
#include "input.h"

namespace {

using namespace cs::tool;

const char kUsage[] =
    "usage: sorrelin [options] [FILE...]\n"
    "       sorrelin [options] CHANNEL P_REV [BAND_CLASS] HEX\n"
    "       sorrelin [options] --diag LOG...\n"
    "\n"
    "Decodes CDMA2000 (TIA/EIA-95, IS-2000) air-interface signalling messages and prints, per\n"
    "message, where it came from and its name, then the detail text of every field.\n"
    "\n"
    "Each FILE (or standard input, when no FILE or '-' is given) holds one message per line:\n"
    "    CHANNEL P_REV [BAND_CLASS] HEX      # comments and blank lines are allowed\n"
    "CHANNEL is sync, paging, access, ftc or rtc (or the code 1..5); HEX is the message from its\n"
    "type octet through its CRC (30 bits on sync/paging/access, 16 on ftc/rtc), optionally with a\n"
    "0x prefix, colons between octets, or spaces (a two-digit band class before hex written two\n"
    "digits to a word is ambiguous: use --band-class). The name line starts with FILE:LINE.\n"
    "\n"
    "options:\n"
    "  -e LINE            decode LINE (same form as a file line); may be repeated\n"
    "  --capsule          the hex starts with the message's length octet (MSG_LENGTH), as the\n"
    "                     message travels on the air\n"
    "  --diag             the FILEs are Qualcomm DIAG logs (.qmdl, .mi2log; .dlf by its name):\n"
    "                     their 1x signalling messages are decoded with their log timestamps, the\n"
    "                     rest is skipped and counted on standard error\n"
    "  --dlf              read the DIAG logs as .dlf files whatever their names\n"
    "  --p-rev N          (--diag) decode with P_REV N rather than the one the base station\n"
    "                     announces in its Sync Channel and Extended System Parameters Messages\n"
    "  --mob-p-rev N      (--diag) the mobile's P_REV: the P_REV in use is no higher\n"
    "  --band-class N     band class for lines that give none, and for logs (default 0)\n"
    "  --json             one JSON object per message and line (JSON Lines)\n"
    "  --all-broadcast    decode every broadcast message of the paging channel that has a layout\n"
    "  --summary          print the name lines only\n"
    "  --crlf             end every output line in CR LF\n"
    "  --                 the arguments after it are FILEs, whatever they look like\n"
    "  -h, --help         show this help\n"
    "  --version          show the version\n"
    "\n"
    "A line or file that cannot be read is reported on standard error with its place; the rest\n"
    "is still decoded and the exit status is 1. Usage errors exit with 2.\n";

struct Options {
  int band_class = 0;
  bool summary = false;
  bool crlf = false;
  bool json = false;
  bool all_broadcast = false;
  bool capsule = false;
  bool diag = false;
  bool dlf = false;
  int p_rev = -1;
  int mob_p_rev = -1;
};

// Everything written to standard output goes through one buffer, written out in large
// pieces; a failed write stops the tool.
class Output {
 public:
  std::string buf;
  bool failed() const { return failed_; }
  int error() const { return errno_; }
  void maybe_flush() {
    if (buf.size() >= (1u << 18)) flush();
  }
  bool flush() {
    if (!failed_ && !buf.empty() && std::fwrite(buf.data(), 1, buf.size(), stdout) != buf.size()) fail();
    buf.clear();
    return !failed_;
  }
  bool finish() {
    flush();
    if (!failed_ && std::fflush(stdout) != 0) fail();
    return !failed_;
  }

 private:
  void fail() {
    failed_ = true;
    errno_ = errno;
  }
  bool failed_ = false;
  int errno_ = 0;
};

class Runner {
 public:
  Runner(const Options& o, Output& out)
      : opt_(o), out_(out), dec_(cs::DecodeOptions{false, o.all_broadcast}) {}

  bool failed() const { return failed_; }

  // One message line from `where` ("FILE:LINE", or empty for the command line's message).
  void line(std::string_view text, std::string_view where) {
    cs::tool::LineHead head;
    switch (parse_line(text, static_cast<std::uint8_t>(opt_.band_class), head, octets_, why_)) {
      case LineKind::blank: return;
      case LineKind::bad: return complain(where, why_);
      case LineKind::message: break;
    }
    const std::uint8_t* msg = octets_.data();
    std::size_t len = octets_.size();
    if (opt_.capsule) {
      // The library takes the octets after MSG_LENGTH with len = MSG_LENGTH on channels 2 to
      // 5: one octet more than the line gives, a zero kept after them.
      if (octets_[0] != octets_.size()) {
        why_ = "MSG_LENGTH is " + std::to_string(octets_[0]) + " but the capsule has " +
               std::to_string(octets_.size()) + " octets";
        return complain(where, why_);
      }
      octets_.push_back(0);
      msg = octets_.data() + 1;
      len = cs::diag::library_len(head.channel, octets_[0]);
    }
    where_.assign(where);
    emit(head.channel, head.p_rev, head.band_class, msg, len, nullptr);
  }

  // The 1x signalling messages of a DIAG log.
  void log(const std::string& path) {
    cs::diag::LogReader reader;
    std::string error;
    if (!reader.open(path, opt_.dlf ? cs::diag::Container::dlf : cs::diag::container_of(path), error)) {
      return complain(escaped(path, 4096), error);
    }
    reader.on_wait([](void* o) { static_cast<Output*>(o)->flush(); }, &out_);
    cs::diag::Revision rev;
    if (opt_.mob_p_rev >= 0) rev.limit(static_cast<std::uint8_t>(opt_.mob_p_rev));
    if (opt_.p_rev >= 0) rev.fix(static_cast<std::uint8_t>(opt_.p_rev));
    const auto band = static_cast<std::uint8_t>(opt_.band_class);
    cs::diag::LogItem item;
    cs::diag::Message m;
    std::uint64_t decoded = 0, refused = 0, others = 0;
    const std::string name = escaped(path, 4096);
    while (reader.next(item) && !out_.failed()) {
      if (!cs::diag::message_of(item, m)) {
        ++others;
        continue;
      }
      where_ = cs::diag::format_timestamp(m.timestamp);
      if (m.check != cs::diag::CapsuleCheck::ok) {
        ++refused;
        out_.flush();
        std::fprintf(stderr, "sorrelin: %s: %s: %s log item (0x%04x): %s; not decoded\n", name.c_str(),
                     where_.c_str(), cs::tool::channel_word(m.channel), m.code, cs::diag::describe(m.check, m.channel));
        continue;
      }
      rev.follow(m.channel, m.msg(), m.len(), band);
      ++decoded;
      where_ += ' ';
      where_ += channel_word(m.channel);
      where_ += " p_rev=";
      where_ += std::to_string(rev.p_rev());
      emit(m.channel, rev.p_rev(), band, m.msg(), m.len(), &m);
    }
    if (!reader.error().empty()) complain(name, "read error: " + reader.error());
    const cs::diag::Counts& c = reader.counts();
    out_.flush();
    std::fprintf(stderr,
                 "sorrelin: %s: %llu 1x signalling messages decoded, %llu not decodable; skipped %llu other log "
                 "items, %llu other DIAG frames, %llu damaged frames\n",
                 name.c_str(), static_cast<unsigned long long>(decoded), static_cast<unsigned long long>(refused),
                 static_cast<unsigned long long>(others), static_cast<unsigned long long>(c.other_frames),
                 static_cast<unsigned long long>(c.damaged));
  }

  void complain(std::string_view where, std::string_view why) {
    out_.flush();   // what was decoded before it comes first on a terminal
    if (where.empty()) {
      std::fprintf(stderr, "sorrelin: %.*s\n", static_cast<int>(why.size()), why.data());
    } else {
      std::fprintf(stderr, "sorrelin: %.*s: %.*s\n", static_cast<int>(where.size()), where.data(),
                   static_cast<int>(why.size()), why.data());
    }
    failed_ = true;
  }

 private:
  // The name line, then the detail text, its result and a blank line; or one JSON line.
  void emit(int channel, std::uint8_t p_rev, std::uint8_t band, const std::uint8_t* msg, std::size_t len,
            const cs::diag::Message* m) {
    // In CR LF mode the message's lines are made in a scratch string and converted as they
    // are copied; otherwise they are written straight into the output buffer.
    std::string& s = opt_.crlf ? scratch_ : out_.buf;
    if (opt_.crlf) s.clear();
    if (opt_.json) {
      json_line(s, channel, p_rev, band, msg, len, m);
    } else {
      if (!where_.empty()) {
        s += where_;
        s += ": ";
      }
      const std::string_view name = cs::message_name(channel, msg[0]);
      if (!name.empty()) {
        s += name;
      } else {
        s += cs::summary_text(channel, msg[0]);
      }
      s += '\n';
      if (!opt_.summary) {
        const std::size_t before = s.size();
        const int rc = dec_.details(s, band, p_rev, channel, msg, len);
        if (s.size() > before && s.back() != '\n') s += '\n';
        if (rc == 3) s += "(result 3: the message ends before a field its layout requires)\n";
        if (rc == 1) s += "(result 1: a count exceeds its capacity, or the message is not decoded at this P_REV)\n";
        s += '\n';
      }
    }
    if (opt_.crlf) {
      std::string& o = out_.buf;
      o.reserve(o.size() + s.size() + s.size() / 8);
      std::size_t from = 0;
      for (std::size_t nl; (nl = s.find('\n', from)) != std::string::npos; from = nl + 1) {
        o.append(s, from, nl - from);
        o += "\r\n";
      }
      o.append(s, from, std::string::npos);
    }
    out_.maybe_flush();
  }

  void json_line(std::string& s, int channel, std::uint8_t p_rev, std::uint8_t band, const std::uint8_t* msg,
                 std::size_t len, const cs::diag::Message* m) {
    // The place members first, then the decoder's object without its opening brace.
    s += '{';
    if (m) {
      s += "\"timestamp\":";
      append_json_string(s, cs::diag::format_timestamp(m->timestamp));
      s += ",\"log_code\":";
      s += std::to_string(m->code);
      s += ",\"capsule\":\"";
      static constexpr char kHex[] = "0123456789abcdef";
      for (std::size_t i = 0; i < m->capsule_size(); ++i) {
        s += kHex[m->capsule()[i] >> 4];
        s += kHex[m->capsule()[i] & 15];
      }
      s += "\",";
    } else if (!where_.empty()) {
      s += "\"source\":";
      append_json_string(s, where_);
      s += ',';
    }
    if (opt_.summary) {
      s += "\"channel\":";
      append_json_string(s, channel_word(channel));
      s += ",\"name\":";
      const std::string_view name = cs::message_name(channel, msg[0]);
      append_json_string(s, name.empty() ? std::string_view(cs::summary_text(channel, msg[0])) : name);
      s += "}\n";
      return;
    }
    const std::size_t brace = s.size();
    dec_.details_json(s, band, p_rev, channel, msg, len);
    s.erase(brace, 1);
    s += '\n';
  }

  const Options& opt_;
  Output& out_;
  cs::Decoder dec_;
  std::vector<std::uint8_t> octets_;
  std::string why_, where_, scratch_;
  bool failed_ = false;
};

// A number option's value from 0 to 255, or -1.
int number_value(const char* v) { return octet_number(v ? std::string_view(v) : std::string_view()); }

}  // namespace

int main(int argc, char** argv) {
#if defined(_WIN32)
  // The text is written as it is made: no LF to CR LF conversion behind the tool's back.
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stdin), _O_BINARY);
#endif
  std::setvbuf(stdout, nullptr, _IONBF, 0);   // the tool writes large pieces of its own
  Options opt;
  std::vector<std::string> lines, positional, files;
  bool only_files = false;
  for (int i = 1; i < argc; ++i) {
    std::string a = argv[i];
    if (only_files || a == "-" || a.empty() || a[0] != '-') {
      (only_files ? files : positional).push_back(a);
      continue;
    }
    // --name=value is --name value.
    std::string value;
    bool has_value = false;
    if (a.rfind("--", 0) == 0) {
      if (const std::size_t eq = a.find('='); eq != std::string::npos) {
        value = a.substr(eq + 1);
        a.resize(eq);
        has_value = true;
      }
    }
    const auto take_value = [&]() -> const char* {
      if (has_value) return value.c_str();
      if (i + 1 >= argc) return nullptr;
      return argv[++i];
    };
    if (a == "--") {
      only_files = true;
    } else if (a == "-h" || a == "--help") {
      std::fputs(kUsage, stdout);
      return std::fflush(stdout) == 0 && !std::ferror(stdout) ? 0 : 1;
    } else if (a == "--version") {
      std::fputs("sorrelin " SORRELIN_VERSION "\n", stdout);
      return std::fflush(stdout) == 0 && !std::ferror(stdout) ? 0 : 1;
    } else if (a == "--summary") {
      opt.summary = true;
    } else if (a == "--crlf") {
      opt.crlf = true;
    } else if (a == "--json") {
      opt.json = true;
    } else if (a == "--all-broadcast") {
      opt.all_broadcast = true;
    } else if (a == "--capsule") {
      opt.capsule = true;
    } else if (a == "--diag") {
      opt.diag = true;
    } else if (a == "--dlf") {
      opt.diag = opt.dlf = true;
    } else if (a == "-e") {
      const char* v = take_value();
      if (!v) {
        std::fprintf(stderr, "sorrelin: -e needs a message line (see --help)\n");
        return 2;
      }
      lines.emplace_back(v);
    } else if (a == "--band-class" || a == "--p-rev" || a == "--mob-p-rev") {
      const int v = number_value(take_value());
      if (v < 0) {
        std::fprintf(stderr, "sorrelin: %s takes a number from 0 to 255\n", a.c_str());
        return 2;
      }
      (a == "--band-class" ? opt.band_class : a == "--p-rev" ? opt.p_rev : opt.mob_p_rev) = v;
    } else {
      std::fprintf(stderr, "sorrelin: unknown option %s (see --help)\n", escaped(a).c_str());
      return 2;
    }
  }
  if (opt.diag && !lines.empty()) {
    std::fprintf(stderr, "sorrelin: -e gives a message line; --diag reads logs\n");
    return 2;
  }
  // "sorrelin ftc 6 0a..." is one message: a channel word, a P_REV and more words, whatever
  // files there are of those names (name them after "--" or as ./sync).
  bool one_message = false;
  if (!opt.diag && positional.size() >= 3 && channel_code(positional[0]) != 0 && octet_number(positional[1]) >= 0) {
    std::string l;
    for (const auto& p : positional) (l += p) += ' ';
    lines.push_back(l);
    one_message = true;
  } else {
    files.insert(files.begin(), positional.begin(), positional.end());
  }
  if (files.empty() && lines.empty()) files.emplace_back("-");

  Output out;
  Runner run(opt, out);
  for (std::size_t i = 0; i < lines.size() && !out.failed(); ++i)
    run.line(lines[i], one_message ? std::string() : "-e:" + std::to_string(i + 1));
  std::string where, error;
  std::string_view l;
  for (const auto& f : files) {
    if (out.failed()) break;
    if (opt.diag) {
      run.log(f);
      continue;
    }
    LineReader in;
    const std::string name = f == "-" ? std::string("<stdin>") : escaped(f, 4096);
    if (!in.open(f, error)) {
      run.complain(name, error);
      continue;
    }
    in.on_wait([](void* o) { static_cast<Output*>(o)->flush(); }, &out);
    for (std::size_t n = 1; !out.failed() && in.next(l); ++n) {
      where = name;
      where += ':';
      where += std::to_string(n);
      run.line(l, where);
    }
    if (!in.error().empty()) run.complain(name, "read error: " + in.error());
  }
  if (!out.finish()) {
    std::fprintf(stderr, "sorrelin: write error: %s\n", std::strerror(out.error()));
    return 1;
  }
  return run.failed() ? 1 : 0;
}
