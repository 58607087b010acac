#pragma once

#include <cmath>
#include <deque>
#include <type_traits>

namespace vask {

// One operator of a postfix evaluator: replaces its operands at the back of the stack by the
// result. With an empty stack it does nothing.
template <typename T>
class IPostfixOperand {
 public:
  virtual ~IPostfixOperand() = default;
  virtual void Operate(std::deque<T>& stack) = 0;

 protected:
  // Integers are computed with more bits and cut down, so that no overflow (nor the one quotient
  // that does not fit) is undefined.
  using Wide = std::conditional_t<std::is_integral_v<T>, long long, T>;
  static_assert(!std::is_integral_v<T> || sizeof(T) < sizeof(long long));

  static T Pop(std::deque<T>& stack) {
    const T value = stack.back();
    stack.pop_back();
    return value;
  }

  // `b operate a` with a on top of b. A lone operand gets 0 to its left.
  template <typename Operation>
  static void OperateOnOneOrTwo(std::deque<T>& stack, Operation operate) {
    if (stack.empty()) {
      return;
    }
    const T a = Pop(stack);
    const T b = stack.empty() ? T{} : Pop(stack);
    stack.push_back(static_cast<T>(operate(Wide{b}, Wide{a})));
  }

  // As above, but a lone operand is lost.
  template <typename Operation>
  static void OperateOnTwo(std::deque<T>& stack, Operation operate) {
    if (stack.size() < 2) {
      stack.clear();
      return;
    }
    OperateOnOneOrTwo(stack, operate);
  }

  template <typename Function>
  static void OperateOnOne(std::deque<T>& stack, Function function) {
    if (!stack.empty()) {
      stack.back() = static_cast<T>(function(static_cast<double>(stack.back())));
    }
  }
};

template <typename T>
class PostfixOperandAddition : public IPostfixOperand<T> {
 public:
  void Operate(std::deque<T>& stack) override {
    this->OperateOnOneOrTwo(stack, [](auto b, auto a) { return b + a; });
  }
};

template <typename T>
class PostfixOperandSubtract : public IPostfixOperand<T> {
 public:
  void Operate(std::deque<T>& stack) override {
    this->OperateOnOneOrTwo(stack, [](auto b, auto a) { return b - a; });
  }
};

template <typename T>
class PostfixOperandMultiply : public IPostfixOperand<T> {
 public:
  void Operate(std::deque<T>& stack) override {
    this->OperateOnTwo(stack, [](auto b, auto a) { return b * a; });
  }
};

// A division by zero gives 0.
template <typename T>
class PostfixOperandDivide : public IPostfixOperand<T> {
 public:
  void Operate(std::deque<T>& stack) override {
    this->OperateOnTwo(stack, [](auto b, auto a) { return a == 0 ? decltype(a){} : b / a; });
  }
};

template <typename T>
class PostfixOperandExponent : public IPostfixOperand<T> {
 public:
  void Operate(std::deque<T>& stack) override {
    this->OperateOnTwo(stack, [](auto b, auto a) {
      return std::pow(static_cast<double>(b), static_cast<double>(a));
    });
  }
};

// Angles are radians.
template <typename T>
class PostfixOperandSine : public IPostfixOperand<T> {
 public:
  void Operate(std::deque<T>& stack) override {
    this->OperateOnOne(stack, [](double a) { return std::sin(a); });
  }
};

template <typename T>
class PostfixOperandCosine : public IPostfixOperand<T> {
 public:
  void Operate(std::deque<T>& stack) override {
    this->OperateOnOne(stack, [](double a) { return std::cos(a); });
  }
};

template <typename T>
class PostfixOperandTangent : public IPostfixOperand<T> {
 public:
  void Operate(std::deque<T>& stack) override {
    this->OperateOnOne(stack, [](double a) { return std::tan(a); });
  }
};

template <typename T>
class PostfixOperandSqrt : public IPostfixOperand<T> {
 public:
  void Operate(std::deque<T>& stack) override {
    this->OperateOnOne(stack, [](double a) { return std::sqrt(a); });
  }
};

}  // namespace vask
