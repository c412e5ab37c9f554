#pragma once

#include <memory>
#include <string>
#include <windows.h>

namespace pixmo::com {

/// What assistive programs ask of a window that paints its contents itself. Child 0 is the window, its items
/// count from 1. Places are on the screen.
class AccessibleSource {
public:
    virtual ~AccessibleSource() = default;

    virtual std::wstring accessibleName(LONG child) const = 0;
    virtual std::wstring accessibleDescription(LONG) const { return {}; }
    virtual LONG accessibleRole(LONG child) const = 0;  ///< ROLE_SYSTEM_...
    virtual LONG accessibleState(LONG child) const = 0; ///< STATE_SYSTEM_...
    virtual LONG accessibleCount() const { return 0; }
    virtual RECT accessiblePlace(LONG) const { return {}; }
    virtual LONG accessibleChildAt(POINT) const { return 0; }
    virtual LONG accessibleFocus() const { return 0; }
    /// What a double click does; "" for nothing.
    virtual std::wstring accessibleAction(LONG) const { return {}; }
    virtual void doAccessibleAction(LONG) {}
    virtual void selectAccessible(LONG, bool) {}
};

/// The answer to WM_GETOBJECT for the client area; 0 when another object is asked for. The source may end
/// before the answer does.
LRESULT answerGetObject(HWND window, const std::shared_ptr<AccessibleSource>& source, WPARAM wParam,
                        LPARAM lParam);

} // namespace pixmo::com
