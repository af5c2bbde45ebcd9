#pragma once

#include "ui/main/frmmain.h"

#include <QCoreApplication>
#include <QTabWidget>
#include <QTemporaryDir>

namespace kelvo {

/// The whole main window, on line with a simulated unit that a measurement watches, one tab in front.
template <typename Unit>
struct Console {
    QTemporaryDir folder;
    Unit unit;
    SystemClock clock;
    RoomSettings room;
    Preferences options;
    FileState file;
    FrmMain window{room,
                   options,
                   file,
                   unit,
                   clock,
                   {.programDirectory = folder.path(),
                    .dataFolder = folder.filePath("data"),
                    .memoryFile = folder.filePath("windows.conf"),
                    .serialIniMissing = [] { return false; },
                    .report = [](const QString &) {}}};

    Console(Tab tab, QSize size)
    {
        room.FaderLevel = NominalFader; // or the tuning tabs ask for it
        window.resize(size);
        window.Form_Load();
        window.show();
        Find<QTabWidget>("SSTAB1")->setCurrentIndex(int(tab));
        options.AutoUpload = true;
        QCoreApplication::processEvents();
    }

    /// The control with this name; ends the program when there is none.
    template <typename Control>
    Control *Find(const QString &name)
    {
        auto *control = window.findChild<Control *>(name);
        if (!control)
            qFatal("no control of this kind is named %s", qPrintable(name));
        return control;
    }
};

} // namespace kelvo
