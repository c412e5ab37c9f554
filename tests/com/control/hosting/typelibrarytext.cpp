#include "tests/com/control/hosting/typelibrarytext.h"

#include "faces/com/base/boundary.h"
#include "faces/com/base/bstr.h"
#include "faces/com/base/comptr.h"

#include <functional>
#include <map>
#include <vector>

namespace pixmo::com::test {

namespace {

std::string textOf(REFGUID guid) {
    wchar_t text[39] = {};
    StringFromGUID2(guid, text, 39);
    return toUtf8(text);
}

std::string nameOf(ITypeInfo& info, MEMBERID member = MEMBERID_NIL) {
    Bstr name;
    info.GetDocumentation(member, name.receive(), nullptr, nullptr, nullptr);
    return toUtf8(name.view());
}

std::string typeText(ITypeInfo& info, const TYPEDESC& type) {
    static const std::map<VARTYPE, const char*> names{
        {VT_I2, "short"},  {VT_I4, "long"},         {VT_BSTR, "BSTR"}, {VT_BOOL, "VARIANT_BOOL"},
        {VT_VOID, "void"}, {VT_HRESULT, "HRESULT"}, {VT_INT, "int"},   {VT_UI4, "unsigned long"},
    };
    if (type.vt == VT_PTR)
        return typeText(info, *type.lptdesc) + "*";
    if (type.vt == VT_USERDEFINED) {
        ComPtr<ITypeInfo> other;
        check(info.GetRefTypeInfo(type.hreftype, other.receive()));
        return nameOf(*other);
    }
    const auto found = names.find(type.vt);
    return found == names.end() ? "type " + std::to_string(type.vt) : found->second;
}

std::string parameterText(ITypeInfo& info, const ELEMDESC& parameter, const std::string& name) {
    const USHORT flags = parameter.paramdesc.wParamFlags;
    std::string text;
    for (const auto& [flag, word] :
         {std::pair{PARAMFLAG_FIN, "in "}, std::pair{PARAMFLAG_FOUT, "out "},
          std::pair{PARAMFLAG_FRETVAL, "retval "}, std::pair{PARAMFLAG_FOPT, "optional "}})
        text += (flags & flag) ? word : "";
    return text + typeText(info, parameter.tdesc) + " " + name;
}

std::string functionText(ITypeInfo& info, const FUNCDESC& function) {
    static const std::map<INVOKEKIND, const char*> kinds{{INVOKE_FUNC, "method"},
                                                         {INVOKE_PROPERTYGET, "get"},
                                                         {INVOKE_PROPERTYPUT, "put"},
                                                         {INVOKE_PROPERTYPUTREF, "putref"}};
    std::vector<BSTR> names(static_cast<size_t>(function.cParams) + 1);
    UINT count = 0;
    check(info.GetNames(function.memid, names.data(), static_cast<UINT>(names.size()), &count));
    std::string text = "  " + std::to_string(function.memid) + " " + kinds.at(function.invkind) + " " +
                       toUtf8(names[0]) + "(";
    for (SHORT at = 0; at < function.cParams; ++at) {
        const auto index = static_cast<size_t>(at) + 1;
        text += (at > 0 ? ", " : "") + parameterText(info, function.lprgelemdescParam[at],
                                                     index < count ? toUtf8(names[index]) : "value");
    }
    for (const BSTR name : names)
        SysFreeString(name);
    text += ") " + typeText(info, function.elemdescFunc.tdesc);
    return text + (function.wFuncFlags ? " flags " + std::to_string(function.wFuncFlags) : "") + "\n";
}

void eachFunction(ITypeInfo& info, const std::function<void(const FUNCDESC&)>& visit) {
    TYPEATTR* attributes = nullptr;
    check(info.GetTypeAttr(&attributes));
    for (UINT at = 0; at < attributes->cFuncs; ++at) {
        FUNCDESC* function = nullptr;
        check(info.GetFuncDesc(at, &function));
        if ((function->wFuncFlags & FUNCFLAG_FRESTRICTED) == 0)
            visit(*function);
        info.ReleaseFuncDesc(function);
    }
    info.ReleaseTypeAttr(attributes);
}

std::string constantsText(ITypeInfo& info, const TYPEATTR& attributes) {
    std::string text;
    for (UINT at = 0; at < attributes.cVars; ++at) {
        VARDESC* constant = nullptr;
        check(info.GetVarDesc(at, &constant));
        text +=
            "  " + nameOf(info, constant->memid) + " = " + std::to_string(constant->lpvarValue->lVal) + "\n";
        info.ReleaseVarDesc(constant);
    }
    return text;
}

std::string implementedText(ITypeInfo& info, const TYPEATTR& attributes) {
    std::string text;
    for (UINT at = 0; at < attributes.cImplTypes; ++at) {
        HREFTYPE reference = 0;
        INT flags = 0;
        ComPtr<ITypeInfo> implemented;
        check(info.GetRefTypeOfImplType(at, &reference));
        check(info.GetImplTypeFlags(at, &flags));
        check(info.GetRefTypeInfo(reference, implemented.receive()));
        text += "  " + nameOf(*implemented) + " flags " + std::to_string(flags) + "\n";
    }
    return text;
}

std::string typeInfoText(ITypeInfo& info) {
    static const std::map<TYPEKIND, const char*> kinds{{TKIND_ENUM, "enum"},
                                                       {TKIND_DISPATCH, "dispatch"},
                                                       {TKIND_COCLASS, "coclass"},
                                                       {TKIND_ALIAS, "alias"}};
    TYPEATTR* attributes = nullptr;
    check(info.GetTypeAttr(&attributes));
    std::string text = std::string(kinds.at(attributes->typekind)) + " " + nameOf(info) + " " +
                       textOf(attributes->guid) + " flags " + std::to_string(attributes->wTypeFlags) + "\n";
    text += constantsText(info, *attributes);
    if (attributes->typekind == TKIND_COCLASS)
        text += implementedText(info, *attributes);
    info.ReleaseTypeAttr(attributes);
    eachFunction(info, [&](const FUNCDESC& function) { text += functionText(info, function); });
    return text;
}

bool isHelpless(const std::function<HRESULT(BSTR*)>& askForHelp) {
    Bstr help;
    return FAILED(askForHelp(help.receive())) || help.view().empty();
}

} // namespace

std::string describe(ITypeLib& library) {
    TLIBATTR* attributes = nullptr;
    check(library.GetLibAttr(&attributes));
    std::string text = "library " + textOf(attributes->guid) + " " +
                       std::to_string(attributes->wMajorVerNum) + "." +
                       std::to_string(attributes->wMinorVerNum) + "\n";
    library.ReleaseTLibAttr(attributes);
    for (UINT at = 0; at < library.GetTypeInfoCount(); ++at) {
        ComPtr<ITypeInfo> info;
        check(library.GetTypeInfo(at, info.receive()));
        text += typeInfoText(*info);
    }
    return text;
}

std::string undocumented(ITypeLib& library) {
    std::string names;
    if (isHelpless([&](BSTR* help) { return library.GetDocumentation(-1, nullptr, help, nullptr, nullptr); }))
        names += "the library\n";
    for (UINT at = 0; at < library.GetTypeInfoCount(); ++at) {
        ComPtr<ITypeInfo> info;
        check(library.GetTypeInfo(at, info.receive()));
        const auto addUnlessDocumented = [&](MEMBERID member) {
            if (isHelpless([&](BSTR* help) {
                    return info->GetDocumentation(member, nullptr, help, nullptr, nullptr);
                }))
                names += nameOf(*info, member) + "\n";
        };
        addUnlessDocumented(MEMBERID_NIL);
        eachFunction(*info, [&](const FUNCDESC& function) { addUnlessDocumented(function.memid); });
    }
    return names;
}

} // namespace pixmo::com::test
