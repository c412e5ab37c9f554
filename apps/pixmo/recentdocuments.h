#pragma once

#include "apps/pixmo/documentaddress.h"

#include <QList>

namespace pixmo::viewer {

/// The documents opened last, the newest first, kept from run to run.
class RecentDocuments {
public:
    static constexpr qsizetype Most = 10;

    QList<DocumentAddress> load() const;
    /// To the front; the same document is listed once, with the page of the last time.
    void add(const DocumentAddress& document);
    void clear();

private:
    static void save(const QList<DocumentAddress>& documents);
};

} // namespace pixmo::viewer
