#pragma once

#include <QMessageBox>
#include <QString>

namespace kelvo {

/// One box: a line in the `messages.h` of the folder that shows it. %1, %2 stand for arguments.
struct Message {
    QMessageBox::Icon icon;
    const char *title;
    const char *text;
    /// What Enter answers to a question: No changes nothing in the hall. Yes where it is No that loses work.
    QMessageBox::StandardButton enter = QMessageBox::No;
};

inline constexpr auto Question = QMessageBox::Question;
inline constexpr auto Exclamation = QMessageBox::Warning;
inline constexpr auto CriticalError = QMessageBox::Critical;
inline constexpr auto Information = QMessageBox::Information;

enum class Answer { Yes, No, Cancel };

/// Shows the box with OK; returns when the user has seen it.
void Tell(QWidget *parent, const Message &message, const QStringList &arguments = {});
/// Yes and No; Escape and the close box mean No.
bool Ask(QWidget *parent, const Message &message, const QStringList &arguments = {});
/// Yes, No and Cancel; Escape and the close box mean Cancel.
Answer AskOrCancel(QWidget *parent, const Message &message, const QStringList &arguments = {});

} // namespace kelvo
