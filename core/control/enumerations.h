#pragma once

#include <cstdint>

namespace pixmo {

/// Paper sizes: 0 is the printer's own, any other value the DEVMODE paper code of the same name.
enum vlPaperSize : int32_t {
    psDefault = 0,
    psLetter = 1,
    psLetterSmall = 2,
    psTabloid = 3,
    psLedger = 4,
    psLegal = 5,
    psStatement = 6,
    psExecutive = 7,
    psA3 = 8,
    psA4 = 9,
    psA4Small = 10,
    psA5 = 11,
    psB4 = 12,
    psB5 = 13,
    psFolio = 14,
    psQuarto = 15,
    ps10x14 = 16,
    ps11x17 = 17,
    psNote = 18,
    psEnv9 = 19,
    psEnv10 = 20,
    psEnv11 = 21,
    psEnv12 = 22,
    psEnv14 = 23,
    psCSheet = 24,
    psDSheet = 25,
    psESheet = 26,
    psEnvDL = 27,
    psEnvC5 = 28,
    psEnvC3 = 29,
    psEnvC4 = 30,
    psEnvC6 = 31,
    psEnvC65 = 32,
    psEnvB4 = 33,
    psEnvB5 = 34,
    psEnvB6 = 35,
    psEnvItaly = 36,
    psEnvMonarch = 37,
    psEnvPersonal = 38,
    psFanfoldUS = 39,
    psFanfoldStdGerman = 40,
    psFanfoldLglGerman = 41,
    psUser = 256,
};

/// How printed page numbers are counted.
enum vlPageNumStyle : int16_t {
    pnPrintJobPageNums = 0,  ///< within the print job
    pnSourceDocPageNums = 1, ///< in the source document
};

} // namespace pixmo
