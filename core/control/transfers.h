#pragma once

#include "core/control/controlparts.h"
#include "core/platform/asyncreader.h"

#include <functional>
#include <memory>
#include <string>

namespace pixmo {

/// The background transfers of one control: starts, cancels and completes them and keeps their tags in the
/// session's pending collection.
class Transfers : public AsyncReadListener {
public:
    /// `holdControl` keeps the control while a completion is handled; `processServerResponse` takes finished
    /// downloads.
    Transfers(ControlParts& parts, std::function<std::shared_ptr<void>()> holdControl,
              std::function<void(const AsyncProperty&)> processServerResponse);

    /// Whether the tag joins the pending ones before the transfer starts or after it.
    enum class TagIsAdded : uint8_t { BeforeStart, AfterStart };
    /// Throws what the reader throws.
    void start(const std::string& target, const std::string& tag, AsyncType type, TagIsAdded order);

    bool isPending(const std::string& tag) const { return parts_.session.pending.contains(tag); }
    void CancelDownloads();

    void AsyncReadComplete(const AsyncProperty& record) override;
    void AsyncReadProgress(const AsyncProperty& record) override;

private:
    void logError(const AsyncProperty& record);
    void askToOpenErrorPage(const AsyncProperty& record);
    void handleStatus(const AsyncProperty& record);
    std::filesystem::path nextPageFile();

    ControlParts& parts_;
    std::function<std::shared_ptr<void>()> holdControl_;
    std::function<void(const AsyncProperty&)> processServerResponse_;
    uint32_t pageFiles_ = 0; ///< page files named so far
};

} // namespace pixmo
