#include "faces/com/ports/eventloop.h"

#include "faces/com/base/messagetaker.h"

namespace pixmo::com {

namespace {

/// A program that posts to itself without end must not keep the caller for ever.
constexpr DWORD LongestTurn = 100; // milliseconds

enum class Handled { Nothing, Message, Quit };

/// The end of the program is for its own loop: the message is put back.
Handled handleNext() {
    MSG message{};
    if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        return Handled::Nothing;
    if (message.message == WM_QUIT) {
        PostQuitMessage(static_cast<int>(message.wParam));
        return Handled::Quit;
    }
    if (auto* const taker = MessageTaker::of(message.hwnd); taker && taker->takes(message))
        return Handled::Message;
    TranslateMessage(&message);
    DispatchMessageW(&message);
    return Handled::Message;
}

} // namespace

void EventLoop::pumpUntil(const std::function<bool()>& done) {
    while (!done()) {
        const Handled handled = handleNext();
        if (handled == Handled::Quit)
            return;
        if (handled == Handled::Nothing)
            MsgWaitForMultipleObjectsEx(0, nullptr, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    }
}

void EventLoop::handlePending() {
    const DWORD began = GetTickCount();
    while (handleNext() == Handled::Message && GetTickCount() - began < LongestTurn)
        continue;
}

} // namespace pixmo::com
