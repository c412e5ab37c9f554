#include "bench/view/viewbench.h"
#include "faces/qt/windows/thumbsview.h"
#include "faces/qt/windows/thumbswindow.h"
#include "tests/qt/waiting.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <cstdio>
#include <filesystem>
#include <stdexcept>

namespace pixmo::bench {

namespace {

constexpr int Document = 7;
constexpr int Count = 2000;
constexpr int Frames = 200;

/// A document of many pages, each one of those of the deed.
void makeDocument(const std::filesystem::path& folder) {
    const QDir deed(QStringLiteral(PIXMO_SAMPLES "/1001"));
    const QStringList originals = deed.entryList(QDir::Files);
    std::filesystem::create_directories(folder);
    for (int page = 0; page < Count; ++page) {
        char name[16];
        std::snprintf(name, sizeof name, "p%04d.tif", page);
        std::filesystem::copy_file(deed.filePath(originals.at(page % originals.size())).toStdString(),
                                   folder / name);
    }
}

qt::ThumbsWindow* openWindow() {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* const window = qobject_cast<qt::ThumbsWindow*>(widget); window && window->isVisible())
            return window;
    throw std::runtime_error("The thumbnails do not open.");
}

bool areShown(dlgThumbs& thumbs) {
    const ThumbGrid::Range range = thumbs.grid().visible();
    for (int item = range.first; item < range.end; ++item)
        if (thumbs.state(static_cast<int16_t>(item + 1)) != ThumbState::Shown)
            return false;
    return true;
}

/// Goes through the document screen by screen until all has been seen once.
void seeAll(dlgThumbs& thumbs) {
    for (int position = 0;; position += 900) {
        thumbs.scrollTo(position);
        if (!qt::waitFor([&] { return areShown(thumbs); }))
            throw std::runtime_error("A thumbnail does not come.");
        if (thumbs.grid().scrollPosition() < position)
            return;
    }
}

void scroll(dlgThumbs& thumbs, qt::ThumbsView& list) {
    std::vector<Duration> times;
    times.reserve(Frames);
    for (int frame = 0; frame < Frames; ++frame)
        times.push_back(durationOf([&] {
            thumbs.scrollTo(thumbs.grid().scrollPosition() + (frame % 40 < 20 ? 7 : -7));
            list.viewport()->repaint();
        }));
    report("thumbnails, a frame while scrolling", times);
}

} // namespace

void openManyThumbnails() {
    const QTemporaryDir folder;
    makeDocument(std::filesystem::path(folder.path().toStdString()) / std::to_string(Document));
    ViewBench bench(folder.path());
    bench.open(Document, 1);
    const double before = residentMebibytes();
    QAction* const command = bench.view().action(QStringLiteral("THUMBS"));
    std::printf("%d thumbnails: window open after %.1f ms", Count,
                durationOf([&] {
                    command->trigger();
                    openWindow()->view().viewport()->repaint();
                }).wall);
    qt::ThumbsWindow& window = *openWindow();
    window.resize(1200, 1000);
    const auto thumbs = window.view().thumbs();
    std::printf(", the visible ones after %.0f ms\n",
                durationOf([&] { qt::waitFor([&] { return areShown(*thumbs); }); }).wall);
    scroll(*thumbs, window.view());
    const double opened = residentMebibytes();
    const double seconds = durationOf([&] { seeAll(*thumbs); }).wall / 1000;
    scroll(*thumbs, window.view());
    std::printf("memory: without %.0f MiB, open %.0f MiB, all seen once (in %.0f s) %.0f MiB\n", before,
                opened, seconds, residentMebibytes());
}

} // namespace pixmo::bench
