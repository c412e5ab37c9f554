// What a host keeps of a control: when it has to, and that it comes back.
#include "faces/com/base/boundary.h"
#include "faces/com/control/fontobject.h"
#include "faces/com/control/identifiers.h"
#include "tests/com/control/hosting/container.h"

#include <gtest/gtest.h>

namespace pixmo::com::test {
namespace {

class Persistence : public testing::TestWithParam<HostProfile> {
protected:
    Library library;
    Container host{library, GetParam()};
};

using std::string_view;

TEST_P(Persistence, aNewControlIsDirtyUntilItIsSaved) {
    EXPECT_FALSE(host.isDirty());
    host.initialise();
    EXPECT_TRUE(host.isDirty());
    host.save(false);
    EXPECT_TRUE(host.isDirty());
    host.save();
    EXPECT_FALSE(host.isDirty());
}

TEST_P(Persistence, onlyTheDesignIsKept) {
    host.initialise();
    host.save();
    const bool designs = !GetParam().userMode;
    EXPECT_EQ(host.put(L"PrintCaption", Variant(string_view("Deed"))), S_OK);
    EXPECT_EQ(host.isDirty(), designs) << "a property";
    host.save();
    SIZEL size{9000, 7000};
    EXPECT_EQ(host.as<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size), S_OK);
    EXPECT_EQ(host.isDirty(), designs) << "the size";
}

TEST_P(Persistence, aControlWithDefaultsKeepsNothing) {
    host.initialise();
    EXPECT_TRUE(host.save().written.empty());
}

TEST_P(Persistence, keysAreTheControlsOwn) {
    host.initialise();
    host.put(L"PrintImageDesc", Variant(string_view("Plan")));
    host.put(L"MinLogLevel", Variant(int32_t{2}));
    host.put(L"EngineAddress", Variant(string_view("http://server/page")));
    SIZEL size{9000, 7000};
    host.as<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size);
    const BagContents kept = host.save();
    const std::vector<std::wstring> order{L"EngineAddress", L"ImageDesc", L"MinEventLevel", L"_ExtentX",
                                          L"_ExtentY"};
    EXPECT_EQ(kept.written, order);
}

INSTANTIATE_TEST_SUITE_P(Profiles, Persistence, testing::ValuesIn(PlacedProfiles),
                         [](const auto& profile) { return profile.param.name; });

class KeptControl : public testing::Test {
protected:
    void change(Container& host) {
        host.initialise();
        host.put(L"FetchDelay", Variant(int32_t{150}));
        host.put(L"BackColor", Variant(int32_t{0x00336699}));
        host.put(L"PrintPageNums", Variant(false));
        host.put(L"PrintCaption", Variant(string_view("Grundst\xC3\xBC"
                                                      "ck \xE2\x82\xAC")));
        const auto font = makeFontObject({"Courier New", 11.25, true, false, true, false});
        host.put(L"Font", Variant(static_cast<IDispatch*>(font.get())));
        SIZEL size{9000, 7000};
        host.as<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size);
    }

    void expectChanged(const Container& host) {
        EXPECT_EQ(host.text(L"FetchDelay"), "150");
        EXPECT_EQ(host.text(L"BackColor"), std::to_string(0x00336699));
        EXPECT_EQ(host.text(L"PrintPageNums"), "False");
        EXPECT_EQ(host.text(L"PrintCaption"), "Grundst\xC3\xBC"
                                              "ck \xE2\x82\xAC");
        Variant font;
        ASSERT_EQ(host.get(L"Font", font), S_OK);
        EXPECT_TRUE(fontOf(*font.object().as<IFont>()) ==
                    Font({"Courier New", 11.25, true, false, true, false}));
        SIZEL size{};
        host.as<IOleObject>()->GetExtent(DVASPECT_CONTENT, &size);
        EXPECT_EQ(size.cx, 9000);
        EXPECT_EQ(size.cy, 7000);
        EXPECT_FALSE(host.isDirty());
    }

    Library library;
    Container first{library, FormDesign};
    Container second{library, FormRun};
};

TEST_F(KeptControl, returnsFromABag) {
    change(first);
    BagContents kept = first.save();
    second.load(kept);
    expectChanged(second);
}

