#include "core/diag/procedure.h"

namespace pixmo {

bool Procedure::recordAndAsk() {
    if (scope_->ended) {
        left_ = true;
        return false;
    }
    scope_->errorObject->Push(name_, true);
    const Answer answer =
        scope_->messageBox->ask(scope_->errorObject->LongErrStr(), buttons_, Icon::None, {});
    left_ = answer != Answer::Retry && answer != Answer::Ignore;
    return answer == Answer::Retry;
}

} // namespace pixmo
