#pragma once

#include "CallLog.h"
#include "Journeys.h"

#include <QMap>
#include <QStringList>

#include <functional>
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

    /// The same without a fault, but the host ends the module inside the call of this index.
    static SweptRun endInside(const Journey &journey, std::size_t call);

    std::vector<SweptCall> calls;
    QStringList stuck;
    int keepsakes = 0; ///< how many things were entered and looked for again
    QStringList lost;
    int subscriptions = 0;
    bool opensAgain = false; ///< the next opening, without a fault, can be adjusted
    QMap<QString, QString> stateBefore;
    QMap<QString, QString> stateAfter;

private:
    void begin(const Journey &journey, ModuleHost &host);
    void travel(const Journey &journey, ModuleHost &host, const std::function<void()> &afterCall);
    void finish(ModuleHost &host);
};
