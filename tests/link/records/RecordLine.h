#pragma once

#include "VelmarParser.h"

#include <QByteArray>

/// The pieces of which the lines of records are put together in the tests.
const QByteArray unitRotation("[1 0 0 0 1 0 0 0 1]");
const QByteArray sixValues("[0.1 0.2 0.3 0.4 0.5 0.6]");

QByteArray tool2(const QByteArray &head, const QByteArray &flags);

/// Parses a copy of the line and makes sure that the text comes out as it went in; -1 when it does not.
int parse(VelmarParser &parser, const QByteArray &line);
