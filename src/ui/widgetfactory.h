#pragma once

#include "designpatterns/singleton.h"

#include <map>
#include <memory>
#include <string>

namespace vask::ui {

class CWidget;

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

// Makes widgets by the names of their classes, which register themselves and are not known here.
class CWidgetFactory : public CStaticSingleton<CWidgetFactory> {
 public:
  // The first registration of a name wins.
  void Register(const std::string& name, std::unique_ptr<IGenericMaker> maker);
  // What the maker of that name creates; null for an unknown name.
  CWidget* Create(const std::string& name) const;

 private:
  std::map<std::string, std::unique_ptr<IGenericMaker>> myMakers;
};

// Registers the widget class T, from a static initialiser in its source file.
template <typename T, typename Maker = CGenericMakerImpl<T>>
class CWidgetRegistrar {
 public:
  explicit CWidgetRegistrar(const char* name) {
    CWidgetFactory::GetSingletonPtr()->Register(name, std::make_unique<Maker>());
  }
};

}  // namespace vask::ui
