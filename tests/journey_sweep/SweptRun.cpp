#include "SweptRun.h"

#include <QObject>

namespace
{

bool isAsked(const CallRecord &call)
{
    return call.operation.rfind("get", 0) == 0 || call.operation == "sendCommand" ||
           call.operation == "setParameter";
}

/// What stays in the controller when the module is closed.
QMap<QString, QString> stateOf(ModuleHost &host)
{
    QMap<QString, QString> state;
    const auto take = [&](const char *name, const char *parameter) {
        const QByteArray question = QByteArray("velmar2 get ") + parameter;
        state[QString::fromLatin1(name)] = host.ask(question.constData()).mid(question.size() + 1);
    };
    take("activity", "status active");
    take("extra rotation", "tracking extra_rotation");
    take("extra translation", "tracking extra_translation");
    take("extra scaling", "tracking extra_scaling");
    take("reference target", "tracking reference");
    take("calibration duration", "roomcal duration");
    take("room calibration", "roomcal last_coordinate_type");
    return state;
}

} // namespace

SweptRun SweptRun::go(const Journey &journey, const QString &fault)
{
    SweptRun run;
    ModuleHost host;
    journey.prepare(host);
    run.stateBefore = stateOf(host);
    run.travel(journey, host, fault);
    host.channel.faults().clear();
    run.stateAfter = stateOf(host);
    run.subscriptions = static_cast<int>(host.channel.subscriptionCount());
    Traveller next(host);
    next.open([&] { run.opensAgain = next.isEnabled("tabWidget") && next.isEnabled("btn_ok"); });
    return run;
}

void SweptRun::travel(const Journey &journey, ModuleHost &host, const QString &fault)
{
    Traveller traveller(host);
    const auto note = [&](const CallRecord &call) {
        if (isAsked(call))
            calls.push_back({call, traveller.stage(), {}});
        else if (call.operation == "reportError" && !calls.empty())
            calls.back().reports << QString::fromStdString(call.text);
    };
    QObject::connect(&host.channel, &BenchIOManager::called, &traveller.guide(), note);
    if (!fault.isEmpty())
        host.control(fault);
    journey.go(traveller, lost);
    boxes = traveller.guide().boxes();
    stuck = traveller.guide().stuck();
}
