#pragma once

#include <QColor>

/// How the view draws a room: its size unit, its long axes and its three grid planes.
struct RoomDisplay {
    double unitSize = 5.0; ///< millimetres per drawing unit
    bool longAxes = false;
    double longAxesFactor = 10.0;
    bool showXY = false;
    bool showYZ = false;
    bool showXZ = false;
    double gridExtent = 5000.0; ///< half size of a grid in drawing units
    double gridSpacing = 100.0; ///< millimetres
    QColor xyColor = QColor(255, 255, 0);
    QColor yzColor = QColor(0, 255, 255);
    QColor xzColor = QColor(255, 0, 255);
};
