#pragma once

#include "apps/pixmo/commandline.h"
#include "faces/qt/widget/imageview.h"

#include <QObject>
#include <QTimer>

namespace pixmo::viewer {

/// Shows one page, saves the control's picture and ends the program: 0 when the page was shown, else 1 with
/// the reason on standard error.
class ScreenshotJob : public QObject {
public:
    explicit ScreenshotJob(const Options& options);

    void start();

private:
    void load();
    void look();
    void save();
    void end(int exitCode, const QString& message);

    const Options options_;
    qt::ImageView view_;
    QTimer look_;
    bool loaded_ = false; ///< the call that loads the document has returned
    bool ended_ = false;
};

} // namespace pixmo::viewer
