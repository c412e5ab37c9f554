// Documents in the control, as each kind of host opens them.
#include "faces/com/base/boundary.h"
#include "faces/com/control/identifiers.h"
#include "tests/com/control/hosting/canvas.h"
#include "tests/com/control/hosting/container.h"
#include "tests/com/control/hosting/modalwatcher.h"
#include "tests/com/control/hosting/smallengine.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace pixmo::com::test {
namespace {

using Calls = std::vector<std::string>;

/// One for all tests: the system keeps its connections to a server that was asked once.
SmallEngine& theEngine() {
    static SmallEngine engine;
    return engine;
}

class Documents : public testing::Test {
protected:
    /// Nothing may be asked of the user here.
    ModalWatcher watcher{[](HWND dialog) {
        ADD_FAILURE() << ModalWatcher::textOf(dialog);
        ModalWatcher::giveUp(dialog);
    }};
    Library library;
    SmallEngine& engine = theEngine();
};

class Loading : public Documents, public testing::WithParamInterface<HostProfile> {
protected:
    void open(Container& host, SHORT page) {
        host.initialise();
        if (GetParam().hasPlace)
            host.activate();
        host.put(L"EngineAddress", Variant(std::string_view(engine.address())));
        host.put(L"FetchDelay", Variant(int32_t{0}));
        ASSERT_EQ(host.as<IImageView>()->LoadDocumentByDocID(SmallEngine::Document, page), S_OK);
    }

    static bool hasShown(const Container& host, int page) {
        const std::string told = "PageChanged(7, " + std::to_string(page) + ")";
        return std::ranges::find(host.events.events, told) != host.events.events.end();
    }

    static uint32_t colourInTheMiddle(const Container& host) {
        const Canvas canvas(200, 160);
        const RECTL bounds{0, 0, 200, 160};
        check(host.as<IViewObject2>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, canvas.target(),
                                            &bounds, nullptr, nullptr, 0));
        return canvas.at(100, 80);
    }
};

TEST_P(Loading, showsThePageAndTellsTheHost) {
    Container host(library, GetParam());
    open(host, 2);
    ASSERT_TRUE(pumpUntil([&] { return hasShown(host, 2); }));
    EXPECT_EQ(host.text(L"PageCount"), "3");
    EXPECT_EQ(colourInTheMiddle(host), SmallEngine::colourOf(2)) << "the page, also where no window is";
    host.put(L"Page", Variant(int32_t{3}));
    ASSERT_TRUE(pumpUntil([&] { return hasShown(host, 3); }));
    EXPECT_EQ(colourInTheMiddle(host), SmallEngine::colourOf(3));
    EXPECT_EQ(host.as<IImageView>()->Clear(), S_OK);
    EXPECT_EQ(host.events.events.back(), "PageChanged(0, 0)");
    EXPECT_NE(colourInTheMiddle(host), SmallEngine::colourOf(3));
}

TEST_P(Loading, mayBeLeftAtAnyMoment) {
    for (const size_t requests : {1U, 2U, 3U}) {
        const size_t before = engine.requests();
        Container host(library, GetParam());
        open(host, 1);
        pumpUntil([&] { return engine.requests() - before >= requests; }, 1000);
        EXPECT_EQ(host.close(), 0U);
    }
    pumpFor(100);
    EXPECT_TRUE(library.canUnload());
}

constexpr HostProfile Running[] = {ScriptOnly, Browser, FormRun, DatabaseForm, KeyboardStrict};

INSTANTIATE_TEST_SUITE_P(Profiles, Loading, testing::ValuesIn(Running),
                         [](const auto& profile) { return profile.param.name; });

TEST_F(Documents, aDesignedFormAsksNoServer) {
    const size_t before = engine.requests();
    Container host(library, FormDesign);
    host.initialise();
    host.activate();
    host.put(L"EngineAddress", Variant(std::string_view(engine.address())));
    EXPECT_EQ(host.put(L"DocID", Variant(int32_t{7})), S_OK);
    EXPECT_EQ(host.as<IImageView>()->LoadDocumentByDocID(7, 1), S_OK);
    pumpFor(200);
    EXPECT_EQ(engine.requests(), before);
    EXPECT_EQ(host.text(L"DocID"), "0");
    EXPECT_TRUE(host.events.events.empty());
}

// What a host's handler writes into an argument decides what the control does next.
TEST_F(Documents, handlersChangeKeysByReference) {
    Container host(library, FormRun);
    host.initialise();
    ASSERT_EQ(host.verb(OLEIVERB_UIACTIVATE), S_OK);
    SetForegroundWindow(host.site.handle);
    host.verb(OLEIVERB_UIACTIVATE);
    const HWND focused = GetFocus();
    ASSERT_TRUE(focused && IsChild(host.site.handle, focused));
    const auto type = [&](char letter) {
        host.events.events.clear();
        const UINT scan = MapVirtualKeyW(static_cast<UINT>(letter), MAPVK_VK_TO_VSC) << 16U;
        PostMessageW(focused, WM_KEYDOWN, static_cast<WPARAM>(letter), static_cast<LPARAM>(scan | 1U));
        pumpFor(50); // the character comes behind the messages that wait already
        PostMessageW(focused, WM_KEYUP, static_cast<WPARAM>(letter), static_cast<LPARAM>(scan | 0xC0000001U));
        pumpUntil(
            [&] { return !host.events.events.empty() && host.events.events.back().starts_with("KeyUp"); },
            2000);
    };
    type('Q');
    EXPECT_EQ(host.events.events, (Calls{"KeyDown(81, 0)", "KeyPress(113)", "KeyUp(81, 0)"}));
    host.events.handler = [](DISPID event, DISPPARAMS& arguments) {
        if (event == DISPID_KEYDOWN)
            *arguments.rgvarg[1].piVal = 0;
    };
    type('Q');
    EXPECT_EQ(host.events.events, (Calls{"KeyDown(81, 0)", "KeyUp(81, 0)"}))
        << "no character of a key taken away";
}

} // namespace
} // namespace pixmo::com::test
