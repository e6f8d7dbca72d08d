// Message boxes. Every message of the program goes through showMessage.
#pragma once

#include <QString>

namespace marlowick {

enum class MessageIcon { None, Information, Question, Exclamation, Critical };
// NoYes: the buttons of YesNo, but Enter means No.
enum class MessageButtons { Ok, YesNo, NoYes };
enum class MessageReply { Ok, Yes, No };

// Shows a box over the active window and waits for the answer. Esc and the frame count as No
// where there is a No. A text that would fill the screen scrolls. The box bears the object name
// "messageBox".
MessageReply showMessage(const QString& title, MessageIcon icon, MessageButtons buttons,
                         const QString& text);

// The question before a destructive or restoring command, under the title "Confirm Action".
// False only for No.
bool confirmAction(const QString& question);

// The same for what changes a sim's wardrobe: the question, a line break and "Are You Sure?".
bool confirmChange(const QString& question, const QString& lineBreak = QStringLiteral("\n"));

// The same for what loses something for good: Enter means No.
bool confirmLoss(const QString& question);

// Asks for a text, under the object name "inputBox"; empty if the box was cancelled.
QString askForText(const QString& title, const QString& prompt);

}  // namespace marlowick
