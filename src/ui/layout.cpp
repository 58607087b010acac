#include "ui/layout.h"

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

}  // namespace

bool SLayout::IsPlain() const {
  return IsPlainNumber(x.GetText()) && IsPlainNumber(y.GetText()) &&
         IsPlainNumber(width.GetText()) && IsPlainNumber(height.GetText());
}

CRect<int> SLayout::ToRect() const {
  return {ReadInteger(x.GetText()), ReadInteger(y.GetText()), ReadInteger(width.GetText()),
          ReadInteger(height.GetText())};
}

CRect<int> SLayout::Evaluate(const CRect<int>& own, const CRect<int>* parent) const {
  return {x.Evaluate(own, parent), y.Evaluate(own, parent), width.Evaluate(own, parent),
          height.Evaluate(own, parent)};
}

}  // namespace vask::ui
