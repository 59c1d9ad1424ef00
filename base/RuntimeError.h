// The exceptions that a user sees, and their numbers.
#pragma once
#include <cstdint>
#include <stdexcept>
#include <string>

namespace clb {

/// A failure that ends the running command. The number is the kind of error and never 0.
class RuntimeError : public std::runtime_error {
public:
    RuntimeError(std::int32_t number, const std::string& message)
        : std::runtime_error(message), number_(number)
    {
    }
    [[nodiscard]] std::int32_t Number() const { return number_; }

private:
    std::int32_t number_;
};

/// A failed call to something outside the program: network, files, desktop.
class PortError : public RuntimeError {
public:
    using RuntimeError::RuntimeError;
};

/// Numbers of the runtime errors that the program itself raises.
namespace errors {
enum Number : std::int32_t {
    InvalidCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    FileNotFound = 53,
    FileAlreadyExists = 58,
    PathAccess = 75,
    InvalidNull = 94,
    NetworkFailure = 12007,
    ElementNotFound = 35601,
    KeyNotUnique = 35602,
};
}  // namespace errors

/// The error of a conversion for a text or value of another kind.
inline RuntimeError TypeMismatch()
{
    return {errors::TypeMismatch, "Type mismatch"};
}
/// The error of arithmetic and conversions for a result out of range.
inline RuntimeError Overflow()
{
    return {errors::Overflow, "Overflow"};
}

}  // namespace clb
