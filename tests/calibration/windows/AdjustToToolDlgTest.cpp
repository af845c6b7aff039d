#include "AdjustToToolDlg.h"
#include "AngleToolFixture.h"
#include "CalibrationProgressDlg.h"
#include "ModalAnswer.h"

#include "TestLanguage.h"
#include "TestRegistry.h"
#include "WheelTurn.h"

#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QtTest>

namespace
{

constexpr std::array<const char *, 4> fieldNames{"doubleSpinBox_a", "doubleSpinBox_b", "doubleSpinBox_c",
                                                 "doubleSpinBox_height"};

QString expert()
{
    return spoken("AdjustToToolDlg", "expert");
}

/// Opens the dialog with fields that can be edited and the focus on a button, and does this inside.
void openForAnExpert(CalibrationBench *bench, AngleToolFixture *dialog, const std::function<void()> &action)
{
    setUpAngleTool(bench);
    bool isActive = false;
    dialog->openAnd([&] {
        isActive = QTest::qWaitForWindowActive(dialog);
        dialog->models()->setCurrentText(expert());
        dialog->button("pushButton_exit")->setFocus();
        action();
    });
    QVERIFY(isActive);
}

} // namespace

class AdjustToToolDlgTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldLookAsAgreedAndAskNothing()
    {
        CalibrationBench bench;
        const AngleToolFixture dialog(&bench);

        QCOMPARE(bench.host.calls(), QStringList());
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Adjust Room Coordinates To Angle Tool"));
        QCOMPARE(dialog.text("label_a"), QStringLiteral("A (1-2) [mm]"));
        QCOMPARE(dialog.text("label_b"), QStringLiteral("B (1-4) [mm]"));
        QCOMPARE(dialog.text("label_c"), QStringLiteral("C (1-3) [mm]"));
        QCOMPARE(dialog.text("label_height"), QStringLiteral("height [mm]"));
        QCOMPARE(dialog.text("label_coordinatesystem"), QStringLiteral("coordinate system"));
        QCOMPARE(dialog.text("label_distances"), QStringLiteral("marker distances"));
        QCOMPARE(dialog.button("pushButton_calibrate")->text(), QStringLiteral("&Calibrate"));
        QCOMPARE(dialog.button("pushButton_exit")->text(), QStringLiteral("E&xit"));
        const auto *picture = dialog.findChild<QLabel *>(QStringLiteral("label"));
        QVERIFY(picture->pixmap(Qt::ReturnByValue).width() >= 300);
        for (const char *name : fieldNames) {
            QCOMPARE(dialog.spinBox(name)->decimals(), 3);
            QCOMPARE(dialog.spinBox(name)->minimum(), 0.0);
            QCOMPARE(dialog.spinBox(name)->maximum(), 9999.0);
        }
    }

    void shouldPutTheModelsValuesIntoTheFields()
    {
        CalibrationBench bench;
        const AngleToolFixture dialog(&bench);

        dialog.models()->setCurrentText(QStringLiteral("Angle Frame B"));
        QCOMPARE(dialog.values(), (QList<double>{192.0, 57.0, 112.5, 15.6}));
        for (const char *name : fieldNames)
            QVERIFY(!dialog.spinBox(name)->isEnabled());

        dialog.models()->setCurrentText(QStringLiteral("expert"));
        QCOMPARE(dialog.values(), (QList<double>{240.0, 90.0, 150.0, 40.0}));
        for (const char *name : fieldNames)
            QVERIFY(dialog.spinBox(name)->isEnabled());
    }

    void shouldTakeWhatIsTypedAndClickedAsItIsMeant()
    {
        CalibrationBench bench;
        AngleToolFixture dialog(&bench);
        openForAnExpert(&bench, &dialog, [&] {
            for (const char *name : fieldNames) {
                QDoubleSpinBox *field = dialog.spinBox(name);
                auto *edit = field->findChild<QLineEdit *>();
                QTest::mouseClick(edit, Qt::LeftButton);
                QCOMPARE(edit->selectedText(), field->text());
                QTest::keyClicks(field, QStringLiteral("278,5"));
                QCOMPARE(field->value(), 278.5);
                QTest::keyClicks(field, QStringLiteral(".1"));
                dialog.button("pushButton_exit")->setFocus();
                QVERIFY(field->value() != 278.5);
            }
        });
        QCOMPARE(dialog.values(), (QList<double>{240.0, 90.0, 150.0, 40.0}));
    }

    void shouldGoThroughTheFieldsOfAnExpertInReadingOrder()
    {
        CalibrationBench bench;
        AngleToolFixture dialog(&bench);
        QStringList visited;
        openForAnExpert(&bench, &dialog, [&] {
            dialog.models()->setFocus();
            for (int i = 0; i < 7; ++i) {
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
                visited << QApplication::focusWidget()->objectName();
            }
        });
        const QStringList expected = {QStringLiteral("doubleSpinBox_a"),
                                      QStringLiteral("doubleSpinBox_b"),
                                      QStringLiteral("doubleSpinBox_c"),
                                      QStringLiteral("doubleSpinBox_height"),
                                      QStringLiteral("comboBox_coordinateSystem"),
                                      QStringLiteral("pushButton_calibrate"),
                                      QStringLiteral("pushButton_exit")};
        QCOMPARE(visited, expected);
    }

    void shouldKeepItsValuesWhenTheWheelPassesOverThem()
    {
        CalibrationBench bench;
        AngleToolFixture dialog(&bench);
        openForAnExpert(&bench, &dialog, [&] {
            for (const char *name : fieldNames)
                turnWheelOver(dialog.spinBox(name), 1);
            for (QComboBox *list : {dialog.models(), dialog.types()})
                turnWheelOver(list, 1);
            QCOMPARE(dialog.values(), (QList<double>{240.0, 90.0, 150.0, 40.0}));
            QCOMPARE(dialog.models()->currentText(), expert());
            QCOMPARE(dialog.types()->currentIndex(), 1);
            turnWheelOver(dialog.types(), -1);
            QCOMPARE(dialog.types()->currentIndex(), 1);
        });
    }

    void shouldKeepTheValuesOfAModelReadable()
    {
        CalibrationBench bench;
        AngleToolFixture dialog(&bench);
        QPalette dark = dialog.palette();
        dark.setColor(QPalette::Text, QColor(250, 251, 252));
        dialog.setPalette(dark);
        for (const char *name : fieldNames)
            QCOMPARE(dialog.spinBox(name)->palette().color(QPalette::Disabled, QPalette::Text),
                     QColor(250, 251, 252));
    }

    void shouldReadTheControllersSettingsAtEachOpening()
    {
        CalibrationBench bench;
        setUpAngleTool(&bench);
        AngleToolFixture dialog(&bench);

        for (int i = 0; i < 2; ++i) {
            bench.host.clear();
            QCOMPARE(dialog.openAnd([] {}), int(QDialog::Accepted));
            QCOMPARE(bench.host.calls(), openingCalls());
            QCOMPARE(dialog.types()->count(), 3);
        }
        QCOMPARE(dialog.models()->currentText(), QStringLiteral("Angle Frame A"));
        QCOMPARE(dialog.types()->itemText(0), QStringLiteral("Normal (z axis up)"));
        QCOMPARE(dialog.types()->itemText(1), QStringLiteral("Powerwall"));
        QCOMPARE(dialog.types()->itemData(2).toString(), QStringLiteral("powerwall_standing"));
        QCOMPARE(dialog.types()->currentIndex(), 1);
    }

    void shouldPreselectTheModelWithTheseValues_data()
    {
        QTest::addColumn<QByteArray>("distances");
        QTest::addColumn<QByteArray>("height");
        QTest::addColumn<QString>("model");
        const auto row = [](const char *name, const char *distances, const char *height, const char *model) {
            QTest::newRow(name) << QByteArray(distances) << QByteArray(height) << QString::fromLatin1(model);
        };
        row("frame B", "192 57 112.5", "15.6", "Angle Frame B");
        row("active frame B", "192 57 112.5", "15.5", "Angle Frame B (active)");
        row("expert by its values", "240 90 150", "40", "expert");
        row("nearly frame A", "278 83 163", "55.0004", "expert");
        row("no numbers", "nan inf 163", "55", "expert");
    }

    void shouldPreselectTheModelWithTheseValues()
    {
        QFETCH(QByteArray, distances);
        QFETCH(QByteArray, height);
        CalibrationBench bench;
        setUpAngleTool(&bench);
        bench.set("roomcal angle", distances);
        bench.set("roomcal angle_height", height);
        AngleToolFixture dialog(&bench);
        (void)dialog.openAnd([] {});
        QTEST(dialog.models()->currentText(), "model");
    }

    void shouldPutOtherValuesIntoTheExpertFields()
    {
        CalibrationBench bench;
        setUpAngleTool(&bench);
        bench.set("roomcal angle", "300.125 80.5 170.25");
        bench.set("roomcal angle_height", "12.75");
        AngleToolFixture dialog(&bench);

        (void)dialog.openAnd([&] { dialog.spinBox("doubleSpinBox_b")->setValue(1.0); });
        (void)dialog.openAnd([] {});

        QCOMPARE(dialog.models()->currentText(), QStringLiteral("expert"));
        QCOMPARE(dialog.values(), (QList<double>{300.125, 80.5, 170.25, 12.75}));
        QVERIFY(dialog.spinBox("doubleSpinBox_a")->isEnabled());
    }

    void shouldKeepTheExpertValuesOfWhatCannotBeRead_data()
    {
        QTest::addColumn<int>("failing");
        QTest::addColumn<QString>("report");
        QTest::addColumn<QList<double>>("values");
        QTest::newRow("distances") << 10
                                   << QStringLiteral("Error: Unable to get values of last used angle tool")
                                   << QList<double>{240.0, 90.0, 150.0, 55.0};
        QTest::newRow("height") << 11 << QStringLiteral("Error: Unable to angle tool height")
                                << QList<double>{278.0, 83.0, 163.0, 40.0};
    }

    void shouldKeepTheExpertValuesOfWhatCannotBeRead()
    {
        QFETCH(int, failing);
        QFETCH(QString, report);
        CalibrationBench bench;
        setUpAngleTool(&bench);
        bench.host.failCall(failing);
        AngleToolFixture dialog(&bench);

        (void)dialog.openAnd([] {});

        QCOMPARE(bench.host.reports(), QStringList{report});
        QCOMPARE(dialog.models()->currentText(), QStringLiteral("expert"));
        QTEST(dialog.values(), "values");
    }

    void shouldSelectTheFirstTypeWhenTheChosenOneIsNotOffered_data()
    {
        QTest::addColumn<QByteArray>("chosen");
        QTest::newRow("not offered for the angle tool") << QByteArray("mid_camera");
        QTest::newRow("other case") << QByteArray("Powerwall");
        QTest::newRow("nothing") << QByteArray();
    }

    void shouldSelectTheFirstTypeWhenTheChosenOneIsNotOffered()
    {
        QFETCH(QByteArray, chosen);
        CalibrationBench bench;
        setUpAngleTool(&bench);
        bench.set("roomcal coordinate_type", chosen);
        AngleToolFixture dialog(&bench);
        (void)dialog.openAnd([] {});
        QCOMPARE(dialog.types()->currentIndex(), 0);
    }

    void shouldCloseByExitAndEscapeOnly()
    {
        CalibrationBench bench;
        setUpAngleTool(&bench);
        AngleToolFixture dialog(&bench);
        bool staysOpen = false;
        const auto exit = [&] {
            QTest::keyClick(&dialog, Qt::Key_Return);
            staysOpen = dialog.isVisible();
            QTest::mouseClick(dialog.button("pushButton_exit"), Qt::LeftButton);
        };

        QCOMPARE(dialog.openAnd(exit), int(QDialog::Accepted));
        QVERIFY(staysOpen);
        QCOMPARE(dialog.openAnd([&] { QTest::keyClick(&dialog, Qt::Key_Escape); }), int(QDialog::Rejected));
        QCOMPARE(bench.host.calls(), openingCalls() + openingCalls());
    }

    void shouldIgnoreASecondOpening()
    {
        CalibrationBench bench;
        setUpAngleTool(&bench);
        AngleToolFixture dialog(&bench);
        int second = -1;
        (void)dialog.openAnd([&] { second = dialog.openAndExec(); });
        QCOMPARE(second, 0);
        QCOMPARE(bench.host.calls(), openingCalls());
    }

    void shouldKeepTheSlotsInTheirOrder()
    {
        const QMetaObject &meta = AdjustToToolDlg::staticMetaObject;
        QStringList slotNames;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            slotNames.append(QString::fromLatin1(meta.method(i).methodSignature()));
        QCOMPARE(slotNames,
                 lines({"on_pushButton_exit_clicked()", "on_pushButton_calibrate_clicked()",
                        "on_comboBox_md_currentIndexChanged(QString)", "keyPressEvent(QKeyEvent*)"}));
    }
};

ROOM_TEST_CLASS(AdjustToToolDlgTest)
#include "AdjustToToolDlgTest.moc"
