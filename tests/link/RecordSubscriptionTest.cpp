#include "RecordSubscription.h"

#include "RecordingHost.h"
#include "Requester.h"
#include "TestRegistry.h"

#include <QtTest>

#include <memory>

namespace
{

const QStringList begun{"subscribe ts", "subscribe 6dmt2", "subscribe 6dmt", "subscribe 6df2",
                        "subscribe 6df"};
const QStringList ended{"unsubscribe ts", "unsubscribe 6dmt2", "unsubscribe 6dmt", "unsubscribe 6df2",
                        "unsubscribe 6df"};

class SilentRequester final : public Requester
{
public:
    int dataReceived(const char *, const char *) override { return 0; }
    void requesterNotice() override {}
};

struct Subscribed {
    RecordingHost host;
    SilentRequester requester;
    std::unique_ptr<RecordSubscription> subscription =
        std::make_unique<RecordSubscription>(TrackingAccess(&host, nullptr), &requester);

    /// Runs once, inside the k-th call from now on that has to do with the subscription.
    void inCall(int k, const std::function<void()> &act)
    {
        host.onSubscription([act, left = k](const QString &) mutable {
            if (--left == 0)
                act();
        });
    }
};

} // namespace

class RecordSubscriptionTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldBeginAndEndEveryKindOnce()
    {
        // GIVEN
        Subscribed s;
        // WHEN
        s.subscription->end();
        s.subscription->begin();
        s.subscription->begin();
        s.subscription->end();
        s.subscription->end();
        // THEN
        QCOMPARE(s.host.calls(), begun + ended);
    }

    void shouldEndWithItself()
    {
        // GIVEN
        Subscribed s;
        s.subscription->begin();
        s.host.clear();
        // WHEN
        s.subscription.reset();
        // THEN
        QCOMPARE(s.host.calls(), ended);
    }

    void shouldEndNothingThatTheHostHasReleased()
    {
        // GIVEN
        Subscribed s;
        s.subscription->begin();
        s.host.clear();
        // WHEN
        s.subscription->forget();
        s.subscription->end();
        // THEN
        QCOMPARE(s.host.calls(), QStringList());
        s.subscription->begin();
        QCOMPARE(s.host.calls(), begun);
    }

    void shouldLeaveNothingSubscribedWhenItIsDestroyedInACall_data()
    {
        QTest::addColumn<int>("call");
        for (int call = 1; call <= begun.size() + ended.size(); ++call)
            QTest::addRow("call %d", call) << call;
    }

    void shouldLeaveNothingSubscribedWhenItIsDestroyedInACall()
    {
        // GIVEN
        QFETCH(int, call);
        Subscribed s;
        s.inCall(call, [&s] { s.subscription.reset(); });
        // WHEN
        s.subscription->begin();
        if (s.subscription)
            s.subscription->end();
        // THEN
        QVERIFY(s.subscription == nullptr);
        QVERIFY(s.host.subscriptions().isEmpty());
    }

    void shouldLeaveNothingSubscribedWhenItIsEndedWhileItBegins_data()
    {
        QTest::addColumn<int>("call");
        for (int call = 1; call <= begun.size(); ++call)
            QTest::addRow("call %d", call) << call;
    }

    void shouldLeaveNothingSubscribedWhenItIsEndedWhileItBegins()
    {
        // GIVEN
        QFETCH(int, call);
        Subscribed s;
        s.inCall(call, [&s] { s.subscription->end(); });
        // WHEN
        s.subscription->begin();
        // THEN
        QVERIFY(s.host.subscriptions().isEmpty());
    }

    void shouldHaveEveryKindOnceWhenItIsEndedAndBegunAgainWhileItBegins_data()
    {
        QTest::addColumn<int>("call");
        QTest::addColumn<bool>("byTheHost");
        for (int call = 1; call <= begun.size(); ++call) {
            QTest::addRow("ended in call %d", call) << call << false;
            QTest::addRow("released in call %d", call) << call << true;
        }
    }

    /// A host that notes a kind when its call returns would hold it twice, and the second for ever.
    void shouldHaveEveryKindOnceWhenItIsEndedAndBegunAgainWhileItBegins()
    {
        // GIVEN
        QFETCH(int, call);
        QFETCH(bool, byTheHost);
        Subscribed s;
        s.inCall(call, [&] {
            if (byTheHost) {
                s.host.releaseRequester(&s.requester);
                s.subscription->forget();
            } else {
                s.subscription->end();
            }
            s.subscription->begin();
        });
        // WHEN
        s.subscription->begin();
        // THEN
        QCOMPARE(s.host.subscriptions().size(), begun.size());
        s.subscription.reset();
        QVERIFY(s.host.subscriptions().isEmpty());
    }

    void shouldComeToAnEndWithAHostThatNeverDoes_data()
    {
        QTest::addColumn<bool>("endsInBeginnings");
        QTest::addColumn<bool>("beginsInBeginnings");
        QTest::addColumn<bool>("beginsInEndings");
        QTest::addColumn<bool>("endsInEndings");
        QTest::addColumn<bool>("hasAll");
        QTest::newRow("begins in each ending") << false << false << true << false << true;
        QTest::newRow("begins and ends in each ending") << false << false << true << true << true;
        QTest::newRow("ends in each beginning") << true << false << false << false << false;
        QTest::newRow("ends and begins in each beginning") << true << true << false << false << false;
        QTest::newRow("ends in each beginning and begins in each ending")
            << true << false << true << false << false;
        QTest::newRow("ends and begins in each call") << true << true << true << true << false;
    }

    void shouldComeToAnEndWithAHostThatNeverDoes()
    {
        // GIVEN
        QFETCH(bool, endsInBeginnings);
        QFETCH(bool, beginsInBeginnings);
        QFETCH(bool, beginsInEndings);
        QFETCH(bool, endsInEndings);
        QFETCH(bool, hasAll);
        Subscribed s;
        constexpr int patience = 300;
        int calls = 0;
        s.host.onSubscription([&](const QString &line) {
            const bool isBeginning = line.startsWith(QLatin1String("subscribe"));
            if (++calls > patience || !s.subscription)
                return;
            if (isBeginning && endsInBeginnings)
                s.subscription->end();
            if (isBeginning ? beginsInBeginnings : beginsInEndings)
                s.subscription->begin();
            if (!isBeginning && endsInEndings)
                s.subscription->end();
        });
        // WHEN
        s.subscription->begin();
        // THEN
        QVERIFY2(calls < patience / 2, QByteArray::number(calls));
        QCOMPARE(s.host.subscriptions().size(), hasAll ? begun.size() : 0);
        s.host.onSubscription({});
        s.subscription->begin();
        QCOMPARE(s.host.subscriptions().size(), begun.size());
        s.subscription.reset();
        QVERIFY(s.host.subscriptions().isEmpty());
    }

    void shouldBeginAgainWithAHostThatBeginsInEveryEnding()
    {
        // GIVEN
        Subscribed s;
        s.host.onSubscription([&s, calls = 0](const QString &line) mutable {
            constexpr int patience = 300;
            if (++calls == 1)
                s.subscription->end();
            else if (s.subscription && calls < patience && line.startsWith(QLatin1String("unsubscribe")))
                s.subscription->begin();
        });
        // WHEN
        s.subscription->begin();
        // THEN
        QCOMPARE(s.host.subscriptions().size(), begun.size());
        QCOMPARE(s.host.callsOf({"unsubscribe"}).size(), 2);
        s.subscription.reset();
        QVERIFY(s.host.subscriptions().isEmpty());
    }

    void shouldHaveEveryKindOnceWhenItIsBegunAgainWhileItBegins()
    {
        // GIVEN
        Subscribed s;
        s.inCall(2, [&s] { s.subscription->begin(); });
        // WHEN
        s.subscription->begin();
        // THEN
        QCOMPARE(s.host.subscriptions().size(), begun.size());
    }
};

ROOM_TEST_CLASS(RecordSubscriptionTest)
#include "RecordSubscriptionTest.moc"
