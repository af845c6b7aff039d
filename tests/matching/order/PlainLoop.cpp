#include "PlainLoop.h"

#include "trafo3d.h"

#include <algorithm>
#include <cmath>
#include <numeric>

PlainLoop::PlainLoop(const MatchingPoints &references, const MatchingPoints &measured)
{
    const std::size_t count = references.size();
    std::vector<int> permutation(count);
    std::iota(permutation.begin(), permutation.end(), 0);
    MatchingPoints ordered(count);
    std::vector<double> residuals;
    do {
        for (std::size_t i = 0; i < count; ++i)
            ordered[i] = measured[static_cast<std::size_t>(permutation[i])];
        double transform[16];
        double rms = -7.0;
        const double *A = references.front().data(), *B = ordered.front().data();
        if (trafo3d_3trafo(transform, A, B) != 0)
            continue;
        if (trafo3d_opttrafo(transform, nullptr, A, B, static_cast<int>(count), &rms) != 0)
            continue;
        residuals.push_back(rms);
        if (!found || best > rms) {
            found = true;
            best = static_cast<float>(rms);
            order = permutation;
        }
    } while (std::next_permutation(permutation.begin(), permutation.end()));
    const double kept = static_cast<double>(best);
    const double limit = std::max(1.02 * kept, kept + 0.05);
    rivalExists =
        std::count_if(residuals.begin(), residuals.end(), [limit](double rms) { return rms <= limit; }) > 1;
}
