// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Drives a libFuzzer-style target without libFuzzer, so it runs in CTest with any compiler:
// every file named on the command line (and every file in a folder named there) is fed as it
// is, cut short at many lengths, and with single bytes overwritten near its start (where the
// metadata lives).
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

namespace {

constexpr size_t everyCutUpTo = 256; // all lengths below this are tried
constexpr size_t spreadCuts = 256; // plus this many lengths spread over the rest
constexpr size_t overwrittenPrefix = 1024; // bytes overwritten one at a time
constexpr uint8_t overwriteValues[] = {0x00, 0xFF, 0x7F};

void feed(const std::vector<uint8_t> &input, size_t size)
{
    LLVMFuzzerTestOneInput(input.data(), size);
}

// Every file a command-line argument names: itself, or the files of a folder, in name order.
std::vector<std::string> inputFiles(int argc, char **argv)
{
    std::vector<std::string> files;
    for (int i = 1; i < argc; ++i) {
        if (!std::filesystem::is_directory(argv[i])) {
            files.emplace_back(argv[i]);
            continue;
        }
        std::vector<std::string> inFolder;
        for (const auto &entry : std::filesystem::directory_iterator(argv[i]))
            if (entry.is_regular_file())
                inFolder.push_back(entry.path().string());
        std::sort(inFolder.begin(), inFolder.end());
        files.insert(files.end(), inFolder.begin(), inFolder.end());
    }
    return files;
}

} // namespace

int main(int argc, char **argv)
{
    for (const std::string &name : inputFiles(argc, argv)) {
        std::ifstream stream(name, std::ios::binary);
        std::vector<uint8_t> input((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
        if (input.empty()) {
            std::fprintf(stderr, "cannot read %s\n", name.c_str());
            return 1;
        }
        feed(input, input.size());
        for (size_t cut = 0; cut < std::min(everyCutUpTo, input.size()); ++cut)
            feed(input, cut);
        for (size_t k = 1; k < spreadCuts; ++k)
            feed(input, input.size() * k / spreadCuts);
        for (size_t at = 0; at < std::min(overwrittenPrefix, input.size()); ++at) {
            const uint8_t original = input[at];
            for (const uint8_t value : overwriteValues) {
                input[at] = value;
                feed(input, input.size());
            }
            input[at] = original;
        }
        std::printf("%s: ok\n", name.c_str());
    }
    return 0;
}
