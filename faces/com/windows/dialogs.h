#pragma once

#include "core/platform/dialogs.h"
#include "faces/com/base/facelink.h"

#include <utility>

namespace pixmo::com {

/// The control's windows over the host's. When the face ends while one stands, it is cancelled.
class Dialogs : public pixmo::Dialogs {
public:
    explicit Dialogs(SharedFaceLink link) : link_(std::move(link)) {}

    void showModal(Dialog& dialog) override;
    std::optional<std::filesystem::path> askSavePath(dlgSavePage& dialog) override;

private:
    SharedFaceLink link_;
};

} // namespace pixmo::com
