// sorrelin: decode CDMA2000 Layer-3 messages from the command line or from capture files.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "api/decoder.h"

namespace {

const char kUsage[] =
    "usage: sorrelin [options] [FILE...]\n"
    "       sorrelin [options] CHANNEL P_REV [BAND_CLASS] HEX\n"
    "\n"
    "Decodes CDMA2000 (TIA/EIA-95, IS-2000) air-interface signalling messages and prints, per\n"
    "message, its name and the detail text of every field.\n"
    "\n"
    "Each FILE (or standard input, when no FILE or '-' is given) holds one message per line:\n"
    "    CHANNEL P_REV [BAND_CLASS] HEX      # comments and blank lines are allowed\n"
    "CHANNEL is sync, paging, access, ftc or rtc (or the code 1..5); HEX is the message from its\n"
    "type octet through its CRC (30 bits on sync/paging/access, 16 on ftc/rtc), with no spaces.\n"
    "\n"
    "options:\n"
    "  -e LINE            decode LINE (same form as a file line); may be repeated\n"
    "  --band-class N     band class for lines that give none (default 0)\n"
    "  --summary          print the message names only\n"
    "  --crlf             keep the CR LF line ends of the library's text\n"
    "  -h, --help         show this help\n"
    "  --version          show the version\n"
    "\n"
    "A line that cannot be read is reported on standard error with its line number; the other\n"
    "lines are still decoded and the exit status is 1.\n";

struct Options {
  unsigned band_class = 0;
  bool summary = false;
  bool crlf = false;
};

int channel_code(const std::string& s) {
  static const char* const kNames[] = {"", "sync", "paging", "access", "ftc", "rtc"};
  for (int i = 1; i <= 5; ++i)
    if (s == kNames[i] || s == std::to_string(i)) return i;
  return 0;
}

std::optional<unsigned> octet(const std::string& s) {
  if (s.empty() || s.size() > 3 || s.find_first_not_of("0123456789") != std::string::npos) return std::nullopt;
  const unsigned v = static_cast<unsigned>(std::stoul(s));
  if (v > 255) return std::nullopt;
  return v;
}

bool parse_hex(const std::string& s, std::vector<std::uint8_t>& out) {
  std::string h = s;
  if (h.size() >= 2 && h[0] == '0' && (h[1] == 'x' || h[1] == 'X')) h = h.substr(2);
  if (h.empty() || h.size() % 2 != 0) return false;
  out.clear();
  for (std::size_t i = 0; i < h.size(); i += 2) {
    unsigned v = 0;
    for (int k = 0; k < 2; ++k) {
      const char c = h[i + k];
      unsigned d;
      if (c >= '0' && c <= '9') d = c - '0';
      else if (c >= 'a' && c <= 'f') d = c - 'a' + 10;
      else if (c >= 'A' && c <= 'F') d = c - 'A' + 10;
      else return false;
      v = v * 16 + d;
    }
    out.push_back(static_cast<std::uint8_t>(v));
  }
  return true;
}

class Runner {
 public:
  explicit Runner(const Options& o) : opt_(o) {}

  // Decodes one message line; false (with `why`) when the line cannot be read.
  bool line(const std::string& raw, std::string& why) {
    std::string text = raw.substr(0, raw.find('#'));
    std::istringstream in(text);
    std::vector<std::string> tok;
    for (std::string t; in >> t;) tok.push_back(t);
    if (tok.empty()) return true;
    if (tok.size() < 3 || tok.size() > 4) {
      why = "expected CHANNEL P_REV [BAND_CLASS] HEX";
      return false;
    }
    const int channel = channel_code(tok[0]);
    if (channel == 0) {
      why = "unknown channel '" + tok[0] + "' (sync, paging, access, ftc, rtc or 1..5)";
      return false;
    }
    const auto p_rev = octet(tok[1]);
    if (!p_rev) {
      why = "P_REV '" + tok[1] + "' is not a number from 0 to 255";
      return false;
    }
    unsigned band = opt_.band_class;
    if (tok.size() == 4) {
      const auto b = octet(tok[2]);
      if (!b) {
        why = "band class '" + tok[2] + "' is not a number from 0 to 255";
        return false;
      }
      band = *b;
    }
    std::vector<std::uint8_t> msg;
    if (!parse_hex(tok.back(), msg)) {
      why = "'" + tok.back() + "' is not an even number of hex digits";
      return false;
    }
    emit(channel, *p_rev, band, msg);
    return true;
  }

