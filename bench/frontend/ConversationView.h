#pragma once

#include "CallFilter.h"

#include <QWidget>

#include <memory>

class CallLog;
class QAction;

namespace Ui
{
class ConversationView;
}

/// The conversation with the controller as a list that follows it, with filter, copy and save.
class ConversationView : public QWidget
{
    Q_OBJECT

public:
    /// The log must outlive the view.
    explicit ConversationView(CallLog &log, QWidget *parent = nullptr);
    ~ConversationView() override;

    /// Writes what is listed to a text file; false when that is not possible.
    [[nodiscard]] bool saveTo(const QString &file) const;

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void on_kindBox_activated(int index);
    void on_filterEdit_textChanged(const QString &text);
    void on_copyButton_clicked();
    void on_saveButton_clicked();
    void on_clearButton_clicked();

private:
    void buildTable();
    void addActions();
    void showTexts();
    void followEnd();

    std::unique_ptr<Ui::ConversationView> m_ui;
    CallLog &m_log;
    CallFilter m_filter;
    QAction *m_copyAction = nullptr;
    QAction *m_findAction = nullptr;
    bool m_isAtEnd = true;
};
