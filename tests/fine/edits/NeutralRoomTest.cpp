#include "NeutralRoom.h"
#include "InterfaceVersion.h"
#include "MeasurementAccess.h"
#include "NotedTracking.h"
#include "TestRegistry.h"

#include <QtTest>

#include <map>

namespace
{

const QString stop = QStringLiteral("reserved 1");
const QString start = QStringLiteral("reserved 2");

const QStringList readTransformation = {"read tracking extra_translation", "read tracking extra_rotation",
                                        "read tracking extra_scaling"};
const QStringList writeNeutral = {"write tracking extra_rotation 1.00000000 0.00000000 0.00000000 0.00000000 "
                                  "1.00000000 0.00000000 0.00000000 0.00000000 1.00000000",
                                  "write tracking extra_translation 0.000 0.000 0.000",
                                  "write tracking extra_scaling 1.00000"};

struct Fixture {
    RecordingHost host;
    BackendVersions versions = interfaceVersion(1, 23);
    NotedTracking tracking{host};
    MeasurementAccess controller{&host, &versions};
    NeutralRoom neutral{controller, &tracking};
};

/// Ends the work while tracking is stopped, once told to.
class EndingTracking final : public TrackingControl
{
public:
    void endAtStop(NeutralRoom *neutral) { m_neutral = neutral; }
    [[nodiscard]] int startsSinceThen() const { return m_starts; }

    void stopTracking() override
    {
        if (m_neutral != nullptr)
            m_neutral->end();
    }
    void startTracking() override { m_starts += m_neutral != nullptr ? 1 : 0; }

private:
    NeutralRoom *m_neutral = nullptr;
    int m_starts = 0;
};

/// The rows of the rotation that turns nothing, but for some elements.
QByteArray identityWith(const std::map<int, double> &elements)
{
    QByteArrayList numbers;
    for (int place = 0; place < 9; ++place) {
        const auto element = elements.find(place);
        numbers += QByteArray::number(element != elements.end() ? element->second
                                      : place % 4 == 0          ? 1.0
                                                                : 0.0);
    }
    return numbers.join(' ');
}

} // namespace

class NeutralRoomTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldLeaveANeutralControllerAlone();
    void shouldNeutraliseAndRestoreATransformation();
    void shouldTakeSumsForNeutral();
    void shouldNeutraliseWhatItsSumsTellApart_data();
    void shouldNeutraliseWhatItsSumsTellApart();
    void shouldWriteEachDefaultEvenWhenOneFails();
    void shouldTakeAnUnreadableTransformationForNeutral_data();
    void shouldTakeAnUnreadableTransformationForNeutral();
    void shouldNotTouchTheTransformationWithoutADialog();
    void shouldAskNothingOfAnOldController();
    void shouldNotRestoreTheTransformationOfAnotherController();
    void shouldForgetWhatItSavedWhenPreparedAnew();
    void shouldUnsetAndRestoreAReference();
    void shouldLeaveTrackingStoppedWhenTheReferenceCannotBeUnset();
    void shouldLeaveTrackingStoppedWhenTheReferenceCannotBeRestored();
    void shouldUnsetAndRestoreAReferenceWithoutADialog();
    void shouldDoNothingWithoutAReference();
    void shouldRestoreOnlyReferencesOfTwoWords_data();
    void shouldRestoreOnlyReferencesOfTwoWords();
    void shouldAskAndWriteNothingOnceItHasEnded();
    void shouldWriteNothingMoreWhenItEndsWhileTrackingStops();
};

void NeutralRoomTest::shouldLeaveANeutralControllerAlone()
{
    Fixture f;
    f.neutral.prepareTransformation();
    QCOMPARE(f.host.calls(), readTransformation);
    f.host.clear();
    f.neutral.restoreTransformation();
    QCOMPARE(f.host.calls(), QStringList());
}

