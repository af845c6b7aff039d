#include "ConversationView.h"

#include "CallLog.h"
#include "ui_ConversationView.h"

#include <QAction>
#include <QClipboard>
#include <QFileDialog>
#include <QHeaderView>
#include <QMessageBox>
#include <QSaveFile>
#include <QScrollBar>

#include <algorithm>

namespace
{

constexpr int rowPadding = 4;

void setColumnWidth(QTableView *view, int column, const QString &widest)
{
    view->setColumnWidth(column, view->fontMetrics().horizontalAdvance(widest) + 4 * rowPadding);
}

} // namespace

ConversationView::ConversationView(CallLog &log, QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::ConversationView>())
    , m_log(log)
{
    m_ui->setupUi(this);
    m_ui->kindBox->addItems({tr("Everything"), tr("Commands and settings"), tr("Failures and reports")});
    m_filter.setSourceModel(&m_log);
    m_ui->callView->setModel(&m_filter);
    m_ui->callView->verticalHeader()->hide();
    m_ui->callView->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowPadding);
    m_ui->callView->horizontalHeader()->setStretchLastSection(true);
    m_ui->callView->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setColumnWidth(m_ui->callView, CallLog::Number, QStringLiteral("00000"));
    setColumnWidth(m_ui->callView, CallLog::Time, QStringLiteral("Time [s]"));
    setColumnWidth(m_ui->callView, CallLog::Operation, QStringLiteral("getParameterDoubles"));
    setColumnWidth(m_ui->callView, CallLog::Text,
                   QStringLiteral("tracking extra_translation -1000.000 -1000.000 -1000.000"));
    setColumnWidth(m_ui->callView, CallLog::Result, QStringLiteral("Result"));

    auto *copy = new QAction(tr("Copy"), m_ui->callView);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    m_ui->callView->addAction(copy);
    m_ui->callView->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(copy, &QAction::triggered, this, &ConversationView::on_copyButton_clicked);
    auto *find = new QAction(tr("Look for a text"), this);
    find->setShortcut(QKeySequence::Find);
    addAction(find);
    connect(find, &QAction::triggered, m_ui->filterEdit, qOverload<>(&QWidget::setFocus));

    const QScrollBar *bar = m_ui->callView->verticalScrollBar();
    connect(&m_filter, &QAbstractItemModel::rowsAboutToBeInserted, this,
            [this, bar] { m_isAtEnd = bar->value() == bar->maximum(); });
    connect(&m_filter, &QAbstractItemModel::rowsInserted, this, &ConversationView::followEnd,
            Qt::QueuedConnection);
}

ConversationView::~ConversationView() = default;

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
    const QString file = QFileDialog::getSaveFileName(this, tr("Save the conversation"), QString(),
                                                      tr("Text files (*.txt);;All files (*)"));
    if (!file.isEmpty() && !saveTo(file))
        QMessageBox::warning(this, tr("Save the conversation"), tr("%1 could not be written.").arg(file));
}

void ConversationView::on_clearButton_clicked()
{
    m_log.clear();
}

bool ConversationView::saveTo(const QString &file) const
{
    QSaveFile target(file);
    if (!target.open(QIODevice::WriteOnly | QIODevice::Text))
        return false;
    target.write(m_filter.asText().toUtf8());
    return target.commit();
}
