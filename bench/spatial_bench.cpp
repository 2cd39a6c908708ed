// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Speed of writing a spatial photo: a 12-megapixel pair (4000 x 3000 per eye, tiled from a
// real camera pair so the encoder sees photographic detail), with the PSNR of each eye read
// back; and the box rewriting alone, which must stay a negligible part of the write.
#include <cmath>

#include <QFile>
#include <QPainter>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include "formats/heifboxes.h"
#include "formats/heifmetaedit.h"
#include "formats/imagereader.h"
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
