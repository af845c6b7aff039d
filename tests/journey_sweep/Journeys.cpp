#include "Journeys.h"

#include <QComboBox>
#include <QFile>
#include <QMessageBox>
#include <QTableWidget>
#include <QTemporaryDir>

#include <array>
#include <utility>

namespace
{

constexpr int workpiecePoints = 6;
constexpr int expertModel = 6;

/// The simulated tool, as a user would type what he measured on it.
constexpr std::array<std::pair<const char *, double>, 4> toolInTheRoom{{{"doubleSpinBox_a", 278.0},
                                                                        {"doubleSpinBox_b", 83.0},
                                                                        {"doubleSpinBox_c", 163.0},
                                                                        {"doubleSpinBox_height", 55.0}}};

void prepareNothing(ModuleHost &) {}

void prepareTurnedRoom(ModuleHost &host)
{
    host.control(QStringLiteral("velmar2 set tracking extra_rotation 0 1 0 -1 0 0 0 0 1"));
    host.control(QStringLiteral("velmar2 set tracking extra_translation 10 20 30"));
    host.control(QStringLiteral("velmar2 set tracking reference body b01"));
    host.control(QStringLiteral("sim tool 1 duration 0.5"));
}

/// The value of a number box of the window on top.
Keepsakes::Look valueOf(Traveller &traveller, const char *box)
{
    return [&traveller, box]() -> std::optional<QString> {
        const double value = traveller.value(box);
        return qIsNaN(value) ? std::nullopt : std::make_optional(QString::number(value));
    };
}

/// The chosen entry of a list of the window on top.
Keepsakes::Look choiceOf(Traveller &traveller, const char *list)
{
    return [&traveller, list]() -> std::optional<QString> {
        const auto *box = traveller.find<QComboBox>(list);
        return box == nullptr ? std::nullopt : std::make_optional(box->currentText());
    };
}

/// The coordinates in a row of a table, for as long as the table lives, be it shown or not.
Keepsakes::Look pointIn(const QPointer<QTableWidget> &table, int row)
{
    return [table, row]() -> std::optional<QString> {
        constexpr int coordinates = 3;
        if (table.isNull())
            return std::nullopt;
        QStringList texts;
        for (int column = 0; column < coordinates; ++column) {
            const QTableWidgetItem *item = table->item(row, column);
            texts << (item == nullptr ? QStringLiteral("nothing") : item->text());
        }
        return texts.join(QLatin1Char(' '));
    };
}

Keepsakes::Look contentOf(const QString &file)
{
    return [file]() -> std::optional<QString> {
        QFile content(file);
        return content.open(QIODevice::ReadOnly) ? QString::fromUtf8(content.readAll())
                                                 : QStringLiteral("nothing");
    };
}

void typeAndKeep(Traveller &traveller, const char *box, double value, Keepsakes &kept)
{
    const QString text = QString::number(value);
    if (traveller.type(box, text))
        kept.keep(QString::fromLatin1(box), text, valueOf(traveller, box));
}

void pickAndKeep(Traveller &traveller, const char *list, int index, Keepsakes &kept)
{
    if (traveller.pick(list, index))
        kept.keep(QString::fromLatin1(list), choiceOf(traveller, list));
}

/// Keeps the rows of a table from `first` on, each by itself.
void keepRows(Traveller &traveller, const char *name, int first, Keepsakes &kept)
{
    const QPointer<QTableWidget> table(traveller.find<QTableWidget>(name));
    for (int row = first; row < traveller.rows(name); ++row)
        kept.keep(QStringLiteral("%1 %2").arg(QLatin1String(name)).arg(row + 1), pointIn(table, row));
}

void adjustCoarsely(Traveller &traveller, Keepsakes &kept)
{
    traveller.open([&] {
        pickAndKeep(traveller, "comboBox_right", 2, kept);
        traveller.click("btn_apply");
        kept.check();
        traveller.click("btn_ok");
    });
}

void adjustFinely(Traveller &traveller, Keepsakes &kept)
{
    traveller.open([&] {
        traveller.goToFine();
        typeAndKeep(traveller, "doubleSpinBox_rz", 10.0, kept);
        typeAndKeep(traveller, "doubleSpinBox_x", 250.0, kept);
        traveller.click("btn_apply");
        kept.check();
        typeAndKeep(traveller, "doubleSpinBox_scalingFactor", 1.02, kept);
        traveller.click("btn_ok");
        kept.check();
    });
}

void adjustAndThinkAgain(Traveller &traveller, Keepsakes &kept)
{
    traveller.open([&] {
        traveller.goToFine();
        typeAndKeep(traveller, "doubleSpinBox_y", 5.0, kept);
        traveller.click("btn_apply");
        kept.check();
        traveller.answer(QMessageBox::Yes);
        traveller.click("btn_cancel");
    });
}

void measureThePoints(Traveller &traveller, const QString &file, Keepsakes &kept)
{
    if (traveller.isEnabled("w_loadButton"))
        traveller.chooseFile(file);
    traveller.click("w_loadButton");
    kept.keep(QStringLiteral("the file"), contentOf(file));
    keepRows(traveller, "tableWidget_referencePoints", 0, kept);
    for (int point = 1; point <= workpiecePoints; ++point) {
        const int before = traveller.rows("tableWidget_measuredPoints");
        traveller.measure(point);
        keepRows(traveller, "tableWidget_measuredPoints", before, kept);
        kept.check();
    }
    traveller.click("w_applyButton");
}

void adjustByPoints(Traveller &traveller, Keepsakes &kept)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("workpiece.txt"));
    traveller.host().control(QStringLiteral("sim object save ") + file);
    traveller.meet("AbcMatchingDialog", [&] { measureThePoints(traveller, file, kept); });
    traveller.open([&] {
        traveller.goToFine();
        traveller.click("w_bodyMatchingButton");
        kept.check(); // the lists outlast the closing
        traveller.click("btn_ok");
    });
    kept.check();
}

