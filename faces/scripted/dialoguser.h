#pragma once

#include "core/platform/dialog.h"

#include <string>

namespace pixmo::scripted {

/// Does in a described window what a user does in a face's. Parts are found by name or by text; one that is
/// missing, hidden or disabled is an error (std::logic_error).
class DialogUser {
public:
    /// The dialog outlives the object.
    explicit DialogUser(Dialog& dialog) : description_(dialog.describe()) {}

    const DialogDescription& window() const { return description_; }
    /// Title and all texts to read: "About Pixmo: Pixmo; Version 1.0.0".
    std::string texts() const;
    std::string text(const std::string& name) const { return find(name).textNow(); }
    bool isVisible(const std::string& name) const;
    bool isChosen(const std::string& name) const { return find(name).isChosen(); }

    void click(const std::string& name) const { usable(name).clicked(); }
    void type(const std::string& name, const std::string& text) const { usable(name).changed(text); }
    /// False: nothing happens on that key.
    bool press(int16_t keyCode, int16_t shift = 0) const;
    const DialogPart& find(const std::string& name) const;

private:
    const DialogPart& usable(const std::string& name) const;

    DialogDescription description_;
};

/// Tells what happens to it.
class SheetCanvas : public pixmo::SheetCanvas {
public:
    explicit SheetCanvas(std::function<std::unique_ptr<pixmo::PrinterDevice>()> makeDevice)
        : makeDevice_(std::move(makeDevice)) {}

    std::unique_ptr<pixmo::PrinterDevice> newSheet(const pixmo::PrinterDevice&, Size size) override {
        seen.push_back("new " + std::to_string(size.width) + "x" + std::to_string(size.height));
        return makeDevice_();
    }
    void showSheet() override { seen.emplace_back("shown"); }
    void say(const std::string& text) override { seen.push_back(text); }

    std::vector<std::string> seen;

private:
    std::function<std::unique_ptr<pixmo::PrinterDevice>()> makeDevice_;
};

} // namespace pixmo::scripted
