#pragma once

#include <string>
#include <string_view>

namespace pixmo::com {

/// Ill-formed UTF-8 and lone surrogates become U+FFFD.
std::wstring toWide(std::string_view utf8);
/// Every line ends in CR LF, as the system's fields and its clipboard want it.
std::wstring linesToWide(std::string_view utf8);
std::string toUtf8(std::wstring_view wide);

/// For a host, which frees it by CoTaskMemFree. Throws std::bad_alloc.
wchar_t* copyForHost(std::wstring_view text);

} // namespace pixmo::com
