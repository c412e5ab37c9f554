#include "core/control/transfers.h"

#include "core/base/text.h"

#include <array>
#include <system_error>
#include <utility>

namespace pixmo {

namespace {

const std::string Indent(5, ' ');

} // namespace

Transfers::Transfers(Diagnostics& diagnostics, Uses uses)
    : diagnostics_(diagnostics), uses_(std::move(uses)) {}

std::filesystem::path Transfers::nextPageFile() {
    return uses_.scratch.path() / ("page" + std::to_string(++pageFiles_) + ".dat");
}

void Transfers::start(const std::string& target, const TransferTag& tag, AsyncType type, TagIsAdded order) {
    const std::string& name = tag.name();
    uses_.ui.showPointer(Pointer::ArrowHourglass);
    const auto addTag = [&] {
        if (!pending_.contains(name))
            pending_.Add(name, name);
    };
    AsyncRequest request;
    request.Target = target;
    request.Type = type;
    request.PropertyName = name;
    if (type == AsyncType::File)
        request.File = nextPageFile();
    if (order == TagIsAdded::BeforeStart)
        addTag();
    try {
        uses_.reader.AsyncRead(request);
    } catch (...) {
        if (pending_.contains(name))
            pending_.Remove(name);
        throw;
    }
    addTag();
    problem_.clear();
    uses_.ui.UpdateUI();
}

void Transfers::CancelDownloads() {
    diagnostics_.procedure("CancelDownloads", Buttons::AbortRetryIgnore)
        .step([this] {
            for (const std::string& name : pending_.keys()) {
                uses_.reader.CancelAsyncRead(name);
                pending_.Remove(name);
                diagnostics_.logLine("**>>>CancelDownloads CANCELLED REQUEST: " + name + "<<<**");
            }
            progress_ = {};
        })
        .step([this] { uses_.ui.UpdateUI(); });
}

void Transfers::forgetOutcome() {
    problem_.clear();
    progress_ = {};
}

void Transfers::AsyncReadProgress(const AsyncProperty& record) {
    if (diagnostics_.ended())
        return;
    progress_ = {record.PropertyName, record.BytesRead, record.BytesMax};
    uses_.ui.UpdateUI();
}

void Transfers::AsyncReadComplete(const AsyncProperty& record) {
    const auto control = uses_.holdControl();
    const std::string status = cUtilities::StatusCodeToText(record.StatusCode);
    diagnostics_.procedure("UserControl_AsyncReadComplete", Buttons::AbortRetryIgnore)
        .step([&] {
            diagnostics_.logLine("Pixmo::AsyncReadComplete reports " + record.PropertyName + ", " +
                                 std::to_string(record.StatusCode) + ", " + record.Status);
            if (cUtilities::ElementExists(pending_, record.PropertyName))
                pending_.Remove(record.PropertyName);
            if (progress_.name == record.PropertyName)
                progress_ = {};
            diagnostics_.logLine("Pixmo::AsyncReadComplete processing status code " + status);
        })
        .step([&] { handleStatus(record); })
        .step([&] { uses_.ui.UpdateUI(); })
        .step([&] { diagnostics_.logLine("Pixmo::AsyncReadComplete successful"); });
}

void Transfers::handleStatus(const AsyncProperty& record) {
    if (record.StatusCode == static_cast<int32_t>(AsyncStatus::Error)) {
        problem_ = record.Status;
        logError(record);
        if (inIDE)
            askToOpenErrorPage(record);
    } else if (record.StatusCode == static_cast<int32_t>(AsyncStatus::EndDownloadData)) {
        uses_.processServerResponse(record);
    } else {
        diagnostics_.logLine("Pixmo::AsyncReadComplete - No handler for this statuscode - " +
                             cUtilities::StatusCodeToText(record.StatusCode));
    }
}

void Transfers::logError(const AsyncProperty& record) {
    diagnostics_.logLine("Pixmo.AsyncReadComplete returned an ERROR");
    diagnostics_.logLine("Pixmo.AsyncReadComplete Begin AsyncProp Detail");
    const std::array<std::pair<const char*, std::string>, 7> fields = {
        {{"PropertyName = ", record.PropertyName},
         {"Status = ", record.Status},
         {"StatusCode = ", std::to_string(record.StatusCode)},
         {"Target = ", record.Target},
         {"BytesRead = ", std::to_string(record.BytesRead)},
         {"BytesMax = ", std::to_string(record.BytesMax)},
         {"AsyncType = ", std::to_string(static_cast<int32_t>(record.Type))}}};
    for (const auto& [label, value] : fields)
        diagnostics_.logLine((Indent + label).append(value));
    diagnostics_.logLine("Pixmo.AsyncReadComplete End AsyncProp Detail");
}

void Transfers::askToOpenErrorPage(const AsyncProperty& record) {
    const std::string breakAndQuote = std::string(LineBreak) + "'";
    const Answer answer = diagnostics_.messageBox.ask(
        "AsyncProp indicates that the server returned an error for" + breakAndQuote + record.Target + "'" +
            std::string(LineBreak) + "Would you like to open the page in IE?",
        Buttons::YesNo, Icon::Critical, "Pixmo.AsyncReadComplete");
    if (answer == Answer::Yes)
        uses_.container.startProgram("c:\\program files\\internet explorer\\iexplore.exe " + record.Target);
}

} // namespace pixmo
