#include "SaveQuestion.h"

#include <QFileDialog>
#include <QPointer>

namespace SaveQuestion
{

QString ask(QWidget *parent, const QString &title, const QString &filter)
{
    static QString folder = QDir::currentPath();
    const QPointer<QFileDialog> dialog = new QFileDialog(parent, title, folder, filter);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setDefaultSuffix(QStringLiteral("txt"));
    QString file;
    if (dialog->exec() == QDialog::Accepted && !dialog.isNull())
        file = dialog->selectedFiles().value(0);
    delete dialog;
    if (!file.isEmpty())
        folder = QFileInfo(file).absolutePath();
    return file;
}

} // namespace SaveQuestion
