#include "faces/qt/ports/messagebox.h"

#include "core/base/product.h"
#include "faces/qt/ports/texts.h"

#include <QMessageBox>
#include <QPointer>
#include <array>
#include <cstdio>

namespace pixmo::qt {

namespace {

struct ButtonSet {
    QMessageBox::StandardButtons shown;
    QMessageBox::StandardButton safest;
    Answer safestAnswer;
};

ButtonSet buttonSet(Buttons buttons) {
    switch (buttons) {
    case Buttons::OkCancel:
        return {QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel, Answer::Cancel};
    case Buttons::RetryCancel:
        return {QMessageBox::Retry | QMessageBox::Cancel, QMessageBox::Cancel, Answer::Cancel};
    case Buttons::AbortRetryIgnore:
        return {QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore, QMessageBox::Abort,
                Answer::Abort};
    case Buttons::YesNo:
        return {QMessageBox::Yes | QMessageBox::No, QMessageBox::No, Answer::No};
    case Buttons::Ok:
        break;
    }
    return {QMessageBox::Ok, QMessageBox::Ok, Answer::Ok};
}

Answer answerOf(int button, Answer otherwise) {
    constexpr std::array<std::pair<QMessageBox::StandardButton, Answer>, 7> Answers = {
        {{QMessageBox::Ok, Answer::Ok},
         {QMessageBox::Cancel, Answer::Cancel},
         {QMessageBox::Abort, Answer::Abort},
         {QMessageBox::Retry, Answer::Retry},
         {QMessageBox::Ignore, Answer::Ignore},
         {QMessageBox::Yes, Answer::Yes},
         {QMessageBox::No, Answer::No}}};
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

/// A text of more lines than this would make a box higher than small screens.
constexpr qsizetype MostLines = 20;

void setTexts(QMessageBox& box, const QString& text) {
    box.setTextFormat(Qt::PlainText);
    const QStringList lines = text.split(QLatin1Char('\n'));
    if (lines.size() <= MostLines) {
        box.setText(text);
        return;
    }
    box.setText(lines.mid(0, MostLines).join(QLatin1Char('\n')) + QChar(0x2026));
    box.setDetailedText(text);
}

} // namespace

Answer MessageBox::ask(const std::string& text, Buttons buttons, Icon icon, const std::string& title) {
    const ButtonSet set = buttonSet(buttons);
    const QString shownTitle = title.empty() ? toQt(product::Title) : toQt(title);
    if (unattended_) {
        std::fprintf(stderr, "%s: %s\n", qUtf8Printable(shownTitle), qUtf8Printable(linesToQt(text)));
        return set.safestAnswer;
    }
    if (!link_->owner)
        return set.safestAnswer;
    const QPointer<QMessageBox> box = new QMessageBox(link_->owner);
    box->setWindowTitle(shownTitle);
    setTexts(*box, linesToQt(text));
    box->setIcon(iconOf(icon));
    box->setStandardButtons(set.shown);
    box->setDefaultButton(set.safest);
    box->setEscapeButton(set.safest);
    box->setWindowModality(Qt::WindowModal);
    const int button = box->exec();
    if (!box)
        return set.safestAnswer;
    box->deleteLater();
    return answerOf(button, set.safestAnswer);
}

} // namespace pixmo::qt
