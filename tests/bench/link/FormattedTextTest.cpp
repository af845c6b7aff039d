#include "FormattedText.h"

#include "TestRegistry.h"

#include <QtTest>

namespace
{

std::string filledIn(const char *format, ...)
{
    FORMATTED_TEXT(text, format);
    return text;
}

} // namespace

class FormattedTextTest : public QObject
{
    Q_OBJECT

private slots:
    /// The program also runs where a comma is the decimal point.
    void shouldPrintAPointWhateverTheLocale()
    {
        // WHEN, THEN
        QCOMPARE(filledIn("tracking extra_scaling %.5f", 1.25),
                 std::string("tracking extra_scaling 1.25000"));
        QCOMPARE(filledIn("%.8f %.8f", -0.5, 3.0), std::string("-0.50000000 3.00000000"));
    }

    void shouldFillInWordsAndNumbers()
    {
        // WHEN, THEN
        QCOMPARE(filledIn("room c%02d %s", 7, "here"), std::string("room c07 here"));
        QCOMPARE(filledIn("100%%"), std::string("100%"));
        QCOMPARE(filledIn("%s", ""), std::string());
    }

    void shouldCutNothingOff()
    {
        // GIVEN
        const std::string text(5000, 'x');
        // WHEN, THEN
        QCOMPARE(filledIn("%s|", text.c_str()), text + "|");
    }
};

ROOM_TEST_CLASS(FormattedTextTest)
#include "FormattedTextTest.moc"
