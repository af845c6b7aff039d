#include "FaultPlan.h"
#include "SimController.h"
#include "SimScript.h"
#include "TestRegistry.h"

#include <QtTest>

#include <random>

namespace
{

const std::vector<std::string> seeds = {
    "velmar2 get tracking room c01",
    "velmar2 set tracking extra_rotation 1 0 0 0 1 0 0 0 1",
    "velmar2 set tracking extra_translation 1000000000 -1000000000 1e9",
    "velmar2 set tracking extra_scaling 1000",
    "velmar2 set tracking reference body b01",
    "velmar2 tracking start",
    "velmar2 tracking stop",
    "velmar2 cal room start",
    "velmar2 cal reflex_scan stop",
    "velmar2 get status step_progress",
    "velmar2 measurementtool start_measurement b01",
    "velmar2 roomcal accept_new_calibration",
    "velmar2 set roomcal duration 1.0",
    "sim tool 1 move 1 2 3 1000000000",
    "sim tool 1 duration 3600",
    "sim tool 1 button 1 press",
    "sim cal room steps 3",
    "sim cal room pause 1 5 4.5",
    "sim cal room stall 0.5 3600",
    "sim cal room error 0.5 \"no wand\"",
    "sim cal room curve 1 0.5 2 1",
    "sim record text 6d = nonsense",
    "sim record swap 6d 6df 3",
    "sim record count 6dmt 2147483647",
    "sim clock query 3600",
    "sim object point 7 1 2 3",
    "sim body 1 pose 1e9 1e9 1e9 720 -720 1e9",
    "sim fault fail 1 status active",
    "sim ts jump 1e9",
};

class LineMaker
{
public:
    std::string next()
    {
        std::string line = seeds[below(seeds.size())];
        for (std::size_t changes = below(4); changes > 0; --changes)
            mutate(line);
        return line;
    }

private:
    std::size_t below(std::size_t bound) { return m_engine() % bound; }

    void mutate(std::string &line)
    {
        const std::size_t place = below(line.size() + 1);
        switch (below(6)) {
        case 0:
            line.insert(place, 1, static_cast<char>(below(256)));
            break;
        case 1:
            line.erase(place, 1 + below(5));
            break;
        case 2:
            line.replace(place, below(3), std::to_string(static_cast<int>(m_engine())));
            break;
        case 3:
            line += " " + seeds[below(seeds.size())];
            break;
        case 4:
            line.insert(place, below(2000), static_cast<char>('0' + below(10)));
            break;
        default:
            line = line.substr(0, place) + seeds[below(seeds.size())].substr(below(10));
        }
    }

    std::mt19937 m_engine{20240607};
};

bool isPlain(const std::string &answer)
{
    return answer.find('\n') == std::string::npos;
}

} // namespace

class HostileLinesTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldAnswerTenThousandMutatedLines()
    {
        SimController controller;
        SimScript script(controller);
        FaultPlan faults;
        LineMaker maker;
        int accepted = 0;
        for (int i = 0; i < 10000; ++i) {
            const std::string line = maker.next();
            const std::string answer =
                SimScript::isControlLine(line) ? script.run(line) : controller.answer(line);
            faults.run(line, 0.0);
            faults.next(line);
            QVERIFY2(answer.find("velmar2 ") == 0 || answer.find("sim ") == 0, line.c_str());
            QVERIFY(answer.size() < 3000);
            accepted += answer == "velmar2 ok" || answer == "sim ok" ? 1 : 0;
            if (i % 50 == 0)
                controller.frame();
        }
        QVERIFY(accepted > 500);
        QVERIFY(isPlain(controller.answer("velmar2 get status active")));
    }

    void shouldAnswerTenThousandRandomLines()
    {
        SimController controller;
        std::mt19937 engine(4711);
        for (int i = 0; i < 10000; ++i) {
            std::string line(engine() % 300, '\0');
            for (char &character : line)
                character = static_cast<char>(engine() % 256);
            QVERIFY(controller.answer(line).find("velmar2 err ") == 0);
            QVERIFY(SimScript(controller).run("sim " + line).find("sim err ") == 0);
        }
    }

    void shouldRefuseAnEndlessLine()
    {
        SimController controller;
        const std::string answer = controller.answer("velmar2 get status active" + std::string(100000, ' '));
        QCOMPARE(answer, std::string("velmar2 err 6 \"line too long\""));
    }
};

ROOM_TEST_CLASS(HostileLinesTest)
#include "HostileLinesTest.moc"
