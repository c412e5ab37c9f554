#pragma once

#include "core/base/event.h"
#include "core/diag/cerrobject.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace pixmo {

/// The texts that travel between the viewer and the imaging server: builds the requests, reads the answers
/// and tells in events what they say. Holds no state of its own between calls.
///
/// Operations answer 0, or the number of the error that they left in the error object. All texts are UTF-8;
/// they are enciphered and written in hexadecimal over their ANSI bytes.
class cClientHandlers {
public:
    Event<bool> InitialContact;        ///< always true
    Event<int16_t> PageCount;          ///< pages of the document
    Event<const std::string&> GetPage; ///< the answer as received
    Event<int32_t, const std::string&, const std::string&> ServerErrorReport;
    Event<const std::string&, const std::string&> PropertyChanged; ///< name, value

    /// The error object outlives this one.
    explicit cClientHandlers(cErrObject& errorObject) : errorObject_(&errorObject) {}

    cErrObject& ERRR() const { return *errorObject_; }

    /// The first four fields of every request.
    struct Sender {
        std::string Delimiter; ///< exactly one character
        std::string PublicKey; ///< at least one character
        std::string UserLogin;
        std::string MachineName;
    };

    /// The version texts are read as numbers: "02" travels as "2".
    int32_t BuildReqIC(const Sender& sender, const std::string& productTitle, const std::string& major,
                       const std::string& minor, const std::string& revision, std::string& request,
                       std::string& requestID) const;
    int32_t BuildReqPC(const Sender& sender, int32_t docID, std::string& request,
                       std::string& requestID) const;
    /// The flag adds a field to the request, never to its identifier.
    int32_t BuildReqGP(const Sender& sender, int32_t docID, int16_t page, std::string& request,
                       std::string& requestID, bool flag) const;

    /// `expectedType` may be empty: then the answer's own code decides. `fields` holds the answer's fields
    /// for the codes "IC", "PC", "GP" and "ER" and is empty for any other.
    int32_t ProcessResponse(const std::string& delimiter, const std::string& publicKey,
                            const std::string& response, const std::string& expectedType,
                            std::vector<std::string>& fields) const;

    /// reverseProtectedBytes, with the answer of an operation: 0.
    int32_t N5148F(std::span<uint8_t> bytes, int32_t N, int32_t lowerBound = 1) const;

private:
    void DoInitialContact(const std::vector<std::string>& fields) const;
    void DoPageCount(const std::vector<std::string>& fields) const;
    void DoGetPage(const std::string& response) const;
    void DoServerError(const std::vector<std::string>& fields) const;
    void ProcessCP(const std::string& field) const;
    bool dispatch(const std::string& code, const std::vector<std::string>& fields,
                  const std::string& response) const;

    cErrObject* errorObject_;
};

} // namespace pixmo
