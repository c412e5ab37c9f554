#include "faces/com/base/bstr.h"
#include "faces/com/base/comptr.h"
#include "tests/com/behaviour/comdriver.h"
#include "tests/com/behaviour/openwindows.h"
#include "tests/com/face/user.h"

#include <gtest/gtest.h>
#include <oleacc.h>

// The window of the thumbnails.
namespace pixmo::com::test {

using namespace behaviour;

void ComDriver::turnTo(behaviour::Window window) {
    ui_.on([&] {
        thumbs_ = window == behaviour::Window::Thumbnails ? standingDialog() : nullptr;
        EXPECT_EQ(thumbs_ != nullptr, window == behaviour::Window::Thumbnails);
    });
}

Toolbar ComDriver::buttons() const {
    return thumbs_ ? form_->control()->thumbnails().window()->toolbar() : form_->control()->tlbImage();
}

std::pair<int32_t, int32_t> ComDriver::dialogPlace() {
    return ui_.on([] {
        RECT place{};
        GetWindowRect(standingDialog(), &place);
        return std::pair<int32_t, int32_t>(place.left, place.top);
    });
}

std::vector<ShownThumb> ComDriver::thumbs() {
    return ui_.on([this] {
        std::vector<ShownThumb> shown;
        ComPtr<IAccessible> list;
        EXPECT_EQ(AccessibleObjectFromWindow(page(), static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                             list.receiveAny()),
                  S_OK);
        VARIANT item{};
        item.vt = VT_I4;
        LONG count = 0;
        list->get_accChildCount(&count);
        while (++item.lVal <= count) {
            Bstr name;
            Bstr description;
            VARIANT state{};
            POINT corner{};
            SIZE size{};
            list->get_accName(item, name.receive());
            list->get_accDescription(item, description.receive());
            list->get_accState(item, &state);
            list->accLocation(&corner.x, &corner.y, &size.cx, &size.cy, item);
            ScreenToClient(page(), &corner);
            shown.push_back({com::textOf(name.get()), com::textOf(description.get()),
                             (state.lVal & STATE_SYSTEM_SELECTED) != 0,
                             (state.lVal & STATE_SYSTEM_FOCUSED) != 0, corner.x, corner.y, size.cx, size.cy});
            std::erase(shown.back().description, '\r');
        }
        return shown;
    });
}

} // namespace pixmo::com::test
