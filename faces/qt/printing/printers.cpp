#include "faces/qt/printing/printers.h"

#include "faces/qt/ports/texts.h"
#include "faces/qt/printing/filetarget.h"
#include "faces/qt/printing/printerdevice.h"
#include "faces/qt/printing/queuetarget.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QListWidget>
#include <QPointer>
#include <QPrinterInfo>
#include <QVBoxLayout>
#include <utility>

namespace pixmo::qt {

namespace {

const std::string FileName = "PDF file";

QString translated(const char* text) {
    return QCoreApplication::translate("Printers", text);
}

QListWidget* addList(QDialog& dialog, const std::vector<std::string>& names, const std::string& current) {
    auto* const list = new QListWidget(&dialog);
    list->setAccessibleName(translated("Printers"));
    for (const std::string& name : names) {
        list->addItem(toQt(name));
        if (name == current)
            list->setCurrentRow(list->count() - 1);
    }
    QObject::connect(list, &QListWidget::itemActivated, &dialog, &QDialog::accept);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* const layout = new QVBoxLayout(&dialog);
    layout->addWidget(list);
    layout->addWidget(buttons);
    return list;
}

} // namespace

std::vector<std::string> Printers::names() const {
    std::vector<std::string> names;
    for (const QString& name : QPrinterInfo::availablePrinterNames())
        names.push_back(name.toStdString());
    names.push_back(FileName);
    return names;
}

std::string Printers::currentName() const {
    if (!file_.isEmpty())
        return FileName;
    if (!current_.empty())
        return current_;
    const QString preferred = QPrinterInfo::defaultPrinterName();
    return preferred.isEmpty() ? names().front() : preferred.toStdString();
}

std::optional<std::string> Printers::choose(intptr_t, int32_t) {
    if (!link_->owner)
        return std::nullopt;
    QWidget* const above = QApplication::activeModalWidget();
    const QPointer<QDialog> dialog = new QDialog(above ? above : link_->owner);
    dialog->setObjectName(QStringLiteral("dlgPrinters"));
    dialog->setWindowTitle(translated("Printers"));
    dialog->setWindowModality(Qt::WindowModal);
    QListWidget* const list = addList(*dialog, names(), currentName());
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (!dialog)
        return std::nullopt;
    std::optional<std::string> chosen;
    if (accepted && list->currentItem())
        chosen = list->currentItem()->text().toStdString();
    delete dialog;
    return chosen;
}

std::unique_ptr<pixmo::PrinterDevice> Printers::open() {
    auto chosen = target();
    return chosen ? std::make_unique<PrinterDevice>(std::move(chosen)) : nullptr;
}

/// nullptr where the queue is gone.
std::unique_ptr<PrintTarget> Printers::target() const {
    const std::string name = currentName();
    if (name == FileName)
        return std::make_unique<FileTarget>([this](const QString& document) { return askPath(document); });
    const QPrinterInfo queue = QPrinterInfo::printerInfo(toQt(name));
    return queue.isNull() ? nullptr : std::make_unique<QueueTarget>(queue);
}

std::optional<QString> Printers::askPath(const QString& documentName) const {
    if (!file_.isEmpty())
        return file_;
    if (!link_->owner)
        return std::nullopt;
    const QPointer<QFileDialog> dialog = new QFileDialog(
        link_->owner, translated("Print to File"),
        QDir::home().filePath(documentName + QStringLiteral(".pdf")), translated("PDF files (*.pdf)"));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("pdf"));
    const bool accepted = dialog->exec() == QDialog::Accepted;
    std::optional<QString> path;
    if (accepted && dialog)
        path = dialog->selectedFiles().value(0);
    delete dialog;
    return path;
}

} // namespace pixmo::qt
