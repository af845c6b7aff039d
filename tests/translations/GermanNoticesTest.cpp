#include "BuiltFiles.h"
#include "FitTrust.h"
#include "MatchingEvaluation.h"
#include "MatchingReport.h"
#include "PointNotices.h"
#include "ReferenceGeometry.h"
#include "RoomChange.h"
#include "RoomChangeText.h"
#include "SetHints.h"
#include "TestRegistry.h"

#include <QTranslator>
#include <QtTest>

#include <functional>

using Sentence = std::function<QString()>;
Q_DECLARE_METATYPE(Sentence)

namespace
{

QString ofLists(const std::function<void(SetHints &, ReferenceGeometry &)> &change)
{
    SetHints hints;
    ReferenceGeometry geometry;
    change(hints, geometry);
    return PointNotices::ofLists(hints, geometry);
}

QString ofResult(double rmsMm, bool otherOrderFits)
{
    MatchingEvaluation evaluation;
    evaluation.rmsMm = rmsMm;
    evaluation.otherOrderFits = otherOrderFits;
    return PointNotices::ofResult(evaluation, 1.5);
}

FitTrust trust()
{
    FitTrust trust;
    trust.withoutWorst = FitTrust::WithoutWorst{3, 0.02, false};
    trust.expected = FitTrust::Expected{0.04, 0.12, {400.0, -250.0, 0.0}};
    return trust;
}

QString ofChange()
{
    RoomChange change;
    change.movedMm = 250.0;
    change.turnedDegrees = 10.0;
    change.axis = {0, 0, 1};
    return RoomChangeText::of(change);
}

} // namespace

/// What is told of points, results and changes, in German: the numbers keep their points.
class GermanNoticesTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldTellWhatToDoInGerman_data()
    {
        QTest::addColumn<Sentence>("sentence");
        QTest::addColumn<QString>("part");
        const auto row = [](const char *name, const Sentence &sentence, const char *part) {
            QTest::newRow(name) << sentence << QString::fromUtf8(part);
        };
        row(
            "count", [] { return MatchingReport::measuredOf(3, 6); }, "3 von 6 Punkten gemessen");
        row(
            "line", [] { return ofLists([](SetHints &, ReferenceGeometry &g) { g.nearlyOnLine = true; }); },
            "Fügen Sie einen Punkt neben der Geraden hinzu");
        row(
            "first three",
            [] { return ofLists([](SetHints &, ReferenceGeometry &g) { g.firstThreeNearlyOnLine = true; }); },
            "Die ersten drei Referenzpunkte");
        row(
            "equal rows",
            [] {
                return ofLists([](SetHints &, ReferenceGeometry &g) {
                    g.coinciding = ClosestPair{1, 3, 0.0};
                });
            },
            "Die Referenzpunkte 2 und 4");
        row(
            "misfit", [] { return ofResult(1.6, false); }, "Spitzentoleranz des Werkzeugs, 1.5 mm");
        row(
            "other order", [] { return ofResult(0.0, true); }, "andere Reihenfolge");
        row(
            "worst point", [] { return PointNotices::ofWorst(trust(), 0.03); },
            "Restfehler ohne Punkt 4: 0.02 mm.");
        row(
            "expected errors", [] { return PointNotices::ofExpected(trust()); },
            "0.04 mm in der Mitte der Referenzpunkte, 0.12 mm an der Ecke");
        row(
            "scaling", [] { return PointNotices::ofScaling(1.02); }, "Die Skalierung 1.02000 des Raums gilt");
        row("change", ofChange, "250.000 mm");
    }

    void shouldTellWhatToDoInGerman()
    {
        QFETCH(Sentence, sentence);
        QFETCH(QString, part);
        const QString english = sentence();
        QVERIFY(!english.isEmpty());
        QTranslator german;
        QVERIFY(german.load(QStringLiteral("room_adjustment_de"), BuiltFiles::translations()));
        QVERIFY(QCoreApplication::installTranslator(&german));
        QVERIFY(sentence() != english);
        QVERIFY2(sentence().contains(part), qPrintable(sentence()));
    }
};

ROOM_TEST_CLASS(GermanNoticesTest)

#include "GermanNoticesTest.moc"
