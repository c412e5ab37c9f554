#include "apps/windows/script/session.h"

#include "apps/windows/script/scriptevents.h"
#include "core/base/error.h"
#include "faces/com/base/boundary.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace pixmo::script {

using com::ComPtr;
using com::Variant;

namespace {

constexpr int WindowWidth = 700;
constexpr int WindowHeight = 800;

const VARIANT& argument(const Arguments& arguments, size_t at) {
    if (at >= arguments.size())
        throw Error(450, "Wrong number of arguments");
    return arguments[at];
}

Variant converted(const Arguments& arguments, size_t at, VARTYPE type) {
    Variant value;
    com::check(value.assignFrom(&argument(arguments, at)));
    com::check(value.convertTo(type));
    return value;
}

std::string textArgument(const Arguments& arguments, size_t at) {
    return com::textOf(converted(arguments, at, VT_BSTR).get()->bstrVal);
}

int32_t numberArgument(const Arguments& arguments, size_t at) {
    return static_cast<int32_t>(converted(arguments, at, VT_I4).get()->lVal);
}

ComPtr<IUnknown> objectArgument(const Arguments& arguments, size_t at) {
    Variant value;
    com::check(value.assignFrom(&argument(arguments, at)));
    if (auto object = value.object())
        return object;
    throw Error(424, "Object required");
}

void print(const std::string& line) {
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
}

/// Thrown to leave the script; the engine reports it as an error that nobody is shown.
Error leaving() {
    return {0, "The script has ended"};
}

std::wstring readText(const std::wstring& file) {
    std::ifstream stream(std::filesystem::path(file), std::ios::binary);
    if (!stream)
        throw fileNotFoundError();
    std::ostringstream text;
    text << stream.rdbuf();
    return com::toWide(text.str());
}

} // namespace

Session::~Session() {
    placed_.clear();
    engine_.reset();
    for (const HWND window : windows_)
        DestroyWindow(window);
}

Procedures Session::procedures() {
    return {
        {L"Echo",
         [](const Arguments& given) {
             print(textArgument(given, 0));
             return Variant();
         }},
        {L"Check",
         [this](const Arguments& given) {
             if (converted(given, 0, VT_BOOL).get()->boolVal == VARIANT_FALSE) {
                 print("check failed: " + textArgument(given, 1));
                 checkFailed_ = true;
             }
             return Variant();
         }},
        {L"Connect",
         [this](const Arguments& given) {
             connectEvents(*objectArgument(given, 0), engine_->procedures(),
                           com::toWide(textArgument(given, 1)));
             return Variant();
         }},
        {L"Show",
         [this](const Arguments& given) {
             show(objectArgument(given, 0));
             return Variant();
         }},
        {L"Sleep",
         [this](const Arguments& given) {
             sleep(numberArgument(given, 0));
             return Variant();
         }},
        {L"Argument",
         [this](const Arguments& given) {
             const auto at = static_cast<size_t>(numberArgument(given, 0));
             return Variant(
                 std::string_view(at < arguments_.size() ? com::toUtf8(arguments_[at]) : std::string()));
         }},
        {L"Quit",
         [this](const Arguments& given) -> Variant {
             quit_ = numberArgument(given, 0);
             throw leaving();
         }},
    };
}

void Session::show(const ComPtr<IUnknown>& control) {
    const HWND window = CreateWindowExW(
        0, L"STATIC", L"Pixmo", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN | WS_VISIBLE, CW_USEDEFAULT,
        CW_USEDEFAULT, WindowWidth, WindowHeight, nullptr, nullptr, nullptr, nullptr);
    windows_.push_back(window);
    RECT area{};
    GetClientRect(window, &area);
    placed_.push_back(std::make_unique<form::PlacedControl>(window));
    placed_.back()->put(control, area);
    placed_.back()->focus();
}

void Session::sleep(int milliseconds) {
    const DWORD start = GetTickCount();
    for (;;) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            bool used = false;
            for (const auto& control : placed_)
                used = used || control->translate(message);
            if (used)
                continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        const DWORD passed = GetTickCount() - start;
        if (passed >= static_cast<DWORD>(milliseconds))
            return;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(milliseconds) - passed, QS_ALLINPUT);
    }
}

int Session::run(const std::wstring& file) {
    const std::wstring text = readText(file);
    engine_ = std::make_unique<ScriptEngine>(
        file, ComPtr<IDispatch>(com::makeObject<HostObject>(procedures()).get()));
    engine_->run(text);
    return statusOf(file);
}

int Session::statusOf(const std::wstring& file) const {
    if (quit_)
        return checkFailed_ && *quit_ == 0 ? 1 : *quit_;
    if (engine_->failed()) {
        const ScriptError& error = engine_->error();
        print(com::toUtf8(file) + "(" + std::to_string(error.line) + ", " + std::to_string(error.column) +
              ") " + error.source + ": " + error.description);
        return 2;
    }
    return checkFailed_ ? 1 : 0;
}

} // namespace pixmo::script