void NeutralRoomTest::shouldNeutraliseAndRestoreATransformation()
{
    Fixture f;
    f.host.setAnswer("tracking extra_rotation", "0 -1 0 1 0 0 0 0 1");
    f.host.setAnswer("tracking extra_translation", "1.5 2.5 3.5");
    f.host.setAnswer("tracking extra_scaling", "1.01");

    f.neutral.prepareTransformation();
    QCOMPARE(f.host.calls(), readTransformation + QStringList{stop} + writeNeutral + QStringList{start});

    f.host.clear();
    f.neutral.restoreTransformation();
    QCOMPARE(
        f.host.calls(),
        QStringList(
            {stop,
             QString("write tracking extra_rotation 0.00000000 -1.00000000 0.00000000 1.00000000 0.00000000 "
                     "0.00000000 0.00000000 0.00000000 1.00000000"),
             "write tracking extra_translation 1.500 2.500 3.500", "write tracking extra_scaling 1.01000",
             start}));
}

void NeutralRoomTest::shouldTakeSumsForNeutral()
{
    Fixture f;
    f.host.setAnswer("tracking extra_translation", "5 -5 0");

    f.neutral.prepareTransformation();
    f.neutral.restoreTransformation();

    QCOMPARE(f.host.calls(), readTransformation);
}

void NeutralRoomTest::shouldNeutraliseWhatItsSumsTellApart_data()
{
    QTest::addColumn<QString>("parameter");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<bool>("neutral");
    const QString rotation("tracking extra_rotation");
    QTest::newRow("translation") << "tracking extra_translation" << QByteArray("0 0 0.001") << false;
    QTest::newRow("scaling") << "tracking extra_scaling" << QByteArray("0.99999") << false;
    QTest::newRow("beside the diagonal") << rotation << QByteArray("1 0 0 0 1 0 0 0.5 1") << false;
    QTest::newRow("beside the diagonal, but no sum")
        << rotation << QByteArray("1 0.5 0 -0.5 1 0 0 0 1") << true;
    for (const int place : {1, 2, 3, 5, 6, 7}) {
        QTest::addRow("beside the diagonal at %d", place)
            << rotation << identityWith({{place, 0.25}}) << false;
        // With another one that takes it away from the sum.
        for (const int other : {1, 2, 3, 5, 6, 7}) {
            if (other != place)
                QTest::addRow("beside the diagonal at %d and %d", place, other)
                    << rotation << identityWith({{place, 0.25}, {other, -0.25}}) << true;
        }
    }
    for (const int place : {0, 4, 8}) {
        QTest::addRow("on the diagonal at %d", place) << rotation << identityWith({{place, 0.5}}) << false;
        QTest::addRow("on the diagonal from %d on", place)
            << rotation << identityWith({{place, 1.5}, {(place + 4) % 12, 0.5}}) << true;
    }
    QTest::newRow("translation without a sum")
        << "tracking extra_translation" << QByteArray("1 2 -3") << true;
    QTest::newRow("translation along x") << "tracking extra_translation" << QByteArray("2 0 0") << false;
    QTest::newRow("translation along y") << "tracking extra_translation" << QByteArray("0 2 0") << false;
    QTest::newRow("on the diagonal") << rotation << QByteArray("1 0 0 0 0.5 0 0 0 1") << false;
    QTest::newRow("on the diagonal, with the same sum")
        << rotation << QByteArray("1.5 0 0 0 0.5 0 0 0 1") << true;
}

void NeutralRoomTest::shouldNeutraliseWhatItsSumsTellApart()
{
    QFETCH(QString, parameter);
    QFETCH(QByteArray, value);
    QFETCH(bool, neutral);
    Fixture f;
    f.host.setAnswer(parameter, value);

    f.neutral.prepareTransformation();

    QCOMPARE(f.host.callsOf({"write"}), neutral ? QStringList() : writeNeutral);
}

