#include "faces/com/ports/clock.h"

#include "faces/com/base/widetext.h"

#include <array>

namespace pixmo::com {

std::string Clock::generalDate() const {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    std::array<wchar_t, 80> date{};
    std::array<wchar_t, 80> time{};
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &now, nullptr, date.data(),
                   static_cast<int>(date.size()));
    GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &now, nullptr, time.data(), static_cast<int>(time.size()));
    return toUtf8(date.data()) + " " + toUtf8(time.data());
}

} // namespace pixmo::com
