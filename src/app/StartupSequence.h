// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

class StartupHost;
struct RunContext;

/// The one straight routine that runs before any window exists: it names the process, finds
/// the installation's folders, brings the scratch template up to date and makes this
/// process's scratch database, opens the dictionary, reads the settings, keeps the command
/// line and loads the main frame and the selection window. The order is fixed: later steps
/// read what earlier ones wrote.
class StartupSequence
{
public:
    enum class Outcome
    {
        Running,            ///< the frame is loaded; the program lives on its events
        StoppedByDictionary ///< the dictionary could not be read: four beeps, no window
    };

    /// Waits between the beeps of a dictionary failure, in milliseconds.
    static constexpr int beepWaits[3] = {300, 300, 500};

    StartupSequence(StartupHost& host, RunContext& context);

    /// Runs start-up with the text the process was started with (arguments joined by blanks).
    /// Nothing is reported to the user on failure: a missing paths file, template or settings
    /// file falls back on defaults, and a dictionary failure ends in `StoppedByDictionary`.
    Outcome run(const QString& commandLine);

private:
    void createCatalogue();
    void nameProcess();
    void findFolders();
    void prepareScratchDatabase();
    bool openDictionary();
    void signalDictionaryFailure();
    void fillFixedDataPoints();
    void loadLookUpTables();
    void readTechnicianFlag();

    StartupHost& m_host;
    RunContext& m_context;
};

} // namespace lorvane
