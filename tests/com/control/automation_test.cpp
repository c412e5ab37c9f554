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

// What a script writes becomes the property's own type, or is refused.
TEST_F(Automation, valuesAreConverted) {
    const auto put = [this](const wchar_t* name, Variant value) { return host.put(name, std::move(value)); };
    EXPECT_EQ(put(L"FetchDelay", Variant(string_view("250"))), S_OK);
    EXPECT_EQ(host.text(L"FetchDelay"), "250");
    EXPECT_EQ(put(L"PrintPageNums", Variant(int32_t{0})), S_OK);
    EXPECT_EQ(host.text(L"PrintPageNums"), "False");
    EXPECT_EQ(put(L"PrintCaption", Variant(int32_t{5})), S_OK);
    EXPECT_EQ(host.text(L"PrintCaption"), "5");
    EXPECT_EQ(put(L"PrintCapFontSize", Variant(int32_t{40000})), DISP_E_OVERFLOW);
    EXPECT_EQ(put(L"FetchDelay", Variant(string_view("soon"))), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(host.text(L"FetchDelay"), "250");
    Variant referred(int32_t{125});
    Variant reference;
    reference.get()->vt = VT_BYREF | VT_VARIANT;
    reference.get()->pvarVal = referred.get();
    EXPECT_EQ(put(L"FetchDelay", std::move(reference)), S_OK);
    EXPECT_EQ(host.text(L"FetchDelay"), "125");
}

struct Refusal {
    const wchar_t* property;
    int32_t value; ///< as text for the key, which takes the empty text
    HRESULT result;
    const char* description;
};

// Failures reach the host with number, procedure and text.
TEST_F(Automation, refusalsAreExplained) {
    const Refusal refusals[] = {
        {L"BorderStyle", 2, controlError(380), "Invalid property value"},
        {L"FetchDelay", -1, controlError(380), "Invalid property value"},
        {L"PublicKey", 0, controlError(380), "Invalid property value"},
    };
    for (const Refusal& refusal : refusals) {
        const std::string before = host.text(refusal.property);
        Variant value = refusal.property == std::wstring_view(L"PublicKey") ? Variant(string_view())
                                                                            : Variant(refusal.value);
        EXPECT_EQ(host.put(refusal.property, std::move(value)), refusal.result);
        EXPECT_EQ(host.problem(), refusal.description);
        EXPECT_EQ(host.problemSource(), "VellaneInet.ImageView." + toUtf8(refusal.property));
        EXPECT_EQ(host.text(refusal.property), before);
    }
    EXPECT_EQ(host.put(L"PageCount", Variant(int32_t{3})), DISP_E_MEMBERNOTFOUND) << "read-only";
    EXPECT_EQ(host.idOf(L"ImageDesc"), DISPID_UNKNOWN) << "a key of the kept properties is no name";
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

// A script's variables are variants, whatever they hold; typed references are a compiled host's.
TEST_F(Automation, theLastErrorComesBackByReference) {
    Variant variables[5];
    VARIANT arguments[5];
    for (size_t at = 0; at < 5; ++at) {
        arguments[at].vt = VT_BYREF | VT_VARIANT;
        arguments[at].pvarVal = variables[at].get();
    }
    variables[4] = Variant(int32_t{99});
    variables[2] = Variant(string_view("old"));
    ASSERT_EQ(host.call(L"GetLastError", {arguments, nullptr, 5, 0}), S_OK);
    EXPECT_EQ(variables[4].get()->lVal, 0) << "nothing has failed yet";
    EXPECT_EQ(variables[2].type(), VT_BSTR);
    EXPECT_EQ(textOf(variables[2].get()->bstrVal), "");

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

    variables[4] = Variant(string_view("no number"));
    EXPECT_EQ(host.call(L"GetLastError", {arguments, nullptr, 5, 0}), DISP_E_TYPEMISMATCH);
}

TEST_F(Automation, theFontIsAnObjectThatTheHostMayChange) {
    Variant font;
    ASSERT_EQ(host.get(L"Font", font), S_OK);
    const auto object = font.object().as<IFont>();
    ASSERT_TRUE(object);
    CY size{};
    size.int64 = 120000;
    object->put_Size(size);
    object->put_Bold(TRUE);
    Variant again;
    ASSERT_EQ(host.get(L"Font", again), S_OK);
    BOOL bold = FALSE;
    again.object().as<IFont>()->get_Bold(&bold);
    again.object().as<IFont>()->get_Size(&size);
    EXPECT_TRUE(bold);
    EXPECT_EQ(size.int64, 120000);
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
