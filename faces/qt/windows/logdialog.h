#pragma once

#include "faces/qt/windows/smallwindow.h"

#include <QTextDocument>

class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace pixmo {
class dlgLog;
}

namespace pixmo::qt {

/// The window of dlgLog: the end of the log, with search.
class LogDialog : public SmallWindow {
    Q_OBJECT

public:
    /// The object outlives the window.
    LogDialog(dlgLog& dialog, QWidget* parent);

    void done(int result) override;

private:
    QWidget* makeHeader();
    QWidget* makeSearch();
    QDialogButtonBox* makeLogButtons();
    void addShortcuts();
    void restoreSize();
    void refresh();
    void copy();
    /// Goes on at the other end of the text.
    void find(QTextDocument::FindFlags direction);

    dlgLog& dialog_;
    QPlainTextEdit* text_;
    QLineEdit* search_;
    QLabel* found_;
};

} // namespace pixmo::qt
