// Expressions, one a line for one calculator, against a plain one.

#include "utils/calculator/calculator.h"

#include "fuzz.h"
#include "models/calculator.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kLongest = 200;  // bytes; the plain one is slow
  vask::CCalculator<double> calculator;
  vask::fuzz::CPlainCalculator plain;
  for (const std::string& line : vask::fuzz::ToLines(data, std::min(size, kLongest))) {
    const double value = calculator.Calculate(line);
    const double expected = plain.Calculate(line);
    vask::fuzz::Require(value == expected || (std::isnan(value) && std::isnan(expected)));
  }
  return 0;
}
