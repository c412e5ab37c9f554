#include "core/diag/cutilities.h"

#include "core/base/text.h"

#include <algorithm>
#include <array>
#include <system_error>
#include <utility>

namespace pixmo {

namespace {

constexpr std::array<const char*, 17> StatusNames = {"Error",
                                                     "FindingResource",
                                                     "Connecting",
                                                     "Redirecting",
                                                     "BeginDownloadData",
                                                     "DownloadingData",
                                                     "EndDownloadData",
                                                     nullptr,
                                                     nullptr,
                                                     nullptr,
                                                     "UsingCachedCopy",
                                                     "SendingRequest",
                                                     nullptr,
                                                     "MIMETypeAvailable",
                                                     "CacheFileNameAvailable",
                                                     "BeginSyncOperation",
                                                     "EndSyncOperation"};

constexpr std::array<const char*, 3> AsyncTypeNames = {"vbAsyncTypePicture", "vbAsyncTypeFile",
                                                       "vbAsyncTypeByteArray"};

template <size_t Size>
std::string nameOf(const std::array<const char*, Size>& names, int32_t code, const char* unknown) {
    const bool known = code >= 0 && static_cast<size_t>(code) < Size && names[static_cast<size_t>(code)];
    return known ? names[static_cast<size_t>(code)] : unknown + std::to_string(code);
}

} // namespace

cErrObject& cUtilities::ERRR() {
    if (!errorObject_) {
        ownErrorObject_ = std::make_unique<cErrObject>();
        errorObject_ = ownErrorObject_.get();
    }
    return *errorObject_;
}

void cUtilities::setERRR(cErrObject* errorObject) {
    errorObject_ = errorObject;
    ownErrorObject_.reset();
}

std::string cUtilities::ask(std::string (Identity::*question)() const, const char* procedure) {
    try {
        return identity_ ? (identity_->*question)() : std::string();
    } catch (...) {
        ERRR().Push(std::string("cUtilities.") + procedure, true);
        return {};
    }
}

std::string cUtilities::GetNTLogin() {
    return ask(&Identity::userName, "GetNTLogin");
}

std::string cUtilities::GetWorkstationID() {
    return ask(&Identity::computerName, "GetWorkstationID");
}

bool cUtilities::ElementExists(const std::vector<std::string>& container, std::string_view item) {
    return std::find(container.begin(), container.end(), item) != container.end();
}

bool cUtilities::ElementExists(const Collection& container, std::string_view key) {
    return container.contains(key);
}

float cUtilities::GetFileSize(const std::filesystem::path& path) {
    std::error_code problem;
    const auto bytes = std::filesystem::file_size(path, problem);
    return problem ? 0.0F : static_cast<float>(static_cast<double>(bytes) / 1024.0);
}

std::string cUtilities::StatusCodeToText(int32_t code) {
    return nameOf(StatusNames, code, "UNKNOWN STATUS CODE: ");
}

std::string cUtilities::AsyncTypeToText(int32_t type) {
    return nameOf(AsyncTypeNames, type, "UNKWOWN ASYNCTYPE: ");
}

ToolButton& cUtilities::AddToolButton(Toolbar& toolbar, const std::string& key, const std::string& toolTip,
                                      const std::string& description, ButtonStyle style) {
    ToolButton button;
    button.Key = key;
    button.ToolTipText = toolTip;
    button.Description = description;
    button.Style = style;
    button.Enabled = false;
    return toolbar.Buttons.emplace_back(std::move(button));
}

void cUtilities::SetToolBarStyle(Toolbar& toolbar, const ImageList* first, const ImageList* second,
                                 bool largeButtons, bool captions) {
    toolbar.Images = largeButtons ? second : first;
    for (ToolButton& button : toolbar.Buttons) {
        if (button.Style == ButtonStyle::Separator || button.Style == ButtonStyle::Placeholder)
            continue;
        if (toolbar.Images)
            button.Image = button.Key;
        button.Caption = captions ? button.Description : std::string();
    }
}

bool cUtilities::ButtonExists(const Toolbar& toolbar, std::string_view key) {
    return toolbar.find(key) != nullptr;
}

std::string cUtilities::PadString(std::string_view text, int16_t width, std::string_view padCharacter) {
    std::string padded(trimBlanks(text));
    const auto length = static_cast<int32_t>(characterCount(padded));
    const std::string pad = firstCharacter(padCharacter);
    for (int32_t missing = width - length; missing > 0; --missing)
        padded += pad;
    return padded;
}

} // namespace pixmo
