#pragma once

#include "BackendVersions.h"
#include "ModalAnswer.h"
#include "RecordingHost.h"
#include "RoomAdjustmentDlg2g.h"

#include <QWidget>

#include <functional>

/// The room adjustment dialog on a scripted host, opened in its real modal loop.
class DialogFixture
{
public:
    /// `window` is the host's window, `host` outlives the dialog.
    explicit DialogFixture(int major = 1, int minor = 24, int patch = -1);

    /// Triggers the opening and runs `inside` once the dialog is up; returns the result of the opening. Fails
    /// the test when the dialog did not open. A dialog that `inside` left open is closed by its result
    /// Rejected, without any of its own sequences.
    int open(const std::function<void()> &inside);

    template <typename Widget>
    Widget *child(const char *name)
    {
        return dialog.findChild<Widget *>(QString::fromLatin1(name));
    }

    void click(const char *button);
    void type(const char *spinBox, const QString &text);
    void selectTab(int index);

    RecordingHost host;
    BackendVersions versions;
    QWidget window;
    ModalAnswer answer;
    RoomAdjustmentDlg2g dialog;
};

/// The calls of an opening with four cameras that have rooms and a neutral controller at rest, in order, up
/// to the subscriptions.
QStringList openingCalls(int major, int minor);
QStringList subscribeCalls();
QStringList unsubscribeCalls();
/// The calls that refill the camera table.
QStringList tableCalls();
/// Rotation, translation and scaling as they are written.
QStringList writeCalls(const QString &rotation, const QString &translation, const QString &scaling);
extern const char *const identityRotation;
