#include "faces/com/base/bstr.h"
#include "faces/com/base/comptr.h"
#include "tests/com/behaviour/comdriver.h"
#include "tests/com/behaviour/openwindows.h"
#include "tests/com/face/user.h"

#include <gtest/gtest.h>
#include <oleacc.h>

// The window of the thumbnails.
namespace pixmo::behaviour {

using namespace com;
using namespace com::test;

void FaceDriver::turnTo(behaviour::Window window) {
    my_->ui.on([&] {
        my_->thumbs = window == behaviour::Window::Thumbnails ? standingDialog() : nullptr;
        EXPECT_EQ(my_->thumbs != nullptr, window == behaviour::Window::Thumbnails);
    });
}

Toolbar FaceDriver::Hands::buttons() const {
    return thumbs ? form->control()->thumbnails().window()->toolbar() : form->control()->tlbImage();
}

std::pair<int32_t, int32_t> FaceDriver::dialogPlace() {
    return my_->ui.on([] {
        RECT place{};
        GetWindowRect(standingDialog(), &place);
        return std::pair<int32_t, int32_t>(place.left, place.top);
    });
}

std::vector<ShownThumb> FaceDriver::thumbs() {
    return my_->ui.on([this] {
        std::vector<ShownThumb> shown;
        ComPtr<IAccessible> list;
        EXPECT_EQ(AccessibleObjectFromWindow(my_->page(), static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
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
            ScreenToClient(my_->page(), &corner);
            shown.push_back({com::textOf(name.get()), com::textOf(description.get()),
                             (state.lVal & STATE_SYSTEM_SELECTED) != 0,
                             (state.lVal & STATE_SYSTEM_FOCUSED) != 0, corner.x, corner.y, size.cx, size.cy});
            std::erase(shown.back().description, '\r');
        }
        return shown;
    });
}

} // namespace pixmo::behaviour
