// How far a backup is, where it takes longer than a second.
#pragma once

#include "shell/Backup.h"

#include <QElapsedTimer>
#include <QProgressDialog>

#include <chrono>

class BackupDialog : public QProgressDialog, public BackupProgress
{
    Q_OBJECT

public:
    /// It is shown by the first step that is later than patience after the first one.
    explicit BackupDialog(QWidget* parent, std::chrono::milliseconds patience = std::chrono::seconds(1));

    bool Step(qint64 done, qint64 total, const QString& name) override;
    void End() override { hide(); }

private:
    std::chrono::milliseconds m_patience;
    QElapsedTimer m_since;
};
