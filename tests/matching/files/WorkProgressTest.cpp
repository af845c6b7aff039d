#include "WorkProgress.h"

#include "ModalAnswer.h"
#include "PiecewiseWork.h"
#include "TestRegistry.h"

#include <QElapsedTimer>
#include <QProgressBar>
#include <QPushButton>
#include <QtTest>

#include <memory>

namespace
{

/// Has something to do until it is told otherwise.
class EndlessWork : public PiecewiseWork
{
public:
    bool doPiece() override
    {
        ++pieces;
        return !ended;
    }
    int percent() const override { return done; }

    int done = 42;
    int pieces = 0;
    bool ended = false;
};

} // namespace

class WorkProgressTest : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_window = std::make_unique<QWidget>(); }

    void shouldShowNothingWhereWorkIsQuick()
    {
        EndlessWork work;
        work.ended = true;
        ModalAnswer answer;
        QVERIFY(WorkProgress::doAll(work, m_window.get(), "Reading"));
        QCOMPARE(work.pieces, 1);
        QCOMPARE(answer.unexpected(), QStringList());
    }

    void shouldGoOnInAWindowOfItsOwn()
    {
        // GIVEN
        EndlessWork work;
        QElapsedTimer time;
        time.start();
        ModalAnswer answer;
        answer.then([&](QWidget *window) {
            QVERIFY(time.elapsed() >= 300); // shorter work is spared the window
            const auto *progress = qobject_cast<QProgressDialog *>(window);
            QVERIFY(progress);
            QCOMPARE(progress->labelText(), QString("Reading"));
            const auto *bar = progress->findChild<QProgressBar *>();
            QTRY_COMPARE(bar->value(), 42);
            work.done = 43;
            QTRY_COMPARE(bar->value(), 43);
            const int pieces = work.pieces;
            QTRY_VERIFY(work.pieces > pieces);
            work.ended = true;
        });
        // WHEN
        const bool all = WorkProgress::doAll(work, m_window.get(), "Reading");
        // THEN
        QVERIFY(all);
        QVERIFY(answer.isDone());
        QVERIFY(m_window->children().isEmpty());
    }

    void shouldNameItsBarInsteadOfWritingIntoIt()
    {
        // GIVEN
        EndlessWork work;
        bool isTextVisible = true;
        QString name;
        ModalAnswer answer;
        answer.then([&](QWidget *window) {
            const auto *bar = window->findChild<QProgressBar *>();
            isTextVisible = bar->isTextVisible();
            name = bar->accessibleName();
            work.ended = true;
        });
        // WHEN
        QVERIFY(WorkProgress::doAll(work, m_window.get(), "Reading"));
        // THEN
        QVERIFY(!isTextVisible);
        QCOMPARE(name, QString("Reading"));
    }

    void shouldEndByCancel_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("button") << false;
        QTest::newRow("Escape") << true;
    }

    void shouldEndByCancel()
    {
        QFETCH(bool, byKey);
        EndlessWork work;
        ModalAnswer answer;
        answer.then([&](QWidget *window) {
            if (byKey)
                QTest::keyClick(window, Qt::Key_Escape);
            else
                QTest::mouseClick(window->findChild<QPushButton *>(), Qt::LeftButton);
        });
        QVERIFY(!WorkProgress::doAll(work, m_window.get(), "Reading"));
        QVERIFY(answer.isDone());
        QVERIFY(m_window->children().isEmpty());
    }

    void shouldSurviveTheEndOfTheWindow_data()
    {
        QTest::addColumn<int>("pieces");
        QTest::newRow("before there is a progress window") << 1;
        QTest::newRow("behind the progress window") << 0;
    }

    void shouldSurviveTheEndOfTheWindow()
    {
        QFETCH(int, pieces);
        EndlessWork work;
        ModalAnswer answer;
        if (pieces > 0)
            QTimer::singleShot(0, qApp, [this] { m_window.reset(); });
        else
            answer.then([this](QWidget *) { QTimer::singleShot(0, qApp, [this] { m_window.reset(); }); });
        QVERIFY(!WorkProgress::doAll(work, m_window.get(), "Reading"));
        QVERIFY(!m_window);
        QVERIFY(answer.isDone());
    }

private:
    std::unique_ptr<QWidget> m_window;
};

ROOM_TEST_CLASS(WorkProgressTest)

#include "WorkProgressTest.moc"
