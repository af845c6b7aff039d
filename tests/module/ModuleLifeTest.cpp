#include "LoadedModule.h"
#include "ModalAnswer.h"
#include "TestRegistry.h"

#include <QDialog>
#include <QFile>
#include <QPointer>
#include <QtTest>

#include <malloc.h>

#include <utility>

namespace
{

const QStringList releaseOnly = {QStringLiteral("release")};

constexpr int subscriptions = 5;

bool isMapped()
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("libroomadjustment2g.so");
}

void openAndCancel(LoadedModule &loaded)
{
    ModalAnswer answer;
    answer.then([](QWidget *dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
    loaded.module->actions().constFirst()->trigger();
}

/// A host's whole use of the module, with one opening of the dialog.
bool useOnce()
{
    LoadedModule loaded;
    if (loaded.module == nullptr)
        return false;
    loaded.setAll();
    openAndCancel(loaded);
    const bool isUsed = loaded.host.calls().contains(QStringLiteral("command velmar2 tracking start"));
    return loaded.unload() && isUsed && !isMapped();
}

std::size_t heapInUse()
{
    return mallinfo2().uordblks;
}

} // namespace

class ModuleLifeTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldOpenTheSameDialogWithEachTrigger()
    {
        LoadedModule loaded;
        loaded.setAll();
        QAction *action = loaded.module->actions().constFirst();
        QList<QWidget *> seen;
        for (int i = 0; i < 2; ++i) {
            ModalAnswer answer;
            answer.then([&seen](QWidget *dialog) {
                seen << dialog;
                QTest::keyClick(dialog, Qt::Key_Escape);
            });
            action->trigger();
        }
        QCOMPARE(seen.size(), 2);
        QCOMPARE(seen.at(0), seen.at(1));
        QCOMPARE(seen.at(0)->windowTitle(), QStringLiteral("Room Adjustment"));
    }

    void shouldEndTheSubscriptionsOfAnOpenDialog()
    {
        LoadedModule loaded;
        loaded.setAll();
        ModalAnswer answer;
        int whileOpen = 0;
        answer.then([&](QWidget *dialog) {
            whileOpen = loaded.host.subscriptions().size();
            loaded.module->releaseRequests();
            QCOMPARE(loaded.host.subscriptions().size(), 0);
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        loaded.module->actions().constFirst()->trigger();
        QCOMPARE(whileOpen, 5);
    }

    void shouldBuildEverythingAnewAfterUnloading()
    {
        LoadedModule loaded;
        loaded.setAll();
        const QPointer<QAction> before = loaded.module->actions().constFirst();
        loaded.module->unload();
        loaded.module->unload();
        QCOMPARE(loaded.module->actions().size(), 1);
        QVERIFY(loaded.module->actions().constFirst() != before);
        openAndCancel(loaded);
        QVERIFY(loaded.host.calls().contains(QStringLiteral("command velmar2 tracking start")));
    }

    void shouldSurviveThatTheHostDestroysTheParentFirst()
    {
        auto *parent = new QWidget;
        LoadedModule loaded;
        loaded.setAll();
        loaded.set("ModuleParent", QVariant::fromValue(parent));
        loaded.module->actions();
        loaded.host.clear();
        delete parent;
        loaded.module->releaseRequests();
        loaded.module->unload();
        QCOMPARE(loaded.host.calls(), QStringList()); // there is nobody left to release
    }

    void shouldBuildItsDialogWithoutAParentThatIsGone()
    {
        // GIVEN
        auto *parent = new QWidget;
        LoadedModule loaded;
        loaded.setAll();
        loaded.set("ModuleParent", QVariant::fromValue(parent));
        loaded.module->actions();
        delete parent;
        loaded.module->unload();
        // WHEN
        ModalAnswer answer;
        bool isAlone = false;
        answer.then([&isAlone](QWidget *dialog) {
            isAlone = dialog->parentWidget() == nullptr;
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        loaded.module->actions().constFirst()->trigger();
        // THEN
        QVERIFY(isAlone);
    }

    void shouldEndNoSubscriptionTwice()
    {
        // GIVEN
        LoadedModule loaded;
        loaded.setAll();
        ModalAnswer answer;
        answer.then([&loaded](QWidget *dialog) {
            loaded.module->releaseRequests();
            loaded.host.clear();
            // WHEN
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        loaded.module->actions().constFirst()->trigger();
        // THEN
        QVERIFY(answer.isDone());
        QVERIFY(loaded.host.calls().contains(QStringLiteral("command velmar2 tracking stop")));
        QCOMPARE(loaded.host.callsOf({QStringLiteral("unsubscribe")}), QStringList());
    }

    void shouldSurviveThatItIsEndedWhileItSubscribesOrUnsubscribes_data()
    {
        QTest::addColumn<int>("call");
        QTest::addColumn<bool>("byParent");
        for (int call = 1; call <= 2 * subscriptions + 1; ++call) {
            QTest::addRow("unloaded in call %d", call) << call << false;
            QTest::addRow("parent destroyed in call %d", call) << call << true;
        }
    }

    void shouldSurviveThatItIsEndedWhileItSubscribesOrUnsubscribes()
    {
        // GIVEN
        QFETCH(int, call);
        QFETCH(bool, byParent);
        LoadedModule loaded;
        loaded.setAll();
        auto *parent = new QWidget;
        loaded.set("ModuleParent", QVariant::fromValue(parent));
        const QPointer<QAction> action = loaded.module->actions().constFirst();
        int calls = 0;
        loaded.host.onSubscription([&](const QString &) {
            if (++calls < call)
                return;
            if (byParent)
                delete std::exchange(parent, nullptr);
            loaded.module->unload(); // in each further call, too
            delete std::exchange(parent, nullptr);
        });
        ModalAnswer answer;
        answer.then([&loaded](QWidget *) {
            loaded.module->unload(); // five calls
            loaded.module->releaseRequests();
        });
        // WHEN
        action->trigger();
        loaded.module->unload();
        // THEN
        QVERIFY(calls >= std::min(call, 2 * subscriptions));
        QVERIFY(loaded.host.subscriptions().isEmpty());
        delete parent;
    }

    void shouldLeaveTheChannelAloneOnceItsRequestsWereReleased()
    {
        LoadedModule loaded;
        loaded.setAll();
        ModalAnswer answer;
        answer.then([&loaded](QWidget *) {
            loaded.module->releaseRequests();
            loaded.host.clear();
            loaded.module->unload();
        });
        loaded.module->actions().constFirst()->trigger();
        QVERIFY(answer.isDone());
        QCOMPARE(loaded.host.calls(), QStringList());
    }

    void shouldMakeNoCallWhileItIsUnloaded()
    {
        LoadedModule loaded;
        loaded.setAll();
        openAndCancel(loaded);
        loaded.host.clear();
        QVERIFY(loaded.unload());
        QCOMPARE(loaded.host.calls(), releaseOnly);
    }

    void shouldLeaveNothingBehindHoweverOftenItIsLoaded()
    {
        constexpr int warmUp = 20;
        constexpr int times = 200;
        constexpr std::size_t allowedPerCycle = 128;
        for (int i = 0; i < warmUp; ++i)
            QVERIFY(useOnce());
        const std::size_t before = heapInUse();
        for (int i = 0; i < times; ++i)
            QVERIFY(useOnce());
        const std::size_t after = heapInUse();
        QVERIFY2(after < before + times * allowedPerCycle,
                 qPrintable(QStringLiteral("%1 bytes in %2 times").arg(after - before).arg(times)));
    }
};

ROOM_TEST_CLASS(ModuleLifeTest)

#include "ModuleLifeTest.moc"
