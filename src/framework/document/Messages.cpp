#include "framework/document/Messages.h"

#include "framework/text/TextFunctions.h"

void ShowStatisticsFailure(Messages& messages, const QString& what)
{
    messages.Show(MessageIcon::Critical, QStringLiteral("Errore"),
                  what + QStringLiteral("\nControllare i dati"));
}

QString FailureMessage(const RuntimeFailure& failure)
{
    return QStringLiteral("Errore di run-time '%1': %2").arg(failure.Number()).arg(FailureText(failure));
}
