#include "tools/base64.h"

#include <cstddef>
#include <cstdint>

namespace vask {
namespace {

constexpr std::string_view kLetters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::size_t kBytesInGroup = 3;
constexpr std::size_t kLettersInGroup = 4;
constexpr std::size_t kBytesInLine = 76 / kLettersInGroup * kBytesInGroup;

// One to three bytes in four letters.
std::string EncodeGroup(std::string_view bytes) {
  std::uint32_t bits = 0;
  for (std::size_t i = 0; i < kBytesInGroup; ++i) {
    bits = bits << 8U | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U);
  }
  std::string letters(kLettersInGroup, '=');
  for (std::size_t i = 0; i <= bytes.size(); ++i) {
    letters[i] = kLetters[bits >> (18U - 6U * i) & 63U];
  }
  return letters;
}

}  // namespace

std::string EncodeBase64(std::string_view bytes) {
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += kBytesInGroup) {
    text += i > 0 && i % kBytesInLine == 0 ? "\r\n" : "";
    text += EncodeGroup(bytes.substr(i, kBytesInGroup));
  }
  return text;
}

}  // namespace vask
