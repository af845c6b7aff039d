#include "InterfaceVersion.h"
#include "OpenedDialog.h"
#include "TestRegistry.h"

#include <QLabel>
#include <QMetaMethod>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>
#include <QTextEdit>
#include <QTranslator>
#include <QtTest>

namespace
{

QStringList ownMethods(QMetaMethod::MethodType type)
{
    const QMetaObject &meta = AbcMatchingDialog::staticMetaObject;
    QStringList names;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        if (meta.method(index).methodType() == type)
            names << QString::fromLatin1(meta.method(index).methodSignature());
    }
    return names;
}

/// Translates every text into itself with a star in front.
class StarTranslator : public QTranslator
{
public:
    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char *, const char *text, const char *, int) const override
    {
        return QLatin1Char('*') + QString::fromUtf8(text);
    }
};

} // namespace

class AbcMatchingDialogTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldDeclareItsSignalsInOrder();
    void shouldDeclareItsSlotsInOrder();
    void shouldBuildTheForm();
    void shouldNotCallTheControllerWhenBuilt();
    void shouldNotLetEnterPressAButton();
    void shouldLeaveKeysThatMeanNothingHere();
    void shouldGiveEveryControlATip();
    void shouldLetTabLeaveTheTables();
    void shouldLetNobodyTypeIntoTheReport();
    void shouldFitASmallScreen();
    void shouldNotGreyItsNotices();
    void shouldFollowTheLanguage();
};

void AbcMatchingDialogTest::shouldDeclareItsSignalsInOrder()
{
    const QStringList expected{
        QStringLiteral("startTipMea()"),
        QStringLiteral("updateRequest()"),
        QStringLiteral("applyTrafoRequest(bsMatrix)"),
        QStringLiteral("do_updateProgressbar(double)"),
        QStringLiteral("do_addMeasuredPoint()"),
        QStringLiteral("do_setTrafoText(QString)"),
    };
    QCOMPARE(ownMethods(QMetaMethod::Signal), expected);
}

void AbcMatchingDialogTest::shouldDeclareItsSlotsInOrder()
{
    const QStringList expected{
        QStringLiteral("update_and_exec()"),
        QStringLiteral("on_pushButton_clearMeaPoints_clicked()"),
        QStringLiteral("on_pushButton_help_clicked()"),
        QStringLiteral("on_tableWidget_referencePoints_clicked(QModelIndex)"),
        QStringLiteral("on_tableWidget_referencePoints_itemChanged(QTableWidgetItem*)"),
        QStringLiteral("on_tableWidget_measuredPoints_itemSelectionChanged()"),
        QStringLiteral("on_comboBox_meatool_currentIndexChanged(int)"),
        QStringLiteral("on_pushButton_removeRefPoint_clicked()"),
        QStringLiteral("on_pushButton_addRefPoint_clicked()"),
        QStringLiteral("on_pushButton_save_clicked()"),
        QStringLiteral("on_w_orderCheckBox_toggled(bool)"),
        QStringLiteral("on_w_applyButton_clicked()"),
        QStringLiteral("on_w_removeButton_clicked()"),
        QStringLiteral("on_w_measureButton_clicked()"),
        QStringLiteral("on_w_loadButton_clicked()"),
        QStringLiteral("on_w_closeButton_clicked()"),
        QStringLiteral("load()"),
        QStringLiteral("remove()"),
        QStringLiteral("apply()"),
        QStringLiteral("onRPSelected(QModelIndex)"),
        QStringLiteral("onOrderToggled(bool)"),
        QStringLiteral("updateProgressbar(double)"),
        QStringLiteral("showTrackingStatus()"),
        QStringLiteral("addMeasuredPoint()"),
        QStringLiteral("setTrafoText(QString)"),
    };
    QCOMPARE(ownMethods(QMetaMethod::Slot), expected);
}

void AbcMatchingDialogTest::shouldBuildTheForm()
{
    OpenedDialog opened;
    QCOMPARE(opened.dialog().objectName(), QStringLiteral("AbcMatchingDialogClass"));
    QCOMPARE(opened.dialog().windowTitle(), QStringLiteral("Room Adjustment Based On Reference Points"));
    const std::pair<const char *, const char *> texts[] = {
        {"w_orderCheckBox", "&preserve order of points"},
        {"w_loadButton", "&Load"},
        {"pushButton_save", "&Save"},
        {"pushButton_addRefPoint", "&Add"},
        {"pushButton_removeRefPoint", "Remove"},
        {"w_measureButton", "&Measure"},
        {"w_replaceCheckBox", "&replace selected"},
        {"w_removeButton", "Remove"},
        {"pushButton_clearMeaPoints", "&Clear"},
        {"pushButton_help", "&Help"},
        {"w_applyButton", "Apply"},
        {"w_closeButton", "Cancel"},
    };
    for (const auto &[name, text] : texts)
        QCOMPARE(opened.find<QAbstractButton>(name)->text(), QLatin1String(text));
    QCOMPARE(opened.find<QLabel>("label_meatool")->text(), QStringLiteral("Measurement &Tool:"));
    QCOMPARE(opened.find<QLabel>("label_meatool")->buddy(), opened.find<QWidget>("comboBox_meatool"));
    QVERIFY(opened.find<QTextEdit>("w_trafoText")->isReadOnly());
    for (const char *name : {"tableWidget_referencePoints", "tableWidget_measuredPoints"}) {
        const auto *table = opened.find<QTableWidget>(name);
        QCOMPARE(table->columnCount(), 3);
        QCOMPARE(table->horizontalHeaderItem(0)->text(), QStringLiteral("x[mm]"));
        QCOMPARE(table->horizontalHeaderItem(1)->text(), QStringLiteral("y[mm]"));
        QCOMPARE(table->horizontalHeaderItem(2)->text(), QStringLiteral("z[mm]"));
    }
    QVERIFY(!opened.isEnabled("w_applyButton"));
    QCOMPARE(opened.find<QProgressBar>("progressBar")->value(), 0);
}

