#pragma once

#include "core/diag/cerrobject.h"
#include "core/diag/clogevent.h"
#include "core/diag/procedure.h"
#include "core/platform/clock.h"
#include "core/platform/messagebox.h"

#include <memory>
#include <string>

namespace pixmo {

/// The error convention of one control: what fails in a procedure of any of its classes is recorded here,
/// logged and shown to the user.
class Diagnostics {
public:
    /// Both outlive it.
    Diagnostics(MessageBox& box, const Clock& clock);

    /// `name` follows the source prefix "VellaneInet.ImageView.".
    Procedure procedure(const char* name, Buttons buttons = Buttons::RetryCancel) const {
        return {scope_, name, buttons};
    }
    /// Runs `action` as a procedure's step does, but leaves a failure recorded instead of showing it.
    template <typename Action>
    bool attempt(std::string_view name, Action&& action) {
        const std::string source = scope_->sourcePrefix + std::string(name);
        return errors.attempt(source.c_str(), std::forward<Action>(action)) == 0;
    }
    /// No procedure runs any more.
    void end() { scope_->ended = true; }
    bool ended() const { return scope_->ended; }
    /// A progress or detail line.
    void logLine(const std::string& text) { log.LogEvent(text, log_level::Information); }

    MessageBox& messageBox;
    cLogEvent log;
    cErrObject errors;

private:
    std::shared_ptr<ProcedureScope> scope_;
};

} // namespace pixmo
