#include "TestRegistry.h"

#include "AssertionCounter.h"

#include <QObject>
#include <QTemporaryFile>
#include <QtTest>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace
{

constexpr int largestFailureCount = 100;
constexpr int notRunnable = 101;

std::vector<TestRegistry::Factory> &factories()
{
    static std::vector<TestRegistry::Factory> list;
    return list;
}

bool localeIsAsExpected()
{
    if (std::getenv("ROOM_EXPECT_DECIMAL_COMMA") == nullptr)
        return true;
    std::setlocale(LC_ALL, "");
    if (std::localeconv()->decimal_point[0] == ',')
        return true;
    std::fputs("The locale of this run does not print a decimal comma.\n", stderr);
    return false;
}

bool isWanted(const QObject &test)
{
    const char *name = std::getenv("ROOM_TEST_CLASS");
    return name == nullptr || qstrcmp(name, test.metaObject()->className()) == 0;
}

/// Runs one class. Returns the number of functions that failed or that passed without asserting anything.
int run(QObject &test, QStringList arguments)
{
    QTemporaryFile log;
    // Who chooses where the log goes wants to see something, and no verdict.
    const bool isJudged = !arguments.contains(QStringLiteral("-o")) && log.open();
    if (isJudged)
        arguments << "-o"
                  << "-,txt"
                  << "-o" << log.fileName() + ",txt";
    AssertionCounter::reset();
    int failures = QTest::qExec(&test, arguments);
    if (!isJudged)
        return failures;
    for (const QByteArray &function : AssertionCounter::passedWithoutAssertion(log.readAll())) {
        std::printf("FAIL!  : %s::%s asserts nothing\n", test.metaObject()->className(),
                    function.constData());
        ++failures;
    }
    return failures;
}

} // namespace

namespace TestRegistry
{

bool add(Factory factory)
{
    factories().push_back(factory);
    return true;
}

int runAll(int argc, char **argv)
{
    if (!localeIsAsExpected())
        return notRunnable;
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    int failures = 0;
    int runs = 0;
    for (const Factory factory : factories()) {
        const std::unique_ptr<QObject> test = factory();
        if (!isWanted(*test))
            continue;
        ++runs;
        failures += run(*test, arguments);
    }
    if (runs == 0)
        return notRunnable;
    return std::min(failures, largestFailureCount);
}

} // namespace TestRegistry
