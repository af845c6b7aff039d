#include "MeasuringView.h"

#include "TestRegistry.h"
#include "ToolSampler.h"
#include "ui_AbcMatchingDialog.h"

#include <QDialog>
#include <QSignalSpy>
#include <QtTest>

#include <limits>

namespace
{

/// What is shown on a form without a dialog.
struct Form {
    Form() { ui.setupUi(&dialog); }

    QDialog dialog;
    Ui::AbcMatchingDialogClass ui;
};

} // namespace

class MeasuringViewTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldListTheToolsSilently()
    {
        // GIVEN
        Form form;
        MeasuringView view(form.ui);
        const QSignalSpy changed(form.ui.comboBox_meatool, &QComboBox::currentTextChanged);
        // WHEN
        view.fill({2, 5});
        // THEN
        QCOMPARE(changed.count(), 0);
        QCOMPARE(form.ui.comboBox_meatool->itemText(1), QStringLiteral("M5"));
        QCOMPARE(view.selectedTool(), 2);
    }

    void shouldKeepThePositionThatWasSelectedLast()
    {
        // GIVEN
        Form form;
        MeasuringView view(form.ui);
        view.fill({2, 5});
        form.ui.comboBox_meatool->setCurrentIndex(1);
        // WHEN, THEN
        view.fill({});
        QCOMPARE(view.selectedTool(), int(ToolSampler::noTool));
        view.fill({7, 8});
        QCOMPARE(view.selectedTool(), 8);
        view.fill({9});
        QCOMPARE(view.selectedTool(), 9);
    }

    void shouldShowWhetherTheToolIsTracked_data()
    {
        QTest::addColumn<bool>("selected");
        QTest::addColumn<bool>("tracked");
        QTest::addColumn<QString>("text");
        QTest::newRow("tracked") << true << true << "The measurement tool is tracked";
        QTest::newRow("lost") << true << false << "The measurement tool is not tracked";
        QTest::newRow("none") << false << true << "No measurement tool is selected";
    }
    void shouldShowWhetherTheToolIsTracked()
    {
        // GIVEN
        QFETCH(bool, selected);
        QFETCH(bool, tracked);
        QFETCH(QString, text);
        Form form;
        MeasuringView view(form.ui);
        if (selected)
            view.fill({1});
        // WHEN
        view.showTracking(tracked);
        // THEN
        QCOMPARE(form.ui.label_trackedIcon->toolTip(), text);
        QCOMPARE(form.ui.label_trackedIcon->accessibleDescription(), text);
    }

    void shouldCountTheMeasuredPoints()
    {
        // GIVEN
        Form form;
        MeasuringView view(form.ui);
        // WHEN, THEN
        view.showCount(0, 0);
        QCOMPARE(form.ui.label_count->text(), QString());
        view.showCount(0, 6);
        QCOMPARE(form.ui.label_count->text(), QStringLiteral("0 of 6 points measured"));
        view.showNoToolNotice(true);
        QVERIFY(form.ui.label_count->isHidden());
        QVERIFY(form.ui.label_error->text().contains(QStringLiteral("No Measurement Tool available!")));
        view.showNoToolNotice(false);
        QCOMPARE(form.ui.label_error->text(), QString());
    }

    void shouldFillTheBarInHundredthsOfASecond_data()
    {
        QTest::addColumn<double>("duration");
        QTest::addColumn<double>("elapsed");
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("begun") << 2.0 << 0.0 << 0 << "0%";
        QTest::newRow("half") << 2.0 << 1.0 << 100 << "50%";
        QTest::newRow("beyond the end") << 2.0 << 3.0 << 200 << "100%";
        QTest::newRow("without an end") << 0.0 << 1.0 << 100 << "";
        QTest::newRow("no number") << 2.0 << std::numeric_limits<double>::quiet_NaN() << 0 << "0%";
    }
    void shouldFillTheBarInHundredthsOfASecond()
    {
        // GIVEN
        QFETCH(double, duration);
        QFETCH(double, elapsed);
        QFETCH(int, value);
        QFETCH(QString, text);
        Form form;
        MeasuringView view(form.ui);
        // WHEN
        view.showStart(duration);
        view.showElapsed(elapsed);
        // THEN
        QCOMPARE(form.ui.progressBar->value(), value);
        QCOMPARE(form.ui.label_progress->text(), text);
    }
};

ROOM_TEST_CLASS(MeasuringViewTest)
#include "MeasuringViewTest.moc"
