#include "faces/qt/widget/container.h"

#include "faces/qt/ports/texts.h"
#include "faces/qt/widget/imageviewprivate.h"
#include "faces/qt/widget/olecolour.h"

#include <QProcess>

namespace pixmo::qt {

Colour Container::ambientBackColor() const {
    return ButtonFace;
}

void Container::startProgram(const std::string& commandLine) {
    QStringList arguments = QProcess::splitCommand(toQt(commandLine));
    if (!arguments.isEmpty())
        QProcess::startDetached(arguments.takeFirst(), arguments);
}

void Container::PropertyChanged(const std::string&) {
    if (link_->widget)
        ImageViewPrivate::of(*link_->widget).announceChanges();
}

} // namespace pixmo::qt
