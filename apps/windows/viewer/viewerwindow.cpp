#include "apps/windows/viewer/viewerwindow.h"

#include "apps/windows/viewer/commands.h"
#include "apps/windows/viewer/neighbourlibrary.h"
#include "core/base/error.h"
#include "faces/com/base/boundary.h"
#include "faces/com/base/bstr.h"
#include "faces/com/control/identifiers.h"
#include "faces/com/windows/dpi.h"
#include "faces/com/windows/fonts.h"

#include <algorithm>
#include <commctrl.h>
#include <limits>
#include <optional>

namespace pixmo::viewer {

namespace {

constexpr const wchar_t* ClassName = L"PixmoViewer";
constexpr const wchar_t* Title = L"Pixmo Viewer";

constexpr DISPID IdPageChanged = 4;

/// Device-independent pixels.
constexpr int Margin = 6;
constexpr int TextMargin = 4; ///< above and below the text of a field
constexpr int DocumentWidth = 80;
constexpr int ButtonWidth = 75;
constexpr int WindowWidth = 900;
constexpr int WindowHeight = 950;

HWND makeChild(HWND parent, const wchar_t* kind, const wchar_t* text, DWORD style, int id) {
    const DWORD edge = std::wstring_view(kind) == WC_EDITW ? WS_EX_CLIENTEDGE : 0;
    return CreateWindowExW(edge, kind, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, parent,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr),
                           nullptr);
}

/// Not larger than the usable part of the user's screen.
SIZE firstSize() {
    const int dpi = com::dpiOf(nullptr);
    RECT screen{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    return {std::min<LONG>(com::scaled(WindowWidth, dpi), screen.right - screen.left),
            std::min<LONG>(com::scaled(WindowHeight, dpi), screen.bottom - screen.top)};
}

void tell(HWND owner, const Error& error) {
    MessageBoxW(owner, com::toWide(error.Description).c_str(), Title, MB_OK | MB_ICONEXCLAMATION);
}

} // namespace

ViewerWindow::ViewerWindow(Source source) {
    WNDCLASSW description{};
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    description.lpszMenuName = MAKEINTRESOURCEW(IDM_VIEWER);
    description.lpszClassName = ClassName;
    RegisterClassW(&description);
    const SIZE size = firstSize();
    window_ = CreateWindowExW(0, ClassName, Title, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
                              CW_USEDEFAULT, size.cx, size.cy, nullptr, nullptr, description.hInstance, this);
    if (!window_)
        throw com::errorOf(HRESULT_FROM_WIN32(::GetLastError()));
    icons_.giveTo(window_);
    makeFields();
    takeFont();
    placeControl(source);
}

ViewerWindow::~ViewerWindow() {
    events_.disconnect();
    control_.reset();
    if (window_)
        DestroyWindow(window_);
    UnregisterClassW(ClassName, GetModuleHandleW(nullptr));
}

void ViewerWindow::makeFields() {
    address_ = makeChild(window_, WC_EDITW, L"", WS_TABSTOP | ES_AUTOHSCROLL, ID_ADDRESS);
    document_ = makeChild(window_, WC_EDITW, L"", WS_TABSTOP | ES_NUMBER, ID_DOCUMENT);
    openButton_ = makeChild(window_, WC_BUTTONW, L"&Open", WS_TABSTOP | BS_DEFPUSHBUTTON, IDM_OPEN);
    status_ = makeChild(window_, STATUSCLASSNAMEW, L"No document", SBARS_SIZEGRIP, ID_STATUS);
    SendMessageW(address_, EM_SETCUEBANNER, TRUE,
                 reinterpret_cast<LPARAM>(L"Address of the imaging server's page"));
    SendMessageW(document_, EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(L"Document"));
}

void ViewerWindow::takeFont() {
    font_ = com::makeFont({}, com::dpiOf(window_));
    for (const HWND child : {address_, document_, openButton_, status_})
        SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), TRUE);
}

int ViewerWindow::fieldHeight() const {
    return static_cast<int>(com::textSize(font_.get(), L"X").cy) + 2 * scaled(TextMargin);
}

int ViewerWindow::scaled(int length) const {
    return com::scaled(length, com::dpiOf(window_));
}

void ViewerWindow::placeControl(Source source) {
    com::ComPtr<IUnknown> made;
    {
        std::optional<NeighbourLibrary> neighbour;
        if (source == Source::Neighbour)
            neighbour.emplace();
        com::check(CoCreateInstance(CLSID_ImageView, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                                    made.receiveAny()));
    }
    control_ = std::make_unique<form::PlacedControl>(window_);
    control_->put(made, controlPlace());
    events_.connect(control_->as<IConnectionPointContainer>(), DIID_IImageViewEvents,
                    [this](DISPID event, DISPPARAMS& arguments) {
                        if (event == IdPageChanged && arguments.cArgs == 2)
                            pageChanged(static_cast<int>(arguments.rgvarg[1].lVal),
                                        static_cast<int>(arguments.rgvarg[0].lVal));
                    });
    const auto view = control_->as<IImageView>();
    view->put_ThumbsAvailable(VARIANT_TRUE);
    layOut();
}

