// The public interface as scripts and compiled hosts call it.
#include "faces/com/base/boundary.h"
#include "faces/com/control/identifiers.h"
#include "tests/com/control/hosting/container.h"

#include <gtest/gtest.h>

namespace pixmo::com::test {
namespace {

using std::string_view;

constexpr HRESULT controlError(int32_t number) {
    return static_cast<HRESULT>(0x800A0000U | static_cast<uint32_t>(number));
}

class Automation : public testing::Test {
protected:
    Library library;
    Container host{library, ScriptOnly};
};

// A script's variables come as references to variants.
TEST_F(Automation, referredValuesAreTaken) {
    Variant referred(int32_t{125});
    Variant reference;
    reference.get()->vt = VT_BYREF | VT_VARIANT;
    reference.get()->pvarVal = referred.get();
    EXPECT_EQ(host.put(L"FetchDelay", std::move(reference)), S_OK);
    EXPECT_EQ(host.text(L"FetchDelay"), "125");
}

TEST_F(Automation, compiledHostsGetErrorInformation) {
    const auto view = host.as<IImageView>();
    EXPECT_EQ(view->put_BorderStyle(7), controlError(380));
    ComPtr<IErrorInfo> info;
    ASSERT_EQ(GetErrorInfo(0, info.receive()), S_OK);
    GUID source{};
    Bstr text;
    info->GetGUID(&source);
    info->GetDescription(text.receive());
    EXPECT_TRUE(IsEqualGUID(source, IID_IImageView));
    EXPECT_EQ(text.view(), L"Invalid property value");
    EXPECT_EQ(view->get_PageCount(nullptr), E_POINTER);
    EXPECT_EQ(view->putref_Font(nullptr), controlError(13));
    const auto described = host.as<ISupportErrorInfo>();
    EXPECT_EQ(described->InterfaceSupportsErrorInfo(IID_IImageView), S_OK);
    EXPECT_EQ(described->InterfaceSupportsErrorInfo(IID_IViewObject2), S_FALSE);
}

TEST_F(Automation, theLastErrorComesBackByReference) {
    const auto view = host.as<IImageView>();
    long number = 5;
    long context = 5;
    Bstr source(string_view("old"));
    Bstr description;
    Bstr file;
    EXPECT_EQ(view->GetLastError(&number, source.receive(), description.receive(), file.receive(), &context),
              S_OK);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(view->GetLastError(&number, nullptr, description.receive(), file.receive(), &context),
              E_POINTER);
}

TEST_F(Automation, hostsFindClassAndEvents) {
    const auto classes = host.as<IProvideClassInfo2>();
    GUID events{};
    EXPECT_EQ(classes->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
    EXPECT_TRUE(IsEqualGUID(events, DIID_IImageViewEvents));
    ComPtr<ITypeInfo> info;
    ASSERT_EQ(host.as<IProvideClassInfo>()->GetClassInfo(info.receive()), S_OK);
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    EXPECT_TRUE(IsEqualGUID(attributes->guid, CLSID_ImageView));
    info->ReleaseTypeAttr(attributes);
}

TEST_F(Automation, connectionPointsAndConnectionsAreCounted) {
    const auto container = host.as<IConnectionPointContainer>();
    ComPtr<IEnumConnectionPoints> points;
    ASSERT_EQ(container->EnumConnectionPoints(points.receive()), S_OK);
    ComPtr<IEnumConnectionPoints> clone;
    ASSERT_EQ(points->Clone(clone.receive()), S_OK);
    IConnectionPoint* found[3] = {};
    ULONG count = 0;
    EXPECT_EQ(points->Next(3, found, &count), S_FALSE);
    ASSERT_EQ(count, 2U);
    IID first{};
    found[0]->GetConnectionInterface(&first);
    EXPECT_TRUE(IsEqualIID(first, DIID_IImageViewEvents));
    ComPtr<IEnumConnections> connections;
    ASSERT_EQ(found[0]->EnumConnections(connections.receive()), S_OK);
    CONNECTDATA connection{};
    EXPECT_EQ(connections->Next(1, &connection, nullptr), S_OK) << "the container's own sink";
    EXPECT_EQ(connections->Skip(1), S_FALSE);
    connection.pUnk->Release();
    DWORD cookie = 0;
    EXPECT_EQ(found[1]->Advise(&makeObject<form::EventSink>(form::EventHandler())->identity(), &cookie),
              CONNECT_E_CANNOTCONNECT)
        << "no sink for changed properties";
    EXPECT_EQ(found[1]->Unadvise(77), CONNECT_E_NOCONNECTION);
    for (ULONG at = 0; at < count; ++at)
        found[at]->Release();
    EXPECT_EQ(clone->Skip(2), S_OK);
    ComPtr<IConnectionPoint> unknown;
    EXPECT_EQ(container->FindConnectionPoint(IID_IDispatch, unknown.receive()), CONNECT_E_NOCONNECTION);
}

TEST_F(Automation, designersGetNamesOfValues) {
    const auto browsing = host.as<IPerPropertyBrowsing>();
    CALPOLESTR texts{};
    CADWORD cookies{};
    const DISPID paper = host.idOf(L"DfPrintPaperSize");
    ASSERT_EQ(browsing->GetPredefinedStrings(paper, &texts, &cookies), S_OK);
    EXPECT_EQ(texts.cElems, 43U);
    EXPECT_STREQ(texts.pElems[9], L"A4");
    EXPECT_EQ(cookies.pElems[42], 256U);
    Variant value;
    EXPECT_EQ(browsing->GetPredefinedValue(paper, cookies.pElems[9], value.receive()), S_OK);
    EXPECT_EQ(value.type(), VT_I4);
    EXPECT_EQ(host.put(L"DfPrintPaperSize", std::move(value)), S_OK);
    Bstr shown;
    EXPECT_EQ(browsing->GetDisplayString(paper, shown.receive()), S_OK);
    EXPECT_EQ(shown.view(), L"A4");
    Variant other;
    EXPECT_EQ(browsing->GetPredefinedValue(paper, 28 * 100, other.receive()), E_INVALIDARG);
    EXPECT_EQ(browsing->GetDisplayString(host.idOf(L"EncBytes"), shown.receive()), S_FALSE);
    EXPECT_EQ(browsing->GetPredefinedValue(host.idOf(L"BorderStyle"), 1, other.receive()), S_OK);
    EXPECT_EQ(other.type(), VT_I2);
    for (ULONG at = 0; at < texts.cElems; ++at)
        CoTaskMemFree(texts.pElems[at]);
    CoTaskMemFree(texts.pElems);
    CoTaskMemFree(cookies.pElems);
}

} // namespace
} // namespace pixmo::com::test
