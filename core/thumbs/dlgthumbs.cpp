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

/// Onto the screen that shows most of it, or else onto the first.
FormPosition broughtOnto(const std::vector<Rectangle>& screens, FormPosition form) {
    const auto shown = [&form](const Rectangle& screen) {
        const Rectangle seen = intersection({form.left, form.top, form.width, form.height}, screen);
        return int64_t{std::max(seen.width, 0)} * std::max(seen.height, 0);
    };
    const Rectangle& screen =
        *std::max_element(screens.begin(), screens.end(),
                          [&](const Rectangle& a, const Rectangle& b) { return shown(a) < shown(b); });
    form.width = std::min(form.width, screen.width);
    form.height = std::min(form.height, screen.height);
    form.left = std::clamp(form.left, screen.left, screen.right() - form.width);
    form.top = std::clamp(form.top, screen.top, screen.bottom() - form.height);
    return form;
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
    : document_(document), settings_(settings), surface_(surface), tmrLoad_(timers.createTimer([this] {
          const auto held = weak_from_this().lock();
          tmrLoad_Timer();
      })),
      mouse_(*this, timers) {
    tmrLoad_->setInterval(LoadInterval);
    LoadSettings();
}

void dlgThumbs::changed() {
    surface_.repaint();
    Changed.raise();
}

void dlgThumbs::startLoading() {
    if (shown_ && grid_.itemCount() > 0)
        tmrLoad_->start();
}

void dlgThumbs::reset() {
    tmrLoad_->stop();
    pictures_.clear();
    selection_.clear();
    loading_.clear();
    notFetched_.clear();
    followedPage_ = 0;
    mouse_.release();
    grid_.setItemCount(0);
    changed();
}

void dlgThumbs::setShown(bool shown) {
    shown_ = shown;
    if (shown) {
        startLoading();
    } else {
        tmrLoad_->stop();
        mouse_.release();
    }
}

/// The view has the page that no thumbnail could be made of.
void dlgThumbs::reviveCurrentPage() {
    const int16_t page = document_.currentPage();
    if (!notFetched_.contains(page) || !document_.isPageCached(page))
        return;
    notFetched_.erase(page);
    retry(page);
}

void dlgThumbs::documentChanged() {
    const int16_t count = document_.pageCount();
    const int16_t page = document_.currentPage();
    reviveCurrentPage();
    const int32_t document = document_.documentID();
    if (count == grid_.itemCount() && page == followedPage_ && document == shownDocument_)
        return;
    if (count != grid_.itemCount() || document != shownDocument_)
        reset();
    shownDocument_ = document;
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
    if (ratio_ != ratio)
        pictures_.outdatePictures();
    ratio_ = ratio;
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
    pictures_.outdatePictures();
    startLoading();
    changed();
}

int16_t dlgThumbs::nearestWanted(int32_t rowsBeyond, bool cachedOnly) const {
    const ThumbGrid::Range range = grid_.visible(rowsBeyond);
    const int32_t middle = (range.first + range.end) / 2;
    int16_t nearest = 0;
    for (int32_t item = range.first; item < range.end; ++item) {
        const auto page = static_cast<int16_t>(item + 1);
        if (!pictures_.isWanted(item) || (cachedOnly && !document_.isPageCached(page)))
            continue;
        if (nearest == 0 || std::abs(item - middle) < std::abs(nearest - 1 - middle))
            nearest = page;
    }
    return nearest;
}

/// The page in the window nearest to its middle that has no picture yet, then one of the rows beyond; 0 for
/// none.
int16_t dlgThumbs::nextWanted(bool cachedOnly) const {
    const int16_t page = nearestWanted(0, cachedOnly);
    return page != 0 ? page : nearestWanted(1, cachedOnly);
}

bool dlgThumbs::mayFetch() const {
    return loading_.size() < MostRequests && !document_.isReaderWaiting();
}

/// Items whose transfer ended without their being posted: to be asked for again when the page is there after
/// all (it was taken by the view), else failed.
void dlgThumbs::settle() {
    const std::set<int16_t> loading = loading_;
    for (const int16_t page : loading) {
        const bool posted = pictures_.state(page - 1) != ThumbState::Loading;
        if (!posted && document_.isPagePending(page))
            continue;
        if (posted)
            loading_.erase(page);
        else if (document_.isPageCached(page))
            loading_.erase(page), pictures_.setEmpty(page - 1);
        else
            failThumbnail(page, document_.transferProblem());
        changed();
    }
}

void dlgThumbs::tmrLoad_Timer() {
    settle();
    if (loading_.empty() && nextWanted(false) == 0) {
        tmrLoad_->stop();
        return;
    }
    const int16_t page = nextWanted(!mayFetch());
    if (page == 0)
        return;
    pictures_.setLoading(page - 1);
    loading_.insert(page);
    LoadThumbImage.raise(page);
}

void dlgThumbs::failThumbnail(int16_t page, const std::string& reason) {
    if (page < 1 || page > grid_.itemCount())
        return;
    loading_.erase(page);
    notFetched_.insert(page);
    pictures_.setFailed(page - 1, reason.empty() ? "The page could not be loaded." : reason);
    changed();
}

void dlgThumbs::PostImageToThumbnail(int16_t page, const std::filesystem::path& file, int32_t encBytes) {
    if (page < 1 || page > grid_.itemCount())
        return;
    loading_.erase(page);
    Raster raster;
    std::string problem;
    if (document_.loadPage(file, encBytes, raster, problem) == 0)
        showPicture(page - 1, raster);
    else
        pictures_.setFailed(page - 1, problem);
    changed();
}

void dlgThumbs::showPicture(int32_t item, const Raster& raster) {
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
    const ThumbGrid::Range seen = grid_.visible(1);
    pictures_.setPicture(item, std::move(picture), seen.first, seen.end);
}

void dlgThumbs::retry(int16_t page) {
    if (pictures_.state(page - 1) != ThumbState::Failed)
        return;
    notFetched_.erase(page);
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

FormPosition dlgThumbs::usualPlace(const Rectangle& viewer) {
    constexpr int32_t beside = 8;
    constexpr Size usual = {420, 560};
    return {viewer.right() + beside, viewer.top, usual.width, usual.height};
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
    // What nobody has placed yet is seen as a whole.
    const bool placed = form != fallback;
    return screens.empty() || (placed && canBeGripped(form, screens)) ? form : broughtOnto(screens, form);
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
