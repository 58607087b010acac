#pragma once

#include <string>

namespace vask {

// A polymorphic value, used for the parameters of a command. The base class is "no value".
class CVariable {
 public:
  enum EType : int { kNone = 0, kString = 1, kNumber = 2 };

  virtual ~CVariable() = default;
  virtual std::string GetString() const;
  virtual double GetNumber() const;
  virtual void SetString(const std::string& text);
  virtual void SetNumber(double number);
  virtual int GetType() const;
  virtual bool IsType(int type) const;
};

class CVariableString : public CVariable {
 public:
  explicit CVariableString(std::string text = {});
  std::string GetString() const override;
  // The number that the text begins with; 0 when it begins with none.
  double GetNumber() const override;
  void SetString(const std::string& text) override;
  void SetNumber(double number) override;
  int GetType() const override;
  bool IsType(int type) const override;

 private:
  std::string myText;
};

class CVariableNumber : public CVariable {
 public:
  explicit CVariableNumber(double number = 0.0);
  // Six significant digits.
  std::string GetString() const override;
  double GetNumber() const override;
  void SetString(const std::string& text) override;
  void SetNumber(double number) override;
  int GetType() const override;
  bool IsType(int type) const override;

 private:
  double myNumber;
};

// A console number as an integer: truncated toward zero, clamped to the 32-bit range; not-a-number
// gives 0.
int ToInteger(double number);

}  // namespace vask
