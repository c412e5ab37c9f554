#include "faces/qt/windows/logdialog.h"

#include "core/diag/settings.h"
#include "core/dialogs/dlglog.h"
#include "faces/qt/ports/settingsstore.h"
#include "faces/qt/ports/texts.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>

namespace pixmo::qt {

namespace {

int keptLength(const setting::Setting& which) {
    const std::string kept = SettingsStore().GetSetting(which.section, which.key, which.defaultValue);
    return qBound(200, toQt(kept).toInt(), 10'000);
}

void keepLength(const setting::Setting& which, int length) {
    SettingsStore().SaveSetting(which.section, which.key, std::to_string(length));
}

} // namespace

LogDialog::LogDialog(dlgLog& dialog, QWidget* parent)
    : SmallWindow(tr("Log"), parent), dialog_(dialog), text_(new QPlainTextEdit(this)),
      search_(new QLineEdit(this)), found_(new QLabel(this)) {
    text_->setObjectName(QStringLiteral("txtLog"));
    text_->setReadOnly(true);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text_->setLineWrapMode(QPlainTextEdit::NoWrap);
    text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text_->setAccessibleName(tr("Last lines of the log"));
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(makeHeader());
    layout->addWidget(makeSearch());
    layout->addWidget(text_, 1);
    layout->addWidget(makeLogButtons());
    addShortcuts();
    restoreSize();
    refresh();
    search_->setFocus();
}

QWidget* LogDialog::makeHeader() {
    auto* const path = new QLabel(this);
    const QString text = QString::fromStdString(dialog_.path().string());
    path->setTextFormat(Qt::PlainText);
    path->setText(text.isEmpty() ? tr("No log file") : text);
    path->setTextInteractionFlags(Qt::TextSelectableByMouse);
    path->setAccessibleName(tr("Log file"));
    // A long path is cut rather than widening the window.
    path->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    path->setToolTip(text);
    return path;
}

QWidget* LogDialog::makeSearch() {
    auto* const row = new QWidget(this);
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    auto* const label = new QLabel(tr("&Find:"), row);
    label->setBuddy(search_);
    search_->setClearButtonEnabled(true);
    search_->setAccessibleName(tr("Text to find in the log"));
    auto* const next = new QPushButton(tr("&Next"), row);
    auto* const previous = new QPushButton(tr("&Previous"), row);
    next->setObjectName(QStringLiteral("next"));
    previous->setObjectName(QStringLiteral("previous"));
    next->setDefault(true);
    connect(next, &QPushButton::clicked, this, [this] { find({}); });
    connect(previous, &QPushButton::clicked, this, [this] { find(QTextDocument::FindBackward); });
    layout->addWidget(label);
    layout->addWidget(search_, 1);
    layout->addWidget(found_);
    layout->addWidget(next);
    layout->addWidget(previous);
    return row;
}

QDialogButtonBox* LogDialog::makeLogButtons() {
    QDialogButtonBox* const buttons = makeButtons(QDialogButtonBox::Close);
    QPushButton* const copyButton = buttons->addButton(tr("&Copy"), QDialogButtonBox::ActionRole);
    copyButton->setObjectName(QStringLiteral("copy"));
    connect(copyButton, &QPushButton::clicked, this, [this] { copy(); });
    QPushButton* const refreshButton = buttons->addButton(tr("&Refresh"), QDialogButtonBox::ActionRole);
    refreshButton->setObjectName(QStringLiteral("refresh"));
    connect(refreshButton, &QPushButton::clicked, this, [this] { refresh(); });
    // Enter searches, whichever field has the focus.
    for (QAbstractButton* const button : buttons->buttons())
        static_cast<QPushButton*>(button)->setAutoDefault(false);
    return buttons;
}

void LogDialog::addShortcuts() {
    const auto add = [this](const QKeySequence& keys, auto action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    add(QKeySequence::Find, [this] {
        search_->setFocus();
        search_->selectAll();
    });
    add(Qt::Key_F3, [this] { find({}); });
    add(Qt::SHIFT | Qt::Key_F3, [this] { find(QTextDocument::FindBackward); });
    add(Qt::Key_F5, [this] { refresh(); });
}

void LogDialog::restoreSize() {
    resize(keptLength(setting::LogWidth), keptLength(setting::LogHeight));
}

void LogDialog::done(int result) {
    keepLength(setting::LogWidth, width());
    keepLength(setting::LogHeight, height());
    SmallWindow::done(result);
}

void LogDialog::refresh() {
    dialog_.refresh();
    text_->setPlainText(linesToQt(dialog_.text()));
    text_->moveCursor(QTextCursor::End);
    text_->verticalScrollBar()->setValue(text_->verticalScrollBar()->maximum());
    text_->horizontalScrollBar()->setValue(0);
}

void LogDialog::copy() {
    if (text_->textCursor().hasSelection())
        text_->copy();
    else
        QGuiApplication::clipboard()->setText(text_->toPlainText());
}

void LogDialog::find(QTextDocument::FindFlags direction) {
    const QString wanted = search_->text();
    if (wanted.isEmpty())
        return;
    bool found = text_->find(wanted, direction);
    if (!found) {
        const QTextCursor before = text_->textCursor();
        text_->moveCursor(direction == QTextDocument::FindBackward ? QTextCursor::End : QTextCursor::Start);
        found = text_->find(wanted, direction);
        if (!found)
            text_->setTextCursor(before);
    }
    found_->setText(found ? QString() : tr("Not found"));
}

} // namespace pixmo::qt
