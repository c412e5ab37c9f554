#pragma once

namespace pixmo::com {

/// Texts travel in the system's ANSI code page from now on. Where that one has characters of several bytes,
/// windows-1252 stays.
void useSystemCodePage();

} // namespace pixmo::com
