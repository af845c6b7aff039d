#include "BuiltFiles.h"
#include "LoadedModule.h"
#include "TestRegistry.h"

#include <QCborMap>
#include <QCborValue>
#include <QFile>
#include <QJsonObject>
#include <QProcess>
#include <QtTest>

#include <dlfcn.h>

namespace
{

const QString interfaceIdentifier = QStringLiteral("org.velmar.Velmar2.RoomAdjustmentModule");
const QString className = QStringLiteral("RoomAdjustmentModule2g");

QByteArray fileContent()
{
    QFile file(BuiltFiles::module());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The metadata in the library's file: its header, the four version bytes and the map after them.
QByteArray storedMetaData()
{
    const QByteArray content = fileContent();
    const int begin = content.indexOf("QTMETADATA !");
    if (begin < 0)
        return {};
    constexpr int leadLength = 16;
    QCborParserError result;
    QCborValue::fromCbor(content.mid(begin + leadLength), &result);
    return content.mid(begin, leadLength + static_cast<int>(result.offset));
}

/// As many bytes as that from where qt_plugin_query_metadata() points, asked without Qt.
QByteArray queriedMetaData(int size)
{
    void *library = dlopen(qPrintable(BuiltFiles::module()), RTLD_NOW);
    if (library == nullptr)
        return {};
    using Query = const char *(*)();
    const auto query = reinterpret_cast<Query>(dlsym(library, "qt_plugin_query_metadata"));
    const QByteArray bytes(query(), size);
    dlclose(library);
    return bytes;
}

QStringList exportedNames()
{
    QProcess nm;
    nm.start(QStringLiteral(NM_PROGRAM),
             {QStringLiteral("--dynamic"), QStringLiteral("--defined-only"), BuiltFiles::module()});
    nm.waitForFinished();
    QStringList names;
    const auto lines = nm.readAllStandardOutput().split('\n');
    for (const QByteArray &line : lines) {
        if (!line.isEmpty())
            names << QString::fromLatin1(line.mid(line.lastIndexOf(' ') + 1));
    }
    names.sort();
    return names;
}

} // namespace

class ModulePluginTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldHaveExactlyTheMetaDataOfThePlugin()
    {
        const QByteArray block = storedMetaData();
        QCOMPARE(block.left(12), QByteArrayLiteral("QTMETADATA !"));
        QCOMPARE(block.mid(12, 4).toHex(' '), QByteArrayLiteral("00 05 0f 00"));
        const QCborMap map = QCborValue::fromCbor(block.mid(16)).toMap();
        QCOMPARE(map.size(), 2);
        QCOMPARE(map.value(2).toString(), interfaceIdentifier);
        QCOMPARE(map.value(3).toString(), className);
        QCOMPARE(queriedMetaData(block.size()), block);
    }

    void shouldBeUnderstoodByTheLoader()
    {
        const QPluginLoader loader(BuiltFiles::module());
        QCOMPARE(loader.metaData().value(QStringLiteral("IID")).toString(), interfaceIdentifier);
        QCOMPARE(loader.metaData().value(QStringLiteral("className")).toString(), className);
        QCOMPARE(loader.metaData().value(QStringLiteral("debug")).toBool(), false);
    }

    void shouldExportTheTwoFunctionsOfAPluginAndNothingElse()
    {
        QCOMPARE(exportedNames(), (QStringList{QStringLiteral("qt_plugin_instance"),
                                               QStringLiteral("qt_plugin_query_metadata")}));
    }

    void shouldImplementTheHostsInterface()
    {
        const LoadedModule loaded;
        QVERIFY2(loaded.object != nullptr, qPrintable(loaded.loader.errorString()));
        QVERIFY(loaded.module != nullptr);
        QCOMPARE(QLatin1String(qobject_interface_iid<ModuleInterface *>()),
                 QLatin1String("org.velmar.velmar2.gui.Module/0.2.0"));
        QCOMPARE(QLatin1String(loaded.object->metaObject()->className()),
                 QLatin1String("RoomAdjustmentModule2g"));
    }

    void shouldBeOneObjectUntilItIsDestroyed()
    {
        LoadedModule loaded;
        void *library = dlopen(qPrintable(BuiltFiles::module()), RTLD_NOW);
        QVERIFY(library != nullptr);
        using Instance = QObject *(*)();
        const auto instance = reinterpret_cast<Instance>(dlsym(library, "qt_plugin_instance"));
        QCOMPARE(instance(), loaded.object);
        delete loaded.object;
        QObject *next = instance();
        QVERIFY(next != nullptr);
        QVERIFY(qobject_cast<ModuleInterface *>(next) != nullptr);
        // The loader knows the first object only.
        delete next;
        loaded.object = nullptr;
        loaded.module = nullptr;
        dlclose(library);
        // The next test is to find the library as a new host does.
        QVERIFY(loaded.loader.unload());
    }
};

ROOM_TEST_CLASS(ModulePluginTest)

#include "ModulePluginTest.moc"
