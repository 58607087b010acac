// Widgets with layouts of any text are moved and resized; where they go is what a plain tree of
// rectangles computes.

#include "fuzz.h"
#include "models/widget.h"
#include "ui/widget.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <deque>

namespace {

using vask::fuzz::SPlainWidget;
using vask::ui::CWidget;

// Mostly as small as those on a screen.
int TakeNumber(FuzzedDataProvider& input) {
  return input.ConsumeIntegralInRange(0, 7) > 0 ? input.ConsumeIntegralInRange(-100, 1000)
                                                : input.ConsumeIntegral<int>();
}

std::string TakeText(FuzzedDataProvider& input) {
  constexpr const char* kPieces[] = {"parent.x", "parent.y", "parent.w", "parent.h", "this.w",
                                     " + ",      " * 0.9",   " / 2",     "(",        ")"};
  std::string text;
  for (int i = input.ConsumeIntegralInRange(0, 6); i > 0; --i) {
    text +=
        input.ConsumeBool() ? input.PickValueInArray(kPieces) : input.ConsumeRandomLengthString(9);
  }
  return text;
}

void AddChild(CWidget& parent, SPlainWidget& plainParent, SPlainWidget& plain,
              FuzzedDataProvider& input) {
  plain.parent = &plainParent;
  plainParent.children.insert(plainParent.children.begin(), &plain);
  plain.mode = input.ConsumeIntegralInRange(0, 3);
  plain.rect = {TakeNumber(input), TakeNumber(input), TakeNumber(input), TakeNumber(input)};
  (new CWidget(&parent, plain.rect, false, "", {}))->SetResizeMode(plain.mode);
}

// The texts are no plain numbers, which would be no layout.
void SetLayout(CWidget& widget, SPlainWidget& plain, FuzzedDataProvider& input) {
  plain.layout = {"parent.x + " + TakeText(input), TakeText(input), TakeText(input),
                  TakeText(input)};
  widget.SetLayout(plain.layout[0], plain.layout[1], plain.layout[2], plain.layout[3]);
  plain.hasLayout = true;
  plain.rect = plain.Evaluate();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kMostWidgets = 8;
  FuzzedDataProvider input(data, size);
  CWidget root;
  std::vector<CWidget*> widgets{&root};
  std::deque<SPlainWidget> plain(1);
  while (input.remaining_bytes() > 0) {
    const auto at = input.ConsumeIntegralInRange<std::size_t>(0, widgets.size() - 1);
    const int x = TakeNumber(input);
    const int y = TakeNumber(input);
    switch (input.ConsumeIntegralInRange(0, 4)) {
      case 0:
        if (widgets.size() < kMostWidgets) {
          AddChild(*widgets[at], plain[at], plain.emplace_back(), input);
          widgets.push_back(widgets[at]->GetChildren().front());
        }
        break;
      case 1:
        SetLayout(*widgets[at], plain[at], input);
        break;
      case 2:
        widgets[at]->MoveBy(x, y);
        plain[at].MoveBy(x, y);
        break;
      case 3:
        widgets[at]->MoveTo(x, y);
        plain[at].MoveTo(x, y);
        break;
      default:
        widgets[at]->Resize(x, y);
        plain[at].Resize(x, y);
    }
    for (std::size_t i = 0; i < widgets.size(); ++i) {
      vask::fuzz::Require(widgets[i]->GetRect() == plain[i].rect);
    }
  }
  return 0;
}
