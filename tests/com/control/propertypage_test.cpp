// The page of settings in a window of properties, as a designer shows it.
#include "faces/com/base/boundary.h"
#include "faces/com/control/identifiers.h"
#include "tests/com/control/hosting/container.h"

#include <gtest/gtest.h>
#include <ocidl.h>

namespace pixmo::com::test {
namespace {

class PageSitePart : public IPropertyPageSite {
public:
    using Exposes = Exposed<IPropertyPageSite>;
    explicit PageSitePart(int& dirtied) : dirtied_(dirtied) {}
    STDMETHODIMP OnStatusChange(DWORD flags) override {
        dirtied_ += flags == PROPPAGESTATUS_DIRTY ? 1 : 0;
        return S_OK;
    }
    STDMETHODIMP GetLocaleID(LCID* locale) override {
        *locale = LOCALE_USER_DEFAULT;
        return S_OK;
    }
    STDMETHODIMP GetPageContainer(IUnknown**) override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG*) override { return S_FALSE; }

protected:
    ~PageSitePart() = default;

private:
    int& dirtied_;
};

class PageSite final : public ComObject<PageSitePart> {
public:
    explicit PageSite(int& dirtied) : ComObject(nullptr, dirtied) {}
};

class PropertyPage : public testing::Test {
protected:
    void SetUp() override {
        for (Container* host : {&first, &second})
            host->initialise();
        CAUUID pages{};
        ASSERT_EQ(first.as<ISpecifyPropertyPages>()->GetPages(&pages), S_OK);
        ASSERT_EQ(pages.cElems, 1U);
        ASSERT_EQ(
            library.factory(pages.pElems[0])->CreateInstance(nullptr, IID_IPropertyPage, page.receiveAny()),
            S_OK);
        CoTaskMemFree(pages.pElems);
        page->SetPageSite(makeObject<PageSite>(dirtied).get());
        const auto one = first.as<IUnknown>();
        const auto two = second.as<IUnknown>();
        IUnknown* objects[] = {one.get(), two.get()};
        ASSERT_EQ(page->SetObjects(2, objects), S_OK);
        PROPPAGEINFO info{};
        info.cb = sizeof info;
        ASSERT_EQ(page->GetPageInfo(&info), S_OK);
        CoTaskMemFree(info.pszTitle);
        const RECT place{0, 0, info.size.cx, info.size.cy};
        ASSERT_EQ(page->Activate(first.site.handle, &place, FALSE), S_OK);
        ASSERT_EQ(page->Show(SW_SHOW), S_OK);
        dialog = FindWindowExW(first.site.handle, nullptr, L"#32770", nullptr);
        ASSERT_TRUE(dialog);
    }
    void TearDown() override {
        page->Deactivate();
        page->SetPageSite(nullptr);
    }

    /// The field behind the label.
    HWND field(const wchar_t* label) const {
        const HWND text = FindWindowExW(dialog, nullptr, L"Static", label);
        return text ? GetWindow(text, GW_HWNDNEXT) : FindWindowExW(dialog, nullptr, L"Button", label);
    }

    Library library;
    Container first{library, FormDesign};
    Container second{library, FormDesign};
    ComPtr<IPropertyPage> page;
    int dirtied = 0;
    HWND dialog = nullptr;
};

TEST_F(PropertyPage, showsAndAppliesSettings) {
    wchar_t text[64] = {};
    GetWindowTextW(field(L"Protected &bytes:"), text, 64);
    EXPECT_STREQ(text, L"1640");
    EXPECT_EQ(page->IsPageDirty(), S_FALSE);
    SetWindowTextW(field(L"Protected &bytes:"), L"64");
    SendMessageW(field(L"Book&mark button"), BM_CLICK, 0, 0);
    const HWND paper = field(L"P&aper:");
    SendMessageW(paper, CB_SETCURSEL, 9, 0);
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(paper), CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(paper));
    EXPECT_EQ(page->IsPageDirty(), S_OK);
    EXPECT_EQ(dirtied, 3);
    EXPECT_EQ(first.text(L"EncBytes"), "1640") << "not before it is applied";
    ASSERT_EQ(page->Apply(), S_OK);
    for (const Container* host : {&first, &second}) {
        EXPECT_EQ(host->text(L"EncBytes"), "64");
        EXPECT_EQ(host->text(L"BookmarkAvailable"), "True");
        EXPECT_EQ(host->text(L"DfPrintPaperSize"), "9");
        EXPECT_EQ(host->text(L"Delimiter"), "\xC2\xB7") << "untouched settings stay";
    }
    EXPECT_EQ(page->IsPageDirty(), S_FALSE);
}

TEST_F(PropertyPage, keepsWhatTheControlRefuses) {
    SetWindowTextW(field(L"&Fetch delay (ms):"), L"-5");
    EXPECT_EQ(page->Apply(), static_cast<HRESULT>(0x800A017C));
    EXPECT_EQ(first.text(L"FetchDelay"), "300");
    EXPECT_EQ(page->IsPageDirty(), S_OK);
}

} // namespace
} // namespace pixmo::com::test
