#include "CalibrationBench.h"

#include "InterfaceVersion.h"

CalibrationBench::CalibrationBench(int major, int minor, int patch)
    : versions(interfaceVersion(major, minor, patch))
{
    set("camera number_of_cameras", "2");
    set("velmar2 get camera camera c01", "velmar2 get camera camera c01 bench_cam 00028");
    set("velmar2 get camera camera c02", "velmar2 get camera camera c02 bench_cam 00029");
    set("velmar2 get status camera_progress c01", "velmar2 get status camera_progress c01 0.35");
    set("velmar2 get status camera_progress c02", "velmar2 get status camera_progress c02 1.00");
    set("cal type_desc room", "\"room calibration\"");
    set("cal type_desc reflex_scan", "\"reflex scan\"");
    set("cal number_of_steps room", "1");
    set("cal number_of_steps reflex_scan", "1");
    set("cal step_pause room s01", "no");
    set("cal step_pause reflex_scan s01", "no");
    set("cal step_duration room s01", "5.000");
    set("cal step_duration reflex_scan s01", "5.000");
    set("status progress", "0.35");
    set("status step_progress", "1 0.35");
    set("status step_active", "cal 1");
}

void CalibrationBench::set(const char *text, const QByteArray &answer)
{
    host.setAnswer(QString::fromLatin1(text), answer);
}

void CalibrationBench::setTwoSteps(const QByteArray &firstPause, const QByteArray &secondPause)
{
    set("cal number_of_steps room", "2");
    set("velmar2 get cal step_pause room s01", "velmar2 get cal step_pause room s01 " + firstPause);
    set("velmar2 get cal step_pause room s02", "velmar2 get cal step_pause room s02 " + secondPause);
}

QStringList lines(std::initializer_list<const char *> texts)
{
    QStringList list;
    for (const char *text : texts)
        list.append(QString::fromLatin1(text));
    return list;
}
