#pragma once

#include "faces/qt/widget/imageview.h"
#include "tests/behaviour/facedriver.h"

#include <QLineEdit>
#include <QWidget>
#include <memory>

namespace pixmo::qt {

/// A host of one viewer with a text field before and one behind it, which writes down what it is told. Used
/// on the thread of the windows.
class HostWindow : public QWidget {
public:
    HostWindow();

    ImageView& view() { return *view_; }
    void resizeView(QSize size);
    QLineEdit* field(const QString& name) const { return findChild<QLineEdit*>(name); }
    std::vector<std::string> takeEvents();

    behaviour::HostAnswers answers;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QLineEdit* addField(const char* name);
    void connectKeys();
    void connectPages();
    void connectPrinting();
    template <typename... Arguments>
    void note(const char* name, const Arguments&... arguments);

    QLineEdit* before_;
    ImageView* view_;
    QLineEdit* behind_;
    std::vector<std::string> events_;
};

} // namespace pixmo::qt
