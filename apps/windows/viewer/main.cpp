// A host of the control in plain C++, without a framework.
//
//     pixmo_viewer [--registered] [--engine ADDRESS] [--doc NUMBER] [--page NUMBER]
//                  [--screenshot FILE.bmp [--wait MILLISECONDS]]
//
// The control is the one beside the program, which needs no registration, or with --registered the one that
// the system knows. With --screenshot it saves its picture as soon as the page is shown, or after waiting for
// it (ten seconds unless told otherwise), and ends: with status 0 when the page was there, else 1. What goes
// wrong before that is told on standard error, status 2.
#include "apps/windows/viewer/screenshot.h"
#include "apps/windows/viewer/viewerwindow.h"

#include "core/base/error.h"
#include "faces/com/base/widetext.h"

#include <cstdio>
#include <cstdlib>
#include <map>
#include <ole2.h>
#include <shellapi.h>
#include <string>
#include <string_view>

namespace {

constexpr int LongestWait = 10000;  ///< milliseconds
constexpr DWORD TimeToPaint = 1500; ///< milliseconds

using Options = std::map<std::wstring, std::wstring>;

Options readOptions() {
    Options options;
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int at = 1; at < count; ++at) {
        const bool hasValue = at + 1 < count && !std::wstring_view(words[at + 1]).starts_with(L"--");
        options[words[at]] = hasValue ? words[at + 1] : L"";
        at += hasValue ? 1 : 0;
    }
    LocalFree(words);
    return options;
}

int numberOf(const Options& options, const wchar_t* name, int otherwise) {
    const auto found = options.find(name);
    return found == options.end() ? otherwise
                                  : static_cast<int>(std::wcstol(found->second.c_str(), nullptr, 10));
}

/// False once the program is to end.
bool handleMessages(pixmo::viewer::ViewerWindow& window) {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT)
            return false;
        if (window.translate(message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return true;
}

void runUntil(pixmo::viewer::ViewerWindow& window, DWORD milliseconds, bool untilShown) {
    const DWORD start = GetTickCount();
    while (handleMessages(window) && GetTickCount() - start < milliseconds &&
           !(untilShown && window.shownDocument() != 0))
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
}

int saveAndEnd(pixmo::viewer::ViewerWindow& window, const std::wstring& file, int longestWait) {
    runUntil(window, static_cast<DWORD>(longestWait), true);
    runUntil(window, TimeToPaint, false);
    const bool saved = pixmo::viewer::saveScreenshot(window.handle(), file);
    return saved && window.shownDocument() != 0 ? 0 : 1;
}

int run(const Options& options) {
    using pixmo::viewer::Source;
    pixmo::viewer::ViewerWindow window(options.contains(L"--registered") ? Source::Registry
                                                                         : Source::Neighbour);
    ShowWindow(window.handle(), SW_SHOW);
    if (const auto engine = options.find(L"--engine"); engine != options.end())
        window.setAddress(engine->second);
    if (const int document = numberOf(options, L"--doc", 0))
        window.open(document, numberOf(options, L"--page", 1));
    if (const auto screenshot = options.find(L"--screenshot"); screenshot != options.end())
        return saveAndEnd(window, screenshot->second, numberOf(options, L"--wait", LongestWait));
    while (handleMessages(window))
        WaitMessage();
    return 0;
}

/// Nobody sits before a picture that is taken.
void tell(const Options& options, const std::string& failure) {
    if (options.contains(L"--screenshot"))
        std::fprintf(stderr, "pixmo_viewer: %s\n", failure.c_str());
    else
        MessageBoxW(nullptr, pixmo::com::toWide(failure).c_str(), L"Pixmo Viewer", MB_OK | MB_ICONERROR);
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    if (FAILED(OleInitialize(nullptr)))
        return 2;
    const Options options = readOptions();
    int status = 2;
    try {
        status = run(options);
    } catch (...) {
        tell(options, pixmo::currentError().Description);
    }
    OleUninitialize();
    return status;
}
