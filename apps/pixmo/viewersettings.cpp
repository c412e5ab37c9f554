#include "apps/pixmo/viewersettings.h"

namespace pixmo::viewer {

ViewerSettings::ViewerSettings()
    : QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("QuorvisImaging"),
                QStringLiteral("Pixmo")) {
    beginGroup(QStringLiteral("Viewer"));
}

} // namespace pixmo::viewer
