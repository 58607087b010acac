#pragma once

#include "utils/containers/container.h"
#include "utils/containers/varref.h"
#include "utils/signalslot/genericeventbase.h"

#include <concepts>
#include <istream>
#include <memory>
#include <optional>
#include <type_traits>
#include <typeinfo>

namespace vask::css {

// What can be read from a text. Pointers are left out: no text can be turned into an object.
template <typename T>
concept CReadableValue = std::default_initializable<T> && !std::is_pointer_v<T> &&
                         requires(std::istream & stream, T& value) {
  stream >> value;
};

// The argument as a parameter of type A: a value of that very type as it is, any other through its
// text. Nothing when the text does not read as an A.
template <typename A>
std::optional<std::decay_t<A>> ConvertArgument(const CAnyContainer& argument) {
  using Value = std::decay_t<A>;
  if (const Value* value = argument.Get<Value>()) {
    return *value;
  }
  if constexpr (CReadableValue<Value>) {
    Value value{};
    if (ReadFromText(argument.ToString(), value)) {
      return value;
    }
  }
  return std::nullopt;
}

// What the slots of member functions share. `Event` is the concrete class.
template <typename Event, typename T, typename... A>
class CMemberEvent : public CGenericEventBase {
 public:
  using Function = void (T::*)(A...);

  CMemberEvent(T* target, Function function)
      : CGenericEventBase(sizeof...(A)), myFunction(function), myTarget(target) {}

  const std::type_info& GetType() const override { return typeid(Event); }
  void* GetTarget() const override { return myTarget; }
  void SetTarget(void* object) override { myTarget = static_cast<T*>(object); }
  bool IsSame(const CGenericEventBase& other) const override {
    return other.GetType() == GetType() && other.GetTarget() == GetTarget() &&
           static_cast<const CMemberEvent&>(other).myFunction == myFunction;
  }
  std::unique_ptr<CGenericEventBase> Clone() const override {
    return std::make_unique<Event>(myTarget, myFunction);
  }

 protected:
  // The slot that is only a prototype has no target and calls nothing. The call may delete the
  // target.
  void CallTarget(A... arguments) {
    if (myTarget != nullptr) {
      (myTarget->*myFunction)(static_cast<A&&>(arguments)...);
    }
  }

 private:
  Function myFunction;
  T* myTarget;
};

template <typename T>
class CGenericEvent0 : public CMemberEvent<CGenericEvent0<T>, T> {
 public:
  using CMemberEvent<CGenericEvent0<T>, T>::CMemberEvent;
  using CGenericEventBase::Call;
  void Call() override { this->CallTarget(); }
};

template <typename T, typename A>
class CGenericEvent1 : public CMemberEvent<CGenericEvent1<T, A>, T, A> {
 public:
  using CMemberEvent<CGenericEvent1<T, A>, T, A>::CMemberEvent;
  using CGenericEventBase::Call;
  void Call(const CAnyContainer& a) override {
    if (auto first = ConvertArgument<A>(a)) {
      this->CallTarget(static_cast<A&&>(*first));
    }
  }
};

template <typename T, typename A, typename B>
class CGenericEvent2 : public CMemberEvent<CGenericEvent2<T, A, B>, T, A, B> {
 public:
  using CMemberEvent<CGenericEvent2<T, A, B>, T, A, B>::CMemberEvent;
  using CGenericEventBase::Call;
  void Call(const CAnyContainer& a, const CAnyContainer& b) override {
    auto first = ConvertArgument<A>(a);
    auto second = ConvertArgument<B>(b);
    if (first && second) {
      this->CallTarget(static_cast<A&&>(*first), static_cast<B&&>(*second));
    }
  }
};

// A free function with two arguments; what it returns is dropped.
template <typename R, typename A, typename B>
class CSGenericEvent2 : public CGenericEventBase {
 public:
  using Function = R (*)(A, B);

  explicit CSGenericEvent2(Function function) : CGenericEventBase(2), myFunction(function) {}

  using CGenericEventBase::Call;
  void Call(const CAnyContainer& a, const CAnyContainer& b) override {
    auto first = ConvertArgument<A>(a);
    auto second = ConvertArgument<B>(b);
    if (first && second) {
      myFunction(static_cast<A&&>(*first), static_cast<B&&>(*second));
    }
  }
  const std::type_info& GetType() const override { return typeid(CSGenericEvent2); }
  void* GetTarget() const override { return nullptr; }
  bool IsSame(const CGenericEventBase& other) const override {
    return other.GetType() == GetType() &&
           static_cast<const CSGenericEvent2&>(other).myFunction == myFunction;
  }
  std::unique_ptr<CGenericEventBase> Clone() const override {
    return std::make_unique<CSGenericEvent2>(*this);
  }

 private:
  Function myFunction;
};

// The slot object for a member function of T.
template <typename T>
std::unique_ptr<CGenericEventBase> MakeSlot(T* target, void (T::*function)()) {
  return std::make_unique<CGenericEvent0<T>>(target, function);
}
template <typename T, typename A>
std::unique_ptr<CGenericEventBase> MakeSlot(T* target, void (T::*function)(A)) {
  return std::make_unique<CGenericEvent1<T, A>>(target, function);
}
template <typename T, typename A, typename B>
std::unique_ptr<CGenericEventBase> MakeSlot(T* target, void (T::*function)(A, B)) {
  return std::make_unique<CGenericEvent2<T, A, B>>(target, function);
}

}  // namespace vask::css