TEST_F(KeptControl, returnsFromAStream) {
    change(first);
    ComPtr<IStream> stream;
    ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, stream.receive()), S_OK);
    ULARGE_INTEGER most{};
    ASSERT_EQ(first.as<IPersistStreamInit>()->GetSizeMax(&most), S_OK);
    ASSERT_EQ(OleSaveToStream(first.as<IPersistStream>().get(), stream.get()), S_OK);
    EXPECT_FALSE(first.isDirty());
    STATSTG written{};
    stream->Stat(&written, STATFLAG_NONAME);
    EXPECT_EQ(written.cbSize.QuadPart, most.QuadPart + sizeof(CLSID));
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
    CLSID kind{};
    ASSERT_EQ(ReadClassStm(stream.get(), &kind), S_OK);
    EXPECT_TRUE(IsEqualCLSID(kind, CLSID_ImageView));
    ASSERT_EQ(second.as<IPersistStreamInit>()->Load(stream.get()), S_OK);
    expectChanged(second);
}

TEST_F(KeptControl, returnsFromACompoundDocument) {
    change(first);
    ComPtr<IStorage> storage;
    ASSERT_EQ(StgCreateDocfile(nullptr,
                               STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE | STGM_DELETEONRELEASE, 0,
                               storage.receive()),
              S_OK);
    const auto keeper = first.as<IPersistStorage>();
    ASSERT_EQ(keeper->Save(storage.get(), FALSE), S_OK);
    EXPECT_TRUE(first.isDirty()) << "until the host says that it is done";
    EXPECT_EQ(keeper->Save(storage.get(), FALSE), E_UNEXPECTED);
    ASSERT_EQ(keeper->SaveCompleted(nullptr), S_OK);
    EXPECT_FALSE(first.isDirty());
    ASSERT_EQ(second.as<IPersistStorage>()->Load(storage.get()), S_OK);
    expectChanged(second);
}

TEST_F(KeptControl, isNotReplacedByATornStream) {
    change(first);
    ComPtr<IStream> whole;
    CreateStreamOnHGlobal(nullptr, TRUE, whole.receive());
    ASSERT_EQ(first.as<IPersistStreamInit>()->Save(whole.get(), TRUE), S_OK);
    STATSTG written{};
    whole->Stat(&written, STATFLAG_NONAME);
    second.initialise();
    for (ULONG length = 0; length < written.cbSize.LowPart; length += 7) {
        whole->Seek({}, STREAM_SEEK_SET, nullptr);
        ComPtr<IStream> torn;
        CreateStreamOnHGlobal(nullptr, TRUE, torn.receive());
        ULARGE_INTEGER count{};
        count.LowPart = length;
        whole->CopyTo(torn.get(), count, nullptr, nullptr);
        torn->Seek({}, STREAM_SEEK_SET, nullptr);
        EXPECT_TRUE(FAILED(second.as<IPersistStreamInit>()->Load(torn.get()))) << length;
    }
    EXPECT_EQ(second.text(L"FetchDelay"), "300");
}

// As page authors and older forms write them.
TEST_F(KeptControl, readsTextInPlaceOfNumbers) {
    BagContents contents;
    contents.texts = {{L"FetchDelay", L"75"},       {L"PrintPageNums", L"0"}, {L"ThumbsAvailable", L"true"},
                      {L"EncBytes", L"many"},       {L"Delimiter", L"  |x"},  {L"PublicKey", L""},
                      {L"PrintImageDesc", L"lost"}, {L"Font", L"Arial"}};
    second.load(contents);
    for (const auto& [name, value] :
         {std::pair{L"FetchDelay", "75"}, std::pair{L"PrintPageNums", "False"},
          std::pair{L"ThumbsAvailable", "True"}, std::pair{L"EncBytes", "1640"}, std::pair{L"Delimiter", "|"},
          std::pair{L"PublicKey", "OrrelKeyset qFlow"}, std::pair{L"PrintImageDesc", ""}})
        EXPECT_EQ(second.text(name), value) << toUtf8(name);
}

TEST_F(KeptControl, isNeverOfferedInTheLaterKindOfBag) {
    ComPtr<IUnknown> keeper;
    // IPersistPropertyBag2: hosts that find it ask nothing else.
    const IID later{0x22F55881, 0x280B, 0x11D0, {0xA8, 0xA9, 0x00, 0xA0, 0xC9, 0x0C, 0x20, 0x04}};
    EXPECT_EQ(first.as<IUnknown>()->QueryInterface(later, keeper.receiveAny()), E_NOINTERFACE);
}

} // namespace
} // namespace pixmo::com::test
