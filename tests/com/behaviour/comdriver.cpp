#include "tests/com/behaviour/comdriver.h"

#include "faces/com/base/widetext.h"
#include "faces/com/control/identifiers.h"
#include "faces/com/windows/pixelbuffer.h"
#include "tests/com/behaviour/openwindows.h"
#include "tests/com/face/user.h"

#include <array>
#include <commctrl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <oleacc.h>
#include <utility>

// The control and what is seen of it.
namespace pixmo::com::test {

using namespace behaviour;

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

} // namespace

void ComDriver::runMessageLoop() {
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (currentForm && currentForm->translate(message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

ComDriver::~ComDriver() {
    destroy();
}

void ComDriver::start(const std::function<void()>& call) {
    ui_.start([this, call] {
        ++underWay_;
        call();
        --underWay_;
    });
    ui_.on([] {});
}

void ComDriver::create() {
    ui_.on([this] {
        // Clicks in quick order are as many clicks.
        SetDoubleClickTime(1);
        form_ = FormWindow::create(FirstSize);
        currentForm = form_.get();
    });
}

void ComDriver::destroy() {
    ui_.on([this] {
        currentForm = nullptr;
        if (form_)
            form_->close();
        form_.reset();
    });
}

void ComDriver::forgetSettings() {
    user::forgetSettings();
}

Value ComDriver::get(const std::string& property) {
    return ui_.on([&] {
        Variant value;
        const HRESULT result = form_->container().get(toWide(property).c_str(), value);
        EXPECT_EQ(result, S_OK) << property;
        return valueOf(value);
    });
}

void ComDriver::set(const std::string& property, const Value& value) {
    start([this, property, value] {
        Container& host = form_->container();
        refusal_.reset();
        const HRESULT result = host.put(toWide(property).c_str(), variantOf(value));
        if (FAILED(result))
            refusal_ = LastError{HRESULT_CODE(result), host.problemSource(), host.problem()};
    });
}

LastError ComDriver::lastError() {
    return ui_.on([this] {
        if (refusal_)
            return *refusal_;
        LastError error;
        std::string helpFile;
        int32_t helpContext = 0;
        form_->control()->GetLastError(error.number, error.source, error.description, helpFile, helpContext);
        return error;
    });
}

void ComDriver::load(int32_t docID, int16_t page) {
    start([this, docID, page] {
        form_->container().as<IImageView>()->LoadDocumentByDocID(static_cast<LONG>(docID), page);
    });
}

void ComDriver::call(const std::string& method) {
    ui_.on([&] { EXPECT_EQ(form_->container().call(toWide(method).c_str(), {}), S_OK) << method; });
}

void ComDriver::resize(int32_t width, int32_t height) {
    ui_.on([&] {
        if (thumbs_)
            SetWindowPos(thumbs_, nullptr, 60, 70, width, height, SWP_NOZORDER);
        else
            form_->resizeControl({width, height});
    });
}

void ComDriver::answerEvents(const HostAnswers& answers) {
    ui_.on([&] { form_->answers = answers; });
}

void ComDriver::command(const std::string& key) {
    start([this, key] { form_->control()->runCommand(key); });
}

void ComDriver::setStallTimeout(int milliseconds) {
    ui_.on([&] { form_->face().setStallTimeout(milliseconds); });
}

std::vector<std::string> ComDriver::takeEvents() {
    return ui_.on([this] { return form_->takeEvents(); });
}

HWND ComDriver::part(const wchar_t* className) const {
    return FindWindowExW(thumbs_ ? thumbs_ : form_->face().window(), nullptr, className, nullptr);
}

std::vector<HWND> ComDriver::statusFields() const {
    std::vector<HWND> fields;
    for (HWND field = nullptr;
         (field = FindWindowExW(form_->face().window(), field, L"Static", nullptr)) != nullptr;)
        fields.push_back(field);
    return fields;
}

std::string ComDriver::statusField(size_t index) {
    return ui_.on([&] { return textOf(statusFields().at(index)); });
}

ShownButton ComDriver::lookAtButton(size_t index) const {
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

std::vector<ShownButton> ComDriver::toolbar() {
    return ui_.on([this] {
        std::vector<ShownButton> shown;
        const auto count = static_cast<size_t>(SendMessageW(toolbarWindow(), TB_BUTTONCOUNT, 0, 0));
        for (size_t i = 0; i < count; ++i)
            shown.push_back(lookAtButton(i));
        return shown;
    });
}

std::string ComDriver::notice() {
    std::string text = ui_.on([this] { return form_->control()->viewNotice(); });
    std::erase(text, '\r');
    return text;
}

std::string ComDriver::description() {
    return ui_.on([this]() -> std::string {
        ComPtr<IAccessible> accessible;
        Bstr name;
        VARIANT self{};
        self.vt = VT_I4;
        if (FAILED(AccessibleObjectFromWindow(page(), static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                              accessible.receiveAny())) ||
            FAILED(accessible->get_accName(self, name.receive())))
            return "not accessible";
        std::string text = com::textOf(name.get());
        std::erase(text, '\r');
        return text;
    });
}

bool ComDriver::isIdle() {
    return ui_.on([this] {
        return underWay_ == 0 && form_->control()->isIdle() && IsWindowEnabled(form_->handle()) != 0;
    });
}

bool ComDriver::isPageDisplayed() {
    return ui_.on([this] { return form_->control()->isPageDisplayed(); });
}

ShownScroll ComDriver::scroll(bool horizontal) {
    return ui_.on([&] {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_ALL;
        const LONG_PTR style = GetWindowLongPtrW(page(), GWL_STYLE);
        if ((style & (horizontal ? WS_HSCROLL : WS_VSCROLL)) == 0)
            return ShownScroll{};
        GetScrollInfo(page(), horizontal ? SB_HORZ : SB_VERT, &info);
        return ShownScroll{true, info.nPos, info.nMax - static_cast<int>(info.nPage) + 1};
    });
}

int32_t ComDriver::pointer() {
    return ui_.on([this] {
        SendMessageW(page(), WM_SETCURSOR, reinterpret_cast<WPARAM>(page()),
                     MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        const std::pair<LPCWSTR, int32_t> known[] = {
            {IDC_ARROW, 0}, {IDC_CROSS, 2}, {IDC_APPSTARTING, 13}, {IDC_SIZEALL, 15}};
        for (const auto& [name, code] : known)
            if (GetCursor() == LoadCursorW(nullptr, name))
                return code;
        return -1;
    });
}

int ComDriver::pageFiles() {
    int count = 0;
    for (const auto& folder : std::filesystem::directory_iterator(std::filesystem::temp_directory_path())) {
        if (!folder.is_directory())
            continue;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
            count += entry.path().extension() == ".dat" ? 1 : 0;
    }
    return count;
}

std::optional<std::string> ComDriver::debugPane() {
    return ui_.on([this]() -> std::optional<std::string> {
        const HWND pane = part(L"Edit");
        return pane && IsWindowVisible(pane) ? std::optional(textOf(pane)) : std::nullopt;
    });
}

Picture ComDriver::picture() {
    return ui_.on([this] {
        // What waits to be painted is painted, nothing else: a repaint that was forgotten shows.
        RedrawWindow(GetAncestor(page(), GA_ROOT), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        RECT client{};
        GetClientRect(page(), &client);
        PixelBuffer buffer;
        if (!buffer.resize({client.right, client.bottom}))
            return Picture{};
        const HDC source = GetDC(page());
        BitBlt(buffer.dc(), 0, 0, client.right, client.bottom, source, 0, 0, SRCCOPY);
        ReleaseDC(page(), source);
        const PixelSurface seen = buffer.surface();
        Picture picture{seen.width, seen.height, {}};
        picture.pixels.assign(seen.pixels, seen.pixels + static_cast<size_t>(seen.width) *
                                                             static_cast<size_t>(seen.height));
        for (uint32_t& pixel : picture.pixels)
            pixel &= 0xFFFFFFU;
        return picture;
    });
}

std::string ComDriver::focus() {
    return ui_.on([this]() -> std::string {
        const HWND focused = GetFocus();
        for (const char* name : {"before", "behind"})
            if (focused && focused == form_->field(name))
                return name;
        if (focused == page())
            return "lvrImage";
        if (focused == part(L"Edit"))
            return "txtDebug";
        return fieldName(standingDialog(), focused);
    });
}

} // namespace pixmo::com::test
