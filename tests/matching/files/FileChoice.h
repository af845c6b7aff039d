#pragma once

#include <QFileDialog>
#include <QLineEdit>
#include <QtTest>

#include <utility>

/// Chooses a file in a file dialog and notes what the dialog asked for. Without a name it cancels.
struct FileChoice {
    explicit FileChoice(QString file = QString())
        : name(std::move(file))
    {
    }

    QString name;
    QString title;
    QString directory;
    QStringList filters;

    void operator()(QWidget *window)
    {
        auto *dialog = qobject_cast<QFileDialog *>(window);
        QVERIFY(dialog);
        title = dialog->windowTitle();
        directory = dialog->directory().absolutePath();
        filters = dialog->nameFilters();
        if (name.isEmpty()) {
            dialog->reject();
            return;
        }
        auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        edit->setText(name);
        QTest::keyClick(edit, Qt::Key_Return);
    }
};
