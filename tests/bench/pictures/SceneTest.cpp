#include "Scene.h"
#include "TestRegistry.h"

#include <QtTest>

class SceneTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldReadTheSettingsAndTheLinesOfThePlay()
    {
        QString error;
        const auto scene = Scene::read("# a remark\n"
                                       "bench --language de --control \"clock stepped\"\n"
                                       "bench --locked\n"
                                       "screen 3200x2400\n"
                                       "scale 1.5\n"
                                       "palette dark\n"
                                       "\n"
                                       "press Shift+F5\n"
                                       "  picture one\n",
                                       &error);
        QVERIFY2(scene.has_value(), qPrintable(error));
        QCOMPARE(scene->benchOptions,
                 QStringList({"--language", "de", "--control", "clock stepped", "--locked"}));
        QCOMPARE(scene->scale, QString("1.5"));
        QVERIFY(scene->isDark);
        QCOMPARE(scene->lines.size(), std::size_t(2));
        QCOMPARE(scene->lines[0].number, 8);
        QCOMPARE(scene->lines[0].text, QString("press Shift+F5"));
        QCOMPARE(scene->lines[1].number, 9);
        QCOMPARE(scene->lines[1].text, QString("picture one"));
    }

    void shouldBeginWithAPlainBench()
    {
        QString error;
        const auto scene = Scene::read("picture one", &error);
        QVERIFY(scene.has_value());
        QCOMPARE(scene->benchOptions, QStringList());
        QCOMPARE(scene->scale, QString("1"));
        QVERIFY(!scene->isDark);
    }

    void shouldSayWhichLineIsWrong_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("mentioned");
        QTest::newRow("no option") << "bench\npicture one"
                                   << "line 1";
        QTest::newRow("another palette") << "\npalette pink\npicture one"
                                         << "line 2";
        QTest::newRow("no scale") << "scale none\npicture one"
                                  << "line 1";
        QTest::newRow("a setting too late") << "press F1\nscale 2"
                                            << "line 2";
        QTest::newRow("nothing happens") << "bench --locked"
                                         << "nothing happens";
    }
    void shouldSayWhichLineIsWrong()
    {
        QFETCH(QString, text);
        QFETCH(QString, mentioned);
        QString error;
        QVERIFY(!Scene::read(text, &error).has_value());
        QVERIFY2(error.contains(mentioned), qPrintable(error));
    }
};

ROOM_TEST_CLASS(SceneTest)

#include "SceneTest.moc"