void AbcMatchingDialogTest::shouldNotCallTheControllerWhenBuilt()
{
    OpenedDialog opened;
    opened.destroy();
    QVERIFY(opened.host().calls().isEmpty());
}

void AbcMatchingDialogTest::shouldNotLetEnterPressAButton()
{
    OpenedDialog opened;
    const auto buttons = opened.dialog().findChildren<QPushButton *>();
    for (const QPushButton *button : buttons)
        QVERIFY2(!button->autoDefault() && !button->isDefault(), qPrintable(button->objectName()));
}

void AbcMatchingDialogTest::shouldLeaveKeysThatMeanNothingHere()
{
    OpenedDialog opened;
    QKeyEvent unknown(QEvent::KeyPress, Qt::Key_F7, Qt::NoModifier);
    QApplication::sendEvent(&opened.dialog(), &unknown);
    QVERIFY(!unknown.isAccepted());
    QKeyEvent known(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(&opened.dialog(), &known);
    QVERIFY(known.isAccepted());
}

void AbcMatchingDialogTest::shouldGiveEveryControlATip()
{
    OpenedDialog opened;
    for (const char *name : matchingControls) {
        const auto *control = opened.find<QWidget>(name);
        QVERIFY2(!control->toolTip().isEmpty(), name);
        const auto *button = qobject_cast<const QAbstractButton *>(control);
        QVERIFY2(button || !control->accessibleName().isEmpty(), name);
    }
}

void AbcMatchingDialogTest::shouldLetTabLeaveTheTables()
{
    OpenedDialog opened;
    QVERIFY(!opened.find<QTableWidget>("tableWidget_referencePoints")->tabKeyNavigation());
    QVERIFY(!opened.find<QTableWidget>("tableWidget_measuredPoints")->tabKeyNavigation());
    QVERIFY(opened.find<QTextEdit>("w_trafoText")->tabChangesFocus());
}

void AbcMatchingDialogTest::shouldLetNobodyTypeIntoTheReport()
{
    OpenedDialog opened;
    auto *report = opened.find<QTextEdit>("w_trafoText");
    QTest::keyClicks(report, "abc");
    QCOMPARE(report->toPlainText(), QString());
    QVERIFY(report->isReadOnly());
    QVERIFY(!report->testAttribute(Qt::WA_InputMethodEnabled));
}

void AbcMatchingDialogTest::shouldFitASmallScreen()
{
    OpenedDialog opened;
    opened.run([&] {
        // Half of 1920 x 1080, and what window managers and panels take of it.
        QVERIFY(opened.dialog().minimumSizeHint().height() <= 500);
        QVERIFY(opened.dialog().minimumSizeHint().width() <= 940);
        for (int row = 0; row < 9; ++row)
            opened.measure({row * 10.0, 0, 0});
        opened.dialog().resize(opened.dialog().minimumSizeHint());
        const QRect window = opened.dialog().rect();
        const auto buttons = opened.dialog().findChildren<QAbstractButton *>();
        for (const QAbstractButton *button : buttons) {
            const QRect place(button->mapTo(&opened.dialog(), QPoint()), button->size());
            QVERIFY2(!button->isVisible() || window.contains(place), qPrintable(button->objectName()));
        }
        const auto *table = opened.find<QTableWidget>("tableWidget_measuredPoints");
        QTRY_VERIFY(table->viewport()->rect().contains(table->visualItemRect(table->item(8, 0)).center()));
    });
}

void AbcMatchingDialogTest::shouldNotGreyItsNotices()
{
    OpenedDialog opened;
    opened.versions() = interfaceVersion(1, 2);
    opened.run([&] {
        QVERIFY(!opened.notice().isEmpty());
        QVERIFY(opened.isEnabled("label_notice"));
        QVERIFY(!opened.isEnabled("label_transformation"));
    });
}

void AbcMatchingDialogTest::shouldFollowTheLanguage()
{
    OpenedDialog opened;
    opened.host().setAnswer(QStringLiteral("measurementtool tip_calibrated b01"), "no");
    opened.run([&] {
        const QString notice = opened.find<QLabel>("label_error")->text();
        StarTranslator stars;
        QVERIFY(QCoreApplication::installTranslator(&stars));
        QTRY_COMPARE(opened.find<QPushButton>("w_loadButton")->text(), QStringLiteral("*&Load"));
        QCOMPARE(opened.find<QTableWidget>("tableWidget_measuredPoints")->horizontalHeaderItem(2)->text(),
                 QStringLiteral("*z[mm]"));
        QCOMPARE(opened.find<QLabel>("label_error")->text(), QStringLiteral("*") + notice);
        opened.click("pushButton_addRefPoint");
        QVERIFY(opened.report().startsWith(QStringLiteral("*Cannot evaluate")));
        QCoreApplication::removeTranslator(&stars);
        QTRY_VERIFY(opened.report().startsWith(QStringLiteral("Cannot evaluate")));
    });
}

ROOM_TEST_CLASS(AbcMatchingDialogTest)

#include "AbcMatchingDialogTest.moc"
