#pragma once

class QWidget;

/// The first control inside a page that the Tab key reaches now, in the order of that key; null without any.
[[nodiscard]] QWidget *firstControlOf(QWidget *page);
