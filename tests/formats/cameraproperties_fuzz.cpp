// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Fuzz target: any bytes read as a camera property box give a finite value or none, and a value
// read writes back into a box that reads the same (intrinsics up to the fixed point's precision).
#include <algorithm>
#include <cmath>

#include "formats/cameraproperties.h"
#include "fuzz/fuzzinput.h"

namespace {

using namespace Vorel::Heif;
using Vorel::Fuzz::check;

constexpr int width = 4032, height = 3024;

void checkIntrinsics(const QByteArray &box)
{
    const std::optional<CameraIntrinsics> read = readIntrinsics(box, width, height);
    if (!read)
        return;
    const double values[] = {read->focalLength, read->principalX, read->principalY};
    for (const double value : values)
        check(std::isfinite(value));
    const std::optional<CameraIntrinsics> again = readIntrinsics(intrinsicsProperty(*read, width, height), width, height);
    check(again.has_value());
    // One step of the finest fixed point the largest value leaves room for, in pixels.
    const double largest = std::max({std::fabs(values[0]) / width, std::fabs(values[1]) / width,
                                     std::fabs(values[2]) / height, 1.0});
    const double tolerance = std::ldexp(largest, -30) * width;
    check(std::fabs(again->focalLength - read->focalLength) <= tolerance);
    check(std::fabs(again->principalX - read->principalX) <= tolerance);
    check(std::fabs(again->principalY - read->principalY) <= tolerance);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray box = Vorel::Fuzz::bytes(data, size);
    checkIntrinsics(box);
    if (const std::optional<double> x = readPositionX(box)) {
        check(std::isfinite(*x));
        check(readPositionX(positionProperty(*x)) == *x);
    }
    if (const std::optional<qint32> adjustment = readDisparity(box))
        check(readDisparity(disparityProperty(*adjustment)) == *adjustment);
    return 0;
}
