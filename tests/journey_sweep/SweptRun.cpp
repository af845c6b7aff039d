#include "SweptRun.h"

#include "ModuleInterface.h"

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
    run.begin(journey, host);
    if (!fault.isEmpty())
        host.control(fault);
    run.travel(journey, host, [] {});
    run.finish(host);
    return run;
}

SweptRun SweptRun::endInside(const Journey &journey, std::size_t call)
{
    SweptRun run;
    ModuleHost host;
    run.begin(journey, host);
    run.travel(journey, host, [&] {
        if (run.calls.size() != call + 1)
            return;
        host.module()->releaseRequests();
        host.module()->unload();
    });
    run.finish(host);
    return run;
}

void SweptRun::begin(const Journey &journey, ModuleHost &host)
{
    journey.prepare(host);
    stateBefore = stateOf(host);
}

void SweptRun::travel(const Journey &journey, ModuleHost &host, const std::function<void()> &afterCall)
{
    Traveller traveller(host);
    const auto note = [&](const CallRecord &call) {
        if (!isAsked(call)) {
            if (call.operation == "reportError" && !calls.empty())
                calls.back().reports << QString::fromStdString(call.text);
            return;
        }
        calls.push_back({call, traveller.stage(), {}});
        afterCall();
    };
    QObject::connect(&host.channel, &BenchIOManager::called, &traveller.guide(), note);
    Keepsakes kept;
    journey.go(traveller, kept);
    keepsakes = kept.names().size();
    lost = kept.lost();
    stuck = traveller.guide().stuck();
}

void SweptRun::finish(ModuleHost &host)
{
    host.channel.faults().clear();
    stateAfter = stateOf(host);
    subscriptions = static_cast<int>(host.channel.subscriptionCount());
    Traveller next(host);
    next.open([&] { opensAgain = next.isEnabled("tabWidget") && next.isEnabled("btn_ok"); });
}
