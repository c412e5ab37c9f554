#include "apps/windows/script/scriptengine.h"

#include "faces/com/base/boundary.h"
#include "faces/com/base/bstr.h"

#include <activscp.h>

namespace pixmo::script {

using com::check;
using com::ComPtr;

namespace {

constexpr const wchar_t* HostName = L"Host";

const wchar_t* languageOf(const std::wstring& file) {
    const bool isJScript = file.size() > 3 && lstrcmpiW(file.c_str() + file.size() - 3, L".js") == 0;
    return isJScript ? L"JScript" : L"VBScript";
}

} // namespace

STDMETHODIMP ScriptSitePart::GetLCID(LCID*) {
    return E_NOTIMPL;
}

STDMETHODIMP ScriptSitePart::GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item, ITypeInfo** info) {
    if (info)
        *info = nullptr;
    if (lstrcmpiW(name, HostName) != 0 || (mask & SCRIPTINFO_IUNKNOWN) == 0)
        return TYPE_E_ELEMENTNOTFOUND;
    *item = ComPtr<IUnknown>(state_.host.get()).detach();
    return S_OK;
}

STDMETHODIMP ScriptSitePart::GetDocVersionString(BSTR*) {
    return E_NOTIMPL;
}

STDMETHODIMP ScriptSitePart::OnScriptTerminate(const VARIANT*, const EXCEPINFO*) {
    return S_OK;
}

STDMETHODIMP ScriptSitePart::OnStateChange(SCRIPTSTATE) {
    return S_OK;
}

/// The first error counts: others follow from it.
STDMETHODIMP ScriptSitePart::OnScriptError(IActiveScriptError* error) {
    if (state_.failed)
        return S_OK;
    state_.failed = true;
    DWORD context = 0;
    ULONG line = 0;
    LONG column = 0;
    error->GetSourcePosition(&context, &line, &column);
    EXCEPINFO exception{};
    error->GetExceptionInfo(&exception);
    state_.error = {line + 1, static_cast<int>(column) + 1, com::textOf(exception.bstrDescription),
                    com::textOf(exception.bstrSource)};
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrHelpFile);
    return S_OK;
}

ScriptEngine::ScriptEngine(const std::wstring& file, ComPtr<IDispatch> host)
    : state_{std::move(host), {}, false}, site_(com::makeObject<ScriptSite>(state_)) {
    CLSID language{};
    check(CLSIDFromProgID(languageOf(file), &language));
    check(CoCreateInstance(language, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IActiveScript),
                           engine_.receiveAny()));
    check(engine_.as<IActiveScriptParse>()->InitNew());
    check(engine_->SetScriptSite(static_cast<ScriptSitePart*>(site_.get())));
    check(engine_->AddNamedItem(HostName, SCRIPTITEM_ISVISIBLE));
}

ScriptEngine::~ScriptEngine() {
    engine_->Close();
}

bool ScriptEngine::run(const std::wstring& text) {
    const auto parse = engine_.as<IActiveScriptParse>();
    if (FAILED(parse->ParseScriptText(text.c_str(), nullptr, nullptr, nullptr, 0, 0, 0, nullptr, nullptr)))
        return false;
    return SUCCEEDED(engine_->SetScriptState(SCRIPTSTATE_CONNECTED)) && !state_.failed;
}

ComPtr<IDispatch> ScriptEngine::procedures() const {
    ComPtr<IDispatch> dispatch;
    check(engine_->GetScriptDispatch(nullptr, dispatch.receive()));
    return dispatch;
}

} // namespace pixmo::script
