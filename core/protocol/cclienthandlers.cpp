#include "core/protocol/cclienthandlers.h"

#include "core/base/text.h"
#include "core/cipher/clsrc4.h"
#include "core/cipher/pageprotection.h"
#include "core/protocol/transfertag.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace pixmo {

namespace {

using Sender = cClientHandlers::Sender;
using Fields = std::vector<std::string>;

void checkPublicKey(const std::string& publicKey) {
    if (publicKey.empty())
        throw Error(error_number::InvalidPublicKey, "Invalid public key length.");
}

void checkDelimiter(const std::string& delimiter) {
    if (characterCount(delimiter) != 1)
        throw Error(error_number::InvalidDelimiter, "Invalid delimiter length.");
}

void checkAnswer(const Fields& fields, const char* code) {
    if (fields[0] != code || fields[1] != "OK")
        throw Error(error_number::InvalidResponse, "The server has returned an invalid response.");
}

std::string join(const Fields& fields, const std::string& delimiter) {
    std::string text = fields.front();
    for (size_t i = 1; i < fields.size(); ++i)
        text += delimiter + fields[i];
    return text;
}

std::string encipher(const std::string& body, const std::string& publicKey) {
    return clsRC4().EncryptString(body, publicKey, true);
}

/// A version number as the decimal text of its leading number.
std::string versionField(const std::string& text) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), leadingNumber(text)).ptr;
    return {digits.data(), end};
}

const std::string& fieldAt(const Fields& fields, size_t index) {
    if (index >= fields.size())
        throw subscriptError();
    return fields[index];
}

} // namespace

int32_t cClientHandlers::BuildReqIC(const Sender& sender, const std::string& productTitle,
                                    const std::string& major, const std::string& minor,
                                    const std::string& revision, std::string& request,
                                    std::string& requestID) const {
    return errorObject_->attempt("cClientHandlers.BuildRequestID", [&] {
        checkPublicKey(sender.PublicKey);
        checkDelimiter(sender.Delimiter);
        const std::string body = join({sender.UserLogin, sender.MachineName, productTitle,
                                       versionField(major), versionField(minor), versionField(revision)},
                                      sender.Delimiter);
        request = join({"IC", clsRC4().EnHex(sender.PublicKey), encipher(body, sender.PublicKey)},
                       sender.Delimiter);
        requestID = TransferTag::initialContact().name();
    });
}

int32_t cClientHandlers::BuildReqPC(const Sender& sender, int32_t docID, std::string& request,
                                    std::string& requestID) const {
    return errorObject_->attempt("cClientHandlers.BuildReqPC", [&] {
        checkDelimiter(sender.Delimiter);
        checkPublicKey(sender.PublicKey);
        const std::string document = std::to_string(docID);
        request = encipher(join({"PC", sender.UserLogin, sender.MachineName, document}, sender.Delimiter),
                           sender.PublicKey);
        requestID = TransferTag::pageCount(docID, sender.Delimiter).name();
    });
}

int32_t cClientHandlers::BuildReqGP(const Sender& sender, int32_t docID, int16_t page, std::string& request,
                                    std::string& requestID, bool flag) const {
    return errorObject_->attempt("cClientHandlers.BuildReqGP", [&] {
        checkDelimiter(sender.Delimiter);
        checkPublicKey(sender.PublicKey);
        const std::string document = std::to_string(docID);
        const std::string number = std::to_string(page);
        Fields body = {"GP", sender.UserLogin, sender.MachineName, document, number};
        if (flag)
            body.emplace_back("1");
        request = encipher(join(body, sender.Delimiter), sender.PublicKey);
        requestID = TransferTag::page(docID, page, sender.Delimiter).name();
    });
}

int32_t cClientHandlers::ProcessResponse(const std::string& delimiter, const std::string& publicKey,
                                         const std::string& response, const std::string& expectedType,
                                         std::vector<std::string>& fields) const {
    fields.clear();
    return errorObject_->attempt("cClientHandlers.ProcessResponse", [&] {
        if (response.empty())
            throw Error(error_number::InvalidArgument, "No response to process.");
        checkPublicKey(publicKey);
        checkDelimiter(delimiter);
        const Fields received = split(clsRC4().DecryptString(response, publicKey, true), delimiter);
        if (received.size() < 2)
            throw Error(error_number::InvalidResponse, "The server has returned an invalid response.");
        const std::string code = expectedType.empty() ? upperCase(received[0]) : expectedType;
        if (dispatch(code, received, response))
            fields = received;
    });
}

bool cClientHandlers::dispatch(const std::string& code, const Fields& fields,
                               const std::string& response) const {
    if (code == "IC")
        DoInitialContact(fields);
    else if (code == "PC")
        DoPageCount(fields);
    else if (code == "GP")
        DoGetPage(response);
    else if (code == "ER")
        DoServerError(fields);
    else
        return false;
    return true;
}

namespace {

std::string_view withoutFirst(std::string_view text) {
    return text.empty() ? text : text.substr(firstCharacter(text).size());
}

std::string_view withoutLast(std::string_view text) {
    size_t last = 0;
    for (size_t at = 0; at < text.size();) {
        last = at;
        nextCharacter(text, at);
    }
    return text.substr(0, last);
}

/// Lengthens the source path of whatever the step throws by the step's own name.
template <typename Step>
void inStep(const char* name, Step&& step) {
    try {
        step();
    } catch (...) {
        Error error = currentError();
        const std::string own = std::string("cClientHandlers.") + name;
        error.Source = error.Source.empty() ? own : error.Source + "." + own;
        throw error;
    }
}

} // namespace

void cClientHandlers::DoInitialContact(const Fields& fields) const {
    inStep("DoInitialContact", [&] {
        checkAnswer(fields, "IC");
        for (size_t i = 2; i < fields.size(); ++i)
            ProcessCP(fields[i]);
        InitialContact.raise(true);
    });
}

void cClientHandlers::DoPageCount(const Fields& fields) const {
    inStep("DoPageCount", [&] {
        checkAnswer(fields, "PC");
        int16_t count = 0;
        if (fields.size() > 2) {
            count = toInteger(fields[2]);
            for (size_t i = 3; i < fields.size(); ++i)
                ProcessCP(fields[i]);
        }
        PageCount.raise(count);
    });
}

void cClientHandlers::DoGetPage(const std::string& response) const {
    inStep("DoGetPage", [&] { GetPage.raise(response); });
}

void cClientHandlers::DoServerError(const Fields& fields) const {
    const int32_t number = toLong(fieldAt(fields, 1));
    ServerErrorReport.raise(number, fieldAt(fields, 2), fieldAt(fields, 3));
}

void cClientHandlers::ProcessCP(const std::string& field) const {
    inStep("ProcessCP", [&] {
        constexpr size_t PrefixLength = 3;
        if (upperCase(field.substr(0, PrefixLength)) != "CP'")
            return;
        const size_t equals = field.find('=');
        if (equals == std::string::npos || equals <= PrefixLength)
            throw Error(error_number::InvalidProcedureCall, "Invalid procedure call or argument");
        const std::string_view text = field;
        const std::string_view quotedValue = text.substr(equals + 1);
        const std::string name(withoutLast(text.substr(PrefixLength, equals - PrefixLength)));
        PropertyChanged.raise(name, std::string(withoutFirst(withoutLast(quotedValue))));
    });
}

int32_t cClientHandlers::N5148F(std::span<uint8_t> bytes, int32_t N, int32_t lowerBound) const {
    return errorObject_->attempt("cClientHandlers.N5148F",
                                 [&] { reverseProtectedBytes(bytes, N, lowerBound); });
}

} // namespace pixmo
