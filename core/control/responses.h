#pragma once

#include "core/control/diagnostics.h"
#include "core/control/propertyvalues.h"
#include "core/control/session.h"
#include "core/control/transfers.h"

#include <cstdint>
#include <functional>
#include <string>

namespace pixmo {

/// What the control does with the server's answers: sends each to its handler, drops those for a document
/// that is no longer shown, and follows the events of the protocol.
class Responses {
public:
    /// `letProperty` stores a text as the value of a property, with the checks that the host's values get;
    /// it throws when the value is refused.
    using LetProperty = std::function<void(const std::string& name, const std::string& value)>;
    Responses(Diagnostics& diagnostics, const PropertyValues& properties, cClientHandlers& packager2,
              Session& session, Transfers& transfers, LetProperty letProperty);

    void ProcessServerResponse(const AsyncProperty& record);

private:
    void Packager2_PropertyChanged(const std::string& name, const std::string& value);
    void Packager2_ServerErrorReport(int32_t number, const std::string& text1, const std::string& text2);

    bool isForCurrentDocument(const TransferTag& tag);
    void dispatch(const TransferTag& tag, const AsyncProperty& record);
    int32_t processText(const std::string& text);
    void processInitialContact(const AsyncProperty& record);
    void processPageCount(const AsyncProperty& record);
    void processPage(const TransferTag& tag, const AsyncProperty& record);
    void processSmallAnswer(const TransferTag& tag, const AsyncProperty& record);
    void failPage(const TransferTag& tag, const std::string& message);
    void keepPage(const TransferTag& tag, const AsyncProperty& record);

    Diagnostics& diagnostics_;
    const PropertyValues& properties_;
    cClientHandlers& packager2_;
    Session& session_;
    Transfers& transfers_;
    LetProperty letProperty_;
};

} // namespace pixmo