RECT ViewerWindow::controlPlace() const {
    RECT area{};
    RECT status{};
    GetClientRect(window_, &area);
    GetWindowRect(status_, &status);
    area.top = fieldHeight() + 2 * scaled(Margin);
    area.bottom = std::max(area.top, area.bottom - (status.bottom - status.top));
    return area;
}

void ViewerWindow::layOut() {
    SendMessageW(status_, WM_SIZE, 0, 0);
    RECT area{};
    GetClientRect(window_, &area);
    const int margin = scaled(Margin);
    const int height = fieldHeight();
    const int buttonWidth = scaled(ButtonWidth);
    const int documentWidth = scaled(DocumentWidth);
    const int button = static_cast<int>(area.right) - margin - buttonWidth;
    const int document = button - margin - documentWidth;
    MoveWindow(address_, margin, margin, std::max(0, document - 2 * margin), height, TRUE);
    MoveWindow(document_, document, margin, documentWidth, height, TRUE);
    MoveWindow(openButton_, button, margin, buttonWidth, height, TRUE);
    if (control_)
        control_->move(controlPlace());
}

void ViewerWindow::setAddress(const std::wstring& address) {
    SetWindowTextW(address_, address.c_str());
}

void ViewerWindow::open(int document, int page) {
    SetDlgItemInt(window_, ID_DOCUMENT, static_cast<UINT>(document), FALSE);
    const auto view = control_->as<IImageView>();
    const com::Bstr address{std::wstring_view(textOf(address_))};
    constexpr int last = std::numeric_limits<SHORT>::max();
    com::check(view->put_EngineAddress(address.get()));
    com::check(view->LoadDocumentByDocID(document, static_cast<SHORT>(std::clamp(page, 1, last))));
}

void ViewerWindow::openTyped() {
    open(static_cast<int>(GetDlgItemInt(window_, ID_DOCUMENT, nullptr, FALSE)), 1);
    control_->focus();
}

std::wstring ViewerWindow::textOf(HWND field) const {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(field)), L'\0');
    GetWindowTextW(field, text.data(), static_cast<int>(text.size() + 1));
    return text;
}

void ViewerWindow::pageChanged(int document, int page) {
    shownDocument_ = document;
    const std::wstring text =
        document == 0 ? L"No document"
                      : L"Document " + std::to_wstring(document) + L", page " + std::to_wstring(page);
    SetWindowTextW(status_, text.c_str());
}

void ViewerWindow::command(int id) {
    const auto view = control_ ? control_->as<IImageView>() : com::ComPtr<IImageView>();
    if (!view)
        return;
    SHORT page = 0;
    view->get_Page(&page);
    switch (id) {
    case IDM_OPEN:
        return openTyped();
    case IDM_CLOSE:
        return com::check(view->Clear());
    case IDM_NEXT:
        return com::check(view->put_Page(static_cast<SHORT>(page + 1)));
    case IDM_PREVIOUS:
        return com::check(view->put_Page(static_cast<SHORT>(page - 1)));
    case IDM_REFRESH:
        return com::check(view->Refresh());
    case IDM_ABOUT:
        return com::check(view->AboutBox());
    case IDM_PROPERTIES:
        return com::check(
            control_->as<IOleObject>()->DoVerb(OLEIVERB_PROPERTIES, nullptr, nullptr, 0, window_, nullptr));
    case IDM_EXIT:
        PostMessageW(window_, WM_CLOSE, 0, 0);
        return;
    default:
        return;
    }
}

bool ViewerWindow::translate(MSG& message) {
    return (control_ && control_->translate(message)) || IsDialogMessageW(window_, &message);
}

LRESULT CALLBACK ViewerWindow::procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_NCCREATE)
        SetWindowLongPtrW(
            window, GWLP_USERDATA,
            reinterpret_cast<LONG_PTR>(reinterpret_cast<CREATESTRUCTW*>(second)->lpCreateParams));
    auto* const self = reinterpret_cast<ViewerWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self || !self->window_)
        return DefWindowProcW(window, message, first, second);
    try {
        return self->handle(message, first, second);
    } catch (...) {
        tell(window, currentError());
        return 0;
    }
}

LRESULT ViewerWindow::handle(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_SIZE:
        layOut();
        return 0;
    case com::DpiChanged: {
        const RECT& wanted = *reinterpret_cast<const RECT*>(second);
        takeFont();
        MoveWindow(window_, wanted.left, wanted.top, wanted.right - wanted.left, wanted.bottom - wanted.top,
                   TRUE);
        return 0;
    }
    case WM_COMMAND:
        if (second == 0 || HIWORD(first) == BN_CLICKED)
            command(LOWORD(first));
        return 0;
    case WM_CLOSE:
        events_.disconnect();
        control_.reset();
        DestroyWindow(window_);
        return 0;
    case WM_DESTROY:
        window_ = nullptr;
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcW(window_, message, first, second);
    }
}

} // namespace pixmo::viewer
