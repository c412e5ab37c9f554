#pragma once

#include <QFileDialog>

namespace pixmo::qt {

/// Where to save a page: folder and format of the last time, as TIFF or PNG.
class SavePageDialog : public QFileDialog {
    Q_OBJECT

public:
    SavePageDialog(const QString& suggestedName, QWidget* parent);

    /// With the ending of the format, when the user gave another one or none.
    QString chosenPath() const;
    void accept() override;

private:
    QString suffix() const;
};

} // namespace pixmo::qt
