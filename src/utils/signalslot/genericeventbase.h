#pragma once

#include "utils/containers/container.h"

#include <cstdint>
#include <memory>
#include <typeinfo>

namespace vask::css {

// A slot: a function that a signal can call, with the object to call it on when it is a member
// function. A call with another number of arguments than the function takes does nothing.
class CGenericEventBase {
 public:
  virtual ~CGenericEventBase() = default;
  virtual void Call(const CAnyContainer& /*a*/, const CAnyContainer& /*b*/) {}
  virtual void Call(const CAnyContainer& /*a*/) {}
  virtual void Call() {}
  // Tells the concrete slot classes apart.
  virtual const std::type_info& GetType() const = 0;
  // The target as its own class has it, the class of the function; null for a free function.
  virtual void* GetTarget() const = 0;
  // `object` must have been converted to the class of the function before its type was forgotten.
  virtual void SetTarget(void* /*object*/) {}
  // Whether the other is of the same class and calls the same function on the same target.
  virtual bool IsSame(const CGenericEventBase& other) const = 0;
  virtual std::unique_ptr<CGenericEventBase> Clone() const = 0;

  std::int32_t GetArgumentCount() const { return myArgumentCount; }

 protected:
  explicit CGenericEventBase(std::int32_t argumentCount) : myArgumentCount(argumentCount) {}
  CGenericEventBase(const CGenericEventBase&) = default;
  CGenericEventBase& operator=(const CGenericEventBase&) = default;

 private:
  std::int32_t myArgumentCount;  // 0, 1 or 2
};

}  // namespace vask::css
