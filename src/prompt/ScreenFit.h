#pragma once

class QWidget;

/// Makes a window that is to be shown no larger than the free part of the screen that it will stand on, its
/// frame included. That is the screen of its parent. A window's smallest size still holds.
void fitToScreen(QWidget *window);
