#include "CoarseAdjustment.h"

#include "InterfaceVersion.h"
#include "PickByKeys.h"
#include "RecordingHost.h"
#include "RenderArea.h"
#include "RoomAngleExchange.h"
#include "RoomAngles.h"
#include "bsMatrix.h"

#include "TestLanguage.h"
#include "TestRegistry.h"
#include "WheelTurn.h"

#include <QFrame>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMetaMethod>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QStandardItemModel>
#include <QTableView>
#include <QtTest>

#include <Eigen/Dense>

namespace
{

const QStringList axisTexts{QStringLiteral("x"),  QStringLiteral("-x"), QStringLiteral("y"),
                            QStringLiteral("-y"), QStringLiteral("z"),  QStringLiteral("-z")};

using Angles = std::array<double, 3>;

/// The room of a window that takes every angle as it is.
struct Room final : RoomAngleExchange {
    void getRoomAngles(double &rx, double &ry, double &rz) override
    {
        rx = angles[0];
        ry = angles[1];
        rz = angles[2];
    }

    void setRoomAngles(double rx, double ry, double rz) override
    {
        angles = {rx, ry, rz};
        changes.append(angles);
    }

    Angles angles{};
    QList<Angles> changes;
};

/// A panel that is shown for a room calibration of the given type.
struct Bench {
    explicit Bench(const char *type = "normal", Angles angles = {},
                   const BackendVersions &version = interfaceVersion(1, 24, 0))
        : versions(version)
    {
        host.setAnswer(QStringLiteral("roomcal coordinate_type"), type);
        host.setAnswer(QStringLiteral("roomcal last_coordinate_type"), type);
        room.angles = angles;
        panel.resize(960, 540);
        panel.show();
        panel.activateWindow();
        isReady = QTest::qWaitForWindowActive(&panel);
        panel.updatePanel();
    }

    template <typename Widget>
    Widget *part(const char *name) const
    {
        return panel.findChild<Widget *>(QLatin1String(name));
    }

    QComboBox *right() const { return part<QComboBox>("comboBox_right"); }
    QComboBox *top() const { return part<QComboBox>("comboBox_top"); }
    QString text(const char *label) const { return part<QLabel>(label)->text(); }
    RenderArea *picture() const { return panel.findChild<RenderArea *>(); }

    bool isReady = false;
    RecordingHost host;
    BackendVersions versions;
    Room room;
    CoarseAdjustment panel{&host, &versions, &room};
};

Eigen::Vector3d vectorOf(int axis)
{
    return (axis % 2 == 0 ? 1.0 : -1.0) * Eigen::Vector3d::Unit(axis / 2);
}

Eigen::Matrix3d columns(const Eigen::Vector3d &a, const Eigen::Vector3d &b)
{
    Eigen::Matrix3d m;
    m << a, b, a.cross(b);
    return m;
}

/// The rotation whose transpose takes the calibration's right and up to these axes.
Eigen::Matrix3d expectedRotation(const QByteArray &type, int right, int top)
{
    const Eigen::Vector3d up = type == "normal" ? Eigen::Vector3d::UnitZ() : Eigen::Vector3d::UnitY();
    return columns(Eigen::Vector3d::UnitX(), up) * columns(vectorOf(right), vectorOf(top)).transpose();
}

/// What the window writes for these angles.
Eigen::Matrix3d writtenRotation(const Angles &angles)
{
    bsMatrix matrix = rotationFromAngles(angles[0], angles[1], angles[2]);
    snapAxisAligned(matrix);
    return Eigen::Matrix<double, 3, 3, Eigen::RowMajor>(controllerRows(matrix).data());
}

QString unknownType()
{
    return spoken("CoarseAdjustment",
                  "The coordinate type of the room calibration is not known here, so axes cannot be assigned "
                  "to directions here. Use the tab \"Fine\".");
}

} // namespace

Q_DECLARE_METATYPE(Angles)

Q_DECLARE_METATYPE(CoordinateType)

class CoarseAdjustmentTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldKeepItsAxesWhenTheWheelPassesOverTheLists()
    {
        Bench bench;
        QVERIFY(bench.isReady);
        bench.part<QPushButton>("pushButton_reset")->setFocus();
        for (QComboBox *list : {bench.right(), bench.top()}) {
            const int before = list->currentIndex();
            turnWheelOver(list, 1);
            turnWheelOver(list, -2);
            QCOMPARE(list->currentIndex(), before);
        }
        QCOMPARE(bench.room.changes.size(), 0);
    }

    void shouldKnowOfNoCoordinateTypeBeforeTheControllerWasAsked()
    {
        // GIVEN
        RecordingHost host;
        BackendVersions versions = interfaceVersion(1, 24, 0);
        CoarseAdjustment panel(&host, &versions, nullptr);
        // WHEN
        panel.recompute();
        // THEN
        QCOMPARE(host.count(), 0);
        const auto *notice = panel.findChild<QLabel *>(QStringLiteral("label_assignNotice"));
        QVERIFY2(notice->text().startsWith("The controller has no coordinate type"),
                 qPrintable(notice->text()));
        QVERIFY(!panel.findChild<QPushButton *>(QStringLiteral("pushButton_reset"))->isEnabled());
    }

    void shouldOfferItsSignalAndSlotsInOrder()
    {
        const QMetaObject &meta = CoarseAdjustment::staticMetaObject;
        QStringList methods;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            methods << QString::fromLatin1(meta.method(i).methodSignature());
        QCOMPARE(methods, QStringList({QStringLiteral("do_btn_apply_enable(bool)"),
                                       QStringLiteral("resizeEvent(QResizeEvent*)"),
                                       QStringLiteral("on_comboBox_top_currentIndexChanged(int)"),
                                       QStringLiteral("on_comboBox_right_currentIndexChanged(int)"),
                                       QStringLiteral("on_pushButton_reset_clicked()")}));
    }

    void shouldShowTheTextsOfItsForm()
    {
        const Bench bench;
        QCOMPARE(bench.part<QGroupBox>("groupBox")->title(),
                 QStringLiteral("Adjust room coordinate system by rotating around axes"));
        QCOMPARE(bench.text("lbl_camera_coordinates"), QStringLiteral("camera coordinates"));
        QCOMPARE(bench.text("label"), QStringLiteral("assign axes to room directions"));
        QCOMPARE(bench.part<QPushButton>("pushButton_reset")->text(), QStringLiteral("&Reset"));
        QCOMPARE(bench.part<QWidget>("stackedWidget")->toolTip(),
                 QStringLiteral("The current room coordinate system."));
        QCOMPARE(bench.right()->toolTip(),
                 QStringLiteral("Change the horizontal axis to rotate room coordinate system."));
        QCOMPARE(bench.top()->toolTip(),
                 QStringLiteral("Change the vertical axis to rotate room coordinate system."));
        QCOMPARE(bench.part<QWidget>("pushButton_reset")->toolTip(),
                 QStringLiteral("Reset room coordinate system to default values"));
        QVERIFY(!bench.part<QPushButton>("pushButton_reset")->autoDefault());
    }

    void shouldOnlyShowTheCameraTable()
    {
        Bench bench;
        QStandardItemModel model(5, 4);
        bench.panel.setCameraModel(&model);
        const auto *table = bench.part<QTableView>("tableView");
        QCOMPARE(table->model(), &model);
        QCOMPARE(table->verticalHeader()->defaultSectionSize(), 28);
        QCOMPARE(table->rowHeight(4), 28);
        QVERIFY(!table->verticalHeader()->isVisible());
        QVERIFY(!table->horizontalHeader()->sectionsClickable());
        QCOMPARE(table->selectionMode(), QAbstractItemView::NoSelection);
        QCOMPARE(table->editTriggers(), QAbstractItemView::NoEditTriggers);
        for (const int width : {960, 1400}) {
            bench.panel.resize(width, 540);
            for (int column = 0; column < 4; ++column)
                QTRY_COMPARE(table->columnWidth(column), table->width() / 4 - 1);
        }
    }

    void shouldShareTheWidthOfTheTableAnewAtEachOpening()
    {
        Bench bench;
        QStandardItemModel model(5, 4);
        bench.panel.setCameraModel(&model);
        auto *table = bench.part<QTableView>("tableView");
        table->setColumnWidth(1, 20);
        bench.panel.updatePanel();
        QCOMPARE(table->columnWidth(1), table->width() / 4 - 1);
    }

    void shouldAskTheControllerByItsVersion_data()
    {
        const QString last = QStringLiteral("read roomcal last_coordinate_type");
        const QString current = QStringLiteral("read roomcal coordinate_type");
        QTest::addColumn<int>("minor");
        QTest::addColumn<int>("patch");
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<QStringList>("calls");
        QTest::newRow("before") << 8 << 0 << QByteArray("normal") << QStringList{current};
        QTest::newRow("exactly") << 9 << 0 << QByteArray("normal") << QStringList{last};
        QTest::newRow("third number not known") << 9 << -1 << QByteArray("normal") << QStringList{last};
        QTest::newRow("third number below") << 9 << -2 << QByteArray("normal") << QStringList{current};
        QTest::newRow("later") << 10 << -2 << QByteArray("normal") << QStringList{last};
        QTest::newRow("no last calibration") << 9 << 0 << QByteArray("none") << QStringList{last, current};
        QTest::newRow("none before") << 8 << 0 << QByteArray("none") << QStringList{current};
    }

    void shouldAskTheControllerByItsVersion()
    {
        QFETCH(int, minor);
        QFETCH(int, patch);
        QFETCH(QByteArray, answer);
        QFETCH(QStringList, calls);
        const Bench bench(answer.constData(), {}, interfaceVersion(1, minor, patch));
        QCOMPARE(bench.host.calls(), calls);
    }

    void shouldTakeTheCurrentTypeWhenThereWasNoLast()
    {
        Bench bench("none");
        bench.host.setAnswer(QStringLiteral("roomcal coordinate_type"), "mid_camera");
        bench.panel.updatePanel();
        QCOMPARE(bench.picture()->coordinateType(), CoordinateType::MidCamera);
        QVERIFY(bench.right()->isEnabled());
    }

    void shouldShowEveryAnswerOfTheQuery_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<CoordinateType>("type");
        QTest::newRow("normal") << QByteArray("normal") << CoordinateType::Normal;
        QTest::newRow("powerwall") << QByteArray("powerwall") << CoordinateType::Powerwall;
        QTest::newRow("standing") << QByteArray("powerwall_standing") << CoordinateType::PowerwallStanding;
        QTest::newRow("middle camera") << QByteArray("mid_camera") << CoordinateType::MidCamera;
        QTest::newRow("none") << QByteArray("none") << CoordinateType::None;
        QTest::newRow("unknown word") << QByteArray("first_camera") << CoordinateType::None;
        QTest::newRow("trailing blank") << QByteArray("normal ") << CoordinateType::None;
        QTest::newRow("nothing") << QByteArray("") << CoordinateType::None;
        QTest::newRow("very long") << QByteArray(1000, 'n') << CoordinateType::None;
    }

    void shouldShowEveryAnswerOfTheQuery()
    {
        QFETCH(QByteArray, answer);
        QFETCH(CoordinateType, type);
        const bool isKnown = type != CoordinateType::None;
        const Bench bench(answer.constData());
        const int top = type == CoordinateType::Normal ? 4 : 2;
        QCOMPARE(bench.picture()->coordinateType(), type);
        QCOMPARE(bench.right()->isEnabled(), isKnown);
        QCOMPARE(bench.top()->isEnabled(), isKnown);
        QCOMPARE(bench.part<QLabel>("label_left")->isEnabled(), isKnown);
        QCOMPARE(bench.part<QWidget>("pushButton_reset")->isEnabled(), isKnown);
        QCOMPARE(bench.right()->currentIndex(), 0);
        QCOMPARE(bench.top()->currentIndex(), top);
        QCOMPARE(bench.picture()->axes()[2], top);
        QCOMPARE(bench.part<QLabel>("label_assignNotice")->isVisible(), !isKnown);
        QCOMPARE(bench.host.reports(), QStringList());
        if (!isKnown)
            QCOMPARE(bench.text("label_assignNotice") == unknownType(), answer != "none");
    }

    void shouldReportATypeThatCannotBeRead()
    {
        Bench bench;
        bench.host.failText(QStringLiteral("roomcal"));
        bench.host.clear();
        bench.panel.updatePanel();
        QCOMPARE(bench.host.reports(),
                 QStringList{QStringLiteral("Error: Cannot require room calibration coordinate type.")});
        QCOMPARE(bench.picture()->coordinateType(), CoordinateType::None);
        QVERIFY(!bench.right()->isEnabled());
        bench.host.succeedText(QStringLiteral("roomcal"));
        bench.panel.updatePanel();
        QVERIFY(bench.right()->isEnabled());
        QVERIFY(!bench.part<QLabel>("label_assignNotice")->isVisible());
    }

    void shouldWorkWithoutControllerVersionsAndRoom()
    {
        CoarseAdjustment panel(nullptr, nullptr, nullptr);
        panel.updatePanel();
        panel.recompute();
        QVERIFY(!panel.findChild<QComboBox *>(QStringLiteral("comboBox_right"))->isEnabled());
    }

    void shouldOfferNoAxesBeforeItKnowsTheType()
    {
        const CoarseAdjustment panel(nullptr, nullptr, nullptr, nullptr);
        for (const char *name : {"comboBox_right", "comboBox_top", "pushButton_reset"})
            QVERIFY2(!panel.findChild<QWidget *>(QLatin1String(name))->isEnabled(), name);
    }

    void shouldOfferSixAxesByTheirCodes()
    {
        const Bench bench;
        for (const QComboBox *comboBox : {bench.right(), bench.top()}) {
            QStringList texts;
            for (int i = 0; i < comboBox->count(); ++i)
                texts << comboBox->itemText(i);
            QCOMPARE(texts, axisTexts);
        }
    }

    void shouldHandOverTheRotationOfEveryAssignment_data() { addAssignments(); }

    void shouldHandOverTheRotationOfEveryAssignment()
    {
        // GIVEN
        QFETCH(QByteArray, type);
        QFETCH(int, right);
        QFETCH(int, top);
        Bench bench(type.constData());
        QVERIFY(bench.isReady);
        QSignalSpy applies(&bench.panel, &CoarseAdjustment::do_btn_apply_enable);
        // WHEN
        pickByKeys(bench.right(), right);
        pickByKeys(bench.top(), top);
        pickByKeys(bench.right(), right); // the top axis may have driven it away
        pickByKeys(bench.top(), top);
        // THEN
        QCOMPARE(bench.right()->currentIndex(), right);
        QCOMPARE(bench.top()->currentIndex(), top);
        const Eigen::Matrix3d expected = expectedRotation(type, right, top);
        QCOMPARE(writtenRotation(bench.room.angles), expected);
        QCOMPARE(applies.count(), bench.room.changes.count());
        shouldShow(bench, type, right, top);
    }

    void shouldShowTheAssignmentOfTheRoomWhenItIsOpenedAgain_data() { addAssignments(); }

    void shouldShowTheAssignmentOfTheRoomWhenItIsOpenedAgain()
    {
        QFETCH(QByteArray, type);
        QFETCH(int, right);
        QFETCH(int, top);
        // The angles come back from the nine written numbers, as after a reading from the controller.
        const Eigen::Matrix<double, 3, 3, Eigen::RowMajor> rows = expectedRotation(type, right, top);
        std::array<double, 9> numbers{};
        std::copy(rows.data(), rows.data() + 9, numbers.begin());
        const RoomAngles angles = anglesFromRotation(numbers);
        Bench bench(type.constData(), {angles.eta, angles.theta, angles.phi});
        QSignalSpy applies(&bench.panel, &CoarseAdjustment::do_btn_apply_enable);

        bench.panel.updatePanel();

        shouldShow(bench, type, right, top);
        QVERIFY(bench.part<QFrame>("frame")->isEnabled());
        QVERIFY(bench.room.changes.isEmpty());
        QCOMPARE(applies.count(), 0);
    }

    void shouldAnswerAChangeOfOneAxisOnce_data()
    {
        QTest::addColumn<bool>("changesRight");
        QTest::addColumn<int>("kept");
        QTest::addColumn<int>("chosen");
        for (int n = 0; n < 36; ++n) {
            QTest::addRow("right to %d beside %d", n / 6, n % 6) << true << n % 6 << n / 6;
            QTest::addRow("top to %d beside %d", n / 6, n % 6) << false << n % 6 << n / 6;
        }
    }

    void shouldAnswerAChangeOfOneAxisOnce()
    {
        // GIVEN: an assignment in which the kept axis stands, and another one than the chosen
        QFETCH(bool, changesRight);
        QFETCH(int, kept);
        QFETCH(int, chosen);
        Bench bench("powerwall");
        QVERIFY(bench.isReady);
        QComboBox *changed = changesRight ? bench.right() : bench.top();
        QComboBox *partner = changesRight ? bench.top() : bench.right();
        pickByKeys(changed, kept / 2 == 0 ? (chosen == 4 ? 5 : 4) : (chosen == 0 ? 1 : 0));
        pickByKeys(partner, kept);
        QCOMPARE(partner->currentIndex(), kept);
        QVERIFY(changed->currentIndex() != chosen);
        bench.room.changes.clear();
        QSignalSpy applies(&bench.panel, &CoarseAdjustment::do_btn_apply_enable);
        // WHEN
        pickByKeys(changed, chosen);
        // THEN: the first partner in the table is y for x and -x, else x
        const bool isValid = chosen / 2 != kept / 2;
        QCOMPARE(changed->currentIndex(), chosen);
        QCOMPARE(partner->currentIndex(), isValid ? kept : (chosen < 2 ? 2 : 0));
        QCOMPARE(bench.room.changes.count(), 1);
        QCOMPARE(applies.count(), 1);
        QCOMPARE(applies.first().first().toBool(), true);
        shouldShow(bench, "powerwall", bench.right()->currentIndex(), bench.top()->currentIndex());
    }

    void shouldRefuseARoomAtOtherAngles_data()
    {
        QTest::addColumn<Angles>("angles");
        QTest::addColumn<bool>("isQuarter");
        QTest::newRow("10 about z") << Angles{0, 0, 10} << false;
        QTest::newRow("45 about x") << Angles{45, 0, 0} << false;
        QTest::newRow("90.01 about y") << Angles{0, 90.01, 0} << false;
        QTest::newRow("89.01 counts as 90") << Angles{0, 0, 89.01} << true;
        QTest::newRow("-0.5 counts as 0") << Angles{-0.5, 0, 0} << true;
        QTest::newRow("half turn") << Angles{180, 0, -90} << true;
    }

    void shouldRefuseARoomAtOtherAngles()
    {
        QFETCH(Angles, angles);
        QFETCH(bool, isQuarter);
        Bench bench("normal", angles);
        const auto *frame = bench.part<QFrame>("frame");
        const auto *notice = bench.part<QLabel>("label_assignNotice");
        QCOMPARE(frame->isEnabled(), isQuarter);
        QCOMPARE(notice->isVisible(), !isQuarter);
        QVERIFY(notice->isEnabled());
        QCOMPARE(notice->text().contains(QStringLiteral("not multiples of 90 degrees")), !isQuarter);
        if (!isQuarter)
            shouldShow(bench, "normal", 0, 4);
        QVERIFY(bench.room.changes.isEmpty());
        QCOMPARE(bench.room.angles, angles);
    }

    void shouldHandOverTheDefaultOnReset()
    {
        Bench bench("mid_camera", {90, 0, 90});
        QSignalSpy applies(&bench.panel, &CoarseAdjustment::do_btn_apply_enable);
        QTest::mouseClick(bench.part<QPushButton>("pushButton_reset"), Qt::LeftButton);
        QCOMPARE(bench.room.changes, QList<Angles>{Angles{}});
        QCOMPARE(applies.count(), 1);
        shouldShow(bench, "mid_camera", 0, 2);
    }

    void shouldNotResetWithoutAType()
    {
        Bench bench("none", {90, 0, 90});
        bench.part<QPushButton>("pushButton_reset")->click();
        QMetaObject::invokeMethod(&bench.panel, "on_pushButton_reset_clicked");
        QVERIFY(bench.room.changes.isEmpty());
    }

    void shouldFollowTheFineAnglesWithoutAskingTheController()
    {
        Bench bench;
        bench.host.clear();
        QSignalSpy applies(&bench.panel, &CoarseAdjustment::do_btn_apply_enable);
        bench.room.angles = {0, 0, 33};
        bench.panel.recompute();
        QVERIFY(!bench.part<QFrame>("frame")->isEnabled());
        bench.room.angles = {0, 0, 90};
        bench.panel.recompute();
        QVERIFY(bench.part<QFrame>("frame")->isEnabled());
        shouldShow(bench, "normal", 3, 4);
        QCOMPARE(bench.host.calls(), QStringList());
        QVERIFY(bench.room.changes.isEmpty());
        QCOMPARE(applies.count(), 0);
        pickByKeys(bench.right(), 0);
        QCOMPARE(bench.room.changes.count(), 1);
    }

    void shouldNotPressResetByEnter()
    {
        Bench bench("normal", {90, 0, 0});
        QVERIFY(bench.isReady);
        bench.right()->setFocus();
        QTest::keyClick(bench.right(), Qt::Key_Return);
        QTest::keyClick(bench.right(), Qt::Key_Enter);
        QVERIFY(bench.room.changes.isEmpty());
    }

    void shouldLetTheTabKeyThroughItsWidgets()
    {
        Bench bench;
        QVERIFY(bench.isReady);
        QStandardItemModel model(5, 4);
        bench.panel.setCameraModel(&model);
        bench.part<QTableView>("tableView")->setFocus();
        QStringList visited;
        for (int i = 0; i < 3; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            visited << QApplication::focusWidget()->objectName();
        }
        QCOMPARE(visited, QStringList({QStringLiteral("comboBox_top"), QStringLiteral("comboBox_right"),
                                       QStringLiteral("pushButton_reset")}));
    }

    void shouldColourTheAxesReadablyOnLightAndDark_data()
    {
        QTest::addColumn<QColor>("window");
        QTest::newRow("light") << QColor(239, 239, 239);
        QTest::newRow("dark") << QColor(45, 45, 48);
    }

    void shouldColourTheAxesReadablyOnLightAndDark()
    {
        QFETCH(QColor, window);
        Bench bench;
        bench.panel.setPalette(QPalette(window));
        QSet<QRgb> colors;
        for (const char *name : {"label_left", "label_bottom", "label_bottom_left", "label_top_right"}) {
            const QColor color = bench.part<QLabel>(name)->palette().color(QPalette::WindowText);
            colors.insert(color.rgb());
            QVERIFY2(contrast(color, window) > 4.5, qPrintable(color.name()));
            const int axis = axisTexts.indexOf(bench.text(name));
            QCOMPARE(color, bench.right()->itemData(axis, Qt::ForegroundRole).value<QColor>());
        }
        // Red, green, and a blue that has nothing of violet.
        const QColor x = bench.right()->itemData(0, Qt::ForegroundRole).value<QColor>();
        const QColor y = bench.right()->itemData(2, Qt::ForegroundRole).value<QColor>();
        const QColor z = bench.right()->itemData(4, Qt::ForegroundRole).value<QColor>();
        QVERIFY(x.red() > x.green() && x.green() >= x.blue());
        QVERIFY(y.green() > y.blue() && y.blue() > y.red());
        QVERIFY(z.blue() > z.green() && z.green() > z.red());
        for (const QComboBox *list : {bench.right(), bench.top()})
            QCOMPARE(list->palette().color(QPalette::Text),
                     list->itemData(list->currentIndex(), Qt::ForegroundRole).value<QColor>());
        QCOMPARE(colors.size(), 3); // left x, bottom z, both diagonals y
    }

