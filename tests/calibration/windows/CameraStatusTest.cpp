#include "CameraStatus.h"
#include "BackendVersions.h"
#include "RecordingHost.h"

#include "TestRegistry.h"

#include <QApplication>
#include <QLabel>
#include <QPalette>
#include <QProgressBar>
#include <QtTest>

namespace
{

const QString blueStyle = QStringLiteral(
    "QProgressBar{border: 1px solid grey;border-radius: 15px;}\nQProgressBar::chunk{background: "
    "qlineargradient(x1: 0, y1: 0.5, x2: 1, y2: 0.5, stop: 0 blue, stop: 1 white);}");
const QString greenStyle = QStringLiteral(
    "QProgressBar{border: 1px solid grey;border-radius: 15px;}\nQProgressBar::chunk{background: "
    "qlineargradient(x1: 0, y1: 0.5, x2: 1, y2: 0.5, stop: 0 green, stop: 1 white);}");

QProgressBar *bar(const CameraStatus &box)
{
    return box.findChild<QProgressBar *>(QStringLiteral("progressBar"));
}

QString text(const CameraStatus &box, const char *label)
{
    return box.findChild<QLabel *>(QLatin1String(label))->text();
}

} // namespace

class CameraStatusTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldAskForItsSerialNumber()
    {
        RecordingHost host;
        host.setAnswer(QStringLiteral("velmar2 get camera camera c01"),
                       "velmar2 get camera camera c01 bench_cam 00028");

        const CameraStatus box(&host, nullptr, nullptr, 0);

        QCOMPARE(host.calls(), QStringList{QStringLiteral("command velmar2 get camera camera c01")});
        QCOMPARE(box.title(), QStringLiteral("c01"));
        QCOMPARE(text(box, "label_serial"), QStringLiteral("#00028"));
        QCOMPARE(text(box, "label_tab"), QStringLiteral("tab 01"));
        QCOMPARE(bar(box)->value(), 0);
        QVERIFY(!box.isHighlighted());
    }

    void shouldStayWithoutASerialNumber()
    {
        RecordingHost host;
        host.failFrom(1);
        const CameraStatus box(&host, nullptr, nullptr, 100);
        QCOMPARE(box.title(), QStringLiteral("c101"));
        QCOMPARE(text(box, "label_serial"), QStringLiteral("#"));
        QCOMPARE(host.reports(), QStringList());
    }

    void shouldBeginWithTheStyleOfItsForm()
    {
        RecordingHost host;
        const CameraStatus box(&host, nullptr, nullptr, 0);
        QCOMPARE(bar(box)->styleSheet(),
                 QStringLiteral("QProgressBar\n {border: 1px solid grey;\n border-radius:15px;} "
                                "\nQProgressBar::chunk\n {background: qlineargradient(x1: 0, y1: 0.5, x2: 1, "
                                "y2: 0.5, stop: 0 blue, stop: 1 white);}"));
    }

    void shouldShowTheProgressOfItsCamera_data()
    {
        QTest::addColumn<QByteArray>("fraction");
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("style");
        QTest::newRow("nothing yet") << QByteArray("0") << 0 << blueStyle;
        QTest::newRow("below one percent") << QByteArray("0.0099") << 0 << blueStyle;
        QTest::newRow("one percent") << QByteArray("0.0105") << 1 << blueStyle;
        QTest::newRow("29 percent") << QByteArray("0.29") << 29 << blueStyle;
        QTest::newRow("just not all") << QByteArray("0.995") << 99 << blueStyle;
        QTest::newRow("all") << QByteArray("1.000") << 100 << greenStyle;
        QTest::newRow("a little more is still all") << QByteArray("1.009") << 100 << greenStyle;
        QTest::newRow("beyond the bar") << QByteArray("1.5") << 50 << blueStyle;
        QTest::newRow("no number") << QByteArray("soon") << 0 << blueStyle;
        QTest::newRow("not a number") << QByteArray("nan") << 0 << blueStyle;
        QTest::newRow("negative") << QByteArray("-1") << 0 << blueStyle;
    }

    void shouldShowTheProgressOfItsCamera()
    {
        QFETCH(QByteArray, fraction);
        RecordingHost host;
        CameraStatus box(&host, nullptr, nullptr, 6);
        host.clear();
        box.set_progressBar(50);
        host.setAnswer(QStringLiteral("velmar2 get status camera_progress c07"),
                       "velmar2 get status camera_progress c07 " + fraction);

        box.update_progressBar();

        QCOMPARE(host.calls(), QStringList{QStringLiteral("command velmar2 get status camera_progress c07")});
        QTEST(bar(box)->value(), "value");
        QTEST(bar(box)->styleSheet(), "style");
    }

    void shouldTurnBlueAgain()
    {
        RecordingHost host;
        CameraStatus box(&host, nullptr, nullptr, 0);
        host.setAnswer(QStringLiteral("velmar2 get status camera_progress c01"), "a b c d e 1");
        box.update_progressBar();
        QCOMPARE(bar(box)->styleSheet(), greenStyle);
        host.failFrom(1);
        box.update_progressBar();
        QCOMPARE(bar(box)->value(), 0);
        QCOMPARE(bar(box)->styleSheet(), blueStyle);
    }

    void shouldShowItsTab()
    {
        RecordingHost host;
        CameraStatus box(&host, nullptr, nullptr, 0);
        box.set_tab_number(1);
        QCOMPARE(text(box, "label_tab"), QStringLiteral("tab 02"));
        box.set_tab_number(11);
        QCOMPARE(text(box, "label_tab"), QStringLiteral("tab 12"));
    }

    void shouldMarkTheMostActiveCamera()
    {
        RecordingHost host;
        CameraStatus box(&host, nullptr, nullptr, 0);
        const QPalette palette = QApplication::palette();
        const QString base = palette.color(QPalette::Active, QPalette::Base).name();
        const QString letters = palette.color(QPalette::Active, QPalette::WindowText).name();
        const QString tail =
            QStringLiteral("QGroupBox::title {subcontrol-origin: margin;subcontrol-position: "
                           "top center;padding: 0 3px;border: 1px solid gray;border-radius: "
                           "5px;background-color: ") +
            base + QStringLiteral(";color: ") + letters + QStringLiteral(";}");
        const QString head = QStringLiteral("QGroupBox{background-color: ") + base +
                             QStringLiteral(";color: ") + letters + QStringLiteral(";border: ");
        const QString rest = QStringLiteral("px solid gray;border-radius: 5px;margin-top: 1ex;}\n");

        QCOMPARE(box.styleSheet(), head + QLatin1Char('0') + rest + tail);
        box.highlight(true);
        QCOMPARE(box.styleSheet(), head + QLatin1Char('4') + rest + QLatin1Char(' ') + tail);
        box.highlight(false);
        QCOMPARE(box.styleSheet(), head + QLatin1Char('0') + rest + tail);
    }

    void shouldKeepItsSizeWhenItIsMarked()
    {
        RecordingHost host;
        CameraStatus box(&host, nullptr, nullptr, 0);
        box.ensurePolished();
        const QSize plain = box.sizeHint();
        box.highlight(true);
        QCOMPARE(box.sizeHint(), plain);
    }

    void shouldSayItsProgressBesideTheBar()
    {
        RecordingHost host;
        CameraStatus box(&host, nullptr, nullptr, 0);
        QCOMPARE(text(box, "label_percent"), QStringLiteral("0%"));
        box.set_progressBar(35);
        QCOMPARE(text(box, "label_percent"), QStringLiteral("35%"));
        QVERIFY(!bar(box)->isTextVisible());
    }

    void shouldFollowAChangeOfThePalette()
    {
        RecordingHost host;
        const QPalette before = QApplication::palette();
        CameraStatus box(&host, nullptr, nullptr, 0);
        QPalette dark = before;
        dark.setColor(QPalette::Base, QColor(18, 52, 86));
        QApplication::setPalette(dark);
        QTRY_VERIFY(box.styleSheet().contains(QStringLiteral("#123456")));
        QApplication::setPalette(before);
        QTRY_VERIFY(!box.styleSheet().contains(QStringLiteral("#123456")));
    }

    void shouldKeepTheSlotsInTheirOrder()
    {
        const QMetaObject &meta = CameraStatus::staticMetaObject;
        QStringList slotNames;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            slotNames.append(QString::fromLatin1(meta.method(i).methodSignature()));
        QCOMPARE(slotNames,
                 (QStringList{QStringLiteral("set_progressBar(int)"), QStringLiteral("set_tab_number(int)"),
                              QStringLiteral("update_progressBar()")}));
    }
};

ROOM_TEST_CLASS(CameraStatusTest)
#include "CameraStatusTest.moc"
