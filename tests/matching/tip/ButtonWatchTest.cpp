#include "ButtonWatch.h"
#include "TestRegistry.h"

#include <QByteArray>
#include <QtTest>

namespace
{

constexpr int tool = 1;

/// Reads one line and tells whether it brought a press.
class Records
{
public:
    bool press(const QByteArray &record)
    {
        QByteArray line = record;
        char *cursor = line.data();
        m_parser.parseLine(&cursor);
        m_watch.look(m_parser, tool);
        return m_watch.isPressed();
    }
    void forget() { m_watch.forget(); }

private:
    VelmarParser m_parser;
    ButtonWatch m_watch;
};

const QByteArray place("[1 2 3][1 0 0 0 1 0 0 0 1]");

QByteArray toolLine(const QByteArray &flags)
{
    return "6dmt2 1 [0 1.0 4 2.5]" + place + '[' + flags + "][0 0 0 0 0 0]";
}

QByteArray deviceLine(const QByteArray &first, const QByteArray &second)
{
    return "6df2 2 [0 1.0 2 0]" + place + '[' + first + "][1 1.0 2 0]" + place + '[' + second + ']';
}

} // namespace

class ButtonWatchTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldTellAPressOnce();
    void shouldCountTheFirstRecordAsComingFromNothingPressed();
    void shouldTellAnotherButtonWhileOneIsHeld();
    void shouldTellEachDeviceByItself();
    void shouldNotTakeTheMeasuringFlagForAButton();
    void shouldOnlyLookAtTheSelectedTool();
    void shouldTellADeviceThatComesBackWithAButtonDown();
};

void ButtonWatchTest::shouldTellAPressOnce()
{
    Records records;
    QVERIFY(!records.press(toolLine("0 0 0 0")));
    QVERIFY(records.press(toolLine("0 0 1 0")));
    QVERIFY(!records.press(toolLine("0 0 1 0")));
    QVERIFY(!records.press("ts 1.0"));
    QVERIFY(!records.press(toolLine("0 0 0 0")));
    QVERIFY(records.press(toolLine("0 0 1 0")));
}

void ButtonWatchTest::shouldCountTheFirstRecordAsComingFromNothingPressed()
{
    Records records;
    QVERIFY(records.press(toolLine("0 1 0 0")));
    QVERIFY(!records.press(toolLine("0 1 0 0")));
    records.forget();
    QVERIFY(records.press(toolLine("0 1 0 0")));
}

void ButtonWatchTest::shouldTellAnotherButtonWhileOneIsHeld()
{
    Records records;
    QVERIFY(records.press(toolLine("0 1 0 0")));
    QVERIFY(records.press(toolLine("0 1 0 1")));
    QVERIFY(!records.press(toolLine("0 1 0 0")));
    QVERIFY(records.press(toolLine("0 1 0 1")));
}

void ButtonWatchTest::shouldTellEachDeviceByItself()
{
    Records records;
    QVERIFY(!records.press(deviceLine("0 0", "0 0")));
    QVERIFY(records.press(deviceLine("0 1", "0 0")));
    QVERIFY(records.press(deviceLine("0 1", "0 1")));
    QVERIFY(!records.press(deviceLine("0 1", "0 1")));
    QVERIFY(records.press(toolLine("0 1 0 0")));
    QVERIFY(!records.press(deviceLine("0 0", "0 1")));
}

void ButtonWatchTest::shouldNotTakeTheMeasuringFlagForAButton()
{
    Records records;
    QVERIFY(!records.press(toolLine("1 0 0 0")));
    QVERIFY(!records.press(toolLine("0 2 0 0")));
    QVERIFY(records.press(toolLine("1 1 0 0")));
}

void ButtonWatchTest::shouldOnlyLookAtTheSelectedTool()
{
    Records records;
    QVERIFY(!records.press("6dmt2 2 [0 1.0 4 2.5]" + place + "[0 0 0 0][0 0 0 0 0 0][1 1.0 4 2.5]" + place +
                           "[0 1 0 0][0 0 0 0 0 0]"));
}

void ButtonWatchTest::shouldTellADeviceThatComesBackWithAButtonDown()
{
    Records records;
    QVERIFY(records.press(deviceLine("0 0", "0 1")));
    QVERIFY(!records.press("6df2 1 [0 1.0 2 0]" + place + "[0 0]"));
    QVERIFY(records.press(deviceLine("0 0", "0 1")));
}

ROOM_TEST_CLASS(ButtonWatchTest)

#include "ButtonWatchTest.moc"
