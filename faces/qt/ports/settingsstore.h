#pragma once

#include "core/platform/settingsstore.h"

namespace pixmo::qt {

/// The user's ini file, on Linux ~/.config/QuorvisImaging/Pixmo.ini; sections are groups of it.
class SettingsStore : public pixmo::SettingsStore {
public:
    std::string GetSetting(const std::string& section, const std::string& key,
                           const std::string& defaultValue) const override;
    void SaveSetting(const std::string& section, const std::string& key, const std::string& value) override;
};

} // namespace pixmo::qt
