// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "border/bordercopy.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

#include "core/parallelrows.h"

namespace Vorel {

namespace {

// Where an unscaled image lands: its top-left corner on the nearest whole pixel, in canvas
// rows counted from the top of the truncated canvas.
struct SlotPixels {
    int64_t left, top; // may lie outside the canvas
    const QImage *image;
};

// Rows the painter must decide: those a rounded corner crosses (with the slot's top and
// bottom edge, which a fractional position covers only in part) and those a fusion dot
// crosses. Returned as disjoint ranges [begin, end) in increasing order.
std::vector<std::pair<int64_t, int64_t>> paintedRows(const BorderScene &scene, double shift, int64_t height)
{
    std::vector<std::pair<int64_t, int64_t>> rows;
    const auto add = [&](double top, double bottom, int64_t margin) {
        const int64_t begin = std::max<int64_t>(0, static_cast<int64_t>(std::floor(top)) - margin);
        const int64_t end = std::min(height, static_cast<int64_t>(std::ceil(bottom)) + margin);
        if (begin < end)
            rows.emplace_back(begin, end);
    };
    const double radius = scene.settings.cornerRadiusPercent / 100 * scene.w;
    const bool dots = scene.settings.useBorder && scene.settings.useFusionDots;
    const double dotRadius = (scene.settings.fusionDotSizePercent * scene.w / 100) * 0.5;
    for (const Placement &slot : scene.layout.placements) {
        const double top = slot.y + shift, bottom = top + scene.h;
        if (radius > 0) {
            add(top, top + radius, 1);
            add(bottom - radius, bottom, 1);
        }
        if (dots && slot.fusionDotY >= 0)
            add(slot.fusionDotY + shift - dotRadius, slot.fusionDotY + shift + dotRadius, 2);
    }
    std::sort(rows.begin(), rows.end());
    std::vector<std::pair<int64_t, int64_t>> merged;
    for (const auto &range : rows) {
        if (!merged.empty() && range.first <= merged.back().second)
            merged.back().second = std::max(merged.back().second, range.second);
        else
            merged.push_back(range);
    }
    return merged;
}

} // namespace

bool copyBorderScene(QImage &canvas, const BorderScene &scene)
{
    // A clipped slot at a fractional x shares its side columns with the background.
    const double radius = scene.settings.cornerRadiusPercent / 100 * scene.w;
    const bool wholeColumns = std::all_of(scene.layout.placements.begin(), scene.layout.placements.end(),
                                          [](const Placement &slot) { return slot.x == std::floor(slot.x); });
    const QSize slotSize(static_cast<int>(scene.w), static_cast<int>(scene.h));
    if (scene.left.size() != slotSize || scene.right.size() != slotSize || scene.layout.border < 0
        || (radius > 0 && !wholeColumns))
        return false;

    const double shift = canvas.height() - scene.layout.height;
    std::vector<SlotPixels> pieces;
    for (const Placement &slot : scene.layout.placements)
        pieces.push_back({static_cast<int64_t>(std::floor(slot.x + 0.5)),
                         static_cast<int64_t>(std::floor(slot.y + shift + 0.5)), slot.isRight ? &scene.right : &scene.left});
    std::sort(pieces.begin(), pieces.end(), [](const SlotPixels &a, const SlotPixels &b) { return a.left < b.left; });

    QImage swatch(1, 1, canvas.format());
    swatch.fill(scene.background);
    const uint32_t background = *reinterpret_cast<const uint32_t *>(swatch.constBits());
    const int64_t width = canvas.width(), w = slotSize.width(), h = slotSize.height();
    // Background spans are copied from one prepared row: a copy runs at memcpy's speed.
    const std::vector<uint32_t> backgroundRow(static_cast<size_t>(width), background);
    const auto fillBackground = [&](uint32_t *row, int64_t from, int64_t to) {
        std::memcpy(row + from, backgroundRow.data(), static_cast<size_t>(to - from) * 4);
    };
    uchar *bits = canvas.bits();
    // Each row: background up to each slot that crosses it (left to right), the slot's image
    // row, background after the last.
    parallelRows(canvas.height(), [&](int64_t begin, int64_t end) {
        for (int64_t y = begin; y < end; ++y) {
            auto *row = reinterpret_cast<uint32_t *>(bits + y * canvas.bytesPerLine());
            int64_t x = 0;
            for (const SlotPixels &slot : pieces) {
                const int64_t imageRow = y - slot.top;
                const int64_t from = std::clamp<int64_t>(slot.left, x, width);
                const int64_t to = std::clamp<int64_t>(slot.left + w, from, width);
                if (imageRow < 0 || imageRow >= h || from == to)
                    continue;
                fillBackground(row, x, from);
                const auto *source = reinterpret_cast<const uint32_t *>(slot.image->constBits() +
                                                                        imageRow * slot.image->bytesPerLine());
                std::memcpy(row + from, source + (from - slot.left), static_cast<size_t>(to - from) * 4);
                x = to;
            }
            fillBackground(row, x, width);
        }
    });

    // Not a structured binding: clang before 16 cannot capture one in a lambda.
    for (const auto &rows : paintedRows(scene, shift, canvas.height()))
        parallelRows(rows.second - rows.first, [&](int64_t begin, int64_t end) {
            paintBorderRegion(canvas, QRect(0, int(rows.first + begin), canvas.width(), int(end - begin)), scene);
        });
    return true;
}

} // namespace Vorel
