#include "faces/com/windows/savepagedialog.h"

#include "faces/com/base/dialogcloser.h"
#include "faces/com/base/widetext.h"

#include <array>
#include <commdlg.h>
#include <shlobj.h>
#include <string>

namespace pixmo::com {

namespace {

constexpr size_t MostCharacters = 1024;
/// By format, in its order: "PNG picture (*.png)" and "*.png", each ended by a zero.
std::wstring filters() {
    std::wstring texts;
    for (const dlgSavePage::Filter& filter : dlgSavePage::filters()) {
        std::wstring shown;
        std::wstring patterns;
        for (const char* pattern : filter.patterns) {
            shown.append(shown.empty() ? L"" : L", ").append(toWide(pattern));
            patterns.append(patterns.empty() ? L"" : L";").append(toWide(pattern));
        }
        texts.append(toWide(filter.name)).append(L" (").append(shown).append(L")").push_back(L'\0');
        texts.append(patterns).push_back(L'\0');
    }
    return texts;
}

/// Where the user keeps documents, when nothing else is known.
std::wstring usualFolder(const dlgSavePage& dialog) {
    if (!dialog.folder().empty())
        return toWide(dialog.folder());
    std::array<wchar_t, MAX_PATH> documents{};
    SHGetFolderPathW(nullptr, CSIDL_PERSONAL, nullptr, SHGFP_TYPE_CURRENT, documents.data());
    return documents.data();
}

} // namespace

std::optional<std::filesystem::path> askSavePage(dlgSavePage& dialog, FaceLink& link) {
    std::array<wchar_t, MostCharacters> file{};
    lstrcpynW(file.data(), toWide(dialog.suggestedFile()).c_str(), MostCharacters);
    const std::wstring folder = usualFolder(dialog);
    const std::wstring ending = toWide(dialog.ending());
    const std::wstring kinds = filters();
    const std::wstring title = toWide(dlgSavePage::Caption());
    const DialogCloser closer(link);
    OPENFILENAMEW ask{};
    ask.lStructSize = sizeof ask;
    ask.hwndOwner = closer.owner();
    ask.lpstrFilter = kinds.c_str();
    ask.nFilterIndex = static_cast<DWORD>(dialog.format()) + 1;
    ask.lpstrFile = file.data();
    ask.nMaxFile = MostCharacters;
    ask.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
    ask.lpstrTitle = title.c_str();
    ask.lpstrDefExt = ending.c_str();
    ask.Flags = OFN_EXPLORER | OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    if (!GetSaveFileNameW(&ask))
        return std::nullopt;
    dialog.setFormat(static_cast<dlgSavePage::Format>(ask.nFilterIndex - 1));
    const std::filesystem::path chosen = dialog.withEnding(file.data());
    dialog.cmdOK_Click(chosen);
    return chosen;
}

} // namespace pixmo::com
