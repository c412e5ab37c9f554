#pragma once

#include "faces/com/base/variant.h"

#include <functional>
#include <string>
#include <vector>
#include <windows.h>

namespace pixmo::com {

/// The window of the property page: a row for each setting, with a field, a list or a box to check.
class PropertyPageWindow {
public:
    /// `changed` hears of every change by the user.
    explicit PropertyPageWindow(std::function<void()> changed) : changed_(std::move(changed)) {}
    ~PropertyPageWindow() { destroy(); }
    PropertyPageWindow(const PropertyPageWindow&) = delete;
    PropertyPageWindow& operator=(const PropertyPageWindow&) = delete;

    /// What the page takes on the user's screen, in pixels.
    static SIZE size();

    /// Null when the system refuses.
    HWND create(HWND parent, const RECT& place);
    void destroy();
    HWND window() const { return window_; }

    /// Shows the object's values; nothing counts as changed then.
    void show(IDispatch& object);
    /// Gives the object what the user has changed. Throws what the object answers.
    void applyTo(IDispatch& object) const;
    bool isDirty() const { return dirty_; }
    void setClean();

private:
    struct Field {
        HWND window = nullptr;
        bool dirty = false;
    };

    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    void makeFields();
    void makeRow(size_t row);
    HWND child(const wchar_t* kind, const wchar_t* text, DWORD style, const RECT& place, int id) const;
    RECT place(int left, int top, int width, int height) const;
    void fieldChanged(int id, int notification);
    std::wstring textOf(size_t row) const;
    void showValue(size_t row, const Variant& value);

    std::function<void()> changed_;
    HWND window_ = nullptr;
    std::vector<Field> fields_;
    bool dirty_ = false;
    bool filling_ = false;
};

} // namespace pixmo::com
