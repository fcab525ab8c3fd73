#include "shell/BackupDialog.h"

#include <QCoreApplication>

#include <limits>

using namespace Qt::StringLiterals;

namespace
{
constexpr int kParts = 1000;
} // namespace

BackupDialog::BackupDialog(QWidget* parent, std::chrono::milliseconds patience)
    : QProgressDialog({}, u"Annulla"_s, 0, kParts, parent), m_patience(patience)
{
    setWindowTitle(u"Backup dati"_s);
    setWindowModality(Qt::WindowModal);
    // Its own rules would show it for a guess at the time that is left, and after the end, over a message.
    setMinimumDuration(std::numeric_limits<int>::max());
    setMinimumWidth(fontMetrics().averageCharWidth() * 50);
    setAutoReset(false);
}

bool BackupDialog::Step(qint64 done, qint64 total, const QString& name)
{
    if (!m_since.isValid())
        m_since.start();
    else if (!isVisible() && m_since.elapsed() >= m_patience.count())
        forceShow(); // and from now on each new value lets keys, clicks and repaints through
    setLabelText(name);
    setValue(total == 0 ? 0 : static_cast<int>(kParts * done / total));
    // Repaints come through while nothing is shown yet; keys and clicks wait.
    if (!isVisible())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    return !wasCanceled();
}