 private:
  void emit(int channel, unsigned p_rev, unsigned band, const std::vector<std::uint8_t>& msg) {
    std::string out = cs::Decoder::summary(channel, msg.data(), msg.size());
    out += '\n';
    if (!opt_.summary) {
      std::string detail;
      const int rc = dec_.details(detail, static_cast<std::uint8_t>(band), static_cast<std::uint8_t>(p_rev), channel,
                                  msg.data(), msg.size());
      if (!opt_.crlf) detail.erase(std::remove(detail.begin(), detail.end(), '\r'), detail.end());
      out += detail;
      if (!detail.empty() && detail.back() != '\n') out += opt_.crlf ? "\r\n" : "\n";
      if (rc == 3) out += "(result 3: the message ends before a field its layout requires)\n";
      if (rc == 1) out += "(result 1: a count exceeds its capacity, or the message is not decoded at this P_REV)\n";
      out += '\n';
    }
    std::fwrite(out.data(), 1, out.size(), stdout);
  }

  Options opt_;
  cs::Decoder dec_;
};

}  // namespace

int main(int argc, char** argv) {
  Options opt;
  std::vector<std::string> lines, files, positional;
  for (int i = 1; i < argc; ++i) {
    const std::string a = argv[i];
    if (a == "-h" || a == "--help") {
      std::fputs(kUsage, stdout);
      return 0;
    } else if (a == "--version") {
      std::puts("sorrelin " SORRELIN_VERSION);
      return 0;
    } else if (a == "--summary") {
      opt.summary = true;
    } else if (a == "--crlf") {
      opt.crlf = true;
    } else if (a == "--band-class" || a == "-e") {
      if (i + 1 >= argc) {
        std::fprintf(stderr, "sorrelin: %s needs a value\n", a.c_str());
        return 2;
      }
      const std::string v = argv[++i];
      if (a == "-e") {
        lines.push_back(v);
      } else if (const auto b = octet(v)) {
        opt.band_class = *b;
      } else {
        std::fprintf(stderr, "sorrelin: --band-class takes a number from 0 to 255\n");
        return 2;
      }
    } else if (a.size() > 1 && a[0] == '-' && a != "-") {
      std::fprintf(stderr, "sorrelin: unknown option %s (see --help)\n", a.c_str());
      return 2;
    } else {
      positional.push_back(a);
    }
  }
  // "sorrelin ftc 6 0a..." is one message; anything else names files.
  if (positional.size() >= 3 && channel_code(positional[0]) != 0 && !std::ifstream(positional[0])) {
    std::string l;
    for (const auto& p : positional) l += p + " ";
    lines.push_back(l);
  } else {
    files = positional;
  }

  Runner run(opt);
  bool failed = false;
  std::string why;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (!run.line(lines[i], why)) {
      std::fprintf(stderr, "sorrelin: message %zu: %s\n", i + 1, why.c_str());
      failed = true;
    }
  }
  if (files.empty() && lines.empty()) files.push_back("-");
  for (const auto& f : files) {
    std::ifstream file;
    std::istream* in = &std::cin;
    if (f != "-") {
      file.open(f);
      if (!file) {
        std::fprintf(stderr, "sorrelin: cannot open %s\n", f.c_str());
        failed = true;
        continue;
      }
      in = &file;
    }
    const std::string name = f == "-" ? "<stdin>" : f;
    std::string l;
    for (std::size_t n = 1; std::getline(*in, l); ++n) {
      if (!l.empty() && l.back() == '\r') l.pop_back();
      if (!run.line(l, why)) {
        std::fprintf(stderr, "sorrelin: %s:%zu: %s\n", name.c_str(), n, why.c_str());
        failed = true;
      }
    }
  }
  return failed ? 1 : 0;
}
