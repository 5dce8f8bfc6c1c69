// Reading and running golden cases (see golden_runner.cpp for the file format).
#pragma once
#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "api/decoder.h"
#include "codec/read_walk.h"
#include "fwd_common/sync.h"
#include "fwd_common/tables.h"
#include "fwd_traffic/tables.h"
#include "pd/burst.h"
#include "rev_access/pdu.h"
#include "rev_traffic/pdu.h"
#include "text/json.h"
#include "text/text.h"

namespace cs::test {

inline const MessageTable& table_of(int channel) {
  switch (channel) {
    case 1: return sync_messages();
    case 2: return paging_messages();
    case 3: return access_messages();
    case 4: return fd_messages();
    default: return rd_messages();
  }
}

// Records that are no message body of their own but are worth cases of their own.
inline const BodyOps* named_record(const std::string& name) {
  if (name == "L2_PAGE_RECORD") return gpm_page_record_body();
  throw std::runtime_error("no record " + name);
}

inline int channel_code(const std::string& s) {
  static const char* const kNames[] = {"", "sync", "paging", "access", "ftc", "rtc"};
  for (int i = 1; i <= 5; ++i)
    if (s == kNames[i]) return i;
  return 0;
}

// Appends `width` bits of a value written as decimal (two's complement when negative) or as
// "0x" hex (right-aligned: the last `width` bits of the digits).
inline void put_value(std::vector<bool>& bits, const std::string& v, unsigned width) {
  std::vector<bool> all;
  if (v.rfind("0x", 0) == 0) {
    for (char c : v.substr(2)) {
      const int d = c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10;
      if (d < 0 || d > 15) throw std::runtime_error("bad hex value " + v);
      for (int i = 3; i >= 0; --i) all.push_back((d >> i) & 1);
    }
  } else {
    std::size_t used = 0;
    const long long n = std::stoll(v, &used);
    if (used != v.size()) throw std::runtime_error("bad value " + v);
    for (int i = 63; i >= 0; --i) all.push_back((static_cast<unsigned long long>(n) >> i) & 1);
  }
  for (unsigned i = 0; i < width; ++i) {
    const std::size_t from_end = width - i;   // bits beyond what was written read as zero
    bits.push_back(from_end <= all.size() && all[all.size() - from_end]);
  }
}

struct Case {
  std::string name;
  int line = 0;
  int channel = 0;
  std::optional<int> body;   // the message type whose body is decoded alone
  std::string record;        // or a record that is not a message of its own
  std::optional<int> burst;  // or the contents of a data burst of this BURST_TYPE (the channel
                             // gives the link: paging and ftc forward, access and rtc reverse)
  std::uint8_t p_rev = 0, band = 0;
  int result = 0;
  Ctx ctx;                   // encryption, pd and the link for a body
  std::optional<std::uint64_t> avail, consumed;
  std::string hex;           // the message as octets, instead of margins
  bool all_broadcast = false;  // the decoder's option of that name
  std::string text;          // the expected text, LF line ends
  std::vector<std::pair<std::string, std::string>> margins;   // (margin, text) per line

  std::vector<bool> input_bits() const {
    std::vector<bool> bits;
    for (const auto& [margin, shown] : margins) {
      if (margin.empty()) continue;
      const auto colon = margin.find(':');
      const unsigned width = static_cast<unsigned>(std::stoul(margin.substr(0, colon)));
      if (colon != std::string::npos) {
        put_value(bits, margin.substr(colon + 1), width);
        continue;
      }
      const auto eq = shown.find(" = ");
      if (eq == std::string::npos) throw std::runtime_error("a width beside a line with no value: " + shown);
      const std::string value = shown.substr(eq + 3, shown.find(' ', eq + 3) - (eq + 3));
      put_value(bits, value, width);
    }
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2) put_value(bits, "0x" + hex.substr(i, 2), 8);
    return bits;
  }
  // The message type the case exercises: its body, or its first octet (for the contents of a
  // burst, their own message type).
  int message_type() const {
    if (body) return *body;
    if (!record.empty()) return -1;
    const std::vector<bool> bits = input_bits();
    int t = 0;
    for (std::size_t i = 0; i < 8 && i < bits.size(); ++i) t = t << 1 | bits[i];
    return channel == 2 && p_rev >= 7 && !burst ? t & 63 : t;
  }
};

