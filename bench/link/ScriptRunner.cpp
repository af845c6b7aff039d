#include "ScriptRunner.h"

#include "BenchIOManager.h"
#include "ControllerLink.h"
#include "SimAnswer.h"
#include "SimLimits.h"
#include "TextFile.h"
#include "TipRecorder.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTextStream>
#include <QTimer>

#include <cmath>

namespace
{

constexpr double frameRate = 60.0;
constexpr qint64 longestScript = 10000000;

QString rest(const QString &line, const char *word)
{
    const QString lead = QLatin1String(word) + QLatin1Char(' ');
    return line.startsWith(lead) ? line.mid(lead.size()) : QString();
}

bool isSeconds(const QString &text, double perUnit, double *seconds)
{
    bool isNumber = false;
    *seconds = text.toDouble(&isNumber) * perUnit;
    return isNumber && *seconds >= 0.0 && *seconds <= SimLimits::longestWaitSeconds;
}

} // namespace

ScriptRunner::ScriptRunner(BenchIOManager &channel)
    : m_channel(channel)
{
}

bool ScriptRunner::run(const QString &line)
{
    m_error.clear();
    double seconds = 0.0;
    if (line.trimmed().isEmpty() || line.startsWith(QLatin1Char('#')))
        return true;
    if (line.startsWith(QLatin1String("sim ")))
        return control(line);
    if (line.startsWith(QLatin1String("velmar2 ")))
        return request(line);
    if (line.startsWith(QLatin1String("expect ")))
        return expect(rest(line, "expect"));
    if (line.startsWith(QLatin1String("expect-near tool ")))
        return expectNear(rest(line, "expect-near tool"));
    if (isSeconds(rest(line, "wait"), 1.0, &seconds) ||
        isSeconds(rest(line, "frames"), 1.0 / frameRate, &seconds))
        return pass(seconds);
    if (line.startsWith(QLatin1String("log save ")))
        return saveLog(rest(line, "log save"));
    return fail(QStringLiteral("unknown line"));
}

bool ScriptRunner::runFile(const QString &file)
{
    QString reason;
    const std::optional<QByteArray> text = readText(file, longestScript + 1, &reason);
    if (!text)
        return fail(QStringLiteral("%1: %2").arg(file, reason));
    if (text->size() > longestScript)
        return fail(QStringLiteral("%1: larger than %2 bytes").arg(file).arg(longestScript));
    QTextStream stream(*text);
    stream.setCodec("UTF-8");
    for (int number = 1; !stream.atEnd(); ++number) {
        const QString line = stream.readLine();
        if (!run(line))
            return fail(QStringLiteral("%1:%2: %3: %4").arg(file).arg(number).arg(line, m_error));
    }
    return true;
}

bool ScriptRunner::request(const QString &line)
{
    const LinkAnswer answer = m_channel.link().ask(line.toStdString());
    m_lastAnswer = answer.text;
    return answer.arrived || fail(QString::fromStdString(answer.text));
}

bool ScriptRunner::control(const QString &line)
{
    m_lastAnswer = m_channel.control(line.toStdString());
    return !SimAnswer::isControlError(m_lastAnswer) || fail(QString::fromStdString(m_lastAnswer));
}

bool ScriptRunner::expect(const QString &answer)
{
    if (answer.toStdString() == m_lastAnswer)
        return true;
    return fail(QStringLiteral("the answer was: %1").arg(QString::fromStdString(m_lastAnswer)));
}

bool ScriptRunner::expectNear(const QString &line)
{
    const QStringList words = line.split(QLatin1Char(' '));
    QVector<double> numbers;
    for (const QString &word : words) {
        bool isNumber = false;
        numbers << word.toDouble(&isNumber);
        if (!isNumber)
            return fail(QStringLiteral("expected a number: %1").arg(word));
    }
    if (numbers.size() != 5)
        return fail(QStringLiteral("expected: N X Y Z TOL"));
    constexpr int samples = 60;
    TipRecorder recorder(m_channel, static_cast<int>(numbers[0]));
    for (int turn = 0; turn < 3 && recorder.count() < samples; ++turn)
        pass((samples - recorder.count()) / frameRate);
    if (recorder.count() < samples)
        return fail(QStringLiteral("only %1 positions were reported").arg(recorder.count()));
    const SimVector mean = recorder.mean();
    const double distance = length(mean - SimVector{numbers[1], numbers[2], numbers[3]});
    return distance <= numbers[4] || fail(QStringLiteral("the mean is (%1, %2, %3), %4 mm away")
                                              .arg(mean.x, 0, 'f', 3)
                                              .arg(mean.y, 0, 'f', 3)
                                              .arg(mean.z, 0, 'f', 3)
                                              .arg(distance, 0, 'f', 3));
}

bool ScriptRunner::pass(double seconds)
{
    ControllerLink &link = m_channel.link();
    const LinkAnswer clock = link.ask("sim get clock");
    if (!clock.arrived)
        return fail(QString::fromStdString(clock.text));
    if (clock.text == "sim get clock real") {
        QEventLoop loop;
        QTimer::singleShot(static_cast<int>(std::lround(seconds * 1000.0)), Qt::PreciseTimer, &loop,
                           &QEventLoop::quit);
        loop.exec();
        return true;
    }
    link.ask("sim wait " + QString::number(seconds, 'f', 6).toStdString());
    QCoreApplication::processEvents();
    return true;
}

bool ScriptRunner::saveLog(const QString &file)
{
    const std::optional<QString> reason = saveText(file, m_channel.log().asText().toUtf8());
    return !reason || fail(QStringLiteral("%1: %2").arg(file, *reason));
}

bool ScriptRunner::fail(const QString &error)
{
    m_error = error;
    return false;
}
