// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Writing a 12-megapixel pair (4000 x 3000 per eye, tiled from a real camera pair so the
// encoder sees photographic detail) as MPO and JPS, with the camera's Exif, against what it
// cannot beat by much: encoding the two JPEGs. Each iteration times ours and the yardstick
// back to back; "vs_two_jpegs" is the ratio of the fastest of each (target: at most 1).
#include <chrono>
#include <functional>
#include <limits>

#include <QFileInfo>
#include <QPainter>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <turbojpeg.h>

#include "formats/cameraexif.h"
#include "formats/imagereader.h"
#include "formats/imagewriter.h"
#include "formats/jpegcodec.h"
#include "formats/stereofilewriter.h"

using namespace Vorel;

namespace {

QImage tiled12MP(const char *name)
{
    const QImage tile = loadCorrectImageOriented(QStringLiteral(VOREL_TEST_DATA "/stereo/") + QLatin1String(name)).value();
    QImage image(4000, 3000, QImage::Format_RGB32);
    QPainter(&image).fillRect(image.rect(), QBrush(tile));
    return image;
}

const QImage &left12() { static const QImage image = tiled12MP("Panasonic-DMC-GX8-left.jpg"); return image; }
const QImage &right12() { static const QImage image = tiled12MP("Panasonic-DMC-GX8-right.jpg"); return image; }
const QByteArray &cameraExif()
{
    static const QByteArray exif = readCameraExif(QStringLiteral(VOREL_TEST_DATA "/mpo/Panasonic-DMC-GX8.mpo"));
    return exif;
}

double seconds(const std::function<void()> &work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void encodeTwoJpegs()
{
    benchmark::DoNotOptimize(encodeJpeg(left12(), lossyQuality));
    benchmark::DoNotOptimize(encodeJpeg(right12(), lossyQuality));
}

void writePairFile(benchmark::State &state, StereoFileFormat format)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(format == StereoFileFormat::mpo ? QStringLiteral("pair.mpo") : QStringLiteral("pair.jps"));
    double ours = std::numeric_limits<double>::max(), yardstick = ours;
    for (auto _ : state) {
        const double t = seconds([&] { writeStereoFile(left12(), right12(), path, format, cameraExif()); });
        state.SetIterationTime(t);
        ours = std::min(ours, t);
        yardstick = std::min(yardstick, seconds(encodeTwoJpegs));
    }
    state.counters["two_jpegs_ms"] = yardstick * 1e3;
    state.counters["vs_two_jpegs"] = ours / yardstick;
    state.counters["MB"] = double(QFileInfo(path).size()) / 1e6;
}

void BM_WriteMpo12MP(benchmark::State &state) { writePairFile(state, StereoFileFormat::mpo); }
BENCHMARK(BM_WriteMpo12MP)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5);

void BM_WriteJps12MP(benchmark::State &state) { writePairFile(state, StereoFileFormat::jps); }
BENCHMARK(BM_WriteJps12MP)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5);

// Yardsticks: our plain encoder twice, and TurboJPEG straight into a preallocated buffer.
void BM_EncodeJpegTwice12MP(benchmark::State &state)
{
    for (auto _ : state)
        encodeTwoJpegs();
}
BENCHMARK(BM_EncodeJpegTwice12MP)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);

void BM_TurboJpegTwice12MP(benchmark::State &state)
{
    tjhandle tj = tjInitCompress();
    unsigned long capacity = tjBufSize(4000, 3000, TJSAMP_420);
    unsigned char *buffer = tjAlloc(int(capacity));
    for (auto _ : state)
        for (const QImage *image : {&left12(), &right12()}) {
            unsigned long size = capacity;
            tjCompress2(tj, image->constBits(), image->width(), int(image->bytesPerLine()), image->height(), TJPF_BGRX,
                        &buffer, &size, TJSAMP_420, lossyQuality, TJFLAG_NOREALLOC);
            benchmark::DoNotOptimize(size);
        }
    tjFree(buffer);
    tjDestroy(tj);
}
BENCHMARK(BM_TurboJpegTwice12MP)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);

} // namespace

BENCHMARK_MAIN();
