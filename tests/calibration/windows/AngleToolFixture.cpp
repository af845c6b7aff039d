#include "AngleToolFixture.h"

#include "CalibrationProgressDlg.h"

#include <QLabel>
#include <QTimer>
#include <QtTest>

using namespace std::chrono_literals;

AngleToolFixture::AngleToolFixture(CalibrationBench *bench, QWidget *parent)
    : AdjustToToolDlg(&bench->host, &bench->versions, parent)
    , m_bench(bench)
{
    // The progress dialog is made anew for each calibration.
    connect(&m_hurry, &QTimer::timeout, this, [this] {
        auto *progress = findChild<CalibrationProgressDlg *>();
        if (progress == nullptr || progress == m_hurried || !progress->isVisible())
            return;
        m_hurried = progress;
        progress->setPollInterval(1ms);
    });
    m_hurry.start(1ms);
}

QDoubleSpinBox *AngleToolFixture::spinBox(const char *name) const
{
    return findChild<QDoubleSpinBox *>(QLatin1String(name));
}

QComboBox *AngleToolFixture::models() const
{
    return findChild<QComboBox *>(QStringLiteral("comboBox_md"));
}

QComboBox *AngleToolFixture::types() const
{
    return findChild<QComboBox *>(QStringLiteral("comboBox_coordinateSystem"));
}

QPushButton *AngleToolFixture::button(const char *name) const
{
    return findChild<QPushButton *>(QLatin1String(name));
}

QString AngleToolFixture::text(const char *label) const
{
    return findChild<QLabel *>(QLatin1String(label))->text();
}

QList<double> AngleToolFixture::values() const
{
    QList<double> list;
    for (const char *name : {"doubleSpinBox_a", "doubleSpinBox_b", "doubleSpinBox_c", "doubleSpinBox_height"})
        list.append(spinBox(name)->value());
    return list;
}

int AngleToolFixture::openAnd(const std::function<void()> &action)
{
    QTimer::singleShot(0, this, [this, action] {
        action();
        m_wasOpenAfterwards = isVisible();
        if (m_wasOpenAfterwards)
            on_pushButton_exit_clicked();
    });
    return openAndExec();
}

int AngleToolFixture::openAndCalibrate()
{
    return openAnd([this] {
        m_bench->host.clear();
        QTest::mouseClick(button("pushButton_calibrate"), Qt::LeftButton);
    });
}

void setUpAngleTool(CalibrationBench *bench)
{
    bench->set("roomcal number_of_available_coordinate_types", "5");
    bench->set("roomcal available_coordinate_type t01", "normal");
    bench->set("roomcal available_coordinate_type t02", "powerwall");
    bench->set("roomcal available_coordinate_type t03", "powerwall_standing");
    bench->set("roomcal available_coordinate_type t04", "mid_camera");
    bench->set("roomcal available_coordinate_type t05", "first_camera");
    bench->set("roomcal available_coordinate_type_desc normal", "\"Normal (z axis up)\"");
    bench->set("roomcal available_coordinate_type_desc powerwall", "Power\"wall\"");
    bench->set("roomcal available_coordinate_type_desc powerwall_standing", "\"Standing\"");
    bench->set("roomcal angle", "278.000 83.000 163.000");
    bench->set("roomcal angle_height", "55.000");
    bench->set("roomcal coordinate_type", "powerwall");
    bench->set("roomcal duration", "12.5");
}

void endSecondPollWith(CalibrationBench *bench, const QByteArray &activity)
{
    auto polls = std::make_shared<int>(-1);
    bench->host.onCall([=](const QString &line) {
        if (line == QLatin1String("command velmar2 cal room start")) {
            bench->set("status active", "cal");
            *polls = 0;
        } else if (*polls >= 0 && line == QLatin1String("read status active") && ++*polls == 2) {
            bench->set("status active", activity);
        }
    });
}

QStringList openingCalls()
{
    return lines(
        {"read roomcal number_of_available_coordinate_types", "read roomcal available_coordinate_type t01",
         "read roomcal available_coordinate_type_desc normal", "read roomcal available_coordinate_type t02",
         "read roomcal available_coordinate_type_desc powerwall",
         "read roomcal available_coordinate_type t03",
         "read roomcal available_coordinate_type_desc powerwall_standing",
         "read roomcal available_coordinate_type t04", "read roomcal available_coordinate_type t05",
         "read roomcal angle", "read roomcal angle_height", "read roomcal coordinate_type"});
}

QStringList setUpCalls()
{
    return lines({"write roomcal type angle_no_wand", "write roomcal angle 278.000 83.000 163.000",
                  "write roomcal angle_height 55.000", "read roomcal duration", "write roomcal duration 5.0",
                  "write roomcal coordinate_type powerwall", "report calibration started"});
}

QStringList progressCalls()
{
    return lines({"read cal type_desc room", "read cal number_of_steps room", "read cal step_pause room s01",
                  "read camera number_of_cameras", "command velmar2 get camera camera c01",
                  "command velmar2 get camera camera c02", "read status active",
                  "command velmar2 cal room start", "read status active", "read status progress",
                  "read status step_progress", "read cal step_duration room s01", "read status active"});
}

QStringList restartCalls()
{
    return lines({"read status active", "read tracking available", "command velmar2 tracking start"});
}
