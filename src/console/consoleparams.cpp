#include "console/consoleparams.h"

namespace vask {

void CConsoleParams::AddString(const std::string& text) {
  myParams.push_back(std::make_unique<CVariableString>(text));
}

void CConsoleParams::AddNumber(double number) {
  myParams.push_back(std::make_unique<CVariableNumber>(number));
}

}  // namespace vask
