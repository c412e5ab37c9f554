#include "core/control/propertypage.h"

#include "core/control/enumerations.h"
#include "core/control/propertytable.h"

#include <array>
#include <vector>

namespace pixmo {

namespace {

constexpr std::array PaperSizes{
    PropertyChoice{psDefault, "Printer's own"},
    PropertyChoice{psLetter, "Letter"},
    PropertyChoice{psLetterSmall, "Letter Small"},
    PropertyChoice{psTabloid, "Tabloid"},
    PropertyChoice{psLedger, "Ledger"},
    PropertyChoice{psLegal, "Legal"},
    PropertyChoice{psStatement, "Statement"},
    PropertyChoice{psExecutive, "Executive"},
    PropertyChoice{psA3, "A3"},
    PropertyChoice{psA4, "A4"},
    PropertyChoice{psA4Small, "A4 Small"},
    PropertyChoice{psA5, "A5"},
    PropertyChoice{psB4, "B4"},
    PropertyChoice{psB5, "B5"},
    PropertyChoice{psFolio, "Folio"},
    PropertyChoice{psQuarto, "Quarto"},
    PropertyChoice{ps10x14, "10 x 14 in"},
    PropertyChoice{ps11x17, "11 x 17 in"},
    PropertyChoice{psNote, "Note"},
    PropertyChoice{psEnv9, "Envelope #9"},
    PropertyChoice{psEnv10, "Envelope #10"},
    PropertyChoice{psEnv11, "Envelope #11"},
    PropertyChoice{psEnv12, "Envelope #12"},
    PropertyChoice{psEnv14, "Envelope #14"},
    PropertyChoice{psCSheet, "C Sheet"},
    PropertyChoice{psDSheet, "D Sheet"},
    PropertyChoice{psESheet, "E Sheet"},
    PropertyChoice{psEnvDL, "Envelope D"},
    PropertyChoice{psEnvC3, "Envelope C3"},
    PropertyChoice{psEnvC4, "Envelope C4"},
    PropertyChoice{psEnvC5, "Envelope C5"},
    PropertyChoice{psEnvC6, "Envelope C6"},
    PropertyChoice{psEnvC65, "Envelope C65"},
    PropertyChoice{psEnvB4, "Envelope B4"},
    PropertyChoice{psEnvB5, "Envelope B5"},
    PropertyChoice{psEnvB6, "Envelope B6"},
    PropertyChoice{psEnvItaly, "Envelope Italy"},
    PropertyChoice{psEnvMonarch, "Envelope Monarch"},
    PropertyChoice{psEnvPersonal, "Envelope Personal"},
    PropertyChoice{psFanfoldUS, "US Fanfold"},
    PropertyChoice{psFanfoldStdGerman, "German Standard Fanfold"},
    PropertyChoice{psFanfoldLglGerman, "German Legal Fanfold"},
    PropertyChoice{psUser, "User's own"},
};

constexpr std::array PageNumStyles{
    PropertyChoice{pnPrintJobPageNums, "Within the print job"},
    PropertyChoice{pnSourceDocPageNums, "As in the source document"},
};

constexpr std::array BorderStyles{
    PropertyChoice{0, "None"},
    PropertyChoice{1, "Fixed single"},
};

PropertyFieldKind kindOf(const char* property) {
    if (!propertyChoices(property).empty())
        return PropertyFieldKind::List;
    return std::holds_alternative<bool>(findProperty(property)->defaultValue) ? PropertyFieldKind::Check
                                                                              : PropertyFieldKind::Text;
}

} // namespace

std::span<const PropertyChoice> propertyChoices(std::string_view property) {
    if (property == "DfPrintPaperSize")
        return PaperSizes;
    if (property == "PrintPageNumStyle")
        return PageNumStyles;
    if (property == "BorderStyle")
        return BorderStyles;
    return {};
}

std::span<const PropertyField> propertyFields() {
    static const std::vector<PropertyField> fields{
#define PIXMO_PAGE_FIELD(property, label) {#property, label, kindOf(#property)},
#include "core/control/interface.inc"
    };
    return fields;
}

} // namespace pixmo
