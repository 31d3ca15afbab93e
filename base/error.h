// An error that the user is told of: a sentence to read and the number shown in the error box.
#pragma once

#include <stdexcept>
#include <string>

namespace base {

// Numbers of the error box; fixed, since users quote them.
enum class ErrorNumber : int {
  InvalidCall = 5,
  OutOfMemory = 7,
  FileNotFound = 53,
  DeviceError = 57,
  DiskFull = 61,
  PermissionDenied = 70,
  PathAccess = 75,
  PathNotFound = 76,
  BadFileFormat = 321,
};

class Error : public std::runtime_error {
 public:
  Error(ErrorNumber number, const std::string& description, std::string source = {})
      : std::runtime_error(description), number_(number), source_(std::move(source)) {}

  ErrorNumber number() const { return number_; }
  const std::string& source() const { return source_; }

 private:
  ErrorNumber number_;
  std::string source_;
};

}  // namespace base
