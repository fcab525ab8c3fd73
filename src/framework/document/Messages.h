// The one way in which logic speaks to the user. Windows show message boxes, the companion collects them,
// tests answer from a script.
#pragma once

#include "stats/RuntimeFailure.h"

#include <QString>

enum class MessageIcon { None, Information, Exclamation, Critical, Question };

/// The values are those that the message box call of the runtime returns.
enum class Answer { NotAsked = 0, Cancel = 2, Yes = 6, No = 7 };

class Messages
{
public:
    virtual ~Messages() = default;
    virtual void Show(MessageIcon icon, const QString& title, const QString& text) = 0;
    /// The machine's sound, where it has one.
    virtual void Beep() {}
    /// A question with yes, no and cancel.
    virtual Answer Ask(MessageIcon icon, const QString& title, const QString& text) = 0;
};

/// What the statistics say when a probability can't be had: their boxes have a title of their own.
void ShowStatisticsFailure(Messages& messages, const QString& what);

/// "Errore di run-time '13': Tipo non corrispondente"
QString FailureMessage(const RuntimeFailure& failure);

/// Why a file was not written. what: "Il documento", "Il grafico".
QString NotSavedText(const QString& what, const QString& fileName, const RuntimeFailure& failure);
