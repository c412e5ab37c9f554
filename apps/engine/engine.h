#pragma once

#include "apps/engine/answer.h"
#include "apps/engine/answerbuilder.h"
#include "apps/engine/documentstore.h"
#include "apps/engine/enginerequest.h"
#include "apps/engine/keyring.h"
#include "apps/engine/property.h"
#include "apps/engine/requestparser.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pixmo {

/// What an engine serves and what it tells the viewers.
struct EngineSettings {
    std::filesystem::path documents;
    std::string delimiter = "\u00B7"; ///< one character of the ANSI code page
    /// Leading bytes of a page that are protected, -1 for all. When not given, the property EncBytes that
    /// the viewers are told, or else 1640.
    std::optional<int32_t> protectedBytes;
    std::vector<Property> properties; ///< told to every viewer at the initial contact
};

/// The protocol behind the address, without the network: a request text gives an answer. Once a viewer has
/// been told another Delimiter or PublicKey by a property, requests under these are understood too.
/// May be used from several threads.
class Engine {
public:
    struct Reply {
        EngineRequest request; ///< its key is never empty: where none fits, that of the error answer
        Answer answer;
    };

    /// Throws std::runtime_error when the settings cannot be served.
    explicit Engine(EngineSettings settings);

    /// `query` as it stands on the wire; `client` is the client's network address.
    Reply reply(std::string_view query, const std::string& client);

    const AnswerBuilder& builder() const { return builder_; }

private:
    Answer answer(const EngineRequest& request, const std::string& client);
    Answer answerContact(const EngineRequest& request, const std::string& client);
    Answer answerPageCount(const EngineRequest& request) const;
    Answer answerPage(const EngineRequest& request) const;

    EngineSettings settings_;
    DocumentStore documents_;
    RequestParser parser_;
    AnswerBuilder builder_;
    KeyRing keys_;
};

} // namespace pixmo
