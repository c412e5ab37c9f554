#include "faces/com/ports/messagebox.h"

#include "core/base/product.h"
#include "faces/com/base/dialogcloser.h"
#include "faces/com/base/widetext.h"

#include <array>
#include <utility>

namespace pixmo::com {

namespace {

/// In the order of Buttons. The default button is the safest one.
constexpr std::array<UINT, 5> ButtonSets = {MB_OK, MB_OKCANCEL | MB_DEFBUTTON2,
                                            MB_RETRYCANCEL | MB_DEFBUTTON2, MB_ABORTRETRYIGNORE,
                                            MB_YESNO | MB_DEFBUTTON2};

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
    if (!link_->host())
        return safestAnswer(buttons);
    const SharedFaceLink link = link_;
    const ModalScope scope(link);
    if (standIn())
        return standIn()(text, buttons, icon);
    const UINT style = ButtonSets.at(static_cast<size_t>(buttons)) | Icons.at(static_cast<size_t>(icon));
    return answerOf(
        show(*link, toWide(shortenedText(text)), toWide(title.empty() ? product::Title : title), style),
        safestAnswer(buttons));
}

} // namespace pixmo::com
