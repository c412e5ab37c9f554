#pragma once

#include "core/base/event.h"
#include "core/base/menu.h"
#include "core/base/toolbar.h"
#include "core/platform/settingsstore.h"
#include "core/platform/timer.h"
#include "core/platform/viewsurface.h"
#include "core/thumbs/thumbdocument.h"
#include "core/thumbs/thumbgrid.h"
#include "core/thumbs/thumbmouse.h"
#include "core/thumbs/thumbnailwindow.h"
#include "core/thumbs/thumbpictures.h"
#include "core/thumbs/thumbselection.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace pixmo {

/// Position and size of a window, device-independent pixels of the desktop.
struct FormPosition {
    int32_t left = 0;
    int32_t top = 0;
    int32_t width = 0;
    int32_t height = 0;
    bool operator==(const FormPosition&) const = default;
};

/// The window that lists every page as a thumbnail. Pages count from 1; positions are device-independent
/// pixels of its picture area. Whoever calls it holds it during the call, which may bring about its end.
class dlgThumbs : public ThumbnailWindow, public std::enable_shared_from_this<dlgThumbs> {
public:
    static constexpr int32_t SmallestFactor = 20; ///< percent
    static constexpr int32_t LargestFactor = 300;
    static constexpr Size LeastSize = {160, 160}; ///< of the window

    /// All outlive the window.
    dlgThumbs(const ThumbDocument& document, TimerFactory& timers, SettingsStore& settings,
              ViewSurface& surface);

    Event<int16_t> ItemSelected;                       ///< the page to jump to
    Event<int16_t> LoadThumbImage;                     ///< the page to be posted
    Event<const std::vector<int16_t>&> PrintSelection; ///< the pages, in order
    Event<> Changed;                                   ///< selection, size, toolbar or scroll position

    void PostImageToThumbnail(int16_t page, const std::filesystem::path& file, int32_t encBytes) override;
    void failThumbnail(int16_t page, const std::string& reason) override;
    void reset() override;
    /// Thumbnails are loaded only while the window is to be seen.
    void setShown(bool shown);
    /// Page count or current page have changed; follows the current page.
    void documentChanged();
    void resized();

    /// The visible thumbnails are loaded from this timer.
    void tmrLoad_Timer();
    void retry(int16_t page);

    void larger() { setItemSizeFactor(itemSizeFactor_ + 10); }
    void smaller() { setItemSizeFactor(itemSizeFactor_ - 10); }
    int32_t itemSizeFactor() const { return itemSizeFactor_; }
    void setItemSizeFactor(int32_t percent);

    /// What a face tells of the mouse.
    ThumbMouse& mouse() { return mouse_; }
    /// The page there; 0 for none.
    int16_t pageAt(double x, double y) const;
    /// Where a menu opens that the keyboard asks for: at the page that has the focus, as far as it is seen.
    Rectangle menuPlace() const;
    /// On a page that failed it tries again.
    void click(int32_t x, int32_t y, int16_t shift);
    void doubleClick(int32_t x, int32_t y);
    void bandStart(int32_t x, int32_t y, int16_t shift);
    void bandMove(int32_t x, int32_t y);
    void bandEnd();
    bool isBandShown() const { return bandActive_; }
    Rectangle band() const { return band_; }
    void scrollTo(int32_t position);
    /// Virtual-key codes; whether the key means something.
    bool keyDown(int16_t keyCode, int16_t shift);
    void selectAll();
    void setSelected(int16_t page, bool selected);
    void printSelection();
    std::vector<int16_t> selectedPages() const;

    /// "Thumbnails - Document 1001", with a dash.
    std::string Caption() const;
    /// What to show in place of the thumbnails; "" when there are some.
    std::string notice() const;
    /// What a pointer that rests on the page, or there, is told; "" where there is none.
    std::string tip(int16_t page) const;
    std::string tipAt(double x, double y) const;
    /// What assistive programs are told of the page: "Page 4", and why it failed or that it is on screen.
    static std::string name(int16_t page);
    std::string description(int16_t page) const;
    struct Facts {
        bool selected = false;
        bool focus = false; ///< the keyboard moves from here
        bool loading = false;
        bool seen = false;
    };
    Facts facts(int16_t page) const;
    /// What has changed since the last call that assistive programs are told of.
    struct Told {
        bool focus = false;
        bool selection = false;
    };
    Told takeChanges();
    int16_t currentPage() const { return followedPage_; }
    bool canPrintSelection() const { return document_.canPrint() && !selection_.items().empty(); }

    const ThumbGrid& grid() const { return grid_; }
    const ThumbSelection& selection() const { return selection_; }
    ThumbState state(int16_t page) const { return pictures_.state(page - 1); }
    std::string reason(int16_t page) const { return pictures_.reason(page - 1); }
    const ThumbPicture* picture(int16_t page) { return pictures_.picture(page - 1); }
    size_t pixelCount() const { return pictures_.pixelCount(); }

    /// What the window's toolbar and its two menus, of the toolbar and of the thumbnails, show now.
    Toolbar toolbar() const;
    std::vector<MenuItem> toolbarMenu() const;
    std::vector<MenuItem> viewMenu() const;
    /// A command of toolbar or menu; ignored while it is disabled.
    void run(std::string_view key);

    bool mnuPopToolbar = true;
    bool mnuPopup1LargeButtons = true;
    bool mnuPopup1ButtonCaptions = false;
    void LoadSettings();
    void SaveSettings();
    /// Beside the window of the viewer.
    static FormPosition usualPlace(const Rectangle& viewer);
    /// The kept position, or the default, moved onto the screens (their usable areas).
    FormPosition LoadFormPosition(const std::vector<Rectangle>& screens, const FormPosition& fallback) const;
    void SaveFormPosition(const FormPosition& position);

private:
    void settle();
    void reviveCurrentPage();
    bool mayFetch() const;
    int16_t nextWanted(bool cachedOnly) const;
    int16_t nearestWanted(int32_t rowsBeyond, bool cachedOnly) const;
    void showPicture(int32_t item, const Raster& raster);
    void startLoading();
    void changed();
    std::optional<int32_t> moveOf(int16_t keyCode) const;
    void moveFocus(int32_t item, int16_t shift);
    void jumpToFocus();
    void toggleFocus();
    std::set<int32_t> itemsIn(const Rectangle& rectangle) const;

    const ThumbDocument& document_;
    SettingsStore& settings_;
    ViewSurface& surface_;
    std::unique_ptr<Timer> tmrLoad_;
    ThumbGrid grid_;
    ThumbSelection selection_;
    ThumbPictures pictures_;
    std::set<int16_t> loading_;
    std::set<int16_t> notFetched_; ///< failed for want of the page itself
    double ratio_ = 0;
    bool shown_ = false;
    int32_t itemSizeFactor_ = 100;
    int16_t followedPage_ = 0;
    int32_t shownDocument_ = 0;
    bool bandActive_ = false;
    int32_t bandX_ = 0;
    int32_t bandY_ = 0; ///< in the whole list, not in the window
    Rectangle band_;
    std::set<int32_t> bandBefore_;
    int32_t toldFocus_ = -1;
    size_t toldSelected_ = 0;
    ThumbMouse mouse_;
};

} // namespace pixmo
