#include "tests/com/behaviour/uithread.h"

#include <gtest/gtest.h>
#include <memory>

namespace pixmo::com::test {

namespace {

using Task = std::function<void()>;

constexpr UINT Run = WM_APP;
constexpr DWORD Patience = 30'000; ///< milliseconds
constexpr DWORD LookInterval = 1;

} // namespace

UiThread::UiThread()
    : handle_(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr)) {
    SetWindowLongPtrW(handle_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
}

UiThread::~UiThread() {
    DestroyWindow(handle_);
}

LRESULT CALLBACK UiThread::procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != Run)
        return DefWindowProcW(handle, message, wParam, lParam);
    const std::unique_ptr<Task> task(reinterpret_cast<Task*>(lParam));
    (*task)();
    return 0;
}

void UiThread::start(std::function<void()> function) const {
    PostMessageW(handle_, Run, 0, reinterpret_cast<LPARAM>(new Task(std::move(function))));
}

void UiThread::wait(const std::function<void()>& function) const {
    const HANDLE done = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    start([&] {
        function();
        SetEvent(done);
    });
    // What the task refers to is on this stack: it cannot be left before.
    if (WaitForSingleObject(done, Patience) != WAIT_OBJECT_0) {
        ADD_FAILURE() << "the windows do not answer";
        WaitForSingleObject(done, INFINITE);
    }
    CloseHandle(done);
}

void UiThread::settle() const {
    // What is posted comes before input: as long as there is some, it has not been handled.
    const ULONGLONG end = GetTickCount64() + Patience;
    while (on([] { return HIWORD(GetQueueStatus(QS_INPUT)) != 0; })) {
        if (GetTickCount64() > end) {
            ADD_FAILURE() << "the windows do not handle their input";
            return;
        }
        Sleep(LookInterval);
    }
}

} // namespace pixmo::com::test
