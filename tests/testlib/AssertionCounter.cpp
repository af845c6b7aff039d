#include "AssertionCounter.h"

#include <QSet>
#include <QtTest>

#include <mutex>

namespace
{

/// The function and the row in which the last assertion was made, and all before. Threads assert, too.
struct Seen {
    std::mutex mutex;
    QByteArray function;
    QByteArray row;
    QSet<QByteArray> all;
};

Seen &seen()
{
    static Seen instance;
    return instance;
}

/// A function as the log names it in the first line about it; the name of its data may go on in others.
QByteArray firstLine(const QByteArray &function)
{
    return function.split('\n').constFirst().trimmed();
}

void note()
{
    const char *function = QTest::currentTestFunction();
    const char *row = QTest::currentDataTag();
    const std::lock_guard<std::mutex> lock(seen().mutex);
    if (qstrcmp(seen().function, function) == 0 && qstrcmp(seen().row, row) == 0)
        return; // a test may assert a million times
    seen().function = function;
    seen().row = row;
    seen().all.insert(firstLine(seen().function + '(' + seen().row + ')'));
}

} // namespace

// The linker's option --wrap=NAME lets a call of NAME reach __wrap_NAME, from where __real_NAME leads on.
#define ROOM_COUNTED(Name, Mangled, Parameters, Arguments)                                                   \
    bool real##Name Parameters asm("__real_" Mangled);                                                       \
    bool counted##Name Parameters asm("__wrap_" Mangled);                                                    \
    bool counted##Name Parameters                                                                            \
    {                                                                                                        \
        note();                                                                                              \
        return real##Name Arguments;                                                                         \
    }
#define ROOM_COUNTED_COMPARE(Name, Mangled, Left, Right)                                                     \
    ROOM_COUNTED(                                                                                            \
        Name, Mangled,                                                                                       \
        (Left left, Right right, const char *actual, const char *expected, const char *file, int line),      \
        (left, right, actual, expected, file, line))

ROOM_COUNTED(Verify, "_ZN5QTest7qVerifyEbPKcS1_S1_i",
             (bool isTrue, const char *text, const char *description, const char *file, int line),
             (isTrue, text, description, file, line))
ROOM_COUNTED(Compare, "_ZN5QTest14compare_helperEbPKcPcS2_S1_S1_S1_i",
             (bool isEqual, const char *message, char *left, char *right, const char *actual,
              const char *expected, const char *file, int line),
             (isEqual, message, left, right, actual, expected, file, line))
ROOM_COUNTED_COMPARE(CompareText, "_ZN5QTest21compare_string_helperEPKcS1_S1_S1_S1_i", const char *,
                     const char *)
ROOM_COUNTED_COMPARE(CompareInt, "_ZN5QTest8qCompareEiiPKcS1_S1_i", int, int)
ROOM_COUNTED_COMPARE(CompareUnsigned, "_ZN5QTest8qCompareEjjPKcS1_S1_i", unsigned, unsigned)
ROOM_COUNTED_COMPARE(CompareDouble, "_ZN5QTest8qCompareERKdS1_PKcS3_S3_i", const double &, const double &)
ROOM_COUNTED_COMPARE(CompareFloat, "_ZN5QTest8qCompareERKfS1_PKcS3_S3_i", const float &, const float &)
ROOM_COUNTED_COMPARE(CompareStrings, "_ZN5QTest8qCompareE11QStringViewS0_PKcS2_S2_i", QStringView,
                     QStringView)
ROOM_COUNTED_COMPARE(CompareStringToLatin1, "_ZN5QTest8qCompareE11QStringViewRK13QLatin1StringPKcS5_S5_i",
                     QStringView, const QLatin1String &)

namespace AssertionCounter
{

void reset()
{
    const std::lock_guard<std::mutex> lock(seen().mutex);
    seen().function.clear();
    seen().row.clear();
    seen().all.clear();
}

bool hasSeen(const QByteArray &function)
{
    const std::lock_guard<std::mutex> lock(seen().mutex);
    return seen().all.contains(firstLine(function));
}

QList<QByteArray> passedWithoutAssertion(const QByteArray &log)
{
    QList<QByteArray> functions;
    const auto lines = log.split('\n');
    for (const QByteArray &line : lines) {
        if (!line.startsWith("PASS "))
            continue;
        const QByteArray function = firstLine(line.mid(line.indexOf("::") + 2));
        if (function != "initTestCase()" && function != "cleanupTestCase()" && !hasSeen(function))
            functions << function;
    }
    return functions;
}

} // namespace AssertionCounter
