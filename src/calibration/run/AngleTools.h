#pragma once

#include <QString>
#include <QStringList>

/// The geometry of an angle tool: an L-shaped frame with four markers. All in millimetres.
struct AngleTool {
    double distanceA = 0.0; ///< marker 1 to marker 2
    double distanceB = 0.0; ///< marker 1 to marker 4
    double distanceC = 0.0; ///< marker 1 to marker 3
    double height = 0.0;    ///< the markers' centres above the floor
};

bool operator==(const AngleTool &one, const AngleTool &other);

/// The angle tool models that are offered.
namespace AngleTools
{

/// In the order in which they are offered.
QStringList names();

/// The model whose values the user enters.
QString expertName();

/// The values of a model; an unknown name has those of the expert model.
AngleTool named(const QString &name);

/// Only the expert model may be edited; an unknown name counts as it.
bool isEditable(const QString &name);

/// The first model with exactly these values, the expert model when there is none.
QString nameOf(const AngleTool &tool);

} // namespace AngleTools
