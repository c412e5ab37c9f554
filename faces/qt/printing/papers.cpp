#include "faces/qt/printing/papers.h"

#include <QSizeF>
#include <algorithm>
#include <array>

namespace pixmo::qt {

namespace {

constexpr int32_t Folio = 14;

struct Sheet {
    int32_t code;
    QPageSize::PageSizeId id;
};

/// The drawing sheets of 17 by 22 inches and larger, which the codes mean and the toolkit takes for others.
constexpr std::array<Sheet, 3> Sheets = {
    {{24, QPageSize::AnsiC}, {25, QPageSize::AnsiD}, {26, QPageSize::AnsiE}}};

} // namespace

std::optional<QPageSize> paperOf(int32_t code) {
    if (code == Folio)
        return QPageSize(QSizeF(8.5, 13), QPageSize::Inch, QStringLiteral("Folio"));
    const auto* const sheet =
        std::find_if(Sheets.begin(), Sheets.end(), [code](const Sheet& each) { return each.code == code; });
    const auto id = sheet != Sheets.end() ? sheet->id : QPageSize::id(code);
    if (id == QPageSize::Custom)
        return std::nullopt;
    return QPageSize(id);
}

bool isSamePaper(const QPageSize& one, const QPageSize& other) {
    const bool sameName = one.id() == other.id() && one.id() != QPageSize::Custom;
    return sameName || one.isEquivalentTo(other);
}

} // namespace pixmo::qt
