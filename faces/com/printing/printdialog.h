#pragma once

#include "core/printing/dlgprint.h"
#include "faces/com/windows/modaldialog.h"

namespace pixmo::com {

/// The window of a dlgPrint: shows its state, forwards what the user does.
class PrintDialog : public ModalDialog {
public:
    /// The state outlives the window.
    explicit PrintDialog(dlgPrint& state);
    ~PrintDialog() override;

protected:
    void onInit() override;
    bool onCommand(WORD id, WORD code) override;
    void onClose() override;

private:
    void addButtons();
    void addFrame(const wchar_t* caption, WORD id, const DialogTemplate::Place& place);
    void addRange();
    void addSize();
    void addCopies();
    void fillList() const;
    bool onButton(WORD id);
    void onListChanged();
    void onTyped(WORD id);
    void mirror();
    void mirrorOptions() const;
    void showMore(bool shown);

    dlgPrint& state_;
    size_t connection_;
    bool mirroring_ = false;
    LONG fullHeight_ = 0;
};

} // namespace pixmo::com
