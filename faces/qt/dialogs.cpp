#include "faces/qt/dialogs.h"

#include "core/dialogs/dlgabout.h"
#include "core/dialogs/dlggotopage.h"
#include "core/dialogs/dlglog.h"
#include "faces/qt/imageview.h"
#include "faces/qt/texts.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFontDatabase>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QScrollBar>
#include <QVBoxLayout>

namespace pixmo::qt {

namespace {

constexpr QSize LogSize(760, 480);

QString translated(const char* text) {
    return QCoreApplication::translate("Dialogs", text);
}

QDialogButtonBox* addButtons(QDialog& dialog, QDialogButtonBox::StandardButtons which) {
    auto* const buttons = new QDialogButtonBox(which, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    return buttons;
}

QLabel* addText(QVBoxLayout& layout, const std::string& text) {
    auto* const label = new QLabel(linesToQt(text));
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setHidden(text.empty());
    layout.addWidget(label);
    return label;
}

void readLog(dlgLog& log, QPlainTextEdit& pane) {
    log.refresh();
    pane.setPlainText(linesToQt(log.text()));
    pane.verticalScrollBar()->setValue(pane.verticalScrollBar()->maximum());
}

} // namespace

QPointer<QDialog> Dialogs::makeDialog(const QString& title) const {
    auto* const dialog = new QDialog(link_->widget);
    dialog->setWindowTitle(title);
    dialog->setWindowModality(Qt::WindowModal);
    return dialog;
}

void Dialogs::showModal(dlgGotoPage& dialog) {
    const QPointer<QDialog> window = makeDialog(translated("Go to Page"));
    auto* const number = new QLineEdit(toQt(dialog.txtPageNumber()), window);
    number->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), number));
    number->selectAll();
    auto* const form = new QFormLayout(window);
    form->addRow(translated("&Page:"), number);
    form->addRow(addButtons(*window, QDialogButtonBox::Ok | QDialogButtonBox::Cancel));
    const bool chosen = window->exec() == QDialog::Accepted;
    if (!window || !chosen) {
        dialog.cmdCancel_Click();
    } else {
        dialog.setTxtPageNumber(number->text().toStdString());
        dialog.cmdOK_Click();
    }
    delete window;
}

void Dialogs::showModal(dlgAbout& dialog) {
    const QPointer<QDialog> window = makeDialog(toQt(dialog.Caption()));
    auto* const layout = new QVBoxLayout(window);
    addText(*layout, dialog.lblDescription());
    addText(*layout, dialog.lblVersion());
    addText(*layout, dialog.lblInformation());
    layout->addWidget(addButtons(*window, QDialogButtonBox::Ok));
    window->exec();
    delete window;
}

void Dialogs::showModal(dlgLog& dialog) {
    const QPointer<QDialog> window = makeDialog(toQt(dialog.path().string()));
    auto* const pane = new QPlainTextEdit(window);
    pane->setReadOnly(true);
    pane->setLineWrapMode(QPlainTextEdit::NoWrap);
    pane->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto* const buttons = addButtons(*window, QDialogButtonBox::Close);
    QPushButton* const refresh = buttons->addButton(translated("&Refresh"), QDialogButtonBox::ActionRole);
    QObject::connect(refresh, &QPushButton::clicked, pane, [&dialog, pane] { readLog(dialog, *pane); });
    auto* const layout = new QVBoxLayout(window);
    layout->addWidget(pane);
    layout->addWidget(buttons);
    window->resize(LogSize);
    readLog(dialog, *pane);
    window->exec();
    delete window;
}

std::optional<std::filesystem::path> Dialogs::askSavePath(const std::string& suggestedName) {
    const QString path =
        QFileDialog::getSaveFileName(link_->widget, translated("Save Page As"), toQt(suggestedName),
                                     translated("TIFF pictures (*.tif *.tiff);;PNG pictures (*.png)"));
    if (path.isEmpty())
        return std::nullopt;
    return path.toStdString();
}

} // namespace pixmo::qt
