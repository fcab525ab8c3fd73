#include "shell/BackupDialog.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace
{
constexpr int kParts = 1000;
constexpr int kMillisecondsUntilShown = 1000;
} // namespace

BackupDialog::BackupDialog(QWidget* parent) : QProgressDialog({}, u"Annulla"_s, 0, kParts, parent)
{
    setWindowTitle(u"Backup dati"_s);
    setWindowModality(Qt::WindowModal);
    setMinimumDuration(kMillisecondsUntilShown);
    setMinimumWidth(fontMetrics().averageCharWidth() * 50);
    setAutoReset(false);
}

bool BackupDialog::Step(qint64 done, qint64 total, const QString& name)
{
    setLabelText(name);
    setValue(total == 0 ? 0 : static_cast<int>(kParts * done / total));
    // Repaints come through while nothing is shown yet; keys and clicks wait.
    if (!isVisible())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    return !wasCanceled();
}
