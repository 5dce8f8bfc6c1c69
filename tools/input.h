// The tool's text input: capture files read in large blocks and split into lines, and the
// reading of one message line into a reused buffer, without an allocation per line.
#pragma once
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "diag_log.h"

namespace cs::tool {

// The lines of a file (or of standard input), each without its line end. Memory stays
// bounded by the longest line, whatever the size of the file.
class LineReader : public diag::BlockInput<char> {
 public:
  // Opens `path` ("-" is standard input); false with `error` set when it cannot be read.
  bool open(const std::string& path, std::string& error) { return open_file(path, error); }
  // The next line (valid until the next call), false at the end or on a read error.
  bool next(std::string_view& line);
};

// Channel words: sync, paging, access, ftc, rtc, or the codes 1 to 5; 0 for anything else.
int channel_code(std::string_view word);
const char* channel_word(int channel);

// A number from 0 to 255 written in decimal, or -1.
int octet_number(std::string_view word);

// What a message line says.
struct LineHead {
  int channel = 0;
  std::uint8_t p_rev = 0;
  std::uint8_t band_class = 0;
};

enum class LineKind { blank, message, bad };

// Reads "CHANNEL P_REV [BAND_CLASS] HEX" (a "#" starts a comment). The hex may carry a 0x
// prefix, colons between its octets, or spaces between its words: the word after P_REV is
// then the band class when it is a decimal number, unless it could as well be the first
// octet of hex written two digits to a word (that line is refused as ambiguous). The octets
// go to `octets` (its storage is reused); `why` says what is wrong with a bad line.
LineKind parse_line(std::string_view line, std::uint8_t default_band, LineHead& head,
                    std::vector<std::uint8_t>& octets, std::string& why);

// `s` fit for a terminal and a log: printable ASCII as it is, a backslash doubled, every
// other octet as \xNN; cut after `max` characters with "...".
std::string escaped(std::string_view s, std::size_t max = 60);

// Appends `s` as a JSON string (quotes included); octets beyond ASCII become \u00NN.
void append_json_string(std::string& out, std::string_view s);

}  // namespace cs::tool
