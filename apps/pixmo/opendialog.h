#pragma once

#include "apps/pixmo/documentaddress.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

namespace pixmo::viewer {

/// Asks for a document: engine, number and page.
class OpenDialog : public QDialog {
    Q_OBJECT

public:
    OpenDialog(const DocumentAddress& last, QWidget* parent);

    DocumentAddress document() const;

private:
    void check();

    QLineEdit* engine_;
    QSpinBox* number_;
    QSpinBox* page_;
    QLabel* problem_;
    QPushButton* open_ = nullptr;
};

} // namespace pixmo::viewer
