#include "core/platform/messagebox.h"

#include "core/base/text.h"

namespace pixmo {

Answer safestAnswer(Buttons buttons) {
    switch (buttons) {
    case Buttons::OkCancel:
    case Buttons::RetryCancel:
        return Answer::Cancel;
    case Buttons::AbortRetryIgnore:
        return Answer::Abort;
    case Buttons::YesNo:
        return Answer::No;
    case Buttons::Ok:
        break;
    }
    return Answer::Ok;
}

std::string shortenedText(const std::string& text) {
    constexpr int mostLines = 20;
    size_t end = 0;
    for (int line = 0; line < mostLines; ++line) {
        end = text.find(LineBreak, end);
        if (end == std::string::npos)
            return text;
        end += LineBreak.size();
    }
    return text.substr(0, end) + "\u2026";
}

} // namespace pixmo
