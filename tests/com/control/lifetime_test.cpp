// Controls that come and go leave nothing in the host's process.
#include "faces/com/base/boundary.h"
#include "faces/com/control/identifiers.h"
#include "tests/com/control/hosting/container.h"
#include "tests/com/control/hosting/smallengine.h"
#include "tests/com/control/hosting/usage.h"

#include <gtest/gtest.h>

namespace pixmo::com::test {
namespace {

constexpr int Rounds = 20; ///< of one control in each kind of host
constexpr int RoundsToWarmUp = 4;

/// Counts references; every interface it is asked for is the inner object's.
class OuterPart : public IOleContainer {
public:
    using Exposes = Exposed<IOleContainer>;
    STDMETHODIMP ParseDisplayName(IBindCtx*, LPOLESTR, ULONG*, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP EnumObjects(DWORD, IEnumUnknown**) override { return E_NOTIMPL; }
    STDMETHODIMP LockContainer(BOOL) override { return S_OK; }

protected:
    ~OuterPart() = default;
};

class Outer final : public ComObject<OuterPart> {
public:
    Outer() : ComObject(nullptr) {}
};

class Lifetime : public testing::Test {
protected:
    void round() {
        for (const HostProfile& profile : PlacedProfiles) {
            Container host(library, profile);
            host.initialise();
            host.verb(OLEIVERB_UIACTIVATE);
            host.as<IImageView>()->Refresh();
            pumpFor(1);
            BagContents kept = host.save();
            ASSERT_EQ(host.close(), 0U);
        }
    }

    Library library;
};

TEST_F(Lifetime, roundsLeaveNothing) {
    for (int count = 0; count < RoundsToWarmUp; ++count)
        round();
    const Usage before = Usage::now();
    for (int count = 0; count < Rounds; ++count)
        round();
    const Usage after = Usage::now();
    EXPECT_EQ(after.drawingObjects, before.drawingObjects);
    EXPECT_EQ(after.handles, before.handles);
    EXPECT_EQ(after.windows, before.windows);
    EXPECT_EQ(after.temporaryFiles, before.temporaryFiles);
    EXPECT_TRUE(library.canUnload());
}

TEST_F(Lifetime, instancesAreStrangers) {
    Container first(library, FormRun);
    Container second(library, Browser);
    first.initialise();
    second.initialise();
    first.activate();
    second.activate();
    first.put(L"PrintCaption", Variant(std::string_view("first")));
    EXPECT_EQ(second.text(L"PrintCaption"), "");
    first.close();
    EXPECT_TRUE(IsWindow(second.controlWindow()));
    EXPECT_FALSE(library.canUnload());
    EXPECT_EQ(second.as<IImageView>()->Clear(), S_OK);
    EXPECT_EQ(second.events.events.size(), 1U);
}

TEST_F(Lifetime, anAggregatedControlSpeaksForItsOuterObject) {
    const auto outer = makeObject<Outer>();
    ComPtr<IUnknown> refused;
    EXPECT_EQ(library.factory(CLSID_ImageView)
                  ->CreateInstance(&outer->identity(), IID_IDispatch, refused.receiveAny()),
              CLASS_E_NOAGGREGATION);
    const auto inner = library.makeControl(&outer->identity());
    const auto object = inner.as<IOleObject>();
    ASSERT_TRUE(object);
    const auto known = object.as<IOleContainer>();
    EXPECT_TRUE(known) << "the outer object answers for the inner one";
    ComPtr<IUnknown> identity = object.as<IUnknown>();
    EXPECT_EQ(identity.get(), &outer->identity());
    EXPECT_NE(inner.get(), identity.get());
}

TEST_F(Lifetime, aLockedFactoryKeepsTheLibrary) {
    EXPECT_TRUE(library.canUnload());
    const auto factory = library.factory(CLSID_ImageView);
    EXPECT_FALSE(library.canUnload());
    factory->LockServer(TRUE);
    factory->LockServer(FALSE);
    ComPtr<IUnknown> made;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IClassFactory, made.receiveAny()), E_NOINTERFACE);
    EXPECT_FALSE(made);
}

// A handler of the host may let go of the control that is calling it.
TEST_F(Lifetime, theControlMayEndInItsOwnEvent) {
    Container host(library, ScriptOnly);
    auto view = host.as<IImageView>();
    host.events.handler = [&](DISPID, DISPPARAMS&) {
        view.reset();
        host.close();
    };
    IImageView* const called = view.get();
    EXPECT_EQ(called->Clear(), S_OK);
    EXPECT_TRUE(library.canUnload());
}

// A host that shows one document after the other, each in a new control.
TEST_F(Lifetime, twoHundredDocumentsLeaveNothing) {
    const SmallEngine engine;
    const auto round = [&](int number) {
        Container host(library, number % 2 == 0 ? FormRun : ScriptOnly);
        host.initialise();
        if (host.site.profile.hasPlace)
            host.activate();
        host.put(L"EngineAddress", Variant(std::string_view(engine.address())));
        host.as<IImageView>()->LoadDocumentByDocID(SmallEngine::Document, 1);
        ASSERT_TRUE(pumpUntil([&] {
            return !host.events.events.empty() && host.events.events.back() == "PageChanged(7, 1)";
        })) << number;
        ASSERT_EQ(host.close(), 0U);
    };
    for (int number = 0; number < 10; ++number)
        round(number);
    pumpFor(200);
    const Usage before = Usage::now();
    for (int number = 0; number < 200 && !HasFatalFailure(); ++number)
        round(number);
    pumpFor(200);
    const Usage after = Usage::now();
    EXPECT_EQ(after.drawingObjects, before.drawingObjects);
    // Connections that the system keeps for the next transfer come and go.
    EXPECT_NEAR(after.handles, before.handles, 8);
    EXPECT_EQ(after.windows, before.windows);
    EXPECT_EQ(after.temporaryFiles, before.temporaryFiles);
    EXPECT_TRUE(library.canUnload());
}

} // namespace
} // namespace pixmo::com::test
