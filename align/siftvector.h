// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Eight-lane float vectors (GCC vector extensions) for the per-pixel loops of the keypoint
// search. Every lane performs the scalar operations in the scalar order (no fused
// multiply-add), so results do not depend on the instruction set. Functions using them are
// cloned for AVX2 and the baseline (VOREL_AVX2_CLONES); both clones give identical bits.
#pragma once

#include <cstdint>
#include <cstring>

namespace Vorel::SiftVector {

constexpr int lanes = 8;
using FloatVec = float __attribute__((vector_size(lanes * sizeof(float))));
using IntVec = int32_t __attribute__((vector_size(lanes * sizeof(int32_t))));
using UintVec = uint32_t __attribute__((vector_size(lanes * sizeof(uint32_t))));

// Vectors pass by reference: returning them by value from a function compiled without AVX
// would change the calling convention between the two clones.
inline void load(FloatVec &v, const float *p) { std::memcpy(&v, p, sizeof v); }
inline void store(float *p, const FloatVec &v) { std::memcpy(p, &v, sizeof v); }
inline void store(int32_t *p, const IntVec &v) { std::memcpy(p, &v, sizeof v); }

inline void absolute(FloatVec &out, const FloatVec &v)
{
    out = reinterpret_cast<FloatVec>(reinterpret_cast<UintVec>(v) & 0x7FFFFFFFu);
}

// floor(x) for |x| < 2^31, exactly: truncation, one less where it rounded up.
inline void floorOf(FloatVec &out, const FloatVec &x)
{
    const FloatVec t = __builtin_convertvector(__builtin_convertvector(x, IntVec), FloatVec);
    out = t > x ? t - 1.0f : t;
}

} // namespace Vorel::SiftVector
