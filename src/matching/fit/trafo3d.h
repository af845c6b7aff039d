#pragma once

/// The rigid transformation that carries measured points onto reference points.
///
/// Shapes: a transform T is 16 doubles, a 4x4 matrix in row order (element (r, c) at index 4r + c), last row
/// (0, 0, 0, 1). Points are triples x, y, z, one after the other. A holds the targets (reference points), B
/// the sources (measured points); A[i] belongs to B[i] and T * B[i] shall meet A[i]. Units: millimetres.
/// Failures: negative return codes; nothing is printed or thrown. State: none; every routine may be called
/// from several threads at once.

/// The start value from three pairs: pair 1 exactly, pair 2 in direction, pair 3 in the plane they span.
///
/// Shapes: A3 and B3 hold three points.   Returns 0, or -1 when a triple is degenerate: two of its points are
/// equal to the first or all three are collinear, compared with exactly zero. T_out is then left as it was.
/// The rotation is orthonormal even for triples that are collinear up to rounding.
int trafo3d_3trafo(double *T_out, const double *A3, const double *B3);

/// trafo3d_opttrafo_n with six rigid parameters; the scale is free exactly when `scale_out` is given.
int trafo3d_opttrafo(double *T_inout, double *scale_out, const double *A, const double *B, int N,
                     double *rms_out);

/// Refines T by damped Gauss-Newton steps with step halving until the root mean square of the point distances
/// changes by less than 0.001 mm.
///
/// dof: below 6 the third rotation parameter is held, 6 or more frees all six.   with_scale: not 0 frees the
/// scale as well. With 1 and a `scale_out`, the scale found (length of the first row) goes there, and all
/// twelve elements of T, its translation included, are divided by it: the scale belongs after the rigid
/// transform. rms_out: root mean square distance of T * B[i] and A[i], mm. Returns 0; -1: the linear system
/// cannot be solved (too few points, points coincide); -2: ten halvings brought no improvement; -3: not
/// settled after ten linearisations. On failure nothing is written. Heap: none for up to 50 pairs.   Source:
/// P. E. Gill, W. Murray, M. H. Wright, Practical Optimization, 4.7.
int trafo3d_opttrafo_n(double *T_inout, int dof, double *scale_out, int with_scale, const double *A,
                       const double *B, int N, double *rms_out);

/// Solves M * x = b in the least squares sense by Householder reflections.
///
/// Shapes: M has m rows and n columns, row by row; b has m values. Both are overwritten; x_out takes n
/// values. resnorm_out: the part of b that no x can reach, as a length. Returns 0; -1: more than 10 columns;
/// -2: fewer rows than columns, or a column is exactly zero when its turn comes.   Source: P. Businger, G. H.
/// Golub, Numer. Math. 7 (1965) 269.
int trafo3d_lsqsolve(double *x_out, double *b, double *M, int m, int n, double *resnorm_out);

/// Applies one parameter step to a transform: T_out = T_base with its 3x3 block turned from the right and its
/// translation moved.
///
/// step: 7 values; 0 to 2 are sines of the turns about x, y and z in units of 0.01, 3 to 5 a shift in units
/// of 0.1 mm, 6 a change of scale in units of 0.001. A sine beyond 1 gives not-a-number. T_out may be T_base.
/// Returns 0.
int trafo3d_applyparams(double *T_out, const double *T_base, const double *step);

/// P_out[i] = T * P_in[i] for N points. P_out may be P_in; nothing happens for N of 0 or below.
void trafo3d_transformpoints(double *P_out, const double *T, const double *P_in, int N);
