#include "core/control/propertytable.h"

#include "core/base/error.h"
#include "core/base/text.h"
#include "core/control/enumerations.h"
#include "core/control/imageview.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

namespace pixmo {

namespace {

template <auto Member>
using MemberType = std::remove_cvref_t<decltype(std::declval<PropertyValues>().*Member)>;

template <auto Member>
PropertyValue getMember(const ImageView& view) {
    return view.properties().*Member;
}

template <auto Member>
bool letMember(ImageView& view, const PropertyValue& value) {
    view.properties().*Member = std::get<MemberType<Member>>(value);
    return true;
}

/// A property that is stored and announced, and no more.
template <auto Member>
PropertyRow stored(const char* name, const char* key, MemberType<Member> defaultValue) {
    return {name, key, std::move(defaultValue), getMember<Member>, letMember<Member>, name};
}

template <auto Member>
PropertyRow readOnly(const char* name) {
    return {name, nullptr, MemberType<Member>{}, getMember<Member>, nullptr, nullptr};
}

/// A property that rebuilds the toolbar when it changes.
template <auto Member>
bool letAvailable(ImageView& view, const PropertyValue& value) {
    if (view.properties().*Member == std::get<bool>(value))
        return false;
    letMember<Member>(view, value);
    view.rebuildToolbar();
    return true;
}

bool letDelimiter(ImageView& view, const PropertyValue& value) {
    view.properties().Delimiter = firstCharacter(trimBlanks(std::get<std::string>(value)));
    return true;
}

bool letPublicKey(ImageView& view, const PropertyValue& value) {
    if (std::get<std::string>(value).empty())
        throw invalidPropertyValueError();
    return letMember<&PropertyValues::PublicKey>(view, value);
}

bool letBorderStyle(ImageView& view, const PropertyValue& value) {
    const int16_t style = std::get<int16_t>(value);
    if (style != 0 && style != 1)
        throw invalidPropertyValueError();
    return letMember<&PropertyValues::BorderStyle>(view, value);
}

bool letInterval(Timer& timer, const PropertyValue& value) {
    const int32_t milliseconds = std::get<int32_t>(value);
    if (milliseconds < 0)
        throw invalidPropertyValueError();
    timer.setInterval(milliseconds);
    return true;
}

bool letLogFileName(ImageView& view, const PropertyValue& value) {
    const auto& name = std::get<std::string>(value);
    if (name.empty())
        view.log().StopLogging();
    else if (!view.ports().container->mayWriteFiles())
        throw Error(error_number::PathFileAccess, "No log is written: the host allows no files.");
    else
        view.log().StartLogging(name, log_mode::ToFile);
    return letMember<&PropertyValues::LogFileName>(view, value);
}

bool letDocID(ImageView& view, const PropertyValue& value) {
    const int32_t docID = std::get<int32_t>(value);
    if (docID != view.session().state().currentDocument)
        view.session().LoadDocumentByDocID(docID, 1, {});
    return false;
}

bool letPage(ImageView& view, const PropertyValue& value) {
    int16_t page = std::get<int16_t>(value);
    view.session().letCurrentPage(page);
    view.session().LoadPage(page, false, false);
    return false;
}

bool letPrintCancelJob(ImageView& view, const PropertyValue& value) {
    letMember<&PropertyValues::PrintCancelJob>(view, value);
    return false;
}

using V = PropertyValues;

std::vector<PropertyRow> makePersistedRows() {
    return {
        stored<&V::BackColor>("BackColor", "BackColor", Colour{0x8000000F}),
        stored<&V::ForeColor>("ForeColor", "ForeColor", Colour{0x80000012}),
        stored<&V::Enabled>("Enabled", "Enabled", true),
        stored<&V::Font>("Font", "Font", Font{}),
        stored<&V::EngineAddress>("EngineAddress", "EngineAddress", ""),
        {"LogFileName", "LogFileName", std::string(), getMember<&V::LogFileName>, letLogFileName,
         "LogFileName"},
        {"FetchDelay", "FetchDelay", int32_t{300},
         [](const ImageView& view) -> PropertyValue { return view.session().tmrDelay().interval(); },
         [](ImageView& view, const PropertyValue& value) {
             return letInterval(view.session().tmrDelay(), value);
         },
         "FetchDelay"},
        {"ResizeDelay", "ResizeDelay", int32_t{300},
         [](const ImageView& view) -> PropertyValue { return view.tmrResizeDelay().interval(); },
         [](ImageView& view, const PropertyValue& value) {
             return letInterval(view.tmrResizeDelay(), value);
         },
         "ResizeDelay"},
        {"BorderStyle", "BorderStyle", int16_t{0}, getMember<&V::BorderStyle>, letBorderStyle, "BorderStyle"},
        stored<&V::PrintCaption>("PrintCaption", "PrintCaption", ""),
        stored<&V::PrintCoverSheet>("PrintCoverSheet", "PrintCoverSheet", false),
        stored<&V::PrintUserName>("PrintUserName", "PrintUserName", "<no name>"),
        stored<&V::PrintItemDesc>("PrintItemDesc", "PrintItemDesc", "Printed Pages"),
        stored<&V::PrintFee>("PrintFee", "PrintFee", "<not given>"),
        {"Delimiter", "Delimiter", std::string("\u00B7"), getMember<&V::Delimiter>, letDelimiter,
         "Delimiter"},
        {"PublicKey", "PublicKey", std::string("OrrelKeyset qFlow"), getMember<&V::PublicKey>, letPublicKey,
         "PublicKey"},
        stored<&V::EncBytes>("EncBytes", "EncBytes", 1640),
        stored<&V::PrintPageNums>("PrintPageNums", "PrintPageNums", true),
        stored<&V::PrintImageDesc>("PrintImageDesc", "ImageDesc", ""),
        stored<&V::PrintCapFontSize>("PrintCapFontSize", "PrintCapFontSize", 12),
        {"ThumbsAvailable", "ThumbsAvailable", false, getMember<&V::ThumbsAvailable>,
         letAvailable<&V::ThumbsAvailable>, "ThumsAvailable"},
        stored<&V::DfPrintAllPages>("DfPrintAllPages", "DfPrintAllPages", false),
        stored<&V::DfPrintPaperSize>("DfPrintPaperSize", "DfPrintPaperSize", psDefault),
        stored<&V::PrintPageNumStyle>("PrintPageNumStyle", "PrintPageNumStyle", pnPrintJobPageNums),
        {"BookmarkAvailable", "BookmarkAvailable", false, getMember<&V::BookmarkAvailable>,
         letAvailable<&V::BookmarkAvailable>, "BookmarkAvailable"},
        {"MinLogLevel", "MinEventLevel", int32_t{4},
         [](const ImageView& view) -> PropertyValue { return view.log().MinimumEventLevel(); },
         [](ImageView& view, const PropertyValue& value) {
             view.log().setMinimumEventLevel(std::get<int32_t>(value));
             return true;
         },
         "MinLogLevel"},
    };
}

std::vector<PropertyRow> makeRunTimeRows() {
    return {
        readOnly<&V::MachineName>("MachineName"),
        readOnly<&V::UserLogin>("UserLogin"),
        stored<&V::NoR>("NoR", nullptr, 0),
        readOnly<&V::PrintPageCount>("PrintPageCount"),
        readOnly<&V::PrintPageSelection>("PrintPageSelection"),
        {"DocID", nullptr, int32_t{0},
         [](const ImageView& view) -> PropertyValue { return view.session().state().currentDocument; },
         letDocID, nullptr},
        {"Page", nullptr, int16_t{0},
         [](const ImageView& view) -> PropertyValue { return view.session().state().currentPage; }, letPage,
         nullptr},
        {"PageCount", nullptr, int16_t{0},
         [](const ImageView& view) -> PropertyValue { return view.session().state().pageCount; }, nullptr,
         nullptr},
        {"PrintCancelJob", nullptr, false, getMember<&V::PrintCancelJob>, letPrintCancelJob, nullptr},
    };
}

struct Table {
    std::vector<PropertyRow> rows = makePersistedRows();
    size_t persisted = rows.size();

