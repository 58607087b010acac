#include "ui/layout.h"

#include "ui/geometry.h"
#include "utils/calculator/calculator.h"
#include "utils/trim.h"

#include <charconv>
#include <limits>
#include <string_view>
#include <system_error>

namespace vask::ui {
namespace {

bool IsPlainNumber(std::string_view text) {
  text = Trim(text);
  if (text.size() > 1 && (text.front() == '+' || text.front() == '-')) {
    text.remove_prefix(1);
  }
  return !text.empty() && text.find_first_not_of("1234567890.") == std::string_view::npos;
}

// The integer at the front of a plain number; 0 when it begins with a point.
int ReadInteger(std::string_view text) {
  text = Trim(text);
  const bool isNegative = text.front() == '-';
  text.remove_prefix(text.front() == '+' ? 1 : 0);
  int value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    return isNegative ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
  }
  return value;
}

void ReplaceAll(std::string& text, std::string_view name, int value) {
  const std::string number = std::to_string(value);
  for (auto at = text.find(name); at != std::string::npos; at = text.find(name, at)) {
    text.replace(at, name.size(), number);
    at += number.size();
  }
}

void ReplaceNames(std::string& text, const std::string& owner, const CRect<int>& rect) {
  ReplaceAll(text, owner + ".x", rect.x);
  ReplaceAll(text, owner + ".y", rect.y);
  ReplaceAll(text, owner + ".w", rect.w);
  ReplaceAll(text, owner + ".h", rect.h);
}

int EvaluateText(std::string text, const CRect<int>& own, const CRect<int>* parent) {
  static auto* const calculator = new CCalculator<double>;  // to the end of the process
  if (parent != nullptr) {
    ReplaceNames(text, "parent", *parent);
  }
  ReplaceNames(text, "this", own);
  return ToPixels(calculator->Calculate(text));
}

}  // namespace

bool SLayout::IsPlain() const {
  return IsPlainNumber(x) && IsPlainNumber(y) && IsPlainNumber(width) && IsPlainNumber(height);
}

CRect<int> SLayout::ToRect() const {
  return {ReadInteger(x), ReadInteger(y), ReadInteger(width), ReadInteger(height)};
}

CRect<int> SLayout::Evaluate(const CRect<int>& own, const CRect<int>* parent) const {
  return {EvaluateText(x, own, parent), EvaluateText(y, own, parent),
          EvaluateText(width, own, parent), EvaluateText(height, own, parent)};
}

}  // namespace vask::ui
