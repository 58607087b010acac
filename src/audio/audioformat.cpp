#include "audio/audioformat.h"

#include <SDL.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

namespace vask {

namespace {

constexpr std::array<std::pair<std::string_view, std::uint16_t>, 6> kFormats = {{
    {"U8", AUDIO_U8},
    {"S8", AUDIO_S8},
    {"U16LSB", AUDIO_U16LSB},
    {"S16LSB", AUDIO_S16LSB},
    {"U16MSB", AUDIO_U16MSB},
    {"S16MSB", AUDIO_S16MSB},
}};

}  // namespace

std::string_view AudioFormatName(std::uint16_t format) {
  for (const auto& [name, value] : kFormats) {
    if (value == format) {
      return name;
    }
  }
  return {};
}

std::uint16_t AudioFormatFromName(std::string name) {
  std::transform(name.begin(), name.end(), name.begin(),
                 [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  for (const auto& [known, value] : kFormats) {
    if (known == name) {
      return value;
    }
  }
  return 0;
}

}  // namespace vask
