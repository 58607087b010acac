#pragma once

#include "utils/calculator/postfixoperand.h"

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace vask {

// Evaluates postfix text such as "3 4 2 * + " with the four arithmetic operators and what
// AddOperand enters. What is neither a number nor an operator is ignored.
//
// Values that no operator takes stay on the stack, under the operands of later evaluations.
template <typename T>
class CPostfix {
 public:
  CPostfix();
  CPostfix(const CPostfix&) = delete;
  CPostfix& operator=(const CPostfix&) = delete;

  // Enters an operator (not owned, not null) under its text.
  void AddOperand(const std::string& text, IPostfixOperand<T>* operand);

  // The value on top of the stack in the end; 0 when there is none.
  T Evaluate(const std::string& postfix);

 private:
  void EvaluatePiece(std::string_view piece);

  std::deque<T> myStack;
  std::map<std::string, IPostfixOperand<T>*, std::less<>> myOperands;
  PostfixOperandAddition<T> myAddition;
  PostfixOperandSubtract<T> mySubtract;
  PostfixOperandMultiply<T> myMultiply;
  PostfixOperandDivide<T> myDivide;
  std::string mySeparator = " ";
};

extern template class CPostfix<int>;
extern template class CPostfix<float>;
extern template class CPostfix<double>;

}  // namespace vask
