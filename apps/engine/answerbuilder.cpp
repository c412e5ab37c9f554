#include "apps/engine/answerbuilder.h"

#include "core/cipher/clsrc4.h"
#include "core/cipher/pageprotection.h"

#include <algorithm>
#include <limits>

namespace pixmo {

namespace {

/// A viewer reads a page answer below this size as text, in bytes.
constexpr size_t SmallestPage = 3072;

Answer textAnswer(const EngineRequest& request, const std::vector<std::string>& fields, std::string summary) {
    Answer answer;
    for (const std::string& field : fields)
        answer.text += (&field == fields.data() ? "" : request.delimiter) + field;
    answer.key = request.key;
    answer.summary = std::move(summary);
    return answer;
}

void addRecords(std::span<const Property> properties, std::vector<std::string>& fields) {
    for (const Property& property : properties)
        fields.push_back("CP'" + property.name + "'='" + property.value + "'");
}

} // namespace

Answer AnswerBuilder::contact(const EngineRequest& request, std::span<const Property> properties) {
    std::vector<std::string> fields = {"IC", "OK"};
    addRecords(properties, fields);
    return textAnswer(request, fields, "OK");
}

Answer AnswerBuilder::pageCount(const EngineRequest& request, size_t count,
                                std::span<const Property> properties) {
    constexpr size_t most = std::numeric_limits<int16_t>::max();
    std::vector<std::string> fields = {"PC", "OK", std::to_string(std::min(count, most))};
    addRecords(properties, fields);
    return textAnswer(request, fields, "OK");
}

Answer AnswerBuilder::page(std::vector<uint8_t> file) {
    Answer answer;
    answer.form = Answer::Form::Page;
    answer.page = std::move(file);
    answer.contentType = "application/octet-stream";
    answer.summary = "OK";
    return answer;
}

Answer AnswerBuilder::error(const EngineRequest& request, const EngineError& error) {
    const std::string number = std::to_string(error.number);
    return textAnswer(request, {"ER", number, std::string(EngineName), std::string(error.text)},
                      "ER" + number);
}

std::string AnswerBuilder::body(Answer answer) const {
    switch (answer.form) {
    case Answer::Form::Text:
        return clsRC4().EncryptString(answer.text, answer.key, true);
    case Answer::Form::Page:
        // Zero bytes at the end: pictures end before them and decoders ignore them.
        answer.page.resize(std::max(answer.page.size(), SmallestPage));
        reverseProtectedBytes(answer.page, protectedBytes_);
        return {answer.page.begin(), answer.page.end()};
    case Answer::Form::Raw:
        break;
    }
    return answer.text;
}

} // namespace pixmo
