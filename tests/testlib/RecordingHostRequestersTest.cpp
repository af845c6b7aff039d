#include "RecordingHost.h"

#include "Requester.h"
#include "TestRegistry.h"

#include <QtTest>

#include <functional>

namespace
{

/// Notes what it is given and answers with a result of its own.
class NotingRequester final : public Requester
{
public:
    explicit NotingRequester(int result)
        : m_result(result)
    {
    }

    int dataReceived(const char *kind, const char *record) override
    {
        records << QString(kind) + "|" + record;
        if (onRecord)
            onRecord();
        return m_result;
    }
    void requesterNotice() override {}

    QStringList records;
    std::function<void()> onRecord;

private:
    int m_result;
};

} // namespace

class RecordingHostRequestersTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldDeliverRecordsToTheSubscribersOfTheirKind()
    {
        RecordingHost host;
        NotingRequester first(3);
        NotingRequester second(4);
        host.addRequester("6d", &first);
        host.addRequester("6d", &second);
        host.addRequester("3d", &second);
        QCOMPARE(host.deliver("6d", "6d 1"), 4);
        QCOMPARE(host.deliver("fr", "fr 2"), 0);
        QCOMPARE(first.records, QStringList{"6d|6d 1"});
        QCOMPARE(second.records, QStringList{"6d|6d 1"});
        host.removeRequester("6d", &second);
        QCOMPARE(host.deliver("6d", "6d 3"), 3);
        host.releaseRequester(&first);
        QCOMPARE(host.subscriptions(), (QList<QPair<QByteArray, Requester *>>{{"3d", &second}}));
        QCOMPARE(host.calls(),
                 (QStringList{"subscribe 6d", "subscribe 6d", "subscribe 3d", "unsubscribe 6d", "release"}));
    }

    void shouldNotDeliverToWhomIsReleasedMeanwhile()
    {
        RecordingHost host;
        NotingRequester first(0);
        NotingRequester second(0);
        first.onRecord = [&] { host.releaseRequester(&second); };
        host.addRequester("6d", &first);
        host.addRequester("6d", &second);
        host.deliver("6d", "6d 1");
        QCOMPARE(first.records.size(), 1);
        QCOMPARE(second.records.size(), 0);
    }
};

ROOM_TEST_CLASS(RecordingHostRequestersTest)

#include "RecordingHostRequestersTest.moc"
