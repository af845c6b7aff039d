#pragma once

#include "AbcMatchingDialog.h"
#include "BackendVersions.h"
#include "ModalAnswer.h"
#include "RecordingHost.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>

/// What a user can press, choose, type into or read in the matching dialog.
inline constexpr const char *matchingControls[] = {
    "tableWidget_referencePoints", "w_orderCheckBox", "w_loadButton",     "pushButton_save",
    "pushButton_addRefPoint",      "w_measureButton", "comboBox_meatool", "pushButton_removeRefPoint",
    "tableWidget_measuredPoints",  "w_removeButton",  "pushButton_help",  "pushButton_clearMeaPoints",
    "w_replaceCheckBox",           "w_applyButton",   "progressBar",      "w_trafoText",
};

/// A matching dialog on a scripted host, and what a user and a controller do to it while it is open.
class OpenedDialog
{
public:
    OpenedDialog();

    /// Opens the dialog, runs `script` inside its event loop and closes it. The script tells answers() what
    /// to do with each window before it brings it up; a window too many or too few fails the test.
    void run(const std::function<void()> &script);

    RecordingHost &host() { return m_host; }
    BackendVersions &versions() { return m_versions; }
    /// Of the current opening.
    ModalAnswer &answers() { return *m_answers; }
    AbcMatchingDialog &dialog() { return *m_dialog; }
    /// Destroys the dialog, as a host may at any time.
    void destroy() { m_dialog.reset(); }

    template <typename Widget>
    [[nodiscard]] Widget *find(const char *name)
    {
        return m_dialog->findChild<Widget *>(QLatin1String(name));
    }
    void click(const char *button);
    /// A key with the window in front, where it comes back to some time after a window before it has closed.
    void press(QWidget *widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    [[nodiscard]] bool isEnabled(const char *name);
    [[nodiscard]] QString report();
    /// All but that no records arrive, which is true of a script that takes long between its measurements.
    [[nodiscard]] QString notice();
    [[nodiscard]] QString cell(const char *table, int row, int column);
    [[nodiscard]] int rows(const char *table);

    /// A frame of tool 1: its timestamp, then its record.
    void frame(double time, bool measuring, const MatchingPoint &tip, double quality = 1.0);
    /// A whole measurement of one second, begun by the controller.
    void measure(const MatchingPoint &tip);
    void addReference(const MatchingPoint &point);

    /// A "6dmt2" line with one tool.
    [[nodiscard]] static QByteArray toolRecord(const MatchingPoint &tip, double quality,
                                               const QByteArray &flags);

private:
    RecordingHost m_host;
    BackendVersions m_versions;
    std::unique_ptr<ModalAnswer> m_answers;
    std::unique_ptr<AbcMatchingDialog> m_dialog;
    double m_time = 1000.0;
};