/// Chooses in the angle tool's dialog, calibrates, and looks at what was chosen if the dialog is still there.
void chooseAndCalibrate(Traveller &traveller, Keepsakes &kept)
{
    pickAndKeep(traveller, "comboBox_coordinateSystem", 1, kept);
    pickAndKeep(traveller, "comboBox_md", expertModel, kept);
    for (const auto &[box, millimetres] : toolInTheRoom)
        typeAndKeep(traveller, box, millimetres, kept);
    traveller.click("pushButton_calibrate");
    kept.check();
}

void openAngleTool(Traveller &traveller, Keepsakes &kept)
{
    traveller.meet("AdjustToToolDlg", [&] { chooseAndCalibrate(traveller, kept); });
    traveller.open([&] {
        traveller.goToFine();
        traveller.click("pushButton_att");
        traveller.click("btn_cancel");
    });
}

void calibrate(Traveller &traveller, Keepsakes &kept)
{
    traveller.followCalibration();
    openAngleTool(traveller, kept);
}

void calibrateAndCancel(Traveller &traveller, Keepsakes &kept)
{
    traveller.meet("CalibrationProgressDlg", [&] { traveller.click("pb_cancel"); });
    openAngleTool(traveller, kept);
}

} // namespace

const std::vector<Journey> &journeys()
{
    static const std::vector<Journey> all = {
        {"coarse adjustment", 1, prepareNothing, adjustCoarsely},
        {"fine adjustment", 3, prepareNothing, adjustFinely},
        {"fine adjustment, cancelled", 1, prepareTurnedRoom, adjustAndThinkAgain},
        {"reference points", 1 + 2 * workpiecePoints, prepareTurnedRoom, adjustByPoints},
        {"angle tool", 6, prepareNothing, calibrate},
        {"angle tool, cancelled", 6, prepareNothing, calibrateAndCancel},
    };
    return all;
}
