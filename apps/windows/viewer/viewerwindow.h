#pragma once

#include "apps/windows/form/eventsink.h"
#include "apps/windows/form/placedcontrol.h"
#include "faces/com/base/gdi.h"
#include "faces/com/windows/programicon.h"

#include <functional>
#include <memory>
#include <string>
#include <windows.h>

namespace pixmo::viewer {

/// Where the control is found: beside the program by its manifest, or where it is registered.
enum class Source { Neighbour, Registry };

/// The program's one window: menu, address and document on top, the control below, a status line.
class ViewerWindow {
public:
    /// Throws when the window or the control cannot be made.
    explicit ViewerWindow(Source source);
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
    /// The one of the window's screen.
    void takeFont();
    void placeControl(Source source);
    void layOut();
    void command(int id);
    void openTyped();
    void pageChanged(int document, int page);
    RECT controlPlace() const;
    int fieldHeight() const;
    int scaled(int length) const;
    std::wstring textOf(HWND field) const;

    HWND window_ = nullptr;
    HWND address_ = nullptr;
    HWND document_ = nullptr;
    HWND openButton_ = nullptr;
    HWND status_ = nullptr;
    com::FontHandle font_;
    com::WindowIcons icons_;
    int shownDocument_ = 0;
    std::unique_ptr<form::PlacedControl> control_;
    form::EventConnection events_;
};

} // namespace pixmo::viewer
