#include "CameraNotices.h"

#include "FakeController.h"
#include "TestRegistry.h"

#include <QWidget>
#include <QtTest>

namespace
{

/// A window that wants to be told.
class ProgressWindow : public QWidget
{
    Q_OBJECT

public:
    QStringList tabs;
    QStringList active;

public slots:
    void onReceiveCameraTabChanges(const QString &msg) { tabs.append(msg); }
    void onReceiveMostActiveChanges(const QString &msg) { active.append(msg); }
};

struct Calibrating : FakeController {
    Calibrating()
    {
        room().cameras.resize(6);
        room().cameras[1].progressRate = 2.0;
        room().cameras[4].progressRate = 2.0;
        link.ask("velmar2 cal room start");
    }
};

} // namespace

class CameraNoticesTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldTellTheTabsOnce()
    {
        Calibrating fake;
        CameraNotices notices(fake.channel);
        ProgressWindow window;
        window.show();

        notices.look();
        notices.look();

        QCOMPARE(window.tabs, QStringList{QStringLiteral("0,0,0,0,1,1")});
    }

    void shouldTellTheCamerasThatAdvanceTheMostWhenTheyChange()
    {
        Calibrating fake;
        CameraNotices notices(fake.channel);
        ProgressWindow window;
        window.show();

        fake.link.advance(3.0);
        notices.look();
        fake.link.advance(3.0);
        notices.look();
        QCOMPARE(window.active, QStringList{QStringLiteral("1,4")});
        notices.look();
        QCOMPARE(window.active, (QStringList{QStringLiteral("1,4"), QString()}));
    }

    void shouldNotMarkCamerasThatAllAdvanceAlike()
    {
        Calibrating fake;
        fake.room().cameras[1].progressRate = 1.0;
        fake.room().cameras[4].progressRate = 1.0;
        CameraNotices notices(fake.channel);
        ProgressWindow window;
        window.show();
        fake.link.advance(3.0);
        notices.look();
        QCOMPARE(window.active, QStringList());
    }

    void shouldTellNothingToHiddenOrOtherWindows()
    {
        Calibrating fake;
        CameraNotices notices(fake.channel);
        ProgressWindow window;
        QWidget other;
        other.show();

        notices.look();

        QCOMPARE(window.tabs, QStringList());
    }

    void shouldBeginAnewForEachWindow()
    {
        Calibrating fake;
        CameraNotices notices(fake.channel);
        {
            ProgressWindow window;
            window.show();
            notices.look();
        }
        ProgressWindow window;
        window.show();
        notices.look();
        QCOMPARE(window.tabs.size(), 1);
    }

    void shouldNotShowInTheConversation()
    {
        Calibrating fake;
        CameraNotices notices(fake.channel);
        ProgressWindow window;
        window.show();
        const int before = fake.channel.log().rowCount();
        notices.look();
        QCOMPARE(fake.channel.log().rowCount(), before);
    }

    void shouldLookByItself()
    {
        Calibrating fake;
        const CameraNotices notices(fake.channel);
        ProgressWindow window;
        window.show();
        QTRY_COMPARE(window.tabs.size(), 1);
    }
};

ROOM_TEST_CLASS(CameraNoticesTest)

#include "CameraNoticesTest.moc"
