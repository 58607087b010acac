#include "utils/calculator/postfix.h"

#include "utils/trim.h"

#include <algorithm>
#include <charconv>
#include <sstream>
#include <system_error>
#include <type_traits>

namespace vask {
namespace {

bool IsOfNumber(char c) { return (c >= '0' && c <= '9') || c == '.' || c == '+' || c == '-'; }

// What a stream reads from such a text; a stream is slow to make, and needed only where the value
// is beyond the type's range.
template <typename T>
T ReadNumber(std::string_view text) {
  const bool hasPlus = text.starts_with('+');
  if (hasPlus && text.substr(1).starts_with('-')) {
    return T{};
  }
  T value{};
  const char* const begin = text.data() + (hasPlus ? 1 : 0);
  const char* const end = text.data() + text.size();
  std::from_chars_result result;
  if constexpr (std::is_floating_point_v<T>) {
    result = std::from_chars(begin, end, value, std::chars_format::fixed);
  } else {
    result = std::from_chars(begin, end, value);
  }
  if (result.ec == std::errc::result_out_of_range) {
    std::istringstream(std::string(text)) >> value;
  }
  return value;
}

}  // namespace

template <typename T>
CPostfix<T>::CPostfix() {
  AddOperand("+", &myAddition);
  AddOperand("-", &mySubtract);
  AddOperand("*", &myMultiply);
  AddOperand("/", &myDivide);
}

template <typename T>
void CPostfix<T>::AddOperand(const std::string& text, IPostfixOperand<T>* operand) {
  myOperands[text] = operand;
}

template <typename T>
T CPostfix<T>::Evaluate(const std::string& postfix) {
  for (std::size_t begin = 0; begin < postfix.size();) {
    const std::size_t end = std::min(postfix.find(mySeparator, begin), postfix.size());
    if (end > begin) {
      EvaluatePiece(Trim(std::string_view(postfix).substr(begin, end - begin)));
    }
    begin = end + mySeparator.size();
  }
  if (myStack.empty()) {
    return T{};
  }
  const T result = myStack.back();
  myStack.pop_back();
  return result;
}

template <typename T>
void CPostfix<T>::EvaluatePiece(std::string_view piece) {
  if (const auto found = myOperands.find(piece); found != myOperands.end()) {
    found->second->Operate(myStack);
  } else if (std::all_of(piece.begin(), piece.end(), IsOfNumber)) {
    myStack.push_back(ReadNumber<T>(piece));
  }
}

template class CPostfix<int>;
template class CPostfix<float>;
template class CPostfix<double>;

}  // namespace vask
