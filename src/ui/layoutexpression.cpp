#include "ui/layoutexpression.h"

#include "ui/geometry.h"
#include "utils/calculator/calculator.h"
#include "utils/trim.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <string_view>

namespace vask::ui {
namespace {

struct SName {
  std::string_view text;
  int CRect<int>::*field;
  bool isParent;
};
constexpr SName kNames[] = {
    {"parent.x", &CRect<int>::x, true}, {"parent.y", &CRect<int>::y, true},
    {"parent.w", &CRect<int>::w, true}, {"parent.h", &CRect<int>::h, true},
    {"this.x", &CRect<int>::x, false},  {"this.y", &CRect<int>::y, false},
    {"this.w", &CRect<int>::w, false},  {"this.h", &CRect<int>::h, false},
};

// Deeper than any layout that a person writes.
constexpr int kMaxDepth = 16;

CCalculator<double>& Calculator() {
  static auto* const calculator = new CCalculator<double>;  // to the end of the process
  return *calculator;
}

CInfixToPostfix& Converter() {
  static auto* const converter = new CInfixToPostfix;
  return *converter;
}

void ReplaceAll(std::string& text, std::string_view name, int value) {
  const std::string number = std::to_string(value);
  for (auto at = text.find(name); at != std::string::npos; at = text.find(name, at)) {
    text.replace(at, name.size(), number);
  }
}

double EvaluateText(std::string text, const CRect<int>& own, const CRect<int>* parent) {
  for (const SName& name : kNames) {
    if (!name.isParent || parent != nullptr) {
      ReplaceAll(text, name.text, (name.isParent ? *parent : own).*name.field);
    }
  }
  return Calculator().Calculate(text);
}

// Whether each name stands at the front, or after an operator or an opening bracket: only there the
// minus of a negative number belongs to the number.
bool NamesBeginValues(std::string_view text) {
  for (const SName& name : kNames) {
    for (auto at = text.find(name.text); at != std::string_view::npos;
         at = text.find(name.text, at + 1)) {
      const std::string_view before = TrimBack(text.substr(0, at));
      if (!before.empty() &&
          std::string_view("+-*/(").find(before.back()) == std::string_view::npos) {
        return false;
      }
    }
  }
  return true;
}

}  // namespace

// Takes the pieces of the postfix text one by one.
class CLayoutExpression::CParser {
 public:
  // Empty when the text is not well formed.
  static std::vector<SStep> Parse(const std::string& text) {
    CParser parser;
    const std::string postfix = Converter().Convert(text);
    bool isWellFormed = NamesBeginValues(text);
    for (std::size_t begin = 0; isWellFormed && begin < postfix.size();) {
      const std::size_t end = std::min(postfix.find(' ', begin), postfix.size());
      isWellFormed = parser.Take(postfix.substr(begin, end - begin));
      begin = end + 1;
    }
    return isWellFormed && parser.myDepth == 1 ? parser.mySteps : std::vector<SStep>();
  }

 private:
  // False when it is nothing that it knows, or an operator lacks an operand.
  bool Take(const std::string& piece) {
    constexpr std::string_view kOperators = "+-*/";
    constexpr SStep::EKind kKinds[] = {SStep::kAdd, SStep::kSubtract, SStep::kMultiply,
                                       SStep::kDivide};
    if (piece.size() == 1 && kOperators.find(piece[0]) != std::string_view::npos) {
      mySteps.push_back({kKinds[kOperators.find(piece[0])]});
      return --myDepth > 0;
    }
    const auto* const name = std::ranges::find(kNames, piece, &SName::text);
    if (name != std::end(kNames)) {
      mySteps.push_back({name->isParent ? SStep::kParent : SStep::kOwn, 0.0, name->field});
    } else if (!piece.empty() && piece.find_first_not_of("0123456789.+-") == std::string::npos) {
      mySteps.push_back({SStep::kNumber, Calculator().Evaluate(piece)});
    } else {
      return false;
    }
    return ++myDepth <= kMaxDepth;
  }

  std::vector<SStep> mySteps;
  int myDepth = 0;  // values on the stack
};

CLayoutExpression::CLayoutExpression(const std::string& text)
    : myText(text), mySteps(CParser::Parse(text)) {}

int CLayoutExpression::Evaluate(const CRect<int>& own, const CRect<int>* parent) const {
  const bool isParsed = parent != nullptr && !mySteps.empty();
  return ToPixels(isParsed ? Run(own, *parent) : EvaluateText(myText, own, parent));
}

double CLayoutExpression::Run(const CRect<int>& own, const CRect<int>& parent) const {
  std::array<double, kMaxDepth> stack{};
  std::size_t depth = 0;
  for (const SStep& step : mySteps) {
    switch (step.kind) {
      case SStep::kNumber:
        stack[depth++] = step.number;
        break;
      case SStep::kParent:
        stack[depth++] = parent.*step.field;
        break;
      case SStep::kOwn:
        stack[depth++] = own.*step.field;
        break;
      default:
        --depth;
        stack[depth - 1] = Applied(step.kind, stack[depth - 1], stack[depth]);
    }
  }
  return stack[0];
}

double CLayoutExpression::Applied(SStep::EKind operation, double b, double a) {
  switch (operation) {
    case SStep::kAdd:
      return b + a;
    case SStep::kSubtract:
      return b - a;
    case SStep::kMultiply:
      return b * a;
    default:
      return a == 0 ? 0.0 : b / a;
  }
}

}  // namespace vask::ui
