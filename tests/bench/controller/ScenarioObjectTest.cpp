#include "ScenarioObject.h"

#include "TestRegistry.h"

#include <QJsonDocument>
#include <QtTest>

#include <functional>

using Read = std::function<void(ScenarioObject &)>;

Q_DECLARE_METATYPE(Read)

namespace
{

QJsonObject parsed(const char *json)
{
    return QJsonDocument::fromJson(json).object();
}

} // namespace

class ScenarioObjectTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldTakeWhatIsThereAndKeepTheRest()
    {
        // GIVEN
        ScenarioError error;
        ScenarioObject object(parsed(R"({"size": 2.5, "on": false, "name": "cam", "at": [1, 2, 3]})"), "",
                              error);
        double size = 0.0, other = 7.0;
        bool on = true;
        std::string name;
        SimVector at;
        // WHEN
        object.number("size", 0.0, 10.0, &size);
        object.number("other", 0.0, 10.0, &other);
        object.truth("on", &on);
        object.text("name", &name);
        object.vector("at", &at);
        object.refuseOtherKeys();
        // THEN
        QVERIFY(!error.isSet());
        QCOMPARE(size, 2.5);
        QCOMPARE(other, 7.0);
        QCOMPARE(on, false);
        QCOMPARE(name, std::string("cam"));
        QCOMPARE(at.z, 3.0);
    }

    void shouldNameTheKeyOfWhatIsWrong_data()
    {
        QTest::addColumn<Read>("read");
        static double number = 0.0;
        static int count = 0;
        static bool truth = false;
        static std::string text;
        static SimPose pose;
        QTest::newRow("too large") << Read([](auto &o) { o.number("key", 0.0, 2.0, &number); });
        QTest::newRow("no whole number") << Read([](auto &o) { o.count("key", 0, 9, &count); });
        QTest::newRow("no truth") << Read([](auto &o) { o.truth("key", &truth); });
        QTest::newRow("no text") << Read([](auto &o) { o.text("key", &text); });
        QTest::newRow("no pose") << Read([](auto &o) { o.pose("key", &pose); });
        QTest::newRow("nobody asks") << Read([](auto &o) { o.refuseOtherKeys(); });
    }
    void shouldNameTheKeyOfWhatIsWrong()
    {
        // GIVEN
        QFETCH(Read, read);
        ScenarioError error;
        ScenarioObject object(parsed(R"({"key": 2.5})"), "cameras[2]", error);
        // WHEN
        read(object);
        // THEN
        QCOMPARE(error.key, QStringLiteral("cameras[2].key"));
        QVERIFY(!error.reason.isEmpty());
    }

    void shouldRefuseWhatNobodyAsksForInsideToo_data()
    {
        QTest::addColumn<Read>("read");
        QTest::addColumn<QString>("key");
        const auto nothing = [](ScenarioObject &) {};
        QTest::newRow("object") << Read([nothing](auto &o) { o.object("one", nothing); }) << "one.extra";
        QTest::newRow("list") << Read([nothing](auto &o) { o.list("all", 5, nothing); }) << "all[0].extra";
    }
    void shouldRefuseWhatNobodyAsksForInsideToo()
    {
        // GIVEN
        QFETCH(Read, read);
        QFETCH(QString, key);
        ScenarioError error;
        ScenarioObject object(parsed(R"({"one": {"extra": 1}, "all": [{"extra": 2}]})"), "", error);
        // WHEN
        read(object);
        // THEN
        QCOMPARE(error.key, key);
        QCOMPARE(error.reason, QStringLiteral("unknown key"));
    }

    void shouldKeepTheFirstError()
    {
        // GIVEN
        ScenarioError error;
        ScenarioObject object(parsed("{}"), "", error);
        // WHEN
        object.fail("first", "why");
        object.fail("second", "why not");
        // THEN
        QCOMPARE(error.key, QStringLiteral("first"));
        QCOMPARE(error.reason, QStringLiteral("why"));
    }

    void shouldReadAListPieceByPiece()
    {
        // GIVEN
        ScenarioError error;
        ScenarioObject object(parsed(R"({"list": [{"x": 1}, {"x": 2}, {"x": true}]})"), "", error);
        double sum = 0.0;
        // WHEN
        const bool isThere = object.list("list", 5, [&sum](ScenarioObject &one) {
            double x = 0.0;
            one.number("x", 0.0, 10.0, &x);
            sum += x;
        });
        // THEN
        QVERIFY(isThere);
        QCOMPARE(sum, 3.0);
        QCOMPARE(error.key, QStringLiteral("list[2].x"));
        QVERIFY(!object.list("missing", 5, [](ScenarioObject &) {}));
    }
};

ROOM_TEST_CLASS(ScenarioObjectTest)
#include "ScenarioObjectTest.moc"
