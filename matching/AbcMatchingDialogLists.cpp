#include "AbcMatchingDialog.h"

#include "MatchingLists.h"
#include "NumberText.h"
#include "PointFilePrompt.h"
#include "Prompt.h"
#include "ui_AbcMatchingDialog.h"

#include <QPointer>
#include <QTableWidget>
#include <QTimer>

// What the buttons and cells of the two lists of points do.

void AbcMatchingDialog::on_tableWidget_measuredPoints_itemSelectionChanged()
{
    showState();
}

void AbcMatchingDialog::on_w_removeButton_clicked()
{
    remove();
}

void AbcMatchingDialog::remove()
{
    const int row = m_lists->measuredTable().selectedRow();
    if (row < 0 || !confirm(tr("Remove row %1?").arg(row + 1)) || row >= m_lists->measuredTable().rowCount())
        return;
    m_lists->removeMeasured(row);
    evaluate();
}

void AbcMatchingDialog::on_pushButton_clearMeaPoints_clicked()
{
    if (m_lists->measuredTable().rowCount() == 0 || !confirm(tr("Remove all measured points?")))
        return;
    m_lists->clearMeasured();
    evaluate();
}

void AbcMatchingDialog::on_pushButton_removeRefPoint_clicked()
{
    if (m_lists->referenceTable().rowCount() == 0)
        return;
    const int row = m_lists->referenceTable().selectedRow();
    if (row < 0) {
        inform(QMessageBox::Information, tr("Remove"), tr("Nothing selected."));
    } else if (confirm(tr("Remove row %1?").arg(row + 1)) && row < m_lists->referenceTable().rowCount()) {
        m_lists->removeReference(row);
        evaluate();
    }
}

void AbcMatchingDialog::on_pushButton_addRefPoint_clicked()
{
    m_lists->addReference();
    evaluate();
}

void AbcMatchingDialog::on_tableWidget_referencePoints_clicked(QModelIndex index)
{
    onRPSelected(index);
}

void AbcMatchingDialog::onRPSelected(QModelIndex index)
{
    Q_UNUSED(index)
    showState();
}

void AbcMatchingDialog::on_tableWidget_referencePoints_itemChanged(QTableWidgetItem *item)
{
    if (!m_opened || !item)
        return;
    const QString entered = item->text();
    QString text = entered;
    const bool valid = normalizeNumberText(text);
    m_lists->referenceTable().setText(item->row(), item->column(), text);
    if (valid)
        takeReferenceCells();
    else if (!m_lists->referenceTable().isBeingEdited(item))
        refuseNumber(entered);
    else // after the editor has handed over its text: it would not survive this dialog's end in a message box
        QTimer::singleShot(0, this, [this, entered] { refuseNumber(entered); });
}

void AbcMatchingDialog::refuseNumber(const QString &entered)
{
    const QPointer<AbcMatchingDialog> self(this);
    inform(QMessageBox::Critical, tr("Error"), tr("'%1' is not a number!").arg(entered));
    if (!self.isNull())
        takeReferenceCells();
}

void AbcMatchingDialog::takeReferenceCells()
{
    m_lists->takeReferenceCells();
    evaluate();
}

void AbcMatchingDialog::on_w_loadButton_clicked()
{
    load();
}

void AbcMatchingDialog::load()
{
    using Result = ReferencePointFile::LoadResult;
    const QString name = PointFilePrompt::fileToLoad(this, tr("Open reference points file..."),
                                                     tr("Text files (*.txt);; All files (*.*)"));
    if (name.isEmpty())
        return;
    MatchingPoints points;
    const Result result = ReferencePointFile::load(name, points);
    if (result == Result::UnknownFormat) {
        inform(QMessageBox::Warning, tr("Error loading file"), tr("Unknown format !"));
    } else if (result == Result::Loaded) {
        m_lists->setReferences(std::move(points));
        evaluate();
    }
}

void AbcMatchingDialog::on_pushButton_save_clicked()
{
    if (m_lists->referenceTable().rowCount() == 0) {
        inform(QMessageBox::Critical, QStringLiteral("Save"), QStringLiteral("Nothing to save."));
        return;
    }
    const QString name =
        PointFilePrompt::fileToSave(this, tr("Save reference points"), tr("Text file (*.txt)"));
    if (!name.isEmpty())
        static_cast<void>(ReferencePointFile::save(name, m_lists->referenceTable().texts()));
}

/// False also when this dialog was destroyed while it asked.
bool AbcMatchingDialog::confirm(const QString &question)
{
    return Prompt::ask(this, QMessageBox::Warning, tr("Warning"), question,
                       QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

void AbcMatchingDialog::inform(QMessageBox::Icon icon, const QString &title, const QString &text)
{
    Prompt::ask(this, icon, title, text, QMessageBox::Ok);
}
