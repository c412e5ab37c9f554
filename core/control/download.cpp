#include "core/control/download.h"

#include "core/base/error.h"
#include "core/base/product.h"
#include "core/base/text.h"

#include <algorithm>
#include <array>
#include <limits>
#include <system_error>
#include <utility>

namespace pixmo {

namespace {

constexpr int32_t FirstGoodStatus = 200;
constexpr int32_t FirstOtherStatus = 300;
constexpr int32_t FirstBadStatus = 400;
constexpr int64_t BytesInMiB = 1'048'576;

/// Sentences for the user that hold no address: what is asked for is nobody's business.
constexpr std::array<std::pair<NetworkProblem, std::string_view>, 11> ProblemTexts = {{
    {NetworkProblem::Refused, "The server refused the connection."},
    {NetworkProblem::Closed, "The server closed the connection."},
    {NetworkProblem::NotFound, "The server was not found."},
    {NetworkProblem::NoAnswer, "The server does not answer."},
    {NetworkProblem::EndlessRedirects, "The server redirects without end."},
    {NetworkProblem::InsecureRedirect, "The server redirects to an insecure address."},
    {NetworkProblem::ProxyRefused, "The proxy refused the connection."},
    {NetworkProblem::ProxyClosed, "The proxy closed the connection."},
    {NetworkProblem::ProxyNotFound, "The proxy was not found."},
    {NetworkProblem::ProxyNoAnswer, "The proxy does not answer."},
    {NetworkProblem::Malformed, "The server's answer is malformed."},
}};

std::string_view textOf(NetworkProblem problem) {
    const auto* const found = std::find_if(ProblemTexts.begin(), ProblemTexts.end(),
                                           [problem](const auto& row) { return row.first == problem; });
    return found == ProblemTexts.end() ? std::string_view() : found->second;
}

/// Without the digits behind the point that say nothing.
std::string number(double value) {
    std::string digits = std::to_string(value);
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.ends_with('.') || digits.ends_with(','))
        digits.pop_back();
    return digits;
}

/// Server and port of the address of a server, "" for any other address.
std::string_view authority(std::string_view target) {
    const size_t scheme = target.find("://");
    if (scheme == std::string_view::npos || (!equalIgnoringCase(target.substr(0, scheme), "http") &&
                                             !equalIgnoringCase(target.substr(0, scheme), "https")))
        return {};
    target.remove_prefix(scheme + 3);
    return target.substr(0, target.find_first_of("/?#"));
}

bool isSecure(std::string_view target) {
    return equalIgnoringCase(target.substr(0, target.find(':')), "https");
}

std::string_view hostOf(std::string_view target) {
    std::string_view host = authority(target);
    host.remove_prefix(host.rfind('@') + 1); // npos + 1 is 0
    const bool bracketed = host.starts_with('[');
    return host.substr(0, bracketed ? host.find(']') + 1 : host.find(':'));
}

void requireServerAddress(const std::string& target) {
    const bool sendable =
        std::all_of(target.begin(), target.end(), [](char c) { return c > ' ' && c < '\x7F'; });
    if (!sendable || hostOf(target).empty())
        throw Error(error_number::InvalidProcedureCall,
                    "'" + target.substr(0, target.find('?')) +
                        "' is not the address of a server (http://... or https://...).");
}

int32_t clamped(int64_t count) {
    return static_cast<int32_t>(std::clamp<int64_t>(count, 0, std::numeric_limits<int32_t>::max()));
}

} // namespace

Download::Download(const AsyncRequest& request, const TransferLimits& limits)
    : request_(request), limits_(limits) {
    requireServerAddress(request.Target);
    if (request_.Type != AsyncType::File)
        return;
    file_.open(request_.File, std::ios::binary | std::ios::trunc);
    if (!file_)
        throw pathFileAccessError();
    // Whatever folder it lies in.
    using std::filesystem::perms;
    std::error_code ignored;
    std::filesystem::permissions(request_.File, perms::owner_read | perms::owner_write, ignored);
}

Download::~Download() {
    discard();
}

void Download::discard() {
    if (request_.Type != AsyncType::File || std::exchange(fileIsSettled_, true))
        return;
    file_.close();
    std::error_code ignored;
    std::filesystem::remove(request_.File, ignored);
}

