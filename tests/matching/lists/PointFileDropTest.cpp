#include "PointFileDrop.h"

#include "TestRegistry.h"
#include "TwoLists.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QTemporaryDir>
#include <QUrl>
#include <QtTest>

namespace
{

/// Both lists, and a file with one point, 7 8 9.
struct Droppable : TwoLists {
    Droppable()
    {
        QFile file(name());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("1 7 8 9\n");
        new PointFileDrop(*editing, &window);
    }

    QString name() const { return folder.filePath(QStringLiteral("points.txt")); }

    /// Drags them in and drops them. Whether the window takes them.
    bool drop(const QList<QUrl> &urls)
    {
        QMimeData data;
        data.setUrls(urls);
        const auto offers = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter(QPoint(1, 1), offers, &data, Qt::LeftButton, Qt::NoModifier);
        enter.setDropAction(Qt::MoveAction);
        enter.ignore();
        QCoreApplication::sendEvent(&window, &enter);
        action = enter.dropAction();
        QDropEvent event(QPoint(1, 1), offers, &data, Qt::LeftButton, Qt::NoModifier);
        event.ignore();
        QCoreApplication::sendEvent(&window, &event);
        return enter.isAccepted() && event.isAccepted();
    }

    Qt::DropAction action = Qt::IgnoreAction; ///< as the window wants it
    QTemporaryDir folder;
};

} // namespace

class PointFileDropTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldLoadADroppedFile()
    {
        // GIVEN
        Droppable one;
        // WHEN
        QVERIFY(one.drop({QUrl::fromLocalFile(one.name())}));
        // THEN
        QTRY_COMPARE(TwoLists::firstCells(one.references), QStringList("7.00"));
    }

    void shouldCopyTheFileAndNeverMoveIt()
    {
        // GIVEN
        Droppable one;
        // WHEN
        one.drop({QUrl::fromLocalFile(one.name())});
        // THEN
        QCOMPARE(one.action, Qt::CopyAction);
    }

    void shouldRefuseWhatIsNotOneFileOfThisMachine_data()
    {
        QTest::addColumn<QStringList>("urls");
        QTest::newRow("nothing") << QStringList();
        QTest::newRow("two files") << QStringList{"file:///a.txt", "file:///b.txt"};
        QTest::newRow("a page of the net") << QStringList{"http://example.org/points.txt"};
    }
    void shouldRefuseWhatIsNotOneFileOfThisMachine()
    {
        // GIVEN
        QFETCH(QStringList, urls);
        Droppable one;
        // WHEN, THEN
        QVERIFY(!one.drop(QUrl::fromStringList(urls)));
    }

    void shouldRefuseWhileTheListsMayNotBeChanged()
    {
        // GIVEN
        Droppable one;
        one.references->setEnabled(false);
        // WHEN, THEN
        QVERIFY(!one.drop({QUrl::fromLocalFile(one.name())}));
    }
};

ROOM_TEST_CLASS(PointFileDropTest)
#include "PointFileDropTest.moc"
