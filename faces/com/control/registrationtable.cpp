#include "faces/com/control/registrationtable.h"

#include "faces/com/control/identifiers.h"

#include <array>

namespace pixmo::com {

namespace {

constexpr const wchar_t* Title = L"Vellane Internet Image Viewer";
constexpr const wchar_t* PageTitle = L"Vellane Internet Image Viewer property page";
constexpr const wchar_t* ProgId = L"VellaneInet2.ImageView";
constexpr const wchar_t* VersionedProgId = L"VellaneInet2.ImageView.1";

/// Categories: control, safe for scripting, safe for initialising.
constexpr std::array Categories{L"{40FC6ED4-2438-11CF-A3DB-080036F12502}",
                                L"{7DD95801-9882-11CF-9FA9-00AA006C42C4}",
                                L"{7DD95802-9882-11CF-9FA9-00AA006C42C4}"};

/// Marshalling of dual and of event interfaces by the type library.
constexpr const wchar_t* DualMarshaller = L"{00020424-0000-0000-C000-000000000046}";
constexpr const wchar_t* EventMarshaller = L"{00020420-0000-0000-C000-000000000046}";

constexpr const wchar_t* Platform = sizeof(void*) == 8 ? L"win64" : L"win32";

std::wstring textOf(REFGUID guid) {
    std::array<wchar_t, 39> text{};
    StringFromGUID2(guid, text.data(), static_cast<int>(text.size()));
    return text.data();
}

using Rows = std::vector<RegistryRow>;

void addServer(Rows& rows, const std::wstring& key, const wchar_t* title, const std::wstring& module) {
    rows.push_back({key, L"", title});
    rows.push_back({key + L"\\InprocServer32", L"", module});
    rows.push_back({key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"});
}

void addControl(Rows& rows, const std::wstring& key, const std::wstring& module) {
    addServer(rows, key, Title, module);
    rows.push_back({key + L"\\ProgID", L"", VersionedProgId});
    rows.push_back({key + L"\\VersionIndependentProgID", L"", ProgId});
    rows.push_back({key + L"\\Control", L"", L"", false});
    rows.push_back({key + L"\\Programmable", L"", L"", false});
    for (const wchar_t* category : Categories)
        rows.push_back({key + L"\\Implemented Categories\\" + category, L"", L"", false});
    rows.push_back({key + L"\\MiscStatus", L"", L"0"});
    rows.push_back({key + L"\\MiscStatus\\1", L"", std::to_wstring(ControlStatus)});
    rows.push_back({key + L"\\ToolboxBitmap32", L"", module + L", " + std::to_wstring(ToolboxBitmap)});
    rows.push_back({key + L"\\TypeLib", L"", textOf(LIBID_VellaneInet2)});
    rows.push_back({key + L"\\Version", L"",
                    std::to_wstring(TypeLibraryMajor) + L"." + std::to_wstring(TypeLibraryMinor)});
    rows.push_back({key + L"\\verb", L"", L"", false});
    rows.push_back({key + L"\\verb\\-7", L"", L"&Properties,0,2"});
}

void addProgId(Rows& rows, const wchar_t* progId, const std::wstring& classId) {
    rows.push_back({progId, L"", Title});
    rows.push_back({std::wstring(progId) + L"\\CLSID", L"", classId});
}

void addInterface(Rows& rows, REFIID iid, const wchar_t* name, const wchar_t* marshaller) {
    const std::wstring key = L"Interface\\" + textOf(iid);
    rows.push_back({key, L"", name});
    rows.push_back({key + L"\\ProxyStubClsid32", L"", marshaller});
    rows.push_back({key + L"\\TypeLib", L"", textOf(LIBID_VellaneInet2)});
    rows.push_back({key + L"\\TypeLib", L"Version", L"1.0"});
}

void addTypeLibrary(Rows& rows, const std::wstring& module) {
    const std::wstring key = L"TypeLib\\" + textOf(LIBID_VellaneInet2) + L"\\1.0";
    rows.push_back({key, L"", Title});
    rows.push_back({key + L"\\FLAGS", L"", L"0"});
    rows.push_back({key + L"\\0\\" + Platform, L"", module});
    rows.push_back({key + L"\\HELPDIR", L"", module.substr(0, module.find_last_of(L'\\'))});
}

} // namespace

std::vector<RegistryRow> registrationTable(const std::wstring& module) {
    const std::wstring classId = textOf(CLSID_ImageView);
    Rows rows;
    addControl(rows, L"CLSID\\" + classId, module);
    addServer(rows, L"CLSID\\" + textOf(ClassOfPage), PageTitle, module);
    addProgId(rows, ProgId, classId);
    rows.push_back({std::wstring(ProgId) + L"\\CurVer", L"", VersionedProgId});
    addProgId(rows, VersionedProgId, classId);
    addInterface(rows, IID_IImageView, L"IImageView", DualMarshaller);
    addInterface(rows, DIID_IImageViewEvents, L"IImageViewEvents", EventMarshaller);
    addTypeLibrary(rows, module);
    return rows;
}

} // namespace pixmo::com
