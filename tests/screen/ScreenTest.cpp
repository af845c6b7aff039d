#include "ScreenUser.h"

#include "TestRegistry.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

namespace
{

const QString mainDialog = QStringLiteral("Room Adjustment");
const QString angleTool = QStringLiteral("Adjust Room Coordinates To Angle Tool");
const QString matching = QStringLiteral("Room Adjustment Based On Reference Points");

const QString fineTab = QStringLiteral("F5");
const QString next = QStringLiteral("Tab");
const QString back = QStringLiteral("shift+Tab");
const QString push = QStringLiteral("space");
const QString open = QStringLiteral("shift+F5");

} // namespace

/// Each way to adjust the room, with keys that take the way of a real keyboard.
class ScreenTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldAdjustFinely()
    {
        ScreenUser user;
        QVERIFY(user.pressUntil(open, mainDialog));
        user.press({fineTab}); // x is ready to be typed over
        user.type(QStringLiteral("250"));
        // From y back over x and the tabs to Cancel and Apply.
        user.press({next, back, back, back, back, push});
        QVERIFY(user.waitForValue(QStringLiteral("tracking extra_translation"),
                                  QStringLiteral("-250.000 0.000 0.000")));
        QVERIFY(user.waitForValue(QStringLiteral("status active"), QStringLiteral("mea")));
    }

    void shouldAdjustCoarsely()
    {
        ScreenUser user;
        QVERIFY(user.pressUntil(open, mainDialog));
        // From the camera table to the upper axis: from z one up to -y, then back over the tabs to Apply.
        user.press({next, QStringLiteral("Up"), back, back, back, back, push});
        QVERIFY(user.waitForValue(QStringLiteral("tracking extra_rotation"),
                                  QStringLiteral("1.00000000 0.00000000 0.00000000 0.00000000 0.00000000 "
                                                 "1.00000000 0.00000000 -1.00000000 0.00000000")));
    }

    void shouldCalibrateWithTheAngleTool()
    {
        ScreenUser user;
        QCOMPARE(user.ask(QStringLiteral("sim clock query 2")), QStringLiteral("sim ok"));
        QVERIFY(user.pressUntil(open, mainDialog));
        QVERIFY(user.pressUntil(QStringLiteral("alt+a"), angleTool));
        user.press({QStringLiteral("alt+c")});
        QVERIFY(user.waitForWindow(QStringLiteral("Calibration successful")));
        user.press({push});
        QVERIFY(user.waitForWindow(mainDialog));
        QVERIFY(user.waitForValue(QStringLiteral("roomcal last_coordinate_type"), QStringLiteral("normal")));
        QVERIFY(user.waitForValue(QStringLiteral("roomcal duration"), QStringLiteral("30.0")));
    }

    void shouldMatchReferencePoints()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("workpiece.txt"));
        ScreenUser user;
        QVERIFY(writeNominalPoints(user, file));
        QVERIFY(user.pressUntil(open, mainDialog));
        user.press({fineTab});
        QVERIFY(user.pressUntil(QStringLiteral("alt+s"), matching));
        user.press({QStringLiteral("alt+l")});
        QVERIFY(user.waitForWindow(QStringLiteral("Open reference points file...")));
        user.type(file);
        user.press({QStringLiteral("Return")});
        QVERIFY(user.waitForWindow(matching));
        for (int point = 1; point <= pointCount; ++point)
            QVERIFY(measure(user, point));
        // From the reference points back over Cancel to Apply, once the bench has seen the tool at rest.
        const double ended = controllerSeconds(user);
        QTRY_VERIFY(controllerSeconds(user) > ended + 0.5);
        user.press({back, back, push});
        QVERIFY(user.waitForWindow(mainDialog));
        // On the other tab the keyboard is where it was, in the camera table: back over tabs and Cancel to
        // Apply.
        user.press({fineTab, back, back, back, push});
        for (int point = 1; point <= pointCount; ++point)
            QTRY_VERIFY(isReportedAtItsPlace(user, point));
    }

private:
    static constexpr int pointCount = 6;
    static constexpr int patienceMs = 60000;

    /// The workpiece's nominal points, a line each: number x y z.
    static bool writeNominalPoints(ScreenUser &user, const QString &name)
    {
        QFile file(name);
        if (!file.open(QIODevice::WriteOnly))
            return false;
        for (int point = 1; point <= pointCount; ++point)
            file.write((QString::number(point) + QLatin1Char(' ') +
                        nominal(user, point).join(QLatin1Char(' ')) + QLatin1Char('\n'))
                           .toLatin1());
        return true;
    }

    static QStringList nominal(ScreenUser &user, int point)
    {
        return coordinates(user, QStringLiteral("sim get point %1").arg(point));
    }

    /// The three numbers behind a question about a point.
    static QStringList coordinates(ScreenUser &user, const QString &question)
    {
        return user.ask(question).mid(question.size() + 1).split(QLatin1Char(' ')).mid(0, 3);
    }

    /// Touches a point and presses the key of "Measure" until its button has taken it.
    static bool measure(ScreenUser &user, int point)
    {
        user.ask(QStringLiteral("sim tool 1 touch %1").arg(point));
        const auto begins = [&user] {
            user.press({QStringLiteral("alt+m")});
            return isMeasuring(user);
        };
        return QTest::qWaitFor(begins, patienceMs) &&
               QTest::qWaitFor([&] { return !isMeasuring(user); }, patienceMs);
    }

    static bool isMeasuring(ScreenUser &user)
    {
        constexpr int measuringWord = 8;
        return user.ask(QStringLiteral("sim get tool 1")).split(QLatin1Char(' ')).value(measuringWord) ==
               QLatin1String("yes");
    }

    static double controllerSeconds(ScreenUser &user)
    {
        return user.ask(QStringLiteral("sim get time")).section(QLatin1Char(' '), -1).toDouble();
    }

    /// Whether the controller reports a point of the workpiece where it is to be, within half a millimetre.
    static bool isReportedAtItsPlace(ScreenUser &user, int point)
    {
        const QStringList reported =
            coordinates(user, QStringLiteral("sim get reported_point %1").arg(point));
        const QStringList wanted = nominal(user, point);
        bool isNear = reported.size() == 3;
        for (int i = 0; isNear && i < 3; ++i)
            isNear = std::abs(reported.at(i).toDouble() - wanted.at(i).toDouble()) < 0.5;
        return isNear;
    }
};

ROOM_TEST_CLASS(ScreenTest)

#include "ScreenTest.moc"
