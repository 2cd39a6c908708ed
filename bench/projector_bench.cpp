// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Speed of one projector repaint of a 24-megapixel picture on a 1920×1080 screen: fitted, and
// zoomed to actual size while following a scrolling main view (a new centre each frame).
// A frame at 60 Hz has 16.7 ms. Runs on Qt's offscreen platform.
#include <QApplication>
#include <QImage>

#include <benchmark/benchmark.h>

#include "projector/fitimageview.h"

using namespace Vorel;

namespace {

QImage picture24()
{
    QImage image(6000, 4000, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            row[x] = qRgb(x & 255, y & 255, (x ^ y) & 255);
    }
    return image;
}

// range(0): the zoom relative to the fitted one, in percent (100 = fitted).
void BM_ProjectorRepaint24MP(benchmark::State &state)
{
    static const QImage picture = picture24();
    FitImageView view;
    view.resize(1920, 1080);
    view.setImage(picture);
    QImage frame(view.size(), QImage::Format_RGB32);
    const double zoom = state.range(0) / 100.0;
    double u = 0.3;
    view.followView(zoom, u, 0.5);
    view.render(&frame); // the first repaint builds the reduced copy; scrolling reuses it
    for (auto _ : state) {
        u = u < 0.7 ? u + 0.001 : 0.3;
        view.followView(zoom, u, 0.5);
        view.render(&frame);
        benchmark::DoNotOptimize(frame.constBits());
    }
}
BENCHMARK(BM_ProjectorRepaint24MP)->Arg(100)->Arg(313)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
