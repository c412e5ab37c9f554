#pragma once

#include "faces/com/windows/commoncontrols.h"

#include <memory>
#include <string>
#include <windows.h>

namespace pixmo::com {

/// What a pointer that rests over a window is told. Ends with the window's parent.
class Tip {
public:
    void make(HWND window);
    /// "" for nothing to tell.
    void setText(const std::wstring& text);
    /// One that is shown goes: it was about something else.
    void hide() const { SendMessageW(tip_, TTM_POP, 0, 0); }
    /// Longer texts than this resolution's usual width are broken into lines.
    void setResolution(int dpi) const;

private:
    void send(UINT message, std::wstring text) const;

    std::shared_ptr<CommonControls> controls_ = CommonControls::share();
    HWND window_ = nullptr;
    HWND tip_ = nullptr;
};

} // namespace pixmo::com
