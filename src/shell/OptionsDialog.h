// The options: folders of data and backup, backup at closing.
#pragma once

#include "framework/document/DocumentContext.h"

#include <QCheckBox>
#include <QDialog>
#include <QGridLayout>
#include <QLineEdit>

class OptionsDialog : public QDialog
{
    Q_OBJECT

public:
    explicit OptionsDialog(const DocumentContext& context, QWidget* parent = nullptr);

private:
    /// A folder's label, field and browse button, in one row.
    QLineEdit* AddFolder(QGridLayout* layout, const QString& name, const QString& button,
                         const QString& caption, const QString& browseTitle, const QString& folder);
    void Browse(QLineEdit* field, const QString& title, const QString& initial);
    bool Usable(const QLineEdit* field);
    void Store();

    DocumentContext m_context;
    QLineEdit* m_openSave;
    QLineEdit* m_backup;
    QCheckBox* m_backupAtClose;
};
