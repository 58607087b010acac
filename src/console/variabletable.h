#pragma once

#include "utils/containers/varref.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace vask {

// The variables of a console by their keys. A script may have very many, which then come from
// memory rather than from a cache: the keys are in one table, and the key that is looked for is
// where its hash says or in the places after that, so that most steps touch one place.
class CVariableTable {
 public:
  // Null for an unknown key.
  CVarRefBase* Find(const std::string& key) const;
  // Owns the variable (not null), in the place of an earlier one of that key. Returns it.
  CVarRefBase& Put(std::string key, std::unique_ptr<CVarRefBase> variable);
  // Deletes the variable of that key, if any.
  void Erase(const std::string& key);
  // In no particular order.
  std::vector<std::string> GetKeys() const;

 private:
  struct SPlace {
    std::string key;
    std::unique_ptr<CVarRefBase> variable;  // null in a free place
  };

  std::size_t IndexOf(const std::string& key) const;
  std::size_t IndexAfter(std::size_t index) const { return (index + 1) & (myPlaces.size() - 1); }
  void Grow();

  std::vector<SPlace> myPlaces = std::vector<SPlace>(16);  // a power of two; a fifth is free
  std::size_t myCount = 0;
  // Whether a key has begun with that character. A value that is looked for is a number as a rule,
  // and no variable's name begins like one.
  std::array<bool, 256> myHasBegun{};
};

}  // namespace vask
