#pragma once

#include <QFileDialog>

namespace pixmo {
class dlgSavePage;
}

namespace pixmo::qt {

/// The window of dlgSavePage.
class SavePageDialog : public QFileDialog {
    Q_OBJECT

public:
    /// The object outlives the window.
    SavePageDialog(dlgSavePage& dialog, QWidget* parent);

    /// With the ending of the format, when the user gave another one or none.
    QString chosenPath() const;
    void accept() override;

private:
    void followFilter();

    dlgSavePage& dialog_;
};

} // namespace pixmo::qt
