#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace nesk {

/// The exception type of the program. It stores message numbers and arguments; the text is made where it is
/// shown. Code below the string tables can therefore raise it.
struct NeskError : std::runtime_error {
    /// @param number     error number: 5000 to 5002 of this program, or a common run-time error number
    ///                   (RuntimeError)
    /// @param source     class and operation that failed, for example "RegEntry.OpenInternal"
    /// @param messageId  number of the message in the string tables
    /// @param arguments  values for "%0%", "%1%", ... of that message
    NeskError(int number, std::string source, int messageId, std::vector<std::string> arguments = {});

    int number;
    std::string source;
    int messageId;
    std::vector<std::string> arguments;

    /// The error that caused this one. Its text fills the placeholder after those of `arguments`.
    std::shared_ptr<const NeskError> cause;

    /// The file being read when the error occurred, as a Windows path; empty when no file was being read.
    std::string file;
    /// The 1-based line in `file`; 0 when unknown.
    int line = 0;
};

/// Common run-time error numbers.
namespace RuntimeError {
constexpr int Overflow = 6;
constexpr int OutOfMemory = 7;
constexpr int SubscriptOutOfRange = 9;
constexpr int DivisionByZero = 11;
constexpr int TypeMismatch = 13;
constexpr int FileNotFound = 53;
constexpr int DeviceError = 57;
constexpr int FileExists = 58;
constexpr int DiskFull = 61;
constexpr int PermissionDenied = 70;
constexpr int PathAccess = 75;
constexpr int PathNotFound = 76;
} // namespace RuntimeError

} // namespace nesk
