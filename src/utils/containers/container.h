#pragma once

#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <variant>

namespace vask {

// Holds one value whose type is known at run time only.
class CContainerBase {
 public:
  virtual ~CContainerBase() = default;
  virtual const std::type_info& GetType() const = 0;
  virtual std::unique_ptr<CContainerBase> Clone() const = 0;
  virtual std::string ToString() const = 0;
};

template <typename T>
class CContainer : public CContainerBase {
 public:
  explicit CContainer(T value) : myValue(std::move(value)) {}

  const std::type_info& GetType() const override { return typeid(T); }
  std::unique_ptr<CContainerBase> Clone() const override {
    return std::make_unique<CContainer<T>>(myValue);
  }
  std::string ToString() const override {
    if constexpr (std::is_same_v<T, std::string>) {
      return myValue;
    } else {
      std::ostringstream stream;
      stream << myValue;
      return stream.str();
    }
  }
  const T& Value() const { return myValue; }

 private:
  T myValue;
};

// A value of any type that a standard stream can print, or nothing (its type is then `void`). Every
// kind of text is held as a std::string, in place: texts are what is held most.
class CAnyContainer {
 public:
  CAnyContainer() = default;
  template <typename T,
            typename = std::enable_if_t<!std::is_same_v<std::decay_t<T>, CAnyContainer>>>
  CAnyContainer(T&& value) {  // NOLINT(google-explicit-constructor): any value is one
    if constexpr (std::is_convertible_v<T, std::string> ||
                  std::is_convertible_v<T, std::string_view>) {
      myContent.emplace<CText>(std::string(std::forward<T>(value)));
    } else {
      myContent = std::make_unique<CContainer<std::decay_t<T>>>(std::forward<T>(value));
    }
  }
  CAnyContainer(const CAnyContainer& other) {
    if (const CText* text = std::get_if<CText>(&other.myContent)) {
      myContent = *text;
    } else if (const CContainerBase* value = other.Content()) {
      myContent = value->Clone();
    }
  }
  CAnyContainer(CAnyContainer&&) noexcept = default;
  CAnyContainer& operator=(CAnyContainer other) noexcept {
    myContent = std::move(other.myContent);
    return *this;
  }

  const std::type_info& GetType() const {
    const CContainerBase* content = Content();
    return content != nullptr ? content->GetType() : typeid(void);
  }

  // The value when exactly a T is held, else null.
  template <typename T>
  const T* Get() const {
    return GetType() == typeid(T) ? &static_cast<const CContainer<T>*>(Content())->Value()
                                  : nullptr;
  }

  // A held string unchanged, other values as a standard stream prints them; empty when empty.
  std::string ToString() const {
    const CContainerBase* content = Content();
    return content != nullptr ? content->ToString() : std::string();
  }

 private:
  using CText = CContainer<std::string>;

  const CContainerBase* Content() const {
    const CText* text = std::get_if<CText>(&myContent);
    return text != nullptr ? text : std::get<0>(myContent).get();
  }

  std::variant<std::unique_ptr<CContainerBase>, CText> myContent;
};

}  // namespace vask
