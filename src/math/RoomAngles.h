#pragma once

#include <array>

class bsMatrix;

/// The three rotation angles of the room in degrees: rx (eta), ry (theta), rz (phi).
///
/// They stand for the rotation Rx(eta) * Ry(theta) * Rz(phi).
struct RoomAngles {
    double eta = 0.0;
    double theta = 0.0;
    double phi = 0.0;
};

/// Exact comparison.
bool operator==(const RoomAngles &a, const RoomAngles &b);
bool operator!=(const RoomAngles &a, const RoomAngles &b);

/// The rotation of three angles in degrees, in the upper 3x3 of the result.
bsMatrix rotationFromAngles(double eta, double theta, double phi);
bsMatrix rotationFromAngles(const RoomAngles &angles);

/// The angles of a rotation that is given row by row: eta and phi in [-180, 180], theta in [-90, 90].
///
/// A half turn is +180. In gimbal lock (exact tests, so snap first) phi is 0 and eta holds the whole turn.
/// The sine of theta is clamped to [-1, 1]; values that are not finite give angles that are not finite.
RoomAngles anglesFromRotation(const std::array<double, 9> &rows);

/// The angles to show to the user and to preview: one consistent triple, of a snapped copy, with 0 for each
/// that is not finite.
///
/// Where theta is nearly a quarter turn, eta and phi come from small numbers, whose noise would turn them
/// against each other if they were read one by one. Here phi is what is left of the rotation once eta and
/// theta are taken out, so that the rotation of the three angles is the given one however far the noise
/// carries eta; theta is read from sine and cosine. In exact arithmetic all three are those of
/// anglesFromRotation(). In gimbal lock phi is 0 and eta holds the whole turn; what the controller would be
/// told as 0, with its eight decimals, counts as 0 for that, so that before writing the lock is seen where it
/// is seen after reading back.
RoomAngles displayedAngles(const std::array<double, 9> &rows);

/// The upper 3x3 row by row, as the controller reads and writes it.
std::array<double, 9> controllerRows(const bsMatrix &matrix);

/// The matrix whose upper 3x3 was given row by row; translation 0.
bsMatrix rotationFromControllerRows(const std::array<double, 9> &rows);
