#include "faces/com/ports/messagebox.h"

#include "core/base/product.h"
#include "core/base/text.h"
#include "faces/com/base/dialogcloser.h"
#include "faces/com/base/widetext.h"

#include <algorithm>
#include <array>
#include <utility>

namespace pixmo::com {

namespace {

struct ButtonSet {
    UINT style;
    Answer safest;
};

/// In the order of Buttons. The default button is the safest one.
constexpr std::array<ButtonSet, 5> ButtonSets = {{{MB_OK, Answer::Ok},
                                                  {MB_OKCANCEL | MB_DEFBUTTON2, Answer::Cancel},
                                                  {MB_RETRYCANCEL | MB_DEFBUTTON2, Answer::Cancel},
                                                  {MB_ABORTRETRYIGNORE, Answer::Abort},
                                                  {MB_YESNO | MB_DEFBUTTON2, Answer::No}}};

/// In the order of Icon.
constexpr std::array<UINT, 5> Icons = {0, MB_ICONWARNING, MB_ICONERROR, MB_ICONINFORMATION, MB_ICONQUESTION};

Answer answerOf(int button, Answer otherwise) {
    constexpr std::array<std::pair<int, Answer>, 7> Answers = {{{IDOK, Answer::Ok},
                                                                {IDCANCEL, Answer::Cancel},
                                                                {IDABORT, Answer::Abort},
                                                                {IDRETRY, Answer::Retry},
                                                                {IDIGNORE, Answer::Ignore},
                                                                {IDYES, Answer::Yes},
                                                                {IDNO, Answer::No}}};
    for (const auto& [id, answer] : Answers)
        if (id == button)
            return answer;
    return otherwise;
}

/// A text of more lines would make a box higher than small screens.
std::string shortened(const std::string& text) {
    constexpr size_t MostLines = 20;
    size_t end = 0;
    for (size_t line = 0; line < MostLines; ++line) {
        end = text.find(LineBreak, end);
        if (end == std::string::npos)
            return text;
        end += LineBreak.size();
    }
    return text.substr(0, end) + "\u2026";
}

MessageBox::Stand& standIn() {
    static MessageBox::Stand instance;
    return instance;
}

int show(FaceLink& link, const std::wstring& text, const std::wstring& title, UINT style) {
    const DialogCloser closer(link);
    return MessageBoxW(closer.owner(), text.c_str(), title.c_str(),
                       style | (closer.owner() ? 0U : MB_TASKMODAL));
}

} // namespace

void MessageBox::setStandIn(Stand stand) {
    standIn() = std::move(stand);
}

Answer MessageBox::ask(const std::string& text, Buttons buttons, Icon icon, const std::string& title) {
    const ButtonSet& set = ButtonSets.at(static_cast<size_t>(buttons));
    if (!link_->host())
        return set.safest;
    const SharedFaceLink link = link_;
    const ModalScope scope(link);
    if (standIn())
        return standIn()(text, buttons, icon);
    return answerOf(show(*link, toWide(shortened(text)), toWide(title.empty() ? product::Title : title),
                         set.style | Icons.at(static_cast<size_t>(icon))),
                    set.safest);
}

} // namespace pixmo::com
