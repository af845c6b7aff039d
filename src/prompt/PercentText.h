#pragma once

class QLabel;
class QProgressBar;

/// Shows in the label what the bar would write on itself. A bar's filled part has a colour of its own, on
/// which no text can be relied on to be readable. Both must live equally long.
void showPercentBeside(QProgressBar *bar, QLabel *label);
