#pragma once

#include "core/platform/dialogs.h"
#include "faces/qt/ports/facelink.h"

namespace pixmo::qt {

/// The control's small windows over its widget. When the widget ends while one stands, it is cancelled.
class Dialogs : public pixmo::Dialogs {
public:
    explicit Dialogs(SharedFaceLink link) : link_(std::move(link)) {}

    void showModal(dlgGotoPage& dialog) override;
    void showModal(dlgAbout& dialog) override;
    void showModal(dlgLog& dialog) override;
    std::optional<std::filesystem::path> askSavePath(const std::string& suggestedName) override;

private:
    SharedFaceLink link_;
};

} // namespace pixmo::qt
