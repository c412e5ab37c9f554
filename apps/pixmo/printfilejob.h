#pragma once

#include "apps/pixmo/commandline.h"
#include "faces/qt/widget/imageview.h"

#include <QObject>
#include <QTimer>

namespace pixmo::viewer {

/// Prints a document to a PDF file, without a window, and ends the program: 0 when every page is in the
/// file, else 1 with the reason on standard error.
class PrintFileJob : public QObject {
public:
    explicit PrintFileJob(const Options& options);

    void start();

private:
    void load();
    void look();
    void print();
    QList<short> pages() const;
    void end(int exitCode, const QString& message);

    const Options options_;
    qt::ImageView view_;
    QTimer look_;
    bool loaded_ = false; ///< the call that loads the document has returned
    bool ended_ = false;
};

} // namespace pixmo::viewer
