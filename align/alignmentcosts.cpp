// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Four candidates share one vector: each lane runs the scalar arithmetic of its candidate
// in the scalar order (no fused multiply-add), so results do not depend on the instruction
// set. Cloned for AVX2 and the baseline.
#include "align/alignmentcosts.h"
#include "align/avx2clones.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace Vorel {

namespace {

constexpr int lanes = 4;
using DoubleVec = double __attribute__((vector_size(lanes * sizeof(double))));
using MaskVec = uint64_t __attribute__((vector_size(lanes * sizeof(uint64_t))));

// Vectors pass by reference: by-value returns would differ between the two clones' ABIs.
inline void magnitude(DoubleVec &v)
{
    v = reinterpret_cast<DoubleVec>(reinterpret_cast<MaskVec>(v) & 0x7FFFFFFFFFFFFFFFull);
}

VOREL_AVX2_CLONES void costBatch(CostModel model, const InlierCoordinates &p, double focal, const double *a,
    const double *b, const double *d, const double *e, double *cost)
{
    DoubleVec va, vb, vd, ve;
    std::memcpy(&va, a, sizeof va);
    std::memcpy(&vb, b, sizeof vb);
    std::memcpy(&vd, d, sizeof vd);
    std::memcpy(&ve, e, sizeof ve);
    DoubleVec sum = {};
    const size_t n = p.x1.size();
    for (size_t i = 0; i < n; ++i) {
        const double x1 = p.x1[i], y1 = p.y1[i], x2 = p.x2[i], y2 = p.y2[i];
        DoubleVec diff = {};
        switch (model) {
        case CostModel::rotation:
            diff = (x2 * vd + y2 * ve) - (x1 * va + y1 * vb);
            break;
        case CostModel::scale:
            diff = y2 * vd - y1 * va;
            break;
        case CostModel::verticalTilt:
            diff = focal * y2 * ve / (focal + y2 * vd) - focal * y1 * vb / (focal + y1 * va);
            break;
        case CostModel::horizontalTilt:
            diff = focal * y2 * ve / (focal + x2 * vd) - focal * y1 * vb / (focal + x1 * va);
            break;
        }
        magnitude(diff);
        sum += diff;
    }
    std::memcpy(cost, &sum, sizeof sum);
}

} // namespace

void searchCosts(CostModel model, const InlierCoordinates &points, double focal, const std::vector<double> &a,
                 const std::vector<double> &b, const std::vector<double> &d, const std::vector<double> &e,
                 std::vector<double> &cost)
{
    const size_t n = a.size();
    cost.assign(n, 0);
    // Pad to whole vectors by repeating the last candidate.
    const size_t padded = (n + lanes - 1) / lanes * lanes;
    auto pad = [&](const std::vector<double> &v) {
        std::vector<double> out(v);
        out.resize(padded, v.empty() ? 0 : v.back());
        return out;
    };
    const std::vector<double> pa = pad(a), pb = pad(b), pd = pad(d), pe = pad(e);
    std::vector<double> padCost(padded);
    for (size_t c = 0; c < padded; c += lanes)
        costBatch(model, points, focal, pa.data() + c, pb.data() + c, pd.data() + c, pe.data() + c,
                  padCost.data() + c);
    std::copy_n(padCost.begin(), n, cost.begin());
}

} // namespace Vorel
