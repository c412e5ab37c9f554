#include "core/base/error.h"

#include <filesystem>
#include <new>
#include <system_error>

namespace pixmo {

Error overflowError() {
    return {error_number::Overflow, "Overflow"};
}

Error subscriptError() {
    return {error_number::SubscriptOutOfRange, "Subscript out of range"};
}

Error divisionByZeroError() {
    return {error_number::DivisionByZero, "Division by zero"};
}

Error typeMismatchError() {
    return {error_number::TypeMismatch, "Type mismatch"};
}

Error fileNotFoundError() {
    return {error_number::FileNotFound, "File not found"};
}

Error diskFullError() {
    return {error_number::DiskFull, "Disk full"};
}

Error pathFileAccessError() {
    return {error_number::PathFileAccess, "Path/File access error"};
}

Error invalidPropertyValueError() {
    return {error_number::InvalidPropertyValue, "Invalid property value"};
}

Error outOfMemoryError() {
    return {error_number::OutOfMemory, "Out of memory"};
}

Error currentError() {
    try {
        throw;
    } catch (const Error& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return outOfMemoryError();
    } catch (const std::system_error& failure) {
        if (failure.code() == std::errc::no_such_file_or_directory)
            return fileNotFoundError();
        if (failure.code() == std::errc::no_space_on_device)
            return diskFullError();
        return {error_number::PathFileAccess, failure.what()};
    } catch (const std::exception& failure) {
        return {error_number::InvalidProcedureCall, failure.what()};
    } catch (...) {
        return {error_number::InvalidProcedureCall, "Invalid procedure call or argument"};
    }
}

} // namespace pixmo
