#pragma once

class QString;

/// Millimetres as the bench's windows show them: two decimals and a point, whatever the locale.
QString millimetreText(double value);
