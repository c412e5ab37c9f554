#include "faces/com/printing/printchoice.h"

#include <commdlg.h>
#include <cstring>

namespace pixmo::com {

namespace {

/// A block of global memory; the dialog may replace it by one of its own.
class GlobalBlock {
public:
    GlobalBlock() = default;
    explicit GlobalBlock(size_t size) : handle(GlobalAlloc(GHND, size)) {}
    ~GlobalBlock() { GlobalFree(handle); }
    GlobalBlock(const GlobalBlock&) = delete;
    GlobalBlock& operator=(const GlobalBlock&) = delete;

    HGLOBAL handle = nullptr;
};

/// The contents for as long as the object lives; nullptr where there is no block.
template <typename Contents>
class Locked {
public:
    explicit Locked(HGLOBAL block)
        : block_(block), contents_(block ? static_cast<Contents*>(GlobalLock(block)) : nullptr) {}
    ~Locked() {
        if (contents_)
            GlobalUnlock(block_);
    }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;

    Contents* get() const { return contents_; }
    Contents* operator->() const { return contents_; }
    explicit operator bool() const { return contents_ != nullptr; }

private:
    HGLOBAL block_;
    Contents* contents_;
};

/// Driver, device and port, each ended by a zero; offsets count characters.
constexpr size_t NamesHead = sizeof(DEVNAMES) / sizeof(wchar_t);

void fillNames(HGLOBAL block, const std::wstring& printer) {
    const Locked<DEVNAMES> names(block);
    if (!names)
        return;
    names->wDriverOffset = static_cast<WORD>(NamesHead);
    names->wDeviceOffset = static_cast<WORD>(NamesHead + 1);
    names->wOutputOffset = static_cast<WORD>(NamesHead + 1 + printer.size() + 1);
    std::memcpy(reinterpret_cast<wchar_t*>(names.get()) + names->wDeviceOffset, printer.c_str(),
                (printer.size() + 1) * sizeof(wchar_t));
}

void fillMode(HGLOBAL block, const DeviceMode& mode) {
    if (const Locked<uint8_t> bytes(block); bytes)
        std::memcpy(bytes.get(), mode.data(), mode.size());
}

} // namespace

std::optional<PrintChoice> askForPrinter(HWND owner, const std::wstring& printer, const DeviceMode& mode,
                                         DWORD flags) {
    GlobalBlock names((NamesHead + printer.size() + 3) * sizeof(wchar_t));
    fillNames(names.handle, printer);
    GlobalBlock modes;
    if (!mode.empty()) {
        modes.handle = GlobalAlloc(GHND, mode.size());
        fillMode(modes.handle, mode);
    }
    PRINTDLGW ask{};
    ask.lStructSize = sizeof ask;
    ask.hwndOwner = owner;
    ask.hDevMode = modes.handle;
    ask.hDevNames = printer.empty() ? nullptr : names.handle;
    ask.Flags = flags & ~static_cast<DWORD>(PD_ENABLEPRINTHOOK | PD_ENABLEPRINTTEMPLATE |
                                            PD_ENABLEPRINTTEMPLATEHANDLE | PD_RETURNDC | PD_RETURNIC);
    ask.nCopies = 1;
    const BOOL confirmed = PrintDlgW(&ask);
    modes.handle = ask.hDevMode;
    if (ask.hDevNames)
        names.handle = ask.hDevNames;
    const Locked<DEVNAMES> chosen(confirmed ? ask.hDevNames : nullptr);
    if (!chosen)
        return std::nullopt;
    PrintChoice choice;
    choice.printer = reinterpret_cast<const wchar_t*>(chosen.get()) + chosen->wDeviceOffset;
    if (const Locked<DEVMODEW> set(ask.hDevMode); set)
        choice.mode = DeviceMode(*set.get());
    return choice;
}

} // namespace pixmo::com
