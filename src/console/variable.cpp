#include "console/variable.h"

#include "utils/containers/varref.h"

#include <cmath>
#include <limits>
#include <sstream>
#include <utility>

namespace vask {

std::string CVariable::GetString() const { return {}; }
double CVariable::GetNumber() const { return 0.0; }
void CVariable::SetString(const std::string&) {}
void CVariable::SetNumber(double) {}
int CVariable::GetType() const { return kNone; }
bool CVariable::IsType(int type) const { return type == kNone; }

CVariableString::CVariableString(std::string text) : myText(std::move(text)) {}

std::string CVariableString::GetString() const { return myText; }

double CVariableString::GetNumber() const {
  // What the stream leaves in the number counts even when it failed: too many digits give the
  // greatest double, so that they saturate as an integer too.
  double number = 0.0;
  std::istringstream(myText) >> number;
  return number;
}

void CVariableString::SetString(const std::string& text) { myText = text; }
void CVariableString::SetNumber(double number) { myText = WriteToText(number); }
int CVariableString::GetType() const { return kString; }
bool CVariableString::IsType(int type) const { return type == kString; }

CVariableNumber::CVariableNumber(double number) : myNumber(number) {}

std::string CVariableNumber::GetString() const { return WriteToText(myNumber); }
double CVariableNumber::GetNumber() const { return myNumber; }
void CVariableNumber::SetString(const std::string& text) { ReadFromText(text, myNumber); }
void CVariableNumber::SetNumber(double number) { myNumber = number; }
int CVariableNumber::GetType() const { return kNumber; }
bool CVariableNumber::IsType(int type) const { return type == kNumber; }

int ToInteger(double number) {
  if (std::isnan(number)) {
    return 0;
  }
  if (number >= std::numeric_limits<int>::max()) {
    return std::numeric_limits<int>::max();
  }
  if (number <= std::numeric_limits<int>::min()) {
    return std::numeric_limits<int>::min();
  }
  return static_cast<int>(number);
}

}  // namespace vask
