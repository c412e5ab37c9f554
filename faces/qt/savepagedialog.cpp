#include "faces/qt/savepagedialog.h"

#include "faces/qt/settingsstore.h"
#include "faces/qt/texts.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace pixmo::qt {

namespace {

constexpr const char* Section = "SavePage";
constexpr const char* KeyFolder = "Folder";
constexpr const char* KeyFormat = "Format";

QString keptFolder() {
    const QString usual = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QString kept = toQt(SettingsStore().GetSetting(Section, KeyFolder, usual.toStdString()));
    return QDir(kept).exists() ? kept : QDir::homePath();
}

} // namespace

SavePageDialog::SavePageDialog(const QString& suggestedName, QWidget* parent)
    : QFileDialog(parent, tr("Save Page As"), keptFolder()) {
    const QStringList filters = {tr("TIFF picture (*.tif *.tiff)"), tr("PNG picture (*.png)")};
    setAcceptMode(AcceptSave);
    setFileMode(AnyFile);
    setNameFilters(filters);
    if (SettingsStore().GetSetting(Section, KeyFormat, "tif") == "png")
        selectNameFilter(filters.at(1));
    setDefaultSuffix(suffix());
    selectFile(suggestedName + QLatin1Char('.') + suffix());
    // The name follows the format.
    connect(this, &QFileDialog::filterSelected, this, [this] {
        setDefaultSuffix(suffix());
        const QFileInfo file(selectedFiles().value(0));
        if (!file.completeBaseName().isEmpty() && !file.isDir())
            selectFile(file.completeBaseName() + QLatin1Char('.') + suffix());
    });
}

QString SavePageDialog::suffix() const {
    return selectedNameFilter().contains(QLatin1String("*.png")) ? QStringLiteral("png")
                                                                 : QStringLiteral("tif");
}

QString SavePageDialog::chosenPath() const {
    return selectedFiles().value(0);
}

void SavePageDialog::accept() {
    const QFileInfo file(selectedFiles().value(0));
    const QString ending = file.suffix().toLower();
    // Another ending would name a format that is not written.
    if (!file.isDir() && ending != QLatin1String("png") && ending != QLatin1String("tif") &&
        ending != QLatin1String("tiff"))
        selectFile(file.fileName() + QLatin1Char('.') + suffix());
    QFileDialog::accept();
    if (result() != Accepted)
        return;
    SettingsStore().SaveSetting(Section, KeyFolder, QFileInfo(chosenPath()).absolutePath().toStdString());
    SettingsStore().SaveSetting(Section, KeyFormat,
                                chosenPath().endsWith(QLatin1String(".png"), Qt::CaseInsensitive) ? "png"
                                                                                                  : "tif");
}

} // namespace pixmo::qt
