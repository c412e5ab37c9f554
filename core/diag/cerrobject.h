#pragma once

#include "core/base/error.h"
#include "core/diag/clogevent.h"
#include "core/diag/errorforms.h"
#include "core/platform/messagebox.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pixmo {

/// One captured error, the path of procedures it came through, and free-text data beside it.
class cErrObject {
public:
    /// The message box, if any, outlives the object; AddData shows its own failure in it.
    explicit cErrObject(MessageBox* messageBox = nullptr);

    /// The log outlives the object or is taken away by setLog(nullptr).
    void setLog(cLogEvent* log) { log_ = log; }
    /// Anything but a log or nothing is refused with the type mismatch (13).
    template <typename Other>
    void setLog(const Other&) {
        throw typeMismatchError();
    }
    void setLog(std::nullptr_t) { log_ = nullptr; }
    cLogEvent* Log() const { return log_; }

    const std::string& ProcedureName() const { return procedureName_; }
    const std::string& Description() const { return error_.Description; }
    int32_t HelpContext() const { return error_.HelpContext; }
    const std::string& HelpFile() const { return error_.HelpFile; }
    int32_t Number() const { return error_.Number; }
    const std::string& Source() const { return error_.Source; }
    /// Items start at index 1; index 0 is never used.
    const std::vector<std::string>& extraData() const { return extraData_; }

    std::string ShortErrStr() const;
    std::string LongErrStr() const;

    void AddData(const std::string& item);
    void Clear();
    /// Takes over the error being handled now (none outside a catch block) and returns its number.
    int32_t Push(const std::string& procedureName, bool logIt);
    int32_t Push(const std::string& procedureName, bool logIt, const Error& error);
    /// Runs a class operation: 0 when it succeeds, else its error is pushed under `procedureName` and its
    /// number returned.
    template <typename Operation>
    int32_t attempt(const char* procedureName, Operation&& operation) {
        try {
            operation();
            return 0;
        } catch (...) {
            const int32_t number = Push(procedureName, true);
            return number != 0 ? number : error_number::InvalidProcedureCall;
        }
    }
    Recordset ToRecordset() const;
    XmlElement ToXML() const;
    /// Throws the captured error; nothing when there is none.
    void ReRaise() const;
    void LogEvent(std::string_view message, int32_t level) const;

private:
    std::string procedureName_;
    Error error_;
    cLogEvent* log_ = nullptr;
    MessageBox* messageBox_;
    std::vector<std::string> extraData_;
};

} // namespace pixmo