    Table() {
        auto runTime = makeRunTimeRows();
        std::move(runTime.begin(), runTime.end(), std::back_inserter(rows));
    }
};

const Table& table() {
    static const Table instance;
    return instance;
}

double numberOf(const PropertyValue& value) {
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag ? -1 : 0;
    if (const auto* number = std::get_if<int16_t>(&value))
        return *number;
    if (const auto* number = std::get_if<int32_t>(&value))
        return *number;
    if (const auto* colour = std::get_if<Colour>(&value))
        return static_cast<int32_t>(colour->value);
    if (const auto* text = std::get_if<std::string>(&value))
        return equalIgnoringCase(*text, "True")    ? -1
               : equalIgnoringCase(*text, "False") ? 0
                                                   : toDouble(*text);
    throw typeMismatchError();
}

std::string textOf(const PropertyValue& value) {
    if (const auto* text = std::get_if<std::string>(&value))
        return *text;
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag ? "True" : "False";
    return std::to_string(static_cast<int64_t>(numberOf(value)));
}

} // namespace

std::span<const PropertyRow> propertyTable() {
    return table().rows;
}

std::span<const PropertyRow> persistedProperties() {
    return std::span(table().rows).first(table().persisted);
}

const PropertyRow* findProperty(std::string_view name) {
    const auto rows = propertyTable();
    const auto found =
        std::find_if(rows.begin(), rows.end(), [name](const PropertyRow& row) { return row.name == name; });
    return found == rows.end() ? nullptr : &*found;
}

PropertyValue convertProperty(const PropertyValue& value, const PropertyValue& like) {
    if (value.index() == like.index())
        return value;
    if (std::holds_alternative<std::string>(like))
        return textOf(value);
    const double number = numberOf(value);
    if (std::holds_alternative<bool>(like))
        return number != 0;
    if (std::holds_alternative<int16_t>(like))
        return roundToInteger(number);
    if (std::holds_alternative<int32_t>(like))
        return roundToLong(number);
    if (std::holds_alternative<Colour>(like))
        return Colour{static_cast<uint32_t>(roundToLong(number))};
    throw typeMismatchError();
}

} // namespace pixmo
