#include "core/diag/cerrobject.h"

#include "core/base/text.h"

#include <exception>
#include <limits>

namespace pixmo {

namespace {

constexpr size_t LastDataIndex = std::numeric_limits<int16_t>::max();

} // namespace

cErrObject::cErrObject(MessageBox* messageBox) : messageBox_(messageBox) {
    Clear();
}

std::string cErrObject::ShortErrStr() const {
    return std::to_string(error_.Number) + " " + error_.Description;
}

std::string cErrObject::LongErrStr() const {
    return procedureName_ + " reports the following error:" + std::string(LineBreak) + ShortErrStr();
}

void cErrObject::AddData(const std::string& item) {
    try {
        if (extraData_.size() > LastDataIndex)
            throw overflowError();
        extraData_.push_back(item);
        LogEvent("     " + item, log_level::Information);
    } catch (...) {
        if (messageBox_)
            messageBox_->ask("cErrObject.AddData failed to add the data item " + item, Buttons::Ok,
                             Icon::None, {});
    }
}

void cErrObject::Clear() {
    error_ = Error();
    extraData_.assign(1, {});
}

int32_t cErrObject::Push(const std::string& procedureName, bool logIt) {
    return Push(procedureName, logIt, std::current_exception() ? currentError() : Error());
}

int32_t cErrObject::Push(const std::string& procedureName, bool logIt, const Error& error) {
    procedureName_ = procedureName.empty() ? "<Unknown Procedure>" : procedureName;
    const std::string source = error.Source.empty() ? procedureName_ : error.Source + "." + procedureName_;
    error_ = error;
    error_.Source = source;
    if (logIt)
        LogEvent("Auto Error Report: " + procedureName_ + " reports the following error: " + ShortErrStr(),
                 log_level::Error);
    return error_.Number;
}

Recordset cErrObject::ToRecordset() const {
    return {
        {{"Number", Recordset::TypeInteger, 0, error_.Number},
         {"Source", Recordset::TypeVarChar, characterCount(error_.Source), error_.Source},
         {"Description", Recordset::TypeVarChar, characterCount(error_.Description), error_.Description}}};
}

XmlElement cErrObject::ToXML() const {
    XmlElement element;
    element.Name = "error";
    element.Attributes = {{"number", std::to_string(error_.Number)},
                          {"source", error_.Source},
                          {"description", error_.Description}};
    for (size_t i = 1; i < extraData_.size(); ++i)
        element.Children.push_back({"extradata", {}, extraData_[i], {}});
    return element;
}

void cErrObject::ReRaise() const {
    if (error_.Number != 0)
        throw Error(error_);
}

void cErrObject::LogEvent(std::string_view message, int32_t level) const {
    if (log_)
        log_->LogEvent(message, level);
}

} // namespace pixmo
