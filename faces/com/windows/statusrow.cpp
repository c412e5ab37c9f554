#include "faces/com/windows/statusrow.h"

#include "core/base/partnames.h"
#include "faces/com/base/widetext.h"
#include "faces/com/base/window.h"
#include "faces/com/windows/dpi.h"
#include "faces/com/windows/fonts.h"

#include <algorithm>
#include <utility>

namespace pixmo::com {

namespace {

void showText(HWND window, std::wstring& shown, std::wstring text) {
    if (shown == text)
        return;
    shown = std::move(text);
    SetWindowTextW(window, shown.c_str());
}

/// A text that did not fit before is drawn anew as a whole.
void move(HWND window, const Rectangle& box, POINT origin) {
    RECT present{};
    GetClientRect(window, &present);
    const bool sameSize = present.right == box.width && present.bottom == box.height;
    SetWindowPos(window, nullptr, origin.x + box.left, origin.y + box.top, box.width, box.height,
                 SWP_NOZORDER | SWP_NOACTIVATE | (sameSize ? 0U : SWP_NOCOPYBITS));
}

} // namespace

StatusRow::StatusRow(HWND parent, bool mirrored)
    : mirrored_(mirrored), readOut_(makeText(parent, mirrored ? SS_RIGHT : SS_LEFT)),
      status_(makeText(parent, (mirrored ? SS_RIGHT : SS_LEFT) | SS_NOTIFY)),
      zoom_(makeText(parent, mirrored ? SS_LEFT : SS_RIGHT)) {
    const CommonControls::Scope scope(*controls_);
    progress_ =
        CreateWindowExW(mirrored ? WS_EX_LAYOUTRTL : 0, PROGRESS_CLASSW, toWide(part_name::Progress).c_str(),
                        WS_CHILD | PBS_SMOOTH, 0, 0, 0, 0, parent, nullptr, thisModule(), nullptr);
    tip_.make(status_);
}

HWND StatusRow::makeText(HWND parent, DWORD style) const {
    const CommonControls::Scope scope(*controls_);
    return CreateWindowExW(0, L"STATIC", L"",
                           WS_CHILD | WS_VISIBLE | SS_NOPREFIX | SS_CENTERIMAGE | SS_ENDELLIPSIS | style, 0,
                           0, 0, 0, parent, nullptr, thisModule(), nullptr);
}

void StatusRow::mirror(const ImageView& control) {
    showText(readOut_, readOutText_, toWide(control.txtPage()));
    std::wstring text = toWide(control.statusText());
    if (text != statusText_) {
        showText(status_, statusText_, std::move(text));
        showTip();
    }
    mirrorZoom(control);
    progressPercent_ = control.progressPercent();
    SendMessageW(progress_, PBM_SETPOS, static_cast<WPARAM>(std::max(progressPercent_, 0)), 0);
}

bool StatusRow::mirrorZoom(const ImageView& control) {
    const size_t before = zoomText_.size();
    showText(zoom_, zoomText_, toWide(control.zoomText()));
    return zoomText_.size() != before;
}

void StatusRow::setFont(HFONT font, int dpi) {
    font_ = font;
    dpi_ = dpi;
    for (const HWND window : {readOut_, status_, zoom_})
        SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    tip_.setResolution(dpi);
}

void StatusRow::measure(LayoutMeasures& measures) const {
    const SIZE readOut = textSize(font_, readOutText_);
    measures.textHeight = readOut.cy;
    measures.readOutWidth = readOut.cx;
    measures.zoomWidth = textSize(font_, zoomText_).cx;
    measures.progressShown = progressPercent_ >= 0;
    measures.fromRight = mirrored_;
    measures.scale = static_cast<double>(dpi_) / UsualDpi;
}

void StatusRow::place(const ControlLayout& layout, POINT origin) {
    move(readOut_, layout.readOut, origin);
    move(status_, layout.status, origin);
    move(zoom_, layout.zoom, origin);
    move(progress_, layout.progress, origin);
    ShowWindow(progress_, layout.progress.empty() ? SW_HIDE : SW_SHOWNA);
    showTip();
}

/// The whole text where it does not fit.
void StatusRow::showTip() {
    RECT room{};
    GetClientRect(status_, &room);
    const bool fits = textSize(font_, statusText_).cx <= room.right;
    tip_.setText(fits ? std::wstring() : statusText_);
}

} // namespace pixmo::com
