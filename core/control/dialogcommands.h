#pragma once

#include "core/control/diagnostics.h"
#include "core/control/session.h"
#include "core/imaging/rasterview.h"
#include "core/platform/clipboard.h"
#include "core/platform/dialogs.h"
#include "core/platform/pagewriter.h"
#include "core/platform/settingsstore.h"

namespace pixmo {

/// The commands that show a window of their own, or take the page elsewhere.
class DialogCommands {
public:
    /// What they work with; all of it outlives them.
    struct Uses {
        Session& session;
        const RasterView& lvrImage;
        Dialogs& dialogs;
        Clipboard& clipboard;
        PageWriter& pageWriter;
        SettingsStore& settings;
    };
    DialogCommands(Diagnostics& diagnostics, Uses uses) : diagnostics_(diagnostics), uses_(uses) {}

    void imgPageGoto();
    void copyPage();
    void savePage();
    void imageInfo();
    void about();
    void showLog();

private:
    Diagnostics& diagnostics_;
    Uses uses_;
};

} // namespace pixmo