void Download::redirected(std::string_view address) {
    if (isSecure(request_.Target) && !isSecure(address))
        fail(std::string(textOf(NetworkProblem::InsecureRedirect)));
    if (++redirects_ > MostRedirects)
        fail(std::string(textOf(NetworkProblem::EndlessRedirects)));
}

void Download::answered(int32_t status, std::string_view phrase, int64_t announced) {
    status_ = status;
    phrase_ = phrase;
    announced_ = announced;
}

void Download::received(std::span<const uint8_t> data) {
    received_ += static_cast<int64_t>(data.size());
    const int64_t limit = request_.Type == AsyncType::File ? limits_.fileBytes : limits_.textBytes;
    if (received_ > limit)
        fail("The answer is larger than " +
             number(static_cast<double>(limit) / static_cast<double>(BytesInMiB)) + " MiB.");
    else
        keep(data);
}

void Download::keep(std::span<const uint8_t> data) {
    if (request_.Type != AsyncType::File) {
        bytes_.insert(bytes_.end(), data.begin(), data.end());
        return;
    }
    file_.write(reinterpret_cast<const char*>(data.data()), static_cast<std::streamsize>(data.size()));
    if (!file_)
        fail("The page cannot be stored: " + diskFullError().Description + ".");
}

void Download::stalled() {
    fail("The server has sent nothing for " + number(limits_.stallMilliseconds / 1000.0) + " seconds.");
}

std::string Download::problemText(NetworkProblem problem, std::string_view text) const {
    const bool closed = problem == NetworkProblem::Closed;
    const std::string_view known = textOf(problem);
    const bool goodStatus = status_ >= FirstGoodStatus && status_ < FirstOtherStatus;
    if (announced_ > received_ && (closed || (known.empty() && goodStatus)))
        return "The answer ended after " + std::to_string(received_) + " of " + std::to_string(announced_) +
               " bytes.";
    if (!known.empty())
        return std::string(known);
    if (status_ != 0 && !goodStatus)
        return "The server answered " + std::string(trimBlanks(std::to_string(status_) + " " + phrase_)) +
               ".";
    return problem == NetworkProblem::None ? std::string() : std::string(text);
}

void Download::ended(NetworkProblem problem, std::string_view text) {
    if (request_.Type == AsyncType::File) {
        file_.close();
        if (!file_)
            fail("The page cannot be stored: " + diskFullError().Description + ".");
    }
    if (status_ >= FirstBadStatus)
        problem = NetworkProblem::None;
    else if (problem == NetworkProblem::None && status_ == 0)
        problem = received_ == 0 ? NetworkProblem::Closed : NetworkProblem::Malformed;
    else if (problem == NetworkProblem::NoAnswer && received_ > 0)
        problem = NetworkProblem::Closed;
    if (std::string reason = problemText(problem, text); !reason.empty())
        fail(std::move(reason));
}

void Download::fail(std::string reason) {
    if (failure_.empty())
        failure_ = std::move(reason);
}

AsyncProperty Download::record(AsyncStatus status) const {
    AsyncProperty record;
    record.PropertyName = request_.PropertyName;
    record.Target = request_.Target;
    record.Type = request_.Type;
    record.StatusCode = static_cast<int32_t>(status);
    record.Status = failed() ? failure_ : std::string(hostOf(request_.Target));
    record.BytesRead = clamped(received_);
    record.BytesMax = clamped(announced_);
    return record;
}

AsyncProperty Download::deliver() {
    AsyncProperty result = record(failed() ? AsyncStatus::Error : AsyncStatus::EndDownloadData);
    if (failed()) {
        discard();
        return result;
    }
    result.Bytes = std::move(bytes_);
    if (request_.Type == AsyncType::File) {
        result.File = request_.File;
        fileIsSettled_ = true;
    }
    return result;
}

std::vector<std::pair<std::string, std::string>> requestHeaders() {
    return {{"Cache-Control", "no-cache"},
            {"Accept-Encoding", NotPacked},
            {"User-Agent", std::string(product::Title) + "/" + std::to_string(product::Major) + "." +
                               std::to_string(product::Minor)}};
}

} // namespace pixmo
