#pragma once

#include <string>
#include <windows.h>

namespace pixmo::com::test {

/// How a program ended, and what it wrote.
struct ProgramResult {
    DWORD status = 0;
    std::string output;
};

/// Runs a program that lies beside the tests, with these arguments, to its end; status 999 when that takes
/// longer than the limit.
ProgramResult runProgram(const std::wstring& name, const std::wstring& arguments, DWORD milliseconds = 30000);

} // namespace pixmo::com::test
