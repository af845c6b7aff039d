#include "ShownSubscription.h"

#include "RecordingHost.h"
#include "Requester.h"
#include "TestRegistry.h"

#include <QEvent>
#include <QtTest>

namespace
{

constexpr int kinds = 5;

class SilentRequester final : public Requester
{
public:
    int dataReceived(const char *, const char *) override { return 0; }
    void requesterNotice() override {}
};

struct Window {
    RecordingHost host;
    SilentRequester requester;
    QWidget widget;
    ShownSubscription subscription{TrackingAccess(&host, nullptr), &requester, &widget};

    void note(bool isShown) { subscription.note(isShown, QEvent(isShown ? QEvent::Show : QEvent::Hide)); }
    int subscribed() const { return host.subscriptions().size(); }
};

} // namespace

class ShownSubscriptionTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldSubscribeWhileTheWindowIsShown()
    {
        Window window;
        window.note(true);
        QCOMPARE(window.subscribed(), kinds);
        window.note(false);
        QCOMPARE(window.subscribed(), 0);
    }

    /// Qt is in the middle of showing the window when the event comes.
    void shouldCallTheHostOnlyBehindAChange()
    {
        Window window;
        int subscribedMeanwhile = -1;
        window.subscription.follow([&] {
            window.note(true);
            subscribedMeanwhile = window.subscribed();
        });
        QCOMPARE(subscribedMeanwhile, 0);
        QCOMPARE(window.subscribed(), kinds);
    }

    void shouldCallNobodyWhenNothingHasChanged()
    {
        Window window;
        window.note(true);
        window.host.clear();
        window.subscription.follow([&] { window.note(true); });
        QCOMPARE(window.host.calls(), QStringList());
    }

    void shouldTellWhetherTheProgramHasHiddenTheWindow()
    {
        Window window;
        window.note(true);
        QVERIFY(!window.subscription.wasHidden());
        window.note(false);
        QVERIFY(window.subscription.wasHidden());
        window.subscription.forgetHiding();
        QVERIFY(!window.subscription.wasHidden());
    }

    void shouldLeaveToTheHostWhatTheHostHasEnded()
    {
        Window window;
        window.note(true);
        window.host.clear();
        window.subscription.forget();
        window.note(false);
        QCOMPARE(window.host.calls(), QStringList());
    }
};

ROOM_TEST_CLASS(ShownSubscriptionTest)
#include "ShownSubscriptionTest.moc"
