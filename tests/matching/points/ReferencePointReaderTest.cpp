#include "ReferencePointReader.h"

#include "TestRegistry.h"

#include <QBuffer>
#include <QtTest>

#include <cmath>

Q_DECLARE_METATYPE(MatchingPoints)

namespace
{

std::optional<MatchingPoints> read(const QByteArray &text)
{
    QBuffer buffer;
    buffer.setData(text);
    buffer.open(QIODevice::ReadOnly);
    return ReferencePointReader(buffer).read();
}

QByteArray documentation(int axis, const char *value)
{
    return "Documentation_mPos[3][" + QByteArray::number(axis) + "]:3:" + value + "\n";
}

} // namespace

class ReferencePointReaderTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldReadTheNumberedFormat_data();
    void shouldReadTheNumberedFormat();
    void shouldReadTheBracketedFormat_data();
    void shouldReadTheBracketedFormat();
    void shouldReadTheDocumentationFormat_data();
    void shouldReadTheDocumentationFormat();
    void shouldRefuseATextWithoutAStart_data();
    void shouldRefuseATextWithoutAStart();
    void shouldRoundToSinglePrecisionOnce();
    void shouldCountTheFirst1023BytesOfALine_data();
    void shouldCountTheFirst1023BytesOfALine();
    void shouldReadAHundredThousandPoints();
    void shouldReadALineOfMegabytes();
};

void ReferencePointReaderTest::shouldReadTheNumberedFormat_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<MatchingPoints>("points");
    const MatchingPoints two = {{1.5, 2.5, 3.5}, {4, 5, 6}};
    QTest::newRow("plain") << QByteArray("1 1.5 2.5 3.5\n2 4 5 6\n") << two;
    QTest::newRow("last line break missing") << QByteArray("1 1.5 2.5 3.5\n2 4 5 6") << two;
    QTest::newRow("carriage returns") << QByteArray("1 1.5 2.5 3.5\r\n2 4 5 6\r\n") << two;
    QTest::newRow("tabs and blanks") << QByteArray("1\t1.5   2.5\t3.5\n  2 4 5 6  \n") << two;
    QTest::newRow("tab before the number") << QByteArray("1 1.5 2.5 3.5\n\t2 4 5 6\n") << two;
    QTest::newRow("carriage return before the number") << QByteArray("1 1.5 2.5 3.5\n\r2 4 5 6\n") << two;
    QTest::newRow("comment first") << QByteArray("# my points\n1 0 0 0\n") << MatchingPoints{{0, 0, 0}};
    QTest::newRow("empty lines between") << QByteArray("\n\n1 1.5 2.5 3.5\n\n\n2 4 5 6\n\n") << two;
    QTest::newRow("comment between") << QByteArray("1 1.5 2.5 3.5\n# second\n2 4 5 6\n") << two;
    QTest::newRow("more columns") << QByteArray("1 1.5 2.5 3.5 9 9\n2 4 5 6 drilled\n") << two;
    QTest::newRow("decimal commas are no numbers")
        << QByteArray("1 1,5 2,5 3,5\n2 4 5 6\n") << MatchingPoints{{4, 5, 6}};
    QTest::newRow("too few columns") << QByteArray("1 1.5 2.5\n2 4 5 6\n") << MatchingPoints{{4, 5, 6}};
    QTest::newRow("numbers are not looked at") << QByteArray("12 1.5 2.5 3.5\n-7 4 5 6\n") << two;
    QTest::newRow("number missing") << QByteArray("1 1.5 2.5 3.5\n.5 7 8 9\n2 4 5 6\n") << two;
    QTest::newRow("huge number") << QByteArray("1 1.5 2.5 3.5\n99999999999999999999 4 5 6\n") << two;
    QTest::newRow("starts behind two") << QByteArray("2 4 5 6\n1 1.5 2.5 3.5\n2 4 5 6\n") << two;
    QTest::newRow("a word that starts with 1")
        << QByteArray("1st row follows\n1 1.5 2.5 3.5\n2 4 5 6\n") << two;
    QTest::newRow("exponents") << QByteArray("1 15e-1 .25e1 +3.5\n2 4. 5 6\n") << two;
    QTest::newRow("only a number") << QByteArray("1") << MatchingPoints{};
    QTest::newRow("one line, no break") << QByteArray("1 4 5 6") << MatchingPoints{{4, 5, 6}};
    QTest::newRow("brackets inside") << QByteArray("1 4 5 6\n(2) 4 5 6\n") << MatchingPoints{{4, 5, 6}};
    QTest::newRow("zero byte ends a line") << QByteArray("1 1.5 2.5 3.5\n2 4 5 6\0 7\n", 26) << two;
    QTest::newRow("hexadecimal") << QByteArray("1 0x1p3 0x10 0\n") << MatchingPoints{{8, 16, 0}};
}

