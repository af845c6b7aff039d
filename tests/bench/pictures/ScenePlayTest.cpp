#include "ScenePlay.h"
#include "BuiltFiles.h"
#include "DarkPalette.h"
#include "TestClock.h"
#include "TestRegistry.h"

#include <QApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using namespace std::chrono_literals;

namespace
{

/// A scene that is played to its end.
class Played
{
public:
    explicit Played(const QString &text)
    {
        const auto scene = Scene::read(text, &error);
        if (!scene)
            return;
        const auto play = ScenePlay::prepare(*scene, folder.path(), &error);
        if (play == nullptr)
            return;
        QSignalSpy ends(play.get(), &ScenePlay::finished);
        play->start();
        isEnded = QTest::qWaitFor([&ends] { return !ends.isEmpty(); }, 60000);
        if (isEnded)
            error = ends[0][0].toString();
    }
    ~Played() { QApplication::setPalette(m_palette); }
    Q_DISABLE_COPY(Played)

    QImage picture(const QString &name) const { return QImage(folder.filePath(name + ".png")); }

    QTemporaryDir folder;
    QString error;
    bool isEnded = false;

private:
    QPalette m_palette = QApplication::palette();
};

const QString begin = "bench --control \"clock stepped\" --plugin " + BuiltFiles::module() + "\n";

} // namespace

class ScenePlayTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldLeaveThePicturesOfAScene()
    {
        const Played played(begin + "press Shift+F5\n"
                                    "tab 1\n"
                                    "picture before\n"
                                    "type doubleSpinBox_x 250\n"
                                    "await label_change text 250\n"
                                    "picture after\n"
                                    "picture part of groupBox_offset\n"
                                    "press Escape Alt+Y\n"
                                    "picture all of screen\n");
        QVERIFY(played.isEnded);
        QCOMPARE(played.error, QString());
        QVERIFY(!played.picture("before").isNull());
        QCOMPARE(played.picture("before").size(), played.picture("after").size());
        QVERIFY(played.picture("before") != played.picture("after"));
        QVERIFY(played.picture("part").width() < played.picture("after").width() / 2);
        QVERIFY(played.picture("all").width() > played.picture("after").width());
    }

    void shouldMakeTheSamePictureEachTime()
    {
        const QString text = begin + "press Shift+F5\ntab 1\npicture fine\npress Escape\n";
        const int flashTimeMs = QApplication::cursorFlashTime();
        const auto restored = qScopeGuard([flashTimeMs] { QApplication::setCursorFlashTime(flashTimeMs); });
        QApplication::setCursorFlashTime(1000);
        const Played one(text);
        QCOMPARE(QApplication::cursorFlashTime(), 0);
        const Played other(text);
        QVERIFY(!one.picture("fine").isNull());
        QCOMPARE(one.picture("fine"), other.picture("fine"));
    }

    void shouldPlayOnADarkPalette()
    {
        const Played played(begin + "palette dark\npress Shift+F5\npicture dark\npress Escape\n");
        QCOMPARE(played.error, QString());
        QCOMPARE(QColor(played.picture("dark").pixel(2, 2)), darkPalette().color(QPalette::Window));
    }

    void shouldSayWhichLineCannotBeRead_data()
    {
        QTest::addColumn<QString>("line");
        QTest::newRow("no key") << "press";
        QTest::newRow("no text") << "type doubleSpinBox_x";
        QTest::newRow("no place") << "point viewStack 10 10";
        QTest::newRow("no name") << "picture";
    }
    void shouldSayWhichLineCannotBeRead()
    {
        QFETCH(QString, line);
        const Played played(begin + line);
        QVERIFY(!played.isEnded);
        QVERIFY2(played.error.contains("line 2") && played.error.contains(line), qPrintable(played.error));
    }

    void shouldSayWhatTheControllerRefused()
    {
        const Played played(begin + "sim tool 99 touch 1\npicture one\n");
        QVERIFY(played.isEnded);
        QVERIFY2(played.error.contains("sim tool 99 touch 1"), qPrintable(played.error));
    }

    void shouldLeaveNoDialogOpen_data()
    {
        QTest::addColumn<QString>("lines");
        QTest::addColumn<bool>("succeeds");
        QTest::newRow("at the end") << "picture one" << true;
        QTest::newRow("after a refusal") << "sim tool 99 touch 1" << false;
        QTest::newRow("when a step cannot be done") << "click noButton" << false;
    }
    void shouldLeaveNoDialogOpen()
    {
        // GIVEN
        QFETCH(QString, lines);
        QFETCH(bool, succeeds);
        bool wasOpen = false;
        QTimer look;
        connect(&look, &QTimer::timeout, this,
                [&] { wasOpen = wasOpen || QApplication::activeModalWidget() != nullptr; });
        look.start(0ms);
        QTimer haste;
        connect(&haste, &QTimer::timeout, this, [] {
            if (QApplication::activeModalWidget() != nullptr)
                TestClock::advance(1s); // a step that cannot be done is waited for
        });
        haste.start(100ms);
        // WHEN
        const Played played(begin + "press Shift+F5\n" + lines);
        // THEN
        QVERIFY(played.isEnded);
        QVERIFY(wasOpen);
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QCOMPARE(played.error.isEmpty(), succeeds);
    }

    void shouldSayThatTheBenchCannotBeOpened_data()
    {
        QTest::addColumn<QString>("setting");
        QTest::addColumn<QString>("mentioned");
        QTest::newRow("option") << "bench --nonsense"
                                << "nonsense";
        QTest::newRow("line") << "bench --control \"nonsense\""
                              << "nonsense";
        QTest::newRow("language") << "bench --language xx"
                                  << "xx";
        QTest::newRow("module") << "bench --plugin /nowhere"
                                << "/nowhere";
    }
    void shouldSayThatTheBenchCannotBeOpened()
    {
        QFETCH(QString, setting);
        QFETCH(QString, mentioned);
        const Played played(setting + "\npicture one\n");
        QVERIFY(!played.isEnded);
        QVERIFY2(played.error.contains(mentioned), qPrintable(played.error));
    }

    void shouldCompareFolders()
    {
        QTemporaryDir made;
        QTemporaryDir kept;
        QImage picture(40, 40, QImage::Format_RGB32);
        picture.fill(Qt::white);
        for (const QTemporaryDir *folder : {&made, &kept})
            QVERIFY(picture.save(folder->filePath("same.png")));
        QCOMPARE(compare("--compare", made, kept), 0);
        QVERIFY(picture.save(kept.filePath("more.png")));
        QCOMPARE(compare("--compare", made, kept), 1);
        QCOMPARE(compare("--compare-made", made, kept), 0);
        picture.fill(Qt::black);
        QVERIFY(picture.save(made.filePath("same.png")));
        QCOMPARE(compare("--compare-made", made, kept), 1);
    }

private:
    static int compare(const QString &mode, const QTemporaryDir &made, const QTemporaryDir &kept)
    {
        return QProcess::execute(BuiltFiles::pictures(), {mode, made.path(), kept.path()});
    }
};

ROOM_TEST_CLASS(ScenePlayTest)

#include "ScenePlayTest.moc"
