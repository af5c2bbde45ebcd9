#include "app/commandline.h"

#include <array>

namespace kelvo {

namespace {

struct Option {
    const char *name;
    const char *value; ///< what its value is called; null = it takes none
    bool CommandLine::*flag;
    QString CommandLine::*text;
    const char *meaning;
};

constexpr std::array<Option, 6> Options{{
    {"--simulate", nullptr, &CommandLine::simulate, nullptr,
     "use the simulated unit instead of the device library"},
    {"--library", "PATH", nullptr, &CommandLine::library, "load the device library from PATH"},
    {"--program-dir", "DIR", nullptr, &CommandLine::programDirectory,
     "use DIR as the program directory (settings.dat, temp.qm4, Zentra-HELP.rtf)"},
    {"--log", "FILE", nullptr, &CommandLine::log, "append each call of the device library to FILE"},
    {"--version", nullptr, &CommandLine::version, nullptr, "print the version and exit"},
    {"--help", nullptr, &CommandLine::help, nullptr, "print this text and exit"},
}};

const Option *FindOption(const QString &name)
{
    for (const Option &option : Options) {
        if (name == QLatin1String(option.name))
            return &option;
    }
    return nullptr;
}

} // namespace

CommandLine ParseCommandLine(const QStringList &arguments)
{
    CommandLine line;
    for (qsizetype next = 0; next < arguments.size(); ++next) {
        const QString &argument = arguments[next];
        if (!argument.startsWith('-')) {
            if (!line.file.isEmpty())
                return {.problem = QString("more than one file was named: %1").arg(argument)};
            line.file = argument;
            continue;
        }
        const qsizetype equals = argument.indexOf('=');
        const Option *option = FindOption(argument.left(equals));
        if (!option || (option->flag && equals >= 0))
            return {.problem = QString("unknown option: %1").arg(argument)};
        if (option->flag) {
            line.*option->flag = true;
            continue;
        }
        if (equals < 0 && next + 1 < arguments.size())
            line.*option->text = arguments[++next];
        else if (equals >= 0)
            line.*option->text = argument.mid(equals + 1);
        if ((line.*option->text).isEmpty())
            return {.problem = QString("%1 needs a value: %2").arg(option->name, option->value)};
    }
    return line;
}

QString HelpText()
{
    QString text =
        "kelvo-console [options] [FILE]\n\n"
        "Opens the console; FILE, when given, is a settings file that is opened after start-up.\n\n";
    for (const Option &option : Options) {
        const QString usage = option.value ? QString("%1 %2").arg(option.name, option.value) : option.name;
        text += QString("  %1  %2\n").arg(usage, -17).arg(option.meaning);
    }
    return text;
}

} // namespace kelvo
