#pragma once

#include "designpatterns/singleton.h"
#include "designpatterns/walklist.h"
#include "utils/log/loglistener.h"

#include <list>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace vask {

class CLogListenerForFile;

// The levels that a line can carry. The block levels come with an empty line.
enum ELogLevel : int {
  kLogBlockBegin = -2,
  kLogBlockEnd = -1,
  kLogDebug = 0,
  kLogNormal = 1,
  kLogWarning = 2,
  kLogError = 3,
};

// The program's one diagnostic channel. It cuts what is written into lines, gives each a level and
// passes it to the listeners; one listener, built in, writes "log.txt" in the working directory.
//
//     Log() << "Loaded " << count << " files\n";
//     Log().Error() << "Could not open " << name << "\n";
//     Log().Print("[ERROR] No task %s\n", name.c_str());
class CLog : public CStaticSingleton<CLog> {
 public:
  static constexpr const char* kFileName = "log.txt";  // in the working directory

  CLog();
  ~CLog();
  CLog(const CLog&) = delete;
  CLog& operator=(const CLog&) = delete;

  // Before the log is made: it will write no file. Does nothing later.
  static void KeepOffDisk();

  // Appends to the line being assembled; "\n", "\r" and NUL each end a line. An empty text changes
  // nothing. Listeners may write, add and remove listeners while they are called.
  CLog& Write(const std::string& text);

  // printf-style formatting of any length, then Write. Text from outside goes into an argument,
  // never into the format.
  CLog& Print(const char* format, ...) __attribute__((format(printf, 2, 3)));

  // Writes the value as a standard output stream prints it.
  template <typename T>
  CLog& operator<<(const T& value) {
    std::ostringstream stream;
    stream << value;
    return Write(stream.str());
  }

  // Sets the level of the line being assembled; after its end the level is normal again.
  CLog& Error();
  CLog& Warning();
  CLog& Debug();

  // Opens and closes a level of indentation in the file.
  CLog& BeginBlock();
  CLog& EndBlock();

  // Listeners are not owned and are called in the order in which they were added. A null listener
  // is ignored, and so is the removal of one that is not there.
  void AddListener(ILogListener* listener);
  void RemoveListener(ILogListener* listener);

 private:
  struct SListeners {
    CWalkList<ILogListener> list;
    std::unique_ptr<CLogListenerForFile> fileListener;
  };

  void Send(const std::string& line, int level);
  void EndLine();

  std::unique_ptr<SListeners> myListeners;
  int myLevel = kLogNormal;
};

// The log, made by the first call.
inline CLog& Log() { return CLog::GetSingleton(); }

// Keeps a block of the log open for as long as it lives, so that every return closes it.
class CLogBlock {
 public:
  explicit CLogBlock(CLog& log) : myLog(log) { myLog.BeginBlock(); }
  ~CLogBlock() { myLog.EndBlock(); }
  CLogBlock(const CLogBlock&) = delete;
  CLogBlock& operator=(const CLogBlock&) = delete;

 private:
  CLog& myLog;
};

}  // namespace vask
