#include "ModuleInterface.h"
#include "Traveller.h"

#include "TestClock.h"
#include "TestRegistry.h"

#include <QAction>
#include <QApplication>
#include <QMessageBox>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QtTest>

#include <chrono>

using namespace std::chrono_literals;

namespace
{

constexpr std::size_t subscribedKinds = 5;
constexpr std::chrono::milliseconds longerThanEveryPoll = 2s;

int dialogs()
{
    int count = 0;
    const auto widgets = QApplication::allWidgets();
    for (const QWidget *widget : widgets)
        count += WindowGuide::classOf(widget) == QLatin1String("RoomAdjustmentDlg2g") ? 1 : 0;
    return count;
}

std::size_t calls(const ModuleHost &host)
{
    return host.channel.log().calls().size();
}

} // namespace

class HostLifeTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldOfferNothingToAnObserver()
    {
        // GIVEN
        ModuleHost::Setup setup;
        setup.observerMode = true;
        ModuleHost host(setup);
        const std::size_t before = calls(host);
        // WHEN
        const QAction *action = host.action();
        // THEN
        QVERIFY(action == nullptr);
        QCOMPARE(dialogs(), 0);
        QVERIFY(host.unload());
        QVERIFY(!ModuleHost::isLibraryMapped());
        QCOMPARE(calls(host), before);
    }

    void shouldOnlyLookAtALockedConfiguration_data()
    {
        QTest::addColumn<QString>("wayOut");
        QTest::newRow("Cancel") << QStringLiteral("btn_cancel");
        QTest::newRow("Escape") << QStringLiteral("Escape");
        QTest::newRow("close button") << QStringLiteral("close");
    }

    void shouldOnlyLookAtALockedConfiguration()
    {
        // GIVEN
        QFETCH(QString, wayOut);
        ModuleHost host;
        host.control(QStringLiteral("sim locked yes"));
        Traveller traveller(host);
        bool isAnythingEnabled = true;
        bool isLockShown = false;
        // WHEN
        traveller.open([&] {
            isAnythingEnabled = traveller.isEnabled("tabWidget") || traveller.isEnabled("btn_ok") ||
                                traveller.isEnabled("btn_apply");
            QWidget *window = QApplication::activeModalWidget();
            isLockShown = !window->windowIcon().isNull();
            if (wayOut == QLatin1String("btn_cancel"))
                traveller.click("btn_cancel");
            else if (wayOut == QLatin1String("Escape"))
                traveller.press(Qt::Key_Escape);
            else
                window->close();
        });
        // THEN
        QVERIFY(!isAnythingEnabled);
        QVERIFY(isLockShown);
        QCOMPARE(host.orders(), (QStringList{QStringLiteral("velmar2 tracking start"),
                                             QStringLiteral("velmar2 tracking stop")}));
        QCOMPARE(traveller.guide().boxes(), QStringList());
        QCOMPARE(traveller.guide().stuck(), QStringList());
    }

    void shouldAdjustAgainOnceTheConfigurationIsUnlocked()
    {
        // GIVEN
        ModuleHost host;
        Traveller traveller(host);
        host.control(QStringLiteral("sim locked yes"));
        traveller.open([] {});
        // WHEN
        host.control(QStringLiteral("sim locked no"));
        bool isEnabled = false;
        traveller.open(
            [&] { isEnabled = traveller.isEnabled("tabWidget") && traveller.isEnabled("btn_ok"); });
        // THEN
        QVERIFY(isEnabled);
    }

    void shouldBeUnloadedAfterItsDialogWasOpen()
    {
        // GIVEN
        ModuleHost host;
        Traveller traveller(host);
        traveller.open([&] {
            traveller.goToFine();
            host.link.advance(0.5);
        });
        host.channel.log().clear();
        // WHEN
        const bool isUnloaded = host.unload();
        // THEN
        QVERIFY(isUnloaded);
        QVERIFY(!ModuleHost::isLibraryMapped());
        QCOMPARE(dialogs(), 0);
        QCOMPARE(calls(host), std::size_t(1));
        QCOMPARE(host.channel.log().calls().front().operation, std::string("releaseRequester"));
        host.link.advance(0.5);
        TestClock::advance(longerThanEveryPoll);
        QCOMPARE(calls(host), std::size_t(1));
    }

    void shouldEndItsDialogWhenTheHostEndsTheModule()
    {
        // GIVEN
        ModuleHost host;
        Traveller traveller(host);
        // WHEN
        traveller.open([&] {
            host.module()->releaseRequests();
            host.module()->unload();
            QCOMPARE(dialogs(), 0);
        });
        // THEN
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QCOMPARE(host.channel.subscriptionCount(), std::size_t(0));
        traveller.open([] {});
        QCOMPARE(traveller.guide().missed(), QStringList());
    }

    void shouldEndWithItsParent_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("sideDialog");
        QTest::newRow("main dialog") << QString() << QString();
        QTest::newRow("angle tool") << QStringLiteral("pushButton_att") << QStringLiteral("AdjustToToolDlg");
        QTest::newRow("matching") << QStringLiteral("w_bodyMatchingButton")
                                  << QStringLiteral("AbcMatchingDialog");
        QTest::newRow("help") << QStringLiteral("pushButton_helpView") << QStringLiteral("HelpDialog");
    }

    void shouldEndWithItsParent()
    {
        // GIVEN
        QFETCH(QString, button);
        QFETCH(QString, sideDialog);
        ModuleHost host;
        auto *parent = new QWidget;
        host.module()->setModuleProperty(QStringLiteral("ModuleParent"), QVariant::fromValue(parent));
        Traveller traveller(host);
        if (!sideDialog.isEmpty())
            traveller.meet(sideDialog.toLatin1(), [parent] { delete parent; });
        // WHEN
        traveller.open([&] {
            traveller.goToFine();
            if (button.isEmpty())
                delete parent;
            else
                traveller.click(button.toLatin1());
        });
        // THEN
        QCOMPARE(traveller.guide().missed(), QStringList());
        QCOMPARE(dialogs(), 0);
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        host.module()->releaseRequests();
        host.module()->unload();
        host.link.advance(0.5);
    }

    void shouldEndInTheQuestionsOfItsFileDialogs_data()
    {
        QTest::addColumn<bool>("saves");
        QTest::addColumn<bool>("isUnloaded");
        QTest::newRow("file not found, parent deleted") << false << false;
        QTest::newRow("file not found, unloaded") << false << true;
        QTest::newRow("already exists, parent deleted") << true << false;
        QTest::newRow("already exists, unloaded") << true << true;
    }

    void shouldEndInTheQuestionsOfItsFileDialogs()
    {
        // GIVEN
        QFETCH(bool, saves);
        QFETCH(bool, isUnloaded);
        const QTemporaryDir folder;
        const QString name = folder.filePath(QStringLiteral("points.txt"));
        if (saves) {
            QFile file(name);
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        ModuleHost host;
        auto *parent = new QWidget;
        host.module()->setModuleProperty(QStringLiteral("ModuleParent"), QVariant::fromValue(parent));
        Traveller traveller(host);
        traveller.meet("AbcMatchingDialog", [&] {
            traveller.chooseFile(name);
            traveller.click("pushButton_addRefPoint");
            traveller.click(saves ? "pushButton_save" : "w_loadButton");
        });
        // WHEN
        traveller.meet("QMessageBox", [&] {
            if (isUnloaded)
                host.module()->unload();
            else
                delete parent;
        });
        traveller.open([&] {
            traveller.goToFine();
            traveller.click("w_bodyMatchingButton");
        });
        // THEN
        QCOMPARE(traveller.guide().boxes().size(), 1);
        QCOMPARE(traveller.guide().missed(), QStringList());
        QCOMPARE(traveller.guide().strangers(), QStringList());
        QCOMPARE(dialogs(), 0);
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QVERIFY(host.unload());
        if (isUnloaded)
            delete parent;
    }

    void shouldGoOnWithoutDataOnceTheHostReleasesItsRequests()
    {
        // GIVEN
        ModuleHost host;
        Traveller traveller(host);
        // WHEN
        traveller.open([&] {
            QCOMPARE(host.channel.subscriptionCount(), subscribedKinds);
            host.module()->releaseRequests();
            QCOMPARE(host.channel.subscriptionCount(), std::size_t(0));
            host.link.advance(0.5);
            traveller.goToFine();
            traveller.type("doubleSpinBox_x", QStringLiteral("5"));
            traveller.click("btn_ok");
        });
        // THEN
        QCOMPARE(host.ask("velmar2 get tracking extra_translation"),
                 QStringLiteral("velmar2 get tracking extra_translation -5.000 0.000 0.000"));
        traveller.open([&] { QCOMPARE(host.channel.subscriptionCount(), subscribedKinds); });
        QCOMPARE(host.channel.subscriptionCount(), std::size_t(0));
    }

    void shouldBeSilentWhileItIsClosed()
    {
        // GIVEN
        ModuleHost host;
        Traveller traveller(host);
        traveller.meet("AdjustToToolDlg", [&] {
            traveller.followCalibration();
            traveller.answer(QMessageBox::Ok);
            traveller.click("pushButton_calibrate");
        });
        traveller.open([&] {
            traveller.goToFine();
            traveller.click("pushButton_att");
        });
        const std::size_t before = calls(host);
        // WHEN
        host.control(QStringLiteral("velmar2 tracking start"));
        host.link.advance(0.5);
        TestClock::advance(longerThanEveryPoll);
        // THEN
        QCOMPARE(calls(host), before);
    }

    void shouldOnlyComeForwardWhenItIsTriggeredAgain()
    {
        // GIVEN
        ModuleHost host;
        Traveller traveller(host);
        std::size_t before = 0;
        std::size_t after = 1;
        // WHEN
        traveller.open([&] {
            before = calls(host);
            host.action()->trigger();
            after = calls(host);
        });
        // THEN
        QCOMPARE(after, before);
        QCOMPARE(traveller.guide().strangers(), QStringList());
    }
};

ROOM_TEST_CLASS(HostLifeTest)

#include "HostLifeTest.moc"
