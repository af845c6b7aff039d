#pragma once

#include "MatchingEvaluation.h"
#include "MatchingPoint.h"
#include "MeasuringConditions.h"
#include "RoomTrafoData.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

/// What an adjustment by reference points leaves for the records of the job.
struct JobRecord {
    QDateTime time;
    QString moduleVersion;
    MeasuringConditions conditions; ///< of the last point
    MatchingPoints references;
    MatchingPoints measured;
    MatchingEvaluation::Order order = MatchingEvaluation::Order::Searched;
    MatchingEvaluation evaluation; ///< of these points; a matching that succeeded
    double scaling = 1.0;          ///< which stays in force
    RoomTrafoData before;          ///< what the controller held when the matching began
    QStringList notices; ///< what was told of the points and the result, in the language of the report
};
