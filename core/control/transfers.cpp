#include "core/control/transfers.h"

#include "core/base/text.h"

#include <array>
#include <system_error>
#include <utility>

namespace pixmo {

namespace {

const std::string Indent(5, ' ');

} // namespace

Transfers::Transfers(ControlParts& parts, std::function<std::shared_ptr<void>()> holdControl,
                     std::function<void(const AsyncProperty&)> processServerResponse)
    : parts_(parts), holdControl_(std::move(holdControl)),
      processServerResponse_(std::move(processServerResponse)) {}

std::filesystem::path Transfers::nextPageFile() {
    return parts_.ports.scratch->path() / ("page" + std::to_string(++pageFiles_) + ".dat");
}

void Transfers::start(const std::string& target, const TransferTag& tag, AsyncType type, TagIsAdded order) {
    const std::string& name = tag.name();
    parts_.showPointer(Pointer::ArrowHourglass);
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
        parts_.ports.reader->AsyncRead(request);
    } catch (...) {
        if (pending_.contains(name))
            pending_.Remove(name);
        throw;
    }
    addTag();
    problem_.clear();
    parts_.updateUI();
}

void Transfers::CancelDownloads() {
    parts_.procedure("CancelDownloads", Buttons::AbortRetryIgnore)
        .step([this] {
            for (const std::string& name : pending_.keys()) {
                parts_.ports.reader->CancelAsyncRead(name);
                pending_.Remove(name);
                parts_.logLine("**>>>CancelDownloads CANCELLED REQUEST: " + name + "<<<**");
            }
            progress_ = {};
        })
        .step([this] { parts_.updateUI(); });
}

void Transfers::forgetOutcome() {
    problem_.clear();
    progress_ = {};
}

void Transfers::AsyncReadProgress(const AsyncProperty& record) {
    if (parts_.ended())
        return;
    progress_ = {record.PropertyName, record.BytesRead, record.BytesMax};
    parts_.updateUI();
}

void Transfers::AsyncReadComplete(const AsyncProperty& record) {
    const auto control = holdControl_();
    const std::string status = cUtilities::StatusCodeToText(record.StatusCode);
    parts_.procedure("UserControl_AsyncReadComplete", Buttons::AbortRetryIgnore)
        .step([&] {
            parts_.logLine("Pixmo::AsyncReadComplete reports " + record.PropertyName + ", " +
                           std::to_string(record.StatusCode) + ", " + record.Status);
            if (cUtilities::ElementExists(pending_, record.PropertyName))
                pending_.Remove(record.PropertyName);
            if (progress_.name == record.PropertyName)
                progress_ = {};
            parts_.logLine("Pixmo::AsyncReadComplete processing status code " + status);
        })
        .step([&] { handleStatus(record); })
        .step([&] { parts_.updateUI(); })
        .step([&] { parts_.logLine("Pixmo::AsyncReadComplete successful"); });
}

void Transfers::handleStatus(const AsyncProperty& record) {
    if (record.StatusCode == static_cast<int32_t>(AsyncStatus::Error)) {
        problem_ = record.Status;
        logError(record);
        if (inIDE)
            askToOpenErrorPage(record);
    } else if (record.StatusCode == static_cast<int32_t>(AsyncStatus::EndDownloadData)) {
        processServerResponse_(record);
    } else {
        parts_.logLine("Pixmo::AsyncReadComplete - No handler for this statuscode - " +
                       cUtilities::StatusCodeToText(record.StatusCode));
    }
}

void Transfers::logError(const AsyncProperty& record) {
    parts_.logLine("Pixmo.AsyncReadComplete returned an ERROR");
    parts_.logLine("Pixmo.AsyncReadComplete Begin AsyncProp Detail");
    const std::array<std::pair<const char*, std::string>, 7> fields = {
        {{"PropertyName = ", record.PropertyName},
         {"Status = ", record.Status},
         {"StatusCode = ", std::to_string(record.StatusCode)},
         {"Target = ", record.Target},
         {"BytesRead = ", std::to_string(record.BytesRead)},
         {"BytesMax = ", std::to_string(record.BytesMax)},
         {"AsyncType = ", std::to_string(static_cast<int32_t>(record.Type))}}};
    for (const auto& [label, value] : fields)
        parts_.logLine((Indent + label).append(value));
    parts_.logLine("Pixmo.AsyncReadComplete End AsyncProp Detail");
}

void Transfers::askToOpenErrorPage(const AsyncProperty& record) {
    const std::string breakAndQuote = std::string(LineBreak) + "'";
    const Answer answer = parts_.ports.messageBox->ask(
        "AsyncProp indicates that the server returned an error for" + breakAndQuote + record.Target + "'" +
            std::string(LineBreak) + "Would you like to open the page in IE?",
        Buttons::YesNo, Icon::Critical, "Pixmo.AsyncReadComplete");
    if (answer == Answer::Yes)
        parts_.ports.container->startProgram("c:\\program files\\internet explorer\\iexplore.exe " +
                                             record.Target);
}

} // namespace pixmo
