#include "ConversationView.h"

#include "CallLog.h"
#include "SaveQuestion.h"
#include "TextFile.h"
#include "ui_ConversationView.h"

#include <QAction>
#include <QClipboard>
#include <QEvent>
#include <QHeaderView>
#include <QMessageBox>
#include <QScrollBar>

#include <algorithm>

namespace
{

constexpr int rowPadding = 4;

int columnWidth(const QTableView *view, const QString &widest)
{
    return view->fontMetrics().horizontalAdvance(widest) + 4 * rowPadding;
}

} // namespace

ConversationView::ConversationView(CallLog &log, QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::ConversationView>())
    , m_log(log)
{
    m_ui->setupUi(this);
    m_filter.setSourceModel(&m_log);
    buildTable();
    addActions();
    m_ui->kindBox->addItems({QString(), QString(), QString()});
    showTexts();
    const QScrollBar *bar = m_ui->callView->verticalScrollBar();
    connect(&m_filter, &QAbstractItemModel::rowsAboutToBeInserted, this,
            [this, bar] { m_isAtEnd = bar->value() == bar->maximum(); });
    connect(&m_filter, &QAbstractItemModel::rowsInserted, this, &ConversationView::followEnd,
            Qt::QueuedConnection);
}

ConversationView::~ConversationView() = default;

void ConversationView::buildTable()
{
    QTableView *view = m_ui->callView;
    view->setModel(&m_filter);
    view->verticalHeader()->hide();
    view->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowPadding);
    view->horizontalHeader()->setStretchLastSection(true);
    view->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    view->setColumnWidth(CallLog::Number, columnWidth(view, QStringLiteral("00000")));
    view->setColumnWidth(CallLog::Operation, columnWidth(view, QStringLiteral("getParameterDoubles")));
    view->setColumnWidth(
        CallLog::Text,
        columnWidth(view, QStringLiteral("tracking extra_translation -1000.000 -1000.000 -1000.000")));
}

void ConversationView::addActions()
{
    m_copyAction = new QAction(m_ui->callView);
    m_copyAction->setShortcut(QKeySequence::Copy);
    m_copyAction->setShortcutContext(Qt::WidgetShortcut);
    m_ui->callView->addAction(m_copyAction);
    m_ui->callView->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(m_copyAction, &QAction::triggered, this, &ConversationView::on_copyButton_clicked);
    m_findAction = new QAction(this);
    m_findAction->setShortcut(QKeySequence::Find);
    addAction(m_findAction);
    connect(m_findAction, &QAction::triggered, m_ui->filterEdit, qOverload<>(&QWidget::setFocus));
}

/// What the form itself does not know. The columns of short numbers are as wide as their titles.
void ConversationView::showTexts()
{
    const QStringList kinds{tr("Everything"), tr("Commands and settings"), tr("Failures and reports")};
    for (int kind = 0; kind < kinds.size(); ++kind)
        m_ui->kindBox->setItemText(kind, kinds.at(kind));
    m_copyAction->setText(tr("Copy"));
    m_findAction->setText(tr("Look for a text"));
    for (const CallLog::Column column : {CallLog::Time, CallLog::Result}) {
        const QString title = m_log.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        m_ui->callView->setColumnWidth(column, columnWidth(m_ui->callView, title));
    }
}

void ConversationView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_ui->retranslateUi(this);
    showTexts();
}

void ConversationView::followEnd()
{
    if (m_isAtEnd)
        m_ui->callView->scrollToBottom();
}

void ConversationView::on_kindBox_activated(int index)
{
    m_filter.setKind(static_cast<CallFilter::Kind>(index));
    m_ui->callView->scrollToBottom();
}

void ConversationView::on_filterEdit_textChanged(const QString &text)
{
    m_filter.setText(text);
    m_ui->callView->scrollToBottom();
}

void ConversationView::on_copyButton_clicked()
{
    QList<int> rows;
    const auto chosen = m_ui->callView->selectionModel()->selectedRows();
    for (const QModelIndex &index : chosen)
        rows << index.row();
    std::sort(rows.begin(), rows.end());
    QGuiApplication::clipboard()->setText(rows.isEmpty() ? m_filter.asText() : m_filter.asText(rows));
}

void ConversationView::on_saveButton_clicked()
{
    const QString file =
        SaveQuestion::ask(this, tr("Save the conversation"), tr("Text files (*.txt);;All files (*)"));
    if (file.isEmpty() || saveTo(file))
        return;
    QMessageBox box(QMessageBox::Warning, tr("Save the conversation"),
                    tr("%1 could not be written.").arg(file), QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText); // a file may be named like a tag
    box.exec();
}

void ConversationView::on_clearButton_clicked()
{
    m_log.clear();
}

bool ConversationView::saveTo(const QString &file) const
{
    return !saveText(file, m_filter.asText().toUtf8());
}
