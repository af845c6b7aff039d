#!/usr/bin/env python3
"""What tests/mutate changes, and what it leaves alone."""
import sys
import unittest

sys.dont_write_bytecode = True

import changes  # noqa: E402
import sources  # noqa: E402
import trials  # noqa: E402

SOURCE = """#include "Panel.h"

Panel::Panel(QWidget *parent, int count)
    : m_count(count)
{
    connect(m_ui->button, &QPushButton::clicked, this, [this] { emit applied(m_count, 2); });
    m_ui->label->hide();
    const int width = largest(first, second);
    const int most = std::max({first, second, third});
    const double apart = distance(left, right);
    if (width < 0) // never (a, b)
        reset();
    return;
}
"""

FORM = """<ui>
 <widget class="QDoubleSpinBox" name="box">
  <property name="enabled">
   <bool>false</bool>
  </property>
  <property name="minimum">
   <double>-5.500000000000000</double>
  </property>
  <property name="objectName">
   <string>7</string>
  </property>
 </widget>
 <tabstops>
  <tabstop>box</tabstop>
  <tabstop>button</tabstop>
  <tabstop>list</tabstop>
 </tabstops>
</ui>
"""


def results(path, text, kind):
    """The lines that differ in each mutant of the kind."""
    sources.text_of = lambda _: text
    found = [mutant for mutant in changes.mutants_of(path) if mutant.kind == kind]
    return [[line.strip() for line in mutant.changed(text).splitlines() if line not in text.splitlines()]
            for mutant in found]


class ChangesTest(unittest.TestCase):
    def test_should_exchange_arguments_but_no_parameters(self):
        self.assertEqual(results("Panel.cpp", SOURCE, "arguments"), [
            ["connect(m_ui->button, &QPushButton::clicked, this, [this] { emit applied(2, m_count); });"],
            ["const int width = largest(second, first);"]])

    def test_should_leave_arguments_in_place_whose_order_does_not_count(self):
        text = """bool judge()
{
    const double length = squaredLength({x, y, z}) + lengthOf(difference(to, from));
    if (std::strcmp(left, right) < 0)
        return std::strncmp(text, word, size) == 0;
    return squaredLength(centre(first, second)) > 0.0;
}
"""
        self.assertEqual(results("Judge.cpp", text, "arguments"), [
            ["if (std::strcmp(right, left) < 0)"],
            ["return std::strncmp(text, size, word) == 0;"],
            ["return squaredLength(centre(second, first)) > 0.0;"]])

    def test_should_leave_rows_in_place_of_which_no_line_fits_both(self):
        text = """std::vector<SimRequestRow> lines()
{
    return {{"tool # tip ...", tip},
            {"tool # touch #", touch},
            {"tool # *", all},
            {"tool # stop", stop}};
}
"""
        self.assertEqual(results("Lines.cpp", text, "arguments"), [['{"tool # stop", stop}, {"tool # *", all}};']])
        self.assertEqual(len(results("Lines.cpp", text.replace("SimRequestRow", "Row"), "arguments")), 3)

    def test_should_leave_a_list_to_each_of_which_the_same_is_done(self):
        text = """void show(bool all)
{
    for (QWidget *part : std::initializer_list<QWidget *>{first, second})
        part->setVisible(all);
    for (QWidget *part : std::initializer_list<QWidget *>{third, fourth})
        last = part;
}
"""
        self.assertEqual(results("Panel.cpp", text, "arguments"),
                         [["for (QWidget *part : std::initializer_list<QWidget *>{fourth, third})"]])

    def test_should_remove_calls_but_no_declarations(self):
        texts = [mutant.changed(SOURCE) for mutant in changes.mutants_of("Panel.cpp") if mutant.kind == "statement"] \
            if results("Panel.cpp", SOURCE, "statement") else []
        self.assertEqual(len(texts), 2)
        self.assertNotIn("hide()", texts[0])
        self.assertNotIn("reset()", texts[1])
        self.assertIn("if (width < 0) // never (a, b)\n        ;\n", texts[1])

    def test_should_leave_what_only_asks_for_memory_early(self):
        text = "void fill()\n{\n    m_list.reserve(7);\n    reserve(7);\n}\n"
        self.assertEqual(results("Panel.cpp", text, "statement"), [[";"]])

    def test_should_leave_a_break_where_the_switch_ends_anyway(self):
        text = """void show()
{
    switch (m_kind) {
    case Kind::Full:
        tell();
        break;
    case Kind::Empty:
        break;
    case Kind::Unknown:
        break;
    }
}
"""
        self.assertEqual(len(results("Panel.cpp", text, "statement")), 3)

    def test_should_remove_connections(self):
        self.assertEqual(results("Panel.cpp", SOURCE, "connection"), [[";"]])

    def test_should_change_numbers_of_the_code_alone(self):
        self.assertEqual(results("Panel.cpp", SOURCE, "token"), [["if (width <= 0) // never (a, b)"],
                                                               ["if (width < 1) // never (a, b)"]])

    def test_should_leave_declarations_of_headers_alone(self):
        self.assertEqual(results("Panel.h", "class Panel\n{\n    Panel(int, int);\n};\n", "statement"), [])

    def test_should_change_ranges_states_and_the_tab_order_of_forms(self):
        self.assertEqual(results("Panel.ui", FORM, "form")[:2], [["<double>-4.5</double>"], ["<bool>true</bool>"]])
        sources.text_of = lambda _: FORM
        orders = [mutant.replacement.split() for mutant in changes.mutants_of("Panel.ui")[2:]]
        self.assertEqual(orders, [["<tabstop>button</tabstop>", "<tabstop>box</tabstop>"],
                                  ["<tabstop>list</tabstop>", "<tabstop>button</tabstop>"]])

    def test_should_draw_the_same_whatever_happens_elsewhere(self):
        sources.text_of = lambda _: SOURCE
        before = changes.drawn(changes.mutants_of("Panel.cpp"), 3)
        longer = SOURCE.replace("    return;", "    m_last = 0;\n    return;")
        sources.text_of = lambda _: longer
        after = changes.drawn(changes.mutants_of("Panel.cpp"), 3)
        self.assertEqual([mutant for mutant in after if mutant in before and mutant.kind == "statement"],
                         [mutant for mutant in before if mutant.kind == "statement"])
        self.assertNotEqual(before, changes.drawn(changes.mutants_of("Panel.cpp"), 4))


