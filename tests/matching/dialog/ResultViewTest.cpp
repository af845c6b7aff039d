#include "ResultView.h"

#include "PointTable.h"
#include "TestRegistry.h"
#include "ui_AbcMatchingDialog.h"

#include <QDialog>
#include <QtTest>

namespace
{

/// The result on a form without a dialog, with three points in each table.
struct Form {
    Form()
    {
        ui.setupUi(&dialog);
        references =
            std::make_unique<PointTable>(ui.tableWidget_referencePoints, PointTable::Cells::Editable);
        measured = std::make_unique<PointTable>(ui.tableWidget_measuredPoints, PointTable::Cells::ReadOnly);
        references->replaceRows(0, 0, PointRows(3));
        measured->replaceRows(0, 0, PointRows(3));
        view = std::make_unique<ResultView>(ui, *references, *measured);
    }

    /// The rows of a table that are set off.
    static QString marked(const QTableWidget *table)
    {
        QString rows;
        for (int row = 0; row < table->rowCount(); ++row)
            rows += table->item(row, 0)->toolTip().isEmpty() ? QString() : QString::number(row);
        return rows;
    }

    [[nodiscard]] QString report() const { return ui.w_trafoText->toPlainText(); }

    QDialog dialog;
    Ui::AbcMatchingDialogClass ui;
    std::unique_ptr<PointTable> references;
    std::unique_ptr<PointTable> measured;
    std::unique_ptr<ResultView> view;
};

/// Three pairs, of which the second, with the third measured point, is the worst.
MatchingEvaluation worstSecond()
{
    MatchingEvaluation evaluation;
    evaluation.outcome = MatchingEvaluation::Outcome::Matched;
    evaluation.order = {0, 2, 1};
    evaluation.mapped = MatchingPoints(3);
    evaluation.distancesMm = {0.1, 9.0, 0.1};
    evaluation.worstPair = 1;
    return evaluation;
}

} // namespace

class ResultViewTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldShowReportAndWorstRows()
    {
        // GIVEN
        const Form form;
        // WHEN
        form.view->show(worstSecond(), FitTrust());
        // THEN
        QVERIFY(form.report().startsWith(QStringLiteral("Transformation evaluation report :")));
        QCOMPARE(Form::marked(form.ui.tableWidget_referencePoints), QStringLiteral("1"));
        QCOMPARE(Form::marked(form.ui.tableWidget_measuredPoints), QStringLiteral("2"));
        QVERIFY(form.view->evaluation().has_value());
    }

    void shouldForgetTheResultWhileItIsSearchedForAnother()
    {
        // GIVEN
        const Form form;
        form.view->show(worstSecond(), FitTrust());
        // WHEN
        form.view->showSearching();
        // THEN
        QCOMPARE(form.report(), QStringLiteral("Searching for the best order of the measured points ..."));
        QCOMPARE(Form::marked(form.ui.tableWidget_referencePoints), QString());
        QVERIFY(!form.view->evaluation());
    }

    void shouldKeepTheReportWhenTheResultIsForgotten()
    {
        // GIVEN
        const Form form;
        form.view->show(worstSecond(), FitTrust());
        const QString before = form.report();
        // WHEN
        form.view->clear();
        // THEN
        QCOMPARE(form.report(), before);
        QVERIFY(!form.view->evaluation());
    }

    void shouldTellATextAnewOnlyWhenItsSourceIsKnown()
    {
        // GIVEN
        const Form form;
        int told = 0;
        // WHEN, THEN
        form.view->showReport(QStringLiteral("of a tool"));
        form.view->retranslate();
        QCOMPARE(form.report(), QStringLiteral("of a tool"));
        form.view->setReportSource([&told] { return QStringLiteral("of a tool, %1").arg(++told); });
        form.view->retranslate();
        QCOMPARE(form.report(), QStringLiteral("of a tool, 1"));
    }
};

ROOM_TEST_CLASS(ResultViewTest)
#include "ResultViewTest.moc"
