#include "input/keyboard.h"

#include "designpatterns/walklist.h"
#include "events/eventbridge.h"
#include "input/keynames.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <deque>
#include <limits>
#include <list>
#include <map>

namespace vask {

namespace {

// A copy in the order of the priorities. Sorted at its use, and not once for all, since a priority
// changes with each further binding of its event.
template <typename List>
auto ByPriority(const List& events) {
  std::vector<typename List::value_type> sorted(events.begin(), events.end());
  std::ranges::stable_sort(sorted, {}, [](const auto& event) { return event->GetPriority(); });
  return sorted;
}

// SDL sends code 0 for a key that it doesn't know; a mistyped name is bound to it as well.
bool IsRealKey(int key) { return key != 0 && IsKeyCode(key); }

}  // namespace

class CKeyboard::CKeyboardImpl : public IKeyboardListener {
 public:
  void OnKeyDown(int key) override {
    if (IsRealKey(key) && !IsTaken(key)) {
      myPressedQueue.push_back(key);
    }
  }
  void OnKeyUp(int key) override {
    if (IsRealKey(key)) {
      myReleasedQueue.push_back(key);
    }
  }

  const unsigned char* GetKeyStates() const { return myPressed.data(); }

  void AddAllKeyEvent(IKeyEvent* event) { myAllKeyEvents.AppendOnce(event); }
  void RemoveAllKeyEvent(IKeyEvent* event) {
    myAllKeyEvents.Remove(event);
    for (CWalkList<IKeyEvent>& waiting : myWaiting) {
      waiting.Remove(event);
    }
  }

  void AddInterceptor(IKeyInterceptor* interceptor) { myInterceptors.AppendOnce(interceptor); }
  void RemoveInterceptor(IKeyInterceptor* interceptor) { myInterceptors.Remove(interceptor); }

  void Bind(int key, const CSmartPtr<IKeyEvent>& event) {
    EventList& events = myBindings[key];
    events.remove(event);  // each event gets a key once
    events.push_front(event);
  }

  // Both queues as they are now: an event that causes keys must not keep the loop going for ever.
  void Update() {
    const std::size_t pressed = myPressedQueue.size();
    const std::size_t released = myReleasedQueue.size();
    DispatchQueue(myPressedQueue, pressed, true);
    DispatchQueue(myReleasedQueue, released, false);
  }

 private:
  using EventList = std::list<CSmartPtr<IKeyEvent>>;

  bool IsTaken(int key) {
    bool isTaken = false;
    myInterceptors.ForEachPresent(
        [&](IKeyInterceptor* interceptor) { isTaken = interceptor->TakesPress(key) || isTaken; });
    return isTaken;
  }

  void DispatchQueue(std::deque<int>& queue, std::size_t count, bool isDown) {
    for (; count > 0 && !queue.empty(); --count) {
      const int key = queue.front();
      queue.pop_front();
      Dispatch(key, isDown);
    }
  }

  void Dispatch(int key, bool isDown) {
    myPressed[static_cast<std::size_t>(key)] = isDown ? 1 : 0;
    const auto found = myBindings.find(key);
    if (found == myBindings.end()) {
      return;
    }
    const std::vector<CSmartPtr<IKeyEvent>> bound = ByPriority(found->second);
    CWalkList<IKeyEvent>& waiting = myWaiting.emplace_back();
    for (IKeyEvent* event : ByPriority(myAllKeyEvents.Items())) {
      waiting.Append(event);
    }
    DispatchTo(bound, waiting, key, isDown);
    myWaiting.pop_back();
  }

  static void DispatchTo(const std::vector<CSmartPtr<IKeyEvent>>& bound,
                         CWalkList<IKeyEvent>& waiting, int key, bool isDown) {
    for (const CSmartPtr<IKeyEvent>& event : bound) {
      if (!DispatchUpTo(event->GetPriority(), waiting, key, isDown)) {
        return;
      }
      if (Deliver(*event, key, isDown) && event->StopsKey()) {
        break;
      }
    }
    DispatchUpTo(std::numeric_limits<int>::max(), waiting, key, isDown);
  }

  // Delivers to the waiting all-key events up to a priority; false when one stops the key.
  static bool DispatchUpTo(int priority, CWalkList<IKeyEvent>& waiting, int key, bool isDown) {
    while (!waiting.IsEmpty() && waiting.Front()->GetPriority() <= priority) {
      IKeyEvent* event = waiting.Front();
      const bool hasHeard = Deliver(*event, key, isDown);
      // It leaves the list by itself when it dies.
      const bool isStopped = hasHeard && waiting.Contains(event) && event->StopsKey();
      waiting.Remove(event);
      if (isStopped) {
        return false;
      }
    }
    return true;
  }

  // Returns whether the event listens to it.
  static bool Deliver(IKeyEvent& event, int key, bool isDown) {
    if (!(isDown ? event.ListensToKeyDown() : event.ListensToKeyUp())) {
      return false;
    }
    isDown ? event.OnKeyDown(key) : event.OnKeyUp(key);
    return true;
  }

  std::deque<int> myPressedQueue;
  std::deque<int> myReleasedQueue;
  std::array<unsigned char, kKeyCount> myPressed{};
  std::map<int, EventList> myBindings;
  CWalkList<IKeyEvent> myAllKeyEvents;
  CWalkList<IKeyInterceptor> myInterceptors;
  // For each key that is being dispatched, the all-key events that it has yet to reach. The list
  // above would not do: a new event may have the address of one that has been deleted.
  std::list<CWalkList<IKeyEvent>> myWaiting;
};

IKeyInterceptor::~IKeyInterceptor() {
  if (CKeyboard* keyboard = CKeyboard::PeekSingletonPtr()) {
    keyboard->RemoveInterceptor(this);
  }
}

CKeyboard::CKeyboard() : myImpl(std::make_unique<CKeyboardImpl>()) {
  CEventBridge::GetSingletonPtr()->AddKeyboardListener(myImpl.get());
}

// The listener leaves the event bridge by itself.
CKeyboard::~CKeyboard() = default;

void CKeyboard::BindKey(int key, const CSmartPtr<IKeyEvent>& event, int priority) {
  if (!event) {
    return;
  }
  event->SetPriority(priority);
  myImpl->Bind(key, event);
}

void CKeyboard::BindKeys(const std::vector<int>& keys, const CSmartPtr<IKeyEvent>& event,
                         int priority) {
  if (!event) {
    return;
  }
  event->SetPriority(priority);
  event->SetKeyStates(myImpl->GetKeyStates());
  for (const int key : keys) {
    myImpl->Bind(key, event);
  }
}

void CKeyboard::AddKeyEvent(IKeyEvent* event, int priority) {
  if (event == nullptr) {
    return;
  }
  event->SetPriority(priority);
  myImpl->AddAllKeyEvent(event);
}

void CKeyboard::RemoveKeyEvent(IKeyEvent* event) { myImpl->RemoveAllKeyEvent(event); }

void CKeyboard::AddInterceptor(IKeyInterceptor* interceptor) {
  myImpl->AddInterceptor(interceptor);
}

void CKeyboard::RemoveInterceptor(IKeyInterceptor* interceptor) {
  myImpl->RemoveInterceptor(interceptor);
}

void CKeyboard::Update() { myImpl->Update(); }

}  // namespace vask
