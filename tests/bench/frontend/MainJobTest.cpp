#include "MainJob.h"

#include "BenchWindow.h"
#include "BuiltFiles.h"
#include "FakeController.h"
#include "TestRegistry.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>
#include <QtTest>

namespace
{

constexpr int patienceMs = 60000;
constexpr double degreesPerRadian = 57.29577951308232;

/// A keyboard on which each key takes longer than the job takes between two looks at its next step.
class SlowKeys : public QObject
{
public:
    SlowKeys() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        constexpr unsigned long slowKeyMs = 70;
        if (event->type() == QEvent::KeyPress && watched->isWindowType())
            QThread::msleep(slowKeyMs);
        return false;
    }
};

/// Runs the main job on a module of the tests' own.
struct JobRun {
    explicit JobRun(FakeController &fake)
        : window(fake.channel, BuiltFiles::fakeModule(), false)
        , stream(&text)
        , job(window, fake.channel, folder.filePath(QStringLiteral("pictures")), stream)
    {
    }

    int exitCode()
    {
        if (!window.loadModule())
            return -1;
        window.show();
        QSignalSpy finished(&job, &MainJob::finished);
        job.start();
        if (finished.isEmpty() && !finished.wait(patienceMs))
            return -1;
        if (QWidget *left = QApplication::activeModalWidget())
            left->close();
        return finished.constFirst().constFirst().toInt();
    }

    QTemporaryDir folder;
    BenchWindow window;
    QString text;
    QTextStream stream;
    MainJob job;
};

} // namespace

class MainJobTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldLeaveTheControllerWithWhatWasAskedFor()
    {
        FakeController fake;
        JobRun run(fake);
        QCOMPARE(run.exitCode(), 0);
        const auto trafo = ControllerTrafo::read(fake.link);
        QVERIFY(trafo.has_value());
        QVERIFY(trafo->isNear(MainJob::wanted(ControllerTrafo())));
        QCOMPARE(trafo->rotation[1], -0.17364818);
        QCOMPARE(trafo->rotation[3], 0.17364818);
        QCOMPARE(trafo->translationMm[0], -250.0);
        QVERIFY(run.text.contains(
            QStringLiteral("setParameter\ttracking extra_translation -250.000 0.000 0.000")));
    }

    void shouldLeavePictures()
    {
        FakeController fake;
        JobRun run(fake);
        QCOMPARE(run.exitCode(), 0);
        const QDir pictures(run.folder.filePath(QStringLiteral("pictures")));
        const QStringList names = pictures.entryList({QStringLiteral("*.png")}, QDir::Files, QDir::Name);
        QCOMPARE(names.size(), 6);
        const QImage opened(pictures.filePath(names.at(1)));
        QVERIFY(opened.width() > run.window.width());
        QVERIFY(opened != QImage(pictures.filePath(names.at(0))));
    }

    void shouldFailWhenAWriteIsLost_data()
    {
        QTest::addColumn<QString>("prefix");
        QTest::newRow("rotation") << QStringLiteral("tracking extra_rotation");
        QTest::newRow("translation") << QStringLiteral("tracking extra_translation");
    }

    void shouldFailWhenAWriteIsLost()
    {
        QFETCH(QString, prefix);
        FakeController fake;
        JobRun run(fake);
        fake.channel.control("sim fault fail every \"" + prefix.toStdString() + "\"");
        QCOMPARE(run.exitCode(), 1);
        QVERIFY(run.text.contains(QStringLiteral("does not hold")));
    }

    void shouldAddToWhatTheControllerHolds()
    {
        FakeController fake;
        fake.link.ask("velmar2 set tracking extra_rotation 0 -1 0 1 0 0 0 0 1");
        fake.link.ask("velmar2 set tracking extra_translation 120.5 0 0");
        JobRun run(fake);
        QVERIFY2(run.exitCode() == 0, qPrintable(run.text));
        QCOMPARE(fake.state().extra.translation.x, -129.5);
        QVERIFY(std::fabs(fake.state().extra.rotation.rows[0] - std::cos(100.0 / degreesPerRadian)) < 1e-7);
        QVERIFY(std::fabs(fake.state().extra.rotation.rows[3] - std::sin(100.0 / degreesPerRadian)) < 1e-7);
    }

    void shouldWriteWhatWasAskedForHoweverLongTypingTakes()
    {
        // GIVEN
        FakeController fake;
        fake.link.ask("velmar2 set tracking extra_rotation 0 -1 0 1 0 0 0 0 1");
        fake.link.ask("velmar2 set tracking extra_translation 120.5 0 0");
        JobRun run(fake);
        const SlowKeys keys;
        // WHEN
        const int exitCode = run.exitCode();
        // THEN
        QVERIFY2(exitCode == 0, qPrintable(run.text));
        QCOMPARE(fake.state().extra.translation.x, -129.5);
    }

    void shouldFailWhenWhatTheControllerHeldIsLost()
    {
        FakeController fake;
        fake.link.ask("velmar2 set tracking extra_translation 0 7 0"); // the module of the tests writes 0
        JobRun run(fake);
        QCOMPARE(run.exitCode(), 1);
        QVERIFY(run.text.contains(QStringLiteral("does not hold")));
    }

    void shouldWantTheStartWithItsChanges()
    {
        ControllerTrafo before;
        before.rotation = {0, 0, 1, 0, 1, 0, -1, 0, 0}; // 90 degrees about y
        before.translationMm = {-10, 20, 30};
        before.scaling = 1.25;
        const ControllerTrafo wanted = MainJob::wanted(before);
        QCOMPARE(wanted.translationMm, (std::array<double, 3>{-260, 20, 30}));
        QCOMPARE(wanted.scaling, 1.25);
        // Ry(90) * Rz(10), by hand.
        ControllerTrafo expected = wanted;
        expected.rotation = {0, 0, 1, 0.17364818, 0.98480775, 0, -0.98480775, 0.17364818, 0};
        QVERIFY2(wanted.isNear(expected), qPrintable(wanted.asText()));
    }
};

ROOM_TEST_CLASS(MainJobTest)

#include "MainJobTest.moc"
