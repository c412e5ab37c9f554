#pragma once

#include "faces/qt/widget/imageview.h"
#include "tests/qt/boxwatcher.h"
#include "tests/qt/engineprocess.h"
#include "tests/qt/waiting.h"

#include <QDir>
#include <QFile>
#include <QPixmap>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>

namespace pixmo::qt {

/// Keeps a picture of a window when PIXMO_TEST_PICTURES names a folder, for a human to look at.
inline void keepPicture(QWidget& window, const QString& name) {
    const QString folder = qEnvironmentVariable("PIXMO_TEST_PICTURES");
    if (!folder.isEmpty())
        window.grab().save(QDir(folder).filePath(name + QLatin1String(".png")));
}

/// The documents of the samples that tests ask for.
namespace sample {
inline constexpr int ManyPages = 1001;
inline constexpr int ManyPagesCount = 12;
inline constexpr int OtherDocument = 1002;
} // namespace sample

/// A widget before the sample engine.
class ViewFixture : public testing::Test {
protected:
    ViewFixture() { makeView(); }

    void makeView() {
        view = std::make_unique<ImageView>();
        view->setEngineAddress(engine.address());
        view->setFetchDelay(1);
        view->setResizeDelay(1);
        view->resize(700, 600);
        view->show();
    }

    bool waitForPage(int page) const {
        return waitFor(
            [&] { return view && view->isIdle() && view->isPageDisplayed() && view->page() == page; });
    }
    bool waitUntilIdle() const {
        return waitFor([&] { return view->isIdle(); });
    }

    /// Page files in all scratch folders.
    static int pageFiles() {
        int count = 0;
        for (const auto& entry :
             std::filesystem::recursive_directory_iterator(std::filesystem::temp_directory_path()))
            count += entry.path().extension() == ".dat" ? 1 : 0;
        return count;
    }

    EngineProcess engine;
    BoxWatcher boxes;
    std::unique_ptr<ImageView> view;
};

} // namespace pixmo::qt
