#include "core/thumbs/dlgthumbs.h"

#include "core/base/error.h"
#include "core/base/text.h"
#include "core/diag/settings.h"
#include "core/imaging/reducer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace pixmo {

namespace {

constexpr int32_t LoadInterval = 15; ///< milliseconds
constexpr size_t MostRequests = 3;
constexpr Size PictureAtFull = {100, 130}; ///< at a factor of 100 percent

constexpr const char* KeyToolbar = "mnuPopToolbar";
constexpr const char* KeyLargeButtons = "mnuPopup1LargeButtons";
constexpr const char* KeyCaptions = "mnuPopup1ButtonCaptions";
constexpr const char* KeyFactor = "ItemSizeFactor";

int32_t clampedFactor(int32_t percent) {
    return std::clamp(percent, dlgThumbs::SmallestFactor, dlgThumbs::LargestFactor);
}

/// What part of the window's top edge has to be on a screen, so that it can be taken hold of.
constexpr int32_t GripWidth = 80;
constexpr int32_t GripHeight = 30;

bool canBeGripped(const FormPosition& form, const std::vector<Rectangle>& screens) {
    return std::any_of(screens.begin(), screens.end(), [&](const Rectangle& screen) {
        const Rectangle bar = {form.left, form.top, form.width, GripHeight};
        const Rectangle seen = intersection(bar, screen);
        return seen.width >= std::min(GripWidth, form.width) && seen.height >= GripHeight;
    });
}

} // namespace

dlgThumbs::dlgThumbs(const ThumbDocument& document, TimerFactory& timers, SettingsStore& settings,
                     ViewSurface& surface)
    : document_(document), settings_(settings), surface_(surface),
      tmrLoad_(timers.createTimer([this] { tmrLoad_Timer(); })) {
    tmrLoad_->setInterval(LoadInterval);
    LoadSettings();
}

void dlgThumbs::changed() {
    surface_.repaint();
    Changed.raise();
}

void dlgThumbs::startLoading() {
    if (grid_.itemCount() > 0)
        tmrLoad_->start();
}

void dlgThumbs::reset() {
    tmrLoad_->stop();
    pictures_.clear();
    selection_.clear();
    loading_.clear();
    followedPage_ = 0;
    bandActive_ = false;
    grid_.setItemCount(0);
    changed();
}

void dlgThumbs::documentChanged() {
    const int16_t count = document_.pageCount();
    const int16_t page = document_.currentPage();
    if (count == grid_.itemCount() && page == followedPage_)
        return;
    grid_.setItemCount(count);
    if (page > 0 && page <= count && page != followedPage_) {
        grid_.scrollToItem(page - 1);
        if (selection_.focus() < 0)
            selection_.setFocus(page - 1);
    }
    followedPage_ = page;
    startLoading();
    changed();
}

void dlgThumbs::resized() {
    const double ratio = surface_.devicePixelRatio();
    grid_.setViewport(
        {static_cast<int32_t>(surface_.width() / ratio), static_cast<int32_t>(surface_.height() / ratio)});
    startLoading();
    changed();
}

void dlgThumbs::scrollTo(int32_t position) {
    const int32_t before = grid_.scrollPosition();
    grid_.scrollTo(position);
    if (grid_.scrollPosition() == before)
        return;
    startLoading();
    changed();
}

void dlgThumbs::setItemSizeFactor(int32_t percent) {
    if (clampedFactor(percent) == itemSizeFactor_)
        return;
    itemSizeFactor_ = clampedFactor(percent);
    grid_.setPictureSize(
        {PictureAtFull.width * itemSizeFactor_ / 100, PictureAtFull.height * itemSizeFactor_ / 100});
    pictures_.dropPictures();
    startLoading();
    changed();
}

/// Whether the page is still to be asked for.
bool dlgThumbs::isWanted(int16_t page) const {
    return pictures_.state(page - 1) == ThumbState::Empty;
}

/// The visible page nearest to the middle of the window that has no picture yet, then one of the rows beyond;
/// 0 for none.
int16_t dlgThumbs::nextWanted() const {
    for (const int32_t beyond : {0, 1}) {
        const ThumbGrid::Range range = grid_.visible(beyond);
        const int32_t middle = (range.first + range.end) / 2;
        int16_t nearest = 0;
        for (int32_t item = range.first; item < range.end; ++item) {
            const auto page = static_cast<int16_t>(item + 1);
            if (isWanted(page) && (nearest == 0 || std::abs(item - middle) < std::abs(nearest - 1 - middle)))
                nearest = page;
        }
        if (nearest != 0)
            return nearest;
    }
    return 0;
}

/// Items whose transfer ended without their being posted: to be asked for again when the page is there after
/// all (it was taken by the view), else failed.
void dlgThumbs::settle() {
    for (auto page = loading_.begin(); page != loading_.end();) {
        const bool over = pictures_.state(*page - 1) != ThumbState::Loading;
        if (!over && document_.isPagePending(*page)) {
            ++page;
            continue;
        }
        if (!over && document_.isPageCached(*page))
            pictures_.setEmpty(*page - 1);
        else if (!over)
            pictures_.setFailed(*page - 1, document_.transferProblem().empty()
                                               ? "The page could not be loaded."
                                               : document_.transferProblem());
        page = loading_.erase(page);
        changed();
    }
}

