#include "tests/com/printing/testprinter.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <windows.h>
#include <winspool.h>

namespace pixmo::com::test_printer {

namespace {

wchar_t PrinterName[] = L"Pixmo Test Printer";
wchar_t Port[] = L"C:\\printed.ps";
wchar_t Driver[] = L"wineps.drv";
wchar_t Environment[] = L"Windows NT x86";
wchar_t Processor[] = L"WinPrint";
wchar_t DataType[] = L"RAW";

constexpr const wchar_t* DescriptionName = L"pixmo.ppd";

/// Where the system looks for what a driver needs.
bool copyToDrivers(const std::wstring& description) {
    std::array<wchar_t, MAX_PATH> folder{};
    DWORD size = 0;
    return GetPrinterDriverDirectoryW(nullptr, Environment, 1, reinterpret_cast<BYTE*>(folder.data()),
                                      sizeof folder, &size) &&
           CopyFileW(description.c_str(), (std::filesystem::path(folder.data()) / DescriptionName).c_str(),
                     FALSE);
}

bool failed(const char* what) {
    std::fprintf(stderr, "%s fails: %lu\n", what, GetLastError());
    return false;
}

} // namespace

bool add(const std::wstring& description) {
    if (!copyToDrivers(description))
        return failed("Copying the description");
    std::wstring data = DescriptionName;
    DRIVER_INFO_3W driver{};
    driver.cVersion = 3;
    driver.pName = PrinterName;
    driver.pEnvironment = Environment;
    driver.pDriverPath = Driver;
    driver.pDataFile = data.data();
    driver.pConfigFile = Driver;
    driver.pDefaultDataType = DataType;
    if (!AddPrinterDriverExW(nullptr, 3, reinterpret_cast<BYTE*>(&driver), APD_COPY_NEW_FILES))
        return failed("AddPrinterDriverEx");
    PRINTER_INFO_2W printer{};
    printer.pPrinterName = PrinterName;
    printer.pPortName = Port;
    printer.pDriverName = PrinterName;
    printer.pPrintProcessor = Processor;
    printer.pDatatype = DataType;
    const HANDLE handle = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&printer));
    if (handle)
        ClosePrinter(handle);
    else if (GetLastError() != ERROR_PRINTER_ALREADY_EXISTS)
        return failed("AddPrinter");
    return SetDefaultPrinterW(PrinterName) || failed("SetDefaultPrinter");
}

std::filesystem::path spoolFile() {
    return Port;
}

std::string takeJob() {
    std::string job;
    {
        std::ifstream file(spoolFile(), std::ios::binary);
        job.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    std::error_code ignored;
    std::filesystem::remove(spoolFile(), ignored);
    return job;
}

} // namespace pixmo::com::test_printer