class FoldersTest(unittest.TestCase):
    def test_should_ask_the_own_test_of_a_folder_first(self):
        known = {"fine_panel", "fine_without_opengl", "dialog", "link", "translations"}
        self.assertEqual(sources.tests_of("src/fine/panel/CooTrans.cpp", known),
                         ["fine_panel", "fine_without_opengl", "dialog"])
        self.assertEqual(sources.tests_of("src/fine/panel/CooTrans.ui", known)[-1], "translations")

    def test_should_ask_the_test_of_the_folder_above_where_there_is_none(self):
        self.assertEqual(sources.tests_of("src/link/words/Words.cpp", {"link", "dialog"}), ["link", "dialog"])

    def test_should_ask_the_classes_of_the_file_first_and_the_longest_last(self):
        self.assertEqual(trials.in_turn(["DestructionTest", "DialogClosingTest", "FirstControlTest"], "FirstControl"),
                         [["FirstControlTest"], ["DialogClosingTest"], ["DestructionTest"]])
        self.assertEqual(trials.in_turn(["FirstControlTest"], "CameraRooms"), [["FirstControlTest"]])

    def test_should_know_only_classes_and_functions_that_there_are(self):
        for name in [*sources.LONG_CLASSES, *sources.TAB_FUNCTIONS]:
            name, _, function = name.partition("::")
            found = list((sources.ROOT / "tests").rglob(f"{name}.cpp"))
            self.assertTrue(found and f"{function}()" in found[0].read_text(), name)

    def test_should_tell_what_computes(self):
        for folder in ("src/math", "src/link/numbers", "src/matching/fit", "bench/controller"):
            self.assertEqual(sources.group_of(folder), sources.COMPUTING)
        for folder in ("src/fine/panel", "src/matching/dialog", "src/view/canvas"):
            self.assertEqual(sources.group_of(folder), sources.ELSEWHERE)


if __name__ == "__main__":
    unittest.main()
