#include "Journeys.h"

#include <QMessageBox>
#include <QTemporaryDir>

namespace
{

constexpr int workpiecePoints = 6;

void prepareNothing(ModuleHost &) {}

void prepareTurnedRoom(ModuleHost &host)
{
    host.control(QStringLiteral("velmar2 set tracking extra_rotation 0 1 0 -1 0 0 0 0 1"));
    host.control(QStringLiteral("velmar2 set tracking extra_translation 10 20 30"));
    host.control(QStringLiteral("velmar2 set tracking reference body b01"));
    host.control(QStringLiteral("sim tool 1 duration 0.5"));
}

/// Types into a number box and looks after `next` whether it is still there.
void typeAndKeep(Traveller &traveller, const char *box, double value, QStringList &lost,
                 const std::function<void()> &next)
{
    const bool isTyped = traveller.type(box, QString::number(value));
    next();
    const double shown = traveller.value(box);
    if (isTyped && !qIsNaN(shown) && shown != value)
        lost << QString::fromLatin1(box);
}

void adjustCoarsely(Traveller &traveller, QStringList &)
{
    traveller.open([&] {
        traveller.pick("comboBox_right", 2);
        traveller.click("btn_apply");
        traveller.click("btn_ok");
    });
}

void adjustFinely(Traveller &traveller, QStringList &lost)
{
    traveller.open([&] {
        traveller.goToFine();
        typeAndKeep(traveller, "doubleSpinBox_rz", 10.0, lost, [&] {
            typeAndKeep(traveller, "doubleSpinBox_x", 250.0, lost, [&] { traveller.click("btn_apply"); });
        });
        traveller.type("doubleSpinBox_scalingFactor", QStringLiteral("1.02"));
        traveller.click("btn_ok");
    });
}

void adjustAndThinkAgain(Traveller &traveller, QStringList &lost)
{
    traveller.open([&] {
        traveller.goToFine();
        typeAndKeep(traveller, "doubleSpinBox_y", 5.0, lost, [&] { traveller.click("btn_apply"); });
        traveller.answer(QMessageBox::Yes);
        traveller.click("btn_cancel");
    });
}

void adjustByPoints(Traveller &traveller, QStringList &lost)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("workpiece.txt"));
    traveller.host().control(QStringLiteral("sim object save ") + file);
    traveller.meet("AbcMatchingDialog", [&] {
        if (traveller.isEnabled("w_loadButton"))
            traveller.chooseFile(file);
        traveller.click("w_loadButton");
        const int references = traveller.rows("tableWidget_referencePoints");
        for (int point = 1; point <= workpiecePoints; ++point)
            traveller.measure(point);
        if (traveller.rows("tableWidget_referencePoints") != references)
            lost << QStringLiteral("reference points");
        traveller.click("w_applyButton");
    });
    traveller.open([&] {
        traveller.goToFine();
        traveller.click("w_bodyMatchingButton");
        traveller.click("btn_ok");
    });
}

void openAngleTool(Traveller &traveller, const std::function<void()> &afterwards)
{
    traveller.meet("AdjustToToolDlg", [&] { traveller.click("pushButton_calibrate"); });
    traveller.open([&] {
        traveller.goToFine();
        traveller.click("pushButton_att");
        afterwards();
    });
}

void calibrate(Traveller &traveller, QStringList &)
{
    traveller.followCalibration();
    openAngleTool(traveller, [&] { traveller.click("btn_cancel"); });
}

void calibrateAndCancel(Traveller &traveller, QStringList &)
{
    traveller.meet("CalibrationProgressDlg", [&] { traveller.click("pb_cancel"); });
    openAngleTool(traveller, [&] { traveller.click("btn_cancel"); });
}

} // namespace

const std::vector<Journey> &journeys()
{
    static const std::vector<Journey> all = {
        {"coarse adjustment", prepareNothing, adjustCoarsely},
        {"fine adjustment", prepareNothing, adjustFinely},
        {"fine adjustment, cancelled", prepareTurnedRoom, adjustAndThinkAgain},
        {"reference points", prepareTurnedRoom, adjustByPoints},
        {"angle tool", prepareNothing, calibrate},
        {"angle tool, cancelled", prepareNothing, calibrateAndCancel},
    };
    return all;
}
