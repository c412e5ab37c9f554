#pragma once

#include "core/platform/printers.h"
#include "faces/qt/ports/facelink.h"
#include "faces/qt/printing/printtarget.h"

#include <QString>

namespace pixmo::qt {

/// The printers of the print system, and a PDF file as one more.
class Printers : public pixmo::Printers {
public:
    explicit Printers(SharedFaceLink link) : link_(std::move(link)) {}

    std::vector<std::string> names() const override;
    std::string currentName() const override;
    void setCurrent(const std::string& name) override { current_ = name; }
    std::optional<std::string> choose(intptr_t owner, int32_t flags) override;
    std::unique_ptr<pixmo::PrinterDevice> open() override;

    /// Until it is emptied again, everything goes to that PDF file, without asking.
    void setFile(const QString& path) { file_ = path; }

private:
    std::optional<QString> askPath(const QString& documentName) const;
    std::unique_ptr<PrintTarget> target() const;

    SharedFaceLink link_;
    std::string current_;
    QString file_;
};

} // namespace pixmo::qt
