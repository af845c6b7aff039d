#include "CountdownDlg.h"

#include "TestClock.h"
#include "TestLanguage.h"
#include "TestRegistry.h"

#include <QElapsedTimer>
#include <QLCDNumber>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QtTest>

using namespace std::chrono_literals;

namespace
{

QPushButton *button(const CountdownDlg &dialog, const char *text)
{
    const auto buttons = dialog.findChildren<QPushButton *>();
    for (QPushButton *candidate : buttons) {
        if (candidate->text() == QLatin1String(text))
            return candidate;
    }
    return nullptr;
}

int shownSeconds(const CountdownDlg &dialog)
{
    return dialog.findChild<QLCDNumber *>(QStringLiteral("lcdNumber"))->intValue();
}

} // namespace

class CountdownDlgTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldLookAsAgreed()
    {
        const CountdownDlg dialog(nullptr);

        QCOMPARE(dialog.windowTitle(), QStringLiteral("Waiting"));
        QCOMPARE(dialog.minimumSize(), QSize(186, 180));
        QCOMPARE(dialog.font().family(), QStringLiteral("Microsoft Sans Serif"));
        QCOMPARE(dialog.font().pointSize(), 10);
        QVERIFY(!dialog.windowIcon().isNull());
        QVERIFY(dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint));
        const auto *lcd = dialog.findChild<QLCDNumber *>(QStringLiteral("lcdNumber"));
        QCOMPARE(lcd->digitCount(), 1);
        QCOMPARE(lcd->mode(), QLCDNumber::Dec);
        QCOMPARE(lcd->segmentStyle(), QLCDNumber::Filled);
        QCOMPARE(dialog.findChild<QLabel *>()->text(), QStringLiteral("TextLabel"));
        QCOMPARE(dialog.findChild<QLabel *>()->font().pointSize(), 12);
    }

    void shouldCountDownToOne()
    {
        CountdownDlg dialog(nullptr);
        dialog.setTick(1h);
        dialog.setCountdown(QStringLiteral("text"), 3);
        QSignalSpy finished(&dialog, &QDialog::finished);

        QCOMPARE(dialog.findChild<QLabel *>()->text(), QStringLiteral("text"));
        QCOMPARE(shownSeconds(dialog), 3);
        dialog.updateCountdown();
        QCOMPARE(shownSeconds(dialog), 2);
        dialog.updateCountdown();
        QCOMPARE(shownSeconds(dialog), 1);
        QCOMPARE(finished.count(), 0);
        dialog.updateCountdown();
        QCOMPARE(finished.count(), 1);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    }

    void shouldRunOutByItself()
    {
        CountdownDlg dialog(nullptr);
        dialog.setTick(5ms);
        dialog.setCountdown(QString(), 12);
        QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    }

    void shouldShowTheLastNineOfManySeconds()
    {
        CountdownDlg dialog(nullptr);
        dialog.setTick(1h);
        dialog.resize(300, 300);
        dialog.show();
        auto *lcd = dialog.findChild<QLCDNumber *>(QStringLiteral("lcdNumber"));
        dialog.setCountdown(QString(), 0);
        const QImage zero = lcd->grab().toImage();
        dialog.setCountdown(QString(), 11);
        QCOMPARE(lcd->grab().toImage(), zero);
        dialog.updateCountdown();
        QCOMPARE(lcd->grab().toImage(), zero);
        dialog.updateCountdown();
        QVERIFY(lcd->grab().toImage() != zero);
        QCOMPARE(shownSeconds(dialog), 9);
    }

    void shouldTickEverySecond()
    {
        CountdownDlg dialog(nullptr);
        QElapsedTimer time;
        qint64 endMs = 0;
        bool isOver = false;
        connect(&dialog, &QDialog::finished, this, [&] { endMs = time.elapsed(); });
        QTimer::singleShot(0, &dialog, [&] {
            TestClock::advance(2100ms);
            isOver = !dialog.isVisible();
            if (!isOver)
                dialog.reject();
        });
        time.start();
        dialog.setCountdown(QString(), 2);
        QCOMPARE(dialog.exec(), int(QDialog::Accepted));
        QVERIFY(isOver);
        QVERIFY2(endMs >= 1900, qPrintable(QString::number(endMs)));
    }

    void shouldOwnTheTimerOfItsSeconds()
    {
        CountdownDlg dialog(nullptr);
        const auto timers = dialog.findChildren<QTimer *>();
        QCOMPARE(timers.size(), 1);
        QCOMPARE(timers.first()->interval(), 1000);
        QVERIFY(!timers.first()->isActive());

        dialog.setCountdown(QString(), 3);
        QVERIFY(timers.first()->isActive());
        dialog.reject();
        QVERIFY(!timers.first()->isActive());
    }

    void shouldStopTickingWhenItIsDone()
    {
        CountdownDlg dialog(nullptr);
        dialog.setTick(1ms);
        dialog.setCountdown(QString(), 5);
        QTimer::singleShot(0, &dialog, [&dialog] { dialog.reject(); });
        QCOMPARE(dialog.exec(), int(QDialog::Rejected));
        const int left = shownSeconds(dialog);
        TestClock::advance(100ms);
        QCOMPARE(shownSeconds(dialog), left);
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
    }

    void shouldAnswerItsButtons_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("result");
        QTest::newRow("start now") << QByteArray("Start now") << 1;
        QTest::newRow("cancel") << QByteArray("Cancel") << 0;
    }

    void shouldAnswerItsButtons()
    {
        QFETCH(QByteArray, text);
        CountdownDlg dialog(nullptr);
        dialog.setTick(1h);
        dialog.setCountdown(QString(), 9);
        bool isLeftOpen = true;
        QTimer::singleShot(0, &dialog, [&] {
            QTest::mouseClick(button(dialog, text.constData()), Qt::LeftButton);
            isLeftOpen = dialog.isVisible();
            if (isLeftOpen)
                dialog.reject();
        });
        const int result = dialog.exec();
        QVERIFY(!isLeftOpen);
        QTEST(result, "result");
    }

    void shouldBeRejectedByItsCloseButtonAndEscape()
    {
        CountdownDlg dialog(nullptr);
        dialog.setCountdown(QString(), 9);
        QTimer::singleShot(0, &dialog, &QWidget::close);
        QCOMPARE(dialog.exec(), int(QDialog::Rejected));
        QTimer::singleShot(0, &dialog, [&dialog] { QTest::keyClick(&dialog, Qt::Key_Escape); });
        QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    }

    void shouldHaveRoomForTheTextsOfItsButtons_data()
    {
        QTest::addColumn<QString>("language");
        QTest::newRow("English") << QString();
        QTest::newRow("German") << QStringLiteral("de");
    }

    void shouldHaveRoomForTheTextsOfItsButtons()
    {
        // GIVEN
        QFETCH(QString, language);
        CountdownDlg dialog(nullptr);
        dialog.show();
        // WHEN
        const TestLanguage spokenLanguage(language);
        QVERIFY(spokenLanguage.isSpoken());
        QCoreApplication::sendPostedEvents();
        // THEN
        dialog.layout()->activate();
        const auto buttons = dialog.findChildren<QPushButton *>();
        QCOMPARE(buttons.size(), 2);
        for (const QPushButton *button : buttons)
            QVERIFY2(button->width() >= button->minimumSizeHint().width(), qPrintable(button->text()));
    }

    void shouldNotStartByEnter()
    {
        CountdownDlg dialog(nullptr);
        dialog.setTick(1h);
        dialog.setCountdown(QString(), 9);
        dialog.show();
        QTest::keyClick(&dialog, Qt::Key_Return);
        QVERIFY(dialog.isVisible());
    }
};

ROOM_TEST_CLASS(CountdownDlgTest)
#include "CountdownDlgTest.moc"