void ReferencePointReaderTest::shouldReadTheNumberedFormat()
{
    QFETCH(QByteArray, text);
    QFETCH(MatchingPoints, points);
    const std::optional<MatchingPoints> result = read(text);
    QVERIFY(result.has_value());
    QVERIFY(*result == points);
}

void ReferencePointReaderTest::shouldReadTheBracketedFormat_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<MatchingPoints>("points");
    const MatchingPoints one = {{1.5, 2.5, 3.5}}, two = {{1.5, 2.5, 3.5}, {4, 5, 6}};
    QTest::newRow("plain") << QByteArray("(1) 1.5 2.5 3.5\n(2) 4 5 6\n") << two;
    QTest::newRow("last line break missing") << QByteArray("(1) 1.5 2.5 3.5\n(2) 4 5 6") << one;
    QTest::newRow("one line without a break") << QByteArray("(1) 1.5 2.5 3.5") << MatchingPoints{};
    QTest::newRow("no blank behind the bracket") << QByteArray("(1)1.5 2.5 3.5\n(2)4 5 6\n") << two;
    QTest::newRow("blanks inside the bracket")
        << QByteArray("(1) 1.5 2.5 3.5\n( 2) 4 5 6\n(3 ) 7 8 9\n") << two;
    QTest::newRow("carriage returns") << QByteArray("title\r\n(1) 1.5 2.5 3.5\r\n(2) 4 5 6\r\n") << two;
    QTest::newRow("lines that do not convert")
        << QByteArray("(1)\n(1) 1.5 2.5 3.5\n2 9 9 9\nend\n(2) 4 5 6\n") << two;
    QTest::newRow("last line one byte too long, its break missing")
        << QByteArray("(1) 1.5 2.5 3.5\n") + QByteArray("(2) 4 5 6").leftJustified(1024, ' ') << one;
    QTest::newRow("number missing") << QByteArray("(1) 1.5 2.5 3.5\n() 7 8 9\n(2) 4 5 6\n") << two;
    QTest::newRow("only the start") << QByteArray("(1)\n") << MatchingPoints{};
}

void ReferencePointReaderTest::shouldReadTheBracketedFormat()
{
    shouldReadTheNumberedFormat();
}

void ReferencePointReaderTest::shouldReadTheDocumentationFormat_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<MatchingPoints>("points");
    const QByteArray x = documentation(0, "1.5") + documentation(0, "4") + documentation(0, "7");
    const QByteArray y = documentation(1, "2.5") + documentation(1, "5");
    const QByteArray z = documentation(2, "3.5") + documentation(2, "6") + documentation(2, "9");
    QTest::newRow("one y missing") << x + y + z << MatchingPoints{{1.5, 2.5, 3.5}, {4, 5, 6}, {7, -999, 9}};
    QTest::newRow("no z") << x + y << MatchingPoints{{1.5, 2.5, -999}, {4, 5, -999}, {7, -999, -999}};
    QTest::newRow("surplus z") << documentation(0, "1") + documentation(1, "2") + z
                               << MatchingPoints{{1, 2, 3.5}};
    QTest::newRow("last line break missing")
        << (documentation(0, "1") + documentation(1, "2") + documentation(2, "3")).chopped(1)
        << MatchingPoints{{1, 2, 3}};
    QTest::newRow("only x, no line break")
        << documentation(0, "1").chopped(1) << MatchingPoints{{1, -999, -999}};
    QTest::newRow("no value") << documentation(0, "none") << MatchingPoints{};
    QTest::newRow("line between the axes")
        << documentation(0, "1") + "\n" + documentation(1, "2") << MatchingPoints{{1, -999, -999}};
    QTest::newRow("another block behind it")
        << documentation(0, "1") + documentation(1, "2") + documentation(2, "3") + "text\n1 4 5 6\n2 7 8 9"
        << MatchingPoints{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}};
    QTest::newRow("the same block again, whose y begin at the first point")
        << documentation(0, "1") + documentation(1, "2") + documentation(2, "3") + "text\n" +
               documentation(0, "4") + documentation(1, "5") + documentation(2, "6")
        << MatchingPoints{{1, 5, 6}, {4, -999, -999}};
    QTest::newRow("no value behind one with values")
        << documentation(0, "1") + "text\n" + documentation(0, "none") + "1 4 5 6\n"
        << MatchingPoints{{1, -999, -999}, {4, 5, 6}};
    QTest::newRow("the line that ends it starts the next") << documentation(0, "1") + "(1) 4 5 6\n"
                                                           << MatchingPoints{{1, -999, -999}, {4, 5, 6}};
}

