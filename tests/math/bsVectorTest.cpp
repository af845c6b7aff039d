#include "bsVector.h"

#include "TestRegistry.h"

#include <QtTest>

#include <limits>

namespace
{

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double bsVector::*components[] = {&bsVector::x, &bsVector::y, &bsVector::z};

} // namespace

class bsVectorTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldStartAtTheOrigin() { QVERIFY(bsVector() == bsVector(0.0, 0.0, 0.0)); }

    void shouldSetAndClearItsComponents()
    {
        bsVector v;
        v.set(1.0, -2.0, 3.5);
        QCOMPARE(v.x, 1.0);
        QCOMPARE(v.y, -2.0);
        QCOMPARE(v.z, 3.5);
        v.zero();
        QVERIFY(v == bsVector(0.0, 0.0, 0.0));
    }

    void shouldAddAndSubtractByComponents()
    {
        const bsVector a(1.0, 2.0, 3.0);
        const bsVector b(10.0, -20.0, 0.5);
        QVERIFY(a + b == bsVector(11.0, -18.0, 3.5));
        QVERIFY(a - b == bsVector(-9.0, 22.0, 2.5));
        QVERIFY(a != b);
    }

    void shouldDivideInPlace()
    {
        bsVector v(2.0, -4.0, 1.0);
        v.divide(4.0);
        QVERIFY(v == bsVector(0.5, -1.0, 0.25));
    }

    void shouldNormalizeToLengthOne()
    {
        bsVector v(2.0, -3.0, 6.0);
        v.normalize();
        QVERIFY(v == bsVector(2.0 / 7.0, -3.0 / 7.0, 6.0 / 7.0));
        QCOMPARE(v.length(), 1.0);
    }

    void shouldLeaveAVeryShortVectorUnchanged()
    {
        bsVector v(0.9e-7, 0.0, 0.0);
        v.normalize();
        QVERIFY(v == bsVector(0.9e-7, 0.0, 0.0));
    }

    void shouldNormalizeFromTheShortestLengthOn()
    {
        bsVector limit(0.0, 0.0, -1e-7);
        limit.normalize();
        QVERIFY(limit == bsVector(0.0, 0.0, -1.0));
        bsVector v(0.0, 1.1e-7, 0.0);
        v.normalize();
        QVERIFY(v == bsVector(0.0, 1.0, 0.0));
    }

    void shouldCompareEveryComponent()
    {
        const bsVector v(1.0, 2.0, 3.0);
        QVERIFY(!(v != bsVector(1.0, 2.0, 3.0)));
        for (double bsVector::*component : components) {
            bsVector other = v;
            other.*component += 1e-12;
            QVERIFY(other != v);
        }
    }

    void shouldTellWhetherEveryComponentIsFinite()
    {
        QVERIFY(bsVector(1.0, 2.0, 3.0).isFinite());
        for (double bsVector::*component : components) {
            for (const double bad : {notANumber, infinity, -infinity}) {
                bsVector v(1.0, 2.0, 3.0);
                v.*component = bad;
                QVERIFY(!v.isFinite());
            }
        }
    }
};

ROOM_TEST_CLASS(bsVectorTest)
#include "bsVectorTest.moc"
