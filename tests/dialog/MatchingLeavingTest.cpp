#include "DialogFixture.h"
#include "TestRegistry.h"

#include <QApplication>
#include <QTimer>
#include <QtTest>

namespace
{

const QStringList restored{
    QStringLiteral("write tracking reference body b03"),
    QStringLiteral("write tracking extra_rotation 1.00000000 0.00000000 0.00000000 0.00000000 1.00000000 "
                   "0.00000000 0.00000000 0.00000000 1.00000000"),
    QStringLiteral("write tracking extra_translation 10.000 0.000 0.000"),
    QStringLiteral("write tracking extra_scaling 1.00000"),
};

/// A dialog whose matching window is open, on a controller with an adjustment and a reference target. `leave`
/// is what happens then.
void matchAndLeave(DialogFixture &f, const std::function<void(QWidget *matching)> &leave)
{
    f.host.setAnswer(QStringLiteral("tracking extra_translation"), "10 0 0");
    f.host.setAnswer(QStringLiteral("tracking reference"), "body b03");
    f.answer.then([&f](QWidget *) {
        f.selectTab(1);
        f.click("w_bodyMatchingButton");
    });
    f.answer.then([&f, leave](QWidget *matching) {
        f.host.clear();
        leave(matching);
    });
}

void compareWithEverythingRestored(DialogFixture &f)
{
    QCOMPARE(f.answer.unexpected(), QStringList());
    QVERIFY(!f.dialog.isVisible());
    QCOMPARE(f.host.callsOf({"write"}), restored);
    QVERIFY(f.host.subscriptions().isEmpty());
}

} // namespace

class MatchingLeavingTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldRestoreAndStopWhenTheApplicationQuits()
    {
        // GIVEN
        DialogFixture f;
        bool ended = false;
        matchAndLeave(f, [](QWidget *) { QCoreApplication::quit(); });
        // WHEN
        QTimer::singleShot(0, &f.dialog, [&] {
            f.dialog.update_and_exec();
            ended = true;
        });
        QApplication::exec();
        // THEN
        QVERIFY(ended);
        compareWithEverythingRestored(f);
        QCOMPARE(f.host.callsOf({"command"}).constLast(), QStringLiteral("command velmar2 tracking stop"));
    }

    void shouldEndWithTheDialogThatTheHostHides()
    {
        // GIVEN
        DialogFixture f;
        bool matches = true;
        matchAndLeave(f, [&](QWidget *matching) {
            // WHEN
            f.dialog.hide();
            matches = matching->isVisible();
        });
        f.dialog.update_and_exec();
        // THEN
        QVERIFY(!matches);
        compareWithEverythingRestored(f);
        bool opensAgain = false;
        f.open([&] { opensAgain = f.dialog.isVisible(); });
        QVERIFY(opensAgain);
    }
};

ROOM_TEST_CLASS(MatchingLeavingTest)

#include "MatchingLeavingTest.moc"
