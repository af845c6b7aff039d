#include "PointFilePrompt.h"

#include "ModalWindow.h"
#include "PointFileDialog.h"
#include "Prompt.h"
#include "ReferencePointFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace
{

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(PointFilePrompt)
};

/// Lives as long as the host: the windows come and go, and nothing is stored.
QString &folderUsedLast()
{
    static QString folder;
    return folder;
}

QString folderToBeginIn()
{
    const QString &folder = folderUsedLast();
    return folder.isEmpty() || !QFileInfo(folder).isDir() ? QDir::homePath() : folder;
}

/// The dialog may be gone when these return.
bool tellUnlessItExists(PointFileDialog &dialog, const QString &name)
{
    if (ReferencePointFile::exists(name))
        return true;
    Prompt::ask(&dialog, QMessageBox::Warning, Texts::tr("File not found"),
                Texts::tr("There is no file \"%1\".").arg(name), QMessageBox::Ok);
    return false;
}

bool askBeforeReplacing(PointFileDialog &dialog, const QString &name)
{
    const QString saved = ReferencePointFile::savedName(name);
    if (!QFileInfo(saved).isFile())
        return true;
    return Prompt::ask(&dialog, QMessageBox::Warning, Texts::tr("Replace file"),
                       Texts::tr("\"%1\" exists already. Shall it be replaced?").arg(saved),
                       QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

QString run(ModalWindow<PointFileDialog> &dialog)
{
    if (dialog.exec() != QDialog::Accepted)
        return {};
    const QString name = dialog->chosenName();
    folderUsedLast() = QFileInfo(name).absolutePath();
    return name;
}

} // namespace

namespace PointFilePrompt
{

QString fileToLoad(QWidget *parent, const QString &title, const QString &filter)
{
    ModalWindow<PointFileDialog> dialog(parent, title, folderToBeginIn(), filter);
    dialog->setAgreement(tellUnlessItExists);
    return run(dialog);
}

QString fileToSave(QWidget *parent, const QString &title, const QString &filter)
{
    ModalWindow<PointFileDialog> dialog(parent, title, folderToBeginIn(), filter);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(ReferencePointFile::suffix());
    dialog->setAgreement(askBeforeReplacing);
    return run(dialog);
}

void forgetFolder()
{
    folderUsedLast().clear();
}

} // namespace PointFilePrompt
