#pragma once

/// The fit once more, written as plainly as its description: the whole Jacobian with all its columns, point
/// by point, by forward differences. Slow, and the judge of the fast one.
///
/// Shapes, units and codes as in trafo3d.h; at most 60 pairs.
namespace LiteralFit
{

int start(double *T, const double *A3, const double *B3);
int refine(double *T, int dof, bool withScale, const double *A, const double *B, int N, double *rms);

} // namespace LiteralFit
