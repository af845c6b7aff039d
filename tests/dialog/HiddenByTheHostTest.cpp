#include "DialogFixture.h"

#include "AbcMatchingDialog.h"
#include "AdjustToToolDlg.h"
#include "CalibrationProgressDlg.h"
#include "TestRegistry.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>
#include <QtTest>

#include <chrono>

using namespace std::chrono_literals;

namespace
{

QStringList recursions;

/// Notes what the toolkit says about a window that is run twice.
void noteRecursion(QtMsgType, const QMessageLogContext &, const QString &text)
{
    if (text.contains(QLatin1String("Recursive")))
        recursions.append(text);
}

void press(QWidget *window, const char *button)
{
    auto *found = window->findChild<QPushButton *>(QString::fromLatin1(button));
    if (found != nullptr && window->isVisible())
        QTest::mouseClick(found, Qt::LeftButton);
}

/// A dialog that is led through one of its windows, on a host that hides it in the k-th call of that, and in
/// which the action is triggered again, in that call and as soon as events are handled after it.
class Led
{
public:
    Led(const char *way, int hidingCall);

    void open();

    /// Whether the way was gone to its end before the call came.
    bool isThrough() const { return m_callsLeft > 0; }
    bool wasSeenAgain() const { return m_wasSeenAgain; }
    bool hasRefusedWithCalls() const { return m_refusedWithCalls; }
    /// Whether one of its windows stood in front of the hidden dialog.
    bool wasWindowLeft() const { return m_wasWindowLeft; }
    int triggers() const { return m_triggers; }
    DialogFixture &fixture() { return m_f; }

private:
    void count(const QString &line);
    void triggerAgain();
    void lead(QWidget *shown);
    void goThroughTheDialog();
    void goThroughMatching(AbcMatchingDialog *matching);
    void goThroughAngleTool(AdjustToToolDlg *angleTool);
    void noteWindowLeft(const QWidget *window);

    DialogFixture m_f;
    const char *m_way;
    int m_callsLeft;
    bool m_isUnderWay = false;
    bool m_hasGone = false;
    bool m_wasSeenAgain = false;
    bool m_refusedWithCalls = false;
    bool m_wasWindowLeft = false;
    int m_triggers = 0;
};

Led::Led(const char *way, int hidingCall)
    : m_way(way)
    , m_callsLeft(hidingCall)
{
    m_f.host.setAnswer("tracking extra_translation", "10 20 30");
    m_f.host.setAnswer("tracking reference", "body b01");
    m_f.host.setAnswer("cal type_desc room", "\"room calibration\"");
    m_f.host.setAnswer("cal number_of_steps room", "1");
    m_f.host.setAnswer("cal step_pause room s01", "no");
    m_f.host.setAnswer("status progress", "0.35");
    m_f.host.onCall([this](const QString &line) { count(line); });
    m_f.host.onSubscription([this](const QString &line) { count(line); });
}

void Led::count(const QString &line)
{
    if (line == QLatin1String("command velmar2 cal room start")) {
        const auto allWindows = QApplication::topLevelWidgets();
        for (QWidget *window : allWindows)
            if (auto *progress = qobject_cast<CalibrationProgressDlg *>(window))
                progress->setPollInterval(1ms);
        m_f.host.setAnswer("status active", "cal");
    } else if (line == QLatin1String("read status progress")) {
        m_f.host.setAnswer("status active", "none"); // the next poll finds the end
    }
    if (!m_isUnderWay || m_callsLeft == 0 || --m_callsLeft > 0)
        return;
    QTimer::singleShot(0, &m_f.dialog, [this] { triggerAgain(); });
    m_f.dialog.hide();
    triggerAgain();
}

void Led::triggerAgain()
{
    ++m_triggers;
    const int before = m_f.host.calls().size();
    m_f.dialog.update_and_exec();
    m_refusedWithCalls |= !m_f.dialog.isVisible() && !m_wasSeenAgain && m_f.host.calls().size() != before;
}

void Led::open()
{
    for (int window = 0; window < 10; ++window)
        m_f.answer.then([this](QWidget *shown) { lead(shown); });
    m_f.dialog.update_and_exec();
    m_isUnderWay = false;
}

void Led::lead(QWidget *shown)
{
    const QPointer<QWidget> window = shown;
    if (shown == &m_f.dialog)
        goThroughTheDialog();
    else if (auto *matching = qobject_cast<AbcMatchingDialog *>(shown))
        goThroughMatching(matching);
    else if (auto *angleTool = qobject_cast<AdjustToToolDlg *>(shown))
        goThroughAngleTool(angleTool);
    else if (qobject_cast<CalibrationProgressDlg *>(shown))
        return; // ends with its calibration
    if (window && window->isVisible())
        window->close();
}

void Led::goThroughTheDialog()
{
    if (m_hasGone) {
        m_wasSeenAgain = true;
        return;
    }
    m_hasGone = true;
    m_f.selectTab(1);
    m_isUnderWay = true;
    m_f.click(m_way);
    m_isUnderWay = false;
}

void Led::goThroughMatching(AbcMatchingDialog *matching)
{
    press(matching, "w_measureButton");
    const QByteArray place = "[1 2 3][1 0 0 0 1 0 0 0 1]";
    for (const char *time : {"0.0", "0.5", "1.0", "1.1"}) {
        const QByteArray flags = qstrcmp(time, "1.1") == 0 ? "[0 0 0 0]" : "[1 0 0 0]";
        m_f.host.deliver("ts", QByteArray("ts ") + time);
        m_f.host.deliver("6dmt2", "6dmt2 1 [0 1.0 4 2.5]" + place + flags + "[0 0 0 0 0 0]");
    }
    press(matching, "pushButton_addRefPoint");
    noteWindowLeft(matching);
    press(matching, "w_closeButton");
}

void Led::goThroughAngleTool(AdjustToToolDlg *angleTool)
{
    noteWindowLeft(angleTool);
    press(angleTool, "pushButton_calibrate");
    noteWindowLeft(angleTool);
}

void Led::noteWindowLeft(const QWidget *window)
{
    m_wasWindowLeft |= window->isVisible() && !m_f.dialog.isVisible();
}

} // namespace

