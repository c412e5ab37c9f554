#pragma once

#include "core/diag/cerrobject.h"
#include "core/platform/messagebox.h"

#include <memory>
#include <string>
#include <type_traits>
#include <utility>

namespace pixmo {

/// What a step says of the steps behind it.
enum class Flow : uint8_t { GoOn, Leave };

/// What the procedures of one object share: where failures are recorded and shown, and under which prefix.
struct ProcedureScope {
    std::string sourcePrefix; ///< "Class." or "Library.Class."
    cErrObject* errorObject = nullptr;
    MessageBox* messageBox = nullptr;
    bool ended = false; ///< set when the object is closed: no further step runs, nothing is shown
};

/// The error convention, in its one place. A procedure is a row of steps; a step that throws is recorded in
/// the error object, which logs it, and shown to the user. Retry runs the step again, Ignore goes on with
/// the next, Abort and Cancel leave. Nothing gets out.
///
/// The scope is held while steps run: a step may bring about the end of the object that it belongs to.
class Procedure {
public:
    Procedure(std::shared_ptr<const ProcedureScope> scope, const std::string& name, Buttons buttons)
        : scope_(std::move(scope)), name_(scope_->sourcePrefix + name), buttons_(buttons) {}

    /// A step returns nothing, or a Flow.
    template <typename Step>
    Procedure& step(Step&& action) {
        while (!left_ && attempt(action)) {
        }
        return *this;
    }

    /// Whether no step has left or was given up.
    bool completed() const { return !left_; }

private:
    /// True when the step is to run once more.
    template <typename Step>
    bool attempt(Step& action) {
        if (scope_->ended) {
            left_ = true;
            return false;
        }
        try {
            if constexpr (std::is_void_v<std::invoke_result_t<Step&>>)
                action();
            else
                left_ = action() == Flow::Leave;
            return false;
        } catch (...) {
            return recordAndAsk();
        }
    }

    bool recordAndAsk();

    std::shared_ptr<const ProcedureScope> scope_;
    std::string name_;
    Buttons buttons_;
    bool left_ = false;
};

} // namespace pixmo
