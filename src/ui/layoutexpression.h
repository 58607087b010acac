#pragma once

#include "utils/rect.h"

#include <string>
#include <vector>

namespace vask::ui {

// One of the four texts of a layout. Its value is what the calculator makes of it once the names of
// the two rectangles are replaced by their numbers. A well-formed text is parsed only once. Any
// other one goes through the calculator each time, since there a number may change how its
// neighbours are read ("-parent.x"), and a value too many or too few reaches into other texts.
class CLayoutExpression {
 public:
  // From texts, so that a layout can be written as four of them.
  CLayoutExpression(const std::string& text);
  CLayoutExpression(const char* text) : CLayoutExpression(std::string(text)) {}

  const std::string& GetText() const { return myText; }
  // In pixels. Without a parent (null) its names stay in the text, where the calculator ignores
  // them.
  int Evaluate(const CRect<int>& own, const CRect<int>* parent) const;

 private:
  // Puts a value on the stack, or replaces the two values on top by one.
  struct SStep {
    enum EKind : int { kNumber, kParent, kOwn, kAdd, kSubtract, kMultiply, kDivide };
    EKind kind = kNumber;
    double number = 0.0;
    int CRect<int>::*field = nullptr;
  };
  class CParser;

  double Run(const CRect<int>& own, const CRect<int>& parent) const;
  // The value of `b operation a`; a division by zero is 0.
  static double Applied(SStep::EKind operation, double b, double a);

  std::string myText;
  std::vector<SStep> mySteps;  // empty when the text is not well formed
};

}  // namespace vask::ui
