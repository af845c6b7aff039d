#include "HostileAnswers.h"

#include <QStringList>

#include <climits>
#include <limits>

namespace
{

constexpr int longestAnswer = 1000;

const QStringList activities{"none", "mea", "cal", "err", "other"};
const QStringList types{"normal", "powerwall", "mid_camera", "none", "first_camera"};
const QStringList steps{"cal 1", "cal 2", "none", "err", "pause 1"};
const QStringList records{
    "fr 12",
    "ts 1234.5",
    "6dmt2 1 1 [0 1.000 1][1.0 2.0 3.0][1 0 0 0 1 0 0 0 1] 4 1 1 0 0",
    "6dmt 1 [0 1.000 3 1.5][10.0 20.0 30.0][1 0 0 0 1 0 0 0 1]",
    "6df2 1 1 [0 1.000 2 1][1 2 3][1 0 0 0 1 0 0 0 1][1 0.5]",
    "6dmt2 99999999 [",
    "6df 2 [0 nan 7][inf -inf 1e400][",
};

} // namespace

int HostileAnswers::upTo(int count)
{
    return int(m_random() % unsigned(count));
}

QByteArray HostileAnswers::garbage()
{
    QByteArray bytes(upTo(onceIn(10) ? longestAnswer : 40), '\0');
    for (char &byte : bytes)
        byte = char(upTo(256));
    return bytes;
}

QByteArray HostileAnswers::sensible(const QString &question)
{
    const auto oneOf = [this](const QStringList &list) { return list.at(upTo(list.size())).toLatin1(); };
    if (question.startsWith(QLatin1String("status step_active")))
        return oneOf(steps);
    if (question.startsWith(QLatin1String("status active")))
        return oneOf(activities);
    if (question.contains(QLatin1String("coordinate_type")))
        return oneOf(types);
    if (question.startsWith(QLatin1String("tracking extra_rotation")))
        return "0 1 0 -1 0 0 0 0 1";
    if (question.startsWith(QLatin1String("tracking extra")) || question.contains(QLatin1String("room c")))
        return "1.5 -20 30 1 0 0 0 1 0 0 0 1";
    if (question.startsWith(QLatin1String("velmar2 get")))
        return question.toLatin1() + " yes 1 \"a text\"";
    return question.startsWith(QLatin1String("velmar2")) ? "velmar2 ok" : "yes";
}

QByteArray HostileAnswers::text(const QString &question)
{
    return onceIn(4) ? garbage() : sensible(question);
}

int HostileAnswers::wholeNumber()
{
    constexpr int extremes[] = {0, -1, INT_MIN, INT_MAX};
    return onceIn(8) ? extremes[upTo(4)] : 1 + upTo(4);
}

double HostileAnswers::number()
{
    constexpr double extremes[] = {0.0,
                                   -1.0,
                                   1e308,
                                   -1e-308,
                                   std::numeric_limits<double>::infinity(),
                                   std::numeric_limits<double>::quiet_NaN()};
    return onceIn(4) ? extremes[upTo(6)] : upTo(1000) / 500.0;
}

QByteArray HostileAnswers::record()
{
    QByteArray line = records.at(upTo(records.size())).toLatin1();
    if (onceIn(4))
        line.truncate(upTo(line.size() + 1));
    return onceIn(8) ? line + garbage() : line;
}
