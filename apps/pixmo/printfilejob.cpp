#include "apps/pixmo/printfilejob.h"

#include "apps/pixmo/mainwindow.h"

#include <QApplication>
#include <cstdio>

namespace pixmo::viewer {

namespace {

constexpr int LookMilliseconds = 20;

} // namespace

PrintFileJob::PrintFileJob(const Options& options) : options_(options) {
    view_.setUnattended(true);
    configure(view_, options_);
    view_.setEngineAddress(options_.document.engine);
    view_.setPrintCoverSheet(options_.coverSheet);
    view_.setPrintCaption(options_.caption);
    connect(&look_, &QTimer::timeout, this, &PrintFileJob::look);
}

void PrintFileJob::start() {
    look_.start(LookMilliseconds);
    QTimer::singleShot(0, this, &PrintFileJob::load);
    QTimer::singleShot(options_.timeoutSeconds * 1000, this, [this] {
        view_.setPrintCancelJob(true);
        end(1,
            QStringLiteral("The document was not printed within %1 seconds.").arg(options_.timeoutSeconds));
    });
}

/// A page that is to be printed is the one to begin with.
void PrintFileJob::load() {
    const int first = options_.pages.isEmpty() ? options_.document.page : options_.pages.first().first;
    view_.LoadDocumentByDocID(options_.document.document, first);
    loaded_ = true;
}

void PrintFileJob::look() {
    if (!loaded_ || !view_.isIdle() || ended_)
        return;
    look_.stop();
    if (view_.pageCount() > 0)
        print();
    else
        end(1, QStringLiteral("The document could not be opened."));
}

QList<short> PrintFileJob::pages() const {
    const int count = view_.pageCount();
    const QList<PageSpan> spans = options_.pages.isEmpty() ? QList<PageSpan>{{1, count}} : options_.pages;
    QList<short> pages;
    for (const PageSpan& span : spans)
        for (int page = span.first; page <= qMin(span.last, count); ++page)
            pages.append(static_cast<short>(page));
    return pages;
}

void PrintFileJob::print() {
    const QList<short> wanted = pages();
    if (wanted.isEmpty()) {
        end(1, QStringLiteral("The document has %1 pages, none of them wanted.").arg(view_.pageCount()));
        return;
    }
    const int printed = view_.PrintToFile(options_.printFile, wanted, options_.fullSize);
    end(printed == wanted.size() ? 0 : 1, printed == wanted.size()
                                              ? QString()
                                              : QStringLiteral("%1 of %2 pages printed to '%3'.")
                                                    .arg(printed)
                                                    .arg(wanted.size())
                                                    .arg(options_.printFile));
}

void PrintFileJob::end(int exitCode, const QString& message) {
    if (ended_)
        return;
    ended_ = true;
    look_.stop();
    if (!message.isEmpty())
        std::fprintf(stderr, "pixmo: %s\n", qUtf8Printable(message));
    QApplication::exit(exitCode);
}

} // namespace pixmo::viewer
