#include "utils/log/log.h"

#include "support/logcapture.h"
#include "utils/log/logfile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <regex>

namespace vask {
namespace {

using Lines = std::vector<test::CLogCapture::SLine>;

std::string FileText(const std::string& name) {
  std::ifstream file(name);
  return {std::istreambuf_iterator<char>(file), {}};
}

CLog& Log() { return *CLog::GetSingletonPtr(); }

// What the action appends to log.txt.
std::string Appended(const std::function<void(CLog&)>& action) {
  CLog& log = Log();
  const std::size_t before = FileText("log.txt").size();
  action(log);
  return FileText("log.txt").substr(before);
}

TEST(Log, FileLinesCarryMarkerAndIndentation) {
  const struct {
    const char* what;
    std::function<void(CLog&)> action;
    const char* expected;
  } cases[] = {
      {"one line of two writes", [](CLog& log) { log.Write("abc").Write("def\n"); },
       "( ) abcdef\n"},
      {"levels fall back",
       [](CLog& log) {
         log.Error() << "e" << 1 << "\nn\n";
         log.Warning() << 2.5 << "\n";
         log.Debug() << "d\n";
       },
       "<!> e1\n( ) n\n(!) 2.5\n(d) d\n"},
      {"an empty text keeps the level", [](CLog& log) { log.Error().Write("") << "x\n"; },
       "<!> x\n"},
      {"line ends", [](CLog& log) { log.Write(std::string("a\r\nb\0c\n\n", 8)); },
       "( ) a\n( ) \n( ) b\n( ) c\n( ) \n"},
      {"blocks",
       [](CLog& log) {
         log.BeginBlock() << "x\n";
         log.BeginBlock() << "y\n";
         log.EndBlock().EndBlock() << "z\n";
       },
       "( )   x\n( )     y\n( ) z\n"},
      {"a block mark in the middle of a line keeps the line",
       [](CLog& log) { (log.Error() << "a").BeginBlock().EndBlock() << "b\n"; }, "<!> ab\n"},
      {"too many ends are forgotten by the next line",
       [](CLog& log) {
         log.EndBlock().EndBlock() << "x\n";
         log.BeginBlock() << "y\n";
         log.EndBlock() << "z\n";
       },
       "( ) x\n( )   y\n( ) z\n"},
      {"a tag in the text is only text", [](CLog& log) { log << "[ERROR] no\n"; },
       "( ) [ERROR] no\n"},
      {"an argument of Print is never a format", [](CLog& log) { log.Print("%s %d\n", "%n%s", 7); },
       "( ) %n%s 7\n"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Appended(c.action), c.expected) << c.what;
  }
}

TEST(Log, PrintLosesNothing) {
  const std::string text(100'000, 'x');
  EXPECT_EQ(Appended([&](CLog& log) { log.Print("<%s>\n", text.c_str()); }),
            "( ) <" + text + ">\n");
}

TEST(Log, FileStartsWithItsHeader) {
  CLog::DeleteSingleton();
  // Whatever file was started last, this one is now.
  { CLogFile other("other_log.txt", "v", false); }
  std::ofstream("log.txt") << "old content\n";
  Log();
  const std::string rule = "\\( \\) -{62}\n";
  const std::regex header(
      rule + "\\( \\) New log created on [A-Z][a-z]{2},[A-Z][a-z]{2} \\d\\d,\\d\\d:\\d\\d [AP]M\n" +
      "\\( \\) Using Vask version 0\\.23\n" +
      "\\( \\) Build in Unknown compiler at [A-Z][a-z]{2} [ \\d]\\d \\d{4} \\d\\d:\\d\\d:\\d\\d\n" +
      rule);
  EXPECT_TRUE(std::regex_match(FileText("log.txt"), header)) << FileText("log.txt");

  CLog::DeleteSingleton();
  Log() << "again\n";
  EXPECT_TRUE(FileText("log.txt").ends_with("-\n( ) again\n")) << "a second header, or none left";
}

TEST(Log, SummaryCountsByTag) {
  const std::string name = "summary.txt";
  {
    CLogFile file(name, "V1", true);
    std::ofstream(name, std::ios::trunc).close();
    file.WriteLine("plain [ERROR]\n", kLogNormal);
    file.WriteLine("bad\n", kLogError);
    file.WriteLine("odd [ERROR]\n", kLogWarning);
    file.WriteLine("no marker\n", 17);
  }
  const std::string stamp = "\\d\\d:\\d\\d:\\d\\d ";
  const std::regex expected(
      "\\( \\) plain \\[ERROR\\]\n<!> bad\n\\(!\\) odd \\[ERROR\\]\nno marker\n\n-{24}V1-{24}\n\n" +
      stamp + "\\[ERROR\\] bad\n\n" + stamp + "\\[WARNING\\] odd \\[ERROR\\]\n\n\n" +
      "V1 - 2 error\\(s\\), 1 warning\\(s\\)\n");
  EXPECT_TRUE(std::regex_match(FileText(name), expected)) << FileText(name);
}

TEST(Log, UnwritableFileLosesLinesSilently) {
  std::filesystem::create_directories("folder.txt");
  CLogFile file("folder.txt", "V", true);
  file.WriteLine("lost\n", kLogError);
  EXPECT_TRUE(std::filesystem::is_directory("folder.txt"));
}

// Does something to the log while it is being told a line.
class CMeddler : public ILogListener {
 public:
  std::function<void(const std::string&)> myReaction;
  void OnLog(const std::string& line, int) override { myReaction(line); }
};

TEST(Log, ListenersMayLogWhileCalled) {
  CMeddler meddler;
  meddler.myReaction = [](const std::string& line) {
    if (line == "outer\n") {
      Log() << "inner\n";
    }
  };
  Log().AddListener(&meddler);
  test::CLogCapture capture;
  Log().Error() << "outer\nnext\n";
  Log().RemoveListener(&meddler);
  EXPECT_EQ(capture.Lines(), (Lines{{"inner", 1}, {"outer", 3}, {"next", 1}}));
}

TEST(Log, AnsweringEveryLineComesToAnEnd) {
  CMeddler meddler;
  meddler.myReaction = [](const std::string& line) { Log() << "re: " << line << line; };
  Log().AddListener(&meddler);
  const std::string text = Appended([](CLog& log) { log << "x\n"; });
  Log().RemoveListener(&meddler);
  EXPECT_NE(text.find("( ) re: re: x\n"), std::string::npos);
  EXPECT_EQ(Appended([](CLog& log) { log << "calm\n"; }), "( ) calm\n");
}

TEST(Log, ListenersMayComeAndGoWhileCalled) {
  CMeddler first;
  auto second = std::make_unique<CMeddler>();
  CMeddler third;
  std::string heard;
  second->myReaction = [&](const std::string&) { heard += "2"; };
  third.myReaction = [&](const std::string&) { heard += "3"; };
  first.myReaction = [&](const std::string&) {
    heard += "1";
    Log().RemoveListener(&first);
    Log().RemoveListener(second.get());
    second.reset();
    Log().AddListener(&third);
  };
  Log().AddListener(&first);
  Log().AddListener(second.get());
  Log().AddListener(nullptr);
  Log() << "x\n";
  EXPECT_EQ(heard, "1") << "the deleted listener was called, or the new one too early";
  Log() << "y\n";
  EXPECT_EQ(heard, "13");
  Log().RemoveListener(&third);
  Log().RemoveListener(&third);
}

}  // namespace
}  // namespace vask
