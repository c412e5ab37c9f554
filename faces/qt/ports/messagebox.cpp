#include "faces/qt/ports/messagebox.h"

#include "core/base/product.h"
#include "faces/qt/ports/texts.h"

#include <QMessageBox>
#include <QPointer>
#include <algorithm>
#include <array>
#include <cstdio>

namespace pixmo::qt {

namespace {

using Box = QMessageBox;

constexpr std::array<std::pair<Box::StandardButton, Answer>, 7> Answers = {{{Box::Ok, Answer::Ok},
                                                                            {Box::Cancel, Answer::Cancel},
                                                                            {Box::Abort, Answer::Abort},
                                                                            {Box::Retry, Answer::Retry},
                                                                            {Box::Ignore, Answer::Ignore},
                                                                            {Box::Yes, Answer::Yes},
                                                                            {Box::No, Answer::No}}};

Box::StandardButtons buttonsOf(Buttons buttons) {
    switch (buttons) {
    case Buttons::OkCancel:
        return Box::Ok | Box::Cancel;
    case Buttons::RetryCancel:
        return Box::Retry | Box::Cancel;
    case Buttons::AbortRetryIgnore:
        return Box::Abort | Box::Retry | Box::Ignore;
    case Buttons::YesNo:
        return Box::Yes | Box::No;
    case Buttons::Ok:
        break;
    }
    return Box::Ok;
}

Box::StandardButton buttonOf(Answer answer) {
    const auto* const found = std::find_if(Answers.begin(), Answers.end(),
                                           [answer](const auto& row) { return row.second == answer; });
    return found->first;
}

Answer answerOf(int button, Answer otherwise) {
    for (const auto& [standard, answer] : Answers)
        if (standard == button)
            return answer;
    return otherwise;
}

QMessageBox::Icon iconOf(Icon icon) {
    switch (icon) {
    case Icon::Exclamation:
        return QMessageBox::Warning;
    case Icon::Critical:
        return QMessageBox::Critical;
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::Question:
        return QMessageBox::Question;
    case Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

/// The whole of a text that was cut is there for who asks.
void setTexts(QMessageBox& box, const std::string& text) {
    const std::string shown = shortenedText(text);
    box.setTextFormat(Qt::PlainText);
    box.setText(linesToQt(shown));
    if (shown != text)
        box.setDetailedText(linesToQt(text));
}

} // namespace

Answer MessageBox::ask(const std::string& text, Buttons buttons, Icon icon, const std::string& title) {
    const Answer safest = safestAnswer(buttons);
    const QString shownTitle = title.empty() ? toQt(product::Title) : toQt(title);
    if (unattended_) {
        std::fprintf(stderr, "%s: %s\n", qUtf8Printable(shownTitle), qUtf8Printable(linesToQt(text)));
        return safest;
    }
    if (!link_->owner)
        return safest;
    const QPointer<QMessageBox> box = new QMessageBox(link_->top());
    box->setWindowTitle(shownTitle);
    setTexts(*box, text);
    box->setIcon(iconOf(icon));
    box->setStandardButtons(buttonsOf(buttons));
    box->setDefaultButton(buttonOf(safest));
    box->setEscapeButton(buttonOf(safest));
    box->setWindowModality(Qt::WindowModal);
    const int button = box->exec();
    if (!box)
        return safest;
    box->deleteLater();
    return answerOf(button, safest);
}

} // namespace pixmo::qt
