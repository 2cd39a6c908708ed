// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// MPO (multi-picture JPEG) reading: the MP index of the APP2 "MPF" segment and the
// first two pictures as the left and right view.
#pragma once

#include <utility>

#include <QImage>
#include <QString>

namespace Vorel {

class MpoError {
public:
    enum Code { invalidFile = 0, extractionFailed = 1 };

    explicit MpoError(Code code) : errorCode(code) {}
    static constexpr const char *domain = "MPOError";
    Code code() const { return errorCode; }
    QString description() const;

private:
    Code errorCode;
};

// Picture 0 is the left view, picture 1 the right; no orientation correction.
std::pair<QImage, QImage> extractMPO(const QString &path);

} // namespace Vorel
