#include "utils/calculator/postfix.h"

#include "utils/trim.h"

#include <algorithm>
#include <sstream>

namespace vask {

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
      EvaluatePiece(std::string(Trim(std::string_view(postfix).substr(begin, end - begin))));
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
void CPostfix<T>::EvaluatePiece(const std::string& piece) {
  if (const auto found = myOperands.find(piece); found != myOperands.end()) {
    found->second->Operate(myStack);
    return;
  }
  if (piece.find_first_not_of("0123456789.+-") != std::string::npos) {
    return;
  }
  T value{};
  std::istringstream(piece) >> value;
  myStack.push_back(value);
}

template class CPostfix<int>;
template class CPostfix<float>;
template class CPostfix<double>;

}  // namespace vask
