#pragma once

#include "utils/trim.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace vask::fuzz {

using Text = std::string;

inline Text Trimmed(const Text& text) { return Text(Trim(text)); }
inline bool Has(const Text& text, const Text& part) { return text.find(part) != Text::npos; }

inline std::vector<Text> Split(Text text, const Text& separator) {
  std::vector<Text> pieces;
  for (std::size_t at = 0; at != Text::npos; text = text.substr(at + separator.size())) {
    at = text.find(separator);
    if (at != 0 && !text.empty()) {
      pieces.push_back(text.substr(0, at));
    }
    if (at == Text::npos) {
      break;
    }
  }
  return pieces;
}

// A console with the command "show", which answers with its parameters, and the number "count". It
// follows the language word by word, and calls itself for each "=".
class CPlainConsole {
 public:
  Text Execute(const Text& line) {
    const Text statement = line.substr(0, line.find("//"));
    if (Trimmed(line).empty() || Trimmed(line).starts_with("//")) {
      return "";
    }
    if (Has(line, ";")) {
      Text results;
      for (const Text& piece : Split(statement, ";")) {
        results += Execute(piece) + "\n";
      }
      return results;
    }
    if (Has(line, "::")) {
      const std::vector<Text> pieces = Split(statement, "::");
      return pieces.size() < 2 ? "" : Execute(pieces[1]);
    }
    if (Has(line, "//")) {
      return Execute(statement);
    }
    return Upper(Trimmed(line.substr(0, line.find('(')))) == "SHOW" ? Show(line) : Assign(line);
  }

 private:
  static Text Upper(Text text) {
    std::ranges::transform(text, text.begin(),
                           [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return text;
  }
  static Text Show(const Text& line) {
    const std::size_t open = line.find('(');
    const std::size_t close = line.rfind(')');
    if (open == Text::npos || close == Text::npos || close < open) {
      return " bare ";
    }
    Text shown = "(";
    for (const Text& piece : Split(line.substr(open + 1, close - open - 1), ",")) {
      const Text word = Trimmed(piece);
      const bool isQuoted = word.size() > 1 && word.front() == '"' && word.back() == '"';
      if (word.find_first_not_of("0123456789.+-") == Text::npos) {
        double number = 0;
        std::istringstream(word) >> number;
        shown += (std::ostringstream() << "#" << number).str() + ",";
      } else {
        shown += (isQuoted ? word.substr(1, word.size() - 2) : word) + ",";
      }
    }
    return shown + ")";
  }
  Text Assign(const Text& line) {
    const std::size_t equals = line.find('=');
    if (equals == Text::npos) {
      const auto found = myTexts.find(Upper(Trimmed(line)));
      return found == myTexts.end() ? Trimmed(line) : found->second;
    }
    // A line that begins with the sign has the name after it, and no value.
    const Text name = Upper(Trimmed(equals == 0 ? line.substr(1) : line.substr(0, equals)));
    const Text value = Trimmed(equals == 0 ? "" : Execute(line.substr(equals + 1)));
    int number = 0;
    if (name != "COUNT") {
      myTexts[name] = value;
    } else if (std::istringstream(value) >> number) {
      myTexts[name] = std::to_string(number);
    }
    return myTexts[name];
  }

  std::map<Text, Text> myTexts{{"COUNT", "0"}};  // the variables
};

}  // namespace vask::fuzz
