// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Folder throughput of `vorel-cli batch` beside ImageMagick and Python + OpenCV doing the same
// work, the per-file cost of `vorel-cli convert`, two shards under GNU parallel, the peak
// memory of a 200-file batch against a 1-file one, and one conversion against the codec floor. Every figure is wall clock of child processes.
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include "formats/imagereader.h"
#include "formats/imagewriter.h"

using namespace Vorel;
namespace fs = std::filesystem;

namespace {

using Command = std::vector<std::string>;

// Input folders are written once and kept here between runs; outputs go below it too.
const fs::path cacheDir = VOREL_BENCH_CACHE;
const fs::path testData = VOREL_TEST_DATA;

struct ChildRun {
    bool ok = false;
    double seconds = 0;
    double cpuSeconds = 0; // user and system time of the child
    // The child's ru_maxrss. The kernel folds the spawning process's own peak into it at exec.
    double peakMiB = 0;
    std::string error; // the command and the first line it wrote to stderr, when it failed
};

// Runs one command without a shell (stdin and stdout on /dev/null) and reaps it with wait4.
ChildRun run(const Command &command)
{
    fs::create_directories(cacheDir);
    const std::string errorFile = (cacheDir / "stderr.txt").string();
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, errorFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                     0644);
    std::vector<char *> argv;
    for (const std::string &word : command)
        argv.push_back(const_cast<char *>(word.c_str()));
    argv.push_back(nullptr);

