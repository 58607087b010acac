#pragma once

#include <istream>
#include <sstream>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>

namespace vask {

// A named reference to a value of the program: gives its type, prints it and, unless it is
// read-only, sets it from text.
class CVarRefBase {
 public:
  virtual ~CVarRefBase() = default;
  virtual void SetString(const std::string& text) = 0;
  virtual std::string GetString() const = 0;
  virtual std::string GetName() const = 0;
  virtual std::string GetTypeName() const = 0;
  virtual bool IsReadOnly() const = 0;
};

// Reads a T from text: a string takes the whole text, a number what stream input reads. A text that
// does not read as a T, or is out of its range, leaves the value as it was and returns false.
template <typename T>
bool ReadFromText(const std::string& text, T& value) {
  if constexpr (std::is_same_v<T, std::string>) {
    value = text;
    return true;
  } else {
    T read{};
    std::istringstream stream(text);
    if (std::is_unsigned_v<T> && (stream >> std::ws).peek() == '-') {
      return false;  // the stream would wrap it round into a large number
    }
    if (!(stream >> read)) {
      return false;
    }
    value = read;
    return true;
  }
}

template <typename T>
std::string WriteToText(const T& value) {
  std::ostringstream stream;
  stream << value;
  return stream.str();
}

// Refers to a variable of the program, which must outlive the reference.
template <typename T>
class CVarRef : public CVarRefBase {
 public:
  CVarRef(T* variable, std::string name) : myVariable(variable), myName(std::move(name)) {}

  void SetString(const std::string& text) override {
    if (!myReadOnly) {
      ReadFromText(text, *myVariable);
    }
  }
  std::string GetString() const override { return WriteToText(*myVariable); }
  std::string GetName() const override { return myName; }
  std::string GetTypeName() const override { return myTypeName; }
  bool IsReadOnly() const override { return myReadOnly; }

 private:
  T* myVariable;
  std::string myName;
  const char* myTypeName = typeid(T).name();
  bool myReadOnly = false;
};

// Refers to a variable that is only shown.
template <typename T>
class CVarRefConst : public CVarRefBase {
 public:
  CVarRefConst(const T* variable, std::string name)
      : myVariable(variable), myName(std::move(name)) {}

  void SetString(const std::string&) override {}
  std::string GetString() const override { return WriteToText(*myVariable); }
  std::string GetName() const override { return myName; }
  std::string GetTypeName() const override { return myTypeName; }
  bool IsReadOnly() const override { return myReadOnly; }

 private:
  const T* myVariable;
  std::string myName;
  const char* myTypeName = typeid(T).name();
  bool myReadOnly = true;
};

template <typename T>
class CVarRefEmpty;

// A value of its own, not tied to any variable of the program.
template <>
class CVarRefEmpty<std::string> : public CVarRefBase {
 public:
  explicit CVarRefEmpty(std::string name) : myName(std::move(name)) {}

  void SetString(const std::string& text) override {
    if (!myReadOnly) {
      myValue = text;
    }
  }
  std::string GetString() const override { return myValue; }
  std::string GetName() const override { return myName; }
  std::string GetTypeName() const override { return myTypeName; }
  bool IsReadOnly() const override { return myReadOnly; }

 private:
  std::string myValue;
  std::string myName;
  const char* myTypeName = typeid(std::string).name();
  bool myReadOnly = false;
};

}  // namespace vask
