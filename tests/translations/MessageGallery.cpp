#include "MessageGallery.h"

#include "AbcMatchingDialog.h"
#include "SearchProgress.h"

#include <QDialog>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryFile>
#include <QtTest>

namespace
{

struct Message {
    const char *name;
    bool (*visit)(GalleryRoom &room, const Look &look);
};

void click(QWidget &window, const char *button)
{
    window.findChild<QPushButton *>(QLatin1String(button))->click();
}

using Opening = std::function<bool(const Look &look, const QList<Look> &then)>;

/// Opens a dialog, does what brings a message box up there, and looks at the box. The windows that come
/// before the box are for `between`.
bool visitBox(const Opening &open, const Look &cause, const QList<Look> &between, const Look &look)
{
    bool isBox = false;
    QList<Look> then = between;
    then << [&isBox, &look](QWidget &window) {
        auto *box = qobject_cast<QMessageBox *>(&window);
        settle();
        if (box != nullptr)
            look(*box);
        isBox = box != nullptr;
        static_cast<QDialog &>(window).done(QDialog::Rejected);
    };
    return open(cause, then) && isBox;
}

bool visitMainBox(GalleryRoom &room, const char *button, const Look &look)
{
    return visitBox(
        [&room](const Look &inside, const QList<Look> &then) { return room.openMain(1, inside, then); },
        [button](QWidget &dialog) {
            dialog.findChild<QDoubleSpinBox *>(QStringLiteral("doubleSpinBox_x"))->setValue(5.0);
            click(dialog, button);
        },
        {}, look);
}

bool visitMatchingBox(GalleryRoom &room, const Look &cause, const Look &look, const QList<Look> &between = {})
{
    return visitBox(
        [&room](const Look &inside, const QList<Look> &then) { return room.openMatching(inside, then); },
        cause, between, look);
}

bool discard(GalleryRoom &room, const Look &look)
{
    return visitMainBox(room, "btn_cancel", look);
}

bool unsaved(GalleryRoom &room, const Look &look)
{
    return visitMainBox(room, "w_bodyMatchingButton", look);
}

bool removeReference(GalleryRoom &room, const Look &look)
{
    return visitMatchingBox(
        room,
        [](QWidget &dialog) {
            click(dialog, "pushButton_addRefPoint");
            dialog.findChild<QTableWidget *>(QStringLiteral("tableWidget_referencePoints"))->selectRow(0);
            click(dialog, "pushButton_removeRefPoint");
        },
        look);
}

bool nothingSelected(GalleryRoom &room, const Look &look)
{
    return visitMatchingBox(
        room,
        [](QWidget &dialog) {
            click(dialog, "pushButton_addRefPoint");
            click(dialog, "pushButton_removeRefPoint");
        },
        look);
}

bool removeMeasured(GalleryRoom &room, const Look &look)
{
    return visitMatchingBox(
        room,
        [&room](QWidget &dialog) {
            room.measure(dialog, {"0 0 0"});
            dialog.findChild<QTableWidget *>(QStringLiteral("tableWidget_measuredPoints"))->selectRow(0);
            click(dialog, "w_removeButton");
        },
        look);
}

bool removeAllMeasured(GalleryRoom &room, const Look &look)
{
    return visitMatchingBox(
        room,
        [&room](QWidget &dialog) {
            room.measure(dialog, {"0 0 0"});
            click(dialog, "pushButton_clearMeaPoints");
        },
        look);
}

bool noNumber(GalleryRoom &room, const Look &look)
{
    return visitMatchingBox(
        room,
        [](QWidget &dialog) {
            click(dialog, "pushButton_addRefPoint");
            dialog.findChild<QTableWidget *>(QStringLiteral("tableWidget_referencePoints"))
                ->item(0, 0)
                ->setText(QStringLiteral("twelve"));
        },
        look);
}

bool nothingToSave(GalleryRoom &room, const Look &look)
{
    return visitMatchingBox(
        room, [](QWidget &dialog) { static_cast<AbcMatchingDialog &>(dialog).on_pushButton_save_clicked(); },
        look);
}

bool unknownFormat(GalleryRoom &room, const Look &look)
{
    QTemporaryFile empty;
    if (!empty.open())
        return false;
    const QString name = empty.fileName();
    const Look choose = [name](QWidget &window) {
        window.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(name);
        QMetaObject::invokeMethod(&window, "accept");
    };
    return visitMatchingBox(room, [](QWidget &dialog) { click(dialog, "w_loadButton"); }, look, {choose});
}

bool visitAngleToolBox(GalleryRoom &room, const QList<Look> &between, const Look &look)
{
    return visitBox(
        [&room](const Look &inside, const QList<Look> &then) { return room.openAngleTool(inside, then); },
        [](QWidget &dialog) { click(dialog, "pushButton_calibrate"); }, between, look);
}

/// Lets the calibration run until its window closes or says why not.
Look followTo(GalleryRoom &room)
{
    return [&room](QWidget &window) {
        const QPointer<QWidget> progress(&window);
        for (int second = 0; second < 60 && !progress.isNull() && progress->isVisible(); ++second) {
            room.advance(1.0);
            QMetaObject::invokeMethod(progress, "update_cal_status");
        }
    };
}

bool notSupported(GalleryRoom &room, const Look &look)
{
    room.setVersion(1, 22);
    return visitAngleToolBox(room, {}, look);
}

bool noType(GalleryRoom &room, const Look &look)
{
    room.tell({"sim fault fail every \"roomcal type\""});
    return visitAngleToolBox(room, {}, look);
}

bool calibrated(GalleryRoom &room, const Look &look)
{
    return visitAngleToolBox(room, {followTo(room)}, look);
}

bool notAccepted(GalleryRoom &room, const Look &look)
{
    room.tell({"sim fault fail every \"velmar2 roomcal accept\""});
    return visitAngleToolBox(room, {followTo(room)}, look);
}

bool calibrationError(GalleryRoom &room, const Look &look)
{
    room.tell({"sim cal room error 0.3 \"The angle tool was not found by any camera.\""});
    return visitAngleToolBox(room, {followTo(room)}, look);
}

bool search(GalleryRoom &room, const Look &look)
{
    SearchProgress progress(room.window());
    progress.start();
    const auto display = [&room] { return room.window()->findChild<QProgressDialog *>(); };
    if (!QTest::qWaitFor([&display] { return display() != nullptr && display()->isVisible(); }))
        return false;
    settle();
    look(*display());
    progress.stop();
    return true;
}

constexpr Message messages[] = {
    {"box-discard", discard},
    {"box-unsaved", unsaved},
    {"box-remove-reference", removeReference},
    {"box-nothing-selected", nothingSelected},
    {"box-remove-measured", removeMeasured},
    {"box-remove-all", removeAllMeasured},
    {"box-no-number", noNumber},
    {"box-nothing-to-save", nothingToSave},
    {"box-unknown-format", unknownFormat},
    {"box-not-supported", notSupported},
    {"box-no-type", noType},
    {"box-calibrated", calibrated},
    {"box-not-accepted", notAccepted},
    {"box-calibration-error", calibrationError},
    {"search", search},
};

} // namespace

QStringList MessageGallery::names()
{
    QStringList list;
    for (const Message &message : messages)
        list << QLatin1String(message.name);
    return list;
}

bool MessageGallery::visit(const QString &name, GalleryRoom &room, const Look &look)
{
    for (const Message &message : messages) {
        if (name == QLatin1String(message.name))
            return message.visit(room, look);
    }
    return false;
}