    ChildRun result;
    const auto start = std::chrono::steady_clock::now();
    pid_t pid = 0;
    const int spawnError = posix_spawnp(&pid, argv[0], &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (spawnError != 0) {
        result.error = command[0] + ": " + std::strerror(spawnError);
        return result;
    }
    int status = 0;
    rusage usage{};
    wait4(pid, &status, 0, &usage);
    result.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    result.peakMiB = static_cast<double>(usage.ru_maxrss) / 1024.0;
    const auto toSeconds = [](const timeval &t) { return static_cast<double>(t.tv_sec) + t.tv_usec / 1e6; };
    result.cpuSeconds = toSeconds(usage.ru_utime) + toSeconds(usage.ru_stime);
    result.ok = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    if (!result.ok) {
        std::ifstream stderrText(errorFile);
        std::string firstLine;
        std::getline(stderrText, firstLine);
        result.error = command[0] + " failed: " + firstLine;
    }
    return result;
}

// Every executable called `name` along PATH, in PATH order.
std::vector<std::string> onPath(const std::string &name)
{
    std::vector<std::string> found;
    std::istringstream dirs(std::getenv("PATH") ? std::getenv("PATH") : "");
    for (std::string dir; std::getline(dirs, dir, ':');) {
        const std::string candidate = (fs::path(dir) / name).string();
        if (!dir.empty() && access(candidate.c_str(), X_OK) == 0)
            found.push_back(candidate);
    }
    return found;
}

// ImageMagick 7's `magick`, else Debian's ImageMagick 6 binary itself, else any `convert`: the
// binary rather than a `convert` wrapper, whose own start-up would be charged to every file.
std::optional<std::string> imageMagick()
{
    for (const char *name : {"magick", "convert-im6.q16", "convert"})
        if (const std::vector<std::string> found = onPath(name); !found.empty())
            return found.front();
    return std::nullopt;
}

// The first python3 along PATH that can import cv2 (a virtual environment may lack it).
std::optional<std::string> pythonWithOpenCv()
{
    static const std::optional<std::string> python = []() -> std::optional<std::string> {
        for (const std::string &candidate : onPath("python3"))
            if (run({candidate, "-c", "import cv2"}).ok)
                return candidate;
        return std::nullopt;
    }();
    return python;
}

struct Folder {
    fs::path dir;
    std::vector<fs::path> files; // in name order; empty when the folder could not be made
};

Folder listFolder(const fs::path &dir)
{
    Folder folder{dir, {}};
    for (const fs::directory_entry &entry : fs::directory_iterator(dir))
        folder.files.push_back(entry.path());
    std::sort(folder.files.begin(), folder.files.end());
    return folder;
}

// `count` copies of each source, named after it with a running number.
Folder copiesFolder(const std::string &name, const std::vector<fs::path> &sources, int count)
{
    const fs::path dir = cacheDir / name;
    fs::create_directories(dir);
    for (const fs::path &source : sources)
        for (int i = 0; i < count; ++i) {
            const fs::path copy =
                dir / (source.stem().string() + "-" + std::to_string(1000 + i).substr(1) + source.extension().string());
            if (!fs::exists(copy))
                fs::copy_file(source, copy);
        }
    return listFolder(dir);
}

// Eight 8000x3000 side-by-side JPEGs (quality 90) of a real camera pair, each cut a few rows
// differently before scaling so that no two files are alike.
const Folder &sideBySideFolder()
{
    static const Folder folder = [] {
        constexpr int files = 8;
        const fs::path dir = cacheDir / "sbs-8000x3000";
        fs::create_directories(dir);
        const std::optional<QImage> left = loadCorrectImageOriented(
            QString::fromStdString((testData / "stereo/Panasonic-DMC-GX8-left.jpg").string()));
        const std::optional<QImage> right = loadCorrectImageOriented(
            QString::fromStdString((testData / "stereo/Panasonic-DMC-GX8-right.jpg").string()));
        if (!left || !right)
            return Folder{dir, {}};
        QImage pair(left->width() + right->width(), std::min(left->height(), right->height()), QImage::Format_RGB32);
        QPainter painter(&pair);
        painter.drawImage(0, 0, *left);
        painter.drawImage(left->width(), 0, *right);
        painter.end();
        for (int i = 0; i < files; ++i) {
            const fs::path file = dir / ("sbs-" + std::to_string(i + 1) + ".jpg");
            const QImage variant = pair.copy(0, 2 * i, pair.width(), pair.height() - 2 * i);
            if (!fs::exists(file) && !writeImage(variant.scaled(8000, 3000, Qt::IgnoreAspectRatio, Qt::SmoothTransformation),
                                                 QString::fromStdString(file.string())))
                return Folder{dir, {}};
        }
        return listFolder(dir);
    }();
    return folder;
}

// Four copies each of three real MPO files: a 1824x1368 camera pair and two 640x480 ones.
const Folder &mpoFolder()
{
    static const Folder folder = copiesFolder(
        "mpo", {testData / "mpo/Panasonic-DMC-GX8.mpo", testData / "mpo/frozenpond.mpo", testData / "mpo/sugarshack.mpo"},
        4);
    return folder;
}

struct Scenario {
    std::string name;
    const Folder &(*input)();
    Command options; // the vorel-cli options shared by `batch` and `convert`
    std::string imageMagickGap; // why the ImageMagick yardstick cannot do this; empty when it can
    std::string openCvGap;      // the same for Python + OpenCV
};

const Scenario sideBySideToDubois{"sbs_to_dubois", sideBySideFolder, {"--output", "anaglyph-dubois"}, {}, {}};
const Scenario mpoToSideBySide{"mpo_to_sbs", mpoFolder, {"--input", "mpo", "--output", "sbs"},
                               "ImageMagick reads only the first picture of an MPO file",
                               "OpenCV's imread reads only the first picture of an MPO file"};

Command batchCommand(const Scenario &scenario, const Command &shard, const fs::path &in, const fs::path &out)
{
    Command command{VOREL_CLI, "batch"};
    command.insert(command.end(), shard.begin(), shard.end());
    command.insert(command.end(), scenario.options.begin(), scenario.options.end());
    command.insert(command.end(), {"--format", "jpg", "--yes", in.string(), out.string()});
    return command;
}

fs::path outputDir(const Scenario &scenario, const std::string &tool) { return cacheDir / "out" / scenario.name / tool; }

fs::path jpegIn(const fs::path &dir, const fs::path &input) { return dir / input.filename().replace_extension(".jpg"); }

// Files per second of the one-process batch, by scenario, for the other figures to compare with.
std::map<std::string, double> batchRates;

// Runs `commands` one after another into an emptied `out` each iteration, and reports the rate
// of the fastest iteration: on a shared machine the slower ones measure the neighbours. Returns
// that rate, or 0 after a failure.
double timeFolderRun(benchmark::State &state, const fs::path &out, const std::vector<Command> &commands, size_t files)
{
    if (files == 0) {
        state.SkipWithError("no input files (the test pictures could not be written)");
        return 0;
    }
    double fastest = 0;
    for (auto _ : state) {
        fs::remove_all(out);
        fs::create_directories(out);
        double seconds = 0;
        for (const Command &command : commands) {
            const ChildRun child = run(command);
            if (!child.ok) {
                state.SkipWithError(child.error.c_str());
                return 0;
            }
            seconds += child.seconds;
        }
        state.SetIterationTime(seconds);
        fastest = fastest == 0 ? seconds : std::min(fastest, seconds);
    }
    state.counters["files/s"] = static_cast<double>(files) / fastest;
    state.counters["ms/file"] = 1000 * fastest / static_cast<double>(files);
    return static_cast<double>(files) / fastest;
}

// How many times faster the one-process batch is than this way of doing the same folder.
void compareWithBatch(benchmark::State &state, const Scenario &scenario, double rate)
{
    if (rate > 0 && batchRates.count(scenario.name))
        state.counters["batch_x"] = batchRates[scenario.name] / rate;
}

void BM_VorelBatch(benchmark::State &state, const Scenario &scenario)
{
    const Folder &in = scenario.input();
    const fs::path out = outputDir(scenario, "batch");
    if (const double rate = timeFolderRun(state, out, {batchCommand(scenario, {}, in.dir, out)}, in.files.size()))
        batchRates[scenario.name] = rate;
}

// One process per file: its per-file cost must not be below the batch's.
void BM_VorelConvertEachFile(benchmark::State &state, const Scenario &scenario)
{
    const Folder &in = scenario.input();
    const fs::path out = outputDir(scenario, "convert");
    std::vector<Command> commands;
    for (const fs::path &file : in.files) {
        Command command{VOREL_CLI, "convert"};
        command.insert(command.end(), scenario.options.begin(), scenario.options.end());
        command.insert(command.end(), {"--yes", file.string(), jpegIn(out, file).string()});
        commands.push_back(command);
    }
    compareWithBatch(state, scenario, timeFolderRun(state, out, commands, in.files.size()));
}

// ImageMagick's own red-cyan stereo composite, one process per file.
void BM_ImageMagickEachFile(benchmark::State &state, const Scenario &scenario)
{
    const std::optional<std::string> magick = imageMagick();
    if (!scenario.imageMagickGap.empty() || !magick) {
        state.SkipWithError(magick ? scenario.imageMagickGap.c_str() : "ImageMagick is not installed");
        return;
    }
    const Folder &in = scenario.input();
    const fs::path out = outputDir(scenario, "imagemagick");
    std::vector<Command> commands;
    for (const fs::path &file : in.files)
        commands.push_back({*magick, file.string(), "-crop", "50%x100%", "+repage", "-swap", "0,1", "-compose",
                            "stereo", "-composite", "-quality", "90", jpegIn(out, file).string()});
    compareWithBatch(state, scenario, timeFolderRun(state, out, commands, in.files.size()));
}

void BM_PythonOpenCv(benchmark::State &state, const Scenario &scenario)
{
    const std::optional<std::string> python = pythonWithOpenCv();
    if (!scenario.openCvGap.empty() || !python) {
        state.SkipWithError(python ? scenario.openCvGap.c_str() : "no python3 on PATH can import cv2");
        return;
    }
    const Folder &in = scenario.input();
    const fs::path out = outputDir(scenario, "opencv");
    const Command command{*python, VOREL_BENCH_OPENCV_SCRIPT, in.dir.string(), out.string()};
    compareWithBatch(state, scenario, timeFolderRun(state, out, {command}, in.files.size()));
}

// Two shards of the folder as two processes under GNU parallel; `speedup` is over one process.
void BM_VorelBatchTwoShardsParallel(benchmark::State &state, const Scenario &scenario)
{
    if (onPath("parallel").empty()) {
        state.SkipWithError("GNU parallel is not installed");
        return;
    }
    const Folder &in = scenario.input();
    const fs::path out = outputDir(scenario, "shards");
    Command command{"parallel", "--will-cite", "--halt", "now,fail=1", "-j2", "-q"};
    const Command batch = batchCommand(scenario, {"--shard", "{}/2"}, in.dir, out);
    command.insert(command.end(), batch.begin(), batch.end());
    command.insert(command.end(), {":::", "0", "1"});
    if (const double rate = timeFolderRun(state, out, {command}, in.files.size()); rate && batchRates.count(scenario.name))
        state.counters["speedup"] = rate / batchRates[scenario.name];
}

// One 8000x3000 side-by-side JPEG to a Dubois JPEG by `vorel-cli convert` against the codec floor
// (bench/codecfloor.cpp: TurboJPEG decode, a plain float loop, TurboJPEG encode), on one core
// (taskset) or two, unadjusted or with --adjust 1,0.5,0.3,0.5. CPU time and wall clock of the
// fastest of the iterations; peak memory against the decoded input plus the decoded output.
void BM_ConvertAgainstCodecFloor(benchmark::State &state)
{
    const Folder &in = sideBySideFolder();
    if (in.files.empty()) {
        state.SkipWithError("no input files (the test pictures could not be written)");
        return;
    }
    const bool oneCore = state.range(0) == 1, adjusted = state.range(1) == 1;
    const fs::path out = cacheDir / "out" / "floor";
    fs::create_directories(out);
    Command pinned = oneCore ? Command{"taskset", "-c", "0"} : Command{};
    Command vorel = pinned, floor = pinned;
    vorel.insert(vorel.end(), {VOREL_CLI, "convert", "--yes", "--output", "anaglyph-dubois"});
    if (adjusted)
        vorel.insert(vorel.end(), {"--adjust", "1,0.5,0.3,0.5"});
    vorel.insert(vorel.end(), {in.files.front().string(), (out / "vorel.jpg").string()});
    floor.insert(floor.end(), {VOREL_BENCH_CODEC_FLOOR, in.files.front().string(), (out / "floor.jpg").string()});
    ChildRun best, bestFloor;
    for (auto _ : state) {
        const ChildRun ours = run(vorel), theirs = run(floor);
        if (!ours.ok || !theirs.ok) {
            state.SkipWithError((ours.ok ? theirs : ours).error.c_str());
            return;
        }
        state.SetIterationTime(ours.seconds);
        if (best.cpuSeconds == 0 || ours.cpuSeconds < best.cpuSeconds)
            best = ours;
        if (bestFloor.cpuSeconds == 0 || theirs.cpuSeconds < bestFloor.cpuSeconds)
            bestFloor = theirs;
    }
    constexpr double decodedMiB = (8000.0 * 3000 * 4 + 4000.0 * 3000 * 4) / (1 << 20);
    state.counters["cpu_s"] = best.cpuSeconds;
    state.counters["floor_cpu_s"] = bestFloor.cpuSeconds;
    state.counters["cpu_x_floor"] = best.cpuSeconds / bestFloor.cpuSeconds;
    state.counters["wall_s"] = best.seconds;
    state.counters["peak_MiB"] = best.peakMiB;
    state.counters["peak_x_images"] = best.peakMiB / decodedMiB;
}

// Peak memory of a 200-file batch against a 1-file batch of the same mid-size camera picture:
// nothing may pile up between jobs. Since a child's ru_maxrss includes the spawning process's
// own peak, this runs before the large test pictures are made in this process, and a figure
// that this process's peak could explain is refused.
void BM_VorelBatchPeakMemory(benchmark::State &state)
{
    const std::vector<fs::path> source{testData / "stereo/Panasonic-DMC-GX8-left.jpg"};
    const Folder one = copiesFolder("memory-1", source, 1), many = copiesFolder("memory-200", source, 200);
    double peakOne = 0, peakMany = 0;
    for (auto _ : state) {
        const fs::path out = outputDir(sideBySideToDubois, "memory");
        fs::remove_all(out);
        const ChildRun oneRun = run(batchCommand(sideBySideToDubois, {}, one.dir, out));
        fs::remove_all(out);
        const ChildRun manyRun = run(batchCommand(sideBySideToDubois, {}, many.dir, out));
        if (!oneRun.ok || !manyRun.ok) {
            state.SkipWithError((oneRun.ok ? manyRun : oneRun).error.c_str());
            return;
        }
        state.SetIterationTime(manyRun.seconds);
        peakOne = oneRun.peakMiB;
        peakMany = manyRun.peakMiB;
    }
    rusage self{};
    getrusage(RUSAGE_SELF, &self);
    if (std::min(peakOne, peakMany) <= static_cast<double>(self.ru_maxrss) / 1024.0) {
        state.SkipWithError("this process's own peak memory hides the child's; run the benchmark on its own");
        return;
    }
    state.counters["peak_1_MiB"] = peakOne;
    state.counters["peak_200_MiB"] = peakMany;
    state.counters["peak_ratio"] = peakMany / peakOne;
}

void folderRun(benchmark::internal::Benchmark *b)
{
    b->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
}

BENCHMARK(BM_VorelBatchPeakMemory)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_CAPTURE(BM_VorelBatch, sbs_to_dubois, sideBySideToDubois)->Apply(folderRun);
BENCHMARK_CAPTURE(BM_VorelConvertEachFile, sbs_to_dubois, sideBySideToDubois)->Apply(folderRun);
BENCHMARK_CAPTURE(BM_ImageMagickEachFile, sbs_to_dubois, sideBySideToDubois)->Apply(folderRun);
BENCHMARK_CAPTURE(BM_PythonOpenCv, sbs_to_dubois, sideBySideToDubois)->Apply(folderRun);
BENCHMARK_CAPTURE(BM_VorelBatchTwoShardsParallel, sbs_to_dubois, sideBySideToDubois)->Apply(folderRun);
BENCHMARK_CAPTURE(BM_VorelBatch, mpo_to_sbs, mpoToSideBySide)->Apply(folderRun);
BENCHMARK_CAPTURE(BM_VorelConvertEachFile, mpo_to_sbs, mpoToSideBySide)->Apply(folderRun);
BENCHMARK_CAPTURE(BM_ImageMagickEachFile, mpo_to_sbs, mpoToSideBySide)->Apply(folderRun);
BENCHMARK_CAPTURE(BM_PythonOpenCv, mpo_to_sbs, mpoToSideBySide)->Apply(folderRun);
BENCHMARK(BM_ConvertAgainstCodecFloor)
    ->ArgNames({"cores", "adjusted"})
    ->ArgsProduct({{1, 2}, {0, 1}})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);

} // namespace

BENCHMARK_MAIN();
