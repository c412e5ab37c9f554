#include "faces/qt/printing/queuetarget.h"

#include "faces/qt/printing/papers.h"

#include <QDir>
#include <algorithm>
#include <cups/cups.h>

namespace pixmo::qt {

namespace {

/// The options of one job, which begin as what the user has set for the queue.
class JobOptions {
public:
    JobOptions(const QByteArray& queue, const QByteArray& instance) {
        const char* const name = instance.isEmpty() ? nullptr : instance.constData();
        if (cups_dest_t* const destination = cupsGetNamedDest(CUPS_HTTP_DEFAULT, queue.constData(), name)) {
            for (int at = 0; at < destination->num_options; ++at)
                add(destination->options[at].name, destination->options[at].value);
            cupsFreeDests(1, destination);
        }
    }
    ~JobOptions() { cupsFreeOptions(count_, options_); }
    JobOptions(const JobOptions&) = delete;
    JobOptions& operator=(const JobOptions&) = delete;

    void add(const char* name, const char* value) { count_ = cupsAddOption(name, value, count_, &options_); }
    int count() const { return count_; }
    cups_option_t* options() const { return options_; }

private:
    int count_ = 0;
    cups_option_t* options_ = nullptr;
};

} // namespace

QueueTarget::QueueTarget(const QPrinterInfo& queue)
    : printer_(queue), file_(QDir::temp().filePath(QStringLiteral("pixmo-XXXXXX.pdf"))) {
    printer_.setPageSize(queue.defaultPageSize());
    useAllPaper();
}

void QueueTarget::useAllPaper() {
    QPageLayout layout = printer_.pageLayout();
    layout.setMargins(layout.minimumMargins());
    printer_.setPageLayout(layout);
}

bool QueueTarget::setPaperSize(int32_t code) {
    const auto wanted = paperOf(code);
    if (!wanted)
        return false;
    const auto sizes = QPrinterInfo(printer_).supportedPageSizes();
    const auto found = std::find_if(sizes.begin(), sizes.end(),
                                    [&](const QPageSize& size) { return isSamePaper(size, *wanted); });
    if (found == sizes.end() || !printer_.setPageSize(*found))
        return false;
    useAllPaper();
    return true;
}

bool QueueTarget::setCopies(int32_t copies) {
    copies_ = copies;
    return true;
}

QFileDevice* QueueTarget::begin(const QString& documentName) {
    title_ = documentName;
    if (file_.open())
        return &file_;
    problem_ = file_.errorString().toStdString();
    return nullptr;
}

// True inches stay true: the queue is not to scale what lies inside of its margins already.
bool QueueTarget::deliver() {
    const bool written = file_.flush();
    const QStringList name = printer_.printerName().split(QLatin1Char('/'));
    const QByteArray queue = name.first().toUtf8();
    JobOptions options(queue, name.value(1).toUtf8());
    options.add("media", printer_.pageLayout().pageSize().key().toUtf8().constData());
    options.add("copies", QByteArray::number(copies_).constData());
    options.add("collate", "true");
    options.add("print-scaling", "none");
    int job = 0;
    if (written)
        job = cupsPrintFile(queue.constData(), QFile::encodeName(file_.fileName()).constData(),
                            title_.toUtf8().constData(), options.count(), options.options());
    if (job <= 0)
        problem_ = (written ? QString::fromUtf8(cupsLastErrorString()) : file_.errorString()).toStdString();
    file_.remove();
    return job > 0;
}

} // namespace pixmo::qt
