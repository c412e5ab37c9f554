// The control's life in the window of a host: verbs, place, focus, keys, modes.
#include "faces/com/base/boundary.h"
#include "faces/com/control/identifiers.h"
#include "tests/com/control/hosting/container.h"
#include "tests/com/control/hosting/modalwatcher.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace pixmo::com::test {
namespace {

using Calls = std::vector<std::string>;

class Activation : public testing::TestWithParam<HostProfile> {
protected:
    Activation() { host.initialise(); }

    Library library;
    Container host{library, GetParam()};
};

TEST_P(Activation, theWindowComesWithThePlace) {
    EXPECT_EQ(host.controlWindow(), nullptr);
    host.activate();
    const HWND window = host.controlWindow();
    ASSERT_TRUE(IsWindow(window));
    EXPECT_EQ(GetParent(window), host.site.handle);
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_EQ(host.text(L"hWnd"), std::to_string(HandleToLong(window)));
    RECT place{};
    GetWindowRect(window, &place);
    EXPECT_EQ(place.right - place.left, 400);
    const RECT moved{10, 20, 260, 220};
    ASSERT_EQ(host.as<IOleInPlaceObject>()->SetObjectRects(&moved, &moved), S_OK);
    GetClientRect(window, &place);
    EXPECT_EQ(place.right, 250);
    EXPECT_EQ(place.bottom, 200);
}

TEST_P(Activation, verbsLeadThroughTheStates) {
    ASSERT_EQ(host.verb(OLEIVERB_SHOW), S_OK);
    EXPECT_EQ(host.site.calls, (Calls{"OnInPlaceActivate"}));
    ASSERT_EQ(host.verb(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_EQ(host.site.calls, (Calls{"OnInPlaceActivate", "OnUIActivate", "OnFocus(true)"}));
    EXPECT_TRUE(host.site.active) << "the frame sends the keys there";
    host.site.calls.clear();
    ASSERT_EQ(host.verb(OLEIVERB_HIDE), S_OK);
    EXPECT_EQ(host.site.calls, (Calls{"OnFocus(false)", "OnUIDeactivate"}));
    EXPECT_FALSE(host.site.active);
    ASSERT_TRUE(IsWindow(host.controlWindow())) << "hidden, not gone";
    EXPECT_FALSE(IsWindowVisible(host.controlWindow()));
    ASSERT_EQ(host.verb(OLEIVERB_SHOW), S_OK);
    EXPECT_TRUE(IsWindowVisible(host.controlWindow()));
    host.site.calls.clear();
    ASSERT_EQ(host.as<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
    EXPECT_EQ(host.site.calls, (Calls{"OnInPlaceDeactivate"}));
    EXPECT_EQ(host.controlWindow(), nullptr);
    EXPECT_EQ(host.as<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK) << "again";
    EXPECT_EQ(host.verb(-99), E_NOTIMPL);
    EXPECT_EQ(host.verb(5), OLEOBJ_S_INVALIDVERB);
}

TEST_P(Activation, aSiteMayRefuse) {
    host.site.refusesActivation = true;
    EXPECT_TRUE(FAILED(host.verb(OLEIVERB_INPLACEACTIVATE)));
    EXPECT_EQ(host.controlWindow(), nullptr);
    EXPECT_TRUE(host.site.calls.empty());
}

// Tab, Esc, function keys and mnemonics are the host's; so is whatever the control has no use for.
TEST_P(Activation, keysOfTheHostReachIt) {
    ASSERT_EQ(host.verb(OLEIVERB_UIACTIVATE), S_OK);
    const std::pair<UINT, WPARAM> keys[] = {
        {WM_KEYDOWN, VK_TAB}, {WM_KEYDOWN, VK_ESCAPE}, {WM_KEYDOWN, VK_F1},
        {WM_KEYDOWN, VK_F5},  {WM_KEYDOWN, VK_F12},    {WM_KEYDOWN, VK_RETURN},
        {WM_SYSKEYDOWN, 'F'}, {WM_SYSCHAR, 'f'},       {WM_SYSKEYDOWN, VK_F4}};
    std::vector<WPARAM> offered;
    for (const auto& [kind, key] : keys) {
        MSG message{host.controlWindow(), kind, key, kind == WM_KEYDOWN ? 1 : 0x20000001, 0, {}};
        const HRESULT result = host.site.active->TranslateAccelerator(&message);
        // A place without the control's own interface is not asked.
        EXPECT_EQ(result, GetParam().takesKeys ? S_OK : S_FALSE) << kind << " " << key;
        offered.push_back(key);
    }
    EXPECT_EQ(host.site.keys, offered);
    EXPECT_EQ(host.site.active->TranslateAccelerator(nullptr), E_POINTER);
}

TEST_P(Activation, closingLeavesNothing) {
    ASSERT_EQ(host.verb(OLEIVERB_UIACTIVATE), S_OK);
    const HWND window = host.controlWindow();
    EXPECT_EQ(host.close(), 0U);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(std::ranges::count(host.site.calls, "OnInPlaceDeactivate"), 1);
    EXPECT_TRUE(library.canUnload());
}

// Some hosts neither end their listening nor take back their site.
TEST_P(Activation, aCarelessHostDoesNotKeepItAlive) {
    ASSERT_EQ(host.verb(OLEIVERB_UIACTIVATE), S_OK);
    {
        Container careless(library, GetParam());
        careless.initialise();
        const auto control = careless.as<IOleObject>();
        careless.verb(OLEIVERB_INPLACEACTIVATE);
    }
    host.close();
    EXPECT_TRUE(library.canUnload());
}

INSTANTIATE_TEST_SUITE_P(Profiles, Activation, testing::ValuesIn(PlacedProfiles),
                         [](const auto& profile) { return profile.param.name; });

class Modes : public testing::Test {
protected:
    Library library;
};

TEST_F(Modes, aDesignedControlIsSilent) {
    Container host(library, FormDesign);
    host.initialise();
    host.activate();
    host.put(L"DocID", Variant(int32_t{0}));
    EXPECT_EQ(host.as<IImageView>()->Clear(), S_OK);
    EXPECT_TRUE(host.events.events.empty());
    host.setAmbient(DISPID_AMBIENT_USERMODE, Variant(true));
    EXPECT_EQ(host.as<IImageView>()->Clear(), S_OK);
    EXPECT_EQ(host.events.events, (Calls{"PageChanged(0, 0)"}));
}

TEST_F(Modes, frozenEventsAreCounted) {
    Container host(library, FormRun);
    host.initialise();
    const auto control = host.as<IOleControl>();
    const auto clear = [&] { host.as<IImageView>()->Clear(); };
    EXPECT_TRUE(host.events.events.empty()) << "nothing while the control starts";
    control->FreezeEvents(TRUE);
    control->FreezeEvents(TRUE);
    control->FreezeEvents(FALSE);
    clear();
    EXPECT_TRUE(host.events.events.empty());
    control->FreezeEvents(FALSE);
    control->FreezeEvents(FALSE);
    clear();
    EXPECT_EQ(host.events.events.size(), 1U);
    control->FreezeEvents(TRUE);
    clear();
    EXPECT_EQ(host.events.events.size(), 1U) << "a surplus call counts for nothing";
}

TEST_F(Modes, aClosedControlIsSilent) {
    Container host(library, FormRun);
    host.initialise();
    host.as<IOleObject>()->Close(OLECLOSE_NOSAVE);
    host.as<IImageView>()->Clear();
    EXPECT_TRUE(host.events.events.empty());
}

TEST_F(Modes, aProgramWithoutAPlaceListens) {
    Container host(library, ScriptOnly);
    EXPECT_EQ(host.as<IImageView>()->Clear(), S_OK);
    EXPECT_EQ(host.events.events, (Calls{"PageChanged(0, 0)"}));
    EXPECT_TRUE(FAILED(host.as<IOleObject>()->DoVerb(OLEIVERB_SHOW, nullptr, nullptr, 0, nullptr, nullptr)));
}

TEST_F(Modes, ambientsAreFollowedAndNeverPresumed) {
    Container host(library, FormRun);
    host.initialise();
    host.setAmbient(DISPID_AMBIENT_BACKCOLOR, Variant(int32_t{0x00112233}));
    EXPECT_EQ(host.text(L"BackColor"), std::to_string(0x00112233));
    host.setAmbient(DISPID_AMBIENT_FORECOLOR, Variant(int32_t{0x00445566}));
    EXPECT_EQ(host.as<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN), S_OK);
    Container bare(library, KeyboardStrict);
    bare.initialise();
    EXPECT_EQ(bare.as<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_BACKCOLOR), S_OK);
    EXPECT_EQ(bare.text(L"BackColor"), std::to_string(static_cast<int32_t>(0x8000000F)))
        << "the system's own where the site has no word for it";
}

TEST_F(Modes, hostsSaveAsTheyCloseADirtyControl) {
    Container host(library, FormDesign);
    host.initialise();
    host.as<IOleObject>()->Close(OLECLOSE_SAVEIFDIRTY);
    EXPECT_EQ(host.site.calls, (Calls{"SaveObject"}));
}

TEST_F(Modes, modalWindowsAreAnnouncedToTheFrame) {
    Container host(library, FormRun);
    host.initialise();
    ASSERT_EQ(host.verb(OLEIVERB_UIACTIVATE), S_OK);
    HWND dialog = nullptr;
    HWND owner = nullptr;
    int depth = 0;
    const ModalWatcher watcher([&](HWND stands) {
        dialog = stands;
        owner = GetWindow(dialog, GW_OWNER);
        depth = host.site.modelessDepth;
        PostMessageW(dialog, WM_CLOSE, 0, 0);
    });
    EXPECT_EQ(host.as<IImageView>()->AboutBox(), S_OK);
    EXPECT_EQ(owner, host.site.handle);
    EXPECT_EQ(depth, 1);
    EXPECT_EQ(host.site.modelessDepth, 0);
}

} // namespace
} // namespace pixmo::com::test