void NeutralRoomTest::shouldWriteEachDefaultEvenWhenOneFails()
{
    Fixture f;
    f.host.setAnswer("tracking extra_scaling", "1.01");
    f.host.failText("tracking extra_rotation 1.0");

    f.neutral.prepareTransformation();

    QCOMPARE(f.host.callsOf({"write"}), writeNeutral);
    QCOMPARE(f.host.reports(), QStringList{"Error: Unable to set extra rotation default"});
}

void NeutralRoomTest::shouldTakeAnUnreadableTransformationForNeutral_data()
{
    QTest::addColumn<int>("failing");
    QTest::addColumn<QString>("report");
    QTest::newRow("translation") << 1 << "Error: Unable to get info extra translation";
    QTest::newRow("rotation") << 2 << "Error: Unable to get info extra rotation";
    QTest::newRow("scaling") << 3 << "Error: Unable to get info extra scaling";
}

void NeutralRoomTest::shouldTakeAnUnreadableTransformationForNeutral()
{
    QFETCH(int, failing);
    QFETCH(QString, report);
    Fixture f;
    f.host.setAnswer("tracking extra_translation", "100 0 0");
    f.host.failCall(failing);

    f.neutral.prepareTransformation();
    f.neutral.restoreTransformation();

    QCOMPARE(f.host.calls(),
             QStringList(readTransformation.mid(0, failing)) + QStringList{"report " + report});
}

void NeutralRoomTest::shouldNotTouchTheTransformationWithoutADialog()
{
    Fixture f;
    f.host.setAnswer("tracking extra_scaling", "1.01");
    NeutralRoom alone(f.controller, nullptr);

    alone.prepareTransformation();
    alone.restoreTransformation();

    QCOMPARE(f.host.calls(), readTransformation);
}

void NeutralRoomTest::shouldAskNothingOfAnOldController()
{
    Fixture f;
    f.versions.interfaceMajor = 0;
    f.versions.interfaceMinor = 15;

    f.neutral.prepareTransformation();
    f.neutral.restoreTransformation();

    QCOMPARE(f.host.calls(), QStringList());
}

void NeutralRoomTest::shouldNotRestoreTheTransformationOfAnotherController()
{
    Fixture f;
    f.host.setAnswer("tracking extra_scaling", "1.01");
    f.neutral.prepareTransformation();
    f.host.clear();
    f.versions.interfaceMajor = 0;
    f.versions.interfaceMinor = 15;

    f.neutral.restoreTransformation();

    QCOMPARE(f.host.calls(), QStringList());
}

void NeutralRoomTest::shouldForgetWhatItSavedWhenPreparedAnew()
{
    Fixture f;
    f.host.setAnswer("tracking extra_scaling", "1.01");
    f.neutral.prepareTransformation();
    const BackendVersions able = f.versions;
    f.versions.interfaceMajor = 0;
    f.versions.interfaceMinor = 15;
    f.neutral.prepareTransformation();
    f.versions = able;
    f.host.clear();

    f.neutral.restoreTransformation();

    QCOMPARE(f.host.calls(), QStringList());
}

void NeutralRoomTest::shouldUnsetAndRestoreAReference()
{
    Fixture f;
    f.host.setAnswer("tracking reference", "body b07");

    f.neutral.prepareReference();
    QCOMPARE(f.host.calls(),
             QStringList({"read tracking reference", stop, "write tracking reference none", start}));

    f.host.clear();
    f.neutral.restoreReference();
    QCOMPARE(f.host.calls(), QStringList({stop, "write tracking reference body b07", start}));
}

void NeutralRoomTest::shouldLeaveTrackingStoppedWhenTheReferenceCannotBeUnset()
{
    Fixture f;
    f.host.setAnswer("tracking reference", "body b07");
    f.host.failText("tracking reference none");

    f.neutral.prepareReference();

    QCOMPARE(f.host.calls(), QStringList({"read tracking reference", stop, "write tracking reference none",
                                          "report Error: Unable to unset reference target"}));
}

