#include "core/windows/dlglog.h"

#include "core/base/files.h"
#include "core/base/text.h"
#include "core/diag/settings.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace pixmo {

namespace {

constexpr Size LeastSize = {400, 200};

int32_t keptLength(const SettingsStore& settings, const setting::Setting& which) {
    constexpr double Least = 200;
    constexpr double Most = 10'000;
    const double kept = leadingNumber(settings.GetSetting(which.section, which.key, which.defaultValue));
    return static_cast<int32_t>(std::clamp(kept, Least, Most));
}

/// Well-formed, lines ended by LF alone.
std::string linesOf(const std::string& bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (size_t at = 0; at < bytes.size();)
        if (const char32_t character = nextCharacter(bytes, at); character != U'\r')
            appendCharacter(text, character);
    return text;
}

std::string utf8(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

} // namespace

dlgLog::dlgLog(std::filesystem::path path, SettingsStore& settings, Clipboard& clipboard)
    : path_(std::move(path)), settings_(settings), clipboard_(clipboard) {
    refresh();
    goToFind();
}

DialogDescription dlgLog::describe() {
    using enum DialogPart::Kind;
    constexpr int16_t Shift = 1;
    constexpr int16_t Ctrl = 2;
    constexpr int16_t F3 = 0x72;
    constexpr int16_t F5 = 0x74;
    const DialogPart header{.kind = Label,
                            .name = "lblPath",
                            .text = path_.empty() ? "No log file" : utf8(path_),
                            .spoken = "Log file",
                            .isCut = true,
                            .isCopied = true};
    const DialogPart lines{.kind = ScrolledText,
                           .name = "txtLog",
                           .spoken = "Last lines of the log",
                           .stretches = true,
                           .shown = [this] { return text_; },
                           .selection = [this] { return selection_; },
                           .selected = [this](TextRange range) { select(range); }};
    return {.name = "dlgLog",
            .title = "Log",
            .content = {.kind = Column, .parts = {header, search(), lines, buttons()}},
            .keys = {{'F', Ctrl, [this] { goToFind(); }},
                     {F3, 0, [this] { find(false); }},
                     {F3, Shift, [this] { find(true); }},
                     {F5, 0, [this] { refresh(); }}},
            .size = DialogSize{keptSize(), LeastSize, [this](Size size) { keepSize(size); }}};
}

DialogPart dlgLog::search() {
    using enum DialogPart::Kind;
    constexpr int32_t MessageWidth = 9; // characters
    const DialogPart box{.kind = Text,
                         .name = "txtFind",
                         .spoken = "Text to find in the log",
                         .stretches = true,
                         .shown = [this] { return wanted_; },
                         .changed = [this](const std::string& text) { txtFind_Change(text); }};
    const DialogPart found{
        .kind = Label, .name = "lblFound", .width = MessageWidth, .shown = [this] { return found_; }};
    return {
        .kind = Row,
        .parts = {{.kind = Label, .text = "&Find:"},
                  box,
                  found,
                  {.kind = Button, .text = "&Next", .isDefault = true, .clicked = [this] { find(false); }},
                  {.kind = Button, .text = "&Previous", .clicked = [this] { find(true); }}}};
}

DialogPart dlgLog::buttons() {
    using enum DialogPart::Kind;
    return {
        .kind = Buttons,
        .parts = {{.kind = Button, .text = "&Copy", .clicked = [this] { cmdCopy_Click(); }},
                  {.kind = Button, .text = "&Refresh", .clicked = [this] { refresh(); }},
                  {.kind = Button, .text = "Close", .meaning = DialogPart::Meaning::Close, .clicked = [this] {
                       cancel();
                   }}}};
}

Size dlgLog::keptSize() const {
    return {keptLength(settings_, setting::LogWidth), keptLength(settings_, setting::LogHeight)};
}

void dlgLog::keepSize(Size size) {
    const auto keep = [this](const setting::Setting& which, int32_t length) {
        settings_.SaveSetting(which.section, which.key, std::to_string(length));
    };
    keep(setting::LogWidth, size.width);
    keep(setting::LogHeight, size.height);
}

void dlgLog::refresh() {
    if (path_.empty() || !fileExists(path_)) {
        text_ = path_.empty() ? "No log is written." : "There is no log file yet.";
    } else {
        const auto size = std::filesystem::file_size(path_);
        std::ifstream file(path_, std::ios::binary);
        if (size > TailBytes)
            file.seekg(static_cast<std::streamoff>(size - TailBytes));
        text_ = linesOf({std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()});
        // The first line of a tail is rarely whole.
        if (size > TailBytes)
            text_.erase(0, text_.find('\n') + 1);
    }
    folded_ = foldCase(text_);
    selection_ = {text_.size(), text_.size()};
}

void dlgLog::select(TextRange range) {
    const size_t end = std::min(range.end, text_.size());
    selection_ = {std::min(range.begin, end), end};
}

void dlgLog::find(bool backward) {
    const std::string wanted = foldCase(wanted_);
    if (wanted.empty())
        return;
    constexpr size_t None = std::string::npos;
    size_t at = None;
    if (!backward)
        at = folded_.find(wanted, selection_.end);
    else if (selection_.begin > 0)
        at = folded_.rfind(wanted, selection_.begin - 1);
    if (at == None)
        at = backward ? folded_.rfind(wanted) : folded_.find(wanted);
    found_ = at == None ? "Not found" : "";
    if (at != None)
        selection_ = {at, at + wanted.size()};
}

void dlgLog::cmdCopy_Click() {
    const size_t length = selection_.end - selection_.begin;
    clipboard_.setText(length > 0 ? text_.substr(selection_.begin, length) : text_);
}

} // namespace pixmo
