#pragma once

#include <string>
#include <windows.h>

namespace pixmo::com {

/// The library as the system has loaded it.
namespace module {

HINSTANCE instance();
void setInstance(HINSTANCE instance);
/// The library's own file.
std::wstring path();

/// Objects and locks of class factories that keep the library loaded.
void lock();
void unlock();
LONG locks();

} // namespace module

/// Keeps the library loaded.
class ModuleLock {
public:
    ModuleLock() { module::lock(); }
    ~ModuleLock() { module::unlock(); }
    ModuleLock(const ModuleLock&) = delete;
    ModuleLock& operator=(const ModuleLock&) = delete;
};

} // namespace pixmo::com
