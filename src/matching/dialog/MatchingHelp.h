#pragma once

#include <QDialog>

#include <memory>

namespace Ui
{
class MatchingHelpClass;
}

/// Explains the room adjustment based on reference points, with two pictures.
class MatchingHelp : public QDialog
{
    Q_OBJECT

public:
    explicit MatchingHelp(QWidget *parent = nullptr);
    ~MatchingHelp() override;

public slots:
    void on_pushButton_exit_clicked();

protected:
    void changeEvent(QEvent *event) override;

private:
    void fitHeight();

    std::unique_ptr<Ui::MatchingHelpClass> m_ui;
};
