#include "KeptOrder.h"

#include "TestRegistry.h"

#include <QtTest>

#include <cmath>
#include <random>

namespace
{

struct Offer {
    PointOrder order;
    double rms;
};

/// The loop itself, over orders in lexicographic sequence.
PointOrder keptByLoop(const std::vector<Offer> &offers, float *best)
{
    PointOrder kept;
    *best = -1.0F;
    for (const Offer &offer : offers) {
        if (kept.empty() || *best > offer.rms) {
            kept = offer.order;
            *best = static_cast<float>(offer.rms);
        }
    }
    return kept;
}

} // namespace

class KeptOrderTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldBeEmptyAtFirst()
    {
        QVERIFY(KeptOrder().isEmpty());
        QVERIFY(KeptOrder().order().empty());
    }

    void shouldKeepTheFirstOfEqualOnesThatRoundDown()
    {
        KeptOrder kept;
        kept.offer({1, 0}, 0.5);
        kept.offer({0, 1}, 0.5);
        kept.offer({2, 0}, 0.5);
        QCOMPARE(kept.order(), (PointOrder{0, 1}));
        QCOMPARE(kept.best(), 0.5F);
    }

    void shouldKeepTheLastOfEqualOnesThatRoundUp()
    {
        const double rms = 0.1; // below the single-precision number next to it
        KeptOrder kept;
        kept.offer({1, 0}, rms);
        kept.offer({2, 0}, rms);
        kept.offer({0, 1}, rms);
        QCOMPARE(kept.order(), (PointOrder{2, 0}));
    }

    void shouldTakeABetterOneAndForgetTheOthers()
    {
        KeptOrder kept;
        kept.offer({3}, {4}, 0.1);
        kept.offer({2}, {5}, 0.25);
        kept.offer({1}, {2}, 0.05);
        QCOMPARE(kept.order(), (PointOrder{2}));
        QCOMPARE(kept.best(), 0.05F);
    }

    void shouldKeepWhatTheLoopKeepsInAnySequence()
    {
        std::mt19937 random(77);
        for (int trial = 0; trial < 3000; ++trial) {
            const double base = std::uniform_real_distribution<double>(0.01, 100.0)(random);
            std::vector<Offer> offers;
            for (int i = 0; i < 12; ++i) {
                const int steps = std::uniform_int_distribution<int>(-3, 3)(random);
                offers.push_back({{i}, base * (1.0 + 2e-8 * steps)});
            }
            float best = 0.0F;
            const PointOrder expected = keptByLoop(offers, &best);
            std::shuffle(offers.begin(), offers.end(), random);
            KeptOrder kept;
            for (const Offer &offer : offers)
                kept.offer(offer.order, offer.rms);
            QCOMPARE(kept.order(), expected);
            QCOMPARE(kept.best(), best);
        }
    }
};

ROOM_TEST_CLASS(KeptOrderTest)

#include "KeptOrderTest.moc"