void NeutralRoomTest::shouldLeaveTrackingStoppedWhenTheReferenceCannotBeRestored()
{
    Fixture f;
    f.host.setAnswer("tracking reference", "body b07");
    f.neutral.prepareReference();
    f.host.clear();
    f.host.failText("tracking reference body");

    f.neutral.restoreReference();

    QCOMPARE(f.host.calls(), QStringList({stop, "write tracking reference body b07",
                                          "report Error: Unable to restore reference target"}));
}

void NeutralRoomTest::shouldUnsetAndRestoreAReferenceWithoutADialog()
{
    Fixture f;
    f.host.setAnswer("tracking reference", "body b07");
    NeutralRoom alone(f.controller, nullptr);

    alone.prepareReference();
    alone.restoreReference();

    QCOMPARE(f.host.calls(), QStringList({"read tracking reference", "write tracking reference none",
                                          "write tracking reference body b07"}));
}

void NeutralRoomTest::shouldDoNothingWithoutAReference()
{
    Fixture f;
    f.neutral.prepareReference();
    f.neutral.restoreReference();
    QCOMPARE(f.host.calls(), QStringList{"read tracking reference"});
}

void NeutralRoomTest::shouldRestoreOnlyReferencesOfTwoWords_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("restored");
    QTest::newRow("two words") << QByteArray("body b01") << true;
    QTest::newRow("two words far apart") << QByteArray("body   b01") << true;
    QTest::newRow("one word") << QByteArray("body") << false;
    QTest::newRow("three words") << QByteArray("body b01 b02") << false;
}

void NeutralRoomTest::shouldRestoreOnlyReferencesOfTwoWords()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, restored);
    Fixture f;
    f.host.setAnswer("tracking reference", name);
    f.neutral.prepareReference();
    f.host.clear();

    f.neutral.restoreReference();

    const QStringList expected = {stop, "write tracking reference " + QString::fromLatin1(name), start};
    QCOMPARE(f.host.calls(), restored ? expected : QStringList());
}

void NeutralRoomTest::shouldAskAndWriteNothingOnceItHasEnded()
{
    Fixture f;
    f.host.setAnswer("tracking reference", "body b07");
    f.host.setAnswer("tracking extra_scaling", "1.01");
    f.neutral.prepareTransformation();
    f.neutral.prepareReference();
    f.host.clear();

    f.neutral.end();

    f.neutral.restoreReference();
    f.neutral.restoreTransformation();
    f.neutral.prepareTransformation();
    f.neutral.prepareReference();
    QCOMPARE(f.host.calls(), QStringList());
}

void NeutralRoomTest::shouldWriteNothingMoreWhenItEndsWhileTrackingStops()
{
    using Operation = void (NeutralRoom::*)();
    for (const Operation operation : {&NeutralRoom::prepareTransformation, &NeutralRoom::prepareReference,
                                      &NeutralRoom::restoreReference, &NeutralRoom::restoreTransformation}) {
        RecordingHost host;
        host.setAnswer("tracking reference", "body b07");
        host.setAnswer("tracking extra_scaling", "1.01");
        const BackendVersions versions = interfaceVersion(1, 23);
        EndingTracking ending;
        NeutralRoom neutral(MeasurementAccess(&host, &versions), &ending);
        if (operation == &NeutralRoom::restoreReference)
            neutral.prepareReference();
        if (operation == &NeutralRoom::restoreTransformation)
            neutral.prepareTransformation();
        host.setAnswer("tracking extra_scaling", "1.01");
        host.clear();
        ending.endAtStop(&neutral);

        (neutral.*operation)();

        QCOMPARE(host.callsOf({"write"}), QStringList());
        QCOMPARE(ending.startsSinceThen(), 0);
    }
}

ROOM_TEST_CLASS(NeutralRoomTest)
#include "NeutralRoomTest.moc"
