// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "plainloops.h"

#include <algorithm>

namespace Vorel::Bench {

namespace {

inline uint32_t toByte(float v) { return static_cast<uint32_t>(std::clamp(static_cast<int>(v), 0, 255)); }

inline uint32_t pack(uint32_t r, uint32_t g, uint32_t b) { return 0xff000000u | r << 16 | g << 8 | b; }

} // namespace

void plainAnaglyphLoop(const uint32_t *first, const uint32_t *second, uint32_t *out, int64_t count, int kind)
{
    constexpr float m[3][6] = {{0.4561f, 0.500484f, 0.176381f, -0.0434706f, -0.0879388f, -0.00155529f},
                               {-0.0400822f, -0.0378246f, -0.0157589f, 0.378476f, 0.73364f, -0.0184503f},
                               {-0.0152161f, -0.0205971f, -0.00546856f, -0.0721527f, -0.112961f, 1.2264f}};
    if (kind == 1) {
        for (int64_t i = 0; i < count; ++i)
            out[i] = (first[i] & 0xffff0000u) | (second[i] & 0x0000ffffu) | 0xff000000u;
    } else if (kind == 2) {
        for (int64_t i = 0; i < count; ++i) {
            const uint32_t p = first[i], q = second[i];
            const float v[6] = {float(p >> 16 & 255) / 255.0f, float(p >> 8 & 255) / 255.0f,
                                float(p & 255) / 255.0f,       float(q >> 16 & 255) / 255.0f,
                                float(q >> 8 & 255) / 255.0f,  float(q & 255) / 255.0f};
            uint32_t c[3];
            for (int k = 0; k < 3; ++k) {
                const float sum = m[k][0] * v[0] + m[k][1] * v[1] + m[k][2] * v[2] + m[k][3] * v[3] +
                                  m[k][4] * v[4] + m[k][5] * v[5];
                c[k] = toByte(sum * 255.0f + 0.5f);
            }
            out[i] = pack(c[0], c[1], c[2]);
        }
    } else {
        auto gray = [](uint32_t p) {
            return toByte(0.299f * float(p >> 16 & 255) + 0.587f * float(p >> 8 & 255) + 0.114f * float(p & 255));
        };
        for (int64_t i = 0; i < count; ++i) {
            const uint32_t g = gray(second[i]);
            out[i] = pack(gray(first[i]), g, g);
        }
    }
}

} // namespace Vorel::Bench
