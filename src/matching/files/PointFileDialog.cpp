#include "PointFileDialog.h"

#include "ObjectWatch.h"

#include <QAction>
#include <QFileInfo>
#include <QShortcut>

#include <chrono>

using namespace std::chrono_literals;

PointFileDialog::PointFileDialog(QWidget *parent, const QString &title, const QString &folder,
                                 const QString &filter)
    : QFileDialog(parent, title, folder, filter)
{
    setFileMode(QFileDialog::AnyFile); // with any other, Qt tells itself that a file does not exist
    setOption(QFileDialog::DontConfirmOverwrite);
    const auto shortcuts = findChildren<QShortcut *>();
    for (QShortcut *shortcut : shortcuts) {
        if (shortcut->key() == QKeySequence(QKeySequence::Delete))
            shortcut->setEnabled(false);
    }
    if (auto *deletion = findChild<QAction *>(QStringLiteral("qt_delete_action")))
        deletion->setVisible(false);
    m_decision.setSingleShot(true);
    m_decision.setInterval(0ms);
    connect(&m_decision, &QTimer::timeout, this, &PointFileDialog::decide);
}

QString PointFileDialog::chosenName() const
{
    const QStringList names = selectedFiles();
    return names.isEmpty() ? QString() : names.first();
}

/// The question has to wait until the widgets of the dialog, in whose handlers this runs, are not needed any
/// more: the dialog may not survive it. A folder only changes what is listed.
void PointFileDialog::accept()
{
    const QString name = chosenName();
    if (name.isEmpty() || QFileInfo(name).isDir())
        QFileDialog::accept();
    else
        m_decision.start();
}

void PointFileDialog::decide()
{
    const ObjectWatch self(this);
    const bool agreed = !m_agreement || m_agreement(*this, chosenName());
    if (self && agreed)
        QFileDialog::accept();
}
