#include "console/variabletable.h"

#include <functional>
#include <utility>

namespace vask {
namespace {

// An empty text begins with its end.
std::size_t FirstOf(const std::string& key) { return static_cast<unsigned char>(key[0]); }

}  // namespace

CVarRefBase* CVariableTable::Find(const std::string& key) const {
  return myHasBegun[FirstOf(key)] ? myPlaces[IndexOf(key)].variable.get() : nullptr;
}

CVarRefBase& CVariableTable::Put(std::string key, std::unique_ptr<CVarRefBase> variable) {
  SPlace* place = &myPlaces[IndexOf(key)];
  if (place->variable == nullptr) {
    if (5 * ++myCount > 4 * myPlaces.size()) {
      Grow();
      place = &myPlaces[IndexOf(key)];
    }
    myHasBegun[FirstOf(key)] = true;
    place->key = std::move(key);
  }
  place->variable = std::move(variable);
  return *place->variable;
}

void CVariableTable::Erase(const std::string& key) {
  std::size_t index = IndexOf(key);
  if (myPlaces[index].variable == nullptr) {
    return;
  }
  --myCount;
  myPlaces[index] = {};
  // What follows without a gap may have come here past the place that is free now.
  for (index = IndexAfter(index); myPlaces[index].variable != nullptr; index = IndexAfter(index)) {
    SPlace moved = std::exchange(myPlaces[index], {});
    myPlaces[IndexOf(moved.key)] = std::move(moved);
  }
}

std::vector<std::string> CVariableTable::GetKeys() const {
  std::vector<std::string> keys;
  for (const SPlace& place : myPlaces) {
    if (place.variable != nullptr) {
      keys.push_back(place.key);
    }
  }
  return keys;
}

// The place of that key, or the free one in which it would be.
std::size_t CVariableTable::IndexOf(const std::string& key) const {
  std::size_t index = std::hash<std::string>()(key) & (myPlaces.size() - 1);
  while (myPlaces[index].variable != nullptr && myPlaces[index].key != key) {
    index = IndexAfter(index);
  }
  return index;
}

void CVariableTable::Grow() {
  std::vector<SPlace> old(2 * myPlaces.size());
  old.swap(myPlaces);
  for (SPlace& place : old) {
    if (place.variable != nullptr) {
      myPlaces[IndexOf(place.key)] = std::move(place);
    }
  }
}

}  // namespace vask
