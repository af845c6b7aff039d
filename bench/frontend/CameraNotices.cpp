#include "CameraNotices.h"

#include "BenchIOManager.h"
#include "ControllerLink.h"

#include <QApplication>
#include <QMetaObject>
#include <QStringList>
#include <QWidget>

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;

namespace
{

constexpr auto lookInterval = 500ms;
constexpr int camerasPerTab = 4;
constexpr int mostCameras = 200;

constexpr auto tabSlot = "onReceiveCameraTabChanges";
constexpr auto activeSlot = "onReceiveMostActiveChanges";

bool wantsNotices(const QWidget *widget)
{
    const QMetaObject *meta = widget->metaObject();
    return widget->isVisible() && meta->indexOfSlot("onReceiveCameraTabChanges(QString)") >= 0 &&
           meta->indexOfSlot("onReceiveMostActiveChanges(QString)") >= 0;
}

QWidget *receiver()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found = std::find_if(windows.begin(), windows.end(), wantsNotices);
    return found == windows.end() ? nullptr : *found;
}

QString lastWord(ControllerLink &link, const QString &request)
{
    const LinkAnswer answer = link.ask(request.toStdString());
    return QString::fromStdString(answer.text).section(QLatin1Char(' '), -1);
}

} // namespace

CameraNotices::CameraNotices(BenchIOManager &channel, QObject *parent)
    : QObject(parent)
    , m_channel(channel)
{
    connect(&m_timer, &QTimer::timeout, this, &CameraNotices::look);
    m_timer.start(lookInterval);
}

void CameraNotices::look()
{
    QWidget *window = receiver();
    if (window == nullptr || m_channel.isBusy())
        return;
    const std::vector<double> now = progress();
    if (window != m_receiver) {
        m_receiver = window;
        m_told.clear();
        m_progress.assign(now.size(), 0.0);
        tellTabs(now.size());
    }
    const QString active = mostActive(now);
    m_progress = now;
    if (active == m_told || m_receiver.isNull())
        return;
    m_told = active;
    QMetaObject::invokeMethod(m_receiver, activeSlot, Q_ARG(QString, active));
}

std::vector<double> CameraNotices::progress() const
{
    ControllerLink &link = m_channel.link();
    const int count = lastWord(link, QStringLiteral("velmar2 get camera number_of_cameras")).toInt();
    std::vector<double> values;
    for (int i = 1; i <= std::min(count, mostCameras); ++i) {
        const QString camera = QStringLiteral("c%1").arg(i, 2, 10, QLatin1Char('0'));
        values.push_back(
            lastWord(link, QStringLiteral("velmar2 get status camera_progress ") + camera).toDouble());
    }
    return values;
}

/// Nothing when no camera has advanced, or all of them alike.
QString CameraNotices::mostActive(const std::vector<double> &now) const
{
    std::vector<double> steps = now;
    for (std::size_t i = 0; i < std::min(now.size(), m_progress.size()); ++i)
        steps[i] -= m_progress[i];
    if (steps.empty())
        return QString();
    const auto [least, most] = std::minmax_element(steps.begin(), steps.end());
    if (!(*most > 0.0) || (*most == *least && steps.size() > 1))
        return QString();
    QStringList cameras;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        if (steps[i] == *most)
            cameras.append(QString::number(i));
    }
    return cameras.join(QLatin1Char(','));
}

void CameraNotices::tellTabs(std::size_t cameras)
{
    QStringList tabs;
    for (std::size_t i = 0; i < cameras; ++i)
        tabs.append(QString::number(int(i) / camerasPerTab));
    QMetaObject::invokeMethod(m_receiver, tabSlot, Q_ARG(QString, tabs.join(QLatin1Char(','))));
}
