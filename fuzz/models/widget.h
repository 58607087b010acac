#pragma once

#include "models/calculator.h"
#include "utils/rect.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <string>
#include <vector>

namespace vask::fuzz {

// A widget as a bare rectangle that follows its parent's, by texts or by one of three modes.
struct SPlainWidget {
  CRect<int> rect;
  SPlainWidget* parent = nullptr;
  std::vector<SPlainWidget*> children;  // front to back; not owned
  std::array<std::string, 4> layout;    // of x, y, width and height
  bool hasLayout = false;
  int mode = 1;

  static int ToInt(double value) {
    const double whole = std::isnan(value) ? 0 : std::trunc(value);
    return static_cast<int>(std::min<double>(std::max<double>(whole, INT_MIN), INT_MAX));
  }

  void MoveBy(int dx, int dy) {
    const CRect<int> old = rect;
    rect.x = ToInt(1.0 * rect.x + dx);
    rect.y = ToInt(1.0 * rect.y + dy);
    for (SPlainWidget* child : children) {
      child->MoveBy(ToInt(1.0 * rect.x - old.x), ToInt(1.0 * rect.y - old.y));
    }
  }
  void MoveTo(int x, int y) { MoveBy(ToInt(1.0 * x - rect.x), ToInt(1.0 * y - rect.y)); }

  void Resize(int width, int height) {
    const CRect<int> old = rect;
    rect.w = width;
    rect.h = height;
    for (SPlainWidget* child : children) {
      if (width != old.w || height != old.h) {
        child->FollowParent(old);
      }
    }
  }

  void FollowParent(const CRect<int>& old) {
    const double sx = old.w == 0 ? 1.0 : 1.0 * parent->rect.w / old.w;
    const double sy = old.h == 0 ? 1.0 : 1.0 * parent->rect.h / old.h;
    if (hasLayout) {
      const CRect<int> wanted = Evaluate();
      MoveTo(wanted.x, wanted.y);
      Resize(wanted.w, wanted.h);
    } else if (mode == 1) {
      const int width = ToInt(rect.w * sx), height = ToInt(rect.h * sy);
      const int rx = ToInt(1.0 * rect.x - parent->rect.x),
                ry = ToInt(1.0 * rect.y - parent->rect.y);
      MoveBy(ToInt(1.0 * ToInt(rx * sx) - rx), ToInt(1.0 * ToInt(ry * sy) - ry));
      Resize(width, height);
    } else if (mode == 2) {
      const int cx = ToInt(1.0 * rect.x + rect.w / 2), cy = ToInt(1.0 * rect.y + rect.h / 2);
      MoveBy(ToInt(cx * sx - cx), ToInt(cy * sy - cy));
    }
  }

  CRect<int> Evaluate() const {
    std::array<int, 4> values{};
    for (std::size_t i = 0; i < layout.size(); ++i) {
      std::string text = layout[i];
      if (parent != nullptr) {
        Replace(text, "parent", parent->rect);
      }
      Replace(text, "this", rect);
      values[i] = ToInt(Calculator().Calculate(text));
    }
    return {values[0], values[1], values[2], values[3]};
  }

 private:
  // One for all, as what a bad text leaves in it reaches into the next.
  static CPlainCalculator& Calculator() {
    static CPlainCalculator calculator;
    return calculator;
  }
  static void Replace(std::string& text, const std::string& owner, const CRect<int>& values) {
    const auto replace = [&](const std::string& name, int value) {
      const std::string number = std::to_string(value);
      for (std::size_t at = text.find(name); at != std::string::npos;
           at = text.find(name, at + number.size())) {
        text.replace(at, name.size(), number);
      }
    };
    replace(owner + ".x", values.x);
    replace(owner + ".y", values.y);
    replace(owner + ".w", values.w);
    replace(owner + ".h", values.h);
  }
};

}  // namespace vask::fuzz
