#include "RecordingHost.h"

#include "FormattedText.h"
#include "Requester.h"

#include <algorithm>
#include <cstring>

namespace
{

QString parameterName(const QString &text)
{
    return text.section(QLatin1Char(' '), 0, 1);
}

} // namespace

RecordingHost::RecordingHost()
{
    setAnswer(QStringLiteral("status active"), "none");
    setAnswer(QStringLiteral("tracking available"), "yes");
    setAnswer(QStringLiteral("config is_changeable"), "yes");
    setAnswer(QStringLiteral("camera number_of_cameras"), "4");
    for (int i = 1; i <= 4; ++i) {
        const QString camera = QStringLiteral("c%1").arg(i, 2, 10, QLatin1Char('0'));
        setAnswer(QStringLiteral("tracking room ") + camera,
                  QByteArray::number(1000 * i) + ".5 -20.25 2500 1 0 0 0 1 0 0 0 1");
        setAnswer(QStringLiteral("tracking has_room ") + camera, "yes");
    }
    setAnswer(QStringLiteral("tracking extra_rotation"), "1 0 0 0 1 0 0 0 1");
    setAnswer(QStringLiteral("tracking extra_translation"), "0 0 0");
    setAnswer(QStringLiteral("tracking extra_scaling"), "1");
    setAnswer(QStringLiteral("tracking reference"), "none");
    setAnswer(QStringLiteral("roomcal coordinate_type"), "normal");
    setAnswer(QStringLiteral("roomcal last_coordinate_type"), "none");
    setAnswer(QStringLiteral("measurementtool available"), "yes");
    setAnswer(QStringLiteral("measurementtool number_of_tools"), "1");
    setAnswer(QStringLiteral("measurementtool tip_calibrated b01"), "yes");
    setAnswer(QStringLiteral("measurementtool measurement_duration b01"), "1.0");
    setAnswer(QStringLiteral("measurementtool measurement_tip_tolerance b01"), "1.5");
}

void RecordingHost::setAnswer(const QString &text, const QByteArray &answer)
{
    m_answers.insert(text, answer);
}

QByteArray RecordingHost::answer(const QString &text) const
{
    return m_answers.value(text);
}

void RecordingHost::failText(const QString &beginning)
{
    m_failing.append(beginning);
}

void RecordingHost::succeedText(const QString &beginning)
{
    m_failing.removeAll(beginning);
}

void RecordingHost::failCall(int k)
{
    m_failCall = k;
}

void RecordingHost::failFrom(int k)
{
    m_failFrom = k;
}

QStringList RecordingHost::callsOf(const QStringList &operations) const
{
    QStringList found;
    std::copy_if(m_calls.begin(), m_calls.end(), std::back_inserter(found), [&](const QString &line) {
        return operations.contains(line.section(QLatin1Char(' '), 0, 0));
    });
    return found;
}

QStringList RecordingHost::reports() const
{
    QStringList found = callsOf({QStringLiteral("report")});
    for (QString &line : found)
        line.remove(0, int(std::strlen("report ")));
    return found;
}

void RecordingHost::clear()
{
    m_calls.clear();
    m_formats.clear();
    m_count = 0;
}

int RecordingHost::deliver(const QByteArray &kind, const QByteArray &record)
{
    int result = 0;
    const auto subscriptions = m_subscriptions;
    for (const auto &entry : subscriptions) {
        if (entry.first == kind && m_subscriptions.contains(entry))
            result = entry.second->dataReceived(entry.first.constData(), record.constData());
    }
    return result;
}

bool RecordingHost::mustFail(const QString &text) const
{
    if (m_count == m_failCall || (m_failFrom > 0 && m_count >= m_failFrom))
        return true;
    return std::any_of(m_failing.begin(), m_failing.end(),
                       [&](const QString &beginning) { return text.startsWith(beginning); });
}

int RecordingHost::begin(const QString &operation, const char *format, const QString &text)
{
    m_calls.append(operation + QLatin1Char(' ') + text);
    m_formats.append(QString::fromLatin1(format));
    ++m_count;
    const bool fails = mustFail(text);
    if (m_hook)
        m_hook(operation + QLatin1Char(' ') + text);
    return fails ? m_failureCode : 0;
}

std::optional<QByteArray> RecordingHost::read(const char *format, const std::string &formatted, int *result)
{
    const QString text = QString::fromLatin1(formatted.c_str());
    *result = begin(QStringLiteral("read"), format, text);
    return *result != 0 ? std::nullopt : std::make_optional(m_answers.value(text));
}

