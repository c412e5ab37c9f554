#include "faces/qt/windows/savepagedialog.h"

#include "core/windows/dlgsavepage.h"
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

/// "PNG picture (*.png)"
QStringList filters() {
    QStringList texts;
    for (const dlgSavePage::Filter& filter : dlgSavePage::filters()) {
        QStringList patterns;
        for (const char* pattern : filter.patterns)
            patterns += QLatin1String(pattern);
        texts += QStringLiteral("%1 (%2)").arg(QLatin1String(filter.name), patterns.join(QLatin1Char(' ')));
    }
    return texts;
}

} // namespace

SavePageDialog::SavePageDialog(dlgSavePage& dialog, QWidget* parent)
    : QFileDialog(parent, toQt(dlgSavePage::Caption()), usualFolder(dialog)), dialog_(dialog) {
    setAcceptMode(AcceptSave);
    setFileMode(AnyFile);
    setNameFilters(filters());
    selectNameFilter(filters().at(static_cast<int>(dialog_.format())));
    setDefaultSuffix(QLatin1String(dialog_.ending()));
    selectFile(toQt(dialog_.suggestedFile()));
    connect(this, &QFileDialog::filterSelected, this, [this] { followFilter(); });
}

/// The name follows the format.
void SavePageDialog::followFilter() {
    dialog_.setFormat(static_cast<dlgSavePage::Format>(nameFilters().indexOf(selectedNameFilter())));
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
