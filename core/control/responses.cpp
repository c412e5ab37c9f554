#include "core/control/responses.h"

#include "core/base/ansi.h"
#include "core/base/files.h"
#include "core/base/text.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <system_error>
#include <utility>

namespace pixmo {

namespace {

const std::string Indent(5, ' ');

/// Answers below this size are texts, not pages.
constexpr float SmallestPageKilobytes = 3;

/// Results of a page-count answer that end the session: the code under both of the values by which it is
/// known.
constexpr std::array<int32_t, 2> SessionEnded = {-2147219976, static_cast<int32_t>(0x800409F8)};

/// The properties that the server may set, and the control's names for them.
constexpr std::array<std::pair<std::string_view, const char*>, 11> ServerProperties = {{
    {"ENGINEADDRESS", "EngineAddress"},
    {"PRINTCOVERSHEET", "PrintCoverSheet"},
    {"PRINTUSERNAME", "PrintUserName"},
    {"PRINTITEMDESC", "PrintItemDesc"},
    {"PRINTFEE", "PrintFee"},
    {"DELIMITER", "Delimiter"},
    {"PUBLICKEY", "PublicKey"},
    {"ENCBYTES", "EncBytes"},
    {"PRINTCAPTION", "PrintCaption"},
    {"PRINTPAGENUMS", "PrintPageNums"},
    {"PRINTIMAGEDESC", "PrintImageDesc"},
}};

std::string textOf(const std::vector<uint8_t>& bytes) {
    return fromAnsi({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

/// Removes the file of an answer that is not kept.
class TemporaryFile {
public:
    explicit TemporaryFile(std::filesystem::path path) : path_(std::move(path)) {}
    ~TemporaryFile() {
        std::error_code ignored;
        if (!path_.empty())
            std::filesystem::remove(path_, ignored);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    void keep() { path_.clear(); }

private:
    std::filesystem::path path_;
};

} // namespace

Responses::Responses(Diagnostics& diagnostics, const PropertyValues& properties, cClientHandlers& packager2,
                     Session& session, Transfers& transfers, LetProperty letProperty)
    : diagnostics_(diagnostics), properties_(properties), packager2_(packager2), session_(session),
      transfers_(transfers), letProperty_(std::move(letProperty)) {
    packager2_.PropertyChanged.connect([this](const std::string& name, const std::string& value) {
        Packager2_PropertyChanged(name, value);
    });
    packager2_.ServerErrorReport.connect(
        [this](int32_t number, const std::string& text1, const std::string& text2) {
            Packager2_ServerErrorReport(number, text1, text2);
        });
}

void Responses::Packager2_PropertyChanged(const std::string& name, const std::string& value) {
    const std::string upperName = upperCase(name);
    const auto* known = std::find_if(ServerProperties.begin(), ServerProperties.end(),
                                     [&](const auto& entry) { return entry.first == upperName; });
    const bool isKnown = known != ServerProperties.end();
    diagnostics_.logLine(Indent + (isKnown ? "Property '" : "Unknown property '") + name + "' changed to '" +
                         value + "'.");
    if (isKnown)
        letProperty_(known->second, value);
}

void Responses::Packager2_ServerErrorReport(int32_t number, const std::string& text1,
                                            const std::string& text2) {
    diagnostics_.messageBox.ask("The server has sent the following error:" + std::string(LineBreak) +
                                    std::to_string(number) + " " + text1 + " " + text2,
                                Buttons::Ok, Icon::None, {});
}

void Responses::ProcessServerResponse(const AsyncProperty& record) {
    const TransferTag tag(record.PropertyName, properties_.Delimiter);
    bool current = false;
    diagnostics_.procedure("ProcessServerResponse")
        .step([&] { current = isForCurrentDocument(tag); })
        .step([&] {
            if (current)
                dispatch(tag, record);
            else
                const TemporaryFile discarded(record.File);
        });
}

bool Responses::isForCurrentDocument(const TransferTag& tag) {
    if (!tag.hasDocument())
        return true;
    const int32_t current = session_.state().currentDocument;
    if (tag.document() != current) {
        diagnostics_.log.LogEvent("DATA DISCARDED. Current DocID is " + std::to_string(current) +
                                      " and returned data was for DocID " + tag.documentText(),
                                  log_level::Warning);
        return false;
    }
    diagnostics_.logLine(Indent + "->Data is for the current document.");
    return true;
}

void Responses::dispatch(const TransferTag& tag, const AsyncProperty& record) {
    switch (tag.kind()) {
    case TransferTag::Kind::InitialContact:
        return processInitialContact(record);
    case TransferTag::Kind::PageCount:
        return processPageCount(record);
    case TransferTag::Kind::Page:
        return processPage(tag, record);
    case TransferTag::Kind::Ignored:
        return;
    case TransferTag::Kind::Unknown:
        diagnostics_.messageBox.ask("UNHANDLED REQUEST TYPE: " + tag.name(), Buttons::Ok, Icon::None, {});
    }
}

/// The number of the error that the answer caused, 0 for none.
int32_t Responses::processText(const std::string& text) {
    std::vector<std::string> fields;
    return packager2_.ProcessResponse(properties_.Delimiter, properties_.PublicKey, text, {}, fields);
}

void Responses::processInitialContact(const AsyncProperty& record) {
    const std::string text = record.BytesRead > 0 ? textOf(record.Bytes) : std::string();
    diagnostics_.logLine("Processing IC Resp: '" + text + "'");
    if (processText(text) != 0)
        throw Error(diagnostics_.errors.Number(), diagnostics_.errors.Description(),
                    diagnostics_.errors.Source());
}

void Responses::processPageCount(const AsyncProperty& record) {
    if (record.BytesRead <= 0)
        return;
    const std::string text = textOf(record.Bytes);
    diagnostics_.logLine("Processing PC Resp: " + text);
    const int32_t result = processText(text);
    if (result == 0)
        return;
    if (std::find(SessionEnded.begin(), SessionEnded.end(), result) == SessionEnded.end())
        throw Error(diagnostics_.errors.Number(), diagnostics_.errors.Description(),
                    diagnostics_.errors.Source());
    transfers_.CancelDownloads();
    session_.Clear();
}

void Responses::processPage(const TransferTag& tag, const AsyncProperty& record) {
    TemporaryFile file(record.File);
    diagnostics_.logLine("Processing GP Resp: " + record.File.string());
    const float kilobytes = cUtilities::GetFileSize(record.File);
    if (kilobytes <= 0) {
        failPage(tag, "No page returned.");
    } else if (kilobytes < SmallestPageKilobytes) {
        processSmallAnswer(tag, record);
    } else {
        keepPage(tag, record);
        file.keep();
    }
}

void Responses::processSmallAnswer(const TransferTag& tag, const AsyncProperty& record) {
    const std::string text = textOf(readFile(record.File));
    if (containsIgnoringCase(text, "err"))
        failPage(tag, text);
    else if (processText(text) != 0)
        transfers_.CancelDownloads();
}

void Responses::failPage(const TransferTag& tag, const std::string& message) {
    if (session_.failThumbnail(tag.hasPage() ? tag.page() : int16_t{0}, message))
        return;
    const int32_t document = session_.state().currentDocument;
    diagnostics_.messageBox.ask(message, Buttons::Ok, Icon::None, {});
    // Another document may have come while the message stood.
    if (diagnostics_.ended() || session_.state().currentDocument != document)
        return;
    transfers_.CancelDownloads();
    session_.Clear();
}

void Responses::keepPage(const TransferTag& tag, const AsyncProperty& record) {
    const int16_t page = tag.page();
    session_.keepPageFile(page, record.File);
    if (session_.isPageWanted(page))
        session_.DisplayPage(page);
}

} // namespace pixmo
