#include "ObjectWatch.h"

#include "TestRegistry.h"

#include <QEventLoop>
#include <QTimer>
#include <QWidget>
#include <QtTest>

#include <memory>

class ObjectWatchTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldGoOnWhileTheObjectExists()
    {
        const QObject object;
        const ObjectWatch watch(&object);
        QVERIFY(bool(watch));
    }

    void shouldStopOnceTheObjectIsDestroyed()
    {
        auto object = std::make_unique<QObject>();
        const ObjectWatch watch(object.get());
        object.reset();
        QVERIFY(!watch);
    }

    void shouldStopOnceAWidgetWentWithItsParent()
    {
        auto parent = std::make_unique<QWidget>();
        const ObjectWatch watch(new QWidget(parent.get()));
        parent.reset();
        QVERIFY(!watch);
    }

    void shouldStopOnceTheObjectIsDestroyedInAnEventLoop()
    {
        auto *object = new QObject;
        const ObjectWatch watch(object);
        QEventLoop loop;
        connect(object, &QObject::destroyed, &loop, &QEventLoop::quit);
        QTimer::singleShot(0, object, &QObject::deleteLater);
        loop.exec();
        QVERIFY(!watch);
    }

    void shouldNotBeginWithoutAnObject()
    {
        const ObjectWatch nobody(nullptr);
        QVERIFY(!nobody);
    }

    void shouldHoldTheBusyFlagUntilItsEnd()
    {
        const QObject object;
        bool busy = false;
        {
            const ObjectWatch watch(&object, busy);
            QVERIFY(bool(watch));
            QVERIFY(busy);
        }
        QVERIFY(!busy);
    }

    void shouldKeepASecondRunOut()
    {
        const QObject object;
        bool busy = false;
        const ObjectWatch first(&object, busy);
        {
            const ObjectWatch second(&object, busy);
            QVERIFY(!second);
        }
        QVERIFY(busy); // it was not the second's to release
        QVERIFY(bool(first));
    }

    void shouldReleaseTheBusyFlagBeforeItsEnd()
    {
        const QObject object;
        bool busy = false;
        ObjectWatch first(&object, busy);
        first.release();
        QVERIFY(!busy);
        QVERIFY(bool(first));
        const ObjectWatch second(&object, busy);
        QVERIFY(bool(second));
        first.release();
        QVERIFY(busy); // by now it is the second's
    }

    void shouldLeaveTheFlagOfADestroyedObjectAlone()
    {
        auto object = std::make_unique<QObject>();
        bool busy = false; // stands for memory that is somebody else's by then
        {
            const ObjectWatch watch(object.get(), busy);
            object.reset();
            QVERIFY(!watch);
        }
        QVERIFY(busy);
    }
};

ROOM_TEST_CLASS(ObjectWatchTest)

#include "ObjectWatchTest.moc"
