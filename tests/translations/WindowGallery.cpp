#include "WindowGallery.h"

#include "CalibrationProgressDlg.h"
#include "CountdownDlg.h"
#include "FitPictureWindow.h"
#include "HelpDialog.h"
#include "MatchingEvaluation.h"
#include "MatchingHelp.h"
#include "MessageGallery.h"

#include <QCheckBox>
#include <QPushButton>
#include <QStackedWidget>
#include <QTableWidget>
#include <QtTest>

#include <array>

namespace
{

enum Tab { Coarse = 0, Fine = 1 };

struct Exhibit {
    const char *name;
    std::function<bool(GalleryRoom &room, const Look &look)> visit;
};

using Visit = std::function<bool(GalleryRoom &, const Look &)>;

/// The main dialog after these lines were told to the controller.
Visit mainDialog(Tab tab, const QStringList &lines = {})
{
    return [tab, lines](GalleryRoom &room, const Look &look) {
        room.tell(lines);
        return room.openMain(tab, look);
    };
}

bool tooOld(GalleryRoom &room, const Look &look)
{
    room.setVersion(0, 15);
    return room.openMain(Coarse, look);
}

bool withoutView(GalleryRoom &room, const Look &look)
{
    return room.openMain(Fine, [&look](QWidget &window) {
        window.findChild<QStackedWidget *>(QStringLiteral("viewStack"))->setCurrentIndex(0);
        settle();
        look(window);
    });
}

/// The matching dialog after these lines were told to the controller.
Visit matching(const QStringList &lines = {})
{
    return [lines](GalleryRoom &room, const Look &look) {
        room.tell(lines);
        return room.openMatching([&look](QWidget &window) {
            window.findChild<QPushButton *>(QStringLiteral("pushButton_addRefPoint"))->click();
            settle();
            look(window);
        });
    };
}

bool matchingTooOld(GalleryRoom &room, const Look &look)
{
    room.setVersion(1, 2);
    return room.openMatching(look);
}

bool measuring(GalleryRoom &room, const Look &look)
{
    return room.openMatching([&](QWidget &window) {
        room.startMeasuring(window, 1);
        room.advance(0.5);
        look(window);
    });
}

/// The matching dialog after these points were entered and measured.
Visit matched(const QStringList &points)
{
    return [points](GalleryRoom &room, const Look &look) {
        return room.openMatching([&](QWidget &window) {
            room.measure(window, points);
            settle();
            look(window);
        });
    };
}

/// With the large display, and a point that slipped.
bool enlarged(GalleryRoom &room, const Look &look)
{
    return room.openMatching([&](QWidget &window) {
        window.findChild<QCheckBox *>(QStringLiteral("checkBox_largeDisplay"))->setChecked(true);
        room.measure(window, {"0 0 0", "500 0 0", "0 300 0", "100 200 400", "300 300 100"});
        auto *moved = window.findChild<QTableWidget *>(QStringLiteral("tableWidget_referencePoints"));
        moved->item(3, 2)->setText(QStringLiteral("440"));
        room.startMeasuring(window, 1);
        room.advance(0.5);
        settle();
        look(window);
    });
}

bool stalled(GalleryRoom &room, const Look &look)
{
    return room.openProgress([&](QWidget &window) {
        static_cast<CalibrationProgressDlg &>(window).show_warning();
        settle();
        look(window);
    });
}

bool calculating(GalleryRoom &room, const Look &look)
{
    room.tell({"sim cal room afterwork 60"});
    return room.openProgress([&](QWidget &window) {
        room.advance(40.0);
        static_cast<CalibrationProgressDlg &>(window).update_cal_status();
        settle();
        look(window);
    });
}

bool show(QDialog &dialog, const Look &look)
{
    dialog.show();
    if (!QTest::qWaitForWindowExposed(&dialog))
        return false;
    settle();
    look(dialog);
    return true;
}

bool picture(GalleryRoom &room, const Look &look)
{
    const MatchingPoints plate{{0, 0, 0}, {500, 0, 0}, {500, 300, 0}, {0, 300, 0}};
    const MatchingEvaluation symmetric =
        MatchingEvaluation::of(plate, plate, MatchingEvaluation::Order::Searched, {});
    FitPictureWindow dialog(plate, symmetric, room.window());
    return show(dialog, look);
}

bool countdown(GalleryRoom &room, const Look &look)
{
    CountdownDlg dialog(room.window());
    dialog.setCountdown(QString(), 5);
    return show(dialog, look);
}

template <typename Help>
bool help(GalleryRoom &room, const Look &look)
{
    Help dialog(room.window());
    return show(dialog, look);
}

const QStringList turned{
    "velmar2 set tracking extra_rotation 0.98480775 -0.17364818 0 0.17364818 0.98480775 0 0 0 1"};
const QStringList withoutType{"sim fault answer every \"roomcal last_coordinate_type\" = none",
                              "sim fault answer every \"roomcal coordinate_type\" = none"};
const QStringList wide{"velmar2 set tracking extra_scaling 1.20000"};
const QStringList withoutRooms{"sim camera 1 room none", "sim camera 2 room none", "sim camera 3 room none",
                               "sim camera 4 room none"};
const QStringList withoutTool{"sim fault answer every \"measurementtool available\" = no"};

const QList<Exhibit> &exhibits()
{
    static const QList<Exhibit> list{
        {"coarse", mainDialog(Coarse)},
        {"coarse-turned", mainDialog(Coarse, turned)},
        {"coarse-without-type", mainDialog(Coarse, withoutType)},
        {"coarse-locked", mainDialog(Coarse, {"sim locked yes"})},
        {"coarse-too-old", tooOld},
        {"fine", mainDialog(Fine)},
        {"fine-wide-scaling", mainDialog(Fine, wide)},
        {"fine-without-view", withoutView},
        {"fine-cannot-track", mainDialog(Fine, {"sim available no"})},
        {"fine-without-rooms", mainDialog(Fine, withoutRooms)},
        {"matching", matching()},
        {"matching-without-tip", matching({"sim tool 1 calibrated no"})},
        {"matching-without-tool", matching(withoutTool)},
        {"matching-too-old", matchingTooOld},
        {"matching-measuring", measuring},
        {"matching-report", matched({"0 0 0", "500 0 0", "0 300 0", "100 200 400"})},
        {"matching-symmetric", matched({"0 0 0", "400 0 0", "400 400 0", "0 400 0"})},
        {"matching-line", matched({"0 0 0", "500 1 0", "1000 0 0", "1600 0 1", "1600 0.5 1"})},
        {"matching-first-three", matched({"0 0 0", "500 1 0", "1000 0 0", "0 400 0", "300 100 300"})},
        {"matching-enlarged", enlarged},
        {"matching-picture", picture},
        {"matching-help", help<MatchingHelp>},
        {"angle-tool", [](GalleryRoom &room, const Look &look) { return room.openAngleTool(look); }},
        {"progress", stalled},
        {"progress-calculating", calculating},
        {"countdown", countdown},
        {"view-help", help<HelpDialog>},
    };
    return list;
}

} // namespace

QStringList WindowGallery::windows()
{
    QStringList names;
    for (const Exhibit &exhibit : exhibits())
        names << QLatin1String(exhibit.name);
    return names;
}

QStringList WindowGallery::all()
{
    return windows() + MessageGallery::names();
}

bool WindowGallery::visit(const QString &name, const Look &look)
{
    for (const Exhibit &exhibit : exhibits()) {
        if (name == QLatin1String(exhibit.name))
            return exhibit.visit(m_room, look);
    }
    return MessageGallery::visit(name, m_room, look);
}
