#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// What the command line asks of the bench.
struct BenchOptions {
    QString plugin;      ///< the module's library; empty: it is looked for
    QString controller;  ///< HOST:PORT; empty: the simulated controller of this process
    QString scenario;    ///< a scenario file for the controller of this process
    QString script;      ///< not empty: a file of lines that are run when the window is open
    QString demoFolder;  ///< not empty: do the main job by itself and leave the pictures there
    QString language;    ///< of the windows, such as "de"; empty: English
    QString backendName; ///< what the module is told; empty: a description of the controller
    QString logFile;     ///< not empty: the conversation is written there at the end
    bool isHelpWanted = false;
    bool isVersionWanted = false;
    bool observerMode = false;
    std::optional<int> cameras; ///< only for the controller of this process

    /// Requests and control lines that put the controller into the wanted state, in their order.
    QStringList startLines;

    /// Reads the arguments, the program's name first. Nothing when they are wrong; `error` is then a
    /// sentence.
    static std::optional<BenchOptions> read(const QStringList &arguments, QString *error);

    /// The text of --help; needs an application object.
    static QString help();

    /// The text of --version: the application's name and version.
    static QString version();
};
