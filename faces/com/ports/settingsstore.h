#pragma once

#include "core/platform/settingsstore.h"

namespace pixmo::com {

/// The user's part of the registry, where programs of the host runtime keep theirs.
class SettingsStore : public pixmo::SettingsStore {
public:
    std::string GetSetting(const std::string& section, const std::string& key,
                           const std::string& defaultValue) const override;
    /// Throws path/file access (75).
    void SaveSetting(const std::string& section, const std::string& key, const std::string& value) override;
};

} // namespace pixmo::com
