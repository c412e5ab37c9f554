#pragma once

#include <cstdint>
#include <string>

namespace pixmo {

enum class Buttons : uint8_t { Ok, OkCancel, RetryCancel, AbortRetryIgnore, YesNo };
enum class Icon : uint8_t { None, Exclamation, Critical, Information, Question };
enum class Answer : uint8_t { Ok, Cancel, Abort, Retry, Ignore, Yes, No };

/// The answer that loses least: of whoever closes the box, and where nobody can be asked.
Answer safestAnswer(Buttons buttons);

/// A text of more lines than a small screen has room for is cut, and ends in an ellipsis.
std::string shortenedText(const std::string& text);

/// Port: shows a text and waits for a button. May run other events of the thread meanwhile, among them the
/// end of the control that asks.
class MessageBox {
public:
    virtual ~MessageBox() = default;

    /// An empty title means the program's own. Lines of the text end in CR LF.
    virtual Answer ask(const std::string& text, Buttons buttons, Icon icon, const std::string& title) = 0;
};

} // namespace pixmo
