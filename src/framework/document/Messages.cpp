#include "framework/document/Messages.h"

#include "framework/text/TextFunctions.h"

#include <QDir>

void ShowStatisticsFailure(Messages& messages, const QString& what)
{
    messages.Show(MessageIcon::Critical, QStringLiteral("Errore"),
                  what + QStringLiteral("\nControllare i dati"));
}

QString FailureMessage(const RuntimeFailure& failure)
{
    return QStringLiteral("Errore di run-time '%1': %2").arg(failure.Number()).arg(FailureText(failure));
}

QString NotSavedText(const QString& what, const QString& fileName, const RuntimeFailure& failure)
{
    return QStringLiteral("%1 non è stato salvato nel file\n%2\n\n%3.")
        .arg(what, QDir::toNativeSeparators(fileName), FailureText(failure));
}
