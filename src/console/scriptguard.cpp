#include "console/scriptguard.h"

#include "utils/log/log.h"

#include <algorithm>
#include <filesystem>
#include <vector>

namespace vask {
namespace {

// Far more than any sane script nests; a file that is reached under ever new names (hard links)
// ends here before it ends the stack.
constexpr std::size_t kDeepestNesting = 64;

// One list for all consoles: "load" executes each file in the application console, whatever console
// the line came from.
std::vector<std::string>& OpenScripts() {
  static auto* const scripts = new std::vector<std::string>;
  return *scripts;
}

std::string Identify(const std::string& fileName) {
  std::error_code error;
  const std::filesystem::path path = std::filesystem::canonical(fileName, error);
  return error ? fileName : path.string();
}

}  // namespace

CScriptGuard::CScriptGuard(const std::string& fileName) {
  std::vector<std::string>& scripts = OpenScripts();
  const std::string identity = Identify(fileName);
  if (std::find(scripts.begin(), scripts.end(), identity) != scripts.end()) {
    CLog::GetSingletonPtr()->Error()
        << "CConsole::ExecuteFile() - the file is being executed already: " << fileName << "\n";
    return;
  }
  if (scripts.size() >= kDeepestNesting) {
    CLog::GetSingletonPtr()->Error()
        << "CConsole::ExecuteFile() - too many files load each other: " << fileName << "\n";
    return;
  }
  scripts.push_back(identity);
  myEntered = true;
}

CScriptGuard::~CScriptGuard() {
  if (myEntered) {
    OpenScripts().pop_back();
  }
}

}  // namespace vask
