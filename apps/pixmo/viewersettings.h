#pragma once

#include <QSettings>

namespace pixmo::viewer {

/// The part of the user's settings file that belongs to the viewer's window: its group "Viewer".
class ViewerSettings : public QSettings {
public:
    ViewerSettings();
};

} // namespace pixmo::viewer
