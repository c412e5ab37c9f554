#include "apps/windows/script/session.h"

#include "core/base/error.h"

#include <cstdio>
#include <ole2.h>

namespace {

constexpr int Misused = 3;

} // namespace

int wmain(int count, wchar_t** words) {
    if (count < 2) {
        std::puts("usage: pixmo_script FILE.vbs|FILE.js [ARGUMENT...]");
        return Misused;
    }
    if (FAILED(OleInitialize(nullptr)))
        return Misused;
    int status = Misused;
    try {
        pixmo::script::Session session(std::vector<std::wstring>(words + 2, words + count));
        status = session.run(words[1]);
    } catch (...) {
        std::printf("%s\n", pixmo::currentError().Description.c_str());
    }
    OleUninitialize();
    return status;
}
