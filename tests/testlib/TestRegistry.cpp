#include "TestRegistry.h"

#include "AssertionCounter.h"
#include "TestLanguage.h"

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

/// ROOM_TEST_CLASS holds the classes that are to run, or single functions of them, as "ThisTest
/// ThatTest::shouldDo". Nothing when the class is not among them; without functions all of it.
std::optional<QStringList> wantedFunctions(const QObject &test)
{
    const QString wanted = qEnvironmentVariable("ROOM_TEST_CLASS");
    if (wanted.isEmpty())
        return QStringList();
    bool isNamed = false;
    QStringList functions;
    const QStringList words = wanted.split(QLatin1Char(' '));
    for (const QString &word : words) {
        if (word.section("::", 0, 0) != QLatin1String(test.metaObject()->className()))
            continue;
        isNamed = true;
        if (word.contains("::"))
            functions << word.section("::", 1);
    }
    return isNamed ? std::optional<QStringList>(functions) : std::nullopt;
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
    const auto allFunctions = AssertionCounter::passedWithoutAssertion(log.readAll());
    for (const QByteArray &function : allFunctions) {
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
    const TestLanguage language(qEnvironmentVariable("ROOM_TEST_LANGUAGE"));
    if (!localeIsAsExpected() || !language.isSpoken())
        return notRunnable;
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    int failures = 0;
    int runs = 0;
    for (const Factory factory : factories()) {
        const std::unique_ptr<QObject> test = factory();
        const std::optional<QStringList> functions = wantedFunctions(*test);
        if (!functions)
            continue;
        ++runs;
        failures += run(*test, arguments + *functions);
    }
    if (runs == 0)
        return notRunnable;
    return std::min(failures, largestFailureCount);
}

} // namespace TestRegistry
