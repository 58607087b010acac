#pragma once

#include <algorithm>
#include <type_traits>

namespace vask {

// A rectangle: the top-left corner and the size, in pixels for CRect<int>.
template <typename T>
struct CRect {
  T x{};
  T y{};
  T w{};
  T h{};

  bool operator==(const CRect&) const = default;

  // Whether the point lies inside; the right and lower edges do not belong to the rectangle.
  bool Contains(T px, T py) const { return px >= x && px < Right() && py >= y && py < Bottom(); }

  bool IsEmpty() const { return w <= 0 || h <= 0; }

  // Whether the two rectangles share at least one pixel.
  bool Intersects(const CRect& other) const { return !Intersection(other).IsEmpty(); }

  // What both cover; all zero when they share nothing.
  CRect Intersection(const CRect& other) const {
    const Wide left = std::max(x, other.x);
    const Wide top = std::max(y, other.y);
    const Wide right = std::min(Right(), other.Right());
    const Wide bottom = std::min(Bottom(), other.Bottom());
    if (right <= left || bottom <= top) {
      return {};
    }
    return {static_cast<T>(left), static_cast<T>(top), static_cast<T>(right - left),
            static_cast<T>(bottom - top)};
  }

 private:
  // Edges of integer rectangles may lie beyond T's range: sizes come from files.
  using Wide = std::conditional_t<std::is_integral_v<T>, long long, T>;

  Wide Right() const { return Wide{x} + Wide{w}; }
  Wide Bottom() const { return Wide{y} + Wide{h}; }
};

}  // namespace vask
