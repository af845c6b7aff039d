#include "ResultOffers.h"

#include "MatchingLists.h"
#include "MatchingNotices.h"
#include "ModalAnswer.h"
#include "ReportHandout.h"
#include "ResultView.h"
#include "TestRegistry.h"
#include "ui_AbcMatchingDialog.h"

#include <QClipboard>
#include <QDialog>
#include <QProgressDialog>
#include <QTimer>
#include <QtTest>

#include <memory>

namespace
{

/// What is offered on a form without a dialog; three points in each list that fit after a shift of 10 mm.
struct Form {
    Form()
    {
        ui.setupUi(&dialog);
        lists =
            std::make_unique<MatchingLists>(ui.tableWidget_referencePoints, ui.tableWidget_measuredPoints);
        lists->referenceList().replace(0, 0, {{{0, 0, 0}, {}}, {{100, 0, 0}, {}}, {{0, 50, 0}, {}}});
        lists->measuredList().replace(0, 0, {{{10, 0, 0}, {}}, {{110, 0, 0}, {}}, {{10, 50, 0}, {}}});
        view = std::make_unique<ResultView>(ui, lists->referenceTable(), lists->measuredTable());
        notices = std::make_unique<MatchingNotices>(ui.scrollArea_notice, ui.label_notice);
        offers = new ResultOffers(*lists, *view, *notices, &dialog);
    }

    void match() const
    {
        using Order = MatchingEvaluation::Order;
        view->show(MatchingEvaluation::of(lists->references(), lists->measured(), Order::Preserved, {}),
                   FitTrust());
    }

    /// A result of so many pairs, with so many digits, that its report takes seconds.
    void matchMany() const
    {
        constexpr std::size_t pairs = 2000000;
        constexpr double manyDigits = 1e200 / 3.0;
        MatchingEvaluation evaluation;
        evaluation.outcome = MatchingEvaluation::Outcome::Matched;
        evaluation.order.assign(pairs, 0);
        evaluation.distancesMm.assign(pairs, manyDigits);
        view->show(evaluation, FitTrust());
    }

    QDialog dialog;
    Ui::AbcMatchingDialogClass ui;
    std::unique_ptr<MatchingLists> lists;
    std::unique_ptr<ResultView> view;
    std::unique_ptr<MatchingNotices> notices;
    ResultOffers *offers;
};

QString copied(const Form &form)
{
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    form.offers->handout().copy();
    return QGuiApplication::clipboard()->text();
}

} // namespace

class ResultOffersTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldOfferNothingWithoutAResult()
    {
        // GIVEN
        const Form form;
        const ModalAnswer answer;
        // WHEN
        form.offers->showPicture();
        // THEN
        QCOMPARE(copied(form), QStringLiteral("before"));
        QCOMPARE(answer.unexpected(), QStringList());
    }

    void shouldShowThePictureOfTheResult()
    {
        // GIVEN
        const Form form;
        form.match();
        ModalAnswer answer;
        QString shown;
        answer.then([&shown](QWidget *window) {
            shown = QString::fromLatin1(window->metaObject()->className());
            window->close();
        });
        // WHEN
        form.offers->showPicture();
        // THEN
        QCOMPARE(shown, QStringLiteral("FitPictureWindow"));
    }

    void shouldHandOutNothingWhenMakingTheReportIsCancelled_data()
    {
        QTest::addColumn<bool>("isSaved");
        QTest::addColumn<bool>("isDestroyed");
        QTest::newRow("copied") << false << false;
        QTest::newRow("saved") << true << false;
        QTest::newRow("copied, the window goes") << false << true;
        QTest::newRow("saved, the window goes") << true << true;
    }

    void shouldHandOutNothingWhenMakingTheReportIsCancelled()
    {
        // GIVEN
        QFETCH(bool, isSaved);
        QFETCH(bool, isDestroyed);
        auto form = std::make_unique<Form>();
        form->matchMany();
        QGuiApplication::clipboard()->setText(QStringLiteral("before"));
        const QSignalSpy told(&form->offers->handout(), &ReportHandout::noticeChanged);
        ModalAnswer answer;
        answer.then([&](QWidget *window) {
            const auto *progress = qobject_cast<QProgressDialog *>(window);
            QVERIFY(progress);
            QCOMPARE(progress->labelText(), QStringLiteral("Making the report..."));
            if (isDestroyed)
                QTimer::singleShot(0, window, [&form] { form.reset(); });
            else
                QTest::keyClick(window, Qt::Key_Escape);
        });
        // WHEN
        ReportHandout &handout = form->offers->handout();
        if (isSaved)
            handout.save(); // would ask for a file
        else
            handout.copy();
        // THEN
        QVERIFY(answer.isDone());
        QCOMPARE(answer.unexpected(), QStringList());
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("before"));
        QCOMPARE(told.count(), 0);
        QCOMPARE(form == nullptr, isDestroyed);
    }

    void shouldReportTheResultWithWhatItWasToldBesides()
    {
        // GIVEN
        const Form form;
        form.match();
        RoomTrafoData held;
        held.translation = {1.0, 2.0, 3.5};
        form.offers->setRoom(held, 1.02);
        form.offers->setModuleVersion(QStringLiteral("v9.8"));
        // WHEN
        const QString report = copied(form);
        // THEN
        QVERIFY(report.contains(QStringLiteral("v9.8")));
        QVERIFY(report.contains(QStringLiteral("1.02")));
        QVERIFY(report.contains(QStringLiteral("3.5")));
        QVERIFY(report.contains(QStringLiteral("110")));
    }
};

ROOM_TEST_CLASS(ResultOffersTest)
#include "ResultOffersTest.moc"
