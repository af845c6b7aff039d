#include "ScreenUser.h"

#include "BuiltFiles.h"

#include <QElapsedTimer>
#include <QtTest>

namespace
{

constexpr int patienceMs = 60000;
constexpr int pauseMs = 50;
constexpr int againMs = 1000;
const QString keyDelayMs = QStringLiteral("25");

} // namespace

ScreenUser::ScreenUser()
{
    const auto address = RemoteController::parseAddress(m_controller.address());
    if (address)
        m_link = std::make_unique<RemoteController>(address->first, address->second);
    if (m_link)
        m_link->open();
    m_bench.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_bench.start(BuiltFiles::bench(), {QStringLiteral("--plugin"), BuiltFiles::module(),
                                        QStringLiteral("--controller"), m_controller.address()});
    m_bench.waitForStarted();
}

ScreenUser::~ScreenUser()
{
    m_bench.kill();
    m_bench.waitForFinished();
}

QString ScreenUser::output(const QStringList &arguments)
{
    QProcess xdotool;
    xdotool.start(QStringLiteral("xdotool"), arguments);
    xdotool.waitForFinished();
    return QString::fromUtf8(xdotool.readAllStandardOutput()).trimmed();
}

QString ScreenUser::focusedWindow()
{
    return output({QStringLiteral("getwindowfocus"), QStringLiteral("getwindowname")});
}

void ScreenUser::press(const QStringList &keys)
{
    output(QStringList{QStringLiteral("key"), QStringLiteral("--delay"), keyDelayMs} + keys);
}

void ScreenUser::type(const QString &text)
{
    output({QStringLiteral("type"), QStringLiteral("--delay"), keyDelayMs, text});
}

bool ScreenUser::pressUntil(const QString &key, const QString &title)
{
    QElapsedTimer total;
    total.start();
    while (total.elapsed() < patienceMs) {
        press({key});
        if (QTest::qWaitFor([&] { return focusedWindow() == title; }, againMs))
            return true;
    }
    return false;
}

bool ScreenUser::waitForWindow(const QString &title)
{
    const bool isThere = QTest::qWaitFor([&] { return focusedWindow() == title; }, patienceMs);
    if (!isThere)
        qWarning("on top is: %s", qPrintable(focusedWindow()));
    return isThere;
}

QString ScreenUser::ask(const QString &line)
{
    return m_link ? QString::fromStdString(m_link->ask(line.toStdString()).text) : QString();
}

bool ScreenUser::waitForValue(const QString &parameter, const QString &value)
{
    const QString question = QStringLiteral("velmar2 get ") + parameter;
    const QString wanted = question + QLatin1Char(' ') + value;
    const bool isThere = QTest::qWaitFor(
        [&] {
            QTest::qWait(pauseMs);
            return ask(question) == wanted;
        },
        patienceMs);
    if (!isThere)
        qWarning("%s", qPrintable(ask(question)));
    return isThere;
}
