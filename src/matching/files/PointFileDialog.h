#pragma once

#include <QFileDialog>
#include <QTimer>

#include <functional>

/// A file dialog that takes a name only when it is agreed to, and asks no questions of its own.
///
/// Qt's own questions stand on the stack as children of the dialog: a host that destroys the window behind
/// them, or unloads the module, would free them twice. That is why no file can be deleted here either. To
/// whoever looks for it by its class name it is the QFileDialog that it stands for.
class PointFileDialog : public QFileDialog
{
public:
    /// Whether the dialog may end with this name. May open windows in front of the dialog, and see its end.
    using Agreement = std::function<bool(PointFileDialog &dialog, const QString &name)>;

    PointFileDialog(QWidget *parent, const QString &title, const QString &folder, const QString &filter);

    void setAgreement(Agreement agreement) { m_agreement = std::move(agreement); }

    /// Empty when there is none.
    [[nodiscard]] QString chosenName() const;

protected:
    void accept() override;

private:
    void decide();

    Agreement m_agreement;
    QTimer m_decision; ///< asks after the handlers of the key or click have returned: see accept()
};
