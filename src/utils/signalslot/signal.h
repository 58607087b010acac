#pragma once

#include "utils/signalslot/genericevent.h"
#include "utils/signalslot/signalconnection.h"
#include "utils/signalslot/signaltarget.h"
#include "utils/signalslot/ssobject.h"

#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace vask::css {

// Something that happens to an object: others connect slots to it, and its owner emits it.
//
//     css::CSignal clicked;
//     clicked.Connect(&lamp, &CLamp::Toggle);
//     clicked.Emit();  // calls the slots in the order of connecting
//
// Deleting the signal or the target ends the connection. Slots may connect, delete any target and
// delete the signal: an emission calls the slots that were connected when it began and still are
// when their turn comes. After Emit the caller itself may have been deleted.
class CSignal {
 public:
  CSignal();
  ~CSignal();
  CSignal(const CSignal&) = delete;
  CSignal& operator=(const CSignal&) = delete;

  // Connects a member function with up to two parameters; does nothing for a null target.
  template <typename Object, typename T, typename... A>
  void Connect(Object* target, void (T::*function)(A...)) {
    static_assert(std::is_base_of_v<CSignalTarget, Object>,
                  "the target must be able to disconnect");
    if (target != nullptr) {
      T* own = target;
      Connect(std::make_unique<CSignalConnection>(MakeSlot(own, function), target,
                                                  CSSObject<T>::IsClassSaved()));
    }
  }
  template <typename R, typename A, typename B>
  void Connect(R (*function)(A, B)) {
    Connect(std::make_unique<CSignalConnection>(
        std::make_unique<CSGenericEvent2<R, A, B>>(function), nullptr, false));
  }
  // Adds a connection made by ICCSSObject::Connect; does nothing for null, and for one whose target
  // has died meanwhile.
  void Connect(std::unique_ptr<CSignalConnection> connection);

  // Calls the slots that take so many arguments. An argument of another type than the slot's is
  // converted through its text; where that fails the slot is not called.
  void Emit();
  void Emit(const CAnyContainer& a);
  void Emit(const CAnyContainer& a, const CAnyContainer& b);

  std::size_t GetConnectionCount() const;
  // Those that have not been dropped, in the order of connecting; owned by the signal.
  std::vector<const CSignalConnection*> GetConnections() const;

 private:
  friend class CSignalConnection;

  // Outlives the signal while it is emitting: the slot whose call deletes the signal, and the list
  // that is being walked.
  struct SConnections {
    // Frees what has been dropped, unless an emission still walks over it.
    void FreeDropped();

    std::vector<std::unique_ptr<CSignalConnection>> list;
    int emissions = 0;  // nested ones counted
  };
  class CEmission;

  template <typename CallSlot>
  void EmitWith(CallSlot call);

  std::shared_ptr<SConnections> myConnections;
};

}  // namespace vask::css
