#include "ProgressSentences.h"

#include "CalibrationRun.h"
#include "InterfaceVersion.h"
#include "RecordingHost.h"
#include "TestRegistry.h"

#include <QLabel>
#include <QtTest>

namespace
{

struct Lines {
    QWidget window;
    QLabel info{&window};
    QLabel warning{&window};
    ProgressSentences sentences{&info, &warning};

    Lines() { window.show(); }
};

} // namespace

class ProgressSentencesTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldReplaceTheInformationByTheWarning()
    {
        Lines lines;
        lines.sentences.showCalculating();
        lines.sentences.showWarning();
        QVERIFY(lines.info.isHidden());
        QVERIFY(lines.warning.isVisible());
        QVERIFY(lines.warning.text().contains(QStringLiteral("move the wand")));
    }

    void shouldReplaceTheWarningByTheInformation()
    {
        Lines lines;
        lines.sentences.showWarning();
        lines.sentences.showCalculating();
        QVERIFY(lines.warning.isHidden());
        QVERIFY(lines.info.isVisible());
        QCOMPARE(lines.info.text(), QStringLiteral("calculating..."));
    }

    void shouldKeepTheRoomOfAHiddenSentence()
    {
        Lines lines;
        QVERIFY(lines.info.sizePolicy().retainSizeWhenHidden());
        QVERIFY(lines.warning.sizePolicy().retainSizeWhenHidden());
    }

    void shouldTellWhetherItSaysAnything()
    {
        Lines lines;
        QVERIFY(!lines.sentences.hasInfo());
        lines.sentences.showCalculating();
        QVERIFY(lines.sentences.hasInfo());
        lines.sentences.clearInfo();
        QVERIFY(!lines.sentences.hasInfo());
    }

    void shouldSayTheSameAgainAfterTheFormTookBackItsTexts()
    {
        Lines lines;
        lines.sentences.showWarning();
        const ProgressSentences::Shown shown = lines.sentences.shown();
        const QString said = lines.warning.text();
        lines.warning.clear();
        lines.sentences.renew(shown);
        QCOMPARE(lines.warning.text(), said);
        QVERIFY(lines.info.text().isEmpty());
    }

    void shouldForgetAWarningThatWasCleared()
    {
        Lines lines;
        lines.sentences.showWarning();
        lines.sentences.clearWarning();
        QVERIFY(!lines.sentences.shown().warning);
    }

    void shouldDescribeTheCalibration_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("steps");
        QTest::addColumn<QString>("expected");
        QTest::newRow("one step") << "room"
                                  << "1"
                                  << "the room";
        QTest::newRow("two steps") << "room"
                                   << "2"
                                   << "the room is a 2 step calibration.";
        QTest::newRow("reflex scan") << "reflex_scan"
                                     << "1"
                                     << "the room\nCurrently this calibration cannot be interrupted!";
    }
    void shouldDescribeTheCalibration()
    {
        QFETCH(QString, kind);
        QFETCH(QString, steps);
        QFETCH(QString, expected);
        RecordingHost host;
        const BackendVersions versions = interfaceVersion(1, 4, 0);
        host.setAnswer("cal type_desc " + kind, "\"the room\"");
        host.setAnswer("cal number_of_steps " + kind, steps.toUtf8());
        CalibrationRun run(CalibrationAccess(&host, &versions), false);
        run.prepare(kind.toUtf8());
        QCOMPARE(ProgressSentences::information(run, kind), expected);
    }
};

ROOM_TEST_CLASS(ProgressSentencesTest)
#include "ProgressSentencesTest.moc"
