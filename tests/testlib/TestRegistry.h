#pragma once

#include <memory>

class QObject;

/// The test classes of one executable. Every test source registers its class with ROOM_TEST_CLASS.
namespace TestRegistry
{

using Factory = std::unique_ptr<QObject> (*)();

/// Registers a test class; called before main().
bool add(Factory factory);

/// Runs every registered class with the program's arguments.
///
/// In the run with the decimal comma (environment variable ROOM_EXPECT_DECIMAL_COMMA) it first makes sure
/// that the C library really prints a comma. The environment variable ROOM_TEST_CLASS leaves only the class
/// of that name. A function that passes without having asserted anything has failed. Returns the number of
/// failed functions, at most 100, or 101 when the locale is wrong or there was nothing to run.
int runAll(int argc, char **argv);

} // namespace TestRegistry

/// Put behind the class in its source: ROOM_TEST_CLASS(MatrixTest)
#define ROOM_TEST_CLASS(Class)                                                                               \
    static const bool registered##Class =                                                                    \
        TestRegistry::add([]() -> std::unique_ptr<QObject> { return std::make_unique<Class>(); });
