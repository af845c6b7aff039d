#pragma once

#include <QByteArray>
#include <QList>

/// Knows which test functions have asserted anything.
///
/// The programs of the tests are linked so that every call of Qt Test's QVERIFY and QCOMPARE goes through
/// here.
namespace AssertionCounter
{

/// Forgets everything; to be called before each test class.
void reset();

/// Whether the function, as it stands in Qt Test's log with the name of its data in brackets, has asserted
/// anything since the last reset.
[[nodiscard]] bool hasSeen(const QByteArray &function);

/// Those functions that passed according to Qt Test's log in plain text, and have asserted nothing.
[[nodiscard]] QList<QByteArray> passedWithoutAssertion(const QByteArray &log);

} // namespace AssertionCounter
