#include "core/windows/dlgsavepage.h"

#include "core/base/text.h"
#include "core/diag/settings.h"

#include <utility>

namespace pixmo {

namespace {

std::string utf8(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

bool isPng(const std::filesystem::path& path) {
    return equalIgnoringCase(utf8(path.extension()), ".png");
}

bool isTiff(const std::filesystem::path& path) {
    const std::string ending = utf8(path.extension());
    return equalIgnoringCase(ending, ".tif") || equalIgnoringCase(ending, ".tiff");
}

} // namespace

dlgSavePage::dlgSavePage(std::string suggestedName, SettingsStore& settings)
    : suggestedName_(std::move(suggestedName)), settings_(settings) {
    const auto kept = [this](const setting::Setting& which) {
        return settings_.GetSetting(which.section, which.key, which.defaultValue);
    };
    folder_ = kept(setting::SavePageFolder);
    format_ = kept(setting::SavePageFormat) == "png" ? Format::Png : Format::Tiff;
}

std::vector<dlgSavePage::Filter> dlgSavePage::filters() {
    return {{"TIFF picture", {"*.tif", "*.tiff"}}, {"PNG picture", {"*.png"}}};
}

std::filesystem::path dlgSavePage::withEnding(const std::filesystem::path& chosen) const {
    if (isPng(chosen) || isTiff(chosen))
        return chosen;
    std::filesystem::path path = chosen;
    return path += std::string(".") + ending();
}

void dlgSavePage::cmdOK_Click(const std::filesystem::path& chosen) {
    setFormat(isPng(chosen) ? Format::Png : Format::Tiff);
    folder_ = utf8(chosen.parent_path());
    settings_.SaveSetting(setting::SavePageFolder.section, setting::SavePageFolder.key, folder_);
    settings_.SaveSetting(setting::SavePageFormat.section, setting::SavePageFormat.key, ending());
}

} // namespace pixmo
