#pragma once

#include <QAbstractItemView>
#include <QComboBox>
#include <QtTest>

/// Opens the list of a combo box, goes to an entry and takes it, all by keys.
inline void pickByKeys(QComboBox *comboBox, int index)
{
    comboBox->setFocus();
    QTest::keyClick(comboBox, Qt::Key_F4);
    QTRY_VERIFY(comboBox->view()->isVisible());
    QTest::keyClick(comboBox->view(), Qt::Key_Home);
    for (int i = 0; i < index; ++i)
        QTest::keyClick(comboBox->view(), Qt::Key_Down);
    QTest::keyClick(comboBox->view(), Qt::Key_Return);
    QTRY_VERIFY(!comboBox->view()->isVisible());
}
