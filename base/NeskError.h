#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace nesk {

/// The one error of the program. It carries what happened as numbers; the text is made where it is shown, so
/// that code below the string tables can raise it.
struct NeskError : std::runtime_error {
    /// @param number     error number: 5000 to 5002 of this program, or a usual run-time error number
    /// (RuntimeError)
    /// @param source     class and operation that failed, as "RegEntry.OpenInternal"
    /// @param messageId  number of the message in the string tables
    /// @param arguments  what fills "%0%", "%1%", ... of that message
    NeskError(int number, std::string source, int messageId, std::vector<std::string> arguments = {});

    int number;
    std::string source;
    int messageId;
    std::vector<std::string> arguments;

    /// The error behind this one. Its text fills the placeholder after those of `arguments`.
    std::shared_ptr<const NeskError> cause;

    /// The file being read when the error occurred, as a Windows path; empty when it was none.
    std::string file;
    /// The 1-based line of `file`; 0 when unknown.
    int line = 0;
};

/// Run-time error numbers in common use.
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
