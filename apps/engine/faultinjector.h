#pragma once

#include "apps/engine/answer.h"
#include "apps/engine/answerbuilder.h"
#include "apps/engine/delivery.h"
#include "apps/engine/enginerequest.h"
#include "apps/engine/fault.h"

#include <span>
#include <string>

namespace pixmo {

/// Turns a good answer into a bad one.
class FaultInjector {
public:
    /// The builder is that of the good answers and outlives this.
    explicit FaultInjector(const AnswerBuilder& builder) : builder_(builder) {}

    /// Applies the faults in their order, up to the first that answers; delays and drips add to it. `target`
    /// is the address of the request below the host. The names of the faults applied join the summary.
    Delivery apply(std::span<const Fault> faults, const EngineRequest& request, const std::string& target,
                   Answer& answer) const;

private:
    /// False when the answer is still to come.
    bool applyToDelivery(const Fault& fault, Delivery& delivery) const;
    void replaceAnswer(const Fault& fault, const EngineRequest& request, const std::string& target,
                       Answer& answer) const;
    void truncate(Answer& answer) const;

    const AnswerBuilder& builder_;
};

} // namespace pixmo
