#include "BuiltFiles.h"
#include "ContrastAudit.h"
#include "DarkPalette.h"
#include "TestRegistry.h"
#include "WindowAudit.h"
#include "WindowGallery.h"

#include <QApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QPalette>
#include <QScreen>
#include <QTranslator>
#include <QtTest>

namespace
{

/// German as long as it lives, with the buttons of Qt's message boxes.
class German
{
public:
    explicit German(bool isWanted = true)
    {
        if (!isWanted)
            return;
        if (m_ofQt.load(QStringLiteral("qtbase_de"), QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
            QCoreApplication::installTranslator(&m_ofQt);
        if (m_ofModule.load(QStringLiteral("room_adjustment_de"), BuiltFiles::translations()))
            QCoreApplication::installTranslator(&m_ofModule);
    }
    ~German()
    {
        QCoreApplication::removeTranslator(&m_ofModule);
        QCoreApplication::removeTranslator(&m_ofQt);
    }
    Q_DISABLE_COPY(German)

private:
    QTranslator m_ofQt;
    QTranslator m_ofModule;
};

/// With ROOM_PICTURES the windows leave their pictures in that folder.
void keepPicture(QWidget &window, const QString &name)
{
    const QString folder = qEnvironmentVariable("ROOM_PICTURES");
    if (folder.isEmpty())
        return;
    // The view's picture comes from the screen only, and some time after the window.
    QImage before;
    QImage picture;
    static_cast<void>(QTest::qWaitFor([&] {
        before = picture;
        picture = window.screen()->grabWindow(window.winId()).toImage();
        return before == picture;
    }));
    picture.save(QDir(folder).filePath(name + QStringLiteral(".png")));
}

QString scaleName()
{
    return QString::number(qRound(100 * qApp->devicePixelRatio()));
}

void addWindows(const QStringList &names)
{
    QTest::addColumn<QString>("name");
    for (const QString &name : names)
        QTest::newRow(qPrintable(name)) << name;
}

void addWindowsInBothLanguages()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isGerman");
    const auto allNames = WindowGallery::all();
    for (const QString &name : allNames) {
        QTest::addRow("%s en", qPrintable(name)) << name << false;
        QTest::addRow("%s de", qPrintable(name)) << name << true;
    }
}

} // namespace

class WindowsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        const double wanted = qEnvironmentVariable("QT_SCALE_FACTOR", QStringLiteral("1")).toDouble();
        QCOMPARE(qApp->devicePixelRatio(), wanted);
    }

    void shouldShowEveryTextWhole_data() { addWindowsInBothLanguages(); }
    void shouldShowEveryTextWhole()
    {
        QFETCH(QString, name);
        QFETCH(bool, isGerman);
        const German german(isGerman);
        QStringList faults;
        QVERIFY(WindowGallery().visit(name, [&](QWidget &window) {
            // The window may still be growing to what it asked for.
            static_cast<void>(QTest::qWaitFor([&] {
                faults = WindowAudit::clippedTexts(window);
                return faults.isEmpty();
            }));
            keepPicture(window,
                        name + (isGerman ? QStringLiteral("-de-") : QStringLiteral("-en-")) + scaleName());
        }));
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char(0x0a))));
    }

    void shouldGiveEachMnemonicOnce_data() { addWindowsInBothLanguages(); }
    void shouldGiveEachMnemonicOnce()
    {
        QFETCH(QString, name);
        QFETCH(bool, isGerman);
        const German german(isGerman);
        QStringList faults;
        QVERIFY(WindowGallery().visit(
            name, [&](QWidget &window) { faults = WindowAudit::mnemonicFaults(window); }));
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char(0x0a))));
    }

    void shouldNameEveryControl_data() { addWindows(WindowGallery::all()); }
    void shouldNameEveryControl()
    {
        QFETCH(QString, name);
        QStringList faults;
        QVERIFY(WindowGallery().visit(
            name, [&](QWidget &window) { faults = WindowAudit::namelessControls(window); }));
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char(0x0a))));
    }

    void shouldBeReadableOnLightAndDark_data() { addWindows(WindowGallery::all()); }
    void shouldBeReadableOnLightAndDark()
    {
        QFETCH(QString, name);
        const QPalette light = QApplication::palette();
        QStringList faults;
        int texts = 0;
        for (const QPalette &palette : {light, darkPalette()}) {
            QApplication::setPalette(palette);
            QVERIFY(WindowGallery().visit(name, [&](QWidget &window) {
                faults << ContrastAudit::faintTexts(window);
                texts += ContrastAudit::textCount(window);
                if (palette != light)
                    keepPicture(window, name + QStringLiteral("-dark-") + scaleName());
            }));
        }
        QApplication::setPalette(light);
        QVERIFY(texts > 0);
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char(0x0a))));
    }

    void shouldSpeakTheNewLanguageAtOnce_data() { addWindows(WindowGallery::windows()); }
    void shouldSpeakTheNewLanguageAtOnce()
    {
        QFETCH(QString, name);
        QStringList built;
        {
            const German german;
            QVERIFY(
                WindowGallery().visit(name, [&](QWidget &window) { built = WindowAudit::texts(window); }));
        }
        QStringList english;
        QStringList changed;
        QStringList back;
        QVERIFY(WindowGallery().visit(name, [&](QWidget &window) {
            english = WindowAudit::texts(window);
            {
                const German german;
                QCoreApplication::sendPostedEvents();
                QCoreApplication::sendPostedEvents();
                changed = WindowAudit::texts(window);
            }
            QCoreApplication::sendPostedEvents();
            QCoreApplication::sendPostedEvents();
            back = WindowAudit::texts(window);
        }));
        QVERIFY(built != english);
        QCOMPARE(WindowAudit::onlyIn(changed, built), QString());
        QCOMPARE(WindowAudit::onlyIn(back, english), QString());
    }
};

ROOM_TEST_CLASS(WindowsTest)

#include "WindowsTest.moc"
