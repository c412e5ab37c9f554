// The control's picture for hosts that print or keep it, with and without a window.
#include "faces/com/base/boundary.h"
#include "tests/com/control/hosting/canvas.h"
#include "tests/com/control/hosting/container.h"

#include <gtest/gtest.h>

namespace pixmo::com::test {
namespace {

class Drawing : public testing::TestWithParam<HostProfile> {
protected:
    Drawing() { host.initialise(); }

    HRESULT draw(HDC target, const RECTL& bounds) {
        return host.as<IViewObject2>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, target, &bounds,
                                             nullptr, nullptr, 0);
    }

    Library library;
    Container host{library, GetParam()};
};

TEST_P(Drawing, fillsAnyBoundsAndNoMore) {
    for (const RECTL& bounds : {RECTL{0, 0, 200, 160}, RECTL{30, 20, 150, 140}, RECTL{10, 10, 18, 14}}) {
        const Canvas canvas(200, 160);
        ASSERT_EQ(draw(canvas.target(), bounds), S_OK);
        const RECT inside{bounds.left, bounds.top, bounds.right, bounds.bottom};
        const int whole = static_cast<int>((bounds.right - bounds.left) * (bounds.bottom - bounds.top));
        EXPECT_EQ(canvas.untouched(inside), 0);
        EXPECT_EQ(canvas.untouched(canvas.all()), 200 * 160 - whole);
    }
    EXPECT_EQ(host.controlWindow(), nullptr) << "drawing needs no window";
}

TEST_P(Drawing, isPlayedFromBothKindsOfMetafile) {
    const auto data = host.as<IDataObject>();
    SIZEL size{5292, 4233};
    host.as<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size);
    FORMATETC enhanced{CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_ENHMF};
    STGMEDIUM medium{};
    ASSERT_EQ(data->GetData(&enhanced, &medium), S_OK);
    const Canvas first(200, 160);
    const RECT all = first.all();
    EXPECT_TRUE(PlayEnhMetaFile(first.target(), medium.hEnhMetaFile, &all));
    EXPECT_LT(first.untouched(all), 200 * 160 / 20) << "the picture covers its frame";
    ReleaseStgMedium(&medium);

    FORMATETC plain{CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
    ASSERT_EQ(data->GetData(&plain, &medium), S_OK);
    const auto* picture = static_cast<METAFILEPICT*>(GlobalLock(medium.hMetaFilePict));
    EXPECT_EQ(picture->mm, MM_ANISOTROPIC);
    EXPECT_EQ(picture->xExt, size.cx);
    const Canvas second(200, 160);
    SetMapMode(second.target(), MM_ANISOTROPIC);
    SetViewportExtEx(second.target(), 200, 160, nullptr);
    EXPECT_TRUE(PlayMetaFile(second.target(), picture->hMF));
    SetMapMode(second.target(), MM_TEXT);
    EXPECT_LT(second.untouched(all), 200 * 160 / 20);
    GlobalUnlock(medium.hMetaFilePict);
    ReleaseStgMedium(&medium);
}

TEST_P(Drawing, refusesWhatItDoesNotOffer) {
    const auto data = host.as<IDataObject>();
    FORMATETC text{CF_TEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    EXPECT_EQ(data->QueryGetData(&text), DV_E_FORMATETC);
    FORMATETC icon{CF_METAFILEPICT, nullptr, DVASPECT_ICON, -1, TYMED_MFPICT};
    EXPECT_EQ(data->QueryGetData(&icon), DV_E_DVASPECT);
    FORMATETC medium{CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    EXPECT_EQ(data->QueryGetData(&medium), DV_E_TYMED);
    ComPtr<IEnumFORMATETC> formats;
    ASSERT_EQ(data->EnumFormatEtc(DATADIR_GET, formats.receive()), S_OK);
    EXPECT_EQ(formats->Skip(2), S_OK);
    EXPECT_EQ(formats->Skip(1), S_FALSE);
    const RECTL bounds{0, 0, 10, 10};
    const Canvas canvas(10, 10);
    EXPECT_EQ(host.as<IViewObject2>()->Draw(DVASPECT_ICON, -1, nullptr, nullptr, nullptr, canvas.target(),
                                            &bounds, nullptr, nullptr, 0),
              DV_E_DVASPECT);
    EXPECT_EQ(draw(nullptr, bounds), E_INVALIDARG);
}

INSTANTIATE_TEST_SUITE_P(Profiles, Drawing, testing::ValuesIn(AllProfiles),
                         [](const auto& profile) { return profile.param.name; });

} // namespace
} // namespace pixmo::com::test
