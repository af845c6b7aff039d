#include "ReadingProgress.h"

#include "ModalAnswer.h"
#include "PiecewiseReading.h"
#include "TestRegistry.h"

#include <QProgressBar>
#include <QPushButton>
#include <QtTest>

#include <memory>

namespace
{

/// Has something to read until it is told otherwise.
class EndlessReading : public PiecewiseReading
{
public:
    bool readPiece() override
    {
        ++pieces;
        return !ended;
    }
    int percent() const override { return 42; }

    int pieces = 0;
    bool ended = false;
};

} // namespace

class ReadingProgressTest : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_window = std::make_unique<QWidget>(); }

    void shouldShowNothingWhereReadingIsQuick()
    {
        EndlessReading reading;
        reading.ended = true;
        ModalAnswer answer;
        QVERIFY(ReadingProgress::readAll(reading, m_window.get(), "Reading"));
        QCOMPARE(reading.pieces, 1);
        QCOMPARE(answer.unexpected(), QStringList());
    }

    void shouldReadOnInAWindowOfItsOwn()
    {
        // GIVEN
        EndlessReading reading;
        ModalAnswer answer;
        answer.then([&](QWidget *window) {
            const auto *progress = qobject_cast<QProgressDialog *>(window);
            QVERIFY(progress);
            QCOMPARE(progress->labelText(), QString("Reading"));
            QTRY_COMPARE(progress->findChild<QProgressBar *>()->value(), 42);
            const int pieces = reading.pieces;
            QTRY_VERIFY(reading.pieces > pieces);
            reading.ended = true;
        });
        // WHEN
        const bool all = ReadingProgress::readAll(reading, m_window.get(), "Reading");
        // THEN
        QVERIFY(all);
        QVERIFY(answer.isDone());
        QVERIFY(m_window->children().isEmpty());
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
        EndlessReading reading;
        ModalAnswer answer;
        answer.then([&](QWidget *window) {
            if (byKey)
                QTest::keyClick(window, Qt::Key_Escape);
            else
                QTest::mouseClick(window->findChild<QPushButton *>(), Qt::LeftButton);
        });
        QVERIFY(!ReadingProgress::readAll(reading, m_window.get(), "Reading"));
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
        EndlessReading reading;
        ModalAnswer answer;
        if (pieces > 0)
            QTimer::singleShot(0, [this] { m_window.reset(); });
        else
            answer.then([this](QWidget *) { QTimer::singleShot(0, [this] { m_window.reset(); }); });
        QVERIFY(!ReadingProgress::readAll(reading, m_window.get(), "Reading"));
        QVERIFY(!m_window);
        QVERIFY(answer.isDone());
    }

private:
    std::unique_ptr<QWidget> m_window;
};

ROOM_TEST_CLASS(ReadingProgressTest)

#include "ReadingProgressTest.moc"
