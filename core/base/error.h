#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace pixmo {

/// A failure, thrown where it happens and caught where a procedure records it. Field for field the error
/// state of the control's host runtime, so that it can be handed to a host unchanged.
struct Error : std::exception {
    int32_t Number = 0; ///< 0 means no error; see error_number for the system's own.
    std::string Source;
    std::string Description;
    std::string HelpFile;
    int32_t HelpContext = 0;

    Error() = default;
    Error(int32_t number, std::string description, std::string source = {})
        : Number(number), Source(std::move(source)), Description(std::move(description)) {}

    const char* what() const noexcept override { return Description.c_str(); }
};

/// Numbers of the failures that the system raises itself.
namespace error_number {
inline constexpr int32_t InvalidArgument = 1;
inline constexpr int32_t InvalidProcedureCall = 5;
inline constexpr int32_t Overflow = 6;
inline constexpr int32_t OutOfMemory = 7;
inline constexpr int32_t SubscriptOutOfRange = 9;
inline constexpr int32_t DivisionByZero = 11;
inline constexpr int32_t TypeMismatch = 13;
inline constexpr int32_t FileNotFound = 53;
inline constexpr int32_t FileAlreadyExists = 58;
inline constexpr int32_t DiskFull = 61;
inline constexpr int32_t PathFileAccess = 75;
inline constexpr int32_t InvalidPropertyValue = 380;
inline constexpr int32_t InvalidPicture = 481;
inline constexpr int32_t InvalidPublicKey = static_cast<int32_t>(0x800407D0);
inline constexpr int32_t InvalidDelimiter = static_cast<int32_t>(0x800407DA);
inline constexpr int32_t InvalidResponse = static_cast<int32_t>(0x800407E4);
} // namespace error_number

/// The failures of the host runtime that a bad field or value causes, with the runtime's own texts.
Error overflowError();
Error subscriptError();
Error divisionByZeroError();
Error typeMismatchError();
Error fileNotFoundError();
Error diskFullError();
Error pathFileAccessError();
Error invalidPropertyValueError();
Error outOfMemoryError();

/// The error being handled now, whatever its type: call from inside a catch block only. A standard
/// exception becomes an Error with the nearest number.
Error currentError();

} // namespace pixmo