void dlgThumbs::tmrLoad_Timer() {
    settle();
    const int16_t page = nextWanted();
    if (page == 0 && loading_.empty()) {
        tmrLoad_->stop();
        return;
    }
    const bool cached = page != 0 && document_.isPageCached(page);
    if (page == 0 || (!cached && (loading_.size() >= MostRequests || document_.isReaderWaiting())))
        return;
    pictures_.setLoading(page - 1);
    loading_.insert(page);
    LoadThumbImage.raise(page);
}

void dlgThumbs::PostImageToThumbnail(int16_t page, const std::filesystem::path& file, int32_t encBytes) {
    if (page < 1 || page > grid_.itemCount())
        return;
    loading_.erase(page);
    Raster raster;
    std::string problem;
    if (document_.loadPage(file, encBytes, raster, problem) != 0) {
        pictures_.setFailed(page - 1, problem);
    } else {
        const double ratio = surface_.devicePixelRatio();
        const auto device = [ratio](int32_t length) {
            return std::max(1, static_cast<int32_t>(std::lround(length * ratio)));
        };
        ThumbPicture picture;
        picture.size =
            sizeInside(raster, {device(grid_.pictureSize().width), device(grid_.pictureSize().height)});
        const auto width = static_cast<size_t>(picture.size.width);
        picture.pixels.resize(width * static_cast<size_t>(picture.size.height));
        drawPicture(raster, {picture.pixels.data(), picture.size.width, picture.size.height, width});
        pictures_.setPicture(page - 1, std::move(picture));
    }
    changed();
}

void dlgThumbs::retry(int16_t page) {
    if (pictures_.state(page - 1) != ThumbState::Failed)
        return;
    pictures_.setEmpty(page - 1);
    startLoading();
    changed();
}

void dlgThumbs::LoadSettings() {
    const auto text = [this](const char* key, const std::string& fallback) {
        return settings_.GetSetting(setting::ThumbnailSection, key, fallback);
    };
    const auto flag = [&](const char* key, bool fallback) {
        try {
            return toBoolean(text(key, fallback ? "True" : "False"));
        } catch (const Error&) {
            return fallback;
        }
    };
    mnuPopToolbar = flag(KeyToolbar, mnuPopToolbar);
    mnuPopup1LargeButtons = flag(KeyLargeButtons, mnuPopup1LargeButtons);
    mnuPopup1ButtonCaptions = flag(KeyCaptions, mnuPopup1ButtonCaptions);
    const double factor = std::clamp(leadingNumber(text(KeyFactor, "100")), 0.0, 1000.0);
    setItemSizeFactor(factor > 0 ? roundToLong(factor / 10) * 10 : 100);
}

void dlgThumbs::SaveSettings() {
    const auto save = [this](const char* key, const std::string& value) {
        settings_.SaveSetting(setting::ThumbnailSection, key, value);
    };
    const auto flag = [](bool value) { return std::string(value ? "True" : "False"); };
    save(KeyToolbar, flag(mnuPopToolbar));
    save(KeyLargeButtons, flag(mnuPopup1LargeButtons));
    save(KeyCaptions, flag(mnuPopup1ButtonCaptions));
    save(KeyFactor, std::to_string(itemSizeFactor_));
}

FormPosition dlgThumbs::LoadFormPosition(const std::vector<Rectangle>& screens,
                                         const FormPosition& fallback) const {
    const auto number = [this](const char* key, int32_t otherwise) {
        const std::string text =
            settings_.GetSetting(setting::ThumbnailSection, key, std::to_string(otherwise));
        try {
            return std::clamp(toLong(text), -100'000, 100'000);
        } catch (const Error&) {
            return otherwise;
        }
    };
    FormPosition form = {number("Form.Left", fallback.left), number("Form.Top", fallback.top),
                         number("Form.Width", fallback.width), number("Form.Height", fallback.height)};
    if (form.width < 100 || form.height < 100)
        form = fallback;
    if (screens.empty() || canBeGripped(form, screens))
        return form;
    const Rectangle& screen = screens.front();
    form.width = std::min(form.width, screen.width);
    form.height = std::min(form.height, screen.height);
    form.left = std::clamp(form.left, screen.left, screen.right() - form.width);
    form.top = std::clamp(form.top, screen.top, screen.bottom() - form.height);
    return form;
}

void dlgThumbs::SaveFormPosition(const FormPosition& position) {
    const std::array<std::pair<const char*, int32_t>, 4> values = {{{"Form.Left", position.left},
                                                                    {"Form.Top", position.top},
                                                                    {"Form.Width", position.width},
                                                                    {"Form.Height", position.height}}};
    for (const auto& [key, value] : values)
        settings_.SaveSetting(setting::ThumbnailSection, key, std::to_string(value));
}

} // namespace pixmo
