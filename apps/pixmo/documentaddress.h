#pragma once

#include <QString>
#include <cstdint>

namespace pixmo::viewer {

/// Where a document is found.
struct DocumentAddress {
    QString engine; ///< address of the server's request page
    int document = 0;
    int page = 1;

    bool operator==(const DocumentAddress&) const = default;
};

/// Whether a server can be asked at that address: http or https and a host.
bool isEngineAddress(const QString& text);

inline constexpr int LastPage = 32'767;

} // namespace pixmo::viewer
