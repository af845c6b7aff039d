#include "BuiltFiles.h"
#include "LoadedModule.h"
#include "TestRegistry.h"

#include <QApplication>
#include <QDialog>
#include <QTranslator>
#include <QtTest>

#include <array>

namespace
{

/// The dialogs of the module, wherever they hang.
QList<QDialog *> dialogs()
{
    QList<QDialog *> found;
    const auto widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        if (QLatin1String(widget->metaObject()->className()) == QLatin1String("RoomAdjustmentDlg2g"))
            found << static_cast<QDialog *>(widget);
    }
    return found;
}

} // namespace

class RoomAdjustmentModule2gTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldSayItsNameAndVersion()
    {
        const LoadedModule loaded;
        QCOMPARE(loaded.module->moduleName(), QStringLiteral("GUI Room Adjustment"));
        QCOMPARE(loaded.module->moduleVersion(), QStringLiteral("v2.0.14"));
    }

    void shouldOfferOneAction()
    {
        LoadedModule loaded;
        loaded.setAll();
        const QList<QAction *> actions = loaded.module->actions();
        QCOMPARE(actions.size(), 1);
        const QAction *action = actions.constFirst();
        QCOMPARE(action->text(), QStringLiteral("Room a&djustment"));
        QCOMPARE(action->shortcut().toString(QKeySequence::PortableText), QStringLiteral("Shift+F5"));
        QCOMPARE(action->statusTip(), QStringLiteral("Perform the room adjustment incl. COOTrans"));
        QCOMPARE(action->whatsThis(), QStringLiteral("Adjust the room coordinate system"));
        QCOMPARE(action->parent(), loaded.object);
    }

    void shouldBuildActionAndDialogOnce()
    {
        LoadedModule loaded;
        loaded.setAll();
        const QList<QAction *> actions = loaded.module->actions();
        QCOMPARE(dialogs().size(), 1);
        QCOMPARE(loaded.module->actions(), actions);
        loaded.set("ObserverMode", true);
        QCOMPARE(loaded.module->actions(), actions);
        QCOMPARE(dialogs().size(), 1);
        QCOMPARE(dialogs().constFirst()->parentWidget(), &loaded.parent);
    }

    void shouldShowItsPlaceAfterTheActionsWereAskedFor()
    {
        LoadedModule loaded;
        loaded.setAll();
        QCOMPARE(loaded.object->property("menuTitle").toString(), QString());
        loaded.module->actions();
        QCOMPARE(loaded.object->property("menuTitle").toString(), QStringLiteral("&Tracking"));
        QCOMPARE(loaded.object->property("menuOrderA"), QVariant(15));
        QCOMPARE(loaded.object->property("menuOrderB"), QVariant(300));
        QCOMPARE(loaded.object->property("menuFlag"), QVariant(0));
        for (const char *name : {"menuTitle", "menuOrderA", "menuOrderB", "menuFlag"}) {
            const QMetaObject *type = loaded.object->metaObject();
            QVERIFY(!type->property(type->indexOfProperty(name)).isWritable());
        }
    }

    void shouldHoldItsFieldsInTheOrderOfTheContract()
    {
        struct Fields {
            std::array<void *, 2> object;
            void *interface;
            QWidget *parent;
            void *actions;
            QAction *action;
            int orderA;
            void *title;
            int orderB;
            void *dialog;
            int flag;
            IOManager *commands;
            BackendVersions *versions;
            bool isObserver;
        };
        LoadedModule loaded;
        const auto &fields = *reinterpret_cast<const Fields *>(loaded.object);
        loaded.setAll();
        QCOMPARE(fields.parent, &loaded.parent);
        QCOMPARE(fields.commands, static_cast<IOManager *>(&loaded.host));
        QCOMPARE(fields.versions, &loaded.versions);
        QCOMPARE(fields.action, static_cast<QAction *>(nullptr));
        QCOMPARE(fields.dialog, static_cast<void *>(nullptr));
        const QAction *action = loaded.module->actions().constFirst();
        QCOMPARE(fields.action, action);
        QCOMPARE(fields.orderA, 15);
        QCOMPARE(fields.orderB, 300);
        QCOMPARE(fields.dialog, static_cast<void *>(dialogs().constFirst()));
        QCOMPARE(fields.flag, 0);
        loaded.set("ObserverMode", true);
        QVERIFY(fields.isObserver);
        delete dialogs().constFirst();
        QCOMPARE(fields.dialog, static_cast<void *>(nullptr));
    }

    void shouldFollowAChangeOfTheLanguage()
    {
        LoadedModule loaded;
        loaded.setAll();
        const QAction *action = loaded.module->actions().constFirst();
        QTranslator german;
        QVERIFY(german.load(QStringLiteral("room_adjustment_de"), BuiltFiles::translations()));
        QVERIFY(QCoreApplication::installTranslator(&german));
        QTRY_COMPARE(action->text(), QStringLiteral("Raum&justierung"));
        QCOMPARE(action->whatsThis(), QStringLiteral("Das Raumkoordinatensystem justieren"));
        QCOMPARE(action->shortcut().toString(QKeySequence::PortableText), QStringLiteral("Shift+F5"));
        QCOMPARE(loaded.module->moduleName(), QStringLiteral("GUI-Raumjustierung"));
        QVERIFY(QCoreApplication::removeTranslator(&german));
        QTRY_COMPARE(action->text(), QStringLiteral("Room a&djustment"));
        QVERIFY(loaded.host.calls().isEmpty());
    }

    void shouldOfferNothingInObserverMode()
    {
        LoadedModule loaded;
        loaded.setAll(true);
        QVERIFY(loaded.module->actions().isEmpty());
        QVERIFY(dialogs().isEmpty());
        loaded.module->releaseRequests();
        loaded.module->unload();
        QVERIFY(loaded.host.calls().isEmpty());
        loaded.set("ObserverMode", false);
        QCOMPARE(loaded.module->actions().size(), 1);
    }

    void shouldTakeAnythingThatConvertsToTheObserverFlag_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<int>("actionCount");
        QTest::newRow("text true") << QVariant(QStringLiteral("true")) << 0;
        QTest::newRow("number") << QVariant(1) << 0;
        QTest::newRow("text false") << QVariant(QStringLiteral("false")) << 1;
        QTest::newRow("a size") << QVariant(QSize(1, 1)) << 1;
    }

    void shouldTakeAnythingThatConvertsToTheObserverFlag()
    {
        QFETCH(QVariant, value);
        QFETCH(int, actionCount);
        LoadedModule loaded;
        loaded.setAll();
        loaded.set("ObserverMode", value);
        QCOMPARE(loaded.module->actions().size(), actionCount);
    }

    void shouldTakeAWidgetOnlyAsParent_data()
    {
        QTest::addColumn<bool>("isWidget");
        QTest::newRow("widget as object") << true;
        QTest::newRow("other object") << false;
    }

    void shouldTakeAWidgetOnlyAsParent()
    {
        QFETCH(bool, isWidget);
        LoadedModule loaded;
        loaded.setAll();
        QObject other;
        loaded.set("ModuleParent",
                   QVariant::fromValue(isWidget ? static_cast<QObject *>(&loaded.parent) : &other));
        loaded.module->actions();
        QCOMPARE(dialogs().constFirst()->parentWidget(), isWidget ? &loaded.parent : nullptr);
    }

    void shouldLiveWithWrongAndUnknownProperties()
    {
        LoadedModule loaded;
        loaded.setAll();
        loaded.set("CommandManager", 5);
        loaded.set("BackendVersions", QStringLiteral("no record"));
        loaded.set("ModuleParent", QVariant());
        loaded.set("commandmanager", QVariant::fromValue(static_cast<IOManager *>(&loaded.host)));
        loaded.set("Nonsense", 1);
        QCOMPARE(loaded.module->actions().size(), 1);
        loaded.module->releaseRequests();
        QVERIFY(loaded.host.calls().isEmpty());
    }

    void shouldNotTalkToTheControllerBeforeTheFirstTrigger()
    {
        LoadedModule loaded;
        loaded.setAll();
        loaded.module->actions();
        QVERIFY2(loaded.host.calls().isEmpty(), qPrintable(loaded.host.calls().join(QLatin1Char('\n'))));
    }
};

ROOM_TEST_CLASS(RoomAdjustmentModule2gTest)

#include "RoomAdjustmentModule2gTest.moc"
