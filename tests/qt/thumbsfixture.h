#pragma once

#include "faces/qt/ports/settingsstore.h"
#include "faces/qt/windows/thumbsview.h"
#include "faces/qt/windows/thumbswindow.h"
#include "tests/qt/viewfixture.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <utility>

namespace pixmo::qt {

/// Keeps a picture of a window when PIXMO_TEST_PICTURES names a folder, for a human to look at.
inline void keepPicture(QWidget& window, const QString& name) {
    const QString folder = qEnvironmentVariable("PIXMO_TEST_PICTURES");
    if (!folder.isEmpty())
        window.grab().save(QDir(folder).filePath(name + QLatin1String(".png")));
}

/// The thumbnail window over a widget with a document.
class ThumbsFixture : public ViewFixture {
protected:
    /// What another test left is not wanted.
    ThumbsFixture() {
        for (const auto& [key, value] :
             {std::pair{"ItemSizeFactor", "100"}, std::pair{"mnuPopToolbar", "True"},
              std::pair{"mnuPopup1LargeButtons", "True"}, std::pair{"mnuPopup1ButtonCaptions", "False"},
              std::pair{"Form.Width", "420"}, std::pair{"Form.Height", "560"}})
            SettingsStore().SaveSetting("dlgThumbs.", key, value);
    }

    void openThumbs(int document = sample::ManyPages) {
        view->setThumbsAvailable(true);
        view->LoadDocumentByDocID(document, 1);
        ASSERT_TRUE(waitForPage(1));
        view->action(QStringLiteral("THUMBS"))->trigger();
        ASSERT_TRUE(window());
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window()));
    }

    ThumbsWindow* window() const {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* const thumbs = qobject_cast<ThumbsWindow*>(widget); thumbs && thumbs->isVisible())
                return thumbs;
        return nullptr;
    }
    ThumbsView& list() const { return window()->view(); }
    std::shared_ptr<dlgThumbs> thumbs() const { return list().thumbs(); }

    bool waitForThumbs() const {
        return waitFor([this] {
            const ThumbGrid::Range range = thumbs()->grid().visible();
            for (int item = range.first; item < range.end; ++item)
                if (const auto state = thumbs()->state(static_cast<int16_t>(item + 1));
                    state != ThumbState::Shown && state != ThumbState::Failed)
                    return false;
            return true;
        });
    }

    QRect cell(int item) const { return toQt(thumbs()->grid().cell(item)); }
    QPoint middle(int page) const { return cell(page - 1).center(); }
    void click(int page, Qt::KeyboardModifiers with = {}) const {
        QTest::mouseClick(list().viewport(), Qt::LeftButton, with, middle(page));
    }
};

} // namespace pixmo::qt
