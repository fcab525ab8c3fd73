// The shared file dialog as a window.
#pragma once

#include "framework/document/CommonDialog.h"

#include <QPointer>
#include <QWidget>

class FileDialog : public CommonDialog
{
public:
    /// The dialogs open over this window.
    void SetParent(QWidget* parent) { m_parent = parent; }

    bool ShowOpen() override;
    bool ShowSave() override;
    QString BrowseFolder(const QString& title, const QString& folder) override;

private:
    QPointer<QWidget> m_parent;
};
