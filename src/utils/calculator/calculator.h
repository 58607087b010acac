#pragma once

#include "utils/calculator/infixtopostfix.h"
#include "utils/calculator/postfix.h"

#include <string>

namespace vask {

// Evaluates an infix expression such as "sin(1.5)*2": the four arithmetic operators, "^", "sin",
// "cos", "tan" (radians) and "sqrt", all left-associative. It knows no variables: callers replace
// names by number text first. Malformed input never fails, it degrades (a division by zero is 0, an
// unknown word is ignored).
//
//     CCalculator<float> calculator;
//     const float value = calculator.Calculate("3 + 4 * 2");  // 11
template <typename T>
class CCalculator : public CPostfix<T> {
 public:
  CCalculator();

  // The value of the expression; 0 for an empty one.
  T Calculate(const std::string& expression);

 private:
  CInfixToPostfix myConverter;
  PostfixOperandSine<T> mySine;
  PostfixOperandCosine<T> myCosine;
  PostfixOperandTangent<T> myTangent;
  PostfixOperandSqrt<T> mySqrt;
  PostfixOperandExponent<T> myExponent;
};

extern template class CCalculator<float>;
extern template class CCalculator<double>;

}  // namespace vask