private:
    /// Every place that shows the assignment tells the same.
    static void shouldShow(const Bench &bench, const QByteArray &type, int right, int top)
    {
        const Eigen::Vector3d viewer = vectorOf(right).cross(vectorOf(top));
        int third = 0;
        while (!vectorOf(third).isApprox(viewer))
            ++third;
        QCOMPARE(bench.right()->currentIndex(), right);
        QCOMPARE(bench.top()->currentIndex(), top);
        QCOMPARE(bench.text("label_left"), axisTexts[right ^ 1]);
        QCOMPARE(bench.text("label_bottom"), axisTexts[top ^ 1]);
        QCOMPARE(bench.text("label_bottom_left"), axisTexts[third]);
        QCOMPARE(bench.text("label_top_right"), axisTexts[third ^ 1]);
        QCOMPARE(bench.picture()->axes(), (DirectionAxes{right ^ 1, right, top, top ^ 1, third, third ^ 1}));
        QCOMPARE(bench.picture()->coordinateType() == CoordinateType::Normal, type == "normal");
    }

    static void addAssignments()
    {
        QTest::addColumn<QByteArray>("type");
        QTest::addColumn<int>("right");
        QTest::addColumn<int>("top");
        for (const char *type : {"normal", "powerwall_standing"}) {
            for (int n = 0; n < 36; ++n) {
                if (n / 6 / 2 != n % 6 / 2)
                    QTest::addRow("%s: %s right, %s up", type, qPrintable(axisTexts[n / 6]),
                                  qPrintable(axisTexts[n % 6]))
                        << QByteArray(type) << n / 6 << n % 6;
            }
        }
    }

    /// The contrast ratio of the web content accessibility guidelines 2.1.
    static double contrast(const QColor &a, const QColor &b)
    {
        const auto luminance = [](const QColor &color) {
            const auto linear = [](double c) {
                return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
            };
            return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
                   0.0722 * linear(color.blueF());
        };
        const double bright = std::max(luminance(a), luminance(b));
        const double dim = std::min(luminance(a), luminance(b));
        return (bright + 0.05) / (dim + 0.05);
    }
};

ROOM_TEST_CLASS(CoarseAdjustmentTest)
#include "CoarseAdjustmentTest.moc"
