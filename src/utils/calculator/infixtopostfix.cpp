#include "utils/calculator/infixtopostfix.h"

#include "utils/trim.h"

namespace vask {

CInfixToPostfix::CInfixToPostfix() {
  AddOperator("+", 0);
  AddOperator("-", 0);
  AddOperator("/", 1);
  AddOperator("*", 1);
}

void CInfixToPostfix::AddOperator(const std::string& text, int priority) {
  myPriorities[text] = priority;
}

int CInfixToPostfix::GetPriority(const std::string& text) const {
  const auto found = myPriorities.find(text);
  return found == myPriorities.end() ? 0 : found->second;
}

std::string CInfixToPostfix::Convert(const std::string& text) {
  const std::string_view infix = Trim(text);
  std::string output;
  ourPreviousKind = kNone;
  myUnmergedEnd = 0;
  myStack.clear();
  for (SToken token = NextToken(infix, 0); !token.text.empty();
       token = NextToken(infix, token.end)) {
    switch (token.kind) {
      case kOperator:
        TakeOperator(token.text, output);
        break;
      case kOpening:
        myStack.push_back(token.text);
        break;
      case kClosing:
        TakeClosing(output);
        break;
      default:
        output += token.text + mySeparator;
    }
  }
  while (!myStack.empty()) {
    PopTo(output);
  }
  return output;
}

CInfixToPostfix::SToken CInfixToPostfix::NextToken(std::string_view infix, std::size_t begin) {
  SToken token = PlainToken(infix, begin);
  const bool mayMerge =
      ourPreviousKind == kNone || ourPreviousKind == kOperator || ourPreviousKind == kOpening;
  if (mayMerge && (token.text == "+" || token.text == "-") && token.end > myUnmergedEnd) {
    token = MergeSigns(infix, token);
  }
  ourPreviousKind = token.kind;
  return token;
}

// The next token, a sign being an operator: the stretch up to the next mark, or the mark if only
// blanks come before it. Empty when nothing but blanks is left.
CInfixToPostfix::SToken CInfixToPostfix::PlainToken(std::string_view infix,
                                                    std::size_t begin) const {
  for (std::size_t position = begin; position < infix.size(); ++position) {
    const SToken mark = MarkAt(infix, position);
    if (mark.kind == kNone) {
      continue;
    }
    const std::string_view value = Trim(infix.substr(begin, position - begin));
    return value.empty() ? mark : SToken{std::string(value), kValue, position};
  }
  const std::string_view value = Trim(infix.substr(begin));
  return {std::string(value), value.empty() ? kNone : kValue, infix.size()};
}

// The operator or bracket at the position. Of two operators that match there, the first by
// byte order counts, which is the shorter one.
CInfixToPostfix::SToken CInfixToPostfix::MarkAt(std::string_view infix,
                                                std::size_t position) const {
  const auto matches = [&](const std::string& text) {
    return infix.compare(position, text.size(), text) == 0;
  };
  for (const auto& [text, priority] : myPriorities) {
    if (matches(text)) {
      return {text, kOperator, position + text.size()};
    }
  }
  if (matches(myOpening)) {
    return {myOpening, kOpening, position + myOpening.size()};
  }
  if (matches(myClosing)) {
    return {myClosing, kClosing, position + myClosing.size()};
  }
  return {};
}

// The signs from this one on and the value after them as one value ("--5"); without a value the
// sign itself. Remembers a failure, so that a long row of signs is walked once.
CInfixToPostfix::SToken CInfixToPostfix::MergeSigns(std::string_view infix, const SToken& sign) {
  std::string signs = sign.text;
  SToken next = PlainToken(infix, sign.end);
  while (next.kind == kOperator && (next.text == "+" || next.text == "-")) {
    signs += next.text;
    next = PlainToken(infix, next.end);
  }
  if (next.kind == kValue) {
    return {signs + next.text, kValue, next.end};
  }
  myUnmergedEnd = next.end;
  return sign;
}

void CInfixToPostfix::TakeOperator(const std::string& token, std::string& output) {
  const int priority = GetPriority(token);
  while (!myStack.empty() && myStack.back() != myOpening &&
         GetPriority(myStack.back()) >= priority) {
    PopTo(output);
  }
  myStack.push_back(token);
}

void CInfixToPostfix::TakeClosing(std::string& output) {
  while (!myStack.empty() && myStack.back() != myOpening) {
    PopTo(output);
  }
  if (!myStack.empty()) {
    myStack.pop_back();
  }
}

// Moves the top of the stack to the output.
void CInfixToPostfix::PopTo(std::string& output) {
  output += myStack.back() + mySeparator;
  myStack.pop_back();
}

}  // namespace vask
