#pragma once

#include "utils/trim.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <limits>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace vask::fuzz {

using Text = std::string;
inline constexpr double kGreatest = std::numeric_limits<double>::max();

struct SMark {
  int priority = -1;  // of a bracket
  int operands = 0;   // fewer are lost, but for a sum or difference
  std::function<double(double b, double a)> compute;
};
inline const std::map<Text, SMark> theMarks{
    {"+", {0, 2, [](double b, double a) { return b + a; }}},
    {"-", {0, 2, [](double b, double a) { return b - a; }}},
    {"*", {1, 2, [](double b, double a) { return b * a; }}},
    {"/", {1, 2, [](double b, double a) { return a == 0 ? 0 : b / a; }}},
    {"^", {2, 2, [](double b, double a) { return std::pow(b, a); }}},
    {"sin", {2, 1, [](double, double a) { return std::sin(a); }}},
    {"cos", {2, 1, [](double, double a) { return std::cos(a); }}},
    {"tan", {2, 1, [](double, double a) { return std::tan(a); }}},
    {"sqrt", {2, 1, [](double, double a) { return std::sqrt(a); }}},
    {"(", {}},
    {")", {}},
};

// Takes the token at the front off the text: what comes before the first mark, else the mark. A
// sign goes with the value that follows it where `mayMerge`.
inline Text Take(Text& rest, bool mayMerge) {
  std::size_t end = rest.size();
  Text first;
  for (const auto& [mark, meaning] : theMarks) {
    if (const std::size_t at = rest.find(mark); at < end) {
      end = at;
      first = mark;
    }
  }
  const Text value(Trim(rest.substr(0, end)));
  rest.erase(0, value.empty() ? end + first.size() : end);
  Text after = rest;
  const bool isSign = value.empty() && (first == "+" || first == "-");
  const Text next = isSign && mayMerge ? Take(after, true) : Text();
  if (next.empty() || theMarks.contains(next)) {
    return value.empty() ? first : value;
  }
  rest = after;
  return first + next;
}

// A calculator that searches the whole rest of the text for each token, and computes at once
// instead of writing postfix text.
class CPlainCalculator {
 public:
  double Calculate(const Text& text) {
    if (text.empty()) {
      return 0;  // whatever an earlier text has left
    }
    Text rest(Trim(text));
    bool mayMerge = true;
    for (Text token = Take(rest, true); !token.empty(); token = Take(rest, mayMerge)) {
      const auto mark = theMarks.find(token);
      mayMerge = mark != theMarks.end() && token != ")";
      if (mark == theMarks.end()) {
        TakeNumbers(token);
        continue;
      }
      if (token != "(") {
        Release(token == ")" ? 0 : mark->second.priority);
      }
      if (token != ")") {
        myWaiting.push_back(token);
      } else if (!myWaiting.empty()) {
        myWaiting.pop_back();
      }
    }
    while (!myWaiting.empty()) {
      Release(0);
      myWaiting.resize(myWaiting.size() - (myWaiting.empty() ? 0 : 1));
    }
    return Pop();
  }

 private:
  double Pop() {
    const double top = myValues.empty() ? 0 : myValues.back();
    myValues.resize(myValues.size() - (myValues.empty() ? 0 : 1));
    return top;
  }
  void TakeNumbers(const Text& words) {
    std::istringstream stream(words);
    for (Text word; std::getline(stream, word, ' ');) {
      const Text number(Trim(word));  // of a tab between two blanks nothing, which counts as 0
      if (!word.empty() && number.find_first_not_of("0123456789.+-") == Text::npos) {
        myValues.push_back(std::clamp(std::strtod(number.c_str(), nullptr), -kGreatest, kGreatest));
      }
    }
  }
  // Computes what waits, back to a bracket or to a lower priority.
  void Release(int priority) {
    for (; !myWaiting.empty() && theMarks.at(myWaiting.back()).priority >= priority;
         myWaiting.pop_back()) {
      const SMark& mark = theMarks.at(myWaiting.back());
      const std::size_t count = myValues.size();
      const double a = Pop();
      const double b = mark.operands == 2 ? Pop() : 0;
      if (count >= (mark.priority == 0 ? 1U : static_cast<unsigned>(mark.operands))) {
        myValues.push_back(mark.compute(b, a));
      }
    }
  }

  std::vector<double> myValues;
  std::vector<Text> myWaiting;
};

}  // namespace vask::fuzz
