#include "tools/tester.h"

#include "utils/log/log.h"

#include <algorithm>
#include <exception>
#include <string_view>

namespace vask::tester {

namespace {

const std::string kSeparator = std::string(66, '-') + " \n";

// The level holds for one line, so a text with a line end would leave it half-way.
std::string OnOneLine(std::string text) {
  constexpr std::string_view kLineEnds("\n\r\0", 3);
  std::ranges::replace_if(
      text, [=](char c) { return kLineEnds.find(c) != std::string_view::npos; }, ' ');
  return text;
}

void ReportFailure(const STest& test) {
  CLog& log = *CLog::GetSingletonPtr();
  log.Error() << test.name << " FAILED!\n";
  log.Error() << " in the file " << test.file << ".\n";
  log.Error() << " on the following test assert: " << OnOneLine(test.assertion) << "\n";
  log.Error() << OnOneLine(test.message) << "\n";
}

}  // namespace

bool STest::Fail(const std::string& failedAssertion, const std::string& failureMessage) {
  assertion = failedAssertion;
  message = failureMessage;
  return true;
}

bool STest::Run() {
  assertion.clear();
  message.clear();
  try {
    return function(*this);
  } catch (const std::exception& exception) {
    return Fail("no exception", exception.what());
  } catch (...) {
    return Fail("no exception", "an unknown exception");
  }
}

void CTester::Register(TestFunction function, const std::string& name, const std::string& file) {
  myTests.push_back({function, name, file, {}, {}});
}

void CTester::RunAll() {
  CLog& log = *CLog::GetSingletonPtr();
  log << "Vask tester...\n" << kSeparator;
  bool isFailed = false;
  {
    const CLogBlock block(log);
    const std::size_t count = myTests.size();
    for (std::size_t i = 0; i < count; ++i) {
      STest& test = myTests[i];
      if (test.Run()) {
        ReportFailure(test);
        isFailed = true;
      } else {
        log << test.name << " [OK]\n";
      }
    }
  }
  log << kSeparator;
  if (isFailed) {
    log.Error() << "Some of the tests failed miserably\n\n";
  } else {
    log << "All tests OK\n\n";
  }
}

CTestRegistrar::CTestRegistrar(TestFunction function, const std::string& name,
                               const std::string& file) {
  CTester::GetSingletonPtr()->Register(function, name, file);
  *CLog::GetSingletonPtr() << "Registered test: " << name << "\n";
}

}  // namespace vask::tester
