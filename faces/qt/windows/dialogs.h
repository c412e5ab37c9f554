#pragma once

#include "core/platform/dialogs.h"
#include "faces/qt/ports/facelink.h"

#include <utility>

namespace pixmo::qt {

/// The control's windows over its widget, or over the one of them that stands already.
class Dialogs : public pixmo::Dialogs {
public:
    explicit Dialogs(SharedFaceLink link) : link_(std::move(link)) {}

    void showModal(Dialog& dialog) override;
    std::optional<std::filesystem::path> askSavePath(dlgSavePage& dialog) override;

private:
    SharedFaceLink link_;
};

} // namespace pixmo::qt
