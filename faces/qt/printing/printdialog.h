#pragma once

#include "core/printing/dlgprint.h"

#include <QButtonGroup>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <array>
#include <functional>

namespace pixmo::qt {

/// The window of a dlgPrint: shows its state, forwards what the user does.
class PrintDialog : public QDialog {
public:
    /// The state outlives the window.
    PrintDialog(dlgPrint& state, QWidget* parent);
    ~PrintDialog() override;
    PrintDialog(const PrintDialog&) = delete;
    PrintDialog& operator=(const PrintDialog&) = delete;

    void reject() override { state_.cmdCancel_Click(); }

private:
    QGroupBox* makeRange();
    QGroupBox* makeSize();
    QGroupBox* makeCopies();
    QLayout* makeButtons();
    QWidget* makePageBoxes(QWidget* option);
    QPushButton* addButton(QLayout& row, const QString& text, const std::function<void()>& clicked);
    void showPrinterName();
    void mirror();

    dlgPrint& state_;
    size_t connection_;
    QWidget* more_;
    QButtonGroup optPrintType_;
    QButtonGroup optImageScale_;
    QLabel* lblSelectedPages_ = nullptr;
    QListWidget* lstSelectedPages_ = nullptr;
    QLineEdit* txtFromPage_ = nullptr;
    QLineEdit* txtToPage_ = nullptr;
    QSpinBox* txtPrntCopies_ = nullptr;
    QLabel* lblPrinterName_ = nullptr;
    QPushButton* cmdOptions_ = nullptr;
};

} // namespace pixmo::qt
