// Message names by channel and message type, for the summary text.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace cs {

// The name of message type `type` on `channel`, or an empty view when it has none.
std::string_view message_name(int channel, std::uint8_t type);

// The name, or the fallback text "unknown message: msg id = <type>".
std::string summary_text(int channel, std::uint8_t type);

}  // namespace cs
