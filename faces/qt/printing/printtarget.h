#pragma once

#include <QFileDevice>
#include <QPageLayout>
#include <QString>
#include <cstdint>
#include <string>

namespace pixmo::qt {

/// Where the PDF file of a job goes: into the user's folder or to a queue of the print system.
class PrintTarget {
public:
    virtual ~PrintTarget() = default;

    /// The paper, with what no printer reaches as its margins.
    virtual QPageLayout layout() const = 0;
    /// The paper of that code (vlPaperSize). False: it keeps its own.
    virtual bool setPaperSize(int32_t code) = 0;
    /// False: it makes one copy only.
    virtual bool setCopies(int32_t copies) = 0;
    /// Opens what the file is to be written to. nullptr: it cannot be, or the user does not want it any more.
    virtual QFileDevice* begin(const QString& documentName) = 0;
    /// The file is written; hands it on.
    virtual bool deliver() = 0;
    /// Nothing is to be left of it.
    virtual void discard() = 0;
    /// Why the last call failed; empty where the user wanted it so.
    virtual std::string problem() const = 0;
};

} // namespace pixmo::qt
