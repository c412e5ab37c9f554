#include "faces/com/control/predefinedvalues.h"

#include "core/control/enumerations.h"

#include <array>

namespace pixmo::com {

namespace {

constexpr std::array PaperSizes{
    PredefinedValue{psDefault, L"Printer's own"},
    PredefinedValue{psLetter, L"Letter"},
    PredefinedValue{psLetterSmall, L"Letter Small"},
    PredefinedValue{psTabloid, L"Tabloid"},
    PredefinedValue{psLedger, L"Ledger"},
    PredefinedValue{psLegal, L"Legal"},
    PredefinedValue{psStatement, L"Statement"},
    PredefinedValue{psExecutive, L"Executive"},
    PredefinedValue{psA3, L"A3"},
    PredefinedValue{psA4, L"A4"},
    PredefinedValue{psA4Small, L"A4 Small"},
    PredefinedValue{psA5, L"A5"},
    PredefinedValue{psB4, L"B4"},
    PredefinedValue{psB5, L"B5"},
    PredefinedValue{psFolio, L"Folio"},
    PredefinedValue{psQuarto, L"Quarto"},
    PredefinedValue{ps10x14, L"10 x 14 in"},
    PredefinedValue{ps11x17, L"11 x 17 in"},
    PredefinedValue{psNote, L"Note"},
    PredefinedValue{psEnv9, L"Envelope #9"},
    PredefinedValue{psEnv10, L"Envelope #10"},
    PredefinedValue{psEnv11, L"Envelope #11"},
    PredefinedValue{psEnv12, L"Envelope #12"},
    PredefinedValue{psEnv14, L"Envelope #14"},
    PredefinedValue{psCSheet, L"C Sheet"},
    PredefinedValue{psDSheet, L"D Sheet"},
    PredefinedValue{psESheet, L"E Sheet"},
    PredefinedValue{psEnvDL, L"Envelope DL"},
    PredefinedValue{psEnvC3, L"Envelope C3"},
    PredefinedValue{psEnvC4, L"Envelope C4"},
    PredefinedValue{psEnvC5, L"Envelope C5"},
    PredefinedValue{psEnvC6, L"Envelope C6"},
    PredefinedValue{psEnvC65, L"Envelope C65"},
    PredefinedValue{psEnvB4, L"Envelope B4"},
    PredefinedValue{psEnvB5, L"Envelope B5"},
    PredefinedValue{psEnvB6, L"Envelope B6"},
    PredefinedValue{psEnvItaly, L"Envelope Italy"},
    PredefinedValue{psEnvMonarch, L"Envelope Monarch"},
    PredefinedValue{psEnvPersonal, L"Envelope Personal"},
    PredefinedValue{psFanfoldUS, L"US Fanfold"},
    PredefinedValue{psFanfoldStdGerman, L"German Standard Fanfold"},
    PredefinedValue{psFanfoldLglGerman, L"German Legal Fanfold"},
    PredefinedValue{psUser, L"User's own"},
};

constexpr std::array PageNumStyles{
    PredefinedValue{pnPrintJobPageNums, L"Within the print job"},
    PredefinedValue{pnSourceDocPageNums, L"As in the source document"},
};

constexpr std::array BorderStyles{
    PredefinedValue{0, L"None"},
    PredefinedValue{1, L"Fixed single"},
};

} // namespace

std::span<const PredefinedValue> predefinedValues(std::string_view property) {
    if (property == "DfPrintPaperSize")
        return PaperSizes;
    if (property == "PrintPageNumStyle")
        return PageNumStyles;
    if (property == "BorderStyle")
        return BorderStyles;
    return {};
}

} // namespace pixmo::com
