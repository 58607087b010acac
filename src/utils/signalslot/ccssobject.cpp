#include "utils/signalslot/ccssobject.h"

#include <algorithm>
#include <vector>

namespace vask::css {

namespace {

template <typename Wanted>
ICCSSObject* FirstLive(Wanted wanted) {
  if (ICCSSObject::PeekList() == nullptr) {
    return nullptr;
  }
  const std::vector<ICCSSObject*>& objects = ICCSSObject::GetList().Items();
  const auto found = std::ranges::find_if(objects, wanted);
  return found == objects.end() ? nullptr : *found;
}

}  // namespace

ICCSSObject* ICCSSObject::Find(const std::string& name) {
  return FirstLive([&](const ICCSSObject* object) { return object->GetName() == name; });
}

const ICCSSObject* ICCSSObject::Find(const CSignalTarget* target) {
  return FirstLive([=](const ICCSSObject* object) { return object == target; });
}

}  // namespace vask::css
