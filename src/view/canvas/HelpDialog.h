#pragma once

#include <QDialog>

#include <memory>

namespace Ui
{
class HelpDialog;
}

/// Explains the mouse controls of the room view.
class HelpDialog : public QDialog
{
    Q_OBJECT

public:
    explicit HelpDialog(QWidget *parent);
    ~HelpDialog() override;

protected:
    void changeEvent(QEvent *event) override;

private:
    std::unique_ptr<Ui::HelpDialog> m_ui;
};
