#include "bench/decode/decodepages.h"
#include "codecs/pagecodecs.h"

#include <QBuffer>
#include <QImageReader>
#include <benchmark/benchmark.h>
#include <leptonica/allheaders.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <span>
#include <string>
#include <vector>

namespace {

using Bytes = std::span<const uint8_t>;

bool decodeHere(Bytes bytes) {
    const pixmo::Raster raster = pixmo::PageCodecs().decode(bytes);
    benchmark::DoNotOptimize(raster.pixels.data());
    return !raster.empty();
}

bool decodeLeptonica(Bytes bytes) {
    PIX* pix = pixReadMem(bytes.data(), bytes.size());
    if (pix == nullptr)
        return false;
    benchmark::DoNotOptimize(pixGetData(pix));
    pixDestroy(&pix);
    return true;
}

bool decodeQt(Bytes bytes) {
    QByteArray data = QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()),
                                              static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&data);
    QImageReader reader(&buffer);
    const QImage image = reader.read();
    benchmark::DoNotOptimize(image.constBits());
    return !image.isNull();
}

struct Contender {
    const char* name;
    bool (*decode)(Bytes); ///< false when it has no reader for the format
};

constexpr std::array Contenders = {Contender{"pixmo", decodeHere}, Contender{"leptonica", decodeLeptonica},
                                   Contender{"qt", decodeQt}};

struct Page {
    const char* name;
    Bytes bytes;
};

constexpr double Unable = 0;

double millisecondsOf(const Contender& contender, Bytes bytes) {
    const auto start = std::chrono::steady_clock::now();
    const bool decoded = contender.decode(bytes);
    const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
    return decoded ? taken.count() : Unable;
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// The contenders take turns, so that whatever slows the machine slows all of them: the median of the
/// rounds' ratios is what to trust. 0 stands for a contender that cannot read the page.
void printRatios(std::span<const Page> pages) {
    constexpr int Rounds = 31;
    std::printf("\n%-16s %12s %22s %22s\n", "page", "pixmo, ms", "leptonica : pixmo", "qt : pixmo");
    for (const Page& page : pages) {
        std::vector<double> own;
        std::array<std::vector<double>, Contenders.size()> ratios;
        for (int round = 0; round < Rounds; ++round) {
            own.push_back(millisecondsOf(Contenders[0], page.bytes));
            for (size_t i = 1; i < Contenders.size(); ++i)
                ratios[i].push_back(millisecondsOf(Contenders[i], page.bytes) / own.back());
        }
        std::printf("%-16s %12.2f %22.2f %22.2f\n", page.name, median(own), median(ratios[1]),
                    median(ratios[2]));
    }
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const pixmo::DecodePages encoded = pixmo::makeDecodePages();
    const std::array pages = {Page{"g4-letter-300", encoded.g4Tiff}, Page{"gray-jpeg-300", encoded.grayJpeg},
                              Page{"colour-jpeg-300", encoded.colourJpeg}};
    for (const Page& page : pages)
        for (const Contender& contender : Contenders)
            benchmark::RegisterBenchmark((std::string("decode/") + page.name + '/' + contender.name).c_str(),
                                         [page, contender](benchmark::State& state) {
                                             for ([[maybe_unused]] auto unused : state)
                                                 if (!contender.decode(page.bytes))
                                                     state.SkipWithError("cannot read this page");
                                             state.SetLabel(std::to_string(page.bytes.size()) + " bytes");
                                         })
                ->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
    printRatios(pages);
    return 0;
}
