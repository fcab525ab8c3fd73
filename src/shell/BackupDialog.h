// How far a backup is, where it takes longer than a second.
#pragma once

#include "shell/Backup.h"

#include <QProgressDialog>

class BackupDialog : public QProgressDialog, public BackupProgress
{
    Q_OBJECT

public:
    explicit BackupDialog(QWidget* parent);

    bool Step(qint64 done, qint64 total, const QString& name) override;
};
