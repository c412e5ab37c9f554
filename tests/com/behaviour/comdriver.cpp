#include "tests/com/behaviour/comdriver.h"

#include "faces/com/base/pixelbuffer.h"
#include "faces/com/base/widetext.h"
#include "faces/com/control/identifiers.h"
#include "tests/com/behaviour/openwindows.h"
#include "tests/com/face/user.h"

#include <array>
#include <commctrl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <oleacc.h>
#include <utility>

// The control and what is seen of it.
namespace pixmo::behaviour {

using namespace com;
using namespace com::test;

namespace {

constexpr SIZE FirstSize = {900, 700};

/// The form of the program's driver, for the message loop.
FormWindow* currentForm = nullptr;

Value valueOf(Variant& value) {
    if (value.type() == VT_BOOL)
        return value.get()->boolVal != VARIANT_FALSE;
    if (value.type() == VT_BSTR)
        return com::textOf(value.get()->bstrVal);
    value.convertTo(VT_I4);
    return static_cast<int32_t>(value.get()->lVal);
}

Variant variantOf(const Value& value) {
    return std::visit(
        [](const auto& held) {
            if constexpr (std::is_same_v<std::decay_t<decltype(held)>, std::string>)
                return Variant(std::string_view(held));
            else
                return Variant(held);
        },
        value);
}

/// What the user presses, and whether a window of this thread has got it.
struct Press {
    WORD key = 0;
    int modifiers = 0;
    bool arrived = false;
} awaited;

int modifiersDown() {
    return (GetKeyState(VK_SHIFT) < 0 ? with::Shift : 0) + (GetKeyState(VK_CONTROL) < 0 ? with::Ctrl : 0) +
           (GetKeyState(VK_MENU) < 0 ? with::Alt : 0);
}

/// Sees every message before its window does. A key that comes without its modifiers is not what the user
/// pressed: nobody gets it.
LRESULT CALLBACK noteKey(int code, WPARAM removed, LPARAM taken) {
    auto& message = *reinterpret_cast<MSG*>(taken);
    const bool isKeyDown = message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN;
    if (code == HC_ACTION && removed == PM_REMOVE && isKeyDown && message.wParam == awaited.key) {
        awaited.arrived = modifiersDown() == awaited.modifiers;
        if (!awaited.arrived)
            message.message = WM_NULL;
    }
    return CallNextHookEx(nullptr, code, removed, taken);
}

} // namespace

void FaceDriver::Hands::runMessageLoop() {
    SetWindowsHookExW(WH_GETMESSAGE, noteKey, nullptr, GetCurrentThreadId());
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (currentForm && currentForm->translate(message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

FaceDriver::~FaceDriver() {
    destroy();
}

void FaceDriver::Hands::start(const std::function<void()>& call) {
    ui.start([this, call] {
        ++underWay;
        call();
        --underWay;
    });
    ui.on([] {});
}

/// For a moment after a window has closed Wine may take keys for released that nobody holds on the screen, or
/// have no window that gets them: then they are pressed once more.
void FaceDriver::Hands::press(WORD virtualKey, int modifiers) const {
    EXPECT_TRUE(user::sees([&] {
        waitForKeyboard();
        ui.on([&] { awaited = {virtualKey, modifiers}; });
        user::press(virtualKey, modifiers);
        ui.settle();
        return ui.on([] { return std::exchange(awaited, {}).arrived; });
    })) << "key "
        << virtualKey << " reaches no window";
}

void FaceDriver::create() {
    my_->ui.on([this] {
        // Clicks in quick order are as many clicks.
        SetDoubleClickTime(1);
        my_->form = FormWindow::create(FirstSize);
        currentForm = my_->form.get();
    });
}

void FaceDriver::destroy() {
    my_->ui.on([this] {
        currentForm = nullptr;
        if (my_->form)
            my_->form->close();
        my_->form.reset();
    });
}

void FaceDriver::forgetSettings() {
    user::forgetSettings();
}

Value FaceDriver::get(const std::string& property) {
    return my_->ui.on([&] {
        Variant value;
        const HRESULT result = my_->form->container().get(toWide(property).c_str(), value);
        EXPECT_EQ(result, S_OK) << property;
        return valueOf(value);
    });
}

void FaceDriver::set(const std::string& property, const Value& value) {
    my_->start([this, property, value] {
        test::Container& host = my_->form->container();
        my_->refusal.reset();
        const HRESULT result = host.put(toWide(property).c_str(), variantOf(value));
        if (FAILED(result))
            my_->refusal = LastError{HRESULT_CODE(result), host.problemSource(), host.problem()};
    });
}

LastError FaceDriver::lastError() {
    return my_->ui.on([this] {
        if (my_->refusal)
            return *my_->refusal;
        LastError error;
        std::string helpFile;
        int32_t helpContext = 0;
        my_->form->control()->GetLastError(error.number, error.source, error.description, helpFile,
                                           helpContext);
        return error;
    });
}

void FaceDriver::load(int32_t docID, int16_t page) {
    my_->start([this, docID, page] {
        my_->form->container().as<IImageView>()->LoadDocumentByDocID(static_cast<LONG>(docID), page);
    });
}

void FaceDriver::call(const std::string& method) {
    my_->ui.on([&] { EXPECT_EQ(my_->form->container().call(toWide(method).c_str(), {}), S_OK) << method; });
}

void FaceDriver::resize(int32_t width, int32_t height) {
    my_->ui.on([&] {
        if (my_->thumbs)
            SetWindowPos(my_->thumbs, nullptr, 60, 70, width, height, SWP_NOZORDER);
        else
            my_->form->resizeControl({width, height});
    });
}

void FaceDriver::answerEvents(const HostAnswers& answers) {
    my_->ui.on([&] { my_->form->answers = answers; });
}

void FaceDriver::command(const std::string& key) {
    my_->start([this, key] { my_->form->control()->runCommand(key); });
}

void FaceDriver::setStallTimeout(int milliseconds) {
    my_->ui.on([&] { my_->form->face().setStallTimeout(milliseconds); });
}

std::vector<std::string> FaceDriver::takeEvents() {
    return my_->ui.on([this] { return my_->form->takeEvents(); });
}

HWND FaceDriver::Hands::part(const wchar_t* className) const {
    return FindWindowExW(thumbs ? thumbs : form->face().window(), nullptr, className, nullptr);
}

std::vector<HWND> FaceDriver::Hands::statusFields() const {
    std::vector<HWND> fields;
    for (HWND field = nullptr;
         (field = FindWindowExW(form->face().window(), field, L"Static", nullptr)) != nullptr;)
        fields.push_back(field);
    return fields;
}

std::string FaceDriver::Hands::statusField(size_t index) {
    return ui.on([&] { return textOf(statusFields().at(index)); });
}

ShownButton FaceDriver::Hands::lookAtButton(size_t index) const {
    const HWND bar = toolbarWindow();
    TBBUTTON button{};
    SendMessageW(bar, TB_GETBUTTON, index, reinterpret_cast<LPARAM>(&button));
    ShownButton shown;
    shown.key = buttons().Buttons.at(index).Key;
    shown.separator = (button.fsStyle & BTNS_SEP) != 0;
    shown.visible = (button.fsState & TBSTATE_HIDDEN) == 0 && IsWindowVisible(bar);
    if (shown.separator)
        return shown;
    shown.group = (button.fsStyle & BTNS_CHECKGROUP) == BTNS_CHECKGROUP;
    shown.enabled = (button.fsState & TBSTATE_ENABLED) != 0;
    shown.pressed = (button.fsState & TBSTATE_CHECKED) != 0;
    std::array<wchar_t, 100> text{};
    // Without a row for them the texts are but names.
    if (SendMessageW(bar, TB_GETTEXTROWS, 0, 0) > 0) {
        SendMessageW(bar, TB_GETBUTTONTEXTW, static_cast<WPARAM>(button.idCommand),
                     reinterpret_cast<LPARAM>(text.data()));
        shown.caption = toUtf8(text.data());
    }
    NMTBGETINFOTIPW tip{};
    tip.hdr = {bar, 0, static_cast<UINT>(TBN_GETINFOTIPW)};
    tip.pszText = text.data();
    tip.cchTextMax = static_cast<int>(text.size());
    tip.iItem = button.idCommand;
    SendMessageW(GetParent(bar), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&tip));
    shown.tip = toUtf8(text.data());
    int height = 0;
    ImageList_GetIconSize(reinterpret_cast<HIMAGELIST>(SendMessageW(bar, TB_GETIMAGELIST, 0, 0)),
                          &shown.imageSize, &height);
    return shown;
}

std::vector<ShownButton> FaceDriver::toolbar() {
    return my_->ui.on([this] {
        std::vector<ShownButton> shown;
        const auto count = static_cast<size_t>(SendMessageW(my_->toolbarWindow(), TB_BUTTONCOUNT, 0, 0));
        for (size_t i = 0; i < count; ++i)
            shown.push_back(my_->lookAtButton(i));
        return shown;
    });
}

std::string FaceDriver::notice() {
    std::string text = my_->ui.on([this] { return my_->form->control()->viewNotice(); });
    std::erase(text, '\r');
    return text;
}

std::string FaceDriver::description() {
    return my_->ui.on([this]() -> std::string {
        ComPtr<IAccessible> accessible;
        Bstr name;
        VARIANT self{};
        self.vt = VT_I4;
        if (FAILED(AccessibleObjectFromWindow(my_->page(), static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                              accessible.receiveAny())) ||
            FAILED(accessible->get_accName(self, name.receive())))
            return "not accessible";
        std::string text = com::textOf(name.get());
        std::erase(text, '\r');
        return text;
    });
}

bool FaceDriver::isIdle() {
    return my_->ui.on([this] {
        return my_->underWay == 0 && my_->form->control()->isIdle() &&
               IsWindowEnabled(my_->form->handle()) != 0;
    });
}

bool FaceDriver::isPageDisplayed() {
    return my_->ui.on([this] { return my_->form->control()->isPageDisplayed(); });
}

ShownScroll FaceDriver::scroll(bool horizontal) {
    return my_->ui.on([&] {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_ALL;
        const LONG_PTR style = GetWindowLongPtrW(my_->page(), GWL_STYLE);
        if ((style & (horizontal ? WS_HSCROLL : WS_VSCROLL)) == 0)
            return ShownScroll{};
        GetScrollInfo(my_->page(), horizontal ? SB_HORZ : SB_VERT, &info);
        return ShownScroll{true, info.nPos, info.nMax - static_cast<int>(info.nPage) + 1};
    });
}

int32_t FaceDriver::pointer() {
    return my_->ui.on([this] {
        SendMessageW(my_->page(), WM_SETCURSOR, reinterpret_cast<WPARAM>(my_->page()),
                     MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        const std::pair<LPCWSTR, int32_t> known[] = {
            {IDC_ARROW, 0}, {IDC_CROSS, 2}, {IDC_APPSTARTING, 13}, {IDC_SIZEALL, 15}};
        for (const auto& [name, code] : known)
            if (GetCursor() == LoadCursorW(nullptr, name))
                return code;
        return -1;
    });
}

int FaceDriver::pageFiles() {
    int count = 0;
    for (const auto& folder : std::filesystem::directory_iterator(std::filesystem::temp_directory_path())) {
        if (!folder.is_directory())
            continue;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
            count += entry.path().extension() == ".dat" ? 1 : 0;
    }
    return count;
}

std::optional<std::string> FaceDriver::debugPane() {
    return my_->ui.on([this]() -> std::optional<std::string> {
        const HWND pane = my_->part(L"Edit");
        return pane && IsWindowVisible(pane) ? std::optional(textOf(pane)) : std::nullopt;
    });
}

Picture FaceDriver::picture() {
    return my_->ui.on([this] {
        // What waits to be painted is painted, nothing else: a repaint that was forgotten shows.
        RedrawWindow(GetAncestor(my_->page(), GA_ROOT), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        RECT client{};
        GetClientRect(my_->page(), &client);
        PixelBuffer buffer;
        if (!buffer.resize({client.right, client.bottom}))
            return Picture{};
        const HDC source = GetDC(my_->page());
        BitBlt(buffer.dc(), 0, 0, client.right, client.bottom, source, 0, 0, SRCCOPY);
        ReleaseDC(my_->page(), source);
        const PixelSurface seen = buffer.surface();
        Picture picture{seen.width, seen.height, {}};
        picture.pixels.assign(seen.pixels, seen.pixels + static_cast<size_t>(seen.width) *
                                                             static_cast<size_t>(seen.height));
        for (uint32_t& pixel : picture.pixels)
            pixel &= 0xFFFFFFU;
        return picture;
    });
}

std::string FaceDriver::focus() {
    return my_->ui.on([this]() -> std::string {
        const HWND focused = GetFocus();
        for (const char* name : {"before", "behind"})
            if (focused && focused == my_->form->field(name))
                return name;
        if (focused == my_->page())
            return "lvrImage";
        if (focused == my_->part(L"Edit"))
            return "txtDebug";
        return fieldName(standingDialog(), focused);
    });
}

std::string FaceDriver::readOut() {
    return my_->statusField(0);
}

std::string FaceDriver::status() {
    return my_->statusField(1);
}

std::string FaceDriver::engineAddress() {
    return my_->address;
}

void FaceDriver::setFaults(const std::string& faults) {
    my_->engine.setFaults(faults);
}

bool FaceDriver::hearsResets() {
    return false;
}

int FaceDriver::requests(const std::string& kind) {
    return my_->engine.requests(kind);
}

} // namespace pixmo::behaviour
