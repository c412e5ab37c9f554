#pragma once

#include <string>

namespace pixmo {

/// Port: texts kept for the user from run to run, under the program's application name.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    virtual std::string GetSetting(const std::string& section, const std::string& key,
                                   const std::string& defaultValue) const = 0;
    virtual void SaveSetting(const std::string& section, const std::string& key,
                             const std::string& value) = 0;
};

} // namespace pixmo
