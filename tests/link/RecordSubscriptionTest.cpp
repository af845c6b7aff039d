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
