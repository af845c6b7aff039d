#include "ModuleLibrary.h"

#include "BackendVersions.h"
#include "BuiltFiles.h"
#include "FakeController.h"
#include "TestRegistry.h"

#include <QAction>
#include <QFile>
#include <QPluginLoader>
#include <QTemporaryDir>
#include <QWidget>
#include <QtTest>

namespace
{

const QString fakeModule = BuiltFiles::fakeModule();

bool isMapped()
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("libroomadjustment-fake.so");
}

QVariantMap given()
{
    // The instance is the same one that the library object works with.
    QPluginLoader loader(fakeModule);
    return loader.instance()->property("given").toMap();
}

} // namespace

class ModuleLibraryTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldHandOverTheHostsSetting()
    {
        FakeController fake;
        QWidget parent;
        BackendVersions versions;
        ModuleLibrary library(fakeModule);
        QVERIFY(library.load({&fake.channel, &parent, &versions, true}));
        const QVariantMap got = given();
        QCOMPARE(got.value(QStringLiteral("CommandManager")).value<IOManager *>(),
                 static_cast<IOManager *>(&fake.channel));
        QCOMPARE(got.value(QStringLiteral("ModuleParent")).value<QWidget *>(), &parent);
        QCOMPARE(got.value(QStringLiteral("BackendVersions")).value<BackendVersions *>(), &versions);
        QCOMPARE(got.value(QStringLiteral("ObserverMode")), QVariant(true));
    }

    void shouldOfferActionsWithTheirPlace()
    {
        ModuleLibrary library(fakeModule);
        QVERIFY(library.load({}));
        QCOMPARE(library.actions().size(), 1);
        QCOMPARE(library.place().menuTitle, QStringLiteral("&Tracking"));
        QCOMPARE(library.place().orderA, 3);
        QCOMPARE(library.place().orderB, 4);
        QCOMPARE(library.name(), QStringLiteral("Fake"));
        QCOMPARE(library.version(), QStringLiteral("v1.2.3"));
    }

    void shouldOfferNothingInObserverMode()
    {
        ModuleLibrary library(fakeModule);
        QVERIFY(library.load({nullptr, nullptr, nullptr, true}));
        QVERIFY(library.actions().isEmpty());
    }

    void shouldLetGoOfTheLibrary()
    {
        ModuleLibrary library(fakeModule);
        QVERIFY(library.load({}));
        QVERIFY(isMapped());
        library.unload();
        QVERIFY(!library.isLoaded());
        QVERIFY(!isMapped());
        QVERIFY(library.actions().isEmpty());
        QVERIFY(library.load({}));
        QCOMPARE(library.actions().size(), 1);
    }

    void shouldSayWhyItCannotLoad_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("nothing found") << QString();
        QTest::newRow("no such file") << QStringLiteral("nowhere/libnothing.so");
        QTest::newRow("no plug-in") << QCoreApplication::applicationFilePath();
    }

    void shouldSayWhyItCannotLoad()
    {
        QFETCH(QString, file);
        ModuleLibrary library(file);
        QVERIFY(!library.load({}));
        QVERIFY(!library.isLoaded());
        QVERIFY(!library.error().isEmpty());
        library.unload();
    }

    void shouldFindTheLibraryBesideTheExecutableFirst()
    {
        QTemporaryDir folder;
        const QStringList candidates = ModuleLibrary::candidates(folder.path());
        QCOMPARE(candidates.constFirst(), folder.filePath(QStringLiteral("libroomadjustment2g.so")));
        QFile file(candidates.constFirst());
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(ModuleLibrary::find(folder.path()), candidates.constFirst());
    }

    void shouldFindTheLibraryOfTheBuildTree()
    {
        QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkpath(QStringLiteral("bench/frontend")));
        QVERIFY(QDir(folder.path()).mkpath(QStringLiteral("module")));
        QFile file(folder.filePath(QStringLiteral("module/libroomadjustment2g.so")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(ModuleLibrary::find(folder.filePath(QStringLiteral("bench/frontend"))), file.fileName());
    }

    void shouldFindTheInstalledLibraryInItsOwnFolder()
    {
        const QString installed = ModuleLibrary::candidates(QStringLiteral("/opt/room/bin")).constLast();
        QVERIFY2(installed.startsWith(QStringLiteral("/opt/room/lib")), qPrintable(installed));
        QVERIFY2(installed.endsWith(QStringLiteral("/room-adjustment/libroomadjustment2g.so")),
                 qPrintable(installed));
    }
};

ROOM_TEST_CLASS(ModuleLibraryTest)

#include "ModuleLibraryTest.moc"
