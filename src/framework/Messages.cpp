#include "framework/Messages.h"

QString FailureMessage(const RuntimeFailure& failure)
{
    return QStringLiteral("Errore di run-time '%1': %2")
        .arg(failure.Number())
        .arg(QString::fromStdString(failure.Text()));
}
