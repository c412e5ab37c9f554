#pragma once

#include "faces/qt/printing/printtarget.h"

#include <QPrinter>
#include <QPrinterInfo>
#include <QTemporaryFile>

namespace pixmo::qt {

/// A queue of the print system. The file is gone from here as soon as the queue has it.
class QueueTarget : public PrintTarget {
public:
    explicit QueueTarget(const QPrinterInfo& queue);

    QPageLayout layout() const override { return printer_.pageLayout(); }
    bool setPaperSize(int32_t code) override;
    bool setCopies(int32_t copies) override;
    QFileDevice* begin(const QString& documentName) override;
    bool deliver() override;
    void discard() override { file_.remove(); }
    std::string problem() const override { return problem_; }

private:
    void useAllPaper();

    QPrinter printer_; ///< tells of the queue, is never painted on
    QString title_;
    int32_t copies_ = 1;
    QTemporaryFile file_;
    std::string problem_;
};

} // namespace pixmo::qt
