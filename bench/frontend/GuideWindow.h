#pragma once

#include <QDialog>

class QTextBrowser;

/// Tells how points are measured, from the nominal coordinates to the applied result. It stands beside the
/// other windows and blocks none of them.
class GuideWindow : public QDialog
{
    Q_OBJECT

public:
    /// The window goes away for good when it is closed.
    explicit GuideWindow(QWidget *parent);

protected:
    void changeEvent(QEvent *event) override;

private:
    void showTexts();

    QTextBrowser *m_text;
};
