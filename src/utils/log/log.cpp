#include "utils/log/log.h"

#include "utils/log/loglistenerforfile.h"

#include <cstdarg>
#include <cstdio>
#include <string_view>
#include <utility>

namespace vask {

namespace {

constexpr char kVersion[] = "Vask version 0.23";

// A listener that logs a line for every line would exhaust the stack. Lines nested deeper than this
// go to the file only. Small, because a listener that logs two lines doubles the work at each step.
constexpr int kMaxNesting = 8;
constinit int ourNesting = 0;
constinit bool ourKeepsOffDisk = false;

// Never destroyed, since static destructors may still log.
std::string& PendingLine() {
  static std::string& line = *new std::string;
  return line;
}

}  // namespace

CLog::CLog() : myListeners(std::make_unique<SListeners>()) {
  if (ourKeepsOffDisk) {
    return;
  }
  myListeners->fileListener = std::make_unique<CLogListenerForFile>(kFileName, kVersion, false);
  myListeners->fileListener->SetMinLevel(kLogDebug);
  AddListener(myListeners->fileListener.get());
}

CLog::~CLog() { RemoveListener(myListeners->fileListener.get()); }

void CLog::KeepOffDisk() { ourKeepsOffDisk = true; }

CLog& CLog::Write(const std::string& text) {
  constexpr std::string_view kLineEnds("\n\r\0", 3);
  std::size_t begin = 0;
  while (begin < text.size()) {
    const std::size_t end = text.find_first_of(kLineEnds, begin);
    PendingLine().append(text, begin, end - begin);
    if (end == std::string::npos) {
      break;
    }
    EndLine();
    begin = end + 1;
  }
  return *this;
}

CLog& CLog::Print(const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  // The analyzer does not see that va_start has set it.
  // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized)
  const int length = std::vsnprintf(nullptr, 0, format, arguments);
  va_end(arguments);
  if (length <= 0) {
    return *this;
  }
  std::string text(static_cast<std::size_t>(length), '\0');
  va_start(arguments, format);
  std::vsnprintf(text.data(), text.size() + 1, format, arguments);
  va_end(arguments);
  return Write(text);
}

CLog& CLog::Error() {
  myLevel = kLogError;
  return *this;
}

CLog& CLog::Warning() {
  myLevel = kLogWarning;
  return *this;
}

CLog& CLog::Debug() {
  myLevel = kLogDebug;
  return *this;
}

CLog& CLog::BeginBlock() {
  Send({}, kLogBlockBegin);
  return *this;
}

CLog& CLog::EndBlock() {
  Send({}, kLogBlockEnd);
  return *this;
}

void CLog::AddListener(ILogListener* listener) {
  if (listener != nullptr) {
    myListeners->list.Append(listener);
  }
}

void CLog::RemoveListener(ILogListener* listener) { myListeners->list.Remove(listener); }

void CLog::Send(const std::string& line, int level) {
  if (ourNesting >= kMaxNesting) {
    if (myListeners->fileListener != nullptr) {
      myListeners->fileListener->OnLog(line, level);
    }
    return;
  }
  ++ourNesting;
  myListeners->list.ForEachPresent([&](ILogListener* listener) { listener->OnLog(line, level); });
  --ourNesting;
}

// The line leaves the buffer before the listeners are called: a listener that logs starts a new
// one.
void CLog::EndLine() {
  const std::string line = std::exchange(PendingLine(), {}) + "\n";
  const int level = std::exchange(myLevel, kLogNormal);
  Send(line, level);
}

}  // namespace vask
