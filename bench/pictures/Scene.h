#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// A scene of the bench from which pictures of the documents are made, as a file tells it:
///
///     # a remark, also an empty line
///     bench OPTION...   options of the bench; a word with blanks in double quotes
///     scale NUMBER      of the screen, 1 without it
///     screen W x H      size of the screen in pixels, as "screen 3200x2400"; whoever starts the program
///     heeds it palette dark
///     ...               any other line is done in the running bench, see SceneSteps
///
/// The first four stand before all others.
struct Scene {
    struct Line {
        int number = 0; ///< in the file, from 1
        QString text;
    };

    QStringList benchOptions;
    QString scale = QStringLiteral("1");
    bool isDark = false;
    std::vector<Line> lines;

    /// Nothing when the text is none; `error` is then a sentence.
    static std::optional<Scene> read(const QString &text, QString *error);
};
