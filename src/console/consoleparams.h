#pragma once

#include "console/variable.h"

#include <cstddef>
#include <deque>
#include <memory>
#include <string>

namespace vask {

// The parameter list of one command call. Commands remove their leading parameters with PopFront
// and may pass the rest on.
class CConsoleParams {
 public:
  CConsoleParams() = default;
  CConsoleParams(const CConsoleParams&) = delete;
  CConsoleParams& operator=(const CConsoleParams&) = delete;

  int Size() const { return static_cast<int>(myParams.size()); }

  // Of the parameter at an index from 0, which the caller keeps below Size().
  int GetType(int index) const { return At(index).GetType(); }
  bool IsType(int index, int type) const { return At(index).IsType(type); }
  double GetNumber(int index) const { return At(index).GetNumber(); }
  std::string GetString(int index) const { return At(index).GetString(); }

  // Whether there is a parameter at the index and it is of that type.
  bool Has(int index, int type) const { return index < Size() && IsType(index, type); }

  void PopFront() { myParams.pop_front(); }
  void AddString(const std::string& text);
  void AddNumber(double number);

 private:
  const CVariable& At(int index) const { return *myParams[static_cast<std::size_t>(index)]; }

  std::deque<std::unique_ptr<CVariable>> myParams;
};

}  // namespace vask
