#include "ui/widgetfactory.h"

#include <utility>

namespace vask::ui {

void CWidgetFactory::Register(const std::string& name, std::unique_ptr<IGenericMaker> maker) {
  myMakers.try_emplace(name, std::move(maker));
}

CWidget* CWidgetFactory::Create(const std::string& name) const {
  const auto found = myMakers.find(name);
  return found == myMakers.end() ? nullptr : found->second->Create();
}

}  // namespace vask::ui
