#pragma once

#include "ui/layoutexpression.h"
#include "utils/rect.h"

namespace vask::ui {

// A rectangle as four texts. They are numbers, or expressions over "parent.x", "parent.y",
// "parent.w", "parent.h" and the same of "this", such as "parent.x + parent.w - 25", for the
// calculator to evaluate.
struct SLayout {
  CLayoutExpression x;
  CLayoutExpression y;
  CLayoutExpression width;
  CLayoutExpression height;

  // Whether all four are numbers, with or without a sign, so that nothing need be evaluated again.
  bool IsPlain() const;
  // The rectangle of a plain layout, without fractions.
  CRect<int> ToRect() const;
  // The new rectangle of a widget whose rectangle is `own`. Without a parent (null) its names stay
  // in the text, where the calculator ignores them.
  CRect<int> Evaluate(const CRect<int>& own, const CRect<int>* parent) const;
};

}  // namespace vask::ui
