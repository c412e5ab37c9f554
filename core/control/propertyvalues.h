#pragma once

#include "core/control/enumerations.h"
#include "core/platform/propertyvalue.h"

#include <cstdint>
#include <string>

namespace pixmo {

/// What the control stores of its plain properties. The others live where they act: in the session, the
/// timers and the log.
struct PropertyValues {
    std::string MachineName;
    std::string UserLogin;
    int16_t NoR = 0;
    int32_t PrintPageCount = 0;
    std::string PrintPageSelection;
    bool DfPrintAllPages = false;
    int32_t DfPrintPaperSize = psDefault;
    int16_t PrintPageNumStyle = pnPrintJobPageNums;
    bool ThumbsAvailable = false;
    bool PrintCancelJob = false;
    int16_t PrintCapFontSize = 0;
    bool PrintPageNums = false;
    std::string PrintImageDesc;
    bool PrintCoverSheet = false;
    std::string PrintUserName;
    std::string PrintItemDesc;
    std::string PrintFee;
    std::string Delimiter;
    std::string PublicKey;
    int32_t EncBytes = 0;
    std::string PrintCaption;
    std::string EngineAddress;
    std::string LogFileName; ///< as this control was told; the log itself is shared by all
    int16_t BorderStyle = 0;
    bool BookmarkAvailable = false;
    Colour BackColor;
    Colour ForeColor;
    bool Enabled = true;
    pixmo::Font Font;
};

} // namespace pixmo