/// A host may hide the dialog in the middle of any call and trigger its action again.
class HiddenByTheHostTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        recursions.clear();
        m_usualHandler = qInstallMessageHandler(noteRecursion);
    }
    void cleanup() { qInstallMessageHandler(m_usualHandler); }

    void shouldComeBackOrRefuseWhereverItIsHidden_data()
    {
        QTest::addColumn<QByteArray>("way");
        QTest::addColumn<int>("calls");
        QTest::newRow("reference points") << QByteArray("w_bodyMatchingButton") << 31;
        QTest::newRow("angle tool") << QByteArray("pushButton_att") << 38;
    }

    void shouldComeBackOrRefuseWhereverItIsHidden()
    {
        QFETCH(QByteArray, way);
        QFETCH(int, calls);
        for (int k = 1; k <= calls + 1; ++k) {
            // GIVEN
            Led led(way.constData(), k);
            led.open();
            const bool isAnythingLeft = QApplication::activeModalWidget() != nullptr;
            // WHEN
            led.open();
            // THEN
            const QByteArray place = "call " + QByteArray::number(k);
            QVERIFY2(led.isThrough() == (k > calls), place.constData());
            QVERIFY2(led.triggers() == (k > calls ? 0 : 2), place.constData());
            QVERIFY2(!isAnythingLeft, place.constData());
            QVERIFY2(!led.wasWindowLeft(), place.constData());
            QVERIFY2(!led.hasRefusedWithCalls(), place.constData());
            QVERIFY2(led.wasSeenAgain(), place.constData());
            QVERIFY2(led.fixture().answer.unexpected().isEmpty(), place.constData());
            QVERIFY2(led.fixture().host.answer("status active") == "none", place.constData());
            QVERIFY2(led.fixture().host.subscriptions().isEmpty(), place.constData());
        }
        QCOMPARE(recursions, QStringList());
    }

private:
    QtMessageHandler m_usualHandler = nullptr;
};

ROOM_TEST_CLASS(HiddenByTheHostTest)

#include "HiddenByTheHostTest.moc"
