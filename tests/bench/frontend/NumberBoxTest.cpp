#include "NumberBox.h"

#include "TestRegistry.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QToolTip>
#include <QtTest>

namespace
{

/// A box on the screen that has the keyboard and 7 in it, everything selected.
struct ShownBox {
    explicit ShownBox(int decimals = 2)
    {
        QToolTip::hideText();
        box.setDecimals(decimals);
        box.setRange(-10000.0, 10000.0);
        box.setSuffix(QStringLiteral(" mm"));
        box.setValue(7.0);
        box.show();
        box.activateWindow();
        isReady = QTest::qWaitForWindowActive(&box);
        box.setFocus();
        box.selectAll();
    }

    void type(const QString &text)
    {
        QTest::keyClicks(&box, text);
        QTest::keyClick(&box, Qt::Key_Return);
    }

    void paste(const QString &text)
    {
        QApplication::clipboard()->setText(text);
        QTest::keyClick(box.findChild<QLineEdit *>(), Qt::Key_V, Qt::ControlModifier);
        QTest::keyClick(&box, Qt::Key_Return);
    }

    NumberBox box;
    bool isReady = false;
};

} // namespace

class NumberBoxTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QLocale::setDefault(QLocale::system()); }

    void shouldTakeCommaAndPointAlike_data()
    {
        QTest::addColumn<QString>("entered");
        QTest::addColumn<double>("value");
        QTest::newRow("comma") << QStringLiteral("12,5") << 12.5;
        QTest::newRow("point") << QStringLiteral("12.5") << 12.5;
        QTest::newRow("negative") << QStringLiteral("-278,25") << -278.25;
        QTest::newRow("comma first") << QStringLiteral(",5") << 0.5;
        QTest::newRow("three digits behind it are no thousands") << QStringLiteral("1,23") << 1.23;
        QTest::newRow("whole") << QStringLiteral("1234") << 1234.0;
    }

    void shouldTakeCommaAndPointAlike()
    {
        QFETCH(QString, entered);
        QFETCH(double, value);
        for (const char *locale : {"C", "en_US", "de_DE"}) {
            QLocale::setDefault(QLocale(QString::fromLatin1(locale)));
            ShownBox typed;
            QVERIFY(typed.isReady);
            typed.type(entered);
            QCOMPARE(typed.box.value(), value);
            ShownBox pasted;
            QVERIFY(pasted.isReady);
            pasted.paste(entered);
            QCOMPARE(pasted.box.value(), value);
        }
    }

    void shouldShowAPointInEveryLocale()
    {
        QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
        ShownBox shown;
        shown.box.setValue(1234.5);
        QCOMPARE(shown.box.text(), QStringLiteral("1234.50 mm"));
    }

    void shouldRefuseWhatHasSeveralOfThem_data()
    {
        QTest::addColumn<QString>("entered");
        QTest::newRow("both") << QStringLiteral("1.234,5");
        QTest::newRow("both, English") << QStringLiteral("1,234.5");
        QTest::newRow("commas") << QStringLiteral("1,2,3");
        QTest::newRow("points") << QStringLiteral("1.2.3");
    }

    void shouldRefuseWhatHasSeveralOfThem()
    {
        QFETCH(QString, entered);
        ShownBox shown;
        QVERIFY(shown.isReady);
        shown.paste(entered);
        QCOMPARE(shown.box.value(), 7.0);
        QTRY_VERIFY(QToolTip::isVisible());
        QVERIFY2(QToolTip::text().contains(entered), qPrintable(QToolTip::text()));
    }

    void shouldRefuseASecondPointWhileTyping()
    {
        ShownBox shown;
        QVERIFY(shown.isReady);
        QTest::keyClicks(&shown.box, QStringLiteral("1,2"));
        QVERIFY(!QToolTip::isVisible());
        QTest::keyClicks(&shown.box, QStringLiteral("."));
        QTRY_VERIFY(QToolTip::isVisible());
        QTest::keyClick(&shown.box, Qt::Key_Return);
        QCOMPARE(shown.box.value(), 1.2);
    }

    void shouldTakeNeitherWithoutDecimals()
    {
        ShownBox shown(0);
        QVERIFY(shown.isReady);
        shown.paste(QStringLiteral("12,5"));
        QCOMPARE(shown.box.value(), 7.0);
        QTRY_VERIFY(QToolTip::isVisible());
        shown.box.selectAll();
        shown.type(QStringLiteral("125"));
        QCOMPARE(shown.box.value(), 125.0);
    }
};

ROOM_TEST_CLASS(NumberBoxTest)

#include "NumberBoxTest.moc"
