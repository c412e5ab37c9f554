#pragma once

#include "core/base/collection.h"
#include "core/control/controlinterface.h"
#include "core/control/diagnostics.h"
#include "core/diag/cutilities.h"
#include "core/platform/asyncreader.h"
#include "core/platform/container.h"
#include "core/platform/scratchfolder.h"
#include "core/protocol/transfertag.h"

#include <functional>
#include <memory>
#include <string>

namespace pixmo {

/// Progress of the transfer that reported last.
struct TransferProgress {
    std::string name; ///< "" when nothing is under way
    int32_t bytesRead = 0;
    int32_t bytesMax = 0; ///< 0 when the size is not known
};

/// The background transfers of one control: starts, cancels and completes them, and knows which are under way
/// and how the last one ended.
class Transfers : public AsyncReadListener {
public:
    /// What it works with; all of it outlives the transfers.
    struct Uses {
        ControlInterface& ui;
        AsyncReader& reader;
        ScratchFolder& scratch;
        Container& container;
        /// Keeps the control while a completion is handled.
        std::function<std::shared_ptr<void>()> holdControl;
        /// Takes finished downloads.
        std::function<void(const AsyncProperty&)> processServerResponse;
    };
    Transfers(Diagnostics& diagnostics, Uses uses);

    /// Whether the tag joins the pending ones before the transfer starts or after it.
    enum class TagIsAdded : uint8_t { BeforeStart, AfterStart };
    /// Throws what the reader throws.
    void start(const std::string& target, const TransferTag& tag, AsyncType type, TagIsAdded order);

    bool isPending(const TransferTag& tag) const { return pending_.contains(tag.name()); }
    bool isAnyPending() const { return pending_.Count() > 0; }
    bool isContacting() const { return isPending(TransferTag::initialContact()); }
    const TransferProgress& progress() const { return progress_; }
    /// Why the last transfer ended without its data; "" when it did not.
    const std::string& problem() const { return problem_; }
    void CancelDownloads();
    void forgetOutcome();
    /// What is under way comes to its end, but is not awaited any more.
    void forgetPending() { pending_ = {}; }

    bool inIDE = cUtilities::InIDE(); ///< whether failed transfers are shown to a developer

    void AsyncReadComplete(const AsyncProperty& record) override;
    void AsyncReadProgress(const AsyncProperty& record) override;

private:
    void logError(const AsyncProperty& record);
    void askToOpenErrorPage(const AsyncProperty& record);
    void handleStatus(const AsyncProperty& record);
    std::filesystem::path nextPageFile();

    Diagnostics& diagnostics_;
    Uses uses_;
    Collection pending_; ///< by the names of their tags
    TransferProgress progress_;
    std::string problem_;
    uint32_t pageFiles_ = 0; ///< page files named so far
};

} // namespace pixmo
