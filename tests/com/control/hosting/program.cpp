#include "tests/com/control/hosting/program.h"

#include "tests/com/control/hosting/library.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

namespace pixmo::com::test {

namespace {

constexpr DWORD TookTooLong = 999;

/// A file that a program can write its lines into.
class OutputFile {
public:
    OutputFile() {
        SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
        handle_ = CreateFileW(path_.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    }
    ~OutputFile() {
        close();
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
    }
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    HANDLE handle() const { return handle_; }
    std::string text() {
        close();
        std::ifstream file(path_, std::ios::binary);
        std::ostringstream all;
        all << file.rdbuf();
        std::string lines = all.str();
        std::erase(lines, '\r');
        return lines;
    }

private:
    void close() {
        if (handle_ != INVALID_HANDLE_VALUE)
            CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE));
    }

    std::filesystem::path path_ = std::filesystem::temp_directory_path() / "pixmo-program-output.txt";
    HANDLE handle_ = INVALID_HANDLE_VALUE;
};

} // namespace

ProgramResult runProgram(const std::wstring& name, const std::wstring& arguments, DWORD milliseconds) {
    const std::wstring library = Library::path();
    const std::wstring program = library.substr(0, library.find_last_of(L'\\') + 1) + name;
    std::wstring command = L"\"" + program + L"\" " + arguments;
    OutputFile output;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = output.handle();
    startup.hStdError = output.handle();
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(program.c_str(), command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                        &startup, &process))
        return {TookTooLong, "not started"};
    ProgramResult result;
    if (WaitForSingleObject(process.hProcess, milliseconds) != WAIT_OBJECT_0) {
        TerminateProcess(process.hProcess, TookTooLong);
        WaitForSingleObject(process.hProcess, INFINITE);
    }
    GetExitCodeProcess(process.hProcess, &result.status);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    result.output = output.text();
    return result;
}

} // namespace pixmo::com::test
