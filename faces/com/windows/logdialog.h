#pragma once

#include "core/platform/settingsstore.h"
#include "faces/com/windows/gdi.h"
#include "faces/com/windows/modaldialog.h"

#include <string>

namespace pixmo {
class dlgLog;
}

namespace pixmo::com {

/// The window of dlgLog: the end of the log, with search.
class LogDialog : public ModalDialog {
public:
    /// Of its controls.
    enum Id : WORD { Path = 100, FindLabel, Search, Found, Next, Previous, Text, Copy, Refresh };

    /// Both outlive the window.
    LogDialog(dlgLog& dialog, SettingsStore& settings);

protected:
    void onInit() override;
    bool onCommand(WORD id, WORD code) override;
    void onResize(SIZE size) override;
    bool onKey(const MSG& message) override;
    std::optional<INT_PTR> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void onClose() override;

private:
    void restoreSize();
    void refresh();
    void copy();
    /// Goes on at the other end of the text.
    void find(bool backward);
    void select(size_t from, size_t length);

    dlgLog& dialog_;
    SettingsStore& settings_;
    FontHandle font_;
    std::wstring folded_; ///< the text shown, without difference of case
};

} // namespace pixmo::com
