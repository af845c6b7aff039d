#include "AdjustmentEntry.h"

#include "FinePage.h"
#include "TestRegistry.h"

#include <QtTest>

#include <limits>

namespace
{

struct Page : FinePage {
    RoomTrafoData record;
    AdjustmentEntry entry{ui, record};

    void load(double scaling = 1.0)
    {
        entry.load();
        entry.showScaling(scaling);
    }
};

} // namespace

class AdjustmentEntryTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldShowTheRecord()
    {
        Page page;
        page.record.translation = {-10.0, 20.0, -30.5};
        page.load();
        QCOMPARE(page.ui.doubleSpinBox_x->value(), 10.0);
        QCOMPARE(page.ui.doubleSpinBox_y->value(), -20.0);
        QCOMPARE(page.ui.doubleSpinBox_z->value(), 30.5);
        QVERIFY(page.entry.nothingUnsaved());
    }

    void shouldKeepTheRecordsOwnNumbersWhereNobodyEdited()
    {
        Page page;
        page.record.translation = {-1.23456, 0.0, 7.000001};
        const RoomTrafoData before = page.record;
        page.load();
        page.entry.store();
        QVERIFY(page.record == before);
    }

    void shouldStoreAnEditedBox()
    {
        Page page;
        page.record.translation = {-1.23456, 0.0, 7.000001};
        page.load();
        page.ui.doubleSpinBox_x->setValue(7.5);
        QVERIFY(!page.entry.nothingUnsaved());
        page.entry.store();
        QCOMPARE(page.record.translation[0], -7.5);
        QCOMPARE(page.record.translation[2], 7.000001);
        QVERIFY(page.entry.nothingUnsaved());
    }

    void shouldTellFillingFromEditing()
    {
        Page page;
        QList<bool> heard;
        connect(page.ui.doubleSpinBox_x, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
                [&] { heard.append(page.entry.isEdited()); });
        AdjustmentBoxes values;
        values.offset[0] = 5.0;
        page.entry.show(values);
        page.ui.doubleSpinBox_x->setValue(6.0);
        QCOMPARE(heard, QList<bool>({false, true}));
    }

    void shouldSayWhatApplyWillDoUntilItIsStored()
    {
        Page page;
        page.load();
        const QString nothing = page.ui.label_change->text();
        page.ui.doubleSpinBox_y->setValue(3.0);
        page.entry.showChange();
        QVERIFY(page.ui.label_change->text().contains(QStringLiteral("3.000 mm")));
        page.entry.store();
        QCOMPARE(page.ui.label_change->text(), nothing);
    }

    void shouldStoreTheControllersScalingWhereTheRecordHasAnother()
    {
        Page page;
        page.load(1.2);
        QCOMPARE(page.ui.doubleSpinBox_scalingFactor->value(), 1.2);
        page.entry.store();
        QCOMPARE(page.record.scaling, 1.2);
    }

    void shouldShowTheRecordsScalingWhenNoneWasRead()
    {
        Page page;
        page.record.scaling = 0.97;
        page.entry.load();
        page.entry.showScaling(std::nullopt);
        QCOMPARE(page.ui.doubleSpinBox_scalingFactor->value(), 0.97);
    }

    void shouldNeverStoreAScalingThatIsNoNumber()
    {
        Page page;
        page.record.scaling = 0.97;
        page.load(std::numeric_limits<double>::quiet_NaN());
        page.entry.store();
        QCOMPARE(page.record.scaling, 0.97);
    }

    void shouldCallAReplacedRecordUnsavedUntilItIsStored()
    {
        Page page;
        page.load();
        page.record.translation = {1.0, 2.0, 3.0};
        page.entry.replaced();
        QVERIFY(!page.entry.nothingUnsaved());
        QVERIFY(page.entry.roomShowsRecord());
        page.entry.showRecord();
        QCOMPARE(page.ui.doubleSpinBox_z->value(), -3.0);
        page.entry.store();
        QVERIFY(page.entry.nothingUnsaved());
    }

    void shouldPreviewWhatIsEdited()
    {
        Page page;
        page.load();
        page.ui.doubleSpinBox_x->setValue(4.0);
        page.ui.doubleSpinBox_rz->setValue(90.0);
        const RoomPreview preview = page.entry.preview();
        QCOMPARE(preview.angles.phi, 90.0);
        QVERIFY((preview.position - bsVector(0.0, 4.0, 0.0)).length() < 1e-9);
    }
};

ROOM_TEST_CLASS(AdjustmentEntryTest)
#include "AdjustmentEntryTest.moc"
