// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Speed of writing a spatial photo: a 12-megapixel pair (4000 x 3000 per eye, tiled from a
// real camera pair so the encoder sees photographic detail), with the PSNR of each eye read
// back; and the box rewriting alone, which must stay a negligible part of the write.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstring>
#include <random>

#include <QFile>
#include <QPainter>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include "formats/heifboxes.h"
#include "formats/heifimage.h"
#include "formats/heifmetaedit.h"
#include "formats/imagereader.h"
#include "formats/imagewriter.h"
#include "formats/spatialphoto.h"

using namespace Vorel;

namespace {

QImage tiled12MP(const char *name)
{
    const QImage tile =
        loadCorrectImageOriented(QStringLiteral(VOREL_TEST_DATA "/stereo/") + QString::fromLatin1(name)).value();
    QImage image(4000, 3000, QImage::Format_RGB32);
    QPainter painter(&image);
    for (int y = 0; y < image.height(); y += tile.height())
        for (int x = 0; x < image.width(); x += tile.width())
            painter.drawImage(x, y, tile);
    return image;
}

const QImage &left12() { static const QImage image = tiled12MP("Panasonic-DMC-GX8-left.jpg"); return image; }
const QImage &right12() { static const QImage image = tiled12MP("Panasonic-DMC-GX8-right.jpg"); return image; }

double psnr(const QImage &a, const QImage &b)
{
    double squares = 0;
    for (int y = 0; y < a.height(); ++y) {
        const auto *p = reinterpret_cast<const QRgb *>(a.constScanLine(y));
        const auto *q = reinterpret_cast<const QRgb *>(b.constScanLine(y));
        for (int x = 0; x < a.width(); ++x) {
            const int d[] = {qRed(p[x]) - qRed(q[x]), qGreen(p[x]) - qGreen(q[x]), qBlue(p[x]) - qBlue(q[x])};
            squares += d[0] * d[0] + d[1] * d[1] + d[2] * d[2];
        }
    }
    return 10 * std::log10(255.0 * 255.0 * 3.0 * a.width() * a.height() / squares);
}

void BM_WriteSpatialPhoto12MP(benchmark::State &state)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("pair.heic"));
    for (auto _ : state)
        writeSpatialPhoto(left12(), right12(), path, 200, 63.4, 0.01924);
    const ImagePair back = readSpatialPhoto(path);
    state.counters["psnrLeft_dB"] = psnr(left12(), back.left);
    state.counters["psnrRight_dB"] = psnr(right12(), back.right);
    state.counters["MB"] = double(QFile(path).size()) / 1e6;
}
BENCHMARK(BM_WriteSpatialPhoto12MP)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(2);

// The same photo with strong per-pixel grain (the same in all three channels, so that it is
// detail the encoder must keep rather than colour that chroma subsampling drops anyway).
const QImage &grainy12()
{
    static const QImage image = [] {
        QImage grain = left12().copy();
        std::mt19937 random(7);
        std::normal_distribution<float> noise(0, 16);
        for (int y = 0; y < grain.height(); ++y) {
            auto *row = reinterpret_cast<QRgb *>(grain.scanLine(y));
            for (int x = 0; x < grain.width(); ++x) {
                const int n = int(noise(random));
                const auto at = [n](int v) { return std::clamp(v + n, 0, 255); };
                row[x] = qRgb(at(qRed(row[x])), at(qGreen(row[x])), at(qBlue(row[x])));
            }
        }
        return grain;
    }();
    return image;
}

// One eye through the application's HEIC encoder against libheif's own defaults at the same
// quality: PSNR, size and time of each, in one run.
void BM_HeicQualityAgainstLibraryDefaults(benchmark::State &state)
{
    const QImage &picture = state.range(0) ? grainy12() : left12();
    const auto encode = [&](bool libraryDefaults, double &seconds) {
        Heif::Context context(heif_context_alloc());
        const auto start = std::chrono::steady_clock::now();
        if (libraryDefaults) {
            const QImage rgb = picture.convertToFormat(QImage::Format_RGB888);
            heif_image *raw = nullptr;
            heif_image_create(rgb.width(), rgb.height(), heif_colorspace_RGB, heif_chroma_interleaved_RGB, &raw);
            Heif::Image image(raw);
            heif_image_add_plane(raw, heif_channel_interleaved, rgb.width(), rgb.height(), 8);
            int stride = 0;
            uint8_t *plane = heif_image_get_plane(raw, heif_channel_interleaved, &stride);
            for (int y = 0; y < rgb.height(); ++y)
                std::memcpy(plane + size_t(y) * stride, rgb.constScanLine(y), size_t(rgb.width()) * 3);
            heif_encoder *rawEncoder = nullptr;
            heif_context_get_encoder_for_format(context.get(), heif_compression_HEVC, &rawEncoder);
            Heif::Encoder encoder(rawEncoder);
            heif_encoder_set_lossy_quality(rawEncoder, lossyQuality);
            heif_context_encode_image(context.get(), raw, rawEncoder, nullptr, nullptr);
        } else {
            Heif::encodeImage(context.get(), picture, lossyQuality);
        }
        const QByteArray bytes = Heif::writeContext(context.get()).value();
        seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        return bytes;
    };
    const auto decoded = [](const QByteArray &bytes) {
        Heif::Context context = Heif::openContext(bytes);
        heif_image_handle *handle = nullptr;
        heif_context_get_primary_image_handle(context.get(), &handle);
        return Heif::decodeHandle(Heif::Handle(handle).get()).value();
    };
    double ours = 0, library = 0;
    QByteArray oursBytes, libraryBytes;
    for (auto _ : state) {
        oursBytes = encode(false, ours);
        libraryBytes = encode(true, library);
    }
    state.counters["psnr_dB"] = psnr(picture, decoded(oursBytes));
    state.counters["defaults_psnr_dB"] = psnr(picture, decoded(libraryBytes));
    state.counters["MB"] = double(oursBytes.size()) / 1e6;
    state.counters["defaults_MB"] = double(libraryBytes.size()) / 1e6;
    state.counters["s"] = ours;
    state.counters["defaults_s"] = library;
}
BENCHMARK(BM_HeicQualityAgainstLibraryDefaults)->ArgName("grain")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)
    ->UseRealTime()->Iterations(1);

// Growing meta of a 12-megapixel spatial photo and moving its item locations.
void BM_RewriteMeta12MP(benchmark::State &state)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("pair.heic"));
    writeSpatialPhoto(left12(), right12(), path, 200, 63.4, 0.01924);
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    const QByteArray bytes = file.readAll();
    const Heif::BoxSpan meta = Heif::requireBox(Heif::readBoxes(bytes, 0, bytes.size()), "meta");
    const Heif::BoxSpan iprp = Heif::requireBox(Heif::readBoxes(bytes, meta.payload + 4, meta.end), "iprp");
    const QByteArray grown = bytes.mid(iprp.start, iprp.end - iprp.start) + Heif::makeBox("free", QByteArray(64, '\0'));
    for (auto _ : state)
        benchmark::DoNotOptimize(Heif::replaceMetaChild(bytes, iprp, grown));
    state.counters["MB"] = double(bytes.size()) / 1e6;
}
BENCHMARK(BM_RewriteMeta12MP)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

BENCHMARK_MAIN();
