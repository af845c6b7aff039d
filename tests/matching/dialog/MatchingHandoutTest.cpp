#include "FileChoice.h"
#include "LargeDisplay.h"
#include "MeasuringSounds.h"
#include "OpenedDialog.h"
#include "PointFilePrompt.h"
#include "TestRegistry.h"

#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>

namespace
{

const MatchingPoints corners{{0, 0, 0}, {500, 0, 0}, {0, 300, 0}};

/// The corners, entered and measured one after the other where they are, but for a shift along z.
void matchCorners(OpenedDialog &opened)
{
    for (const MatchingPoint &corner : corners)
        opened.addReference(corner);
    for (const MatchingPoint &corner : corners)
        opened.measure({corner[0], corner[1], corner[2] + 20.5});
}

} // namespace

class MatchingHandoutTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { MeasuringSounds::turnOn(true); }

    void shouldHandOutTheReportOfAResultByKeysAlone()
    {
        const QTemporaryDir folder;
        const QString name = folder.filePath(QStringLiteral("job.txt"));
        FileChoice choice(name);
        PointFilePrompt::forgetFolder();
        OpenedDialog opened;
        RoomTrafoData before;
        before.translation = {1, 2, 3};
        opened.dialog().tellModuleVersion(QStringLiteral("v9"));
        opened.dialog().tellRoom(before, 1.02);
        opened.run([&] {
            QVERIFY(!opened.isEnabled("pushButton_saveReport"));
            QVERIFY(!opened.isEnabled("pushButton_copyReport"));
            opened.find<QCheckBox>("w_orderCheckBox")->setChecked(true);
            matchCorners(opened);
            opened.press(&opened.dialog(), Qt::Key_Y, Qt::AltModifier);
            QTRY_VERIFY(opened.notice().startsWith(QStringLiteral("The report is copied.")));
            opened.answers().then(std::ref(choice));
            opened.press(&opened.dialog(), Qt::Key_O, Qt::AltModifier);
            QTRY_VERIFY(opened.notice().startsWith(QStringLiteral("The report is saved")));
            const QStringList calls = opened.host().calls();
            QVERIFY(calls.filter(QStringLiteral("write")).isEmpty());
        });
        QFile file(name);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QStringList saved = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
        for (const char *line : {"Module version: v9", "Measurement tool: M1", "3 0 300 20.5", "2 2 0",
                                 "Order of the points: preserved", "Translation in mm: 0.000 0.000 -20.500",
                                 "Translation in mm: 1.000 2.000 3.000", "Scaling: 1.02000"})
            QVERIFY2(saved.contains(QLatin1String(line)), line);
        QVERIFY(saved.filter(QStringLiteral("The scaling 1.02000 of the room stays in force")).size() == 1);
        QStringList copied = QGuiApplication::clipboard()->text().split(QLatin1Char('\n'));
        QCOMPARE(copied.size(), saved.size());
        copied[1] = saved[1]; // the time
        QCOMPARE(copied, saved);
    }

    void shouldForgetWhatWasHandedOutWhenTheResultIsAnotherOne()
    {
        OpenedDialog opened;
        opened.run([&] {
            matchCorners(opened);
            opened.click("pushButton_copyReport");
            QCOMPARE(opened.notice(), QStringLiteral("The report is copied."));
            opened.click("pushButton_addRefPoint");
            QVERIFY(!opened.notice().contains(QStringLiteral("copied")));
            QVERIFY(!opened.isEnabled("pushButton_copyReport"));
        });
    }

    void shouldShowTheMeasurementLargeByKeysAlone()
    {
        OpenedDialog opened;
        opened.run([&] {
            auto *display = opened.find<LargeDisplay>("w_largeDisplay");
            QVERIFY(!display->isVisible());
            opened.press(&opened.dialog(), Qt::Key_G, Qt::AltModifier);
            QTRY_VERIFY(display->isVisible());
            opened.addReference(corners[0]);
            opened.addReference(corners[1]);
            QCOMPARE(display->text(), QStringLiteral("0 of 2 points measured"));
            opened.frame(1.0, true, {0, 0, 0.0});
            opened.frame(1.5, true, {0, 0, 0.2});
            QCOMPARE(display->text(), QStringLiteral("Point 1 of 2: 50 %"));
            opened.frame(2.0, true, {0, 0, 0.0});
            opened.frame(2.2, true, {0, 0, 0.2});
            opened.frame(2.3, false, {0, 0, 0});
            QCOMPARE(display->text(), QStringLiteral("Point 1 of 2: 0.10 mm"));
            QEvent change(QEvent::LanguageChange);
            QCoreApplication::sendEvent(&opened.dialog(), &change);
            QCOMPARE(display->text(), QStringLiteral("Point 1 of 2: 0.10 mm"));
            opened.frame(10.0, true, {0, 0, 0});
            opened.frame(10.5, true, {0, 0, 0});
            opened.frame(10.6, false, {0, 0, 0});
            QCOMPARE(display->text(), QStringLiteral("Point 2 of 2: failed"));
            opened.find<QTableWidget>("tableWidget_measuredPoints")->selectRow(0);
            opened.find<QCheckBox>("w_replaceCheckBox")->setChecked(true);
            opened.measure({0, 0, 0});
            QCOMPARE(display->text(), QStringLiteral("Point 1 of 2: 0.00 mm"));
        });
    }

    void shouldSignalPointsAndFailures()
    {
        OpenedDialog opened;
        const QSignalSpy beeps(opened.dialog().findChild<MeasuringSounds *>(), &MeasuringSounds::beep);
        opened.run([&] {
            opened.measure({0, 0, 0});
            QCOMPARE(beeps.count(), 1);
            opened.frame(10.0, true, {0, 0, 0});
            opened.frame(10.5, true, {0, 0, 0});
            opened.frame(10.6, false, {0, 0, 0});
            QTRY_COMPARE(beeps.count(), 3);
            opened.press(&opened.dialog(), Qt::Key_D, Qt::AltModifier);
            QTRY_VERIFY(!opened.find<QCheckBox>("checkBox_sounds")->isChecked());
            opened.measure({0, 0, 0});
            QCOMPARE(beeps.count(), 3);
        });
        OpenedDialog next;
        QVERIFY(!next.find<QCheckBox>("checkBox_sounds")->isChecked());
    }

    void shouldKeepItsButtonsInsideASmallScreenWithTheLargeDisplay()
    {
        OpenedDialog opened;
        opened.run([&] {
            opened.click("checkBox_largeDisplay");
            // Half of 1920 x 1080 without what window managers put around a window.
            QTRY_VERIFY(opened.dialog().minimumSizeHint().height() <= 500);
            QVERIFY(opened.dialog().minimumSizeHint().width() <= 940);
        });
    }
};

ROOM_TEST_CLASS(MatchingHandoutTest)

#include "MatchingHandoutTest.moc"
