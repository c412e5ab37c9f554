#include "bench/view/viewbench.h"
#include "codecs/pagecodecs.h"
#include "core/control/imageview.h"
#include "core/diag/cerrobject.h"
#include "core/imaging/cleadimagefunctions.h"
#include "faces/qt/widget/imageviewprivate.h"

#include <QAbstractScrollArea>
#include <QImage>
#include <cstdio>
#include <filesystem>
#include <stdexcept>

namespace pixmo::bench {

namespace {

constexpr int Document = 1001;
constexpr int Pages = 12;
constexpr size_t Turns = 200;

std::filesystem::path anyPageFile() {
    using std::filesystem::recursive_directory_iterator;
    for (const auto& entry : recursive_directory_iterator(std::filesystem::temp_directory_path()))
        if (entry.path().extension() == ".dat")
            return entry.path();
    throw std::runtime_error("There is no page file.");
}

std::vector<Duration> repeated(
    const std::function<void()>& act, const std::function<void()>& prepare = [] {}) {
    std::vector<Duration> times;
    for (size_t turn = 0; turn < Turns; ++turn) {
        prepare();
        times.push_back(durationOf(act));
    }
    return times;
}

/// The parts of a turn, each on its own, for one page of the cache.
void reportParts(ViewBench& bench) {
    const auto control = qt::ImageViewPrivate::of(bench.view()).control();
    const PageCodecs decoder;
    cErrObject errors(nullptr);
    RasterView& view = control->lvrImage();
    const cLeadImageFunctions help(errors, view, decoder);
    const std::filesystem::path file = anyPageFile();
    constexpr int32_t protectedBytes = 1640;
    std::vector<uint8_t> bytes;
    report("  of it: read and restore",
           repeated([&] { help.imgDecryptToArray(file, bytes, protectedBytes); }));
    report("  of it: decode", repeated([&] { PageCodecs().decode(bytes); }));
    QImage image(bench.page().viewport()->size(), QImage::Format_RGB32);
    const auto stride = static_cast<size_t>(image.bytesPerLine()) / sizeof(uint32_t);
    const PixelSurface surface{reinterpret_cast<uint32_t*>(image.bits()), image.width(), image.height(),
                               stride};
    const Raster raster = PageCodecs().decode(bytes);
    // A picture that has been reduced is not reduced again.
    const auto anew = [&] { view.setRaster(raster); };
    report("  of it: reduce", repeated([&] { view.compose(surface); }, anew));
    report("  of it: paint what is reduced", repeated([&] { bench.page().viewport()->repaint(); }));
}

} // namespace

void turnPages() {
    ViewBench bench;
    bench.open(Document, 1);
    for (int page = 2; page <= Pages; ++page) {
        bench.press(Qt::Key_PageDown);
        bench.waitForPage(page);
    }
    std::vector<Duration> times;
    bool down = false;
    while (times.size() < Turns) {
        const int page = bench.view().page();
        down = page == 1 || (down && page < Pages);
        times.push_back(bench.untilPainted([&] { bench.press(down ? Qt::Key_PageDown : Qt::Key_PageUp); }));
    }
    report("page turn, letter 300 dpi G4, of the cache", times);
    reportParts(bench);
}

} // namespace pixmo::bench
