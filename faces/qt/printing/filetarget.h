#pragma once

#include "faces/qt/printing/printtarget.h"

#include <QSaveFile>
#include <functional>
#include <optional>

namespace pixmo::qt {

/// A PDF file of the user's, which is there when it is whole.
class FileTarget : public PrintTarget {
public:
    /// None: the user does not want it after all.
    using AskPath = std::function<std::optional<QString>(const QString& documentName)>;

    explicit FileTarget(AskPath askPath);

    QPageLayout layout() const override { return layout_; }
    bool setPaperSize(int32_t code) override;
    bool setCopies(int32_t) override { return false; }
    QFileDevice* begin(const QString& documentName) override;
    bool deliver() override { return file_.commit(); }
    void discard() override { file_.cancelWriting(); }
    std::string problem() const override;

private:
    AskPath askPath_;
    QPageLayout layout_;
    bool isFile_ = true; ///< what has the name already, if anything
    QSaveFile file_;
};

} // namespace pixmo::qt
