#include "PointFilePrompt.h"

#include <QDir>
#include <QFileDialog>
#include <QPointer>

namespace
{

/// The static functions of QFileDialog keep the dialog on the stack, where a destroyed parent would delete
/// it.
QString run(QFileDialog *created)
{
    const QPointer<QFileDialog> dialog(created);
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (dialog.isNull())
        return {};
    const QStringList names = dialog->selectedFiles();
    delete dialog.data();
    return accepted && !names.isEmpty() ? names.first() : QString();
}

} // namespace

namespace PointFilePrompt
{

QString fileToLoad(QWidget *parent, const QString &title, const QString &filter)
{
    auto *dialog = new QFileDialog(parent, title, QDir::homePath(), filter);
    dialog->setFileMode(QFileDialog::ExistingFile);
    return run(dialog);
}

QString fileToSave(QWidget *parent, const QString &title, const QString &filter)
{
    auto *dialog = new QFileDialog(parent, title, QDir::homePath(), filter);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    return run(dialog);
}

} // namespace PointFilePrompt
