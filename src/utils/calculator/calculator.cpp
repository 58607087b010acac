#include "utils/calculator/calculator.h"

namespace vask {

template <typename T>
CCalculator<T>::CCalculator() {
  constexpr int kPriority = 2;
  const auto add = [this](const char* text, IPostfixOperand<T>* operand) {
    this->AddOperand(text, operand);
    myConverter.AddOperator(text, kPriority);
  };
  add("sin", &mySine);
  add("cos", &myCosine);
  add("tan", &myTangent);
  add("sqrt", &mySqrt);
  add("^", &myExponent);
}

template <typename T>
T CCalculator<T>::Calculate(const std::string& expression) {
  return expression.empty() ? T{} : this->Evaluate(myConverter.Convert(expression));
}

template class CCalculator<float>;
template class CCalculator<double>;

}  // namespace vask
