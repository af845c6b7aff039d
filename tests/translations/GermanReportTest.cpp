#include "BuiltFiles.h"
#include "JobRecord.h"
#include "JobReport.h"
#include "TestRegistry.h"

#include <QTranslator>
#include <QtTest>

/// What is handed out, in German: the numbers keep their points.
class GermanReportTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldKeepItsNumbersInAnotherLanguage()
    {
        QTranslator german;
        QVERIFY(german.load(QStringLiteral("room_adjustment_de"), BuiltFiles::translations()));
        QVERIFY(QCoreApplication::installTranslator(&german));
        JobRecord record;
        record.conditions = {1, 0.5, 1.5};
        record.references = {{0.5, 1, 2}};
        record.evaluation.rmsMm = 0.25;
        const QStringList lines = JobReport::of(record).split(QLatin1Char('\n'));
        QCOMPARE(lines.first(), QStringLiteral("Raumjustierung anhand von Referenzpunkten"));
        for (const char *line : {"Messwerkzeug: M1", "Dauer einer Messung: 0.5 s", "Spitzentoleranz: 1.5 mm",
                                 "1 0.5 1 2", "Restfehler: 0.25 mm", "Translation in mm: 0.000 0.000 0.000",
                                 "Skalierung: 1.00000", "Hinweise: keine"})
            QVERIFY2(lines.contains(QLatin1String(line)), line);
    }
};

ROOM_TEST_CLASS(GermanReportTest)

#include "GermanReportTest.moc"
