#include "tests/com/face/facehostwindow.h"

namespace pixmo::com {

namespace {

constexpr DWORD LongestWait = 30'000; ///< milliseconds
constexpr DWORD Slice = 20;

} // namespace

std::shared_ptr<FaceHostWindow> FaceHostWindow::create(SIZE inside) {
    auto host = std::make_shared<FaceHostWindow>();
    const RECT place = {20, 20, 20 + inside.cx, 20 + inside.cy};
    if (!host->make({L"Pixmo.TestHost"},
                    {nullptr, WS_POPUP | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT, place, L""}))
        return nullptr;
    host->face_ = std::make_unique<ControlFace>(*host);
    host->control().UserControl_InitProperties();
    host->face_->createWindow(host->handle(), {0, 0, inside.cx, inside.cy});
    host->face_->show(true);
    ShowWindow(host->handle(), SW_SHOW);
    SetForegroundWindow(host->handle());
    host->face_->takeFocus();
    return host;
}

FaceHostWindow::~FaceHostWindow() {
    face_.reset();
}

void FaceHostWindow::resizeInside(SIZE inside) const {
    SetWindowPos(handle(), nullptr, 0, 0, inside.cx, inside.cy, SWP_NOMOVE | SWP_NOZORDER);
}

std::optional<LRESULT> FaceHostWindow::onMessage(UINT message, WPARAM, LPARAM lParam) {
    switch (message) {
    case WM_SIZE:
        if (face_) {
            const RECT all = {0, 0, LOWORD(lParam), HIWORD(lParam)};
            face_->setPlace(all, all);
        }
        return 0;
    case WM_SETFOCUS:
        if (face_)
            face_->takeFocus();
        return 0;
    case EndFace:
        face_.reset();
        return 0;
    case WM_CLOSE:
        PostQuitMessage(0);
        return 0;
    default:
        return std::nullopt;
    }
}

bool pumpUntil(FaceHostWindow& host, const std::function<bool()>& done) {
    const ULONGLONG end = GetTickCount64() + LongestWait;
    for (;;) {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == WM_QUIT)
                return false;
            if (host.translateKey(message))
                continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        if (done())
            return true;
        if (GetTickCount64() > end)
            return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, Slice, QS_ALLINPUT);
    }
}

} // namespace pixmo::com
