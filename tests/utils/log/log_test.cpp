#include "utils/log/log.h"

#include "support/logcapture.h"
#include "utils/log/logfile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <regex>

namespace vask {
namespace {

std::string FileText(const std::string& name) {
  std::ifstream file(name);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(Log, FileLinesCarryMarkerAndIndentation) {
  const std::string huge(100'000, 'x');
  // clang-format off
  const struct { const char* what; std::function<void(CLog&)> action; std::string expected; } cases[] = {
      {"one line of two writes", [](CLog& l) { l.Write("abc").Write("def\n"); }, "( ) abcdef\n"},
      {"levels fall back", [](CLog& l) { l.Error() << "e" << 1 << "\nn\n"; }, "<!> e1\n( ) n\n"},
      {"levels", [](CLog& l) { l.Warning() << 2.5 << "\n"; l.Debug() << "d\n"; }, "(!) 2.5\n(d) d\n"},
      {"line ends", [](CLog& l) { l.Write(std::string("a\r\nb\0c\n\n", 8)); },
       "( ) a\n( ) \n( ) b\n( ) c\n( ) \n"},
      {"blocks", [](CLog& l) { l.BeginBlock().BeginBlock() << "x\n"; l.EndBlock().EndBlock() << "y\n"; },
       "( )     x\n( ) y\n"},
      {"a block mark in the middle of a line keeps the line",
       [](CLog& l) { (l.Error() << "a").BeginBlock().EndBlock() << "b\n"; }, "<!> ab\n"},
      {"too many ends are forgotten by the next line",
       [](CLog& l) { l.EndBlock() << "x\n"; l.BeginBlock() << "y\n"; l.EndBlock(); }, "( ) x\n( )   y\n"},
      {"a tag in the text is only text", [](CLog& l) { l << "[ERROR] no\n"; }, "( ) [ERROR] no\n"},
      {"an argument is never a format", [](CLog& l) { l.Print("%s %d\n", "%n%s", 7); }, "( ) %n%s 7\n"},
      {"nothing is lost", [&](CLog& l) { l.Print("<%s>\n", huge.c_str()); }, "( ) <" + huge + ">\n"},
  };
  // clang-format on
  CLog& log = Log();
  for (const auto& c : cases) {
    const std::size_t before = FileText("log.txt").size();
    c.action(log);
    EXPECT_EQ(FileText("log.txt").substr(before), c.expected) << c.what;
  }
}

TEST(Log, FileStartsWithItsHeader) {
  CLog::DeleteSingleton();
  // Whatever file was started last, this one is now.
  { CLogFile other("other_log.txt", "v", false); }
  std::ofstream("log.txt") << "old content\n";
  Log();
  CLog::DeleteSingleton();
  Log() << "again\n";  // continues the file, without a second header
  const std::string rule = "\\( \\) -{62}\n";
  const std::regex header(
      rule + "\\( \\) New log created on [A-Z][a-z]{2},[A-Z][a-z]{2} \\d\\d,\\d\\d:\\d\\d [AP]M\n" +
      "\\( \\) Using Vask version 0\\.23\n" +
      "\\( \\) Build in Unknown compiler at [A-Z][a-z]{2} [ \\d]\\d \\d{4} \\d\\d:\\d\\d:\\d\\d\n" +
      rule + "\\( \\) again\n");
  EXPECT_TRUE(std::regex_match(FileText("log.txt"), header)) << FileText("log.txt");
}

// Does something to the log while it is being told a line.
class CMeddler : public ILogListener {
 public:
  explicit CMeddler(std::function<void(const std::string&)> reaction) : myReaction(reaction) {
    Log().AddListener(this);
  }
  ~CMeddler() override { Log().RemoveListener(this); }
  void OnLog(const std::string& line, int) override { myReaction(line); }

 private:
  std::function<void(const std::string&)> myReaction;
};

TEST(Log, ListenersMayLogWhileCalled) {
  const CMeddler meddler(
      [](const std::string& line) { line == "outer\n" ? Log() << "inner\n" : Log(); });
  const test::CLogCapture behind;
  Log().Error() << "outer\nnext\n";
  EXPECT_EQ(behind.Text(), "inner\nouter\nnext\n");
  EXPECT_EQ(behind.Lines()[1].level, kLogError);
  const CMeddler endless([](const std::string& line) { Log() << "re: " << line; });
  Log() << "x\n";  // comes to an end
  EXPECT_TRUE(behind.Has("re: re: x"));
}

TEST(Log, ListenersMayComeAndGoWhileCalled) {
  std::string heard;
  std::unique_ptr<CMeddler> meddlers[3];
  const auto third = [&](const std::string&) { heard += "3"; };
  meddlers[0] = std::make_unique<CMeddler>(
      [&](const std::string&) { heard += "1", meddlers[2] = std::make_unique<CMeddler>(third); });
  meddlers[1] = std::make_unique<CMeddler>(
      [&](const std::string&) { heard += "2", meddlers[0].reset(), meddlers[1].reset(); });
  Log() << "x\n";
  EXPECT_EQ(heard, "12") << "the new listener was called too early";
  Log() << "y\n";
  EXPECT_EQ(heard, "123");
}

}  // namespace
}  // namespace vask
