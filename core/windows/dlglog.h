#pragma once

#include "core/platform/clipboard.h"
#include "core/platform/dialog.h"
#include "core/platform/settingsstore.h"

#include <cstddef>
#include <filesystem>
#include <string>

namespace pixmo {

/// The window with the tail of the log, which can be searched and copied.
class dlgLog : public Dialog {
public:
    static constexpr size_t TailBytes = size_t{512} * 1024;

    /// Settings and clipboard outlive the window. An empty path: no log is written.
    dlgLog(std::filesystem::path path, SettingsStore& settings, Clipboard& clipboard);

    DialogDescription describe() override;

    const std::filesystem::path& path() const { return path_; }
    /// Reads the last lines anew and goes to their end; the text says so when there is no log.
    void refresh();
    /// Lines end in LF.
    const std::string& text() const { return text_; }

    void txtFind_Change(const std::string& text) { wanted_ = text; }
    /// The next place, before or behind the selection, of what is wanted, whatever the case of its letters;
    /// goes on at the other end of the text.
    void find(bool backward);
    const std::string& lblFound() const { return found_; }
    TextRange selection() const { return selection_; }
    void select(TextRange range);
    /// What is selected, else all.
    void cmdCopy_Click();
    void goToFind() { setFocus("txtFind"); }

private:
    DialogPart search();
    DialogPart buttons();
    Size keptSize() const;
    void keepSize(Size size);

    std::filesystem::path path_;
    SettingsStore& settings_;
    Clipboard& clipboard_;
    std::string text_;
    std::string folded_; ///< the text without difference of case; its places are those of the text
    std::string wanted_;
    std::string found_;
    TextRange selection_;
};

} // namespace pixmo
