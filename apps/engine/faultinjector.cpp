#include "apps/engine/faultinjector.h"

#include <random>
#include <string_view>

namespace pixmo {

namespace {

constexpr size_t GarbageBytes = 8192;
constexpr size_t HtmlBytes = 4096;
constexpr size_t ErrorTextBytes = 1000;

Answer rawAnswer(std::string text, std::string contentType = "text/plain") {
    Answer answer;
    answer.form = Answer::Form::Raw;
    answer.text = std::move(text);
    answer.contentType = std::move(contentType);
    return answer;
}

Answer httpAnswer(int32_t status) {
    Answer answer = rawAnswer("The engine was told to answer " + std::to_string(status) + ".\n");
    answer.httpStatus = status;
    if (status == 401)
        answer.headers.emplace_back("WWW-Authenticate", "Basic realm=\"engine\"");
    return answer;
}

Answer errorTextAnswer() {
    std::string text = "Error: the archive is offline";
    for (int line = 1; text.size() < ErrorTextBytes; ++line)
        text += "\r\n  unit " + std::to_string(line) + " does not reply";
    return rawAnswer(text);
}

Answer garbageAnswer(int32_t seed) {
    std::minstd_rand random(static_cast<uint32_t>(seed));
    std::string bytes(GarbageBytes, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random() >> 8U);
    return rawAnswer(bytes, "application/octet-stream");
}

Answer htmlAnswer() {
    std::string page = "<!DOCTYPE html>\n<html><head><title>Sign in</title></head><body>\n";
    constexpr std::string_view end = "</body></html>\n";
    while (page.size() + end.size() < HtmlBytes)
        page += "<p>Please sign in to reach the archive.</p>\n";
    page.resize(HtmlBytes - end.size(), '\n');
    return rawAnswer(page.append(end), "text/html");
}

Answer redirectAnswer(const std::string& target) {
    Answer answer = rawAnswer("Look there.\n");
    answer.httpStatus = 302;
    answer.headers.emplace_back("Location", target);
    return answer;
}

/// Another cipher, whatever the key: no repetition of one is the other.
std::string otherKey(const std::string& key) {
    return key == "Some other key" ? "Yet another key" : "Some other key";
}

} // namespace

Delivery FaultInjector::apply(std::span<const Fault> faults, const EngineRequest& request,
                              const std::string& target, Answer& answer) const {
    Delivery delivery;
    for (const Fault& fault : faults) {
        const std::string summary = answer.summary + '+' + std::string(faultName(fault.kind));
        const bool ends = applyToDelivery(fault, delivery);
        if (!ends)
            replaceAnswer(fault, request, target, answer);
        answer.summary = summary;
        if (ends || (fault.kind != FaultKind::Delay && fault.kind != FaultKind::Drip))
            break;
    }
    return delivery;
}

bool FaultInjector::applyToDelivery(const Fault& fault, Delivery& delivery) const {
    switch (fault.kind) {
    case FaultKind::Delay:
        delivery.delay += std::chrono::milliseconds(fault.value);
        return false;
    case FaultKind::Drip:
        delivery.bytesPerSecond = fault.value;
        return false;
    case FaultKind::Stall:
        delivery.stall = true;
        return true;
    case FaultKind::Reset:
        delivery.cut = Cut::Reset;
        return true;
    case FaultKind::Close:
        delivery.cut = Cut::Close;
        return true;
    default:
        return false;
    }
}

void FaultInjector::replaceAnswer(const Fault& fault, const EngineRequest& request, const std::string& target,
                                  Answer& answer) const {
    switch (fault.kind) {
    case FaultKind::Empty:
        answer = rawAnswer("");
        break;
    case FaultKind::Http:
        answer = httpAnswer(fault.value);
        break;
    case FaultKind::ErrText:
        answer = errorTextAnswer();
        break;
    case FaultKind::Er:
        answer = AnswerBuilder::error(request, engine_error::Injected);
        break;
    case FaultKind::WrongKey:
        if (answer.form == Answer::Form::Page)
            answer = AnswerBuilder::error(request, engine_error::Injected);
        answer.key = otherKey(answer.key);
        break;
    case FaultKind::Garbage:
        answer = garbageAnswer(fault.value);
        break;
    case FaultKind::Truncated:
        truncate(answer);
        break;
    case FaultKind::Redirect:
        answer = redirectAnswer(target);
        break;
    case FaultKind::Html:
        answer = htmlAnswer();
        break;
    default:
        break;
    }
}

void FaultInjector::truncate(Answer& answer) const {
    if (answer.form == Answer::Form::Page) {
        answer.page.resize(answer.page.size() / 2);
        return;
    }
    const std::string body = builder_.body(answer);
    answer = rawAnswer(body.substr(0, body.size() / 2));
}

} // namespace pixmo
