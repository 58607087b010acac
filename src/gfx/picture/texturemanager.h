#pragma once

#include "designpatterns/singleton.h"
#include "utils/log/log.h"

#include <algorithm>
#include <map>
#include <string>

namespace vask {

// Shares one decoded surface among all pictures that come from the same file, by reference count.
// `Releaser` is called with a surface to free it.
//
//     textures.AddNew("door.bmp", surface, false);  // one reference
//     textures.GetPointer("door.bmp");              // two
//     textures.Release(surface);                    // one
//     textures.Release(surface);                    // none: it is freed
template <typename SurfacePtr, typename Releaser>
class CTextureManager : public CSingleton<CTextureManager<SurfacePtr, Releaser>> {
 public:
  // Adds a surface with the count 1; with `keep` it stays when its count falls to 0. When the name
  // is taken nothing changes: the caller still owns the surface.
  void AddNew(const std::string& file, SurfacePtr surface, bool keep) {
    if (!myTextures.try_emplace(file, STexture{surface, 1, keep}).second && myReportErrors) {
      CLog::GetSingletonPtr()->Error()
          << "CTextureManager::AddNew() - trying to add a new texture, but we already have one of "
             "the same name: "
          << file << "\n";
    }
  }

  // The file's surface, with a reference for the caller; null for an unknown file.
  SurfacePtr GetPointer(const std::string& file) {
    const auto found = myTextures.find(file);
    if (found != myTextures.end()) {
      ++found->second.references;
      return found->second.surface;
    }
    if (myReportErrors) {
      CLog::GetSingletonPtr()->Warning()
          << "CTextureManager::GetPointer() - trying to get pointer to a file that doesn't exist: "
          << file << "\n";
    }
    return nullptr;
  }

  // Adds a reference; false for null and, with an error in the log, for a surface that is unknown
  // or is only kept.
  bool AddReference(SurfacePtr surface) {
    if (surface == nullptr) {
      return false;
    }
    const auto found = Find(surface);
    if (found != myTextures.end() && found->second.references > 0) {
      ++found->second.references;
      return true;
    }
    CLog::GetSingletonPtr()->Error()
        << "CTextureManager::AddReference() - trying add a reference to a pointer no longer in the "
           "memory: "
        << (found != myTextures.end() ? found->first : std::string()) << "\n";
    return false;
  }

  // Takes a reference back. The last one frees the surface, unless it is kept; an unknown surface
  // is freed at once.
  void Release(SurfacePtr surface) {
    if (surface == nullptr) {
      return;
    }
    const auto found = Find(surface);
    if (found == myTextures.end()) {
      Releaser()(surface);
      return;
    }
    int& references = found->second.references;
    references = std::max(references - 1, 0);
    if (references == 0 && !found->second.keep) {
      Releaser()(surface);
      myTextures.erase(found);
    }
  }

  bool Exists(const std::string& file) const { return myTextures.contains(file); }

  // Whether the surface is known and has a reference.
  bool IsShared(SurfacePtr surface) const {
    const auto found = Find(surface);
    return found != myTextures.end() && found->second.references > 0;
  }

  // The number of references; 0 for an unknown file.
  int GetCount(const std::string& file) const {
    const auto found = myTextures.find(file);
    return found == myTextures.end() ? 0 : found->second.references;
  }

  void SetReportErrors(bool report) { myReportErrors = report; }

 private:
  struct STexture {
    SurfacePtr surface;
    int references;
    bool keep;
  };
  using Textures = std::map<std::string, STexture>;

  typename Textures::iterator Find(SurfacePtr surface) {
    return std::find_if(myTextures.begin(), myTextures.end(),
                        [&](const auto& entry) { return entry.second.surface == surface; });
  }
  typename Textures::const_iterator Find(SurfacePtr surface) const {
    return std::find_if(myTextures.begin(), myTextures.end(),
                        [&](const auto& entry) { return entry.second.surface == surface; });
  }

  Textures myTextures;
  bool myReportErrors = true;
};

}  // namespace vask
