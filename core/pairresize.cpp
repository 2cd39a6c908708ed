// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/pairresize.h"

#include <algorithm>
#include <cmath>

#include <QPainter>

namespace Vorel {

QSizeF cropFitRegion(const QSizeF &original, int width, int height)
{
    const double target = double(width) / height;
    const double aspect = original.width() / original.height();
    return target <= aspect ? QSizeF(target * original.height(), original.height())
                            : QSizeF(original.width(), original.width() / target);
}

QSizeF letterboxFit(const QSizeF &original, int width, int height)
{
    const double aspect = original.width() / original.height();
    return double(width) / height <= aspect ? QSizeF(width, width / aspect) : QSizeF(aspect * height, height);
}

std::optional<QImage> resizeImage(const QImage &image, int width, int height, ResizeMode mode)
{
    if (image.isNull() || width < 1 || height < 1)
        return std::nullopt;
    const QSizeF original = image.size();
    switch (mode) {
    case ResizeMode::stretch:
        return image.scaled(width, height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    case ResizeMode::cropFit: {
        const QSizeF region = cropFitRegion(original, width, height);
        const QRect cut(int((original.width() - region.width()) * 0.5), int((original.height() - region.height()) * 0.5),
                        std::max(1, int(region.width())), std::max(1, int(region.height())));
        return image.copy(cut).scaled(width, height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    case ResizeMode::letterbox: {
        const QSizeF fitted = letterboxFit(original, width, height);
        const int w = std::clamp(int(std::lround(fitted.width())), 1, width);
        const int h = std::clamp(int(std::lround(fitted.height())), 1, height);
        QImage canvas(width, height, QImage::Format_RGB32);
        if (canvas.isNull())
            return std::nullopt;
        canvas.fill(Qt::black);
        QPainter painter(&canvas);
        painter.drawImage((width - w) / 2, (height - h) / 2,
                          image.scaled(w, h, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        return canvas;
    }
    }
    return std::nullopt;
}

} // namespace Vorel
