#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vask {

// Converts infix text into postfix text, "3 + 4 * 2" into "3 4 2 * + ", by the shunting-yard
// algorithm (E. W. Dijkstra, "Algol 60 translation", Mathematisch Centrum report MR 34/61, 1961).
// Every operator is left-associative, and functions are operators like the others; a value is any
// text between operators and brackets. An operator's text is found even inside a word.
//
// A sign at the front, or after an operator or an opening bracket, becomes part of the value that
// follows it; before anything else it stays an operator.
class CInfixToPostfix {
 public:
  CInfixToPostfix();

  // The tokens in postfix order, each followed by one blank. Any text converts somehow.
  std::string Convert(const std::string& infix);

  // Enters the operator, or gives it a new priority; higher ones bind first.
  void AddOperator(const std::string& text, int priority);
  // 0 for a text that was not entered.
  int GetPriority(const std::string& text) const;

 private:
  enum EKind : int { kNone = 0, kOperator = 1, kOpening = 3, kClosing = 4, kValue = 5 };

  struct SToken {
    std::string_view text;  // of the infix, of a table, or of myMerged
    EKind kind = kNone;
    std::size_t end = 0;  // position just past the token
    int priority = 0;     // of an operator
  };

  SToken NextToken(std::string_view infix, std::size_t begin);
  SToken PlainToken(std::string_view infix, std::size_t begin) const;
  SToken MarkAt(std::string_view infix, std::size_t position) const;
  SToken MergeSigns(std::string_view infix, const SToken& sign);
  void TakeOperator(const SToken& token, std::string& output);
  void TakeClosing(std::string& output);
  void Write(std::string_view token, std::string& output) const;
  void PopTo(std::string& output);

  // The kind of the token before the one being read. One for all converters: conversions do not
  // interleave.
  static inline EKind ourPreviousKind = kNone;

  std::map<std::string, int> myPriorities;
  std::string myOpening = "(";
  std::string myClosing = ")";
  std::string mySeparator = " ";
  // Whether an operator or a bracket begins with that character: most characters begin none.
  std::array<bool, 256> myBeginsMark{};
  std::vector<SToken> myStack;    // operators and open brackets not written to the output yet
  std::string myMerged;           // the last value with its signs
  std::size_t myUnmergedEnd = 0;  // up to here signs are known to have no value after them
};

}  // namespace vask
