#include "ui/widgetfactory.h"

#include "ui/buttonwidget.h"
#include "ui/console/consolewidget.h"
#include "ui/desktopwidget.h"
#include "ui/textinputwidget.h"
#include "ui/windowwidget.h"

#include <utility>

namespace vask::ui {
namespace {

[[maybe_unused]] const bool kAreRegistered =
    RegisterWidget<CWidget>("CWidget") && RegisterWidget<CButtonWidget>("CButtonWidget") &&
    RegisterWidget<CTextInputWidget>("CTextInputWidget") &&
    RegisterWidget<CWindowWidget>("CWindowWidget") &&
    RegisterWidget<CConsoleWidget>("CConsoleWidget") &&
    CWidgetFactory::GetSingletonPtr()->Register("CDesktopWidget",
                                                std::make_unique<CDesktopFactoryMaker>());

}  // namespace

CWidget* CDesktopFactoryMaker::Create() { return CDesktopWidget::GetSingletonPtr(); }

bool CWidgetFactory::Register(const std::string& name, std::unique_ptr<IGenericMaker> maker) {
  return myMakers.try_emplace(name, std::move(maker)).second;
}

CWidget* CWidgetFactory::Create(const std::string& name) const {
  const auto found = myMakers.find(name);
  return found == myMakers.end() ? nullptr : found->second->Create();
}

}  // namespace vask::ui
