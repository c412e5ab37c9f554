#include "apps/engine/engine.h"

#include "core/base/ansi.h"
#include "core/base/error.h"
#include "core/base/text.h"

#include <stdexcept>
#include <utility>

namespace pixmo {

namespace {

constexpr int32_t DefaultProtectedBytes = 1640;

/// A viewer that was given no key of its own uses this one.
constexpr std::string_view DefaultKey = "OrrelKeyset qFlow";

std::vector<std::string> delimitersOf(const EngineSettings& settings) {
    if (characterCount(settings.delimiter) != 1 || fromAnsi(toAnsi(settings.delimiter)) != settings.delimiter)
        throw std::runtime_error("The delimiter must be one character of the ANSI code page.");
    std::vector<std::string> delimiters = {settings.delimiter};
    const auto told = propertyValue(settings.properties, "Delimiter");
    if (told && characterCount(*told) == 1)
        delimiters.push_back(*told);
    return delimiters;
}

int32_t protectedBytesOf(const EngineSettings& settings) {
    if (settings.protectedBytes)
        return *settings.protectedBytes;
    const auto told = propertyValue(settings.properties, "EncBytes");
    try {
        return told ? toLong(*told) : DefaultProtectedBytes;
    } catch (const Error&) {
        return DefaultProtectedBytes;
    }
}

} // namespace

Engine::Engine(EngineSettings settings)
    : settings_(std::move(settings)), documents_(settings_.documents), parser_(delimitersOf(settings_)),
      builder_(protectedBytesOf(settings_)) {}

Engine::Reply Engine::reply(std::string_view query, const std::string& client) {
    const std::vector<std::string> keys = keys_.candidates(client);
    Reply reply;
    reply.request = parser_.parse(query, keys);
    if (reply.request.key.empty())
        reply.request.key = keys.empty() ? DefaultKey : keys.front();
    reply.answer = answer(reply.request, client);
    return reply;
}

Answer Engine::answer(const EngineRequest& request, const std::string& client) {
    if (request.problem == RequestProblem::NoKey)
        return AnswerBuilder::error(request, engine_error::NoContact);
    if (request.problem == RequestProblem::Malformed)
        return AnswerBuilder::error(request, engine_error::BadRequest);
    switch (request.kind) {
    case RequestKind::InitialContact:
        return answerContact(request, client);
    case RequestKind::PageCount:
        return answerPageCount(request);
    case RequestKind::GetPage:
        return answerPage(request);
    case RequestKind::Unknown:
        break;
    }
    return AnswerBuilder::error(request, engine_error::BadRequest);
}

Answer Engine::answerContact(const EngineRequest& request, const std::string& client) {
    keys_.learn({client, request.user, request.machine, request.key});
    const auto told = propertyValue(settings_.properties, "PublicKey");
    if (told && !told->empty())
        keys_.learn({client, request.user, request.machine, *told});
    return AnswerBuilder::contact(request, settings_.properties);
}

Answer Engine::answerPageCount(const EngineRequest& request) const {
    const auto count = documents_.pageCount(request.document);
    if (!count)
        return AnswerBuilder::error(request, engine_error::NoDocument);
    return AnswerBuilder::pageCount(request, *count, documents_.properties(request.document));
}

Answer Engine::answerPage(const EngineRequest& request) const {
    auto file = request.page < 1 ? std::nullopt
                                 : documents_.page(request.document, static_cast<size_t>(request.page));
    if (file)
        return AnswerBuilder::page(std::move(*file));
    const auto count = documents_.pageCount(request.document);
    if (!count)
        return AnswerBuilder::error(request, engine_error::NoDocument);
    const bool exists = request.page >= 1 && static_cast<size_t>(request.page) <= *count;
    return AnswerBuilder::error(request, exists ? engine_error::UnreadablePage : engine_error::NoPage);
}

} // namespace pixmo
