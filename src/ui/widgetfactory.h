#pragma once

#include "designpatterns/singleton.h"
#include "ui/widget.h"

#include <map>
#include <memory>
#include <string>

namespace vask::ui {

class IGenericMaker {
 public:
  virtual ~IGenericMaker() = default;
  // A new widget, which belongs to the caller.
  virtual CWidget* Create() = 0;
};

template <typename T>
class CGenericMakerImpl : public IGenericMaker {
 public:
  CWidget* Create() override { return new T; }
};

// There is only one desktop: it answers that one, which does not belong to the caller.
class CDesktopFactoryMaker : public IGenericMaker {
 public:
  CWidget* Create() override;
};

// Makes widgets by the names of their classes.
class CWidgetFactory : public CStaticSingleton<CWidgetFactory> {
 public:
  // The first registration of a name wins. Answers whether it was the first.
  bool Register(const std::string& name, std::unique_ptr<IGenericMaker> maker);
  // What the maker of that name creates; null for an unknown name.
  CWidget* Create(const std::string& name) const;

 private:
  std::map<std::string, std::unique_ptr<IGenericMaker>> myMakers;
};

// Registers the class T from a static initialiser.
template <typename T>
bool RegisterWidget(const std::string& name) {
  return CWidgetFactory::GetSingletonPtr()->Register(name,
                                                     std::make_unique<CGenericMakerImpl<T>>());
}

}  // namespace vask::ui
