#pragma once

#include <QCoreApplication>

#include <vector>

namespace Ui
{
class AbcMatchingDialogClass;
}

/// The controls of the matching dialog that show the measurement tools and the measurement: the list of
/// tools, the sign of the tracking state, the bar, and the notice that there is no tool. Times in seconds.
class MeasuringView
{
    Q_DECLARE_TR_FUNCTIONS(AbcMatchingDialog)

public:
    /// The form must outlive this.
    explicit MeasuringView(Ui::AbcMatchingDialogClass &ui);

    /// Lists the tools by their numbers, silently; the position that was selected last is kept where it
    /// exists.
    void fill(const std::vector<int> &tools);
    /// The number of the selected tool; ToolSampler::noTool if there is none.
    [[nodiscard]] int selectedTool() const;

    /// How far the user has come; nothing before there is a point.
    void showCount(int measured, int references);
    /// The notice takes the place of the count.
    void showNoToolNotice(bool show);
    /// With no tool selected, `tracked` does not count.
    void showTracking(bool tracked);

    /// Empties the bar and sets its end.
    void showStart(double duration);
    void showElapsed(double elapsed);
    /// How much of the bar is filled.
    [[nodiscard]] int percent() const;

private:
    Ui::AbcMatchingDialogClass &m_ui;
    int m_lastSelected = 0; ///< kept over openings without tools
};
