// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include <vector>

#include <gtest/gtest.h>

#include <QPainter>
#include <QPainterPath>

#include "border/borderlayout.h"
#include "border/imageborderprocessor.h"

using namespace Vorel;

namespace {

constexpr QRgb red = 0xffff0000u, green = 0xff00ff00u, white = 0xffffffffu, black = 0xff000000u;

QImage solid(int w, int h, QRgb colour)
{
    QImage image(w, h, QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}

QImage composed(const QImage &left, const QImage &right, const ImageBorderSettings &settings)
{
    const std::optional<QImage> image = ImageBorderProcessor().compose(left, right, settings);
    EXPECT_TRUE(image.has_value());
    return image ? *image : QImage();
}

// The worked example: 1000 x 800 images, 3 % border, 3 % dots, so b = 30, t = 60.
ImageBorderSettings example(BorderLayoutKind kind)
{
    ImageBorderSettings s;
    s.layoutKind = kind;
    return s;
}

// The worked examples with a red left and a green right image, and one with a fractional
// border (b = 30.7, no dots): W = 2092.1, H = 30.7 + 800 + 30.7 = 861.4, truncated for the
// canvas; the slot starts at x = 30.7, which lands on column 31, not on the truncated 30, and
// rows count from the unrounded bottom edge, so the top at 30.7 moves up by 0.4 to row 30.
TEST(ImageBorderProcessor, WorkedExamplesSizesAndPixels)
{
    const struct {
        const char *name;
        BorderLayoutKind kind;
        double borderPercent;
        bool dots;
        QSize canvas;
        std::vector<std::pair<QPoint, QRgb>> pixels;
    } cases[] = {
        {"sbs", BorderLayoutKind::sbs, 3, true, {2090, 890},
         {{{29, 400}, white}, {{30, 400}, red},     {{1029, 400}, red},  {{1030, 400}, white},
          {{1059, 400}, white}, {{1060, 400}, green}, {{2059, 400}, green}, {{2060, 400}, white},
          {{500, 59}, white},  {{500, 60}, red},     {{500, 859}, red},   {{500, 860}, white},
          // dots of diameter 30 centred 30 below the top, over each slot's middle
          {{530, 30}, black},  {{530, 17}, black},   {{530, 43}, black},  {{530, 13}, white},
          {{517, 30}, black},  {{546, 30}, white},   {{1560, 30}, black}, {{1030, 30}, white}}},
        {"lrl", BorderLayoutKind::lrl, 3, true, {3120, 890},
         {{{2089, 400}, white}, {{2090, 400}, red}, {{3089, 400}, red}, {{3090, 400}, white}, {{2590, 30}, black}}},
        {"lrrl", BorderLayoutKind::lrrl, 3, true, {2090, 1750},
         {{{30, 919}, white},   {{30, 920}, green},  {{1060, 920}, red},  {{1060, 1719}, red},
          {{1060, 1720}, white}, {{530, 890}, black}, {{1560, 890}, black}, {{530, 861}, white}}},
        {"fractional", BorderLayoutKind::sbs, 3.07, false, {2092, 861},
         {{{30, 400}, white}, {{31, 400}, red}, {{500, 29}, white}, {{500, 30}, red}, {{500, 829}, red},
          {{500, 830}, white}}},
    };
    for (const auto &c : cases) {
        ImageBorderSettings s = example(c.kind);
        s.borderWidthPercent = c.borderPercent;
        s.useFusionDots = c.dots;
        const QImage image = composed(solid(1000, 800, red), solid(1000, 800, green), s);
        ASSERT_EQ(image.size(), c.canvas) << c.name;
        EXPECT_EQ(image.format(), QImage::Format_ARGB32_Premultiplied);
        for (const auto &[at, expected] : c.pixels)
            EXPECT_EQ(image.pixel(at), expected) << c.name << " at " << at.x() << "," << at.y();
    }
}

TEST(ImageBorderProcessor, TransparentPixelsReplaceTheBackground)
{
    ImageBorderSettings s = example(BorderLayoutKind::sbs);
    s.borderColor = {0, 0, 1, 1};
    const QImage image = composed(solid(100, 80, 0x00000000u), solid(100, 80, 0x80ff0000u), s);
    EXPECT_EQ(qAlpha(image.pixel(50, 40)), 0);
    EXPECT_EQ(image.pixel(150, 40), 0x80800000u); // premultiplied
    EXPECT_EQ(image.pixel(1, 40), 0xff0000ffu);
}

TEST(ImageBorderProcessor, NoImageWithoutLeftOrWithoutCanvas)
{
    const QImage some = solid(100, 80, red);
    EXPECT_FALSE(ImageBorderProcessor().compose(QImage(), some, example(BorderLayoutKind::sbs)));
    ImageBorderSettings s = example(BorderLayoutKind::sbs);
    s.borderWidthPercent = -100; // W = 2w - 3w < 0
    EXPECT_FALSE(ImageBorderProcessor().compose(some, some, s));
}

// Everything drawn by one painter over the whole canvas, as the reference.
QImage onePainterReference(const QImage &left, const QImage &right, const ImageBorderSettings &s)
{
    const BorderLayout layout = borderLayout(left.width(), left.height(), s);
    QImage canvas(int(layout.width), int(layout.height), QImage::Format_ARGB32_Premultiplied);
    canvas.fill(s.useBorder ? s.borderColor.toQColor() : QColor(Qt::black));
    QPainter p(&canvas);
    p.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    p.translate(0, canvas.height() - layout.height);
    p.setCompositionMode(QPainter::CompositionMode_Source);
    const double r = s.cornerRadiusPercent / 100 * left.width();
    for (const Placement &slot : layout.placements) {
        const QRectF rect(slot.x, slot.y, left.width(), left.height());
        QPainterPath clip;
        clip.addRoundedRect(rect, r, r);
        p.setClipPath(clip);
        p.setClipping(r > 0);
        p.drawImage(rect, slot.isRight ? right : left);
    }
    p.setClipping(false);
    if (!s.useBorder || !s.useFusionDots)
        return canvas;
    p.setCompositionMode(QPainter::CompositionMode_SourceOver);
    p.setPen(Qt::NoPen);
    p.setBrush(s.fusionDotColor.toQColor());
    const double rd = s.fusionDotSizePercent * left.width() / 100 * 0.5;
    for (const Placement &slot : layout.placements)
        p.drawEllipse(QPointF(slot.x + left.width() * 0.5, slot.fusionDotY), rd, rd);
    return canvas;
}

struct SceneCase {
    const char *name;
    QSize size;
    BorderLayoutKind kind;
    double border, corner, dot; // percent
    bool useBorder, useDots;
    QSize rightSize; // empty: the left image's size
};

class OnePainter : public testing::TestWithParam<SceneCase> {};

// A gradient so that fractional sampling shows; fractional borders, corners and dots across
// every kind of edge, half-pixel positions included. Bit for bit, so a missing or extra dot, a
// gap between slots, a wrongly scaled right image or a wrong background shows as well.
TEST_P(OnePainter, ComposeMatchesOnePainter)
{
    const SceneCase &c = GetParam();
    QImage left(c.size, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < left.height(); ++y)
        for (int x = 0; x < left.width(); ++x)
            left.setPixel(x, y, qRgb(x % 256, (y * 3) % 256, (x + y) % 256));
    const QImage mirrored = left.mirrored(true, false);
    const QImage right = c.rightSize.isEmpty() ? mirrored : mirrored.scaled(c.rightSize);
    ImageBorderSettings s = example(c.kind);
    s.borderWidthPercent = c.border;
    s.cornerRadiusPercent = c.corner;
    s.fusionDotSizePercent = c.dot;
    s.useBorder = c.useBorder;
    s.useFusionDots = c.useDots;
    s.borderColor = {0.2, 0.4, 0.6, 0.8};
    const QImage image = composed(left, right, s);
    const QImage reference = onePainterReference(left, right, s);
    ASSERT_EQ(image.size(), reference.size());
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ASSERT_EQ(image.pixel(x, y), reference.pixel(x, y))
                << "first difference at " << x << "," << y << ": " << std::hex << image.pixel(x, y) << " against "
                << reference.pixel(x, y);
}

INSTANTIATE_TEST_SUITE_P(
    Scenes, OnePainter,
    testing::Values(SceneCase{"lrrl_round", {301, 97}, BorderLayoutKind::lrrl, 4.37, 7.3, 6.1, true, true, {}},
                    SceneCase{"sbs_square", {301, 97}, BorderLayoutKind::sbs, 4.37, 0, 6.1, true, true, {}},
                    SceneCase{"sbs_negative_corner_square", {120, 80}, BorderLayoutKind::sbs, 3, -5, 3, true, true, {}},
                    SceneCase{"lrl_half_pixels", {100, 61}, BorderLayoutKind::lrl, 2.5, 3.5, 5, true, true, {}},
                    SceneCase{"sbs_half_pixels_square", {100, 61}, BorderLayoutKind::sbs, 2.5, 0, 5, true, true, {}},
                    SceneCase{"lrl_whole_columns_round", {200, 97}, BorderLayoutKind::lrl, 3, 5, 4, true, true, {}},
                    SceneCase{"sbs_no_dots", {257, 130}, BorderLayoutKind::sbs, 3.07, 4, 3, true, false, {}},
                    SceneCase{"lrrl_no_border", {120, 80}, BorderLayoutKind::lrrl, 3, 10, 3, false, true, {}},
                    SceneCase{"sbs_tiny_border", {64, 48}, BorderLayoutKind::sbs, 0.3, 0.5, 20, true, true, {}},
                    SceneCase{"sbs_huge_corner", {90, 60}, BorderLayoutKind::sbs, 3, 40, 3, true, true, {}},
                    SceneCase{"sbs_scaled_right", {150, 100}, BorderLayoutKind::sbs, 3, 5, 3, true, true, {70, 40}},
                    SceneCase{"one_pixel", {1, 1}, BorderLayoutKind::lrrl, 50, 10, 30, true, true, {}}),
    [](const testing::TestParamInfo<SceneCase> &info) { return std::string(info.param.name); });

} // namespace
