#include "gfx/sprite/spritetypes.h"

#include <algorithm>
#include <vector>

namespace vask {
namespace {

struct SEntry {
  SSpriteType type;
  CSprite* (*make)();
};

// Created on first use, since the registrars run in no fixed order.
std::vector<SEntry>& Registry() {
  static auto& entries = *new std::vector<SEntry>;
  return entries;
}

// Null when nobody has registered such a type.
template <typename Matches>
const SEntry* Find(Matches matches) {
  const std::vector<SEntry>& entries = Registry();
  const auto found = std::ranges::find_if(entries, matches, &SEntry::type);
  return found == entries.end() ? nullptr : &*found;
}

const SEntry* FindNumber(int number) {
  return Find([number](const SSpriteType& type) { return type.number == number; });
}

}  // namespace

CSpriteTypeRegistrar::CSpriteTypeRegistrar(const SSpriteType& type, CSprite* (*make)()) {
  Registry().push_back({type, make});
}

CSprite* CreateSprite(int number) {
  const SEntry* entry = FindNumber(number);
  return entry != nullptr ? entry->make() : nullptr;
}

int SpriteTypeFromName(std::string_view name) {
  const SEntry* entry = Find([name](const SSpriteType& type) { return name == type.name; });
  return entry != nullptr ? entry->type.number : kBaseSprite.number;
}

const char* SpriteTypeName(int number) {
  const SEntry* entry = FindNumber(number);
  return entry != nullptr ? entry->type.name : kBaseSprite.name;
}

}  // namespace vask
