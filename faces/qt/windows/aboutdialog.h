#pragma once

#include "faces/qt/windows/smallwindow.h"

namespace pixmo {
class dlgAbout;
}

namespace pixmo::qt {

/// The window of dlgAbout: the About box, or the information about the page.
class AboutDialog : public SmallWindow {
    Q_OBJECT

public:
    AboutDialog(const dlgAbout& dialog, QWidget* parent);

private:
    QWidget* makeIcon();
    QWidget* makeAbout(const dlgAbout& dialog);
    QWidget* makeInformation(const dlgAbout& dialog);
};

} // namespace pixmo::qt
