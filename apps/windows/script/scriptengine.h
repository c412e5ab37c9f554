#pragma once

#include "faces/com/base/comobject.h"
#include "faces/com/base/comptr.h"

#include <activscp.h>
#include <servprov.h>
#include <string>

namespace pixmo::script {

/// One error of a script, where it happened.
struct ScriptError {
    unsigned line = 0; ///< from 1
    int column = 0;    ///< from 1
    std::string description;
    std::string source;
};

/// What the engine tells of the script, and asks about it.
struct ScriptSiteState {
    com::ComPtr<IDispatch> host; ///< known to the script as Host
    ScriptError error;
    bool failed = false;
};

class ScriptSitePart : public IActiveScriptSite {
public:
    using Exposes = com::Exposed<IActiveScriptSite>;
    explicit ScriptSitePart(ScriptSiteState& state) : state_(state) {}

    STDMETHODIMP GetLCID(LCID* locale) override;
    STDMETHODIMP GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item, ITypeInfo** info) override;
    STDMETHODIMP GetDocVersionString(BSTR* version) override;
    STDMETHODIMP OnScriptTerminate(const VARIANT* result, const EXCEPINFO* exception) override;
    STDMETHODIMP OnStateChange(SCRIPTSTATE state) override;
    STDMETHODIMP OnScriptError(IActiveScriptError* error) override;
    STDMETHODIMP OnEnterScript() override { return S_OK; }
    STDMETHODIMP OnLeaveScript() override { return S_OK; }

protected:
    ~ScriptSitePart() = default;

private:
    ScriptSiteState& state_;
};

/// Some engines create no object for a script whose site offers no services at all.
class ScriptServicePart : public IServiceProvider {
public:
    using Exposes = com::Exposed<IServiceProvider>;
    explicit ScriptServicePart(ScriptSiteState&) {}
    STDMETHODIMP QueryService(REFGUID, REFIID, void** object) override {
        *object = nullptr;
        return E_NOINTERFACE;
    }

protected:
    ~ScriptServicePart() = default;
};

class ScriptSite final : public com::ComObject<ScriptSitePart, ScriptServicePart> {
public:
    explicit ScriptSite(ScriptSiteState& state) : ComObject(nullptr, state) {}
};

/// One script in the language that its file's name tells: .js JScript, any other VBScript.
class ScriptEngine {
public:
    /// Throws when the language is not installed.
    ScriptEngine(const std::wstring& file, com::ComPtr<IDispatch> host);
    ~ScriptEngine();
    ScriptEngine(const ScriptEngine&) = delete;
    ScriptEngine& operator=(const ScriptEngine&) = delete;

    /// Runs what stands outside of procedures; false when that fails, see error().
    bool run(const std::wstring& text);
    /// The script's own procedures.
    com::ComPtr<IDispatch> procedures() const;
    bool failed() const { return state_.failed; }
    const ScriptError& error() const { return state_.error; }

private:
    ScriptSiteState state_;
    com::ComPtr<ScriptSite> site_;
    com::ComPtr<IActiveScript> engine_;
};

} // namespace pixmo::script
