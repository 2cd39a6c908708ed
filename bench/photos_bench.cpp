// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The photo library at size: 5,000 small pictures in 50 albums (hard links to a few test photos,
// made once in the build tree). Listing and describing everything; the first screen of 40
// normal thumbnails of an unseen album and from a warm cache; the reduced decode against the
// yardstick, a full decode scaled down.
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include "formats/imagereader.h"
#include "photos/photolibrary.h"
#include "photos/thumbnailfill.h"

namespace {

using namespace Vorel;

constexpr int albumCount = 50;
constexpr int picturesPerAlbum = 100;
constexpr int firstScreen = 40;

const QString library = QStringLiteral(VOREL_BENCH_CACHE "/Pictures");

// Hard links: the library costs no space, and every file still has a name of its own.
const QString &makeLibrary()
{
    static const bool made = [] {
        const char *sources[] = {"mpo/sugarshack.mpo", "stereo/left01.jpg", "stereo/right.jpg",
                                 "orientation/hopper.jpg", "heic/rainbow-451x461.heic"};
        const QString done = library + QStringLiteral("/.complete");
        if (QFile::exists(done))
            return true;
        QDir(library).removeRecursively();
        for (int album = 0; album < albumCount; ++album) {
            const QString folder = library + QStringLiteral("/Album %1").arg(album);
            QDir().mkpath(folder);
            for (int i = 0; i < picturesPerAlbum; ++i) {
                const QString source = QStringLiteral(VOREL_TEST_DATA "/") + QLatin1String(sources[i % std::size(sources)]);
                const QString target = folder + QStringLiteral("/IMG_%1.%2").arg(i).arg(QFileInfo(source).suffix());
                ::link(QFile::encodeName(source).constData(), QFile::encodeName(target).constData());
            }
        }
        QFile(done).open(QIODevice::WriteOnly);
        return true;
    }();
    (void)made;
    return library;
}

QStringList firstScreenOfAnAlbum() { return listAlbumFiles(makeLibrary() + QStringLiteral("/Album 7")).mid(0, firstScreen); }

void BM_ListAlbumsAndDescribeEveryPicture(benchmark::State &state)
{
    const QString root = makeLibrary();
    for (auto _ : state) {
        const std::vector<PhotoAlbum> albums = PhotoLibrary(root).albums();
        benchmark::DoNotOptimize(albumPhotos(albums.front().id));
    }
    state.counters["pictures"] = albumCount * picturesPerAlbum;
}
BENCHMARK(BM_ListAlbumsAndDescribeEveryPicture)->Unit(benchmark::kMillisecond);

void BM_FirstScreenUnseenAlbum(benchmark::State &state)
{
    const QStringList paths = firstScreenOfAnAlbum();
    for (auto _ : state) {
        state.PauseTiming();
        QTemporaryDir cache;
        state.ResumeTiming();
        benchmark::DoNotOptimize(fillThumbnails(ThumbnailCache(cache.path()), paths, {ThumbnailSize::normal}));
    }
}
BENCHMARK(BM_FirstScreenUnseenAlbum)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_FirstScreenWarmCache(benchmark::State &state)
{
    const QStringList paths = firstScreenOfAnAlbum();
    QTemporaryDir folder;
    const ThumbnailCache cache(folder.path());
    fillThumbnails(cache, paths, {ThumbnailSize::normal});
    for (auto _ : state)
        for (const QString &path : paths)
            benchmark::DoNotOptimize(cache.find(path, ThumbnailSize::normal));
}
BENCHMARK(BM_FirstScreenWarmCache)->Unit(benchmark::kMillisecond);

// One core each, the same 40 pictures: what the reduced decode saves.
void BM_ReducedDecode(benchmark::State &state)
{
    const QStringList paths = firstScreenOfAnAlbum();
    for (auto _ : state)
        for (const QString &path : paths)
            benchmark::DoNotOptimize(renderThumbnail(path, int(ThumbnailSize::normal)));
}
BENCHMARK(BM_ReducedDecode)->Unit(benchmark::kMillisecond);

void BM_Yardstick_FullDecodeAndScale(benchmark::State &state)
{
    const QStringList paths = firstScreenOfAnAlbum();
    for (auto _ : state)
        for (const QString &path : paths)
            benchmark::DoNotOptimize(
                loadCorrectImageOriented(path)->scaled(128, 128, Qt::KeepAspectRatio, Qt::SmoothTransformation));
}
BENCHMARK(BM_Yardstick_FullDecodeAndScale)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
