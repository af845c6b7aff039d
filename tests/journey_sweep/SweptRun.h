#pragma once

#include "CallLog.h"
#include "Journeys.h"

#include <QMap>
#include <QStringList>

#include <vector>

/// A call to the controller, with what its user had done last and what was reported right after it.
struct SweptCall {
    CallRecord call;
    QString stage;
    QStringList reports;
};

/// One journey, with or without a fault, and what became of it.
struct SweptRun {
    /// Goes the journey with this fault line ("sim fault ...", or none) on a host and a controller of its
    /// own.
    static SweptRun go(const Journey &journey, const QString &fault);

    std::vector<SweptCall> calls;
    QStringList boxes;
    QStringList stuck;
    QStringList lost;
    int subscriptions = 0;
    bool opensAgain = false; ///< the next opening, without a fault, can be adjusted
    QMap<QString, QString> stateBefore;
    QMap<QString, QString> stateAfter;

private:
    void travel(const Journey &journey, ModuleHost &host, const QString &fault);
};
