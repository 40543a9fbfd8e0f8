#pragma once
// The host language's run-time error: one exception type carrying the error number and
// its standard description. Every place that "raises the host's error" throws this.

#include <cstdint>
#include <stdexcept>
#include <string>

namespace vex {

// The host's error numbers that this code base raises or relays.
enum class ErrorCode : int32_t {
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    BadFileNameOrNumber = 52,
    FileNotFound = 53,
    BadFileMode = 54,
    FileAlreadyOpen = 55,
    DeviceIOError = 57,
    FileAlreadyExists = 58,
    DiskFull = 61,
    InputPastEndOfFile = 62,
    TooManyFiles = 67,
    PermissionDenied = 70,
    PathFileAccessError = 75,
    PathNotFound = 76,
    ObjectNotSet = 91,
    InvalidFileFormat = 321,
    InvalidPropertyValue = 380,
    PropertyReadOnly = 383,
    ObjectDoesntSupport = 438,
    InvalidPicture = 481,
};

// The standard description the host shows for a number ("Overflow", "Type mismatch", ...).
// Unknown numbers get "Application-defined or object-defined error", as the host does.
std::string StandardDescription(int32_t number);

class RuntimeError : public std::runtime_error {
public:
    explicit RuntimeError(ErrorCode code);
    RuntimeError(ErrorCode code, std::string description);
    RuntimeError(int32_t number, std::string description);

    int32_t number() const noexcept { return number_; }
    ErrorCode code() const noexcept { return static_cast<ErrorCode>(number_); }
    const char* description() const noexcept { return what(); }

private:
    int32_t number_;
};

// Shorthand for the most common raise sites.
[[noreturn]] void Raise(ErrorCode code);

} // namespace vex
