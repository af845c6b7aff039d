#include "MainJob.h"

#include "BenchIOManager.h"
#include "BenchWindow.h"
#include "ScreenPicture.h"
#include "SimGeometry.h"
#include "WidgetEvents.h"

#include <QApplication>
#include <QDir>
#include <QTabBar>
#include <QTextStream>

#include <cmath>

namespace
{

using namespace std::chrono_literals;

constexpr auto patience = 20s;
constexpr int fineTab = 1;                // by its place: its text depends on the language
constexpr double boxStepsPerUnit = 100.0; // two decimals

double inBox(double value)
{
    return std::round(value * boxStepsPerUnit) / boxStepsPerUnit;
}

/// rx, ry and rz at the end.
std::array<double, 3> wantedDegrees(const ControllerTrafo &before)
{
    constexpr double fullTurn = 360.0;
    std::array<double, 3> degrees = SimRotation{before.rotation}.degrees();
    for (double &angle : degrees)
        angle = inBox(angle);
    degrees[2] = inBox(std::remainder(degrees[2] + MainJob::rzDegrees, fullTurn));
    return degrees;
}

double wantedX(const ControllerTrafo &before)
{
    return inBox(MainJob::xMm - before.translationMm[0]);
}

QString typed(double value)
{
    constexpr int enoughDigits = 12;
    return QString::number(value, 'g', enoughDigits);
}

QWidget *dialog()
{
    return QApplication::activeModalWidget();
}

QWidget *inDialog(const QString &name)
{
    return dialog() == nullptr ? nullptr : WidgetEvents::find(dialog(), name);
}

bool isDialogReady()
{
    return WidgetEvents::isReady(dialog());
}

QTabBar *tabBar()
{
    return dialog() == nullptr ? nullptr : dialog()->findChild<QTabBar *>();
}

bool hasFineTab()
{
    return tabBar() != nullptr && tabBar()->count() > fineTab;
}

void clickFineTab()
{
    WidgetEvents::click(tabBar(), tabBar()->tabRect(fineTab).center());
}

} // namespace

MainJob::MainJob(BenchWindow &window, BenchIOManager &channel, const QString &folder, QTextStream &out,
                 QObject *parent)
    : QObject(parent)
    , m_window(window)
    , m_channel(channel)
    , m_folder(folder)
    , m_out(out)
    , m_steps(patience)
{
    connect(&m_steps, &EventSteps::finished, this, &MainJob::conclude);
    connect(&m_steps, &EventSteps::failed, this, [this](const QString &name) {
        giveUp(QStringLiteral("This step could not be done: %1").arg(name));
    });
}

ControllerTrafo MainJob::wanted(const ControllerTrafo &before)
{
    const std::array<double, 3> degrees = wantedDegrees(before);
    ControllerTrafo trafo = before;
    trafo.rotation = SimRotation::fromDegrees(degrees[0], degrees[1], degrees[2]).rows;
    trafo.translationMm[0] = -wantedX(before);
    return trafo;
}

void MainJob::start()
{
    if (!QDir().mkpath(m_folder)) {
        giveUp(QStringLiteral("The folder %1 cannot be made.").arg(m_folder));
        return;
    }
    const auto before = ControllerTrafo::read(m_channel.link());
    if (!before) {
        giveUp(QStringLiteral("The controller does not say its extra transformation."));
        return;
    }
    m_out << QStringLiteral("The controller's extra transformation before:") << '\n'
          << before->asText() << '\n'
          << Qt::flush;
    m_wanted = wanted(*before);
    addSteps(*before);
    m_steps.start();
}

void MainJob::addSteps(const ControllerTrafo &before)
{
    addPicture(QStringLiteral("1-bench"));
    m_steps.add({QStringLiteral("press Shift+F5"), [this] { return WidgetEvents::isReady(&m_window); },
                 [this] { WidgetEvents::pressKey(&m_window, Qt::Key_F5, Qt::ShiftModifier); }});
    addPicture(QStringLiteral("2-dialog"));
    m_steps.add({QStringLiteral("choose the tab &Fine"), [] { return isDialogReady() && hasFineTab(); },
                 clickFineTab});
    addPicture(QStringLiteral("3-fine"));
    addTyping(QStringLiteral("doubleSpinBox_rz"), typed(wantedDegrees(before)[2]));
    addTyping(QStringLiteral("doubleSpinBox_x"), typed(wantedX(before)));
    addPicture(QStringLiteral("4-edited"));
    addClick(QStringLiteral("btn_apply"));
    addPicture(QStringLiteral("5-applied"));
    addClick(QStringLiteral("btn_ok"));
    m_steps.add({QStringLiteral("see the dialog closed"), [] { return dialog() == nullptr; }, [] {}});
    m_steps.add({QStringLiteral("take the last picture"), [this] { return WidgetEvents::isReady(&m_window); },
                 [this] { takePicture(QStringLiteral("6-closed")); }});
}

void MainJob::addTyping(const QString &name, const QString &text)
{
    m_steps.add({QStringLiteral("type %1 into %2").arg(text, name),
                 [name] {
                     const QWidget *editor = inDialog(name);
                     return editor != nullptr && editor->isEnabled() && isDialogReady();
                 },
                 [name, text] { WidgetEvents::type(inDialog(name), text); }});
}

void MainJob::addClick(const QString &name)
{
    m_steps.add({QStringLiteral("click %1").arg(name),
                 [name] {
                     const QWidget *button = inDialog(name);
                     return button != nullptr && button->isEnabled() && isDialogReady();
                 },
                 [name] { WidgetEvents::click(inDialog(name)); }});
}

void MainJob::addPicture(const QString &name)
{
    m_steps.add({QStringLiteral("take the picture %1").arg(name),
                 [this] { return WidgetEvents::isReady(dialog() != nullptr ? dialog() : &m_window); },
                 [this, name] { takePicture(name); }});
}

void MainJob::takePicture(const QString &name)
{
    const QString file = m_folder + QLatin1Char('/') + name + QStringLiteral(".png");
    m_arePicturesSaved = saveScreenPicture(file) && m_arePicturesSaved;
}

void MainJob::conclude()
{
    writeCalls();
    const auto after = ControllerTrafo::read(m_channel.link());
    if (!after) {
        giveUp(QStringLiteral("The controller does not say its extra transformation."));
        return;
    }
    m_out << QStringLiteral("The controller's extra transformation after:") << '\n'
          << after->asText() << '\n';
    if (!after->isNear(m_wanted)) {
        giveUp(QStringLiteral("The controller does not hold what was asked for:") + QLatin1Char('\n') +
               m_wanted.asText());
        return;
    }
    if (!m_arePicturesSaved) {
        giveUp(QStringLiteral("Not every picture could be saved in %1.").arg(m_folder));
        return;
    }
    m_out << QStringLiteral("The controller holds what was asked for. Pictures: %1").arg(m_folder) << '\n'
          << Qt::flush;
    emit finished(0);
}

void MainJob::writeCalls()
{
    m_out << QStringLiteral("Every call, in its order (number, seconds, operation, text, result, answer):")
          << '\n';
    for (const CallRecord &call : m_channel.log().calls())
        m_out << "  " << CallLog::asText(call) << '\n';
}

void MainJob::giveUp(const QString &reason)
{
    if (m_arePicturesSaved && QDir(m_folder).exists())
        takePicture(QStringLiteral("failure"));
    m_out << reason << '\n' << Qt::flush;
    emit finished(1);
}
