#pragma once

#include "ui_CooTrans.h"

#include <QWidget>

/// The form of the fine page in a window, without the panel.
struct FinePage {
    QWidget window;
    Ui::CooTransClass ui;

    FinePage() { ui.setupUi(&window); }
};
