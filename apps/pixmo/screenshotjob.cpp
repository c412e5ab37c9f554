#include "apps/pixmo/screenshotjob.h"

#include "apps/pixmo/mainwindow.h"

#include <QApplication>
#include <QSaveFile>
#include <cstdio>

namespace pixmo::viewer {

namespace {

constexpr int LookMilliseconds = 20;

} // namespace

ScreenshotJob::ScreenshotJob(const Options& options) : options_(options) {
    view_.setUnattended(true);
    // The picture does not depend on where the mouse happens to be.
    view_.setAttribute(Qt::WA_TransparentForMouseEvents);
    configure(view_, options_);
    view_.setEngineAddress(options_.document.engine);
    view_.resize(options_.size.isEmpty() ? view_.sizeHint() : options_.size);
    connect(&look_, &QTimer::timeout, this, &ScreenshotJob::look);
}

void ScreenshotJob::start() {
    view_.show();
    look_.start(LookMilliseconds);
    QTimer::singleShot(0, this, &ScreenshotJob::load);
    QTimer::singleShot(options_.timeoutSeconds * 1000, this, [this] {
        end(1, QStringLiteral("The page was not there within %1 seconds.").arg(options_.timeoutSeconds));
    });
}

void ScreenshotJob::load() {
    view_.LoadDocumentByDocID(options_.document.document, options_.document.page);
    loaded_ = true;
}

void ScreenshotJob::look() {
    if (!loaded_ || !view_.isIdle())
        return;
    if (view_.isPageDisplayed()) {
        save();
        return;
    }
    const QString notice = view_.notice();
    end(1, notice.isEmpty() ? QStringLiteral("The page could not be shown.") : notice);
}

void ScreenshotJob::save() {
    QSaveFile file(options_.screenshot);
    const bool saved = file.open(QIODevice::WriteOnly) && view_.grab().save(&file, "PNG") && file.commit();
    end(saved ? 0 : 1,
        saved ? QString()
              : QStringLiteral("'%1' cannot be written: %2.").arg(options_.screenshot, file.errorString()));
}

void ScreenshotJob::end(int exitCode, const QString& message) {
    if (ended_)
        return;
    ended_ = true;
    look_.stop();
    if (!message.isEmpty())
        std::fprintf(stderr, "pixmo: %s\n", qUtf8Printable(message));
    QApplication::exit(exitCode);
}

} // namespace pixmo::viewer
