#include "MatchingControls.h"

#include "TestRegistry.h"
#include "ui_AbcMatchingDialog.h"

#include <QDialog>
#include <QtTest>

Q_DECLARE_METATYPE(MatchingState::Controls)

namespace
{

/// The controls on a form without a dialog.
struct Form {
    Form() { ui.setupUi(&dialog); }

    [[nodiscard]] QStringList enabled() const
    {
        QStringList names;
        for (const QWidget *control : std::initializer_list<QWidget *>{
                 ui.w_loadButton, ui.pushButton_save, ui.w_replaceCheckBox, ui.pushButton_clearMeaPoints,
                 ui.w_measureButton, ui.w_applyButton, ui.pushButton_picture, ui.pushButton_saveReport,
                 ui.pushButton_copyReport}) {
            if (control->isEnabled())
                names << control->objectName();
        }
        return names;
    }

    QDialog dialog;
    Ui::AbcMatchingDialogClass ui;
};

} // namespace

class MatchingControlsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldEnableWhatTheStateAllows_data()
    {
        QTest::addColumn<MatchingState::Controls>("allowed");
        QTest::addColumn<QStringList>("expected");
        MatchingState::Controls lists, save, replace, clear, measure, apply;
        lists.lists = save.save = replace.replace = clear.clear = measure.measure = apply.apply = true;
        QTest::newRow("nothing") << MatchingState::Controls() << QStringList();
        QTest::newRow("lists") << lists << QStringList("w_loadButton");
        QTest::newRow("save") << save << QStringList("pushButton_save");
        QTest::newRow("replace") << replace << QStringList("w_replaceCheckBox");
        QTest::newRow("clear") << clear << QStringList("pushButton_clearMeaPoints");
        QTest::newRow("measure") << measure << QStringList("w_measureButton");
        QTest::newRow("apply") << apply
                               << QStringList{"w_applyButton", "pushButton_picture", "pushButton_saveReport",
                                              "pushButton_copyReport"};
    }
    void shouldEnableWhatTheStateAllows()
    {
        // GIVEN
        QFETCH(MatchingState::Controls, allowed);
        QFETCH(QStringList, expected);
        Form form;
        MatchingControls controls(form.ui, form.dialog);
        // WHEN
        controls.show(allowed);
        // THEN
        QCOMPARE(form.enabled(), expected);
    }

    void shouldLetCancelAndTheNoticesAlone()
    {
        // GIVEN
        Form form;
        MatchingControls controls(form.ui, form.dialog);
        // WHEN
        controls.show({});
        // THEN
        QVERIFY(form.ui.w_closeButton->isEnabled());
        QVERIFY(form.ui.scrollArea_notice->isEnabled());
        QVERIFY(!form.ui.tableWidget_measuredPoints->isEnabled());
    }

    void shouldGiveTheFocusBackToMeasure_data()
    {
        QTest::addColumn<bool>("goesElsewhere");
        QTest::newRow("the user stays") << false;
        QTest::newRow("the user goes elsewhere") << true;
    }
    void shouldGiveTheFocusBackToMeasure()
    {
        // GIVEN
        QFETCH(bool, goesElsewhere);
        Form form;
        MatchingControls controls(form.ui, form.dialog);
        MatchingState::Controls measuring;
        measuring.others = measuring.lists = true;
        MatchingState::Controls ready = measuring;
        ready.measure = true;
        controls.show(ready);
        form.dialog.show();
        form.dialog.activateWindow();
        QTRY_VERIFY(form.dialog.isActiveWindow());
        form.ui.w_measureButton->setFocus();
        // WHEN
        controls.show(measuring);
        QVERIFY(!form.ui.w_measureButton->hasFocus());
        if (goesElsewhere)
            form.ui.w_closeButton->setFocus();
        controls.show(ready);
        // THEN
        QCOMPARE(form.ui.w_measureButton->hasFocus(), !goesElsewhere);
    }
};

ROOM_TEST_CLASS(MatchingControlsTest)
#include "MatchingControlsTest.moc"
