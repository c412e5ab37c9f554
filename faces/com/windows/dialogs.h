#pragma once

#include "core/platform/dialogs.h"
#include "core/platform/settingsstore.h"
#include "faces/com/base/facelink.h"

#include <memory>

namespace pixmo::com {

/// The control's small windows over the host's. When the face ends while one stands, it is cancelled.
class Dialogs : public pixmo::Dialogs {
public:
    Dialogs(SharedFaceLink link, std::shared_ptr<SettingsStore> settings)
        : link_(std::move(link)), settings_(std::move(settings)) {}

    void showModal(dlgGotoPage& dialog) override;
    void showModal(dlgAbout& dialog) override;
    void showModal(dlgLog& dialog) override;
    std::optional<std::filesystem::path> askSavePath(const std::string& suggestedName) override;

private:
    SharedFaceLink link_;
    std::shared_ptr<SettingsStore> settings_;
};

} // namespace pixmo::com
