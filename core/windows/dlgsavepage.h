#pragma once

#include "core/platform/settingsstore.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace pixmo {

/// Asks where to save a page: remembers folder and format, and knows the endings.
class dlgSavePage {
public:
    enum class Format : uint8_t { Tiff, Png };
    /// What the user may choose among, in the order of Format.
    struct Filter {
        const char* name;
        std::vector<const char*> patterns;
    };
    static std::vector<Filter> filters();
    static const char* Caption() { return "Save Page As"; }

    /// The name has no ending. The settings outlive the window.
    dlgSavePage(std::string suggestedName, SettingsStore& settings);

    /// UTF-8; "" when none was kept.
    const std::string& folder() const { return folder_; }
    Format format() const { return format_; }
    void setFormat(Format format) { format_ = format; }
    /// With the ending of the format.
    std::string suggestedFile() const { return suggestedName_ + '.' + ending(); }
    /// "tif" or "png"
    const char* ending() const { return format_ == Format::Png ? "png" : "tif"; }
    /// The same file with an ending that names a format: its own, or the format's behind any other.
    std::filesystem::path withEnding(const std::filesystem::path& chosen) const;
    /// Keeps folder and format of what was chosen for the next time.
    void cmdOK_Click(const std::filesystem::path& chosen);

private:
    std::string suggestedName_;
    SettingsStore& settings_;
    std::string folder_;
    Format format_ = Format::Tiff;
};

} // namespace pixmo
