#pragma once

#include "apps/windows/form/placedcontrol.h"
#include "apps/windows/viewer/viewerevents.h"

#include <functional>
#include <memory>
#include <string>
#include <windows.h>

namespace pixmo::viewer {

/// The program's one window: menu, address and document on top, the control below, a status line.
class ViewerWindow {
public:
    /// Throws when the window or the control cannot be made.
    ViewerWindow();
    ~ViewerWindow();
    ViewerWindow(const ViewerWindow&) = delete;
    ViewerWindow& operator=(const ViewerWindow&) = delete;

    HWND handle() const { return window_; }
    void setAddress(const std::wstring& address);
    void open(int document, int page);
    /// The document that the control has announced last; 0 while it shows none.
    int shownDocument() const { return shownDocument_; }
    /// To be asked before a message is translated.
    bool translate(MSG& message);

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    LRESULT handle(UINT message, WPARAM first, LPARAM second);
    void makeFields();
    void placeControl();
    void layOut();
    void command(int id);
    void openTyped();
    void pageChanged(int document, int page);
    RECT controlPlace() const;
    std::wstring textOf(HWND field) const;

    HWND window_ = nullptr;
    HWND address_ = nullptr;
    HWND document_ = nullptr;
    HWND openButton_ = nullptr;
    HWND status_ = nullptr;
    HFONT font_ = nullptr;
    int shownDocument_ = 0;
    std::unique_ptr<form::PlacedControl> control_;
    ViewerEvents events_;
};

} // namespace pixmo::viewer
