#pragma once
#include <cstdint>
#include <stdexcept>
#include <string>

namespace clb {

/// A failure that ends the running command. The number tells the kind; 0 is never used.
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

/// A call into the machine outside the program (network, files, desktop) that could not be made.
class PortError : public RuntimeError {
public:
    using RuntimeError::RuntimeError;
};

/// Numbers of the runtime errors that the program itself raises.
namespace errors {
inline constexpr std::int32_t InvalidCall = 5;
inline constexpr std::int32_t Overflow = 6;
inline constexpr std::int32_t OutOfMemory = 7;
inline constexpr std::int32_t SubscriptOutOfRange = 9;
inline constexpr std::int32_t TypeMismatch = 13;
inline constexpr std::int32_t FileNotFound = 53;
inline constexpr std::int32_t FileAlreadyExists = 58;
inline constexpr std::int32_t PathAccess = 75;
inline constexpr std::int32_t InvalidNull = 94;
inline constexpr std::int32_t NetworkFailure = 12007;
inline constexpr std::int32_t ElementNotFound = 35601;
inline constexpr std::int32_t KeyNotUnique = 35602;
}  // namespace errors

/// The error that a conversion raises for a text or value of another kind.
inline RuntimeError TypeMismatch()
{
    return {errors::TypeMismatch, "Type mismatch"};
}
/// The error that arithmetic and conversions raise for a result out of range.
inline RuntimeError Overflow()
{
    return {errors::Overflow, "Overflow"};
}

}  // namespace clb
