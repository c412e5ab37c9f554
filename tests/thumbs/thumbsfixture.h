#pragma once

#include "core/thumbs/dlgthumbs.h"
#include "faces/scripted/scriptedcontrol.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace pixmo {

using Pages = std::vector<int16_t>;

/// A control with a document and its thumbnail window: 800 by 1000, so that 6 cells stand side by side and
/// 7 rows are seen.
class ThumbsFixture : public testing::Test {
protected:
    static constexpr int32_t Document = 5;

    void open(int16_t pageCount, int16_t page = 1) {
        control.open(Document, page, pageCount);
        finish(page);
        control.view->runCommand("THUMBS");
    }

    std::shared_ptr<dlgThumbs> thumbs() const {
        dlgThumbs* const window = control.view->thumbnails().window();
        return window ? window->shared_from_this() : nullptr;
    }

    void finish(int32_t page, const std::string& data = scripted::ScriptedControl::pageFile()) {
        control.reader->finish(control.tag("GP", Document, page), data);
    }
    void fail(int32_t page, const std::string& why) {
        control.reader->fail(control.tag("GP", Document, page), why);
    }

    bool isRequested(int32_t page) const {
        return control.reader->isRunning(control.tag("GP", Document, page));
    }

    /// The pages asked for so far, in order, without the first so many.
    Pages requests(size_t from = 0) const {
        Pages pages;
        const std::string start =
            control.tag("GP", Document) + std::get<std::string>(control.view->property("Delimiter"));
        for (const AsyncRequest& request : control.reader->requests)
            if (request.PropertyName.starts_with(start))
                pages.push_back(static_cast<int16_t>(std::stoi(request.PropertyName.substr(start.size()))));
        pages.erase(pages.begin(), pages.begin() + static_cast<std::ptrdiff_t>(std::min(from, pages.size())));
        return pages;
    }

    /// Lets the window's timer of that interval fire so often: by 15 it loads, by 30 a band scrolls.
    void tick(int times = 1, int32_t interval = 15) const {
        for (; times > 0 && thumbs(); --times)
            for (scripted::Timer* timer : std::vector(control.timers->alive))
                if (timer->interval() == interval && timer->isRunning())
                    timer->fire();
    }
    bool isLoading() const {
        return std::any_of(control.timers->alive.begin(), control.timers->alive.end(),
                           [](const auto* timer) { return timer->interval() == 15 && timer->isRunning(); });
    }

    /// Answers every page until nothing is wanted any more.
    void loadAll() {
        for (int round = 0; round < 1000 && isLoading(); ++round) {
            tick();
            for (const int16_t page : requests())
                if (isRequested(page))
                    finish(page);
        }
        ASSERT_FALSE(isLoading());
    }

    /// The middle of a page's cell.
    void click(int16_t page, int16_t shift = 0) const {
        const Rectangle cell = thumbs()->grid().cell(page - 1);
        thumbs()->click(cell.left + cell.width / 2, cell.top + cell.height / 2, shift);
    }

    scripted::ScriptedControl control;
};

} // namespace pixmo
