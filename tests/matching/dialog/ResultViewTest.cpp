#include "ResultView.h"

#include "MatchingReport.h"
#include "PointTable.h"
#include "TestRegistry.h"
#include "ui_AbcMatchingDialog.h"

#include <QDialog>
#include <QScrollBar>
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

/// So many pairs that their report is not shown in one piece.
MatchingEvaluation manyPairs()
{
    constexpr std::size_t pairs = 3000;
    MatchingEvaluation evaluation;
    evaluation.outcome = MatchingEvaluation::Outcome::Matched;
    evaluation.order.assign(pairs, 0);
    evaluation.mapped = MatchingPoints(pairs);
    evaluation.distancesMm.assign(pairs, 0.0);
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

    void shouldSetOffNothingOfTheResultBefore()
    {
        // GIVEN
        const Form form;
        form.view->show(worstSecond(), FitTrust());
        MatchingEvaluation exact = worstSecond();
        exact.worstPair = -1;
        // WHEN
        form.view->show(exact, FitTrust());
        // THEN
        QCOMPARE(Form::marked(form.ui.tableWidget_referencePoints), QString());
        QCOMPARE(Form::marked(form.ui.tableWidget_measuredPoints), QString());
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

    void shouldShowALongReportFromItsBeginningToItsEnd()
    {
        // GIVEN
        Form form;
        form.dialog.show();
        // WHEN
        form.view->show(manyPairs(), FitTrust());
        // THEN
        QVERIFY(form.report().startsWith(QStringLiteral("Transformation evaluation report :\n")));
        QVERIFY(!form.report().contains(QStringLiteral("\n Point 3000 ")));
        QTRY_VERIFY(form.report().endsWith(QStringLiteral("\nAll values are in [mm]")));
        QCOMPARE(form.report(), MatchingReport::report(manyPairs()));
        QCOMPARE(form.ui.w_trafoText->verticalScrollBar()->value(), 0);
    }

    void shouldShowNoRestOfAReportBehindAnotherText_data()
    {
        QTest::addColumn<bool>("isResult");
        QTest::newRow("a message") << false;
        QTest::newRow("a short result") << true;
    }

    void shouldShowNoRestOfAReportBehindAnotherText()
    {
        // GIVEN
        QFETCH(bool, isResult);
        const Form form;
        form.view->show(manyPairs(), FitTrust());
        // WHEN
        if (isResult)
            form.view->show(worstSecond(), FitTrust());
        else
            form.view->showReport(QStringLiteral("of a tool"));
        const QString shown = form.report();
        for (int turn = 0; turn < 5; ++turn)
            QCoreApplication::processEvents();
        // THEN
        QCOMPARE(form.report(), shown);
        QCOMPARE(form.report().contains(QStringLiteral("\n Point 3 ")), isResult);
    }

    void shouldTellALongReportAnewFromItsBeginning()
    {
        // GIVEN
        const Form form;
        form.view->show(manyPairs(), FitTrust());
        QCoreApplication::processEvents();
        // WHEN
        form.view->retranslate();
        // THEN
        QTRY_VERIFY(form.report().endsWith(QStringLiteral("\nAll values are in [mm]")));
        QCOMPARE(form.report(), MatchingReport::report(manyPairs()));
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
