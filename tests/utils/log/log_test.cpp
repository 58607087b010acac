#include "utils/log/log.h"

#include "support/files.h"
#include "support/logcapture.h"
#include "utils/log/loglistenerforfile.h"

#include <gtest/gtest.h>

#include <regex>

namespace vask::test {
namespace {

TEST(Log, TextIsCutIntoLinesAtEveryLineEnd) {
  EXPECT_EQ(Logged([] { Log().Write("abc").Write("").Write("def").Print("\n"); }), "( ) abcdef\n");
  EXPECT_EQ(Logged([] { Log().Write(std::string("a\r\nb\0c\n\n", 8)); }),
            "( ) a\n( ) \n( ) b\n( ) c\n( ) \n");
}

TEST(Log, ALevelLastsForOneLine) {
  EXPECT_EQ(Logged([] { Log().Error() << "e" << 1 << "\nn\n"; }), "<!> e1\n( ) n\n");
  EXPECT_EQ(Logged([] { Log().Warning() << 2.5 << "\n"; }), "(!) 2.5\n");
  EXPECT_EQ(Logged([] { Log().Debug() << "d\n"; }), "(d) d\n");
  EXPECT_EQ(Logged([] { Log() << "[ERROR] no\n"; }), "( ) [ERROR] no\n") << "a tag is only text";
}

TEST(Log, BlocksIndentTheFile) {
  EXPECT_EQ(Logged([] { Log().BeginBlock().BeginBlock() << "x\n"; }), "( )     x\n");
  EXPECT_EQ(Logged([] { (Log().EndBlock().Error() << "a").EndBlock() << "b\n"; }), "<!> ab\n");
  EXPECT_EQ(Logged([] { Log().EndBlock() << "y\n"; }), "( ) y\n") << "one end too many";
  EXPECT_EQ(Logged([] { Log().BeginBlock() << "x\n"; }), "( )   x\n");
  EXPECT_EQ(Logged([] { Log().EndBlock() << "y\n"; }), "( ) y\n");
}

TEST(Log, PrintFormatsTextOfAnyLength) {
  const std::string name = "%n%s" + std::string(100'000, 'x');
  const int count = 7;
  const auto logAll = [&] {
    Log() << "Loaded " << count << " files\n";
    Log().Error() << "Could not open " << name << "\n";
    Log().Print("[ERROR] No task %s\n", name.c_str());
  };
  EXPECT_EQ(Logged(logAll), "( ) Loaded 7 files\n<!> Could not open " + name +
                                "\n( ) [ERROR] No task " + name + "\n");
}

TEST(Log, FileStartsWithItsHeader) {
  CLog::DeleteSingleton();
  { CLogFile other("other_log.txt", "v", false); }  // so log.txt is not the last file any more
  WriteFile("log.txt", "old content\n");
  Log();
  CLog::DeleteSingleton();
  Log() << "again\n";  // continues the file, without a second header
  const std::string rule = "\\( \\) -{62}\n";
  const std::regex header(
      rule + "\\( \\) New log created on [A-Z][a-z]{2},[A-Z][a-z]{2} \\d\\d,\\d\\d:\\d\\d [AP]M\n" +
      "\\( \\) Using Vask version \\d+\\.\\d+\n" +
      "\\( \\) Build in Unknown compiler at [A-Z][a-z]{2} [ \\d]\\d \\d{4} \\d\\d:\\d\\d:\\d\\d\n" +
      rule + "\\( \\) again\n");
  EXPECT_TRUE(std::regex_match(FileText("log.txt"), header)) << FileText("log.txt");
}

TEST(Log, AFileMayEndWithASummary) {
  {
    CLogListenerForFile listener("kept.txt", "v1", true);
    for (const int level : {kLogError, kLogWarning, kLogError, kLogNormal, kLogDebug}) {
      listener.OnLog("x" + std::to_string(level) + "\n", level);
    }
  }
  const std::string text =
      std::regex_replace(FileText("kept.txt"), std::regex("\\d\\d:\\d\\d:\\d\\d"), "TIME");
  EXPECT_TRUE(text.ends_with(
      "( ) x1\n\n------------------------v1------------------------\n\nTIME [ERROR] x3\n\n"
      "TIME [WARNING] x2\n\nTIME [ERROR] x3\n\n\nv1 - 2 error(s), 1 warning(s)\n"))
      << text;
}

TEST(Log, AListenerThatLogsForEachLineComesToAnEnd) {
  struct CEndless : ILogListener {
    void OnLog(const std::string&, int) override { Log() << "line " << ++calls << "\n"; }
    int calls = 0;
  } endless;
  Log().AddListener(&endless);
  Log() << "x\n";
  Log().RemoveListener(&endless);
  EXPECT_EQ(endless.calls, 8);
}

}  // namespace
}  // namespace vask::test
