#include "apps/pixmo/commandline.h"

#include <QCommandLineParser>
#include <limits>

namespace pixmo::viewer {

namespace {

constexpr int LargestSide = 16'384;
constexpr int LongestTimeout = 86'400;

/// Thrown with a sentence for the user.
struct Refusal {
    QString text;
};

void declare(QCommandLineParser& parser) {
    parser.setApplicationDescription(QStringLiteral("A viewer of document pages from an imaging server."));
    parser.addOptions({
        {QStringLiteral("engine"), QStringLiteral("Address of the imaging server."), QStringLiteral("URL")},
        {QStringLiteral("doc"), QStringLiteral("Number of the document to open."), QStringLiteral("N")},
        {QStringLiteral("page"), QStringLiteral("Page to show first; 1 unless given."), QStringLiteral("N")},
        {QStringLiteral("delimiter"), QStringLiteral("Character between the fields of a request."),
         QStringLiteral("C")},
        {QStringLiteral("key"), QStringLiteral("Key text of the cipher."), QStringLiteral("TEXT")},
        {QStringLiteral("enc-bytes"), QStringLiteral("Protected leading bytes of a page, -1 for all."),
         QStringLiteral("N")},
        {QStringLiteral("log"), QStringLiteral("Diagnostic log to write."), QStringLiteral("FILE")},
        {QStringLiteral("log-level"), QStringLiteral("1 errors, 2 warnings too, 4 everything."),
         QStringLiteral("N")},
        {QStringLiteral("size"), QStringLiteral("Size of the viewer in pixels."), QStringLiteral("WxH")},
        {QStringLiteral("screenshot"),
         QStringLiteral("Save the viewer with its page as PNG and end: 0 when the page was shown, else 1."),
         QStringLiteral("FILE")},
        {QStringLiteral("print-to"),
         QStringLiteral("Print the document to a PDF file and end: 0 when every page is in it, else 1."),
         QStringLiteral("FILE")},
        {QStringLiteral("pages"), QStringLiteral("Pages to print, like 2-5,9; all unless given."),
         QStringLiteral("LIST")},
        {QStringLiteral("scale"), QStringLiteral("fit: to the page; full: in true inches."),
         QStringLiteral("fit|full")},
        {QStringLiteral("cover"), QStringLiteral("Print a cover sheet first.")},
        {QStringLiteral("caption"), QStringLiteral("Text at the top of every printed page."),
         QStringLiteral("TEXT")},
        {QStringLiteral("timeout"), QStringLiteral("Longest wait for screenshot or print; 30 unless given."),
         QStringLiteral("SECONDS")},
        {{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help.")},
        {{QStringLiteral("v"), QStringLiteral("version")}, QStringLiteral("Show the version.")},
    });
}

std::optional<int> number(const QCommandLineParser& parser, const char* option, int least, int most) {
    const QString name = QString::fromLatin1(option);
    if (!parser.isSet(name))
        return std::nullopt;
    bool ok = false;
    const int value = parser.value(name).toInt(&ok);
    if (!ok || value < least || value > most)
        throw Refusal{QStringLiteral("--%1: '%2' is not a number from %3 to %4.")
                          .arg(name, parser.value(name))
                          .arg(least)
                          .arg(most)};
    return value;
}

QSize size(const QString& text) {
    const QStringList sides = text.split(QLatin1Char('x'));
    const QSize size(sides.value(0).toInt(), sides.value(1).toInt());
    if (sides.size() != 2 || size.isEmpty() || size.width() > LargestSide || size.height() > LargestSide)
        throw Refusal{QStringLiteral("--size: '%1' is not a size like 800x600.").arg(text)};
    return size;
}

void checkTogether(const Options& options) {
    if (options.document.document != 0 && options.document.engine.isEmpty())
        throw Refusal{QStringLiteral("--doc needs --engine.")};
    if (!options.screenshot.isEmpty() && options.document.document == 0)
        throw Refusal{QStringLiteral("--screenshot needs --engine and --doc.")};
    if (!options.printFile.isEmpty() && options.document.document == 0)
        throw Refusal{QStringLiteral("--print-to needs --engine and --doc.")};
    if (!options.printFile.isEmpty() && !options.screenshot.isEmpty())
        throw Refusal{QStringLiteral("--print-to and --screenshot exclude each other.")};
}

QString nonEmpty(const QCommandLineParser& parser, const char* option) {
    const QString name = QString::fromLatin1(option);
    if (parser.isSet(name) && parser.value(name).isEmpty())
        throw Refusal{QStringLiteral("--%1: the value is empty.").arg(name)};
    return parser.value(name);
}

void readConnection(const QCommandLineParser& parser, Options& options) {
    options.document.engine = nonEmpty(parser, "engine");
    if (!options.document.engine.isEmpty() && !isEngineAddress(options.document.engine))
        throw Refusal{QStringLiteral("--engine: '%1' is not an address like http://host/engine.")
                          .arg(options.document.engine)};
    options.document.document = number(parser, "doc", 1, std::numeric_limits<int>::max()).value_or(0);
    options.document.page = number(parser, "page", 1, LastPage).value_or(1);
    options.delimiter = nonEmpty(parser, "delimiter");
    if (options.delimiter.toUcs4().size() > 1)
        throw Refusal{QStringLiteral("--delimiter: '%1' is more than one character.").arg(options.delimiter)};
    options.key = nonEmpty(parser, "key");
    options.protectedBytes = number(parser, "enc-bytes", -1, std::numeric_limits<int>::max());
}

/// Either way round; what is beyond the document is cut when its length is known.
PageSpan pageSpan(const QString& text) {
    const QStringList ends = text.split(QLatin1Char('-'));
    bool ok = ends.size() <= 2;
    int numbers[2] = {0, 0};
    for (qsizetype end = 0; ok && end < ends.size(); ++end) {
        numbers[end] = ends[end].trimmed().toInt(&ok);
        ok = ok && numbers[end] >= 1 && numbers[end] <= LastPage;
    }
    if (!ok)
        throw Refusal{QStringLiteral("--pages: '%1' is no page or range of pages.").arg(text)};
    if (ends.size() == 1)
        numbers[1] = numbers[0];
    return {qMin(numbers[0], numbers[1]), qMax(numbers[0], numbers[1])};
}

void readPrinting(const QCommandLineParser& parser, Options& options) {
    options.printFile = nonEmpty(parser, "print-to");
    const QString pages = nonEmpty(parser, "pages");
    if (!pages.isEmpty())
        for (const QString& text : pages.split(QLatin1Char(',')))
            options.pages.append(pageSpan(text));
    const QString scale = nonEmpty(parser, "scale");
    if (!scale.isEmpty() && scale != QLatin1String("fit") && scale != QLatin1String("full"))
        throw Refusal{QStringLiteral("--scale: '%1' is neither fit nor full.").arg(scale)};
    options.fullSize = scale == QLatin1String("full");
    options.coverSheet = parser.isSet(QStringLiteral("cover"));
    options.caption = parser.value(QStringLiteral("caption"));
    for (const char* option : {"pages", "scale", "cover", "caption"})
        if (options.printFile.isEmpty() && parser.isSet(QString::fromLatin1(option)))
            throw Refusal{QStringLiteral("--%1 needs --print-to.").arg(QString::fromLatin1(option))};
}

Options read(const QCommandLineParser& parser) {
    Options options;
    readConnection(parser, options);
    options.logFile = nonEmpty(parser, "log");
    options.logLevel = number(parser, "log-level", 0, 4);
    if (parser.isSet(QStringLiteral("size")))
        options.size = size(parser.value(QStringLiteral("size")));
    options.screenshot = nonEmpty(parser, "screenshot");
    readPrinting(parser, options);
    options.timeoutSeconds = number(parser, "timeout", 1, LongestTimeout).value_or(options.timeoutSeconds);
    if (!parser.positionalArguments().isEmpty())
        throw Refusal{QStringLiteral("Unknown argument '%1'.").arg(parser.positionalArguments().first())};
    checkTogether(options);
    return options;
}

} // namespace

std::variant<Options, QString> parseCommandLine(const QStringList& arguments) {
    QCommandLineParser parser;
    declare(parser);
    if (!parser.parse(arguments))
        return parser.errorText();
    Options options;
    options.showHelp = parser.isSet(QStringLiteral("help"));
    options.showVersion = parser.isSet(QStringLiteral("version"));
    if (options.showHelp || options.showVersion)
        return options;
    try {
        return read(parser);
    } catch (const Refusal& refusal) {
        return refusal.text;
    }
}

QString helpText() {
    QCommandLineParser parser;
    declare(parser);
    return parser.helpText();
}

} // namespace pixmo::viewer
