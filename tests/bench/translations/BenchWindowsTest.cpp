#include "BenchIOManager.h"
#include "BenchLanguage.h"
#include "BenchWindow.h"
#include "BuiltFiles.h"
#include "ContrastAudit.h"
#include "ConversationView.h"
#include "GuideWindow.h"
#include "LocalController.h"
#include "RoomPanel.h"
#include "SimController.h"
#include "TabTour.h"
#include "TestRegistry.h"
#include "WindowAudit.h"

#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScreen>
#include <QTabWidget>
#include <QtTest>

namespace
{

using Look = std::function<void(QWidget &)>;

const QString german = QStringLiteral("de");

/// The bench with its windows, in the language that it was started with.
class Bench
{
public:
    explicit Bench(const QString &code)
        : m_isChosen(language.choose(code))
        , window(m_channel, BuiltFiles::module(), false)
    {
        m_channel.control("sim clock stepped");
        window.offerLanguage(language);
        m_isLoaded = window.loadModule();
        window.show();
        settle();
        // The place of the tool is read from time to time, for the first time a little later.
        const auto *x = window.roomPanel()->findChild<QLabel *>(QStringLiteral("xLabel"));
        m_isLoaded = m_isLoaded && QTest::qWaitFor([x] { return x->text().contains(QLatin1Char('.')); });
    }

    /// Looks at the window with that name. False when it could not be shown.
    bool visit(const QString &name, const Look &look)
    {
        const QStringList pages{"measure", "controller", "calibration", "faults"};
        if (!m_isChosen || !m_isLoaded)
            return false;
        if (name == QLatin1String("help"))
            return visitHelp(look);
        QWidget *shown = pages.contains(name) ? static_cast<QWidget *>(window.roomPanel()) : &window;
        if (pages.contains(name))
            shown->findChild<QTabWidget *>()->setCurrentIndex(pages.indexOf(name));
        shown->raise();
        shown->activateWindow();
        if (!QTest::qWaitForWindowActive(shown))
            return false;
        settle();
        look(*shown);
        return true;
    }

    static void settle()
    {
        QTest::qWait(20);
        QCoreApplication::sendPostedEvents();
    }

private:
    bool visitHelp(const Look &look)
    {
        QMetaObject::invokeMethod(window.findChild<QAction *>(QStringLiteral("helpOnMeasuring")), "trigger");
        auto *guide = window.findChild<GuideWindow *>();
        if (guide == nullptr || !QTest::qWaitForWindowExposed(guide))
            return false;
        settle();
        look(*guide);
        return true;
    }

    SimController m_controller;
    LocalController m_link{m_controller};
    BenchIOManager m_channel{m_link};

public:
    BenchLanguage language{{BuiltFiles::translations(), BuiltFiles::benchTranslations()}};

private:
    bool m_isChosen;
    bool m_isLoaded = false;

public:
    BenchWindow window;
};

void addWindows(const QStringList &names, const QStringList &codes)
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("code");
    for (const QString &name : names) {
        for (const QString &code : codes)
            QTest::addRow("%s %s", qPrintable(name), qPrintable(code)) << name << code;
    }
}

/// With ROOM_PICTURES the windows leave their pictures in that folder.
void keepPicture(QWidget &window, const QString &name)
{
    const QString folder = qEnvironmentVariable("ROOM_PICTURES");
    if (!folder.isEmpty())
        window.grab().save(QDir(folder).filePath(QStringLiteral("bench-%1.png").arg(name)));
}

const QStringList windows{"conversation", "measure", "controller", "calibration", "faults"};
const QStringList both{"en", "de"};

} // namespace

class BenchWindowsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldShowEveryTextWhole_data() { addWindows(windows + QStringList("help"), both); }
    void shouldShowEveryTextWhole()
    {
        QFETCH(QString, name);
        QFETCH(QString, code);
        QStringList faults;
        QVERIFY(Bench(code).visit(name, [&](QWidget &window) {
            faults = WindowAudit::clippedTexts(window);
            keepPicture(window, name + QLatin1Char('-') + code);
        }));
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
    }

    void shouldGiveEachMnemonicOnce_data() { addWindows(windows, both); }
    void shouldGiveEachMnemonicOnce()
    {
        QFETCH(QString, name);
        QFETCH(QString, code);
        QStringList faults;
        QVERIFY(
            Bench(code).visit(name, [&](QWidget &window) { faults = WindowAudit::mnemonicFaults(window); }));
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
    }

    void shouldNameEveryControl_data() { addWindows(windows, {"en"}); }
    void shouldNameEveryControl()
    {
        QFETCH(QString, name);
        QFETCH(QString, code);
        QStringList faults;
        QVERIFY(Bench(code).visit(name,
                                  [&](QWidget &window) { faults = WindowAudit::namelessControls(window); }));
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
    }

    void shouldBeReadable_data() { addWindows(windows, {"en"}); }
    void shouldBeReadable()
    {
        QFETCH(QString, name);
        QFETCH(QString, code);
        QStringList faults;
        int texts = 0;
        QVERIFY(Bench(code).visit(name, [&](QWidget &window) {
            faults = ContrastAudit::faintTexts(window);
            texts = ContrastAudit::textCount(window);
        }));
        QVERIFY(texts > 0);
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
    }

    void shouldVisitEveryControlInReadingOrder_data() { addWindows(windows, {"en"}); }
    void shouldVisitEveryControlInReadingOrder()
    {
        QFETCH(QString, name);
        QFETCH(QString, code);
        QStringList faults;
        QVERIFY(Bench(code).visit(name, [&](QWidget &window) { faults = TabTour::faults(window); }));
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
    }

    void shouldSpeakTheNewLanguageAtOnce_data() { addWindows(windows + QStringList("help"), {"en"}); }
    void shouldSpeakTheNewLanguageAtOnce()
    {
        QFETCH(QString, name);
        QStringList built;
        QVERIFY(Bench(german).visit(name, [&](QWidget &window) { built = WindowAudit::texts(window); }));
        QStringList english;
        QStringList changed;
        QStringList back;
        Bench bench(QStringLiteral("en"));
        QVERIFY(bench.visit(name, [&](QWidget &window) {
            english = WindowAudit::texts(window);
            QVERIFY(bench.language.choose(german));
            Bench::settle();
            changed = WindowAudit::texts(window);
            QVERIFY(bench.language.choose(QStringLiteral("en")));
            Bench::settle();
            back = WindowAudit::texts(window);
        }));
        QVERIFY(built != english);
        QCOMPARE(WindowAudit::onlyIn(changed, built), QString());
        QCOMPARE(WindowAudit::onlyIn(back, english), QString());
    }

    void shouldKeepWhatWasEnteredWhenTheLanguageChanges()
    {
        Bench bench(QStringLiteral("en"));
        auto *line = bench.window.roomPanel()->findChild<QLineEdit *>(QStringLiteral("lineEdit"));
        auto *error = bench.window.roomPanel()->findChild<QLineEdit *>(QStringLiteral("errorTextEdit"));
        auto *answer = bench.window.roomPanel()->findChild<QLabel *>(QStringLiteral("answerLabel"));
        auto *kinds = bench.window.conversation()->findChild<QComboBox *>(QStringLiteral("kindBox"));
        line->setText(QStringLiteral("seed 3"));
        error->setText(QStringLiteral("Tool not seen."));
        answer->setText(QStringLiteral("sim ok"));
        kinds->setCurrentIndex(2);
        QVERIFY(bench.language.choose(german));
        Bench::settle();
        QCOMPARE(line->text(), QStringLiteral("seed 3"));
        QCOMPARE(error->text(), QStringLiteral("Tool not seen."));
        QCOMPARE(answer->text(), QStringLiteral("sim ok"));
        QCOMPARE(kinds->currentIndex(), 2);
    }

    void shouldFindItsTranslationFromTheProgram()
    {
        const QStringList folders = BenchLanguage::folders(QFileInfo(BuiltFiles::bench()).absolutePath());
        BenchLanguage language(folders);
        QVERIFY(language.choose(german));
        QCOMPARE(QCoreApplication::translate("RoomPanel", "Simulated Room"),
                 QStringLiteral("Simulierter Raum"));
        QVERIFY(language.choose(QStringLiteral("en")));
    }

    void shouldSpeakWithoutATranslationOfItsOwn()
    {
        BenchLanguage language({BuiltFiles::translations()});
        QVERIFY(language.choose(german));
        QCOMPARE(QCoreApplication::translate("RoomPanel", "Simulated Room"),
                 QStringLiteral("Simulated Room"));
        QCOMPARE(QCoreApplication::translate("RoomAdjustmentDlgClass", "Cancel"),
                 QStringLiteral("Abbrechen"));
    }
};

ROOM_TEST_CLASS(BenchWindowsTest)

#include "BenchWindowsTest.moc"
