#pragma once

#include "core/platform/dialog.h"
#include "faces/com/base/gdi.h"
#include "faces/com/printing/sheetview.h"
#include "faces/com/windows/dialoglayout.h"
#include "faces/com/windows/modaldialog.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace pixmo::com {

/// The window of a described Dialog, of the system's own controls: shows its state, forwards what the user
/// does.
class DialogWindow : public ModalDialog {
public:
    /// The dialog outlives the window.
    explicit DialogWindow(Dialog& dialog);
    ~DialogWindow() override;

    /// "dlgGotoPage"
    const std::string& name() const { return description_.name; }
    /// The control of that name, nullptr when there is none.
    HWND field(const std::string& name) const;
    std::string nameOf(HWND control) const;

protected:
    void onInit() override;
    bool onCommand(WORD id, WORD code) override;
    void onResize(SIZE) override;
    bool onKey(const MSG& message) override;
    std::optional<INT_PTR> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void onClose() override;

private:
    DialogWindow(Dialog& dialog, DialogDescription description);

    using Keypress = std::function<int16_t(int16_t)>;
    struct Filter {
        WNDPROC usual;
        Keypress keyPress;
    };

    // The controls, in the order of Tab.
    void add(DialogPart& part);
    WORD add(const DialogPart& part, const wchar_t* className, DWORD style, DWORD exStyle = 0);
    void addLabel(const DialogPart& part);
    void addText(const DialogPart& part, DWORD style);
    void prepare(const DialogPart& part, WORD id);
    void fillList(const DialogPart& part, WORD id) const;
    void filterKeys(const DialogPart& part, WORD id);
    static LRESULT CALLBACK filteredProcedure(HWND handle, UINT message, WPARAM wParam,
                                              LPARAM lParam) noexcept;

    // Where they stand.
    DialogLayout layOut() const;
    SIZE fieldSize(const DialogPart& part) const;
    /// The room that a text takes in lines of that width, or in a single line for width 0, in device pixels.
    static SIZE sizeOf(const std::wstring& text, HFONT font, LONG width);
    HFONT font() const { return reinterpret_cast<HFONT>(SendMessageW(handle(), WM_GETFONT, 0, 0)); }
    void put(const DialogPart& part, const RECT* place) const;
    void fitWindow() const;
    void place();

    // What is in them.
    const DialogPart* partOf(WORD id) const;
    WORD idOf(const DialogPart& part) const { return ids_.at(&part); }
    bool answerField(const DialogPart& part, WORD id, WORD code);
    void act(const std::function<void()>& handler);
    void reportSelection() const;
    void mirror();
    void mirror(const DialogPart& part, WORD id);
    void showSelection(const DialogPart& part, WORD id) const;
    void selectEntries(const DialogPart& part, WORD id) const;
    void takeFocus();

    Dialog& dialog_;
    DialogDescription description_;
    size_t connection_;
    std::map<const DialogPart*, WORD> ids_;
    std::map<WORD, std::string> shown_; ///< the texts of scrolled fields, as the core has them
    std::vector<std::unique_ptr<Filter>> filters_;
    std::unique_ptr<SheetView> sheet_;
    bool wasOption_ = false;
    bool mirroring_ = false;
    IconHandle icon_;
    FontHandle headingFont_;
    FontHandle fixedFont_;
};

} // namespace pixmo::com
