#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <ios>
#include <sstream>
#include <string>
#include <vector>

// What the harnesses share. scripts/fuzz runs each in a folder of its own with the game's data and
// a log that can't be written.
namespace vask::fuzz {

// Ends the run with the input kept where something that holds for every input does not.
inline void Require(bool holds) {
  if (!holds) {
    std::abort();
  }
}

inline std::string ToText(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

// The lines without their ends; the last one is there even when it is empty.
inline std::vector<std::string> ToLines(const std::uint8_t* data, std::size_t size) {
  std::vector<std::string> lines(1);
  for (const char character : ToText(data, size)) {
    if (character == '\n') {
      lines.emplace_back();
    } else {
      lines.back() += character;
    }
  }
  return lines;
}

inline void WriteFile(const std::string& fileName, const std::string& bytes) {
  std::ofstream(fileName, std::ios::binary) << bytes;
}

inline std::string ReadFile(const std::string& fileName) {
  return (std::ostringstream() << std::ifstream(fileName, std::ios::binary).rdbuf()).str();
}

// Whether all quotes in the tags of a document are around values. Where a broken document forgets
// the opening one, a value gets a quote of its own, with which it can't be written and read again.
inline bool HasOnlyPlainValues(const std::string& document) {
  bool isInTag = false, isInValue = false;
  char previous = ' ';
  for (const char character : document) {
    if (!isInValue && (character == '<' || character == '>')) {
      isInTag = character == '<';
    } else if (isInTag && character == '"') {
      if (!isInValue && previous != '=') {
        return false;
      }
      isInValue = !isInValue;
    }
    previous = character;
  }
  return !isInValue;
}

}  // namespace vask::fuzz
