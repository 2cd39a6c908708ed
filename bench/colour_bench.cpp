// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// What colour management adds to opening a picture: a 12-megapixel JPEG decoded as is, and the
// same decode followed by the conversion from Display P3 to sRGB (the iPhone's profile), from
// an sRGB profile (a check of the cache only) and the conversion alone, on every core.
// Run pinned to one core (`taskset -c 0`) for single-core figures.
#include <QColorSpace>
#include <QImage>

#include <benchmark/benchmark.h>

#include "formats/colourprofile.h"
#include "formats/heifimage.h"
#include "formats/imagereader.h"
#include "formats/jpegcodec.h"
#include "formats/srgbconversion.h"

using namespace Vorel;

namespace {

const QString data = QStringLiteral(VOREL_TEST_DATA) + QLatin1Char('/');

// The iPhone picture (3024x4032) as a quality-90 JPEG, the profile it was shot in, and an sRGB
// profile (a table-curve one, as colord ships it) read by Qt from a tagged JPEG.
struct Picture {
    QByteArray jpeg = encodeJpeg(*loadCorrectImageOriented(data + QStringLiteral("heic/iphone_13_pro_max.heic")), 90)
                          .value_or(QByteArray());
    QByteArray displayP3 = heifProfile(data + QStringLiteral("heic/iphone_13_pro_max.heic"));
    QByteArray srgb = QImage(data + QStringLiteral("colour/srgb-tagged.jpg")).colorSpace().iccProfile();

    static QByteArray heifProfile(const QString &path)
    {
        const Heif::Context context(heif_context_alloc());
        heif_image_handle *primary = nullptr;
        if (!context || heif_context_read_from_file(context.get(), qPrintable(path), nullptr).code != heif_error_Ok ||
            heif_context_get_primary_image_handle(context.get(), &primary).code != heif_error_Ok)
            return {};
        return heifColourProfile(Heif::Handle(primary).get());
    }
};

const Picture &picture()
{
    static const Picture p;
    return p;
}

void BM_Decode12MP(benchmark::State &state)
{
    const QByteArray &jpeg = picture().jpeg;
    for (auto _ : state)
        benchmark::DoNotOptimize(decodeJpeg(jpeg.constData(), jpeg.size()));
}
BENCHMARK(BM_Decode12MP)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();

// Argument: 0 Display P3, 1 an sRGB profile.
void BM_DecodeAndConvert12MP(benchmark::State &state)
{
    const QByteArray &jpeg = picture().jpeg;
    const QByteArray &profile = state.range(0) == 0 ? picture().displayP3 : picture().srgb;
    if (profile.isEmpty()) {
        state.SkipWithError("the test profile could not be read");
        return;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(convertedToSrgb(*decodeJpeg(jpeg.constData(), jpeg.size()), profile));
    state.SetLabel(state.range(0) == 0 ? "Display P3" : "sRGB profile");
}
BENCHMARK(BM_DecodeAndConvert12MP)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();

void BM_ConvertOnly12MP(benchmark::State &state)
{
    QImage image = *decodeJpeg(picture().jpeg.constData(), picture().jpeg.size());
    for (auto _ : state) // converting the same pixels again and again costs what the first time does
        image = convertedToSrgb(std::move(image), picture().displayP3);
}
BENCHMARK(BM_ConvertOnly12MP)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();

} // namespace

BENCHMARK_MAIN();
