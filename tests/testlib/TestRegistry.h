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
/// that the C library really prints a comma. ROOM_TEST_LANGUAGE names its language, ROOM_TEST_CLASS the only
/// classes and functions to run, as "A B::shouldDo". A function that asserts nothing has failed. Returns the
/// number of failed functions, at most 100, or 101 without the locale, the language or anything to run.
int runAll(int argc, char **argv);

} // namespace TestRegistry

/// Put behind the class in its source: ROOM_TEST_CLASS(MatrixTest)
#define ROOM_TEST_CLASS(Class)                                                                               \
    static const bool registered##Class =                                                                    \
        TestRegistry::add([]() -> std::unique_ptr<QObject> { return std::make_unique<Class>(); });
