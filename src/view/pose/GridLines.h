#pragma once

class bsMatrix;

/// The lines of a grid in one direction: `count` lines, the first at `first`, the next `spacing` further.
struct GridLines {
    double first = 0.0;
    double spacing = 0.0;
    int count = 0;

    [[nodiscard]] double at(int line) const { return first + line * spacing; }
};

/// The part of a grid that can be seen: a square in the plane z = 0 around the origin.
struct GridWindow {
    double halfSize = 0.0; ///< every line runs from -halfSize to halfSize
    GridLines alongY;      ///< lines of constant x
    GridLines alongX;      ///< lines of constant y
};

/// Which lines of the square grid meet the picture.
///
/// The grid's lines stand at -h, -h + spacing, ... up to h, with h the half size cut to a whole number (not
/// to a multiple of the spacing). Left out are only lines that lie outside the view volume, so the picture is
/// that of the whole grid, while the number of lines stays bounded for every half size: at most 20,001 in
/// each direction. Half sizes above 10 km count as 10 km. Numbers that are not finite and spacings that are
/// not positive give no lines.
///
/// `clipFromGrid` is projection times model-view; lengths in millimetres.
GridWindow visibleGrid(double halfSize, double spacing, const bsMatrix &clipFromGrid);
