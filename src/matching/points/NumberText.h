#pragma once

class QString;

/// Makes the text of a coordinate cell a number with a point and two decimals, in place.
///
/// Blanks around the text are dropped, commas become points, surplus decimals are cut off, missing ones
/// filled with zeros: "12,345" becomes "12.34", "5" becomes "5.00". The integer part, an optional sign and
/// digits, is kept as it is written. A part that is not a whole number of 32 bits becomes "0". Returns false
/// when a part had to be replaced.
[[nodiscard]] bool normalizeNumberText(QString &text);