int RecordingHost::sendCommand(char *answer, const char *format, ...)
{
    FORMATTED_TEXT(formatted, format);
    const QString text = QString::fromLatin1(formatted.c_str());
    const int result = begin(QStringLiteral("command"), format, text);
    if (result != 0) {
        std::strcpy(answer, "velmar2 err 1 \"refused\"");
        return result;
    }
    const QByteArray reply = m_answers.value(text);
    std::strcpy(answer, reply.isEmpty() ? "velmar2 ok" : reply.constData());
    if (text == QLatin1String("velmar2 tracking start"))
        setAnswer(QStringLiteral("status active"), "mea");
    if (text == QLatin1String("velmar2 tracking stop"))
        setAnswer(QStringLiteral("status active"), "none");
    return 0;
}

int RecordingHost::getParameter(char *value, const char *format, ...)
{
    FORMATTED_TEXT(name, format);
    int result = 0;
    std::strcpy(value,
                read(format, name, &result).value_or("velmar2 err 2 \"unknown parameter\"").constData());
    return result;
}

int RecordingHost::getParameterInt(int *value, const char *format, ...)
{
    FORMATTED_TEXT(name, format);
    int result = 0;
    const std::optional<QByteArray> answer = read(format, name, &result);
    *value = answer ? answer->toInt() : -7777;
    return result;
}

int RecordingHost::getParameterDouble(double *value, const char *format, ...)
{
    FORMATTED_TEXT(name, format);
    int result = 0;
    const std::optional<QByteArray> answer = read(format, name, &result);
    *value = answer ? answer->toDouble() : -7777.0;
    return result;
}

int RecordingHost::getParameterBool(bool *value, const char *format, ...)
{
    FORMATTED_TEXT(name, format);
    int result = 0;
    *value = read(format, name, &result).value_or("yes") == "yes";
    return result;
}

int RecordingHost::getParameterDoubles(double *numbers, int count, const char *format, ...)
{
    FORMATTED_TEXT(name, format);
    int result = 0;
    const std::optional<QByteArray> answer = read(format, name, &result);
    const QList<QByteArray> words = answer.value_or(QByteArray()).split(' ');
    for (int i = 0; i < count; ++i)
        numbers[i] = answer ? words.value(i).toDouble() : -7777.0;
    return result;
}

int RecordingHost::setParameter(const char *format, ...)
{
    FORMATTED_TEXT(formatted, format);
    const QString text = QString::fromLatin1(formatted.c_str());
    const int result = begin(QStringLiteral("write"), format, text);
    if (result == 0)
        setAnswer(parameterName(text), text.section(QLatin1Char(' '), 2).toLatin1());
    return result;
}

void RecordingHost::beginSubscription(const QString &line)
{
    m_calls.append(line);
    if (m_subscriptionHook)
        m_subscriptionHook(line);
}

void RecordingHost::addRequester(const char *kind, Requester *requester)
{
    beginSubscription(QStringLiteral("subscribe ") + QString::fromLatin1(kind));
    m_subscriptions.append({kind, requester});
}

void RecordingHost::removeRequester(const char *kind, Requester *requester)
{
    beginSubscription(QStringLiteral("unsubscribe ") + QString::fromLatin1(kind));
    m_subscriptions.removeOne({kind, requester});
}

void RecordingHost::releaseRequester(Requester *requester)
{
    beginSubscription(QStringLiteral("release"));
    m_subscriptions.erase(std::remove_if(m_subscriptions.begin(), m_subscriptions.end(),
                                         [&](const auto &entry) { return entry.second == requester; }),
                          m_subscriptions.end());
}

void RecordingHost::reportError(const char *category, const char *backend, int level, const char *message)
{
    const bool asAgreed =
        std::strcmp(category, "standard") == 0 && std::strcmp(backend, "VELMAR3") == 0 && level == 1;
    const QString line = QStringLiteral("report ") + QString::fromLatin1(message);
    m_calls.append(asAgreed ? line : line + QStringLiteral(" [wrong category, backend or level]"));
}

void RecordingHost::reserved1()
{
    m_calls.append(QStringLiteral("reserved 1"));
}

void RecordingHost::reserved2()
{
    m_calls.append(QStringLiteral("reserved 2"));
}

void RecordingHost::reserved3()
{
    m_calls.append(QStringLiteral("reserved 3"));
}

void RecordingHost::reserved5()
{
    m_calls.append(QStringLiteral("reserved 5"));
}

void RecordingHost::reserved11()
{
    m_calls.append(QStringLiteral("reserved 11"));
}

void RecordingHost::reserved15()
{
    m_calls.append(QStringLiteral("reserved 15"));
}
