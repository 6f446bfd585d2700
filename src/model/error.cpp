#include <quilta/error.hpp>

namespace quilta {
namespace {

constexpr int32_t kObjectErrorBase = static_cast<int32_t>(0x80040000u);

const char* ObjectMessage(int32_t code) {
  switch (code) {
    case 513:
      return "Subscript out of range.";
    case 514:
      return "Invalid procedure call or argument.";
    case 515:
      return "This key is already associated with an element of this collection.";
    case 516:
      return "Attempt to use more than 255 format strings.";
    case 518:
      return "This method expects an ImageList object or a long hImageList handle.";
    case 519:
      return "Column maximum width can not be less than its minimum width.";
    case 520:
      return "Column width can not be less than its minimum width or greater than its maximum "
             "width.";
    case 522:
      return "Illegal operation.";
    case 523:
      return "Out of memory.";
    case 524:
      return "Invalid hierarchy structure.";
    case 526:
      return "Cannot create system timer.";
    case 527:
      return "The limit of timers exceeded.";
    default:
      return "";
  }
}

const char* RuntimeMessage(int32_t number) {
  switch (number) {
    case vbErrInvalidCall:
      return "Invalid procedure call or argument";
    case vbErrOverflow:
      return "Overflow";
    case vbErrSubscript:
      return "Subscript out of range";
    case vbErrTypeMismatch:
      return "Type mismatch";
    case vbErrInvalidUseOfNull:
      return "Invalid use of Null";
    default:
      return "Application-defined or object-defined error";
  }
}

}  // namespace

Error::Error(int32_t code, int32_t number, std::string description, std::string source)
    : std::runtime_error(description),
      code_(code),
      number_(number),
      source_(std::move(source)),
      description_(std::move(description)) {}

Error Error::FromCode(int32_t code) {
  return Error(code, kObjectErrorBase + code, ObjectMessage(code));
}

Error Error::Runtime(int32_t number) { return Error(number, number, RuntimeMessage(number)); }

}  // namespace quilta
