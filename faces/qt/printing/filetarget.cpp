#include "faces/qt/printing/filetarget.h"

#include "faces/qt/printing/papers.h"

#include <QFileInfo>
#include <QLocale>
#include <utility>

namespace pixmo::qt {

namespace {

/// A file is printed on real paper sooner or later: what no printer reaches stays empty.
constexpr double MarginMillimetres = 6.35;

QPageSize usualPaper() {
    return QPageSize(QLocale::system().measurementSystem() == QLocale::ImperialUSSystem ? QPageSize::Letter
                                                                                        : QPageSize::A4);
}

} // namespace

FileTarget::FileTarget(AskPath askPath)
    : askPath_(std::move(askPath)),
      layout_(usualPaper(), QPageLayout::Portrait,
              QMarginsF(MarginMillimetres, MarginMillimetres, MarginMillimetres, MarginMillimetres),
              QPageLayout::Millimeter) {}

bool FileTarget::setPaperSize(int32_t code) {
    const auto paper = paperOf(code);
    if (paper)
        layout_.setPageSize(*paper);
    return paper.has_value();
}

QFileDevice* FileTarget::begin(const QString& documentName) {
    const auto path = askPath_(documentName);
    if (!path)
        return nullptr;
    // A device would be replaced by the file.
    const QFileInfo there(*path);
    isFile_ = !there.exists() || there.isFile();
    if (!isFile_)
        return nullptr;
    file_.setFileName(*path);
    return file_.open(QIODevice::WriteOnly) ? &file_ : nullptr;
}

std::string FileTarget::problem() const {
    if (!isFile_)
        return "Not a file";
    return file_.error() == QFileDevice::NoError ? std::string() : file_.errorString().toStdString();
}

} // namespace pixmo::qt
