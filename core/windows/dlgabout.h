#pragma once

#include "core/diag/cerrobject.h"
#include "core/platform/clipboard.h"
#include "core/platform/dialog.h"
#include "core/platform/messagebox.h"
#include "core/raster/raster.h"

#include <memory>
#include <string>

namespace pixmo {

/// The About box, and, through ShowImageInfo, the window that describes the page on screen.
class dlgAbout : public Dialog {
public:
    /// Both outlive the window.
    dlgAbout(MessageBox* messageBox, Clipboard& clipboard);

    DialogDescription describe() override;
    void cmdOK_Click() { close(); }
    void cmdCopy_Click() { clipboard_.setText(information_); }

    cErrObject& ERRR() const { return *errorObject_; }
    /// Taken instead of the window's own; outlives it.
    void setERRR(cErrObject& errorObject) { errorObject_ = &errorObject; }

    /// Describes the picture as stored, nullptr for none; no line for a document that is "0" or empty.
    void ShowImageInfo(const Raster* picture, const std::string& docID);

    const std::string& Caption() const { return caption_; }
    const std::string& lblVersion() const { return version_; }
    const std::string& lblDescription() const { return description_; }
    /// Lines end in CR LF but for the last; empty in the About box.
    const std::string& lblInformation() const { return information_; }
    bool isImageInformation() const { return !information_.empty(); }

private:
    DialogPart texts() const;
    void describe(const Raster& picture, const std::string& docID);

    std::unique_ptr<cErrObject> ownErrorObject_;
    cErrObject* errorObject_;
    MessageBox* messageBox_;
    Clipboard& clipboard_;
    std::string caption_;
    std::string version_;
    std::string description_;
    std::string information_;
};

} // namespace pixmo
