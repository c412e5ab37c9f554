#pragma once

#include "apps/pixmo/documentaddress.h"

#include <QList>
#include <QSize>
#include <QStringList>
#include <optional>
#include <variant>

namespace pixmo::viewer {

/// Pages of a document, first to last.
struct PageSpan {
    int first = 0;
    int last = 0;
};

/// What the program was started with; what was not given stays empty.
struct Options {
    DocumentAddress document;
    QString delimiter;
    QString key;
    std::optional<int> protectedBytes;
    QString logFile;
    std::optional<int> logLevel;
    QSize size;
    QString screenshot;    ///< file to save the control's picture in
    QString printFile;     ///< PDF file to print to
    QList<PageSpan> pages; ///< to print; empty: all
    bool fullSize = false;
    bool coverSheet = false;
    QString caption;
    int timeoutSeconds = 30;
    bool showHelp = false;
    bool showVersion = false;
};

/// Options or, where they are wrong, a sentence that says so. The first argument is the program.
std::variant<Options, QString> parseCommandLine(const QStringList& arguments);

QString helpText();

} // namespace pixmo::viewer
