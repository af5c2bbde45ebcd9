#pragma once

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

namespace kelvo {

/// The console as a program. It is killed when the test has seen enough.
struct ConsoleProcess {
    explicit ConsoleProcess(const QStringList &arguments)
    {
        // Where there is no Windows directory, the stand-in is made here and not in the user's home.
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("XDG_CONFIG_HOME", home.path());
        process.setProcessEnvironment(environment);
        const QDir tests(QCoreApplication::applicationDirPath());
        process.start(tests.filePath("../../kelvo-console"), arguments);
    }
    ~ConsoleProcess()
    {
        process.kill();
        process.waitForFinished();
    }

    QTemporaryDir home;
    QProcess process;
};

} // namespace kelvo
