#include "RoomPanel.h"

#include "FakeController.h"
#include "PickByKeys.h"
#include "RoomControls.h"
#include "TestLanguage.h"
#include "TestRegistry.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QtTest>

namespace
{

template <typename Widget>
Widget *child(const RoomPanel &panel, const char *name)
{
    auto *found = panel.findChild<Widget *>(QLatin1String(name));
    Q_ASSERT(found != nullptr);
    return found;
}

QString text(const RoomPanel &panel, const char *name)
{
    return child<QLabel>(panel, name)->text();
}

void click(const RoomPanel &panel, const char *name)
{
    QTest::mouseClick(child<QAbstractButton>(panel, name), Qt::LeftButton);
}

QString inSight(const QString &x, const QString &y, const QString &z)
{
    return spoken("RoomPanel", "x %1, y %2, z %3 mm, %4").arg(x, y, z, spoken("RoomPanel", "in sight"));
}

} // namespace

class RoomPanelTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldHaveAButtonForEachPoint()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        RoomPanel panel(controls);
        const auto count = static_cast<int>(fake.room().workpiece.points.size());
        QVERIFY(count >= 3);
        QVERIFY(panel.findChild<QAbstractButton *>(QStringLiteral("pointButton%1").arg(count)) != nullptr);
        QVERIFY(panel.findChild<QAbstractButton *>(QStringLiteral("pointButton%1").arg(count + 1)) ==
                nullptr);
    }

    void shouldShowAtOnceWhereTheTouchedPointIs()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        RoomPanel panel(controls);
        click(panel, "pointButton2");
        const SimWorkpiece &workpiece = fake.room().workpiece;
        const SimVector expected = workpiece.pose * workpiece.points.at(1).nominal;
        QCOMPARE(text(panel, "xLabel"), QString::number(expected.x, 'f', 2));
        QCOMPARE(text(panel, "yLabel"), QString::number(expected.y, 'f', 2));
        QCOMPARE(text(panel, "zLabel"), QString::number(expected.z, 'f', 2));
    }

    void shouldFollowTheToolByItself()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        RoomPanel panel(controls);
        fake.room().tools.at(0).tip = {1.0, 2.0, 3.0};
        QTRY_COMPARE(text(panel, "zLabel"), QStringLiteral("3.00"));
    }

    void shouldShowThePlaceOfEveryTool()
    {
        FakeController fake;
        fake.room().tools.resize(3, fake.room().tools.at(0));
        fake.room().tools.at(1).tip = {1.5, -2.0, 3.25};
        fake.room().tools.at(2).tracked = false;
        RoomControls controls(fake.channel);
        RoomPanel panel(controls);
        QCOMPARE(text(panel, "toolLabel2"), inSight("1.50", "-2.00", "3.25"));
        QCOMPARE(text(panel, "toolLabel3"), spoken("RoomPanel", "out of sight"));
        fake.room().tools.pop_back();
        panel.showState();
        QVERIFY(panel.findChild<QLabel *>(QStringLiteral("toolLabel3")) == nullptr);
        QCOMPARE(text(panel, "toolLabel2"), inSight("1.50", "-2.00", "3.25"));
    }

    void shouldSetTheCoordinateType()
    {
        FakeController fake;
        fake.state().roomCalibration.coordinateType = "mid_camera";
        RoomControls controls(fake.channel);
        RoomPanel panel(controls);
        panel.findChild<QTabWidget *>()->setCurrentIndex(2);
        panel.show();
        QVERIFY(QTest::qWaitForWindowExposed(&panel));
        auto *box = child<QComboBox>(panel, "coordinateTypeBox");
        QCOMPARE(box->count(), 5);
        QCOMPARE(box->currentText(), QStringLiteral("mid_camera"));
        pickByKeys(box, 1);
        QCOMPARE(fake.state().roomCalibration.coordinateType, std::string("powerwall"));
        fake.state().changeable = false;
        pickByKeys(box, 0);
        QVERIFY(text(panel, "messageLabel").contains(QStringLiteral("configuration is locked")));
        QCOMPARE(box->currentText(), QStringLiteral("powerwall"));
    }

    void shouldTakeACommaForTheTremor()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        RoomPanel panel(controls);
        auto *box = child<QDoubleSpinBox>(panel, "tremorBox");
        box->selectAll();
        QTest::keyClicks(box, QStringLiteral("0,25"));
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(fake.room().tools.at(0).tremorMm, 0.25);
    }

    void shouldShowNoPlaceForALostTool()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        RoomPanel panel(controls);
        child<QCheckBox>(panel, "trackedBox")->setChecked(false);
        QCOMPARE(text(panel, "xLabel"), QStringLiteral("-"));
        QCOMPARE(text(panel, "stateLabel"), QStringLiteral("out of sight"));
    }

    void shouldSendWhatIsSet()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        RoomPanel panel(controls);
        click(panel, "toolButton");
        QVERIFY(fake.room().tools.at(0).buttons.at(0).isDown());
        click(panel, "deviceButton");
        QVERIFY(fake.room().devices.at(0).buttons.at(0).isDown());
        child<QCheckBox>(panel, "lockedBox")->setChecked(true);
        QVERIFY(!fake.state().changeable);
        child<QCheckBox>(panel, "availableBox")->setChecked(false);
        QVERIFY(!fake.state().available);
        child<QCheckBox>(panel, "angleToolBox")->setChecked(false);
        QVERIFY(!fake.room().angleTool.visible);
        click(panel, "stallButton");
        QCOMPARE(fake.controller.machine().calibration.kinds.at("room").stallSeconds, 6.0);
        click(panel, "errorButton");
        QCOMPARE(fake.controller.machine().calibration.kinds.at("room").errorFraction.value_or(0.0), 0.5);
        click(panel, "repairButton");
        QCOMPARE(fake.controller.machine().calibration.kinds.at("room").stallSeconds, 0.0);
    }

    void shouldShowWhatTheControllerStartsWith()
    {
        FakeController fake;
        fake.state().available = false;
        fake.state().changeable = false;
        fake.room().angleTool.visible = false;
        fake.room().tools.at(0).tracked = false;
        fake.room().tools.at(0).tremorMm = 2.0;
        RoomControls controls(fake.channel);
        const RoomPanel panel(controls);
        QVERIFY(!child<QCheckBox>(panel, "availableBox")->isChecked());
        QVERIFY(child<QCheckBox>(panel, "lockedBox")->isChecked());
        QVERIFY(!child<QCheckBox>(panel, "angleToolBox")->isChecked());
        QVERIFY(!child<QCheckBox>(panel, "trackedBox")->isChecked());
        QCOMPARE(child<QDoubleSpinBox>(panel, "tremorBox")->value(), 2.0);
        QCOMPARE(text(panel, "stateLabel"), QStringLiteral("out of sight"));
        QCOMPARE(fake.channel.log().rowCount(), 0);
    }

    void shouldShowWhatALineChanged()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        const RoomPanel panel(controls);
        auto *edit = child<QLineEdit>(panel, "lineEdit");
        for (const char *line :
             {"available no", "angletool visible no", "tool 1 tracked no", "tool 1 tremor 0.25"}) {
            edit->setText(QString::fromLatin1(line));
            click(panel, "sendButton");
        }
        QVERIFY(!child<QCheckBox>(panel, "availableBox")->isChecked());
        QVERIFY(!child<QCheckBox>(panel, "angleToolBox")->isChecked());
        QVERIFY(!child<QCheckBox>(panel, "trackedBox")->isChecked());
        QCOMPARE(child<QDoubleSpinBox>(panel, "tremorBox")->value(), 0.25);
        QCOMPARE(fake.channel.log().rowCount(), 4);
        edit->setText(QStringLiteral("available yes"));
        click(panel, "sendButton");
        QVERIFY(child<QCheckBox>(panel, "availableBox")->isChecked());
    }

    void shouldSetTheVersionThatIsTyped()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        RoomPanel panel(controls);
        auto *box = child<QComboBox>(panel, "versionBox");
        QCOMPARE(box->currentText(), QStringLiteral("1.23"));
        box->lineEdit()->selectAll();
        QTest::keyClicks(box->lineEdit(), QStringLiteral("0.16.1"));
        QTest::keyClick(box->lineEdit(), Qt::Key_Return);
        QCOMPARE(fake.state().versionMinor, 16);
        QCOMPARE(fake.state().versionThird, 1);
    }

    void shouldExplainAVersionThatIsNone()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        RoomPanel panel(controls);
        auto *box = child<QComboBox>(panel, "versionBox");
        box->lineEdit()->selectAll();
        QTest::keyClicks(box->lineEdit(), QStringLiteral("new"));
        QTest::keyClick(box->lineEdit(), Qt::Key_Return);
        QVERIFY(text(panel, "messageLabel").contains(QStringLiteral("1.24")));
        QCOMPARE(fake.state().versionMinor, 23);
    }

    void shouldSendAnyLineAndShowItsAnswer()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        RoomPanel panel(controls);
        auto *edit = child<QLineEdit>(panel, "lineEdit");
        QTest::keyClicks(edit, QStringLiteral("tool 1 tip 7 8 9"));
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(text(panel, "answerLabel"), QStringLiteral("sim ok"));
        QCOMPARE(fake.room().tools.at(0).tip.y, 8.0);
        edit->setText(QStringLiteral("nonsense"));
        click(panel, "sendButton");
        QVERIFY(text(panel, "answerLabel").startsWith(QStringLiteral("sim err")));
        QVERIFY(text(panel, "messageLabel").contains(QStringLiteral("nonsense")));
    }

    /// A line and its answer may look like formatted text.
    void shouldShowWhatTheControllerSaysAsItIs()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        RoomPanel panel(controls);
        child<QLineEdit>(panel, "lineEdit")->setText(QStringLiteral("<b>nonsense</b>"));
        click(panel, "sendButton");
        QVERIFY(text(panel, "messageLabel").contains(QStringLiteral("<b>nonsense</b>")));
        for (const char *label : {"messageLabel", "answerLabel"})
            QCOMPARE(child<QLabel>(panel, label)->textFormat(), Qt::PlainText);
    }

    void shouldMakeCallsFail()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        RoomPanel panel(controls);
        click(panel, "callButton");
        std::array<char, 256> answer = {};
        QVERIFY(fake.channel.getParameter(answer.data(), "status active") != 0);
        QCOMPARE(fake.channel.getParameter(answer.data(), "status active"), 0);
        click(panel, "lostButton");
        QVERIFY(fake.channel.getParameter(answer.data(), "status active") != 0);
    }

    void shouldSuggestACallThatCanFail()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        RoomPanel panel(controls);
        auto *edit = child<QLineEdit>(panel, "callTextEdit");
        edit->setText(edit->placeholderText());
        click(panel, "callButton");
        QCOMPARE(fake.channel.faults().pending().size(), std::size_t(1));
        QVERIFY(fake.channel.setParameter("tracking extra_rotation 1 0 0 0 1 0 0 0 1") != 0);
        QVERIFY(fake.channel.faults().pending().empty());
    }

    void shouldBeReachableByKeysAlone()
    {
        FakeController fake;
        RoomControls controls(fake.channel);
        RoomPanel panel(controls);
        panel.show();
        QVERIFY(QTest::qWaitForWindowExposed(&panel));
        panel.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&panel));
        QTest::keyClick(panel.windowHandle(), Qt::Key_3, Qt::AltModifier);
        const SimWorkpiece &workpiece = fake.room().workpiece;
        QTRY_COMPARE(fake.room().tools.at(0).tip.x, (workpiece.pose * workpiece.points.at(2).nominal).x);
        QTest::keyClick(panel.windowHandle(), Qt::Key_P, Qt::AltModifier);
        QTRY_VERIFY(fake.room().tools.at(0).buttons.at(0).isDown());
        QTest::keyClick(panel.windowHandle(), Qt::Key_C, Qt::AltModifier);
        QTRY_VERIFY(child<QComboBox>(panel, "versionBox")->isVisible());
    }
};

ROOM_TEST_CLASS(RoomPanelTest)

#include "RoomPanelTest.moc"
