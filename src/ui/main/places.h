#pragma once

#include <QDir>
#include <QFileInfo>
#include <QString>

#include <functional>

namespace kelvo {

/// Where this run keeps and finds things, and what it was told about its surroundings.
struct Places {
    QString programDirectory{}; ///< of `settings.dat` and "temp.qm4"
    QString dataFolder{};       ///< the user's own data: journals; "" = none are kept
    QString memoryFile{};       ///< what windows remember, beside the settings of `settings.dat`
    QString helpFile{};         ///< "Zentra-HELP.rtf" with its folder
    bool ownsFiles = true;      ///< no other console runs on the program directory
    QString missingLibrary{};   ///< why the device library could not be loaded; "" = it was
    int screenHeight = 768;     ///< of the screen, in pixels that do not depend on its scale
    std::function<bool()> serialIniMissing{};      ///< the library's serial settings file does not exist yet
    std::function<void(const QString &)> report{}; ///< takes a line for standard error and the log

    /// "" when none are kept.
    QString JournalFolder() const
    {
        return dataFolder.isEmpty() ? QString() : QDir(dataFolder).filePath("journals");
    }
    /// The folder of the kept snapshots; "temp.qm4" stands beside it.
    QString SnapshotFolder() const { return QDir(programDirectory).filePath("snapshots"); }
    QString SnapshotFile() const { return QDir(programDirectory).filePath("temp.qm4"); }
    /// A unit's settings as they were found: not to be written over by a Save.
    bool IsSnapshot(const QString &path) const
    {
        const QFileInfo file(path);
        return file == QFileInfo(SnapshotFile()) || QFileInfo(file.path()) == QFileInfo(SnapshotFolder());
    }
    QString PreferencesFile() const { return QDir(programDirectory).filePath("settings.dat"); }
};

} // namespace kelvo
