#pragma once

#include "core/platform/dialog.h"

#include <QDialog>
#include <functional>
#include <vector>

class QBoxLayout;
class QLabel;

namespace pixmo::qt {

/// The window of a described Dialog, of Qt's own controls: shows its state, forwards what the user does.
class DialogWindow : public QDialog {
    Q_OBJECT

public:
    /// The dialog outlives the window, whose end cancels it.
    DialogWindow(Dialog& dialog, QWidget* parent);
    ~DialogWindow() override;
    DialogWindow(const DialogWindow&) = delete;
    DialogWindow& operator=(const DialogWindow&) = delete;

    void reject() override { dialog_.cancel(); }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// The part as a widget that stands in the layout; `parent` owns it.
    void add(const DialogPart& part, QBoxLayout& into, QWidget* parent);
    void addGroup(const DialogPart& part, QBoxLayout& into, QWidget* parent);
    void fill(const DialogPart& group, QBoxLayout& layout, QWidget* parent);
    QWidget* makeButtons(const DialogPart& part, QWidget* parent);
    QWidget* makeField(const DialogPart& part, QWidget* parent);
    QWidget* makeLabel(const DialogPart& part, QWidget* parent);
    QWidget* makeCutLabel(const DialogPart& part, QWidget* parent);
    QWidget* makeLines(const DialogPart& part, QWidget* parent);
    QWidget* makeIcon(const DialogPart& part, QWidget* parent);
    QWidget* makeText(const DialogPart& part, QWidget* parent);
    QWidget* makeNumber(const DialogPart& part, QWidget* parent);
    QWidget* makeOption(const DialogPart& part, QWidget* parent);
    QWidget* makeList(const DialogPart& part, QWidget* parent);
    QWidget* makeButton(const DialogPart& part, QWidget* parent);
    QWidget* makeScrolledText(const DialogPart& part, QWidget* parent);

    void nameField(const DialogPart& part, QWidget& field);
    int widthOf(const DialogPart& part) const;
    /// Calls a handler of the dialog and shows what has become of it.
    void act(const std::function<void()>& handler);
    void mirror();
    void takeFocus();
    void end();

    Dialog& dialog_;
    DialogDescription description_;
    size_t connection_;
    std::vector<std::function<void()>> mirrors_; ///< show the state of one part each
    std::vector<std::function<void()>> reports_; ///< tell what the user has selected
    QLabel* label_ = nullptr;                    ///< the one that leads to the field made next
};

} // namespace pixmo::qt
