#include "faces/qt/windows/savepagedialog.h"

#include "core/dialogs/dlgsavepage.h"
#include "faces/qt/ports/texts.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace pixmo::qt {

namespace {

QString usualFolder(const dlgSavePage& dialog) {
    const QString kept = dialog.folder().empty()
                             ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
                             : toQt(dialog.folder());
    return QDir(kept).exists() ? kept : QDir::homePath();
}

std::filesystem::path toPath(const QString& path) {
    return {path.toStdU16String()};
}

} // namespace

SavePageDialog::SavePageDialog(dlgSavePage& dialog, QWidget* parent)
    : QFileDialog(parent, tr("Save Page As"), usualFolder(dialog)), dialog_(dialog) {
    const QStringList filters = {tr("TIFF picture (*.tif *.tiff)"), tr("PNG picture (*.png)")};
    setAcceptMode(AcceptSave);
    setFileMode(AnyFile);
    setNameFilters(filters);
    if (dialog_.format() == dlgSavePage::Format::Png)
        selectNameFilter(filters.at(1));
    setDefaultSuffix(QLatin1String(dialog_.ending()));
    selectFile(toQt(dialog_.suggestedFile()));
    connect(this, &QFileDialog::filterSelected, this, [this] { followFilter(); });
}

/// The name follows the format.
void SavePageDialog::followFilter() {
    const bool png = selectedNameFilter().contains(QLatin1String("*.png"));
    dialog_.setFormat(png ? dlgSavePage::Format::Png : dlgSavePage::Format::Tiff);
    const QString ending = QLatin1String(dialog_.ending());
    setDefaultSuffix(ending);
    const QFileInfo file(selectedFiles().value(0));
    if (!file.completeBaseName().isEmpty() && !file.isDir())
        selectFile(file.completeBaseName() + QLatin1Char('.') + ending);
}

QString SavePageDialog::chosenPath() const {
    return selectedFiles().value(0);
}

void SavePageDialog::accept() {
    const QFileInfo file(selectedFiles().value(0));
    if (!file.isDir())
        selectFile(QString::fromStdU16String(dialog_.withEnding(toPath(file.fileName())).u16string()));
    QFileDialog::accept();
    if (result() == Accepted)
        dialog_.cmdOK_Click(toPath(QFileInfo(chosenPath()).absoluteFilePath()));
}

} // namespace pixmo::qt
