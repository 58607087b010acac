#include "utils/calculator/infixtopostfix.h"

#include "utils/trim.h"

namespace vask {
namespace {

std::size_t Index(char c) { return static_cast<unsigned char>(c); }

}  // namespace

CInfixToPostfix::CInfixToPostfix() {
  myBeginsMark[Index(myOpening.front())] = true;
  myBeginsMark[Index(myClosing.front())] = true;
  AddOperator("+", 0);
  AddOperator("-", 0);
  AddOperator("/", 1);
  AddOperator("*", 1);
}

void CInfixToPostfix::AddOperator(const std::string& text, int priority) {
  myPriorities[text] = priority;
  myBeginsMark[Index(text[0])] = true;
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
        TakeOperator(token, output);
        break;
      case kOpening:
        myStack.push_back(token);
        break;
      case kClosing:
        TakeClosing(output);
        break;
      default:
        Write(token.text, output);
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
    if (!myBeginsMark[Index(infix[position])]) {
      continue;
    }
    const SToken mark = MarkAt(infix, position);
    if (mark.kind == kNone) {
      continue;
    }
    const std::string_view value = Trim(infix.substr(begin, position - begin));
    return value.empty() ? mark : SToken{value, kValue, position};
  }
  const std::string_view value = Trim(infix.substr(begin));
  return {value, value.empty() ? kNone : kValue, infix.size()};
}

// The operator or bracket at the position. Of two operators that match there, the first by
// byte order counts, which is the shorter one.
CInfixToPostfix::SToken CInfixToPostfix::MarkAt(std::string_view infix,
                                                std::size_t position) const {
  const std::string_view rest = infix.substr(position);
  for (const auto& [text, priority] : myPriorities) {
    if (rest.starts_with(text)) {
      return {text, kOperator, position + text.size(), priority};
    }
  }
  if (rest.starts_with(myOpening)) {
    return {myOpening, kOpening, position + myOpening.size()};
  }
  if (rest.starts_with(myClosing)) {
    return {myClosing, kClosing, position + myClosing.size()};
  }
  return {};
}

// The signs from this one on and the value after them as one value ("--5"); without a value the
// sign itself. Remembers a failure, so that a long row of signs is walked once.
CInfixToPostfix::SToken CInfixToPostfix::MergeSigns(std::string_view infix, const SToken& sign) {
  myMerged = sign.text;
  SToken next = PlainToken(infix, sign.end);
  while (next.kind == kOperator && (next.text == "+" || next.text == "-")) {
    myMerged += next.text;
    next = PlainToken(infix, next.end);
  }
  if (next.kind == kValue) {
    myMerged += next.text;
    return {myMerged, kValue, next.end};
  }
  myUnmergedEnd = next.end;
  return sign;
}

void CInfixToPostfix::TakeOperator(const SToken& token, std::string& output) {
  while (!myStack.empty() && myStack.back().text != myOpening &&
         myStack.back().priority >= token.priority) {
    PopTo(output);
  }
  myStack.push_back(token);
}

void CInfixToPostfix::TakeClosing(std::string& output) {
  while (!myStack.empty() && myStack.back().text != myOpening) {
    PopTo(output);
  }
  if (!myStack.empty()) {
    myStack.pop_back();
  }
}

void CInfixToPostfix::Write(std::string_view token, std::string& output) const {
  output += token;
  output += mySeparator;
}

// Moves the top of the stack to the output.
void CInfixToPostfix::PopTo(std::string& output) {
  Write(myStack.back().text, output);
  myStack.pop_back();
}

}  // namespace vask