inline std::vector<Case> read_cases(const std::filesystem::path& file) {
  std::ifstream in(file);
  std::vector<Case> cases;
  Case* k = nullptr;
  std::string l;
  for (int n = 1; std::getline(in, l); ++n) {
    if (l.empty()) {
      k = nullptr;
      continue;
    }
    if (l[0] == '#') continue;
    if (l.rfind("case ", 0) == 0) {
      cases.emplace_back();
      k = &cases.back();
      k->line = n;
      const auto colon = l.find(':');
      k->name = l.substr(5, colon - 5);
      std::istringstream words(l.substr(colon + 1));
      std::string w;
      words >> w;
      k->channel = channel_code(w);
      if (k->channel == 0) throw std::runtime_error(file.string() + ":" + std::to_string(n) + ": channel " + w);
      while (words >> w) {
        const auto eq = w.find('=');
        const std::string key = w.substr(0, eq), v = w.substr(eq + 1);
        const auto num = [&] { return std::stoull(v, nullptr, 0); };
        if (key == "body") k->body = static_cast<int>(num());
        else if (key == "record") k->record = v;
        else if (key == "burst") k->burst = static_cast<int>(num());
        else if (key == "p_rev") k->p_rev = static_cast<std::uint8_t>(num());
        else if (key == "band") k->band = static_cast<std::uint8_t>(num());
        else if (key == "result") k->result = static_cast<int>(num());
        else if (key == "encryption") k->ctx.encryption = static_cast<std::uint8_t>(num());
        else if (key == "pd") k->ctx.pd = static_cast<std::uint8_t>(num());
        else if (key == "avail") k->avail = num();
        else if (key == "consumed") k->consumed = num();
        else if (key == "hex") k->hex = v;
        else if (key == "all_broadcast") k->all_broadcast = num() != 0;
        else throw std::runtime_error(file.string() + ":" + std::to_string(n) + ": unknown parameter " + key);
      }
      k->ctx.p_rev = k->p_rev;
      k->ctx.band_class = k->band;
      k->ctx.forward = k->channel != 3 && k->channel != 5;   // the link of the channel
      continue;
    }
    const auto bar = l.find('|');
    if (k == nullptr || bar == std::string::npos)
      throw std::runtime_error(file.string() + ":" + std::to_string(n) + ": not part of a case");
    std::string margin = l.substr(0, bar);
    margin.erase(0, margin.find_first_not_of(' '));
    margin.erase(margin.find_last_not_of(' ') + 1);
    const std::string text = l.substr(bar + 1);
    if (!text.empty()) k->text += text + "\n";
    k->margins.emplace_back(margin, text);
  }
  return cases;
}

struct Outcome {
  int rc;
  std::string text;                 // LF line ends
  std::uint64_t consumed;           // body cases
  std::string json;                 // the same decode as JSON (not for burst contents)
  std::vector<std::string> trace;   // names read
  std::uint64_t read_end;           // where the last field read ends, in bits from the first
                                    // octet of the message (or of the body)
};

// The message octets: the bits, zero padding, then the channel's CRC (zeros).
inline std::vector<std::uint8_t> octets(const std::vector<bool>& bits, unsigned crc_bits) {
  std::vector<std::uint8_t> out((bits.size() + crc_bits + 7) / 8, 0);
  for (std::size_t i = 0; i < bits.size(); ++i)
    if (bits[i]) out[i / 8] |= static_cast<std::uint8_t>(0x80 >> (i % 8));
  return out;
}

// The CRC bits the built message ends with (a message given as octets carries its own).
inline unsigned crc_bits(const Case& k) { return !k.hex.empty() ? 0 : k.channel == 4 || k.channel == 5 ? 16 : 30; }

// A body case over `bits`, or a channel case over the octets `bits` make (`keep` octets of
// them when given: a message cut short).
inline Outcome run(const Case& k, const std::vector<bool>& bits, std::optional<std::size_t> keep = std::nullopt) {
  Outcome o{};
  std::vector<TraceItem> trace;
  g_read_trace = &trace;
  if (k.burst) {
    if (bits.size() % 8 != 0) throw std::runtime_error(k.name + ": a burst is whole octets");
    const std::vector<std::uint8_t> data = octets(bits, 0);
    Text t;
    o.rc = static_cast<int>(print_burst_contents(t, 0, static_cast<std::uint8_t>(*k.burst), data.data(), data.size(), k.ctx));
    o.text = t.str();
  } else if (k.body || !k.record.empty()) {
    const Ctx& body_ctx = k.ctx;
    const BodyOps* ops =
        k.body ? table_of(k.channel).body(static_cast<std::uint8_t>(*k.body)) : named_record(k.record);
    if (ops == nullptr) throw std::runtime_error("no body for type " + std::to_string(*k.body));
    const std::vector<std::uint8_t> buf = octets(bits, 0);
    Arena arena;
    void* rec = arena.raw(ops->size, alignof(std::max_align_t));
    const std::uint64_t avail = k.avail ? std::min<std::uint64_t>(*k.avail, bits.size()) : bits.size();
    o.rc = static_cast<int>(ops->decode(rec, body_ctx, arena, buf.data(), buf.size(), 0, avail, &o.consumed));
    Text t;
    ops->print(rec, body_ctx, ops->header, 0, t);
    o.text = t.str();
    Json j(o.json);
    ops->json(rec, body_ctx, ops->header, 0, j);
  } else {
    std::vector<std::uint8_t> msg = octets(bits, crc_bits(k));
    if (keep) msg.resize(std::min(*keep, msg.size()));
    DecodeOptions options;
    options.all_broadcast = k.all_broadcast;
    Decoder d(options);
    o.rc = d.details(o.text, k.band, k.p_rev, k.channel, msg.data(), msg.size());
    g_read_trace = nullptr;   // the JSON rendering is a second decode of the same message
    Decoder dj(options);
    dj.details_json(o.json, k.band, k.p_rev, k.channel, msg.data(), msg.size());
    g_read_trace = &trace;
    o.text.erase(std::remove(o.text.begin(), o.text.end(), '\r'), o.text.end());
  }
  g_read_trace = nullptr;
  // The sync channel's decode starts after the type octet.
  const std::uint64_t offset = !k.body && k.record.empty() && !k.burst && k.channel == 1 ? 8 : 0;
  o.read_end = 0;
  for (TraceItem& i : trace) {
    o.read_end = std::max(o.read_end, offset + i.pos + i.width);
    o.trace.push_back(std::move(i.name));
  }
  return o;
}

}  // namespace cs::test