void ReferencePointReaderTest::shouldReadTheDocumentationFormat()
{
    shouldReadTheNumberedFormat();
}

void ReferencePointReaderTest::shouldRefuseATextWithoutAStart_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("line breaks only") << QByteArray("\n\n\n");
    QTest::newRow("words") << QByteArray("These are\nno points\n");
    QTest::newRow("numbered from 2") << QByteArray("2 1 2 3\n3 4 5 6\n");
    QTest::newRow("blank before the number") << QByteArray(" 1 1 2 3\n");
    QTest::newRow("y first") << documentation(1, "1") + documentation(2, "2");
    QTest::newRow("mark of a byte order") << QByteArray("\xef\xbb\xbf");
    QTest::newRow("zero bytes") << QByteArray(5000, '\0');
}

void ReferencePointReaderTest::shouldRefuseATextWithoutAStart()
{
    QFETCH(QByteArray, text);
    QVERIFY(!read(text).has_value());
}

void ReferencePointReaderTest::shouldRoundToSinglePrecisionOnce()
{
    const std::optional<MatchingPoints> points =
        read("1 1234.5678 0.1 1.00000005960464477539062500000000000000000000000000000000001\n");
    QVERIFY(points.has_value());
    QCOMPARE(points->at(0)[0], 1234.5677490234375);
    QCOMPARE(points->at(0)[1], 0.100000001490116119384765625);
    // Just above the middle of two single-precision numbers; by way of double it would fall on the middle.
    QCOMPARE(points->at(0)[2], 1.00000011920928955078125);
}

void ReferencePointReaderTest::shouldCountTheFirst1023BytesOfALine_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<double>("z");
    const QByteArray start = QByteArray("1 4 5").leftJustified(1021, ' ');
    QTest::newRow("two digits fit") << start + "67" << 67.0;
    QTest::newRow("the third is dropped") << start + "678" << 67.0;
    QTest::newRow("all behind is dropped") << start + "678" + QByteArray(3000, '9') << 67.0;
    QTest::newRow("line feed as the 1023rd byte") << start + "6" << 6.0;
}

void ReferencePointReaderTest::shouldCountTheFirst1023BytesOfALine()
{
    QFETCH(QByteArray, line);
    QFETCH(double, z);
    const MatchingPoints expected = {{4, 5, z}, {7, 8, 9}};
    QVERIFY(read(line + "\n2 7 8 9\n").value() == expected);
    QVERIFY(read("1 7 8 9\n" + line).value() == (MatchingPoints{{7, 8, 9}, {4, 5, z}}));
}

void ReferencePointReaderTest::shouldReadAHundredThousandPoints()
{
    QByteArray text;
    constexpr int count = 100000;
    for (int i = 1; i <= count; ++i)
        text +=
            QByteArray::number(i) + ' ' + QByteArray::number(i) + ".5 -" + QByteArray::number(i) + " 0.25\n";
    const std::optional<MatchingPoints> points = read(text);
    QVERIFY(points.has_value());
    QCOMPARE(points->size(), static_cast<std::size_t>(count));
    QVERIFY((points->back() == MatchingPoint{100000.5, -100000, 0.25}));
}

void ReferencePointReaderTest::shouldReadALineOfMegabytes()
{
    const std::optional<MatchingPoints> points = read("1 1 2 3\n" + QByteArray(4000000, '1') + "\n3 4 5 6");
    QVERIFY(points.has_value());
    QVERIFY(*points == (MatchingPoints{{1, 2, 3}, {4, 5, 6}}));
}

ROOM_TEST_CLASS(ReferencePointReaderTest)

#include "ReferencePointReaderTest.moc"
