// quilta::Error: how every public member reports a failure.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace quilta {

class Error : public std::runtime_error {
 public:
  Error(int32_t code, int32_t number, std::string description, std::string source = "Quilta");

  // An object-model error: number = 0x80040000 + code, the code's fixed message.
  static Error FromCode(int32_t code);
  // A runtime error of the conversion functions (6 Overflow, 13 Type mismatch, ...): the number
  // is the runtime's own error number.
  static Error Runtime(int32_t number);

  int32_t Code() const noexcept { return code_; }
  int32_t Number() const noexcept { return number_; }
  const std::string& Source() const noexcept { return source_; }
  const std::string& Description() const noexcept { return description_; }

 private:
  int32_t code_;
  int32_t number_;
  std::string source_;
  std::string description_;
};

// Object-model error codes.
enum ErrorCodes : int32_t {
  quErrSubscriptOutOfRange = 513,
  quErrInvalidArgument = 514,
  quErrDuplicateKey = 515,
  quErrTooManyFormatStrings = 516,
  quErrImageListExpected = 518,
  quErrMaxWidthBelowMin = 519,
  quErrWidthOutOfLimits = 520,
  quErrIllegalOperation = 522,
  quErrOutOfMemory = 523,
  quErrInvalidHierarchy = 524,
  quErrCannotCreateTimer = 526,
  quErrTooManyTimers = 527
};

// Runtime error numbers raised by the conversion functions.
enum RuntimeErrors : int32_t {
  vbErrInvalidCall = 5,
  vbErrOverflow = 6,
  vbErrSubscript = 9,
  vbErrTypeMismatch = 13,
  vbErrInvalidUseOfNull = 94
};

}  // namespace quilta
